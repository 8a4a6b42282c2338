#include "shell/MainForm.h"

#include <utility>

#include "basic/Files.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

MainForm::MainForm(std::filesystem::path applicationDirectory)
    : m_copy(std::move(applicationDirectory)) {}

void MainForm::RequireShown() const {
    if (const auto show = std::exchange(m_showFirst, {})) {
        show();
        throw RunTimeError(ErrorKind::FileAccess,
                           "The window showed another model than the working copy " +
                               PathText(m_copy.Path()) +
                               " holds. It shows that one now, and nothing was done: look, and do "
                               "it again.");
    }
}

}  // namespace quarnel02

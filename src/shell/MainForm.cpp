#include "shell/MainForm.h"

#include <utility>

namespace quarnel02 {

MainForm::MainForm(std::filesystem::path applicationDirectory)
    : m_copy(std::move(applicationDirectory)) {}

}  // namespace quarnel02

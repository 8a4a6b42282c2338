#include "batch/HandOver.h"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "basic/Files.h"
#include "basic/RunTimeError.h"

namespace fs = std::filesystem;

namespace quarnel02 {

void HandOverToReport(char* arguments[]) {
    const fs::path program = fs::read_symlink("/proc/self/exe").parent_path() / "quarnel02-report";
    if (KindOfFile(program) == FileKind::Missing) {
        throw RunTimeError(ErrorKind::FileNotFound,
                           "--pdf needs the program " + PathText(program) +
                               ", which is not installed. Install the package quarnel02, or keep "
                               "report and drawings with --out DIR --pictures.");
    }
    ::execv(program.c_str(), arguments);
    throw RunTimeError(ErrorKind::FileAccess, PathText(program) + " cannot be started: " +
                                                  std::generic_category().message(errno) +
                                                  ". Install the package quarnel02 again.");
}

}  // namespace quarnel02

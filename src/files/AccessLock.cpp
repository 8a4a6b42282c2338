#include "files/AccessLock.h"

#include <string>
#include <system_error>

#include "basic/Files.h"
#include "basic/RunTimeError.h"

namespace fs = std::filesystem;

namespace quarnel02 {

void RequireNotOpenInAccess(const fs::path& file, std::string_view name) {
    for (const char* extension : {".ldb", ".LDB", ".laccdb"}) {
        fs::path lock = file;
        lock.replace_extension(extension);
        std::error_code unknown;
        if (fs::exists(lock, unknown)) {
            const std::string lock_name = PathText(lock.filename());
            std::string text(name);
            text.append(" is open in Access: the lock file ").append(lock_name);
            text.append(" stands beside it. Close it there. If nobody has it open, delete ");
            throw RunTimeError(ErrorKind::DatabaseLocked, text.append(lock_name).append("."));
        }
    }
}

}  // namespace quarnel02

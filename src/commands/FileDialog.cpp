#include "commands/FileDialog.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "commands/ModelPath.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr const char* kModelExtension = ".mdb";
constexpr std::string_view kNewAccessExtension = ".accdb";

/// The name less its extension.
std::string Stem(const std::string& name) {
    constexpr std::size_t extension = 4;
    return name.ends_with(kModelExtension) ? name.substr(0, name.size() - extension) : name;
}

bool IsSeparator(char c) {
    return c == '/' || c == static_cast<char>(fs::path::preferred_separator);
}

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

/// Asks the file system, whose limits differ.
bool IsTooLong(const std::string& path) {
    std::error_code error;
    static_cast<void>(fs::symlink_status(path, error));
    return error == std::errc::filename_too_long;
}

}  // namespace

std::string WithModelExtension(const std::string& name) {
    return name.empty() || name.ends_with(kModelExtension) ? name : name + kModelExtension;
}

std::string WithOpenedExtension(const std::string& name) {
    return name.ends_with(kNewAccessExtension) ? name : WithModelExtension(name);
}

std::string WithSavedExtension(const std::string& name) {
    return name.ends_with(kNewAccessExtension)
               ? name.substr(0, name.size() - kNewAccessExtension.size()) + kModelExtension
               : name;
}

std::string FileNameObjection(const std::string& directory, const std::string& name) {
    if (std::any_of(name.begin(), name.end(), IsControl)) {
        return "A file name cannot hold line breaks or other control characters. Remove them from "
               "the name.";
    }
    if (std::any_of(name.begin(), name.end(), IsSeparator)) {
        return "There is no directory \"" + ModelPath(directory, DirectoryPart(name)) +
               "\", and a file name cannot hold \"/\". Choose a directory from the list, or "
               "another "
               "name.";
    }
    if (Stem(name).find_first_not_of(" .") == std::string::npos) {
        return "A file name needs more than points and blanks. Enter another name.";
    }
    if (IsTooLong(ModelPath(directory, name))) {
        return "This name is too long for a file. Enter a shorter one.";
    }
    return {};
}

}  // namespace quarnel02

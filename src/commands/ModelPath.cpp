#include "commands/ModelPath.h"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr char kSeparator = static_cast<char>(fs::path::preferred_separator);

/// Bytes of the UTF-8 character that the text begins with.
std::size_t FirstCharacter(std::string_view text) {
    std::size_t length = text.empty() ? 0 : 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) {
        ++length;
    }
    return length;
}

std::size_t LastSeparator(const std::string& path) {
    return path.find_last_of(std::string{'\\', kSeparator});
}

}  // namespace

std::string ModelPath(const std::string& directory, const std::string& file) {
    return directory + kSeparator + file;
}

bool FileExists(const std::string& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

std::string FileNamePart(const std::string& path) {
    const auto separator = LastSeparator(path);
    return path.substr(separator == std::string::npos ? FirstCharacter(path) : separator + 1);
}

std::string DirectoryPart(const std::string& path) {
    const auto separator = LastSeparator(path);
    return separator == std::string::npos ? std::string() : path.substr(0, separator);
}

}  // namespace quarnel02

#include "stoch/RunFiles.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>
#include <vector>

#include "basic/Files.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

/// A family of names: a start, and for the resource tables something further on.
struct Pattern {
    std::string_view Start;
    bool Whole;             ///< nothing may follow the start
    std::string_view Then;  ///< must occur somewhere behind the start; "" for anything
};

/// In the order in which they are deleted.
constexpr std::array<Pattern, 6> kPatterns = {{{"Temp", false, ""},
                                               {"Final", false, ""},
                                               {"IT", false, ""},
                                               {"EProd", true, ""},
                                               {"EShift", true, ""},
                                               {"F", false, ".R"}}};

constexpr std::array<std::string_view, 5> kSpared = {"blank.seq", "working.seq", "Marrowgate.cfg",
                                                     "RunRpt.txt", "ProdRpt.txt"};

bool Matches(const Pattern& pattern, std::string_view name) {
    if (!name.starts_with(pattern.Start)) {
        return false;
    }
    if (pattern.Whole) {
        return name == pattern.Start;
    }
    return name.find(pattern.Then, pattern.Start.size()) != std::string_view::npos;
}

bool IsSpared(const fs::directory_entry& entry) {
    const std::string name = PathText(entry.path().filename());
    return entry.is_directory() || name.ends_with(".mdb") ||
           std::find(kSpared.begin(), kSpared.end(), name) != kSpared.end();
}

std::vector<fs::path> FilesMatching(const fs::path& directory, const Pattern& pattern) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(directory)) {
        if (!IsSpared(entry) && Matches(pattern, PathText(entry.path().filename()))) {
            files.push_back(entry.path());
        }
    }
    return files;
}

[[noreturn]] void ThrowFileError(const std::string& doing, const fs::path& path,
                                 const std::error_code& error) {
    throw RunTimeError(ErrorKind::FileAccess, "Cannot " + doing + " the run file " +
                                                  PathText(path) + ": " + error.message() + ".");
}

}  // namespace

fs::path RunFiles::Resource(int start, int end, int resource) const {
    return Path("F" + NumberText(start) + "T" + NumberText(end) + ".R" + NumberText(resource));
}

fs::path RunFiles::Initial(int start, int end) const {
    return Path("IT" + NumberText(start) + NumberText(end));
}

fs::path RunFiles::Candidate(int number) const {
    return Path("Temp" + NumberText(number));
}

fs::path RunFiles::Final(int end) const {
    return Path("Final" + NumberText(end));
}

void RunFiles::DeleteAll() const noexcept {
    for (const Pattern& pattern : kPatterns) {
        try {
            for (const fs::path& file : FilesMatching(m_directory, pattern)) {
                std::error_code ignored;
                fs::remove(file, ignored);
            }
        } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
            // Meant: what cannot be deleted stays.
        }
    }
}

void RunFiles::ForEach(const std::function<void(const fs::path&)>& action) const {
    for (const Pattern& pattern : kPatterns) {
        for (const fs::path& file : FilesMatching(m_directory, pattern)) {
            action(file);
        }
    }
}

void DeleteRunFile(const fs::path& path) {
    std::error_code error;
    fs::remove(path, error);
    if (error) {
        ThrowFileError("delete", path, error);
    }
}

void RenameRunFile(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::rename(from, to, error);
    if (error) {
        ThrowFileError("rename", from, error);
    }
}

}  // namespace quarnel02

#include "stoch/RunFiles.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>
#include <vector>

#include "basic/Files.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "stoch/Records.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

/// A family of tables whose names match one pattern, in small letters: "#" stands for a number,
/// which begins with no 0, "##" for two of them without separation.
struct Family {
    int Turn;  ///< when they are deleted; families of one turn go together
    std::string_view Pattern;
    std::size_t RecordSize;
};

constexpr std::array kFamilies = {Family{1, "temp", DesignSegment::kSize},
                                  Family{1, "temp#", DesignSegment::kSize},
                                  Family{1, "tempa", ArcSegment::kSize},
                                  Family{1, "tempc", ArcSegment::kSize},
                                  Family{2, "final", DesignSegment::kSize},
                                  Family{2, "final#", DesignSegment::kSize},
                                  Family{3, "it##", ArcSegment::kSize},
                                  Family{4, "eprod", ExpectedProductionRecord::kSize},
                                  Family{5, "eshift", ExpectedShiftRecord::kSize},
                                  Family{6, "f#t#.r#", ArcSegment::kSize}};
constexpr int kLastTurn = 6;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Takes the digits of `numbers` numbers off the front; false when there are none.
bool TakeNumbers(std::string_view& name, std::size_t numbers) {
    std::size_t digits = 0;
    while (digits < name.size() && IsDigit(name[digits])) {
        ++digits;
    }
    const bool taken = digits >= numbers && name.front() != '0';
    name.remove_prefix(digits);
    return taken;
}

bool Matches(std::string_view pattern, std::string_view name) {
    while (!pattern.empty()) {
        if (pattern.front() == '#') {
            const auto numbers = std::min(pattern.find_first_not_of('#'), pattern.size());
            if (!TakeNumbers(name, numbers)) {
                return false;
            }
            pattern.remove_prefix(numbers);
            continue;
        }
        if (name.empty() || name.front() != pattern.front()) {
            return false;
        }
        pattern.remove_prefix(1);
        name.remove_prefix(1);
    }
    return name.empty();
}

std::string InSmallLetters(std::string name) {
    for (char& c : name) {
        c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    }
    return name;
}

/// The family of a run file; nullptr for any other file.
const Family* FamilyOf(const fs::path& path) {
    const std::string name = InSmallLetters(PathText(path.filename()));
    const auto* const family =
        std::find_if(kFamilies.begin(), kFamilies.end(),
                     [&](const Family& each) { return Matches(each.Pattern, name); });
    std::error_code error;
    if (family == kFamilies.end() || !fs::is_regular_file(fs::symlink_status(path, error))) {
        return nullptr;
    }
    const auto size = fs::file_size(path, error);
    return !error && size % family->RecordSize == 0 ? family : nullptr;
}

std::vector<fs::path> FilesOfTurn(int turn, const fs::path& directory) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(directory)) {
        const Family* const family = FamilyOf(entry.path());
        if (family != nullptr && family->Turn == turn) {
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
    for (int turn = 1; turn <= kLastTurn; ++turn) {
        try {
            for (const fs::path& file : FilesOfTurn(turn, m_directory)) {
                std::error_code ignored;
                fs::remove(file, ignored);
            }
        } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
            // Meant: what cannot be deleted stays.
        }
    }
}

void RunFiles::ForEach(const std::function<void(const fs::path&)>& action) const {
    for (int turn = 1; turn <= kLastTurn; ++turn) {
        for (const fs::path& file : FilesOfTurn(turn, m_directory)) {
            action(file);
        }
    }
}

bool IsRunFile(const fs::path& path) {
    return FamilyOf(path) != nullptr;
}

void RequireFree(const fs::path& path) {
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(path, ignored)) && !IsRunFile(path)) {
        throw RunTimeError(ErrorKind::FileAccess,
                           "The run file " + PathText(path) +
                               " cannot be made: something else has its name. Move that elsewhere "
                               "and solve again.");
    }
}

void DeleteRunFile(const fs::path& path) {
    std::error_code error;
    if (IsRunFile(path) && !fs::remove(path, error) && error) {
        ThrowFileError("delete", path, error);
    }
}

void RenameRunFile(const fs::path& from, const fs::path& to) {
    RequireFree(to);
    std::error_code error;
    fs::rename(from, to, error);
    if (error) {
        ThrowFileError("rename", from, error);
    }
}

}  // namespace quarnel02

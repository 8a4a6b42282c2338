#include "stoch/RunFiles.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "basic/Files.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "stoch/RunRecords.h"

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

constexpr std::array kFamilies = {
    Family{1, "temp", kDesignRecord},  Family{1, "temp#", kDesignRecord},
    Family{1, "tempa", kArcRecord},    Family{1, "tempc", kArcRecord},
    Family{2, "final", kDesignRecord}, Family{2, "final#", kDesignRecord},
    Family{3, "it##", kArcRecord},     Family{4, "eprod", kProductionRecord},
    Family{5, "eshift", kShiftRecord}, Family{6, "f#t#.r#", kArcRecord}};

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
const Family* FamilyOf(const fs::directory_entry& file) {
    const std::string name = InSmallLetters(PathText(file.path().filename()));
    const auto* const family =
        std::find_if(kFamilies.begin(), kFamilies.end(),
                     [&](const Family& each) { return Matches(each.Pattern, name); });
    std::error_code error;
    if (family == kFamilies.end() || file.is_symlink(error) || !file.is_regular_file(error)) {
        return nullptr;
    }
    const auto size = file.file_size(error);
    return !error && size % family->RecordSize == 0 ? family : nullptr;
}

/// In the order in which they are deleted: family by family.
std::vector<fs::path> RunFilesIn(const fs::path& directory) {
    std::vector<std::pair<int, fs::path>> files;
    for (const auto& entry : fs::directory_iterator(directory)) {
        if (const Family* const family = FamilyOf(entry)) {
            files.emplace_back(family->Turn, entry.path());
        }
    }
    std::stable_sort(files.begin(), files.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<fs::path> paths;
    paths.reserve(files.size());
    for (auto& [turn, path] : files) {
        paths.push_back(std::move(path));
    }
    return paths;
}

[[noreturn]] void ThrowFileError(const std::string& doing, const fs::path& path,
                                 const std::error_code& error) {
    throw RunTimeError(ErrorKind::FileAccess, "Cannot " + doing + " the run file " +
                                                  PathText(path) + ": " + error.message() + ".");
}

[[noreturn]] void ThrowWriteError(const fs::path& path, const char* doing, int reason) {
    throw RunTimeError(ErrorKind::FileAccess,
                       "The run file " + PathText(path) + " cannot be " + doing + ": " +
                           std::generic_category().message(reason) +
                           ". Check the space and the rights of the application directory.");
}

/// Refuses to make a run file where something stands that is none.
void RequireFree(const fs::path& path) {
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(path, ignored)) && !IsRunFile(path)) {
        throw RunTimeError(ErrorKind::FileAccess,
                           "The run file " + PathText(path) +
                               " cannot be made: something else has its name. Move that elsewhere "
                               "and solve again.");
    }
}

/// Whether the records are on their way to the disk: in one piece, so that what a killed program
/// leaves is whole records, which are known as a run file.
bool WriteAtOnce(std::FILE* file, const std::string& records) {
    (void)std::setvbuf(file, nullptr, _IONBF, 0);
    const bool written = std::fwrite(records.data(), 1, records.size(), file) == records.size();
    const int reason = errno;
    const bool closed = std::fclose(file) == 0;
    errno = written ? errno : reason;
    return written && closed;
}

void WriteRunFile(const fs::path& path, const std::string& records) {
    RequireFree(path);
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) {
        ThrowWriteError(path, "made", errno);
    }
    if (!WriteAtOnce(file, records)) {
        const int reason = errno;
        std::error_code ignored;
        fs::remove(path, ignored);
        ThrowWriteError(path, "written", reason);
    }
}

void DeleteFile(const fs::path& path) {
    std::error_code error;
    if (!fs::remove(path, error) && error) {
        ThrowFileError("delete", path, error);
    }
}

}  // namespace

std::string RunFileName(const CurveName& curve) {
    const std::string first = NumberText(curve.FirstTask);
    const std::string last = NumberText(curve.LastTask);
    switch (curve.Stage) {
        case CurveStage::Resource:
            return "F" + first + "T" + last + ".R" + NumberText(curve.Number);
        case CurveStage::ArcMerge:
            return "TempC";
        case CurveStage::Arc:
            return "IT" + first + last;
        case CurveStage::Candidate:
            return "Temp" + NumberText(curve.Number);
        case CurveStage::PrefixMerge:
            return "Final";
        case CurveStage::Prefix:
        case CurveStage::WithPenalties:
            return "Final" + last;
    }
    return {};
}

RunFiles::RunFiles(fs::path directory, std::optional<fs::path> kept)
    : m_directory(std::move(directory)), m_kept(std::move(kept)) {}

void RunFiles::Write(const std::string& name, const std::string& records) const {
    WriteRunFile(m_directory / name, records);
    WriteScratch(name, records);
}

void RunFiles::Delete(const std::string& name) const {
    if (IsRunFile(m_directory / name)) {
        DeleteFile(m_directory / name);
    }
    if (m_kept) {
        DeleteFile(*m_kept / name);
    }
}

void RunFiles::WriteScratch(const std::string& name, const std::string& records) const {
    if (m_kept) {
        WriteFile(*m_kept / name, records);
    }
}

void RunFiles::RenameScratch(const std::string& from, const std::string& to) const {
    if (!m_kept) {
        return;
    }
    std::error_code error;
    fs::rename(*m_kept / from, *m_kept / to, error);
    if (error) {
        ThrowFileError("rename", *m_kept / from, error);
    }
}

void RunFiles::DeleteAll() const noexcept {
    try {
        for (const fs::path& file : RunFilesIn(m_directory)) {
            std::error_code ignored;
            fs::remove(file, ignored);
        }
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
        // Meant: what cannot be deleted stays.
    }
}

bool IsRunFile(const fs::path& path) {
    std::error_code ignored;
    return FamilyOf(fs::directory_entry(path, ignored)) != nullptr;
}

}  // namespace quarnel02

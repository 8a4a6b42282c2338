#include "commands/KeptWork.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <system_error>
#include <tuple>
#include <utility>

#include "basic/Counted.h"
#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "commands/KeptName.h"
#include "files/ModelFile.h"
#include "files/SaveModel.h"
#include "model/Database.h"
#include "model/InputDigest.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr std::size_t kMostKept = 20;
constexpr const char* kModel = ".mdb";
constexpr const char* kUnreadable = ".seq";
constexpr const char* kJournal = "-journal";

struct KeptFile {
    fs::path Path;
    KeptName Name;
};

/// Files of kept work, newest first.
std::vector<KeptFile> FilesIn(const fs::path& directory) {
    std::vector<KeptFile> files;
    try {
        for (const auto& entry : fs::directory_iterator(directory)) {
            std::error_code ignored;
            const auto name = ReadKeptName(PathText(entry.path().filename()));
            if (name && fs::is_regular_file(entry.symlink_status(ignored))) {
                files.push_back({entry.path(), *name});
            }
        }
    } catch (const fs::filesystem_error&) {  // NOLINT(bugprone-empty-catch)
        // Meant: a directory that is not there, or not to be read, has none.
    }
    std::sort(files.begin(), files.end(), [](const KeptFile& a, const KeptFile& b) {
        return std::tie(b.Name.Time, b.Name.Number, a.Path) <
               std::tie(a.Name.Time, a.Name.Number, b.Path);
    });
    return files;
}

void MakePrivateDirectory(const fs::path& directory) {
    std::error_code failure;
    fs::create_directories(directory, failure);
    if (!failure) {
        fs::permissions(directory, fs::perms::owner_all, failure);
    }
    if (failure) {
        throw RunTimeError(ErrorKind::FileAccess,
                           "The directory of kept work " + PathText(directory) +
                               " cannot be made: " + failure.message() +
                               ". Remove what stands in its place, or allow writing beside it.");
    }
}

void MakePrivate(const fs::path& file) {
    std::error_code ignored;  // file systems without rights have none to give away
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write, ignored);
}

void RemoveOldest(const fs::path& directory, const fs::path& spared) {
    const std::vector<KeptFile> files = FilesIn(directory);
    std::size_t stay = 1;
    for (const KeptFile& file : files) {
        std::error_code ignored;
        if (file.Path != spared && ++stay > kMostKept) {
            fs::remove(file.Path, ignored);
            fs::remove(fs::path(file.Path) += kJournal, ignored);
        }
    }
}

fs::path FreePlace(const fs::path& directory, const std::string& product, const char* extension,
                   KeptWork::Clock::time_point now) {
    KeptName name{KeptProduct(product), KeptTime(now), 1, extension};
    for (const KeptFile& file : FilesIn(directory)) {
        if (file.Name.Time == name.Time) {
            name.Number = std::max(name.Number, file.Name.Number + 1);
        }
    }
    std::error_code ignored;
    while (fs::exists(fs::symlink_status(directory / name.Text(), ignored))) {
        ++name.Number;
    }
    return directory / name.Text();
}

std::int64_t CountOf(const Database& model, const char* table) {
    return model.OpenRecordSet(std::string("SELECT * FROM ") + table + ";").RecordCount();
}

std::string ProductOf(const Database& model) {
    const RecordSet gen = model.OpenRecordSet("SELECT * FROM Gen;");
    return gen.Eof() ? std::string() : gen.Text("Product");
}

/// None for a file that cannot be read as a model.
std::optional<std::string> ProductOfFile(const fs::path& file) {
    try {
        CheckModelFile(file, PathText(file));
        return ProductOf(Database::Open(file));
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

bool HasInputs(const fs::path& file, std::uint64_t inputs) {
    try {
        return InputDigest(Database::Open(file)) == inputs;
    } catch (const RunTimeError&) {
        return false;
    }
}

/// "2026-11-21 10:05" of "2026-11-21 10-05-33".
std::string ShownTime(std::string time) {
    constexpr std::size_t colon = 13;
    constexpr std::size_t minutes_end = 16;
    time.at(colon) = ':';
    return time.substr(0, minutes_end);
}

std::string ShownProduct(std::string product) {
    constexpr std::size_t most_bytes = 100;
    std::replace_if(
        product.begin(), product.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    if (product.find_first_not_of(' ') == std::string::npos) {
        return "Untitled";
    }
    return product.size() > most_bytes ? KeptProduct(product) + "..." : product;
}

std::string CaptionOf(const KeptFile& file) {
    const Database model = Database::Open(file.Path);
    return ShownTime(file.Name.Time) + "  " + ShownProduct(ProductOf(model)) + "  (" +
           Counted(CountOf(model, "Tasks"), "task") + ", " +
           Counted(CountOf(model, "Resources"), "resource") + ")";
}

}  // namespace

KeptWork::KeptWork(fs::path directory) : m_directory(std::move(directory)) {}

fs::path KeptWork::Keep(const fs::path& workingCopy, Clock::time_point now) const {
    MakePrivateDirectory(m_directory);
    std::string product;
    {
        const Database work = Database::Open(workingCopy);
        const auto files = FilesIn(m_directory);
        const auto newest = std::find_if(files.begin(), files.end(), [](const KeptFile& file) {
            return file.Name.Extension == kModel;
        });
        if (newest != files.end() && HasInputs(newest->Path, InputDigest(work))) {
            return newest->Path;
        }
        product = ProductOf(work);
    }
    fs::path place = FreePlace(m_directory, product, kModel, now);
    KeepModel(workingCopy, place);
    RemoveOldest(m_directory, place);
    return place;
}

fs::path KeptWork::SetAside(const fs::path& file, Clock::time_point now) const {
    MakePrivateDirectory(m_directory);
    const auto product = ProductOfFile(file);
    fs::path place =
        FreePlace(m_directory, product.value_or("Unreadable"), product ? kModel : kUnreadable, now);
    std::error_code failure;
    fs::rename(file, place, failure);
    if (failure) {
        throw RunTimeError(ErrorKind::FileAccess, PathText(file) + " cannot be moved to " +
                                                      PathText(place) + ": " + failure.message() +
                                                      ".");
    }
    std::error_code ignored;
    fs::rename(fs::path(file) += kJournal, fs::path(place) += kJournal, ignored);
    MakePrivate(place);
    RemoveOldest(m_directory, place);
    return place;
}

bool KeptWork::Holds(const fs::path& file) const {
    std::error_code ignored;
    return fs::equivalent(file.parent_path(), m_directory, ignored);
}

std::vector<KeptModel> KeptWork::List() const {
    std::vector<KeptModel> models;
    for (const KeptFile& file : FilesIn(m_directory)) {
        if (file.Name.Extension != kModel) {
            continue;
        }
        try {
            models.push_back({file.Path, CaptionOf(file)});
        } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
            // One that cannot be read cannot be loaded either, and hides only itself.
        }
    }
    return models;
}

}  // namespace quarnel02

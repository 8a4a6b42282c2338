#include "commands/RecentFiles.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "commands/ModelPath.h"

namespace quarnel02 {

namespace {

constexpr std::size_t kOldEntriesKept = 6;

/// In front of the file name in the caption of item `number`: six characters.
std::string CaptionHead(std::size_t number) {
    return std::to_string(number) + ". ..\\";
}

/// Writing into a pipe would wait for a reader, for ever.
void RequireListOrNothing(const std::filesystem::path& configuration) {
    const FileKind kind = KindOfFile(configuration);
    if (kind == FileKind::Directory || kind == FileKind::Special) {
        throw RunTimeError(
            ErrorKind::FileAccess,
            PathText(configuration) +
                (kind == FileKind::Directory ? " is a directory." : " is not an ordinary file.") +
                " Remove it, so that the list of recent files can be written there.");
    }
}

std::string FirstField(const std::string& line) {
    return line.substr(0, line.find_first_of(",\r"));
}

}  // namespace

RecentFiles::RecentFiles(std::filesystem::path configuration)
    : m_configuration(std::move(configuration)) {}

std::vector<std::string> RecentFiles::Entries() const {
    std::vector<std::string> entries;
    if (!FileExists(PathText(m_configuration))) {
        return entries;
    }
    std::istringstream lines(ReadFile(m_configuration));
    for (std::string line; std::getline(lines, line);) {
        entries.push_back(FirstField(line));
    }
    return entries;
}

std::vector<std::string> RecentFiles::ReadableEntries() const {
    try {
        return Entries();
    } catch (const RunTimeError&) {
        return {};
    }
}

void RecentFiles::Add(const std::string& directory, const std::string& file) {
    if (directory.empty() || file.empty()) {
        return;
    }
    RequireListOrNothing(m_configuration);
    std::vector<std::string> list = Entries();
    list.resize(std::min(list.size(), kOldEntriesKept));
    list.insert(list.begin(), ModelPath(directory, file));

    std::string text;
    for (auto entry = list.begin(); entry != list.end(); ++entry) {
        if (!entry->empty() && std::find(list.begin(), entry, *entry) == entry) {
            text += *entry + "\n";
        }
    }
    WriteFile(m_configuration, text);
}

void RecentFiles::FillMenu(std::array<RecentItem, 4>& items) const {
    std::size_t shown = 0;
    for (const std::string& entry : ReadableEntries()) {
        if (shown < items.size() && FileExists(entry)) {
            items.at(shown) = {CaptionHead(shown + 1) + FileNamePart(entry), true};
            ++shown;
        }
    }
    if (shown == 3) {
        return;
    }
    for (; shown < items.size(); ++shown) {
        items.at(shown) = {std::to_string(shown + 1) + ".", false};
    }
}

std::string RecentFiles::EntryFor(const std::string& caption) const {
    const std::size_t head = CaptionHead(1).size();
    if (caption.size() <= head) {
        return {};
    }
    const std::vector<std::string> entries = ReadableEntries();
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const auto& entry) {
        return FileNamePart(entry) == caption.substr(head);
    });
    return found == entries.end() ? std::string() : *found;
}

}  // namespace quarnel02

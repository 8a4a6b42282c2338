// The sources of a folder can be compiled as one: what stands in the unnamed namespace of one has a
// name that no other uses, so that no call finds the function of another file.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "basic/Files.h"

namespace {

namespace fs = std::filesystem;

/// Names that the sources of a folder give at the beginning of a line, and in which files.
struct FolderNames {
    std::map<std::string, std::set<std::string>> Unnamed;
    std::map<std::string, std::set<std::string>> Public;
};

std::optional<std::string> NameGivenBy(const std::string& line) {
    static const std::regex type(R"(^(?:class|struct|enum|enum class|using) (\w+).*)");
    static const std::regex constant(R"(^constexpr [\w:<>,*& ]+[ *&](\w+)(?: =|\{|\[).*)");
    static const std::regex function(R"(^[A-Za-z_][\w:<>,&*\[\] ]*?[ &*](\w+)\(.*)");
    static const std::regex no_definition(R"(^(?:return|template|using namespace)\b.*)");
    std::smatch match;
    if (std::regex_match(line, no_definition)) {
        return {};
    }
    for (const std::regex& form : {type, constant, function}) {
        if (std::regex_match(line, match, form)) {
            return match[1];
        }
    }
    return {};
}

void AddNames(const fs::path& file, FolderNames& names) {
    std::istringstream text(quarnel02::ReadFile(file));
    bool unnamed = false;
    for (std::string line; std::getline(text, line);) {
        if (line == "namespace {" || line == "}  // namespace") {
            unnamed = line == "namespace {";
        } else if (const auto name = NameGivenBy(line)) {
            (unnamed ? names.Unnamed : names.Public)[*name].insert(file.filename().string());
        }
    }
}

FolderNames NamesOf(const fs::path& folder) {
    FolderNames names;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() == ".cpp") {
            AddNames(entry.path(), names);
        }
    }
    return names;
}

TEST(UnnamedNames, AreReadFromTheSources) {
    const FolderNames names = NamesOf(fs::path(QUARNEL02_SOURCES) / "shell");
    EXPECT_TRUE(names.Unnamed.contains("ReadResources"));
    EXPECT_TRUE(names.Unnamed.contains("NumberedRows"));
    EXPECT_TRUE(names.Public.contains("RequireUsableResources"));
    EXPECT_EQ(NameGivenBy("constexpr const char* kText = \"\";"), "kText");
    EXPECT_EQ(NameGivenBy("constexpr std::array<int, 2> kPair = {{"), "kPair");
}

TEST(UnnamedNames, AreUsedByOneFileOfAFolder) {
    for (const auto& folder : fs::directory_iterator(QUARNEL02_SOURCES)) {
        if (!folder.is_directory()) {
            continue;
        }
        const FolderNames names = NamesOf(folder);
        for (const auto& [name, files] : names.Unnamed) {
            std::set<std::string> all = files;
            if (const auto place = names.Public.find(name); place != names.Public.end()) {
                all.insert(place->second.begin(), place->second.end());
            }
            EXPECT_EQ(all.size(), 1U) << folder.path().filename() << ": " << name << " in "
                                      << *all.begin() << " and " << *all.rbegin();
        }
    }
}

}  // namespace

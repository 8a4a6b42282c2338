// A folder of src/ may include only its own headers and those of lower floors. Toolkit and store
// headers stay where they belong.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "basic/Files.h"

namespace {

namespace fs = std::filesystem;

/// Floors from the lowest; folders on the same one (`picture`, `model`, `jet` and `line`; `charts`,
/// `files` and `shell`; `report` and `fixed`; `editors` and `print`; `batch` and `app`) may not see
/// each other.
const std::map<std::string, int> kFloors = {
    {"basic", 0},  {"picture", 1},  {"model", 1},   {"jet", 1},     {"line", 1},  {"study", 2},
    {"charts", 3}, {"files", 3},    {"shell", 3},   {"report", 4},  {"fixed", 4}, {"stoch", 5},
    {"sheets", 6}, {"commands", 7}, {"widgets", 8}, {"editors", 9}, {"print", 9}, {"studies", 10},
    {"app", 11},   {"batch", 11},   {"pdf", 12}};

struct Include {
    fs::path File;
    std::string Folder;  ///< of the including file
    std::string Header;
    bool Quoted;
};

std::vector<Include> AllIncludes() {
    static const std::regex line_form(R"(\s*#\s*include\s*([<"])([^>"]+)[>"].*)");
    std::vector<Include> includes;
    for (const auto& entry : fs::recursive_directory_iterator(QUARNEL02_SOURCES)) {
        const auto extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp") {
            continue;
        }
        std::istringstream text(quarnel02::ReadFile(entry.path()));
        const fs::path relative = fs::relative(entry.path(), QUARNEL02_SOURCES);
        for (std::string line; std::getline(text, line);) {
            std::smatch match;
            if (std::regex_match(line, match, line_form)) {
                includes.push_back(
                    {relative, relative.begin()->string(), match[2], match[1] == "\""});
            }
        }
    }
    return includes;
}

TEST(Layers, AreReadFromTheSources) {
    const auto includes = AllIncludes();
    EXPECT_GT(includes.size(), 100U);
    EXPECT_TRUE(std::any_of(includes.begin(), includes.end(), [](const Include& each) {
        return each.Folder == "commands" && each.Header == "shell/MainForm.h" && each.Quoted;
    }));
}

TEST(Layers, EveryFolderHasAFloor) {
    for (const auto& entry : fs::directory_iterator(QUARNEL02_SOURCES)) {
        if (entry.is_directory()) {
            EXPECT_TRUE(kFloors.contains(entry.path().filename().string())) << entry.path();
        }
    }
}

TEST(Layers, NoFolderIncludesFromAHigherFloorOrItsNeighbour) {
    for (const Include& include : AllIncludes()) {
        if (!include.Quoted) {
            continue;
        }
        const std::string target = fs::path(include.Header).begin()->string();
        if (target.starts_with("ui_")) {
            continue;
        }
        ASSERT_TRUE(kFloors.contains(target))
            << include.File << " includes \"" << include.Header << "\" without its folder";
        EXPECT_TRUE(target == include.Folder || kFloors.at(target) < kFloors.at(include.Folder))
            << include.File << " includes " << include.Header;
    }
}

TEST(Layers, TheFixedDesignSeesNoWholeForm) {
    for (const Include& include : AllIncludes()) {
        EXPECT_FALSE(include.Folder == "fixed" && (include.Header == "shell/MainForm.h" ||
                                                   include.Header == "shell/HeadlessForm.h"))
            << include.File;
    }
}

TEST(Layers, StoreHeadersStayInModelAndFiles) {
    for (const Include& include : AllIncludes()) {
        const bool store = include.Header.starts_with("SQLiteCpp") || include.Header == "sqlite3.h";
        EXPECT_TRUE(!store || include.Folder == "model" || include.Folder == "files")
            << include.File;
    }
}

TEST(Layers, ToolkitHeadersStayInTheWindows) {
    for (const Include& include : AllIncludes()) {
        const bool toolkit = !include.Quoted && include.Header.starts_with("Q");
        EXPECT_TRUE(!toolkit || include.Folder == "widgets" || include.Folder == "editors" ||
                    include.Folder == "print" || include.Folder == "pdf" ||
                    include.Folder == "studies" || include.Folder == "app")
            << include.File;
    }
}

}  // namespace

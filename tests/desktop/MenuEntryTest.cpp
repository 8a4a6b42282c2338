// The menu entry starts the program that is installed, with the file that was double-clicked.
#include <gtest/gtest.h>

#include <map>
#include <pugixml.hpp>
#include <sstream>
#include <string>

#include "basic/Files.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

const fs::path kDesktop = fs::path(QUARNEL02_ROOT) / "desktop";

std::map<std::string, std::string> MenuEntry() {
    std::istringstream text(ReadFile(kDesktop / "quarnel02.desktop"));
    std::map<std::string, std::string> entry;
    for (std::string line; std::getline(text, line);) {
        const std::size_t equals = line.find('=');
        if (equals != std::string::npos) {
            entry[line.substr(0, equals)] = line.substr(equals + 1);
        }
    }
    return entry;
}

std::string FileType() {
    pugi::xml_document types;
    EXPECT_TRUE(types.load_file((kDesktop / "quarnel02.xml").c_str()));
    return types.child("mime-info").child("mime-type").attribute("type").value();
}

TEST(MenuEntry, StartsTheProgramWithOneFile) {
    EXPECT_EQ(MenuEntry().at("Exec"), "quarnel02 %f");
    EXPECT_EQ(MenuEntry().at("Terminal"), "false");
}

TEST(MenuEntry, OpensTheFileTypeOfModels) {
    const std::string types = ";" + MenuEntry().at("MimeType");
    EXPECT_NE(types.find(";" + FileType() + ";"), std::string::npos) << types;
}

TEST(MenuEntry, HasTheIconThatIsShipped) {
    EXPECT_TRUE(fs::exists(kDesktop / (MenuEntry().at("Icon") + ".svg")));
}

TEST(MenuEntry, IsWhatTheSoftwareCatalogueNames) {
    pugi::xml_document catalogue;
    ASSERT_TRUE(catalogue.load_file((kDesktop / "quarnel02.metainfo.xml").c_str()));
    const pugi::xml_node component = catalogue.child("component");
    EXPECT_STREQ(component.child_value("launchable"), "quarnel02.desktop");
    EXPECT_EQ(component.child_value("summary"), MenuEntry().at("Comment"));
    EXPECT_EQ(component.child("provides").child_value("mediatype"), FileType());
}

}  // namespace
}  // namespace quarnel02

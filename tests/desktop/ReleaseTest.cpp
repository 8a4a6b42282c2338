// Every list of versions begins with the one that is built.
#include <gtest/gtest.h>

#include <filesystem>
#include <pugixml.hpp>
#include <string>

#include "basic/Files.h"
#include "basic/Version.h"

namespace quarnel02 {
namespace {

const std::filesystem::path kRoot = QUARNEL02_ROOT;

TEST(Release, IsTheFirstOfTheSoftwareCatalogue) {
    pugi::xml_document catalogue;
    ASSERT_TRUE(catalogue.load_file((kRoot / "desktop" / "quarnel02.metainfo.xml").c_str()));
    const pugi::xml_node release = catalogue.child("component").child("releases").first_child();
    EXPECT_STREQ(release.attribute("version").value(), Version());
}

TEST(Release, IsTheFirstOfThePackages) {
    const std::string changes = ReadFile(kRoot / "desktop" / "debian" / "changelog");
    EXPECT_EQ(changes.find("quarnel02 (" + std::string(Version()) + "-1) "), 0U);
}

TEST(Release, IsTheFirstOfTheChangelog) {
    const std::string changes = ReadFile(kRoot / "CHANGELOG.md");
    const std::size_t first = changes.find("\n## ");
    EXPECT_EQ(changes.find("\n## " + std::string(Version())), first);
}

}  // namespace
}  // namespace quarnel02

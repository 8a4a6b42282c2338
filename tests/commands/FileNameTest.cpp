// Names that no file can have.
#include <gtest/gtest.h>

#include <string>

#include "basic/Files.h"
#include "commands/FileDialog.h"

namespace quarnel02 {
namespace {

struct FileName : ::testing::Test {
    [[nodiscard]] std::string Objection(const std::string& name) const {
        return FileNameObjection(PathText(Place.Path()), name);
    }
    TemporaryDirectory Place;
};

TEST_F(FileName, MayHoldWhatFilesMayHold) {
    for (const char* name : {"line.mdb", "Größe, neu.mdb", "a b.mdb", ".pump.mdb", "a..mdb"}) {
        EXPECT_EQ(Objection(name), "") << name;
    }
}

TEST_F(FileName, IsAsLongAsTheFileSystemAllows) {
    EXPECT_EQ(Objection(std::string(251, 'x') + ".mdb"), "");
    EXPECT_NE(Objection(std::string(252, 'x') + ".mdb").find("too long"), std::string::npos);
    std::string umlauts;
    for (int i = 0; i < 126; ++i) {
        umlauts += "ü";
    }
    EXPECT_NE(Objection(umlauts + ".mdb").find("too long"), std::string::npos);
}

TEST_F(FileName, HoldsNoSeparatorAndNoControlCharacter) {
    EXPECT_NE(Objection("A/B.mdb").find(PathText(Place.Path() / "A")), std::string::npos);
    EXPECT_NE(Objection("a\nb.mdb").find("line breaks"), std::string::npos);
    EXPECT_NE(Objection(std::string("a\0b.mdb", 7)).find("control"), std::string::npos);
}

TEST_F(FileName, IsMoreThanPointsAndBlanks) {
    for (const char* name : {".mdb", "..mdb", "...mdb", " .mdb", " . .mdb"}) {
        EXPECT_NE(Objection(name).find("points and blanks"), std::string::npos) << name;
    }
}

}  // namespace
}  // namespace quarnel02

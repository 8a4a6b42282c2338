#include "shell/WorkingCopy.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "basic/Files.h"
#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::TestModel;
using Texts = std::vector<std::string>;

TEST(WorkingCopy, KnowsTheFilesOfItsDirectory) {
    const WorkingCopy copy(std::filesystem::path(u8"/Öl, neu"));
    EXPECT_EQ(PathText(copy.Directory()), "/Öl, neu");
    EXPECT_EQ(PathText(copy.File("RunRpt.txt")), "/Öl, neu/RunRpt.txt");
    EXPECT_EQ(PathText(copy.Path()), "/Öl, neu/working.seq");
    EXPECT_EQ(PathText(copy.Template()), "/Öl, neu/blank.seq");
}

TEST(WorkingCopy, OpensTheModel) {
    const TestModel model("UPDATE Gen SET Tasks = 7;");
    const WorkingCopy copy(model.Directory());
    EXPECT_EQ(copy.Open().OpenRecordSet("SELECT Tasks FROM Gen;").Integer(0), 7);
}

TEST(WorkingCopy, SaysThatThereIsNone) {
    const TemporaryDirectory nothing;
    const WorkingCopy copy(nothing.Path());
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileNotFound, [&] { static_cast<void>(copy.Open()); });
    EXPECT_NE(message.find("working.seq"), std::string::npos) << message;
    EXPECT_TRUE(test::NamesIn(nothing.Path()).empty());
}

TEST(WorkingCopy, HoldsNoFileOpen) {
    // The file can be replaced by another one between two uses, and is whole by itself.
    const TestModel model;
    const WorkingCopy copy(model.Directory());
    const auto product = [&] {
        return copy.Open().OpenRecordSet("SELECT * FROM Gen;").Text("Product");
    };
    {
        RecordSet gen = copy.Open().OpenRecordSet("SELECT * FROM Gen;");
        gen.Edit();
        gen.Set("Product", std::string("Pump"));
        gen.Update();
    }
    EXPECT_EQ(test::NamesIn(model.Directory()), (Texts{"blank.seq", "working.seq"}));
    CopyWhole(copy.Path(), copy.File("saved.mdb"));
    CopyWhole(copy.Template(), copy.Path());
    EXPECT_EQ(product(), "Untitled");
    CopyWhole(copy.File("saved.mdb"), copy.Path());
    EXPECT_EQ(product(), "Pump");
}

}  // namespace
}  // namespace quarnel02

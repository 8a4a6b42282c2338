// A model that has come into the place of the working copy but could not be shown.
#include <gtest/gtest.h>

#include "commands/IncomingModel.h"
#include "commands/Parameters.h"
#include "support/CommandDesk.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::ExpectRunTimeError;

/// Cannot show a model while the directory fails, in which nothing can be brought back either.
class FailingForm : public test::ScriptedForm {
  public:
    using ScriptedForm::ScriptedForm;

    bool DirectoryFails = false;
    bool FailsOnce = false;

    void SetBusy(bool busy) override {
        if (busy && std::exchange(FailsOnce, false)) {
            throw RunTimeError(ErrorKind::FileAccess, "The directory failed.");
        }
        if (busy && DirectoryFails) {
            fs::remove(Copy().OldPath());
            throw RunTimeError(ErrorKind::FileAccess, "The directory fails.");
        }
        ScriptedForm::SetBusy(busy);
    }
};

class UnshownModel : public testing::Test {
  protected:
    UnshownModel() {
        for (const auto& [name, days] : {std::pair("line.mdb", "111"), {"other.mdb", "222"}}) {
            MakeModelFile(File(name), ReadFile(QUARNEL02_SCHEMA_FILE) + "UPDATE Gen SET Days = " +
                                          days + ", Product = '" + name + "';");
        }
        Open("line.mdb");
        Form.DirectoryFails = true;
        Open("other.mdb");
        Form.DirectoryFails = false;
        EXPECT_EQ(Days(), 222);
        EXPECT_EQ(Form.Text(TextBox::txtDays), "111");
    }

    [[nodiscard]] fs::path File(const std::string& name) const { return Folder.Path() / name; }
    void Open(const std::string& name) {
        Dialog.Answers = {{PathText(Folder.Path()), name}};
        Commands.Open();
    }
    [[nodiscard]] double Days() const { return DaysIn(Form.Copy().Path()); }
    [[nodiscard]] static double DaysIn(const fs::path& model) {
        return Database::Open(model).OpenRecordSet("SELECT Days FROM Gen;").Number("Days");
    }
    void TypeDays() {
        Form.SetText(TextBox::txtDays, "99");
        SaveGeneral(Form, Commands.Current());
    }

    TemporaryDirectory Folder;
    test::TestModel Application;
    FailingForm Form{Application.Directory()};
    test::ScriptedDialog Dialog{Form};
    FileCommands Commands{Form, Dialog};
};

TEST_F(UnshownModel, IsNotWrittenOverByWhatWasEnteredForAnother) {
    EXPECT_NE(Form.Events.back().find("cannot be replaced"), std::string::npos);
    const std::string told = ExpectRunTimeError(ErrorKind::FileAccess, [&] { TypeDays(); });
    EXPECT_NE(told.find("showed another model"), std::string::npos) << told;
    EXPECT_EQ(Days(), 222);
    EXPECT_EQ(Form.Text(TextBox::txtDays), "222");
    EXPECT_EQ(Form.Text(TextBox::txtProduct), "other.mdb");

    TypeDays();
    EXPECT_EQ(Days(), 99);
}

TEST_F(UnshownModel, IsNotSavedAsTheFileOfAnother) {
    EXPECT_EQ(Commands.Current().File, "");
    EXPECT_EQ(Form.Events[Form.Events.size() - 2], "title: Quarnel02");
    Dialog.Answers = {{PathText(Folder.Path()), "new.mdb"}};
    Commands.Save();
    EXPECT_NE(Form.Events.back().find("showed another model"), std::string::npos);
    EXPECT_FALSE(fs::exists(File("new.mdb")));
    EXPECT_EQ(DaysIn(File("line.mdb")), 111);
}

TEST_F(UnshownModel, StaysUnshownUntilThatWorks) {
    Form.DirectoryFails = true;
    ExpectRunTimeError(ErrorKind::FileAccess, [&] { TypeDays(); });
    EXPECT_FALSE(Form.ShowsWorkingCopy());
    EXPECT_EQ(Days(), 222);
    Form.DirectoryFails = false;
    Open("line.mdb");
    EXPECT_TRUE(Form.ShowsWorkingCopy());
    EXPECT_EQ(Form.Text(TextBox::txtDays), "111");
    TypeDays();
    EXPECT_EQ(Days(), 99);
}

/// An editor leaves such a model behind; it must not be kept from whoever wants to mend it.
TEST_F(UnshownModel, IsNoneOfWhichNoNetworkCanBeMade) {
    Open("line.mdb");
    {
        RecordSet matrix = Form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Matrix;");
        matrix.AddNew();
        matrix.Set("ResourceId", 1);
        matrix.Set("TaskId", 8);
        matrix.Set("TaskTime", 5);
        matrix.Update();
        RecordSet gen = Form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Gen;");
        gen.Edit();
        gen.Set("Resources", 1);
        gen.Update();
    }
    Form.FailsOnce = true;
    Open("other.mdb");
    EXPECT_NE(Form.Events.back().find("row for task 8"), std::string::npos) << Form.Events.back();
    EXPECT_EQ(Days(), 111);
    EXPECT_TRUE(Form.ShowsWorkingCopy());
    TypeDays();
    EXPECT_EQ(Days(), 99);
}

}  // namespace
}  // namespace quarnel02

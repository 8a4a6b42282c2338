#include "faults/FaultDesk.h"

#include <exception>
#include <fstream>

#include "basic/FailureText.h"
#include "basic/Files.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "commands/DemandCommands.h"
#include "commands/LoadModel.h"
#include "commands/MatrixCells.h"
#include "commands/MatrixValues.h"
#include "commands/PairRecord.h"
#include "commands/Parameters.h"
#include "commands/ResourceRecords.h"
#include "commands/SheetFiles.h"
#include "commands/TaskRecords.h"
#include "commands/cmdContinuous.h"
#include "files/ModelFile.h"
#include "files/ReadModel.h"
#include "files/SaveModel.h"
#include "model/InputDigest.h"
#include "sheets/ModelSheets.h"
#include "sheets/WorkbookFile.h"
#include "stoch/cmdStoch.h"
#include "support/SmallLine.h"

namespace fs = std::filesystem;

namespace quarnel02::test {

namespace {

void MakeFirstDesk(const fs::path& root) {
    const fs::path application = FaultDesk::ApplicationIn(root);
    const fs::path user = FaultDesk::UserIn(root);
    fs::create_directories(application);
    fs::create_directories(user);
    CopyPrivate(QUARNEL02_TEMPLATE_FILE, application / "blank.seq");
    const std::string model = ReadFile(QUARNEL02_SCHEMA_FILE) + kSmallLine;
    MakeModelFile(application / "working.seq", model);
    for (const char* name : {"line.mdb", "linked.mdb", "other.mdb"}) {
        MakeModelFile(user / name, model + "UPDATE Gen SET Product = 'Old';");
    }
    SaveModel(user / "line.mdb", user / "access.mdb", ModelFormat::Access);
    for (const int turn : {0, 1}) {
        MakeModelFile(application / "sheets.seq",
                      model + "UPDATE Gen SET Days = " + std::to_string(100 + turn));
        WriteXlsx(user / ("import" + std::to_string(turn) + ".xlsx"),
                  SheetsOf(ReadInputTables(Database::Open(application / "sheets.seq"))));
    }
    fs::remove(application / "sheets.seq");
}

/// A copy of one that is made once.
void MakeDesk(const fs::path& root) {
    static const TemporaryDirectory first;
    if (fs::is_empty(first.Path())) {
        MakeFirstDesk(first.Path());
    }
    fs::copy(first.Path(), root, fs::copy_options::recursive);
    const fs::path user = FaultDesk::UserIn(root);
    fs::create_hard_link(user / "linked.mdb", user / "second.mdb");
    fs::create_symlink("line.mdb", user / "name.mdb");
}

void Save(FaultDesk& desk, const std::string& name, ModelFormat format, int turn) {
    desk.UseFile(name, format);
    desk.Step([&] { desk.EnterDays(turn); });
    desk.Step([&] { desk.Commands.Save(); });
}

void SaveAs(FaultDesk& desk, int turn) {
    desk.Step([&] { desk.EnterDays(turn); });
    desk.Dialog.Chosen = desk.UserFile("new" + std::to_string(turn % 2) + ".mdb");
    desk.Step([&] { desk.Commands.SaveAs(); });
}

void KeepAndOpen(FaultDesk& desk, int turn) {
    desk.Step([&] { desk.EnterDays(turn); });
    desk.Commands.Current().Changed = false;
    desk.Step([&] { desk.Commands.New(); });
    desk.Step([&] { desk.Open("other.mdb"); });
}

void Recover(FaultDesk& desk, int turn) {
    KeepAndOpen(desk, turn);
    const auto kept = desk.Commands.KeptModels();
    if (kept.empty()) {  // none that can be read now: the menu is empty too
        desk.Form.Messages.emplace_back("No kept work is listed.");
        return;
    }
    desk.Step([&] { desk.Commands.Recover(kept.front()); });
}

void EditRecords(FaultDesk& desk, NumberedRecords records) {
    desk.Step([&] { records.AddNew(); });
    desk.Step([&] { records.Save({{"Description", std::string("Entered")}}); });
    desk.Step([&] { records.Delete(); });
    desk.Step([&] { records.Close(); });
}

void EditMatrix(FaultDesk& desk, int turn) {
    const TaskResource pair{2, 2};
    desk.Step([&] { StorePair(desk.Form, pair, {{"TaskTime", 7.5 + turn % 2}}); });
    desk.Step([&] { DeletePair(desk.Form.OpenWorkingCopy(), pair); });
    MatrixCells cells(desk.Form);
    cells.Load();
    MatrixValues values(desk.Form, cells);
    values.Load();
    desk.Step([&] {
        static_cast<void>(values.Set("Paste", 0, 0, {{"21 | 1 | 0"}, {"16 | 1 | 5"}}));
    });
    desk.Step([&] { values.Clear("Clear", {0, 0, 2, 1}); });
    desk.Step([&] {
        static_cast<void>(values.Set("Paste", 0, 0, {{"20 | 1 | 0"}, {"15.5 | 1 | 0"}}));
    });
    desk.Step([&] { static_cast<void>(cells.Commit()); });
}

void EditDemand(FaultDesk& desk, int turn) {
    ShowDemand(desk.Form);
    desk.Form.SetText(TextBox::txtVolume, NumberText(200000 + turn % 2));
    desk.Form.SetText(TextBox::txtProb, "10");
    desk.Step([&] { cmdAdd_Click(desk.Form, desk.Commands.Current()); });
    desk.Form.SelectDemand(desk.Form.DemandCount() - 1);
    desk.Form.SetText(TextBox::txtProb, "20");
    desk.Step([&] { cmdUpdate_Click(desk.Form, desk.Commands.Current()); });
    desk.Form.SelectDemand(desk.Form.DemandCount() - 1);
    desk.Step([&] { cmdDelete_Click(desk.Form, desk.Commands.Current()); });
}

void UndoAndRedo(FaultDesk& desk, int turn) {
    EditHistory& history = desk.Commands.History();
    history.Note();
    desk.Step([&] { desk.EnterDays(turn); });
    history.Note();
    desk.Step([&] { history.Undo(); });
    desk.Step([&] { history.Redo(); });
}

void Import(FaultDesk& desk, int turn) {
    desk.Step([&] {
        ImportWorkbook(desk.Form, desk.Commands.Current(), desk.Commands.History(),
                       desk.UserFile("import" + std::to_string(turn % 2) + ".xlsx"));
    });
}

std::vector<WritingCommand> AllCommands() {
    return {
        {"Save", [](FaultDesk& d, int turn) { Save(d, "line.mdb", ModelFormat::Sqlite, turn); }},
        {"SaveBehindALink",
         [](FaultDesk& d, int turn) { Save(d, "name.mdb", ModelFormat::Sqlite, turn); }},
        {"SaveIntoAHardLink",
         [](FaultDesk& d, int turn) { Save(d, "linked.mdb", ModelFormat::Sqlite, turn); }},
        {"SaveForAccess",
         [](FaultDesk& d, int turn) { Save(d, "access.mdb", ModelFormat::Access, turn); }},
        {"SaveAs", SaveAs},
        {"KeepNewAndOpen", KeepAndOpen},
        {"Recover", Recover},
        {"Exit",
         [](FaultDesk& d, int turn) {
             d.Step([&] { d.EnterDays(turn); });
             d.Commands.Current().Changed = false;
             d.Step([&] { static_cast<void>(d.Commands.Exit()); });
         }},
        {"FixedDesign",
         [](FaultDesk& d, int turn) {
             d.Step([&] { cmdContinuous_Click(d.Form, static_cast<std::int16_t>(1 + turn % 2)); });
         }},
        {"StochasticDesign",
         [](FaultDesk& d, int /*turn*/) { d.Step([&] { cmdStoch_Click(d.Form); }); }},
        {"Tasks",
         [](FaultDesk& d, int /*turn*/) { EditRecords(d, NumberedRecords(d.Form, TaskTable())); }},
        {"Resources",
         [](FaultDesk& d, int /*turn*/) {
             EditRecords(d, NumberedRecords(d.Form, ResourceTable()));
         }},
        {"Matrix", EditMatrix},
        {"Demand", EditDemand},
        {"Undo", UndoAndRedo},
        {"Import", Import},
        {"ExportXlsx",
         [](FaultDesk& d, int /*turn*/) {
             d.Step([&] { ExportXlsx(d.Form, d.UserFile("line.xlsx")); });
         }},
        {"ExportCsv", [](FaultDesk& d, int /*turn*/) {
             d.Step([&] { ExportCsv(d.Form, d.UserFile("sheets")); });
         }}};
}

bool IsWorkbook(const fs::path& file) {
    return file.extension() == ".xlsx" || file.extension() == ".csv" || fs::is_directory(file);
}

}  // namespace

bool AnsweringForm::AskYesNo(const std::string& question, MessageIcon /*icon*/,
                             Answer /*proposed*/) {
    if (question.find("lose it") != std::string::npos) {
        Messages.push_back(question);
        return false;
    }
    return question.find("limit parallel") == std::string::npos;
}

std::string AnsweringForm::InputBox(const std::string& /*prompt*/, const std::string& /*title*/,
                                    const std::string& /*proposal*/) {
    return "100000";
}

void AnsweringDialog::ShowModal() {
    FilePath = PathText(Chosen.parent_path());
    FileName = PathText(Chosen.filename());
    Format = ModelFormat::Sqlite;
}

FaultDesk::FaultDesk(const fs::path& root)
    : Form((fs::exists(UserIn(root)) ? void() : MakeDesk(root), ApplicationIn(root))),
      Commands(Form, Dialog),
      m_root(root) {}

void FaultDesk::UseFile(const std::string& name, ModelFormat format) {
    Commands.Current().Dir = PathText(UserIn(m_root));
    Commands.Current().File = name;
    Commands.Current().Format = format;
}

void FaultDesk::Open(const std::string& name) {
    Dialog.Chosen = UserFile(name);
    Commands.Open();
}

void FaultDesk::EnterDays(int number) {
    Form.SetText(TextBox::txtDays, NumberText(200 + number % 2));
    SaveGeneral(Form, Commands.Current());
}

std::uint64_t FaultDesk::Inputs() const {
    return InputDigest(Form.Copy().Open());
}

void FaultDesk::Step(const std::function<void()>& part) {
    part();
    OnState();
}

const std::vector<WritingCommand>& WritingCommands() {
    static const std::vector<WritingCommand> commands = AllCommands();
    return commands;
}

std::string FailureOf(const std::function<void()>& command) {
    try {
        command();
        return {};
    } catch (const std::exception& error) {
        return FailureText(error);
    }
}

std::uint64_t InputsIn(const fs::path& model) {
    const TemporaryDirectory directory;
    ReadModel(model, directory.Path() / "copy.seq", PathText(model));
    return InputDigest(Database::Open(directory.Path() / "copy.seq"));
}

bool IsWhole(const fs::path& file) {
    try {
        if (IsWorkbook(file)) {
            return TablesOf(ReadWorkbook(file)).Refused.IsEmpty();
        }
        static_cast<void>(InputsIn(file));
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

}  // namespace quarnel02::test

#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "commands/Parameters.h"
#include "support/CommandDesk.h"

namespace quarnel02::test {

/// A model of one task, for the schema.
inline constexpr const char* kPump =
    "UPDATE Gen SET Days = 240, Tasks = 1, Product = 'Pump';"
    "INSERT INTO Tasks VALUES (1, 'Insert shaft');";

/// The program on one application directory, started and ended as often as a test likes.
struct Sessions : ::testing::Test {
    Sessions() { Start(); }

    /// What an event of the program would be after the form has run.
    struct Run {
        explicit Run(const std::filesystem::path& directory) : Form(directory) {}
        ScriptedForm Form;
        ScriptedDialog Dialog{Form};
        FileCommands Commands{Form, Dialog};
    };
    void Start(std::deque<bool> answers = {}) {
        Kill();
        Program = std::make_unique<Run>(Application.Directory());
        Program->Form.YesNoAnswers = std::move(answers);
        Program->Commands.StartUp();
    }
    /// Ends the program as a power cut would.
    void Kill() { Program.reset(); }

    /// The editors do not raise Changed.
    void EnterTask(const std::string& text) {
        const Database database = Database::Open(Application.File());
        RecordSet tasks = database.OpenRecordSet("SELECT * FROM Tasks;");
        tasks.AddNew();
        tasks.Set("TaskId", 1);
        tasks.Set("Description", text);
        tasks.Update();
    }
    void EnterDays(const std::string& days) {
        Program->Form.SetText(TextBox::txtDays, days);
        SaveGeneral(Program->Form, Program->Commands.Current());
    }
    void UserModel(const std::string& name, const std::string& script) const {
        MakeModelFile(User.Path() / name, ReadFile(QUARNEL02_SCHEMA_FILE) + script);
    }
    void Open(const std::string& name) {
        Program->Dialog.Answers = {{PathText(User.Path()), name}};
        Program->Commands.Open();
    }
    [[nodiscard]] std::vector<std::filesystem::path> Kept() const {
        std::vector<std::filesystem::path> files;
        for (const KeptModel& kept : Program->Commands.KeptModels()) {
            files.push_back(kept.Path);
        }
        return files;
    }
    [[nodiscard]] static std::string TaskIn(const std::filesystem::path& model) {
        RecordSet tasks = Database::Open(model).OpenRecordSet("SELECT * FROM Tasks;");
        return tasks.Eof() ? "" : tasks.Text("Description");
    }
    [[nodiscard]] std::string Task() const { return TaskIn(Application.File()); }
    [[nodiscard]] ScriptedForm& Form() const { return Program->Form; }
    [[nodiscard]] FileCommands& Commands() const { return Program->Commands; }

    TestModel Application;
    TemporaryDirectory User;
    std::unique_ptr<Run> Program;
};

}  // namespace quarnel02::test

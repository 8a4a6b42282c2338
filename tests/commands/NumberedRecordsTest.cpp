// The records behind the task and the resource editor, without their windows.
#include "commands/NumberedRecords.h"

#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <algorithm>
#include <string>
#include <vector>

#include "basic/Numbers.h"
#include "commands/ResourceRecords.h"
#include "commands/TaskRecords.h"
#include "files/ModelFile.h"
#include "support/RunTimeErrors.h"
#include "support/ScriptedForm.h"
#include "support/Surroundings.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ScriptedForm;
using test::TestModel;

enum Step { kAdd, kSave, kDelete, kNext, kPrevious, kSteps };

/// What the rows should be: their descriptions in order, and the place of the current one.
class Reference {
  public:
    void Add() {
        m_texts.emplace_back("   ");
        m_place = m_texts.size();
    }
    void Save(const std::string& text) { m_texts[m_place - 1] = text; }
    void Delete() {
        if (m_texts.size() == 1) {
            m_texts[0] = "   ";
            return;
        }
        m_texts.erase(m_texts.begin() + static_cast<std::ptrdiff_t>(m_place) - 1);
        m_place = std::min(m_place, m_texts.size());
    }
    void Next() { m_place = std::min(m_place + 1, m_texts.size()); }
    void Previous() { m_place = std::max<std::size_t>(m_place - 1, 1); }

    [[nodiscard]] bool Empty() const { return m_texts.empty(); }
    [[nodiscard]] std::size_t Place() const { return m_place; }
    [[nodiscard]] const std::vector<std::string>& Texts() const { return m_texts; }

  private:
    std::vector<std::string> m_texts;
    std::size_t m_place = 0;
};

/// A numbered table with the position of its description.
struct Editor {
    NumberedTable Table;
    int Description;
    bool Tasks;
};

Editor TaskEditor() {
    return {TaskTable(), 1, true};
}

Editor ResourceEditor() {
    return {ResourceTable(), 2, false};
}

void Take(Step step, const Editor& editor, int number, NumberedRecords& records,
          Reference& reference) {
    const std::string text = "text " + NumberText(number);
    switch (step) {
        case kAdd:
            records.AddNew();
            reference.Add();
            break;
        case kSave:
            records.Save({{"Description", text}});
            reference.Save(text);
            break;
        case kDelete:
            editor.Tasks ? DeleteTask(records) : records.Delete();
            reference.Delete();
            break;
        case kNext:
            records.Next();
            reference.Next();
            break;
        case kPrevious:
            records.Previous();
            reference.Previous();
            break;
        case kSteps:
            break;
    }
}

/// Numbers 1, 2, 3... in front of the descriptions.
std::vector<std::string> Numbered(const std::vector<std::string>& texts) {
    std::vector<std::string> rows;
    for (const std::string& text : texts) {
        rows.push_back(NumberText(static_cast<int>(rows.size()) + 1) + "|" + text);
    }
    return rows;
}

std::vector<std::string> StoredRows(const TestModel& model, const Editor& editor) {
    const std::string sql =
        "SELECT " + editor.Table.Key + ", Description FROM " + editor.Table.Name + ";";
    return model.RowsOf(sql, 2);
}

void WalkAtRandom(const Editor& editor) {
    const auto steps = *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, int{kSteps}));
    const TestModel model;
    ScriptedForm form(model.Directory());
    form.SetText(TextBox::txtTasks, "0");
    form.SetText(TextBox::txtResources, "0");
    Reference reference;
    {
        NumberedRecords records(form, editor.Table);
        int number = 0;
        for (const int step : steps) {
            if (reference.Empty() && step != kAdd) {
                continue;
            }
            Take(static_cast<Step>(step), editor, ++number, records, reference);
            RC_ASSERT(records.Place() == static_cast<int>(reference.Place()));
            RC_ASSERT(records.Text(0) == NumberText(records.Place()));
            RC_ASSERT(records.Text(editor.Description) == reference.Texts()[reference.Place() - 1]);
        }
        records.Close();
    }
    const auto count = NumberText(static_cast<int>(reference.Texts().size()));
    RC_ASSERT(StoredRows(model, editor) == Numbered(reference.Texts()));
    RC_ASSERT(model.RowsOf("SELECT " + editor.Table.Name + " FROM Gen;", 1) ==
              std::vector<std::string>{count});
    RC_ASSERT(form.Text(editor.Table.CountBox) == count);
    RC_ASSERT(test::NamesIn(model.Directory()) ==
              (std::vector<std::string>{"blank.seq", "working.seq"}));
    CheckModelFile(model.File(), "the working copy");
}

TEST(NumberedRecords, OfTasksStayDenseAndCountedWhateverIsDone) {
    EXPECT_TRUE(rc::check([] { WalkAtRandom(TaskEditor()); }));
}

TEST(NumberedRecords, OfResourcesStayDenseAndCountedWhateverIsDone) {
    EXPECT_TRUE(rc::check([] { WalkAtRandom(ResourceEditor()); }));
}

TEST(NumberedRecords, StayAsTheyWereWhenADeletionFails) {
    const TestModel model(
        "INSERT INTO Tasks VALUES (1, 'One'), (2, 'Two'), (3, 'Three');"
        "CREATE TRIGGER Refuse BEFORE UPDATE ON Tasks WHEN NEW.TaskId = 2"
        " BEGIN SELECT RAISE(ABORT, 'refused'); END;");
    ScriptedForm form(model.Directory());
    NumberedRecords records(form, TaskTable());
    records.Next();
    test::ExpectRunTimeError(ErrorKind::DatabaseFailure, [&] { DeleteTask(records); });
    EXPECT_EQ(records.Place(), 2);
    EXPECT_EQ(records.Text(1), "Two");
    EXPECT_EQ(model.RowsOf("SELECT * FROM Tasks;", 2),
              (std::vector<std::string>{"1|One", "2|Two", "3|Three"}));
}

}  // namespace
}  // namespace quarnel02

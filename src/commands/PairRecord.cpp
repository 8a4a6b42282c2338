#include "commands/PairRecord.h"

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

std::string Number(std::int16_t number) {
    return NumberText(int{number});
}

void FetchCaptions(const Database& database, TaskResource pair, PairTexts& texts) {
    const RecordSet names = database.OpenRecordSet(
        "SELECT Resources.Description, Tasks.Description From Resources, Tasks WHERE "
        "Resources.ResourceId=" +
        Number(pair.Resource) + " AND Tasks.TaskId=" + Number(pair.Task) + ";");
    if (names.Eof()) {
        throw RunTimeError(ErrorKind::NoCurrentRecord, "The model has no task " +
                                                           Number(pair.Task) + " or no resource " +
                                                           Number(pair.Resource) + ".");
    }
    texts.Resource = "Resource " + Number(pair.Resource) + ": " + names.Text(0);
    texts.Task = "Task " + Number(pair.Task) + ": " + names.Text(1);
}

}  // namespace

PairTexts FetchPair(MainForm& form, TaskResource pair) {
    const Database database = form.OpenWorkingCopy();
    PairTexts texts;
    FetchCaptions(database, pair, texts);
    const RecordSet data = database.OpenRecordSet(
        "SELECT Matrix.TaskTime, Matrix.ToolNum, Matrix.ToolCost FROM Tasks INNER JOIN (Resources "
        "INNER JOIN Matrix ON Resources.ResourceId = Matrix.ResourceId) ON Tasks.TaskId = "
        "Matrix.TaskId WHERE (((Matrix.ResourceId)=" +
        Number(pair.Resource) + ") AND ((Matrix.TaskId)=" + Number(pair.Task) + "));");
    if (!data.Eof()) {
        texts.Data = {data.Text(0), data.Text(1), data.Text(2)};
    }
    return texts;
}

void StorePair(MainForm& form, TaskResource pair, const std::vector<FieldValue>& values) {
    const Database database = form.OpenWorkingCopy();
    RecordSet row =
        database.OpenRecordSet("SELECT * FROM Matrix WHERE TaskId = " + Number(pair.Task) +
                               " AND ResourceId = " + Number(pair.Resource) + ";");
    if (row.RecordCount() != 0) {
        row.Edit();
    } else {
        row.AddNew();
        row.Set("ResourceId", int{pair.Resource});
        row.Set("TaskId", int{pair.Task});
    }
    for (const FieldValue& value : values) {
        row.Set(value.Name, value.Content);
    }
    row.Update();
    row.MoveToLastModified();
}

void DeletePair(const Database& database, TaskResource pair) {
    RecordSet rows =
        database.OpenRecordSet("SELECT * From Matrix WHERE ResourceId =" + Number(pair.Resource) +
                               " AND TaskId =" + Number(pair.Task) + ";");
    for (; !rows.Eof(); rows.MoveNext()) {
        rows.Delete();
    }
}

RecordSet PairData(const Database& database, TaskResource pair) {
    return database.OpenRecordSet(
        "SELECT TaskTime, ToolNum, ToolCost From Matrix WHERE ResourceId =" +
        Number(pair.Resource) + " AND TaskId =" + Number(pair.Task) + ";");
}

bool HasUsableTime(const Database& database, TaskResource pair) {
    const RecordSet row = PairData(database, pair);
    return !row.Eof() && !IsNull(row.Field(0)) && row.Number(0) > 0;
}

std::string PairLine(const Database& database, TaskResource pair) {
    const RecordSet row = PairData(database, pair);
    if (row.Eof()) {
        return "Time: -- sec   Tool #: ---   Tool Cost: $----";
    }
    return "Time: " + row.Text(0) + " sec   Tool #: " + row.Text(1) + "   Tool Cost: $" +
           row.Text(2);
}

}  // namespace quarnel02

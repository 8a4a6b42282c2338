#include "commands/TaskRecords.h"

#include <string>

namespace quarnel02 {

namespace {

constexpr int kTaskIdOfMatrix = 1;

void DropMatrixRowsBeyond(const Database& database, int count) {
    RecordSet matrix = database.OpenRecordSet("SELECT * FROM Matrix;");
    for (; !matrix.Eof(); matrix.MoveNext()) {
        if (!IsNull(matrix.Field(kTaskIdOfMatrix)) && matrix.Number(kTaskIdOfMatrix) > count) {
            matrix.Delete();
        }
    }
}

}  // namespace

NumberedTable TaskTable() {
    return {"Tasks",
            "TaskId",
            TextBox::txtTasks,
            {{"Description", std::string("   ")}},
            RecordKind::Tasks};
}

void DeleteTask(NumberedRecords& tasks) {
    tasks.Delete(DropMatrixRowsBeyond);
}

}  // namespace quarnel02

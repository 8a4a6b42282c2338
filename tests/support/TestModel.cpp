#include "support/TestModel.h"

#include "files/ModelFile.h"

namespace quarnel02::test {

TestModel::TestModel(const std::string& script) {
    CopyWhole(QUARNEL02_TEMPLATE_FILE, File("blank.seq"));
    MakeModelFile(File(), ReadFile(QUARNEL02_SCHEMA_FILE) + script);
}

std::vector<std::string> TestModel::RowsOf(const std::string& sql, int fields) const {
    RecordSet rows = Open().OpenRecordSet(sql);
    std::vector<std::string> texts;
    for (; !rows.Eof(); rows.MoveNext()) {
        std::string text;
        for (int field = 0; field < fields; ++field) {
            text += (field == 0 ? "" : "|") + rows.Text(field);
        }
        texts.push_back(text);
    }
    return texts;
}

}  // namespace quarnel02::test

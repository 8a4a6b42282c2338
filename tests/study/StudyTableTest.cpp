#include "study/StudyTable.h"

#include <gtest/gtest.h>

namespace quarnel02 {
namespace {

const StudyTable& Table() {
    static const StudyTable table{{"name", "cost", "tasks"},
                                  {{std::string("Bänke, \"neu\""), 64335.55, TaskList{2, 3}},
                                   {std::string("two\nlines"), {}, TaskList{}},
                                   {std::string(), -1234567.0, {}}}};
    return table;
}

TEST(StudyTable, IsWrittenAsCsv) {
    EXPECT_EQ(CsvText(Table()),
              "name,cost,tasks\n"
              "\"Bänke, \"\"neu\"\"\",64335.55,2 3\n"
              "\"two\nlines\",,\n"
              ",-1234567,\n");
}

TEST(StudyTable, StandsInColumnsForReading) {
    const StudyTable table{{"name", "cost"},
                           {{std::string("Bänke"), 64335.55}, {std::string("Ö"), 12.0}}};
    EXPECT_EQ(PlainText(table),
              "name        cost\n"
              "Bänke  64,335.55\n"
              "Ö             12\n");
}

TEST(StudyTable, WithoutRowsHasItsColumns) {
    EXPECT_EQ(CsvText({{"a", "b"}, {}}), "a,b\n");
    EXPECT_EQ(PlainText({{"a", "b"}, {}}), "a  b\n");
}

}  // namespace
}  // namespace quarnel02

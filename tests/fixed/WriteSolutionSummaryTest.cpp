#include "fixed/WriteSolutionSummary.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/LoadedModel.h"
#include "support/RunTimeErrors.h"
#include "support/SolvedLine.h"

namespace quarnel02 {
namespace {

using test::ChosenStation;
using test::LoadedModel;
using test::SolvedLine;

constexpr const char* kHeader = "Sta.  Resource  Qty     Cost      Time    Tasks    Tools\n";

/// The lines between the column header and the cycle times, of a report on this line.
std::string StationLines(const std::vector<ChosenStation>& line) {
    SolvedLine solved(line);
    const std::string report = solved.Write();
    const std::string header = kHeader;
    const auto start = report.find(header) + header.size();
    return report.substr(start, report.find(" \nCycle Time: ") - start);
}

TEST(WriteSolutionSummary, ReportsTheWorkedExampleWhole) {
    LoadedModel model(test::WorkedExample());
    model.Solve(1, "100000");
    EXPECT_EQ(model.Report(),
              "Solution\n"
              "-------------------\n"
              "# of Shifts: 1\n"
              "Station Limit: --\n"
              "Annual Volume: 100,000\n"
              " \n"
              "Sta.  Resource  Qty     Cost      Time    Tasks    Tools\n"
              " 1    1  Press   1     $64,336    61.11    1-2       1\n"
              " \n"
              "Cycle Time:      61.11\n"
              "Max Cycle Time:  72.00\n"
              " \n"
              "Total Cost:         $64,336\n"
              "Initial Investment: $12,600\n"
              "Annualized Labor:   $60,556\n");
}

TEST(WriteSolutionSummary, ReportsTheWorkedExampleForTwoStationsWhole) {
    LoadedModel model(test::WorkedExample());
    model.Solve(1, "200,000", "2");
    EXPECT_EQ(model.Report(),
              "Solution\n"
              "-------------------\n"
              "# of Shifts: 1\n"
              "Station Limit: 2\n"
              "Annual Volume: 200,000\n"
              " \n"
              "Sta.  Resource  Qty     Cost      Time    Tasks    Tools\n"
              " 1    1  Press   2     $98,116    30.56    1-2       1\n"
              " \n"
              "Cycle Time:      30.56\n"
              "Max Cycle Time:  36.00\n"
              " \n"
              "Total Cost:         $98,116\n"
              "Initial Investment: $25,200\n"
              "Annualized Labor:   $90,556\n");
}

TEST(WriteSolutionSummary, ReportsThreeStationsWhole) {
    // A resource number of two digits, a wrapped tools text, a name of exactly 7 characters and
    // one of 9, which pushes the quantity.
    SolvedLine solved(
        {{1, 1, "Bench", 1, 1234.5, 61.111, {1}, 1000, 20000},
         {2, 12, "Robot A", 12, 1234567.89, 1234.567, {1, 2, 3, 4, 5, 6, 7}, 2000.25, 30000},
         {9, 3, "Assembler", 2, 999.4, 0.5, {4, 4}, 3000.25, 40000.5}},
        "UPDATE Gen SET Days = 21435.3;");
    // 21435.3 x 3 x 8 x 3600 / 1234567 = 1500.13 s.
    solved.Order = {{1234567, 3, 12}, "12"};
    // 1234.5 + 1234567.89 + 999.4 = 1236801.79; 6000.50 invested, 90000.50 labour.
    EXPECT_EQ(solved.Write(),
              "Solution\n"
              "-------------------\n"
              "# of Shifts: 3\n"
              "Station Limit: 12\n"
              "Annual Volume: 1,234,567\n"
              " \n"
              "Sta.  Resource  Qty     Cost      Time    Tasks    Tools\n"
              " 1    1  Bench   1     $1,235     61.11    1         1\n"
              " 2    12 Robot A 12    $1,234,568 1,234.57 2-8       1 2 3 4 5 \n"
              "                                                    6 7\n"
              " 3    3  Assembler 2   $999       .50      9-10      4\n"
              " \n"
              "Cycle Time:      1234.57\n"
              "Max Cycle Time:  1500.13\n"
              " \n"
              "Total Cost:         $1,236,802\n"
              "Initial Investment: $6,001\n"
              "Annualized Labor:   $90,001\n");
}

TEST(WriteSolutionSummary, KeepsATwelveCharacterToolsTextAndSplitsThirteen) {
    EXPECT_EQ(StationLines({{1, 1, "R", 1, 10, 5, {1, 2, 3, 4, 5, 6}},
                            {7, 1, "R", 1, 10, 5, {1, 2, 3, 4, 5, 66}},
                            {13, 1, "R", 1, 10, 5, {11, 22, 33, 444}}}),
              " 1    1  R       1     $10        5.00     1-6       1 2 3 4 5 6\n"
              " 2    1  R       1     $10        5.00     7-12      1 2 3 4 5 \n"
              "                                                    66\n"
              " 3    1  R       1     $10        5.00     13-16     11 22 33 444\n"
              "                                                    \n");
}

TEST(WriteSolutionSummary, ListsARunOfOneToolOnce) {
    EXPECT_EQ(StationLines({{1, 1, "R", 1, 10, 5, {1, 1, 2, 2, 1}}}),
              " 1    1  R       1     $10        5.00     1-5       1 2 1\n");
}

TEST(WriteSolutionSummary, NumbersStationsBeyondNine) {
    std::vector<ChosenStation> line;
    for (int task = 1; task <= 11; ++task) {
        line.push_back({task, 1, "R", 1, 10, 5, {1}});
    }
    const std::string lines = StationLines(line);
    EXPECT_EQ(lines.substr(lines.find(" 9 ")),
              " 9    1  R       1     $10        5.00     9         1\n"
              " 10   1  R       1     $10        5.00     10        1\n"
              " 11   1  R       1     $10        5.00     11        1\n");
}

TEST(WriteSolutionSummary, KeepsAllColumnsApartByABlank) {
    // A resource number of three digits, a name of nine characters, an amount of twelve and a time
    // of nine push what follows; the rest stands in its columns again where there is room.
    EXPECT_EQ(StationLines({{1, 1, "R", 100, 123456789, 12345, {1}},
                            {2, 123, "R", 1, 1, 1, {1}},
                            {3, 1, "Assembler", 12345, 1234567890, 1234567, {1, 1, 1, 1, 1}}}),
              " 1    1  Assembler 100 $123,456,789 12,345.00 1      1\n"
              " 2    123 R      1     $1         1.00     2         1\n"
              " 3    1  Assembler 12345 $1,234,567,890 1,234,567.00 3-7 1\n");
}

TEST(WriteSolutionSummary, PrintsABlankForAControlCharacterOfAName) {
    EXPECT_EQ(StationLines({{1, 1, "A\nB\tC", 1, 10, 5, {1}}}),
              " 1    1  A B C   1     $10        5.00     1         1\n");
}

TEST(WriteSolutionSummary, CountsCharactersAndNotBytes) {
    EXPECT_EQ(StationLines({{1, 1, "Prüfer", 1, 10, 5, {1}}}),
              " 1    1  Prüfer  1     $10        5.00     1         1\n");
}

TEST(WriteSolutionSummary, OrdersStationsByTaskWhateverTheOrderOfPathways) {
    EXPECT_EQ(StationLines({{3, 1, "B", 1, 10, 5, {1}}, {1, 2, "A", 1, 10, 5, {1, 1}}}),
              " 1    2  A       1     $10        5.00     1-2       1\n"
              " 2    1  B       1     $10        5.00     3         1\n");
}

TEST(WriteSolutionSummary, ShowsTheDemandAsGroupedWholeNumber) {
    SolvedLine solved({{1, 1, "R", 1, 10, 5, {1}}});
    solved.Order.Request.Volume = 12500.4;
    EXPECT_NE(solved.Write().find("\nAnnual Volume: 12,500\n"), std::string::npos);
}

TEST(WriteSolutionSummary, SumsOnlyTheChainForInvestmentAndLabour) {
    // A pathway that the line does not take is no part of it.
    SolvedLine solved({{1, 1, "R", 1, 10, 5, {1, 1}, 100, 7}, {3, 1, "R", 1, 10, 5, {1}, 200, 8}},
                      "INSERT INTO Pathways VALUES (9, 1, 1, 3, 10, 5, 1, 400, 90);");
    const std::string report = solved.Write();
    EXPECT_NE(report.find("\nInitial Investment: $300\nAnnualized Labor:   $15\n"),
              std::string::npos)
        << report;
}

TEST(WriteSolutionSummary, ReplacesTheLastReport) {
    SolvedLine solved({{1, 1, "R", 1, 10, 5, {1}}});
    WriteFile(solved.Copy.File("RunRpt.txt"), std::string(5000, '~'));
    EXPECT_EQ(solved.Write().find('~'), std::string::npos);
}

TEST(WriteSolutionSummary, ReportsAFileThatCannotBeWritten) {
    SolvedLine solved({{1, 1, "R", 1, 10, 5, {1}}});
    std::filesystem::create_directory(solved.Copy.File("RunRpt.txt"));
    const auto message = test::ExpectRunTimeError(ErrorKind::FileAccess, [&] { solved.Write(); });
    EXPECT_NE(message.find("RunRpt.txt"), std::string::npos) << message;
    EXPECT_TRUE(solved.Form.Events.empty());
}

}  // namespace
}  // namespace quarnel02

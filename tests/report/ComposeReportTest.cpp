// The report as a document: what it says of a model and its last design.
#include "report/ComposeReport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "model/RowWriter.h"
#include "stoch/cmdStoch.h"
#include "support/FigureText.h"
#include "support/LoadedModel.h"
#include "support/StochModels.h"

namespace quarnel02 {
namespace {

using test::LoadedModel;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

using Lines = std::vector<std::string>;

std::string Joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) {
        all += (&text == texts.data() ? "" : " | ") + text;
    }
    return all;
}

/// A document in lines: "# heading", "! paragraph that must not be overlooked", "name: value",
/// "cell | cell", "> printed line", "[words]" for a picture.
class AsLines {
  public:
    explicit AsLines(const Document& document) {
        for (const DocumentPart& part : document.Parts) {
            std::visit([this](const auto& each) { Put(each); }, part);
        }
    }
    Lines Text;

  private:
    void Put(const HeadingPart& heading) { Text.push_back("# " + heading.Text); }
    void Put(const ParagraphPart& paragraph) {
        Text.push_back((paragraph.Strong ? "! " : "") + paragraph.Text);
    }
    void Put(const FactsPart& facts) {
        for (const Fact& fact : facts.Facts) {
            Text.push_back(fact.Name + ": " + fact.Value);
        }
    }
    void Put(const TablePart& table) {
        std::vector<std::string> headings;
        for (const TableColumn& column : table.Columns) {
            headings.push_back(column.Heading);
        }
        Text.push_back(Joined(headings));
        for (const auto& row : table.Rows) {
            EXPECT_EQ(row.size(), table.Columns.size());
            Text.push_back(Joined(row));
        }
    }
    void Put(const PrintedPart& printed) {
        std::string line;
        for (const char sign : printed.Text) {
            if (sign != '\n') {
                line += sign;
                continue;
            }
            Text.push_back("> " + line);
            line.clear();
        }
    }
    void Put(const PicturePart& picture) { Text.push_back("[" + picture.Words + "]"); }
};

Lines Headings(const Document& document) {
    Lines headings;
    for (const DocumentPart& part : document.Parts) {
        if (const auto* heading = std::get_if<HeadingPart>(&part)) {
            headings.push_back(heading->Text);
        }
    }
    return headings;
}

const PicturePart& PictureBehind(const Document& document, const std::string& heading) {
    const auto found =
        std::find_if(document.Parts.begin(), document.Parts.end(), [&](const DocumentPart& part) {
            const auto* each = std::get_if<HeadingPart>(&part);
            return each != nullptr && each->Text == heading;
        });
    return std::get<PicturePart>(*(found + 1));
}

/// Noon of a day, in whatever time zone the tests run.
std::chrono::system_clock::time_point Noon() {
    std::tm day{};
    day.tm_year = 126;
    day.tm_mon = 10;
    day.tm_mday = 21;
    day.tm_hour = 12;
    day.tm_isdst = -1;
    return std::chrono::system_clock::from_time_t(std::mktime(&day));
}

ReportOccasion Today(bool outOfDate = false) {
    return {"line.mdb", outOfDate, Noon()};
}

/// The worked example as a product, with these demand rows.
test::ModelScript Valve(const std::vector<DemandPoint>& demand = {}) {
    test::ModelScript model = test::WorkedExample();
    model.Product = "Valve";
    model.Demand = demand;
    return model;
}

constexpr const char* kNetworkWords =
    "[Ranges of consecutive tasks that a station can do; the line of the design is marked.]";
constexpr const char* kLineWords =
    "[The stations of the line in their order: number, resource, parallel stations and tasks.]";
constexpr const char* kLoadWords =
    "[Seconds of each station for a unit, against the cycle time that is available.]";

TEST(ComposeReport, SaysWhatAFixedDesignIs) {
    LoadedModel model(Valve());
    model.Solve(2, "60000", "3");
    model.Form.LastDesign->When = Noon();
    const Document document = ComposeReport(model.Form, Today());
    EXPECT_EQ(document.Title, "Line design: Valve");
    EXPECT_EQ(document.Product, "Valve");
    EXPECT_EQ(document.Date, "2026-11-21 12:00");
    // 1.2 x (10,000 + 500); 0.3 of that; 60,000 x 55 s at 20 an hour; 2 x 8 x 250 hours at 15.
    EXPECT_EQ(AsLines(document).Text,
              (Lines{"# Design",
                     "Model: line.mdb",
                     "Designed for: 2 shifts, 60,000 units a year",
                     "Limit on parallel stations: 3",
                     "Cost a year: $82,113",
                     "Investment: $12,600",
                     "Stations: 1 group, 1 in all",
                     "Cycle time: 61.11 s of 240.00 s",
                     "Designed at: 2026-11-21 12:00",
                     "# Production parameters",
                     "Number of resources: 1",
                     "Number of tasks: 2",
                     "Working days per year: 250",
                     "Annual capital factor (ACF): 0.3",
                     "Labour cost ($/h): 15",
                     "Transport time (s): 5",
                     "Penalty ($/unit): 0",
                     "# Arc network",
                     kNetworkWords,
                     "# Solution summary",
                     "> Solution Summary",
                     "> -------------------",
                     "> # of Shifts: 2  Station Limit: 3  Annual Volume: 60,000",
                     "> ",
                     "> Sta.  Resource  Qty     Cost      Time    Tasks    Tools",
                     ">  1    1  Press   1  $82,113    61.11   1-2     1",
                     "> ",
                     "> Cycle Time:      61.11",
                     "> Max Cycle Time:  240.00",
                     "> ",
                     "> Total Cost:      $82,113",
                     "# Line",
                     kLineWords,
                     "# Station load",
                     kLoadWords,
                     "# Work of the stations",
                     "Station | Resource | Qty | Tasks | Tools | Time (s) | Load (%) | Idle (s)",
                     "1 | Press | 1 | 1; 2 | 1 | 61.11 | 25.5 | 178.89",
                     "# Cost of the stations ($ a year)",
                     "Station | Resource | Investment ($) | Capital | Machine | Labour | Total | "
                     "Share (%)",
                     "1 | Press | $12,600 | $3,780 | $18,333 | $60,000 | $82,113 | 100.0",
                     " | All stations | $12,600 | $3,780 | $18,333 | $60,000 | $82,113 | 100.0"}));
}

TEST(ComposeReport, SaysWhatAStochasticDesignIs) {
    LoadedModel model(test::PenaltyModel());
    model.Form.SetText(TextBox::txtPenalty, "0.25");
    cmdStoch_Click(model.Form);
    const Document document = ComposeReport(model.Form, Today());
    EXPECT_THAT(
        Headings(document),
        ElementsAre("Design", "Production parameters", "Demand", "Demand distribution",
                    "Arc network", "Final solution", "Line", "Expected annual cost", "Station load",
                    "Work of the stations", "Cost of the stations ($ a year)"));
    const Lines lines = AsLines(document).Text;
    EXPECT_THAT(lines, Contains("Designed for: Capacity 100,000 units a year"));
    EXPECT_THAT(lines, Contains("100,000 | 40%"));
    EXPECT_THAT(lines, Contains("200,000 | 60%"));
    EXPECT_THAT(lines, Contains("1 | Oven | $100,000 | $30,000 | $0 | $0 | $30,000 | 100.0"));
    // 60 % of 100,000 units that are missing, at 0.25.
    EXPECT_THAT(lines, Contains("Expected penalty a year: $15,000"));
    EXPECT_THAT(lines, Contains("Expected cost a year, with penalty: $45,000"));
    EXPECT_THAT(lines, Contains("Cost a year: $45,000 expected"));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("Limit on parallel stations"))));
}

TEST(ComposeReport, OfAFixedDesignLeavesOutTheDemandRows) {
    LoadedModel model(Valve({{5000, 100}}));
    EXPECT_THAT(Headings(ComposeReport(model.Form, Today())), Contains("Demand"));
    model.Form.YesNoAnswers = {false};
    cmdContinuous_Click(model.Form, 1);
    const Document document = ComposeReport(model.Form, Today());
    EXPECT_THAT(AsLines(document).Text, Contains("Designed for: 1 shift, 5,000 units a year"));
    EXPECT_THAT(AsLines(document).Text, Contains("Limit on parallel stations: none"));
    EXPECT_THAT(Headings(document), Not(Contains("Demand")));
}

TEST(ComposeReport, WithoutADesignSaysSoFirst) {
    LoadedModel model(Valve());
    const Document document = ComposeReport(model.Form, {"", false, Noon()});
    const Lines lines = AsLines(document).Text;
    EXPECT_EQ(lines.front(), "! No line has been designed for this model yet.");
    EXPECT_EQ(lines.at(1), "Model: not saved");
    EXPECT_THAT(Headings(document), ElementsAre("Production parameters", "Arc network"));
}

TEST(ComposeReport, OfAnEmptyModelHasNoNetwork) {
    LoadedModel model(std::string{});
    EXPECT_THAT(Headings(ComposeReport(model.Form, Today())), ElementsAre("Production parameters"));
}

TEST(ComposeReport, SaysWhichResultsAreOutOfDate) {
    LoadedModel model(Valve());
    model.Solve(2, "60000");
    const Document document = ComposeReport(model.Form, Today(true));
    EXPECT_THAT(AsLines(document).Text.front(),
                HasSubstr("! The results are out of date: the model has been changed since"));
    EXPECT_THAT(
        Headings(document),
        ElementsAre("Design (out of date)", "Production parameters", "Arc network (out of date)",
                    "Solution summary (out of date)", "Line (out of date)",
                    "Station load (out of date)", "Work of the stations (out of date)",
                    "Cost of the stations ($ a year) (out of date)"));
}

TEST(ComposeReport, KeepsTheStationsOfTheModelThatWasDesigned) {
    LoadedModel model(Valve());
    model.Solve(2, "60000");
    const Database database = model.Copy.Open();
    RowWriter::Changing(database, "Resources", {"FixedCost"}, "ResourceId").Write({99999, 1});
    EXPECT_THAT(AsLines(ComposeReport(model.Form, Today(true))).Text,
                Contains("1 | Press | $12,600 | $3,780 | $18,333 | $60,000 | $82,113 | 100.0"));
}

TEST(ComposeReport, AppendsFurtherParts) {
    LoadedModel model(Valve());
    const Document document = ComposeReport(
        model.Form, Today(), {HeadingPart{"Volumes"}, ParagraphPart{"Cheapest lines."}});
    const Lines lines = AsLines(document).Text;
    EXPECT_THAT(Lines(lines.end() - 3, lines.end()),
                ElementsAre("[Ranges of consecutive tasks that a station can do; no line is "
                            "marked.]",
                            "# Volumes", "Cheapest lines."));
}

TEST(ComposeReport, TakesPicturesApartFromTheirBoxes) {
    LoadedModel model(Valve());
    model.Solve(2, "60000");
    int told = 0;
    model.Form.picGraph[2].OnChange = [&told] { ++told; };
    Document document = ComposeReport(model.Form, Today());
    Picture line = PictureBehind(document, "Line").Drawing;
    line.LayOut(Page{4000, 3000});
    EXPECT_EQ(told, 0);
    EXPECT_EQ(line.LaidOutFor().Width, 4000);
    EXPECT_NE(model.Form.picGraph[2].LaidOutFor().Width, 4000);
}

}  // namespace
}  // namespace quarnel02

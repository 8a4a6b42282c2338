// The run files of every stage, byte by byte, against tables worked out by hand for two tasks,
// two resources and two demand points.

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "basic/Files.h"
#include "stoch/RunRecords.h"
#include "support/StochDesk.h"
#include "support/StochModels.h"
#include "support/Surroundings.h"

namespace quarnel02 {
namespace {

using test::StagesModel;
using test::StochDesk;

constexpr float kRobot1 = 4096 + 1;  // resource 1, one station
constexpr float kPress1 = 2 * 4096 + 1;
constexpr double kCents = 0.05;  // costs are singles: amounts of 200,000 dollars step by 0.016

/// Little-endian fields of a file's bytes.
class RawFile {
  public:
    explicit RawFile(const std::filesystem::path& path) : m_bytes(ReadFile(path)) {}

    [[nodiscard]] std::size_t Size() const { return m_bytes.size(); }
    [[nodiscard]] float Single(std::size_t at) const {
        return std::bit_cast<float>(Unsigned(at, 4));
    }
    [[nodiscard]] int Short(std::size_t at) const { return static_cast<int>(Unsigned(at, 2)); }

  private:
    [[nodiscard]] std::uint32_t Unsigned(std::size_t at, std::size_t size) const {
        std::uint32_t value = 0;
        for (std::size_t byte = size; byte-- > 0;) {
            value = value * 256 + static_cast<unsigned char>(m_bytes.at(at + byte));
        }
        return value;
    }

    std::string m_bytes;
};

float After(double volume) {
    return std::nextafter(static_cast<float>(volume), 1e30F);
}

float Before(double volume) {
    return std::nextafter(static_cast<float>(volume), 0.0F);
}

struct Piece {
    float Start;
    float End;
    double CostStart;
    double CostEnd;
    float Choice;  ///< of an arc
    int Resource = 0;
    int PrevTask = 0;
    int Stations = 0;  ///< of a design
};

void ExpectCurve(const RawFile& file, std::size_t at, const Piece& piece) {
    EXPECT_EQ(file.Single(at), piece.Start);
    EXPECT_EQ(file.Single(at + 4), piece.End);
    EXPECT_NEAR(static_cast<double>(file.Single(at + 8)), piece.CostStart, kCents);
    EXPECT_NEAR(static_cast<double>(file.Single(at + 12)), piece.CostEnd, kCents);
}

void ExpectArcs(const std::filesystem::path& path, const std::vector<Piece>& pieces) {
    SCOPED_TRACE(path.filename());
    const RawFile file(path);
    ASSERT_EQ(file.Size(), pieces.size() * 20);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        SCOPED_TRACE(i);
        ExpectCurve(file, i * 20, pieces[i]);
        EXPECT_EQ(file.Single(i * 20 + 16), pieces[i].Choice);
    }
}

void ExpectDesigns(const std::filesystem::path& path, const std::vector<Piece>& pieces) {
    SCOPED_TRACE(path.filename());
    const RawFile file(path);
    ASSERT_EQ(file.Size(), pieces.size() * 22);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        SCOPED_TRACE(i);
        ExpectCurve(file, i * 22, pieces[i]);
        EXPECT_EQ(file.Short(i * 22 + 16), pieces[i].Resource);
        EXPECT_EQ(file.Short(i * 22 + 18), pieces[i].PrevTask);
        EXPECT_EQ(file.Short(i * 22 + 20), pieces[i].Stations);
    }
}

// Robot on task 1, k stations: 3,000 k + 0.6 E / k + 20,000 k S.
const std::vector<Piece> kRobotTask1 = {
    {100000, Before(150000), 123000, 141000, kRobot1, 1, 0, 1},         // S 3
    {150000, 200000, 133000, 151000, kRobot1, 1, 0, 1},                 // S 2.6
    {After(200000), Before(300000), 151000, 151000, kRobot1, 1, 0, 1},  // E stays at 160,000
    {300000, 360000, 131000, 131000, kRobot1, 1, 0, 1},                 // S 1.6
    {After(360000), Before(600000), 118000, 118000, kRobot1 + 1, 1, 0, 2},
    {600000, 600000, 94000, 94000, kRobot1 + 1, 1, 0, 2},  // S 1
};

// Robot on task 2: 3,000 k + 0.48 E / k + 20,000 k S.
const std::vector<Piece> kRobotTask2 = {
    {100000, Before(150000), 111000, 125400, kRobot1},
    {150000, 200000, 117400, 131800, kRobot1},
    {After(200000), Before(300000), 131800, 131800, kRobot1},
    {300000, 450000, 111800, 111800, kRobot1},
    {After(450000), Before(600000), 108400, 108400, kRobot1 + 1},
    {600000, 600000, 84400, 84400, kRobot1 + 1},
};

// Press on task 2: 75,600 + 0.24 E + 5,000 S.
const std::vector<Piece> kPressTask2 = {
    {100000, Before(150000), 114600, 121800, kPress1},
    {150000, 200000, 119800, 127000, kPress1},
    {After(200000), Before(300000), 127000, 127000, kPress1},
    {300000, Before(600000), 122000, 122000, kPress1},
    {600000, 600000, 119000, 119000, kPress1},
};

// Robot on both tasks: 3,300 k + 2.16 E / k + 20,000 k S.
const std::vector<Piece> kRobotBoth = {
    {100000, 100000, 279300, 279300, kRobot1, 1, 0, 1},
    {After(100000), Before(150000), 234600, 267000, kRobot1 + 1, 1, 0, 2},
    {150000, 200000, 251000, 283400, kRobot1 + 1, 1, 0, 2},
    {After(200000), Before(300000), 281100, 281100, kRobot1 + 2, 1, 0, 3},
    {300000, 300000, 221100, 221100, kRobot1 + 2, 1, 0, 3},
    {After(300000), 400000, 227600, 227600, kRobot1 + 3, 1, 0, 4},
    {After(400000), 500000, 245620, 245620, kRobot1 + 4, 1, 0, 5},
    {After(500000), Before(600000), 269400, 269400, kRobot1 + 5, 1, 0, 6},
    {600000, 600000, 197400, 197400, kRobot1 + 5, 1, 0, 6},
};

/// All tables of a solve; scratch tables as they were last, those of the second task.
class StageTablesTest : public testing::Test {
  protected:
    StageTablesTest() { Desk.Solve(); }

    [[nodiscard]] std::filesystem::path File(const std::string& name) const {
        return Desk.File(name);
    }

    /// Where Robot and Press cost the same for task 2, the last volume of Robot: 111,000 +
    /// 0.288 (C - 100,000) = 114,600 + 0.144 (C - 100,000) at 125,000.
    [[nodiscard]] float FirstCrossing() const { return RawFile(File("IT22")).Single(4); }
    /// 117,400 + 0.288 (C - 150,000) = 119,800 + 0.144 (C - 150,000) at 166,666.67.
    [[nodiscard]] float SecondCrossing() const { return RawFile(File("IT22")).Single(2 * 20 + 4); }

    /// The cheaper one of Robot and Press on task 2.
    [[nodiscard]] std::vector<Piece> CheaperOnTask2() const {
        const float first = FirstCrossing();
        const float second = SecondCrossing();
        return {
            {100000, first, 111000, 118200, kRobot1},
            {After(first), Before(150000), 118200, 121800, kPress1},
            {150000, second, 117400, 122200, kRobot1},
            {After(second), 200000, 122200, 127000, kPress1},
            {After(200000), Before(300000), 127000, 127000, kPress1},
            {300000, 450000, 111800, 111800, kRobot1},
            {After(450000), Before(600000), 108400, 108400, kRobot1 + 1},
            {600000, 600000, 84400, 84400, kRobot1 + 1},
        };
    }

    /// The cheapest designs of both tasks.
    [[nodiscard]] std::vector<Piece> CheapestDesigns() const {
        const float first = FirstCrossing();
        const float second = SecondCrossing();
        return {
            {100000, first, 234000, 250200, 0, 1, 1, 1},
            {After(first), Before(150000), 250200, 262800, 0, 2, 1, 1},
            {150000, second, 250400, 261200, 0, 1, 1, 1},
            {After(second), 200000, 261200, 278000, 0, 2, 1, 1},
            {After(200000), Before(300000), 278000, 278000, 0, 2, 1, 1},
            {300000, 300000, 221100, 221100, 0, 1, 0, 3},
            {After(300000), 400000, 227600, 227600, 0, 1, 0, 4},
            {After(400000), 450000, 229800, 229800, 0, 1, 1, 1},
            {After(450000), Before(600000), 226400, 226400, 0, 1, 1, 2},
            {600000, 600000, 178400, 178400, 0, 1, 1, 2},
        };
    }

    StochDesk Desk{StagesModel(), "2"};
};

TEST_F(StageTablesTest, DemandStage) {
    const RawFile file(File("EProd"));
    ASSERT_EQ(file.Size(), 2U * 16);
    // 0.4 x 100,000 + 0.6 x 200,000 = 160,000
    const std::vector<float> fields = {100000, 200000, 100000, 160000, 200000, -1, 160000, 160000};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        EXPECT_EQ(file.Single(i * 4), fields[i]) << i;
    }
}

TEST_F(StageTablesTest, ShiftStage) {
    const RawFile file(File("EShift"));
    ASSERT_EQ(file.Size(), 4U * 12);
    // 0.4 x 2 + 0.6 x 3 = 2.6; 0.4 x 1 + 0.6 x 2 = 1.6
    const std::vector<float> fields = {100000, 150000, 3,    150000, 300000, 2.6F,
                                       300000, 600000, 1.6F, 600000, -1,     1};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        EXPECT_EQ(file.Single(i * 4), fields[i]) << i;
    }
}

TEST_F(StageTablesTest, ResourceStage) {
    ExpectArcs(File("F1T1.R1"), kRobotTask1);
    ExpectArcs(File("F2T2.R1"), kRobotTask2);
    ExpectArcs(File("F2T2.R2"), kPressTask2);
    ExpectArcs(File("F1T2.R1"), kRobotBoth);
}

TEST_F(StageTablesTest, InitialStageMergesTables) {
    EXPECT_NEAR(static_cast<double>(FirstCrossing()), 125000, 0.1);
    EXPECT_NEAR(static_cast<double>(SecondCrossing()), 166666.67, 0.2);
    ExpectArcs(File("IT22"), CheaperOnTask2());
    ExpectArcs(File("TempA"), kRobotTask2);  // merged with Press
    ExpectArcs(File("TempC"), CheaperOnTask2());
}

TEST_F(StageTablesTest, InitialStageTakesASingleTableAsItStands) {
    ExpectArcs(File("IT11"), kRobotTask1);
    ExpectArcs(File("IT12"), kRobotBoth);
}

TEST_F(StageTablesTest, IntermediateStageHasACandidatePerStartTask) {
    ExpectDesigns(File("Temp1"), kRobotBoth);
    // Robot on task 1 and the cheaper of both on task 2, added up
    const float first = FirstCrossing();
    const float second = SecondCrossing();
    ExpectDesigns(File("Temp2"), {
                                     {100000, first, 234000, 250200, 0, 1, 1, 1},
                                     {After(first), Before(150000), 250200, 262800, 0, 2, 1, 1},
                                     {150000, second, 250400, 261200, 0, 1, 1, 1},
                                     {After(second), 200000, 261200, 278000, 0, 2, 1, 1},
                                     {After(200000), Before(300000), 278000, 278000, 0, 2, 1, 1},
                                     {300000, 360000, 242800, 242800, 0, 1, 1, 1},
                                     {After(360000), 450000, 229800, 229800, 0, 1, 1, 1},
                                     {After(450000), Before(600000), 226400, 226400, 0, 1, 1, 2},
                                     {600000, 600000, 178400, 178400, 0, 1, 1, 2},
                                 });
}

TEST_F(StageTablesTest, FinalStageKeepsTheCheapestDesign) {
    ExpectDesigns(File("Final1"), kRobotTask1);
    ExpectDesigns(File("Final"), CheapestDesigns());
}

TEST_F(StageTablesTest, PenaltyStageAddsTheShortfall) {
    std::vector<Piece> designs = CheapestDesigns();
    // 2 x (160,000 - E): 120,000 at 100,000, 90,000 at 125,000, 60,000 at 150,000, 40,000 at
    // 166,666.67, nothing from 200,000 on
    const std::vector<std::pair<double, double>> penalties = {
        {120000, 90000}, {90000, 60000}, {60000, 40000}, {40000, 0}};
    for (std::size_t i = 0; i < penalties.size(); ++i) {
        designs[i].CostStart += penalties[i].first;
        designs[i].CostEnd += penalties[i].second;
    }
    ExpectDesigns(File("Final2"), designs);
}

using Names = std::vector<std::string>;

TEST_F(StageTablesTest, AreAllKept) {
    EXPECT_EQ(
        test::NamesIn(Desk.Kept.Path()),
        (Names{"EProd", "EShift", "F1T1.R1", "F1T2.R1", "F2T2.R1", "F2T2.R2", "Final", "Final1",
               "Final2", "IT11", "IT12", "IT22", "Temp1", "Temp2", "TempA", "TempC"}));
}

TEST_F(StageTablesTest, AreInTheApplicationDirectoryWhereStagesExchangeThem) {
    const Names tables = {"EProd", "EShift", "Final1", "Final2", "IT11", "IT12", "IT22"};
    Names names = test::NamesIn(Desk.Copy.Directory());
    std::erase(names, "blank.seq");
    std::erase(names, "working.seq");
    EXPECT_EQ(names, tables);
    for (const std::string& name : tables) {
        EXPECT_EQ(ReadFile(Desk.Copy.File(name)), ReadFile(File(name))) << name;
    }
}

TEST_F(StageTablesTest, TheDesignIsTracedBackFromTheCheapestVolume) {
    const StochasticLine& line = Desk.Line();
    EXPECT_EQ(line.Capacity, 600000);
    EXPECT_NEAR(static_cast<double>(line.ExpectedCost), 178400, kCents);
    ASSERT_EQ(line.Groups.size(), 2U);
    EXPECT_EQ(line.Groups[0].Group, (StationGroup{1, 1, 1, 2}));
    EXPECT_NEAR(static_cast<double>(line.Groups[0].Cost), 94000, kCents);
    EXPECT_EQ(line.Groups[1].Group, (StationGroup{1, 2, 2, 2}));
    EXPECT_NEAR(static_cast<double>(line.Groups[1].Cost), 84400, kCents);
}

/// A curve of one segment.
CostCurve CurveOf(int resource) {
    CostCurve curve;
    curve.Append({100, 200, 1, 2, {static_cast<std::int16_t>(resource), 1, 0}});
    return curve;
}

/// Stages that are told curves by hand.
class ToldStages : public testing::Test {
  protected:
    void Arc(int first, int last, const CostCurve& curve) {
        Tables.Made({CurveStage::Arc, first, last, 0}, curve);
    }
    void Resources(int first, int last, const std::vector<CostCurve>& curves) {
        Tables.Begin({CurveStage::Resource, first, last, 0});
        for (std::size_t i = 0; i < curves.size(); ++i) {
            Tables.Made({CurveStage::Resource, first, last, static_cast<int>(i) + 1}, curves[i]);
        }
    }
    [[nodiscard]] std::string Kept(const std::string& name) const {
        return ReadFile(KeptFiles.Path() / name);
    }
    [[nodiscard]] std::string Table(const std::string& name) const {
        return ReadFile(Directory.Path() / name);
    }

    TemporaryDirectory Directory;
    TemporaryDirectory KeptFiles;
    RunFiles Files{Directory.Path(), KeptFiles.Path()};
    test::ScriptedForm Form{Directory.Path()};
    StageTables Tables{Files, Form, 120};
};

TEST_F(ToldStages, ReplaceTheTableOfAnArcOfTheSameName) {
    Arc(11, 12, CurveOf(1));
    Arc(1, 112, CurveOf(2));
    EXPECT_EQ(Table("IT1112"), ArcRecords(CurveOf(2)));
    EXPECT_EQ(Kept("IT1112"), ArcRecords(CurveOf(2)));
}

TEST_F(ToldStages, LeaveNoTableOfTheSameNameToAnArcWithoutOne) {
    Arc(11, 12, CurveOf(1));
    Arc(1, 112, {});
    EXPECT_EQ(test::NamesIn(Directory.Path()), Names{});
    EXPECT_EQ(test::NamesIn(KeptFiles.Path()), Names{});
}

TEST_F(ToldStages, MakeNoTableOfAResourceWithoutACurve) {
    Resources(1, 2, {{}, CurveOf(2), CurveOf(3)});
    EXPECT_EQ(test::NamesIn(KeptFiles.Path()), (Names{"F1T2.R2", "F1T2.R3", "TempA"}));
    EXPECT_EQ(Kept("TempA"), ArcRecords(CurveOf(2)));
    Resources(2, 2, {CurveOf(4)});
    EXPECT_EQ(Kept("TempA"), ArcRecords(CurveOf(4)));
}

TEST_F(ToldStages, MergeWhatTheMergeBeforeHasPutOut) {
    Resources(1, 1, {CurveOf(1), CurveOf(2), CurveOf(3)});
    Tables.Made({CurveStage::ArcMerge, 1, 1, 2}, CurveOf(4));
    EXPECT_EQ(Kept("TempA"), ArcRecords(CurveOf(1)));
    EXPECT_EQ(Kept("TempC"), ArcRecords(CurveOf(4)));
    Tables.Made({CurveStage::ArcMerge, 1, 1, 3}, CurveOf(5));
    EXPECT_EQ(Kept("TempA"), ArcRecords(CurveOf(4)));
    EXPECT_EQ(Kept("TempC"), ArcRecords(CurveOf(5)));
    Tables.Made({CurveStage::Candidate, 1, 3, 1}, CurveOf(1));
    Tables.Made({CurveStage::PrefixMerge, 1, 3, 2}, CurveOf(6));
    EXPECT_EQ(Kept("Temp1"), DesignRecords(CurveOf(1)));
    Tables.Made({CurveStage::PrefixMerge, 1, 3, 3}, CurveOf(7));
    EXPECT_EQ(Kept("Temp1"), DesignRecords(CurveOf(6)));
    EXPECT_EQ(Kept("Final"), DesignRecords(CurveOf(7)));
    EXPECT_EQ(test::NamesIn(Directory.Path()), Names{});
}

}  // namespace
}  // namespace quarnel02

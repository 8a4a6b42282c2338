// The tables of the stages, record by record, against the same curves in memory.

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <string>

#include "basic/Files.h"
#include "line/StochasticDesign.h"
#include "shell/LoadLineModel.h"
#include "stoch/Records.h"
#include "support/StochBruteForce.h"
#include "support/StochDesk.h"

namespace quarnel02 {
namespace {

using test::Dice;
using test::ModelScript;
using test::StochDesk;

#if defined(__SANITIZE_ADDRESS__)
constexpr unsigned kModels = 20;
#else
constexpr unsigned kModels = 150;
#endif

template <std::size_t Size>
std::string Text(const RecordBytes<Size>& bytes) {
    std::string text;
    for (const std::byte byte : bytes) {
        text += static_cast<char>(byte);
    }
    return text;
}

std::string ArcRecord(const line::CurveSegment& segment) {
    return Text(ArcSegment{segment.Start, segment.End, segment.CostStart, segment.CostEnd,
                           ToChoice(segment.Tag.Resource, segment.Tag.Stations)}
                    .Pack());
}

std::string DesignRecord(const line::CurveSegment& segment) {
    return Text(DesignSegment{segment.Start, segment.End, segment.CostStart, segment.CostEnd,
                              segment.Tag.Resource, segment.Tag.PreviousTask, segment.Tag.Stations}
                    .Pack());
}

/// The run files that the curves of a design would be, by name.
class RunFilesOf : public line::CurveListener {
  public:
    void Made(const line::CurveName& name, const line::CostCurve& curve) override {
        const std::string last = std::to_string(name.LastTask);
        if (name.Stage == line::CurveStage::Arc && !curve.IsEmpty()) {
            Files["IT" + std::to_string(name.FirstTask) + last] = Records(curve, ArcRecord);
        } else if (name.Stage == line::CurveStage::Prefix ||
                   name.Stage == line::CurveStage::WithPenalties) {
            Files["Final" + last] = Records(curve, DesignRecord);
        }
    }

    std::map<std::string, std::string> Files;

  private:
    static std::string Records(const line::CostCurve& curve,
                               std::string (*record)(const line::CurveSegment&)) {
        std::string records;
        for (const line::CurveSegment& segment : curve.Segments()) {
            records += record(segment);
        }
        return records;
    }
};

/// Whether the model could be designed; both ways must agree on that too.
bool CheckModel(const ModelScript& model, const std::string& penalty) {
    StochDesk desk(model, penalty);
    RunFilesOf files;
    const auto design = line::DesignForDemand(LoadLineModel(desk.Form.Model),
                                              std::strtof(penalty.c_str(), nullptr), files);
    if (!design.Line) {
        EXPECT_THROW(desk.Solve(), ProgramEnded);
        return false;
    }
    desk.Solve();
    for (const auto& [name, records] : files.Files) {
        EXPECT_TRUE(ReadFile(desk.Copy.File(name)) == records) << name;
    }
    EXPECT_EQ(desk.Run.Capacity, design.Line->Capacity);
    return true;
}

TEST(InMemoryDesign, HasTheRecordsOfTheRunFiles) {
    unsigned solved = 0;
    for (unsigned seed = 0; seed < kModels && !::testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Dice dice(seed);
        const ModelScript model = test::RandomStochModel(dice);
        solved += CheckModel(model, std::to_string(dice(0, 20))) ? 1U : 0U;
    }
    EXPECT_GT(solved, kModels / 2);
}

}  // namespace
}  // namespace quarnel02

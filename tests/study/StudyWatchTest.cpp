// Studies that are watched, and stopped from another thread.

#include "study/StudyWatch.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>
#include <vector>

#include "line/Pathways.h"
#include "study/Scenarios.h"
#include "study/Sensitivity.h"
#include "study/VolumeRanges.h"
#include "support/ModelScript.h"

namespace quarnel02 {
namespace {

using Clock = std::chrono::steady_clock;
using Study = std::function<void(const StudyWatch& watch)>;

/// So many tasks that every study of it takes seconds in a build for debugging.
LineModel LongLine(int tasks, int resources) {
    test::ModelScript model;
    model.Tasks = tasks;
    model.Days = 240;
    model.ACF = 0.25;
    model.LaborCost = 20;
    model.Penalty = 30;
    for (int resource = 1; resource <= resources; ++resource) {
        model.Resources.push_back({"", resource % 4, 1000.0 * resource * resource,
                                   static_cast<double>(resources + 1 - resource)});
        for (int task = 1; task <= tasks; ++task) {
            model.Matrix.push_back(
                {resource, task, 3.0 + (task * 7 + resource * 5) % 31, task % 5 + 1, 500.0});
        }
    }
    model.Demand = {{20000, 20}, {60000, 50}, {120000, 30}};
    return model.Model();
}

Study VolumesOf(const PreparedLine& line, int last) {
    return [&line, last](const StudyWatch& watch) { VolumeRanges(line, {1, last, {}}, watch); };
}
Study SensitivityOfFixed(const PreparedLine& line) {
    return [&line](const StudyWatch& watch) {
        SensitivityOf(line, {60000, 2, {}}, kUsualShare, watch);
    };
}
Study Stochastic(const PreparedLine& line) {
    return [&line](const StudyWatch& watch) { DesignWithCurves(line.Model, 30, watch); };
}
Study SensitivityOfStochastic(const PreparedLine& line) {
    return [&line](const StudyWatch& watch) {
        SensitivityOf(DesignWithCurves(line.Model, 30, watch.Part(0, 0)), kUsualShare, watch);
    };
}
Study ScenariosOf(const PreparedLine& line) {
    return [&line](const StudyWatch& watch) {
        SolveScenarios({line.Model, {}}, std::vector<Scenario>(9, {"More", "Demand +10%"}), watch);
    };
}

class WatchedStudies : public testing::Test {
  protected:
    /// The shares that a whole study tells, which never go back.
    static std::vector<double> SharesOf(const Study& study) {
        std::vector<double> shares;
        study(StudyWatch({}, [&](double share) { shares.push_back(share); }));
        return shares;
    }
    void ExpectRisingToOne(const Study& study) const {
        const std::vector<double> shares = SharesOf(study);
        ASSERT_GT(shares.size(), 5U);
        EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
        EXPECT_GE(shares.front(), 0);
        EXPECT_DOUBLE_EQ(shares.back(), 1);
    }
    /// A stop that is requested when so much is done ends the study in 0.2 s.
    static void ExpectStopped(const Study& study, double when) {
        std::stop_source stop;
        std::atomic<bool> there = false;
        Clock::time_point requested;
        std::thread stopper([&] {
            while (!there) {
                std::this_thread::yield();
            }
            requested = Clock::now();
            stop.request_stop();
        });
        const StudyWatch watch(stop.get_token(),
                               [&](double share) { there = there || share >= when; });
        EXPECT_THROW(study(watch), StudyStopped);
        const auto ended = Clock::now();
        there = true;
        stopper.join();
        EXPECT_LT(ended - requested, std::chrono::milliseconds(200));
    }

    const PreparedLine Small = Prepare(LongLine(8, 4));
    const PreparedLine Large = Prepare(LongLine(32, 12));
};

TEST_F(WatchedStudies, TellTheShareOfTheWork) {
    ExpectRisingToOne(VolumesOf(Small, 200000));
    ExpectRisingToOne(SensitivityOfFixed(Small));
    ExpectRisingToOne(SensitivityOfStochastic(Small));
    ExpectRisingToOne(ScenariosOf(Small));
    const auto shares = SharesOf(Stochastic(Small));
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    EXPECT_GT(shares.back(), 0.9);
    EXPECT_LE(shares.back(), 1);
}

TEST_F(WatchedStudies, EndWhenTheyAreStopped) {
    for (const double when : {0.0, 0.3, 0.7}) {
        SCOPED_TRACE(when);
        ExpectStopped(VolumesOf(Large, 900000), when);
        ExpectStopped(Stochastic(Large), when / 4);
    }
    for (const double when : {0.0, 0.01}) {
        SCOPED_TRACE(when);
        ExpectStopped(SensitivityOfFixed(Large), when);
        ExpectStopped(ScenariosOf(Large), when);
    }
}

TEST_F(WatchedStudies, DoNotBeginAfterAStop) {
    std::stop_source stop;
    stop.request_stop();
    int told = 0;
    const StudyWatch watch(stop.get_token(), [&](double /*share*/) { ++told; });
    for (const Study& study : {VolumesOf(Small, 9), SensitivityOfFixed(Small), Stochastic(Small)}) {
        EXPECT_THROW(study(watch), StudyStopped);
    }
    EXPECT_EQ(told, 0);
}

TEST(StudyWatch, TellsTheShareOfAPartAsThatOfTheWhole) {
    std::vector<double> shares;
    const StudyWatch whole({}, [&](double share) { shares.push_back(share); });
    const StudyWatch part = whole.Part(0.5, 0.9);
    part.Look(0);
    part.Look(0.5);
    part.Part(0.5, 1).Look(1);
    EXPECT_EQ(shares, (std::vector<double>{0.5, 0.7, 0.9}));
}

}  // namespace
}  // namespace quarnel02

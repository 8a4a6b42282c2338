#include "studies/BackgroundWork.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <atomic>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

namespace quarnel02 {
namespace {

using Show = BackgroundWork::Show;

/// Works until it is stopped, and then has something to show nevertheless.
class Stubborn {
  public:
    BackgroundWork::Work Work(const Show& show) {
        return [this, show](const StudyWatch& watch) -> Show {
            Begun = true;
            WaitUntilStopped(watch);
            Ended = true;
            return show;
        };
    }
    void WaitUntilBegun() const {
        ASSERT_TRUE(QTest::qWaitFor([this] { return Begun.load(); }));
    }
    std::atomic<bool> Begun = false;
    std::atomic<bool> Ended = false;

  private:
    static void WaitUntilStopped(const StudyWatch& watch) {
        try {
            for (;;) {
                watch.Look();
                std::this_thread::yield();
            }
        } catch (const StudyStopped&) {
            return;
        }
    }
};

void WaitUntilIdle(const BackgroundWork& work) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return !work.IsRunning(); }));
}

TEST(BackgroundWork, RunsElsewhereAndShowsHere) {
    BackgroundWork work;
    std::thread::id worked;
    std::thread::id shown;
    work.Start([&](const StudyWatch& /*watch*/) -> Show {
        worked = std::this_thread::get_id();
        return [&] { shown = std::this_thread::get_id(); };
    });
    EXPECT_TRUE(work.IsRunning());
    EXPECT_EQ(shown, std::thread::id());
    WaitUntilIdle(work);
    EXPECT_EQ(shown, std::this_thread::get_id());
    EXPECT_NE(worked, shown);
}

TEST(BackgroundWork, OnlyTheNewestIsShown) {
    Stubborn first;
    std::vector<int> shown;
    BackgroundWork work;
    work.Start(first.Work([&] { shown.push_back(1); }));
    first.WaitUntilBegun();
    const auto quick = [&](int number) {
        return [&, number](const StudyWatch& /*watch*/) -> Show {
            return [&, number] { shown.push_back(number); };
        };
    };
    work.Start(quick(2));
    work.Start(quick(3));
    WaitUntilIdle(work);
    EXPECT_TRUE(first.Ended);
    EXPECT_EQ(shown, std::vector<int>{3});
}

TEST(BackgroundWork, SaysHowFarItHasCome) {
    constexpr double half = 0.5;
    std::atomic<bool> go_on = false;
    BackgroundWork work;
    EXPECT_EQ(work.Progress().Share, 0);
    const auto begin = [&](double share) {
        go_on = false;
        work.Start([&, share](const StudyWatch& watch) -> Show {
            watch.Look(share);
            while (!go_on) {
                std::this_thread::yield();
            }
            return {};
        });
    };
    begin(half);
    ASSERT_TRUE(QTest::qWaitFor([&] { return work.Progress().Share == half; }));
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return work.Progress().Elapsed > std::chrono::milliseconds(10); }));
    work.Start([](const StudyWatch& /*watch*/) -> Show { return {}; });
    EXPECT_EQ(work.Progress().Share, 0);  // of the one that waits
    EXPECT_EQ(work.Progress().Elapsed.count(), 0);
    go_on = true;
    WaitUntilIdle(work);
    EXPECT_EQ(work.Progress().Share, 0);
    begin(0);
    EXPECT_EQ(work.Progress().Share, 0);
    go_on = true;
    WaitUntilIdle(work);
}

TEST(BackgroundWork, ShowsNothingOnceItIsCancelled) {
    Stubborn first;
    int shown = 0;
    int waiting = 0;
    BackgroundWork work;
    work.Start(first.Work([&] { ++shown; }));
    first.WaitUntilBegun();
    work.Start([&](const StudyWatch& /*watch*/) -> Show {
        ++waiting;
        return {};
    });
    work.Cancel();
    WaitUntilIdle(work);
    QCoreApplication::processEvents();
    EXPECT_EQ(shown, 0);
    EXPECT_EQ(waiting, 0);
}

TEST(BackgroundWork, StopsAndWaitsWhenItGoes) {
    Stubborn first;
    int shown = 0;
    auto work = std::make_unique<BackgroundWork>();
    work->Start(first.Work([&] { ++shown; }));
    first.WaitUntilBegun();
    EXPECT_FALSE(first.Ended);
    work.reset();
    EXPECT_TRUE(first.Ended);
    QCoreApplication::processEvents();
    EXPECT_EQ(shown, 0);
}

TEST(BackgroundWork, SaysWhyItFailed) {
    BackgroundWork work;
    QString said;
    QObject::connect(&work, &BackgroundWork::Failed, &work,
                     [&](const QString& text) { said = text; });
    work.Start([](const StudyWatch& /*watch*/) -> Show {
        throw std::runtime_error("Resource 3 (Robot): no.");
    });
    WaitUntilIdle(work);
    EXPECT_EQ(said.toStdString(), "Resource 3 (Robot): no.");
}

}  // namespace
}  // namespace quarnel02

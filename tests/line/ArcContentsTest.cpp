// The work contents of all arcs that end at a task, task after task.

#include "line/ArcContents.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <vector>

#include "line/RandomLine.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

RC_GTEST_PROP(ArcContentsOfRandomModels, AreThoseOfEveryResourceThatCanDoTheArc, ()) {
    const LineModel model = test::RandomModel(test::Roll(5, 10)).Model();
    ArcContents contents(model);
    for (int last = 1; last <= model.TaskCount(); ++last) {
        contents.Next();
        for (int first = 1; first <= last; ++first) {
            std::vector<int> resources;
            contents.ForEachResource(first, [&](int resource, const WorkContent& content) {
                resources.push_back(resource);
                RC_ASSERT(content == ContentOf(model.Entries(resource, first, last),
                                               model.ResourceOf(resource),
                                               model.Parameters().TransportTime));
            });
            std::vector<int> able;
            for (int resource = 1; resource <= model.ResourceCount(); ++resource) {
                bool can = true;
                for (int task = first; task <= last; ++task) {
                    can = can && model.CanDo(resource, task);
                }
                if (can) {
                    able.push_back(resource);
                }
            }
            RC_ASSERT(resources == able);
        }
    }
}

TEST(ArcContentsBeyondASingle, AreAnErrorWhenTheTurnOfTheirResourceHasCome) {
    Resource hand;
    hand.UpTime = 100;
    std::vector<Resource> hands = {hand, hand};
    hands[0].Number = 1;
    hands[1].Number = 2;
    const std::vector<MatrixRow> matrix = {{1, 1, {5, 1, 0}}, {2, 1, {1e39, 1, 0}}};
    const LineModel model({}, hands, {{1, ""}}, matrix, {});
    ArcContents contents(model);
    contents.Next();
    int told = 0;
    test::ExpectRunTimeError(ErrorKind::Overflow, [&] {
        contents.ForEachResource(1, [&](int resource, const WorkContent&) { told = resource; });
    });
    EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace quarnel02

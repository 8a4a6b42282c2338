#include "fixed/ArcWords.h"

#include <algorithm>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "fixed/ToolsText.h"
#include "line/CheapestLine.h"
#include "model/RecordSet.h"

namespace quarnel02 {

namespace {

using Names = std::map<int, std::string>;

bool IsIn(const ArcWay& way, PathwayState state) {
    return way.State == static_cast<int>(state);
}

const ArcWay* FirstIn(std::span<const ArcWay> ways, PathwayState state) {
    const auto found =
        std::find_if(ways.begin(), ways.end(), [&](const ArcWay& way) { return IsIn(way, state); });
    return found == ways.end() ? nullptr : &*found;
}

std::string NameOf(int resource, const Names& names) {
    const auto found = names.find(resource);
    return found == names.end() ? "Resource " + NumberText(resource) : found->second;
}

std::string WayText(const ArcWay& way, const Names& names) {
    return NameOf(way.Resource, names) +
           (way.Cost > 0 ? " " + Format(way.Cost, "#,##0") : std::string());
}

/// ", cheapest of 4" where the others have been costed too and none of them is cheaper.
std::string RankText(const ArcWay& way, std::span<const ArcWay> ways) {
    const bool cheapest =
        way.Cost > 0 && std::none_of(ways.begin(), ways.end(), [&](const ArcWay& other) {
            return !IsIn(other, PathwayState::OverLimit) && other.Cost < way.Cost;
        });
    return cheapest && ways.size() > 1
               ? ", cheapest of " + NumberText(static_cast<int>(ways.size()))
               : std::string();
}

/// The names of those over the limit, or of the others.
std::string AllNames(std::span<const ArcWay> ways, bool overLimit, const Names& names) {
    std::string text;
    for (const ArcWay& way : ways) {
        if (IsIn(way, PathwayState::OverLimit) != overLimit) {
            continue;
        }
        text += (text.empty() ? "" : ", ") + NameOf(way.Resource, names);
    }
    return text;
}

std::string StateText(std::span<const ArcWay> ways, const Names& names) {
    if (ways.empty()) {
        return "no resource can do all of it";
    }
    if (const ArcWay* chosen = FirstIn(ways, PathwayState::Chosen)) {
        return WayText(*chosen, names) + ", chosen" + RankText(*chosen, ways);
    }
    const ArcWay* best = FirstIn(ways, PathwayState::Feasible);
    if (best == nullptr) {
        return "over the station limit with " + AllNames(ways, true, names);
    }
    return best->Cost > 0 ? WayText(*best, names) + RankText(*best, ways)
                          : "possible with " + AllNames(ways, false, names);
}

}  // namespace

Names ResourceNames(const Database& database) {
    Names names;
    RecordSet rows = database.OpenRecordSet("SELECT ResourceId, ShortName FROM Resources;");
    for (; !rows.Eof(); rows.MoveNext()) {
        if (IsNull(rows.Field(0)) || IsNull(rows.Field(1))) {
            continue;
        }
        const std::string name = rows.Text(1);
        const auto first = name.find_first_not_of(' ');
        if (first != std::string::npos) {
            names.emplace(rows.Integer(0),
                          name.substr(first, name.find_last_not_of(' ') + 1 - first));
        }
    }
    return names;
}

std::string ArcWords(int taskStart, int taskEnd, std::span<const ArcWay> ways, const Names& names) {
    return TasksText(taskStart, taskEnd) + ": " + StateText(ways, names);
}

}  // namespace quarnel02

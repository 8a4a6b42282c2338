#include "study/VolumeRanges.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <set>
#include <utility>

#include "line/CostModel.h"
#include "line/WorkTime.h"
#include "study/VolumePieces.h"

namespace quarnel02 {

namespace {

constexpr double kCurveWork = 0.6;  ///< share of the work that makes curves

/// Whether one number of shifts is cheaper than another.
class ShiftContest {
  public:
    ShiftContest(const VolumeDesigns& own, const VolumeDesigns& other)
        : m_own(own), m_other(other) {}

    /// At a volume for which there is a line in the own shifts.
    [[nodiscard]] bool OtherIsCheaper(int volume) const {
        const GridSegment* const other = SegmentAt(m_other.Costs(), volume);
        if (other == nullptr) {
            return false;
        }
        const double cost = SegmentAt(m_own.Costs(), volume)->CostAt(volume);
        const double difference = other->CostAt(volume) - cost;
        if (std::fabs(difference) > m_own.Rounding(cost)) {
            return difference < 0;
        }
        return m_other.LineAt(volume)->Cost < m_own.LineAt(volume)->Cost;
    }

    /// Appends the volumes from which on the answer is another than for the volume before.
    void AppendChanges(std::vector<int>& changes, int from, int to) const {
        bool cheaper = OtherIsCheaper(from);
        for (int start = from; start <= to;) {
            const int end = std::min(to, LineEnd(start));
            const bool at_start = OtherIsCheaper(start);
            const bool at_end = end == start ? at_start : OtherIsCheaper(end);
            if (at_start != cheaper) {
                changes.push_back(start);
            }
            if (at_end != at_start) {
                changes.push_back(ChangeBetween(start, end, at_end));
            }
            cheaper = at_end;
            start = end + 1;
        }
    }

  private:
    /// The last volume up to which both costs are straight.
    [[nodiscard]] int LineEnd(int volume) const {
        const GridSegment* const own = SegmentAt(m_own.Costs(), volume);
        const GridSegment* const other = SegmentAt(m_other.Costs(), volume);
        return other == nullptr ? m_own.Costs().back().To : std::min(own->To, other->To);
    }

    [[nodiscard]] int ChangeBetween(int low, int high, bool atHigh) const {
        while (high - low > 1) {
            const int middle = low + (high - low) / 2;
            (OtherIsCheaper(middle) == atHigh ? high : low) = middle;
        }
        return high;
    }

    const VolumeDesigns& m_own;
    const VolumeDesigns& m_other;
};

double InvestmentOf(const PreparedLine& line, const PathwayPlaces& places,
                    const std::vector<StationGroup>& groups) {
    double sum = 0;
    for (const auto& [resource, first, last, stations] : groups) {
        const WorkContent& content = line.Contents[*places.Of(resource, first, last)];
        sum +=
            static_cast<double>(Investment(static_cast<std::int16_t>(stations), content.ToolCostSum,
                                           line.Model.ResourceOf(resource)));
    }
    return sum;
}

class RangeMaker {
  public:
    RangeMaker(const PreparedLine& line, const VolumeSpan& span, const StudyWatch& watch)
        : m_line(line), m_places(line) {
        for (std::int16_t shifts = 1; shifts <= kMostShifts; ++shifts) {
            m_designs.emplace_back(line, shifts, span,
                                   watch.Part(kCurveWork * (shifts - 1) / kMostShifts,
                                              kCurveWork * shifts / kMostShifts));
        }
    }

    [[nodiscard]] std::vector<VolumeRange> Ranges(const StudyWatch& watch) const {
        std::vector<VolumeRange> ranges;
        for (const VolumeDesigns& own : m_designs) {
            const std::vector<LinePiece> pieces = PiecesOf(own, watch);
            for (std::size_t place = 0; place < pieces.size(); ++place) {
                const double done = static_cast<double>(place) / static_cast<double>(pieces.size());
                watch.Look((own.Shifts() - 1 + done) / kMostShifts);
                AppendRanges(ranges, own, pieces[place]);
            }
        }
        return ranges;
    }

  private:
    void AppendRanges(std::vector<VolumeRange>& ranges, const VolumeDesigns& own,
                      const LinePiece& piece) const {
        VolumeRange range{.Shifts = own.Shifts(),
                          .Line = piece.Line,
                          .Investment = InvestmentOf(m_line, m_places, piece.Line)};
        std::vector<int> starts = Starts(own, piece);
        for (std::size_t place = 0; place < starts.size(); ++place) {
            const bool last = place + 1 == starts.size();
            range.From = starts[place];
            range.To = last ? piece.To : starts[place + 1] - 1;
            range.CostFrom = own.LineAt(range.From)->Cost;
            range.CostTo = range.From == range.To ? range.CostFrom : own.LineAt(range.To)->Cost;
            range.Best = IsBest(own, range.From);
            ranges.push_back(range);
        }
    }

    /// First volumes of the ranges that a piece is cut into.
    [[nodiscard]] std::vector<int> Starts(const VolumeDesigns& own, const LinePiece& piece) const {
        std::vector<int> changes;
        for (const VolumeDesigns& other : m_designs) {
            if (&other != &own) {
                ShiftContest(own, other).AppendChanges(changes, piece.From, piece.To);
            }
        }
        std::sort(changes.begin(), changes.end());
        std::vector<int> starts = {piece.From};
        for (const int change : changes) {
            if (change != starts.back() && IsBest(own, change) != IsBest(own, change - 1)) {
                starts.push_back(change);
            }
        }
        return starts;
    }

    [[nodiscard]] bool IsBest(const VolumeDesigns& own, int volume) const {
        return std::none_of(m_designs.begin(), m_designs.end(), [&](const VolumeDesigns& other) {
            return &other != &own && ShiftContest(own, other).OtherIsCheaper(volume);
        });
    }

    const PreparedLine& m_line;
    PathwayPlaces m_places;
    std::vector<VolumeDesigns> m_designs;
};

}  // namespace

std::vector<VolumeRange> VolumeRanges(const PreparedLine& line, const VolumeSpan& span,
                                      const StudyWatch& watch) {
    std::vector<VolumeRange> ranges =
        RangeMaker(line, span, watch).Ranges(watch.Part(kCurveWork, 1));
    watch.Look(1);
    return ranges;
}

std::vector<TypeRanges> RangesByType(const LineModel& model, const VolumeSpan& span,
                                     const StudyWatch& watch) {
    std::set<int> types;
    for (const Resource& resource : model.Resources()) {
        types.insert(resource.Type);
    }
    std::vector<TypeRanges> all;
    double done = 0;
    for (const int type : types) {
        const double from = done / static_cast<double>(types.size());
        const double to = ++done / static_cast<double>(types.size());
        if (auto alone = OfOneType(model, type)) {
            TypeRanges ranges{type,
                              VolumeRanges(Prepare(std::move(*alone)), span, watch.Part(from, to))};
            if (!ranges.Ranges.empty()) {
                all.push_back(std::move(ranges));
            }
        }
    }
    return all;
}

std::optional<LineModel> OfOneType(const LineModel& model, int type) {
    std::vector<MatrixRow> matrix;
    bool others = false;
    for (const Resource& resource : model.Resources()) {
        others = others || resource.Type != type;
        for (int task = 1; resource.Type == type && task <= model.TaskCount(); ++task) {
            if (model.CanDo(resource.Number, task)) {
                matrix.push_back({resource.Number, task, model.Entry(resource.Number, task)});
            }
        }
    }
    if (matrix.empty() || !others) {
        return std::nullopt;
    }
    return LineModel(model.Parameters(), {model.Resources().begin(), model.Resources().end()},
                     {model.Tasks().begin(), model.Tasks().end()}, matrix,
                     {model.Demand().begin(), model.Demand().end()});
}

}  // namespace quarnel02

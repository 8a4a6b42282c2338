#include "stoch/AddExpectedPenalties.h"

#include <algorithm>

#include "basic/Numbers.h"
#include "stoch/CurveFile.h"
#include "stoch/ExpectedProduction.h"
#include "stoch/Notices.h"
#include "stoch/Records.h"

namespace quarnel02 {

namespace {

class PenaltyCurve {
  public:
    PenaltyCurve(const StochRun& run, float penalty)
        : m_production(run.Files), m_mean(run.MeanDemand), m_penalty(penalty) {}

    /// Last volume of the straight line that `volume` is on, at most `end`.
    [[nodiscard]] float LineEnd(float volume, float end) const {
        const float limit = m_production.LineEnd(volume);
        return limit == kNoUpperEnd ? end : std::min(end, limit);
    }

    [[nodiscard]] float CostWithPenalty(const DesignSegment& design, float volume) const {
        const double shortfall = static_cast<double>(m_mean) - m_production.At(volume);
        return static_cast<float>(CostAt(design, volume) +
                                  shortfall * static_cast<double>(m_penalty));
    }

  private:
    ExpectedProduction m_production;
    float m_mean;
    float m_penalty;
};

void AddTo(const DesignSegment& design, const PenaltyCurve& penalties,
           CurveWriter<DesignSegment>& output) {
    for (float from = design.SegStart; from <= design.SegEnd;) {
        DesignSegment part = design;
        part.SegStart = from;
        part.SegEnd = penalties.LineEnd(from, design.SegEnd);
        part.CostStart = penalties.CostWithPenalty(design, part.SegStart);
        part.CostEnd = penalties.CostWithPenalty(design, part.SegEnd);
        output.Write(part);
        from = NextSingle(part.SegEnd);
    }
}

}  // namespace

void AddExpectedPenalties(StochRun& run) {
    const int tasks = run.Form.Model.OpenRecordSet("SELECT Tasks FROM Gen;").Integer(0);
    const PenaltyCurve penalties(
        run, TextToSingle(run.Form.Text(TextBox::txtPenalty), "Penalty (txtPenalty)"));
    const auto table = run.Files.Final(tasks);
    const auto output = run.Files.Path("Final");
    CurveWriter<DesignSegment> file(output);
    for (CurveReader<DesignSegment> designs(table); !designs.AtEnd(); designs.Advance()) {
        AddTo(designs.Current(), penalties, file);
    }
    NoticeEarlyEnd(run, table, file.Close());
    RenameRunFile(output, table);
}

}  // namespace quarnel02

#include "stoch/AddExpectedPenalties.h"

#include <algorithm>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "stoch/CurveFile.h"
#include "stoch/ExpectedProduction.h"
#include "stoch/Notices.h"
#include "stoch/Records.h"

namespace quarnel02 {

namespace {

class PenaltyCurve {
  public:
    PenaltyCurve(const StochRun& run, float penalty)
        : m_production(run.Files), m_penalty(penalty) {}

    /// Last volume of the straight line that `volume` is on, at most `end`.
    [[nodiscard]] float LineEnd(float volume, float end) const {
        const float limit = m_production.LineEnd(volume);
        return limit == kNoUpperEnd ? end : std::min(end, limit);
    }

    [[nodiscard]] float CostWithPenalty(const DesignSegment& design, float volume) const {
        return static_cast<float>(CostAt(design, volume) + m_production.ShortfallAt(volume) *
                                                               static_cast<double>(m_penalty));
    }

  private:
    ExpectedProduction m_production;
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

float PenaltyPerUnit(const MainForm& form) {
    const float penalty = TextToSingle(form.Text(TextBox::txtPenalty), "Penalty ($/unit)");
    if (penalty < 0) {
        throw RunTimeError(ErrorKind::Overflow, "Penalty ($/unit) is " + NumberText(penalty) +
                                                    "; it must be at least 0.");
    }
    return penalty;
}

void AddExpectedPenalties(StochRun& run) {
    const int tasks = run.Form.Model.OpenRecordSet("SELECT Tasks FROM Gen;").Integer(0);
    const PenaltyCurve penalties(run, PenaltyPerUnit(run.Form));
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

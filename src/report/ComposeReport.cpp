#include "report/ComposeReport.h"

#include <iterator>
#include <utility>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "charts/StationLoad.h"
#include "report/StationTables.h"
#include "study/LineTable.h"

namespace quarnel02 {

namespace {

// Heights of pictures on paper, in widths.
constexpr double kNetworkShape = 0.36;
constexpr double kLineShape = 0.4;
constexpr double kChartShape = 0.45;

std::string Dollars(double amount) {
    return Format(amount, "$#,##0");
}

std::string Seconds(double seconds) {
    return Format(seconds, "#,##0.00") + " s";
}

LineTable TableOf(const DesignMade& design) {
    const DesignedLine& line = *design.Line;
    return line.Expected ? TableOf(line.Model, *line.Expected)
                         : TableOf(line.Model, line.Groups,
                                   BasisOf(design.Request.value(), line.Model.Parameters()));
}

/// A row of the list of demand, "12,500:  25%".
std::vector<std::string> DemandCells(const std::string& line) {
    const std::size_t colon = line.find(':');
    const std::size_t percent = line.find_first_not_of(' ', colon + 1);
    return {line.substr(0, colon), line.substr(percent)};
}

class ReportComposer {
  public:
    ReportComposer(const MainForm& form, const ReportOccasion& occasion)
        : m_form(form), m_occasion(occasion) {}

    Document Compose() {
        const std::string product = m_form.Text(TextBox::txtProduct);
        m_document.Title = "Line design" + (product.empty() ? "" : ": " + product);
        m_document.Product = product;
        m_document.Date = TimeText(m_occasion.When);
        AddStanding();
        AddDesign();
        AddParameters();
        AddDemand();
        AddNetwork();
        AddLine();
        AddStations();
        return std::move(m_document);
    }

  private:
    [[nodiscard]] bool IsStochastic() const {
        return m_form.LastDesign && !m_form.LastDesign->Request;
    }
    void Add(DocumentPart part) { m_document.Parts.push_back(std::move(part)); }
    void AddHeading(const std::string& text) { Add(HeadingPart{text}); }
    void AddResultHeading(const std::string& text) {
        AddHeading(text + (m_occasion.OutOfDate ? " (out of date)" : ""));
    }
    /// Of a picture in which something is drawn.
    void AddPicture(const std::string& heading, const Picture& picture, const std::string& words,
                    double shape) {
        if (!picture.Figures().empty()) {
            AddResultHeading(heading);
            Add(PartFrom(picture, words, shape));
        }
    }

    void AddStanding() {
        if (!m_form.LastDesign) {
            Add(ParagraphPart{"No line has been designed for this model yet.", true});
        } else if (m_occasion.OutOfDate) {
            Add(
                ParagraphPart{"The results are out of date: the model has been changed since this "
                              "line was designed at " +
                                  TimeText(m_form.LastDesign->When) +
                                  ". Parameters, demand and network are those of the changed "
                                  "model. Design the line again for a report that agrees.",
                              true});
        }
    }

    void AddDesign() {
        FactsPart facts{{{"Model", m_occasion.File.empty() ? "not saved" : m_occasion.File}}};
        if (!m_form.LastDesign) {
            Add(std::move(facts));
            return;
        }
        const DesignMade& design = *m_form.LastDesign;
        AddResultHeading("Design");
        facts.Facts.push_back({"Designed for", design.Caption});
        if (design.Request) {
            facts.Facts.push_back(
                {"Limit on parallel stations", design.Request->StationLimit
                                                   ? NumberText(int{*design.Request->StationLimit})
                                                   : "none"});
        }
        facts.Facts.push_back({"Cost a year", design.Cost});
        if (design.Line) {
            AddTotals(facts, TableOf(design));
        }
        facts.Facts.push_back({"Designed at", TimeText(design.When)});
        Add(std::move(facts));
    }

    static void AddTotals(FactsPart& facts, const LineTable& line) {
        facts.Facts.push_back({"Investment", Dollars(line.Totals.Investment)});
        facts.Facts.push_back({"Stations", NumberText(static_cast<int>(line.Rows.size())) +
                                               (line.Rows.size() == 1 ? " group, " : " groups, ") +
                                               NumberText(line.Stations) + " in all"});
        facts.Facts.push_back({"Cycle time", Seconds(line.CycleTime) + " of " +
                                                 Seconds(line.Basis.AvailableCycleTime)});
    }

    void AddParameters() {
        const auto fact = [this](const char* name, TextBox box) {
            return Fact{name, m_form.Text(box)};
        };
        AddHeading("Production parameters");
        Add(FactsPart{{fact("Number of resources", TextBox::txtResources),
                       fact("Number of tasks", TextBox::txtTasks),
                       fact("Working days per year", TextBox::txtDays),
                       fact("Annual capital factor (ACF)", TextBox::txtACF),
                       fact("Labour cost ($/h)", TextBox::txtLaborCost),
                       fact("Transport time (s)", TextBox::txtTransTime),
                       fact("Penalty ($/unit)", TextBox::txtPenalty)}});
    }

    /// A fixed design does not ask for the rows.
    void AddDemand() {
        if (m_form.LastDesign && !IsStochastic()) {
            return;
        }
        if (m_form.DemandCount() > 0) {
            TablePart rows{{{"Volume (units/year)", true}, {"Probability", true}}, {}};
            for (int line = 0; line < m_form.DemandCount(); ++line) {
                rows.Rows.push_back(DemandCells(m_form.DemandLine(line)));
            }
            AddHeading("Demand");
            Add(std::move(rows));
        }
        if (IsStochastic()) {
            AddPicture("Demand distribution", m_form.picGraph[1],
                       "The volumes that the demand may turn out to be, and their probabilities.",
                       kChartShape);
        }
    }

    void AddNetwork() {
        if (TextToDouble(m_form.Text(TextBox::txtTasks), "Number of tasks") > 0) {
            AddPicture("Arc network", m_form.picArc,
                       "Ranges of consecutive tasks that a station can do; " +
                           std::string(m_form.LastDesign ? "the line of the design is marked."
                                                         : "no line is marked."),
                       kNetworkShape);
        }
    }

    void AddLine() {
        if (!m_form.LastDesign) {
            return;
        }
        AddPicture(IsStochastic() ? "Final solution" : "Solution summary", m_form.picGraph[0],
                   "The stations of the line, with what they cost.", kChartShape);
        AddPicture("Line", m_form.picGraph[2],
                   "The stations of the line in their order: number, resource, parallel stations "
                   "and tasks.",
                   kLineShape);
        if (IsStochastic()) {
            AddPicture("Expected annual cost", m_form.picGraph[3],
                       "Expected cost of a year over the capacity; the chosen capacity is marked.",
                       kChartShape);
        }
    }

    void AddStations() {
        if (!m_form.LastDesign || !m_form.LastDesign->Line) {
            return;
        }
        const LineModel& model = m_form.LastDesign->Line->Model;
        const LineTable line = TableOf(*m_form.LastDesign);
        Picture load(Page{});
        DrawStationLoad(load, model, line);
        AddPicture("Station load", load,
                   "Seconds of each station for a unit, against the cycle time that is available.",
                   kChartShape);
        AddResultHeading("Work of the stations");
        Add(StationWorkTable(model, line));
        AddResultHeading("Cost of the stations ($ a year)");
        Add(StationCostTable(line));
        AddPenalty();
    }

    /// The part of the expected cost that no station has.
    void AddPenalty() {
        const auto& expected = m_form.LastDesign->Line->Expected;
        if (expected) {
            Add(FactsPart{{{"Expected penalty a year", Dollars(expected->ExpectedPenalty)},
                           {"Expected cost a year, with penalty",
                            Dollars(DecimalOfSingle(expected->ExpectedCost))}}});
        }
    }

    const MainForm& m_form;
    const ReportOccasion& m_occasion;
    Document m_document;
};

}  // namespace

Document ComposeReport(const MainForm& form, const ReportOccasion& occasion,
                       std::vector<DocumentPart> further) {
    Document document = ReportComposer(form, occasion).Compose();
    document.Parts.insert(document.Parts.end(), std::make_move_iterator(further.begin()),
                          std::make_move_iterator(further.end()));
    return document;
}

}  // namespace quarnel02

#include "shell/ModelCheck.h"

#include <cctype>
#include <cmath>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "basic/LinePrinter.h"
#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "model/Schema.h"
#include "shell/Demand.h"
#include "shell/Figures.h"

namespace quarnel02 {

namespace {

[[noreturn]] void Refuse(const std::string& message) {
    throw RunTimeError(ErrorKind::NotAModel, WithoutControls(message));
}

std::string Capitalised(std::string text) {
    text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
    return text;
}

/// "Resource 3 (Robot)"; a record without a text is named by its number alone.
std::string Named(const std::string& kind, double number, const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    const std::string name = kind + " " + NumberText(number);
    return first == std::string::npos
               ? name
               : name + " (" + text.substr(first, text.find_last_not_of(' ') - first + 1) + ")";
}

/// The limits of a table's figures, by position.
class FigureColumns {
  public:
    explicit FigureColumns(const char* table);

    /// Why the field at that place among the figures cannot be; "" when it can.
    [[nodiscard]] std::string ObjectionTo(const RecordSet& row, std::size_t place) const;
    /// The first of all objections to a row.
    [[nodiscard]] std::string ObjectionTo(const RecordSet& row) const;

  private:
    std::vector<std::pair<int, const Figure*>> m_figures;
};

FigureColumns::FigureColumns(const char* table) {
    int position = 0;
    for (const ColumnSchema& column : FindTable(table)->Columns) {
        if (const Figure* figure = FindFigure(table, column.Name)) {
            m_figures.emplace_back(position, figure);
        }
        ++position;
    }
}

std::string FigureColumns::ObjectionTo(const RecordSet& row, std::size_t place) const {
    const auto& [position, figure] = m_figures[place];
    return IsNull(row.Field(position)) ? ObjectionToNothing(*figure)
                                       : Objection(*figure, row.Number(position));
}

std::string FigureColumns::ObjectionTo(const RecordSet& row) const {
    std::string objection;
    for (std::size_t place = 0; place < m_figures.size() && objection.empty(); ++place) {
        objection = ObjectionTo(row, place);
    }
    return objection;
}

/// The tasks or the resources by number, of which Gen says how many count.
class NumberedRows {
  public:
    /// `kind` is "task" or "resource".
    NumberedRows(std::string kind, double count) : m_kind(std::move(kind)), m_count(count) {}

    /// Enters a row; false when its number is taken.
    bool Enter(double number, const std::string& text) {
        return m_texts.emplace(number, text).second;
    }
    /// Whether a design considers that number.
    [[nodiscard]] bool Counts(double number) const { return number >= 1 && number <= m_count; }
    [[nodiscard]] bool Has(double number) const { return m_texts.contains(number); }
    [[nodiscard]] std::string NameOf(double number) const;

  private:
    std::string m_kind;
    std::map<double, std::string> m_texts;
    double m_count;
};

std::string NumberedRows::NameOf(double number) const {
    const auto text = m_texts.find(number);
    return Named(m_kind, number, text == m_texts.end() ? "" : text->second);
}

double CountIn(const RecordSet& gen, const char* field) {
    return IsNull(gen.Field(field)) ? 0 : gen.Number(field);
}

/// Task texts are only names: they may be missing, and a number typed by hand may stand twice.
NumberedRows ReadTasks(const Database& database, double count) {
    NumberedRows tasks("task", count);
    RecordSet rows = database.OpenRecordSet("SELECT * FROM Tasks;");
    for (; !rows.Eof(); rows.MoveNext()) {
        if (!IsNull(rows.Field(0))) {
            tasks.Enter(rows.Number(0), rows.Text(1));
        }
    }
    return tasks;
}

void EnterResource(const RecordSet& row, const FigureColumns& figures, NumberedRows& resources) {
    if (IsNull(row.Field(0))) {
        Refuse("A resource has no number. Delete it in the resource editor and add it again.");
    }
    const double number = row.Number(0);
    const std::string name = Named("Resource", number, row.Text(1));
    if (!resources.Enter(number, row.Text(1))) {
        Refuse(name + ": " + resources.NameOf(number) +
               " has the same number. Delete one of them in the resource editor.");
    }
    if (const std::string objection = figures.ObjectionTo(row); !objection.empty()) {
        Refuse(name + ": " + objection);
    }
}

NumberedRows ReadResources(const Database& database, double count) {
    NumberedRows resources("resource", count);
    const FigureColumns figures("Resources");
    RecordSet rows = database.OpenRecordSet("SELECT * FROM Resources;");
    for (; !rows.Eof(); rows.MoveNext()) {
        EnterResource(rows, figures, resources);
    }
    return resources;
}

/// The rows of the matrix, each checked against tasks, resources and the rows before it.
class MatrixCheck {
  public:
    MatrixCheck(const NumberedRows& tasks, const NumberedRows& resources)
        : m_tasks(tasks), m_resources(resources) {}

    void Check(const RecordSet& row);

  private:
    // Positions in table Matrix.
    static constexpr int kResource = 0;
    static constexpr int kTask = 1;
    static constexpr int kTime = 2;
    static constexpr int kTool = 3;

    void RequirePair(const RecordSet& row) const;
    void EnterPair(double task, double resource);
    void RequireFigures(const RecordSet& row) const;
    [[nodiscard]] std::string NameOf(double task, double resource) const;

    const NumberedRows& m_tasks;
    const NumberedRows& m_resources;
    std::set<std::pair<double, double>> m_entered;  ///< task, resource
    FigureColumns m_figures{"Matrix"};
};

std::string MatrixCheck::NameOf(double task, double resource) const {
    return Capitalised(m_tasks.NameOf(task)) + " on " + m_resources.NameOf(resource);
}

void MatrixCheck::RequirePair(const RecordSet& row) const {
    if (IsNull(row.Field(kTask)) || IsNull(row.Field(kResource))) {
        Refuse(
            "A row of the matrix has no task or no resource. Clear the matrix in the matrix "
            "editor and enter it again.");
    }
    const double task = row.Number(kTask);
    const double resource = row.Number(kResource);
    if (!m_tasks.Counts(task)) {
        Refuse(NameOf(task, resource) + ": the matrix has figures of them, but the model has no " +
               m_tasks.NameOf(task) +
               ". Add a task in the task editor and delete it again, which "
               "drops them.");
    }
    if (!m_resources.Has(resource)) {
        Refuse(NameOf(task, resource) + ": the matrix has figures of them, but the model has no " +
               m_resources.NameOf(resource) + ". Add it in the resource editor.");
    }
}

void MatrixCheck::EnterPair(double task, double resource) {
    if (!m_entered.emplace(task, resource).second) {
        Refuse(NameOf(task, resource) +
               ": the matrix has figures of them twice. Clear the cell in the matrix editor and "
               "enter it again.");
    }
}

/// A row without a time says that the resource cannot do the task, and needs no tool.
void MatrixCheck::RequireFigures(const RecordSet& row) const {
    const bool can = !IsNull(row.Field(kTime)) && row.Number(kTime) != 0;
    std::string objection;
    for (int position = kTime; position <= kTool + 1 && objection.empty(); ++position) {
        if (can || !IsNull(row.Field(position))) {
            objection = m_figures.ObjectionTo(row, static_cast<std::size_t>(position - kTime));
        }
    }
    if (objection.empty() && !IsNull(row.Field(kTool)) &&
        std::abs(row.Number(kTool)) > std::numeric_limits<std::int16_t>::max()) {
        objection = "tool number is " + NumberText(row.Number(kTool)) +
                    "; it must be from -32,767 to 32,767.";
    }
    if (!objection.empty()) {
        Refuse(NameOf(row.Number(kTask), row.Number(kResource)) + ": " + objection);
    }
}

/// Rows of a resource beyond the counted ones, as a deletion leaves them, are never considered.
void MatrixCheck::Check(const RecordSet& row) {
    if (!IsNull(row.Field(kResource)) && !m_resources.Counts(row.Number(kResource))) {
        return;
    }
    RequirePair(row);
    EnterPair(row.Number(kTask), row.Number(kResource));
    RequireFigures(row);
}

/// "Demand row 2 (5,000 units)".
std::string DemandRowName(int number, const RecordSet& row) {
    constexpr int volume = 0;
    return "Demand row " + NumberText(number) + " (" + Format(row.Number(volume), "#,##0") +
           " units)";
}

}  // namespace

bool HasTasksAndResources(const Database& database, Dialogs& dialogs) {
    const RecordSet gen = database.OpenRecordSet("SELECT Tasks FROM Gen;");
    const bool no_task = IsNull(gen.Field(0)) || gen.Number(0) <= 0;
    if ((no_task && database.OpenRecordSet("SELECT * FROM Tasks;").Eof()) ||
        database.OpenRecordSet("SELECT * FROM Resources;").Eof()) {
        dialogs.ShowMessage("Please complete the task and resource information tables first.",
                            MessageIcon::Information);
        return false;
    }
    return true;
}

void RequireUsableModel(const Database& database) {
    const RecordSet gen = database.OpenRecordSet("SELECT * FROM Gen;");
    if (const std::string objection = FigureColumns("Gen").ObjectionTo(gen); !objection.empty()) {
        Refuse(Capitalised(objection));
    }
    const NumberedRows tasks = ReadTasks(database, CountIn(gen, "Tasks"));
    const NumberedRows resources = ReadResources(database, CountIn(gen, "Resources"));
    MatrixCheck matrix(tasks, resources);
    RecordSet rows = database.OpenRecordSet("SELECT * FROM Matrix;");
    for (; !rows.Eof(); rows.MoveNext()) {
        matrix.Check(rows);
    }
}

void RequireUsableResources(const Database& database) {
    static_cast<void>(ReadResources(database, 0));
}

void RequireUsableDemand(const Database& database) {
    const FigureColumns figures("Demand");
    RecordSet rows = database.OpenRecordSet("SELECT * FROM Demand ORDER BY Volume;");
    int number = 0;
    for (; !rows.Eof(); rows.MoveNext()) {
        if (!IsDemandPoint(rows)) {
            continue;
        }
        ++number;
        if (const std::string objection = figures.ObjectionTo(rows); !objection.empty()) {
            Refuse(DemandRowName(number, rows) + ": " + objection);
        }
    }
}

}  // namespace quarnel02

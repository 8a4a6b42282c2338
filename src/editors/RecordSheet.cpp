#include "editors/RecordSheet.h"

#include <QBrush>
#include <QGuiApplication>
#include <QPalette>
#include <utility>

#include "sheets/NumberedRows.h"
#include "sheets/RecordOrder.h"
#include "sheets/UndoStack.h"

namespace quarnel02 {

namespace {

constexpr int kDescriptionColumn = 1;

bool IsFigure(const Value& value) {
    return std::holds_alternative<std::int64_t>(value) || std::holds_alternative<double>(value);
}

}  // namespace

RecordSheet::RecordSheet(MainForm& form, RecordKind kind, QObject* parent)
    : SheetModel(parent), m_form(form), m_kind(kind) {
    Reload();
}

void RecordSheet::Reload() {
    m_tables = ReadInputTables(m_form.OpenWorkingCopy());
    Show(Records() + 1, static_cast<int>(ColumnsOf(m_kind).size()));
}

int RecordSheet::Records() const {
    return static_cast<int>(RowsOf(m_tables, m_kind).size());
}

TextBlock RecordSheet::CopyBlock(const CellRange& range) const {
    return RecordTexts(m_tables, m_kind, range);
}

std::string RecordSheet::MissingFor(const BlockEdit& edit) const {
    const std::size_t missing = MissingRecords(m_tables, m_kind, edit.Row, edit.Block);
    return missing == 0 ? "" : CountText(missing, NameOf(m_kind));
}

std::string RecordSheet::StepOf(std::string_view verb, std::size_t row, std::size_t cells) const {
    if (verb != "Edit") {
        return StepName(verb, cells, "cell");
    }
    const bool adds = static_cast<int>(row) >= Records();
    return (adds ? "Add " : "Edit ") + std::string(NameOf(m_kind)) + " " + std::to_string(row + 1);
}

Misfits RecordSheet::Store(const CellEdit& edit, const std::string& step) {
    if (edit.Refused.IsEmpty() && edit.Cells > 0) {
        WriteInputTables(m_form.OpenWorkingCopy(), edit.Tables);
        Reload();
        emit Stored(step);
    }
    return edit.Refused;
}

Misfits RecordSheet::SetBlock(const BlockEdit& edit) {
    InputTables tables = ReadInputTables(m_form.OpenWorkingCopy());
    const std::size_t missing = MissingRecords(tables, m_kind, edit.Row, edit.Block);
    if (missing > 0) {
        tables = AddRecords(std::move(tables), m_kind, missing).Tables;
    }
    const CellEdit after =
        SetRecordCells(std::move(tables), m_kind, edit.Row, edit.Column, edit.Block);
    return Store(after, StepOf(edit.Verb, edit.Row, after.Cells));
}

Misfits RecordSheet::ClearBlock(std::string_view verb, const CellRange& range) {
    const CellEdit after =
        ClearRecordCells(ReadInputTables(m_form.OpenWorkingCopy()), m_kind, range);
    return Store(after, StepOf(verb, range.Row, after.Cells));
}

QString RecordSheet::Text(int row, int column) const {
    const TableRows& rows = RowsOf(m_tables, m_kind);
    const auto place = static_cast<std::size_t>(row);
    if (place >= rows.size()) {
        return {};
    }
    const SheetColumn& field = ColumnsOf(m_kind)[static_cast<std::size_t>(column)];
    return QString::fromStdString(ShownText(field, rows[place][field.Place]));
}

QString RecordSheet::Heading(int section, Qt::Orientation orientation) const {
    if (orientation == Qt::Vertical) {
        return section < Records() ? QString::number(section + 1) : QStringLiteral("*");
    }
    const std::string_view caption = ColumnsOf(m_kind)[static_cast<std::size_t>(section)].Caption;
    return QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size()));
}

QVariant RecordSheet::data(const QModelIndex& index, int role) const {
    const bool is_new = index.row() >= Records();
    const bool is_description = index.column() == kDescriptionColumn;
    if (role == Qt::DisplayRole && is_new && is_description) {
        const std::string_view noun = NameOf(m_kind);
        return QStringLiteral("New %1").arg(
            QLatin1String(noun.data(), static_cast<qsizetype>(noun.size())));
    }
    if (role == Qt::ForegroundRole && is_new) {
        return QBrush(QGuiApplication::palette().color(QPalette::PlaceholderText));
    }
    if (role == Qt::TextAlignmentRole && !is_new) {
        const SheetColumn& field = ColumnsOf(m_kind)[static_cast<std::size_t>(index.column())];
        const Value& value =
            RowsOf(m_tables, m_kind)[static_cast<std::size_t>(index.row())][field.Place];
        const bool is_name = field.Field == "Type" || !IsFigure(value);
        return QVariant::fromValue((is_name ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    }
    return SheetModel::data(index, role);
}

}  // namespace quarnel02

#include "editors/MatrixValuesModel.h"

#include <algorithm>

namespace quarnel02 {

namespace {

QString NameOf(PairLook look) {
    switch (look) {
        case PairLook::Absent:
            return QStringLiteral("not in the model");
        case PairLook::Empty:
            return QStringLiteral("empty");
        case PairLook::Marked:
            return QStringLiteral("marked, no values yet");
        case PairLook::Cannot:
            return QStringLiteral("cannot");
        case PairLook::Leaving:
            return QStringLiteral("goes with OK");
        case PairLook::Can:
            break;
    }
    return {};
}

}  // namespace

/// Headings are measured anew only when there are others.
void MatrixValuesModel::Announce(const CellRange& changed) {
    const int rows = m_values.Rows();
    const int columns = m_values.Columns();
    if (rows != rowCount() || columns != columnCount()) {
        Refresh();
    } else {
        const auto last = [](std::size_t first, std::size_t count, int end) {
            return std::min(static_cast<int>(first + count), end) - 1;
        };
        emit dataChanged(index(static_cast<int>(changed.Row), static_cast<int>(changed.Column)),
                         index(last(changed.Row, changed.Rows, rows),
                               last(changed.Column, changed.Columns, columns)));
    }
    emit Stored();
}

TextBlock MatrixValuesModel::CopyBlock(const CellRange& range) const {
    return m_values.Texts(range);
}

std::string MatrixValuesModel::MissingFor(const BlockEdit& edit) const {
    return m_values.MissingFor(edit.Row, edit.Column, edit.Block);
}

Misfits MatrixValuesModel::SetBlock(const BlockEdit& edit) {
    Misfits refused = edit.Verb == "Edit"
                          ? m_values.Type(edit.Row, edit.Column, edit.Block.front().front())
                          : m_values.Set(edit.Verb, edit.Row, edit.Column, edit.Block);
    if (refused.IsEmpty()) {
        std::size_t columns = 1;
        for (const auto& row : edit.Block) {
            columns = std::max(columns, row.size());
        }
        Announce({edit.Row, edit.Column, edit.Block.size(), columns});
    }
    return refused;
}

Misfits MatrixValuesModel::ClearBlock(std::string_view verb, const CellRange& range) {
    m_values.Clear(verb, range);
    Announce(range);
    return {};
}

QVariant MatrixValuesModel::data(const QModelIndex& index, int role) const {
    switch (role) {
        case kLookRole:
            return static_cast<int>(m_values.Look(index.row(), index.column()));
        case Qt::AccessibleDescriptionRole:
            return NameOf(m_values.Look(index.row(), index.column()));
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
        case Qt::EditRole:  // whatever is typed over a row that is to go keeps it
            return m_values.Look(index.row(), index.column()) == PairLook::Leaving
                       ? QVariant(QString())
                       : SheetModel::data(index, role);
        default:
            return SheetModel::data(index, role);
    }
}

QString MatrixValuesModel::Text(int row, int column) const {
    const bool shown = row < m_values.Rows() && column < m_values.Columns();
    return shown ? QString::fromStdString(m_values.Text(row, column)) : QString();
}

const MatrixHeading* MatrixValuesModel::HeadingOf(int section, Qt::Orientation orientation) const {
    const bool down = orientation == Qt::Vertical;
    if (section >= (down ? m_values.Rows() : m_values.Columns())) {
        return nullptr;
    }
    return down ? &m_cells.Task(section + 1) : &m_cells.Resource(section + 1);
}

QString MatrixValuesModel::Heading(int section, Qt::Orientation orientation) const {
    const MatrixHeading* heading = HeadingOf(section, orientation);
    const QString between =
        orientation == Qt::Vertical ? QStringLiteral("  ") : QStringLiteral("\n");
    return heading == nullptr
               ? QString()
               : QString::number(section + 1) + between + QString::fromStdString(heading->Name);
}

QVariant MatrixValuesModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const MatrixHeading* heading = HeadingOf(section, orientation);
    if (role == Qt::ToolTipRole && heading != nullptr) {
        return QString::fromStdString(heading->Full);
    }
    return SheetModel::headerData(section, orientation, role);
}

}  // namespace quarnel02

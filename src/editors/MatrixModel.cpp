#include "editors/MatrixModel.h"

#include <QGuiApplication>
#include <QPalette>

namespace quarnel02 {

TaskResource MatrixModel::PairAt(const QModelIndex& index) {
    return {static_cast<std::int16_t>(index.row() + 1),
            static_cast<std::int16_t>(index.column() + 1)};
}

QModelIndex MatrixModel::IndexOf(TaskResource pair) const {
    return index(pair.Task - 1, pair.Resource - 1);
}

void MatrixModel::Reload() {
    beginResetModel();
    endResetModel();
}

void MatrixModel::MarkChanged(TaskResource pair) {
    emit dataChanged(IndexOf(pair), IndexOf(pair));
}

int MatrixModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_cells.Tasks();
}

int MatrixModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_cells.Resources();
}

QVariant MatrixModel::data(const QModelIndex& index, int role) const {
    const TaskResource pair = PairAt(index);
    switch (role) {
        case Qt::CheckStateRole:
            return m_cells.IsMarked(pair) ? Qt::Checked : Qt::Unchecked;
        case Qt::ToolTipRole:
            return QString::fromStdString(m_cells.Task(pair.Task).Full + "\n" +
                                          m_cells.Resource(pair.Resource).Full);
        case Qt::AccessibleTextRole:
            return m_cells.IsMarked(pair) ? tr("checked") : tr("not checked");
        default:
            return {};
    }
}

QVariant MatrixModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool down = orientation == Qt::Vertical;
    const MatrixHeading& heading = down ? m_cells.Task(section + 1) : m_cells.Resource(section + 1);
    switch (role) {
        case Qt::DisplayRole:
            return QString::number(section + 1) +
                   (down ? QStringLiteral("  ") : QStringLiteral("\n")) +
                   QString::fromStdString(heading.Name);
        case Qt::ToolTipRole:
            return QString::fromStdString(heading.Full);
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(down ? Qt::AlignLeft | Qt::AlignVCenter
                                            : Qt::Alignment(Qt::AlignCenter));
        case Qt::ForegroundRole:
            return heading.Exists
                       ? QVariant()
                       : QGuiApplication::palette().brush(QPalette::Disabled, QPalette::ButtonText);
        default:
            return {};
    }
}

}  // namespace quarnel02

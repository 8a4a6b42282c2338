#include "widgets/SheetModel.h"

namespace quarnel02 {

int SheetModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int SheetModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_columns;
}

Qt::ItemFlags SheetModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() ? flags | Qt::ItemIsEditable : flags;
}

QVariant SheetModel::data(const QModelIndex& index, int role) const {
    const bool asks_for_text = role == Qt::DisplayRole || role == Qt::EditRole;
    return asks_for_text && index.isValid() ? QVariant(Text(index.row(), index.column()))
                                            : QVariant();
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool asks_for_text = role == Qt::DisplayRole || role == Qt::ToolTipRole;
    return asks_for_text ? QVariant(Heading(section, orientation)) : QVariant();
}

void SheetModel::Resize(int rows, int columns) {
    if (rows > m_rows) {
        beginInsertRows({}, m_rows, rows - 1);
        m_rows = rows;
        endInsertRows();
    } else if (rows < m_rows) {
        beginRemoveRows({}, rows, m_rows - 1);
        m_rows = rows;
        endRemoveRows();
    }
    if (columns > m_columns) {
        beginInsertColumns({}, m_columns, columns - 1);
        m_columns = columns;
        endInsertColumns();
    } else if (columns < m_columns) {
        beginRemoveColumns({}, columns, m_columns - 1);
        m_columns = columns;
        endRemoveColumns();
    }
}

void SheetModel::Show(int rows, int columns) {
    Resize(rows, columns);
    if (rows > 0 && columns > 0) {
        emit dataChanged(index(0, 0), index(rows - 1, columns - 1));
        emit headerDataChanged(Qt::Horizontal, 0, columns - 1);
        emit headerDataChanged(Qt::Vertical, 0, rows - 1);
    }
}

}  // namespace quarnel02

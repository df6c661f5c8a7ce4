// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/grid/gridmodel.h"

#include <algorithm>
#include <utility>

namespace grid {

int GridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int GridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant GridModel::data(const QModelIndex &index, int role) const
{
    const Cell *cell = cellAt(index);
    if (!cell)
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return cell->text;
    case Qt::DecorationRole:
        return cell->picture.isNull() ? QVariant() : QVariant(cell->picture);
    case Qt::AccessibleTextRole:
        return cell->accessibleText.isEmpty() ? cell->text : cell->accessibleText;
    case Qt::TextAlignmentRole:
        return headerData(index.column(), Qt::Horizontal, role);
    default:
        return {};
    }
}

bool GridModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const Cell *found = cellAt(index);
    if (!found)
        return false;

    Cell changed = *found;
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        changed.text = value.toString();
    else if (role == Qt::DecorationRole)
        changed.picture = value.value<QPixmap>();
    else if (role == Qt::AccessibleTextRole)
        changed.accessibleText = value.toString();
    else
        return false;

    // A fill sets mostly what is there already; that should not cost a repaint.
    if (changed.text == found->text && changed.accessibleText == found->accessibleText
        && changed.picture.cacheKey() == found->picture.cacheKey())
        return true;
    const bool announce = announces();
    m_rows[static_cast<std::size_t>(index.row())].cells[static_cast<std::size_t>(index.column())] =
        std::move(changed);
    if (announce)
        Q_EMIT dataChanged(index, index);
    return true;
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    // The row numbers are not shown, but screen readers ask for them.
    if (orientation == Qt::Vertical)
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    if (section < 0 || section >= columnCount())
        return {};
    const Column &column = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return column.heading;
    if (role == Qt::AccessibleTextRole)
        return column.accessibleHeading.isEmpty() ? column.heading : column.accessibleHeading;
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(column.alignment | Qt::AlignVCenter);
    return {};
}

bool GridModel::setHeaderData(int section, Qt::Orientation orientation, const QVariant &value,
                              int role)
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return false;
    const bool announce = announces();
    Column &column = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::TextAlignmentRole)
        column.alignment = value.value<Qt::Alignment>() & Qt::AlignHorizontal_Mask;
    else if (role == Qt::AccessibleTextRole)
        column.accessibleHeading = value.toString();
    else
        column.heading = value.toString();
    if (announce)
        Q_EMIT headerDataChanged(Qt::Horizontal, section, section);
    return true;
}

Qt::ItemFlags GridModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    flags.setFlag(Qt::ItemIsEditable, m_editable && index.isValid());
    return flags;
}

bool GridModel::insertRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || count < 1 || row < 0 || row > rowCount())
        return false;
    const bool announce = announces();
    if (announce)
        beginInsertRows({}, row, row + count - 1);
    const Row empty {std::vector<Cell>(m_columns.size()), 0};
    m_rows.insert(m_rows.begin() + row, static_cast<std::size_t>(count), empty);
    if (announce)
        endInsertRows();
    return true;
}

bool GridModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || count < 1 || row < 0 || row + count > rowCount())
        return false;
    const bool announce = announces();
    if (announce)
        beginRemoveRows({}, row, row + count - 1);
    m_rows.erase(m_rows.begin() + row, m_rows.begin() + row + count);
    if (announce)
        endRemoveRows();
    return true;
}

void GridModel::setColumnCount(int count)
{
    const int old = columnCount();
    count = std::max(0, count);
    if (count == old)
        return;
    const bool announce = announces();
    if (announce && count > old)
        beginInsertColumns({}, old, count - 1);
    else if (announce)
        beginRemoveColumns({}, count, old - 1);
    m_columns.resize(static_cast<std::size_t>(count));
    for (Row &row : m_rows)
        row.cells.resize(m_columns.size());
    if (announce && count > old)
        endInsertColumns();
    else if (announce)
        endRemoveColumns();
}

void GridModel::appendRow(const QStringList &texts)
{
    Row added {std::vector<Cell>(m_columns.size()), 0};
    const int filled = std::min(columnCount(), static_cast<int>(texts.size()));
    for (int col = 0; col < filled; ++col)
        added.cells[static_cast<std::size_t>(col)].text = texts.at(col);
    const bool announce = announces();
    if (announce)
        beginInsertRows({}, rowCount(), rowCount());
    m_rows.push_back(std::move(added));
    if (announce)
        endInsertRows();
}

void GridModel::clearTexts()
{
    const bool announce = announces();
    for (Row &row : m_rows)
        std::fill(row.cells.begin(), row.cells.end(), Cell());
    for (Column &column : m_columns)
        column.heading.clear();
    if (!announce || m_columns.empty())
        return;
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    if (!m_rows.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int GridModel::rowHeight(int row) const
{
    return row < 0 || row >= rowCount() ? 0 : m_rows[static_cast<std::size_t>(row)].height;
}

void GridModel::setRowHeight(int row, int pixels)
{
    if (row >= 0 && row < rowCount())
        m_rows[static_cast<std::size_t>(row)].height = pixels;
}

bool GridModel::isEditable() const
{
    return m_editable;
}

void GridModel::setEditable(bool editable)
{
    m_editable = editable;
}

void GridModel::beginBatch()
{
    m_batch = true;
}

void GridModel::endBatch()
{
    m_batch = false;
    if (std::exchange(m_resetting, false))
        endResetModel();
}

const GridModel::Cell *GridModel::cellAt(const QModelIndex &index) const
{
    // During a batch the view still holds indexes of cells that may be gone.
    if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount())
        return nullptr;
    return &m_rows[static_cast<std::size_t>(index.row())]
                .cells[static_cast<std::size_t>(index.column())];
}

/// To be asked before each change: whether that change has to be announced by itself. In a batch
/// it has not, as the reset that begins with the first change covers it.
bool GridModel::announces()
{
    if (m_batch && !m_resetting) {
        m_resetting = true;
        beginResetModel();
    }
    return !m_batch;
}

} // namespace grid

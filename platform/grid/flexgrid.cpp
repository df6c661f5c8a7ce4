// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/grid/flexgrid.h"

#include "platform/grid/formatstring.h"
#include "platform/grid/griddelegate.h"
#include "platform/grid/gridheader.h"
#include "platform/grid/gridmodel.h"
#include "platform/grid/redrawlock.h"

#include <algorithm>

namespace grid {

static constexpr int defaultColumnWidth = 80;

FlexGrid::FlexGrid(QWidget *parent)
    : QTableView(parent), m_model(new GridModel(this)), m_delegate(new GridDelegate(this))
{
    setHorizontalHeader(new GridHeader(this));
    setModel(m_model);
    setItemDelegate(m_delegate);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);

    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    measureFont();

    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int col, int /*oldSize*/, int newSize) { takeUserWidth(col, newSize); });
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex &index) {
        Q_EMIT cellClicked(index.row() + 1, index.column());
    });
}

FlexGrid::~FlexGrid()
{
    // The dying editor loses the focus. That must not end the edit in a half destroyed grid.
    if (m_editor)
        m_editor->removeEventFilter(m_delegate);
    m_editor.clear();
}

void FlexGrid::setFormatString(const QString &format)
{
    const RedrawLock lock(this);
    const std::vector<ColumnFormat> columns = parseFormatString(format);
    setColumnCount(static_cast<int>(columns.size()));
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int col = static_cast<int>(i);
        m_model->setHeaderData(col, Qt::Horizontal, columns[i].heading, Qt::DisplayRole);
        m_model->setHeaderData(col, Qt::Horizontal, QVariant::fromValue(columns[i].alignment),
                               Qt::TextAlignmentRole);
        m_widths[i] = {formatWidth(columns[i].widthText), columns[i].widthText};
    }
}

int FlexGrid::columnCount() const
{
    return m_model->columnCount();
}

void FlexGrid::setColumnCount(int count)
{
    const RedrawLock lock(this);
    m_model->setColumnCount(count);
    m_widths.resize(static_cast<std::size_t>(columnCount()), {defaultColumnWidth, {}});
    keepCurrentInside();
}

int FlexGrid::rowCount() const
{
    return m_model->rowCount() + 1;
}

void FlexGrid::setRowCount(int count)
{
    commitEdit();
    const int wanted = std::max(0, count - 1);
    const int present = m_model->rowCount();
    if (wanted < present)
        m_model->removeRows(wanted, present - wanted);
    else
        m_model->insertRows(present, wanted - present);
    keepCurrentInside();
}

void FlexGrid::clear()
{
    commitEdit();
    m_model->clearTexts();
}

QString FlexGrid::text(int row, int col) const
{
    if (row == 0)
        return m_model->headerData(col, Qt::Horizontal, Qt::DisplayRole).toString();
    return m_model->data(cellIndex(row, col)).toString();
}

void FlexGrid::setText(int row, int col, const QString &text)
{
    if (row == 0)
        m_model->setHeaderData(col, Qt::Horizontal, text, Qt::DisplayRole);
    else
        m_model->setData(cellIndex(row, col), text, Qt::EditRole);
}

QPixmap FlexGrid::picture(int row, int col) const
{
    return m_model->data(cellIndex(row, col), Qt::DecorationRole).value<QPixmap>();
}

void FlexGrid::setPicture(int row, int col, const QPixmap &picture)
{
    m_model->setData(cellIndex(row, col), picture, Qt::DecorationRole);
}

void FlexGrid::setPictureHidesText(bool hides)
{
    m_delegate->setPictureHidesText(hides);
    viewport()->update();
}

void FlexGrid::setAccessibleText(int row, int col, const QString &text)
{
    const QModelIndex index = cellIndex(row, col);
    m_model->setData(index, text, Qt::AccessibleTextRole);
    // The view tells of changed cells, but not that what is said of this one has changed.
    if (m_redrawLocks == 0 && index == currentIndex())
        tellScreenReader(index, QAccessible::NameChanged);
}

void FlexGrid::setAccessibleHeading(int col, const QString &text)
{
    m_model->setHeaderData(col, Qt::Horizontal, text, Qt::AccessibleTextRole);
}

void FlexGrid::addItem(const QString &tabSeparated)
{
    addRow(tabSeparated.split(u'\t'));
}

void FlexGrid::addRow(const QStringList &texts)
{
    m_model->appendRow(texts);
}

void FlexGrid::removeItem(int row)
{
    if (row < 1 || row >= rowCount())
        return;
    // Whoever hears of the end of an edit may have removed that very row when it is our turn.
    if (isEditing()) {
        const QPersistentModelIndex victim = cellIndex(row, 0);
        commitEdit();
        if (!victim.isValid())
            return;
        row = victim.row() + 1;
    }
    m_model->removeRows(row - 1, 1);
    if (row < m_lockedCurrent.row)
        --m_lockedCurrent.row;
    keepCurrentInside();
}

QStringList FlexGrid::rowTexts(int row) const
{
    QStringList texts;
    for (int col = 0; col < columnCount(); ++col)
        texts.append(text(row, col));
    return texts;
}

bool FlexGrid::isEditable() const
{
    return m_model->isEditable();
}

void FlexGrid::setEditable(bool editable)
{
    if (!editable)
        commitEdit();
    m_model->setEditable(editable);
}

/// The row counts as in the whole class, with the header as row 0, which has no index.
QModelIndex FlexGrid::cellIndex(int row, int col) const
{
    return m_model->index(row - 1, col);
}

} // namespace grid

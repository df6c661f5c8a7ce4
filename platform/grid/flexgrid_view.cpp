// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/grid/flexgrid.h"
#include "platform/grid/griddelegate.h"
#include "platform/grid/gridmodel.h"

#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>

namespace grid {

static constexpr int smallestStretchWidth = 80;
static constexpr int smallestVisibleWidth = 2;

int FlexGrid::currentRow() const
{
    return m_redrawLocks > 0 ? m_lockedCurrent.row : currentIndex().row() + 1;
}

int FlexGrid::currentCol() const
{
    return m_redrawLocks > 0 ? m_lockedCurrent.col : currentIndex().column();
}

void FlexGrid::setCurrentCell(int row, int col)
{
    commitEdit();
    const QModelIndex index = cellIndex(row, col);
    if (!index.isValid())
        return;
    if (m_redrawLocks > 0) {
        m_lockedCurrent = {row, col};
        return;
    }
    setCurrentIndex(index);
    if (isVisible())
        scrollTo(index);
}

void FlexGrid::setRedraw(bool redraw)
{
    if (!redraw) {
        if (m_redrawLocks == 0) {
            commitEdit();
            m_lockedCurrent = {currentRow(), currentCol()};
            m_model->beginBatch();
            viewport()->setUpdatesEnabled(false);
        }
        ++m_redrawLocks;
        return;
    }
    if (m_redrawLocks == 0 || --m_redrawLocks > 0)
        return;
    m_model->endBatch();
    applyColumnWidths();
    applyRowHeights(1, rowCount() - 1);
    const QModelIndex current = cellIndex(m_lockedCurrent.row, m_lockedCurrent.col);
    if (current.isValid() && current != currentIndex())
        setCurrentIndex(current);
    viewport()->setUpdatesEnabled(true);
}

/// While redraw is off nobody else moves the current cell out of rows and columns that go.
void FlexGrid::keepCurrentInside()
{
    m_lockedCurrent.row = std::min(m_lockedCurrent.row, rowCount() - 1);
    m_lockedCurrent.col = std::min(m_lockedCurrent.col, columnCount() - 1);
    if (m_lockedCurrent.row < 1 || m_lockedCurrent.col < 0)
        m_lockedCurrent = {};
}

int FlexGrid::columnPixelWidth(int col) const
{
    if (col < 0 || col >= columnCount())
        return 0;
    return isStretched(col) ? stretchWidth() : m_widths[static_cast<std::size_t>(col)].pixels;
}

void FlexGrid::setColumnPixelWidth(int col, int pixels)
{
    if (col < 0 || col >= columnCount())
        return;
    m_widths[static_cast<std::size_t>(col)] = {std::max(0, pixels), {}};
    applyColumnWidths();
}

void FlexGrid::setStretchColumn(int col)
{
    m_stretchColumn = col;
    applyColumnWidths();
}

int FlexGrid::rowPixelHeight(int row) const
{
    if (row == 0)
        return horizontalHeader()->sizeHint().height();
    if (row < 0 || row >= rowCount())
        return 0;
    const int height = m_model->rowHeight(row - 1);
    return height > 0 ? height : defaultRowPixelHeight();
}

void FlexGrid::setRowPixelHeights(int firstRow, std::span<const int> heights)
{
    const int lastRow = std::min(rowCount(), firstRow + static_cast<int>(heights.size())) - 1;
    for (int row = std::max(1, firstRow); row <= lastRow; ++row)
        m_model->setRowHeight(row - 1, heights[static_cast<std::size_t>(row - firstRow)]);
    applyRowHeights(std::max(1, firstRow), lastRow);
}

int FlexGrid::defaultRowPixelHeight() const
{
    return fontMetrics().height() + 2 * GridDelegate::padding + GridDelegate::gridLine;
}

QFont FlexGrid::cellFont(int row, int /*col*/) const
{
    return row == 0 ? horizontalHeader()->font() : font();
}

int FlexGrid::cellTextMargin() const
{
    return 2 * GridDelegate::padding + GridDelegate::gridLine;
}

void FlexGrid::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        measureFont();
}

void FlexGrid::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    // QTableView tells screen readers that the focus is now on this cell, also while it is
    // elsewhere.
    if (hasFocus())
        QTableView::currentChanged(current, previous);
    else
        // NOLINTNEXTLINE(bugprone-parent-virtual-call)
        QAbstractItemView::currentChanged(current, previous);
    // The highlight is the whole row's; the base class repaints the two cells only.
    for (const QModelIndex &index : {current, previous}) {
        if (index.isValid())
            viewport()->update(0, rowViewportPosition(index.row()), viewport()->width(),
                               rowHeight(index.row()));
    }
}

void FlexGrid::focusInEvent(QFocusEvent *event)
{
    QTableView::focusInEvent(event);
    // A screen reader hears of the grid first, and then where in it one is.
    const auto tellCell = [this] {
        if (hasFocus())
            tellScreenReader(currentIndex(), QAccessible::Focus);
    };
    QMetaObject::invokeMethod(this, tellCell, Qt::QueuedConnection);
}

void FlexGrid::tellScreenReader(const QModelIndex &index, QAccessible::Event change)
{
    if (!QAccessible::isActive() || !index.isValid())
        return;
    QAccessibleInterface *table = QAccessible::queryAccessibleInterface(this);
    if (table && table->tableInterface()) {
        QAccessibleEvent event(table->tableInterface()->cellAt(index.row(), index.column()),
                               change);
        QAccessible::updateAccessibility(&event);
    }
}

void FlexGrid::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    if (isStretched(m_stretchColumn))
        applyColumnWidths();
}

/// The headings have the font of the cells, since the format string's widths are measured in it.
void FlexGrid::measureFont()
{
    horizontalHeader()->setFont(font());
    for (ColumnWidth &width : m_widths) {
        if (width.measured)
            width.pixels = formatWidth(*width.measured);
    }
    verticalHeader()->setDefaultSectionSize(defaultRowPixelHeight());
    applyColumnWidths();
    applyRowHeights(1, rowCount() - 1);
}

int FlexGrid::formatWidth(const QString &text) const
{
    return fontMetrics().horizontalAdvance(text) + cellTextMargin();
}

/// The room of the vertical scroll bar is never given away, lest texts wrap anew whenever the bar
/// comes or goes.
int FlexGrid::widthOfColumns() const
{
    const bool canScroll = verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff;
    return contentsRect().width() - (canScroll ? verticalScrollBar()->sizeHint().width() : 0);
}

int FlexGrid::stretchWidth() const
{
    int rest = widthOfColumns();
    for (int col = 0; col < columnCount(); ++col) {
        const int width = m_widths[static_cast<std::size_t>(col)].pixels;
        if (col != m_stretchColumn && width >= smallestVisibleWidth)
            rest -= width;
    }
    return std::max(rest, smallestStretchWidth);
}

bool FlexGrid::isStretched(int col) const
{
    return col >= 0 && col == m_stretchColumn && col < columnCount()
           && m_widths[static_cast<std::size_t>(col)].pixels >= smallestVisibleWidth;
}

void FlexGrid::applyColumnWidths()
{
    if (m_redrawLocks > 0)
        return;
    const QScopedValueRollback sizing(m_sizing, true);
    QHeaderView *header = horizontalHeader();
    for (int col = 0; col < columnCount(); ++col) {
        const int width = columnPixelWidth(col);
        const bool stretched = isStretched(col);
        header->setSectionResizeMode(col,
                                     stretched ? QHeaderView::Fixed : QHeaderView::Interactive);
        header->setSectionHidden(col, width < smallestVisibleWidth);
        if (width >= smallestVisibleWidth)
            header->resizeSection(col, width);
    }
}

void FlexGrid::applyRowHeights(int firstRow, int lastRow)
{
    if (m_redrawLocks > 0 || firstRow > lastRow)
        return;
    {
        // One by one, the changed rows would each have the view work out where they are.
        QHeaderView *header = verticalHeader();
        const QSignalBlocker blocker(header);
        header->setUpdatesEnabled(false);
        for (int row = firstRow; row <= lastRow; ++row)
            header->resizeSection(row - 1, rowPixelHeight(row));
        header->setUpdatesEnabled(true);
    }
    updateGeometries();
    viewport()->update();
}

void FlexGrid::takeUserWidth(int col, int pixels)
{
    if (m_sizing || col >= columnCount())
        return;
    m_widths[static_cast<std::size_t>(col)] = {pixels, {}};
    if (isStretched(m_stretchColumn))
        applyColumnWidths();
}

} // namespace grid

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "layout/basresize.h"

#include "layout/characterwidths.h"
#include "platform/grid/celltext.h"
#include "platform/grid/flexgrid.h"
#include "platform/grid/redrawlock.h"

#include <QFontMetrics>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <vector>

namespace basResize {

namespace {

/// The widths of the font asked for last, which nearly always is the one asked for next.
layout::CharacterWidths &widthsOf(const QFont &font)
{
    static layout::CharacterWidths widths(font);
    if (widths.font() != font)
        widths = layout::CharacterWidths(font);
    return widths;
}

} // namespace

void CentreForm(QWidget &inpForm)
{
    const QScreen *screen = inpForm.screen();
    if (!screen)
        return;
    const QSize free = screen->size() - inpForm.size();
    inpForm.move(screen->geometry().topLeft() + QPoint(free.width() / 2, free.height() / 2));
}

void FitGridRows(grid::FlexGrid &inpGrid, int inpFirst, int inpLast)
{
    const int first = std::max(inpFirst, 1);
    const int last = inpLast < 0 ? inpGrid.rowCount() - 1 : inpLast;
    if (first > last)
        return;
    const grid::RedrawLock lock(&inpGrid);
    const QFontMetrics formMetrics(inpGrid.window()->font());
    const int padding = static_cast<int>(
        std::lround(formMetrics.boundingRect(QStringLiteral("Wg")).height() / 5.0));
    std::vector<int> heights;
    for (int row = first; row <= last; ++row) {
        int height = 0;
        for (int column = 0; column < inpGrid.columnCount(); ++column)
            height = CellTextHeight(inpGrid, row, column, height);
        heights.push_back(height + padding);
    }
    inpGrid.setRowPixelHeights(first, heights);
}

int CellTextHeight(const grid::FlexGrid &inpGrid, int inpRow, int inpColumn, int inpHeight)
{
    const QString text = inpGrid.text(inpRow, inpColumn);
    const int width = inpGrid.columnPixelWidth(inpColumn) - inpGrid.cellTextMargin();
    // A column that is as good as hidden has nothing to wrap.
    if (text.isEmpty() || width <= 0)
        return inpHeight;
    const QFont font = inpGrid.cellFont(inpRow, inpColumn);
    // A text narrower than its column needs no wrapping to be measured.
    if (widthsOf(font).surelyFits(text, width))
        return std::max(inpHeight, QFontMetrics(font).height());
    return std::max(inpHeight, grid::wrappedTextHeight(text, font, width));
}

} // namespace basResize

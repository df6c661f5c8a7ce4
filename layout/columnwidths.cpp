// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "layout/columnwidths.h"

#include "platform/grid/flexgrid.h"

#include <algorithm>

namespace layout {

void makeRoomForStretchColumn(grid::FlexGrid &grid, int stretchColumn,
                              std::initializer_list<int> others, double share)
{
    int shared = grid.widthOfColumns();
    for (int column = 0; column < grid.columnCount(); ++column) {
        const bool isOther = std::ranges::find(others, column) != others.end();
        if (!isOther && column != stretchColumn)
            shared -= grid.columnPixelWidth(column);
    }
    const int narrow = int(shared * share);
    for (const int column : others) {
        if (grid.columnPixelWidth(column) > narrow)
            grid.setColumnPixelWidth(column, narrow);
    }
}

} // namespace layout

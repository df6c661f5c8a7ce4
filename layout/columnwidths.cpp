// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "layout/columnwidths.h"

#include "platform/grid/flexgrid.h"

namespace layout {

void makeRoomForStretchColumn(grid::FlexGrid &grid, int stretchColumn,
                              std::initializer_list<int> others)
{
    int shared = grid.columnPixelWidth(stretchColumn);
    for (const int column : others)
        shared += grid.columnPixelWidth(column);
    const int narrow = shared * 2 / (2 * int(others.size()) + 3);
    for (const int column : others) {
        if (grid.columnPixelWidth(column) > narrow)
            grid.setColumnPixelWidth(column, narrow);
    }
}

} // namespace layout

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <initializer_list>

namespace grid {
class FlexGrid;
}

namespace layout {

/// Where the columns of a grid are too wide for it, makes some of them narrower in favour of the
/// one that takes what the others leave: of what they share it keeps at least three parts for two
/// parts of each of the others.
void makeRoomForStretchColumn(grid::FlexGrid &grid, int stretchColumn,
                              std::initializer_list<int> others);

} // namespace layout

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <initializer_list>

namespace grid {
class FlexGrid;
}

namespace layout {

/// Where the columns of a grid are too wide for it, makes some of them narrower in favour of the
/// one that takes what the others leave.
/// @param share  of the width that all these columns have together, what each of the others gets at
///               most; 0.25 is a quarter
void makeRoomForStretchColumn(grid::FlexGrid &grid, int stretchColumn,
                              std::initializer_list<int> others, double share);

} // namespace layout

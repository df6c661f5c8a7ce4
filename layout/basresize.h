// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

class QWidget;

namespace grid {
class FlexGrid;
}

/// Fitting windows to the screen, and rows of a grid to their texts.
namespace basResize {

/// Moves a window to the centre of the screen. Its inner size is what is centred, so that it ends
/// slightly below and right of the exact centre.
void CentreForm(QWidget &inpForm);

/// Makes the rows of a grid tall enough for their wrapped texts, with a little air.
/// @param inpFirst, inpLast  rows counted from 0, the header, which always keeps its height;
///                           -1 for each means the first and the last row of the grid
void FitGridRows(grid::FlexGrid &inpGrid, int inpFirst = -1, int inpLast = -1);

/// The larger of the given height and the height, in pixels, that the cell's text takes when it
/// is wrapped to the width of its column.
int CellTextHeight(const grid::FlexGrid &inpGrid, int inpRow, int inpColumn, int inpHeight);

} // namespace basResize

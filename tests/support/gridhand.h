// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace grid {
class FlexGrid;
}

/// What a person's hand and eye do with a grid.
namespace support {

void clickCell(grid::FlexGrid &page, int row, int column);

/// The rows below the header, "|" between the cells.
QStringList rows(const grid::FlexGrid &page);

/// What the open list of a cell offers; nothing if there is none.
QStringList offered(const grid::FlexGrid &page);

/// Clicks an item of the open list of a cell, counted from 0, and waits until the list is closed.
void choose(grid::FlexGrid &page, int item);

/// Types into whatever has the focus, character by character, "\t" for Tab, "\n" for Enter and
/// "\e" for Escape. The open list of a cell comes first.
void type(grid::FlexGrid &page, const QString &text);

} // namespace support

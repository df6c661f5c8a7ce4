// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/access/recordset.h"
#include "search/pagequeries.h"

#include <QPixmap>

#include <cstdint>

namespace grid {
class FlexGrid;
}

namespace search {

/// The columns of a grid that holds a page of names.
enum ResultColumn {
    NumberColumn,
    FirstLetterColumn, ///< kept but not shown
    NameColumn,
    SexColumn,
    OriginColumn,
    MeaningColumn,
    TickColumn, ///< "_" and the ticked picture, or empty and the unticked one
    ResultColumnCount
};

/// The pictures of a tick box.
struct TickPictures
{
    QPixmap checked;
    QPixmap unchecked;
};

/// Draws the pictures in the colours and for the pixel density of the given widget.
TickPictures drawTickPictures(const QWidget &widget);

/// Headings, alignments and widths of the result grid.
QString resultFormat();

/// Gives a grid the headings and widths of the result grid. Where the format is too wide for the
/// grid, the names and origins make room for the meaning, which takes what the others leave.
void formatPage(grid::FlexGrid &page);

/// Makes a grid an empty page: header only, all columns.
void clearPage(grid::FlexGrid &page);

/// Appends the rows of a page query to a page, numbered as the given page of the browse.
/// @throws std::overflow_error for a row number beyond 16 bits
void appendRecords(grid::FlexGrid &page, dbaccess::Recordset &records, std::int16_t pageNumber);

/// Makes a page a copy of another one, row by row as they stand there, ticks included.
void copyPage(const grid::FlexGrid &from, grid::FlexGrid &to, const TickPictures &pictures);

/// Makes a page a copy of another one upside down, numbered anew as the given page of the browse.
/// @throws std::overflow_error for a row number beyond 16 bits
void copyPageReversed(const grid::FlexGrid &from, grid::FlexGrid &to, std::int16_t pageNumber,
                      const TickPictures &pictures);

/// The key behind which the next page begins: that of the last row. A page without rows has the
/// key of its header.
PageKey keyOfNextPage(const grid::FlexGrid &page);

/// The key before which the previous page ends: the name of the first row, but sex, origin and
/// meaning of the last one.
PageKey keyOfPreviousPage(const grid::FlexGrid &page);

/// Turns the "Y" that a row brought from the database into the mark of a ticked row, anything else
/// into that of an unticked one.
void markFromDatabase(grid::FlexGrid &page, const TickPictures &pictures);

/// Whether a row is shown as ticked.
bool isTicked(const grid::FlexGrid &page, int row);

/// Shows a row as ticked or not: text, picture, and what a screen reader says.
void setTick(grid::FlexGrid &page, int row, bool ticked, const TickPictures &pictures);

} // namespace search

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/access/recordset.h"

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

/// Turns the "Y" that a row brought from the database into the mark of a ticked row, anything else
/// into that of an unticked one.
void markFromDatabase(grid::FlexGrid &page, const TickPictures &pictures);

/// Shows a row as ticked or not: text, picture, and what a screen reader says.
void setTick(grid::FlexGrid &page, int row, bool isTicked, const TickPictures &pictures);

} // namespace search

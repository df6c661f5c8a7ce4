// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <cstdint>

namespace search {

/// Rows on a full page. The queries hold the same number as a literal.
inline constexpr int pageSize = 100;

/// Page and row numbers are 16-bit whole numbers; what goes beyond them is an overflow.
/// @throws std::overflow_error
std::int16_t to16Bit(qint64 number);

/// How many pages a number of names fills: 0 for none, 1 for up to 100, 2 for 101.
/// @throws std::overflow_error
std::int16_t pageCount(qint64 names);

/// The number within the whole browse of a page's row, pages and rows counted from 1.
/// @throws std::overflow_error
std::int16_t rowNumber(std::int16_t page, int row);

/// How many names the last page holds. Full last pages count as 0.
std::int16_t lastPageRows(qint64 names);

/// The directions in which there are pages.
struct PageMoves
{
    bool back = false;    ///< to the first and to the previous page
    bool forward = false; ///< to the next and to the last page

    bool operator==(const PageMoves &) const = default;
};

/// Where one can go from a page. Page 0 of 0, of a browse that found nothing, counts as one behind
/// others.
PageMoves pageMoves(std::int16_t page, std::int16_t pages);

/// "Page 2 of 7"
QString pageLabel(std::int16_t page, std::int16_t pages);

} // namespace search

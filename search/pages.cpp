// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "search/pages.h"

#include <limits>
#include <stdexcept>

namespace search {

std::int16_t to16Bit(qint64 number)
{
    using Limits = std::numeric_limits<std::int16_t>;
    if (number < Limits::min() || number > Limits::max())
        throw std::overflow_error("Overflow");
    return static_cast<std::int16_t>(number);
}

std::int16_t pageCount(qint64 names)
{
    return to16Bit((names + pageSize - 1) / pageSize);
}

std::int16_t rowNumber(std::int16_t page, int row)
{
    return to16Bit(qint64(page - 1) * pageSize + row);
}

std::int16_t lastPageRows(qint64 names)
{
    return static_cast<std::int16_t>(names % pageSize);
}

PageMoves pageMoves(std::int16_t page, std::int16_t pages)
{
    return {.back = pages != 1 && page != 1, .forward = pages != 1 && page != pages};
}

QString pageLabel(std::int16_t page, std::int16_t pages)
{
    return QStringLiteral("Page %1 of %2").arg(page).arg(pages);
}

} // namespace search

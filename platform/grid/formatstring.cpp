// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/grid/formatstring.h"

#include <QList>

namespace grid {

static ColumnFormat parseColumn(QStringView part)
{
    ColumnFormat column;
    if (!part.isEmpty()) {
        const QChar mark = part.front();
        if (mark == u'^')
            column.alignment = Qt::AlignHCenter;
        else if (mark == u'>')
            column.alignment = Qt::AlignRight;
        if (mark == u'^' || mark == u'>' || mark == u'<')
            part = part.sliced(1);
    }

    column.heading = part.trimmed().toString();
    if (column.heading.isEmpty()) {
        column.widthText = part.toString();
    } else {
        while (part.front().isSpace())
            part = part.sliced(1);
        column.widthText = part.toString();
    }
    return column;
}

std::vector<ColumnFormat> parseFormatString(QStringView format)
{
    std::vector<ColumnFormat> columns;
    if (format.isEmpty())
        return columns;
    const QList<QStringView> parts = format.split(u'|');
    columns.reserve(static_cast<std::size_t>(parts.size()));
    for (const QStringView part : parts)
        columns.push_back(parseColumn(part));
    return columns;
}

} // namespace grid

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringView>

#include <vector>

namespace grid {

/// What a format string says about one column.
struct ColumnFormat
{
    QString heading;   ///< without the blanks around it
    QString widthText; ///< the heading with its trailing blanks: its width is the column's
    Qt::Alignment alignment = Qt::AlignLeft; ///< horizontal part only
};

/// Takes a string such as "<Word     |^Learnt|>Lesson" apart: columns are separated by "|", and a
/// first "<", "^" or ">" aligns the column left, centred or right. Without one of these the column
/// is aligned left and the whole part is its heading. An empty string has no columns.
std::vector<ColumnFormat> parseFormatString(QStringView format);

} // namespace grid

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QFont;
class QPainter;
class QRect;

namespace grid {

/// The height in pixels that the text needs when it is wrapped to the width as a cell wraps it:
/// between words where possible, within a word that is wider than the cell. At least one line.
int wrappedTextHeight(const QString &text, const QFont &font, int width);

/// Draws the text in the painter's font and pen, wrapped and centred in height. Lines that do not
/// fit into the rectangle are left out; the last line drawn then ends in an ellipsis.
void drawWrappedText(QPainter *painter, const QRect &rect, Qt::Alignment alignment,
                     const QString &text);

} // namespace grid

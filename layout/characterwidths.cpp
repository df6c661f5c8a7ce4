// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "layout/characterwidths.h"

namespace layout {

CharacterWidths::CharacterWidths(const QFont &font) : m_font(font), m_metrics(font) { }

bool CharacterWidths::surelyFits(QStringView text, int pixels)
{
    // Kerning mostly draws letters together; the few pairs that it sets apart fit in here.
    constexpr qreal reserve = 3;
    qreal width = reserve;
    for (const QChar c : text) {
        if (c == u'\n' || c == u'\r')
            return false;
        auto known = m_widths.find(c);
        if (known == m_widths.end())
            known = m_widths.insert(c, m_metrics.horizontalAdvance(c));
        width += *known;
        if (width > pixels)
            return false;
    }
    return true;
}

} // namespace layout

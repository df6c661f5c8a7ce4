// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/readablestyle.h"

#include "layout/twips.h"

#include <QStyleOption>

#include <cmath>

namespace {

constexpr int darkestShaded = 24; // of 255: what has shades that can be told from it

/// Draws with another window colour, of which a darker shade can be seen on black.
/// @return whether that was needed
template <typename Option, typename Draw>
bool drawOutlined(const QStyleOption *option, const Draw &draw)
{
    const auto *given = qstyleoption_cast<const Option *>(option);
    if (!given || given->palette.color(QPalette::Window).lightness() >= darkestShaded)
        return false;
    Option changed = *given;
    changed.palette.setColor(QPalette::Window, given->palette.color(QPalette::WindowText));
    draw(changed);
    return true;
}

} // namespace

void ReadableStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                  QPainter *painter, const QWidget *widget) const
{
    const auto draw = [&](const QStyleOption &changed) {
        QProxyStyle::drawPrimitive(element, &changed, painter, widget);
    };
    bool isDrawn = false;
    switch (element) {
    case PE_IndicatorCheckBox:
    case PE_IndicatorRadioButton:
    case PE_PanelButtonCommand:
        isDrawn = drawOutlined<QStyleOptionButton>(option, draw);
        break;
    case PE_Frame:
    case PE_FrameGroupBox:
    case PE_FrameLineEdit:
        isDrawn = drawOutlined<QStyleOptionFrame>(option, draw);
        break;
    default:
        break;
    }
    if (!isDrawn)
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

int ReadableStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                               const QWidget *widget) const
{
    const int pixels = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return static_cast<int>(std::lround(pixels * layout::textScale()));
    default:
        return pixels;
    }
}

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QProxyStyle>

/// The desktop's own style, for those who see little. Outlines can be seen where everything is
/// black: styles draw them in a darker shade of the window's colour, and black has none. The boxes
/// to tick grow with their texts.
class ReadableStyle final : public QProxyStyle
{
    Q_OBJECT

public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override;
};

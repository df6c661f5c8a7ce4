// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "layout/twips.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace layout {

namespace {

constexpr double twipsPerInch = 1440.0;
constexpr double usualDotsPerInch = 96.0;
constexpr double usualPointSize = 9.0; // of the font that the layouts were made with

double dotsPerInch()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInch() : usualDotsPerInch;
}

} // namespace

double textScale()
{
    return std::max(1.0, QFontInfo(QGuiApplication::font()).pointSizeF() / usualPointSize);
}

int pixelsFromTwips(int twips)
{
    return static_cast<int>(std::lround(twips * dotsPerInch() * textScale() / twipsPerInch));
}

QSize pixelsFromTwips(QSize twips)
{
    return {pixelsFromTwips(twips.width()), pixelsFromTwips(twips.height())};
}

} // namespace layout

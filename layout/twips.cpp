// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "layout/twips.h"

#include <QGuiApplication>
#include <QScreen>

#include <cmath>

namespace layout {

namespace {

constexpr double twipsPerInch = 1440.0;
constexpr double usualDotsPerInch = 96.0;

double dotsPerInch()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInch() : usualDotsPerInch;
}

} // namespace

int pixelsFromTwips(int twips)
{
    return static_cast<int>(std::lround(twips * dotsPerInch() / twipsPerInch));
}

QSize pixelsFromTwips(QSize twips)
{
    return {pixelsFromTwips(twips.width()), pixelsFromTwips(twips.height())};
}

} // namespace layout

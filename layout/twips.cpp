// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "layout/twips.h"

#include <QApplication>
#include <QFontInfo>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace layout {

namespace {

constexpr double twipsPerInch = 1440.0;
constexpr double usualDotsPerInch = 96.0;
constexpr double usualPointSize = 9.0; // of the font that the layouts were made with
constexpr int titleBar = 30;           // pixels that the frame of a window adds to its height

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

void limitTextScale(QSize windowTwips)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const QSizeF window = QSizeF(windowTwips) * dotsPerInch() / twipsPerInch;
    if (!screen || window.isEmpty())
        return;
    const QSize room = screen->availableSize() - QSize(0, titleBar);
    const double most =
        std::max(1.0, std::min(room.width() / window.width(), room.height() / window.height()));
    if (textScale() <= most)
        return;
    QFont font = QApplication::font();
    font.setPointSizeF(usualPointSize * most);
    QApplication::setFont(font);
}

int pixelsFromTwips(int twips)
{
    return static_cast<int>(std::lround(twips * dotsPerInch() * textScale() / twipsPerInch));
}

QSize pixelsFromTwips(QSize twips)
{
    return {pixelsFromTwips(twips.width()), pixelsFromTwips(twips.height())};
}

QPoint pixelsFromTwips(QPoint twips)
{
    return {pixelsFromTwips(twips.x()), pixelsFromTwips(twips.y())};
}

} // namespace layout

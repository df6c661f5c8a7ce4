// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QSize>

namespace layout {

/// How much larger the user's font is than the one that the windows are made for; at least 1. All
/// sizes grow with it, so that texts keep their room.
double textScale();

/// Makes the program's font no larger than one with which a window of that size still fits the
/// screen, but not smaller than the usual one.
void limitTextScale(QSize windowTwips);

/// Sizes of windows and controls are given in twips, 1440 to the inch, and turned into pixels by
/// the screen's logical resolution. Rounded to the nearest pixel.
int pixelsFromTwips(int twips);
QSize pixelsFromTwips(QSize twips);
QPoint pixelsFromTwips(QPoint twips);

} // namespace layout

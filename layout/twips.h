// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>

namespace layout {

/// Sizes of windows and controls are given in twips, 1440 to the inch, and turned into pixels by
/// the screen's logical resolution. Rounded to the nearest pixel.
int pixelsFromTwips(int twips);
QSize pixelsFromTwips(QSize twips);

} // namespace layout

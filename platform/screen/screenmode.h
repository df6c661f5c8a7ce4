// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>

namespace screen {

/// How a display shows its picture.
struct Mode
{
    /// In the pixels that windows are laid out in: several that are shown as one count as one.
    QSize size {0, 0};
    int bitsPerPixel = 0;
};

/// The mode that the main display is in; all 0 if there is no display.
Mode currentMode();

/// Whether the main display has a mode of that number; they count from 0. Where the system tells of
/// the current mode alone, that is number 0.
bool hasMode(int number);

} // namespace screen

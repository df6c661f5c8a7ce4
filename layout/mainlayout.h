// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "layout/placements.h"

namespace layout {

/// The controls of the main window in the layout for a class of screens, in twips.
std::vector<Placement> mainWindowPlacements(ScreenClass screenClass);

/// The inner size of the main window in the layout for a class of screens, in twips.
QSize mainWindowSize(ScreenClass screenClass);

/// Lays out the main window for the screen that it finds, and gives it its size.
void layOutMainWindow(QWidget &window);

} // namespace layout

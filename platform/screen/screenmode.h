// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>

namespace screen {

/// The size of the main display as the system has set it, in the pixels that windows are laid out
/// in: several that are shown as one count as one. Empty if there is no display.
QSize currentMode();

} // namespace screen

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

/// What the program asks of the system's display.
namespace basAPI {

/// The size of the screen in pixels: those that windows are laid out in, so a screen that shows
/// everything, or just the texts, at twice the size counts half as many.
void GetScreenResolution(std::int16_t &outWidth, std::int16_t &outHeight);

} // namespace basAPI

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

/// What the program asks of the system's display.
namespace basAPI {

/// The mode of the display, in pixels and bits per pixel.
struct ScreenRecord
{
    float width = 0;
    float height = 0;
    std::int16_t bitsPerPixel = 0;
};

/// Asks for the size of the screen, and keeps a record of its mode.
/// @param[out] outWidth, outHeight  in pixels, those that windows are laid out in, so a screen that
///                                  shows everything at twice the size counts half as many; 0 if
///                                  there is no display
void GetScreenResolution(std::int16_t &outWidth, std::int16_t &outHeight);

/// The mode as GetScreenResolution() found it last; all 0 before.
ScreenRecord LastScreenRecord();

} // namespace basAPI

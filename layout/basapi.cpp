// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "layout/basapi.h"

#include "platform/screen/screenmode.h"

#include <cmath>

namespace basAPI {

namespace {

ScreenRecord lastScreenRecord;

} // namespace

void GetScreenResolution(std::int16_t &outWidth, std::int16_t &outHeight)
{
    const screen::Mode mode = screen::currentMode();
    lastScreenRecord = {.width = float(mode.size.width()),
                        .height = float(mode.size.height()),
                        .bitsPerPixel = std::int16_t(mode.bitsPerPixel)};
    // Being asked for them, from the first to the last, makes the system look at the display anew.
    for (int number = 0; screen::hasMode(number); ++number) { }
    outWidth = static_cast<std::int16_t>(std::lround(lastScreenRecord.width));
    outHeight = static_cast<std::int16_t>(std::lround(lastScreenRecord.height));
}

ScreenRecord LastScreenRecord()
{
    return lastScreenRecord;
}

} // namespace basAPI

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "layout/basapi.h"

#include "layout/twips.h"
#include "platform/screen/screenmode.h"

namespace basAPI {

void GetScreenResolution(std::int16_t &outWidth, std::int16_t &outHeight)
{
    const QSize size = screen::currentMode() / layout::textScale();
    outWidth = static_cast<std::int16_t>(size.width());
    outHeight = static_cast<std::int16_t>(size.height());
}

} // namespace basAPI

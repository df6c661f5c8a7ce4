// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/screen/screenmode.h"

#include <QGuiApplication>
#include <QScreen>

#include <qt_windows.h>

#include <optional>

namespace screen {

namespace {

std::optional<DEVMODEA> askSystem(DWORD number)
{
    DEVMODEA mode {};
    mode.dmSize = sizeof mode;
    return EnumDisplaySettingsA(nullptr, number, &mode) ? std::optional(mode) : std::nullopt;
}

} // namespace

Mode currentMode()
{
    const std::optional<DEVMODEA> mode = askSystem(ENUM_CURRENT_SETTINGS);
    if (!mode)
        return {};
    const QScreen *screen = QGuiApplication::primaryScreen();
    const double enlargement = screen ? screen->devicePixelRatio() : 1;
    return {.size = QSize(int(mode->dmPelsWidth), int(mode->dmPelsHeight)) / enlargement,
            .bitsPerPixel = int(mode->dmBitsPerPel)};
}

bool hasMode(int number)
{
    return askSystem(DWORD(number)).has_value();
}

} // namespace screen

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/screen/screenmode.h"

#include <QGuiApplication>
#include <QScreen>

#include <qt_windows.h>

namespace screen {

QSize currentMode()
{
    DEVMODEA mode {};
    mode.dmSize = sizeof mode;
    if (!EnumDisplaySettingsA(nullptr, ENUM_CURRENT_SETTINGS, &mode))
        return {0, 0};
    const QScreen *screen = QGuiApplication::primaryScreen();
    const double enlargement = screen ? screen->devicePixelRatio() : 1;
    return QSize(int(mode.dmPelsWidth), int(mode.dmPelsHeight)) / enlargement;
}

} // namespace screen

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/screen/screenmode.h"

#include <QGuiApplication>
#include <QScreen>

namespace screen {

QSize currentMode()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->size() : QSize(0, 0);
}

} // namespace screen

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/screen/screenmode.h"

#include <QGuiApplication>
#include <QScreen>

namespace screen {

Mode currentMode()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? Mode {.size = screen->size(), .bitsPerPixel = screen->depth()} : Mode {};
}

bool hasMode(int number)
{
    return number == 0 && QGuiApplication::primaryScreen();
}

} // namespace screen

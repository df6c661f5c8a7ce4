// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// A window of the splash's size with nothing in it, from the same libraries.

#include "platform/browser/browserpane.h"

#include <QApplication>
#include <QWidget>

int main(int argc, char *argv[])
{
    browser::prepareProcess();
    const QApplication application(argc, argv);
    QWidget window;
    window.setObjectName(QStringLiteral("emptyWindow"));
    window.setFixedSize(408, 419);
    window.show();
    return QApplication::exec();
}

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// A window of the splash's size with nothing in it, from the same libraries; with the path of a
// page as its argument, one of the main window's size with that page.

#include "platform/browser/browserpane.h"

#include <QApplication>
#include <QFileInfo>
#include <QVBoxLayout>
#include <QWidget>

int main(int argc, char *argv[])
{
    browser::prepareProcess();
    const QApplication application(argc, argv);
    const QString page = QCoreApplication::arguments().value(1);
    QWidget window;
    window.setObjectName(QStringLiteral("emptyWindow"));
    window.setFixedSize(page.isEmpty() ? QSize(408, 419) : QSize(1000, 733));
    browser::BrowserPane pane;
    if (!page.isEmpty()) {
        browser::setPageFolder(QFileInfo(page).path());
        pane.setObjectName(QStringLiteral("emptyPane"));
        pane.navigate(page);
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(&pane);
    }
    window.show();
    return QApplication::exec();
}

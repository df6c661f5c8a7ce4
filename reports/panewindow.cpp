// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "reports/panewindow.h"

#include "platform/browser/browserpane.h"

#include <QShortcut>
#include <QVBoxLayout>

PaneWindow::PaneWindow(const QString &name, const QString &title)
    : m_pane(new browser::BrowserPane(this))
{
    setObjectName(name);
    setWindowTitle(title);
    m_pane->setObjectName(QStringLiteral("WebBrowser1"));
    m_pane->setAccessibleName(title);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(6, 6, 6, 6);
    column->addWidget(m_pane, 1);
    // A key event would be lost in the page.
    auto *closeKey = new QShortcut(Qt::Key_Escape, this);
    connect(closeKey, &QShortcut::activated, this, &QWidget::close);
}

void PaneWindow::addBelow(QWidget *control, Qt::Alignment alignment)
{
    static_cast<QVBoxLayout *>(layout())->addWidget(control, 0, alignment);
}

void PaneWindow::bringToFront()
{
    // One that lies minimised comes back as it was.
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

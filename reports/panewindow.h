// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace browser {
class BrowserPane;
}

/// A window of its own around a browser pane, WebBrowser1. Escape closes it.
class PaneWindow : public QWidget
{
    Q_OBJECT

protected:
    PaneWindow(const QString &name, const QString &title);

    browser::BrowserPane &pane() const { return *m_pane; }

    /// Adds a control below the pane.
    void addBelow(QWidget *control, Qt::Alignment alignment = {});

    /// Shows the window and brings it to the front.
    void bringToFront();

private:
    browser::BrowserPane *m_pane;
};

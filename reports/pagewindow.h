// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace browser {
class BrowserPane;
}

/// A window of its own that shows one page file in its pane WebBrowser1, fitted to the screen and
/// centred on it. Escape closes it.
class PageWindow : public QWidget
{
    Q_OBJECT

public:
    /// Shows the page (again) and brings the window to the front.
    void showPage();

protected:
    PageWindow(const QString &name, const QString &title, QStringView pageFile);

    /// Adds a control below the page.
    void addBelow(QWidget *control);

    void keyPressEvent(QKeyEvent *event) override;

private:
    browser::BrowserPane *m_page;
    QString m_pageFile;
};

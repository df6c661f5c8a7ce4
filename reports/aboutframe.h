// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class LinkLabel;
class QLabel;

namespace browser {
class BrowserPane;
}

/// The About tab: the version, the way to the terms, and the about page.
class AboutFrame final : public QWidget
{
    Q_OBJECT

public:
    explicit AboutFrame(QWidget *parent = nullptr);

    /// Shows the version and the page.
    void DisplayAbout();
    /// Sets the focus on the page.
    void takeFocus();

Q_SIGNALS:
    void termsRequested();

private:
    QLabel *m_version;            ///< lblVersion
    LinkLabel *m_terms;           ///< lblTerms
    browser::BrowserPane *m_page; ///< dhtmlAbout
};

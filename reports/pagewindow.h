// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "reports/panewindow.h"

/// A window that shows one page file, fitted to the screen and centred on it.
class PageWindow : public PaneWindow
{
    Q_OBJECT

public:
    /// Shows the page (again) and brings the window to the front.
    void showPage();

protected:
    PageWindow(const QString &name, const QString &title, QStringView pageFile);

private:
    QString m_pageFile;
};

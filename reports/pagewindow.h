// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "reports/panewindow.h"

/// A window that shows one page file, fitted to the screen and centred on it.
class PageWindow : public PaneWindow
{
    Q_OBJECT

public:
    /// Opens the window: loads the page, fits and centres the window. One that is open already is
    /// brought to the front.
    void showPage();

protected:
    /// What showPage() does with the page of a window that is open.
    enum class WhileOpen { Keep, Reload };

    PageWindow(const QString &name, const QString &title, QStringView pageFile,
               WhileOpen whileOpen);

private:
    QString m_pageFile;
    WhileOpen m_whileOpen;
};

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "reports/pagewindow.h"

#include "layout/basresize.h"
#include "layout/placements.h"
#include "layout/twips.h"
#include "platform/browser/browserpane.h"
#include "reports/pagefiles.h"

namespace {

/// The window's inner size for the screen, in twips.
QSize twipsForScreen()
{
    switch (layout::currentScreenClass()) {
    case layout::ScreenClass::Large:
        return {11400, 9900};
    case layout::ScreenClass::Small:
        return {8700, 5700};
    case layout::ScreenClass::Designed:
        break;
    }
    return {10500, 7500};
}

} // namespace

PageWindow::PageWindow(const QString &name, const QString &title, QStringView pageFile)
    : PaneWindow(name, title), m_pageFile(pageFile.toString())
{
    resize(layout::pixelsFromTwips(twipsForScreen()));
    basResize::CentreForm(*this);
}

void PageWindow::showPage()
{
    pane().navigate(pagefiles::path(m_pageFile));
    bringToFront();
}

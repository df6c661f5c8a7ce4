// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "reports/pagewindow.h"

#include "layout/basresize.h"
#include "layout/placements.h"
#include "platform/browser/browserpane.h"
#include "reports/pagefiles.h"

namespace {

/// The window's inner sizes.
constexpr layout::SizesByScreen innerSizes {
    .large = {11400, 9900}, .designed = {10500, 7500}, .small = {8700, 5700}};

} // namespace

PageWindow::PageWindow(const QString &name, const QString &title, QStringView pageFile,
                       WhileOpen whileOpen)
    : PaneWindow(name, title), m_pageFile(pageFile.toString()), m_whileOpen(whileOpen)
{
}

void PageWindow::showPage()
{
    const bool isOpening = !isVisible();
    if (isOpening || m_whileOpen == WhileOpen::Reload)
        pane().navigate(pagefiles::path(m_pageFile));
    if (isOpening) {
        resize(layout::sizeForScreen(innerSizes));
        basResize::CentreForm(*this);
    }
    bringToFront();
    if (isOpening)
        pane().takeFocus();
}

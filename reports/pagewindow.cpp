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

PageWindow::PageWindow(const QString &name, const QString &title, QStringView pageFile)
    : PaneWindow(name, title), m_pageFile(pageFile.toString())
{
    resize(layout::sizeForScreen(innerSizes));
    basResize::CentreForm(*this);
}

void PageWindow::showPage()
{
    pane().navigate(pagefiles::path(m_pageFile));
    bringToFront();
}

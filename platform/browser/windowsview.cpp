// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// What Windows has to show pages with: its browser control or, where that shows nothing, a text.

#include "platform/browser/browserpane.h"
#include "platform/browser/textview.h"
#include "platform/browser/webbrowserview.h"

namespace browser {

// Nothing about the control is set for the whole process.
void prepareProcess() { }

PaneView *makePaneView(QWidget *parent)
{
    if (WebBrowserView::isUsable())
        return new WebBrowserView(parent);
    return new TextView(parent);
}

} // namespace browser

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// What Windows has to show pages with: its browser control or, where that shows nothing, a text.

#include "platform/browser/browserpane.h"
#include "platform/browser/textview.h"
#include "platform/browser/webbrowserview.h"

#include <qt_windows.h>

#include <array>
#include <string_view>

namespace browser {

// Nothing about the control is set for the whole process.
void prepareProcess() { }

PaneView *makePaneView(QWidget *parent)
{
    if (WebBrowserView::isUsable())
        return new WebBrowserView(parent);
    return new TextView(parent);
}

namespace {

bool isPage(HWND window)
{
    std::array<char, 255> name {};
    const int length = GetClassNameA(window, name.data(), int(name.size()));
    return length > 0
           && std::string_view(name.data(), std::size_t(length)) == "Internet Explorer_Server";
}

LRESULT CALLBACK swallowOverPages(int code, WPARAM message, LPARAM record)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    const auto *mouse = reinterpret_cast<const MOUSEHOOKSTRUCT *>(record);
    if (code >= 0 && message == WM_RBUTTONUP && isPage(mouse->hwnd))
        return 1;
    return CallNextHookEx(nullptr, code, message, record);
}

} // namespace

std::shared_ptr<void> blockRightButton()
{
    return {SetWindowsHookExA(WH_MOUSE, swallowOverPages, GetModuleHandleA(nullptr),
                              GetCurrentThreadId()),
            [](void *hook) { UnhookWindowsHookEx(static_cast<HHOOK>(hook)); }};
}

} // namespace browser

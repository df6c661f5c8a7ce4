// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/rightbuttonblock.h"

#include <qt_windows.h>

#include <array>
#include <string_view>

namespace browser {

namespace {

HHOOK theHook = nullptr;

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
    return CallNextHookEx(theHook, code, message, record);
}

} // namespace

RightButtonBlock::RightButtonBlock()
{
    theHook = SetWindowsHookExA(WH_MOUSE, swallowOverPages, GetModuleHandleA(nullptr),
                                GetCurrentThreadId());
}

RightButtonBlock::~RightButtonBlock()
{
    UnhookWindowsHookEx(theHook);
}

} // namespace browser

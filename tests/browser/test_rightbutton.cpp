// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// On Windows alone, and with a mouse that the system takes for a real one.

#include "platform/browser/browserpane.h"

#include <QTest>

#include <qt_windows.h>

#include <array>
#include <memory>

namespace {

int rightClicks = 0;
int leftClicks = 0;

LRESULT CALLBACK count(HWND window, UINT message, WPARAM first, LPARAM second)
{
    rightClicks += message == WM_RBUTTONUP;
    leftClicks += message == WM_LBUTTONUP;
    return DefWindowProcA(window, message, first, second);
}

/// A window in the corner of the screen, above all others.
class Window
{
public:
    explicit Window(const char *className)
    {
        WNDCLASSA kind {};
        kind.lpfnWndProc = count;
        kind.hInstance = GetModuleHandleA(nullptr);
        kind.lpszClassName = className;
        RegisterClassA(&kind);
        m_window = CreateWindowExA(WS_EX_TOPMOST, className, "", WS_POPUP | WS_VISIBLE, 0, 0, 200,
                                   200, nullptr, nullptr, kind.hInstance, nullptr);
    }
    ~Window() { DestroyWindow(m_window); }
    Q_DISABLE_COPY_MOVE(Window)

private:
    HWND m_window;
};

/// Clicks the right button and then the left one.
/// @return how many clicks of the right one have come to a window
int clickRight()
{
    rightClicks = leftClicks = 0;
    SetCursorPos(100, 100);
    std::array<INPUT, 4> inputs {};
    const std::array<DWORD, 4> events {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP,
                                       MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP};
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        inputs.at(i).type = INPUT_MOUSE;
        inputs.at(i).mi.dwFlags = events.at(i);
    }
    SendInput(UINT(inputs.size()), inputs.data(), sizeof(INPUT));
    return QTest::qWaitFor([] { return leftClicks == 1; }) ? rightClicks : -1;
}

} // namespace

class TestRightButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void block_swallowsTheRightButtonOverPagesAlone()
    {
        std::shared_ptr<void> block = browser::blockRightButton();
        {
            const Window page("Internet Explorer_Server");
            QCOMPARE(clickRight(), 0);
            block.reset();
            QCOMPARE(clickRight(), 1);
            block = browser::blockRightButton();
        }
        const Window other("Internet Explorer");
        QCOMPARE(clickRight(), 1);
    }
};

QTEST_MAIN(TestRightButton)
#include "test_rightbutton.moc"

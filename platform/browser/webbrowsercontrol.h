// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QSize>
#include <QString>

#include <functional>

#include <qt_windows.h>

namespace browser {

class ControlHost;

/// Who is told what the control tells, later and as long as the listener is there.
struct ControlEvents
{
    QObject *listener = nullptr;
    std::function<void()> documentComplete;
    std::function<void()> buttonClicked; ///< a button that stands in the page
    std::function<void()> printingBegun;
    std::function<void()> printingEnded;
};

/// The system's WebBrowser control in a window of the program. It runs no scripts and loads nothing
/// from the network, its menu stays away, and links lead only to where the program lets them.
class WebBrowserControl final : public QAbstractNativeEventFilter
{
public:
    enum class Printing { Sent, Cancelled, Failed };

    WebBrowserControl(HWND window, ControlEvents events);
    ~WebBrowserControl() override;

    /// Whether the control has come up. Without it nothing else here does anything.
    bool isThere() const;

    /// Goes to a file. Its links may be followed.
    void goToFile(const QString &path);
    /// Goes to an empty page, from which no link leads anywhere and whose texts can't be selected.
    void goToBlank();
    /// Writes the whole document. False if there is no document to write to.
    bool write(const QString &html);
    /// Fills the body of the document.
    void setInnerHtml(const QString &html);
    /// @param percent  how large the page is shown
    void setZoom(int percent);
    /// Asks where to and prints.
    Printing print();

    void setSize(QSize pixels);
    void takeFocus();

protected:
    /// The control has windows of its own, whose keys never come to the program's.
    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;

private:
    void goTo(const QString &address);

    HWND m_window;
    bool m_hasOle;       ///< the system's object interfaces have been set up
    ControlHost *m_host; ///< counts those who refer to it
};

} // namespace browser

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/webbrowsercontrol.h"

#include "platform/browser/controlhost.h"

#include <QCoreApplication>
#include <QDir>

#include <utility>

namespace browser {

using Microsoft::WRL::ComPtr;

namespace {

/// A text in the form that the system's interfaces take.
class ComText
{
public:
    explicit ComText(const QString &text)
        : m_text(SysAllocStringLen(reinterpret_cast<const OLECHAR *>(text.utf16()),
                                   static_cast<UINT>(text.size())))
    {
    }
    ~ComText() { SysFreeString(m_text); }
    ComText(const ComText &) = delete;
    ComText &operator=(const ComText &) = delete;

    BSTR get() const { return m_text; }
    /// For an argument, which does not own it.
    VARIANT asArgument() const
    {
        VARIANT argument;
        VariantInit(&argument);
        argument.vt = VT_BSTR;
        argument.bstrVal = m_text;
        return argument;
    }

private:
    BSTR m_text;
};

/// A key that the program's windows know, and the control must not have.
bool isKeyOfProgram(const MSG &message)
{
    if (message.message == WM_SYSKEYDOWN)
        return true;
    const bool withControl = GetKeyState(VK_CONTROL) < 0;
    switch (message.wParam) {
    case VK_ESCAPE:
    case VK_F1:
    case VK_F5: // would load the page anew, without what the program has put in
        return true;
    case VK_TAB:
    case 'P':
    case 'N':
    case 'O':
        return withControl;
    default:
        return false;
    }
}

} // namespace

WebBrowserControl::WebBrowserControl(HWND window, ControlEvents events)
    : m_window(window), m_hasOle(SUCCEEDED(OleInitialize(nullptr))),
      m_host(new ControlHost(window, std::move(events)))
{
    if (!m_hasOle || !m_host->start())
        m_host->stop();
    else
        QCoreApplication::instance()->installNativeEventFilter(this);
}

WebBrowserControl::~WebBrowserControl()
{
    QCoreApplication::instance()->removeNativeEventFilter(this);
    m_host->stop();
    m_host->Release();
    if (m_hasOle)
        OleUninitialize();
}

bool WebBrowserControl::isThere() const
{
    return m_host->browser != nullptr;
}

void WebBrowserControl::goToFile(const QString &path)
{
    m_host->isBlank = false;
    // As a path: the control does not read every letter of an encoded address as it was meant.
    goTo(QDir::toNativeSeparators(path));
}

void WebBrowserControl::goToBlank()
{
    m_host->isBlank = true;
    goTo(QStringLiteral("about:blank"));
}

void WebBrowserControl::goTo(const QString &address)
{
    if (!m_host->browser)
        return;
    const ComText text(address);
    VARIANT target = text.asArgument();
    VARIANT none;
    VariantInit(&none);
    m_host->browser->Navigate2(&target, &none, &none, &none, &none);
}

bool WebBrowserControl::write(const QString &html)
{
    const ComPtr<IHTMLDocument2> page = m_host->document();
    if (!page)
        return false;
    const ComText text(html);
    SAFEARRAY *const texts = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    VARIANT argument = text.asArgument();
    LONG index = 0;
    // The array gets a copy of the text, and takes it along when it goes.
    const bool isWritten = texts && SUCCEEDED(SafeArrayPutElement(texts, &index, &argument))
                           && SUCCEEDED(page->write(texts)) && SUCCEEDED(page->close());
    if (texts)
        SafeArrayDestroy(texts);
    m_host->listenToClicks();
    return isWritten;
}

void WebBrowserControl::setInnerHtml(const QString &html)
{
    ComPtr<IHTMLElement> body;
    const ComPtr<IHTMLDocument2> page = m_host->document();
    if (page && SUCCEEDED(page->get_body(&body)) && body)
        body->put_innerHTML(ComText(html).get());
}

void WebBrowserControl::setZoom(int percent)
{
    VARIANT size;
    VariantInit(&size);
    size.vt = VT_I4;
    size.lVal = percent;
    m_host->browser->ExecWB(OLECMDID_OPTICAL_ZOOM, OLECMDEXECOPT_DONTPROMPTUSER, &size, nullptr);
}

WebBrowserControl::Printing WebBrowserControl::print()
{
    if (!m_host->browser)
        return Printing::Failed;
    const HRESULT result =
        m_host->browser->ExecWB(OLECMDID_PRINT, OLECMDEXECOPT_PROMPTUSER, nullptr, nullptr);
    if (result == OLECMDERR_E_CANCELED)
        return Printing::Cancelled;
    return SUCCEEDED(result) ? Printing::Sent : Printing::Failed;
}

void WebBrowserControl::setSize(QSize pixels)
{
    ComPtr<IOleInPlaceObject> object;
    if (!m_host->browser || FAILED(m_host->browser.As(&object)))
        return;
    const RECT area {0, 0, pixels.width(), pixels.height()};
    object->SetObjectRects(&area, &area);
}

void WebBrowserControl::takeFocus()
{
    m_host->activate();
}

bool WebBrowserControl::nativeEventFilter(const QByteArray &, void *message, qintptr *)
{
    auto *const told = static_cast<MSG *>(message);
    if (told->message < WM_KEYFIRST || told->message > WM_KEYLAST || !IsChild(m_window, told->hwnd))
        return false;
    if ((told->message == WM_KEYDOWN || told->message == WM_SYSKEYDOWN) && isKeyOfProgram(*told)) {
        PostMessage(GetAncestor(m_window, GA_ROOT), told->message, told->wParam, told->lParam);
        return true;
    }
    ComPtr<IOleInPlaceActiveObject> active;
    return m_host->browser && SUCCEEDED(m_host->browser.As(&active))
           && active->TranslateAccelerator(told) == S_OK;
}

} // namespace browser

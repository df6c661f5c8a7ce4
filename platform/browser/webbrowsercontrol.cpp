// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/webbrowsercontrol.h"

#include "platform/browser/browserpane.h"

#include <QCoreApplication>
#include <QDir>
#include <QUrl>

#include <utility>

#include <exdisp.h>
#include <exdispid.h>
#include <mshtmdid.h>
#include <mshtmhst.h>
#include <mshtml.h>
#include <ole2.h>
#include <wrl/client.h>

namespace browser {

namespace {

using Microsoft::WRL::ComPtr;

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

/// The address that an event tells, which for files may be a path.
QUrl addressIn(const VARIANT &argument)
{
    const VARIANT &told = argument.vt == (VT_BYREF | VT_VARIANT) ? *argument.pvarVal : argument;
    if (told.vt != VT_BSTR)
        return {};
    const QString text =
        QString::fromWCharArray(told.bstrVal, static_cast<int>(SysStringLen(told.bstrVal)));
    const bool isPath = text.size() > 1 && (text[1] == u':' || text.startsWith(u"\\\\"));
    return isPath ? QUrl::fromLocalFile(QDir::fromNativeSeparators(text)) : QUrl(text);
}

void cancel(const VARIANT &argument)
{
    if (argument.vt == (VT_BYREF | VT_BOOL))
        *argument.pboolVal = VARIANT_TRUE;
}

/// What a page may do: show pictures. It stays offline, and is not asked about anything.
constexpr LONG allowedToPages = DLCTL_DLIMAGES | DLCTL_NO_SCRIPTS | DLCTL_NO_JAVA
                                | DLCTL_NO_DLACTIVEXCTLS | DLCTL_NO_RUNACTIVEXCTLS
                                | DLCTL_NO_BEHAVIORS | DLCTL_FORCEOFFLINE | DLCTL_SILENT;

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

/// The place in a window that the control lives in: the other side of all its interfaces.
class ControlHost final : public IOleClientSite,
                          public IOleInPlaceSite,
                          public IOleInPlaceFrame,
                          public IDocHostUIHandler,
                          public IDispatch
{
public:
    ControlHost(HWND window, ControlEvents events) : m_window(window), m_events(std::move(events))
    {
    }
    ControlHost(const ControlHost &) = delete;
    ControlHost &operator=(const ControlHost &) = delete;

    /// False if the system has no such control, or one that can't show pages.
    bool start()
    {
        // The engine behind the control, which a system may lack.
        ComPtr<IUnknown> engine;
        if (FAILED(CoCreateInstance(__uuidof(HTMLDocument), nullptr, CLSCTX_INPROC_SERVER,
                                    IID_IUnknown, &engine)))
            return false;
        RECT area {};
        GetClientRect(m_window, &area);
        if (FAILED(CoCreateInstance(CLSID_WebBrowser, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject,
                                    &m_object))
            || FAILED(m_object->SetClientSite(this)) || FAILED(m_object.As(&browser)) || !listen()
            || FAILED(
                m_object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, m_window, &area)))
            return false;
        browser->put_Silent(VARIANT_TRUE);
        browser->put_RegisterAsDropTarget(VARIANT_FALSE);
        return true;
    }

    /// Ends what start() has begun. The host itself goes when nobody refers to it any more.
    void stop()
    {
        m_events = {};
        browser.Reset();
        if (m_connection)
            m_connection->Unadvise(m_cookie);
        m_connection.Reset();
        if (m_object) {
            m_object->Close(OLECLOSE_NOSAVE);
            m_object->SetClientSite(nullptr);
        }
        m_object.Reset();
    }

    ComPtr<IHTMLDocument2> document() const
    {
        ComPtr<IDispatch> dispatch;
        ComPtr<IHTMLDocument2> document;
        if (browser && SUCCEEDED(browser->get_Document(&dispatch)) && dispatch)
            dispatch.As(&document);
        return document;
    }

    void activate()
    {
        RECT area {};
        GetClientRect(m_window, &area);
        if (m_object)
            m_object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, this, 0, m_window, &area);
    }

    /// Has the clicks on the page told to the host.
    void listenToClicks()
    {
        const ComPtr<IHTMLDocument2> page = document();
        ComPtr<IHTMLElement> body;
        if (!page || FAILED(page->get_body(&body)) || !body)
            return;
        VARIANT handler;
        VariantInit(&handler);
        handler.vt = VT_DISPATCH;
        handler.pdispVal = static_cast<IDispatch *>(this);
        body->put_onclick(handler);
    }

    ComPtr<IWebBrowser2> browser;
    bool isBlank = false; ///< the program's own page is shown, or on its way

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void **out) override
    {
        if (!out)
            return E_POINTER;
        if (id == IID_IUnknown || id == IID_IOleClientSite)
            *out = static_cast<IOleClientSite *>(this);
        else if (id == IID_IOleWindow || id == IID_IOleInPlaceSite)
            *out = static_cast<IOleInPlaceSite *>(this);
        else if (id == IID_IOleInPlaceUIWindow || id == IID_IOleInPlaceFrame)
            *out = static_cast<IOleInPlaceFrame *>(this);
        else if (id == IID_IDocHostUIHandler)
            *out = static_cast<IDocHostUIHandler *>(this);
        else if (id == IID_IDispatch || id == DIID_DWebBrowserEvents2)
            *out = static_cast<IDispatch *>(this);
        else
            *out = nullptr;
        if (!*out)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }

    // IOleClientSite
    STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker **) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer **container) override
    {
        *container = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    // IOleWindow
    STDMETHODIMP GetWindow(HWND *window) override
    {
        *window = m_window;
        return S_OK;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

    // IOleInPlaceSite
    STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnUIActivate() override { return S_OK; }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame **frame, IOleInPlaceUIWindow **document,
                                  LPRECT area, LPRECT clip, LPOLEINPLACEFRAMEINFO info) override
    {
        *frame = this;
        AddRef();
        *document = nullptr;
        GetClientRect(m_window, area);
        *clip = *area;
        info->fMDIApp = FALSE;
        info->hwndFrame = m_window;
        info->haccel = nullptr;
        info->cAccelEntries = 0;
        return S_OK;
    }
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnInPlaceDeactivate() override { return S_OK; }
    STDMETHODIMP DiscardUndoState() override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return E_NOTIMPL; }

    // IOleInPlaceFrame
    STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject *, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

    // IDocHostUIHandler
    STDMETHODIMP ShowContextMenu(DWORD, POINT *, IUnknown *, IDispatch *) override
    {
        return S_OK; // none, whether asked for with the mouse or with a key
    }
    STDMETHODIMP GetHostInfo(DOCHOSTUIINFO *info) override
    {
        info->dwFlags = DOCHOSTUIFLAG_NO3DBORDER | DOCHOSTUIFLAG_NO3DOUTERBORDER
                        | DOCHOSTUIFLAG_THEME | DOCHOSTUIFLAG_DPI_AWARE
                        | DOCHOSTUIFLAG_DISABLE_HELP_MENU;
        if (isBlank)
            info->dwFlags |= DOCHOSTUIFLAG_DIALOG; // no text can be selected
        info->dwDoubleClick = DOCHOSTUIDBLCLK_DEFAULT;
        info->pchHostCss = nullptr;
        info->pchHostNS = nullptr;
        return S_OK;
    }
    STDMETHODIMP ShowUI(DWORD, IOleInPlaceActiveObject *, IOleCommandTarget *, IOleInPlaceFrame *,
                        IOleInPlaceUIWindow *) override
    {
        return S_OK; // there is no bar or menu of the control's to show
    }
    STDMETHODIMP HideUI() override { return S_OK; }
    STDMETHODIMP UpdateUI() override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; } // also of IOleInPlaceFrame
    STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow *, BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(LPMSG, const GUID *, DWORD) override { return S_FALSE; }
    STDMETHODIMP GetOptionKeyPath(LPOLESTR *key, DWORD) override
    {
        *key = nullptr;
        return S_FALSE;
    }
    STDMETHODIMP GetDropTarget(IDropTarget *, IDropTarget **) override { return E_NOTIMPL; }
    STDMETHODIMP GetExternal(IDispatch **external) override
    {
        *external = nullptr;
        return S_FALSE;
    }
    STDMETHODIMP TranslateUrl(DWORD, OLECHAR *, OLECHAR **) override { return S_FALSE; }
    STDMETHODIMP FilterDataObject(IDataObject *, IDataObject **out) override
    {
        *out = nullptr;
        return S_FALSE;
    }

    // IDispatch: properties that the control asks for, its events, and clicks on the page.
    STDMETHODIMP GetTypeInfoCount(UINT *count) override
    {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo **) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR *, UINT, LCID, DISPID *) override
    {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS *parameters, VARIANT *result,
                        EXCEPINFO *, UINT *) override
    {
        // Arguments come in the reverse of the order in which they are documented.
        const VARIANT *const arguments = parameters ? parameters->rgvarg : nullptr;
        const UINT count = parameters ? parameters->cArgs : 0;
        switch (id) {
        case DISPID_AMBIENT_DLCONTROL:
            if (!result)
                return E_POINTER;
            result->vt = VT_I4;
            result->lVal = allowedToPages;
            return S_OK;
        case DISPID_BEFORENAVIGATE2:
            if (count == 7 && !mayGoTo(addressIn(arguments[5])))
                cancel(arguments[0]);
            return S_OK;
        case DISPID_NEWWINDOW2:
            if (count == 2)
                cancel(arguments[0]);
            return S_OK;
        case DISPID_NEWWINDOW3:
            if (count == 5)
                cancel(arguments[3]);
            return S_OK;
        case DISPID_DOCUMENTCOMPLETE:
            if (count == 2 && isWholePage(arguments[1]))
                tell(m_events.documentComplete);
            return S_OK;
        case DISPID_PRINTTEMPLATEINSTANTIATION:
            tell(m_events.printingBegun);
            return S_OK;
        case DISPID_PRINTTEMPLATETEARDOWN:
            tell(m_events.printingEnded);
            return S_OK;
        case DISPID_VALUE:
            if (isClickOnButton())
                tell(m_events.buttonClicked);
            return S_OK;
        default:
            return DISP_E_MEMBERNOTFOUND;
        }
    }

private:
    ~ControlHost() = default;

    bool listen()
    {
        ComPtr<IConnectionPointContainer> points;
        return SUCCEEDED(m_object.As(&points))
               && SUCCEEDED(points->FindConnectionPoint(DIID_DWebBrowserEvents2, &m_connection))
               && SUCCEEDED(m_connection->Advise(static_cast<IDispatch *>(this), &m_cookie));
    }

    bool mayGoTo(const QUrl &address) const
    {
        return isBlank ? address == QUrl(QStringLiteral("about:blank")) : isAllowed(address);
    }

    /// Not a frame in it.
    bool isWholePage(const VARIANT &argument) const
    {
        ComPtr<IUnknown> told;
        ComPtr<IUnknown> own;
        return argument.vt == VT_DISPATCH && argument.pdispVal && browser
               && SUCCEEDED(argument.pdispVal->QueryInterface(IID_PPV_ARGS(&told)))
               && SUCCEEDED(browser.As(&own)) && told.Get() == own.Get();
    }

    bool isClickOnButton() const
    {
        ComPtr<IHTMLWindow2> window;
        ComPtr<IHTMLEventObj> event;
        ComPtr<IHTMLElement> element;
        ComPtr<IHTMLInputElement> input;
        const ComPtr<IHTMLDocument2> page = document();
        BSTR type = nullptr;
        if (!page || FAILED(page->get_parentWindow(&window)) || !window
            || FAILED(window->get_event(&event)) || !event
            || FAILED(event->get_srcElement(&element)) || !element || FAILED(element.As(&input))
            || FAILED(input->get_type(&type)))
            return false;
        const bool isButton = QString::fromWCharArray(type) == u"button";
        SysFreeString(type);
        return isButton;
    }

    /// Later, since the control does not expect to be used, or to go, while it tells something.
    void tell(const std::function<void()> &listener) const
    {
        if (listener)
            QMetaObject::invokeMethod(m_events.listener, listener, Qt::QueuedConnection);
    }

    HWND m_window;
    ControlEvents m_events;
    ULONG m_references = 1;
    ComPtr<IOleObject> m_object;
    ComPtr<IConnectionPoint> m_connection;
    DWORD m_cookie = 0;
};

WebBrowserControl::WebBrowserControl(HWND window, ControlEvents events)
    : m_window(window), m_host(new ControlHost(window, std::move(events)))
{
    if (FAILED(OleInitialize(nullptr)) || !m_host->start())
        m_host->stop();
    else
        QCoreApplication::instance()->installNativeEventFilter(this);
}

WebBrowserControl::~WebBrowserControl()
{
    QCoreApplication::instance()->removeNativeEventFilter(this);
    m_host->stop();
    m_host->Release();
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

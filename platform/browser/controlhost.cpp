// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/controlhost.h"

#include "platform/browser/browserpane.h"

#include <QDir>
#include <QUrl>

#include <exdispid.h>
#include <mshtmdid.h>

namespace browser {

using Microsoft::WRL::ComPtr;

namespace {

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

} // namespace

bool ControlHost::start()
{
    // The engine behind the control, which a system may lack.
    ComPtr<IUnknown> engine;
    if (FAILED(CoCreateInstance(__uuidof(HTMLDocument), nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                &engine)))
        return false;
    RECT area {};
    GetClientRect(m_window, &area);
    if (FAILED(CoCreateInstance(CLSID_WebBrowser, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject,
                                &m_object))
        || FAILED(m_object->SetClientSite(this)) || FAILED(m_object.As(&browser)) || !listen()
        || FAILED(m_object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, m_window, &area)))
        return false;
    browser->put_Silent(VARIANT_TRUE);
    browser->put_RegisterAsDropTarget(VARIANT_FALSE);
    return true;
}

void ControlHost::stop()
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

ComPtr<IHTMLDocument2> ControlHost::document() const
{
    ComPtr<IDispatch> dispatch;
    ComPtr<IHTMLDocument2> document;
    if (browser && SUCCEEDED(browser->get_Document(&dispatch)) && dispatch)
        dispatch.As(&document);
    return document;
}

void ControlHost::activate()
{
    RECT area {};
    GetClientRect(m_window, &area);
    if (m_object)
        m_object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, this, 0, m_window, &area);
}

void ControlHost::listenToClicks()
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

STDMETHODIMP ControlHost::QueryInterface(REFIID id, void **out)
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

STDMETHODIMP ControlHost::GetWindowContext(IOleInPlaceFrame **frame, IOleInPlaceUIWindow **document,
                                           LPRECT area, LPRECT clip, LPOLEINPLACEFRAMEINFO info)
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

STDMETHODIMP ControlHost::GetHostInfo(DOCHOSTUIINFO *info)
{
    info->dwFlags = DOCHOSTUIFLAG_NO3DBORDER | DOCHOSTUIFLAG_NO3DOUTERBORDER | DOCHOSTUIFLAG_THEME
                    | DOCHOSTUIFLAG_DPI_AWARE | DOCHOSTUIFLAG_DISABLE_HELP_MENU;
    if (isBlank)
        info->dwFlags |= DOCHOSTUIFLAG_DIALOG; // no text can be selected
    info->dwDoubleClick = DOCHOSTUIDBLCLK_DEFAULT;
    info->pchHostCss = nullptr;
    info->pchHostNS = nullptr;
    return S_OK;
}

STDMETHODIMP ControlHost::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS *parameters,
                                 VARIANT *result, EXCEPINFO *, UINT *)
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

bool ControlHost::listen()
{
    ComPtr<IConnectionPointContainer> points;
    return SUCCEEDED(m_object.As(&points))
           && SUCCEEDED(points->FindConnectionPoint(DIID_DWebBrowserEvents2, &m_connection))
           && SUCCEEDED(m_connection->Advise(static_cast<IDispatch *>(this), &m_cookie));
}

bool ControlHost::mayGoTo(const QUrl &address) const
{
    return isBlank ? address == QUrl(QStringLiteral("about:blank")) : isAllowed(address);
}

bool ControlHost::isWholePage(const VARIANT &argument) const
{
    ComPtr<IUnknown> told;
    ComPtr<IUnknown> own;
    return argument.vt == VT_DISPATCH && argument.pdispVal && browser
           && SUCCEEDED(argument.pdispVal->QueryInterface(IID_PPV_ARGS(&told)))
           && SUCCEEDED(browser.As(&own)) && told.Get() == own.Get();
}

bool ControlHost::isClickOnButton() const
{
    ComPtr<IHTMLWindow2> window;
    ComPtr<IHTMLEventObj> event;
    ComPtr<IHTMLElement> element;
    ComPtr<IHTMLInputElement> input;
    const ComPtr<IHTMLDocument2> page = document();
    BSTR type = nullptr;
    if (!page || FAILED(page->get_parentWindow(&window)) || !window
        || FAILED(window->get_event(&event)) || !event || FAILED(event->get_srcElement(&element))
        || !element || FAILED(element.As(&input)) || FAILED(input->get_type(&type)))
        return false;
    const bool isButton = QString::fromWCharArray(type) == u"button";
    SysFreeString(type);
    return isButton;
}

void ControlHost::tell(const std::function<void()> &listener) const
{
    if (listener)
        QMetaObject::invokeMethod(m_events.listener, listener, Qt::QueuedConnection);
}

} // namespace browser

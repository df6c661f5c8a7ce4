// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/browser/webbrowsercontrol.h"

#include <utility>

#include <exdisp.h>
#include <mshtmhst.h>
#include <mshtml.h>
#include <ole2.h>
#include <wrl/client.h>

class QUrl;

namespace browser {

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
    bool start();
    /// Ends what start() has begun. The host itself goes when nobody refers to it any more.
    void stop();

    /// Null if the control shows none.
    Microsoft::WRL::ComPtr<IHTMLDocument2> document() const;
    /// Gives the control the focus.
    void activate();
    /// Has the clicks on the page told to the host.
    void listenToClicks();

    Microsoft::WRL::ComPtr<IWebBrowser2> browser;
    bool isBlank = false; ///< the program's own page is shown, or on its way

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void **out) override;
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
                                  LPRECT area, LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
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
    STDMETHODIMP GetHostInfo(DOCHOSTUIINFO *info) override;
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
                        EXCEPINFO *, UINT *) override;

private:
    ~ControlHost() = default;

    bool listen();
    bool mayGoTo(const QUrl &address) const;
    /// Not a frame in it.
    bool isWholePage(const VARIANT &argument) const;
    bool isClickOnButton() const;
    /// Later, since the control does not expect to be used, or to go, while it tells something.
    void tell(const std::function<void()> &listener) const;

    HWND m_window;
    ControlEvents m_events;
    ULONG m_references = 1;
    Microsoft::WRL::ComPtr<IOleObject> m_object;
    Microsoft::WRL::ComPtr<IConnectionPoint> m_connection;
    DWORD m_cookie = 0;
};

} // namespace browser

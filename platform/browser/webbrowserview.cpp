// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/webbrowserview.h"

#include "platform/browser/browserpane.h"
#include "platform/browser/localhtml.h"
#include "platform/browser/pagefolder.h"
#include "platform/browser/webbrowsercontrol.h"

#include <QFile>
#include <QResizeEvent>

#include <utility>

namespace browser {

namespace {

/// How long a control may take to show its first page, in milliseconds. One that lacks its page
/// engine says nothing at all.
constexpr int patience = 5000;

bool theControlIsUsable = true;
bool theControlHasShownSomething = false;

/// The page has the rules themselves: an empty page of the control can't refer to files of rules.
QString styleOf(const BlankDocument &document)
{
    QFile file(pageFolder() % u'/' % document.styleSheet);
    if (document.styleSheet.isEmpty() || !file.open(QIODevice::ReadOnly))
        return {};
    return u"<style>" % QString::fromUtf8(file.readAll()) % u"</style>";
}

} // namespace

WebBrowserView::WebBrowserView(QWidget *parent) : PaneView(parent)
{
    // The control needs a window of the system's, and it alone.
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_NativeWindow);
    setFocusPolicy(Qt::StrongFocus);
    m_control = std::make_unique<WebBrowserControl>(
        reinterpret_cast<HWND>(winId()), // NOLINT(performance-no-int-to-ptr)
        ControlEvents {.listener = this,
                       .documentComplete = [this] { complete(); },
                       .buttonClicked = [this] { Q_EMIT printRequested(); },
                       .printingBegun = [this] { m_isPrintPrepared = true; },
                       .printingEnded =
                           [this] {
                               m_isPrintPrepared = false;
                               endPrinting(PrintResult::Outcome::Printed);
                           }});
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    m_patience.callOnTimeout(this, &WebBrowserView::giveUp);
    if (!m_control->isThere())
        giveUp();
    else if (!theControlHasShownSomething)
        m_patience.start();
}

WebBrowserView::~WebBrowserView() = default;

bool WebBrowserView::isUsable()
{
    return theControlIsUsable;
}

void WebBrowserView::showFile(const QString &path)
{
    if (isReadable(path)) {
        m_ownHtml.reset();
        m_control->goToFile(path);
    } else {
        showOwn(notFoundHtml(path));
    }
}

void WebBrowserView::showBlank(const BlankDocument &document)
{
    showOwn(ownHtml(u"<title>" % document.title.toHtmlEscaped() % u"</title>" % styleOf(document)));
}

void WebBrowserView::showOwn(const QString &html)
{
    m_ownHtml = html;
    m_control->goToBlank();
}

void WebBrowserView::complete()
{
    // An own page is written into the blank one, and complete when that is.
    if (const std::optional<QString> html = std::exchange(m_ownHtml, std::nullopt);
        html && !m_control->write(*html)) {
        giveUp();
        return;
    }
    theControlHasShownSomething = true;
    m_patience.stop();
    constexpr double usualDotsPerInch = 96;
    constexpr int usualFontSize = 16;
    if (fontSize() > usualFontSize)
        m_control->setZoom(qRound(100.0 * fontSize() / usualFontSize * devicePixelRatio()
                                  * logicalDpiX() / usualDotsPerInch));
    Q_EMIT documentComplete();
}

void WebBrowserView::giveUp()
{
    m_patience.stop();
    theControlIsUsable = false;
    // Later, since nobody listens to a view that is still being made.
    QMetaObject::invokeMethod(this, &PaneView::unusable, Qt::QueuedConnection);
}

void WebBrowserView::setInnerHtml(const QString &html)
{
    // The control asks nobody before it loads a picture, from other machines as well, and would
    // tell those who is asking.
    m_control->setInnerHtml(localHtml(html));
}

void WebBrowserView::print(const QString &)
{
    if (m_isPrinting)
        return;
    m_isPrinting = true;
    Q_EMIT printStarted();
    using Outcome = PrintResult::Outcome;
    switch (m_control->print()) {
    case WebBrowserControl::Printing::Sent:
        if (!m_isPrintPrepared)
            endPrinting(Outcome::Printed);
        break;
    case WebBrowserControl::Printing::Cancelled:
        endPrinting(Outcome::Cancelled);
        break;
    case WebBrowserControl::Printing::Failed:
        endPrinting(Outcome::Failed);
        break;
    }
}

void WebBrowserView::endPrinting(PrintResult::Outcome outcome)
{
    if (std::exchange(m_isPrinting, false))
        Q_EMIT printFinished({.outcome = outcome});
}

void WebBrowserView::resizeEvent(QResizeEvent *event)
{
    m_control->setSize(event->size() * devicePixelRatio());
}

void WebBrowserView::focusInEvent(QFocusEvent *event)
{
    PaneView::focusInEvent(event);
    m_control->takeFocus();
}

} // namespace browser

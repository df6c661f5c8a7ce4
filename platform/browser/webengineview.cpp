// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/webengineview.h"

#include "platform/browser/browserpane.h"
#include "platform/browser/page.h"
#include "platform/browser/printjob.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTimer>
#include <QVBoxLayout>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include <unistd.h>

namespace browser {

namespace {

/// The engine's own connections, such as those that a page only announces, pass by the guard of
/// requests. So it is told to reach everything through a proxy of a kind that it does not have, the
/// computer itself included, and that no name has an address: it neither connects nor asks anybody.
constexpr char withoutNetwork[] =
    " --disable-quic --proxy-server=quic://127.0.0.1:1 --proxy-bypass-list=<-loopback>"
    " --host-resolver-rules=\"MAP * ~NOTFOUND\"";

} // namespace

void prepareProcess()
{
    // Behind the user's own, so that these hold.
    constexpr char flags[] = "QTWEBENGINE_CHROMIUM_FLAGS";
    qputenv(flags, qgetenv(flags).append(withoutNetwork));
    // The browser's sandbox can't work for the superuser, and for nobody else is it given up.
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    // Pages are drawn as quickly without a file of what the graphics card has been told.
    QCoreApplication::setAttribute(Qt::AA_DisableShaderDiskCache);
    // Without this, pages stay silent in a screen reader.
    qputenv("QTWEBENGINE_ENABLE_LINUX_ACCESSIBILITY", "1");
}

std::shared_ptr<void> blockRightButton()
{
    return nullptr;
}

PaneView *makePaneView(QWidget *parent)
{
    return new WebEngineView(parent);
}

WebEngineView::WebEngineView(QWidget *parent)
    : PaneView(parent), m_profile(sharedProfile()), m_view(new QWebEngineView(this)),
      m_page(new Page(m_profile.get(), m_view))
{
    m_page->setBackgroundColor(palette().color(QPalette::Base));
    m_view->setPage(m_page);
    m_view->setContextMenuPolicy(Qt::NoContextMenu);
    m_view->setAcceptDrops(false);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_view);
    setFocusProxy(m_view);
    m_printJob = new PrintJob(m_view);
    connect(m_page, &QWebEnginePage::loadFinished, this, [this] {
        // The one address that the engine opens without asking. It is through with it only now,
        // and would lose what comes in its place before.
        if (m_isBlank && m_page->url() == QUrl(QStringLiteral("about:blank"))) {
            Q_EMIT documentLost();
            return;
        }
        // The part of the view that has the focus; the browser may have made a new one.
        if (QWidget *inner = m_view->focusProxy())
            inner->installEventFilter(this);
        tellFocus(true, 30);
        Q_EMIT documentComplete();
    });
    // When the browser has dealt with its loss itself.
    connect(m_page, &QWebEnginePage::renderProcessTerminated, this, &PaneView::documentLost,
            Qt::QueuedConnection);
    connect(m_page, &QWebEnginePage::printRequested, this, &PaneView::printRequested);
    connect(m_printJob, &PrintJob::started, this, &PaneView::printStarted);
    connect(m_printJob, &PrintJob::finished, this, &PaneView::printFinished);
}

WebEngineView::~WebEngineView()
{
    // The page has to go before the profile that it belongs to.
    delete m_view;
}

void WebEngineView::showFile(const QString &path)
{
    m_isBlank = false;
    m_view->setAccessibleName(accessibleName());
    m_page->showFile(path);
}

void WebEngineView::showBlank(const BlankDocument &document)
{
    m_isBlank = true;
    m_view->setAccessibleName(accessibleName());
    m_page->showBlank(document);
}

void WebEngineView::setInnerHtml(const QString &html)
{
    // In a template nothing of the HTML is at work yet. What would only refer to other documents
    // stays there. A script that comes with inner HTML is dead; a copy of it lives.
    static const QString script = QStringLiteral(R"(
        (html => {
            const template = document.createElement('template');
            template.innerHTML = html;
            for (const reference of template.content.querySelectorAll('link, meta, base, iframe'))
                reference.remove();
            for (const dead of template.content.querySelectorAll('script')) {
                const living = document.createElement('script');
                living.text = dead.text;
                dead.replaceWith(living);
            }
            document.body.replaceChildren(template.content);
        })(...%1))");
    const QByteArray text = QJsonDocument(QJsonArray {html}).toJson(QJsonDocument::Compact);
    m_page->runJavaScript(script.arg(QString::fromUtf8(text)));
}

void WebEngineView::print(const QString &documentName)
{
    m_printJob->start(documentName);
}

bool WebEngineView::isPrinting() const
{
    return m_printJob->isUnderWay();
}

bool WebEngineView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn)
        tellFocus(false, 1);
    return PaneView::eventFilter(watched, event);
}

/// Only when Tab leads from control to control into the page does the browser tell a screen reader
/// where the focus is; else that hears of a part of the view that has no name. What a new document
/// holds is there for screen readers only some time after it is shown.
/// @param looks  how many times to look for it
void WebEngineView::tellFocus(bool isNewDocument, int looks)
{
    constexpr int wait = 100; // milliseconds
    const auto tell = [this, isNewDocument, looks] {
        QAccessibleInterface *view = QAccessible::queryAccessibleInterface(m_view);
        QAccessibleInterface *document = view && hasFocus() ? view->child(0) : nullptr;
        const bool isThere = document && document->childCount() > 0;
        if (isNewDocument && hasFocus() && !isThere && looks > 1) {
            QTimer::singleShot(wait, this, [this, looks] { tellFocus(true, looks - 1); });
            return;
        }
        // Else the focus may be on a link in it. A new document has it itself, but may not say so
        // yet.
        if (document && (isNewDocument || document->state().focused)) {
            QAccessibleEvent event(document, QAccessible::Focus);
            QAccessible::updateAccessibility(&event);
        }
    };
    if (QAccessible::isActive())
        QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

} // namespace browser

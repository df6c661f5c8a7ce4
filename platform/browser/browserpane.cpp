// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/browserpane.h"

#include "platform/browser/page.h"
#include "platform/browser/printjob.h"

#include <QAccessible>
#include <QJsonArray>
#include <QJsonDocument>
#include <QVBoxLayout>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include <utility>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace browser {

void prepareProcess()
{
#ifdef Q_OS_UNIX
    // The browser's sandbox can't work for the superuser, and for nobody else is it given up.
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
#endif
    // Without this, pages stay silent in a screen reader.
    qputenv("QTWEBENGINE_ENABLE_LINUX_ACCESSIBILITY", "1");
}

BrowserPane::BrowserPane(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    setFocusPolicy(Qt::StrongFocus);
}

BrowserPane::~BrowserPane()
{
    // The page has to go before the profile that it belongs to.
    delete m_view;
}

void BrowserPane::navigate(const QString &path)
{
    m_url = QUrl::fromLocalFile(path);
    m_blank.reset();
    m_mayRecover = true;
    loadContent();
}

void BrowserPane::navigateToBlank(const BlankDocument &document)
{
    m_blank = document;
    m_mayRecover = true;
    loadContent();
}

void BrowserPane::setInnerHtml(const QString &html)
{
    // A script that comes with inner HTML is dead; a copy of it lives. What the HTML holds may
    // hide the document's own functions behind names of its elements, so they are got before.
    static const QString script = QStringLiteral(R"(
        (html => {
            const body = document.body;
            const create = document.createElement.bind(document);
            body.innerHTML = html;
            for (const dead of body.querySelectorAll('script')) {
                const living = create('script');
                living.text = dead.text;
                dead.replaceWith(living);
            }
        })(...%1))");
    if (!m_page)
        return;
    const QByteArray text = QJsonDocument(QJsonArray {html}).toJson(QJsonDocument::Compact);
    m_page->runJavaScript(script.arg(QString::fromUtf8(text)));
}

void BrowserPane::print(const QString &documentName)
{
    if (m_printJob)
        m_printJob->start(documentName);
}

bool BrowserPane::isPrinting() const
{
    return m_printJob && m_printJob->isUnderWay();
}

void BrowserPane::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_view)
        makeView();
}

void BrowserPane::makeView()
{
    m_profile = sharedProfile();
    m_view = new QWebEngineView(this);
    m_page = new Page(m_profile.get(), m_view);
    m_page->setBackgroundColor(palette().color(QPalette::Base));
    m_view->setPage(m_page);
    m_view->setContextMenuPolicy(Qt::NoContextMenu);
    m_view->setAcceptDrops(false);
    layout()->addWidget(m_view);
    setFocusProxy(m_view);
    m_printJob = new PrintJob(m_view);
    connect(m_page, &QWebEnginePage::loadFinished, this, [this] {
        // The part of the view that has the focus; the browser may have made a new one.
        if (QWidget *inner = m_view->focusProxy())
            inner->installEventFilter(this);
        tellFocus(true);
        Q_EMIT documentComplete();
    });
    // When the browser has dealt with its loss itself.
    connect(m_page, &QWebEnginePage::renderProcessTerminated, this, &BrowserPane::recover,
            Qt::QueuedConnection);
    // The one address that the engine opens without asking.
    connect(m_page, &QWebEnginePage::urlChanged, this, [this](const QUrl &url) {
        if (m_blank && url == QUrl(QStringLiteral("about:blank")))
            recover();
    });
    connect(m_page, &QWebEnginePage::printRequested, this, &BrowserPane::printRequested);
    connect(m_printJob, &PrintJob::started, this, &BrowserPane::printStarted);
    connect(m_printJob, &PrintJob::finished, this, &BrowserPane::printFinished);
    loadContent();
}

bool BrowserPane::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn)
        tellFocus(false);
    return QWidget::eventFilter(watched, event);
}

/// Only when Tab leads from control to control into the page does the browser tell a screen reader
/// where the focus is; else that hears of a part of the view that has no name.
void BrowserPane::tellFocus(bool isNewDocument)
{
    const auto tell = [this, isNewDocument] {
        QAccessibleInterface *view = QAccessible::queryAccessibleInterface(m_view);
        QAccessibleInterface *document = view && hasFocus() ? view->child(0) : nullptr;
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

void BrowserPane::recover()
{
    if (!std::exchange(m_mayRecover, false))
        return;
    Q_EMIT documentLost();
    loadContent();
}

void BrowserPane::loadContent()
{
    if (!m_page)
        return;
    m_view->setAccessibleName(accessibleName());
    if (m_blank)
        m_page->showBlank(*m_blank);
    else if (m_url.isValid())
        m_page->showFile(m_url);
}

} // namespace browser

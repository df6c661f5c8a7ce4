// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/browserpane.h"

#include <QDir>
#include <QFileInfo>
#include <QVBoxLayout>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineView>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace browser {

namespace {

QString thePageFolder;

/// Stops every request that leaves the page folder, whatever asks for it.
class RequestGuard final : public QWebEngineUrlRequestInterceptor
{
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo &request) override
    {
        request.block(!isAllowed(request.requestUrl()));
    }
};

class Page final : public QWebEnginePage
{
public:
    using QWebEnginePage::QWebEnginePage;

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType, bool) override
    {
        return isAllowed(url);
    }
};

/// The profile that all panes share; it goes with the last of them.
std::shared_ptr<QWebEngineProfile> sharedProfile()
{
    static std::weak_ptr<QWebEngineProfile> shared;
    std::shared_ptr<QWebEngineProfile> profile = shared.lock();
    if (!profile) {
        profile = std::make_shared<QWebEngineProfile>();
        Q_ASSERT(profile->isOffTheRecord());
        profile->setUrlRequestInterceptor(new RequestGuard(profile.get()));
        QWebEngineSettings &settings = *profile->settings();
        settings.setAttribute(QWebEngineSettings::JavascriptEnabled, false);
        settings.setAttribute(QWebEngineSettings::LocalStorageEnabled, false);
        settings.setAttribute(QWebEngineSettings::PluginsEnabled, false);
        settings.setAttribute(QWebEngineSettings::PdfViewerEnabled, false);
        settings.setAttribute(QWebEngineSettings::AutoLoadIconsForPage, false);
        settings.setAttribute(QWebEngineSettings::NavigateOnDropEnabled, false);
        settings.setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
        shared = profile;
    }
    return profile;
}

} // namespace

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

void setPageFolder(const QString &folder)
{
    thePageFolder = QDir(folder).absolutePath();
}

bool isAllowed(const QUrl &url)
{
    if (url == QUrl(QStringLiteral("about:blank")))
        return true;
    if (url.scheme() != u"file" || !url.host().isEmpty() || thePageFolder.isEmpty())
        return false;
    const QString file = QDir::cleanPath(url.toLocalFile());
    return QFileInfo(file).path() == thePageFolder;
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
    if (m_view)
        m_view->load(m_url);
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
    auto *page = new Page(m_profile.get(), m_view);
    page->setBackgroundColor(palette().color(QPalette::Base));
    m_view->setPage(page);
    m_view->setContextMenuPolicy(Qt::NoContextMenu);
    m_view->setAcceptDrops(false);
    m_view->setAccessibleName(accessibleName());
    layout()->addWidget(m_view);
    setFocusProxy(m_view);
    connect(page, &QWebEnginePage::loadFinished, this, [this] { Q_EMIT documentComplete(); });
    if (m_url.isValid())
        m_view->load(m_url);
}

} // namespace browser

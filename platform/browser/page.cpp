// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/page.h"

#include "platform/browser/browserpane.h"
#include "platform/browser/pagefolder.h"

#include <QCryptographicHash>
#include <QFont>
#include <QGuiApplication>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>

namespace browser {

namespace {

/// Stops every request that leaves the page folder, whatever asks for it.
class RequestGuard final : public QWebEngineUrlRequestInterceptor
{
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo &request) override
    {
        // A page's own document comes as the data of its address; the page has let it through.
        const bool isOwnDocument =
            request.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame
            && request.requestUrl().scheme() == u"data";
        request.block(!isOwnDocument && !isAllowed(request.requestUrl()));
    }
};

/// A script as a content security policy names it: by the hash of its text. The browser reads
/// carriage returns as line feeds.
QString scriptSource(QString script)
{
    script.replace(u'\r', u'\n');
    const QByteArray hash =
        QCryptographicHash::hash(script.toUtf8(), QCryptographicHash::Sha256).toBase64();
    return u"'sha256-" % QString::fromLatin1(hash) % u"' ";
}

/// Nothing but pictures and style sheets from files, and the scripts that are named. Those may
/// make functions from texts.
QString contentSecurityPolicy(const QStringList &scripts)
{
    QString policy = QStringLiteral("default-src 'none'; base-uri 'none'; form-action 'none'; "
                                    "img-src file:; style-src file:; script-src ");
    if (scripts.isEmpty())
        return policy % u"'none'";
    for (const QString &script : scripts)
        policy += scriptSource(script);
    return policy % u"'unsafe-hashes' 'unsafe-eval'";
}

QString blankHtml(const BlankDocument &document)
{
    return ownHtml(u"<meta http-equiv=\"Content-Security-Policy\" content=\""
                   % contentSecurityPolicy(document.scripts) % u"\">" % blankHead(document));
}

/// The engine does not see by itself that the desktop is dark. It takes this when it starts.
void tellOfDarkDesktop()
{
    const QPalette palette = QGuiApplication::palette();
    const bool isDark = palette.color(QPalette::Window).lightness()
                        < palette.color(QPalette::WindowText).lightness();
    constexpr char flags[] = "QTWEBENGINE_CHROMIUM_FLAGS";
    const QByteArray given = qgetenv(flags);
    if (isDark && !given.contains("--blink-settings=")) // the user's own
        qputenv(flags, QByteArray(given).append(" --blink-settings=preferredColorScheme=0"));
}

} // namespace

std::shared_ptr<QWebEngineProfile> sharedProfile()
{
    static std::weak_ptr<QWebEngineProfile> shared;
    std::shared_ptr<QWebEngineProfile> profile = shared.lock();
    if (!profile) {
        tellOfDarkDesktop();
        profile = std::make_shared<QWebEngineProfile>();
        Q_ASSERT(profile->isOffTheRecord());
        profile->setUrlRequestInterceptor(new RequestGuard(profile.get()));
        QWebEngineSettings &settings = *profile->settings();
        settings.setAttribute(QWebEngineSettings::JavascriptEnabled, false);
        settings.setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
        settings.setAttribute(QWebEngineSettings::LocalStorageEnabled, false);
        settings.setAttribute(QWebEngineSettings::PluginsEnabled, false);
        settings.setAttribute(QWebEngineSettings::PdfViewerEnabled, false);
        settings.setAttribute(QWebEngineSettings::AutoLoadIconsForPage, false);
        settings.setAttribute(QWebEngineSettings::NavigateOnDropEnabled, false);
        settings.setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
        settings.setFontSize(QWebEngineSettings::DefaultFontSize, fontSize());
        settings.setFontFamily(QWebEngineSettings::StandardFont, QGuiApplication::font().family());
        shared = profile;
    }
    return profile;
}

void Page::showFile(const QString &path)
{
    settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
    if (isReadable(path)) {
        m_isOwn = false;
        // Each time another address, by what files take no notice of: the one that is shown would
        // only be refreshed, and stay where the reader has left it.
        QUrl url = QUrl::fromLocalFile(path);
        url.setQuery(QString::number(++m_filesShown));
        load(url);
    } else {
        // The engine's own page for it would need scripts.
        showOwn(notFoundHtml(path));
    }
}

void Page::showBlank(const BlankDocument &document)
{
    settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, !document.scripts.isEmpty());
    showOwn(blankHtml(document));
}

void Page::showOwn(const QString &html)
{
    m_isOwn = true;
    // Pictures from files are only shown to a document that comes from a file itself.
    setHtml(html, QUrl::fromLocalFile(pageFolder() % u'/'));
}

bool Page::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame)
{
    // What the program itself asks for counts as typed.
    return m_isOwn ? isMainFrame && type == NavigationTypeTyped && url.scheme() == u"data"
                   : isAllowed(url);
}

} // namespace browser

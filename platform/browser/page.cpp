// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/page.h"

#include "platform/browser/browserpane.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QGuiApplication>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>

#include <cmath>

namespace browser {

namespace {

QString thePageFolder;
double theTextScale = 1;

constexpr int usualFontSize = 16; // pixels

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

/// @param head, body  what stands between their tags
QString ownHtml(const QString &head, const QString &body = {})
{
    return u"<!DOCTYPE html><html lang=\"en\"><head><meta charset=\"utf-8\">" % head
           % u"</head><body>" % body % u"</body></html>";
}

QString blankHtml(const BlankDocument &document)
{
    const QString styleSheet = document.styleSheet.isEmpty()
                                   ? QString()
                                   : QString(u"<link rel=\"stylesheet\" href=\""
                                             % document.styleSheet.toHtmlEscaped() % u"\">");
    return ownHtml(u"<meta http-equiv=\"Content-Security-Policy\" content=\""
                   % contentSecurityPolicy(document.scripts) % u"\"><title>"
                   % document.title.toHtmlEscaped() % u"</title>" % styleSheet);
}

/// What is shown in the place of a file that can't be read. The engine's own page for it would
/// need scripts.
QString notFoundHtml(const QString &path)
{
    return ownHtml(QStringLiteral("<meta name=\"color-scheme\" content=\"light dark\">"
                                  "<title>This page is missing</title>"),
                   u"<h1>This page is missing</h1><p>The file " % path.toHtmlEscaped()
                       % u" could not be read. Everything else works as before. To see the page "
                         u"again, put the file back.</p>");
}

} // namespace

void setPageFolder(const QString &folder)
{
    thePageFolder = QDir(folder).absolutePath();
}

void setTextScale(double scale)
{
    theTextScale = scale;
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

QString fileAddress(const QString &path)
{
    return QUrl::fromLocalFile(path)
        .toString(QUrl::FullyEncoded)
        .replace(u'\'', QStringLiteral("%27"));
}

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
        settings.setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
        settings.setAttribute(QWebEngineSettings::LocalStorageEnabled, false);
        settings.setAttribute(QWebEngineSettings::PluginsEnabled, false);
        settings.setAttribute(QWebEngineSettings::PdfViewerEnabled, false);
        settings.setAttribute(QWebEngineSettings::AutoLoadIconsForPage, false);
        settings.setAttribute(QWebEngineSettings::NavigateOnDropEnabled, false);
        settings.setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
        settings.setFontSize(QWebEngineSettings::DefaultFontSize,
                             static_cast<int>(std::lround(usualFontSize * theTextScale)));
        settings.setFontFamily(QWebEngineSettings::StandardFont, QGuiApplication::font().family());
        shared = profile;
    }
    return profile;
}

void Page::showFile(const QUrl &url)
{
    settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
    const QString path = url.toLocalFile();
    if (QFile file(path); QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly)) {
        m_isOwn = false;
        load(url);
    } else {
        showOwn(notFoundHtml(QDir::toNativeSeparators(path)));
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
    setHtml(html, QUrl::fromLocalFile(thePageFolder % u'/'));
}

bool Page::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame)
{
    // What the program itself asks for counts as typed.
    return m_isOwn ? isMainFrame && type == NavigationTypeTyped && url.scheme() == u"data"
                   : isAllowed(url);
}

} // namespace browser

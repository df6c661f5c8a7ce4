// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/pagefolder.h"

#include "platform/browser/browserpane.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cmath>

namespace browser {

namespace {

QString thePageFolder;
double theTextScale = 1;

constexpr int usualFontSize = 16; // pixels

} // namespace

void setPageFolder(const QString &folder)
{
    thePageFolder = QDir(folder).absolutePath();
}

QString pageFolder()
{
    return thePageFolder;
}

void setTextScale(double scale)
{
    theTextScale = scale;
}

int fontSize()
{
    return static_cast<int>(std::lround(usualFontSize * theTextScale));
}

bool isAllowed(const QUrl &url)
{
    if (url == QUrl(QStringLiteral("about:blank")))
        return true;
    if (url.scheme() != u"file" || !url.host().isEmpty() || thePageFolder.isEmpty())
        return false;
    const QString file = QDir::cleanPath(url.toLocalFile());
    // Windows may tell a path in other capitals.
#ifdef Q_OS_WIN
    constexpr Qt::CaseSensitivity sensitivity = Qt::CaseInsensitive;
#else
    constexpr Qt::CaseSensitivity sensitivity = Qt::CaseSensitive;
#endif
    return QFileInfo(file).path().compare(thePageFolder, sensitivity) == 0;
}

QString fileAddress(const QString &path)
{
    // Other than Latin letters stay: not every browser takes their codes for what they stand for.
    return QUrl::fromLocalFile(path)
        .toString(QUrl::EncodeSpaces | QUrl::EncodeDelimiters | QUrl::EncodeReserved)
        .replace(u'\'', QStringLiteral("%27"));
}

QString ownHtml(const QString &head, const QString &body)
{
    // Without being asked, the control of Windows shows pages as its first versions did.
    return u"<!DOCTYPE html><html lang=\"en\"><head><meta charset=\"utf-8\">"
           u"<meta http-equiv=\"X-UA-Compatible\" content=\"IE=edge\">"
           % head % u"</head><body>" % body % u"</body></html>";
}

QString blankHead(const BlankDocument &document)
{
    const QString title = u"<title>" % document.title.toHtmlEscaped() % u"</title>";
    if (document.styleSheet.isEmpty())
        return title;
    return title % u"<link rel=\"stylesheet\" href=\"" % document.styleSheet.toHtmlEscaped()
           % u"\">";
}

bool isReadable(const QString &path)
{
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly);
}

QString notFoundHtml(const QString &path)
{
    return ownHtml(QStringLiteral("<meta name=\"color-scheme\" content=\"light dark\">"
                                  "<title>This page is missing</title>"),
                   u"<h1>This page is missing</h1><p>The file "
                       % QDir::toNativeSeparators(path).toHtmlEscaped()
                       % u" could not be read. Everything else works as before. To see the page "
                         u"again, put the file back.</p>");
}

} // namespace browser

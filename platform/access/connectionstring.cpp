// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/connectionstring.h"

#include "platform/access/engineerror.h"

namespace dbaccess {

namespace {

EngineError malformed(QStringView key)
{
    return {EngineError::Reason::ConnectionString,
            QStringLiteral("The connection string lacks its key %1, or holds it out of order.")
                .arg(key)};
}

/// Takes "key + value" off the front of the text, the value ending where the next key begins.
QString takeValue(QStringView &rest, QStringView key, QStringView nextKey)
{
    if (!rest.startsWith(key, Qt::CaseInsensitive))
        throw malformed(key);
    rest = rest.sliced(key.size());
    const qsizetype end = rest.indexOf(nextKey, 0, Qt::CaseInsensitive);
    if (end < 0)
        throw malformed(nextKey);
    const QString value = rest.first(end).toString();
    rest = rest.sliced(end);
    return value;
}

} // namespace

ConnectionString parseConnectionString(const QString &text)
{
    QStringView rest(text);
    ConnectionString result;
    result.file = systemPath(takeValue(rest, u"DBQ=", u";DRIVER={"));
    result.driver = takeValue(rest, u";DRIVER={", u"};UID=");
    result.user = takeValue(rest, u"};UID=", u";PWD=");
    rest = rest.sliced(QStringView(u";PWD=").size());
    result.password = (rest.endsWith(u';') ? rest.chopped(1) : rest).toString();
    return result;
}

QString systemPath(const QString &path)
{
#ifdef Q_OS_WIN
    return path;
#else
    QString result = path;
    if (const qsizetype last = result.lastIndexOf(u'\\'); last >= 0)
        result[last] = u'/';
    return result;
#endif
}

} // namespace dbaccess

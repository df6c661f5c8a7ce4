// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tools/shippeddatabase.h"

#include "db/bastovarin.h"
#include "db/schema.h"
#include "platform/access/collation.h"
#include "platform/access/databasebuilder.h"
#include "platform/access/engineerror.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QSaveFile>

namespace shipped {

namespace {

constexpr char databaseName[] = "Tovarin.mdb";
constexpr char keyFileName[] = "tovarin.dll";

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw BuildError(path % u": " % file.errorString());
    return file.readAll();
}

void writeFile(const QString &path, const QByteArray &content)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
        throw BuildError(path % u": " % file.errorString());
}

/// Gives each different text a key: 1, 2, 3, ... in the order of their coming.
class Keys
{
public:
    /// The text's key; isNew says whether it is a new one.
    QString of(const QString &text, bool &isNew)
    {
        const auto known = m_keys.constFind(text);
        isNew = known == m_keys.cend();
        if (!isNew)
            return *known;
        return *m_keys.insert(text, QString::number(m_keys.size() + 1));
    }

private:
    QHash<QString, QString> m_keys;
};

void insertEntries(dbaccess::DatabaseBuilder &builder,
                   const std::vector<dictionary::Entry> &entries)
{
    Keys origins;
    Keys meanings;
    for (const dictionary::Entry &entry : entries) {
        bool isNew = false;
        const QString origin = origins.of(entry.origin, isNew);
        if (isNew)
            builder.insert(QStringLiteral("tblorg"), {origin, entry.origin});
        const QString meaning = meanings.of(entry.meaning, isNew);
        if (isNew)
            builder.insert(QStringLiteral("tblmeaning"), {meaning, entry.meaning});
        builder.insert(QStringLiteral("tblmaster"),
                       {entry.name, origin, entry.sex, meaning,
                        dbaccess::firstPlainLetter(entry.name), QStringLiteral("N")});
    }
}

QStringList valuesOf(const Settings &settings)
{
    return {settings.maxSelect, settings.topN, settings.versionNo, settings.versionDate};
}

} // namespace

Settings readSettings(const QString &path)
{
    QHash<QString, QString> values;
    int number = 0;
    for (const QString &line : QString::fromUtf8(contentOf(path)).split(u'\n')) {
        ++number;
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        const QStringList fields = line.split(u'\t');
        if (fields.size() != 2 || fields[1].trimmed().isEmpty())
            throw BuildError(QStringLiteral("%1:%2: a setting is its name, a tab and its value")
                                 .arg(path)
                                 .arg(number));
        values.insert(fields[0], fields[1]);
    }
    const auto value = [&](const char *name) {
        const QString key = QString::fromLatin1(name);
        if (!values.contains(key))
            throw BuildError(QStringLiteral("%1:1: the setting \"%2\" is missing").arg(path, key));
        return values.value(key);
    };
    const Settings settings {value("maxselect"), value("topn"), value("versionno"),
                             value("versiondate")};
    for (const QString &count : {settings.maxSelect, settings.topN}) {
        if (count.toInt() < 1)
            throw BuildError(QStringLiteral("%1:1: \"%2\" is no count of names").arg(path, count));
    }
    if (!QDate::fromString(settings.versionDate, Qt::ISODate).isValid())
        throw BuildError(QStringLiteral("%1:1: versiondate \"%2\" is not of the form yyyy-mm-dd")
                             .arg(path, settings.versionDate));
    return settings;
}

QString readPassword(const QString &path)
{
    const QString password = QString::fromUtf8(contentOf(path)).trimmed();
    const QString encoded = basTovarin::EncodeText(password, basTovarin::PasswordKey());
    const bool survives = basTovarin::DecodeText(encoded, basTovarin::PasswordKey()) == password
                          && !encoded.contains(u'\n') && !encoded.contains(u'\r')
                          && !password.contains(u';');
    if (password.isEmpty() || !survives || password == basTovarin::noPassword)
        throw BuildError(QStringLiteral("%1:1: the key file can't hold this password").arg(path));
    return password;
}

void writeDatabase(const std::vector<dictionary::Entry> &entries, const Settings &settings,
                   const QString &password, const QString &folder)
{
    if (!QDir().mkpath(folder))
        throw BuildError(QStringLiteral("%1: can't make this folder").arg(folder));
    const QDir target(folder);
    try {
        dbaccess::DatabaseBuilder builder(target.filePath(QString::fromLatin1(databaseName)),
                                          {QStringLiteral("admin"), password}, databaseSchema());
        insertEntries(builder, entries);
        builder.insert(QStringLiteral("tblsetup"), valuesOf(settings));
        builder.finish();
    } catch (const dbaccess::EngineError &error) {
        throw BuildError(folder % u": " % error.message());
    }
    writeFile(target.filePath(QString::fromLatin1(keyFileName)),
              basTovarin::EncodeText(password, basTovarin::PasswordKey()).toLatin1() + '\n');
}

} // namespace shipped

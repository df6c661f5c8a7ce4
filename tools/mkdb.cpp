// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// mkdb build DATA FOLDER     builds Tovarin.mdb and tovarin.dll in FOLDER from the sources in DATA
// mkdb place SHIPPED FOLDER  puts them into the program's folder, keeping what a user has saved
// mkdb sort FILE...          sorts dictionary files as the program orders names

#include "tools/shippeddatabase.h"

#include <QCoreApplication>
#include <QDir>
#include <QSet>

#include <cstdio>

namespace {

void say(const QString &text)
{
    std::fputs(qPrintable(QString(text % u'\n')), stderr);
}

int build(const QString &data, const QString &folder)
{
    const QDir source(data);
    const shipped::Settings settings =
        shipped::readSettings(source.filePath(QStringLiteral("settings.tsv")));
    const QString password = shipped::readPassword(source.filePath(QStringLiteral("password.txt")));

    say(QStringLiteral("mkdb: reading the dictionary"));
    const dictionary::Source read =
        dictionary::readFolder(source.filePath(QStringLiteral("dictionary")));
    for (const QString &problem : read.problems)
        say(problem);
    if (!read.problems.isEmpty())
        throw shipped::BuildError(
            QStringLiteral("%1 problems; nothing was written").arg(read.problems.size()));

    QSet<QString> origins;
    for (const dictionary::Entry &entry : read.entries)
        origins.insert(entry.origin);
    say(QStringLiteral("mkdb: writing %1 entries of %2 origins")
            .arg(read.entries.size())
            .arg(origins.size()));
    shipped::writeDatabase(read.entries, settings, password, folder);
    say(QStringLiteral("mkdb: %1 is ready").arg(folder));
    return 0;
}

int place(const QString &shippedFolder, const QString &programFolder)
{
    switch (shipped::place(shippedFolder, programFolder)) {
    case shipped::Placed::New:
        say(QStringLiteral("mkdb: put the database into %1").arg(programFolder));
        break;
    case shipped::Placed::Unchanged:
        break;
    case shipped::Placed::KeptUserData:
        say(QStringLiteral("mkdb: kept the database in %1, which holds ticks or lists of yours")
                .arg(programFolder));
        break;
    case shipped::Placed::KeptUnknown:
        say(QStringLiteral("mkdb: kept the database in %1, which can't be read; move it away to "
                           "get a fresh one")
                .arg(programFolder));
        break;
    }
    return 0;
}

int sort(const QStringList &files)
{
    for (const QString &file : files) {
        if (dictionary::sortFile(file))
            say(QStringLiteral("mkdb: sorted %1").arg(file));
    }
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().sliced(1);
    const QString command = arguments.value(0);
    try {
        if (command == u"build" && arguments.size() == 3)
            return build(arguments[1], arguments[2]);
        if (command == u"place" && arguments.size() == 3)
            return place(arguments[1], arguments[2]);
        if (command == u"sort" && arguments.size() > 1)
            return sort(arguments.sliced(1));
    } catch (const std::exception &error) {
        say(u"mkdb: " % QString::fromUtf8(error.what()));
        return 1;
    }
    say(QStringLiteral("Usage: mkdb build DATA FOLDER | mkdb place SHIPPED FOLDER | "
                       "mkdb sort FILE..."));
    return 2;
}

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// mkdb build DATA FOLDER     builds Tovarin.mdb and tovarin.dll in FOLDER from the sources in DATA
// mkdb place SHIPPED FOLDER  puts them into the program's folder, keeping what a user has saved
// mkdb sort FILE...          sorts dictionary files as the program orders names
// mkdb report DATA [PAGE]    prints what the dictionary holds and lacks, or writes it into PAGE, in
//                            place of what follows its heading "Counts"
// mkdb sample DATA COUNT [SEED]  prints entries drawn by lot, for reading them critically
// mkdb letters FILE VERSION  prints platform/access/letterdata.cpp, made from UnicodeData.txt

#include "tools/census.h"
#include "tools/letters.h"
#include "tools/shippeddatabase.h"
#include "upgrade/programfolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSaveFile>

#include <cstdio>
#include <utility>

namespace {

void say(const QString &text)
{
    std::fputs(qPrintable(QString(text % u'\n')), stderr);
}

void print(const QString &text)
{
    std::fputs(text.toUtf8().constData(), stdout);
}

/// The entries of the dictionary.
/// @throws shipped::BuildError after naming its problems
std::vector<dictionary::Entry> readDictionary(const QDir &data)
{
    dictionary::Source read = dictionary::readFolder(data.filePath(QStringLiteral("dictionary")));
    for (const QString &problem : read.problems)
        say(problem);
    if (!read.problems.isEmpty())
        throw shipped::BuildError(
            QStringLiteral("%1 problems; nothing was written").arg(read.problems.size()));
    return std::move(read.entries);
}

int build(const QString &data, const QString &folder)
{
    const QDir source(data);
    const shipped::Settings settings =
        shipped::readSettings(source.filePath(QStringLiteral("settings.tsv")));
    const QString password = shipped::readPassword(source.filePath(QStringLiteral("password.txt")));

    say(QStringLiteral("mkdb: reading the dictionary"));
    const std::vector<dictionary::Entry> entries = readDictionary(source);
    say(QStringLiteral("mkdb: writing %1 entries of %2 origins")
            .arg(entries.size())
            .arg(dictionary::countByOrigin(entries).size()));
    shipped::writeDatabase(entries, settings, password, folder);
    say(QStringLiteral("mkdb: %1 is ready").arg(folder));
    return 0;
}

int place(const QString &shippedFolder, const QString &programFolder)
{
    const upgrade::Placement placement = upgrade::place(shippedFolder, programFolder);
    switch (placement.outcome) {
    case upgrade::Outcome::Unchanged:
        break;
    case upgrade::Outcome::New:
        say(QStringLiteral("mkdb: the dictionary is in %1").arg(programFolder));
        break;
    case upgrade::Outcome::CarriedOver:
        say(upgrade::describe(placement));
        break;
    case upgrade::Outcome::KeptUnknown:
        say(QStringLiteral("mkdb: %1 The database stays as it is; move it out of %2 to get a "
                           "fresh one.")
                .arg(upgrade::describe(placement), programFolder));
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

/// Puts a text in place of what follows the heading "Counts" of a page.
void replaceCounts(const QString &page, const QString &text)
{
    const QByteArray heading = "\n## Counts\n\n";
    QFile file(page);
    if (!file.open(QIODevice::ReadOnly))
        throw shipped::BuildError(page % u": " % file.errorString());
    const QByteArray before = file.readAll();
    file.close();
    const qsizetype at = before.indexOf(heading);
    if (at < 0)
        throw shipped::BuildError(page % u": there is no heading \"Counts\"");
    const QByteArray after = before.first(at + heading.size()) + text.toUtf8();
    QSaveFile out(page);
    if (!out.open(QIODevice::WriteOnly) || out.write(after) != after.size() || !out.commit())
        throw shipped::BuildError(page % u": " % out.errorString());
}

int report(const QString &data, const QString &page)
{
    const QDir source(data);
    const std::vector<dictionary::Entry> entries = readDictionary(source);
    const QString text =
        dictionary::report(entries,
                           dictionary::readGivenNames(source.filePath(
                               QStringLiteral("popular/united-states-2011-2020.tsv"))),
                           dictionary::readReviews(source.filePath(QStringLiteral("reviews.tsv"))));
    if (page.isEmpty())
        print(text);
    else
        replaceCounts(page, text);
    for (const QString &problem : dictionary::wholeProblems(entries))
        say(problem);
    return 0;
}

/// @throws shipped::BuildError for a count or seed that is no number
int sample(const QString &data, const QString &countText, const QString &seedText)
{
    bool isCount = false;
    bool isSeed = true;
    const uint count = countText.toUInt(&isCount);
    const quint32 seed =
        seedText.isEmpty() ? QRandomGenerator::global()->generate() : seedText.toUInt(&isSeed);
    if (!isCount || !isSeed)
        throw shipped::BuildError(QStringLiteral("the count and the seed are whole numbers"));
    const std::vector<dictionary::Entry> drawn =
        dictionary::sample(readDictionary(QDir(data)), count, seed);
    print(QStringLiteral("# %1 entries, seed %2\n").arg(drawn.size()).arg(seed));
    for (const dictionary::Entry &entry : drawn)
        print(QStringLiteral("%1\t%2\t%3\t%4\n")
                  .arg(entry.name, entry.sex, entry.origin, entry.meaning));
    return 0;
}

int letterData(const QString &unicodeData, const QString &version)
{
    QFile file(unicodeData);
    if (!file.open(QIODevice::ReadOnly))
        throw shipped::BuildError(unicodeData % u": " % file.errorString());
    print(QString::fromUtf8(letters::letterData(file.readAll(), version)));
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
        if (command == u"report" && (arguments.size() == 2 || arguments.size() == 3))
            return report(arguments[1], arguments.value(2));
        if (command == u"sample" && (arguments.size() == 3 || arguments.size() == 4))
            return sample(arguments[1], arguments[2], arguments.value(3));
        if (command == u"letters" && arguments.size() == 3)
            return letterData(arguments[1], arguments[2]);
    } catch (const std::exception &error) {
        say(u"mkdb: " % QString::fromUtf8(error.what()));
        return 1;
    }
    say(QStringLiteral("Usage: mkdb build DATA FOLDER | mkdb place SHIPPED FOLDER | "
                       "mkdb sort FILE... | mkdb report DATA [PAGE] | "
                       "mkdb sample DATA COUNT [SEED] | mkdb letters FILE VERSION"));
    return 2;
}

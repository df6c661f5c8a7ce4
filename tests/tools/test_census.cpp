// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "search/criteria.h"
#include "tests/support/sampledatabase.h"
#include "tools/census.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QTest>

namespace {

/// A file of the shipped data.
QString shippedFile(const char *name)
{
    return QDir(QStringLiteral(DATA_FOLDER)).filePath(QLatin1String(name));
}

/// What "mkdb report" prints.
QString shippedReport(const std::vector<dictionary::Entry> &entries)
{
    return dictionary::report(
        entries, dictionary::readGivenNames(shippedFile("popular/united-states-2011-2020.tsv")),
        dictionary::readReviews(shippedFile("reviews.tsv")));
}

} // namespace

class TestCensus : public QObject
{
    Q_OBJECT

private:
    dictionary::Source m_shipped;

private Q_SLOTS:
    void initTestCase() { m_shipped = dictionary::readFolder(shippedFile("dictionary")); }

    void wholeProblems_nameShortOriginsAndWornOutMeanings()
    {
        using dictionary::fewestOfASex, dictionary::mostOfAMeaningInAnOrigin;
        std::vector<dictionary::Entry> entries;
        const auto add = [&entries](QChar sex, const QString &origin, int count, QString meaning) {
            const qsizetype number = meaning.indexOf(u'#');
            for (int i = 0; i < count; ++i) {
                if (number >= 0)
                    meaning.replace(number, meaning.size(), QString::number(i));
                entries.push_back({QString::number(i), sex, origin, meaning});
            }
        };
        const QString own = QStringLiteral("sense #");
        add(u'B', QStringLiteral("Irish"), fewestOfASex, own);
        add(u'G', QStringLiteral("Irish"), fewestOfASex, own);
        add(u'G', QStringLiteral("Irish"), mostOfAMeaningInAnOrigin,
            QStringLiteral("bright, fair"));
        QVERIFY(dictionary::wholeProblems(entries).isEmpty());
        add(u'B', QStringLiteral("Irish"), 1, QStringLiteral("bright, fair"));
        add(u'B', QStringLiteral("Irish"), dictionary::mostOfAMeaning + 1,
            QStringLiteral("meaning uncertain"));
        add(u'B', QStringLiteral("Welsh"), fewestOfASex, own);
        add(u'G', QStringLiteral("Welsh"), fewestOfASex - 1, own);
        QCOMPARE(dictionary::wholeProblems(entries).join(u'\n'),
                 QStringLiteral("Welsh: only 35 boys and 34 girls; each origin has 35 of either\n"
                                "all origins: 121 entries have the meaning \"meaning uncertain\"\n"
                                "Irish: 13 entries have the meaning \"bright, fair\""));
    }

    void coverage_goesBySpellingAndSexNotByCapitals()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("given.tsv"));
        support::writeFile(file, "# note\nJosé\tB\t30\nJose\tB\t10\nMccoy\tG\t5\nMccoy\tB\t60\n");
        const dictionary::Coverage covered = dictionary::coverage(
            support::entries({"José|B|Spanish|form of Joseph", "McCoy|G|English|surname"}),
            dictionary::readGivenNames(file));
        QCOMPARE(covered.share(u'B'), 0.3);
        QCOMPARE(covered.share(u'G'), 1.0);
        QCOMPARE(covered.missing.size(), std::size_t(2));
        QCOMPARE(covered.missing.front().name, QStringLiteral("Mccoy"));
        for (const char *bad : {"José\tB\n", "José\tb\t30\n", "José\tB\tmany\n"}) {
            support::writeFile(file, bad);
            QVERIFY_THROWS_EXCEPTION(std::runtime_error, dictionary::readGivenNames(file));
        }
    }

    void sample_isDrawnWithoutRepeatsAndAgainFromItsSeed()
    {
        const auto names = [this](quint32 seed) {
            QStringList drawn;
            for (const dictionary::Entry &entry : dictionary::sample(m_shipped.entries, 200, seed))
                drawn.append(entry.name % entry.sex % entry.origin);
            return drawn;
        };
        const QStringList drawn = names(7);
        QCOMPARE(QSet<QString>(drawn.begin(), drawn.end()).size(), 200);
        QCOMPARE(names(7), drawn);
        QVERIFY(names(8) != drawn);
    }

    void shippedDictionary_isWhole()
    {
        QCOMPARE(m_shipped.problems, QStringList());
        QCOMPARE(dictionary::wholeProblems(m_shipped.entries), QStringList());
        QVERIFY(m_shipped.entries.size() >= 10'000);
        const QStringList origins = dictionary::countByOrigin(m_shipped.entries).keys();
        QVERIFY(origins.size() >= 60);
        QCOMPARE(dictionary::readReviews(shippedFile("reviews.tsv")).keys(), origins);

        const dictionary::Coverage covered = dictionary::coverage(
            m_shipped.entries,
            dictionary::readGivenNames(shippedFile("popular/united-states-2011-2020.tsv")));
        QVERIFY2(covered.share(u'B') >= 0.95, qPrintable(QString::number(covered.share(u'B'))));
        QVERIFY2(covered.share(u'G') >= 0.92, qPrintable(QString::number(covered.share(u'G'))));

        const QByteArray counts = "\n## Counts\n\n" + shippedReport(m_shipped.entries).toUtf8();
        QVERIFY2(support::readFile(shippedFile("dictionary/README.md")).endsWith(counts),
                 "\"mkdb report data data/dictionary/README.md\" brings the page up to date");
    }

    void shippedDatabase_isSmallAndFindsEveryNameByItsLetter()
    {
        const support::SampleDatabase database(m_shipped.entries);
        QVERIFY(basDatabase::OpenDatabase());
        const QFileInfo file(database.file(QStringLiteral("Tovarin.mdb")));
        QVERIFY2(file.size() < 5'000'000, qPrintable(QString::number(file.size())));

        const QString tables =
            QStringLiteral("select count(*) from tblmaster, tblmeaning, tblorg ");
        int found = 0;
        for (char letter = 'A'; letter <= 'Z'; ++letter) {
            for (const search::Sex sex : {search::Sex::Boy, search::Sex::Girl}) {
                const QString clause = search::criteriaClause(
                    search::ListCriteria {.letter = QString(QLatin1Char(letter)), .sex = sex});
                const int count = support::table(tables % clause).value(0).toInt();
                QVERIFY2(count > 0, qPrintable(clause));
                found += count;
            }
        }
        QCOMPARE(found, static_cast<int>(m_shipped.entries.size()));
        basDatabase::CloseDatabase();
    }
};

QTEST_GUILESS_MAIN(TestCensus)
#include "test_census.moc"

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "layout/twips.h"
#include "platform/access/connection.h"
#include "shortlist/ranking.h"
#include "tests/shortlist/topnstep.h"
#include "tests/support/boxes.h"
#include "tests/support/brokendisks.h"
#include "tests/support/gridhand.h"

#include <QLabel>
#include <QListWidget>
#include <QTest>

using support::BoxReader;
using support::choose;
using support::clickCell;
using support::information;
using support::offered;
using support::rows;

namespace {

constexpr int rank = 6;         // the column, in the grid of the shortlist
constexpr int previousRank = 5; // and in that of the ranking

QStringList lines(const char *text)
{
    return QString::fromUtf8(text).split(u'\n', Qt::SkipEmptyParts);
}

const QStringList someNames = lines("Zoë|G|Greek|life\nAnna|G|Irish|wealth\nAnna|G|Hebrew|grace\n"
                                    "O'Neil|B|Côte d'Or|champion of the horses\n");
const QStringList someRanks = lines("03|Noah|B|Hebrew|rest\n01|Anna|G|Irish|wealth\n");

support::Box saved()
{
    return information(QStringLiteral("Tovarin"), QStringLiteral("Top 10 record saved!"));
}

support::Box unsaved()
{
    return information(QStringLiteral("Top 10"),
                       QStringLiteral("Record changed, please save before go to next step!"));
}

/// Takes a name out of the ranking.
void unrank(const TopNStep &step, int row)
{
    clickCell(step.previous(), row, previousRank);
    choose(step.previous(), int(offered(step.previous()).indexOf(shortlist::noRank)));
}

} // namespace

class TestRanking : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opening_showsRankingAndTheOthers()
    {
        const TopNStep step(someNames, someRanks);
        QCOMPARE(step.opened.size(), 1);
        QCOMPARE(rows(step.previous()), lines("1|Anna|G|Irish|wealth|01\n2|Noah|B|Hebrew|rest|03"));
        QCOMPARE(rows(step.result()),
                 lines("1|Anna|G|Hebrew|grace|A|--\n2|O'Neil|B|Côte d'Or|champion of the "
                       "horses|O|--\n3|Zoë|G|Greek|life|Z|--"));
        QCOMPARE(step.result().currentRow(), 1);
        QCOMPARE(step.freeRanks(), lines("02\n04\n05\n06\n07\n08\n09\n10"));
        // The heading of the ranks stands over the first letter, which is not shown.
        QCOMPARE(step.previous().rowTexts(0).join(u'\t'),
                 QStringLiteral("No\tName\tBoy/Girl\tOrigin\tMeaning\t"
                                "Top 10"));
        QCOMPARE(step.result().rowTexts(0).join(u'\t'),
                 QStringLiteral("No\tName\tBoy/Girl\tOrigin\tMeaning\t"
                                "Top 10\t"));
        QVERIFY(step.result().isColumnHidden(5));
    }

    void nulls_areEmptyAndEmptyRanksAreKept()
    {
        const TopNStep step({}, {QStringLiteral("05|Noah|B|Hebrew|rest")});
        basDatabase::ExecuteSQL(QStringLiteral("update tbltopn set t10_id = null, t10_mid = null"));
        basDatabase::ExecuteSQL(QStringLiteral("insert into tblresult(name_desc) values('Eva')"));
        const_cast<TopNStep &>(step).frame.CheckResultTable();
        QCOMPARE(rows(step.previous()), lines("1|Noah|B|Hebrew||"));
        QCOMPARE(rows(step.result()), lines("1|Eva|||||--"));
        clickCell(step.previous(), 1, previousRank);
        QCOMPARE(offered(step.previous()).sliced(9), lines("10\n--") << QString());
    }

    void shortlist_endsAtTheLimitAndTheRankColumnMakesRoomForTheScrollBar()
    {
        QStringList names;
        QStringList ranks;
        for (char letter = 'A'; letter <= 'P'; ++letter) {
            names.append(QLatin1Char(letter) % QStringLiteral("|B|Irish|one"));
            if (letter < 'M')
                ranks.append(QString::number(letter - 'A' + 10) % u"|R" % QLatin1Char(letter)
                             % u"|B|Irish|one");
        }
        TopNStep step(names, ranks);
        const auto width = [](const grid::FlexGrid &page, int column) {
            return page.columnPixelWidth(column);
        };
        const int wide = layout::pixelsFromTwips(995);
        const int narrow = layout::pixelsFromTwips(750);
        QCOMPARE(width(step.previous(), previousRank), narrow); // 13 rows with the header
        QCOMPARE(width(step.result(), rank), narrow);           // 17
        for (const auto &[limit, expected] : {std::pair("15", narrow), std::pair("14", wide)}) {
            step.frame.setMaxSelect(QLatin1String(limit));
            step.frame.CheckResultTable();
            QCOMPARE(rows(step.result()).size(), QByteArray(limit).toInt());
            QCOMPARE(width(step.result(), rank), expected);
        }
        // A name that comes down is one too many for the width, not for the limit.
        unrank(step, 1);
        QCOMPARE(width(step.previous(), previousRank), wide);
        QCOMPARE(width(step.result(), rank), narrow);
        QCOMPARE(rows(step.result()).constLast(), QStringLiteral("16|RA|B|Irish|one||--"));
        // Names that are ranked do not count.
        step.frame.setMaxSelect(QStringLiteral("3"));
        basDatabase::ExecuteSQL(QStringLiteral("update tbltopn set t10_name = 'A' where t10_name = "
                                               "'RA'"));
        step.frame.CheckResultTable();
        QCOMPARE(rows(step.result()).join(u' '),
                 QStringLiteral("1|B|B|Irish|one|B|-- 2|C|B|Irish|one|C|-- 3|D|B|Irish|one|D|--"));
    }

    void dropDowns_offerWhatIsFree()
    {
        const TopNStep step(someNames, someRanks);
        clickCell(step.result(), 2, rank);
        QCOMPARE(offered(step.result()), lines("02\n04\n05\n06\n07\n08\n09\n10\n--"));
        QCOMPARE(step.freeRanks(), offered(step.result()));
        choose(step.result(), 1);
        QCOMPARE(step.result().text(2, rank), QStringLiteral("04"));
        // Once ranked, a name of the shortlist can change its rank, but not lose it.
        clickCell(step.result(), 2, rank);
        QCOMPARE(offered(step.result()), lines("02\n05\n06\n07\n08\n09\n10\n04"));
        choose(step.result(), 7);
        clickCell(step.previous(), 2, previousRank);
        QCOMPARE(offered(step.previous()), lines("02\n05\n06\n07\n08\n09\n10\n--\n03"));
        choose(step.previous(), 0);
        QCOMPARE(step.previous().text(2, previousRank), QStringLiteral("02"));
    }

    void unrankedName_movesDownAtOnce()
    {
        const BoxReader reader;
        const QString meaning(QStringLiteral("many words ").repeated(10));
        const TopNStep step(
            someNames, {u"01|Anna|G|Irish|" % meaning, QStringLiteral("03|Noah|B|Hebrew|rest")});
        const int height = step.previous().rowPixelHeight(1);
        unrank(step, 1);
        QCOMPARE(rows(step.previous()), lines("1|Noah|B|Hebrew|rest|03"));
        QCOMPARE(rows(step.result()).constLast(), QString(u"5|Anna|G|Irish|" % meaning % u"||--"));
        QCOMPARE(step.result().rowPixelHeight(4), height);
        step.goOn();
        QCOMPARE(reader.boxes(), std::vector {unsaved()});
        QCOMPARE(step.next.size(), 0);
    }

    void freeRank_goesToTheCurrentName()
    {
        BoxReader reader;
        const TopNStep step(someNames, someRanks);
        clickCell(step.result(), 3, 1);
        QVERIFY(!step.result().isEditing());
        step.clickFreeRank(4);
        QCOMPARE(step.result().text(3, rank), QStringLiteral("07"));
        QCOMPARE(step.freeRanks(), lines("02\n04\n05\n06\n08\n09\n10"));
        // The rank that it had comes back last, "--" does not.
        step.clickFreeRank(0);
        QCOMPARE(step.result().text(3, rank), QStringLiteral("02"));
        QCOMPARE(step.freeRanks(), lines("04\n05\n06\n08\n09\n10\n07"));
        // Nothing is taken twice without a second click, by Enter as little as by the mouse.
        auto *list = step.frame.findChild<QListWidget *>(QStringLiteral("lstTopNList"));
        QVERIFY(list->selectedItems().isEmpty());
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(step.freeRanks(), lines("04\n06\n08\n09\n10\n07\n02"));
        // None of this counts as a change.
        step.goOn();
        QCOMPARE(step.next.size(), 1);
        // An item that a drop-down list has left there can be clicked as well.
        clickCell(step.result(), 1, rank);
        support::type(step.result(), QStringLiteral("\x1b"));
        step.clickFreeRank(int(step.freeRanks().indexOf(shortlist::noRank)));
        QCOMPARE(step.result().text(1, rank), shortlist::noRank);
        QCOMPARE(reader.boxes().size(), std::size_t(0));
    }

    void keys_openTheListAndFindARank()
    {
        const TopNStep step(someNames, someRanks);
        grid::FlexGrid &page = step.result();
        page.setFocus();
        support::type(page, QStringLiteral("04\n"));
        QCOMPARE(page.text(1, rank), QStringLiteral("04"));
        support::type(page, QStringLiteral("\n"));
        QCOMPARE(offered(page).size(), 8);
        support::type(page, QStringLiteral("07\t"));
        QCOMPARE(page.text(1, rank), QStringLiteral("07"));
        // A taken rank is not there to be found, and nothing else is taken for it.
        support::type(page, QStringLiteral("03\n"));
        QCOMPARE(page.text(1, rank), QStringLiteral("07"));
        page.setCurrentCell(2, 1);
        support::type(page, QStringLiteral("x\n"));
        QVERIFY(!page.isEditing() && !page.isEditable());
        QCOMPARE(page.text(2, 1), QStringLiteral("O'Neil"));
    }

    void save_rewritesTheRanking()
    {
        BoxReader reader;
        const TopNStep step(someNames, someRanks);
        clickCell(step.result(), 2, rank);
        choose(step.result(), 0);
        QStringList statements;
        basDatabase::WatchStatements([&](const QString &sql) { statements.append(sql); });
        step.save();
        QCOMPARE(reader.take(), std::vector {saved()});
        const QString insert = QStringLiteral("insert into tbltopn(t10_id, t10_name, t10_orgid, "
                                              "t10_sex, t10_mid) values(");
        QCOMPARE(statements.first(4).join(u'\n'),
                 QString(u"delete from tbltopn\n" % insert
                         % u"'01', 'Anna', 'Irish', 'G', "
                           u"'wealth') \n"
                         % insert % u"'03', 'Noah', 'Hebrew', 'B', 'rest') \n" % insert
                         % u"'02', 'O''Neil', 'Côte d''Or', 'B', 'champion of the "
                           u"horses') "));
        QCOMPARE(rows(step.previous()).size(), 3);
        QCOMPARE(rows(step.previous()).at(1),
                 QStringLiteral("2|O'Neil|B|Côte d'Or|champion of the horses|02"));
        QCOMPARE(rows(step.result()), lines("1|Anna|G|Hebrew|grace|A|--\n2|Zoë|G|Greek|life|Z|--"));
        QCOMPARE(step.freeRanks().constFirst(), QStringLiteral("04"));
        QCOMPARE(step.next.size(), 1);
        step.goOn();
        QCOMPARE(step.next.size(), 2);
    }

    void unrankedName_keepsItsFullNames()
    {
        BoxReader reader;
        const TopNStep step(someNames, someRanks);
        basDatabase::ExecuteSQL(
            QStringLiteral("insert into tblinitial(init_first) values('Anna'), ('Noah')"));
        for (int i = 0; i < 2; ++i)
            unrank(step, 1);
        step.save();
        QCOMPARE(savedRanking(), QStringList());
        QCOMPARE(support::table(QStringLiteral("select init_first from tblinitial")),
                 lines("Anna\nNoah"));
        // What has gone down without being shortlisted is gone.
        QCOMPARE(rows(step.result()).size(), 4);
    }

    void save_ofNoRanks_emptiesTheRanking()
    {
        BoxReader reader;
        const TopNStep step({}, {QStringLiteral("01|Eva|G|Hebrew|life")});
        basDatabase::ExecuteSQL(QStringLiteral("update tbltopn set t10_id = '--'"));
        basDatabase::ExecuteSQL(QStringLiteral("insert into tblinitial(init_first) values('Eva')"));
        const_cast<TopNStep &>(step).frame.CheckResultTable();
        step.save();
        QCOMPARE(reader.boxes(), std::vector {saved()});
        QCOMPARE(savedRanking(), QStringList());
        QCOMPARE(support::table(QStringLiteral("select * from tblinitial")), QStringList());
    }

    void save_takesTheOpenEditAlong()
    {
        BoxReader reader;
        const TopNStep step(someNames, {});
        step.result().setFocus();
        support::type(step.result(), QStringLiteral("04"));
        QVERIFY(step.result().isEditing());
        step.save();
        QCOMPARE(savedRanking(), lines("04|Anna|Hebrew|G|grace"));
        QCOMPARE(reader.boxes(), std::vector {saved()});
    }

    void failedSave_isToldAndLosesNothing_data()
    {
        QTest::addColumn<bool>("isLocked");
        QTest::addRow("another copy writes for long") << true;
        QTest::addRow("in the middle") << false;
    }

    void failedSave_isToldAndLosesNothing()
    {
        QFETCH(bool, isLocked);
        BoxReader reader;
        const TopNStep step(someNames, someRanks);
        step.clickFreeRank(0);
        clickCell(step.result(), 3, 1);
        step.clickFreeRank(0);
        const QStringList shown = rows(step.result()) + rows(step.previous());
        dbaccess::Connection other;
        if (isLocked) {
            basDatabase::ExecuteSQL(QStringLiteral("pragma busy_timeout = 1"));
            other.open(basDatabase::ConnectionText(support::samplePassword()));
            other.execute(QStringLiteral("begin immediate"));
        } else {
            // The second Anna then fails, and the next name does not.
            basDatabase::ExecuteSQL(
                QStringLiteral("create unique index full on tbltopn(t10_name)"));
        }
        step.save();
        QCOMPARE(reader.boxes().size(), std::size_t(1));
        QCOMPARE(reader.take().front().icon, QMessageBox::Critical);
        QCOMPARE(rows(step.result()) + rows(step.previous()), shown);
        step.goOn();
        QCOMPARE(reader.take(), std::vector {unsaved()});
        QCOMPARE(step.next.size(), 0);
        other.close();
        const QStringList before = lines("01|Anna|Irish|G|wealth\n03|Noah|Hebrew|B|rest");
        QCOMPARE(savedRanking(),
                 before + (isLocked ? QStringList() : lines("04|Zoë|Greek|G|life")));
        basDatabase::ExecuteSQL(QStringLiteral("drop index if exists full"));
        step.save();
        QCOMPARE(reader.take(), std::vector {saved()});
        QCOMPARE(savedRanking(), lines("01|Anna|Irish|G|wealth\n02|Anna|Hebrew|G|grace\n"
                                       "03|Noah|Hebrew|B|rest\n04|Zoë|Greek|G|life"));
    }

    void ranks_haveTwoDigits()
    {
        const auto ranks = [](const char *topN) {
            return shortlist::ranksUpTo(QLatin1String(topN));
        };
        QCOMPARE(ranks("3"), lines("01\n02\n03"));
        QCOMPARE(ranks("100").constLast(), QStringLiteral("100"));
        QCOMPARE(ranks("-1") + ranks("0") + ranks(""), QStringList());
        QCOMPARE(ranks("9999999999").size(), 32767);
    }
};

QTEST_MAIN(TestRanking)
#include "test_ranking.moc"

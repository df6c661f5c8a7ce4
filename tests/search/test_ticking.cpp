// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "platform/access/connection.h"
#include "tests/search/searchtab.h"
#include "tests/support/boxes.h"
#include "tests/support/brokendisks.h"

#include <QCheckBox>
#include <QSignalSpy>
#include <QTest>

using support::Box;
using support::BoxReader;
using support::information;
using support::table;

namespace {

const QString tickCount = QStringLiteral("select count(*) from tblmaster where name_select = 'Y' ");

std::vector<dictionary::Entry> someEntries()
{
    return support::entries({"Anna|B|Hebrew|grace", "O'Neil|B|Côte d'Or|champion",
                             "Anna|B|Irish|wealth", "Anna|G|Irish|wealth"});
}

QStringList tickedNames()
{
    return table(QStringLiteral("select name_desc, org_desc, name_sex from tblmaster, tblorg where "
                                "name_orgid = org_id and name_select = 'Y' "
                                "order by name_desc, org_desc, name_sex"));
}

QStringList shortlist()
{
    return table(QStringLiteral("select name_desc, name_orgid, name_sex, name_meaning, name_first, "
                                "name_select from tblresult order by name_desc, name_orgid"));
}

} // namespace

class TestTicking : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void click_ticksAndUnticksAtOnce()
    {
        const Tab tab(someEntries());
        tab.page().window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(tab.page().window()));
        tab.page().setFocus();
        QTest::keyClick(&tab.page(), Qt::Key_Insert); // there is nothing to tick yet
        tab.click("cmdSearch");
        QStringList statements;
        basDatabase::WatchStatements([&](const QString &sql) { statements.append(sql); });
        tab.clickCell(3, search::TickColumn);
        QCOMPARE(statements,
                 QStringList({QStringLiteral("select org_id from tblorg where org_desc = 'Côte "
                                             "d''Or'"),
                              u"update tblmaster set name_select = 'Y' where name_desc = "
                              u"'O''Neil' and   name_orgid = '"
                                  % basDatabase::GetFieldValue(statements.value(0))
                                  % u"' and   name_sex = 'B' ",
                              tickCount, statements.value(0)}));
        QCOMPARE(tab.rows().at(2), QStringLiteral("3|O|O'Neil|B|Côte d'Or|champion|_*"));
        QCOMPARE(tab.label("lblRecSelected"), QStringLiteral("1"));
        const auto said = [&tab](int row) {
            return tab.page()
                .model()
                ->index(row - 1, search::TickColumn)
                .data(Qt::AccessibleTextRole)
                .toString();
        };
        QCOMPARE(said(3), QStringLiteral("ticked"));

        // The same name, of another sex or origin, is another entry.
        tab.clickCell(2, search::TickColumn);
        QCOMPARE(tickedNames(), QStringList({QStringLiteral("Anna|Irish|B"),
                                             QStringLiteral("O'Neil|Côte d'Or|B")}));
        // Insert does the same, wherever in its row the current cell is.
        for (const int row : {2, 3}) {
            tab.page().setCurrentCell(row, search::NameColumn);
            QTest::keyClick(&tab.page(), Qt::Key_Insert);
            QCOMPARE(tab.page().currentCol(), int(search::TickColumn));
        }
        QCOMPARE(tickedNames(), QStringList());
        QCOMPARE(said(3), QStringLiteral("not ticked"));
        QCOMPARE(table(QStringLiteral("select distinct name_select from tblmaster")),
                 QStringList(QStringLiteral("N")));
    }

    void clicksElsewhereAndKeys_changeNothing()
    {
        const Tab tab(someEntries());
        tab.click("cmdSearch");
        const QStringList before = tab.rows();
        int statements = 0;
        basDatabase::WatchStatements([&](const QString &) { ++statements; });
        for (const int column : {0, 2, 3, 4, 5})
            tab.clickCell(1, column);
        Q_EMIT tab.page().cellClicked(0, search::TickColumn);
        tab.page().setCurrentCell(2, search::TickColumn);
        QTest::keyClicks(&tab.page(), QStringLiteral("x _"));
        QTest::keyClick(&tab.page(), Qt::Key_F2);
        QVERIFY(!tab.page().isEditing());
        QCOMPARE(tab.rows(), before);
        QCOMPARE(statements, 0);
    }

    void ticks_outliveSearchesAndTheProgram()
    {
        Tab tab(someEntries());
        tab.click("cmdSearch");
        tab.clickCell(1, search::TickColumn);
        tab.click("optSearch_1");
        tab.click("cmdSearch");
        tab.clickCell(1, search::TickColumn);
        QCOMPARE(tab.label("lblRecSelected"), QStringLiteral("2"));
        basDatabase::CloseDatabase();
        basDatabase::OpenDatabase();
        tab.frame().RefreshSelectCount();
        QCOMPARE(tab.label("lblRecSelected"), QStringLiteral("2"));
        tab.choose(search::SearchCriteria {.sex = search::Sex::Both, .tickedOnly = true});
        tab.click("cmdSearch");
        QCOMPARE(tab.rows(), QStringList({QStringLiteral("1|A|Anna|B|Hebrew|grace|_*"),
                                          QStringLiteral("2|A|Anna|G|Irish|wealth|_*")}));
    }

    void entryThatIsGone_staysUntickedOnScreen()
    {
        const Tab tab(someEntries());
        tab.click("cmdSearch");
        basDatabase::ExecuteSQL(
            QStringLiteral("update tblorg set org_desc = 'Old' where org_desc = 'Irish'"));
        const BoxReader reader;
        tab.clickCell(2, search::TickColumn);
        QCOMPARE(tab.rows().at(1), QStringLiteral("2|A|Anna|B|Irish|wealth|"));
        QCOMPARE(tickedNames(), QStringList());
        QCOMPARE(reader.boxes().size(), std::size_t(0));
    }

    void save_refusesNothingToSave()
    {
        Tab tab(someEntries());
        BoxReader reader;
        QSignalSpy saved(&tab.frame(), &search::SearchFrame::shortlistSaved);
        basDatabase::ExecuteSQL(QStringLiteral("insert into tblresult(name_desc) values('Old')"));
        const QStringList before = shortlist();
        tab.click("cmdSave");
        QCOMPARE(reader.take(), std::vector {information(QStringLiteral("Warning"),
                                                         QStringLiteral("No record found!"))});
        tab.click("cmdSearch");
        tab.click("cmdSave");
        QCOMPARE(reader.take(), std::vector {information(QStringLiteral("Warning"),
                                                         QStringLiteral("No record selected!"))});
        // An empty page comes first, however many names are ticked elsewhere.
        tab.clickCell(1, search::TickColumn);
        tab.choose(search::SearchCriteria {.name = QStringLiteral("nobody")});
        tab.click("cmdSearch");
        tab.click("cmdSave");
        QCOMPARE(reader.take(), std::vector {information(QStringLiteral("Warning"),
                                                         QStringLiteral("No record found!"))});
        QCOMPARE(shortlist(), before);
        QCOMPARE(saved.size(), 0);
    }

    void save_makesTheTickedNamesTheShortlist()
    {
        Tab tab(someEntries());
        tab.frame().window()->setWindowTitle(QStringLiteral("Title 1.2"));
        tab.frame().setMaxSelect(QStringLiteral("2"));
        BoxReader reader;
        QSignalSpy saved(&tab.frame(), &search::SearchFrame::shortlistSaved);
        basDatabase::ExecuteSQL(QStringLiteral("insert into tblresult(name_desc) values('Old')"));
        tab.click("optSearch_2");
        tab.click("cmdSearch");
        tab.clickCell(2, search::TickColumn);
        tab.clickCell(4, search::TickColumn);
        QStringList statements;
        basDatabase::WatchStatements([&](const QString &sql) { statements.append(sql); });
        tab.click("cmdSave");
        const Box done =
            information(QStringLiteral("Tovarin"), QStringLiteral("Record selected saved!"));
        QCOMPARE(reader.take(), std::vector {done});
        QCOMPARE(saved.size(), 1);
        QCOMPARE(
            statements,
            QStringList({QStringLiteral("delete from tblresult"),
                         QStringLiteral("insert into tblresult(name_desc, name_orgid, name_sex, "
                                        "name_meaning, name_first, name_select) select name_desc, "
                                        "org_desc, name_sex, meaning_name, name_first, name_select "
                                        "from tblmaster, tblmeaning, tblorg where name_mid = "
                                        "meaning_id and name_orgid = org_id and name_select = "
                                        "'Y' ")}));
        QCOMPARE(shortlist(), QStringList({QStringLiteral("Anna|Irish|B|wealth|A|Y"),
                                           QStringLiteral("O'Neil|Côte d'Or|B|champion|O|Y")}));
        QCOMPARE(tickedNames().size(), 2);

        // One more than the limit is advised against, and saved.
        tab.clickCell(1, search::TickColumn);
        tab.click("cmdSave");
        const QString advice =
            QStringLiteral("Warning: You have selected more than 2 names.\r\n"
                           "Please limit your choices to less than or equal 2 otherwise\r\n"
                           "you will have too many names to choose from.");
        QCOMPARE(reader.take(),
                 (std::vector {information(QStringLiteral("Title 1.2"), advice), done}));
        QCOMPARE(shortlist().size(), 3);
        QCOMPARE(saved.size(), 2);
    }

    void failedWrites_areToldAndLeaveTheScreenTrue_data()
    {
        QTest::addColumn<QString>("failure");
        QTest::addColumn<QString>("message");
        QTest::addRow("read-only")
            << QStringLiteral("read-only")
            << QStringLiteral("The database is read-only, so nothing was changed. Please check "
                              "that you may write to the program's folder.");
        if (support::FullDisk::isPossible())
            QTest::addRow("full disk")
                << QStringLiteral("full")
                << QStringLiteral("The disk reports an error: disk I/O error.");
        QTest::addRow("another copy writes for long")
            << QStringLiteral("locked")
            << QStringLiteral("The database is in use by another program, so nothing was changed. "
                              "Please try again in a moment.");
    }

    void failedWrites_areToldAndLeaveTheScreenTrue()
    {
        QFETCH(QString, failure);
        QFETCH(QString, message);
        Tab tab(someEntries());
        tab.click("cmdSearch");
        tab.clickCell(1, search::TickColumn);
        BoxReader reader;
        tab.click("cmdSave");
        reader.take();
        const QStringList rows = tab.rows();
        const QStringList saved = shortlist();
        QSignalSpy savedAgain(&tab.frame(), &search::SearchFrame::shortlistSaved);
        {
            std::optional<support::ReadOnlyFolder> readOnly;
            std::optional<support::FullDisk> full;
            dbaccess::Connection other;
            if (failure == u"read-only") {
                basDatabase::CloseDatabase();
                readOnly.emplace(tab.folder());
                basDatabase::OpenDatabase();
            } else if (failure == u"full") {
                full.emplace();
            } else {
                basDatabase::ExecuteSQL(QStringLiteral("pragma busy_timeout = 1"));
                other.open(basDatabase::ConnectionText(support::samplePassword()));
                other.execute(QStringLiteral("begin immediate"));
            }
            const Box failed {QMessageBox::Critical, QStringLiteral("Error"), message};
            tab.clickCell(1, search::TickColumn);
            tab.clickCell(2, search::TickColumn);
            QCOMPARE(reader.take(), (std::vector {failed, failed}));
            QCOMPARE(tab.rows(), rows);
            QCOMPARE(tab.label("lblRecSelected"), QStringLiteral("1"));
            tab.click("cmdSave");
            QCOMPARE(reader.take(), std::vector {failed});
            // What needs no disk goes on.
            tab.click("cmdSearch");
            QCOMPARE(tab.rows(), rows);
            QCOMPARE(reader.boxes().size(), std::size_t(0));
            basDatabase::CloseDatabase();
        }
        basDatabase::OpenDatabase();
        QCOMPARE(tickedNames(), QStringList(QStringLiteral("Anna|Hebrew|B")));
        QCOMPARE(shortlist(), saved);
        QCOMPARE(savedAgain.size(), 0);
        tab.clickCell(1, search::TickColumn);
        QCOMPARE(tab.label("lblRecSelected"), QStringLiteral("0"));
    }

    /// The shortlist is emptied before it is filled. When only the filling fails, nobody is told
    /// that it is saved, and the ticks to save it from are still there.
    void shortlistThatDoesNotFit_isNotSaidToBeSaved()
    {
        std::vector<dictionary::Entry> entries;
        for (int i = 0; i < 500; ++i)
            entries.push_back({QStringLiteral("Name %1").arg(i), u'B', QStringLiteral("Irish"),
                               QStringLiteral("a rather long meaning, number %1").arg(i)});
        Tab tab(entries);
        basDatabase::ExecuteSQL(QStringLiteral("update tblmaster set name_select = 'Y'"));
        tab.click("cmdSearch");
        basDatabase::ExecuteSQL(QStringLiteral("pragma max_page_count = 1"));
        BoxReader reader;
        QSignalSpy saved(&tab.frame(), &search::SearchFrame::shortlistSaved);
        tab.frame().setMaxSelect(QStringLiteral("500"));
        tab.click("cmdSave");
        QCOMPARE(reader.take(),
                 (std::vector {Box {QMessageBox::Critical, QStringLiteral("Error"),
                                    QStringLiteral("The disk is full, so nothing was changed. "
                                                   "Please free some space and try again.")}}));
        QCOMPARE(saved.size(), 0);
        QCOMPARE(tickedNames().size(), 500);
    }
};

QTEST_MAIN(TestTicking)
#include "test_ticking.moc"

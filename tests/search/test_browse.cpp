// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "tests/search/searchtab.h"
#include "tests/support/boxes.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

class TestBrowse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void start_showsTheFirstOptions()
    {
        Tab tab(support::entries({"Anna|G|Hebrew|grace", "Noah|B|Hebrew|rest"}));
        QCOMPARE(tab.label("lblRecStatus"), QStringLiteral("0 record(s) found"));
        for (const char *name : {"optList_0", "optList1_0", "optSearch_0"})
            QVERIFY(tab.control<QRadioButton>(name)->isChecked());
        QCOMPARE(tab.control<QComboBox>("cboNameCondition")->currentText(),
                 QStringLiteral("Exact"));
        QCOMPARE(tab.control<QComboBox>("cboAlphabet")->currentText(), QStringLiteral("A"));
        QCOMPARE(tab.control<QComboBox>("cboAlphabet")->count(), 26);
        QCOMPARE(tab.control<QComboBox>("cboOrigin")->currentText(), QStringLiteral("All"));
        tab.click("cmdSearch");
        QCOMPARE(tab.rows(), QStringList(QStringLiteral("1|N|Noah|B|Hebrew|rest|")));
    }

    void browses_runTheseStatements()
    {
        Tab tab(support::entries({"Anna|G|Hebrew|grace"}));
        QStringList statements;
        basDatabase::WatchStatements([&](const QString &sql) { statements.append(sql); });
        const QString ticks =
            QStringLiteral("select count(*) from tblmaster where name_select = 'Y' ");
        const auto expect = [&](const char *clause) {
            const QString text = QString::fromUtf8(clause);
            QCOMPARE(
                std::exchange(statements, {}),
                QStringList({u"select count(*) from tblmaster, tblmeaning, tblorg " % text,
                             u"select top 100 name_first, name_desc, name_sex, org_desc, "
                             u"meaning_name, name_select from tblmaster, tblmeaning, tblorg "
                                 % text % u" order by name_desc, name_sex, org_desc, meaning_name ",
                             ticks}));
        };
        tab.control<QLineEdit>("txtSearchName")->setText(QStringLiteral("O'N"));
        tab.control<QComboBox>("cboNameCondition")->setCurrentIndex(3);
        tab.click("cmdSearch");
        expect("where name_sex = 'B' and name_desc like '%O''N%' and name_mid = meaning_id and "
               "name_orgid = org_id ");
        tab.control<QComboBox>("cboAlphabet")->setCurrentText(QStringLiteral("Q"));
        tab.click("optList1_1");
        tab.click("cmdList");
        expect("where name_desc like 'Q%' and name_sex = 'G' and name_mid = meaning_id and "
               "name_orgid = org_id ");
        tab.frame().InitialiseSelectFlag();
        QCOMPARE(statements,
                 QStringList({QStringLiteral("update tblmaster set name_select = 'N' "), ticks}));
    }

    void enter_startsTheBrowseOfItsControl()
    {
        Tab tab(support::entries({"Anna|G|Hebrew|grace"}));
        QStringList statements;
        basDatabase::WatchStatements([&](const QString &sql) { statements.append(sql); });
        const auto press = [&](const char *name, Qt::Key key) {
            statements.clear();
            QTest::keyClick(tab.control<QWidget>(name), key);
            return statements.value(0).contains(u"like 'A%'") ? u'L'
                   : statements.isEmpty()                     ? u'-'
                                                              : u'S';
        };
        for (const char *name : {"txtSearchName", "cboNameCondition", "cboOrigin", "txtMeaning",
                                 "chkSelected", "optSearch_0", "optSearch_1", "optSearch_2"})
            QCOMPARE(press(name, Qt::Key_Return), u'S');
        // Typing into the origin goes to the text box within the list.
        statements.clear();
        QTest::keyClick(tab.control<QComboBox>("cboOrigin")->lineEdit(), Qt::Key_Return);
        QCOMPARE(statements.size(), 3);
        for (const char *name : {"cboAlphabet", "optList_0", "optList_1", "optList_2", "optList1_0",
                                 "optList1_1", "optList1_2"})
            QCOMPARE(press(name, Qt::Key_Enter), u'L');
        QCOMPARE(press("txtSearchName", Qt::Key_X), u'-');
        QCOMPARE(tab.control<QLineEdit>("txtSearchName")->text(), QStringLiteral("x"));
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void origin_countsAsItIsTyped()
    {
        Tab tab(support::entries({"Anna|B|Hebrew|grace", "Noah|B|Irish|rest"}));
        QString count;
        basDatabase::WatchStatements([&](const QString &sql) {
            if (sql.startsWith(u"select count(*) from tblmaster, "))
                count = sql;
        });
        QLineEdit *origin = tab.control<QComboBox>("cboOrigin")->lineEdit();
        tab.page().window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(tab.page().window()));
        origin->setFocus();
        for (const char *typed : {"al", "Ir"}) {
            origin->selectAll();
            QTest::keyClicks(origin, QLatin1String(typed));
            QCOMPARE(origin->text(), QLatin1String(typed));
            // The list that opens below does not hold Enter back.
            QWidget *offered = QApplication::activePopupWidget();
            QVERIFY(offered);
            QTest::keyClick(offered, Qt::Key_Return);
            QVERIFY(!offered->isVisible());
            QVERIFY2(count.contains(u"and org_desc = '" % QLatin1String(typed) % u"' "),
                     qPrintable(count));
        }
    }

    void wheel_changesOnlyTheListThatHasTheFocus()
    {
        Tab tab(support::entries({"Anna|B|Hebrew|grace"}));
        tab.page().window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(tab.page().window()));
        for (const char *name : {"cboNameCondition", "cboOrigin", "cboAlphabet"}) {
            auto *list = tab.control<QComboBox>(name);
            for (const bool isFocused : {false, true}) {
                if (isFocused)
                    list->setFocus();
                const QPointF place = list->mapTo(list->window(), QPoint(9, 9));
                QWheelEvent turn(place, list->window()->mapToGlobal(place), {}, QPoint(0, -120), {},
                                 {}, Qt::NoScrollPhase, false);
                QSpontaneKeyEvent::setSpontaneous(&turn); // as one of the system's
                qApp->notify(list->window()->windowHandle(), &turn);
                QCOMPARE(list->currentIndex(), isFocused ? 1 : 0);
                QCOMPARE(list->hasFocus(), isFocused);
            }
        }
    }

    /// What is on screen each time that the database is asked for a page.
    void screen_saysThatAPageIsOnItsWay()
    {
        std::vector<dictionary::Entry> entries;
        for (int i = 0; i < 301; ++i)
            entries.push_back({QStringLiteral("Name %1").arg(i), u'B', QStringLiteral("Irish"),
                               QStringLiteral("meaning")});
        Tab tab(entries);
        QStringList seen;
        basDatabase::WatchStatements([&](const QString &sql) {
            const QCursor *cursor = QGuiApplication::overrideCursor();
            const bool isWaiting = cursor && cursor->shape() == Qt::WaitCursor;
            if (sql.startsWith(u"select top 100 "))
                seen.append(QStringLiteral("%1, %2, %3")
                                .arg(isWaiting ? u"hourglass" : u"arrow",
                                     tab.page().isVisible() ? u"grid" : u"no grid",
                                     tab.label("lblPage")));
        });
        for (const char *button : {"cmdSearch", "cmdPageUp", "cmdPageUp", "cmdPageDown"})
            tab.click(button);
        QCOMPARE(seen,
                 QStringList({QStringLiteral("hourglass, no grid, "), // the first page
                              QStringLiteral("hourglass, grid, "),    // and the second, held ready
                              QStringLiteral("arrow, no grid, Page 2 of 4"),
                              QStringLiteral("arrow, no grid, Page 3 of 4"),
                              QStringLiteral("arrow, no grid, Page 2 of 4")}));
    }

    void nullsFromTheDatabase_areEmptyCells()
    {
        Tab tab(support::entries({"Anna|B|Hebrew|grace", "Noah|B|Hebrew|x y"}));
        for (const char *sql : {"update tblmaster set name_select = 'Y' where name_desc = 'Anna'",
                                "update tblmaster set name_select = null where name_desc = 'Noah'",
                                "update tblmeaning set meaning_name = null where meaning_name = "
                                "'x y'"})
            basDatabase::ExecuteSQL(QString::fromLatin1(sql));
        tab.click("cmdSearch");
        QCOMPARE(tab.rows(), QStringList({QStringLiteral("1|A|Anna|B|Hebrew|grace|_*"),
                                          QStringLiteral("2|N|Noah|B|Hebrew||")}));
    }

    void failedQuery_leavesTheHeader()
    {
        Tab tab(support::entries({"Anna|B|Hebrew|grace"}));
        tab.click("cmdSearch");
        QCOMPARE(tab.page().rowCount(), 2);
        QCOMPARE(tab.page().currentRow(), 1);
        basDatabase::ExecuteSQL(QStringLiteral("drop table tblmeaning"));
        support::BoxReader reader;
        tab.click("cmdSearch");
        QVERIFY(reader.boxes().size() >= 2);
        QCOMPARE(tab.page().rowCount(), 1);
        QVERIFY(tab.page().isVisible());
        QCOMPARE(tab.label("lblRecStatus"), QStringLiteral("0 record(s) found"));
        QCOMPARE(tab.label("lblPage"), QStringLiteral("Page 0 of 0"));
    }

    void focus_staysInARebuiltGrid()
    {
        Tab tab(support::entries({"Noah|B|Hebrew|rest"}));
        tab.page().window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(tab.page().window()));
        tab.page().setFocus();
        tab.click("cmdSearch");
        QVERIFY(tab.page().hasFocus());
    }

    void resultFormat_isTheGridsOwn()
    {
        QCOMPARE(search::resultFormat().size(), 231);
        Tab tab(support::entries({"Anna|B|Hebrew|grace"}));
        QCOMPARE(tab.page().rowTexts(0).join(u'\t'),
                 QStringLiteral("No\tFirst Char\tName\tBoy/Girl\tOrigin\tMeaning\tSelect"));
        QCOMPARE(tab.page().columnPixelWidth(search::FirstLetterColumn), 1);
    }
};

QTEST_MAIN(TestBrowse)
#include "test_browse.moc"

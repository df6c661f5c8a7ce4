// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "tests/search/searchtab.h"
#include "tests/support/boxes.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

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

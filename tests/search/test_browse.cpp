// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "layout/mainlayout.h"
#include "platform/access/collation.h"
#include "platform/access/likepattern.h"
#include "platform/grid/flexgrid.h"
#include "search/searchframe.h"
#include "tests/support/boxes.h"
#include "tests/support/sampledatabase.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <random>

using dictionary::Entry;
using search::SearchFrame;

namespace {

/// The Search tab on a sample database, ready as after the start of the program.
class Tab
{
public:
    explicit Tab(const std::vector<Entry> &entries) : m_database(entries)
    {
        basDatabase::OpenDatabase();
        m_frame.setParent(&m_window);
        m_frame.InitialiseNameCondition();
        m_frame.InitialiseOrigin();
        m_frame.InitialiseOptions();
        m_frame.InitialiseAlphabet();
        m_frame.RefreshSelectCount();
        layout::place(m_window, layout::mainWindowPlacements(layout::ScreenClass::Designed));
        m_window.show();
    }
    ~Tab()
    {
        basDatabase::WatchStatements({});
        basDatabase::CloseDatabase();
    }
    Q_DISABLE_COPY_MOVE(Tab)

    template <typename Control>
    Control *control(const char *name)
    {
        return m_window.findChild<Control *>(QLatin1String(name));
    }

    void click(const char *button) { control<QAbstractButton>(button)->click(); }
    QString label(const char *name) { return control<QLabel>(name)->text(); }
    grid::FlexGrid &page() { return *control<grid::FlexGrid>("msSearchList"); }
    SearchFrame &frame() { return m_frame; }

    QStringList rows()
    {
        QStringList texts;
        for (int row = 1; row < page().rowCount(); ++row)
            texts.append(page().rowText(row).replace(u'\t', u'|'));
        return texts;
    }

private:
    support::SampleDatabase m_database;
    QWidget m_window;
    SearchFrame m_frame;
};

bool isBefore(const Entry &a, const Entry &b)
{
    const auto compare = [](const QString &x, const QString &y) {
        return dbaccess::compareTexts(x, y);
    };
    if (const int names = compare(a.name, b.name); names != 0)
        return names < 0;
    if (a.sex != b.sex)
        return a.sex < b.sex;
    if (const int origins = compare(a.origin, b.origin); origins != 0)
        return origins < 0;
    return compare(a.meaning, b.meaning) < 0;
}

bool matches(const QString &text, const QString &pattern)
{
    return dbaccess::LikePattern(pattern.toStdString()).matches(text.toStdString());
}

/// Small random dictionaries in which much is nearly alike.
class RandomWorld
{
public:
    explicit RandomWorld(unsigned seed) : m_random(seed) { }

    int below(int limit) { return int(m_random() % unsigned(limit)); }

    QString word(int longest)
    {
        static const QStringList letters = {
            QStringLiteral("a"), QStringLiteral("B"), QStringLiteral("é"),
            QStringLiteral("E"), QStringLiteral("'"), QStringLiteral("%"),
            QStringLiteral("_"), QStringLiteral("æ"), QStringLiteral(" ")};
        QString text;
        for (int length = 1 + below(longest); length > 0; --length)
            text += letters[below(int(letters.size()))];
        return text;
    }

    std::vector<Entry> dictionary(int size)
    {
        std::vector<Entry> entries;
        for (int i = 0; i < size; ++i)
            entries.push_back({word(3), below(2) ? u'B' : u'G',
                               QStringList({QStringLiteral("Irish"), QStringLiteral("Côte d'Or"),
                                            QStringLiteral("côte D'Or 2")})[below(3)],
                               word(4)});
        // A name stands once for each origin and sex.
        std::ranges::sort(entries, isBefore);
        const auto repeated = std::ranges::unique(entries, [](const Entry &a, const Entry &b) {
            return dbaccess::compareTexts(a.name, b.name) == 0 && a.sex == b.sex
                   && a.origin == b.origin;
        });
        entries.erase(repeated.begin(), repeated.end());
        return entries;
    }

private:
    std::mt19937 m_random;
};

const char *const sexButtons[] = {"optSearch_0", "optSearch_1", "optSearch_2"};
const char *const listSexButtons[] = {"optList1_0", "optList1_1", "optList1_2"};
const char *const fieldButtons[] = {"optList_0", "optList_1", "optList_2"};

bool isOfSex(const Entry &entry, int sexButton)
{
    return sexButton == 2 || entry.sex == (sexButton == 0 ? u'B' : u'G');
}

} // namespace

class TestBrowse : public QObject
{
    Q_OBJECT

private:
    /// Compares what a browse shows with the entries that it should find.
    static void compareWithPage(Tab &tab, std::vector<Entry> found, const QSet<QString> &ticked,
                                int tickCount)
    {
        std::ranges::sort(found, isBefore);
        const int count = int(found.size());
        QCOMPARE(tab.label("lblRecStatus"), QStringLiteral("%1 record(s) found").arg(count));
        QCOMPARE(tab.label("lblPage"),
                 QStringLiteral("Page %1 of %2").arg(count > 0 ? 1 : 0).arg((count + 99) / 100));
        QCOMPARE(tab.label("lblRecSelected"), QString::number(tickCount));
        QStringList expected;
        for (int i = 0; i < qMin(count, 100); ++i) {
            const Entry &entry = found[std::size_t(i)];
            const QString tick = ticked.contains(entry.name) ? QStringLiteral("_") : QString();
            expected.append(
                QStringList({QString::number(i + 1), dbaccess::firstPlainLetter(entry.name),
                             entry.name, entry.sex, entry.origin, entry.meaning, tick})
                    .join(u'|'));
        }
        QCOMPARE(tab.rows(), expected);
    }

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

    void search_findsWhatAPlainFilterFinds()
    {
        RandomWorld world(99);
        for (const int size : {0, 1, 40, 150, 400}) {
            const std::vector<Entry> all = world.dictionary(size);
            Tab tab(all);
            QSet<QString> ticked;
            int tickCount = 0;
            for (int i = world.below(4); i > 0 && !all.empty(); --i) {
                const QString name = all[std::size_t(world.below(int(all.size())))].name;
                basDatabase::ExecuteSQL(
                    u"update tblmaster set name_select = 'Y' where name_desc = '"
                    % basDatabase::QuoteSQL(name) % u'\'');
            }
            for (auto rows = basDatabase::OpenRecordset(
                     QStringLiteral("select name_desc from tblmaster where name_select = 'Y'"));
                 !rows->isAtEnd(); rows->moveNext(), ++tickCount)
                ticked.insert(rows->text(qsizetype(0)));
            for (int round = 0; round < 60; ++round) {
                const QString name = world.below(4) ? world.word(2) : QString();
                const QString meaning = world.below(3) ? QString() : world.word(2);
                const int rule = world.below(4);
                const int sex = world.below(3);
                const bool tickedOnly = world.below(5) == 0;
                QComboBox &origins = *tab.control<QComboBox>("cboOrigin");
                const QString origin = world.below(3)   ? QStringLiteral("All")
                                       : world.below(2) ? QStringLiteral("CÔTE D'OR")
                                                        : QStringLiteral("Irish ");
                origins.setEditText(origin);
                tab.control<QLineEdit>("txtSearchName")->setText(name);
                tab.control<QLineEdit>("txtMeaning")->setText(meaning);
                tab.control<QComboBox>("cboNameCondition")->setCurrentIndex(rule);
                tab.click(sexButtons[sex]);
                tab.control<QCheckBox>("chkSelected")->setChecked(tickedOnly);
                tab.click("cmdSearch");

                const QString patterns[] = {QString(), QString(name % u'%'), QString(u'%' % name),
                                            QString(u'%' % name % u'%')};
                std::vector<Entry> found;
                std::ranges::copy_if(all, std::back_inserter(found), [&](const Entry &entry) {
                    const bool nameFits =
                        name.isEmpty()
                        || (rule == 0 ? dbaccess::compareTexts(entry.name, name) == 0
                                      : matches(entry.name, patterns[rule]));
                    const bool originFits =
                        origin == u"All" || dbaccess::compareTexts(entry.origin, origin) == 0;
                    const bool meaningFits =
                        meaning.isEmpty() || matches(entry.meaning, u'%' % meaning % u'%');
                    return nameFits && originFits && meaningFits && isOfSex(entry, sex)
                           && (!tickedOnly || ticked.contains(entry.name));
                });
                compareWithPage(tab, found, ticked, tickCount);
                if (QTest::currentTestFailed())
                    return;
            }
        }
    }

    void list_findsWhatAPlainFilterFinds()
    {
        RandomWorld world(5);
        const std::vector<Entry> all = world.dictionary(500);
        Tab tab(all);
        for (int round = 0; round < 60; ++round) {
            const QString letter =
                QStringList({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"),
                             QStringLiteral("E"), QStringLiteral("I")})[world.below(5)];
            const int field = world.below(3);
            const int sex = world.below(3);
            tab.control<QComboBox>("cboAlphabet")->setCurrentText(letter);
            tab.click(fieldButtons[field]);
            tab.click(listSexButtons[sex]);
            tab.click("cmdList");
            std::vector<Entry> found;
            std::ranges::copy_if(all, std::back_inserter(found), [&](const Entry &entry) {
                const QString &text = field == 0   ? entry.name
                                      : field == 1 ? entry.meaning
                                                   : entry.origin;
                return matches(text, letter % u'%') && isOfSex(entry, sex);
            });
            compareWithPage(tab, found, {}, 0);
            if (QTest::currentTestFailed())
                return;
        }
    }

    void ticks_areShownAsPicturesAndSaidAloud()
    {
        Tab tab(
            support::entries({"Anna|B|Hebrew|grace", "Noah|B|Hebrew|rest", "Zed|B|Hebrew|x y"}));
        basDatabase::ExecuteSQL(
            QStringLiteral("update tblmaster set name_select = 'Y' where name_desc = 'Noah'"));
        basDatabase::ExecuteSQL(
            QStringLiteral("update tblmaster set name_select = null where name_desc = 'Zed'"));
        basDatabase::ExecuteSQL(
            QStringLiteral("update tblmeaning set meaning_name = null where meaning_name = 'x y'"));
        tab.click("cmdSearch");
        grid::FlexGrid &page = tab.page();
        QCOMPARE(page.rowText(3), QStringLiteral("3\tZ\tZed\tB\tHebrew\t\t"));
        const auto picture = [&](int row) {
            return page.picture(row, search::TickColumn).toImage();
        };
        const auto pictureOf = [&](const char *name) {
            return tab.control<QLabel>(name)->pixmap().toImage();
        };
        QCOMPARE(picture(1), pictureOf("picUnchecked"));
        QCOMPARE(picture(2), pictureOf("picChecked"));
        QCOMPARE(picture(3), pictureOf("picUnchecked"));
        const auto said = [&](int row) {
            return page.model()
                ->index(row - 1, search::TickColumn)
                .data(Qt::AccessibleTextRole)
                .toString();
        };
        QCOMPARE(said(2), QStringLiteral("ticked"));
        QCOMPARE(said(3), QStringLiteral("not ticked"));
        tab.frame().InitialiseSelectFlag();
        QCOMPARE(tab.label("lblRecSelected"), QStringLiteral("0"));
        QVERIFY(tab.control<QLabel>("picChecked")->isHidden());
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
        QCOMPARE(tab.page().rowText(0),
                 QStringLiteral("No\tFirst Char\tName\tBoy/Girl\tOrigin\tMeaning\tSelect"));
        QCOMPARE(tab.page().columnPixelWidth(search::FirstLetterColumn), 1);
    }
};

QTEST_MAIN(TestBrowse)
#include "test_browse.moc"

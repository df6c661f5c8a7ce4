// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "platform/access/collation.h"
#include "platform/access/connection.h"
#include "tests/search/searchtab.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include <algorithm>

using dictionary::Entry;
using search::ListCriteria;
using search::SearchCriteria;

namespace {

constexpr const char *pageButtons[] = {"cmdFirstPage", "cmdPageDown", "cmdPageUp", "cmdLastPage"};

/// What a browse shows and holds ready, worked out from lists of entries in memory.
class Model
{
public:
    explicit Model(std::vector<Entry> entries)
        : m_entries(std::move(entries)), m_ticked(m_entries.size())
    {
    }

    SearchCriteria search;
    ListCriteria list {.letter = QStringLiteral("A")};

    void startSearch() { start(Mode::Search); }
    void startList() { start(Mode::List); }

    void goFirst()
    {
        if (m_mode != Mode::None && m_canGoBack)
            start(m_mode);
    }

    void goForward()
    {
        if (m_mode == Mode::None || !m_canGoForward || m_page.empty()
            || nameOf(m_page.back()).isEmpty())
            return;
        turnTo(m_number + 1);
        m_previous = m_page;
        m_page = m_next;
        readyNext();
    }

    void goBack()
    {
        if (m_mode == Mode::None || !m_canGoBack || m_page.empty()
            || nameOf(m_page.front()).isEmpty())
            return;
        turnTo(m_number - 1);
        m_next = m_page;
        m_page = m_previous;
        readyPrevious();
    }

    void goLast()
    {
        if (!m_canGoForward)
            return;
        if (m_mode != Mode::None) {
            m_number = m_count;
            const auto atEnd = [this](std::size_t a, std::size_t b) {
                return isBefore(m_entries[b], m_entries[a]);
            };
            const auto any = [](const Entry &) { return true; };
            const bool tickedOnly = std::exchange(search.tickedOnly, false);
            m_page = fetch(any, atEnd, m_lastRows, m_number);
            search.tickedOnly = tickedOnly;
            reverse(m_page, m_number);
            readyPrevious();
            m_next.clear();
        }
        turnTo(m_count);
    }

    void tick(int row)
    {
        Row &ticked = m_page[std::size_t(row - 1)];
        ticked.ticked = !ticked.ticked;
        m_ticked[ticked.entry] = ticked.ticked;
    }

    /// The girls' names are ticked from the start.
    void tickGirls()
    {
        for (std::size_t i = 0; i < m_entries.size(); ++i)
            m_ticked[i] = m_entries[i].sex == u'G';
    }

    void compareWith(const Tab &tab) const
    {
        QCOMPARE(tab.rows(), texts(m_page));
        QCOMPARE(tab.rows("msSearchListN"), texts(m_next));
        QCOMPARE(tab.rows("msSearchListP_0"), texts(m_previous));
        QCOMPARE(tab.label("lblRecStatus"), QStringLiteral("%1 record(s) found").arg(m_found));
        QCOMPARE(tab.label("lblPage"), m_label);
        QCOMPARE(tab.label("lblRecSelected"), QString::number(std::ranges::count(m_ticked, true)));
        for (const char *button : pageButtons) {
            const bool isBack = button == pageButtons[0] || button == pageButtons[1];
            QCOMPARE(tab.isEnabled(button), isBack ? m_canGoBack : m_canGoForward);
        }
    }

    int rowsOnPage() const { return int(m_page.size()); }

private:
    enum class Mode { None, Search, List };

    struct Row
    {
        std::size_t entry;
        int number;
        bool ticked;
    };
    using Page = std::vector<Row>;

    QString nameOf(const Row &row) const { return m_entries[row.entry].name; }

    bool isFound(std::size_t i) const
    {
        return m_mode == Mode::Search ? finds(search, m_entries[i], m_ticked[i])
                                      : finds(list, m_entries[i]);
    }

    Page fetch(const std::function<bool(const Entry &)> &isWanted,
               const std::function<bool(std::size_t, std::size_t)> &order, int limit,
               int pageNumber) const
    {
        std::vector<std::size_t> found;
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            if (isFound(i) && isWanted(m_entries[i]))
                found.push_back(i);
        }
        std::ranges::sort(found, order);
        Page page;
        for (const std::size_t i : found) {
            if (int(page.size()) < limit)
                page.push_back({i, (pageNumber - 1) * 100 + int(page.size()) + 1, m_ticked[i]});
        }
        return page;
    }

    static void reverse(Page &page, int pageNumber)
    {
        std::ranges::reverse(page);
        for (std::size_t i = 0; i < page.size(); ++i)
            page[i].number = (pageNumber - 1) * 100 + int(i) + 1;
    }

    /// The entry whose texts are the key of a page's last row; an empty page has those of the
    /// headings.
    Entry lastKey() const
    {
        Entry key = m_page.empty() ? Entry {QStringLiteral("Name"), u'B', QStringLiteral("Origin"),
                                            QStringLiteral("Meaning")}
                                   : m_entries[m_page.back().entry];
        for (QString *text : {&key.name, &key.origin, &key.meaning})
            *text = text->trimmed();
        return key;
    }

    static bool isBeyond(const Entry &entry, const Entry &key, int direction)
    {
        for (const int part :
             {dbaccess::compareTexts(entry.name, key.name), entry.sex.unicode() - key.sex.unicode(),
              dbaccess::compareTexts(entry.origin, key.origin),
              dbaccess::compareTexts(entry.meaning, key.meaning)}) {
            if (part != 0)
                return part * direction > 0;
        }
        return false;
    }

    void readyNext()
    {
        m_next.clear();
        if (m_number == m_count)
            return;
        const auto isBehind = [key = lastKey()](const Entry &entry) {
            return isBeyond(entry, key, +1);
        };
        const auto order = [this](std::size_t a, std::size_t b) {
            return isBefore(m_entries[a], m_entries[b]);
        };
        m_next = fetch(isBehind, order, 100, m_number + 1);
    }

    void readyPrevious()
    {
        m_previous.clear();
        if (m_number == 1)
            return;
        Entry key = lastKey();
        key.name = m_page.empty() ? QString() : nameOf(m_page.front()).trimmed();
        const auto isAhead = [&key](const Entry &entry) { return isBeyond(entry, key, -1); };
        // Only the names run backwards.
        const auto order = [this](std::size_t a, std::size_t b) {
            const int names = dbaccess::compareTexts(m_entries[a].name, m_entries[b].name);
            return names != 0 ? names > 0 : isBefore(m_entries[a], m_entries[b]);
        };
        m_previous = fetch(isAhead, order, 100, m_number - 1);
        reverse(m_previous, m_number - 1);
    }

    void start(Mode mode)
    {
        m_mode = mode;
        m_found = 0;
        for (std::size_t i = 0; i < m_entries.size(); ++i)
            m_found += isFound(i);
        m_count = m_found / 100 + (m_found % 100 != 0);
        m_lastRows = m_found % 100;
        const auto order = [this](std::size_t a, std::size_t b) {
            return isBefore(m_entries[a], m_entries[b]);
        };
        m_page = fetch([](const Entry &) { return true; }, order, 100, 1);
        m_previous.clear();
        turnTo(m_found == 0 ? 0 : 1);
        readyNext();
    }

    void turnTo(int number)
    {
        m_number = number;
        m_label = QStringLiteral("Page %1 of %2").arg(m_number).arg(m_count);
        m_canGoBack = m_canGoForward = false;
        if (m_count == 1)
            return;
        if (m_number != m_count) {
            m_canGoForward = true;
            m_canGoBack = m_number != 1;
        } else {
            m_canGoBack = m_number != 1;
        }
    }

    QStringList texts(const Page &page) const
    {
        QStringList result;
        for (const Row &row : page)
            result.append(rowText(row.number, m_entries[row.entry], row.ticked));
        return result;
    }

    std::vector<Entry> m_entries;
    std::vector<bool> m_ticked;
    Mode m_mode = Mode::None;
    int m_number = 0;
    int m_count = 0;
    int m_found = 0;
    int m_lastRows = 0;
    QString m_label;
    bool m_canGoBack = true;
    bool m_canGoForward = true;
    Page m_page;
    Page m_next;
    Page m_previous;
};

/// One step at random, taken by the model and by the tab alike.
QString step(RandomWorld &world, Model &model, const Tab &tab)
{
    const auto edit = [&] {
        model.search = world.searchCriteria();
        if (world.below(2))
            model.search = {.sex = search::Sex::Both, .tickedOnly = model.search.tickedOnly};
        model.list = world.listCriteria();
        tab.choose(model.search);
        tab.choose(model.list);
    };
    const auto tick = [&] {
        for (int ticks = 1 + world.below(4); ticks > 0 && model.rowsOnPage() > 0; --ticks) {
            const int last = model.rowsOnPage(); // next to the other page
            const int row = world.below(4) ? 1 + world.below(last) : last;
            model.tick(row);
            tab.clickCell(row, search::TickColumn);
        }
    };
    struct Choice
    {
        const char *name; ///< a button's, or of something else
        int weight;
        std::function<void()> take;
    };
    const Choice choices[] = {{"edit", 1, edit},
                              {"tick", 10, tick},
                              {"cmdSearch", 5, [&] { edit(), model.startSearch(); }},
                              {"cmdList", 2, [&] { edit(), model.startList(); }},
                              {"cmdFirstPage", 1, [&] { model.goFirst(); }},
                              {"cmdLastPage", 4, [&] { model.goLast(); }},
                              {"cmdPageUp", 13, [&] { model.goForward(); }},
                              {"cmdPageDown", 10, [&] { model.goBack(); }}};
    int dice = world.below(46);
    const Choice *choice = choices;
    while (dice >= choice->weight)
        dice -= (choice++)->weight;
    choice->take();
    if (auto *button = tab.control<QAbstractButton>(choice->name))
        button->click();
    return QString::fromLatin1(choice->name);
}

std::vector<Entry> numberedEntries(int count)
{
    std::vector<Entry> entries;
    for (int i = 1; i <= count; ++i)
        entries.push_back({QStringLiteral("N'%1").arg(i, 3, 10, QLatin1Char('0')), u'B',
                           QStringLiteral("Origin"), QStringLiteral("meaning")});
    return entries;
}

} // namespace

class TestPaging : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomWalks_showWhatTheModelShows_data()
    {
        QTest::addColumn<int>("size");
        for (const int size : {0, 1, 100, 101, 250, 400, 700, 1000})
            QTest::addRow("%d", size) << size;
    }

    void randomWalks_showWhatTheModelShows()
    {
        QFETCH(int, size);
        RandomWorld world {unsigned(size)};
        const std::vector<Entry> entries = world.dictionary(size);
        for (int walk = 0; walk < 3; ++walk) {
            Model model(entries);
            Tab tab(entries);
            if (walk > 0) {
                model.tickGirls();
                basDatabase::ExecuteSQL(
                    QStringLiteral("update tblmaster set name_select = 'Y' where name_sex = 'G'"));
                tab.frame().RefreshSelectCount();
            }
            QStringList steps;
            for (int i = 0; i < 100; ++i) {
                steps.append(step(world, model, tab));
                model.compareWith(tab);
                if (QTest::currentTestFailed()) {
                    qWarning("%s", qPrintable(steps.join(u' ')));
                    return;
                }
            }
        }
    }

    void leafing_seesEveryNameOnceAndInOrder_data()
    {
        QTest::addColumn<int>("names");
        QTest::addColumn<int>("pages");
        QTest::addColumn<int>("onLastPage");
        QTest::addRow("none") << 0 << 0 << 0;
        QTest::addRow("one name") << 1 << 1 << 1;
        QTest::addRow("one name short of a page") << 99 << 1 << 99;
        QTest::addRow("a full page") << 100 << 1 << 100;
        QTest::addRow("a last page of one name") << 101 << 2 << 1;
        QTest::addRow("two full pages") << 200 << 2 << 0; // which the way to the end doesn't know
        QTest::addRow("two pages and a half") << 250 << 3 << 50;
    }

    void leafing_seesEveryNameOnceAndInOrder()
    {
        QFETCH(int, names);
        QFETCH(int, pages);
        QFETCH(int, onLastPage);
        const std::vector<Entry> entries = numberedEntries(names);
        const Tab tab(entries);
        tab.click("cmdSearch");
        QStringList seen = tab.rows();
        while (tab.isEnabled("cmdPageUp")) {
            tab.click("cmdPageUp");
            seen += tab.rows();
        }
        QStringList all;
        for (const Entry &entry : entries)
            all.append(rowText(int(all.size()) + 1, entry, false));
        QCOMPARE(seen, all);
        QCOMPARE(tab.label("lblPage"), QStringLiteral("Page %1 of %1").arg(pages));

        // Back again, where names differ, is the same way.
        QStringList back = tab.rows();
        while (tab.isEnabled("cmdPageDown") && tab.page().rowCount() > 1) {
            tab.click("cmdPageDown");
            back = tab.rows() + back;
        }
        QCOMPARE(back, all);
        tab.click("cmdLastPage");
        QCOMPARE(tab.rows(), all.last(onLastPage));
        QCOMPARE(tab.label("lblPage"), QStringLiteral("Page %1 of %1").arg(pages));
        QCOMPARE(tab.isEnabled("cmdLastPage"), false);
        tab.click("cmdFirstPage");
        QCOMPARE(tab.rows(), all.first(qMin(names, 100)));
    }

    void buttonsBeforeAnyBrowse_doNothing()
    {
        const Tab tab(numberedEntries(150));
        int statements = 0;
        basDatabase::WatchStatements([&](const QString &) { ++statements; });
        for (const char *button : {"cmdPageUp", "cmdPageDown", "cmdFirstPage"})
            tab.click(button);
        QCOMPARE(statements, 0);
        QCOMPARE(tab.label("lblPage"), QString());
        tab.click("cmdLastPage");
        QCOMPARE(tab.label("lblPage"), QStringLiteral("Page 0 of 0"));
        QCOMPARE(statements, 1);
        QCOMPARE(tab.page().rowCount(), 1);
    }

    void moves_runTheseStatements()
    {
        const Tab tab(numberedEntries(250));
        tab.click("cmdSearch");
        QStringList statements;
        basDatabase::WatchStatements([&](const QString &sql) { statements.append(sql); });
        const QString clause = QStringLiteral(
            "where name_sex = 'B' and name_mid = meaning_id and name_orgid = org_id ");
        const QString ticks =
            QStringLiteral("select count(*) from tblmaster where name_select = 'Y' ");
        const QString page = u"select top 100 name_first, name_desc, name_sex, org_desc, "
                             u"meaning_name, name_select from tblmaster, tblmeaning, tblorg "
                             % clause;
        tab.click("cmdLastPage");
        QCOMPARE(
            std::exchange(statements, {}),
            QStringList(
                {u"INSERT INTO tbltemp select top 50 name_desc, name_orgid, name_sex, name_mid, "
                 u"name_first, name_select from tblmaster, tblmeaning, tblorg "
                     % clause
                     % u" order by name_desc desc, name_sex desc, org_desc desc, meaning_name "
                       u"desc ",
                 QStringLiteral(
                     "select name_first, name_desc, name_sex, org_desc, meaning_name, name_select "
                     "from tbltemp, tblmeaning, tblorg where name_mid = meaning_id and name_orgid "
                     "= org_id order by name_desc, name_sex, org_desc, meaning_name "),
                 QStringLiteral("delete from tbltemp "),
                 page
                     % u" and ((name_desc < 'N''201')  or (name_desc = 'N''201' and name_sex < "
                       u"'B')  or (name_desc = 'N''201' and name_sex = 'B' and org_desc < "
                       u"'Origin')  or (name_desc = 'N''201' and name_sex = 'B' and org_desc = "
                       u"'Origin' and meaning_name < 'meaning')) order by name_desc desc, "
                       u"name_sex, org_desc, meaning_name ",
                 ticks}));
        // The neighbour was ready: only the page beyond it is fetched, and here there is none.
        tab.click("cmdPageDown");
        tab.click("cmdPageDown");
        statements.clear();
        tab.click("cmdPageUp");
        QCOMPARE(
            std::exchange(statements, {}),
            QStringList(
                {page
                     % u" and ((name_desc > 'N''200')  or (name_desc = 'N''200' and name_sex > "
                       u"'B')  or (name_desc = 'N''200' and name_sex = 'B' and org_desc > "
                       u"'Origin')  or (name_desc = 'N''200' and name_sex = 'B' and org_desc = "
                       u"'Origin' and meaning_name > 'meaning')) order by name_desc, name_sex, "
                       u"org_desc, meaning_name ",
                 ticks}));
        tab.click("cmdPageUp");
        QCOMPARE(statements, QStringList(ticks));
    }

    void scratchRowsLeftInTheFile_areNeverShown()
    {
        const Tab tab(numberedEntries(101));
        dbaccess::Connection other;
        other.open(basDatabase::ConnectionText(support::samplePassword()));
        other.execute(QStringLiteral("insert into tbltemp select top 7 name_desc, name_orgid, "
                                     "name_sex, name_mid, name_first, name_select from tblmaster"));
        tab.click("cmdSearch");
        for (int i = 0; i < 2; ++i) {
            tab.click("cmdLastPage");
            QCOMPARE(tab.rows(), QStringList(QStringLiteral("101|N|N'101|B|Origin|meaning|")));
            tab.click("cmdFirstPage");
        }
    }

    void pageKeys_turnPagesWhereTheControlHasNoUseForThem()
    {
        const Tab tab(numberedEntries(250));
        tab.click("cmdSearch");
        tab.page().window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(tab.page().window()));
        const auto press = [&](const char *control, Qt::Key key) {
            auto *widget = tab.control<QWidget>(control);
            widget->setFocus();
            QTest::keyClick(widget, key);
            return tab.label("lblPage").section(u' ', 1, 1).toInt();
        };
        QCOMPARE(press("txtSearchName", Qt::Key_PageDown), 2);
        QCOMPARE(press("cmdSearch", Qt::Key_PageUp), 1);
        QCOMPARE(press("cmdSearch", Qt::Key_PageUp), 1);
        QCOMPARE(press("cboAlphabet", Qt::Key_PageDown), 1);
        QCOMPARE(press("msSearchList", Qt::Key_PageDown), 1);
        QVERIFY(tab.page().currentRow() > 1);
        tab.page().setCurrentCell(100, search::NameColumn);
        QCOMPARE(press("msSearchList", Qt::Key_PageDown), 2);
        QCOMPARE(tab.page().currentRow(), 1);
        QVERIFY(tab.page().hasFocus());
        QCOMPARE(press("msSearchList", Qt::Key_PageUp), 1);
        QCOMPARE(tab.page().currentRow(), 100);
    }

    void buttonThatIsDisabled_leavesTheFocusToTheGrid()
    {
        const Tab tab(numberedEntries(250));
        tab.click("cmdSearch");
        tab.page().window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(tab.page().window()));
        auto *forward = tab.control<QWidget>("cmdPageUp");
        forward->setFocus();
        QTest::keyClick(forward, Qt::Key_Space);
        QVERIFY(forward->hasFocus());
        QTest::keyClick(forward, Qt::Key_Space);
        QCOMPARE(tab.label("lblPage"), QStringLiteral("Page 3 of 3"));
        QVERIFY(tab.page().hasFocus());
    }
};

QTEST_MAIN(TestPaging)
#include "test_paging.moc"

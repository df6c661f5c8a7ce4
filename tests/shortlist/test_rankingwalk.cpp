// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// Random walks over the ranking step, beside a plain model of its rules.

#include "db/basdatabase.h"
#include "tests/shortlist/topnstep.h"
#include "tests/support/boxes.h"
#include "tests/support/gridhand.h"

#include <QSet>
#include <QTest>

#include <algorithm>
#include <random>

namespace {

constexpr int topN = 5;
constexpr int maxSelect = 7;
const QString none = QStringLiteral("--");

struct Name
{
    QString name; ///< "name|sex|origin|meaning"
    QString letter;
    QString rank;
    int number = 0;
};

using Names = std::vector<Name>;

class Model
{
public:
    QStringList shortlist; ///< what the tables hold, in the order of the grids
    QStringList ranking;   ///< "rank|name|sex|origin|meaning"
    Names previous;
    Names result;
    QStringList freeRanks;
    bool isChanged = false;

    void open()
    {
        previous.clear();
        std::ranges::sort(ranking);
        for (const QString &row : ranking)
            previous.push_back({row.section(u'|', 1), {}, row.section(u'|', 0, 0)});
        if (ranking.isEmpty() && shortlist.isEmpty())
            return;
        isChanged = false;
        result.clear();
        for (const QString &name : shortlist) {
            const bool isRanked = std::ranges::any_of(
                previous, [&name](const Name &ranked) { return ranked.name == name; });
            if (!isRanked && result.size() < maxSelect)
                result.push_back({name, name.first(1), none});
        }
        number(previous);
        number(result);
        listFreeRanks();
    }

    QStringList offered(const Name &name, bool withNone)
    {
        listFreeRanks();
        if (withNone)
            freeRanks.append(none);
        freeRanks.append(name.rank);
        return freeRanks;
    }

    void setRank(Names &names, std::size_t index, const QString &rank)
    {
        isChanged = isChanged || names[index].rank != rank;
        names[index].rank = rank;
        if (&names == &previous && rank == none) {
            result.push_back({names[index].name, {}, none, int(result.size()) + 2});
            previous.erase(previous.begin() + qsizetype(index));
            number(previous);
        }
    }

    void takeFreeRank(std::size_t index, int place)
    {
        const QString old = std::exchange(result[index].rank, freeRanks.takeAt(place));
        if (old.toInt() > 0)
            freeRanks.append(old);
    }

    void save()
    {
        ranking.clear();
        for (const Names *names : {&previous, &result}) {
            for (const Name &name : *names) {
                if (name.rank != none)
                    ranking.append(name.rank % u'|' % name.name);
            }
        }
        const QStringList list = shortlist;
        open();
        if (ranking.isEmpty() && list.isEmpty()) {
            result.clear();
            isChanged = false;
            listFreeRanks();
        }
    }

    static QStringList rows(const Names &names, bool withLetter)
    {
        QStringList texts;
        for (const Name &name : names)
            texts.append(QString::number(name.number) % u'|' % name.name
                         % (withLetter ? QString(u'|' % name.letter) : QString()) % u'|'
                         % name.rank);
        return texts;
    }

private:
    static void number(Names &names)
    {
        int number = 0;
        for (Name &name : names)
            name.number = ++number;
    }

    void listFreeRanks()
    {
        freeRanks.clear();
        for (int rank = 1; rank <= topN; ++rank)
            freeRanks.append(QStringLiteral("0%1").arg(rank));
        for (const Names *names : {&previous, &result}) {
            for (const Name &name : *names)
                freeRanks.removeOne(name.rank);
        }
    }
};

} // namespace

class TestRankingWalk : public QObject
{
    Q_OBJECT

    std::mt19937 m_random;
    int below(qsizetype limit) { return int(m_random() % unsigned(limit)); }

    QStringList randomShortlist()
    {
        QStringList all;
        for (const char letter : {'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', 'I', 'J'})
            all.append(QLatin1Char(letter) % QStringLiteral("'na|G|Irish|one"));
        std::ranges::shuffle(all, m_random);
        all.resize(below(all.size() + 1));
        std::ranges::sort(all);
        return all;
    }

    /// Through the list of a cell.
    void pick(const TopNStep &step, Model &model, bool inRanking)
    {
        Names &names = inRanking ? model.previous : model.result;
        if (names.empty())
            return;
        grid::FlexGrid &page = inRanking ? step.previous() : step.result();
        const auto index = std::size_t(below(qsizetype(names.size())));
        support::clickCell(page, int(index) + 1, inRanking ? 5 : 6);
        const QStringList items = model.offered(names[index], inRanking);
        QCOMPARE(support::offered(page), items);
        const int item = below(items.size());
        support::choose(page, item);
        model.setRank(names, index, items[item]);
    }

    void clickFreeRank(const TopNStep &step, Model &model)
    {
        if (model.freeRanks.isEmpty())
            return;
        const int place = below(model.freeRanks.size());
        if (model.result.empty()) {
            step.clickFreeRank(place); // with nobody to take it
            return;
        }
        const auto index = std::size_t(below(qsizetype(model.result.size())));
        support::clickCell(step.result(), int(index) + 1, 1);
        step.clickFreeRank(place);
        model.takeFreeRank(index, place);
    }

private Q_SLOTS:
    void steps_followTheRules_data()
    {
        QTest::addColumn<bool>("withListBox");
        QTest::addColumn<unsigned>("seed");
        const unsigned seed = std::random_device {}();
        for (unsigned i = 0; i < 8; ++i)
            QTest::addRow("%s, %u", i % 2 ? "with the list box" : "drop-downs alone", seed + i)
                << (i % 2 == 1) << seed + i;
    }

    void steps_followTheRules()
    {
        QFETCH(bool, withListBox);
        QFETCH(unsigned, seed);
        m_random.seed(seed);
        support::BoxReader reader;
        TopNStep step({}, {});
        step.frame.setTopN(QString::number(topN));
        step.frame.setMaxSelect(QString::number(maxSelect));
        Model model;
        for (int i = 0; i < 120; ++i) {
            const int dice = below(20);
            if (dice < 7) {
                pick(step, model, false);
            } else if (dice < 13) {
                pick(step, model, true);
            } else if (dice < 15 && withListBox) {
                clickFreeRank(step, model);
            } else if (dice == 15 || i == 0) {
                model.shortlist = randomShortlist();
                TopNStep::writeShortlist(model.shortlist);
                model.open();
                step.frame.CheckResultTable();
            } else if (dice == 16) {
                model.open();
                step.frame.CheckResultTable();
            } else if (dice == 17) {
                const auto before = step.next.size();
                step.goOn();
                QCOMPARE(step.next.size() == before, model.isChanged);
            } else if (dice > 17) {
                step.save();
                model.save();
                QCOMPARE(support::table(QStringLiteral("select t10_id, t10_name, t10_sex, "
                                                       "t10_orgid, t10_mid from tbltopn order by "
                                                       "t10_id, t10_name")),
                         model.ranking);
            }
            if (QTest::currentTestFailed())
                return;
            QCOMPARE(support::rows(step.previous()), Model::rows(model.previous, false));
            QCOMPARE(support::rows(step.result()), Model::rows(model.result, true));
            QCOMPARE(step.freeRanks(), model.freeRanks);
            QSet<QString> held;
            for (const Names *names : {&model.previous, &model.result}) {
                for (const Name &name : *names) {
                    const bool isTwice = name.rank != none && held.contains(name.rank);
                    QVERIFY2(withListBox || !isTwice, qPrintable(name.rank));
                    held.insert(name.rank);
                }
            }
        }
    }
};

QTEST_MAIN(TestRankingWalk)
#include "test_rankingwalk.moc"

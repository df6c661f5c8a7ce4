// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/search/searchtab.h"

#include "db/basdatabase.h"
#include "layout/mainlayout.h"
#include "platform/access/collation.h"
#include "platform/access/likepattern.h"
#include "tests/support/gridhand.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

using dictionary::Entry;
using search::ListCriteria;
using search::SearchCriteria;
using search::Sex;

namespace {

const char *const sexButtons[] = {"optSearch_0", "optSearch_1", "optSearch_2"};
const char *const listSexButtons[] = {"optList1_0", "optList1_1", "optList1_2"};
const char *const fieldButtons[] = {"optList_0", "optList_1", "optList_2"};

bool isOfSex(const Entry &entry, Sex sex)
{
    return sex == Sex::Both || entry.sex == (sex == Sex::Boy ? u'B' : u'G');
}

bool isSame(const QString &a, const QString &b)
{
    return dbaccess::compareTexts(a, b) == 0;
}

bool matches(const QString &text, const QString &pattern)
{
    return dbaccess::LikePattern(pattern.toStdString()).matches(text.toStdString());
}

} // namespace

Tab::Tab(const std::vector<Entry> &entries) : m_database(entries)
{
    basDatabase::OpenDatabase();
    m_frame.setParent(&m_window);
    m_frame.InitialiseNameCondition();
    m_frame.InitialiseOrigin();
    m_frame.InitialiseOptions();
    m_frame.InitialiseAlphabet();
    m_frame.setMaxSelect(QStringLiteral("20"));
    m_frame.RefreshSelectCount();
    layout::place(m_window, layout::mainWindowPlacements(layout::ScreenClass::Designed));
    m_window.resize(m_frame.size());
    m_window.show();
}

Tab::~Tab()
{
    basDatabase::WatchStatements({});
    basDatabase::CloseDatabase();
}

void Tab::choose(const SearchCriteria &criteria) const
{
    control<QComboBox>("cboOrigin")->setEditText(criteria.origin);
    control<QLineEdit>("txtSearchName")->setText(criteria.name);
    control<QLineEdit>("txtMeaning")->setText(criteria.meaning);
    control<QComboBox>("cboNameCondition")->setCurrentIndex(int(criteria.nameRule));
    click(sexButtons[int(criteria.sex)]);
    control<QCheckBox>("chkSelected")->setChecked(criteria.tickedOnly);
}

void Tab::choose(const ListCriteria &criteria) const
{
    control<QComboBox>("cboAlphabet")->setCurrentText(criteria.letter);
    click(fieldButtons[int(criteria.field)]);
    click(listSexButtons[int(criteria.sex)]);
}

void Tab::clickCell(int row, int column) const
{
    support::clickCell(page(), row, column);
}

QStringList Tab::rows(const char *grid) const
{
    const auto &page = *control<grid::FlexGrid>(grid);
    const qint64 checked = control<QLabel>("picChecked")->pixmap(Qt::ReturnByValue).cacheKey();
    QStringList texts = support::rows(page);
    for (int row = 1; row < page.rowCount(); ++row) {
        if (page.picture(row, search::TickColumn).cacheKey() == checked)
            texts[row - 1] += u'*';
    }
    return texts;
}

QString rowText(int number, const Entry &entry, bool ticked)
{
    return QStringList({QString::number(number), dbaccess::firstPlainLetter(entry.name), entry.name,
                        entry.sex, entry.origin, entry.meaning,
                        ticked ? QStringLiteral("_*") : QString()})
        .join(u'|');
}

bool isBefore(const Entry &a, const Entry &b)
{
    if (!isSame(a.name, b.name))
        return dbaccess::compareTexts(a.name, b.name) < 0;
    if (a.sex != b.sex)
        return a.sex < b.sex;
    if (!isSame(a.origin, b.origin))
        return dbaccess::compareTexts(a.origin, b.origin) < 0;
    return dbaccess::compareTexts(a.meaning, b.meaning) < 0;
}

bool finds(const SearchCriteria &criteria, const Entry &entry, bool ticked)
{
    using search::NameRule;
    const QString &name = criteria.name;
    const NameRule rule = criteria.nameRule;
    const QString pattern = (rule == NameRule::StartsWith ? QString() : QStringLiteral("%")) % name
                            % (rule == NameRule::EndsWith ? QString() : QStringLiteral("%"));
    const bool nameFits =
        name.isEmpty()
        || (rule == NameRule::Exact ? isSame(entry.name, name) : matches(entry.name, pattern));
    const bool originFits = criteria.origin.isEmpty() || criteria.origin == u"All"
                            || isSame(entry.origin, criteria.origin);
    const bool meaningFits =
        criteria.meaning.isEmpty() || matches(entry.meaning, u'%' % criteria.meaning % u'%');
    return nameFits && originFits && meaningFits && isOfSex(entry, criteria.sex)
           && (!criteria.tickedOnly || ticked);
}

bool finds(const ListCriteria &criteria, const Entry &entry)
{
    using search::ListField;
    const QString &text = criteria.field == ListField::Name      ? entry.name
                          : criteria.field == ListField::Meaning ? entry.meaning
                                                                 : entry.origin;
    return matches(text, criteria.letter % u'%') && isOfSex(entry, criteria.sex);
}

QString RandomWorld::word(int longest)
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

std::vector<Entry> RandomWorld::dictionary(int size)
{
    const QStringList origins {QStringLiteral("Irish"), QStringLiteral("Côte d'Or"),
                               QStringLiteral("côte D'Or 2")};
    std::vector<Entry> entries;
    for (int i = 0; i < size; ++i)
        entries.push_back({word(3), below(2) ? u'B' : u'G', origins[below(3)], word(4)});
    // A name stands once for each origin and sex.
    std::ranges::sort(entries, isBefore);
    const auto isRepeated = [](const Entry &a, const Entry &b) {
        return isSame(a.name, b.name) && a.sex == b.sex && a.origin == b.origin;
    };
    entries.erase(std::unique(entries.begin(), entries.end(), isRepeated), entries.end());
    return entries;
}

SearchCriteria RandomWorld::searchCriteria()
{
    return {.sex = Sex(below(3)),
            .name = below(4) ? word(2) : QString(),
            .nameRule = search::NameRule(below(4)),
            .origin = below(3)   ? QStringLiteral("All")
                      : below(2) ? QStringLiteral("CÔTE D'OR")
                                 : QStringLiteral("Irish "),
            .meaning = below(3) ? QString() : word(2),
            .tickedOnly = below(5) == 0};
}

ListCriteria RandomWorld::listCriteria()
{
    return {.field = search::ListField(below(3)),
            .letter = QStringLiteral("ABCEI").at(below(5)),
            .sex = Sex(below(3))};
}

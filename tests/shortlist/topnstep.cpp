// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/shortlist/topnstep.h"

#include "db/basdatabase.h"
#include "layout/mainlayout.h"

#include <QListWidget>
#include <QTest>

namespace {

QString values(const QStringList &fields)
{
    QStringList quoted;
    for (const QString &field : fields)
        quoted.append(u'\'' % basDatabase::QuoteSQL(field) % u'\'');
    return u" values(" % quoted.join(u',') % u')';
}

} // namespace

TopNStep::TopNStep(const QStringList &shortlist, const QStringList &ranking)
    : m_database({}), opened(&frame, &shortlist::TopNFrame::opened),
      next(&frame, &shortlist::TopNFrame::nextRequested)
{
    basDatabase::OpenDatabase();
    writeShortlist(shortlist);
    for (const QString &row : ranking)
        basDatabase::ExecuteSQL(
            u"insert into tbltopn(t10_id, t10_name, t10_sex, t10_orgid, t10_mid)"
            % values(row.split(u'|')));
    frame.setParent(&m_window);
    frame.setTopN(QStringLiteral("10"));
    frame.setMaxSelect(QStringLiteral("20"));
    layout::place(m_window, layout::mainWindowPlacements(layout::ScreenClass::Designed));
    m_window.resize(frame.size());
    m_window.show();
    frame.CheckResultTable();
}

TopNStep::~TopNStep()
{
    basDatabase::WatchStatements({});
    basDatabase::CloseDatabase();
}

void TopNStep::writeShortlist(const QStringList &shortlist)
{
    basDatabase::ExecuteSQL(QStringLiteral("delete from tblresult"));
    for (const QString &row : shortlist)
        basDatabase::ExecuteSQL(
            u"insert into tblresult(name_desc, name_sex, name_orgid, name_meaning, name_first, "
            u"name_select)"
            % values(row.split(u'|') << row.first(1) << QStringLiteral("Y")));
}

QStringList TopNStep::freeRanks() const
{
    const auto *list = m_window.findChild<QListWidget *>(QStringLiteral("lstTopNList"));
    QStringList ranks;
    for (int place = 0; place < list->count(); ++place)
        ranks.append(list->item(place)->text());
    return ranks;
}

void TopNStep::clickFreeRank(int place) const
{
    auto *list = m_window.findChild<QListWidget *>(QStringLiteral("lstTopNList"));
    list->scrollToItem(list->item(place));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(place)).center());
}

QStringList savedRanking()
{
    return support::table(
        QStringLiteral("select t10_id, t10_name, t10_orgid, t10_sex, t10_mid from tbltopn "
                       "order by t10_id, t10_name, t10_orgid, t10_sex"));
}

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "bench/worksheetactions.h"

#include "bench/measured.h"
#include "db/basdatabase.h"
#include "layout/mainlayout.h"
#include "reports/reportdata.h"
#include "shortlist/topnframe.h"
#include "worksheet/worksheetframe.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace {

constexpr int runs = 15;
constexpr int shortlisted = 20;
constexpr int ranked = 10;

/// Both steps in a window of the large layout.
class Steps
{
public:
    Steps() : m_worksheet([this] { return m_topN.topNNames(); })
    {
        m_topN.setParent(&m_window);
        m_topN.setTopN(QString::number(ranked));
        m_topN.setMaxSelect(QString::number(shortlisted));
        m_worksheet.setParent(&m_window);
        m_worksheet.setTopN(QString::number(ranked));
        layout::place(m_window, layout::mainWindowPlacements(layout::ScreenClass::Large));
        m_window.resize(987, 700);
        m_window.show();
        QObject::connect(&m_topN, &shortlist::TopNFrame::nextRequested, &m_window,
                         [this] { m_worksheet.DisplayInitialRecord(); });
    }

    void open()
    {
        m_topN.CheckResultTable();
        QCoreApplication::processEvents(); // paints
    }

    /// Clicks a button, and the one in the message box that says that all is saved.
    void save(const char *button)
    {
        QTimer::singleShot(0, &m_window, [] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            box->buttons().constFirst()->click();
        });
        m_window.findChild<QAbstractButton *>(QLatin1String(button))->click();
        QCoreApplication::processEvents();
    }

private:
    QWidget m_window;
    shortlist::TopNFrame m_topN;
    worksheet::WorksheetFrame m_worksheet;
};

void fillTables()
{
    const auto run = [](const QString &sql) { basDatabase::ExecuteSQL(sql); };
    run(QStringLiteral("delete from tblresult"));
    run(QStringLiteral("delete from tbltopn"));
    run(QStringLiteral("delete from tblinitial"));
    run(QStringLiteral("insert into tblresult(name_desc, name_orgid, name_sex, name_meaning, "
                       "name_first, name_select) select top %1 name_desc, org_desc, name_sex, "
                       "meaning_name, name_first, 'Y' from tblmaster, tblmeaning, tblorg where "
                       "name_mid = meaning_id and name_orgid = org_id order by name_desc, "
                       "name_sex, org_desc, meaning_name")
            .arg(shortlisted));
    auto names = basDatabase::OpenRecordset(QStringLiteral("select * from tblresult"));
    for (const QString &rank : shortlist::ranksUpTo(QString::number(ranked))) {
        run(shortlist::rankInsert({.name = names->text(u"name_desc"),
                                   .origin = names->text(u"name_orgid"),
                                   .sex = names->text(u"name_sex"),
                                   .meaning = names->text(u"name_meaning"),
                                   .rank = rank}));
        names->moveNext();
    }
}

} // namespace

void benchWorksheet(const Measured &measured)
{
    fillTables();
    Steps steps;
    measured.action("open the ranking", runs, [&] { steps.open(); });
    for (const bool withSyncs : {true, false}) {
        const QString synchronous = withSyncs ? QStringLiteral("full") : QStringLiteral("off");
        basDatabase::ExecuteSQL(u"pragma synchronous = " % synchronous);
        measured.bare().fetch("pragma synchronous = " + synchronous.toUtf8());
        measured.action(withSyncs ? "save the ranking" : "ranking, no disk syncs", runs,
                        [&] { steps.save("cmdSaveTopN"); });
        measured.action(withSyncs ? "save the full names" : "full names, no syncs", runs,
                        [&] { steps.save("cmdSaveInitial"); });
        measured.action(withSyncs ? "text of the report" : "report, no disk syncs", runs, [] {
            const QString topN = QString::number(ranked);
            reports::FillTempTopN(topN);
            reports::topNReport({}, topN, reports::rankedNames(), reports::unrankedNames());
        });
    }
    basDatabase::ExecuteSQL(QStringLiteral("pragma synchronous = full"));
}

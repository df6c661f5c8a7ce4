// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// bench FOLDER [SIZE...]   what the user's actions cost, beside the same rows fetched by a
//                          hand-written statement on the bare engine, in the same run. Databases
//                          are made in FOLDER. Sizes: 10000 30000 1000000 unless given.

#include "bench/bareengine.h"
#include "bench/startup.h"
#include "bench/statements.h"
#include "bench/timing.h"
#include "bench/worksheetactions.h"
#include "bench/worlds.h"
#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "layout/mainlayout.h"
#include "platform/grid/flexgrid.h"
#include "search/searchframe.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>
#include <cstdio>
#include <limits>

using timing::medianOf;
using timing::mediansOf;

namespace {

/// Runs statements one by one; answers how many rows there were.
int runOurs(const QStringList &texts)
{
    int rows = 0;
    for (const QString &sql : texts) {
        if (sql.startsWith(u"select"))
            rows += int(basDatabase::OpenRecordset(sql)->rowCount());
        else
            basDatabase::ExecuteSQL(sql);
    }
    return rows;
}

void benchStatements(int size, const BareEngine &bare)
{
    std::vector<statements::Pair> pairs = statements::starts();
    std::ranges::move(statements::moves(bare), std::back_inserter(pairs));
    for (const statements::Pair &pair : pairs) {
        const int runs = size > 100000 ? 15 : 41;
        int rows = 0;
        int bareRows = 0;
        const auto [ours, theirs] = mediansOf(
            runs, [&] { rows = runOurs(pair.ours); },
            [&] {
                bareRows = 0;
                for (const QByteArray &sql : pair.bare)
                    bareRows += int(bare.fetch(sql).size());
            });
        std::printf("%9d  %-24s %10.0f %10.0f %7.2f%s\n", size, qPrintable(pair.name), ours, theirs,
                    ours / theirs, rows == bareRows ? "" : "  other rows!");
    }
}

/// The whole of a click: statements, grid, row fitting, painting.
void benchActions(int size)
{
    QWidget window;
    search::SearchFrame frame(&window);
    frame.InitialiseNameCondition();
    frame.InitialiseOrigin();
    frame.InitialiseOptions();
    frame.InitialiseAlphabet();
    layout::place(window, layout::mainWindowPlacements(layout::ScreenClass::Large));
    frame.setGeometry(0, 0, 987, 700);
    window.resize(987, 700);
    window.show();
    QCoreApplication::processEvents();
    const auto control = [&window](const char *name) {
        return window.findChild<QWidget *>(QLatin1String(name));
    };
    const auto click = [&](const char *button) {
        qobject_cast<QAbstractButton *>(control(button))->click();
        QCoreApplication::processEvents(); // paints
    };
    const auto report = [size](const char *name, double microseconds) {
        std::printf("%9d  %-24s %10.0f %10s %7s\n", size, name, microseconds, "", "");
    };
    const int runs = size > 100000 ? 5 : 31;
    report("click List (A, boys)", medianOf(runs, [&] { click("cmdList"); }));
    qobject_cast<QAbstractButton *>(control("optSearch_2"))->click();
    report("click Search (all)", medianOf(runs, [&] { click("cmdSearch"); }));
    report("click next page", medianOf(runs, [&] { click("cmdPageUp"); }));
    report("click previous page", medianOf(runs - 1, [&] { click("cmdPageDown"); }));
    const bool endHasNumbers = size <= std::numeric_limits<std::int16_t>::max();
    if (endHasNumbers) {
        for (int page = size / 200; page > 1; --page)
            click("cmdPageUp");
        report("click next, halfway", medianOf(runs, [&] { click("cmdPageUp"); }));
        report("click previous, halfway", medianOf(runs, [&] { click("cmdPageDown"); }));
        qobject_cast<QAbstractButton *>(control("optSearch_0"))->click();
        report("click last page (boys)",
               medianOf(
                   runs, [&] { click("cmdLastPage"); }, [&] { click("cmdSearch"); }));
        report("click previous, at the end", medianOf(runs, [&] { click("cmdPageDown"); }));
    }
    auto *grid = static_cast<grid::FlexGrid *>(control("msSearchList"));
    report("click a tick", medianOf(runs, [&] {
               Q_EMIT grid->cellClicked(1, search::TickColumn);
               QCoreApplication::processEvents();
           }));
    qobject_cast<QAbstractButton *>(control("optSearch_2"))->click();
    qobject_cast<QComboBox *>(control("cboNameCondition"))->setCurrentIndex(1);
    qobject_cast<QLineEdit *>(control("txtSearchName"))->setText(QStringLiteral("Ma"));
    report("click Search (prefix)", medianOf(runs, [&] { click("cmdSearch"); }));
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2) {
        std::fputs("Usage: bench FOLDER [SIZE...]\n", stderr);
        return 2;
    }
    QList<int> sizes;
    for (const QString &size : arguments.sliced(2))
        sizes.append(size.toInt());
    if (sizes.isEmpty())
        sizes = {10000, 30000, 1000000};
    QStringList folders;
    std::printf("%9s  %-24s %10s %10s %7s\n", "names", "action", "ours, us", "bare, us", "ratio");
    for (const int size : sizes) {
        basTovarin::SetProgramFolder(worlds::database(arguments[1], size));
        basDatabase::OpenDatabase();
        benchStatements(size, BareEngine(basTovarin::ProgramFolder() % u"/Tovarin.mdb"));
        benchActions(size);
        benchWorksheet(size, BareEngine(basTovarin::ProgramFolder() % u"/Tovarin.mdb"));
        folders.append(basTovarin::ProgramFolder());
        basDatabase::CloseDatabase();
        std::fflush(stdout);
    }
    benchStartup(folders);
    return 0;
}

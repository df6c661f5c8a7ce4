// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// bench FOLDER [SIZE...]   what the program's statements cost beside hand-written ones for the same
//                          rows on the bare engine, and the user's actions beside their statements
//                          on the bare engine, in the same run. Databases are made in FOLDER.
//                          Sizes: 10000 30000 1000000 unless given.

#include "bench/measured.h"
#include "bench/startup.h"
#include "bench/statements.h"
#include "bench/table.h"
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

#include <cstdio>
#include <limits>

namespace {

void benchStatements(const Measured &measured)
{
    for (const statements::Pair &pair : statements::starts())
        measured.statements(pair);
    for (const statements::Pair &pair : statements::moves(measured.bare()))
        measured.statements(pair);
}

/// The whole of a click: statements, grid, row fitting, painting.
void benchActions(const Measured &measured)
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
    const int runs = measured.names() > 100000 ? 5 : 31;
    measured.action("click List (A, boys)", runs, [&] { click("cmdList"); });
    qobject_cast<QAbstractButton *>(control("optSearch_2"))->click();
    measured.action("click Search (all)", runs, [&] { click("cmdSearch"); });
    measured.action("click next page", runs, [&] { click("cmdPageUp"); });
    measured.action("click previous page", runs, [&] { click("cmdPageDown"); });
    const bool endHasNumbers = measured.names() <= std::numeric_limits<std::int16_t>::max();
    if (endHasNumbers) {
        for (int page = measured.names() / 200; page > 1; --page)
            click("cmdPageUp");
        measured.action("click next, halfway", runs, [&] { click("cmdPageUp"); });
        measured.action("click previous, halfway", runs, [&] { click("cmdPageDown"); });
        qobject_cast<QAbstractButton *>(control("optSearch_0"))->click();
        measured.action(
            "click last page (boys)", runs, [&] { click("cmdLastPage"); },
            [&] { click("cmdSearch"); });
        measured.action("click previous, at the end", runs, [&] { click("cmdPageDown"); });
    }
    auto *grid = static_cast<grid::FlexGrid *>(control("msSearchList"));
    // To and fro, as what changes nothing costs the engine less.
    measured.action("tick a name, untick it", runs, [&] {
        for (int i = 0; i < 2; ++i) {
            Q_EMIT grid->cellClicked(1, search::TickColumn);
            QCoreApplication::processEvents();
        }
    });
    qobject_cast<QAbstractButton *>(control("optSearch_2"))->click();
    auto *condition = qobject_cast<QComboBox *>(control("cboNameCondition"));
    auto *name = qobject_cast<QLineEdit *>(control("txtSearchName"));
    condition->setCurrentText(QStringLiteral("Starts With"));
    name->setText(QStringLiteral("Ma"));
    measured.action("click Search (prefix)", runs, [&] { click("cmdSearch"); });
    condition->setCurrentText(QStringLiteral("Contains"));
    name->setText(QStringLiteral("lur"));
    measured.action("click Search (contains)", runs, [&] { click("cmdSearch"); });
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
    Table table;
    for (const int size : sizes) {
        basTovarin::SetProgramFolder(worlds::database(arguments[1], size));
        basDatabase::OpenDatabase();
        const Measured measured(table, size);
        benchStatements(measured);
        benchActions(measured);
        benchWorksheet(measured);
        folders.append(basTovarin::ProgramFolder());
        basDatabase::CloseDatabase();
    }
    table.print();
    std::fflush(stdout);
    benchStartup(folders);
    return 0;
}

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// bench FOLDER [SIZE...]   what the user's actions cost, beside the same rows fetched by a
//                          hand-written statement on the bare engine, in the same run. Databases
//                          are made in FOLDER. Sizes: 10000 30000 1000000 unless given.

#include "bench/worlds.h"
#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "layout/mainlayout.h"
#include "platform/access/collation.h"
#include "platform/access/filestamp.h"
#include "platform/access/likepattern.h"
#include "search/criteria.h"
#include "search/pagequeries.h"
#include "search/searchframe.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

/// Microseconds; the lower the quieter the machine was, so the median of many runs is taken.
double medianOf(int runs, const std::function<void()> &action)
{
    action(); // warms the caches for both sides alike
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        action();
        times.push_back(double(timer.nsecsElapsed()) / 1000.0);
    }
    std::ranges::nth_element(times, times.begin() + runs / 2);
    return times[std::size_t(runs / 2)];
}

/// The engine without this program's layer, but for the collation that the file's indexes need.
class BareEngine
{
public:
    explicit BareEngine(const QString &file)
    {
        sqlite3_open(file.toUtf8().constData(), &m_handle);
        const auto collate = [](void *, int lengthA, const void *a, int lengthB, const void *b) {
            return dbaccess::compareTexts(
                std::string_view(static_cast<const char *>(a), std::size_t(lengthA)),
                std::string_view(static_cast<const char *>(b), std::size_t(lengthB)));
        };
        sqlite3_create_collation_v2(m_handle, dbaccess::collationName, SQLITE_UTF8, nullptr,
                                    collate, nullptr);
    }
    ~BareEngine() { sqlite3_close(m_handle); }
    Q_DISABLE_COPY_MOVE(BareEngine)

    /// Runs a query and takes over its rows as texts; answers how many there were.
    int fetch(const char *sql) const
    {
        sqlite3_stmt *statement = nullptr;
        if (sqlite3_prepare_v2(m_handle, sql, -1, &statement, nullptr) != SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(m_handle));
        std::vector<std::vector<QString>> rows;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            std::vector<QString> &row = rows.emplace_back();
            for (int i = 0; i < sqlite3_column_count(statement); ++i)
                row.push_back(QString::fromUtf8(
                    reinterpret_cast<const char *>(sqlite3_column_text(statement, i))));
        }
        sqlite3_finalize(statement);
        return int(rows.size());
    }

private:
    sqlite3 *m_handle = nullptr;
};

/// A statement of the program, and the best that one would write by hand for the same rows.
struct Pair
{
    const char *name;
    QString ours;
    QByteArray bare;
};

constexpr char pageColumns[] = "select name_first, name_desc, name_sex, org_desc, meaning_name, "
                               "name_select from tblmaster, tblmeaning, tblorg ";
constexpr char joins[] = "name_mid = meaning_id and name_orgid = org_id ";
constexpr char pageOrder[] = "order by name_desc, name_sex, org_desc, meaning_name limit 100";
constexpr char countColumns[] =
    "select count(*) from tblmaster, tblmeaning, tblorg where name_mid = meaning_id and "
    "name_orgid = org_id ";

std::vector<Pair> pairs()
{
    using search::SearchCriteria;
    const auto clause = [](const SearchCriteria &criteria) {
        return search::criteriaClause(criteria);
    };
    const auto page = [](const QByteArray &condition) -> QByteArray {
        return QByteArray(pageColumns) + "where " + condition + joins + pageOrder;
    };
    const QString everything = clause({.sex = search::Sex::Both});
    const QString prefix = clause({.sex = search::Sex::Both,
                                   .name = QStringLiteral("Ma"),
                                   .nameRule = search::NameRule::StartsWith});
    const QString contains = clause({.sex = search::Sex::Both,
                                     .name = QStringLiteral("lur"),
                                     .nameRule = search::NameRule::Contains});
    const QString origin =
        clause({.sex = search::Sex::Both, .origin = QStringLiteral("Origin 07")});
    const QString boys = clause({.sex = search::Sex::Boy});
    const QByteArray prefixRange = "name_desc >= 'Ma' and name_desc < 'Mb' ";
    const QString lastPage =
        u"select top 50 name_first, name_desc, name_sex, org_desc, meaning_name, name_select "
        u"from tblmaster, tblmeaning, tblorg "
        % everything % u"order by name_desc desc, name_sex desc, org_desc desc, meaning_name desc ";
    return {
        {"first page, all", search::firstPageQuery(everything), page("")},
        {"first page, boys", search::firstPageQuery(boys), page("name_sex = 'B' and ")},
        {"first page, prefix", search::firstPageQuery(prefix), page(prefixRange + "and ")},
        {"first page, contains", search::firstPageQuery(contains),
         page("name_desc like '%lur%' and ")},
        {"first page, origin", search::firstPageQuery(origin), page("org_desc = 'Origin 07' and ")},
        {"last page", lastPage,
         QByteArray(pageColumns) + "where " + joins
             + "order by name_desc desc, name_sex desc, org_desc desc, meaning_name desc limit 50"},
        {"count, all", search::countQuery(everything), countColumns},
        {"count, prefix", search::countQuery(prefix),
         countColumns + QByteArray("and ") + prefixRange},
        {"count, contains", search::countQuery(contains),
         countColumns + QByteArray("and name_desc like '%lur%'")},
        {"count, origin", search::countQuery(origin),
         countColumns + QByteArray("and org_desc = 'Origin 07'")},
        {"count, ticks", search::tickCountQuery(),
         "select count(*) from tblmaster where name_select = 'Y'"},
    };
}

void benchStatements(int size, const BareEngine &bare)
{
    for (const Pair &pair : pairs()) {
        const int runs = size > 100000 ? 7 : 41;
        int rows = 0;
        const double ours =
            medianOf(runs, [&] { rows = int(basDatabase::OpenRecordset(pair.ours)->rowCount()); });
        int bareRows = 0;
        const double theirs = medianOf(runs, [&] { bareRows = bare.fetch(pair.bare.constData()); });
        std::printf("%9d  %-24s %10.0f %10.0f %7.2f%s\n", size, pair.name, ours, theirs,
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
    qobject_cast<QComboBox *>(control("cboNameCondition"))->setCurrentIndex(1);
    qobject_cast<QLineEdit *>(control("txtSearchName"))->setText(QStringLiteral("Ma"));
    report("click Search (prefix)", medianOf(runs, [&] { click("cmdSearch"); }));
}

/// Milliseconds from the start of a process until its window is to be seen.
double startTime(const QString &program, const QString &window)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(PLUGIN_FOLDER));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("pilot"));
    environment.insert(QStringLiteral("PILOT_SCRIPT"), u"print " % window);
    const QByteArray line = QString(window % u": ").toUtf8();
    return medianOf(15,
                    [&] {
                        QProcess process;
                        process.setProcessEnvironment(environment);
                        process.setReadChannel(QProcess::StandardError);
                        process.start(program, {});
                        QByteArray said;
                        while (!said.contains(line) && process.waitForReadyRead(20000))
                            said += process.readAllStandardError();
                        process.kill();
                        process.waitForFinished();
                    })
           / 1000.0;
}

void benchStart()
{
    const double splash = startTime(QStringLiteral(PROGRAM), QStringLiteral("frmSplash"));
    const double empty = startTime(QStringLiteral(EMPTY_WINDOW), QStringLiteral("emptyWindow"));
    std::printf("\nstart to splash %.0f ms, to an empty window %.0f ms, ratio %.2f\n", splash,
                empty, splash / empty);
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
    std::printf("%9s  %-24s %10s %10s %7s\n", "names", "action", "ours, us", "bare, us", "ratio");
    for (const int size : sizes) {
        basTovarin::SetProgramFolder(worlds::database(arguments[1], size));
        basDatabase::OpenDatabase();
        benchStatements(size, BareEngine(basTovarin::ProgramFolder() % u"/Tovarin.mdb"));
        benchActions(size);
        basDatabase::CloseDatabase();
        std::fflush(stdout);
    }
    benchStart();
    return 0;
}

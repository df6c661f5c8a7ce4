// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "bench/startup.h"

#include "bench/timing.h"
#include "upgrade/programfolder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <vector>

namespace {

constexpr int runs = 15;
constexpr int timeout = 60000; // milliseconds

/// A program that follows a script of the pilot's.
class Session
{
public:
    Session(const QString &program, const QStringList &arguments, const QString &script)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(PLUGIN_FOLDER));
        environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("pilot"));
        environment.insert(QStringLiteral("PILOT_SCRIPT"), script);
        m_process.setProcessEnvironment(environment);
        m_process.setReadChannel(QProcess::StandardError);
        m_timer.start();
        m_process.start(program, arguments);
    }
    ~Session()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    /// Milliseconds from the start until the pilot has printed so many lines on controls.
    double timeOfLine(int count)
    {
        while (linesSaid() < count && m_process.waitForReadyRead(timeout))
            m_said += m_process.readAllStandardError();
        if (linesSaid() < count)
            qFatal("the program does not come up: %s", m_said.constData());
        return double(m_timer.nsecsElapsed()) / 1e6;
    }

    /// What this process and those it has started take, in MiB; what they share is counted once.
    /// 0 where the system does not tell, as only Linux does.
    double memory() const { return double(proportionalSize(m_process.processId())) / 1024.0; }

private:
    int linesSaid() const
    {
        int lines = 0;
        for (const QByteArray &line : m_said.split('\n'))
            lines += line.startsWith("frm") || line.startsWith("lbl") || line.startsWith("empty");
        return lines;
    }

    static QByteArray read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static qint64 proportionalSize(qint64 process) // in KiB
    {
#ifndef Q_OS_LINUX
        return 0; // and what Wine shows of a Linux has other numbers for its processes
#endif
        const QString folder = QStringLiteral("/proc/%1/").arg(process);
        const QByteArray sizes = read(folder % u"smaps_rollup");
        const qsizetype at = sizes.indexOf("\nPss:");
        qint64 size = at < 0 ? 0 : sizes.mid(at + 5).trimmed().split(' ').first().toLongLong();
        for (const QString &task :
             QDir(folder % u"task").entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            for (const QByteArray &child : read(folder % u"task/" % task % u"/children").split(' '))
                if (const qint64 id = child.toLongLong(); id > 0)
                    size += proportionalSize(id);
        return size;
    }

    QProcess m_process;
    QElapsedTimer m_timer;
    QByteArray m_said;
};

/// One way to come up: a program, and the script that prints a line when it is there.
struct Start
{
    QString program;
    QStringList arguments;
    QString script;
    int lines = 1;
};

struct Cost
{
    double time = 0;   ///< milliseconds
    double memory = 0; ///< MiB
};

/// The medians of both, which take turns.
std::pair<Cost, Cost> costsOf(const Start &ours, const Start &empty)
{
    std::vector<double> times[2];
    std::vector<double> memories[2];
    for (int run = 0; run < runs; ++run) {
        for (const bool isEmpty : {false, true}) {
            const Start &start = isEmpty ? empty : ours;
            Session session(start.program, start.arguments, start.script);
            times[isEmpty].push_back(session.timeOfLine(start.lines));
            memories[isEmpty].push_back(session.memory());
        }
    }
    return {{timing::medianOf(times[0]), timing::medianOf(memories[0])},
            {timing::medianOf(times[1]), timing::medianOf(memories[1])}};
}

void report(const char *name, const Start &ours, const Start &empty)
{
    const auto [cost, bare] = costsOf(ours, empty);
    const auto known = [](double memory) {
        return memory > 0 ? QByteArray::number(memory, 'f', 0) : QByteArray("-");
    };
    std::printf("%-34s %7.0f %7.0f %7.2f %9s %9s\n", name, cost.time, bare.time,
                cost.time / bare.time, known(cost.memory).constData(),
                known(bare.memory).constData());
    std::fflush(stdout);
}

QString programIn(const QString &folder)
{
    return folder % u'/' % upgrade::executableName();
}

/// The program's folder with the database of a world.
void reportWorld(const QString &world, const QString &folder, const Start &empty)
{
    for (const char *name : {"Tovarin.mdb", "tovarin.dll"}) {
        const QString file = folder % u'/' % QLatin1String(name);
        QFile::remove(file);
        if (!QFile::copy(world % u'/' % QLatin1String(name), file))
            qFatal("can't copy %s", qPrintable(file));
    }
    report(qPrintable(QString(u"search of " % QDir(world).dirName() % u" names")),
           {programIn(folder),
            {},
            QStringLiteral("click cmdOK;tab 2;click optSearch_2;click cmdSearch;print lblPage")},
           empty);
}

} // namespace

void benchStartup(const QStringList &worlds)
{
    const QTemporaryDir folder;
    upgrade::place(QStringLiteral(SHIPPED_FOLDER), folder.path());
    const QString program = programIn(folder.path());
    const QString bare = QStringLiteral(EMPTY_WINDOW);
    const Start emptyWindow {bare, {}, QStringLiteral("print emptyWindow")};
    const Start emptyPage {bare,
                           {folder.filePath(QStringLiteral("things.htm"))},
                           QStringLiteral("page emptyPane;print emptyWindow")};
    std::printf("\n%-34s %7s %7s %7s %9s %9s\n", "from the process's start to", "ours,ms",
                "bare,ms", "ratio", "ours,MiB", "bare,MiB");
    report("the splash window", {program, {}, QStringLiteral("print frmSplash")}, emptyWindow);
    report("the main window, splash clicked",
           {program, {}, QStringLiteral("click cmdOK;print frmInfo")}, emptyWindow);
    report("the first page in its pane",
           {program, {}, QStringLiteral("click cmdOK;page dhtmThings;print frmInfo")}, emptyPage);
    for (const QString &world : worlds)
        reportWorld(world, folder.path(), emptyPage);
}

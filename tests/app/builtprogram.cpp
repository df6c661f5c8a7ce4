// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/app/builtprogram.h"

#include "tests/support/brokendisks.h"
#include "upgrade/programfolder.h"

#include <QFile>

ProgramFolder::ProgramFolder(const QString &path) : m_path(path.isEmpty() ? m_folder.path() : path)
{
    place();
}

void ProgramFolder::place() const
{
    upgrade::place(QStringLiteral(SHIPPED_FOLDER), m_path);
}

QString ProgramFolder::file(const char *name) const
{
    return m_path % u'/' % QLatin1String(name);
}

QByteArray ProgramFolder::content(const char *name) const
{
    QFile in(file(name));
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

void ProgramFolder::replace(const char *name, const QByteArray &content) const
{
    QFile out(file(name));
    if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size())
        qFatal("can't write %s", name);
}

QProcessEnvironment pilotEnvironment(const QString &script)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(PLUGIN_FOLDER));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("pilot"));
    environment.insert(QStringLiteral("PILOT_SCRIPT"), script);
    return environment;
}

QStringList linesOfPilot(const QByteArray &said)
{
    QStringList lines;
    for (QString line : QString::fromUtf8(said).split(u'\n')) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        for (const QStringView kind : {u"box: ", u"lbl", u"frm", u"ms", u"tick: ", u"rows: "}) {
            if (line.startsWith(kind))
                lines.append(line);
        }
    }
    return lines;
}

QStringList asOrdinaryUser()
{
    return support::isSuperuser()
               ? QStringList {QStringLiteral("setpriv"), QStringLiteral("--bounding-set=-all")}
               : QStringList();
}

void startProgram(QProcess &program, const ProgramFolder &folder, const QString &script,
                  const QStringList &wrapper)
{
    program.setProcessEnvironment(pilotEnvironment(script));
    program.setReadChannel(QProcess::StandardError);
    const QStringList command =
        wrapper + QStringList(folder.path() % u'/' % upgrade::executableName());
    program.start(command.first(), command.sliced(1));
}

Run finish(QProcess &program)
{
    if (!program.waitForFinished(programTimeout)) {
        program.kill();
        program.waitForFinished();
        qWarning("%s", program.readAllStandardError().constData());
        return {};
    }
    return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -2,
            linesOfPilot(program.readAllStandardError())};
}

Run runProgram(const ProgramFolder &folder, const QString &script, const QStringList &wrapper)
{
    QProcess program;
    startProgram(program, folder, script, wrapper);
    return finish(program);
}

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/app/builtprogram.h"

#include <QDir>
#include <QFile>

static constexpr int programTimeout = 60000; // milliseconds

ProgramFolder::ProgramFolder()
{
    const QDir built(QStringLiteral(PROGRAM_FOLDER));
    for (const QString &name : built.entryList(QDir::Files)) {
        const bool isUserFile = name.compare(u"Tovarin.mdb", Qt::CaseInsensitive) == 0
                                || name.compare(u"tovarin.dll", Qt::CaseInsensitive) == 0;
        const QDir from(isUserFile ? QStringLiteral(SHIPPED_FOLDER) : built.path());
        if (!QFile::copy(from.filePath(name), m_folder.filePath(name)))
            qFatal("can't copy %s", qPrintable(name));
    }
}

void ProgramFolder::replace(const char *name, const QByteArray &content) const
{
    QFile out(file(name));
    if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size())
        qFatal("can't write %s", name);
}

void startProgram(QProcess &program, const ProgramFolder &folder, const QString &script)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(PLUGIN_FOLDER));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("pilot"));
    environment.insert(QStringLiteral("PILOT_SCRIPT"), script);
    program.setProcessEnvironment(environment);
    program.setReadChannel(QProcess::StandardError);
    program.start(folder.file("tovarin"), {});
}

Run finish(QProcess &program)
{
    if (!program.waitForFinished(programTimeout)) {
        program.kill();
        program.waitForFinished();
        qWarning("%s", program.readAllStandardError().constData());
        return {};
    }
    Run run {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -2, {}};
    for (const QString &line : QString::fromUtf8(program.readAllStandardError()).split(u'\n')) {
        for (const QStringView kind : {u"box: ", u"lbl", u"frm", u"ms", u"tick: ", u"rows: "}) {
            if (line.startsWith(kind))
                run.said.append(line);
        }
    }
    return run;
}

Run runProgram(const ProgramFolder &folder, const QString &script)
{
    QProcess program;
    startProgram(program, folder, script);
    return finish(program);
}

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// A program folder like the shipped one.
class ProgramFolder
{
public:
    ProgramFolder();

    QString path() const { return m_folder.path(); }
    QString file(const char *name) const { return m_folder.filePath(QLatin1String(name)); }
    void replace(const char *name, const QByteArray &content) const;

private:
    QTemporaryDir m_folder;
};

/// Starts the program of a folder with a script for the pilot, see tests/support/pilot/pilot.h.
void startProgram(QProcess &program, const ProgramFolder &folder, const QString &script);

struct Run
{
    int exitCode = -1;
    QStringList said; ///< what the pilot printed
};

/// Waits for the end of a program that was started.
Run finish(QProcess &program);

/// Starts the program and waits for its end.
Run runProgram(const ProgramFolder &folder, const QString &script);

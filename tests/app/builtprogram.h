// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// A program folder like the shipped one.
class ProgramFolder
{
public:
    /// @param path  an empty folder; one of its own if there is none
    explicit ProgramFolder(const QString &path = {});

    /// Puts everything there that ships and is not there.
    void place() const;

    QString path() const { return m_path; }
    QString file(const char *name) const;
    QByteArray content(const char *name) const;
    void replace(const char *name, const QByteArray &content) const;

private:
    QTemporaryDir m_folder;
    QString m_path;
};

inline constexpr int programTimeout = 60000; ///< milliseconds

/// An environment in which the pilot follows a script, see tests/support/pilot/pilot.h.
QProcessEnvironment pilotEnvironment(const QString &script);

/// What the pilot says, of all that a program writes.
QStringList linesOfPilot(const QByteArray &said);

/// A command that starts another one as an ordinary user has it, for whom a read-only file is just
/// that: for a superuser, without the rights that go beyond those of a file's owner.
QStringList asOrdinaryUser();

/// Starts the program of a folder with a script for the pilot.
/// @param wrapper  a command that starts the program; empty for none
void startProgram(QProcess &program, const ProgramFolder &folder, const QString &script,
                  const QStringList &wrapper = {});

struct Run
{
    int exitCode = -1;
    QStringList said; ///< what the pilot printed
};

/// Waits for the end of a program that was started.
Run finish(QProcess &program);

/// Starts the program and waits for its end.
Run runProgram(const ProgramFolder &folder, const QString &script, const QStringList &wrapper = {});

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "upgrade/programfolder.h"

#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "platform/access/connection.h"
#include "platform/access/databaserenewal.h"
#include "platform/access/engineerror.h"
#include "platform/access/openedfile.h"
#include "upgrade/backup.h"
#include "upgrade/carryover.h"
#include "upgrade/stagedfile.h"

#include <QDir>
#include <QFile>
#include <QLockFile>

#include <filesystem>
#include <vector>

namespace upgrade {

namespace {

using dbaccess::EngineError;

// Milliseconds. A placement takes a fraction of a second; a copy that was killed before it had
// written whose lock it is leaves one that only gets old.
constexpr int lockTimeout = 30000;
constexpr int staleLockTime = 5000;

QString databaseName()
{
    return QStringLiteral("Tovarin.mdb");
}

QString keyFileName()
{
    return QStringLiteral("tovarin.dll");
}

/// In a shipped folder the program can't be started; what somebody ticked there would be lost.
bool isProgram(const QString &name)
{
    return name == executableName();
}

/// The connection string of a folder's database, with the password of a folder's key file.
QString connectionText(const QDir &keyFolder, const QDir &databaseFolder)
{
    basTovarin::SetProgramFolder(keyFolder.path());
    const QString password = basTovarin::ReadPassword();
    basTovarin::SetProgramFolder(databaseFolder.path());
    return basDatabase::ConnectionText(password);
}

dbaccess::FileState stateOf(const QDir &folder)
{
    return dbaccess::stateOfFile(connectionText(folder, folder));
}

bool meansNoDatabaseOfOurs(const EngineError &error)
{
    using Reason = EngineError::Reason;
    switch (error.reason()) {
    case Reason::NotADatabase:
    case Reason::AccessDenied:
    case Reason::UnknownTable:
    case Reason::UnknownColumn:
        return true;
    default:
        return false;
    }
}

/// Both folders of a placement, and its steps.
class Placer
{
public:
    Placer(const QString &shippedFolder, const QString &programFolder)
        : m_shipped(shippedFolder), m_program(programFolder)
    {
    }

    /// Whether there is nothing to do; then nothing needs to be written, nor can have to be.
    bool isCurrent() const
    {
        try {
            if (!QFile::exists(database()) || !changedFiles().isEmpty())
                return false;
            const dbaccess::FileState state = stateOf(m_program);
            return state.hasCurrentCollation && state.edition == stateOf(m_shipped).edition;
        } catch (const EngineError &) {
            return false;
        }
    }

    Placement run() const
    {
        checkShippedDatabase();
        std::vector<StagedFile> staged;
        for (const QString &name : changedFiles())
            staged.push_back(stage(name));
        const Placement placement = QFile::exists(database()) ? renewDatabase() : placeDatabase();
        for (const StagedFile &file : staged)
            file.putInPlace();
        return placement;
    }

private:
    QString database() const { return m_program.filePath(databaseName()); }

    void checkShippedDatabase() const
    {
        try {
            stateOf(m_shipped);
        } catch (const EngineError &error) {
            throw PlaceError(QStringLiteral("The dictionary that came with Tovarin can't be used. "
                                            "%1 Please install Tovarin again.")
                                 .arg(error.message()));
        }
    }

    /// What ships, other than the database and its key file, and is not there as it ships.
    QStringList changedFiles() const
    {
        QStringList changed;
        for (const QString &name : m_shipped.entryList(QDir::Files)) {
            const bool isDatabase = name == databaseName() || name == keyFileName();
            if (!isDatabase && !isSame(name))
                changed.append(name);
        }
        return changed;
    }

    StagedFile stage(const QString &name) const
    {
        return {m_shipped.filePath(name), m_program, isProgram(name)};
    }

    bool isSame(const QString &name) const
    {
        const QFileInfo there(m_program.filePath(name));
        const QFileInfo shipped(m_shipped.filePath(name));
        return there.exists() && there.size() == shipped.size()
               && (there.isExecutable() || !isProgram(name))
               && contentOf(there.filePath()) == contentOf(shipped.filePath());
    }

    Placement placeDatabase() const
    {
        if (QFile::exists(database() % u"-journal"))
            setDatabaseAside(m_program.path());
        const StagedFile key = stage(keyFileName());
        const StagedFile file = stage(databaseName());
        key.putInPlace();
        file.putInPlace();
        return {.outcome = Outcome::New};
    }

    Placement renewDatabase() const
    {
        try {
            dbaccess::DatabaseRenewal renewal(connectionWithAnyKey(),
                                              m_shipped.filePath(databaseName()));
            if (renewal.isSameEdition())
                return {};
            if (!holdsUserData(renewal)) {
                carryOver(renewal);
                renewal.commit();
                return {.outcome = Outcome::New};
            }
            Backup backup(m_program, renewal);
            const CarriedOver carried = carryOver(renewal);
            backup.finish(carried.gone);
            renewal.commit();
            backup.keep();
            return {Outcome::CarriedOver, carried, backup.copy(), backup.list(), {}};
        } catch (const EngineError &error) {
            if (meansNoDatabaseOfOurs(error))
                return {.outcome = Outcome::KeptUnknown, .problem = error.message()};
            throw PlaceError(error.message());
        }
    }

    /// A key file that is lost or spoilt is replaced by the shipped one, if that fits.
    QString connectionWithAnyKey() const
    {
        try {
            dbaccess::Connection connection;
            const QString text = connectionText(m_program, m_program);
            connection.open(text);
            return text;
        } catch (const EngineError &error) {
            using Reason = EngineError::Reason;
            if (error.reason() != Reason::AccessDenied && error.reason() != Reason::MissingFile)
                throw;
        }
        dbaccess::Connection connection;
        const QString text = connectionText(m_shipped, m_program);
        connection.open(text);
        stage(keyFileName()).putInPlace();
        return text;
    }

    QDir m_shipped;
    QDir m_program;
};

/// Removes what is not in place: what a placement that was killed has left, and what this one may
/// leave.
class HalfFiles
{
public:
    explicit HalfFiles(const QDir &program) : m_program(program) { remove(); }
    ~HalfFiles() { remove(); }
    HalfFiles(const HalfFiles &) = delete;
    HalfFiles &operator=(const HalfFiles &) = delete;

private:
    void remove() const
    {
        // Of a link there only the link goes, and not what it leads to.
        std::error_code ignored;
        std::filesystem::remove_all(QFileInfo(stagingFolder(m_program).path()).filesystemFilePath(),
                                    ignored);
        for (const QString &half :
             m_program.entryList({QStringLiteral("Tovarin-backup-*.mdb.new")}, QDir::Files))
            QFile::remove(m_program.filePath(half));
    }

    QDir m_program;
};

} // namespace

QString executableName()
{
    return QStringLiteral(EXECUTABLE_NAME);
}

bool isComplete(const QString &programFolder)
{
    const QDir folder(programFolder);
    return QFileInfo(folder.filePath(executableName())).isExecutable()
           && folder.exists(databaseName());
}

Placement place(const QString &shippedFolder, const QString &programFolder)
{
    const Placer placer(shippedFolder, programFolder);
    if (placer.isCurrent())
        return {};
    if (!QDir().mkpath(programFolder))
        refuseToWrite(programFolder, QStringLiteral("the folder can't be made"));
    // Not two at a time; one that was killed holds nobody up.
    QLockFile lock(QDir(programFolder).filePath(QStringLiteral("Tovarin.lock")));
    lock.setStaleLockTime(staleLockTime);
    if (!lock.tryLock(lockTimeout))
        refuseToWrite(programFolder,
                      lock.error() == QLockFile::LockFailedError
                          ? QStringLiteral("Tovarin is being set up there already")
                          : QStringLiteral("you may not make files there, or the disk is full"));
    const HalfFiles halfFiles {QDir(programFolder)};
    return placer.run();
}

QString setDatabaseAside(const QString &programFolder)
{
    const QDir folder(programFolder);
    const QString database = folder.filePath(databaseName());
    const QString aside =
        freePath(folder, QStringLiteral("Tovarin-put-aside"), QStringLiteral(".mdb"));
    // An interrupted write is completed or undone from the journal, so the two stay together.
    for (const char *part : {"-journal", ""}) {
        const QString from = database % QLatin1String(part);
        if (QFile::exists(from) && !QFile::rename(from, aside % QLatin1String(part)))
            refuseToWrite(aside, QStringLiteral("the file can't get this name"));
    }
    return aside;
}

} // namespace upgrade

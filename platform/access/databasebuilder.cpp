// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/databasebuilder.h"

#include "platform/access/collation.h"
#include "platform/access/engineerror.h"

#include <QCryptographicHash>
#include <QFile>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include <filesystem>
#include <map>
#include <optional>

namespace dbaccess {

namespace {

QString growingName(const QString &file)
{
    return file % u".new";
}

/// An interrupted write of the older file is completed or undone from its journal; a new file
/// under the same name would be spoilt by it.
void refuseJournal(const QString &file)
{
    if (QFile::exists(file % u"-journal"))
        throw EngineError(EngineError::Reason::Locked,
                          QStringLiteral("\"%1\" is being written, or was interrupted while it "
                                         "was. Close or start the program once, then try again.")
                              .arg(file));
}

QString placeholders(qsizetype count)
{
    return QStringLiteral("?, ").repeated(count).chopped(2);
}

} // namespace

struct DatabaseBuilder::Work
{
    explicit Work(const QString &file)
        : engine(growingName(file).toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
    {
    }

    /// What is put in makes the file's edition.
    void count(const QString &text)
    {
        contents.addData(text.toUtf8());
        contents.addData(QByteArrayView("\0", 1));
    }

    SQLite::Database engine;
    QCryptographicHash contents {QCryptographicHash::Sha256};
    std::optional<SQLite::Transaction> transaction;
    std::map<QString, SQLite::Statement> inserts;
};

DatabaseBuilder::DatabaseBuilder(const QString &file, const Account &account, const QString &schema)
    : m_file(file)
{
    refuseJournal(file);
    QFile::remove(growingName(file));
    QFile::remove(growingName(file) % u"-journal");
    try {
        m_work = std::make_unique<Work>(file);
        registerFunctions(m_work->engine);
        m_work->engine.exec("pragma encoding = 'UTF-8'");
        m_work->transaction.emplace(m_work->engine);
        stampNewFile(m_work->engine, account);
        m_work->engine.exec(schema.toStdString());
        m_work->count(QString::fromLatin1(collationVersion));
        m_work->count(schema);
    } catch (const SQLite::Exception &exception) {
        throw EngineError(exception);
    }
}

DatabaseBuilder::~DatabaseBuilder()
{
    m_work.reset();
    QFile::remove(growingName(m_file));
}

void DatabaseBuilder::insert(const QString &table, const QStringList &values)
{
    try {
        auto known = m_work->inserts.find(table);
        if (known == m_work->inserts.end()) {
            const QString sql =
                u"insert into " % table % u" values(" % placeholders(values.size()) % u')';
            known = m_work->inserts.try_emplace(table, m_work->engine, sql.toStdString()).first;
        }
        SQLite::Statement &statement = known->second;
        statement.reset();
        for (int i = 0; i < values.size(); ++i) {
            if (values[i].isNull())
                statement.bind(i + 1);
            else
                statement.bind(i + 1, values[i].toStdString());
        }
        statement.exec();
        m_work->count(table % u'\0' % values.join(u'\0'));
    } catch (const SQLite::Exception &exception) {
        throw EngineError(exception);
    }
}

void DatabaseBuilder::finish()
{
    try {
        m_work->inserts.clear();
        setEdition(m_work->engine, m_work->contents.result().toHex().toStdString());
        m_work->transaction->commit();
        m_work->transaction.reset();
        m_work->engine.exec("analyze");
        m_work.reset();
        refuseJournal(m_file);
        std::filesystem::rename(growingName(m_file).toStdU16String(), m_file.toStdU16String());
    } catch (const SQLite::Exception &exception) {
        throw EngineError(exception);
    } catch (const std::filesystem::filesystem_error &error) {
        throw EngineError(EngineError::Reason::Other, QString::fromLocal8Bit(error.what()));
    }
}

} // namespace dbaccess

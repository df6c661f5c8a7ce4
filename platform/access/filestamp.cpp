// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/filestamp.h"

#include "platform/access/collation.h"
#include "platform/access/engineerror.h"
#include "platform/access/likepattern.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <sqlite3.h>

#include <memory>
#include <new>

namespace dbaccess {

namespace {

constexpr int applicationId = 0x546f7661; // "Tova"
constexpr int formatVersion = 1;

// The engine's own table, beside those of the program.
constexpr char createProperties[] =
    "create table sys_properties(property text primary key, content text not null) "
    "without rowid";

std::string_view textOf(sqlite3_value *value)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return text ? std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)))
                : std::string_view();
}

int collate(void *, int lengthA, const void *a, int lengthB, const void *b) noexcept
{
    return compareTexts({static_cast<const char *>(a), static_cast<std::size_t>(lengthA)},
                        {static_cast<const char *>(b), static_cast<std::size_t>(lengthB)});
}

bool matchesLike(sqlite3_context *context, std::string_view pattern, std::string_view text)
{
    if (const auto *kept = static_cast<const LikePattern *>(sqlite3_get_auxdata(context, 0)))
        return kept->matches(text);
    auto fresh = std::make_unique<LikePattern>(pattern);
    const bool matches = fresh->matches(text);
    // The engine keeps the pattern for the rows to come, or deletes it at once if it can't.
    sqlite3_set_auxdata(context, 0, fresh.release(),
                        [](void *kept) { delete static_cast<LikePattern *>(kept); });
    return matches;
}

/// like(pattern, text): what the engine calls for "text like pattern". The engine is C code, which
/// nothing may be thrown through.
void like(sqlite3_context *context, int, sqlite3_value **arguments) noexcept
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL
        || sqlite3_value_type(arguments[1]) == SQLITE_NULL) {
        sqlite3_result_null(context);
        return;
    }
    try {
        const bool matches = matchesLike(context, textOf(arguments[0]), textOf(arguments[1]));
        sqlite3_result_int(context, matches ? 1 : 0);
    } catch (const std::bad_alloc &) {
        sqlite3_result_error_nomem(context);
    } catch (const std::exception &error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}

std::string property(SQLite::Database &database, const char *name,
                     const std::string &schema = "main")
{
    SQLite::Statement query(database,
                            "select content from " + schema + ".sys_properties where property = ?");
    query.bind(1, name);
    return query.executeStep() ? query.getColumn(0).getString() : std::string();
}

void setProperty(SQLite::Database &database, const char *name, const std::string &content)
{
    SQLite::Statement statement(database,
                                "insert or replace into main.sys_properties(property, content) "
                                "values(?, ?)");
    statement.bind(1, name);
    statement.bind(2, content);
    statement.exec();
}

QByteArray hashOf(const QByteArray &salt, const QString &password)
{
    return QCryptographicHash::hash(QByteArray(salt + password.toUtf8()),
                                    QCryptographicHash::Sha256)
        .toHex();
}

QByteArray freshSalt()
{
    QByteArray salt(16, '\0');
    QRandomGenerator::system()->generate(salt.begin(), salt.end());
    return salt.toHex();
}

int pragma(SQLite::Database &database, const std::string &schema, const char *name)
{
    return database.execAndGet("pragma " + schema + '.' + name).getInt();
}

} // namespace

void registerFunctions(SQLite::Database &database)
{
    sqlite3 *const handle = database.getHandle();
    constexpr int traits = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    database.check(
        sqlite3_create_collation_v2(handle, collationName, SQLITE_UTF8, nullptr, collate, nullptr));
    database.check(sqlite3_create_function_v2(handle, "like", 2, traits, nullptr, like, nullptr,
                                              nullptr, nullptr));
}

void stampNewFile(SQLite::Database &database, const Account &account)
{
    database.exec("pragma application_id = " + std::to_string(applicationId));
    database.exec("pragma user_version = " + std::to_string(formatVersion));
    database.exec(createProperties);
    const QByteArray salt = freshSalt();
    setProperty(database, "user", account.user.toStdString());
    setProperty(database, "salt", salt.toStdString());
    setProperty(database, "password", hashOf(salt, account.password).toStdString());
    setProperty(database, "collation", collationVersion);
}

void verifyFile(SQLite::Database &database, const std::string &schema)
{
    using Reason = EngineError::Reason;
    if (pragma(database, schema, "application_id") != applicationId)
        throw EngineError(Reason::NotADatabase,
                          QStringLiteral("The file is not a database of this program."));
    if (pragma(database, schema, "user_version") > formatVersion)
        throw EngineError(Reason::NotADatabase,
                          QStringLiteral("The database was written by a newer version of this "
                                         "program."));
}

void verifyAccount(SQLite::Database &database, const Account &account)
{
    const QByteArray salt = QByteArray::fromStdString(property(database, "salt"));
    const QByteArray expected = QByteArray::fromStdString(property(database, "password"));
    const QString user = QString::fromStdString(property(database, "user"));
    const bool isUser = user.compare(account.user, Qt::CaseInsensitive) == 0;
    if (!isUser || expected != hashOf(salt, account.password))
        throw EngineError(EngineError::Reason::AccessDenied,
                          QStringLiteral("Not a valid user name or password."));
}

std::string edition(SQLite::Database &database, const std::string &schema)
{
    return property(database, "edition", schema);
}

void setEdition(SQLite::Database &database, const std::string &edition)
{
    setProperty(database, "edition", edition);
}

bool hasCurrentCollation(SQLite::Database &database)
{
    return property(database, "collation") == collationVersion;
}

void refreshCollation(SQLite::Database &database)
{
    if (hasCurrentCollation(database))
        return;
    try {
        SQLite::Transaction transaction(database);
        database.exec(std::string("reindex ") + collationName);
        setProperty(database, "collation", collationVersion);
        transaction.commit();
    } catch (const SQLite::Exception &exception) {
        const EngineError error(exception);
        if (error.reason() != EngineError::Reason::ReadOnly)
            throw;
        throw EngineError(error.reason(),
                          QStringLiteral("The database was last used by another version of this "
                                         "program and has to be brought up to date once, but it "
                                         "is read-only. Please check that you may write to it "
                                         "and to its folder."));
    }
}

} // namespace dbaccess

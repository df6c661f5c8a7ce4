// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// Statements: the translation refuses or translates every text, keeps the literals in it, and a
// statement that gets bounds finds what it finds without them.

#include "db/schema.h"
#include "platform/access/dialect.h"
#include "platform/access/engineerror.h"
#include "platform/access/filestamp.h"
#include "platform/access/sqltokens.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace {

using Kind = dbaccess::SqlToken::Kind;
using Rows = std::vector<std::string>;

constexpr int stepsPerTick = 1000; // of the engine's machine
constexpr int mostTicks = 100;

constexpr char sampleRows[] = R"(
    insert into tblorg values('1', 'Hebrew'), ('2', 'Greek'), ('3', null);
    insert into tblmeaning values('1', 'grace, favour'), ('2', 'of 100 % life'), ('3', 'a_b');
    insert into tblmaster(name_desc, name_orgid, name_sex, name_mid, name_first, name_select) values
        ('Anna', '1', 'G', '1', 'A', 'N'), ('anna', '2', 'G', '2', 'A', 'Y'),
        ('Ánna', '1', 'G', '2', 'A', 'N'), ('Bo', '2', 'B', '3', 'B', 'N'),
        ('B''o', '1', 'B', '1', 'B', 'Y'), ('Élodie', '2', 'G', '2', 'E', 'N'),
        ('Elodie', '2', 'G', '2', 'E', 'N'), ('', '3', 'B', '3', null, null),
        ('Ωmega', '1', 'B', '3', 'O', 'N'), ('Zoë', '2', 'G', '9', 'Z', 'N');)";

int allowQueries(void *, int action, const char *, const char *, const char *, const char *)
{
    const bool isQuery = action == SQLITE_SELECT || action == SQLITE_READ
                         || action == SQLITE_FUNCTION || action == SQLITE_RECURSIVE;
    return isQuery ? SQLITE_OK : SQLITE_DENY;
}

SQLite::Database &database()
{
    static SQLite::Database opened = [] {
        SQLite::Database engine(":memory:", SQLite::OPEN_READWRITE);
        dbaccess::registerFunctions(engine);
        engine.exec(databaseSchema().toStdString());
        engine.exec(sampleRows);
        sqlite3_set_authorizer(engine.getHandle(), allowQueries, nullptr);
        sqlite3_limit(engine.getHandle(), SQLITE_LIMIT_LENGTH, 100000);
        return engine;
    }();
    return opened;
}

/// The rows of a query in any order; nothing if it is none, or takes too long.
std::optional<Rows> rowsOf(const QString &sql)
{
    static int ticks = 0;
    ticks = 0;
    sqlite3_progress_handler(
        database().getHandle(), stepsPerTick, [](void *) { return ++ticks > mostTicks ? 1 : 0; },
        nullptr);
    try {
        SQLite::Statement query(database(), sql.toStdString());
        Rows rows;
        while (query.executeStep()) {
            std::string &row = rows.emplace_back();
            for (int i = 0; i < query.getColumnCount(); ++i)
                row += query.getColumn(i).getString() + '|';
        }
        std::ranges::sort(rows);
        return rows;
    } catch (const SQLite::Exception &) {
        return std::nullopt;
    }
}

/// The texts of the literals of a statement; of those that have to survive, without the patterns,
/// which may become ranges.
QStringList literalsOf(const std::vector<dbaccess::SqlToken> &tokens, bool withPatterns)
{
    QStringList literals;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const bool mayGo =
            i > 0 && (tokens[i - 1].isWord(u"like") || tokens[i - 1].isWord(u"into"));
        if (tokens[i].kind == Kind::Literal && (withPatterns || !mayGo))
            literals.append(tokens[i].literalText());
    }
    return literals;
}

bool hasSameMeaningForTheEngine(const std::vector<dbaccess::SqlToken> &tokens)
{
    return std::ranges::none_of(tokens, [](const dbaccess::SqlToken &token) {
        const bool isOurs = token.isWord(u"top") || token.isWord(u"into")
                            || (token.kind == Kind::Literal && token.text.startsWith(u'"'));
        // What depends on the order of rows, or on more than them.
        return isOurs || token.isWord(u"limit") || token.isWord(u"random")
               || token.isWord(u"group_concat") || token.text.contains(u"pragma");
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QSet<QString> textColumns {QStringLiteral("name_desc"), QStringLiteral("org_desc"),
                                            QStringLiteral("meaning_name")};
    const QString statement =
        QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    QString translated;
    try {
        translated = dbaccess::translateStatement(statement, textColumns).sql;
    } catch (const dbaccess::EngineError &error) {
        if (error.reason() != dbaccess::EngineError::Reason::Syntax)
            qFatal("refused for another reason: %s", qPrintable(error.message()));
        return 0;
    }
    const std::vector<dbaccess::SqlToken> tokens = dbaccess::tokenizeSql(statement);
    const QStringList kept = literalsOf(dbaccess::tokenizeSql(translated), true);
    for (const QString &literal : literalsOf(tokens, false)) {
        if (!kept.contains(literal))
            qFatal("the literal '%s' is lost in: %s", qPrintable(literal), qPrintable(translated));
    }
    const std::optional<Rows> found = rowsOf(translated);
    if (hasSameMeaningForTheEngine(tokens)) {
        const std::optional<Rows> expected = rowsOf(statement);
        if (found && expected && found != expected)
            qFatal("%s\nfinds other rows as\n%s", qPrintable(statement), qPrintable(translated));
    }
    return 0;
}

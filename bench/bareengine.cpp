// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "bench/bareengine.h"

#include "platform/access/collation.h"

#include <sqlite3.h>

#include <string_view>

BareEngine::BareEngine(const QString &file)
{
    sqlite3_open(file.toUtf8().constData(), &m_handle);
    const auto collate = [](void *, int lengthA, const void *a, int lengthB, const void *b) {
        return dbaccess::compareTexts(
            std::string_view(static_cast<const char *>(a), std::size_t(lengthA)),
            std::string_view(static_cast<const char *>(b), std::size_t(lengthB)));
    };
    sqlite3_create_collation_v2(m_handle, dbaccess::collationName, SQLITE_UTF8, nullptr, collate,
                                nullptr);
    // As the program has it; a larger cache is no merit of the layer's.
    fetch("pragma cache_size = -32768");
    fetch("pragma temp_store = memory");
}

BareEngine::~BareEngine()
{
    sqlite3_close(m_handle);
}

void BareEngine::makePrivate(const QByteArray &table) const
{
    QString sql = fetch("select sql from main.sqlite_schema where name = '" + table + "'")[0][0];
    fetch("pragma temp_store = memory");
    fetch(
        sql.replace(QStringLiteral("CREATE TABLE"), QStringLiteral("create temp table")).toUtf8());
}

BareEngine::Rows BareEngine::fetch(const QByteArray &sql) const
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(m_handle, sql.constData(), -1, &statement, nullptr) != SQLITE_OK)
        qFatal("%s", sqlite3_errmsg(m_handle));
    Rows rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        std::vector<QString> &row = rows.emplace_back();
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            row.push_back(QString::fromUtf8(
                reinterpret_cast<const char *>(sqlite3_column_text(statement, i))));
    }
    sqlite3_finalize(statement);
    return rows;
}

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/recordset.h"

#include "platform/access/engineerror.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

#include <algorithm>

namespace dbaccess {

Recordset::Recordset(SQLite::Statement &statement)
{
    const int columns = statement.getColumnCount();
    for (int i = 0; i < columns; ++i)
        m_names.append(QString::fromUtf8(statement.getColumnName(i)));
    while (statement.executeStep()) {
        std::vector<FieldValue> &row = m_rows.emplace_back();
        row.reserve(static_cast<std::size_t>(columns));
        for (int i = 0; i < columns; ++i) {
            const SQLite::Column column = statement.getColumn(i);
            if (column.isNull())
                row.emplace_back();
            else
                row.emplace_back(QString::fromUtf8(column.getText(), column.getBytes()));
        }
    }
}

void Recordset::moveNext()
{
    if (!isAtEnd())
        ++m_row;
}

const FieldValue &Recordset::field(qsizetype index) const
{
    if (isAtEnd())
        throw EngineError(EngineError::Reason::Other,
                          QStringLiteral("There is no current record to read from."));
    if (index < 0 || index >= fieldCount())
        throw EngineError(EngineError::Reason::UnknownColumn,
                          QStringLiteral("The query has no field number %1.").arg(index));
    return m_rows[m_row][static_cast<std::size_t>(index)];
}

const FieldValue &Recordset::field(QStringView name) const
{
    const auto found = std::ranges::find_if(m_names, [name](const QString &candidate) {
        return QStringView(candidate).compare(name, Qt::CaseInsensitive) == 0;
    });
    if (found == m_names.end())
        throw EngineError(EngineError::Reason::UnknownColumn,
                          QStringLiteral("The database has no field named \"%1\"; it may be "
                                         "damaged.")
                              .arg(name));
    return field(found - m_names.begin());
}

} // namespace dbaccess

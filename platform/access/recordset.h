// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace SQLite {
class Statement;
}

namespace dbaccess {

/// The value of a field as text; nothing stands for null, which is not the empty text.
using FieldValue = std::optional<QString>;

/// The rows of a query, all read when it is opened, so that nothing in the database stays locked.
/// It stands on its first row, or at its end if there is none.
class Recordset
{
public:
    Recordset() = default;
    /// Runs a prepared query to its end.
    explicit Recordset(SQLite::Statement &statement);

    bool isAtEnd() const { return m_row >= m_rows.size(); }
    void moveNext();
    qsizetype rowCount() const { return static_cast<qsizetype>(m_rows.size()); }
    qsizetype fieldCount() const { return m_names.size(); }

    /// A field of the current row, by its position from 0 or by its name without letter case (the
    /// first of that name).
    /// @throws EngineError at the end, or for a field that is not there
    const FieldValue &field(qsizetype index) const;
    const FieldValue &field(QStringView name) const;

    /// A field's text, null giving the empty text.
    QString text(qsizetype index) const { return field(index).value_or(QString()); }
    QString text(QStringView name) const { return field(name).value_or(QString()); }

private:
    QStringList m_names;
    std::vector<std::vector<FieldValue>> m_rows;
    std::size_t m_row = 0;
};

} // namespace dbaccess

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <exception>

namespace SQLite {
class Exception;
}

namespace dbaccess {

/// What the database engine refuses, with a text fit for a message box.
class EngineError : public std::exception
{
public:
    enum class Reason {
        ConnectionString, ///< a key is missing or out of its order
        UnknownDriver,
        MissingFile,
        NotADatabase, ///< no database at all, a foreign one, or a damaged one
        AccessDenied, ///< wrong user or password
        NotOpen,
        Syntax,
        UnknownTable,
        UnknownColumn,
        ReadOnly,
        DiskFull,
        Locked,
        Other
    };

    EngineError(Reason reason, const QString &message);
    /// Puts a refusal of the engine into plain words.
    explicit EngineError(const SQLite::Exception &refused);

    Reason reason() const { return m_reason; }
    /// The engine's own number of the error; 0 for what this layer refuses by itself.
    int number() const { return m_number; }
    const QString &message() const { return m_message; }
    const char *what() const noexcept override { return m_what.constData(); }

private:
    Reason m_reason;
    int m_number = 0;
    QString m_message;
    QByteArray m_what;
};

} // namespace dbaccess

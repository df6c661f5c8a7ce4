// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/access/recordset.h"

#include <QStringList>

#include <functional>
#include <optional>

class QComboBox;

/// The one database connection of the program, and the functions through which all SQL runs.
///
/// A failing statement is shown to the user in a message box with the engine's own text; the
/// function then returns its empty result and the caller goes on.
namespace basDatabase {

/// The connection string of the database in the program's folder.
QString ConnectionText(const QString &inpPassword);

/// Opens the connection to Tovarin.mdb in the program's folder, with the password from the key
/// file. On failure the user is told and ProgramEnd is thrown.
bool OpenDatabase();

/// Closes the connection, if it is open.
void CloseDatabase();

/// The rows of a query, or nothing on failure.
std::optional<dbaccess::Recordset> OpenRecordset(const QString &inpSQL);

/// The first field of the first row, without blanks around it; empty if there is no row, if it is
/// null, or on failure.
QString GetFieldValue(const QString &inpSQL);

/// Runs a statement that changes something; true on success.
bool ExecuteSQL(const QString &inpSQL);

/// Empties a table and fills it anew. Each statement commits by itself, and each that fails has
/// told why; the others still run. Only where the table can't be emptied nothing more is run, since
/// its rows would then be there twice.
/// @return whether all statements have succeeded
bool RewriteTable(const QString &inpTable, const QStringList &inpStatements);

/// What the last failing statement of ExecuteSQL was told, as "number : description", the number
/// being the engine's own.
QString LastErrorText();

/// The text with inpInsert before every inpFind. Called with an apostrophe for both it doubles
/// the apostrophes, as every text in an SQL literal needs: O'Neil gives O''Neil.
QString QuoteSQL(const QString &inpText, QChar inpFind, const QString &inpInsert);

/// QuoteSQL with apostrophes.
QString QuoteSQL(const QString &inpText);

/// Fills a drop-down list: "All", then the first field of each row without blanks around it. A
/// failure ends the fill quietly; what was added stays.
void FillComboBox(const QString &inpSQL, QComboBox &inpCombo);

/// The number that a text begins with, 0 if it begins with none: "12 names" gives 12.
qint64 NumericValue(const QString &inpText);

/// A setting of tblsetup, without blanks around it; empty if it is not set.
QString Setting(QStringView inpColumn);

/// A version and the date of tblsetup as the windows show them: "1.0 - 31 Jan 2026".
QString VersionLine(const QString &inpVersion);

/// Calls the observer with the text of every statement that goes to the database.
void WatchStatements(std::function<void(const QString &)> inpObserver);

} // namespace basDatabase

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace worksheet {

enum FullNameColumn {
    NumberColumn,
    TopNColumn, ///< empty and not shown; its heading has the size of the ranking
    FirstColumn,
    MiddleColumn,
    LastColumn,
    OtherColumn,
    InitialsColumn,
    FullNameColumnCount
};

/// Headings, alignments and widths of the worksheet.
/// @param topN  how many names are ranked
QString worksheetFormat(const QString &topN);

/// A row of the worksheet.
struct FullName
{
    QString first {};
    QString middle {};
    QString last {};
    QString other {}; ///< more initials
    QString initials {};
};

/// The first letter of a text with the marks that belong to it; empty for an empty text.
QString firstLetter(const QString &text);

/// The first letters of first, middle and last name, then the other initials as they stand:
/// J, Ann, Smith and K.L. give JASK.L.
QString initials(const QString &first, const QString &middle, const QString &last,
                 const QString &other);

/// What the first name of a row can be chosen from, "|" between the names: those of all rows but
/// the current one, then the current one. With a blank the list begins with an item of one blank.
QString firstNameList(bool withBlank, const QString &current, const QStringList &firstNames);

/// Finds whether the worksheet holds a first name. The name stands in the statement as it is, so
/// that one with an apostrophe makes the engine refuse it.
QString savedFirstNameQuery(const QString &name);

/// Saves a row.
QString fullNameInsert(const FullName &name);

} // namespace worksheet

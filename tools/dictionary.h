// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// The dictionary's sources: one UTF-8 file per origin. The first line is "# Origin: " and the
/// origin's name; other lines that begin with "#" are comments; an entry is
/// name <tab> B or G <tab> meaning. Entries stand in the dictionary's order of names, boys first.
namespace dictionary {

struct Entry
{
    QString name;
    QChar sex; ///< B boy, G girl
    QString origin;
    QString meaning;

    bool operator==(const Entry &) const = default;
};

/// The longest texts that the windows and reports are made for, in characters.
inline constexpr int longestName = 40;
inline constexpr int longestOrigin = 40;
inline constexpr int longestMeaning = 100;

/// How many words a meaning has: enough to be no riddle, few enough for a line of the list.
inline constexpr int fewestWords = 2;
inline constexpr int mostWords = 8;

/// What was read, and every problem found as "file:line: what is wrong".
struct Source
{
    std::vector<Entry> entries;
    QStringList problems;
};

/// Reads one file. Its name serves for the problems.
Source readFile(const QString &path);

/// Reads the content of a file.
Source readText(const QByteArray &content, const QString &fileName);

/// Reads all "*.tsv" of a folder and checks that no entry stands twice in them.
Source readFolder(const QString &folder);

/// The content of a file with its entries sorted. Comments inside the list move to its front, empty
/// lines go.
QByteArray sortedText(const QByteArray &content);

/// Sorts the entries of a file in place, see sortedText(), and returns whether anything changed.
/// @throws std::runtime_error if the file can't be read or written
bool sortFile(const QString &path);

} // namespace dictionary

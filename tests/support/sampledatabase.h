// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tools/dictionary.h"
#include "tools/shippeddatabase.h"

#include <QTemporaryDir>

#include <initializer_list>

namespace support {

/// The settings and the password of sample databases.
shipped::Settings sampleSettings();
QString samplePassword();

/// A program folder of its own with a database of the given entries and its key file, named to the
/// program as the folder to work in.
class SampleDatabase
{
public:
    explicit SampleDatabase(const std::vector<dictionary::Entry> &entries);

    QString folder() const { return m_folder.path(); }
    QString file(const QString &name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
};

/// What a query of the open database yields, a line for each row, "|" between the fields.
QStringList table(const QString &query);

/// Writes a file, over one that is there.
void writeFile(const QString &path, const QByteArray &content);
/// A file's content; none where there is no file.
QByteArray readFile(const QString &path);

/// An entry from "name|sex|origin|meaning".
dictionary::Entry entry(const char *fields);
std::vector<dictionary::Entry> entries(std::initializer_list<const char *> list);

} // namespace support

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/sampledatabase.h"

#include <QStringList>

/// A program folder with the files of the reports and an open database.
class ReportFolder : public support::SampleDatabase
{
public:
    /// @param statements  what fills the tables
    explicit ReportFolder(const QStringList &statements = {});
    ~ReportFolder();
    ReportFolder(const ReportFolder &) = delete;
    ReportFolder &operator=(const ReportFolder &) = delete;
};

/// The statement that adds a row to the worksheet.
QString fullName(const QString &values);

/// Names that are ranked or not, with apostrophes, accents and markup, nothing and null.
QStringList sampleRows();

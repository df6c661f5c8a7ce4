// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

/// What the order of texts has to know of letters.
namespace letters {

/// The source text of platform/access/letterdata.cpp, from the content of Unicode's file
/// UnicodeData.txt: what each character of the scripts that names are written in here folds to, the
/// combining classes of marks, and the characters that count for nothing.
/// @param version  of Unicode, to be named in the text
/// @throws std::runtime_error for a line that is none of that file's
QByteArray letterData(const QByteArray &unicodeData, const QString &version);

} // namespace letters

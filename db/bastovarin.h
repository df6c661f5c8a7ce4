// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The program's folder and the key file in it.
namespace basTovarin {

/// What ReadPassword answers when the key file holds nothing usable.
inline constexpr QStringView noPassword = u"-1";

/// The folder of the running program, without a trailing separator except for a drive's root.
/// All its files lie there; paths in it are composed with a backslash (see dbaccess::systemPath).
QString ProgramFolder();
void SetProgramFolder(const QString &inpFolder);

/// The text that was encoded with the key: the letter at position i (from 1) has had the code of
/// the key's letter at position (i mod length) + 1 added to its own, modulo 256. An empty key
/// leaves the text as it is; any text decodes to something.
/// "N" decoded with "AB" is the letter of code 78 - 66.
QString DecodeText(const QString &inpText, const QString &inpKey);

/// The inverse of DecodeText, for the tool that writes the key file.
QString EncodeText(const QString &inpText, const QString &inpKey);

/// The key that the password in the key file is encoded with.
QString PasswordKey();

/// The password from the content of a key file, its first line: empty for an empty file, noPassword
/// for an empty first line.
QString PasswordFrom(const QByteArray &inpKeyFile);

/// The password from "tovarin.dll" in the program's folder.
/// @throws dbaccess::EngineError if the file can't be opened
QString ReadPassword();

} // namespace basTovarin

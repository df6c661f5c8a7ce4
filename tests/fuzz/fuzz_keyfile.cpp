// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// Key files: whatever stands in one gives a password, and a password that was put in comes out.

#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "platform/access/connectionstring.h"

#include <QtGlobal>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray content(reinterpret_cast<const char *>(data), qsizetype(size));
    const QString password = basTovarin::PasswordFrom(content);
    if (password.isEmpty() != content.isEmpty())
        qFatal("only an empty file gives an empty password");

    const QString key = basTovarin::PasswordKey();
    if (basTovarin::DecodeText(basTovarin::EncodeText(password, key), key) != password)
        qFatal("the password does not come out as it was put in");
    basTovarin::DecodeText(password, QString::fromLatin1(content));

    basTovarin::SetProgramFolder(QStringLiteral("/some;where"));
    const dbaccess::ConnectionString opened =
        dbaccess::parseConnectionString(basDatabase::ConnectionText(password));
    if (opened.password != password || opened.user != u"admin"
        || opened.file != u"/some;where/Tovarin.mdb")
        qFatal("the connection string does not hold the password as it is");
    return 0;
}

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// Connection strings: what was read, put together again, reads the same.

#include "platform/access/connectionstring.h"
#include "platform/access/engineerror.h"

#include <QtGlobal>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace dbaccess;
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    try {
        const ConnectionString read = parseConnectionString(text);
        const QString again = u"DBQ=" % read.file % u";DRIVER={" % read.driver % u"};UID="
                              % read.user % u";PWD=" % read.password % u';';
        ConnectionString expected = read;
        expected.file = systemPath(read.file);
        if (parseConnectionString(again) != expected)
            qFatal("\"%s\" reads otherwise when it is put together again", qPrintable(text));
        // Only the password, which nothing follows, may hold a key.
        const auto holds = [](const QString &value, QStringView key) {
            return value.contains(key, Qt::CaseInsensitive);
        };
        if (holds(read.file, u";DRIVER={") || holds(read.driver, u"};UID=")
            || holds(read.user, u";PWD="))
            qFatal("a value of \"%s\" does not end at the next key", qPrintable(text));
    } catch (const EngineError &error) {
        if (error.reason() != EngineError::Reason::ConnectionString || error.message().isEmpty())
            qFatal("\"%s\" is refused for another reason", qPrintable(text));
    }
    return 0;
}

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/bastovarin.h"

#include "platform/access/connectionstring.h"
#include "platform/access/engineerror.h"

#include <QFile>

#include <memory>

namespace basTovarin {

namespace {

QString theProgramFolder;

/// Adds the key's codes to the text's, or takes them away. Texts of the key file are Latin-1:
/// one byte, one character.
QString shiftByKey(const QString &text, const QString &key, int sign)
{
    const QByteArray keyCodes = key.toUpper().toLatin1();
    if (keyCodes.isEmpty())
        return text;
    QByteArray codes = text.toLatin1();
    for (qsizetype i = 0; i < codes.size(); ++i) {
        // Positions count from 1, and the key is read one place further on.
        const auto keyCode = static_cast<unsigned char>(keyCodes[(i + 1) % keyCodes.size()]);
        codes[i] = static_cast<char>(static_cast<unsigned char>(codes[i]) + sign * keyCode);
    }
    return QString::fromLatin1(codes);
}

QByteArray firstLine(const QByteArray &content)
{
    qsizetype end = 0;
    while (end < content.size() && content[end] != '\r' && content[end] != '\n')
        ++end;
    return content.first(end);
}

} // namespace

QString ProgramFolder()
{
    return theProgramFolder;
}

void SetProgramFolder(const QString &inpFolder)
{
    theProgramFolder = inpFolder;
}

QString DecodeText(const QString &inpText, const QString &inpKey)
{
    return shiftByKey(inpText, inpKey, -1);
}

QString EncodeText(const QString &inpText, const QString &inpKey)
{
    return shiftByKey(inpText, inpKey, +1);
}

QString PasswordKey()
{
    return QStringLiteral("MORVANTE");
}

QString ReadPassword()
{
    auto file = std::make_unique<QFile>(dbaccess::systemPath(ProgramFolder() % u"\\tovarin.dll"));
    if (!file->open(QIODevice::ReadOnly))
        throw dbaccess::EngineError(
            dbaccess::EngineError::Reason::MissingFile,
            QStringLiteral("Could not open the key file: %1.").arg(file->errorString()));
    const QByteArray content = file->readAll();
    if (content.isEmpty()) {
        // An empty key file stays open while the program runs, so that nobody fills it meanwhile.
        static std::unique_ptr<QFile> keptOpen;
        keptOpen = std::move(file);
    }
    return PasswordFrom(content);
}

QString PasswordFrom(const QByteArray &inpKeyFile)
{
    if (inpKeyFile.isEmpty())
        return {};
    const QByteArray line = firstLine(inpKeyFile);
    const QString password = DecodeText(QString::fromLatin1(line), PasswordKey());
    return password.isEmpty() ? noPassword.toString() : password;
}

} // namespace basTovarin

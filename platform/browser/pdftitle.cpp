// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/pdftitle.h"

#include <QRegularExpression>
#include <QtEndian>

namespace browser {

namespace {

/// A text as a document has it in its dictionaries: the digits of UTF-16 behind a byte order mark.
QByteArray pdfText(const QString &text)
{
    QByteArray codes("\xfe\xff");
    for (const QChar character : text) {
        const quint16 code = qToBigEndian(character.unicode());
        codes.append(reinterpret_cast<const char *>(&code), sizeof code);
    }
    return '<' + codes.toHex() + '>';
}

} // namespace

QByteArray withTitle(const QByteArray &pdf, const QString &title)
{
    // Byte by byte, so that places in the text are places in the file.
    const QString text = QString::fromLatin1(pdf);
    static const QRegularExpression end(
        QStringLiteral("\ntrailer\\s*<<\\s*/Size (\\d+)\\s*/Root (\\d+ 0 R)\\s*/Info (\\d+) 0 R\\s*"
                       ">>\\s*startxref\\s*(\\d+)\\s*%%EOF\\s*$"));
    const QRegularExpressionMatch trailer = end.match(text);
    const QRegularExpressionMatch info =
        QRegularExpression(u"\n" % trailer.captured(3) % u" 0 obj\\s*<<([^<>]*)>>\\s*endobj")
            .match(text);
    if (!trailer.hasMatch() || !info.hasMatch() || info.captured(1).contains(u"/Title"))
        return pdf;

    QByteArray document = pdf;
    if (!document.endsWith('\n'))
        document += '\n';
    const QByteArray number = trailer.captured(1).toLatin1(); // the first that is free
    const auto object = QStringLiteral("%1").arg(document.size(), 10, 10, QLatin1Char('0'));
    document += number + " 0 obj\n<<" + info.captured(1).toLatin1() + "\n/Title " + pdfText(title)
                + ">>\nendobj\n";
    const QByteArray table = QByteArray::number(document.size());
    return document + "xref\n" + number + " 1\n" + object.toLatin1()
           + " 00000 n \ntrailer\n<</Size " + QByteArray::number(number.toInt() + 1) + "\n/Root "
           + trailer.captured(2).toLatin1() + "\n/Info " + number + " 0 R\n/Prev "
           + trailer.captured(4).toLatin1() + ">>\nstartxref\n" + table + "\n%%EOF\n";
}

} // namespace browser

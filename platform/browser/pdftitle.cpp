// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/pdftitle.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

namespace browser {

QByteArray withTitle(const QByteArray &pdf, const QString &title)
{
    try {
        QPDF document;
        document.setSuppressWarnings(true);
        document.processMemoryFile("report", pdf.constData(), std::size_t(pdf.size()));
        QPDFObjectHandle trailer = document.getTrailer();
        if (!trailer.hasKey("/Info"))
            trailer.replaceKey("/Info",
                               document.makeIndirectObject(QPDFObjectHandle::newDictionary()));
        trailer.getKey("/Info").replaceKey("/Title",
                                           QPDFObjectHandle::newUnicodeString(title.toStdString()));
        QPDFWriter writer(document);
        writer.setOutputMemory();
        writer.write();
        const std::shared_ptr<Buffer> written = writer.getBufferSharedPointer();
        return {reinterpret_cast<const char *>(written->getBuffer()),
                qsizetype(written->getSize())};
    } catch (const std::exception &) {
        return pdf;
    }
}

} // namespace browser

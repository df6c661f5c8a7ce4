// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/pdftitle.h"

#include <qpdf/qpdf-c.h>

#include <memory>

namespace browser {

QByteArray withTitle(const QByteArray &pdf, const QString &title)
{
    const auto end = [](qpdf_data document) { qpdf_cleanup(&document); };
    const std::unique_ptr<_qpdf_data, decltype(end)> document(qpdf_init(), end);
    qpdf_silence_errors(document.get());
    qpdf_set_suppress_warnings(document.get(), QPDF_TRUE);
    const auto hasFailed = [](QPDF_ERROR_CODE code) { return (code & QPDF_ERRORS) != 0; };
    if (hasFailed(qpdf_read_memory(document.get(), "report", pdf.constData(),
                                   static_cast<unsigned long long>(pdf.size()), nullptr)))
        return pdf;
    qpdf_set_info_key(document.get(), "/Title", title.toLatin1().constData());
    if (hasFailed(qpdf_init_write_memory(document.get())) || hasFailed(qpdf_write(document.get())))
        return pdf;
    return {reinterpret_cast<const char *>(qpdf_get_buffer(document.get())),
            static_cast<qsizetype>(qpdf_get_buffer_length(document.get()))};
}

} // namespace browser

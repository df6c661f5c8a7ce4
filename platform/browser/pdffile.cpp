// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/pdffile.h"

#include <QSaveFile>

namespace browser {

PrintResult savePdf(const QString &path, const QByteArray &pdf)
{
    using Outcome = PrintResult::Outcome;
    if (pdf.isEmpty())
        return {.outcome = Outcome::Failed, .file = path};
    // Written whole or not at all, so that a file that is there is not lost to a full disk.
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size() && file.commit())
        return {.outcome = Outcome::SavedAsFile, .file = path};
    return {.outcome = Outcome::Failed, .file = path, .reason = file.errorString()};
}

} // namespace browser

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "platform/dialogs/messagebox.h"
#include "platform/grid/flexgrid.h"
#include "ui_worksheetframe.h"
#include "worksheet/worksheetframe.h"

namespace worksheet {

/// A button pressed by its key leaves the focus, and with it an edit, in the grid.
bool WorksheetFrame::commitEdit()
{
    m_ui->msfInitial->commitEdit();
    return !m_isRefusing;
}

bool WorksheetFrame::ErrorFreeInitial()
{
    const auto warn = [](const QString &text) {
        dialogs::showMessage(text, dialogs::Icon::Information, QStringLiteral("Warning"));
        return false;
    };
    const grid::FlexGrid &page = *m_ui->msfInitial;
    const int lastRow = page.rowCount() - 1;
    if (lastRow < 1)
        return warn(QStringLiteral("No Initial record found!"));
    bool hasName = false;
    bool hasGap = false; // the last row is the blank one and may be without a name
    for (int row = 1; row <= lastRow; ++row) {
        const QString first = page.text(row, FirstColumn);
        hasName = hasName || !first.isEmpty();
        hasGap = hasGap || (row < lastRow && first.trimmed().isEmpty());
    }
    if (!hasName) {
        m_recordChanged = false;
        return warn(QStringLiteral("No record selected!"));
    }
    if (hasGap) {
        warn(QStringLiteral("Please enter the First Name!"));
        m_ui->msfInitial->setFocus();
    }
    return !hasGap;
}

void WorksheetFrame::UpdateInitialToDB()
{
    if (!saveRows()) {
        // What is on screen is now more than what is saved.
        m_recordChanged = true;
        return;
    }
    dialogs::showMessage(QStringLiteral("Record saved!"), dialogs::Icon::Information,
                         QStringLiteral("Tovarin"));
    DisplayInitialRecord();
}

bool WorksheetFrame::saveRows()
{
    QStringList statements;
    for (int row = 1; row < m_ui->msfInitial->rowCount(); ++row) {
        if (const FullName name = fullName(row); !name.first.isEmpty())
            statements.append(fullNameInsert(name));
    }
    return basDatabase::RewriteTable(QStringLiteral("tblinitial"), statements);
}

void WorksheetFrame::goBack()
{
    const bool isSure =
        commitEdit()
        && (!m_recordChanged
            || dialogs::askYesNo(QStringLiteral("Record changed, are you sure you want to go back "
                                                "without saving?"),
                                 QStringLiteral("Tovarin Names"), window()));
    if (isSure)
        Q_EMIT backRequested();
}

void WorksheetFrame::print()
{
    if (!commitEdit())
        return;
    if (m_recordChanged)
        dialogs::showMessage(QStringLiteral("Record changed, please save before print!"),
                             dialogs::Icon::Information, QStringLiteral("Tovarin Names"));
    else
        Q_EMIT printRequested();
}

} // namespace worksheet

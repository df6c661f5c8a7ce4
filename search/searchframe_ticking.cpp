// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "platform/dialogs/messagebox.h"
#include "platform/grid/flexgrid.h"
#include "search/searchframe.h"
#include "ui_searchframe.h"

namespace search {

void SearchFrame::setMaxSelect(const QString &maxSelect)
{
    m_maxSelect = maxSelect;
}

void SearchFrame::toggleTick(int row, int col)
{
    grid::FlexGrid &page = *m_ui->msSearchList;
    if (row < 1 || col != TickColumn)
        return;
    const bool ticked = !isTicked(page, row);
    setTick(page, row, ticked, m_tickPictures);
    const auto quoted = [&page, row](int column) {
        return basDatabase::QuoteSQL(page.text(row, column));
    };
    const bool isStored =
        UpdateSelectCounter(quoted(NameColumn), quoted(OriginColumn), quoted(SexColumn),
                            ticked ? QStringLiteral("Y") : QStringLiteral("N"));
    if (!isStored)
        setTick(page, row, !ticked, m_tickPictures);
}

bool SearchFrame::UpdateSelectCounter(const QString &inpName, const QString &inpOrigin,
                                      const QString &inpSex, const QString &inpValue)
{
    const QString origin = basDatabase::GetFieldValue(
        u"select org_id from tblorg where org_desc = '" % inpOrigin % u'\'');
    const bool isRun = basDatabase::ExecuteSQL(
        u"update tblmaster set name_select = '" % inpValue % u"' where name_desc = '" % inpName
        % u"' and   name_orgid = '" % origin % u"' and   name_sex = '" % inpSex % u"' ");
    RefreshSelectCount();
    // Of an unknown origin there is no entry that could have been changed.
    return isRun && !origin.isEmpty();
}

bool SearchFrame::ErrorFree()
{
    using dialogs::Icon;
    const QString warning = QStringLiteral("Warning");
    if (m_ui->msSearchList->rowCount() < 2) {
        dialogs::showMessage(QStringLiteral("No record found!"), Icon::Information, warning);
        return false;
    }
    const qint64 count = basDatabase::NumericValue(m_ui->lblRecSelected->text());
    if (count == 0) {
        dialogs::showMessage(QStringLiteral("No record selected!"), Icon::Information, warning);
        return false;
    }
    if (count > basDatabase::NumericValue(m_maxSelect))
        dialogs::showMessage(u"Warning: You have selected more than " % m_maxSelect
                                 % u" names.\r\nPlease limit your choices to less than or equal "
                                 % m_maxSelect
                                 % u" otherwise\r\nyou will have too many names to choose from.",
                             Icon::Information, window()->windowTitle());
    return true;
}

void SearchFrame::UpdateToDB()
{
    // A statement that fails tells why; nothing is said to be saved then.
    const bool isSaved = basDatabase::RewriteTable(
        QStringLiteral("tblresult"),
        {QStringLiteral("insert into tblresult(name_desc, name_orgid, name_sex, name_meaning, "
                        "name_first, name_select) "
                        "select name_desc, org_desc, name_sex, meaning_name, name_first, "
                        "name_select from tblmaster, tblmeaning, tblorg "
                        "where name_mid = meaning_id "
                        "and name_orgid = org_id "
                        "and name_select = 'Y' ")});
    if (!isSaved)
        return;
    dialogs::showMessage(QStringLiteral("Record selected saved!"), dialogs::Icon::Information,
                         QStringLiteral("Tovarin"));
    Q_EMIT shortlistSaved();
}

} // namespace search

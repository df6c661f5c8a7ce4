// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "worksheet/worksheetframe.h"

#include "db/basdatabase.h"
#include "layout/basresize.h"
#include "layout/columnwidths.h"
#include "platform/dialogs/messagebox.h"
#include "platform/grid/flexgrid.h"
#include "platform/grid/redrawlock.h"
#include "ui_worksheetframe.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace worksheet {

WorksheetFrame::WorksheetFrame(std::function<QStringList()> topNNames, QWidget *parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::WorksheetFrame>()),
      m_topNNames(std::move(topNNames))
{
    using grid::FlexGrid;
    m_ui->setupUi(this);
    setFocusProxy(m_ui->msfInitial);
    m_ui->msfInitial->setStretchColumn(LastColumn);
    connect(m_ui->msfInitial, &FlexGrid::cellClicked, this, [this] { startEdit({}); });
    connect(m_ui->msfInitial, &FlexGrid::keyPressed, this, &WorksheetFrame::startEdit);
    connect(m_ui->msfInitial, &FlexGrid::beforeEdit, this, &WorksheetFrame::prepareEdit);
    connect(m_ui->msfInitial, &FlexGrid::afterEdit, this, &WorksheetFrame::finishEdit);
    connect(m_ui->cmdSaveInitial, &QPushButton::clicked, this, [this] {
        if (commitEdit() && ErrorFreeInitial())
            UpdateInitialToDB();
    });
    connect(m_ui->cmdBack, &QPushButton::clicked, this, &WorksheetFrame::goBack);
    connect(m_ui->cmdPrintInitial, &QPushButton::clicked, this, &WorksheetFrame::print);
}

WorksheetFrame::~WorksheetFrame() = default;

void WorksheetFrame::setTopN(const QString &topN)
{
    m_topN = topN;
}

bool WorksheetFrame::DisplayInitialRecord()
{
    m_recordChanged = false;
    // Everything is read before the grid changes: reading may open message boxes.
    std::vector<FullName> names;
    auto records = basDatabase::OpenRecordset(QStringLiteral("select * from tblinitial "));
    for (; records && !records->isAtEnd(); records->moveNext())
        names.push_back({.first = records->text(u"init_first"),
                         .middle = records->text(u"init_second"),
                         .last = records->text(u"init_third"),
                         .other = records->text(u"init_other"),
                         .initials = records->text(u"init_desc")});
    for (const QString &name : m_topNNames()) {
        if (basDatabase::GetFieldValue(savedFirstNameQuery(name)).isEmpty())
            names.push_back({.first = name, .initials = basDatabase::QuoteSQL(firstLetter(name))});
    }

    grid::FlexGrid &page = *m_ui->msfInitial;
    {
        const grid::RedrawLock lock(&page);
        page.setFormatString(worksheetFormat(m_topN));
        page.setColumnCount(FullNameColumnCount);
        page.setRowCount(1);
        page.setColumnPixelWidth(TopNColumn, 1);
        layout::makeRoomForStretchColumn(
            page, LastColumn, {FirstColumn, MiddleColumn, OtherColumn, InitialsColumn}, 0.2);
        for (const FullName &name : names)
            addRow(name);
        addRow({});
        basResize::FitGridRows(page);
    }
    page.setCurrentCell(1, MiddleColumn);
    return true;
}

void WorksheetFrame::addRow(const FullName &name)
{
    grid::FlexGrid &page = *m_ui->msfInitial;
    page.addRow({QString::number(page.rowCount()), QString(), name.first, name.middle, name.last,
                 name.other, name.initials});
}

void WorksheetFrame::startEdit(const QString &typed)
{
    grid::FlexGrid &page = *m_ui->msfInitial;
    const bool isOpen = page.currentCol() >= FirstColumn && page.currentCol() <= OtherColumn;
    page.setEditable(isOpen);
    if (isOpen)
        page.editCell(typed);
}

void WorksheetFrame::prepareEdit(int row, int column)
{
    grid::FlexGrid &page = *m_ui->msfInitial;
    m_cellOldText = page.text(row, column);
    page.setComboList(column == FirstColumn ? GetInitialiseList(true, m_cellOldText) : QString());
}

QString WorksheetFrame::GetInitialiseList(bool addBlank, const QString &current) const
{
    QStringList firstNames;
    for (int row = 1; row < m_ui->msfInitial->rowCount(); ++row)
        firstNames.append(m_ui->msfInitial->text(row, FirstColumn));
    return firstNameList(addBlank, current, firstNames);
}

void WorksheetFrame::finishEdit(int row, int column, int step)
{
    grid::FlexGrid &page = *m_ui->msfInitial;
    // A first name leaves the initials as they are until another part of the name is edited.
    if (column >= MiddleColumn && column <= OtherColumn) {
        const FullName name = fullName(row);
        const bool isLastRow = row == page.rowCount() - 1;
        if (isLastRow && !name.first.isEmpty()) {
            addRow({});
            basResize::FitGridRows(page, row + 1, row + 1);
        } else if (name.first.isEmpty()
                   && !(name.middle.isEmpty() && name.last.isEmpty() && name.other.isEmpty())) {
            refuseEdit(row, column);
            return;
        }
        page.setText(row, InitialsColumn, initials(name.first, name.middle, name.last, name.other));
        if (page.text(row, column) != m_cellOldText)
            m_recordChanged = true;
    }
    basResize::FitGridRows(page, row, row);
    if (column == OtherColumn && step > 0)
        goToNextRow(row);
}

/// The next name begins with its middle name, or with its first name if that is still to be chosen.
void WorksheetFrame::goToNextRow(int row)
{
    grid::FlexGrid &page = *m_ui->msfInitial;
    const int next = std::min(row + 1, page.rowCount() - 1);
    page.setCurrentCell(next, page.text(next, FirstColumn).isEmpty() ? FirstColumn : MiddleColumn);
}

/// The edit may have been ended by a click elsewhere. That click comes first: a message in between
/// would swallow half of it.
void WorksheetFrame::refuseEdit(int row, int column)
{
    m_isRefusing = true;
    const auto refuse = [this, row, column] {
        grid::FlexGrid &page = *m_ui->msfInitial;
        dialogs::showMessage(QStringLiteral("Please select the First Name!"),
                             dialogs::Icon::Information, QStringLiteral("Warning"));
        page.setText(row, column, {});
        page.setCurrentCell(row, TopNColumn);
        page.setFocus();
        m_isRefusing = false;
    };
    dialogs::afterClick(this, refuse);
}

FullName WorksheetFrame::fullName(int row) const
{
    const auto text = [this, row](int column) { return m_ui->msfInitial->text(row, column); };
    return {.first = text(FirstColumn),
            .middle = text(MiddleColumn),
            .last = text(LastColumn),
            .other = text(OtherColumn),
            .initials = text(InitialsColumn)};
}

} // namespace worksheet

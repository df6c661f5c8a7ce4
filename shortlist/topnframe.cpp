// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "shortlist/topnframe.h"

#include "db/basdatabase.h"
#include "layout/basresize.h"
#include "layout/columnwidths.h"
#include "layout/twips.h"
#include "platform/grid/flexgrid.h"
#include "platform/grid/redrawlock.h"
#include "ui_topnframe.h"

#include <QKeyEvent>

namespace shortlist {

namespace {

constexpr int rankWidth = 995; // twips
constexpr int rankWidthBesideScrollBar = 750;

} // namespace

TopNFrame::TopNFrame(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Ui::TopNFrame>())
{
    m_ui->setupUi(this);
    m_previous = {.grid = m_ui->msfPrevTopN,
                  .column = FirstFreeColumn,
                  .rowsThatScroll = 13,
                  .offersNone = true};
    m_result = {.grid = m_ui->msfResult, .column = FirstFreeColumn + 1, .rowsThatScroll = 16};
    setUpRanks(m_previous);
    setUpRanks(m_result);

    connect(m_ui->lstTopNList, &QListWidget::itemClicked, this,
            [this] { takeFreeRank(m_ui->lstTopNList->currentRow()); });
    m_ui->lstTopNList->installEventFilter(this);
    connect(m_ui->cmdSaveTopN, &QPushButton::clicked, this, [this] {
        commitEdits();
        if (ErrorFreeTopN())
            UpdateTopNToDB();
    });
    connect(m_ui->cmdNext, &QPushButton::clicked, this, [this] {
        if (isSavedBefore(u"go to next step"))
            Q_EMIT nextRequested();
    });
    connect(m_ui->cmdPrintTopN, &QPushButton::clicked, this, [this] {
        if (isSavedBefore(u"print"))
            Q_EMIT printRequested();
    });
}

TopNFrame::~TopNFrame() = default;

void TopNFrame::setUpRanks(Ranks &ranks)
{
    using grid::FlexGrid;
    ranks.grid->setStretchColumn(MeaningColumn);
    connect(ranks.grid, &FlexGrid::cellClicked, this, [this, &ranks] { startEdit(ranks, {}); });
    connect(ranks.grid, &FlexGrid::keyPressed, this,
            [this, &ranks](const QString &typed) { startEdit(ranks, typed); });
    connect(ranks.grid, &FlexGrid::beforeEdit, this,
            [this, &ranks](int row, int column) { prepareEdit(ranks, row, column); });
    connect(ranks.grid, &FlexGrid::afterEdit, this,
            [this, &ranks](int row) { finishEdit(ranks, row); });
}

void TopNFrame::setTopN(const QString &topN)
{
    m_topN = topN;
}

void TopNFrame::setMaxSelect(const QString &maxSelect)
{
    m_maxSelect = maxSelect;
}

void TopNFrame::DisplayNote()
{
    m_ui->lblTopNNote->setText(u"Select your top " % m_topN % u" choices");
}

void TopNFrame::CheckResultTable()
{
    DisplayPreviousRecords();
    m_ui->lstPrevTopNDel->clear();
    const auto isEmpty = [](const QString &table) {
        const QString count = basDatabase::GetFieldValue(u"select count(*) from " % table % u' ');
        return basDatabase::NumericValue(count) == 0;
    };
    if (isEmpty(QStringLiteral("tbltopn")) && isEmpty(QStringLiteral("tblresult")))
        return;
    DisplayResultRecords();
    Q_EMIT opened();
}

void TopNFrame::takeFocus()
{
    (m_result.grid->rowCount() > 1 ? m_result : m_previous).grid->setFocus();
}

void TopNFrame::formatGrid(const Ranks &ranks, int columns) const
{
    ranks.grid->setFormatString(rankingFormat(m_topN));
    ranks.grid->setColumnCount(columns);
    ranks.grid->setRowCount(1);
    // Below, the ranks have a column of their own without a heading on screen.
    ranks.grid->setAccessibleHeading(ranks.column, topNTitle());
}

void TopNFrame::DisplayPreviousRecords()
{
    grid::FlexGrid &page = *m_previous.grid;
    const grid::RedrawLock lock(&page);
    formatGrid(m_previous, FirstFreeColumn + 1);
    auto records = basDatabase::OpenRecordset(
        QStringLiteral("select t10_name, t10_sex, t10_orgid, t10_mid, t10_id from tbltopn "
                       "order by t10_id, t10_name, t10_orgid, t10_sex "));
    for (; records && !records->isAtEnd(); records->moveNext()) {
        QStringList row(QString::number(page.rowCount()));
        for (qsizetype field = 0; field < records->fieldCount(); ++field)
            row.append(records->text(field));
        page.addRow(row);
    }
    SetRankWidth(m_previous);
    basResize::FitGridRows(page);
}

void TopNFrame::DisplayResultRecords()
{
    m_topNChanged = false;
    grid::FlexGrid &page = *m_result.grid;
    {
        const grid::RedrawLock lock(&page);
        formatGrid(m_result, FirstFreeColumn + 2);
        page.setColumnPixelWidth(FirstFreeColumn, 1);
        auto records = basDatabase::OpenRecordset(
            QStringLiteral("select * from tblresult order by name_desc, name_orgid, name_sex "));
        const qint64 most = basDatabase::NumericValue(m_maxSelect);
        for (; records && !records->isAtEnd() && page.rowCount() <= most; records->moveNext()) {
            const auto text = [&records](QStringView field) { return records->text(field); };
            if (CheckPreviousTopNExist(basDatabase::QuoteSQL(text(u"name_desc")),
                                       basDatabase::QuoteSQL(text(u"name_sex")),
                                       basDatabase::QuoteSQL(text(u"name_orgid"))))
                continue;
            page.addRow({QString::number(page.rowCount()), text(u"name_desc"), text(u"name_sex"),
                         text(u"name_orgid"), text(u"name_meaning"), text(u"name_first"), noRank});
        }
        SetRankWidth(m_result);
        basResize::FitGridRows(page);
    }
    page.setCurrentCell(1, m_result.column);
    listFreeRanks();
}

void TopNFrame::SetRankWidth(const Ranks &ranks) const
{
    const bool isBesideScrollBar = ranks.grid->rowCount() >= ranks.rowsThatScroll;
    ranks.grid->setColumnPixelWidth(
        ranks.column,
        layout::pixelsFromTwips(isBesideScrollBar ? rankWidthBesideScrollBar : rankWidth));
    layout::makeRoomForStretchColumn(*ranks.grid, MeaningColumn, {NameColumn, OriginColumn}, 0.32);
}

bool TopNFrame::CheckPreviousTopNExist(const QString &inpName, const QString &inpSex,
                                       const QString &inpOrigin)
{
    return !basDatabase::GetFieldValue(rankQuery(inpName, inpOrigin, inpSex)).isEmpty();
}

QStringList TopNFrame::topNNames() const
{
    QStringList names;
    for (int row = 1; row < m_previous.grid->rowCount(); ++row)
        names.append(m_previous.grid->text(row, NameColumn));
    return names;
}

void TopNFrame::startEdit(const Ranks &ranks, const QString &typed)
{
    const bool isRank = ranks.grid->currentCol() == ranks.column;
    ranks.grid->setEditable(isRank);
    if (isRank)
        ranks.grid->editCell(typed);
}

void TopNFrame::prepareEdit(Ranks &ranks, int row, int column)
{
    const bool isRank = column == ranks.column;
    ranks.oldValue = ranks.grid->text(row, column);
    ranks.grid->setComboList(isRank ? GetTopNList(ranks.offersNone, ranks.oldValue) : QString());
}

void TopNFrame::finishEdit(Ranks &ranks, int row)
{
    const QString value = ranks.grid->text(row, ranks.column);
    if (ranks.offersNone && value == noRank)
        moveToShortlist(row);
    if (value != ranks.oldValue)
        m_topNChanged = true;
}

void TopNFrame::moveToShortlist(int row)
{
    grid::FlexGrid &previous = *m_previous.grid;
    grid::FlexGrid &result = *m_result.grid;
    const int number = result.rowCount() + 1; // one more than the row's own
    QStringList moved(QString::number(number));
    for (int column = NameColumn; column <= MeaningColumn; ++column)
        moved.append(previous.text(row, column));
    result.addRow(moved << QString() << noRank);
    previous.removeItem(row);
    for (int left = 1; left < previous.rowCount(); ++left)
        previous.setText(left, NumberColumn, QString::number(left));
    for (const Ranks *ranks : {&m_previous, &m_result})
        SetRankWidth(*ranks);
    basResize::FitGridRows(result);
}

void TopNFrame::listFreeRanks()
{
    QListWidget &list = *m_ui->lstTopNList;
    list.clear();
    list.addItems(ranksUpTo(m_topN));
    for (const Ranks *ranks : {&m_previous, &m_result}) {
        for (int row = 1; row < ranks->grid->rowCount(); ++row) {
            const int place = GetTopNRow(ranks->grid->text(row, ranks->column));
            if (place >= 0)
                delete list.takeItem(place);
        }
    }
}

QString TopNFrame::GetTopNList(bool inpWithEmpty, const QString &inpOldValue)
{
    QListWidget &list = *m_ui->lstTopNList;
    listFreeRanks();
    if (inpWithEmpty)
        list.addItem(noRank);
    list.addItem(inpOldValue);
    QStringList items;
    for (int place = 0; place < list.count(); ++place)
        items.append(list.item(place)->text());
    return items.join(u'|');
}

std::int16_t TopNFrame::GetTopNRow(const QString &inpTopN) const
{
    const QListWidget &list = *m_ui->lstTopNList;
    for (int place = 0; place < list.count(); ++place) {
        if (list.item(place)->text() == inpTopN)
            return static_cast<std::int16_t>(place);
    }
    return -1;
}

void TopNFrame::takeFreeRank(int place)
{
    QListWidget &list = *m_ui->lstTopNList;
    grid::FlexGrid &result = *m_result.grid;
    const int row = result.currentRow();
    if (place < 0 || place >= list.count() || row < 1 || result.text(row, NameColumn).isEmpty())
        return;
    const QString oldRank = result.text(row, m_result.column);
    const std::unique_ptr<QListWidgetItem> taken(list.takeItem(place));
    result.setText(row, m_result.column, taken->text());
    if (basDatabase::NumericValue(oldRank) > 0)
        list.addItem(oldRank);
    // Nothing stays selected, but the keyboard goes on from where it was.
    list.clearSelection();
    list.setCurrentRow(std::min(place, list.count() - 1), QItemSelectionModel::NoUpdate);
}

bool TopNFrame::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_ui->lstTopNList && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
            takeFreeRank(m_ui->lstTopNList->currentRow());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace shortlist

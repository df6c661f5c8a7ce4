// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "search/searchframe.h"

#include "db/basdatabase.h"
#include "db/programend.h"
#include "layout/basresize.h"
#include "platform/dialogs/waitcursor.h"
#include "platform/grid/flexgrid.h"
#include "platform/grid/redrawlock.h"
#include "search/pagequeries.h"
#include "search/pages.h"
#include "ui_searchframe.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>

namespace search {

namespace {

bool isEnter(const QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent *>(event)->key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

Sex sexOf(const QRadioButton *boy, const QRadioButton *girl)
{
    return boy->isChecked() ? Sex::Boy : girl->isChecked() ? Sex::Girl : Sex::Both;
}

} // namespace

SearchFrame::SearchFrame(QWidget *parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::SearchFrame>())
{
    m_ui->setupUi(this);
    setUpResultGrid();
    setUpBrowseKeys();
    setUpCriteriaLists();
    setUpPageButtons();
    connect(m_ui->cmdSearch, &QPushButton::clicked, this,
            [this] { runBrowse(BrowseMode::Search); });
    connect(m_ui->cmdList, &QPushButton::clicked, this, [this] { runBrowse(BrowseMode::List); });
    connect(m_ui->cmdSave, &QPushButton::clicked, this, [this] {
        if (ErrorFree())
            UpdateToDB();
    });
}

SearchFrame::~SearchFrame() = default;

void SearchFrame::setUpBrowseKeys()
{
    const std::initializer_list<QWidget *> searchControls = {
        m_ui->txtSearchName, m_ui->cboNameCondition, m_ui->cboOrigin,   m_ui->txtMeaning,
        m_ui->chkSelected,   m_ui->optSearch_0,      m_ui->optSearch_1, m_ui->optSearch_2};
    for (QWidget *control : searchControls) {
        control->setProperty("browse", static_cast<int>(BrowseMode::Search));
        control->installEventFilter(this);
    }
    const std::initializer_list<QWidget *> listControls = {
        m_ui->cboAlphabet, m_ui->optList_0,  m_ui->optList_1, m_ui->optList_2,
        m_ui->optList1_0,  m_ui->optList1_1, m_ui->optList1_2};
    for (QWidget *control : listControls) {
        control->setProperty("browse", static_cast<int>(BrowseMode::List));
        control->installEventFilter(this);
    }
}

void SearchFrame::setUpCriteriaLists()
{
    // An origin counts as it is typed. What contains it is offered below, for those who want it.
    auto *offered = new QCompleter(m_ui->cboOrigin->model(), m_ui->cboOrigin);
    offered->setCaseSensitivity(Qt::CaseInsensitive);
    offered->setFilterMode(Qt::MatchContains);
    m_ui->cboOrigin->setCompleter(offered);
    offered->popup()->setProperty("browse", static_cast<int>(BrowseMode::Search));
    offered->popup()->installEventFilter(this);

    // The wheel does not give a list the focus, and changes one only where it is: eventFilter().
    for (QComboBox *list : {m_ui->cboNameCondition, m_ui->cboOrigin, m_ui->cboAlphabet})
        list->setFocusPolicy(Qt::StrongFocus);

    // The part of the list that has the focus.
    m_ui->cboOrigin->lineEdit()->setAccessibleName(m_ui->cboOrigin->accessibleName());
}

void SearchFrame::setUpResultGrid()
{
    m_tickPictures = drawTickPictures(*m_ui->msSearchList);
    m_ui->picChecked->setPixmap(m_tickPictures.checked);
    m_ui->picUnchecked->setPixmap(m_tickPictures.unchecked);
    connect(m_ui->msSearchList, &grid::FlexGrid::cellClicked, this, &SearchFrame::toggleTick);
}

void SearchFrame::setUpPageButtons()
{
    const auto turnOnClick = [this](QPushButton *button, void (SearchFrame::*turn)()) {
        connect(button, &QPushButton::clicked, this,
                [this, turn] { endOnFailure([this, turn] { (this->*turn)(); }); });
    };
    turnOnClick(m_ui->cmdFirstPage, &SearchFrame::goToFirstPage);
    turnOnClick(m_ui->cmdPageDown, &SearchFrame::goToPreviousPage);
    turnOnClick(m_ui->cmdPageUp, &SearchFrame::goToNextPage);
    turnOnClick(m_ui->cmdLastPage, &SearchFrame::goToLastPage);
}

void SearchFrame::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // Only now does the grid have the size that its columns are fitted to.
    if (m_browseMode == BrowseMode::None)
        formatPage(*m_ui->msSearchList);
}

void SearchFrame::takeFocus()
{
    m_ui->txtSearchName->setFocus();
}

bool SearchFrame::eventFilter(QObject *watched, QEvent *event)
{
    const auto *list = qobject_cast<QComboBox *>(watched);
    if (list && event->type() == QEvent::Wheel && !list->hasFocus()) {
        event->ignore();
        return true;
    }
    if (isEnter(event)) {
        m_ui->cboOrigin->completer()->popup()->hide();
        runBrowse(static_cast<BrowseMode>(watched->property("browse").toInt()));
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void SearchFrame::runBrowse(BrowseMode mode)
{
    endOnFailure([this, mode] {
        const dialogs::WaitCursor hourglass;
        if (mode == BrowseMode::Search)
            SearchRecord();
        else
            SearchRecord1();
    });
}

void SearchFrame::InitialiseNameCondition()
{
    m_ui->cboNameCondition->clear();
    m_ui->cboNameCondition->addItems({QStringLiteral("Exact"), QStringLiteral("Starts With"),
                                      QStringLiteral("Ends With"), QStringLiteral("Contains")});
    m_ui->cboNameCondition->setCurrentIndex(0);
}

void SearchFrame::InitialiseAlphabet()
{
    m_ui->cboAlphabet->clear();
    for (char letter = 'A'; letter <= 'Z'; ++letter)
        m_ui->cboAlphabet->addItem(QString(QLatin1Char(letter)));
    m_ui->cboAlphabet->setCurrentIndex(0);
}

void SearchFrame::InitialiseOrigin()
{
    basDatabase::FillComboBox(QStringLiteral("select org_desc from tblorg order by org_desc "),
                              *m_ui->cboOrigin);
    if (m_ui->cboOrigin->count() > 0)
        m_ui->cboOrigin->setCurrentIndex(0);
}

void SearchFrame::InitialiseOptions()
{
    m_ui->optList_0->setChecked(true);
    m_ui->optList1_0->setChecked(true);
    m_ui->optSearch_0->setChecked(true);
}

void SearchFrame::ClearPageLabel()
{
    m_ui->lblPage->clear();
}

void SearchFrame::RefreshSelectCount()
{
    m_ui->lblRecSelected->setText(basDatabase::GetFieldValue(tickCountQuery()));
}

SearchCriteria SearchFrame::searchCriteria() const
{
    const int rule = m_ui->cboNameCondition->currentIndex();
    return {.sex = sexOf(m_ui->optSearch_0, m_ui->optSearch_1),
            .name = rule < 0 ? QString() : m_ui->txtSearchName->text(),
            .nameRule = static_cast<NameRule>(qMax(rule, 0)),
            .origin = m_ui->cboOrigin->currentText(),
            .meaning = m_ui->txtMeaning->text(),
            .tickedOnly = m_ui->chkSelected->isChecked()};
}

ListCriteria SearchFrame::listCriteria() const
{
    const ListField field = m_ui->optList_0->isChecked()   ? ListField::Name
                            : m_ui->optList_1->isChecked() ? ListField::Meaning
                                                           : ListField::Origin;
    return {.field = field,
            .letter = m_ui->cboAlphabet->currentText(),
            .sex = sexOf(m_ui->optList1_0, m_ui->optList1_1)};
}

void SearchFrame::SearchRecord()
{
    m_browseMode = BrowseMode::Search;
    startBrowse(searchClause());
}

void SearchFrame::SearchRecord1()
{
    m_browseMode = BrowseMode::List;
    startBrowse(listClause());
}

void SearchFrame::startBrowse(const QString &clause)
{
    const qint64 count = basDatabase::NumericValue(basDatabase::GetFieldValue(countQuery(clause)));
    m_ui->lblRecStatus->setText(QStringLiteral("%1 record(s) found").arg(count));
    m_currentPage = 1;
    DisplaySearchResult(firstPageQuery(clause));
    const bool hasRows = m_ui->msSearchList->rowCount() > 1;
    m_currentPage = hasRows && count > 0 ? 1 : 0;
    m_totalPages = hasRows ? pageCount(count) : std::int16_t(0);
    m_lastPageRows = lastPageRows(count);
    DisplayPreviousList({}, pageNumber(-1));
    DisplayNextList(queryAfterPage(clause), pageNumber(+1));
    ActivatePageButtons(m_currentPage, m_totalPages);
    RefreshSelectCount();
}

void SearchFrame::DisplaySearchResult(const QString &inpSQL)
{
    rebuildPage([this, &inpSQL] {
        grid::FlexGrid &page = *m_ui->msSearchList;
        formatPage(page);
        if (std::optional<dbaccess::Recordset> records = basDatabase::OpenRecordset(inpSQL))
            appendRecords(page, *records, m_currentPage);
        markFromDatabase(page, m_tickPictures);
    });
}

void SearchFrame::rebuildPage(const std::function<void()> &fill)
{
    grid::FlexGrid &page = *m_ui->msSearchList;
    const bool hadFocus = page.hasFocus(); // which a hidden control loses
    page.hide();
    {
        const grid::RedrawLock lock(&page);
        fill();
        basResize::FitGridRows(page);
    }
    page.show();
    if (hadFocus)
        page.setFocus();
    if (page.rowCount() > 1)
        page.setCurrentCell(1, NameColumn);
}

void SearchFrame::InitialiseSelectFlag()
{
    basDatabase::ExecuteSQL(QStringLiteral("update tblmaster set name_select = 'N' "));
    RefreshSelectCount();
}

} // namespace search

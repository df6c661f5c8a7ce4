// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/grid/celltext.h"
#include "platform/grid/flexgrid.h"
#include "platform/grid/formatstring.h"
#include "platform/grid/redrawlock.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <array>
#include <functional>

using grid::FlexGrid;
using grid::RedrawLock;

using Action = std::function<void(FlexGrid &)>;
Q_DECLARE_METATYPE(Action)

namespace {

/// A shown window with an editable grid of three rows, each column filled with its own words, and
/// another widget that takes the focus.
class Window : public QWidget
{
public:
    Window()
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(&grid);
        layout->addWidget(&other);
        grid.setFormatString(QStringLiteral("<Word        |^Kind      |>Lesson   "));
        for (const char16_t *row : {u"house\tnoun\t1", u"go\tverb\t2", u"red\tadjective\t3"})
            grid.addItem(QString::fromUtf16(row));
        grid.setEditable(true);
        resize(500, 300);
        show();
        activateWindow();
        grid.setFocus();
        ready = QTest::qWaitForWindowActive(this);
        grid.setCurrentCell(2, 1);
    }

    QPoint centre(int row, int col) const
    {
        return grid.visualRect(grid.model()->index(row - 1, col)).center();
    }

    void click(int row, int col)
    {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, centre(row, col));
    }

    FlexGrid grid;
    QPushButton other;
    bool ready = false;
};

/// The editor that is open; one that has been closed lives on hidden for a moment.
template <typename Editor>
Editor *editor(const FlexGrid &grid)
{
    for (Editor *found : grid.viewport()->findChildren<Editor *>()) {
        if (found->isVisible())
            return found;
    }
    return nullptr;
}

QAbstractItemView *openList(const FlexGrid &grid)
{
    const auto *combo = editor<QComboBox>(grid);
    return combo && combo->view()->isVisible() ? combo->view() : nullptr;
}

void clickItem(const FlexGrid &grid, int item)
{
    QAbstractItemView *list = openList(grid);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(item, 0)).center());
}

Action key(Qt::Key pressed, Qt::KeyboardModifiers modifiers = {})
{
    return [=](FlexGrid &grid) {
        QAbstractItemView *list = openList(grid);
        QTest::keyClick(list ? static_cast<QWidget *>(list) : editor<QLineEdit>(grid), pressed,
                        modifiers);
    };
}

/// By way of the window, as an open list hears of such a click first.
void clickInWindow(const FlexGrid &grid, const QWidget *widget, const QPoint &place)
{
    QTest::mouseClick(grid.window()->windowHandle(), Qt::LeftButton, {},
                      widget->mapTo(grid.window(), place));
}

void clickOtherCell(FlexGrid &grid)
{
    clickInWindow(grid, grid.viewport(), grid.visualRect(grid.model()->index(0, 0)).center());
}

void clickButton(FlexGrid &grid)
{
    const auto *button = grid.window()->findChild<QPushButton *>();
    clickInWindow(grid, button, button->rect().center());
}

} // namespace

class TestFlexGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formatStringsGiveColumns_data();
    void formatStringsGiveColumns();
    void aFormatStringSetsHeadersAndWidthsAndKeepsRows();
    void rowZeroIsTheHeaderAndOutsideIsNothing();
    void rowsAndColumnsGrowAndShrink();
    void aLockedFillIsOneReset();
    void theCurrentCellFollowsItsRow();
    void aOnePixelColumnIsSkipped();
    void theStretchColumnTakesTheRest();
    void rowHeightsSurviveARefill();
    void longWordsWrapAsMeasured();
    void picturesStandForTexts();
    void screenReadersHearTheirOwnText();
    void keysAndClicksReachTheListener();
    void aTypedEditReplacesTheText();
    void beforeEditHasTheLastWord();
    void everyWayOutEndsATextEditOnce_data();
    void everyWayOutEndsATextEditOnce();
    void everyWayOutEndsAListEditOnce_data();
    void everyWayOutEndsAListEditOnce();
    void afterEditMayDoAnything_data();
    void afterEditMayDoAnything();
    void listsOfferTheirItems();
    void anOpenEditDiesQuietlyWithItsGrid();
};

void TestFlexGrid::formatStringsGiveColumns_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QStringList>("columns"); // heading/width text/alignment
    QTest::newRow("empty") << QString() << QStringList();
    QTest::newRow("no mark") << QStringLiteral("Word  ")
                             << QStringList {QStringLiteral("Word/Word  /1")};
    QTest::newRow("marks") << QStringLiteral("<A |^B|> C ")
                           << QStringList {QStringLiteral("A/A /1"), QStringLiteral("B/B/4"),
                                           QStringLiteral("C/C /2")};
    QTest::newRow("no headings") << QStringLiteral("|^|>  ")
                                 << QStringList {QStringLiteral("//1"), QStringLiteral("//4"),
                                                 QStringLiteral("/  /2")};
    QTest::newRow("only the first mark counts")
        << QStringLiteral("^<B>") << QStringList {QStringLiteral("<B>/<B>/4")};
}

void TestFlexGrid::formatStringsGiveColumns()
{
    QFETCH(const QString, format);
    QStringList found;
    for (const grid::ColumnFormat &column : grid::parseFormatString(format))
        found.append(QStringLiteral("%1/%2/%3")
                         .arg(column.heading, column.widthText)
                         .arg(static_cast<int>(column.alignment)));
    QTEST(found, "columns");
}

void TestFlexGrid::aFormatStringSetsHeadersAndWidthsAndKeepsRows()
{
    FlexGrid grid;
    grid.setColumnCount(1);
    grid.addItem(QStringLiteral("kept"));
    grid.setFormatString(QStringLiteral("<A          |>B"));
    QCOMPARE(grid.columnCount(), 2);
    QCOMPARE(grid.text(1, 0), QStringLiteral("kept"));
    QCOMPARE(grid.rowText(0), QStringLiteral("A\tB"));
    const int expected = grid.fontMetrics().horizontalAdvance(QStringLiteral("A          "));
    QCOMPARE(grid.columnPixelWidth(0), expected + grid.cellTextMargin());
    QCOMPARE(grid.columnWidth(0), grid.columnPixelWidth(0));
    const QVariant alignment = grid.model()->index(0, 1).data(Qt::TextAlignmentRole);
    QVERIFY(alignment.value<Qt::Alignment>() & Qt::AlignRight);

    grid.setColumnPixelWidth(1, 70);
    QFont large = grid.font();
    large.setPointSize(3 * large.pointSize());
    grid.setFont(large);
    QVERIFY(grid.columnPixelWidth(0) > 2 * expected);
    QCOMPARE(grid.columnPixelWidth(1), 70);
    grid.setFormatString({});
    QCOMPARE(grid.columnCount(), 0);
    grid.addItem(QStringLiteral("nowhere"));
    QCOMPARE(grid.rowText(2), QString());
}

void TestFlexGrid::rowZeroIsTheHeaderAndOutsideIsNothing()
{
    FlexGrid grid;
    QCOMPARE(grid.rowCount(), 1);
    grid.setFormatString(QStringLiteral("A|B"));
    grid.addItem(QStringLiteral("a\tb\tsurplus"));
    grid.addItem(QStringLiteral("only a"));
    QCOMPARE(grid.rowText(1), QStringLiteral("a\tb"));
    QCOMPARE(grid.rowText(2), QStringLiteral("only a\t"));
    grid.addItem(grid.rowText(1));
    QCOMPARE(grid.rowText(3), QStringLiteral("a\tb"));
    grid.removeItem(3);
    grid.setText(0, 1, QStringLiteral("Heading"));
    QCOMPARE(grid.model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Heading"));
    for (const QPoint cell :
         {QPoint(-1, 0), QPoint(0, 2), QPoint(3, 0), QPoint(1, -1), QPoint(1, 2)}) {
        grid.setText(cell.x(), cell.y(), QStringLiteral("lost"));
        QCOMPARE(grid.text(cell.x(), cell.y()), QString());
        grid.setCurrentCell(cell.x(), cell.y());
        grid.setColumnPixelWidth(cell.y() + 2, 5);
    }
    QCOMPARE(grid.currentRow(), 0);
    QCOMPARE(grid.currentCol(), -1);
    for (const int row : {-1, 0, 3})
        grid.removeItem(row);
    QCOMPARE(grid.rowCount(), 3);
    grid.clear();
    QCOMPARE(grid.rowCount(), 3);
    QCOMPARE(grid.rowText(0) + grid.rowText(1), QStringLiteral("\t\t"));
}

void TestFlexGrid::rowsAndColumnsGrowAndShrink()
{
    FlexGrid grid;
    grid.setFormatString(QStringLiteral("A|B"));
    grid.setRowCount(4);
    QCOMPARE(grid.rowCount(), 4);
    grid.setText(1, 1, QStringLiteral("gone"));
    grid.setText(3, 0, QStringLiteral("last"));
    grid.setColumnCount(1);
    grid.setColumnCount(3);
    QCOMPARE(grid.rowText(1), QStringLiteral("\t\t"));
    QCOMPARE(grid.rowText(0), QStringLiteral("A\t\t"));
    QVERIFY(grid.columnPixelWidth(2) > 1);
    grid.removeItem(1);
    QCOMPARE(grid.text(2, 0), QStringLiteral("last"));
    grid.setRowCount(-5);
    QCOMPARE(grid.rowCount(), 1);
}

void TestFlexGrid::aLockedFillIsOneReset()
{
    FlexGrid grid;
    grid.setFormatString(QStringLiteral("A|B|C|D|E|F|G"));
    const QSignalSpy beginnings(grid.model(), &QAbstractItemModel::modelAboutToBeReset);
    const QSignalSpy resets(grid.model(), &QAbstractItemModel::modelReset);
    const QSignalSpy inserts(grid.model(), &QAbstractItemModel::rowsInserted);
    const QSignalSpy changes(grid.model(), &QAbstractItemModel::dataChanged);
    {
        const RedrawLock outer(&grid);
        const RedrawLock inner(&grid);
        for (int row = 1; row <= 100; ++row) {
            grid.addItem(QStringLiteral("a\tb\tc"));
            for (int col = 3; col < 7; ++col)
                grid.setText(row, col, QString::number(row));
        }
        grid.setCurrentCell(50, 2);
        QCOMPARE(grid.currentRow(), 50);
        grid.removeItem(1);
    }
    QCOMPARE(beginnings.count(), 1);
    QCOMPARE(resets.count(), 1);
    QCOMPARE(inserts.count() + changes.count(), 0);
    QCOMPARE(grid.verticalHeader()->count(), 99);
    QCOMPARE(grid.currentRow(), 49);
    QCOMPARE(grid.currentCol(), 2);

    // A lock that changes nothing costs nothing; one switch on too many is harmless.
    {
        const RedrawLock lock(&grid);
    }
    grid.setRedraw(true);
    grid.setText(1, 0, QStringLiteral("at once"));
    QCOMPARE(resets.count(), 1);
    QCOMPARE(changes.count(), 1);
}

void TestFlexGrid::theCurrentCellFollowsItsRow()
{
    Window window;
    window.grid.setCurrentCell(3, 2);
    window.grid.removeItem(1);
    QCOMPARE(window.grid.currentRow(), 2);
    window.grid.setFormatString(QStringLiteral("A|B"));
    QCOMPARE(window.grid.currentRow(), 2);
    QCOMPARE(window.grid.currentCol(), 1);
    window.grid.setRowCount(2);
    QCOMPARE(window.grid.currentRow(), 1);
    window.grid.setRowCount(1);
    QCOMPARE(window.grid.currentRow(), 0);
    QCOMPARE(window.grid.currentCol(), -1);
}

void TestFlexGrid::aOnePixelColumnIsSkipped()
{
    Window window;
    window.grid.setColumnPixelWidth(1, 1);
    QCOMPARE(window.grid.columnPixelWidth(1), 1);
    QCOMPARE(window.grid.columnWidth(1), 0);
    window.grid.setCurrentCell(1, 0);
    QTest::keyClick(&window.grid, Qt::Key_Right);
    QCOMPARE(window.grid.currentCol(), 2);
    window.grid.setColumnPixelWidth(1, 60);
    QCOMPARE(window.grid.columnWidth(1), 60);
}

void TestFlexGrid::theStretchColumnTakesTheRest()
{
    Window window;
    FlexGrid &grid = window.grid;
    grid.setStretchColumn(1);
    const auto rest = [&grid] {
        return grid.contentsRect().width() - grid.verticalScrollBar()->sizeHint().width()
               - grid.columnWidth(0) - grid.columnWidth(2);
    };
    QCOMPARE(grid.columnWidth(1), rest());
    const int before = grid.columnWidth(1);
    grid.setRowCount(200);
    QTRY_VERIFY(grid.verticalScrollBar()->isVisible());
    QCOMPARE(grid.columnWidth(1), before);
    QVERIFY(!grid.horizontalScrollBar()->isVisible());
    window.resize(600, 300);
    QTRY_COMPARE(grid.columnWidth(1), before + 100);
    grid.horizontalHeader()->resizeSection(0, 150); // as the mouse does
    QCOMPARE(grid.columnPixelWidth(0), 150);
    QCOMPARE(grid.columnWidth(1), rest());
    grid.setColumnPixelWidth(0, 590);
    QCOMPARE(grid.columnPixelWidth(1), 80);
}

void TestFlexGrid::rowHeightsSurviveARefill()
{
    Window window;
    window.grid.setRowPixelHeights(2, std::array {60, 70, 999});
    QCOMPARE(window.grid.rowHeight(1), 60);
    window.grid.removeItem(1);
    QCOMPARE(window.grid.rowPixelHeight(1), 60);
    QCOMPARE(window.grid.rowHeight(1), 70);
    {
        const RedrawLock lock(&window.grid);
        window.grid.setRowCount(1);
        window.grid.setRowCount(3);
        window.grid.setRowPixelHeights(2, std::array {50});
    }
    QCOMPARE(window.grid.rowHeight(0), window.grid.defaultRowPixelHeight());
    QCOMPARE(window.grid.rowHeight(1), 50);
}

void TestFlexGrid::longWordsWrapAsMeasured()
{
    const QFont font;
    const QFontMetrics metrics(font);
    const auto lines = [&](const QString &text, int width) {
        return grid::wrappedTextHeight(text, font, width) / metrics.height();
    };
    const QString word(30, u'm');
    const int width = metrics.horizontalAdvance(word);
    QCOMPARE(lines({}, width), 1);
    QCOMPARE(lines(word, width + 1), 1);
    QCOMPARE(lines(word, width * 2 / 5), 3);
    QCOMPARE(lines(QStringLiteral("a\nb\r\nc"), width), 3);
    QCOMPARE(lines(QStringLiteral("to ") + word, width + 2), 2);
}

void TestFlexGrid::picturesStandForTexts()
{
    Window window;
    QPixmap picture(8, 8);
    picture.fill(Qt::magenta);
    // The picture has more red in it than any letter.
    const auto count = [&](const std::function<bool(QRgb)> &counted) {
        const QRect cell = window.grid.visualRect(window.grid.model()->index(0, 0));
        const QImage image = window.grid.viewport()->grab(cell).toImage();
        int pixels = 0;
        for (int i = 0; i < image.width() * image.height(); ++i)
            pixels += counted(image.pixel(i % image.width(), i / image.width())) ? 1 : 0;
        return pixels;
    };
    const auto ink = [&] { return count([](QRgb pixel) { return qRed(pixel) < 128; }); };
    window.grid.setPicture(1, 0, picture);
    QCOMPARE(window.grid.picture(1, 0).cacheKey(), picture.cacheKey());
    QCOMPARE(count([](QRgb pixel) { return pixel == QColor(Qt::magenta).rgb(); }), 64);
    QCOMPARE(ink(), 0);
    window.grid.setPictureHidesText(false);
    QVERIFY(ink() > 0);
    window.grid.setText(1, 0, QStringLiteral("_"));
    QCOMPARE(ink(), 0);
    window.grid.setPicture(1, 0, {});
    QVERIFY(window.grid.picture(1, 0).isNull());
    QVERIFY(ink() > 0);
}

void TestFlexGrid::screenReadersHearTheirOwnText()
{
    Window window;
    window.grid.setAccessibleText(1, 1, QStringLiteral("learnt"));
    QAccessibleInterface *table = QAccessible::queryAccessibleInterface(&window.grid);
    QVERIFY(table && table->tableInterface());
    const auto spoken = [table](int row, int col) {
        return table->tableInterface()->cellAt(row, col)->text(QAccessible::Name);
    };
    QCOMPARE(spoken(0, 1), QStringLiteral("learnt"));
    QCOMPARE(spoken(1, 1), QStringLiteral("verb"));
    QCOMPARE(window.grid.text(1, 1), QStringLiteral("noun"));
}

void TestFlexGrid::keysAndClicksReachTheListener()
{
    Window window;
    QSignalSpy typed(&window.grid, &FlexGrid::characterTyped);
    QTest::keyClicks(&window.grid, QStringLiteral("a Z"));
    QTest::keyClick(&window.grid, Qt::Key_F2);
    QTest::keyClick(&window.grid, Qt::Key_Delete);
    QTest::keyClick(&window.grid, Qt::Key_C, Qt::ControlModifier);
    QString all;
    for (const QVariantList &arguments : typed)
        all += arguments.first().toString();
    QCOMPARE(all, QStringLiteral("a Z"));
    QVERIFY(!window.grid.isEditing());
    QCOMPARE(window.grid.currentRow(), 2);

    QTest::keyClick(&window.grid, Qt::Key_Down);
    QTest::keyClick(&window.grid, Qt::Key_Home);
    QCOMPARE(window.grid.currentRow(), 3);
    QCOMPARE(window.grid.currentCol(), 0);
    QTest::keyClick(&window.grid, Qt::Key_PageUp);
    QCOMPARE(window.grid.currentRow(), 1);

    QList<QPoint> clicks;
    connect(&window.grid, &FlexGrid::cellClicked, this, [&](int row, int col) {
        clicks.append({row, col});
        QCOMPARE(window.grid.currentRow(), row);
    });
    window.click(2, 2);
    QCOMPARE(clicks, QList<QPoint> {QPoint(2, 2)});
    QTest::keyClick(&window.grid, Qt::Key_Tab);
    QVERIFY(window.other.hasFocus());
}

void TestFlexGrid::aTypedEditReplacesTheText()
{
    Window window;
    window.grid.editCell(QStringLiteral("n"));
    QVERIFY(editor<QLineEdit>(window.grid) && editor<QLineEdit>(window.grid)->hasFocus());
    QTest::keyClicks(editor<QLineEdit>(window.grid), QStringLiteral("ew"));
    // A new picture must not bring back the old text.
    window.grid.setPicture(2, 1, QPixmap(4, 4));
    window.grid.commitEdit();
    QCOMPARE(window.grid.text(2, 1), QStringLiteral("new"));

    window.grid.editCell();
    QCOMPARE(editor<QLineEdit>(window.grid)->selectedText(), QStringLiteral("new"));
    window.grid.commitEdit();
    window.grid.setEditable(false);
    window.grid.editCell();
    QVERIFY(!window.grid.isEditing());
}

void TestFlexGrid::beforeEditHasTheLastWord()
{
    Window window;
    FlexGrid &grid = window.grid;
    const QSignalSpy ended(&grid, &FlexGrid::afterEdit);
    Action handler;
    connect(&grid, &FlexGrid::beforeEdit, this, [&](int row, int col) {
        QCOMPARE(QPoint(row, col), QPoint(2, 1));
        handler(grid);
    });
    handler = [](FlexGrid &g) { g.setEditable(false); };
    grid.editCell();
    QVERIFY(!grid.isEditing());
    grid.setEditable(true);
    handler = [](FlexGrid &g) {
        g.setCurrentCell(3, 0);
        g.editCell(); // while one is being started
    };
    grid.editCell(QStringLiteral("x"));
    grid.commitEdit();
    QCOMPARE(grid.text(3, 0), QStringLiteral("x"));
    QCOMPARE(ended.count(), 1);
    grid.setCurrentCell(2, 1);
    handler = [](FlexGrid &g) { g.setRowCount(1); };
    grid.editCell();
    QVERIFY(!grid.isEditing());
    QCOMPARE(ended.count(), 1);
}

void TestFlexGrid::everyWayOutEndsATextEditOnce_data()
{
    QTest::addColumn<Action>("leave");
    QTest::addColumn<bool>("committed");
    QTest::addColumn<bool>("gridHasFocus");
    QTest::newRow("Enter") << key(Qt::Key_Return) << true << true;
    QTest::newRow("keypad Enter") << key(Qt::Key_Enter, Qt::KeypadModifier) << true << true;
    QTest::newRow("Tab") << key(Qt::Key_Tab) << true << true;
    QTest::newRow("Shift+Tab") << key(Qt::Key_Backtab, Qt::ShiftModifier) << true << true;
    QTest::newRow("Escape") << key(Qt::Key_Escape) << false << true;
    QTest::newRow("click on a cell") << Action(clickOtherCell) << true << true;
    QTest::newRow("click on a button") << Action(clickButton) << true << false;
    const auto row = [](const char *name, const Action &leave) {
        QTest::newRow(name) << leave << true << true;
    };
    row("commitEdit", [](FlexGrid &g) { g.commitEdit(); });
    row("current cell", [](FlexGrid &g) { g.setCurrentCell(1, 0); });
    row("not editable", [](FlexGrid &g) { g.setEditable(false); });
    row("fewer rows", [](FlexGrid &g) { g.setRowCount(3); });
    row("row removed", [](FlexGrid &g) { g.removeItem(1); });
    row("new format", [](FlexGrid &g) { g.setFormatString(QStringLiteral("X|Y")); });
    row("redraw lock", [](FlexGrid &g) { const RedrawLock lock(&g); });
    QTest::newRow("hidden") << Action([](FlexGrid &g) { g.hide(); }) << true << false;
}

void TestFlexGrid::everyWayOutEndsATextEditOnce()
{
    QFETCH(const Action, leave);
    QFETCH(const bool, committed);
    QFETCH(const bool, gridHasFocus);
    Window window;
    QVERIFY(window.ready);
    QStringList seen;
    connect(&window.grid, &FlexGrid::afterEdit, this, [&](int row, int col) {
        QCOMPARE(QPoint(row, col), QPoint(2, 1));
        QVERIFY(!window.grid.isEditing());
        seen.append(window.grid.text(row, col));
    });
    window.grid.editCell(QStringLiteral("new"));
    QVERIFY(window.grid.isEditing());
    leave(window.grid);
    QCOMPARE(seen, QStringList {committed ? QStringLiteral("new") : QStringLiteral("verb")});
    QCOMPARE(window.grid.hasFocus(), gridHasFocus);
    QCoreApplication::processEvents();
    window.grid.commitEdit();
    QCOMPARE(seen.count(), 1);
    QVERIFY(!editor<QLineEdit>(window.grid));
}

void TestFlexGrid::everyWayOutEndsAListEditOnce_data()
{
    QTest::addColumn<Action>("leave");
    QTest::addColumn<QString>("result");
    const auto row = [](const char *name, const Action &leave, const char16_t *result) {
        QTest::newRow(name) << leave << QString::fromUtf16(result);
    };
    row(
        "item clicked", [](FlexGrid &g) { clickItem(g, 3); }, u"adverb");
    const auto moveAnd = [](Qt::Key last) {
        return [last](FlexGrid &g) {
            QTest::keyClick(openList(g), Qt::Key_Down);
            key(last)(g);
        };
    };
    row("Down, Enter", moveAnd(Qt::Key_Return), u"");
    row("Down, Tab", moveAnd(Qt::Key_Tab), u"");
    row("Down, Escape", moveAnd(Qt::Key_Escape), u"verb");
    row(
        "list closed", [](FlexGrid &g) { openList(g)->window()->close(); }, u"noun");
    row(
        "commitEdit", [](FlexGrid &g) { g.commitEdit(); }, u"noun");
    row("click on a button", clickButton, u"noun");
    row(
        "rows removed", [](FlexGrid &g) { g.setRowCount(3); }, u"noun");
}

void TestFlexGrid::everyWayOutEndsAListEditOnce()
{
    QFETCH(const Action, leave);
    Window window;
    QVERIFY(window.ready);
    const QSignalSpy ended(&window.grid, &FlexGrid::afterEdit);
    window.grid.setComboList(QStringLiteral("noun||verb|adverb|noun"));
    window.grid.editCell(QStringLiteral("n"));
    QVERIFY(openList(window.grid));
    leave(window.grid);
    QTRY_COMPARE(ended.count(), 1);
    QTEST(window.grid.text(2, 1), "result");
    QVERIFY(!window.grid.isEditing());
    QVERIFY(!editor<QComboBox>(window.grid));
    QCOMPARE(ended.count(), 1);
    QVERIFY(!QApplication::activePopupWidget());
}

void TestFlexGrid::afterEditMayDoAnything_data()
{
    QTest::addColumn<Action>("handle");
    QTest::addColumn<Action>("leave");
    QTest::addColumn<bool>("list");
    QTest::addColumn<int>("rows"); // afterwards, 0 where that depends on the way
    const QList<std::tuple<const char *, Action, int>> handlers {
        {"row removed", [](FlexGrid &g) { g.removeItem(2); }, 3},
        {"refilled",
         [](FlexGrid &g) {
             const RedrawLock lock(&g);
             g.setRowCount(1);
             g.setFormatString(QStringLiteral("A|B|C|D"));
             for (int i = 0; i < 5; ++i)
                 g.addItem(QString::number(i));
         },
         6},
        {"message box",
         [](FlexGrid &g) {
             QTimer::singleShot(0, &g, [] { QApplication::activeModalWidget()->close(); });
             QMessageBox(QMessageBox::Warning, {}, QStringLiteral("!"), {}, &g).exec();
         },
         0},
    };
    const QList<std::pair<const char *, Action>> ways {
        {"Enter", key(Qt::Key_Return)},
        {"Escape", key(Qt::Key_Escape)},
        {"click", clickOtherCell},
        {"button", clickButton},
        {"commitEdit", [](FlexGrid &g) { g.commitEdit(); }},
        {"same row removed", [](FlexGrid &g) { g.removeItem(2); }},
    };
    for (const auto &[does, handle, rows] : handlers) {
        for (const auto &[leaves, leave] : ways) {
            QTest::addRow("%s on %s", does, leaves) << handle << leave << false << rows;
            QTest::addRow("%s on %s of a list", does, leaves) << handle << leave << true << rows;
        }
    }
}

void TestFlexGrid::afterEditMayDoAnything()
{
    QFETCH(const Action, handle);
    QFETCH(const Action, leave);
    QFETCH(const bool, list);
    QFETCH(const int, rows);
    Window window;
    QVERIFY(window.ready);
    int ended = 0;
    connect(&window.grid, &FlexGrid::afterEdit, this, [&] {
        ++ended;
        handle(window.grid);
    });
    if (list)
        window.grid.setComboList(QStringLiteral("noun|verb"));
    window.grid.editCell();
    leave(window.grid);
    QTRY_COMPARE(ended, 1);
    QVERIFY(!editor<QLineEdit>(window.grid) && !editor<QComboBox>(window.grid));
    QCoreApplication::processEvents();
    QCOMPARE(ended, 1);
    if (rows > 0)
        QCOMPARE(window.grid.rowCount(), rows);
    window.grid.setCurrentCell(1, 0);
    window.grid.setComboList({});
    window.grid.editCell(QStringLiteral("again"));
    window.grid.commitEdit();
    QCOMPARE(ended, 2);
}

void TestFlexGrid::listsOfferTheirItems()
{
    Window window;
    const auto selected = [&window](const QString &typed) {
        window.grid.editCell(typed);
        const int index = editor<QComboBox>(window.grid)->currentIndex();
        window.grid.commitEdit();
        return index;
    };
    window.grid.setComboList(QStringLiteral("|noun|verb|Noun|adjective|adverb"));
    QCOMPARE(selected({}), 2);
    QCOMPARE(selected(QStringLiteral("ad")), 4);
    QCOMPARE(window.grid.text(2, 1), QStringLiteral("adjective"));
    QCOMPARE(selected(QStringLiteral("q")), 4);
    window.grid.setText(2, 1, QStringLiteral("not in the list"));
    QCOMPARE(selected({}), -1);
    QCOMPARE(window.grid.text(2, 1), QStringLiteral("not in the list"));
    window.grid.setText(2, 1, {});
    QCOMPARE(selected({}), 0);
}

void TestFlexGrid::anOpenEditDiesQuietlyWithItsGrid()
{
    int ended = 0;
    for (const char16_t *items : {u"", u"noun|verb"}) {
        Window window;
        connect(&window.grid, &FlexGrid::afterEdit, this, [&ended] { ++ended; });
        window.grid.setComboList(QString::fromUtf16(items));
        window.grid.editCell();
        QVERIFY(window.grid.isEditing());
    }
    QCOMPARE(ended, 0);
}

QTEST_MAIN(TestFlexGrid)
#include "test_flexgrid.moc"

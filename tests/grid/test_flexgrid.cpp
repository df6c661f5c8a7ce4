// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/grid/celltext.h"
#include "platform/grid/flexgrid.h"
#include "platform/grid/formatstring.h"
#include "platform/grid/redrawlock.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <functional>
#include <optional>

using grid::FlexGrid;
using grid::RedrawLock;

/// A shown window with an editable grid of three rows and another widget that takes the focus.
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
        grid.setCurrentCell(2, 1);
    }

    QRect cell(int row, int col) const
    {
        return grid.visualRect(grid.model()->index(row - 1, col));
    }

    /// By way of the window, as an open list hears of such a click first.
    void click(const QWidget &widget, const QPoint &place)
    {
        QTest::mouseClick(windowHandle(), Qt::LeftButton, {}, widget.mapTo(this, place));
    }

    void clickCell(int row, int col) { click(*grid.viewport(), cell(row, col).center()); }

    /// The editor that is open; one that has been closed lives on hidden for a moment.
    template <typename Editor>
    Editor *editor() const
    {
        for (Editor *found : grid.viewport()->findChildren<Editor *>()) {
            if (found->isVisible())
                return found;
        }
        return nullptr;
    }

    QAbstractItemView *list() const
    {
        const auto *combo = editor<QComboBox>();
        return combo && combo->view()->isVisible() ? combo->view() : nullptr;
    }

    FlexGrid grid;
    QPushButton other;
};

using Action = std::function<void(Window &)>;
Q_DECLARE_METATYPE(Action)

/// Presses the keys in whatever the edit has open.
static Action keys(const QList<Qt::Key> &pressed)
{
    return [=](Window &w) {
        QWidget *target = w.list() ? static_cast<QWidget *>(w.list()) : w.editor<QLineEdit>();
        for (const Qt::Key key : pressed)
            QTest::keyClick(target, key);
    };
}

class TestFlexGrid : public QObject
{
    Q_OBJECT

    std::optional<Window> m_window;

    FlexGrid &grid() { return m_window->grid; }

    /// The texts and the current cell.
    QString content()
    {
        QString all;
        for (int row = 0; row < grid().rowCount(); ++row)
            all += grid().rowTexts(row).join(u',') + u' ';
        return all + QStringLiteral("@%1/%2").arg(grid().currentRow()).arg(grid().currentCol());
    }

private Q_SLOTS:
    void init() { QVERIFY(QTest::qWaitForWindowActive(&m_window.emplace())); }
    void cleanup() { m_window.reset(); }

    void formatStringsGiveColumns()
    {
        QVERIFY(grid::parseFormatString({}).empty());
        QStringList columns; // heading/width text/alignment
        for (const auto &[heading, widthText, alignment] :
             grid::parseFormatString(u"Word  |<A |^B|> C ||^|>  |^<B>"))
            columns += QStringLiteral("%1/%2/%3").arg(heading, widthText).arg(int(alignment));
        QCOMPARE(columns.join(u'|'),
                 QStringLiteral("Word/Word  /1|A/A /1|B/B/4|C/C /2|//1|//4|/  /2|<B>/<B>/4"));
    }

    void aFormatStringSetsWidthsAndAlignments()
    {
        grid().setFormatString(QStringLiteral("<A          |>B"));
        const int expected = grid().fontMetrics().horizontalAdvance(QStringLiteral("A          "));
        QCOMPARE(grid().columnPixelWidth(0), expected + grid().cellTextMargin());
        QCOMPARE(grid().columnWidth(0), grid().columnPixelWidth(0));
        QCOMPARE(grid().model()->index(0, 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
                 Qt::AlignRight | Qt::AlignVCenter);

        grid().setColumnPixelWidth(1, 70);
        QFont large = grid().font();
        large.setPointSize(3 * large.pointSize());
        grid().setFont(large);
        QVERIFY(grid().columnPixelWidth(0) > 2 * expected);
        QCOMPARE(grid().columnPixelWidth(1), 70);
        grid().setColumnCount(3);
        QVERIFY(grid().columnPixelWidth(2) > 1);
    }

    void textsAndTheCurrentCellStayWithTheirRows()
    {
        const QString whole = content();
        for (const auto &[row, col] : {std::pair(-1, 0), {0, 3}, {4, 0}, {1, -1}, {1, 3}}) {
            grid().setText(row, col, QStringLiteral("lost"));
            QCOMPARE(grid().text(row, col), QString());
            grid().setCurrentCell(row, col);
        }
        for (const int row : {-1, 0, 4})
            grid().removeItem(row);
        grid().setColumnPixelWidth(3, 5);
        QCOMPARE(content(), whole);
        grid().setCurrentCell(3, 2);
        grid().removeItem(1);
        QCOMPARE(content(), QStringLiteral("Word,Kind,Lesson go,verb,2 red,adjective,3 @2/2"));
        grid().setFormatString(QStringLiteral("A|B"));
        QCOMPARE(content(), QStringLiteral("A,B go,verb red,adjective @2/1"));
        grid().setColumnCount(1);
        grid().setColumnCount(3);
        grid().addItem(QStringLiteral("a\tb\tc\td"));
        QCOMPARE(content(), QStringLiteral("A,, go,, red,, a,b,c @2/0"));
        grid().setRowCount(2);
        grid().addItem(QStringLiteral("x"));
        grid().setText(0, 1, QStringLiteral("B"));
        QCOMPARE(content(), QStringLiteral("A,B, go,, x,, @1/0"));
        grid().clear();
        grid().setRowCount(4);
        QCOMPARE(content(), QStringLiteral(",, ,, ,, ,, @1/0"));
        grid().setRowCount(-5);
        QCOMPARE(content(), QStringLiteral(",, @0/-1"));
        grid().setFormatString({});
        grid().addItem(QStringLiteral("nowhere"));
        QCOMPARE(content(), QStringLiteral("  @0/-1"));
    }

    void aLockedFillIsOneReset()
    {
        const QSignalSpy beginnings(grid().model(), &QAbstractItemModel::modelAboutToBeReset);
        const QSignalSpy resets(grid().model(), &QAbstractItemModel::modelReset);
        const QSignalSpy inserts(grid().model(), &QAbstractItemModel::rowsInserted);
        const QSignalSpy changes(grid().model(), &QAbstractItemModel::dataChanged);
        {
            const RedrawLock outer(&grid());
            const RedrawLock inner(&grid());
            grid().addItem(QStringLiteral("new"));
            grid().setText(4, 1, QStringLiteral("adjective"));
            grid().setCurrentCell(3, 2);
            QCOMPARE(grid().currentRow(), 3);
            grid().removeItem(1);
        }
        QCOMPARE(beginnings.count(), 1);
        QCOMPARE(resets.count(), 1);
        QCOMPARE(inserts.count() + changes.count(), 0);
        QCOMPARE(grid().verticalHeader()->count(), 3);
        QVERIFY(content().endsWith(u" new,adjective, @2/2"));

        // A lock that changes nothing costs nothing; one switch on too many is harmless.
        grid().setRedraw(false);
        grid().setRedraw(true);
        grid().setRedraw(true);
        grid().setText(1, 0, QStringLiteral("at once"));
        QCOMPARE(resets.count(), 1);
        QCOMPARE(changes.count(), 1);
    }

    void aOnePixelColumnIsSkipped()
    {
        grid().setColumnPixelWidth(1, 1);
        QCOMPARE(grid().columnWidth(1), 0);
        grid().setCurrentCell(1, 0);
        QTest::keyClick(&grid(), Qt::Key_Right);
        QCOMPARE(grid().currentCol(), 2);
        grid().setColumnPixelWidth(1, 60);
        QCOMPARE(grid().columnWidth(1), 60);
    }

    void theStretchColumnTakesTheRest()
    {
        grid().setStretchColumn(1);
        const auto rest = [this] {
            return grid().contentsRect().width() - grid().verticalScrollBar()->sizeHint().width()
                   - grid().columnWidth(0) - grid().columnWidth(2);
        };
        QCOMPARE(grid().columnWidth(1), rest());
        const int before = grid().columnWidth(1);
        grid().setRowCount(200);
        QTRY_VERIFY(grid().verticalScrollBar()->isVisible());
        QCOMPARE(grid().columnWidth(1), before);
        QVERIFY(!grid().horizontalScrollBar()->isVisible());
        m_window->resize(600, 300);
        QTRY_COMPARE(grid().columnWidth(1), before + 100);
        grid().horizontalHeader()->resizeSection(0, 150); // as the mouse does
        QCOMPARE(grid().columnPixelWidth(0), 150);
        QCOMPARE(grid().columnWidth(1), rest());
        grid().setColumnPixelWidth(0, 590);
        QCOMPARE(grid().columnPixelWidth(1), 80);
    }

    void rowHeightsSurviveARefill()
    {
        grid().setRowPixelHeights(2, std::array {60, 70, 999});
        QCOMPARE(grid().rowHeight(1), 60);
        grid().removeItem(1);
        QCOMPARE(grid().rowPixelHeight(1), 60);
        QCOMPARE(grid().rowHeight(1), 70);
        grid().setRedraw(false);
        grid().setRowCount(1);
        grid().setRowCount(3);
        grid().setRowPixelHeights(2, std::array {50});
        grid().setRedraw(true);
        QCOMPARE(grid().rowHeight(0), grid().defaultRowPixelHeight());
        QCOMPARE(grid().rowHeight(1), 50);
    }

    void longWordsWrapAsMeasured()
    {
        const QFont font;
        const QFontMetrics metrics(font);
        const auto lines = [&](const QString &text, int width) {
            return grid::wrappedTextHeight(text, font, width) / metrics.height();
        };
        const QString word(30, u'm');
        const int width = metrics.horizontalAdvance(word);
        QCOMPARE(lines({}, width), 1);
        QCOMPARE(lines(word, width * 2 / 5), 3);
        QCOMPARE(lines(QStringLiteral("a\nb\r\nc"), width), 3);
        QCOMPARE(lines(QStringLiteral("to ") + word, width + 2), 2);
    }

    void picturesStandForTexts()
    {
        const auto count = [this](bool (*counted)(QRgb)) {
            const QImage image = grid().viewport()->grab(m_window->cell(1, 0)).toImage();
            const auto *pixels = reinterpret_cast<const QRgb *>(image.constBits());
            return std::count_if(pixels, pixels + image.sizeInBytes() / 4, counted);
        };
        // The picture has more red in it than any letter.
        const auto ink = [&] { return count([](QRgb pixel) { return qRed(pixel) < 128; }); };
        QPixmap picture(8, 8);
        picture.fill(Qt::magenta);
        grid().setPicture(1, 0, picture);
        QCOMPARE(count([](QRgb pixel) { return pixel == QColor(Qt::magenta).rgb(); }), 64);
        QCOMPARE(ink(), 0);
        grid().setPictureHidesText(false);
        QVERIFY(ink() > 0);
        grid().setText(1, 0, QStringLiteral("_"));
        QCOMPARE(ink(), 0);
        grid().setPicture(1, 0, {});
        QVERIFY(ink() > 0);
    }

    void screenReadersHearTheirOwnText()
    {
        grid().setAccessibleText(1, 1, QStringLiteral("learnt"));
        QAccessibleInterface *table = QAccessible::queryAccessibleInterface(&grid());
        QVERIFY(table && table->tableInterface());
        const auto spoken = [table](int row, int col) {
            return table->tableInterface()->cellAt(row, col)->text(QAccessible::Name);
        };
        QCOMPARE(spoken(0, 1), QStringLiteral("learnt"));
        QCOMPARE(spoken(1, 1), QStringLiteral("verb"));
        QCOMPARE(grid().text(1, 1), QStringLiteral("noun"));
    }

    void keysAndClicksReachTheListener()
    {
        QStringList heard;
        connect(&grid(), &FlexGrid::keyPressed, this, [&](const QString &c) { heard += c; });
        connect(&grid(), &FlexGrid::cellClicked, this, [&](int row, int col) {
            heard += QStringLiteral("%1/%2 @%3").arg(row).arg(col).arg(grid().currentRow());
        });
        QTest::keyClicks(&grid(), QStringLiteral("a Z"));
        for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Delete})
            QTest::keyClick(&grid(), key);
        QTest::keyClick(&grid(), Qt::Key_C, Qt::ControlModifier);
        QVERIFY(!grid().isEditing());
        QCOMPARE(grid().currentRow(), 2);
        QTest::keyClick(&grid(), Qt::Key_Down);
        QTest::keyClick(&grid(), Qt::Key_Home);
        QVERIFY(content().endsWith(u"@3/0"));
        QTest::keyClick(&grid(), Qt::Key_PageUp);
        QCOMPARE(grid().currentRow(), 1);
        m_window->clickCell(2, 2);
        QCOMPARE(heard.join(u';'), QStringLiteral("a; ;Z;;;;2/2 @2"));
        QTest::keyClick(&grid(), Qt::Key_Tab);
        QVERIFY(m_window->other.hasFocus());
    }

    void aTypedEditReplacesTheText()
    {
        grid().editCell(QStringLiteral("n"));
        auto *line = m_window->editor<QLineEdit>();
        QVERIFY(line && line->hasFocus());
        QTest::keyClicks(line, QStringLiteral("ew"));
        // A new picture must not bring back the old text.
        grid().setPicture(2, 1, QPixmap(4, 4));
        grid().commitEdit();
        QCOMPARE(grid().text(2, 1), QStringLiteral("new"));
        grid().editCell();
        QCOMPARE(m_window->editor<QLineEdit>()->selectedText(), QStringLiteral("new"));
        grid().setEditable(false);
        grid().editCell();
        QVERIFY(!grid().isEditing());
    }

    void beforeEditHasTheLastWord()
    {
        const QSignalSpy ended(&grid(), &FlexGrid::afterEdit);
        Action handler;
        connect(&grid(), &FlexGrid::beforeEdit, this, [&](int row, int col) {
            QCOMPARE(QPoint(row, col), QPoint(2, 1));
            handler(*m_window);
        });
        handler = [](Window &w) { w.grid.setEditable(false); };
        grid().editCell();
        QVERIFY(!grid().isEditing());
        grid().setEditable(true);
        handler = [](Window &w) {
            w.grid.setCurrentCell(3, 0);
            w.grid.editCell(); // while one is being started
        };
        grid().editCell(QStringLiteral("x"));
        grid().commitEdit();
        QCOMPARE(grid().text(3, 0), QStringLiteral("x"));
        grid().setCurrentCell(2, 1);
        handler = [](Window &w) { w.grid.setRowCount(1); };
        grid().editCell();
        QVERIFY(!grid().isEditing());
        QCOMPARE(ended.count(), 1);
    }

    void everyWayOutEndsAnEditOnce_data()
    {
        QTest::addColumn<bool>("list");
        QTest::addColumn<Action>("leave");
        QTest::addColumn<QString>("result");
        QTest::addColumn<bool>("keepsFocus");
        QTest::addColumn<Action>("handle"); // what afterEdit is answered with
        const std::pair<const char *, Action> handlers[] = {
            {"nothing", {}},
            {"row removed", [](Window &w) { w.grid.removeItem(2); }},
            {"refill",
             [](Window &w) {
                 const RedrawLock lock(&w.grid);
                 w.grid.setRowCount(1);
                 w.grid.setFormatString(QStringLiteral("A|B|C|D"));
                 w.grid.setRowCount(6);
             }},
            {"message",
             [](Window &w) {
                 QTimer::singleShot(0, &w, [] { QApplication::activeModalWidget()->close(); });
                 QMessageBox(QMessageBox::Warning, {}, QStringLiteral("!"), {}, &w).exec();
             }},
        };
        const auto row = [&](bool list, const char *way, const Action &leave,
                             const char16_t *result, bool keepsFocus = true) {
            for (const auto &[name, handle] : handlers)
                QTest::addRow("%s %s, then %s", list ? "list" : "text", way, name)
                    << list << leave << QString::fromUtf16(result) << keepsFocus << handle;
        };
        const auto committed = [&](const char *way, const Action &leave) {
            row(false, way, leave, u"n");
            row(true, way, leave, u"noun");
        };
        const auto clickButton = [](Window &w) { w.click(w.other, w.other.rect().center()); };
        const auto hide = [](Window &w) { w.grid.hide(); };
        const auto closeList = [](Window &w) { w.list()->window()->close(); };
        const auto clickLastItem = [](Window &w) {
            const QModelIndex last = w.list()->model()->index(4, 0);
            QTest::mouseClick(w.list()->viewport(), Qt::LeftButton, {},
                              w.list()->visualRect(last).center());
        };
        committed("Enter", keys({Qt::Key_Return}));
        committed("keypad Enter", keys({Qt::Key_Enter}));
        committed("Tab", keys({Qt::Key_Tab}));
        committed("Shift+Tab", keys({Qt::Key_Backtab}));
        committed("click on a cell", [](Window &w) { w.clickCell(1, 0); });
        committed("commitEdit", [](Window &w) { w.grid.commitEdit(); });
        committed("current cell", [](Window &w) { w.grid.setCurrentCell(1, 0); });
        committed("not editable", [](Window &w) { w.grid.setEditable(false); });
        committed("fewer rows", [](Window &w) { w.grid.setRowCount(3); });
        committed("other row removed", [](Window &w) {
            w.grid.addItem({});
            w.grid.removeItem(1);
        });
        committed("same row removed", [](Window &w) { w.grid.removeItem(2); });
        committed("new format", [](Window &w) { w.grid.setFormatString(QStringLiteral("X|Y")); });
        committed("redraw lock", [](Window &w) { const RedrawLock lock(&w.grid); });
        row(false, "click on a button", clickButton, u"n", false);
        row(true, "click on a button", clickButton, u"noun"); // only closes the list
        row(false, "hidden", hide, u"n", false);
        row(true, "hidden", hide, u"noun", false);
        row(false, "Escape", keys({Qt::Key_Escape}), u"verb");
        row(true, "Down, Escape", keys({Qt::Key_Down, Qt::Key_Escape}), u"verb");
        row(true, "Down, Enter", keys({Qt::Key_Down, Qt::Key_Return}), u"");
        row(true, "Down, Tab", keys({Qt::Key_Down, Qt::Key_Tab}), u"");
        row(true, "item clicked", clickLastItem, u"adverb");
        row(true, "closed", closeList, u"noun");
    }

    void everyWayOutEndsAnEditOnce()
    {
        QFETCH(const bool, list);
        QFETCH(const Action, leave);
        QFETCH(const QString, result);
        QFETCH(const bool, keepsFocus);
        QFETCH(const Action, handle);
        QStringList ended;
        const QObject context; // nothing is heard of an edit that a failure leaves open
        connect(&grid(), &FlexGrid::afterEdit, &context, [&](int row, int col) {
            ended += QStringLiteral("%1/%2 %3").arg(row).arg(col).arg(grid().text(row, col));
            QVERIFY(!grid().isEditing());
            if (handle)
                handle(*m_window);
        });
        if (list)
            grid().setComboList(QStringLiteral("noun||verb|noun|adverb"));
        grid().editCell(QStringLiteral("n"));
        QVERIFY(list ? m_window->list() != nullptr : m_window->editor<QLineEdit>() != nullptr);
        // As in the program, from an event: without a loop around it, what is to be deleted later
        // goes at once when a message opens a loop.
        QEventLoop loop;
        const auto leaveInLoop = [&] {
            leave(*m_window);
            loop.quit();
        };
        QMetaObject::invokeMethod(&loop, leaveInLoop, Qt::QueuedConnection);
        loop.exec();
        if (list) // a list looks again later whether it has been left
            QTRY_COMPARE(ended.count(), 1);
        QCOMPARE(ended, QStringList {QStringLiteral("2/1 ") + result});
        if (!handle)
            QCOMPARE(m_window->focusWidget() == &grid(), keepsFocus);
        QCoreApplication::processEvents();
        grid().commitEdit();
        QCOMPARE(ended.count(), 1);
        QVERIFY(!m_window->editor<QLineEdit>() && !m_window->editor<QComboBox>());
        QVERIFY(!QApplication::activePopupWidget());

        grid().setEditable(true);
        grid().setComboList({});
        grid().setCurrentCell(2, 0); // there, as no row has been removed twice
        grid().editCell(QStringLiteral("again"));
        grid().commitEdit();
        QCOMPARE(ended.count(), 2);
        QCOMPARE(ended.last(), QStringLiteral("2/0 again"));
    }

    void listsOfferTheirItems()
    {
        const auto selected = [this](const QString &typed) {
            grid().editCell(typed);
            const int index = m_window->editor<QComboBox>()->currentIndex();
            grid().commitEdit();
            return index;
        };
        grid().setComboList(QStringLiteral("|noun|verb|Noun|adjective|adverb"));
        QCOMPARE(selected({}), 2);
        QCOMPARE(selected(QStringLiteral("ad")), 4);
        QCOMPARE(selected(QStringLiteral("q")), 4);
        // What is typed in the list goes on from what has opened it.
        grid().editCell(QStringLiteral("a"));
        QTest::keyClicks(m_window->list(), QStringLiteral("dv"));
        m_window->clickCell(1, 0);
        QTRY_COMPARE(grid().text(2, 1), QStringLiteral("adverb"));
        grid().setText(2, 1, QStringLiteral("not in the list"));
        QCOMPARE(selected({}), -1);
        QCOMPARE(grid().text(2, 1), QStringLiteral("not in the list"));
        grid().setText(2, 1, {});
        QCOMPARE(selected({}), 0);
    }

    void tabGoesOnToTheNextShownColumn()
    {
        const auto leave = [this](const char16_t *list, Qt::Key key) {
            grid().setComboList(QString::fromUtf16(list));
            grid().editCell();
            keys({key})(*m_window);
            return grid().currentCol();
        };
        grid().setColumnPixelWidth(1, 1);
        grid().setCurrentCell(2, 0);
        for (const char16_t *list : {u"", u"go|red"}) {
            QCOMPARE(leave(list, Qt::Key_Backtab), 0);
            QCOMPARE(leave(list, Qt::Key_Tab), 2);
            QCOMPARE(leave(list, Qt::Key_Tab), 2);
            QCOMPARE(leave(list, Qt::Key_Return), 2);
            QCOMPARE(leave(list, Qt::Key_Backtab), 0);
        }
        // Not if somebody else has moved the current cell.
        connect(&grid(), &FlexGrid::afterEdit, this, [this] { grid().setCurrentCell(3, 0); });
        QCOMPARE(leave(u"", Qt::Key_Tab), 0);
        QCOMPARE(grid().currentRow(), 3);
    }

    void anOpenEditDiesQuietlyWithItsGrid()
    {
        int ended = 0;
        for (const char16_t *items : {u"", u"noun|verb"}) {
            m_window.emplace();
            connect(&grid(), &FlexGrid::afterEdit, this, [&ended] { ++ended; });
            grid().setComboList(QString::fromUtf16(items));
            grid().editCell();
            QVERIFY(grid().isEditing());
            m_window.reset();
        }
        QCOMPARE(ended, 0);
    }
};

QTEST_MAIN(TestFlexGrid)
#include "test_flexgrid.moc"

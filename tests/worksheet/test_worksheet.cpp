// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "layout/mainlayout.h"
#include "platform/access/connection.h"
#include "platform/grid/flexgrid.h"
#include "tests/support/boxes.h"
#include "tests/support/gridhand.h"
#include "tests/support/sampledatabase.h"
#include "worksheet/worksheetframe.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <optional>

using support::Box;
using support::BoxReader;
using support::clickCell;
using support::information;
using support::offered;
using worksheet::initials;

namespace {

using namespace worksheet; // the columns

QStringList lines(const char *text)
{
    return QString::fromUtf8(text).split(u'\n', Qt::SkipEmptyParts);
}

QStringList savedRows()
{
    return support::table(QStringLiteral("select init_first, init_second, init_third, init_other, "
                                         "init_desc from tblinitial"));
}

/// The worksheet, in a window of its own, as the step before hands it the ranked names.
class Step
{
public:
    /// @param saved  "first|middle|last|other|initials"
    explicit Step(QStringList topNNames, const QStringList &saved = {})
        : names(std::move(topNNames)), m_database({}), frame([this] { return names; }),
          back(&frame, &worksheet::WorksheetFrame::backRequested)
    {
        basDatabase::OpenDatabase();
        for (const QString &row : saved) {
            const QString values = basDatabase::QuoteSQL(row).replace(u'|', QStringLiteral("','"));
            basDatabase::ExecuteSQL(u"insert into tblinitial values('" % values % u"')");
        }
        frame.setParent(&m_window);
        frame.setTopN(QStringLiteral("10"));
        layout::place(m_window, layout::mainWindowPlacements(layout::ScreenClass::Designed));
        m_window.resize(frame.size());
        m_window.show();
        frame.DisplayInitialRecord();
        grid().setFocus();
    }
    ~Step()
    {
        basDatabase::WatchStatements({});
        basDatabase::CloseDatabase();
    }
    Q_DISABLE_COPY_MOVE(Step)

    grid::FlexGrid &grid() const
    {
        return *frame.findChild<grid::FlexGrid *>(QStringLiteral("msfInitial"));
    }
    void click(const char *button) const
    {
        frame.findChild<QPushButton *>(QLatin1String(button))->click();
    }
    void type(const char *text) const { support::type(grid(), QString::fromUtf8(text)); }
    QStringList rows() const { return support::rows(grid()); }
    /// Clicks a first name's cell and chooses an item.
    void chooseFirst(int row, int item) const
    {
        clickCell(grid(), row, FirstColumn);
        support::choose(grid(), item);
    }

    QStringList names;

private:
    support::SampleDatabase m_database;
    QWidget m_window;

public:
    worksheet::WorksheetFrame frame;
    QSignalSpy back;
};

Box warning(const char *text)
{
    return information(QStringLiteral("Warning"), QString::fromLatin1(text));
}

const Box saved = information(QStringLiteral("Tovarin"), QStringLiteral("Record saved!"));
const Box goBack {QMessageBox::Question, QStringLiteral("Tovarin Names"),
                  QStringLiteral("Record changed, are you sure you want to go back without "
                                 "saving?")};

} // namespace

class TestWorksheet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initials_areFirstLettersAndTheOthers()
    {
        const auto of = [](const char *first, const char *middle, const char *last,
                           const char *other) {
            return initials(QString::fromUtf8(first), QString::fromUtf8(middle),
                            QString::fromUtf8(last), QString::fromUtf8(other));
        };
        QCOMPARE(of("J", "Ann", "Smith", "K.L."), QStringLiteral("JASK.L."));
        QCOMPARE(of("jo", "", "smith", " b "), QStringLiteral("js b "));
        QCOMPARE(of(" Jo", "", "", ""), QStringLiteral(" "));
        QCOMPARE(of("", "", "", ""), QString());
        // A letter keeps its marks, also where they are characters of their own.
        QCOMPARE(of("Élodie", "E\u0301va", "O'Neil", ""), QString::fromUtf8("ÉE\u0301O"));
    }

    void filling_showsSavedRowsThenRankedNamesThenABlankOne()
    {
        const Step step(lines("Anna\nZoë\nBea"), lines("Zoë|Marie|Smith||ZMS\nOld||||"));
        basDatabase::ExecuteSQL(QStringLiteral("insert into tblinitial(init_first) values('Nul')"));
        const_cast<Step &>(step).frame.DisplayInitialRecord();
        QCOMPARE(step.rows(), lines("1||Zoë|Marie|Smith||ZMS\n2||Old||||\n3||Nul||||\n"
                                    "4||Anna||||A\n5||Bea||||B\n6||||||"));
        QCOMPARE(step.grid().rowTexts(0).join(u'\t'),
                 QStringLiteral("No\tTop 10\tFirst\tMiddle\tLast\tOther Initial\tInitials"));
        QVERIFY(step.grid().isColumnHidden(TopNColumn));
    }

    void namesWithApostrophes_areRefusedByTheEngineAndListed()
    {
        BoxReader reader;
        const Step step(lines("O'Neil\n'Abena"), lines("O'Neil|||| O"));
        QCOMPARE(step.rows(), lines("1||O'Neil|||| O\n2||O'Neil||||O\n3||'Abena||||''\n4||||||"));
        QCOMPARE(reader.boxes().size(), std::size_t(4));
        QCOMPARE(reader.take().front().icon, QMessageBox::Critical);
        step.click("cmdSaveInitial");
        QCOMPARE(savedRows(), lines("O'Neil|||| O\nO'Neil||||O\n'Abena||||''"));
    }

    void firstName_isChosenFromTheOthers()
    {
        const Step step(lines("Anna\nBea\nBea\nEva"));
        clickCell(step.grid(), 2, FirstColumn);
        QCOMPARE(offered(step.grid()), lines(" \nAnna\nEva\nBea"));
        support::choose(step.grid(), 1);
        QCOMPARE(step.rows().at(1), QStringLiteral("2||Anna||||B"));
        clickCell(step.grid(), 5, FirstColumn);
        QCOMPARE(offered(step.grid()), lines(" \nAnna\nAnna\nBea\nEva"));
        support::choose(step.grid(), 4);
        // The initials follow when another part of the name is edited; then a new row comes, too.
        QCOMPARE(step.rows().constLast(), QStringLiteral("5||Eva||||"));
        step.grid().setCurrentCell(5, LastColumn);
        step.type("Ng\n");
        QCOMPARE(step.rows().sliced(4), lines("5||Eva||Ng||EN\n6||||||"));
    }

    void typing_editsCellByCell()
    {
        const Step step(lines("Anna\nBea"));
        QCOMPARE(step.grid().currentCol(), int(MiddleColumn));
        // Behind the last part comes the next name, beginning with what is open in it.
        step.type("Ann\tSmith\tK.L.\tMary\tNg\t");
        QCOMPARE(step.rows().mid(0, 2),
                 lines("1||Anna|Ann|Smith|K.L.|AASK.L.\n2||Bea|Mary|Ng||BMN"));
        step.grid().setCurrentCell(2, OtherColumn);
        step.type("O.\t");
        QCOMPARE(step.grid().currentRow(), 3);
        QCOMPARE(step.grid().currentCol(), int(FirstColumn));
        // A first name that is chosen leads to the middle name.
        step.type("B\nMia\n");
        QCOMPARE(step.rows().at(2), QStringLiteral("3||Bea|Mia|||BM"));
        // Initials can't be typed.
        step.grid().setCurrentCell(1, InitialsColumn);
        step.type("x");
        QVERIFY(!step.grid().isEditing());
        clickCell(step.grid(), 1, MiddleColumn);
        QVERIFY(step.grid().isEditing());
        step.type("zz\x1b");
        clickCell(step.grid(), 1, NumberColumn);
        QVERIFY(!step.grid().isEditing());
        QCOMPARE(step.rows().at(0), QStringLiteral("1||Anna|Ann|Smith|K.L.|AASK.L."));
        clickCell(step.grid(), 1, LastColumn);
        step.type("ó B");
        clickCell(step.grid(), 2, MiddleColumn);
        QCOMPARE(step.rows().at(0), QString::fromUtf8("1||Anna|Ann|ó B|K.L.|AAóK.L."));
    }

    void longTexts_makeTheirRowHigher()
    {
        const Step step(lines("Anna"));
        const int height = step.grid().rowPixelHeight(1);
        step.grid().setCurrentCell(1, MiddleColumn);
        step.type("a middle name that goes on and on and on\n");
        QVERIFY(step.grid().rowPixelHeight(1) > height);
        QCOMPARE(step.grid().rowPixelHeight(2), height);
    }

    void textWithoutAFirstName_isRefused()
    {
        BoxReader reader;
        const Step step(lines("Anna"));
        clickCell(step.grid(), 2, LastColumn);
        step.type("Smith");
        clickCell(step.grid(), 1, MiddleColumn);
        QTRY_COMPARE(reader.boxes().size(), std::size_t(1));
        QCOMPARE(reader.take(), std::vector {warning("Please select the First Name!")});
        QTRY_COMPARE(step.grid().currentRow(), 2);
        QCOMPARE(step.grid().currentCol(), int(TopNColumn));
        QCOMPARE(step.rows(), lines("1||Anna||||A\n2||||||"));
        step.click("cmdBack");
        QCOMPARE(step.back.size(), 1);

        // A click on Save that ends such an edit is over before the message comes.
        step.grid().window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(step.grid().window()));
        clickCell(step.grid(), 2, LastColumn);
        step.type("Smith");
        const auto *save = step.frame.findChild<QPushButton *>(QStringLiteral("cmdSaveInitial"));
        QWidget *window = save->window();
        const QPoint place = save->mapTo(window, save->rect().center());
        QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, place);
        QCoreApplication::processEvents();
        QVERIFY(reader.boxes().empty());
        QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, {}, place);
        QTRY_VERIFY(!reader.boxes().empty());
        QCOMPARE(reader.take(), std::vector {warning("Please select the First Name!")});

        // Save by its key finds the same text still in its editor, and saves nothing.
        for (const char *button : {"cmdSaveInitial", "cmdBack", "cmdPrintInitial"}) {
            clickCell(step.grid(), 2, OtherColumn);
            step.type("X");
            step.click(button);
            QTRY_COMPARE(reader.boxes().size(), std::size_t(1));
            QCOMPARE(reader.take(), std::vector {warning("Please select the First Name!")});
        }
        QCOMPARE(savedRows(), QStringList());
        QCOMPARE(step.back.size(), 1);
    }

    void save_keepsWhatIsShown()
    {
        BoxReader reader;
        const Step step(lines("Anna\nBea"));
        QStringList statements;
        basDatabase::WatchStatements([&](const QString &sql) { statements.append(sql); });
        step.type("Mary-Lou 'Lou'\tO'Neil\tÉ.");
        step.click("cmdSaveInitial"); // the open edit goes along
        QCOMPARE(reader.take(), std::vector {saved});
        const QString insert = QStringLiteral("insert into tblinitial(init_first, init_second, "
                                              "init_third, init_other, init_desc) values(");
        QCOMPARE(statements.first(4),
                 QStringList({QStringLiteral("delete from tblinitial"),
                              insert % u"'Anna', 'Mary-Lou ''Lou''', 'O''Neil', 'É.', 'AMOÉ.') ",
                              insert % u"'Bea', '', '', '', 'B') ",
                              QStringLiteral("select * from tblinitial ")}));
        const QStringList shown =
            lines("1||Anna|Mary-Lou 'Lou'|O'Neil|É.|AMOÉ.\n2||Bea||||B\n3||||||");
        QCOMPARE(step.rows(), shown);
        step.click("cmdBack");
        QCOMPARE(step.back.size(), 1);
        const_cast<Step &>(step).frame.DisplayInitialRecord();
        QCOMPARE(step.rows(), shown);
        QCOMPARE(reader.boxes().size(), std::size_t(0));
    }

    void save_refusesNothingToSave()
    {
        BoxReader reader;
        const Step step({}, {});
        QCOMPARE(step.rows(), lines("1||||||"));
        step.click("cmdSaveInitial");
        QCOMPARE(reader.take(), std::vector {warning("No record selected!")});
        step.grid().setRowCount(1);
        step.click("cmdSaveInitial");
        QCOMPARE(reader.take(), std::vector {warning("No Initial record found!")});
    }

    void save_refusesGapsButNotInTheLastRow()
    {
        BoxReader reader;
        const Step step(lines("Anna\nBea"), lines("Old||||O"));
        step.chooseFirst(2, 0);
        QCOMPARE(step.rows().at(1), QStringLiteral("2|| ||||A"));
        step.click("cmdSaveInitial");
        QCOMPARE(reader.take(), std::vector {warning("Please enter the First Name!")});
        QCOMPARE(savedRows(), lines("Old||||O"));
        step.chooseFirst(2, 1);
        step.chooseFirst(4, 0); // a blank below
        step.click("cmdSaveInitial");
        QCOMPARE(reader.take(), std::vector {saved});
        QCOMPARE(savedRows(), lines("Old||||O\nOld||||A\nBea||||B\n ||||"));
    }

    void goingBack_asksForWhatIsUnsaved()
    {
        std::optional<BoxReader> reader(std::in_place, QMessageBox::No);
        const Step step(lines("Anna"));
        step.chooseFirst(1, 0);
        step.click("cmdBack"); // another first name alone is no change
        QCOMPARE(step.back.size(), 1);
        step.grid().setCurrentCell(1, MiddleColumn);
        step.type("Ann");
        step.click("cmdBack");
        QCOMPARE(reader->take(), std::vector {goBack});
        QCOMPARE(step.back.size(), 1);
        reader.emplace(QMessageBox::Yes);
        for (int times = 2; times < 4; ++times) {
            step.click("cmdBack"); // the change stays unsaved, so it asks again
            QCOMPARE(step.back.size(), times);
        }
        QCOMPARE(reader->take(), (std::vector {goBack, goBack}));
        QCOMPARE(step.rows().at(0), QStringLiteral("1|| |Ann||| A"));
    }

    void failedSave_isToldAndLosesNothing()
    {
        BoxReader reader(QMessageBox::No);
        const Step step(lines("Anna\nBea\nEva"));
        step.grid().setCurrentCell(3, LastColumn);
        step.type("Ng\n");
        // The second row then fails, and the third does not.
        basDatabase::ExecuteSQL(
            QStringLiteral("create unique index full on tblinitial(init_third)"));
        const QStringList shown = step.rows();
        step.click("cmdSaveInitial");
        QCOMPARE(reader.boxes().size(), std::size_t(1));
        QCOMPARE(reader.take().front().icon, QMessageBox::Critical);
        QCOMPARE(step.rows(), shown);
        QCOMPARE(savedRows(), lines("Anna||||A\nEva||Ng||EN"));
        step.click("cmdBack");
        QCOMPARE(reader.take(), std::vector {goBack});
        basDatabase::ExecuteSQL(QStringLiteral("drop index full"));
        step.click("cmdSaveInitial");
        QCOMPARE(reader.take(), std::vector {saved});
        QCOMPARE(savedRows(), lines("Anna||||A\nBea||||B\nEva||Ng||EN"));
    }
};

QTEST_MAIN(TestWorksheet)
#include "test_worksheet.moc"

// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/application.h"
#include "app/frminfo.h"
#include "app/frmsplash.h"
#include "app/program.h"
#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "layout/mainlayout.h"
#include "platform/browser/browserpane.h"
#include "platform/grid/flexgrid.h"
#include "reports/frmprinttopn.h"
#include "reports/frmterms.h"
#include "reports/frmtovarinhelp.h"
#include "reports/linklabel.h"
#include "search/resultgrid.h"
#include "tests/support/boxes.h"
#include "tests/support/gridhand.h"
#include "tests/support/sampledatabase.h"

#include <QAccessible>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <optional>

using layout::ScreenClass;
using support::BoxReader;
using support::information;

namespace {

Application *application = nullptr;

/// A program folder with a small database and real pages.
class Folder : public support::SampleDatabase
{
public:
    explicit Folder(const std::vector<dictionary::Entry> &entries =
                        support::entries({"Anna|G|Hebrew|grace", "Noah|B|Hebrew|rest"}))
        : SampleDatabase(entries)
    {
        browser::setPageFolder(folder());
        for (const char *name : {"things.htm", "popular.htm", "tovarinhelp.htm", "terms.htm",
                                 "about.htm", "tovarin.css"})
            QFile::copy(QStringLiteral(DATA_FOLDER "/pages/") % QLatin1String(name),
                        file(QLatin1String(name)));
    }
};

QWidget *topLevel(const char *name)
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == QLatin1String(name) && widget->isVisible())
            return widget;
    }
    return nullptr;
}

/// A user's larger font, for as long as it lives.
class LargerFont
{
public:
    explicit LargerFont(double scale) : m_usual(QApplication::font())
    {
        QFont font = m_usual;
        font.setPointSizeF(m_usual.pointSizeF() * scale);
        QApplication::setFont(font);
    }
    ~LargerFont() { QApplication::setFont(m_usual); }
    LargerFont(const LargerFont &) = delete;
    LargerFont &operator=(const LargerFont &) = delete;

private:
    QFont m_usual;
};

QString nameForScreenReader(QWidget *widget)
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    return interface ? interface->text(QAccessible::Name) : QString();
}

QRect placeIn(const QWidget *ancestor, const QWidget *widget)
{
    return {widget->mapTo(ancestor, QPoint()), widget->size()};
}

/// The width in pixels that the text of a control takes; 0 for those whose texts are the user's.
int widthNeeded(const QWidget *control)
{
    constexpr int buttonMargins = 12;
    const auto *button = qobject_cast<const QPushButton *>(control);
    if (button)
        return button->fontMetrics().horizontalAdvance(button->text().remove(u'&')) + buttonMargins;
    const auto *combo = qobject_cast<const QComboBox *>(control);
    const auto *label = qobject_cast<const QLabel *>(control);
    const bool isFixedText = qobject_cast<const QAbstractButton *>(control)
                             || (combo && !combo->isEditable()) || (label && !label->wordWrap());
    return isFixedText ? control->sizeHint().width() : 0;
}

/// The controls that a person reads or uses, without what Qt builds into them.
QList<QWidget *> ownControls(QWidget *window)
{
    QList<QWidget *> controls;
    for (QWidget *widget : window->findChildren<QWidget *>()) {
        const QString name = widget->objectName();
        const bool isTabStripPart = qobject_cast<QTabBar *>(widget->parentWidget());
        if (!name.isEmpty() && !name.startsWith(u"qt_") && !isTabStripPart)
            controls.append(widget);
    }
    return controls;
}

} // namespace

class TestWindows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { basDatabase::CloseDatabase(); }

    void splash_showsTheVersionAndOpensTheMainWindow()
    {
        const Folder folder;
        QStringList statements;
        basDatabase::WatchStatements([&](const QString &sql) { statements.append(sql); });
        Program program;
        program.start();
        QWidget *splash = topLevel("frmSplash");
        QVERIFY(splash && !(splash->windowFlags() & Qt::WindowMaximizeButtonHint));
        QCOMPARE(statements, QStringList({QStringLiteral("select versionno from tblsetup "),
                                          QStringLiteral("select versiondate from tblsetup ")}));
        QCOMPARE(splash->windowTitle(), QStringLiteral("Tovarin Names Dictionary 1.2"));
        QCOMPARE(splash->findChild<QLabel *>(QStringLiteral("lblVersion"))->text(),
                 QStringLiteral("1.2 - 05 Mar 2026"));
        QVERIFY(splash->findChild<QPushButton *>(QStringLiteral("cmdExit"))->text()
                == QStringLiteral("E&xit"));
        Q_EMIT splash->findChild<LinkLabel *>(QStringLiteral("lblTerms"))->clicked();
        QVERIFY(topLevel("frmTerms"));

        statements.clear();
        splash->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
        basDatabase::WatchStatements({});
        QVERIFY(!topLevel("frmSplash"));
        QWidget *main = topLevel("frmInfo");
        QVERIFY(main && !(main->windowFlags() & Qt::WindowMaximizeButtonHint));
        QCOMPARE(main->windowTitle(), QStringLiteral("Tovarin Names Dictionary 1.2"));
        QCOMPARE(statements,
                 QStringList({QStringLiteral("select org_desc from tblorg order by org_desc "),
                              QStringLiteral("select topn from tblsetup "),
                              QStringLiteral("select maxselect from tblsetup "),
                              QStringLiteral("select versionno from tblsetup "),
                              QStringLiteral("select count(*) from tblmaster where name_select = "
                                             "'Y' ")}));
    }

    /// Loading, fitting and centring is for windows that open. Of one that is open the terms alone
    /// are loaded anew.
    void termsAndHelp_areLoadedWhenTheyOpen()
    {
        const Folder folder;
        frmTerms terms;
        frmTovarinHelp help;
        QSignalSpy termsLoaded(terms.findChild<browser::BrowserPane *>(),
                               &browser::BrowserPane::documentComplete);
        for (PageWindow *window :
             {static_cast<PageWindow *>(&help), static_cast<PageWindow *>(&terms)}) {
            auto *pane = window->findChild<browser::BrowserPane *>();
            QSignalSpy loaded(pane, &browser::BrowserPane::documentComplete);
            window->showPage();
            QVERIFY(loaded.wait(20000));
            QVERIFY(QTest::qWaitForWindowActive(window));
            QVERIFY(pane->isAncestorOf(QApplication::focusWidget()));
            const QRect fitted = window->geometry();
            const QSize around = window->screen()->size() - window->size();
            const QPoint offCentre = 2 * window->pos() - QPoint(around.width(), around.height());
            QVERIFY(offCentre.manhattanLength() < 20);
            const QRect dragged(10, 20, 300, 200);
            window->setGeometry(dragged);
            window->showPage();
            QCOMPARE(window->geometry(), dragged);
            if (window == &help)
                terms.showPage();
            QVERIFY(termsLoaded.wait(20000));
            QCOMPARE(loaded.size(), window == &terms ? 2 : 1);
            terms.close();
            window->close();
            window->showPage();
            QVERIFY(loaded.wait(20000));
            QCOMPARE(window->geometry(), fitted);
        }
    }

    void enter_pressesTheButtonThatHasTheFocus()
    {
        const Folder folder;
        frmInfo window;
        const frmTerms terms;
        const auto buttons =
            window.findChildren<QPushButton *>() + terms.findChildren<QPushButton *>();
        QVERIFY(buttons.size() > 10);
        for (QPushButton *button : buttons) {
            button->ensurePolished();
            QVERIFY2(button->autoDefault(), qPrintable(button->objectName()));
        }
    }

    /// Who clicks a tab wants to use what it shows; who walks along the strip stays there until a
    /// key comes that is meant for the page.
    void chosenTab_getsTheKeys()
    {
        const Folder folder;
        frmInfo window;
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTabBar *strip = window.findChild<QTabWidget *>(QStringLiteral("tabInfo"))->tabBar();
        auto *name = window.findChild<QLineEdit *>(QStringLiteral("txtSearchName"));
        const auto isIn = [&window](const char *pane) {
            return window.findChild<QWidget *>(QLatin1String(pane))
                ->isAncestorOf(window.focusWidget());
        };
        const auto click = [strip](int tab) {
            QTest::mouseClick(strip, Qt::LeftButton, {}, strip->tabRect(tab).center());
        };
        click(1);
        QTRY_VERIFY(isIn("dhtmPopular"));
        click(2);
        QTRY_VERIFY(name->hasFocus());
        strip->setFocus();
        QTest::keyClick(strip, Qt::Key_Left);
        QTest::keyClick(strip, Qt::Key_Right);
        QVERIFY(strip->hasFocus());
        QTest::keyClick(strip, Qt::Key_X);
        QVERIFY(name->hasFocus());
        QCOMPARE(name->text(), QStringLiteral("x"));
        for (const auto &[tab, pane] : {std::pair(0, "dhtmThings"), std::pair(5, "dhtmlAbout")}) {
            strip->setFocus();
            strip->setCurrentIndex(tab);
            QTest::keyClick(strip, Qt::Key_PageDown);
            QVERIFY(isIn(pane));
        }
    }

    void tabs_showTheirFrames()
    {
        const Folder folder;
        frmInfo window;
        window.show();
        auto *tabs = window.findChild<QTabWidget *>(QStringLiteral("tabInfo"));
        QCOMPARE(tabs->currentIndex(), 0);
        const QStringList captions = {QStringLiteral("Things to Consider"),
                                      QStringLiteral("Popular"),
                                      QStringLiteral("Search"),
                                      QStringLiteral("Worksheet"),
                                      QStringLiteral("Help"),
                                      QStringLiteral("About")};
        QString keys;
        for (int i = 0; i < tabs->count(); ++i) {
            QCOMPARE(tabs->tabText(i), captions[i]);
            keys += tabs->tabBar()->tabData(i).toString();
            tabs->setCurrentIndex(i);
            for (int frame = 0; frame < 6; ++frame) {
                auto *widget = window.findChild<QWidget *>(QStringLiteral("fraInfo_%1").arg(frame));
                QCOMPARE(widget->isVisible(), frame == i);
            }
        }
        QCOMPARE(keys, QStringLiteral("TPSWHA"));
        QCOMPARE(window.findChild<QLabel *>(QStringLiteral("lblTopNNote"))->text(),
                 QStringLiteral("Select your top 10 choices"));
        QCOMPARE(window.findChild<QLabel *>(QStringLiteral("lblVersion"))->text(),
                 QStringLiteral("1.2 - 05 Mar 2026"));
    }

    void emptySetup_ranksNoNames()
    {
        const Folder folder;
        basDatabase::OpenDatabase();
        basDatabase::ExecuteSQL(QStringLiteral("delete from tblsetup"));
        frmInfo window;
        window.findChild<QTabWidget *>(QStringLiteral("tabInfo"))->setCurrentIndex(3);
        QCOMPARE(window.findChild<QLabel *>(QStringLiteral("lblTopNNote"))->text(),
                 QStringLiteral("Select your top 0 choices"));
    }

    void f1_opensHelpExceptOnHelp()
    {
        const Folder folder;
        frmInfo window;
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QSignalSpy help(&window, &frmInfo::helpRequested);
        auto *tabs = window.findChild<QTabWidget *>(QStringLiteral("tabInfo"));
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            help.clear();
            QTest::keyClick(&window, Qt::Key_F1);
            QCOMPARE(help.size(), i == 4 ? 0 : 1);
        }
    }

    void controlTab_goesRoundTheTabs()
    {
        const Folder folder;
        frmInfo window;
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        auto *tabs = window.findChild<QTabWidget *>(QStringLiteral("tabInfo"));
        QTest::keyClick(&window, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(tabs->currentIndex(), 1);
        for (int i = 0; i < 2; ++i)
            QTest::keyClick(&window, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(tabs->currentIndex(), 5);
    }

    void searchTab_leafsFromTheTabStrip()
    {
        std::vector<dictionary::Entry> entries;
        for (int i = 0; i < 101; ++i)
            entries.push_back({QStringLiteral("Name %1").arg(i), u'B', QStringLiteral("Irish"),
                               QStringLiteral("meaning")});
        const Folder folder(entries);
        frmInfo window;
        window.show();
        auto *tabs = window.findChild<QTabWidget *>(QStringLiteral("tabInfo"));
        auto *label = window.findChild<QLabel *>(QStringLiteral("lblPage"));
        tabs->setCurrentIndex(2);
        window.findChild<QPushButton *>(QStringLiteral("cmdSearch"))->click();
        for (const int page : {2, 2, 1}) {
            QTest::keyClick(tabs->tabBar(), page == 1 ? Qt::Key_PageUp : Qt::Key_PageDown);
            QCOMPARE(label->text(), QStringLiteral("Page %1 of 2").arg(page));
        }
    }

    void worksheetTab_withoutAShortlist_saysWhatToDo()
    {
        const Folder folder;
        frmInfo window;
        window.show();
        window.findChild<QTabWidget *>(QStringLiteral("tabInfo"))->setCurrentIndex(3);
        for (const char *step : {"fraTopN", "fraInitial", "lblWorksheetNote"})
            QCOMPARE(window.findChild<QWidget *>(QLatin1String(step))->isVisible(),
                     QByteArray(step) == "lblWorksheetNote");
    }

    /// From the ticks to the full names and back, and the same again after the next start.
    void worksheetTab_ranksNamesAndComposesFullNames()
    {
        const Folder folder(support::entries(
            {"Anna|G|Hebrew|grace", "Élodie|G|French|form of Alodia", "Noah|B|Hebrew|rest"}));
        std::optional<frmInfo> window;
        const auto grid = [&window](const char *name) -> grid::FlexGrid & {
            return *window->findChild<grid::FlexGrid *>(QLatin1String(name));
        };
        const auto click = [&window](const char *button) {
            window->findChild<QAbstractButton *>(QLatin1String(button))->click();
        };
        const auto isShown = [&window](const char *frame) {
            return window->findChild<QWidget *>(QLatin1String(frame))->isVisible();
        };
        const auto goTo = [&window](int tab) {
            window->findChild<QTabWidget *>(QStringLiteral("tabInfo"))->setCurrentIndex(tab);
        };
        const auto rank = [&grid](const char *name, int row, int column, int item) {
            support::clickCell(grid(name), row, column);
            support::choose(grid(name), item);
        };
        const auto open = [&] {
            window.emplace().show();
            window->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&*window));
        };
        BoxReader reader(QMessageBox::Yes);
        // What is unsaved is not printed; the report of the rest opens.
        const auto refusesToPrint = [&](const char *button, const char *title) {
            reader.take();
            click(button);
            const auto refusal = information(
                QLatin1String(title), QStringLiteral("Record changed, please save before print!"));
            return reader.take() == std::vector {refusal} && !topLevel("frmPrintTopN");
        };
        const auto printedReport = [&](const char *button) {
            click(button);
            QWidget *report = topLevel("frmPrintTopN");
            const QString title = report ? report->windowTitle() : QString();
            if (report)
                report->close();
            return title;
        };
        open();
        goTo(2);
        click("optSearch_2");
        click("cmdSearch");
        for (int row = 1; row <= 3; ++row)
            support::clickCell(grid("msSearchList"), row, search::TickColumn);
        click("cmdSave");
        QVERIFY(isShown("fraTopN") && !isShown("fraInitial") && !isShown("lblWorksheetNote"));
        QCOMPARE(window->focusWidget(), &grid("msfResult"));
        rank("msfResult", 2, 6, 0);
        rank("msfResult", 3, 6, 0);
        QVERIFY(refusesToPrint("cmdPrintTopN", "Top 10"));
        click("cmdSaveTopN");
        QVERIFY(isShown("fraInitial") && !isShown("fraTopN"));
        QCOMPARE(window->focusWidget(), &grid("msfInitial"));
        support::type(grid("msfInitial"), QStringLiteral("Marie\tO'Neil\tÇ."));
        QVERIFY(refusesToPrint("cmdPrintInitial", "Tovarin Names"));
        click("cmdSaveInitial");
        QCOMPARE(printedReport("cmdPrintInitial"),
                 QStringLiteral("Tovarin Full Name and Initial Report"));
        const QStringList fullNames {QStringLiteral("1||Élodie|Marie|O'Neil|Ç.|ÉMOÇ."),
                                     QStringLiteral("2||Noah||||N"), QStringLiteral("3||||||")};
        QCOMPARE(support::rows(grid("msfInitial")), fullNames);
        click("cmdBack");
        QVERIFY(isShown("fraTopN") && !isShown("fraInitial"));
        QCOMPARE(printedReport("cmdPrintTopN"), QStringLiteral("Top 10 Tovarin Names Report"));
        QCOMPARE(support::table(QStringLiteral("select name_desc, name_select from TEMPTOPN "
                                               "order by name_desc")),
                 QStringList({QStringLiteral("Anna|Y"), QStringLiteral("Élodie|T"),
                              QStringLiteral("Noah|T")}));
        reader.take();

        // The next start shows what is saved, whatever was not.
        rank("msfResult", 1, 6, 0);
        window.reset();
        open();
        goTo(3);
        const QStringList ranking {QStringLiteral("1|Élodie|G|French|form of Alodia|01"),
                                   QStringLiteral("2|Noah|B|Hebrew|rest|02")};
        QCOMPARE(support::rows(grid("msfPrevTopN")), ranking);
        QCOMPARE(support::rows(grid("msfResult")),
                 QStringList(QStringLiteral("1|Anna|G|Hebrew|grace|A|--")));
        click("cmdNext");
        QCOMPARE(support::rows(grid("msfInitial")), fullNames);

        // A new shortlist leaves the ranking alone.
        goTo(2);
        click("optSearch_2");
        click("cmdSearch");
        support::clickCell(grid("msSearchList"), 2, search::TickColumn);
        support::clickCell(grid("msSearchList"), 3, search::TickColumn);
        click("cmdSave");
        QVERIFY(isShown("fraTopN") && !isShown("fraInitial"));
        QCOMPARE(support::rows(grid("msfPrevTopN")), ranking);
        QCOMPARE(support::rows(grid("msfResult")).size(), 1);

        // Without its rank a name keeps its full names.
        rank("msfPrevTopN", 1, 5, 8);
        QCOMPARE(support::rows(grid("msfResult")).constLast(),
                 QStringLiteral("3|Élodie|G|French|form of Alodia||--"));
        reader.take();
        click("cmdNext");
        QCOMPARE(reader.boxes().size(), std::size_t(1));
        QVERIFY(isShown("fraTopN"));
        click("cmdSaveTopN");
        QCOMPARE(support::rows(grid("msfInitial")), fullNames);
        QVERIFY(window->close());
    }

    void closing_asksAndObeys()
    {
        const Folder folder;
        frmInfo window;
        QSignalSpy unloaded(&window, &frmInfo::unloaded);
        window.show();
        {
            BoxReader no(QMessageBox::No);
            QVERIFY(!window.close());
            QCOMPARE(no.lastWindow(), &window);
            QCOMPARE(no.boxes(),
                     (std::vector {support::Box {
                         QMessageBox::Question, QStringLiteral("Tovarin Names Dictionary 1.2"),
                         QStringLiteral("Are you sure you want to exit?")}}));
        }
        QVERIFY(window.isVisible());
        QCOMPARE(basDatabase::GetFieldValue(QStringLiteral("select count(*) from tblmaster")),
                 QStringLiteral("2"));
        BoxReader yes(QMessageBox::Yes);
        QVERIFY(window.close());
        QCOMPARE(unloaded.size(), 1);
    }

    void closing_waitsForAReportThatIsPrinted()
    {
        const Folder folder;
        frmInfo window;
        QSignalSpy unloaded(&window, &frmInfo::unloaded);
        window.show();
        window.findChild<QPushButton *>(QStringLiteral("cmdPrintInitial"))->click();
        auto *report = qobject_cast<frmPrintTopN *>(topLevel("frmPrintTopN"));
        QVERIFY(report);
        report->findChild<browser::BrowserPane *>()->print(QStringLiteral("names"));
        QDialog *dialog = nullptr;
        QTRY_VERIFY((dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())));
        {
            BoxReader yes(QMessageBox::Yes);
            QVERIFY(window.close());
        }
        QCOMPARE(unloaded.size(), 0);
        // The report may have to be made once more.
        QVERIFY(!basDatabase::Setting(u"topn").isEmpty());
        dialog->reject();
        QCOMPARE(unloaded.size(), 1);
    }

    void uncaughtOverflow_isReportedAndEndsTheProgram()
    {
        BoxReader reader;
        const int exitCode = application->run([] {
            QTimer::singleShot(0, application, [] { throw std::overflow_error("Overflow"); });
        });
        QCOMPARE(exitCode, 1);
        QCOMPARE(reader.boxes(),
                 (std::vector {support::Box {QMessageBox::Critical, QStringLiteral("Error"),
                                             QStringLiteral("Overflow")}}));
    }

    void blackDesktop_showsWhereItsControlsAre()
    {
        const QPalette usual = QApplication::palette();
        QApplication::setPalette(QPalette(Qt::white, Qt::black, Qt::white, Qt::black, Qt::gray,
                                          Qt::white, Qt::white, Qt::black, Qt::black));
        const auto restore = qScopeGuard([&] { QApplication::setPalette(usual); });
        const Folder folder;
        frmInfo window;
        int controls = 0;
        for (QWidget *control : window.findChildren<QWidget *>()) {
            const bool hasOutline = qobject_cast<QAbstractButton *>(control)
                                    || qobject_cast<QComboBox *>(control)
                                    || qobject_cast<QLineEdit *>(control);
            const bool isInnerPart =
                control->objectName().isEmpty() || control->objectName().startsWith(u"qt_");
            if (!hasOutline || isInnerPart || control->isHidden())
                continue;
            // Its left edge, halfway down; texts begin further to the right.
            const QImage picture = control->grab().toImage();
            int lightest = 0;
            for (int x = 0; x < 4; ++x)
                lightest = std::max(lightest, qGray(picture.pixel(x, picture.height() / 2)));
            QVERIFY2(lightest > 100, qPrintable(control->objectName()));
            ++controls;
        }
        QVERIFY(controls > 20);
    }

    void layouts_clipAndOverlapNothing_data()
    {
        QTest::addColumn<int>("screenClass");
        QTest::addColumn<double>("textScale");
        for (const double textScale : {1.0, 1.25, 1.75, 1.92}) {
            QTest::addRow("designed %g", textScale) << int(ScreenClass::Designed) << textScale;
            QTest::addRow("large %g", textScale) << int(ScreenClass::Large) << textScale;
            QTest::addRow("small %g", textScale) << int(ScreenClass::Small) << textScale;
        }
    }

    void layouts_clipAndOverlapNothing()
    {
        QFETCH(int, screenClass);
        QFETCH(double, textScale);
        const LargerFont larger(textScale);
        const Folder folder;
        frmInfo window;
        const auto placements = layout::mainWindowPlacements(ScreenClass(screenClass));
        layout::place(window, placements);
        const QList<QWidget *> controls = ownControls(&window);
        for (const layout::Placement &placement : placements) {
            const QString name = QString::fromStdString(std::string(placement.control));
            QVERIFY2(window.findChild<QWidget *>(name), qPrintable(name));
        }
        for (QWidget *control : controls) {
            const QByteArray name = control->objectName().toUtf8();
            const QRect room = control->parentWidget()->rect();
            const bool isFrameOfLayout = name.startsWith("fraInfo") || name == "tabInfo";
            if (!isFrameOfLayout && !control->size().isEmpty())
                QVERIFY2(room.contains(control->geometry()), name.constData());
            if (control->isHidden())
                continue;
            // On a screen of 1366 x 768 the last pixels are below it or behind a task bar.
            const bool isPage = qobject_cast<browser::BrowserPane *>(control);
            if (screenClass == int(ScreenClass::Large) && textScale == 1 && !isPage
                && ownControls(control).isEmpty())
                QVERIFY2(placeIn(&window, control).bottom() < 733 - 50, name.constData());
            const auto *label = qobject_cast<QLabel *>(control);
            QVERIFY2(control->width() >= widthNeeded(control),
                     qPrintable(QStringLiteral("%1: %2 < %3")
                                    .arg(control->objectName())
                                    .arg(control->width())
                                    .arg(widthNeeded(control))));
            if (label && label->wordWrap())
                QVERIFY2(label->height() >= label->heightForWidth(label->width()),
                         name.constData());
            for (QWidget *other : controls) {
                const bool areSiblings = other != control && !other->isHidden()
                                         && other->parentWidget() == control->parentWidget();
                if (areSiblings)
                    QVERIFY2(
                        !control->geometry().intersects(other->geometry()),
                        qPrintable(QString(control->objectName() % u' ' % other->objectName())));
            }
        }
    }

    void everyControl_hasANameForScreenReaders()
    {
        const Folder folder;
        frmSplash splash;
        frmInfo window;
        splash.show();
        window.show();
        for (QWidget *top : {static_cast<QWidget *>(&splash), static_cast<QWidget *>(&window)}) {
            for (QWidget *control : top->findChildren<QWidget *>()) {
                const bool isOurs =
                    control->focusPolicy() != Qt::NoFocus
                    && !control->objectName().startsWith(u"qt_")
                    && QByteArray(control->metaObject()->className()).indexOf("Private") < 0;
                const bool isInnerPart =
                    qobject_cast<QComboBox *>(control->parentWidget())
                    || control->parentWidget()->inherits("QAbstractScrollArea")
                    || control->parentWidget()->inherits("QComboBoxPrivateContainer")
                    || control->parentWidget()->inherits("browser::BrowserPane")
                    || control->parentWidget()->inherits("QWebEngineView");
                if (!isOurs || isInnerPart)
                    continue;
                QVERIFY2(!control->objectName().isEmpty(), control->metaObject()->className());
                QVERIFY2(!nameForScreenReader(control).isEmpty(),
                         qPrintable(control->objectName()));
            }
        }
    }
};

int main(int argc, char *argv[])
{
    browser::prepareProcess();
    Application app(argc, argv);
    application = &app;
    TestWindows tests;
    const int failures = QTest::qExec(&tests, argc, argv);
    application = nullptr;
    return failures;
}
#include "test_windows.moc"

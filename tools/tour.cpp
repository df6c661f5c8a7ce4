// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// tour PROGRAM-FOLDER PICTURE-FOLDER PREFIX [contrast]
//
// Drives the program's own windows through a typical pass, as a person would with mouse and
// keyboard, and leaves a picture of each step: PICTURE-FOLDER/PREFIX-01-splash.png and so on, and
// the two reports as PREFIX-ranking.pdf and PREFIX-full-names.pdf. With "contrast" it does so with
// the settings of somebody who sees little: texts at twice the size, white and yellow on black.

#include "app/application.h"
#include "app/program.h"
#include "db/bastovarin.h"
#include "platform/browser/browserpane.h"
#include "platform/grid/flexgrid.h"
#include "search/resultgrid.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int pageTimeout = 15000; // milliseconds until a page has to be shown

class Tour
{
public:
    Tour(QString pictures, QString prefix)
        : m_pictures(std::move(pictures)), m_prefix(std::move(prefix))
    {
    }

    void run()
    {
        QWidget *splash = window("frmSplash");
        takePicture(splash, "splash");
        QTest::mouseClick(child(splash, "cmdOK"), Qt::LeftButton);

        QWidget *main = window("frmInfo");
        showPage(main, 0, "dhtmThings", "things");
        showPage(main, 1, "dhtmPopular", "popular");
        tabs(main)->setCurrentIndex(3);
        takePicture(main, "no-shortlist");
        search(main);
        save(main);
        rank(main);
        composeNames(main);
        showPage(main, 4, "dhtmHelp", "help");
        showPage(main, 5, "dhtmlAbout", "about");
        showWindows(main);
        leave(main);
    }

private:
    [[noreturn]] static void fail(const QString &what)
    {
        std::fputs(qPrintable(QString(u"tour: " % what % u'\n')), stderr);
        std::exit(1);
    }

    static QWidget *window(const char *name)
    {
        QWidget *found = nullptr;
        const bool isShown = QTest::qWaitFor([&] {
            for (QWidget *widget : QApplication::topLevelWidgets()) {
                if (widget->objectName() == QLatin1String(name) && widget->isVisible())
                    found = widget;
            }
            return found != nullptr;
        });
        if (!isShown || !QTest::qWaitForWindowExposed(found))
            fail(QStringLiteral("the window %1 does not open").arg(QLatin1String(name)));
        return found;
    }

    static void toFront(QWidget *shown)
    {
        shown->activateWindow();
        if (!QTest::qWaitForWindowActive(shown))
            fail(QStringLiteral("%1 does not come back to the front").arg(shown->objectName()));
    }

    static QWidget *child(QWidget *parent, const char *name)
    {
        auto *found = parent->findChild<QWidget *>(QLatin1String(name));
        if (!found)
            fail(QStringLiteral("there is no control %1").arg(QLatin1String(name)));
        return found;
    }

    static QTabWidget *tabs(QWidget *main)
    {
        return static_cast<QTabWidget *>(child(main, "tabInfo"));
    }

    void takePicture(QWidget *widget, const QByteArray &name)
    {
        const QString file = QStringLiteral("%1-%2-%3.png")
                                 .arg(m_prefix)
                                 .arg(++m_number, 2, 10, QLatin1Char('0'))
                                 .arg(QLatin1String(name));
        if (!widget->grab().save(QDir(m_pictures).filePath(file)))
            fail(QStringLiteral("can't write %1").arg(file));
        std::fprintf(stderr, "tour: %s\n", qPrintable(file));
    }

    /// Waits until the pane has loaded its page and has had the time to paint it.
    static void waitForPage(browser::BrowserPane *pane)
    {
        QSignalSpy complete(pane, &browser::BrowserPane::documentComplete);
        if (!complete.wait(pageTimeout))
            fail(QStringLiteral("the page of %1 does not come").arg(pane->objectName()));
        QTest::qWait(300);
    }

    static browser::BrowserPane *pane(QWidget *parent, const char *name)
    {
        return static_cast<browser::BrowserPane *>(child(parent, name));
    }

    void showPage(QWidget *main, int tab, const char *paneName, const char *name)
    {
        tabs(main)->setCurrentIndex(tab);
        waitForPage(pane(main, paneName));
        takePicture(main, name);
    }

    void search(QWidget *main)
    {
        tabs(main)->setCurrentIndex(2);
        takePicture(main, "search-empty");
        QTest::mouseClick(child(main, "cmdList"), Qt::LeftButton);
        takePicture(main, "list");
        QTest::mouseClick(child(main, "cmdPageUp"), Qt::LeftButton);
        for (const int row : {1, 3, 4})
            tick(main, row);
        takePicture(main, "ticked");
        QTest::mouseClick(child(main, "cmdLastPage"), Qt::LeftButton);
        takePicture(main, "last-page");

        auto *both = child(main, "optSearch_2");
        QTest::mouseClick(both, Qt::LeftButton, {}, QPoint(8, both->height() / 2));
        QTest::keyClick(child(main, "cboNameCondition"), Qt::Key_S); // Starts With
        QWidget *name = child(main, "txtSearchName");
        name->setFocus();
        QTest::keyClicks(name, QStringLiteral("el"));
        QTest::keyClick(name, Qt::Key_Return);
        for (const int row : {2, 5, 9})
            tick(main, row);
        takePicture(main, "search");
    }

    static void tick(QWidget *main, int row)
    {
        clickCell(main, "msSearchList", row, search::TickColumn);
    }

    void save(QWidget *main)
    {
        answerQuestion(main, "saved", QMessageBox::Ok);
        QTest::mouseClick(child(main, "cmdSave"), Qt::LeftButton);
        takePicture(main, "shortlist");
    }

    /// Gives ranks by the list of free ranks and by a drop-down list, and saves them.
    void rank(QWidget *main)
    {
        auto *ranks = static_cast<QListWidget *>(child(main, "lstTopNList"));
        for (const int row : {4, 1}) {
            clickCell(main, "msfResult", row, 1);
            const QRect first = ranks->visualItemRect(ranks->item(0));
            QTest::mouseClick(ranks->viewport(), Qt::LeftButton, {}, first.center());
        }
        takePicture(main, "ranked");
        clickCell(main, "msfResult", 3, 6);
        QTest::keyClick(openList(), Qt::Key_Home);
        takePicture(openList()->window(), "rank-list");
        QTest::keyClick(openList(), Qt::Key_Return);
        answerQuestion(main, "ranking-saved", QMessageBox::Ok);
        QTest::mouseClick(child(main, "cmdSaveTopN"), Qt::LeftButton);
    }

    /// Types full names, with Tab from part to part, saves them and goes back to the ranking.
    void composeNames(QWidget *main)
    {
        for (const char *name : {"Marie;Okonkwo;", "Samuel;Okonkwo;K.L."}) {
            const int row = *name == 'M' ? 1 : 2;
            clickCell(main, "msfInitial", row, 3);
            for (const QString &part : QString::fromLatin1(name).split(u';')) {
                for (const QChar letter : part)
                    QTest::keyClicks(main->focusWidget(), letter);
                QTest::keyClick(main->focusWidget(), Qt::Key_Tab);
            }
        }
        takePicture(main, "full-names");
        answerQuestion(main, "full-names-saved", QMessageBox::Ok);
        QTest::mouseClick(child(main, "cmdSaveInitial"), Qt::LeftButton);
        print(main, "cmdPrintInitial", "full-names");
        clickCell(main, "msfInitial", 3, 5);
        takePicture(main, "full-names-edit");
        QTest::mouseClick(child(main, "cmdBack"), Qt::LeftButton);
        takePicture(main, "ranking");
        print(main, "cmdPrintTopN", "ranking");
    }

    /// Opens a report, presses the button in its page and keeps it as a PDF file.
    void print(QWidget *main, const char *button, const char *name)
    {
        QTest::mouseClick(child(main, button), Qt::LeftButton);
        QWidget *report = window("frmPrintTopN");
        waitForPage(pane(report, "WebBrowser1"));
        takePicture(report, QByteArray(name) + "-report");
        QWidget *page = pane(report, "WebBrowser1")->focusWidget();
        QTest::keyClick(page, Qt::Key_Tab);
        QTest::keyClick(page, Qt::Key_Space);

        QPrintDialog *dialog = nullptr;
        const auto isOpen = [&dialog] {
            dialog = qobject_cast<QPrintDialog *>(QApplication::activeModalWidget());
            return dialog != nullptr;
        };
        if (!QTest::qWaitFor(isOpen))
            fail(QStringLiteral("the print dialog does not open"));
        const QString file =
            QDir(m_pictures).absoluteFilePath(m_prefix % u'-' % QLatin1String(name) % u".pdf");
        // The last printer is the one that writes a file.
        auto *printers = static_cast<QComboBox *>(child(dialog, "printers"));
        printers->setCurrentIndex(printers->count() - 1);
        static_cast<QLineEdit *>(child(dialog, "filename"))->setText(file);
        takePicture(dialog, QByteArray(name) + "-print-dialog");
        dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        const auto isSaved = [report] {
            const auto *note = static_cast<QLabel *>(child(report, "lblPrintNote"));
            return note->text().startsWith(u"The report is saved");
        };
        if (!QTest::qWaitFor(isSaved, pageTimeout))
            fail(QStringLiteral("%1 is not written").arg(file));
        takePicture(report, QByteArray(name) + "-printed");
        toFront(report);
        QTest::keyClick(page, Qt::Key_Escape);
        if (report->isVisible())
            fail(QStringLiteral("Escape does not close the report"));
    }

    static void clickCell(QWidget *main, const char *grid, int row, int column)
    {
        auto *page = static_cast<grid::FlexGrid *>(child(main, grid));
        const QModelIndex cell = page->model()->index(row - 1, column);
        QTest::mouseClick(page->viewport(), Qt::LeftButton, {}, page->visualRect(cell).center());
    }

    static QWidget *openList()
    {
        QWidget *list = QApplication::activePopupWidget();
        if (!list)
            fail(QStringLiteral("there is no open list"));
        return list->findChild<QAbstractItemView *>();
    }

    void showWindows(QWidget *main)
    {
        QTest::mouseClick(child(main, "lblTerms"), Qt::LeftButton);
        QWidget *terms = window("frmTerms");
        waitForPage(pane(terms, "WebBrowser1"));
        takePicture(terms, "terms");
        QTest::mouseClick(child(terms, "cmdOK"), Qt::LeftButton);

        toFront(main);
        QTest::keyClick(main, Qt::Key_F1);
        QWidget *help = window("frmTovarinHelp");
        waitForPage(pane(help, "WebBrowser1"));
        takePicture(help, "help-window");
        help->close();
    }

    /// Takes a picture of the message box that what comes next will open, and answers it.
    void answerQuestion(QWidget *main, const char *name, QMessageBox::StandardButton answer)
    {
        QTimer::singleShot(200, main, [this, name, answer] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box)
                fail(QStringLiteral("there is no message box to take a picture of: %1")
                         .arg(QLatin1String(name)));
            takePicture(box, name);
            box->button(answer)->click();
        });
    }

    void leave(QWidget *main)
    {
        answerQuestion(main, "leaving", QMessageBox::Yes);
        main->close();
    }

    QString m_pictures;
    QString m_prefix;
    int m_number = 0;
};

void setUpForLowVision()
{
    QFont font = QApplication::font();
    font.setPointSizeF(2 * font.pointSizeF());
    QApplication::setFont(font);
    QPalette palette(Qt::white, Qt::black);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::Light,
          QPalette::Midlight, QPalette::Mid, QPalette::BrightText})
        palette.setColor(role, Qt::white);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button,
                            QPalette::AlternateBase, QPalette::HighlightedText})
        palette.setColor(role, Qt::black);
    palette.setColor(QPalette::Highlight, Qt::yellow);
    palette.setColor(QPalette::Link, Qt::yellow);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, Qt::green);
    QApplication::setPalette(palette);
}

} // namespace

int main(int argc, char *argv[])
{
    browser::prepareProcess();
    Application application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const bool isForLowVision = arguments.size() == 5 && arguments[4] == u"contrast";
    if (arguments.size() != 4 && !isForLowVision) {
        std::fputs("Usage: tour PROGRAM-FOLDER PICTURE-FOLDER PREFIX [contrast]\n", stderr);
        return 2;
    }
    if (isForLowVision)
        setUpForLowVision();
    basTovarin::SetProgramFolder(QDir(arguments[1]).absolutePath());
    browser::setPageFolder(basTovarin::ProgramFolder());
    Program program;
    Tour tour(arguments[2], arguments[3]);
    return application.run([&] {
        program.start();
        QTimer::singleShot(0, &application, [&tour] { tour.run(); });
    });
}

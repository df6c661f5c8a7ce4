// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "layout/basapi.h"
#include "layout/basresize.h"
#include "layout/mainlayout.h"
#include "layout/twips.h"
#include "platform/grid/flexgrid.h"

#include <QApplication>
#include <QScopeGuard>
#include <QScreen>
#include <QTest>

#include <algorithm>
#include <array>
#include <initializer_list>

using layout::Placement;
using layout::ScreenClass;

class TestLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void screenClass_followsWidthAndHeight()
    {
        QCOMPARE(layout::screenClassOf(1024, 768), ScreenClass::Large);
        QCOMPARE(layout::screenClassOf(1280, 720), ScreenClass::Designed);
        QCOMPARE(layout::screenClassOf(1023, 768), ScreenClass::Designed);
        QCOMPARE(layout::screenClassOf(800, 600), ScreenClass::Designed);
        QCOMPARE(layout::screenClassOf(1600, 599), ScreenClass::Small);
    }

    /// Each row has a control with its top, width and height; "+" adds to the designed measure, "-"
    /// is free.
    void largeAndSmallLayouts_haveTheirMeasures_data()
    {
        QTest::addColumn<ScreenClass>("screenClass");
        QTest::addColumn<QString>("expected");
        const auto rows = [](ScreenClass screenClass, std::initializer_list<const char *> all) {
            for (const char *row : all)
                QTest::addRow("%d %s", int(screenClass), row)
                    << screenClass << QString(QLatin1String(row));
        };
        rows(
            ScreenClass::Large,
            {"tabInfo - 15000 11000",      "fraInfo_0 - 14800 10500",   "fraInfo_1 - 14800 10500",
             "fraInfo_2 - 14800 10500",    "fraInfo_3 - 14800 10500",   "fraInfo_4 - 14800 10500",
             "fraInfo_5 - 14800 10500",    "dhtmThings - 14600 10000",  "dhtmPopular - 14600 10000",
             "dhtmHelp - 14600 10000",     "fraSearch - 14600 8250",    "fraInitial - 14600 9400",
             "fraSearchSorting - 14600 -", "fraTopN - 14550 9900",      "msSearchList - - 7000",
             "msfPrevTopN - - +1000",      "msfResult +1000 - +1000",   "lblRecSelected +2200 - -",
             "lblPage +2200 - -",          "lblLRecSelected +2200 - -", "lblRecStatus +2200 - -",
             "cmdPageUp +2200 - -",        "cmdPageDown +2200 - -",     "cmdFirstPage +2200 - -",
             "cmdLastPage +2200 - -"});
        rows(ScreenClass::Small,
             {"tabInfo - 9400 6300", "fraInfo_0 - 9200 5900", "fraInfo_1 - 9200 5900",
              "fraInfo_2 - 9200 5900", "fraInfo_3 - 9200 5900", "fraInfo_4 - 9200 5900",
              "fraInfo_5 - 9200 5900", "dhtmThings - 9000 5500", "dhtmPopular - 9000 5500",
              "dhtmHelp - 9000 5500", "msSearchList 2800 9000 2500", "msfPrevTopN - 7000 2000",
              "msfResult 2800 7000 2600", "msfInitial 1000 7000 4000"});
    }

    void largeAndSmallLayouts_haveTheirMeasures()
    {
        QFETCH(ScreenClass, screenClass);
        QFETCH(QString, expected);
        const QStringList fields = expected.split(u' ');
        const auto measures = [&fields](ScreenClass of) {
            const auto placements = layout::mainWindowPlacements(of);
            const auto found =
                std::ranges::find(placements, fields[0].toStdString(), &Placement::control);
            return found == placements.end() ? std::array {-1, -1, -1}
                                             : std::array {found->top, found->width, found->height};
        };
        for (std::size_t i = 0; i < 3; ++i) {
            const QString &field = fields[qsizetype(i) + 1];
            const int designed = field.startsWith(u'+') ? measures(ScreenClass::Designed).at(i) : 0;
            if (field != u"-")
                QCOMPARE(measures(screenClass).at(i), designed + field.toInt());
        }
    }

    /// A larger font of the desktop makes the window larger, but not than the screen.
    void texts_growNoFurtherThanTheScreenAllows()
    {
        const QFont usual = QApplication::font();
        const auto restore = qScopeGuard([&usual] { QApplication::setFont(usual); });
        const auto scaleFor = [](double wanted, double share) {
            QFont font = QApplication::font();
            font.setPointSizeF(9 * wanted);
            QApplication::setFont(font);
            const double twips = 1440 / QGuiApplication::primaryScreen()->logicalDotsPerInch();
            const QSize screen = QGuiApplication::primaryScreen()->availableSize();
            layout::limitTextScale((QSizeF(screen - QSize(0, 30)) * twips * share).toSize());
            return layout::textScale();
        };
        QCOMPARE(qRound(100 * scaleFor(1.25, 0.5)), 125);
        QCOMPARE(qRound(100 * scaleFor(2, 1 / 1.5)), 150);
        QCOMPARE(qRound(100 * scaleFor(1.25, 2)), 100);
    }

    void twips_areRoundedToPixels()
    {
        const double dotsPerInch = QGuiApplication::primaryScreen()->logicalDotsPerInch();
        QCOMPARE(layout::pixelsFromTwips(1440), qRound(dotsPerInch));
        QCOMPARE(layout::pixelsFromTwips(14605), qRound(14605 * dotsPerInch / 1440));
    }

    void screenAndCentre_areThoseOfTheScreen()
    {
        std::int16_t width = 0;
        std::int16_t height = 0;
        basAPI::GetScreenResolution(width, height);
        const QScreen &screen = *QGuiApplication::primaryScreen();
        QCOMPARE(QSize(width, height), screen.size());
        const basAPI::ScreenRecord record = basAPI::LastScreenRecord();
        QCOMPARE(QSizeF(record.width, record.height), QSizeF(screen.size()));
        QCOMPARE(int(record.bitsPerPixel), screen.depth());
        QWidget window;
        window.resize(200, 100);
        basResize::CentreForm(window);
        QCOMPARE(window.pos(), QPoint((width - 200) / 2, (height - 100) / 2));
    }

    void rows_growWithTheirWrappedTexts()
    {
        QWidget form;
        grid::FlexGrid page(&form);
        page.setFormatString(QStringLiteral("<No |<Text           |<Hidden"));
        page.setColumnPixelWidth(2, 1);
        basResize::FitGridRows(page); // a header alone is no harm
        const QString longText = QStringLiteral("several words that need a few lines of their own");
        for (const char16_t *row : {u"1\tshort\t%1", u"2\t%1", u"", u"4\t%1"})
            page.addItem(QString::fromUtf16(row).replace(QStringLiteral("%1"), longText));
        const int headerHeight = page.rowPixelHeight(0);
        const int untouched = page.rowPixelHeight(4);
        basResize::FitGridRows(page, -1, 3);

        const QFontMetrics metrics(page.font());
        const int line = metrics.height();
        const int air =
            qRound(QFontMetrics(form.font()).boundingRect(QStringLiteral("Wg")).height() / 5.0);
        QCOMPARE(page.rowPixelHeight(0), headerHeight);
        QCOMPARE(page.rowPixelHeight(1), line + air);
        QVERIFY(page.rowPixelHeight(2) >= 3 * line + air);
        QCOMPARE(page.rowPixelHeight(3), air);
        QCOMPARE(page.rowPixelHeight(4), untouched);
        QCOMPARE(basResize::CellTextHeight(page, 1, 1, 500), 500);
    }
};

QTEST_MAIN(TestLayout)
#include "test_layout.moc"

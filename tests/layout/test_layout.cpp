// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "layout/basapi.h"
#include "layout/basresize.h"
#include "layout/mainlayout.h"
#include "layout/twips.h"
#include "platform/grid/flexgrid.h"

#include <QScreen>
#include <QTest>

using layout::Placement;
using layout::ScreenClass;

namespace {

Placement placementOf(ScreenClass screenClass, std::string_view control)
{
    for (const Placement &placement : layout::mainWindowPlacements(screenClass)) {
        if (placement.control == control)
            return placement;
    }
    qFatal("no such control");
}

} // namespace

class TestLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void screenClass_followsWidthAndHeight_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("screenClass");
        const auto row = [](int width, int height, ScreenClass screenClass) {
            QTest::addRow("%d x %d", width, height) << width << height << int(screenClass);
        };
        row(1024, 768, ScreenClass::Large);
        row(1280, 720, ScreenClass::Designed);
        row(1023, 768, ScreenClass::Designed);
        row(800, 600, ScreenClass::Designed);
        row(1600, 599, ScreenClass::Small);
        row(640, 480, ScreenClass::Small);
    }

    void screenClass_followsWidthAndHeight()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(int, screenClass);
        QCOMPARE(int(layout::screenClassOf(width, height)), screenClass);
    }

    void changes_takeMeasuresFromControlsChangedBefore()
    {
        using Kind = layout::Measure::Kind;
        const Placement designed[] = {{"a", 1, 2, 3, 4}, {"b", 5, 6, 7, 8}};
        const layout::Change changes[] = {
            {"b", {}, {Kind::Grow, 10}, {Kind::Fixed, 50}, {}},
            {"a",
             {Kind::Fixed, 9},
             {Kind::TopOf, 0, "b"},
             {Kind::WidthOf, -1, "b"},
             {Kind::HeightOf, 2, "b"}},
        };
        const std::vector<Placement> expected {{"a", 9, 16, 49, 10}, {"b", 5, 16, 50, 8}};
        QVERIFY(layout::changed(designed, changes) == expected);
    }

    void largeAndSmallLayouts_haveTheirMeasures()
    {
        const auto size = [](ScreenClass screenClass, std::string_view control) {
            const Placement placement = placementOf(screenClass, control);
            return QSize(placement.width, placement.height);
        };
        QCOMPARE(size(ScreenClass::Large, "tabInfo"), QSize(15000, 11000));
        QCOMPARE(size(ScreenClass::Large, "fraInfo_3"), QSize(14800, 10500));
        QCOMPARE(size(ScreenClass::Large, "dhtmHelp"), QSize(14600, 10000));
        QCOMPARE(size(ScreenClass::Large, "fraSearch"), QSize(14600, 8250));
        QCOMPARE(size(ScreenClass::Large, "fraSearchSorting").width(), 14600);
        QCOMPARE(size(ScreenClass::Large, "msSearchList").height(), 7000);
        QCOMPARE(placementOf(ScreenClass::Large, "lblRecSelected").top,
                 placementOf(ScreenClass::Designed, "lblRecSelected").top + 2200);
        for (const char *control : {"lblPage", "lblLRecSelected", "lblRecStatus"})
            QCOMPARE(placementOf(ScreenClass::Large, control).top,
                     placementOf(ScreenClass::Large, "lblRecSelected").top);

        QCOMPARE(size(ScreenClass::Small, "tabInfo"), QSize(9400, 6300));
        QCOMPARE(size(ScreenClass::Small, "fraInfo_0"), QSize(9200, 5900));
        QCOMPARE(size(ScreenClass::Small, "dhtmPopular"), QSize(9000, 5500));
        QCOMPARE(size(ScreenClass::Small, "msSearchList"), QSize(9000, 2500));
        QCOMPARE(placementOf(ScreenClass::Small, "msSearchList").top, 2800);
    }

    void twips_areRoundedToPixels()
    {
        const double dotsPerInch = QGuiApplication::primaryScreen()->logicalDotsPerInch();
        QCOMPARE(layout::pixelsFromTwips(1440), qRound(dotsPerInch));
        QCOMPARE(layout::pixelsFromTwips(0), 0);
        QCOMPARE(layout::pixelsFromTwips(14600), qRound(14600 * dotsPerInch / 1440));
    }

    void screenAndCentre_areThoseOfTheScreen()
    {
        std::int16_t width = 0;
        std::int16_t height = 0;
        basAPI::GetScreenResolution(width, height);
        QCOMPARE(QSize(width, height), QGuiApplication::primaryScreen()->size());
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
        page.addItem(QStringLiteral("1\tshort\t") % longText);
        page.addItem(QStringLiteral("2\t") % longText);
        page.addItem(QString());
        page.addItem(QStringLiteral("4\t") % longText);
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

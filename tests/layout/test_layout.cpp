// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "layout/basapi.h"
#include "layout/basresize.h"
#include "layout/mainlayout.h"
#include "layout/twips.h"
#include "platform/grid/flexgrid.h"

#include <QScreen>
#include <QTest>

#include <algorithm>

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
        const auto placed = [](ScreenClass screenClass, std::string_view control) {
            const auto placements = layout::mainWindowPlacements(screenClass);
            const auto found = std::ranges::find(placements, control, &Placement::control);
            return found == placements.end() ? QRect()
                                             : QRect(0, found->top, found->width, found->height);
        };
        const auto large = [&](const char *control) { return placed(ScreenClass::Large, control); };
        QCOMPARE(large("tabInfo").size(), QSize(15000, 11000));
        QCOMPARE(large("dhtmHelp").size(), QSize(14600, 10000));
        QCOMPARE(large("fraSearch").size(), QSize(14600, 8250));
        QCOMPARE(large("msSearchList").size(), QSize(14360, 7000));
        for (const char *control : {"lblRecSelected", "lblPage", "lblLRecSelected", "lblRecStatus",
                                    "cmdPageUp", "cmdPageDown", "cmdFirstPage", "cmdLastPage"})
            QCOMPARE(large(control).top(), placed(ScreenClass::Designed, control).top() + 2200);

        const auto small = [&](const char *control) { return placed(ScreenClass::Small, control); };
        QCOMPARE(small("tabInfo").size(), QSize(9400, 6300));
        QCOMPARE(small("dhtmPopular").size(), QSize(9000, 5500));
        QCOMPARE(small("msSearchList"), QRect(0, 2800, 9000, 2500));
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

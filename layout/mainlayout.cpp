// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "layout/mainlayout.h"

#include "layout/twips.h"

#include <QWidget>

#include <algorithm>

namespace layout {

namespace {

// A row of controls is 360 twips (24 pixels) high; 15 twips make a pixel at 96 dots per inch.
// One control a line.
// clang-format off
constexpr Placement designed[] = {
    {"tabInfo", 0, 0, 11700, 8100},
    {"fraInfo_0", 60, 60, 11500, 7530},
    {"fraInfo_1", 60, 60, 11500, 7530},
    {"fraInfo_2", 60, 60, 11500, 7530},
    {"fraInfo_3", 60, 60, 11500, 7530},
    {"fraInfo_4", 60, 60, 11500, 7530},
    {"fraInfo_5", 60, 60, 11500, 7530},

    {"dhtmThings", 90, 90, 11310, 7300},
    {"dhtmPopular", 90, 90, 11310, 7300},
    {"dhtmHelp", 90, 90, 11310, 7300},

    {"fraSearch", 90, 0, 11310, 6150},
    {"fraSearchSorting", 0, 330, 11310, 825},
    {"fraListDesc", 120, 0, 4050, 375},
    {"optList_0", 0, 0, 1230, 375},
    {"optList_1", 1245, 0, 1440, 375},
    {"optList_2", 2715, 0, 1290, 375},
    {"cboAlphabet", 120, 450, 750, 375},
    {"fraListGender", 975, 450, 2265, 375},
    {"optList1_0", 0, 0, 735, 375},
    {"optList1_1", 750, 0, 690, 375},
    {"optList1_2", 1455, 0, 810, 375},
    {"cmdList", 3300, 450, 750, 375},
    {"linCriteria", 4200, 0, 30, 825},
    {"lblSearchName", 4380, 0, 870, 375},
    {"txtSearchName", 5250, 0, 1530, 375},
    {"cboNameCondition", 6855, 0, 1515, 375},
    {"lblOrigin", 8490, 0, 690, 375},
    {"cboOrigin", 9180, 0, 2010, 375},
    {"lblMeaning", 4380, 450, 870, 375},
    {"txtMeaning", 5250, 450, 1530, 375},
    {"optSearch_0", 6855, 450, 735, 375},
    {"optSearch_1", 7605, 450, 690, 375},
    {"optSearch_2", 8310, 450, 810, 375},
    {"chkSelected", 9150, 450, 1170, 375},
    {"cmdSearch", 10335, 450, 855, 375},
    {"msSearchList", 120, 1200, 11070, 4845},

    {"lblRecStatus", 210, 6240, 2520, 360},
    {"cmdFirstPage", 2850, 6240, 450, 360},
    {"cmdPageDown", 3345, 6240, 450, 360},
    {"lblPage", 3840, 6240, 2100, 360},
    {"cmdPageUp", 5985, 6240, 450, 360},
    {"cmdLastPage", 6480, 6240, 450, 360},
    {"lblRecSelected", 7170, 6240, 720, 360},
    {"lblLRecSelected", 7950, 6240, 1800, 360},
    {"cmdSave", 9900, 6240, 1380, 360},
    {"lblHint", 120, 6690, 11250, 810},

    {"lblWorksheetNote", 150, 150, 11100, 1500},

    {"fraTopN", 90, 90, 11260, 7200},
    {"lblTopNNote", 0, 0, 4500, 330},
    {"lblPrevTopN", 0, 375, 4500, 300},
    {"msfPrevTopN", 0, 690, 9570, 2385},
    {"lblResult", 0, 3180, 4500, 300},
    {"msfResult", 0, 3495, 9570, 2505},
    {"lblTopNList", 9720, 3180, 1540, 300},
    {"lstTopNList", 9720, 3495, 1540, 2505},
    {"lblTopNHint", 0, 6090, 11260, 600},
    {"cmdPrintTopN", 6600, 6780, 1530, 360},
    {"cmdSaveTopN", 8280, 6780, 1380, 360},
    {"cmdNext", 9810, 6780, 1450, 360},

    {"fraInitial", 90, 90, 11310, 7200},
    {"lblInitial", 0, 0, 4500, 330},
    {"msfInitial", 0, 375, 11260, 5625},
    {"lblInitialHint", 0, 6090, 11260, 600},
    {"cmdPrintInitial", 6600, 6780, 1530, 360},
    {"cmdBack", 8280, 6780, 1450, 360},
    {"cmdSaveInitial", 9880, 6780, 1380, 360},

    {"lblVersion", 150, 75, 6000, 360},
    {"lblTerms", 6300, 75, 5040, 360},
    {"dhtmlAbout", 90, 510, 11310, 6880},
};
// clang-format on

using Kind = Measure::Kind;

constexpr Measure keep {};

constexpr Measure fixedAt(int twips)
{
    return {Kind::Fixed, twips};
}

constexpr Measure grownBy(int twips)
{
    return {Kind::Grow, twips};
}

constexpr Measure widthOf(std::string_view control, int more = 0)
{
    return {Kind::WidthOf, more, control};
}

constexpr Measure heightOf(std::string_view control, int more = 0)
{
    return {Kind::HeightOf, more, control};
}

constexpr Measure topOf(std::string_view control)
{
    return {Kind::TopOf, 0, control};
}

/// A control that only gets a place of its own.
constexpr Change at(std::string_view control, int left, int top, int width, int height)
{
    return {control, fixedAt(left), fixedAt(top), fixedAt(width), fixedAt(height)};
}

constexpr Change large[] = {
    {"tabInfo", keep, keep, fixedAt(15000), fixedAt(11000)},
    {"fraInfo_0", keep, keep, fixedAt(14800), fixedAt(10500)},
    {"fraInfo_1", keep, keep, fixedAt(14800), fixedAt(10500)},
    {"fraInfo_2", keep, keep, fixedAt(14800), fixedAt(10500)},
    {"fraInfo_3", keep, keep, fixedAt(14800), fixedAt(10500)},
    {"fraInfo_4", keep, keep, fixedAt(14800), fixedAt(10500)},
    {"fraInfo_5", keep, keep, fixedAt(14800), fixedAt(10500)},
    {"dhtmThings", keep, keep, fixedAt(14600), fixedAt(10000)},
    {"dhtmPopular", keep, keep, widthOf("dhtmThings"), heightOf("dhtmThings")},
    {"dhtmHelp", keep, keep, widthOf("dhtmThings"), heightOf("dhtmThings")},
    {"fraSearch", keep, keep, widthOf("dhtmThings"), heightOf("dhtmThings", -1750)},
    {"fraSearchSorting", keep, keep, widthOf("dhtmThings"), keep},
    {"msSearchList", keep, keep, widthOf("fraSearch", -240), heightOf("dhtmThings", -3000)},
    {"lblRecSelected", fixedAt(9900), grownBy(2200), keep, keep},
    {"lblPage", fixedAt(6240), topOf("lblRecSelected"), keep, keep},
    {"lblLRecSelected", fixedAt(10680), topOf("lblRecSelected"), keep, keep},
    {"lblRecStatus", keep, topOf("lblRecSelected"), keep, keep},
    {"cmdPageUp", fixedAt(8385), topOf("lblRecSelected"), keep, keep},
    {"cmdPageDown", fixedAt(5745), topOf("lblRecSelected"), keep, keep},
    {"cmdFirstPage", fixedAt(5250), topOf("lblRecSelected"), keep, keep},
    {"cmdLastPage", fixedAt(8880), topOf("lblRecSelected"), keep, keep},
    {"cmdSave", fixedAt(13190), topOf("lblRecSelected"), keep, keep},
    {"lblHint", keep, fixedAt(8910), widthOf("dhtmThings"), fixedAt(750)},

    // The criteria spread over the wider frame.
    {"linCriteria", fixedAt(4410), keep, keep, keep},
    {"lblSearchName", fixedAt(4680), keep, keep, keep},
    {"lblMeaning", fixedAt(4680), keep, keep, keep},
    {"txtSearchName", fixedAt(5580), keep, fixedAt(2700), keep},
    {"txtMeaning", fixedAt(5580), keep, fixedAt(2700), keep},
    {"cboNameCondition", fixedAt(8385), keep, fixedAt(2160), keep},
    {"lblOrigin", fixedAt(10800), keep, keep, keep},
    {"cboOrigin", fixedAt(11520), keep, fixedAt(2940), keep},
    {"optSearch_0", fixedAt(8385), keep, keep, keep},
    {"optSearch_1", fixedAt(9120), keep, keep, keep},
    {"optSearch_2", fixedAt(9825), keep, keep, keep},
    {"chkSelected", fixedAt(11520), keep, keep, keep},
    {"cmdSearch", fixedAt(13260), keep, fixedAt(1200), keep},

    {"fraTopN", keep, keep, widthOf("dhtmThings", -50), heightOf("dhtmThings", -100)},
    {"msfPrevTopN", keep, keep, fixedAt(12650), grownBy(1000)},
    {"lblResult", keep, grownBy(1000), keep, keep},
    {"msfResult", keep, grownBy(1000), fixedAt(12650), grownBy(1000)},
    {"lblTopNList", fixedAt(12800), topOf("lblResult"), fixedAt(1750), keep},
    {"lstTopNList", fixedAt(12800), topOf("msfResult"), fixedAt(1750), heightOf("msfResult")},
    {"lblTopNHint", keep, grownBy(2000), widthOf("fraTopN"), keep},
    {"cmdSaveTopN", fixedAt(11570), grownBy(2100), keep, keep},
    {"cmdNext", fixedAt(13100), topOf("cmdSaveTopN"), keep, keep},
    {"cmdPrintTopN", fixedAt(9890), topOf("cmdSaveTopN"), keep, keep},

    {"fraInitial", keep, keep, widthOf("dhtmThings"), heightOf("dhtmThings", -600)},
    {"lblInitialHint", fixedAt(11560), fixedAt(375), fixedAt(3000), fixedAt(5000)},
    {"cmdPrintInitial", keep, fixedAt(6120), keep, keep},
    {"cmdBack", keep, fixedAt(6120), keep, keep},
    {"cmdSaveInitial", keep, fixedAt(6120), keep, keep},

    {"dhtmlAbout", keep, keep, widthOf("dhtmThings"), heightOf("dhtmThings", -420)},
    {"lblTerms", fixedAt(9600), keep, keep, keep},
};

constexpr Change small[] = {
    {"tabInfo", keep, keep, fixedAt(9400), fixedAt(6300)},
    at("fraInfo_0", 30, 0, 9200, 5900),
    at("fraInfo_1", 30, 0, 9200, 5900),
    at("fraInfo_2", 30, 0, 9200, 5900),
    at("fraInfo_3", 30, 0, 9200, 5900),
    at("fraInfo_4", 30, 0, 9200, 5900),
    at("fraInfo_5", 30, 0, 9200, 5900),
    {"dhtmThings", keep, keep, fixedAt(9000), fixedAt(5500)},
    {"dhtmPopular", keep, keep, widthOf("dhtmThings"), heightOf("dhtmThings")},
    {"dhtmHelp", keep, keep, widthOf("dhtmThings"), heightOf("dhtmThings")},
    at("fraSearch", 0, 0, 9180, 5340),
    at("fraSearchSorting", 90, 330, 9000, 2400),
    at("msSearchList", 90, 2800, 9000, 2500),

    // The list on the left, the search on the right, a row for each kind of criteria.
    at("fraListDesc", 0, 0, 1530, 1260),
    at("optList_0", 0, 0, 1440, 375),
    at("optList_1", 0, 420, 1530, 375),
    at("optList_2", 0, 840, 1440, 375),
    at("fraListGender", 1620, 0, 840, 1260),
    at("optList1_0", 0, 0, 825, 375),
    at("optList1_1", 0, 420, 825, 375),
    at("optList1_2", 0, 840, 825, 375),
    at("cboAlphabet", 0, 1980, 1140, 375),
    at("cmdList", 1290, 1980, 1140, 375),
    at("linCriteria", 2730, 0, 30, 2400),
    at("lblSearchName", 2940, 0, 900, 375),
    at("txtSearchName", 3840, 0, 3210, 375),
    at("cboNameCondition", 7140, 0, 1860, 375),
    at("lblMeaning", 2940, 495, 900, 375),
    at("txtMeaning", 3840, 495, 5160, 375),
    at("lblOrigin", 2940, 990, 900, 375),
    at("cboOrigin", 3840, 990, 3210, 375),
    at("optSearch_0", 3840, 1485, 750, 375),
    at("optSearch_1", 4740, 1485, 750, 375),
    at("optSearch_2", 5640, 1485, 825, 375),
    at("chkSelected", 7140, 1485, 1260, 375),
    at("cmdSearch", 7140, 1980, 1860, 375),

    at("lblRecStatus", 90, 5400, 2175, 345),
    at("cmdFirstPage", 2280, 5400, 390, 345),
    at("cmdPageDown", 2700, 5400, 390, 345),
    at("lblPage", 3105, 5400, 1650, 345),
    at("cmdPageUp", 4770, 5400, 390, 345),
    at("cmdLastPage", 5190, 5400, 390, 345),
    at("lblRecSelected", 5640, 5400, 510, 345),
    at("lblLRecSelected", 6210, 5400, 1650, 345),
    at("cmdSave", 7890, 5400, 1200, 345),
    at("lblHint", 0, 0, 0, 0),

    at("lblWorksheetNote", 150, 150, 8800, 1500),

    at("fraTopN", 90, 0, 9060, 5880),
    at("lblTopNNote", 0, 0, 4500, 345),
    at("lblPrevTopN", 0, 0, 0, 0),
    at("msfPrevTopN", 0, 360, 7000, 2000),
    at("lblResult", 0, 2430, 4500, 330),
    at("msfResult", 0, 2800, 7000, 2600),
    at("lblTopNList", 7120, 2430, 1880, 330),
    at("lstTopNList", 7120, 2800, 1880, 2600),
    at("lblTopNHint", 0, 0, 0, 0),
    at("cmdPrintTopN", 4350, 5460, 1530, 360),
    at("cmdSaveTopN", 6000, 5460, 1440, 360),
    at("cmdNext", 7560, 5460, 1440, 360),

    at("fraInitial", 90, 0, 9060, 5880),
    at("lblInitial", 0, 60, 4500, 345),
    at("msfInitial", 0, 1000, 7000, 4000),
    at("lblInitialHint", 0, 405, 9000, 570),
    at("cmdPrintInitial", 7120, 1000, 1880, 360),
    at("cmdBack", 7120, 1470, 1880, 360),
    at("cmdSaveInitial", 7120, 1940, 1880, 360),
    at("lblVersion", 150, 60, 4200, 345),
    at("lblTerms", 4500, 60, 4500, 345),
    at("dhtmlAbout", 90, 420, 9000, 5170),
};

} // namespace

std::vector<Placement> mainWindowPlacements(ScreenClass screenClass)
{
    switch (screenClass) {
    case ScreenClass::Large:
        return changed(designed, large);
    case ScreenClass::Small:
        return changed(designed, small);
    case ScreenClass::Designed:
        break;
    }
    return changed(designed, {});
}

QSize mainWindowSize(ScreenClass screenClass)
{
    const std::vector<Placement> placements = mainWindowPlacements(screenClass);
    const auto tabs =
        std::ranges::find(placements, std::string_view("tabInfo"), &Placement::control);
    return {tabs->width, tabs->height};
}

void layOutMainWindow(QWidget &window)
{
    const ScreenClass screenClass = currentScreenClass();
    place(window, mainWindowPlacements(screenClass));
    fixSize(window, pixelsFromTwips(mainWindowSize(screenClass)));
}

} // namespace layout

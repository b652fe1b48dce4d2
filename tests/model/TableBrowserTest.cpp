#include "model/TableBrowser.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace quillon {
namespace {

// Search boxes with one box filled.
std::vector<std::string> boxesWith(int columns, int column, const std::string& text)
{
    std::vector<std::string> boxes(columns);
    boxes[column] = text;
    return boxes;
}

std::vector<std::string> paramBoxes(int column, const std::string& text)
{
    return boxesWith(kParamColumnCount, column, text);
}

TEST(TableBrowser, EachParameterModeHasItsTitleAndBarRange)
{
    struct Expected {
        int mode;
        const char* title;
        int min;
        int max;
    };
    const Expected expected[] = {
        {0, "Patch-OSC-FX parameters", 1, 1334}, {1, "Patch parameters", 1, 454},
        {2, "OSC1 parameters", 464, 745},        {3, "OSC2 parameters", 1040, 1182},
        {4, "FX1 parameters", 800, 994},         {5, "FX2 parameters", 1192, 1334},
        {6, "Master FX parameters", 1004, 1030}, {10, "Multi parameters", 1, 606},
    };
    for (const Expected& e : expected) {
        const BrowserMode mode = paramBrowserMode(e.mode);
        EXPECT_EQ(mode.mode, e.mode);
        EXPECT_EQ(mode.title, e.title);
        EXPECT_EQ(mode.barMin, e.min);
        EXPECT_EQ(mode.barMax, e.max);
        EXPECT_EQ(mode.lastRow(), e.max + 9);
    }
}

TEST(TableBrowser, SelectMenuListsTheEightModesInOrder)
{
    const std::vector<int> modes = {0, 1, 2, 3, 4, 5, 6, 10};
    ASSERT_EQ(paramModeItems().size(), modes.size());
    for (std::size_t i = 0; i < modes.size(); ++i) {
        EXPECT_EQ(paramModeItems()[i].mode, modes[i]);
        EXPECT_EQ(std::string(paramModeItems()[i].caption), paramBrowserMode(modes[i]).title);
    }
    EXPECT_STREQ(paramModeItems()[0].menuName, "mnuPatchOSCFXParameters");
    EXPECT_STREQ(paramModeItems()[7].menuName, "mnuMultiParam");
}

TEST(TableBrowser, WholeTablesEndAtTheLastRowOfTheirMode)
{
    const ParamTables& tables = paramTables();
    EXPECT_EQ(paramBrowserMode(0).lastRow(), static_cast<int>(tables.patch.size()) - 1);
    EXPECT_EQ(paramBrowserMode(10).lastRow(), static_cast<int>(tables.multi.size()) - 1);
}

TEST(TableBrowser, SectionListsHaveTheirTitlesAndRowCounts)
{
    EXPECT_EQ(sectionBrowserMode(1).title, "Patch: Sections");
    EXPECT_EQ(sectionBrowserMode(1).lastRow(), 83);
    EXPECT_EQ(sectionBrowserMode(2).title, "Multi: Sections");
    EXPECT_EQ(sectionBrowserMode(2).lastRow(), 40);
    EXPECT_EQ(subSectionBrowserMode(1).title, "Patch: SubSections");
    EXPECT_EQ(subSectionBrowserMode(1).lastRow(), 138);
    EXPECT_EQ(subSectionBrowserMode(2).title, "Multi: SubSections");
    EXPECT_EQ(subSectionBrowserMode(2).lastRow(), 51);
    EXPECT_EQ(sectionBrowserMode(1).barMax, 74);
}

TEST(TableBrowser, ParameterRowShowsItsFieldsAsNumbers)
{
    const ParamTables& tables = paramTables();
    const BrowserMode mode = paramBrowserMode(0);
    const ParamDef& def = tables.patch[1];
    EXPECT_EQ(browserCell(tables, mode, 1, kColID), "1");
    EXPECT_EQ(browserCell(tables, mode, 1, kColName), def.name);
    EXPECT_EQ(browserCell(tables, mode, 1, kColSect), std::to_string(def.sect));
    EXPECT_EQ(browserCell(tables, mode, 1, kColSubSect), std::to_string(def.subSect));
    EXPECT_EQ(browserCell(tables, mode, 1, kColTable), std::to_string(def.table));
    EXPECT_EQ(browserCell(tables, mode, 1, kColMin), std::to_string(def.min));
    EXPECT_EQ(browserCell(tables, mode, 1, kColMax), std::to_string(def.max));
    EXPECT_EQ(browserCell(tables, mode, 1, kColStartB), std::to_string(def.startB));
    EXPECT_EQ(browserCell(tables, mode, 1, kColEndB), std::to_string(def.endB));
}

TEST(TableBrowser, FlagsShowAsYOrNothing)
{
    const ParamTables& tables = paramTables();
    const BrowserMode mode = paramBrowserMode(2);
    ASSERT_NE(tables.patchHard[625], 0);
    EXPECT_EQ(browserCell(tables, mode, 625, kColHard), "Y");
    EXPECT_EQ(browserCell(tables, mode, 625, kColFirm), "Y");
    ASSERT_EQ(tables.patchHard[464], 0);
    EXPECT_EQ(browserCell(tables, mode, 464, kColHard), "");
}

TEST(TableBrowser, MultiRowsShowNoFirmAndThePatchHardFlagOfTheirNumber)
{
    const ParamTables& tables = paramTables();
    const BrowserMode multi = paramBrowserMode(10);
    int patchHardRows = 0;
    for (int row = 1; row <= multi.lastRow(); ++row) {
        EXPECT_EQ(browserCell(tables, multi, row, kColFirm), "") << row;
        EXPECT_EQ(browserCell(tables, multi, row, kColHard), tables.patchHard[row] != 0 ? "Y" : "") << row;
        if (tables.patchHard[row] != 0)
            ++patchHardRows;
    }
    EXPECT_GT(patchHardRows, 0);
    // The multi's own flags differ somewhere, so the quirk is visible.
    bool differs = false;
    for (int row = 1; row <= multi.lastRow(); ++row)
        differs = differs || ((tables.multiHard[row] != 0) != (tables.patchHard[row] != 0));
    EXPECT_TRUE(differs);
}

TEST(TableBrowser, FreqInMode4FindsRowsInSeveralEffectTypes)
{
    const ParamTables& tables = paramTables();
    const BrowserMode mode = paramBrowserMode(4);
    const std::vector<int> hits = searchBrowser(tables, mode, paramBoxes(kColName, "freq"));
    ASSERT_FALSE(hits.empty());
    std::set<int> sections;
    for (int row : hits) {
        EXPECT_GE(row, 800);
        EXPECT_LE(row, 1003);
        EXPECT_NE(std::string(tables.patch[row].name).find("Freq"), std::string::npos) << row;
        sections.insert(tables.patch[row].sect);
    }
    EXPECT_GE(sections.size(), 3u);
    EXPECT_EQ(hits.front(), 804);
}

TEST(TableBrowser, NameSearchIgnoresCaseAndTrailingBlanks)
{
    const ParamTables& tables = paramTables();
    const BrowserMode mode = paramBrowserMode(4);
    const std::vector<int> lower = searchBrowser(tables, mode, paramBoxes(kColName, "freq"));
    EXPECT_EQ(searchBrowser(tables, mode, paramBoxes(kColName, "FREQ  ")), lower);
    // A leading blank stays part of what is looked for.
    const std::vector<int> blankFirst = searchBrowser(tables, mode, paramBoxes(kColName, " freq"));
    EXPECT_FALSE(blankFirst.empty());
    EXPECT_LT(blankFirst.size(), lower.size());
    for (int row : blankFirst)
        EXPECT_NE(tables.patch[row].name.find(" Freq"), std::string::npos);
}

TEST(TableBrowser, HardYInMode2ListsTheReservedRowsOfBrassAndReedModel)
{
    const ParamTables& tables = paramTables();
    const BrowserMode mode = paramBrowserMode(2);
    const std::vector<int> hits = searchBrowser(tables, mode, paramBoxes(kColHard, "Y"));
    std::vector<int> reserved;
    for (int row = mode.firstRow(); row <= mode.lastRow(); ++row)
        if (tables.patch[row].name == "reserved")
            reserved.push_back(row);
    EXPECT_EQ(hits, reserved);
    std::set<std::string> sectionNames;
    for (int row : hits)
        sectionNames.insert(tables.patchSections[tables.patch[row].sect / 10].name);
    EXPECT_EQ(sectionNames, (std::set<std::string>{"Brass Model", "Reed Model"}));
    EXPECT_EQ(searchBrowser(tables, mode, paramBoxes(kColHard, "y")), hits);
}

TEST(TableBrowser, FlagBoxWantsAY)
{
    const ParamTables& tables = paramTables();
    EXPECT_TRUE(searchBrowser(tables, paramBrowserMode(2), paramBoxes(kColHard, "N")).empty());
    EXPECT_TRUE(searchBrowser(tables, paramBrowserMode(2), paramBoxes(kColHard, "yes")).empty());
}

TEST(TableBrowser, IdFrom800InMode0ListsEveryRowFrom800Up)
{
    const ParamTables& tables = paramTables();
    const BrowserMode mode = paramBrowserMode(0);
    const std::vector<int> hits = searchBrowser(tables, mode, paramBoxes(kColID, "800"));
    std::vector<int> expected;
    for (int row = 1; row <= mode.lastRow(); ++row)
        if (tables.patch[row].id >= 800)
            expected.push_back(row);
    EXPECT_EQ(hits, expected);
    ASSERT_FALSE(hits.empty());
    EXPECT_EQ(hits.front(), 800);
    EXPECT_EQ(hits.back(), 1343);
}

TEST(TableBrowser, OtherNumberBoxesMatchByEquality)
{
    const ParamTables& tables = paramTables();
    const BrowserMode mode = paramBrowserMode(1);
    const std::vector<int> hits = searchBrowser(tables, mode, paramBoxes(kColTable, "16"));
    ASSERT_FALSE(hits.empty());
    for (int row : hits)
        EXPECT_EQ(tables.patch[row].table, 16);
    int expected = 0;
    for (int row = mode.firstRow(); row <= mode.lastRow(); ++row)
        expected += tables.patch[row].table == 16 ? 1 : 0;
    EXPECT_EQ(static_cast<int>(hits.size()), expected);
}

TEST(TableBrowser, SearchStaysWithinTheRowsOfTheMode)
{
    const ParamTables& tables = paramTables();
    const std::vector<int> hits = searchBrowser(tables, paramBrowserMode(6), paramBoxes(kColID, "1"));
    ASSERT_EQ(hits.size(), 36u);
    EXPECT_EQ(hits.front(), 1004);
    EXPECT_EQ(hits.back(), 1039);
}

TEST(TableBrowser, ARowMatchingAnyFilledBoxIsAHitOnce)
{
    const ParamTables& tables = paramTables();
    std::vector<std::string> boxes(kParamColumnCount);
    boxes[kColID] = "454";
    boxes[kColName] = "Patch Name";
    const std::vector<int> hits = searchBrowser(tables, paramBrowserMode(1), boxes);
    ASSERT_FALSE(hits.empty());
    EXPECT_EQ(hits.front(), 1);
    EXPECT_EQ(hits.back(), 463);
    EXPECT_EQ(std::set<int>(hits.begin(), hits.end()).size(), hits.size());
}

TEST(TableBrowser, NumberBoxWithTextMatchesNothing)
{
    const ParamTables& tables = paramTables();
    EXPECT_TRUE(searchBrowser(tables, paramBrowserMode(1), paramBoxes(kColMin, "abc")).empty());
    EXPECT_FALSE(searchBrowser(tables, paramBrowserMode(1), paramBoxes(kColMin, " 0 ")).empty());
}

TEST(TableBrowser, NoFilledBoxMeansNoSearch)
{
    EXPECT_FALSE(anySearchBoxFilled(std::vector<std::string>(kParamColumnCount)));
    EXPECT_TRUE(anySearchBoxFilled(paramBoxes(kColEndB, "3")));
}

TEST(TableBrowser, SectionNoAndIdSearchFromTheNumberTyped)
{
    const ParamTables& tables = paramTables();
    const BrowserMode sections = sectionBrowserMode(1);
    const std::vector<int> byNo = searchBrowser(tables, sections, boxesWith(kSectionColumnCount, kSectNo, "80"));
    EXPECT_EQ(byNo, (std::vector<int>{80, 81, 82, 83}));
    const std::vector<int> byId = searchBrowser(tables, sections, boxesWith(kSectionColumnCount, kSectID, "420"));
    ASSERT_FALSE(byId.empty());
    for (int row : byId)
        EXPECT_GE(tables.patchSections[row].id, 420);
    EXPECT_EQ(browserCell(tables, sections, 42, kSectName), "Brass Model");
    EXPECT_EQ(browserCell(tables, sections, 42, kSectID), "420");
}

TEST(TableBrowser, SubSectionSectSearchIsEquality)
{
    const ParamTables& tables = paramTables();
    const BrowserMode subs = subSectionBrowserMode(2);
    const int sect = tables.multiSubsections[10].sect;
    const std::vector<int> hits = searchBrowser(tables, subs, boxesWith(kSubSectionColumnCount, kSubSect,
                                                                         std::to_string(sect)));
    ASSERT_FALSE(hits.empty());
    for (int row : hits)
        EXPECT_EQ(tables.multiSubsections[row].sect, sect);
    EXPECT_EQ(browserCell(tables, subs, 10, kSubSect), std::to_string(sect));
}

TEST(TableBrowser, HitListBarRunsOverTheHits)
{
    const ScrollRange many = hitListRange(22);
    EXPECT_EQ(many.min, 1);
    EXPECT_EQ(many.max, 13);
    EXPECT_EQ(many.largeChange, 10);
    const ScrollRange ten = hitListRange(10);
    EXPECT_EQ(ten.max, 1);
    EXPECT_EQ(ten.largeChange, 10);
    const ScrollRange few = hitListRange(4);
    EXPECT_EQ(few.max, 1);
    EXPECT_EQ(few.largeChange, 1);
    EXPECT_EQ(hitListRange(0).max, 1);
}

TEST(TableBrowser, LinesPastTheHitsAreBlank)
{
    const BrowserMode mode = paramBrowserMode(0);
    const std::vector<int> hits = {5, 9, 12};
    const auto rows = shownRows(mode, true, hits, 1);
    EXPECT_EQ(rows[0], 5);
    EXPECT_EQ(rows[2], 12);
    for (int line = 3; line < kBrowserLines; ++line)
        EXPECT_EQ(rows[line], 0);
    EXPECT_EQ(shownRows(mode, true, std::vector<int>(20, 7), 11)[9], 7);
    EXPECT_EQ(shownRows(mode, true, std::vector<int>(20, 7), 12)[9], 0);
}

TEST(TableBrowser, LinesFollowTheBarThroughTheMode)
{
    const BrowserMode mode = paramBrowserMode(4);
    const auto rows = shownRows(mode, false, {}, mode.barMax);
    EXPECT_EQ(rows[0], 994);
    EXPECT_EQ(rows[9], 1003);
    EXPECT_EQ(browserCell(paramTables(), mode, 0, kColID), "");
}

}  // namespace
}  // namespace quillon

#include "model/TableParsing.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(TableParsing, RowStringGivesNineFieldsWithTrailingBlankOfName)
{
    const ParamDef d = parseParamRow("12,Some Name ,30,31,5,-99,99,1352,1359");
    EXPECT_EQ(d.id, 12);
    EXPECT_EQ(d.name, "Some Name ");
    EXPECT_EQ(d.sect, 30);
    EXPECT_EQ(d.subSect, 31);
    EXPECT_EQ(d.table, 5);
    EXPECT_EQ(d.min, -99);
    EXPECT_EQ(d.max, 99);
    EXPECT_EQ(d.startB, 1352);
    EXPECT_EQ(d.endB, 1359);
}

TEST(TableParsing, NinthFieldTakesTheRestOfTheRow)
{
    // With a limit of nine fields, anything past the eighth comma stays in
    // the last field and does not turn into a number.
    const ParamDef d = parseParamRow("1,a,2,3,4,5,6,7,8,9");
    EXPECT_EQ(d.startB, 7);
    EXPECT_EQ(d.endB, 8);
}

TEST(TableParsing, SectionStringSplitsAtTheFirstCommaOnly)
{
    const SectionDef s = parseSectionRow("200,Amplitude: Amp 1, left");
    EXPECT_EQ(s.id, 200);
    EXPECT_EQ(s.name, "Amplitude: Amp 1, left");
    EXPECT_EQ(s.firstParam, 0);
    EXPECT_EQ(s.lastParam, 0);
}

TEST(TableParsing, MismatchedIdsAreCounted)
{
    std::vector<ParamDef> rows(6);
    for (int r = 1; r <= 5; ++r)
        rows[r].id = static_cast<std::int16_t>(r);
    rows[2].id = 7;
    rows[4].id = 0;
    EXPECT_EQ(countIdMismatches(rows, 1, 5), 2);
    EXPECT_EQ(countIdMismatches(rows, 5, 5), 0);
}

TEST(TableParsing, ErrorTextNamesCountAndTable)
{
    EXPECT_EQ(tableErrorText(2, kPatchTableErrors), "2 errors loading Patch data");
    EXPECT_EQ(tableErrorText(1, kArpTableErrors), "1 errors loading Arpeggiator data");
    EXPECT_EQ(tableErrorText(3, kMultiTableErrors), "3 errors loading Multi data");
    EXPECT_EQ(tableErrorText(0, kMultiTableErrors), "");
}

}  // namespace
}  // namespace quillon

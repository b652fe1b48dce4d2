#include "output/ParamDumps.h"

#include "model/Kind.h"
#include "model/ParamTables.h"
#include "model/SubsectionBounds.h"
#include "model/ValueDecoder.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace quillon {
namespace {

bool hasLine(const std::vector<std::string>& lines, const std::string& line)
{
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

// The index of the line that starts a block, or lines.size().
std::size_t lineIndex(const std::vector<std::string>& lines, const std::string& line)
{
    return static_cast<std::size_t>(std::find(lines.begin(), lines.end(), line) - lines.begin());
}

bool dumpsParam(const std::vector<std::string>& lines, int number)
{
    char prefix[32];
    std::snprintf(prefix, sizeof prefix, "Param no %4d = ", number);
    return std::any_of(lines.begin(), lines.end(), [&](const std::string& l) { return l.rfind(prefix, 0) == 0; });
}

TEST(ParamDumpLine, NumberAndValueAreRightAlignedWithDecodedTextInBrackets)
{
    ParamDef row;
    row.name = "Patch Category";
    row.table = 1;
    EXPECT_EQ(paramDumpLine(17, 0, row), "Param no   17 =   0 [" + decodeValue(1, 0) + "]Patch Category");

    ParamDef plain;
    plain.name = "Flam";
    plain.table = 0;
    EXPECT_EQ(paramDumpLine(1343, -99, plain), "Param no 1343 = -99 [" + decodeValue(0, -99) + "]Flam");
    EXPECT_EQ(paramDumpLine(5, 7, plain), "Param no    5 =   7 [" + decodeValue(0, 7) + "]Flam");
}

TEST(PatchDump, StartsWithFileNameThenTheFiveTypeLines)
{
    TestModel t;
    t.model.itemPath[kPatch] = "/z1/Brass.syx";
    ParamValues& p = t.model.buffers.of(kPatch).current;
    p[174] = 4;
    p[188] = 2;
    p[359] = 10;
    p[360] = 7;
    p[361] = 1;
    const auto& rows = paramTables().patch;

    const auto lines = patchDumpLines(t.model);
    ASSERT_GT(lines.size(), 8u);
    EXPECT_EQ(lines[0], "/z1/Brass.syx");
    EXPECT_EQ(lines[1], "");
    EXPECT_EQ(lines[2], "  4 OSC1 setting " + decodeValue(rows[174].table, 4));
    EXPECT_EQ(lines[3], "  2 OSC2 setting " + decodeValue(rows[188].table, 2));
    EXPECT_EQ(lines[4], " 10 FX1 setting " + decodeValue(rows[359].table, 10));
    EXPECT_EQ(lines[5], "  7 FX2 setting " + decodeValue(rows[360].table, 7));
    EXPECT_EQ(lines[6], "  1 Master FX setting " + decodeValue(rows[361].table, 1));
    EXPECT_EQ(lines[7], "");
    EXPECT_EQ(lines[8], paramDumpLine(1, p[1], rows[1]));
}

TEST(PatchDump, GeneralRangeSkipsReservedRows)
{
    TestModel t;
    const auto lines = patchDumpLines(t.model);
    const auto& rows = paramTables().patch;
    ASSERT_EQ(rows[321].name, "reserved");
    EXPECT_FALSE(dumpsParam(lines, 321));
    EXPECT_FALSE(dumpsParam(lines, 330));
    EXPECT_TRUE(dumpsParam(lines, 320));
    EXPECT_TRUE(dumpsParam(lines, 463));
    EXPECT_TRUE(hasLine(lines, paramDumpLine(463, t.model.buffers.of(kPatch).current[463], rows[463])));
}

TEST(PatchDump, RowsOfTypesNotInForceAndUnusedRowsAreLeftOut)
{
    TestModel t;
    ParamValues& p = t.model.buffers.of(kPatch).current;
    p[174] = 0;  // Standard OSC for OSC1 and OSC2
    p[188] = 0;
    p[359] = 0;
    p[360] = 0;
    p[361] = 0;
    const auto lines = patchDumpLines(t.model);
    // Organ Model rows and the empty rows belong to no block in force.
    const int organFirst = paramTables().patchSections[40].firstParam;
    EXPECT_FALSE(dumpsParam(lines, organFirst));
    EXPECT_FALSE(dumpsParam(lines, 755));
    EXPECT_FALSE(dumpsParam(lines, 799));
}

TEST(PatchDump, EachOverlayHasABlockHeadedWithItsTypeName)
{
    TestModel t;
    ParamValues& p = t.model.buffers.of(kPatch).current;
    p[174] = 0;
    p[188] = 0;
    p[359] = 0;
    p[360] = 0;
    p[361] = 0;
    const auto lines = patchDumpLines(t.model);
    const auto& sections = paramTables().patchSections;
    for (const std::string& heading :
         {"OSC1 Setting " + sections[33].name, "OSC2 Setting " + sections[64].name, "FX1 Setting " + sections[46].name,
          "FX2 Setting " + sections[73].name, "Master FX Setting " + sections[61].name}) {
        const std::size_t at = lineIndex(lines, heading);
        ASSERT_LT(at, lines.size()) << heading;
        EXPECT_EQ(lines[at - 1], "") << heading;
    }
    EXPECT_TRUE(hasLine(lines, "OSC1 Setting Standard OSC"));
    EXPECT_TRUE(hasLine(lines, "Master FX Setting Stereo Delay"));
}

TEST(PatchDump, OverlayBlockListsTheRowsOfTheTypeInForceOnce)
{
    TestModel t;
    ParamValues& p = t.model.buffers.of(kPatch).current;
    p[188] = 3;  // OSC2 plays a Resonance OSC
    const int first = firstParamOfSubsection(16, p);
    const int last = lastParamOfSubsection(16, p);
    ASSERT_GE(first, 1040);
    ASSERT_LE(last, 1191);
    const auto& rows = paramTables().patch;

    const auto lines = patchDumpLines(t.model);
    const std::size_t at = lineIndex(lines, "OSC2 Setting " + paramTables().patchSections[67].name);
    ASSERT_LT(at + static_cast<std::size_t>(last - first + 1), lines.size());
    for (int n = first; n <= last; ++n)
        EXPECT_EQ(lines[at + 1 + static_cast<std::size_t>(n - first)], paramDumpLine(n, p[n], rows[n]));
    EXPECT_EQ(std::count(lines.begin(), lines.end(), paramDumpLine(first, p[first], rows[first])), 1);
}

TEST(PatchDump, OverlayBlockListsEveryRowOfItsRangeReservedOnesIncluded)
{
    TestModel t;
    ParamValues& p = t.model.buffers.of(kPatch).current;
    p[174] = 9;  // Brass Model, whose block has reserved rows
    ASSERT_EQ(paramTables().patch[625].name, "reserved");
    const int first = firstParamOfSubsection(13, p);
    const int last = lastParamOfSubsection(13, p);
    ASSERT_EQ(last - first + 1, 38);
    const auto lines = patchDumpLines(t.model);
    const std::size_t at = lineIndex(lines, "OSC1 Setting Brass Model");
    ASSERT_LT(at + 38, lines.size());
    for (int n = first; n <= last; ++n)
        EXPECT_EQ(lines[at + 1 + static_cast<std::size_t>(n - first)], paramDumpLine(n, p[n], paramTables().patch[n]));
    EXPECT_TRUE(dumpsParam(lines, 625));
}

TEST(PatchDump, OverlayRowsAreNotInTheGeneralRange)
{
    TestModel t;
    const auto lines = patchDumpLines(t.model);
    // The general list ends with the last common row, before the first block.
    const std::size_t firstBlock = lineIndex(lines, "OSC1 Setting Standard OSC");
    ASSERT_LT(firstBlock, lines.size());
    const auto& p = t.model.buffers.of(kPatch).current;
    EXPECT_EQ(lines[firstBlock - 2], paramDumpLine(463, p[463], paramTables().patch[463]));
    for (std::size_t i = 8; i + 1 < firstBlock; ++i) {
        const int number = std::stoi(lines[i].substr(9, 4));
        EXPECT_LE(number, 463) << lines[i];
    }
}

TEST(MultiDump, ThreeTypeLinesGeneralRowsAndTheFx1AndFx2BlocksOnly)
{
    TestModel t;
    t.model.itemPath[kMultiset] = "Layer.syx";
    ParamValues& m = t.model.buffers.of(kMultiset).current;
    m[179] = 3;
    m[180] = 5;
    m[181] = 2;
    const auto& rows = paramTables().multi;
    const auto& sections = paramTables().multiSections;

    const auto lines = multiDumpLines(t.model);
    EXPECT_EQ(lines[0], "Layer.syx");
    EXPECT_EQ(lines[1], "");
    EXPECT_EQ(lines[2], "  3 FX1 setting " + decodeValue(rows[179].table, 3));
    EXPECT_EQ(lines[3], "  5 FX2 setting " + decodeValue(rows[180].table, 5));
    EXPECT_EQ(lines[4], "  2 Master FX setting " + decodeValue(rows[181].table, 2));
    EXPECT_EQ(lines[5], "");
    EXPECT_EQ(lines[6], paramDumpLine(1, m[1], rows[1]));
    EXPECT_TRUE(dumpsParam(lines, 221));
    EXPECT_FALSE(dumpsParam(lines, 222));  // reserved

    const std::size_t fx1 = lineIndex(lines, "FX1 Setting " + sections[15].name);
    const std::size_t fx2 = lineIndex(lines, "FX2 Setting " + sections[35].name);
    ASSERT_LT(fx1, lines.size());
    ASSERT_LT(fx2, lines.size());
    EXPECT_LT(fx1, fx2);
    EXPECT_EQ(lineIndex(lines, "Master FX Setting " + sections[29].name), lines.size());
    const int fx1First = firstMultiParamOfSubsection(3, m);
    EXPECT_EQ(lines[fx1 + 1], paramDumpLine(fx1First, m[fx1First], rows[fx1First]));
    const int fx2Last = lastMultiParamOfSubsection(5, m);
    EXPECT_EQ(lines.back(), paramDumpLine(fx2Last, m[fx2Last], rows[fx2Last]));
    EXPECT_FALSE(dumpsParam(lines, firstMultiParamOfSubsection(7, m)));
}

TEST(MultiDump, EffectRowsOfOtherTypesAreLeftOut)
{
    TestModel t;
    ParamValues& m = t.model.buffers.of(kMultiset).current;
    m[179] = 0;
    const auto lines = multiDumpLines(t.model);
    const int otherFirst = paramTables().multiSections[13].firstParam;  // Compressor, FX1 type 1
    EXPECT_FALSE(dumpsParam(lines, otherFirst));
    EXPECT_TRUE(dumpsParam(lines, paramTables().multiSections[12].firstParam));
}

TEST(ArpDump, PatternRowsThenEachStepWithReservedRowsIncluded)
{
    TestModel t;
    t.model.itemPath[kPattern] = "Run.syx";
    ParamValues& a = t.model.buffers.of(kPattern).current;
    a[17] = 3;
    const auto& rows = paramTables().arp;

    const auto lines = arpDumpLines(t.model);
    ASSERT_EQ(lines.size(), 2u + 40u + 36u * 8u);
    EXPECT_EQ(lines[0], "Run.syx");
    EXPECT_EQ(lines[1], "");
    EXPECT_EQ(lines[2], paramDumpLine(1, a[1], rows[1]));
    EXPECT_EQ(lines[18], "Param no   17 =   3 [" + decodeValue(0, 3) + "]reserved");
    EXPECT_EQ(lines[41], paramDumpLine(40, a[40], rows[40]));
    EXPECT_EQ(lines[42], "");
    EXPECT_EQ(lines[43], "Step 1");
    EXPECT_EQ(lines[44], paramDumpLine(41, a[41], rows[41]));
    EXPECT_EQ(lines[49], paramDumpLine(46, a[46], rows[46]));
    EXPECT_EQ(lines[50], "");
    EXPECT_EQ(lines[51], "Step 2");
    EXPECT_EQ(lines[lines.size() - 7], "Step 36");
    EXPECT_EQ(lines.back(), paramDumpLine(256, a[256], rows[256]));
}

}  // namespace
}  // namespace quillon

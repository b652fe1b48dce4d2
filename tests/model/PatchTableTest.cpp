#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quillon {
namespace {

const ParamDef& patchRow(int r) { return paramTables().patch[r]; }

std::vector<int> inForceBetween(const ParamValues& values, int first, int last)
{
    std::vector<int> rows;
    for (int r : rowsInForce(kPatch, values)) {
        if (r >= first && r <= last)
            rows.push_back(r);
    }
    return rows;
}

std::vector<int> range(int first, int last)
{
    std::vector<int> rows;
    for (int r = first; r <= last; ++r)
        rows.push_back(r);
    return rows;
}

TEST(PatchTable, AmpReservedRowsDifferInRangeAndKbTrackNamesDiffer)
{
    EXPECT_EQ(patchRow(321).name, "reserved");
    EXPECT_EQ(patchRow(321).min, 0);
    EXPECT_EQ(patchRow(321).max, 255);
    EXPECT_EQ(patchRow(330).name, "reserved");
    EXPECT_EQ(patchRow(330).min, -99);
    EXPECT_EQ(patchRow(330).max, 99);
    EXPECT_EQ(patchRow(318).name, "Kb Track Lower Int");
    EXPECT_EQ(patchRow(327).name, "Kb Track Lower Intensity");
}

TEST(PatchTable, MidiSyncRowsShareOneByteWithTheLaterRowInTheLowerBits)
{
    const int byte = patchRow(118).startB / 8;
    EXPECT_EQ(patchRow(119).startB / 8, byte);
    EXPECT_EQ(patchRow(120).startB / 8, byte);
    EXPECT_EQ(patchRow(118).startB % 8, 7);
    EXPECT_EQ(patchRow(118).endB % 8, 7);
    EXPECT_EQ(patchRow(119).startB % 8, 4);
    EXPECT_EQ(patchRow(119).endB % 8, 6);
    EXPECT_EQ(patchRow(120).startB % 8, 0);
    EXPECT_EQ(patchRow(120).endB % 8, 3);
}

TEST(PatchTable, ReedModelTableReadsBit7OfByte204AndShapeAlwaysReadsZero)
{
    ASSERT_EQ(patchRow(690).sect, 430);
    EXPECT_EQ(patchRow(690).startB, 204 * 8 + 7);
    EXPECT_EQ(patchRow(690).endB, 204 * 8 + 7);
    EXPECT_EQ(patchRow(691).startB, 1638);
    EXPECT_EQ(patchRow(691).endB, 1632);

    ByteImage image(kPatchBytes, 0);
    image[155 - 1] = 10;  // OSC1 type: Reed Model
    image[204 - 1] = 0xFF;
    ParamValues values = paramTables().patchDefaults;
    LoadReport report;
    imageToPatchParams(image, values, report);
    EXPECT_EQ(values[690], 1);
    EXPECT_EQ(values[691], 0);

    values[691] = 55;
    patchParamsToImage(values, image);
    EXPECT_EQ(image[204 - 1], 0xFF);
}

TEST(PatchTable, Osc2Type8PutsRows1178To1191InForceAtBits1768To1879)
{
    ParamValues values = paramTables().patchDefaults;
    values[188] = 8;
    EXPECT_EQ(inForceBetween(values, 1040, 1191), range(1178, 1191));
    for (int r = 1178; r <= 1191; ++r)
        EXPECT_EQ(patchRow(r).sect, 720);
    EXPECT_EQ(patchRow(1178).startB, 1768);
    EXPECT_EQ(patchRow(1191).endB, 1879);
}

TEST(PatchTable, Osc1Type12SelectsSect450Rows725To754)
{
    ParamValues values = paramTables().patchDefaults;
    values[174] = 12;
    EXPECT_EQ(inForceBetween(values, 464, 754), range(725, 754));
    for (int r = 725; r <= 754; ++r)
        EXPECT_EQ(patchRow(r).sect, 450);
}

TEST(PatchTable, NoOsc2RowHasASectAbove720)
{
    for (int r = 1040; r <= 1191; ++r)
        EXPECT_LE(patchRow(r).sect, 720) << r;
}

TEST(PatchTable, Fx1Type14SelectsSect600Rows990To1003AndFx2HasNoSuchBlock)
{
    ParamValues values = paramTables().patchDefaults;
    values[359] = 14;
    EXPECT_EQ(inForceBetween(values, 800, 1003), range(990, 1003));
    for (int r = 990; r <= 1003; ++r)
        EXPECT_EQ(patchRow(r).sect, 600);
    for (int r = 1192; r <= 1343; ++r)
        EXPECT_NE(patchRow(r).sect, 600 + 270) << r;
}

TEST(PatchTable, Fx2RowOfLowEqFreqIsRow1196AtBits3512To3519)
{
    EXPECT_EQ(patchRow(804).name, "Low EQ Freq");
    EXPECT_EQ(patchRow(1196).name, "Low EQ Freq");
    EXPECT_EQ(patchRow(1196).startB, 3512);
    EXPECT_EQ(patchRow(1196).endB, 3519);
}

TEST(PatchTable, DefaultPatchIsNamedInitPatch)
{
    std::string name;
    for (int r = 1; r <= 16; ++r)
        name += static_cast<char>(paramTables().patchDefaults[r]);
    EXPECT_EQ(name, "Init Patch      ");
}

TEST(PatchTable, DefaultsStartAtMinAboveZeroElseZero)
{
    const auto& t = paramTables();
    EXPECT_EQ(t.patchDefaults[471], 7);  // Mod LFO, listed
    EXPECT_EQ(t.patch[1047].min, 6);     // its OSC2 copy
    EXPECT_EQ(t.patchDefaults[31], 0);   // Start Level, Min -99
    EXPECT_EQ(t.patchDefaults[23], 1);   // Retrigger Control Threshold, Min 1
}

TEST(PatchTable, Fx2DefaultsDifferFromFx1WhereListedSo)
{
    const auto& d = paramTables().patchDefaults;
    EXPECT_EQ(d[884], 37);
    EXPECT_EQ(d[1276], 25);
    EXPECT_EQ(d[828], 99);
    EXPECT_EQ(d[828 + 392], 0);
}

}  // namespace
}  // namespace quillon

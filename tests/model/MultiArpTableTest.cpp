#include "model/Kind.h"
#include "model/ParamTables.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

const ParamDef& multiRow(int r) { return paramTables().multi[r]; }

TEST(MultiTable, PatchBankAndPatchNumberShareByte17)
{
    EXPECT_EQ(multiRow(17).name, "Patch Bank");
    EXPECT_EQ(multiRow(18).name, "Patch Number");
    EXPECT_EQ(multiRow(17).startB, 17 * 8 + 7);
    EXPECT_EQ(multiRow(17).endB, 17 * 8 + 7);
    EXPECT_EQ(multiRow(18).startB, 17 * 8);
    EXPECT_EQ(multiRow(18).endB, 17 * 8 + 6);
}

TEST(MultiTable, ArpeggiatorAndScaleSelectShareByte21)
{
    EXPECT_EQ(multiRow(23).name, "Arpeggiator");
    EXPECT_EQ(multiRow(22).name, "Scale Select");
    EXPECT_EQ(multiRow(23).startB, 21 * 8);
    EXPECT_EQ(multiRow(23).endB, 21 * 8 + 3);
    EXPECT_EQ(multiRow(22).startB, 21 * 8 + 4);
    EXPECT_EQ(multiRow(22).endB, 21 * 8 + 7);
}

TEST(MultiTable, ReserveVoiceDefaultsTo3ForTimbres1To4AndOffFor5And6)
{
    const auto& d = paramTables().multiDefaults;
    for (int r : {19, 46, 73, 100}) {
        EXPECT_EQ(multiRow(r).name, "Reserve Voice") << r;
        EXPECT_EQ(d[r], 3) << r;
    }
    for (int r : {127, 154}) {
        EXPECT_EQ(multiRow(r).name, "Reserve Voice") << r;
        EXPECT_EQ(d[r], 0) << r;
    }
}

TEST(MultiTable, TimbresRepeatTimbre1Every27RowsAnd128Bits)
{
    for (int k = 1; k <= 5; ++k) {
        for (int r = 17; r <= 43; ++r) {
            const auto& a = multiRow(r);
            const auto& b = multiRow(r + 27 * k);
            EXPECT_EQ(b.name, a.name);
            EXPECT_EQ(b.sect, a.sect + 10 * k);
            EXPECT_EQ(b.subSect, a.subSect + 10 * k);
            EXPECT_EQ(b.startB, a.startB + 128 * k);
        }
    }
    EXPECT_EQ(multiRow(178).startB, 896);
    EXPECT_EQ(multiRow(178).endB, 903);
}

TEST(MultiTable, DefaultMultiIsNamedInitMulti)
{
    std::string name;
    for (int r = 1; r <= 16; ++r)
        name += static_cast<char>(paramTables().multiDefaults[r]);
    EXPECT_EQ(name, "Init Multi      ");
}

TEST(MultiTable, EffectDefaultsComeFromThePatchFx1RowsForBothEffects)
{
    const auto& t = paramTables();
    for (int r = 224; r <= 463; ++r)
        EXPECT_EQ(t.multiDefaults[r], t.patchDefaults[r + 576]) << r;
    for (int r = 464; r <= kMultiParams; ++r)
        EXPECT_EQ(t.multiDefaults[r], t.patchDefaults[r + 336]) << r;
    // Patch FX1 row 828 has a listed default that its FX2 copy lacks; the
    // multiset's FX2 takes the FX1 value all the same.
    EXPECT_EQ(t.multiDefaults[828 - 336], t.patchDefaults[828]);
}

TEST(ArpTable, ReservedRow17DefaultsTo5)
{
    EXPECT_EQ(paramTables().arp[17].name, "reserved");
    EXPECT_EQ(paramTables().arpDefaults[17], 5);
}

TEST(ArpTable, StepsRepeatStep1Every6RowsAnd48Bits)
{
    const auto& arp = paramTables().arp;
    for (int k = 1; k <= 35; ++k) {
        for (int r = 41; r <= 46; ++r) {
            EXPECT_EQ(arp[r + 6 * k].name, arp[r].name);
            EXPECT_EQ(arp[r + 6 * k].sect, 1 + k);
            EXPECT_EQ(arp[r + 6 * k].startB, arp[r].startB + 48 * k);
        }
    }
    EXPECT_EQ(arp[256].startB, 2048);
    EXPECT_EQ(arp[256].endB, 2055);
}

TEST(ArpTable, DefaultPatternIsNamedInitPatternWithEveryStepAt128And80)
{
    const auto& d = paramTables().arpDefaults;
    std::string name;
    for (int r = 1; r <= 16; ++r)
        name += static_cast<char>(d[r]);
    EXPECT_EQ(name, "Init Pattern    ");
    for (int k = 0; k < 36; ++k) {
        EXPECT_EQ(d[43 + 6 * k], 0);
        EXPECT_EQ(d[44 + 6 * k], 0);
        EXPECT_EQ(d[45 + 6 * k], 128);
        EXPECT_EQ(d[46 + 6 * k], 80);
    }
    EXPECT_EQ(d[30], 36);
}

}  // namespace
}  // namespace quillon

#include "banks/BankStore.h"

#include "model/Kind.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(BankStore, WritingDifferentDataMarksTheBankChanged)
{
    KindFlags flags;
    BankStore store(flags);
    ByteImage patch(kPatchBytes, 0);
    patch[100] = 5;
    store.writeBankPatch(kPatchBankB, 3, patch);
    EXPECT_TRUE(flags.changed[kPatchBankB]);
    EXPECT_FALSE(flags.changed[kPatchBankA]);
    EXPECT_EQ(store.readBankPatch(kPatchBankB, 3), patch);
    EXPECT_EQ(store.image(kPatchBankB)[3 * kPatchBytes + 100], 5);
}

TEST(BankStore, WritingIdenticalDataLeavesTheFlagAsItIs)
{
    KindFlags flags;
    BankStore store(flags);
    store.writeBankMulti(kMultiBankA, 15, ByteImage(kMultiBytes, 0));
    EXPECT_FALSE(flags.changed[kMultiBankA]);
    flags.changed[kArpBank] = true;
    store.writeBankPattern(19, ByteImage(kPatternBytes, 0));
    EXPECT_TRUE(flags.changed[kArpBank]);
}

TEST(BankStore, WriteBankPatchWithAnIdenticalImageLeavesChangedFlagsAtZero)
{
    KindFlags flags;
    BankStore store(flags);
    ByteImage patch(kPatchBytes, 0);
    patch[0] = 'A';
    store.writeBankPatch(kPatchBankA, 7, patch);
    ASSERT_TRUE(flags.changed[kPatchBankA]);
    flags.changed[kPatchBankA] = false;
    store.writeBankPatch(kPatchBankA, 7, store.readBankPatch(kPatchBankA, 7));
    EXPECT_FALSE(flags.changed[kPatchBankA]);
    patch[kPatchBytes - 1] = 1;
    store.writeBankPatch(kPatchBankA, 7, patch);
    EXPECT_TRUE(flags.changed[kPatchBankA]);
}

TEST(BankStore, NamesFollowTheLoadedFlagOfTheirBank)
{
    KindFlags flags;
    BankStore store(flags);
    ByteImage pattern(kPatternBytes, ' ');
    pattern[0] = 'Z';
    store.writeBankPattern(7, pattern);
    EXPECT_EQ(store.bankPatternName(7), "No pattern (007)");
    flags.loaded[kArpBank] = true;
    EXPECT_EQ(store.bankPatternName(7), "Z               ");
    EXPECT_EQ(store.bankPatchName(kPatchBankA, 127), "No patch (127)");
    EXPECT_EQ(store.bankPatchName(kPatchBankA, 128), "");
    EXPECT_EQ(store.bankMultiName(kMultiBankB, 2), "No patch (002)");
}

TEST(BankStore, AttributeReadsOneByteOfAPatch)
{
    KindFlags flags;
    BankStore store(flags);
    ByteImage patch(kPatchBytes, 0);
    patch[155 - 1] = 9;  // OSC1 type
    store.writeBankPatch(kPatchBankA, 40, patch);
    EXPECT_EQ(store.bankPatchAttribute(kPatchBankA, 40, 4), 9);
    EXPECT_EQ(store.bankPatchAttribute(kMultiBankA, 40, 4), 0);
}

}  // namespace
}  // namespace quillon

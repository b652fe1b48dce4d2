#include "banks/TakeFromBank.h"

#include "banks/BankView.h"

#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <cstring>

namespace quillon {
namespace {

ByteImage patchNamed(const char* name)
{
    ParamValues values = paramTables().patchDefaults;
    for (int i = 0; i < 16; ++i)
        values[i + 1] = static_cast<std::int16_t>(i < static_cast<int>(std::strlen(name)) ? name[i] : ' ');
    values[17] = 4;
    ByteImage image(kPatchBytes, 0);
    patchParamsToImage(values, image);
    return image;
}

TEST(TakeFromBank, PatchComesIntoTheEditorCleanWithoutAFileName)
{
    TestModel t;
    t.model.bankTarget = kPatchBankB;
    t.model.flags.loaded[kPatchBankB] = true;
    t.model.banks.writeBankPatch(kPatchBankB, 9, patchNamed("Bell Tree"));
    t.model.itemPath[kPatch] = "/old/patch.syx";
    ASSERT_TRUE(takePatchFromBank(t.model, 9));
    const ItemBuffers& b = t.model.buffers.of(kPatch);
    EXPECT_EQ(b.current[1], 'B');
    EXPECT_EQ(b.current[17], 4);
    EXPECT_EQ(b.loaded, b.current);
    EXPECT_EQ(b.last, b.current);
    EXPECT_TRUE(t.model.flags.loaded[kPatch]);
    EXPECT_TRUE(t.model.flags.clean[kPatch]);
    EXPECT_FALSE(t.model.flags.changed[kPatch]);
    EXPECT_TRUE(t.model.itemPath[kPatch].empty());
    EXPECT_TRUE(t.model.takenFromBank[kPatch]);
    EXPECT_EQ(t.model.banks.lastPutPatch, 128 + 9);
    EXPECT_EQ(t.model.itemName[kPatch], "Bell Tree");
}

TEST(TakeFromBank, CancelAtTheSavePromptLeavesTheEditorAlone)
{
    TestModel t;
    t.model.flags.loaded[kPatch] = true;
    t.model.flags.changed[kPatch] = true;
    t.model.buffers.of(kPatch).current[40] = 33;
    t.model.itemName[kPatch] = "Mine";
    t.host.expectMessage("New Patch", Answer::Cancel, "Save Mine first?");
    EXPECT_FALSE(takePatchFromBank(t.model, 0));
    EXPECT_EQ(t.model.buffers.of(kPatch).current[40], 33);
    EXPECT_TRUE(t.model.flags.changed[kPatch]);
}

TEST(TakeFromBank, MultisetAndPatternRememberTheirPlace)
{
    TestModel t;
    ASSERT_TRUE(takeMultiFromBank(t.model, kMultiBankB, 3));
    EXPECT_EQ(t.model.banks.lastPutMulti, 19);
    ASSERT_TRUE(takePatternFromBank(t.model, 12));
    EXPECT_EQ(t.model.banks.lastPutPattern, 12);
    EXPECT_TRUE(t.model.flags.loaded[kPattern]);
}


TEST(TakeFromBank, PatchTakenFromTheSelectionLeavesIt)
{
    TestModel t;
    t.model.mode = kPatchBankA;
    t.model.bankTarget = kPatchBankA;
    t.model.flags.loaded[kPatchBankA] = true;
    t.model.banks.writeBankPatch(kPatchBankA, 4, patchNamed("Taken"));
    BankSelection& selection = t.model.banks.selection(kPatchBankA);
    selection.selectionFlags[4] = -1;
    bankSelectSequence(t.model);
    ASSERT_TRUE(takePatchFromBank(t.model, 4));
    EXPECT_EQ(selection.selectionCount, 0);
    EXPECT_FALSE(selection.selected(4));
    EXPECT_EQ(t.model.bankView.labels[4].scheme, kUnselectedScheme);
    EXPECT_FALSE(t.model.bankView.selectionToolsShown);
}

}  // namespace
}  // namespace quillon

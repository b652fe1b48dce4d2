#include "editors/BankMerge.h"

#include "editors/Frames.h"
#include "editors/ItemStatus.h"
#include "editors/Navigation.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "output/ListFormat.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <random>

namespace quillon {
namespace {

constexpr int kPlace = 5;
constexpr int kOsc1Setting = 13;
constexpr int kOsc1Type = 174;
constexpr int kBrassModelType = 9;

// A patch screen with bank A loaded; its patch at kPlace differs from the
// editor's in every value it can, and has OSC1 of the Brass Model type.
struct MergeEditor : TestModel {
    ByteImage bankPatch;

    MergeEditor()
    {
        applyStartUpView(model);
        model.flags.loaded[kPatch] = true;
        model.flags.clean[kPatch] = true;
        setFrameMode(model, 2);
        setUpScreen(model, kPatch);
        ParamValues values = model.buffers.of(kPatch).defaults;
        std::mt19937 generator(11);
        const auto& rows = paramTables().patch;
        for (std::size_t p = 17; p < rows.size(); ++p) {
            if (rows[p].sect != 0 && rows[p].max > rows[p].min)
                values[p] = static_cast<std::int16_t>(std::uniform_int_distribution<int>(rows[p].min, rows[p].max)(generator));
        }
        values[kOsc1Type] = kBrassModelType;
        const std::string name = "Bank Patch Name ";
        for (int i = 0; i < 16; ++i)
            values[static_cast<std::size_t>(i + 1)] = static_cast<std::int16_t>(name[static_cast<std::size_t>(i)]);
        bankPatch.assign(kPatchBytes, 0);
        patchParamsToImage(values, bankPatch);
        model.flags.loaded[kPatchBankA] = true;
        model.banks.writeBankPatch(kPatchBankA, kPlace, bankPatch);
        model.bankTarget = kPatchBankA;
        setPatchName("Editor Patch One");
    }
    void setPatchName(const std::string& name)
    {
        for (int i = 0; i < 16; ++i)
            current()[static_cast<std::size_t>(i + 1)] = static_cast<std::int16_t>(name[static_cast<std::size_t>(i)]);
    }
    void select(int place)
    {
        BankSelection& s = model.banks.selection(kPatchBankA);
        s.selectionFlags[static_cast<std::size_t>(place)] = -1;
        s.selectionCount = 1;
        s.selectionSequence[1] = static_cast<std::int16_t>(place);
    }
    ParamValues& current() { return model.buffers.of(kPatch).current; }
    std::uint8_t editorByte(int byte) { return model.itemImage(kPatch)[static_cast<std::size_t>(byte - 1)]; }
    std::uint8_t bankByte(int byte) const { return bankPatch[static_cast<std::size_t>(byte - 1)]; }
};

TEST(BankMerge, PopupCopyItemsCarryTheirCodes)
{
    const auto items = mergeMenuItems();
    ASSERT_EQ(items.size(), 20u);
    EXPECT_EQ(items[0].name, "mnuCopyExceptArray_1");
    EXPECT_EQ(items[0].caption, "Comm");
    EXPECT_EQ(items[0].code, 1);
    EXPECT_EQ(items[9].caption, "Copy All ex CSS");
    EXPECT_EQ(items[9].code, 10);
    EXPECT_EQ(items[10].caption, "Copy CSS");
    EXPECT_EQ(items[10].code, 20);
    EXPECT_EQ(items[19].name, "mnuCopyArray_9");
    EXPECT_EQ(items[19].caption, "Copy Ctrls");
    EXPECT_EQ(items[19].code, 19);
}

TEST(BankMerge, PopupCopyItemTakesThePatchUnderThePopup)
{
    MergeEditor t;
    // A right click with nothing selected puts the patch in element 1 alone.
    t.model.banks.selection(kPatchBankA).selectionSequence[1] = kPlace;
    mergeFromBankPopup(t.model, kMergeFirstGroup + 1);  // "Copy EG"
    for (int byte = 26; byte <= 101; ++byte)
        EXPECT_EQ(t.editorByte(byte), t.bankByte(byte)) << byte;
    EXPECT_EQ(t.model.merge.BankGroupNext, 2);
}

TEST(BankMerge, GroupAndSubsectionBytes)
{
    EXPECT_EQ(groupBytes(1).first, 17);
    EXPECT_EQ(groupBytes(9).last, 576);
    EXPECT_EQ(subsectionBytes(13).typeByte, 155);
    EXPECT_EQ(subsectionBytes(40).first, 435);
    EXPECT_EQ(subsectionBytes(1).first, 17);  // from parameter 17, past the name
    EXPECT_EQ(subsectionBytes(0).last, 0);
}

TEST(BankMerge, CopyCssWithOsc1SettingOnShowAlsoBringsTheBankPatchsOsc1Type)
{
    MergeEditor t;
    ASSERT_NE(t.current()[kOsc1Type], kBrassModelType);
    fraPatchHeaders(t.model, 1, 0, kOsc1Setting);
    const ParamValues before = t.current();
    mergeFromBank(t.model, kPlace, kMergeCss);
    EXPECT_EQ(t.current()[kOsc1Type], kBrassModelType);
    for (int byte = 169; byte <= 206; ++byte)
        EXPECT_EQ(t.editorByte(byte), t.bankByte(byte)) << byte;
    EXPECT_EQ(nameFromParams(t.current()), "Editor Patch One");
    EXPECT_EQ(t.model.buffers.of(kPatch).last, before);
    EXPECT_FALSE(t.model.flags.clean[kPatch]);
    EXPECT_EQ(t.model.merge.BankSubsectionNext, kOsc1Setting + 1);
    EXPECT_EQ(t.model.merge.sourcePosition, kPlace);
}

TEST(BankMerge, MergingCtrlsAsTheLastGroupSetsTheNextGroupBackToZero)
{
    MergeEditor t;
    mergeFromBank(t.model, kPlace, kMergeFirstGroup + 7);  // FX
    EXPECT_EQ(t.model.merge.BankGroupNext, 8);
    mergeFromBank(t.model, kPlace, kMergeFirstGroup + 8);  // Ctrls
    EXPECT_EQ(t.model.merge.BankGroupNext, 0);
    for (int byte = 480; byte <= 576; ++byte)
        EXPECT_EQ(t.editorByte(byte), t.bankByte(byte)) << byte;
}

TEST(BankMerge, AllExceptAGroupKeepsThatGroupAndTheName)
{
    MergeEditor t;
    patchParamsToImage(t.current(), t.model.itemImage(kPatch));
    const ByteImage own = t.model.itemImage(kPatch);
    mergeFromBank(t.model, kPlace, 2);  // all except EG
    for (int byte = 1; byte <= kPatchBytes; ++byte) {
        const bool kept = byte <= 16 || (byte >= 26 && byte <= 101);
        EXPECT_EQ(t.editorByte(byte), kept ? own[static_cast<std::size_t>(byte - 1)] : t.bankByte(byte)) << byte;
    }
}

TEST(BankMerge, AllExceptCssKeepsTheCurrentSubsectionAndItsType)
{
    MergeEditor t;
    fraPatchHeaders(t.model, 1, 0, kOsc1Setting);
    const int ownType = t.current()[kOsc1Type];
    mergeFromBank(t.model, kPlace, kMergeAllExceptCss);
    EXPECT_EQ(t.current()[kOsc1Type], ownType);
    EXPECT_EQ(t.editorByte(300), t.bankByte(300));
}

TEST(BankMerge, CopyCssWithoutASubsectionIsRefusedAndChangesNothing)
{
    MergeEditor t;
    const ParamValues before = t.current();
    const ParamValues lastBefore = t.model.buffers.of(kPatch).last;
    t.host.expectMessage(kCopyToCssTitle, Answer::Ok, std::string(kNoSubsectionSelected));
    mergeFromBank(t.model, kPlace, kMergeCss);
    EXPECT_TRUE(t.host.allShown());
    EXPECT_EQ(t.current(), before);
    EXPECT_EQ(t.model.buffers.of(kPatch).last, lastBefore);
    EXPECT_TRUE(t.model.flags.clean[kPatch]);
}

TEST(BankMerge, QuickMergeTakesTheNextGroupAndTagsTheName)
{
    MergeEditor t;
    t.select(kPlace);
    setUpScreen(t.model, kPatchBankA);
    mergeNextGroup(t.model);
    EXPECT_EQ(t.model.mode, kPatch);
    EXPECT_EQ(nameFromParams(t.current()), "Editor Patch 01Q");
    EXPECT_EQ(t.model.labels.label(kPatch).text, "Editor Patch 01Q");
    EXPECT_EQ(t.model.merge.BankGroupNext, 1);
    for (int byte = 17; byte <= 25; ++byte)
        EXPECT_EQ(t.editorByte(byte), t.bankByte(byte)) << byte;
    mergeNextGroup(t.model);
    EXPECT_EQ(nameFromParams(t.current()), "Editor Patch 02Q");
}

TEST(BankMerge, SlowMergeTakesTheNextSubsectionAndStartsAgainAfterFifty)
{
    MergeEditor t;
    t.select(kPlace);
    t.model.merge.BankSubsectionNext = 50;
    mergeNextSubsection(t.model);
    EXPECT_EQ(nameFromParams(t.current()), "Editor Patch 50S");
    EXPECT_EQ(t.model.merge.BankSubsectionNext, 1);
    mergeNextSubsection(t.model);
    EXPECT_EQ(nameFromParams(t.current()), "Editor Patch 01S");
    EXPECT_EQ(t.model.merge.BankSubsectionNext, 2);
    EXPECT_FALSE(t.model.flags.clean[kPatch]);
}

TEST(BankMerge, WithoutASelectedPatchTheKeysGatherTheSelectionAndMergeNothing)
{
    MergeEditor t;
    const ParamValues before = t.current();
    // A flag set without the sequence built: the key gathers it first.
    t.model.banks.selection(kPatchBankA).selectionFlags[kPlace] = -1;
    mergeNextGroup(t.model);
    EXPECT_EQ(t.current(), before);
    EXPECT_EQ(t.model.banks.selection(kPatchBankA).selectionCount, 1);
    EXPECT_EQ(t.model.banks.selection(kPatchBankA).selectionSequence[1], kPlace);
    mergeNextGroup(t.model);
    EXPECT_EQ(nameFromParams(t.current()), "Editor Patch 01Q");

    t.model.banks.selection(kPatchBankA) = BankSelection{};
    const ParamValues merged = t.current();
    mergeNextSubsection(t.model);
    EXPECT_EQ(t.current(), merged);
}

TEST(BankMerge, CopyToolsShowTheNextGroupAndSubsectionAndDoubleClicksStartAgain)
{
    MergeEditor t;
    EXPECT_EQ(bankPatchSelGroupText(t.model), "Common");
    EXPECT_EQ(bankPatchSelSSText(t.model), "1");
    mergeFromBank(t.model, kPlace, kMergeFirstGroup + 2);  // LFO
    EXPECT_EQ(bankPatchSelGroupText(t.model), "OSC");
    setBankSubsectionNext(t.model, 99);
    EXPECT_EQ(bankPatchSelSSText(t.model), "50");
    setBankGroupNext(t.model, 9);
    EXPECT_EQ(bankPatchSelGroupText(t.model), "Controls");
    doubleClickBankPatchSelGroup(t.model);
    doubleClickBankPatchSelSS(t.model);
    EXPECT_EQ(t.model.merge.BankGroupNext, 0);
    EXPECT_EQ(t.model.merge.BankSubsectionNext, 1);
}

TEST(BankMerge, AnEmptyTagLeavesTheName)
{
    MergeEditor t;
    tagMergedName(t.model, "", 3);
    EXPECT_EQ(nameFromParams(t.current()), "Editor Patch One");
    tagMergedName(t.model, "Q", 3);
    EXPECT_EQ(nameFromParams(t.current()), "Editor Patch 03Q");
}

}  // namespace
}  // namespace quillon

#include "editors/TimbreCaption.h"

#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon {
namespace {

// A patch for a bank: only its sixteen name bytes matter here.
ByteImage patchNamed(const std::string& name)
{
    ByteImage image(kPatchBytes, 0);
    for (int i = 0; i < 16; ++i)
        image[i] = static_cast<std::uint8_t>(i < static_cast<int>(name.size()) ? name[i] : ' ');
    return image;
}

void setTimbre(AppModel& model, int t, int bank, int number, int voice)
{
    ParamValues& current = model.buffers.of(kMultiset).current;
    const int first = timbreFirstParam(t);
    current[first] = static_cast<std::int16_t>(bank);
    current[first + 1] = static_cast<std::int16_t>(number);
    current[first + 2] = static_cast<std::int16_t>(voice);
}

TEST(TimbreCaption, TimbresBeginAtTheirPatchBankRow)
{
    const auto& rows = paramTables().multi;
    for (int t = 1; t <= kMultiTimbreCount; ++t) {
        const int first = timbreFirstParam(t);
        EXPECT_EQ(first, (t - 1) * 27 + 17);
        EXPECT_EQ(rows[first].name, "Patch Bank");
        EXPECT_EQ(rows[first + 1].name, "Patch Number");
        EXPECT_EQ(rows[first + 2].name, "Reserve Voice");
    }
}

TEST(TimbreCaption, OnlyTheBankNumberAndVoiceRowsBelongToATimbre)
{
    EXPECT_EQ(timbreOfParam(17), 1);
    EXPECT_EQ(timbreOfParam(19), 1);
    EXPECT_EQ(timbreOfParam(timbreFirstParam(4) + 1), 4);
    EXPECT_EQ(timbreOfParam(timbreFirstParam(6) + 2), 6);
    EXPECT_EQ(timbreOfParam(20), 0);  // Transpose of timbre 1
    EXPECT_EQ(timbreOfParam(16), 0);  // the last character of the name
    EXPECT_EQ(timbreOfParam(0), 0);
    EXPECT_EQ(timbreOfParam(kMultiParams + 1), 0);
    int rowsOfTimbres = 0;
    for (int p = 1; p <= kMultiParams; ++p)
        rowsOfTimbres += timbreOfParam(p) != 0;
    EXPECT_EQ(rowsOfTimbres, 18);
}

TEST(TimbreCaption, ReserveVoiceZeroNamesTheTimbreByItsNumberWhateverItsPatch)
{
    TestModel t;
    t.model.flags.loaded[kPatchBankB] = true;
    t.model.banks.writeBankPatch(kPatchBankB, 77, patchNamed("Organ"));
    setTimbre(t.model, 3, 1, 77, 0);
    EXPECT_EQ(timbreCaption(t.model, 3), "Patch 3");
}

TEST(TimbreCaption, LoadedBankGivesTheWholeSixteenCharacterNameABlankAndThePlace)
{
    TestModel t;
    t.model.flags.loaded[kPatchBankA] = true;
    t.model.banks.writeBankPatch(kPatchBankA, 12, patchNamed("Warm Pad"));
    setTimbre(t.model, 1, 0, 12, 2);
    EXPECT_EQ(timbreCaption(t.model, 1), "Warm Pad         A012");
}

TEST(TimbreCaption, BankBTimbreReadsBankBAndShowsTheLetterB)
{
    TestModel t;
    t.model.flags.loaded[kPatchBankA] = true;
    t.model.flags.loaded[kPatchBankB] = true;
    t.model.banks.writeBankPatch(kPatchBankA, 5, patchNamed("From A"));
    t.model.banks.writeBankPatch(kPatchBankB, 5, patchNamed("From B"));
    setTimbre(t.model, 2, 1, 5, 1);
    EXPECT_EQ(timbreCaption(t.model, 2), "From B           B005");
}

TEST(TimbreCaption, BankNotLoadedButOtherBankLoadedShowsThePlaceAlone)
{
    TestModel t;
    t.model.flags.loaded[kPatchBankB] = true;
    t.model.banks.writeBankPatch(kPatchBankB, 12, patchNamed("Only In B"));
    setTimbre(t.model, 1, 0, 12, 3);
    EXPECT_EQ(timbreCaption(t.model, 1), "A012");
}

TEST(TimbreCaption, WithoutTheBankARemapGivesTheNameOfItsNewListsAndBCountsFrom128)
{
    TestModel t;
    t.model.remap.newListsPresent = true;
    t.model.remap.newNames[12] = "Mapped A       ";
    t.model.remap.newNames[128 + 12] = "Mapped B";
    setTimbre(t.model, 1, 0, 12, 3);
    setTimbre(t.model, 2, 1, 12, 3);
    EXPECT_EQ(timbreCaption(t.model, 1), "Mapped A        A012");
    EXPECT_EQ(timbreCaption(t.model, 2), "Mapped B B012");
}

TEST(TimbreCaption, LoadedBankWinsOverTheRemap)
{
    TestModel t;
    t.model.flags.loaded[kPatchBankA] = true;
    t.model.banks.writeBankPatch(kPatchBankA, 12, patchNamed("In The Bank"));
    t.model.remap.newListsPresent = true;
    t.model.remap.newNames[12] = "In The Remap";
    setTimbre(t.model, 1, 0, 12, 3);
    EXPECT_EQ(timbreCaption(t.model, 1), "In The Bank      A012");
}

TEST(TimbreCaption, RemapNamesUnreadAreNotUsed)
{
    TestModel t;
    t.model.remap.newNames[12] = "Stale";
    setTimbre(t.model, 1, 0, 12, 3);
    EXPECT_EQ(timbreCaption(t.model, 1), "A012");
}

TEST(TimbreCaption, TimbreOutOfRangeHasNoCaption)
{
    TestModel t;
    EXPECT_EQ(timbreCaption(t.model, 0), "");
    EXPECT_EQ(timbreCaption(t.model, 7), "");
}

TEST(TimbreCaption, MultisetImageGivesBankAndNumberFromTheCombinedPositionByte)
{
    TestModel t;
    t.model.flags.loaded[kPatchBankB] = true;
    t.model.banks.writeBankPatch(kPatchBankB, 3, patchNamed("Image B"));
    ByteImage multi(kMultiBytes, 0);
    // Byte 17 + 16 (t - 1) of the instrument's numbering holds timbre t's
    // combined position, the next byte its Reserve Voice.
    multi[(2 - 1) * 16 + 16] = 128 + 3;
    multi[(2 - 1) * 16 + 17] = 4;
    multi[(5 - 1) * 16 + 16] = 99;
    multi[(5 - 1) * 16 + 17] = 1;
    multi[(6 - 1) * 16 + 16] = 99;
    multi[(6 - 1) * 16 + 17] = 0;
    EXPECT_EQ(timbreCaption(t.model, multi, 2), "Image B          B003");
    EXPECT_EQ(timbreCaption(t.model, multi, 5), "A099");
    EXPECT_EQ(timbreCaption(t.model, multi, 6), "Patch 6");
    EXPECT_EQ(timbreCaption(t.model, ByteImage(10, 0), 6), "");
}

TEST(TimbreCaption, ImageAndCurrentAgreeForTheSameMultiset)
{
    TestModel t;
    t.model.flags.loaded[kPatchBankA] = true;
    t.model.banks.writeBankPatch(kPatchBankA, 100, patchNamed("Agree"));
    setTimbre(t.model, 4, 0, 100, 6);
    setTimbre(t.model, 5, 1, 127, 0);
    setTimbre(t.model, 6, 1, 64, 12);
    ByteImage image(kMultiBytes, 0);
    multiParamsToImage(t.model.buffers.of(kMultiset).current, image);
    for (int timbre = 1; timbre <= kMultiTimbreCount; ++timbre)
        EXPECT_EQ(timbreCaption(t.model, image, timbre), timbreCaption(t.model, timbre)) << "timbre " << timbre;
}

}  // namespace
}  // namespace quillon

#include "banks/BankProperties.h"

#include "banks/BankFixtures.h"
#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

void setByte(AppModel& model, int bank, int position, int byte, int value)
{
    model.banks.image(bank)[static_cast<std::size_t>(position * kPatchBytes + byte - 1)] =
        static_cast<std::uint8_t>(value);
}

TEST(BankPatchProperties, LinesNameEveryTypeWithItsNumberAndText)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankB, "Q");
    showBank(t.model, kPatchBankB);
    setByte(t.model, kPatchBankB, 9, 17, 5);    // E.Piano
    setByte(t.model, kPatchBankB, 9, 18, 3);    // user group 4
    setByte(t.model, kPatchBankB, 9, 155, 2);   // VPM OSC
    setByte(t.model, kPatchBankB, 9, 207, 0);   // Standard OSC
    setByte(t.model, kPatchBankB, 9, 411, 6);   // Chorus
    setByte(t.model, kPatchBankB, 9, 434, 1);   // Compressor
    setByte(t.model, kPatchBankB, 9, 457, 0);
    setByte(t.model, kPatchBankB, 9, 313, 1);
    setByte(t.model, kPatchBankB, 9, 340, 2);
    setByte(t.model, kPatchBankB, 9, 484, 0);
    const std::string text = bankPatchProperties(t.model, 9);
    EXPECT_EQ(text.substr(0, text.find("Patch Category")),
              "Patch name: Q009            \r\nSize: 576 bytes\r\nBank: B\r\nPosition: 9\r\n");
    EXPECT_NE(text.find("\r\nPatch Category: 5 [E.Piano]\r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\r\nUser Group: 3 [User Group 4]\r\n"), std::string::npos);
    EXPECT_NE(text.find("\r\nOSC1 type: 2 [VPM OSC]\r\nOSC2 type: 0 [Standard OSC]\r\nFX1 type: 6 [Chorus]\r\n"
                        "FX2 type: 1 [Compressor]\r\nMFX type: 0 ["),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("\r\nFilt1 type: 1 ["), std::string::npos);
    EXPECT_NE(text.find("\r\nFilt2 type: 2 ["), std::string::npos);
    EXPECT_NE(text.find("\r\nArp pattern: 0 ["), std::string::npos);
    EXPECT_EQ(text.back(), ']');
}

TEST(BankPatchProperties, ShownInABoxTitledProperties)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    showBank(t.model, kPatchBankA);
    t.host.expectMessage("Properties", Answer::Ok, bankPatchProperties(t.model, 4));
    showBankPatchProperties(t.model, 4);
}

TEST(ChangeUserGroup, YesWritesTheGroupIntoEverySelectedPatch)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    showBank(t.model, kPatchBankA);
    selectPatches(t.model, {2, 7});
    t.host.expectMessage("Change User Group", Answer::Yes, "Change selected patches to USER GROUP 16?");
    changeUserGroup(t.model, 16);
    EXPECT_EQ(t.model.banks.bankPatchAttribute(kPatchBankA, 2, 3), 15);
    EXPECT_EQ(t.model.banks.bankPatchAttribute(kPatchBankA, 7, 3), 15);
    EXPECT_EQ(t.model.banks.bankPatchAttribute(kPatchBankA, 3, 3), 0);
    EXPECT_TRUE(t.model.flags.changed[kPatchBankA]);
}

TEST(ChangeUserGroup, NoOrAGroupOutOfRangeOrNoSelectionChangesNothing)
{
    TestModel t;
    loadNumberedBank(t.model, kPatchBankA);
    showBank(t.model, kPatchBankA);
    changeUserGroup(t.model, 2);  // nothing selected: no question
    selectPatches(t.model, {2});
    changeUserGroup(t.model, 0);
    changeUserGroup(t.model, 17);
    t.host.expectMessage("Change User Group", Answer::No);
    changeUserGroup(t.model, 2);
    EXPECT_EQ(t.model.banks.bankPatchAttribute(kPatchBankA, 2, 3), 0);
    EXPECT_FALSE(t.model.flags.changed[kPatchBankA]);
    t.model.mode = kPatch;
    changeUserGroup(t.model, 2);  // not on the bank view: no question
}

}  // namespace
}  // namespace quillon

#include "editors/MultiSelect.h"

#include "editors/TimbreCaption.h"
#include "files/LoadFlow.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon {
namespace {

ByteImage patchNamed(const std::string& name)
{
    ByteImage image(kPatchBytes, 0);
    for (int i = 0; i < 16; ++i)
        image[i] = static_cast<std::uint8_t>(i < static_cast<int>(name.size()) ? name[i] : ' ');
    return image;
}

void setTimbre(ParamValues& values, int t, int bank, int number, int voice)
{
    const int first = timbreFirstParam(t);
    values[first] = static_cast<std::int16_t>(bank);
    values[first + 1] = static_cast<std::int16_t>(number);
    values[first + 2] = static_cast<std::int16_t>(voice);
}

void setTimbre(AppModel& model, int t, int bank, int number, int voice)
{
    setTimbre(model.buffers.of(kMultiset).current, t, bank, number, voice);
}

// A multiset for a multi bank: the defaults with a name and timbre 1 on a
// patch of bank A.
ByteImage multisetNamed(const std::string& name, int patchNumber)
{
    ParamValues values = paramTables().multiDefaults;
    for (int i = 0; i < 16; ++i)
        values[i + 1] = static_cast<std::int16_t>(i < static_cast<int>(name.size()) ? name[i] : ' ');
    setTimbre(values, 1, 0, patchNumber, 5);
    ByteImage image(kMultiBytes, 0);
    multiParamsToImage(values, image);
    return image;
}

const MultiSectLabel& timbreButton(const AppModel& model, int t)
{
    return model.multiSelect.sect[t + 4];
}

// The edge cases of the timbre buttons.

TEST(MultiSelect, ReserveVoiceZeroShowsPatchAndTheTimbreNumberInScheme1WhateverItsBankAndNumber)
{
    TestModel t;
    t.model.flags.loaded[kPatchBankB] = true;
    t.model.banks.writeBankPatch(kPatchBankB, 77, patchNamed("Organ"));
    setTimbre(t.model, 3, 1, 77, 4);
    refreshTimbre(t.model, 3);
    ASSERT_EQ(timbreButton(t.model, 3).scheme, 6);
    setTimbre(t.model, 3, 1, 77, 0);
    refreshTimbre(t.model, 3);
    EXPECT_EQ(timbreButton(t.model, 3).caption, "Patch 3");
    EXPECT_EQ(timbreButton(t.model, 3).scheme, 1);
}

TEST(MultiSelect, ReserveVoiceOfTimbre2FromZeroToOneRenamesItsButtonAtOnceInScheme6)
{
    TestModel t;
    setTimbre(t.model, 2, 0, 12, 0);
    refreshTimbres(t.model);
    ASSERT_EQ(timbreButton(t.model, 2).caption, "Patch 2");
    RecordingObserver observer;
    t.model.addObserver(&observer);

    const int reserveVoice = timbreFirstParam(2) + 2;
    t.model.buffers.of(kMultiset).current[reserveVoice] = 1;
    EXPECT_TRUE(refreshTimbreOfParam(t.model, reserveVoice));

    EXPECT_EQ(timbreButton(t.model, 2).caption, "A012");
    EXPECT_EQ(timbreButton(t.model, 2).scheme, 6);
    EXPECT_EQ(observer.calls, 1);
    EXPECT_TRUE(observer.all & kMultiSelectChanged);
    t.model.removeObserver(&observer);
}

TEST(MultiSelect, WithBankALoadedATimbreAtA012ShowsThePatchNameAndA012)
{
    TestModel t;
    t.model.flags.loaded[kPatchBankA] = true;
    t.model.banks.writeBankPatch(kPatchBankA, 12, patchNamed("Warm Pad"));
    setTimbre(t.model, 1, 0, 12, 3);
    refreshTimbre(t.model, 1);
    EXPECT_EQ(timbreButton(t.model, 1).caption, "Warm Pad         A012");
    EXPECT_EQ(timbreButton(t.model, 1).scheme, 6);
}

TEST(MultiSelect, WithNoBankAndNoRemapTheSameTimbreShowsA012)
{
    TestModel t;
    t.model.banks.writeBankPatch(kPatchBankA, 12, patchNamed("Warm Pad"));
    setTimbre(t.model, 1, 0, 12, 3);
    refreshTimbre(t.model, 1);
    EXPECT_EQ(timbreButton(t.model, 1).caption, "A012");
    EXPECT_EQ(timbreButton(t.model, 1).scheme, 6);
}

TEST(MultiSelect, PatchWhoseNameBeginsWithPatchGivesScheme1ThoughTheTimbreIsOn)
{
    TestModel t;
    t.model.flags.loaded[kPatchBankA] = true;
    t.model.banks.writeBankPatch(kPatchBankA, 12, patchNamed("Patch Init"));
    t.model.banks.writeBankPatch(kPatchBankA, 13, patchNamed("PATCHWORK"));
    t.model.banks.writeBankPatch(kPatchBankA, 14, patchNamed(" Patch"));
    setTimbre(t.model, 1, 0, 12, 3);
    setTimbre(t.model, 2, 0, 13, 3);
    setTimbre(t.model, 3, 0, 14, 3);
    refreshTimbres(t.model);
    EXPECT_EQ(timbreButton(t.model, 1).caption, "Patch Init       A012");
    EXPECT_EQ(timbreButton(t.model, 1).scheme, 1);
    EXPECT_EQ(timbreButton(t.model, 2).scheme, 1);
    EXPECT_EQ(timbreButton(t.model, 3).scheme, 6);  // a leading blank is not "patch"
}

// The timbre buttons otherwise.

TEST(MultiSelect, OnlyTheBankNumberAndVoiceRowsRenameAButton)
{
    TestModel t;
    RecordingObserver observer;
    t.model.addObserver(&observer);
    EXPECT_FALSE(refreshTimbreOfParam(t.model, timbreFirstParam(2) + 3));  // Transpose
    EXPECT_FALSE(refreshTimbreOfParam(t.model, 1));
    EXPECT_EQ(observer.calls, 0);
    setTimbre(t.model, 6, 1, 100, 2);
    EXPECT_TRUE(refreshTimbreOfParam(t.model, timbreFirstParam(6) + 1));
    EXPECT_EQ(timbreButton(t.model, 6).caption, "B100");
    EXPECT_EQ(timbreButton(t.model, 5).caption, "Patch 5");
    t.model.removeObserver(&observer);
}

TEST(MultiSelect, RefreshingAllTimbresIsOneNotification)
{
    TestModel t;
    RecordingObserver observer;
    t.model.addObserver(&observer);
    for (int timbre = 1; timbre <= kMultiTimbreCount; ++timbre)
        setTimbre(t.model, timbre, timbre % 2, timbre * 10, timbre);
    refreshTimbres(t.model);
    EXPECT_EQ(observer.calls, 1);
    EXPECT_EQ(observer.all, kMultiSelectChanged);
    EXPECT_EQ(timbreButton(t.model, 1).caption, "B010");
    EXPECT_EQ(timbreButton(t.model, 6).caption, "A060");
    t.model.removeObserver(&observer);
}

TEST(MultiSelect, TimbreOutOfRangeChangesNothing)
{
    TestModel t;
    RecordingObserver observer;
    t.model.addObserver(&observer);
    const MultiSelectState before = t.model.multiSelect;
    refreshTimbre(t.model, 0);
    refreshTimbre(t.model, 7);
    EXPECT_EQ(observer.calls, 0);
    for (int i = 0; i < kMultiGroups; ++i)
        EXPECT_EQ(t.model.multiSelect.sect[i].caption, before.sect[i].caption);
    t.model.removeObserver(&observer);
}

// The section buttons.

TEST(MultiSelect, AtStartUpEveryButtonAndTheSelectionLabelHaveScheme1)
{
    TestModel t;
    const MultiSelectState& s = t.model.multiSelect;
    EXPECT_EQ(s.sect[0].caption, "Common");
    EXPECT_EQ(s.sect[1].caption, "FX");
    EXPECT_EQ(s.sect[2].caption, "2 Band EQ");
    EXPECT_EQ(s.sect[3].caption, "Controller");
    EXPECT_EQ(s.sect[4].caption, "Link Arpeggio");
    for (int timbre = 1; timbre <= kMultiTimbreCount; ++timbre)
        EXPECT_EQ(s.sect[timbre + 4].caption, "Patch " + std::to_string(timbre));
    for (const MultiSectLabel& label : s.sect)
        EXPECT_EQ(label.scheme, 1);
    EXPECT_EQ(s.sectSel.scheme, 1);
    EXPECT_EQ(s.sectSel.caption, "");
    EXPECT_FALSE(s.sectionsVisible);
    EXPECT_EQ(kMultiSectSelTooltip, "Click arrows to select subsections in this section");
    EXPECT_TRUE(s.bankA.names.empty());
    EXPECT_EQ(s.bankB.listIndex, -1);
}

TEST(MultiSelect, FirstClickOnEachButtonOpensItsFirstSubsection)
{
    const auto& subs = paramTables().multiSubsections;
    const char* const names[] = {"Multi Common", "FX1 Type", "Multi 2 Band EQ", "Multi Controller",
                                 "Multi Link Arpeggio"};
    for (int index = 0; index < kMultiGroups; ++index) {
        TestModel t;
        clickMultiSect(t.model, index);
        const int shown = t.model.layout.frame(kMultiset, 1).Subsection;
        EXPECT_EQ(t.model.layout.nav.MultiGroupSelected, index);
        if (index < kFirstTimbreButton) {
            EXPECT_EQ(subs[shown].name, names[index]) << "button " << index;
        } else {
            EXPECT_EQ(shown, 11 + 2 * (index - kFirstTimbreButton)) << "button " << index;
            EXPECT_EQ(subs[shown].name, "Pitch-Mix-Zone");
        }
    }
}

TEST(MultiSelect, ClickOnAOneSubsectionButtonHidesTheArrowsAndShowsItsCaption)
{
    TestModel t;
    t.model.multiSelect.sectionsVisible = true;
    clickMultiSect(t.model, 2);
    EXPECT_FALSE(t.model.multiSelect.sectionsVisible);
    EXPECT_EQ(t.model.multiSelect.sectSel.caption, "2 Band EQ");
}

TEST(MultiSelect, ClickOnFxShowsTheArrows)
{
    TestModel t;
    clickMultiSect(t.model, 1);
    EXPECT_TRUE(t.model.multiSelect.sectionsVisible);
    EXPECT_EQ(t.model.multiSelect.sectSel.caption, "FX");
}

TEST(MultiSelect, ClickOnATimbreShowsPatchAndItsNumberWhateverTheButtonSays)
{
    TestModel t;
    t.model.flags.loaded[kPatchBankA] = true;
    t.model.banks.writeBankPatch(kPatchBankA, 12, patchNamed("Warm Pad"));
    setTimbre(t.model, 4, 0, 12, 3);
    refreshTimbres(t.model);
    ASSERT_EQ(timbreButton(t.model, 4).caption, "Warm Pad         A012");
    clickMultiSect(t.model, 8);
    EXPECT_EQ(t.model.multiSelect.sectSel.caption, "Patch 4");
    EXPECT_TRUE(t.model.multiSelect.sectionsVisible);
}

TEST(MultiSelect, ClickMovesTheHighlightToTheMultisetButLeavesMultiMode)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.model.multiMode = 2;
    t.model.labels.showLabelHighlight(kMultiBankB);
    RecordingObserver observer;
    t.model.addObserver(&observer);
    clickMultiSect(t.model, 0);
    EXPECT_EQ(t.model.labels.highlightedKind(), kMultiset);
    EXPECT_EQ(t.model.multiMode, 2);
    EXPECT_EQ(observer.calls, 1);
    EXPECT_TRUE(observer.all & kLabelsChanged);
    EXPECT_TRUE(observer.all & kMultiSelectChanged);
    t.model.removeObserver(&observer);
}

TEST(MultiSelect, ClickOutsideTheElevenButtonsDoesNothing)
{
    TestModel t;
    t.model.labels.showLabelHighlight(kPatch);
    RecordingObserver observer;
    t.model.addObserver(&observer);
    clickMultiSect(t.model, 11);
    clickMultiSect(t.model, -1);
    EXPECT_EQ(observer.calls, 0);
    EXPECT_EQ(t.model.labels.highlightedKind(), kPatch);
    EXPECT_EQ(t.model.multiSelect.sectSel.caption, "");
    EXPECT_EQ(t.model.layout.frame(kMultiset, 1).Subsection, 0);
    t.model.removeObserver(&observer);
}

// The multi bank lists.

TEST(MultiSelect, MultiBankListHoldsTheSixteenNamesInBankOrder)
{
    TestModel t;
    t.model.flags.loaded[kMultiBankB] = true;
    t.model.banks.writeBankMulti(kMultiBankB, 0, multisetNamed("First Multi", 1));
    t.model.banks.writeBankMulti(kMultiBankB, 15, multisetNamed("Last Multi", 2));
    RecordingObserver observer;
    t.model.addObserver(&observer);
    fillMultiBankList(t.model, kMultiBankB);
    const MultiBankList& list = t.model.multiSelect.bankB;
    ASSERT_EQ(list.names.size(), 16u);
    EXPECT_EQ(list.names[0], "First Multi     ");
    EXPECT_EQ(list.names[15], "Last Multi      ");
    for (int m = 0; m < 16; ++m)
        EXPECT_EQ(list.names[m], t.model.banks.bankMultiName(kMultiBankB, m));
    EXPECT_TRUE(t.model.multiSelect.bankA.names.empty());
    EXPECT_TRUE(observer.all & kMultiSelectChanged);
    t.model.removeObserver(&observer);
}

TEST(MultiSelect, FillingAListAgainEmptiesItFirstAndDropsThePick)
{
    TestModel t;
    t.model.multiSelect.bankA.names = {"old"};
    t.model.multiSelect.bankA.listIndex = 0;
    fillMultiBankList(t.model, kMultiBankA);
    EXPECT_EQ(t.model.multiSelect.bankA.names.size(), 16u);
    EXPECT_EQ(t.model.multiSelect.bankA.names[3], "No patch (003)");
    EXPECT_EQ(t.model.multiSelect.bankA.listIndex, -1);
}

TEST(MultiSelect, OnlyMultiBanksHaveLists)
{
    TestModel t;
    RecordingObserver observer;
    t.model.addObserver(&observer);
    fillMultiBankList(t.model, kPatchBankA);
    fillMultiBankList(t.model, kArpBank);
    EXPECT_EQ(observer.calls, 0);
    EXPECT_EQ(t.model.multiSelect.list(kPatchBankA), nullptr);
    EXPECT_EQ(t.model.multiSelect.list(kMultiBankA), &t.model.multiSelect.bankA);
    t.model.removeObserver(&observer);
}

TEST(MultiSelect, SettingUpFillsTheListOfTheHighlightedLoadedMultiBankAndNamesTheTimbres)
{
    TestModel t;
    t.model.flags.loaded[kMultiBankA] = true;
    t.model.flags.loaded[kMultiBankB] = true;
    t.model.banks.writeBankMulti(kMultiBankB, 2, multisetNamed("Shown", 1));
    t.model.multiMode = 2;
    setTimbre(t.model, 5, 0, 7, 1);
    setUpMultiSelect(t.model);
    EXPECT_EQ(t.model.multiSelect.bankB.names.size(), 16u);
    EXPECT_EQ(t.model.multiSelect.bankB.names[2], "Shown           ");
    EXPECT_TRUE(t.model.multiSelect.bankA.names.empty());
    EXPECT_EQ(timbreButton(t.model, 5).caption, "A007");
}

TEST(MultiSelect, SettingUpLeavesTheListOfAMultiBankNotLoaded)
{
    TestModel t;
    t.model.multiMode = 1;
    setUpMultiSelect(t.model);
    EXPECT_TRUE(t.model.multiSelect.bankA.names.empty());
    t.model.multiMode = 0;
    t.model.flags.loaded[kMultiBankA] = true;
    setUpMultiSelect(t.model);
    EXPECT_TRUE(t.model.multiSelect.bankA.names.empty());
}

// Taking a multiset out of a multi bank.

TEST(MultiSelect, PickInTheListOfBankBTakesThatMultisetIntoTheEditor)
{
    TestModel t;
    t.model.flags.loaded[kPatchBankA] = true;
    t.model.banks.writeBankPatch(kPatchBankA, 42, patchNamed("Taken Along"));
    t.model.flags.loaded[kMultiBankB] = true;
    t.model.banks.writeBankMulti(kMultiBankB, 3, multisetNamed("From Bank B", 42));
    t.model.multiMode = 2;
    t.model.itemPath[kMultiset] = "/old/multi.syx";
    fillMultiBankList(t.model, kMultiBankB);
    RecordingObserver observer;
    t.model.addObserver(&observer);

    ASSERT_TRUE(clickMultiBankList(t.model, kMultiBankB, 3));

    const ItemBuffers& b = t.model.buffers.of(kMultiset);
    EXPECT_EQ(b.current[1], 'F');
    EXPECT_EQ(b.current[timbreFirstParam(1) + 1], 42);
    EXPECT_EQ(b.loaded, b.current);
    EXPECT_EQ(b.last, b.current);
    EXPECT_TRUE(t.model.flags.loaded[kMultiset]);
    EXPECT_TRUE(t.model.flags.clean[kMultiset]);
    EXPECT_FALSE(t.model.flags.changed[kMultiset]);
    EXPECT_TRUE(t.model.itemPath[kMultiset].empty());
    EXPECT_EQ(t.model.banks.lastPutMulti, 16 + 3);
    EXPECT_EQ(t.model.multiMode, 0);
    EXPECT_EQ(t.model.mode, kMultiset);
    EXPECT_EQ(t.model.multiSelect.bankB.listIndex, 3);
    EXPECT_EQ(timbreButton(t.model, 1).caption, "Taken Along      A042");
    EXPECT_EQ(observer.calls, 1);
    EXPECT_TRUE(observer.all & kBuffersChanged);
    EXPECT_TRUE(observer.all & kMultiSelectChanged);
    t.model.removeObserver(&observer);
}

TEST(MultiSelect, PickInBankAKeepsTheIndexAsThePosition)
{
    TestModel t;
    t.model.flags.loaded[kMultiBankA] = true;
    t.model.banks.writeBankMulti(kMultiBankA, 9, multisetNamed("Nine", 0));
    fillMultiBankList(t.model, kMultiBankA);
    ASSERT_TRUE(clickMultiBankList(t.model, kMultiBankA, 9));
    EXPECT_EQ(t.model.banks.lastPutMulti, 9);
    EXPECT_EQ(t.model.buffers.of(kMultiset).current[1], 'N');
}

TEST(MultiSelect, ListIndexBelowZeroTakesNothing)
{
    TestModel t;
    t.model.flags.loaded[kMultiBankA] = true;
    fillMultiBankList(t.model, kMultiBankA);
    RecordingObserver observer;
    t.model.addObserver(&observer);
    EXPECT_FALSE(clickMultiBankList(t.model, kMultiBankA, -1));
    EXPECT_FALSE(clickMultiBankList(t.model, kMultiBankA, 16));
    EXPECT_FALSE(clickMultiBankList(t.model, kPatchBankA, 0));
    EXPECT_FALSE(t.model.flags.loaded[kMultiset]);
    EXPECT_EQ(observer.calls, 0);
    t.model.removeObserver(&observer);
}

TEST(MultiSelect, CancelAtTheSavePromptLeavesTheMultisetInTheEditor)
{
    TestModel t;
    t.model.flags.loaded[kMultiBankA] = true;
    t.model.banks.writeBankMulti(kMultiBankA, 1, multisetNamed("Unwanted", 0));
    fillMultiBankList(t.model, kMultiBankA);
    t.model.flags.loaded[kMultiset] = true;
    t.model.flags.changed[kMultiset] = true;
    t.model.itemName[kMultiset] = "Mine";
    t.model.itemPath[kMultiset] = "/mine.syx";
    t.model.buffers.of(kMultiset).current[1] = 'M';
    t.model.banks.lastPutMulti = 30;
    t.host.expectMessage("New Multiset", Answer::Cancel, "Save Mine first?");

    EXPECT_FALSE(clickMultiBankList(t.model, kMultiBankA, 1));

    EXPECT_EQ(t.model.buffers.of(kMultiset).current[1], 'M');
    EXPECT_TRUE(t.model.flags.changed[kMultiset]);
    EXPECT_EQ(t.model.itemPath[kMultiset], "/mine.syx");
    EXPECT_EQ(t.model.banks.lastPutMulti, 30);
    EXPECT_TRUE(t.host.allShown());
}

TEST(MultiSelect, CancelAtTheSavePromptLeavesTheListsShowingWhereTheEditorsMultisetCameFrom)
{
    TestModel t;
    t.model.flags.loaded[kMultiBankA] = true;
    t.model.banks.writeBankMulti(kMultiBankA, 2, multisetNamed("Kept", 0));
    fillMultiBankList(t.model, kMultiBankA);
    ASSERT_TRUE(clickMultiBankList(t.model, kMultiBankA, 2));
    EXPECT_EQ(t.model.multiSelect.bankA.listIndex, 2);
    t.model.flags.changed[kMultiset] = true;
    t.host.expectMessage("New Multiset", Answer::Cancel, "Save Kept first?");
    EXPECT_FALSE(clickMultiBankList(t.model, kMultiBankA, 5));
    EXPECT_EQ(t.model.multiSelect.bankA.listIndex, 2);
    EXPECT_TRUE(t.host.allShown());
}

TEST(MultiSelect, TakingFromBankBLeavesNoPickInTheListOfBankA)
{
    TestModel t;
    t.model.flags.loaded[kMultiBankA] = true;
    t.model.flags.loaded[kMultiBankB] = true;
    fillMultiBankList(t.model, kMultiBankA);
    fillMultiBankList(t.model, kMultiBankB);
    ASSERT_TRUE(clickMultiBankList(t.model, kMultiBankA, 4));
    ASSERT_TRUE(clickMultiBankList(t.model, kMultiBankB, 7));
    EXPECT_EQ(t.model.multiSelect.bankA.listIndex, -1);
    EXPECT_EQ(t.model.multiSelect.bankB.listIndex, 7);
}

TEST(MultiSelect, AMultisetThatCameFromElsewhereLeavesNoPickInEitherList)
{
    TestModel t;
    t.model.flags.loaded[kMultiBankA] = true;
    fillMultiBankList(t.model, kMultiBankA);
    ASSERT_TRUE(clickMultiBankList(t.model, kMultiBankA, 4));
    // Another multiset arrives, from a file or the instrument.
    doPostLoad(t.model, kMultiset);
    EXPECT_EQ(t.model.multiSelect.bankA.listIndex, -1);
    EXPECT_EQ(t.model.multiSelect.bankB.listIndex, -1);
}

}  // namespace
}  // namespace quillon

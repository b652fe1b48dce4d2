#include "editors/ItemStatus.h"

#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(ChangeCheck, UncleanPatchCountsAsChangedEvenWhenCurrentEqualsLoaded)
{
    TestModel t;
    t.model.flags.clean[kPatch] = false;
    ASSERT_EQ(t.model.buffers.of(kPatch).current, t.model.buffers.of(kPatch).loaded);
    checkPatchChanged(t.model);
    EXPECT_TRUE(t.model.flags.changed[kPatch]);
}

TEST(ChangeCheck, CleanPatchAlreadyChangedStaysChangedWhenCurrentEqualsLoaded)
{
    TestModel t;
    t.model.flags.clean[kPatch] = true;
    t.model.flags.changed[kPatch] = true;
    checkPatchChanged(t.model);
    EXPECT_TRUE(t.model.flags.changed[kPatch]);
}

TEST(ChangeCheck, CleanPatchWithADifferenceBecomesChanged)
{
    TestModel t;
    t.model.flags.clean[kPatch] = true;
    t.model.buffers.of(kPatch).current[40] = 7;
    checkPatchChanged(t.model);
    EXPECT_TRUE(t.model.flags.changed[kPatch]);
}

TEST(ChangeCheck, CleanUnchangedMultisetStaysUnchanged)
{
    TestModel t;
    t.model.flags.clean[kMultiset] = true;
    checkMultiChanged(t.model);
    EXPECT_FALSE(t.model.flags.changed[kMultiset]);
}

TEST(ChangeCheck, BanksAreNotCheckedByComparison)
{
    TestModel t;
    checkChanged(t.model, kPatchBankA);
    EXPECT_FALSE(t.model.flags.changed[kPatchBankA]);
}

TEST(ArpHasTones, ToneWithinThePatternLengthCountsAndMarksThePatternLoaded)
{
    TestModel t;
    ParamValues& p = t.model.buffers.of(kPattern).current;
    p[30] = 4;
    p[41 + 6 * 3 + 1] = 60;  // Tone LSB of step 4
    EXPECT_TRUE(arpHasTones(t.model));
    EXPECT_TRUE(t.model.flags.loaded[kPattern]);
}

TEST(ArpHasTones, NotesInStepsBeyondThePatternLengthDoNotCount)
{
    TestModel t;
    ParamValues& p = t.model.buffers.of(kPattern).current;
    p[30] = 4;
    p[41 + 6 * 4] = 1;  // Tone MSB of step 5
    EXPECT_FALSE(arpHasTones(t.model));
    EXPECT_FALSE(t.model.flags.loaded[kPattern]);
}

TEST(EditBuffers, UpdateCurrentDefaultsOfABankDoesNothing)
{
    TestModel t;
    t.model.buffers.of(kPatch).current[40] = 9;
    const EditBuffers before = t.model.buffers;
    t.model.buffers.updateCurrentDefaults(kPatchBankA);
    EXPECT_EQ(t.model.buffers.of(kPatch).current, before.of(kPatch).current);
    EXPECT_EQ(t.model.buffers.of(kPatch).current[40], 9);
}

TEST(EditBuffers, UpdatesCopyTheWholeArray)
{
    TestModel t;
    EditBuffers& b = t.model.buffers;
    b.of(kMultiset).current[600] = 42;
    b.updateLoaded(kMultiset);
    b.updatePrevLoaded(kMultiset);
    b.updateLast(kMultiset);
    EXPECT_EQ(b.of(kMultiset).loaded[600], 42);
    EXPECT_EQ(b.of(kMultiset).prevLoaded[600], 42);
    EXPECT_EQ(b.of(kMultiset).last[600], 42);
    b.of(kMultiset).current[600] = 0;
    b.updateCurrentLast(kMultiset);
    EXPECT_EQ(b.of(kMultiset).current[600], 42);
    b.updateCurrentDefaults(kMultiset);
    EXPECT_EQ(b.of(kMultiset).current, b.of(kMultiset).defaults);
}

TEST(LoadedLabelClick, ClickingTheHighlightedPatchLabelDoesNotRebuildTheScreen)
{
    TestModel t;
    t.model.mode = kPatch;
    RecordingObserver observer;
    t.model.addObserver(&observer);
    EXPECT_EQ(clickLoadedLabel(t.model, kPatch, false), 0);
    EXPECT_EQ(observer.all & kScreenChanged, 0u);
}

TEST(LoadedLabelClick, ClickingAnotherLabelShowsItsScreenAndHighlightsIt)
{
    TestModel t;
    RecordingObserver observer;
    t.model.addObserver(&observer);
    clickLoadedLabel(t.model, kPatchBankB, false);
    EXPECT_EQ(t.model.mode, kPatchBankB);
    EXPECT_EQ(t.model.bankTarget, kPatchBankB);
    EXPECT_EQ(t.model.labels.highlightedKind(), kPatchBankB);
    EXPECT_EQ(t.model.sendMenuCaption, "Bank B");
    EXPECT_FALSE(t.model.sendMenuEnabled);
    EXPECT_EQ(observer.calls, 1);
    EXPECT_NE(observer.all & kScreenChanged, 0u);
}

TEST(LoadedLabelClick, ClickingTheMultisetLabelLeavesTheHighlightedMultiBank)
{
    TestModel t;
    t.model.mode = kMultiset;
    clickLoadedLabel(t.model, kMultiBankB, false);
    EXPECT_EQ(t.model.multiMode, 2);
    EXPECT_EQ(t.model.labels.highlightedKind(), kMultiBankB);
    clickLoadedLabel(t.model, kMultiset, false);
    EXPECT_EQ(t.model.multiMode, 0);
    EXPECT_EQ(t.model.labels.highlightedKind(), kMultiset);
}

TEST(LoadedLabelClick, RightClickOnAnUnloadedPatchSaysNoPatchLoaded)
{
    TestModel t;
    t.host.expectMessage("Edit Patch Name", Answer::Ok, "No patch loaded");
    EXPECT_EQ(clickLoadedLabel(t.model, kPatch, true), 0);
}

TEST(LoadedLabelClick, RightClickOnThePatternOpensTheNameDialogWithoutALoadedTest)
{
    TestModel t;
    EXPECT_EQ(clickLoadedLabel(t.model, kPattern, true), kPattern);
}

TEST(LoadedLabels, StatusColoursFollowTheTableAndUnknownStatusDoesNothing)
{
    LoadedLabels labels;
    labels.doLoadedStatusColour(kPatch, 1);
    EXPECT_EQ(labels.label(kPatch).scheme, 8);
    labels.doLoadedStatusColour(kPatch, 2);
    EXPECT_EQ(labels.label(kPatch).scheme, 8);
    labels.doLoadedStatusColour(kPatchBankB, 2);
    EXPECT_EQ(labels.label(kPatchBankB).scheme, 7);
    labels.doLoadedStatusColour(kArpBank, 1);
    EXPECT_EQ(labels.label(kArpBank).scheme, 9);
}

TEST(LoadedLabels, ExactlyOneLabelIsHighlighted)
{
    LoadedLabels labels;
    labels.showLabelHighlight(kMultiBankA);
    int marked = 0;
    for (int k = kPatch; k <= kArpBank; ++k)
        marked += labels.label(k).highlighted ? 1 : 0;
    EXPECT_EQ(marked, 1);
    EXPECT_EQ(labels.highlightedKind(), kMultiBankA);
    EXPECT_FALSE(labels.label(kMultiset).highlighted);
}

TEST(LoadedLabels, CaptionsNameTheItems)
{
    LoadedLabels labels;
    EXPECT_EQ(labels.label(kPattern).text, "Arpeggiator Pattern");
    EXPECT_EQ(labels.label(kMultiBankB).text, "Multi Bank B");
    EXPECT_EQ(labels.label(kArpBank).text, "Arpeggiator Bank");
}

TEST(ColourSchemes, SchemesSixAndTwelveAreTheSamePairAndOutsideSchemesLeaveTheLabel)
{
    LoadedLabels labels;
    labels.setColours(kPatch, 6);
    labels.setColours(kPatch, 14);
    EXPECT_EQ(labels.label(kPatch).scheme, 6);
    labels.setColours(kPatch, 0);
    EXPECT_EQ(labels.label(kPatch).scheme, 6);
}

}  // namespace
}  // namespace quillon

namespace quillon {
namespace {

TEST(NewItem, InABankModeNothingHappens)
{
    TestModel t;
    t.model.mode = kPatchBankA;
    RecordingObserver observer;
    t.model.addObserver(&observer);
    newItem(t.model);
    EXPECT_FALSE(t.model.flags.loaded[kPatchBankA]);
    EXPECT_EQ(observer.calls, 0);
}

TEST(NewItem, ChangedPatchIsAskedAboutThenReplacedByTheDefaults)
{
    TestModel t;
    t.model.flags.loaded[kPatch] = true;
    t.model.flags.clean[kPatch] = true;
    t.model.itemName[kPatch] = "Old Lead";
    t.model.buffers.of(kPatch).current[40] = 21;
    t.host.expectMessage("New Patch", Answer::No, "Save Old Lead first?");
    RecordingObserver observer;
    t.model.addObserver(&observer);
    newItem(t.model);
    const ItemBuffers& b = t.model.buffers.of(kPatch);
    EXPECT_EQ(b.current, b.defaults);
    EXPECT_EQ(b.loaded, b.defaults);
    EXPECT_EQ(b.last, b.defaults);
    EXPECT_EQ(b.prevLoaded[40], 21);
    EXPECT_FALSE(t.model.flags.changed[kPatch]);
    EXPECT_EQ(t.model.itemName[kPatch], "Init Patch");
    EXPECT_EQ(observer.calls, 1);
}

TEST(NewItem, CancelAtThePromptKeepsTheMultiset)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.model.flags.loaded[kMultiset] = true;
    t.model.flags.changed[kMultiset] = true;
    t.model.itemName[kMultiset] = "Stack";
    t.model.buffers.of(kMultiset).current[30] = 5;
    t.host.expectMessage("New Multiset", Answer::Cancel, "Save Stack first?");
    newItem(t.model);
    EXPECT_EQ(t.model.buffers.of(kMultiset).current[30], 5);
    EXPECT_TRUE(t.model.flags.changed[kMultiset]);
}

}  // namespace
}  // namespace quillon

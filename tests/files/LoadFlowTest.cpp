#include "files/LoadFlow.h"

#include "files/LoadingFiles.h"
#include "model/Kind.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon {
namespace {

struct LoadFlow : LoadingTest {
    // A patch in the editor as if loaded from a file, then edited.
    void loadPatchAndEdit()
    {
        open(put("loaded.syx", patchMessage(namedItemImage(model, kPatch, "Loaded"))));
        ASSERT_TRUE(model.flags.loaded[kPatch]);
        model.buffers.of(kPatch).current[17] += 1;
        model.buffers.updateLast(kPatch);
        model.buffers.of(kPatch).current[18] += 1;
    }
};

TEST_F(LoadFlow, CleanFlagFalseStillPromptsWhenCurrentEqualsLoaded)
{
    model.flags.loaded[kPatch] = true;
    model.flags.clean[kPatch] = false;
    model.itemName[kPatch] = "Merged";
    ASSERT_EQ(model.buffers.of(kPatch).current, model.buffers.of(kPatch).loaded);
    host.expectMessage("New Patch", Answer::No, "Save Merged first?");

    model.saveCancelled = false;
    EXPECT_TRUE(doPreLoad(model, kPatch));
    EXPECT_FALSE(model.flags.changed[kPatch]) << "No clears the flag";
}

TEST_F(LoadFlow, ChangedFlagAlreadySetStaysSetWhenCurrentEqualsLoaded)
{
    model.flags.loaded[kPatch] = true;
    model.flags.clean[kPatch] = true;
    model.flags.changed[kPatch] = true;
    host.expectMessage("New Patch", Answer::Cancel);

    model.saveCancelled = false;
    EXPECT_FALSE(doPreLoad(model, kPatch));
    EXPECT_TRUE(model.flags.changed[kPatch]);
    EXPECT_TRUE(model.saveCancelled);
}

TEST_F(LoadFlow, UnchangedCleanItemLoadsWithoutAPrompt)
{
    model.flags.loaded[kMultiset] = true;
    model.flags.clean[kMultiset] = true;
    model.saveCancelled = false;
    EXPECT_TRUE(doPreLoad(model, kMultiset));
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(LoadFlow, CancelledLoadLeavesCurrentLoadedAndLastIntact)
{
    loadPatchAndEdit();
    const ItemBuffers before = model.buffers.of(kPatch);
    const std::string path = model.itemPath[kPatch];
    ASSERT_NE(before.current, before.loaded);
    ASSERT_NE(before.last, before.current);
    expectBox("New Patch", Answer::Cancel, "Save Loaded first?");

    open(put("next.syx", patchMessage(namedItemImage(model, kPatch, "Next"))));

    const ItemBuffers& after = model.buffers.of(kPatch);
    EXPECT_EQ(after.current, before.current);
    EXPECT_EQ(after.loaded, before.loaded);
    EXPECT_EQ(after.last, before.last);
    EXPECT_EQ(after.prevLoaded, before.current) << "PrevLoaded alone has moved on";
    EXPECT_EQ(model.itemPath[kPatch], path);
    EXPECT_TRUE(model.flags.changed[kPatch]);
    EXPECT_EQ(model.recentFiles[1], path);
}

TEST_F(LoadFlow, LoadAfterNoTakesThePreviousItemIntoPrevLoaded)
{
    loadPatchAndEdit();
    const ParamValues edited = model.buffers.of(kPatch).current;
    expectBox("New Patch", Answer::No);

    open(put("next.syx", patchMessage(namedItemImage(model, kPatch, "Next"))));

    EXPECT_EQ(model.buffers.of(kPatch).prevLoaded, edited);
    EXPECT_EQ(model.itemName[kPatch], "Next");
    EXPECT_FALSE(model.flags.changed[kPatch]);
}

TEST_F(LoadFlow, YesSavesWithTheDialogAndTheLoadGoesOn)
{
    loadPatchAndEdit();
    expectBox("New Patch", Answer::Yes);
    expectSaveDialog("Save Patch", (t.folder / "saved.syx").string());

    open(put("next.syx", patchMessage(namedItemImage(model, kPatch, "Next"))));

    EXPECT_TRUE(std::filesystem::exists(t.folder / "saved.syx"));
    EXPECT_EQ(model.itemName[kPatch], "Next");
}

TEST_F(LoadFlow, YesThenCancellingTheSaveDialogCancelsTheLoadAndKeepsTheEdits)
{
    loadPatchAndEdit();
    const ParamValues edited = model.buffers.of(kPatch).current;
    const std::string path = model.itemPath[kPatch];
    expectBox("New Patch", Answer::Yes, "Save Loaded first?");
    expectSaveDialog("Save Patch", std::nullopt);

    open(put("next.syx", patchMessage(namedItemImage(model, kPatch, "Next"))));

    EXPECT_TRUE(host.allShown());
    EXPECT_TRUE(model.saveCancelled);
    EXPECT_EQ(model.buffers.of(kPatch).current, edited);
    EXPECT_EQ(model.itemName[kPatch], "Loaded");
    EXPECT_EQ(model.itemPath[kPatch], path);
    EXPECT_TRUE(model.flags.changed[kPatch]);
    EXPECT_EQ(model.recentFiles[1], path) << "the file not loaded stays out of the list";
}

TEST_F(LoadFlow, YesThenAFailedSaveCancelsTheLoadAndKeepsTheEdits)
{
    loadPatchAndEdit();
    const ParamValues edited = model.buffers.of(kPatch).current;
    expectBox("New Patch", Answer::Yes);
    expectSaveDialog("Save Patch", (t.folder / "no such folder" / "saved.syx").string());
    expectBox("Save Patch");

    open(put("next.syx", patchMessage(namedItemImage(model, kPatch, "Next"))));

    EXPECT_TRUE(host.allShown());
    EXPECT_TRUE(model.saveCancelled);
    EXPECT_EQ(model.buffers.of(kPatch).current, edited);
    EXPECT_EQ(model.itemName[kPatch], "Loaded");
    EXPECT_TRUE(model.flags.changed[kPatch]);
}

TEST_F(LoadFlow, YesThenCancellingTheSaveKeepsABankWhileOpeningAnother)
{
    model.banks.image(kPatchBankA) = countingImage(73728);
    model.flags.loaded[kPatchBankA] = true;
    model.flags.changed[kPatchBankA] = true;
    expectBox("New Bank", Answer::Yes, "Save current Bank A first?");
    expectSaveDialog("Save Bank A", std::nullopt);

    open(put("bank.syx", bankMessage(kPatchBankA, ByteImage(73728, 0x05))));

    EXPECT_TRUE(host.allShown());
    EXPECT_EQ(model.banks.image(kPatchBankA), countingImage(73728));
    EXPECT_TRUE(model.flags.changed[kPatchBankA]);
    EXPECT_TRUE(model.recentFiles[1].empty());
}

TEST_F(LoadFlow, PreLoadResetsTheLoadReportForSingleItemsOnly)
{
    model.report.add("old correction");
    EXPECT_TRUE(doPreLoad(model, kPatchBankA));
    EXPECT_EQ(model.report.changeCount(), 1);
    EXPECT_TRUE(doPreLoad(model, kPattern));
    EXPECT_EQ(model.report.changeCount(), 0);
}

TEST_F(LoadFlow, PreLoadTakesPrevLoadedOnlyFromALoadedItem)
{
    auto& pattern = model.buffers.of(kPattern);
    pattern.current[30] = 7;
    const ParamValues prev = pattern.prevLoaded;
    EXPECT_TRUE(doPreLoad(model, kPattern));
    EXPECT_EQ(pattern.prevLoaded, prev);

    model.flags.loaded[kPattern] = true;
    model.flags.clean[kPattern] = true;
    pattern.loaded = pattern.current;
    EXPECT_TRUE(doPreLoad(model, kPattern));
    EXPECT_EQ(pattern.prevLoaded, pattern.current);
}

struct PromptCase {
    int kind;
    const char* title;
    const char* text;
};

TEST_F(LoadFlow, SaveFirstPromptNamesEachKind)
{
    model.itemName[kPatch] = "Lead";
    model.itemName[kMultiset] = "Split";
    model.itemName[kPattern] = "Run";
    const PromptCase cases[] = {
        {kPatch, "New Patch", "Save Lead first?"},
        {kPatchBankA, "New Bank", "Save current Bank A first?"},
        {kPatchBankB, "New Bank", "Save current Bank B first?"},
        {kMultiset, "New Multiset", "Save Split first?"},
        {kPattern, "New Arp Pattern", "Save Run first?"},
        {kMultiBankA, "New Multi Bank", "Save current Multi Bank A first?"},
        {kMultiBankB, "New Multi Bank", "Save current Multi Bank B first?"},
        {kArpBank, "New Arpeggiator Bank", "Save current arpeggiator bank first?"},
    };
    for (const auto& c : cases) {
        model.flags.changed[c.kind] = true;
        host.expectMessage(c.title, Answer::No, c.text);
        doSaveFirstPrompt(model, c.kind, 0);
        EXPECT_FALSE(model.flags.changed[c.kind]) << c.title;
    }
    for (const auto& request : host.messages) {
        EXPECT_EQ(request.buttons, MessageButtons::YesNoCancel);
        EXPECT_EQ(request.icon, MessageIcon::Question);
    }
}

TEST_F(LoadFlow, SaveFirstPromptAtExitHasTheExitTitle)
{
    host.expectMessage("Exit Quillon", Answer::Cancel, "Save current Bank B first?");
    model.saveCancelled = false;
    doSaveFirstPrompt(model, kPatchBankB, 1);
    EXPECT_TRUE(model.saveCancelled);
}

TEST_F(LoadFlow, PostLoadOfABankUnpacksItsPackedData)
{
    const ByteImage image = countingImage(73728);
    model.bankTarget = kPatchBankB;
    model.packed[kPatchBankB] = DATAtoMIDI(kPatchBankB, image);
    model.packed[kPatchBankB].push_back(0xF7);
    model.banks.undo.undoHead = 4;
    host.setStatus("Converted bank data", StatusColour::Done);
    RecordingObserver observer;
    model.addObserver(&observer);

    doPostLoad(model, kPatchBankB);

    model.removeObserver(&observer);
    EXPECT_EQ(model.banks.image(kPatchBankB), image);
    EXPECT_TRUE(model.flags.loaded[kPatchBankB]);
    EXPECT_TRUE(model.flags.clean[kPatchBankB]);
    EXPECT_TRUE(model.bankMenuEnabled);
    EXPECT_EQ(model.labels.label(kPatchBankB).scheme, 9);
    EXPECT_EQ(model.mode, kPatchBankB);
    EXPECT_TRUE(model.banks.undoEmpty());
    EXPECT_TRUE(host.status.empty());
    EXPECT_EQ(host.busyDepth, 0);
    EXPECT_EQ(observer.calls, 1);
    EXPECT_TRUE(observer.all & kBanksChanged);
}

TEST_F(LoadFlow, PostLoadOfTheArpeggiatorBankShowsTheArpeggiatorScreen)
{
    model.packed[kArpBank] = DATAtoMIDI(kArpBank, countingImage(5120));
    doPostLoad(model, kArpBank);
    EXPECT_EQ(model.banks.image(kArpBank), countingImage(5120));
    EXPECT_EQ(model.arpMode, 1);
    EXPECT_EQ(model.mode, kPattern);
    EXPECT_EQ(model.labels.highlightedKind(), kArpBank);
    EXPECT_EQ(model.labels.label(kPattern).scheme, 9);
}

TEST_F(LoadFlow, OtherKindsAreIgnored)
{
    EXPECT_TRUE(doPreLoad(model, kOtherDump));
    doPostLoad(model, 0);
    doSaveFirstPrompt(model, 9, 0);
    EXPECT_TRUE(host.messages.empty());
}

}  // namespace
}  // namespace quillon

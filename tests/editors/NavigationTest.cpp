#include "editors/MultiSelect.h"
#include "editors/Navigation.h"

#include "editors/Frames.h"
#include "editors/ItemStatus.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quillon {
namespace {

// The patch screen on show, as the program starts it: frame mode 1, the tree.
struct PatchScreen : TestModel {
    PatchScreen()
    {
        applyStartUpView(model);
        setUpScreen(model, kPatch);
    }
    ScreenLayout& layout() { return model.layout; }
    NavigationState& nav() { return model.layout.nav; }
    FrameState& frame(int f) { return model.layout.patchFrames[static_cast<std::size_t>(f)]; }

    // Shows a subsection in the frame that takes new ones and drops its
    // label on a favourite slot.
    void makeFavourite(int slot, int subsection)
    {
        fraPatchHeaders(model, fnFrame(model, kPatch), 0, subsection);
        ASSERT_TRUE(dropOnFavourite(model, slot, layout().frames[static_cast<std::size_t>(layout().CurrentFrame)].label));
    }
};

const TreeNode* findNode(const std::string& key)
{
    const auto& tree = sectionTree();
    const auto it = std::find_if(tree.begin(), tree.end(), [&](const TreeNode& n) { return n.key == key; });
    return it == tree.end() ? nullptr : &*it;
}

TEST(SectionTree, RootsAreTheFirst32SectionsExpanded)
{
    const auto& tree = sectionTree();
    ASSERT_GE(tree.size(), 32u);
    for (int s = 1; s <= 32; ++s) {
        const TreeNode& node = tree[static_cast<std::size_t>(s - 1)];
        EXPECT_EQ(node.key, std::string("S").append(std::to_string(s)));
        EXPECT_TRUE(node.parentKey.empty());
        EXPECT_TRUE(node.expanded);
        EXPECT_EQ(node.text, paramTables().patchSections[static_cast<std::size_t>(s)].name);
    }
    EXPECT_EQ(tree[0].text, "Patch Common");
    EXPECT_EQ(findNode("S33"), nullptr);
}

TEST(SectionTree, SubsectionsStoodForByTheirSectionOrWithoutRowsHaveNoNode)
{
    EXPECT_EQ(findNode("SS1"), nullptr);   // "Patch Common": the section's node
    EXPECT_EQ(findNode("SS28"), nullptr);  // "Filter 1"
    EXPECT_EQ(findNode("SS19"), nullptr);  // "Mixer OSC"
    const TreeNode* b = findNode("SS29");
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(b->text, "Filter 1 - B");
    EXPECT_EQ(b->parentKey, "S18");
    for (const char* key : {"SS13", "SS16", "SS38", "SS40", "SS42"})
        EXPECT_NE(findNode(key), nullptr) << key;
    EXPECT_EQ(findNode("SS51"), nullptr);
}

TEST(SectionTree, ClickingASubsectionNodeShowsIt)
{
    PatchScreen t;
    clickTreeNode(t.model, "SS12");
    EXPECT_EQ(t.frame(1).Subsection, 12);
    EXPECT_EQ(t.layout().frames[1].caption, "OSC1");
    EXPECT_EQ(t.layout().frames[1].label, "OSC1 Pitch");
    clickTreeNode(t.model, "nonsense");
    EXPECT_EQ(t.frame(1).Subsection, 12);
    EXPECT_EQ(t.frame(2).Subsection, 0);
}

TEST(Groups, GroupOfOneHidesTheArrowsWhichReturnForGroupOne)
{
    PatchScreen t;
    setShowMode(t.model, 2);
    clickGroup(t.model, 0);
    EXPECT_FALSE(t.nav().fraSubSections);
    EXPECT_EQ(t.nav().lblGroupSelected, "Common");
    EXPECT_EQ(t.frame(1).Subsection, 1);
    clickGroup(t.model, 1);
    EXPECT_TRUE(t.nav().fraSubSections);
    EXPECT_EQ(t.nav().lblGroupSelected, "EG");
    EXPECT_EQ(t.nav().boldGroup, 1);
    EXPECT_EQ(t.frame(1).Subsection, 2);
}

TEST(Groups, TypeGroupAtPositionThreeShowsFX1Type)
{
    PatchScreen t;
    setShowMode(t.model, 2);
    clickGroup(t.model, 9);
    EXPECT_EQ(t.frame(1).Subsection, 11);  // "OSC1 Type"
    clickSubSectionArrow(t.model, 1);
    clickSubSectionArrow(t.model, 1);
    EXPECT_EQ(t.nav().GroupPos[9], 3);
    EXPECT_EQ(t.frame(1).Subsection, 37);
    EXPECT_EQ(t.layout().frames[1].label, "FX1 Type");
}

TEST(Groups, StepsWrapAtBothEndsAndAGroupReopensWhereItWasLeft)
{
    PatchScreen t;
    setShowMode(t.model, 2);
    clickGroup(t.model, 2);  // "LFO", 6 to 9
    clickSubSectionArrow(t.model, -1);
    EXPECT_EQ(t.frame(1).Subsection, 9);
    clickSubSectionArrow(t.model, 1);
    EXPECT_EQ(t.frame(1).Subsection, 6);
    clickSubSectionArrow(t.model, 1);
    clickGroup(t.model, 1);
    clickGroup(t.model, 2);
    EXPECT_EQ(t.frame(1).Subsection, 7);
}

TEST(Groups, ArrowsDoNothingWhileTheTreeShows)
{
    PatchScreen t;
    setShowMode(t.model, 2);
    clickGroup(t.model, 1);
    setShowMode(t.model, 1);
    clickSubSectionArrow(t.model, 1);
    EXPECT_EQ(t.nav().GroupPos[1], 2);
    EXPECT_EQ(t.frame(1).Subsection, 2);
}

TEST(Groups, TimbresMoveTogetherBetweenTheirTwoPages)
{
    TestModel t;
    applyStartUpView(t.model);
    setUpScreen(t.model, kMultiset);
    NavigationState& nav = t.model.layout.nav;
    stepMultiGroup(t.model, 5, 0);  // timbre 1
    EXPECT_EQ(t.model.layout.multiFrames[1].Subsection, 11);
    EXPECT_EQ(t.model.layout.frames[1].label, "Pitch-Mix-Zone");
    clickMultiSectArrow(t.model, 1);
    EXPECT_EQ(t.model.layout.multiFrames[1].Subsection, 12);
    for (int g = 5; g <= 10; ++g)
        EXPECT_EQ(nav.MultiGroupPos[static_cast<std::size_t>(g)], 12 + 2 * (g - 5)) << g;
    stepMultiGroup(t.model, 7, 0);  // timbre 3 opens on its MIDI page too
    EXPECT_EQ(t.model.layout.multiFrames[1].Subsection, 16);
    clickMultiSectArrow(t.model, 1);  // wraps to Pitch-Mix-Zone
    EXPECT_EQ(t.model.layout.multiFrames[1].Subsection, 15);
    for (int g = 5; g <= 10; ++g)
        EXPECT_EQ(nav.MultiGroupPos[static_cast<std::size_t>(g)], 11 + 2 * (g - 5)) << g;
    EXPECT_EQ(nav.boldMultiGroup, 7);
}

TEST(Groups, MultiFixedGroupsStepWithoutTouchingTheTimbres)
{
    TestModel t;
    applyStartUpView(t.model);
    setUpScreen(t.model, kMultiset);
    stepMultiGroup(t.model, 1, 0);  // "FX", 2 to 7
    stepMultiGroup(t.model, -1, -1);
    EXPECT_EQ(t.model.layout.multiFrames[1].Subsection, 7);
    EXPECT_EQ(t.model.layout.frames[1].caption, "Master FX Setting ");
    for (int g = 5; g <= 10; ++g)
        EXPECT_EQ(t.model.layout.nav.MultiGroupPos[static_cast<std::size_t>(g)], 0);
}

TEST(Groups, MultiArrowsDoNothingOffTheMultiScreen)
{
    PatchScreen t;
    clickMultiSectArrow(t.model, 1);
    EXPECT_EQ(t.model.layout.multiFrames[1].Subsection, 0);
}

TEST(FrameState, FrameLeftActiveNeverChangesTheRightFrame)
{
    PatchScreen t;
    clickTreeNode(t.model, "S2");
    clickTreeNode(t.model, "S3");
    ASSERT_EQ(t.frame(2).Subsection, 2);
    t.makeFavourite(0, 6);
    clickTreeNode(t.model, "S3");
    clickFrameToolbarButton(t.model, "fla");
    const FrameState right = t.frame(2);
    const FrameView rightView = t.layout().frames[2];
    const auto rows = t.layout().RowParam;

    clickTreeNode(t.model, "S7");
    clickTreeNode(t.model, "SS29");
    setShowMode(t.model, 2);
    clickGroup(t.model, 3);
    clickSubSectionArrow(t.model, 1);
    clickFavourite(t.model, 0, {});
    trailMove(t.model, -1);
    trailMove(t.model, 1);

    EXPECT_EQ(t.frame(1).Subsection, 6);
    EXPECT_EQ(t.nav().TrailPos, t.nav().TrailCount);
    EXPECT_EQ(t.frame(2).Subsection, right.Subsection);
    EXPECT_EQ(t.frame(2).RowFirst, right.RowFirst);
    EXPECT_EQ(t.layout().frames[2].label, rightView.label);
    for (int r = kFrameRows; r < kScreenRows; ++r)
        EXPECT_EQ(t.layout().RowParam[static_cast<std::size_t>(r)], rows[static_cast<std::size_t>(r)]) << r;
}

TEST(Trail, BackOnATrailOfOneEntryDoesNothing)
{
    PatchScreen t;
    clickTreeNode(t.model, "S2");
    ASSERT_EQ(t.nav().TrailCount, 1);
    trailMove(t.model, -1);
    EXPECT_EQ(t.nav().TrailPos, 1);
    EXPECT_EQ(t.frame(1).Subsection, 2);
    EXPECT_EQ(t.frame(2).Subsection, 0);  // no move to the right either
}

TEST(Trail, OnTheMultiScreenBackAndForwardLeaveTheMultisetFramesAlone)
{
    PatchScreen t;
    clickTreeNode(t.model, "S2");
    clickTreeNode(t.model, "S6");
    ASSERT_EQ(t.nav().TrailCount, 2);
    setUpScreen(t.model, kMultiset);
    clickMultiSect(t.model, 0);
    const FrameState multiLeft = t.model.layout.multiFrames[1];
    const std::string label = t.layout().frames[1].label;
    trailMove(t.model, -1);
    EXPECT_EQ(t.nav().TrailPos, 2);
    EXPECT_EQ(t.model.layout.multiFrames[1].Subsection, multiLeft.Subsection);
    EXPECT_EQ(t.layout().frames[1].label, label);
    EXPECT_EQ(t.frame(1).Subsection, 6);
}

TEST(Trail, HundredAndFirstVisitDropsTheOldestAndTheCountStaysAHundred)
{
    PatchScreen t;
    setFrameMode(t.model, 2);
    const auto visit = [](int i) { return 2 + i % 40; };
    for (int i = 1; i <= 101; ++i)
        fraPatchHeaders(t.model, 1, 0, visit(i));
    EXPECT_EQ(t.nav().TrailCount, 100);
    EXPECT_EQ(t.nav().TrailPos, 100);
    EXPECT_EQ(t.nav().Trail[1], visit(2));
    EXPECT_EQ(t.nav().Trail[100], visit(101));
    EXPECT_EQ(t.nav().Trail[99], visit(100));
}

TEST(Trail, BackAndForwardWalkTheHistoryWithoutAddingToIt)
{
    PatchScreen t;
    clickTreeNode(t.model, "S2");
    clickTreeNode(t.model, "S6");
    clickTreeNode(t.model, "S10");
    ASSERT_EQ(t.nav().TrailCount, 3);
    trailMove(t.model, -1);
    EXPECT_EQ(t.frame(1).Subsection, 6);
    EXPECT_EQ(t.frame(2).Subsection, 10);  // moved right in "Frame change L to R"
    trailMove(t.model, -1);
    EXPECT_EQ(t.frame(1).Subsection, 2);
    EXPECT_EQ(t.nav().TrailPos, 1);
    EXPECT_EQ(t.nav().TrailCount, 3);
    EXPECT_FALSE(t.nav().TrailSkip);
    trailMove(t.model, 1);
    trailMove(t.model, 1);
    trailMove(t.model, 1);
    EXPECT_EQ(t.nav().TrailPos, 3);
    EXPECT_EQ(t.frame(1).Subsection, 10);
    EXPECT_EQ(t.nav().TrailCount, 3);
}

TEST(Trail, SameSubsectionAgainIsNotAddedTwice)
{
    PatchScreen t;
    setFrameMode(t.model, 2);
    clickTreeNode(t.model, "S2");
    clickTreeNode(t.model, "S2");
    EXPECT_EQ(t.nav().TrailCount, 1);
}

TEST(Trail, NewVisitAfterGoingBackGoesToTheEnd)
{
    PatchScreen t;
    setFrameMode(t.model, 2);
    clickTreeNode(t.model, "S2");
    clickTreeNode(t.model, "S3");
    trailMove(t.model, -1);
    clickTreeNode(t.model, "S4");
    EXPECT_EQ(t.nav().TrailCount, 3);
    EXPECT_EQ(t.nav().Trail[2], 3);
    EXPECT_EQ(t.nav().Trail[3], 4);
    EXPECT_EQ(t.nav().TrailPos, 3);
}

TEST(Trail, NothingShownMeansNoMove)
{
    PatchScreen t;
    t.nav().TrailCount = 2;
    t.nav().Trail[1] = 2;
    t.nav().Trail[2] = 3;
    t.nav().TrailPos = 2;
    trailMove(t.model, -1);
    EXPECT_EQ(t.nav().TrailPos, 2);
    EXPECT_EQ(t.frame(1).Subsection, 0);
}

TEST(Favourites, ShiftClickOnTheThirdOfFiveLeavesFourInSlotsZeroToThree)
{
    PatchScreen t;
    const int subsections[] = {2, 6, 10, 13, 35};
    for (int slot = 0; slot < 5; ++slot)
        t.makeFavourite(slot, subsections[slot]);
    clickFavourite(t.model, 2, {.left = true, .shift = true});
    const auto& slots = t.nav().favourites;
    EXPECT_EQ(slots[0].subsection, 2);
    EXPECT_EQ(slots[1].subsection, 6);
    EXPECT_EQ(slots[2].subsection, 13);
    EXPECT_EQ(slots[2].caption, "OSC1 Setting");
    EXPECT_EQ(slots[3].subsection, 35);
    EXPECT_EQ(slots[3].caption, "Output");
    for (int slot = 4; slot < kFavouriteSlots; ++slot) {
        EXPECT_EQ(slots[static_cast<std::size_t>(slot)].subsection, 0) << slot;
        EXPECT_TRUE(slots[static_cast<std::size_t>(slot)].caption.empty()) << slot;
    }
    const std::array<int, 8> kept{2, 6, 13, 35, 0, 0, 0, 0};
    EXPECT_EQ(t.model.settings.favourites, kept);
}

TEST(Favourites, DraggingAnotherControlOntoASlotChangesNothing)
{
    PatchScreen t;
    t.makeFavourite(0, 6);
    setShowMode(t.model, 2);
    clickGroup(t.model, 1);  // frame 1 "EG1", frame 2 "LFO1"
    const Favourite before = t.nav().favourites[0];
    EXPECT_FALSE(dropOnFavourite(t.model, 0, t.nav().lblGroupSelected));  // "EG"
    EXPECT_FALSE(dropOnFavourite(t.model, 1, "Common"));
    EXPECT_EQ(t.nav().favourites[0].caption, before.caption);
    EXPECT_EQ(t.nav().favourites[0].subsection, before.subsection);
    EXPECT_EQ(t.nav().favourites[1].subsection, 0);
    EXPECT_EQ(t.model.settings.favourites[1], 0);
    EXPECT_TRUE(dropOnFavourite(t.model, 1, "LFO1"));  // lblSubsect(2) is a source
    EXPECT_EQ(t.nav().favourites[1].subsection, 6);
}

TEST(Favourites, SettingSubsectionKeepsItsFixedCaptionAndFollowsTheType)
{
    PatchScreen t;
    t.makeFavourite(4, 38);  // "FX1 Setting"
    EXPECT_EQ(t.nav().favourites[4].caption, "FX1 Setting");
    EXPECT_NE(t.layout().frames[1].label, "FX1 Setting");
    EXPECT_EQ(t.model.settings.favourites[4], 38);
    clickTreeNode(t.model, "S2");
    t.model.buffers.of(kPatch).current[359] = 5;
    clickFavourite(t.model, 4, {});
    EXPECT_EQ(t.frame(1).Subsection, 38);
    EXPECT_EQ(t.layout().frames[1].label, paramTables().patchSections[5 + 46].name);
}

TEST(Favourites, OnlyTheLeftButtonWithoutKeysOpensASlot)
{
    PatchScreen t;
    t.makeFavourite(0, 6);
    clickTreeNode(t.model, "S2");
    clickFavourite(t.model, 0, {.left = false});
    clickFavourite(t.model, 0, {.left = true, .ctrl = true});
    clickFavourite(t.model, 1, {});  // empty slot
    EXPECT_EQ(t.frame(1).Subsection, 2);
    EXPECT_EQ(t.nav().favourites[0].subsection, 6);
    clickFavourite(t.model, 0, {});
    EXPECT_EQ(t.frame(1).Subsection, 6);
}

TEST(Favourites, StartUpTakesTheSlotsKeptInTheSettings)
{
    TestModel t;
    t.model.settings.favourites = {13, 0, 2, 0, 0, 0, 0, 0};
    applyStartUpView(t.model);
    const auto& slots = t.model.layout.nav.favourites;
    EXPECT_EQ(slots[0].caption, "OSC1 Setting");
    EXPECT_EQ(slots[0].subsection, 13);
    EXPECT_EQ(slots[1].subsection, 0);
    EXPECT_EQ(slots[2].caption, "EG1");
}

TEST(StartUpView, StoredViewIsTakenOnlyWhenTheSettingsAskForIt)
{
    TestModel t;
    t.model.settings.storedFrameMode = 3;
    t.model.settings.storedShowMode[1] = 2;
    applyStartUpView(t.model);
    EXPECT_EQ(t.model.settings.frameMode, 1);
    EXPECT_EQ(t.model.layout.CurrentFrame, 1);
    EXPECT_TRUE(toolbarButtonDown(t.model, "spst"));

    t.model.settings.takeStoredView = true;
    applyStartUpView(t.model);
    EXPECT_EQ(t.model.settings.frameMode, 3);
    EXPECT_EQ(t.model.layout.CurrentFrame, 2);
    EXPECT_TRUE(toolbarButtonDown(t.model, "fra"));
    EXPECT_TRUE(toolbarButtonDown(t.model, "spsg"));
    EXPECT_FALSE(toolbarButtonDown(t.model, "spst"));
}

}  // namespace
}  // namespace quillon

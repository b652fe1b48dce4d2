#include "editors/Frames.h"

#include "editors/ItemStatus.h"
#include "editors/Navigation.h"
#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

struct Screens : TestModel {
    Screens()
    {
        applyStartUpView(model);
        setUpScreen(model, kPatch);
    }
    ScreenLayout& layout() { return model.layout; }
};

// What the hourglass was doing when the screen heard of its new set-up.
class BusyWatcher : public AppObserver {
public:
    explicit BusyWatcher(ScriptedHost& host) : host_(host) {}
    void modelChanged(unsigned changes) override
    {
        if (changes & kScreenChanged)
            busyWhenTold = host_.busyDepth;
    }
    int busyWhenTold = -1;

private:
    ScriptedHost& host_;
};

TEST(ScreenSetUp, WaitCursorShowsWhileTheScreenIsBuilt)
{
    Screens t;
    clickTreeNode(t.model, "S2");
    BusyWatcher watcher(t.host);
    t.model.addObserver(&watcher);
    setUpScreen(t.model, kMultiset);
    t.model.removeObserver(&watcher);
    EXPECT_EQ(watcher.busyWhenTold, 1);
    EXPECT_EQ(t.host.busyDepth, 0);
}

TEST(ScreenSetUp, PatchScreenShowsTheTreeOrTheGroupsByShowMode)
{
    Screens t;
    EXPECT_TRUE(t.layout().parts.trvSection);
    EXPECT_FALSE(t.layout().parts.fraPatchGroup);
    EXPECT_TRUE(t.layout().menus.mnuSubsection);
    clickFrameToolbarButton(t.model, "spsg");
    EXPECT_FALSE(t.layout().parts.trvSection);
    EXPECT_TRUE(t.layout().parts.fraPatchGroup);
    EXPECT_EQ(t.model.settings.showMode[1], 2);
    setUpScreen(t.model, kMultiset);
    setUpScreen(t.model, kPatch);
    EXPECT_TRUE(t.layout().parts.fraPatchGroup);
    EXPECT_FALSE(t.layout().parts.trvSection);
}

TEST(ScreenSetUp, EmptyFramesStayHiddenAndCopyMenusOff)
{
    Screens t;
    EXPECT_FALSE(t.layout().frames[1].visible);
    EXPECT_FALSE(t.layout().frames[2].visible);
    EXPECT_FALSE(t.layout().menus.mnuCopySpecial);
    clickTreeNode(t.model, "S2");
    EXPECT_TRUE(t.layout().frames[1].visible);
    EXPECT_TRUE(t.layout().menus.mnuCopySpecial);
    EXPECT_TRUE(t.layout().menus.mnuPasteSpecial);
    setUpScreen(t.model, kPatch);
    EXPECT_TRUE(t.layout().menus.mnuCopySpecial);
    EXPECT_FALSE(t.layout().frames[2].visible);
}

TEST(ScreenSetUp, EachScreenKeepsItsFramesAndShowsThemAgainFromCurrent)
{
    Screens t;
    clickTreeNode(t.model, "S2");  // EG1
    setUpScreen(t.model, kMultiset);
    EXPECT_FALSE(t.layout().parts.trvSection);
    EXPECT_TRUE(t.layout().parts.fraMultiSelect);
    EXPECT_FALSE(t.layout().frames[1].visible);
    EXPECT_FALSE(t.layout().menus.mnuCopySpecial);
    stepMultiGroup(t.model, 0, 0);  // "Multi Common"
    EXPECT_EQ(t.layout().frames[1].label, "Multi Common");
    EXPECT_EQ(t.layout().patchFrames[1].Subsection, 2);

    t.model.buffers.of(kPatch).current[33] = 42;  // EG1 Attack Level
    setUpScreen(t.model, kPatch);
    EXPECT_FALSE(t.layout().parts.fraMultiSelect);
    EXPECT_TRUE(t.layout().frames[1].visible);
    EXPECT_EQ(t.layout().frames[1].label, "EG1");
    EXPECT_EQ(t.layout().RowParam[2], 33);
    EXPECT_EQ(t.layout().rows[2].valueText, "42");

    setUpScreen(t.model, kMultiset);
    EXPECT_EQ(t.layout().multiFrames[1].Subsection, 1);
    EXPECT_EQ(t.layout().frames[1].label, "Multi Common");
    EXPECT_TRUE(t.layout().frames[1].visible);
}

TEST(ScreenSetUp, NewPatchShowsTheFramesWithTheNewValues)
{
    Screens t;
    clickTreeNode(t.model, "S2");
    t.model.buffers.of(kPatch).current[33] = 42;
    refreshParamRows(t.model, 1, 31, 45);
    ASSERT_EQ(t.layout().rows[2].valueText, "42");
    t.model.flags.clean[kPatch] = true;
    t.model.buffers.of(kPatch).loaded = t.model.buffers.of(kPatch).current;
    newItem(t.model);
    EXPECT_EQ(t.layout().rows[2].valueText, std::to_string(t.model.buffers.of(kPatch).defaults[33]));
}

TEST(ScreenSetUp, BankAndPatternScreensHideTheFramesAndTheSubsectionMenu)
{
    Screens t;
    clickTreeNode(t.model, "S2");
    setUpScreen(t.model, kPatchBankA);
    EXPECT_TRUE(t.layout().parts.fraBank);
    EXPECT_FALSE(t.layout().parts.trvSection);
    EXPECT_FALSE(t.layout().frames[1].visible);
    EXPECT_FALSE(t.layout().menus.mnuSubsection);
    EXPECT_FALSE(t.layout().menus.mnuCopySpecial);
    setUpScreen(t.model, kPatchBankB);
    EXPECT_TRUE(t.layout().parts.fraBank);
    EXPECT_EQ(t.model.bankTarget, kPatchBankB);
    setUpScreen(t.model, kPattern);
    EXPECT_FALSE(t.layout().parts.fraBank);
    EXPECT_TRUE(t.layout().parts.fraArpSelect);
    EXPECT_TRUE(t.layout().parts.fraArpParams);
    EXPECT_TRUE(t.layout().parts.fraArpSteps);
    setUpScreen(t.model, kPatch);
    EXPECT_FALSE(t.layout().parts.fraArpSteps);
    EXPECT_TRUE(t.layout().frames[1].visible);
    EXPECT_TRUE(t.layout().menus.mnuSubsection);
}

TEST(ScreenSetUp, EnvelopeInAFramesPlaceShowsAgainOnReturn)
{
    Screens t;
    t.layout().envelopeRule = [](AppModel& model, int frame, int subsection) {
        ScreenLayout& layout = model.layout;
        layout.EGShown = {};
        const bool envelope = subsection >= 2 && subsection <= 5;
        const int other = frame == 1 ? 2 : 1;
        layout.EGShown[static_cast<std::size_t>(other)] = envelope;
        layout.parts.fraEnvelope = envelope;
        if (envelope)
            layout.frames[static_cast<std::size_t>(other)].visible = false;
    };
    clickTreeNode(t.model, "S6");
    clickTreeNode(t.model, "S2");  // EG1 in frame 1, LFO1 moved right under the graph
    EXPECT_TRUE(t.layout().EGShown[2]);
    setUpScreen(t.model, kMultiset);
    EXPECT_FALSE(t.layout().parts.fraEnvelope);
    setUpScreen(t.model, kPatch);
    EXPECT_TRUE(t.layout().parts.fraEnvelope);
    EXPECT_FALSE(t.layout().frames[2].visible);
    EXPECT_TRUE(t.layout().frames[1].visible);
}

TEST(ScreenSetUp, FramesOfTheOtherScreenAreNotFilledOnAPatchRefresh)
{
    Screens t;
    clickTreeNode(t.model, "S2");
    setUpScreen(t.model, kMultiset);
    stepMultiGroup(t.model, 0, 0);
    const auto rows = t.layout().RowParam;
    fraPatchDisplayRefresh(t.model);
    showTypeChange(t.model, kPatch, 2, 174);
    EXPECT_EQ(t.layout().RowParam, rows);
    EXPECT_EQ(t.layout().frames[1].label, "Multi Common");
}

}  // namespace
}  // namespace quillon

#include "editors/Frames.h"

#include "editors/Navigation.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "model/ValueDecoder.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

constexpr int kOsc1Type = 174;
constexpr int kOsc1Setting = 13;
constexpr int kBrassModelType = 9;  // OSC1 Type value whose block is the Brass Model section

const SectionDef& patchSection(int index) { return paramTables().patchSections[static_cast<std::size_t>(index)]; }

// The patch screen as the program starts it: frame mode 1, the tree.
struct PatchScreen : TestModel {
    PatchScreen() { applyStartUpView(model); }
    ScreenLayout& layout() { return model.layout; }
    FrameState& frame(int f) { return model.layout.patchFrames[static_cast<std::size_t>(f)]; }
};

// Tells what the observers saw of the Hard flags while a frame was filled.
class HardWatcher : public AppObserver {
public:
    HardWatcher(AppModel& model, int param) : model_(model), param_(param) {}
    void modelChanged(unsigned changes) override
    {
        if (changes & kFrame1Changed) {
            sawFrame = true;
            hardWhileFilled = isHardNow(model_, kPatch, param_);
        }
    }
    bool sawFrame = false;
    bool hardWhileFilled = true;

private:
    AppModel& model_;
    int param_;
};

TEST(FrameState, LongSubsectionScrollsOneAndTenRowsAndEndsWithItsLastAtTheBottom)
{
    PatchScreen t;
    t.model.buffers.of(kPatch).current[kOsc1Type] = kBrassModelType;
    const SectionDef& brass = patchSection(kBrassModelType + 33);
    ASSERT_EQ(brass.name, "Brass Model");
    ASSERT_GT(brass.lastParam - brass.firstParam + 1, 30);

    fraPatchHeaders(t.model, 1, 0, kOsc1Setting);
    FrameState& f = t.frame(1);
    EXPECT_EQ(f.SubFirst, brass.firstParam);
    EXPECT_EQ(f.SubLast, brass.lastParam);
    EXPECT_EQ(f.RowFirst, brass.firstParam);
    EXPECT_EQ(f.RowLast, brass.firstParam + 14);
    EXPECT_EQ(t.layout().RowParam[0], brass.firstParam);
    EXPECT_FALSE(t.layout().frames[1].upEnabled);
    EXPECT_TRUE(t.layout().frames[1].downEnabled);

    scrollRowsDown(t.model, 1, 1);  // cmdDown
    EXPECT_EQ(f.RowFirst, brass.firstParam + 1);
    EXPECT_EQ(t.layout().RowParam[0], brass.firstParam + 1);
    EXPECT_TRUE(t.layout().frames[1].upEnabled);

    scrollRowsDown(t.model, 1, 10);  // cmdFastDown
    EXPECT_EQ(f.RowFirst, brass.firstParam + 11);
    EXPECT_EQ(f.RowLast, brass.firstParam + 25);

    for (int i = 0; i < 5; ++i)
        scrollRowsDown(t.model, 1, 10);
    EXPECT_EQ(f.RowLast, brass.lastParam);
    EXPECT_EQ(f.RowFirst, brass.lastParam - 14);
    EXPECT_EQ(t.layout().RowParam[0], brass.lastParam - 14);
    EXPECT_EQ(t.layout().RowParam[14], brass.lastParam);
    EXPECT_FALSE(t.layout().frames[1].downEnabled);

    scrollRowsUp(t.model, 1, 10);  // cmdFastUp
    EXPECT_EQ(f.RowFirst, brass.lastParam - 24);
    for (int i = 0; i < 5; ++i)
        scrollRowsUp(t.model, 1, 10);
    EXPECT_EQ(f.RowFirst, brass.firstParam);
    EXPECT_EQ(f.RowLast, brass.firstParam + 14);
    EXPECT_FALSE(t.layout().frames[1].upEnabled);
}

TEST(FrameState, PatchCommonBeginsBelowTheNameYetItsFirstRowIsParameter17)
{
    PatchScreen t;
    ASSERT_LT(patchSection(1).firstParam, 16);
    clickTreeNode(t.model, "S1");
    EXPECT_EQ(t.layout().frames[1].caption, "Patch Common");
    EXPECT_EQ(t.layout().frames[1].label, "Patch Common");
    EXPECT_EQ(t.frame(1).SubFirst, 17);
    EXPECT_EQ(t.frame(1).Subsection, 1);
    EXPECT_EQ(t.layout().RowParam[0], 17);
    EXPECT_EQ(t.layout().rows[0].name, "Patch Category");
    EXPECT_FALSE(t.layout().frames[1].upEnabled);
}

TEST(FrameState, ShortSubsectionHidesTheRowsBelowItsLast)
{
    PatchScreen t;
    fraPatchHeaders(t.model, 1, 0, 35);  // "Output", four parameters
    EXPECT_EQ(t.layout().frames[1].label, "Output");
    for (int r = 0; r < 4; ++r)
        EXPECT_TRUE(t.layout().rows[static_cast<std::size_t>(r)].visible) << r;
    for (int r = 4; r < kFrameRows; ++r)
        EXPECT_FALSE(t.layout().rows[static_cast<std::size_t>(r)].visible) << r;
    EXPECT_FALSE(t.layout().frames[1].upEnabled);
    EXPECT_FALSE(t.layout().frames[1].downEnabled);
    EXPECT_TRUE(t.layout().frames[1].visible);
}

TEST(FrameState, RowsShowNameValueDecodeAndTheParametersRange)
{
    PatchScreen t;
    t.model.buffers.of(kPatch).current[19] = 1;  // Hold
    fraPatchHeaders(t.model, 2, 0, 1);
    const RowView& hold = t.layout().rows[kFrameRows + 2];
    EXPECT_EQ(t.layout().RowParam[kFrameRows + 2], 19);
    EXPECT_EQ(hold.name, "Hold");
    EXPECT_EQ(hold.value, 1);
    EXPECT_EQ(hold.valueText, "1");
    EXPECT_EQ(hold.decode, decodeValue(paramTables().patch[19].table, 1));
    EXPECT_FALSE(hold.decode.empty());
    EXPECT_EQ(hold.spinMin, 0);
    EXPECT_EQ(hold.spinMax, 1);
    EXPECT_TRUE(hold.visible);
}

TEST(FrameState, PreviousRowRangeDoesNotClampTheNewValue)
{
    PatchScreen t;
    fraPatchHeaders(t.model, 1, 0, 1);  // row 2 is "Hold", 0 to 1
    ASSERT_EQ(t.layout().rows[2].spinMax, 1);
    t.model.buffers.of(kPatch).current[33] = -75;  // EG1 Attack Level
    fraPatchHeaders(t.model, 1, 0, 2);             // row 2 is now parameter 33, -99 to 99
    const RowView& row = t.layout().rows[2];
    EXPECT_EQ(t.layout().RowParam[2], 33);
    EXPECT_EQ(row.value, -75);
    EXPECT_EQ(row.valueText, "-75");
    EXPECT_EQ(row.spinMin, -99);
    EXPECT_EQ(row.spinMax, 99);
}

TEST(FrameState, HardFlagsAreClearWhileRowsAreFilledAndBackAfterwards)
{
    PatchScreen t;
    constexpr int kReserved = 321;  // in "Amplitude: Amp 1"
    ASSERT_TRUE(isHardNow(t.model, kPatch, kReserved));
    HardWatcher watcher(t.model, kReserved);
    t.model.addObserver(&watcher);
    refreshParamRows(t.model, 1, 315, 323);
    t.model.removeObserver(&watcher);
    EXPECT_TRUE(watcher.sawFrame);
    EXPECT_FALSE(watcher.hardWhileFilled);
    EXPECT_TRUE(isHardNow(t.model, kPatch, kReserved));
    EXPECT_TRUE(t.layout().rows[kReserved - 315].hard);
    EXPECT_FALSE(t.layout().rows[0].hard);
}

TEST(FrameState, TypeWithoutParametersShowsAFrameWithNoRows)
{
    PatchScreen t;
    fraPatchHeaders(t.model, 1, 0, 2);
    t.model.buffers.of(kPatch).current[kOsc1Type] = 100;  // no such section
    fraPatchHeaders(t.model, 1, 0, kOsc1Setting);
    EXPECT_EQ(t.frame(1).Subsection, kOsc1Setting);
    EXPECT_EQ(t.layout().frames[1].caption, "OSC1 Setting ");
    for (int r = 0; r < kFrameRows; ++r)
        EXPECT_FALSE(t.layout().rows[static_cast<std::size_t>(r)].visible) << r;
    EXPECT_FALSE(t.layout().frames[1].downEnabled);
    EXPECT_FALSE(t.layout().frames[1].upEnabled);
    EXPECT_TRUE(t.layout().frames[1].visible);
}

TEST(FrameState, SettingSubsectionShowsTheTypeBlockUnderItsFixedCaption)
{
    PatchScreen t;
    t.model.buffers.of(kPatch).current[kOsc1Type] = kBrassModelType;
    fraPatchHeaders(t.model, 1, 0, kOsc1Setting);
    EXPECT_EQ(t.layout().frames[1].caption, "OSC1 Setting ");
    EXPECT_EQ(t.layout().frames[1].label, "Brass Model");
}

TEST(FrameState, TypeChangeRefreshesTheOtherFrame)
{
    PatchScreen t;
    setFrameMode(t.model, 2);
    ParamValues& patch = t.model.buffers.of(kPatch).current;
    fraPatchHeaders(t.model, 2, 0, kOsc1Setting);
    fraPatchHeaders(t.model, 1, 0, 11);  // "OSC1 Type"
    const int before = t.frame(2).SubFirst;

    patch[kOsc1Type] = kBrassModelType;
    showTypeChange(t.model, kPatch, 1, kOsc1Type);
    const SectionDef& brass = patchSection(kBrassModelType + 33);
    EXPECT_NE(before, brass.firstParam);
    EXPECT_EQ(t.frame(2).SubFirst, brass.firstParam);
    EXPECT_EQ(t.layout().RowParam[kFrameRows], brass.firstParam);
    EXPECT_EQ(t.layout().frames[2].label, "Brass Model");
}

TEST(FrameState, TypeChangeLeavesTheEditedFrameAndOtherSubsectionsAlone)
{
    PatchScreen t;
    setFrameMode(t.model, 2);
    ParamValues& patch = t.model.buffers.of(kPatch).current;
    fraPatchHeaders(t.model, 1, 0, kOsc1Setting);
    fraPatchHeaders(t.model, 2, 0, 16);  // "OSC2 Setting": another type
    const int firstOfFrame1 = t.frame(1).SubFirst;
    const int firstOfFrame2 = t.frame(2).SubFirst;
    patch[kOsc1Type] = kBrassModelType;
    showTypeChange(t.model, kPatch, 1, kOsc1Type);  // edited in frame 1 itself
    EXPECT_EQ(t.frame(1).SubFirst, firstOfFrame1);
    EXPECT_EQ(t.frame(2).SubFirst, firstOfFrame2);
}

TEST(FrameState, MultiTypeChangeRefreshesTheOtherMultiFrame)
{
    TestModel t;
    applyStartUpView(t.model);
    setFrameMode(t.model, 2);
    t.model.mode = kMultiset;
    ParamValues& multi = t.model.buffers.of(kMultiset).current;
    fraMultiHeaders(t.model, 2, 0, 3);  // "FX1 Setting "
    EXPECT_EQ(t.model.layout.frames[2].caption, "FX1 Setting ");
    const SectionDef& next = paramTables().multiSections[static_cast<std::size_t>(multi[179] + 1 + 12)];
    multi[179] = static_cast<std::int16_t>(multi[179] + 1);
    showTypeChange(t.model, kMultiset, 1, 179);
    EXPECT_EQ(t.model.layout.multiFrames[2].SubFirst, next.firstParam);
    EXPECT_EQ(t.model.layout.frames[2].label, next.name);
}

TEST(FrameState, ChangeLeftToRightMovesTheLeftSubsectionRight)
{
    PatchScreen t;
    EXPECT_EQ(fnFrame(t.model, kPatch), 1);
    EXPECT_EQ(t.frame(2).Subsection, 0);
    clickTreeNode(t.model, "S2");  // EG1
    clickTreeNode(t.model, "S6");  // LFO1
    EXPECT_EQ(t.frame(1).Subsection, 6);
    EXPECT_EQ(t.frame(2).Subsection, 2);
    EXPECT_EQ(t.layout().frames[2].label, "EG1");
    EXPECT_EQ(t.layout().RowParam[kFrameRows], 31);
    EXPECT_TRUE(t.layout().frames[1].captionBold);
    EXPECT_FALSE(t.layout().frames[2].captionBold);
}

TEST(FrameState, FrameModesAnswerTheirFrameAndPressTheirButton)
{
    PatchScreen t;
    EXPECT_TRUE(toolbarButtonDown(t.model, "flr"));
    EXPECT_TRUE(clickFrameToolbarButton(t.model, "fra"));
    EXPECT_EQ(t.model.settings.frameMode, 3);
    EXPECT_EQ(t.layout().CurrentFrame, 2);
    EXPECT_TRUE(toolbarButtonDown(t.model, "fra"));
    EXPECT_FALSE(toolbarButtonDown(t.model, "flr"));
    EXPECT_FALSE(toolbarButtonDown(t.model, "fla"));
    EXPECT_TRUE(t.layout().frames[2].captionBold);
    EXPECT_FALSE(t.layout().frames[1].captionBold);
    EXPECT_EQ(fnFrame(t.model, kPatch), 2);
    clickFrameToolbarButton(t.model, "fla");
    EXPECT_EQ(t.layout().CurrentFrame, 1);
    EXPECT_EQ(fnFrame(t.model, kPatch), 1);
    EXPECT_FALSE(clickFrameToolbarButton(t.model, "open"));
}

TEST(FrameState, FirstFilledFrameTakesItsColoursOnce)
{
    PatchScreen t;
    EXPECT_FALSE(t.layout().FrameColoured[1]);
    EXPECT_FALSE(t.layout().parts.fraBackForward);
    fraPatchHeaders(t.model, 1, 0, 2);
    EXPECT_TRUE(t.layout().FrameColoured[1]);
    EXPECT_FALSE(t.layout().FrameColoured[2]);
    EXPECT_TRUE(t.layout().parts.fraBackForward);
}

TEST(FrameState, FillingAFrameTouchesOnlyThatFrame)
{
    PatchScreen t;
    setFrameMode(t.model, 2);
    fraPatchHeaders(t.model, 2, 0, 2);
    const auto rightRows = t.layout().RowParam;
    RecordingObserver seen;
    t.model.addObserver(&seen);
    refreshParamRows(t.model, 1, 107, 120);
    t.model.removeObserver(&seen);
    EXPECT_TRUE(seen.all & kFrame1Changed);
    EXPECT_FALSE(seen.all & kFrame2Changed);
    for (int r = kFrameRows; r < kScreenRows; ++r)
        EXPECT_EQ(t.layout().RowParam[static_cast<std::size_t>(r)], rightRows[static_cast<std::size_t>(r)]);
}

TEST(FrameState, FillingAFrameClearsTheStatusLines)
{
    PatchScreen t;
    t.host.setStatus("Patch loaded", StatusColour::Done);
    t.host.setMessage("note");
    fraPatchHeaders(t.model, 1, 0, 2);
    EXPECT_EQ(t.host.status, "");
    EXPECT_EQ(t.host.message, "");
}

TEST(FrameState, EnvelopeRuleRunsForThePatchFrameGivenASubsection)
{
    PatchScreen t;
    std::vector<std::pair<int, int>> calls;
    t.layout().envelopeRule = [&calls](AppModel&, int frame, int subsection) { calls.emplace_back(frame, subsection); };
    clickTreeNode(t.model, "S2");
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0], std::make_pair(1, 2));
    fraMultiHeaders(t.model, 1, 0, 1);
    EXPECT_EQ(calls.size(), 1u);
}

TEST(FrameState, SectionWithSeveralSubsectionsIsShownWholeAndAgainSo)
{
    PatchScreen t;
    const SectionDef& mixer = patchSection(15);  // "Mixer OSC": its own subsection has no rows
    clickTreeNode(t.model, "S15");
    EXPECT_EQ(t.frame(1).SubFirst, mixer.firstParam);
    EXPECT_EQ(t.frame(1).SubLast, mixer.lastParam);
    EXPECT_EQ(t.frame(1).Subsection, 19);
    EXPECT_EQ(t.layout().frames[1].label, "Mixer OSC");
    fraPatchDisplayRefresh(t.model);
    EXPECT_EQ(t.frame(1).SubLast, mixer.lastParam);
    fraPatchHeaders(t.model, 2, 0, 19);  // the subsection number alone shows the section too
    EXPECT_EQ(t.frame(2).SubFirst, mixer.firstParam);
    EXPECT_EQ(t.frame(2).SubLast, mixer.lastParam);
}

TEST(FrameState, SectionNodeShowsTheRowsOfItsSubsectionOfTheSameIdentifier)
{
    PatchScreen t;
    clickTreeNode(t.model, "S11");  // "OSC1": its subsection "OSC1 Type" has one row
    EXPECT_EQ(t.layout().frames[1].caption, "OSC1");
    EXPECT_EQ(t.layout().frames[1].label, "OSC1");
    EXPECT_EQ(t.frame(1).Subsection, 11);
    EXPECT_EQ(t.frame(1).SubFirst, 174);
    EXPECT_EQ(t.frame(1).SubLast, 174);
    clickTreeNode(t.model, "S24");  // "FX": three rows, as the group shows them
    EXPECT_EQ(t.layout().frames[1].label, "FX");
    EXPECT_EQ(t.frame(1).Subsection, 36);
    EXPECT_EQ(t.frame(1).SubLast - t.frame(1).SubFirst + 1, 3);
    fraPatchHeaders(t.model, 2, 0, 36);
    EXPECT_EQ(t.frame(2).SubFirst, t.frame(1).SubFirst);
    EXPECT_EQ(t.frame(2).SubLast, t.frame(1).SubLast);
}

TEST(FrameState, MultiRowsComeFromTheMultisetWithItsHardFlags)
{
    TestModel t;
    applyStartUpView(t.model);
    t.model.mode = kMultiset;
    constexpr int kReserved = 42;  // in timbre 1's "MIDI" page
    ASSERT_TRUE(isHardNow(t.model, kMultiset, kReserved));
    t.model.buffers.of(kMultiset).current[31] = 16;  // MIDI Channel
    fraMultiHeaders(t.model, 1, 0, 12);
    const ScreenLayout& layout = t.model.layout;
    EXPECT_EQ(layout.multiFrames[1].SubFirst, 31);
    EXPECT_EQ(layout.frames[1].caption, "Multi Patch 1");
    EXPECT_EQ(layout.frames[1].label, "MIDI");
    EXPECT_EQ(layout.rows[0].name, "MIDI Channel");
    EXPECT_EQ(layout.rows[0].valueText, "16");
    EXPECT_EQ(layout.rows[0].spinMax, 16);
    EXPECT_TRUE(layout.rows[kReserved - 31].hard);
    EXPECT_TRUE(isHardNow(t.model, kMultiset, kReserved));
    EXPECT_EQ(layout.patchFrames[1].Subsection, 0);
    EXPECT_EQ(t.model.layout.nav.TrailCount, 0);  // the multi screen has no trail
}

}  // namespace
}  // namespace quillon

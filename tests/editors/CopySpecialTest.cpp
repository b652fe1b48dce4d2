#include "editors/CopySpecial.h"

#include "editors/Frames.h"
#include "editors/ItemStatus.h"
#include "editors/Navigation.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "model/SubsectionBounds.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <random>

namespace quillon {
namespace {

constexpr int kEg1 = 2;
constexpr int kEg3 = 4;
constexpr int kAmpEg = 34;
constexpr int kOsc1Setting = 13;
constexpr int kFx1Setting = 38;
constexpr int kFx2Setting = 40;
constexpr int kOsc1Type = 174;
constexpr int kFx1Type = 359;
constexpr int kFx2Type = 360;

struct Editor : TestModel {
    explicit Editor(int mode = kPatch)
    {
        applyStartUpView(model);
        model.flags.loaded[kPatch] = true;
        model.flags.loaded[kMultiset] = true;
        setFrameMode(model, 2);  // frame 1 takes every subsection and is current
        setUpScreen(model, mode);
    }
    int mode() const { return model.mode; }
    ItemBuffers& buffers() { return model.buffers.of(model.mode); }
    const FrameState& frame() const { return model.layout.frame(model.mode, 1); }
    void show(int subsection)
    {
        if (model.mode == kMultiset)
            fraMultiHeaders(model, 1, 0, subsection);
        else
            fraPatchHeaders(model, 1, 0, subsection);
    }
    // Every value somewhere in its range, so that a paste shows.
    void scramble(unsigned seed)
    {
        const auto& rows = model.mode == kMultiset ? paramTables().multi : paramTables().patch;
        std::mt19937 generator(seed);
        ParamValues& current = buffers().current;
        for (std::size_t p = 17; p < rows.size(); ++p) {
            if (rows[p].max >= rows[p].min && rows[p].sect != 0)
                current[p] = static_cast<std::int16_t>(
                    std::uniform_int_distribution<int>(rows[p].min, rows[p].max)(generator));
        }
    }
};

bool isHard(int kind, int param)
{
    const auto& hard = kind == kMultiset ? paramTables().multiHard : paramTables().patchHard;
    return hard[static_cast<std::size_t>(param)] != 0;
}

std::string sectionName(int kind, int section)
{
    const auto& sections = kind == kMultiset ? paramTables().multiSections : paramTables().patchSections;
    return sections[static_cast<std::size_t>(section)].name;
}

TEST(CopySpecial, CopyingFromASubsectionOfSixtyParametersStoresFiftyAndAPasteToItReportsDifferentSizes)
{
    // No subsection of the tables holds more than 40 parameters, so the
    // frame is given a range of 60 as a longer one would have.
    Editor t;
    t.scramble(2);
    t.show(kOsc1Setting);
    FrameState& frame = t.model.layout.patchFrames[1];
    frame.SubLast = static_cast<std::int16_t>(frame.SubFirst + 59);
    copySpecial(t.model);
    EXPECT_EQ(t.model.copyBuffer.CopyCount, kCopyLimit);
    EXPECT_TRUE(t.model.copyBuffer.CopyIsOverlay);
    EXPECT_EQ(t.model.copyBuffer.CopySubsection, t.buffers().current[kOsc1Type] + 33);
    for (int i = 1; i <= kCopyLimit; ++i)
        EXPECT_EQ(t.model.copyBuffer.CopyValues[static_cast<std::size_t>(i)],
                  t.buffers().current[static_cast<std::size_t>(frame.SubFirst + i - 1)]);

    const ParamValues before = t.buffers().current;
    t.host.expectMessage(kPasteTitle, Answer::Ok, std::string(kDifferentSizes));
    pasteSpecial(t.model);
    EXPECT_TRUE(t.host.allShown());
    EXPECT_EQ(t.buffers().current, before);
}

TEST(CopySpecial, Eg1PastedToEg3CopiesEveryValueOfTheSubsectionSinceTheCountsAreEqual)
{
    Editor t;
    t.scramble(3);
    t.show(kEg1);
    const FrameState eg1 = t.frame();
    copySpecial(t.model);
    t.show(kEg3);
    const FrameState eg3 = t.frame();
    ASSERT_EQ(eg1.SubLast - eg1.SubFirst, eg3.SubLast - eg3.SubFirst);
    ASSERT_GT(eg3.SubLast - eg3.SubFirst + 1, 9);
    pasteSpecial(t.model);
    for (int i = 0; i <= eg3.SubLast - eg3.SubFirst; ++i)
        EXPECT_EQ(t.buffers().current[static_cast<std::size_t>(eg3.SubFirst + i)],
                  t.buffers().current[static_cast<std::size_t>(eg1.SubFirst + i)])
            << i;
}

TEST(CopySpecial, Fx1SettingsOfTypeThreePasteIntoFx2OfTypeThreeAndNotOfTypeFour)
{
    Editor t;
    t.scramble(4);
    t.buffers().current[kFx1Type] = 3;
    t.buffers().current[kFx2Type] = 3;
    t.show(kFx1Setting);
    const FrameState fx1 = t.frame();
    copySpecial(t.model);
    EXPECT_EQ(t.model.copyBuffer.CopySubsection, 3 + 46);
    t.show(kFx2Setting);
    const FrameState fx2 = t.frame();
    pasteSpecial(t.model);
    for (int i = 0; i <= fx2.SubLast - fx2.SubFirst; ++i)
        EXPECT_EQ(t.buffers().current[static_cast<std::size_t>(fx2.SubFirst + i)],
                  t.buffers().current[static_cast<std::size_t>(fx1.SubFirst + i)])
            << i;

    t.buffers().current[kFx2Type] = 4;
    t.show(kFx2Setting);
    const ParamValues before = t.buffers().current;
    t.host.expectMessage(kPasteTitle, Answer::Ok,
                         std::string(kCopiedTypeIs) + sectionName(kPatch, 3 + 46));
    pasteSpecial(t.model);
    EXPECT_TRUE(t.host.allShown());
    EXPECT_EQ(t.buffers().current, before);
}

TEST(CopySpecial, NothingCopiedAndTheOtherScreensCopiesAreRefused)
{
    Editor t;
    t.show(kEg1);
    t.host.expectMessage(kPasteTitle, Answer::Ok, std::string(kNothingCopied));
    pasteSpecial(t.model);
    copySpecial(t.model);
    setUpScreen(t.model, kMultiset);
    fraMultiHeaders(t.model, 1, 0, 11);
    t.host.expectMessage(kPasteTitle, Answer::Ok, std::string(kCopiedFromPatch));
    pasteSpecial(t.model);
    copySpecial(t.model);
    EXPECT_EQ(t.model.copyBuffer.CopySubsection, 111);
    setUpScreen(t.model, kPatch);
    t.host.expectMessage(kPasteTitle, Answer::Ok, std::string(kCopiedFromMultiset));
    pasteSpecial(t.model);
    EXPECT_TRUE(t.host.allShown());
}

TEST(CopySpecial, NegativeEnvelopeLevelsIntoTheAmpEgAskAndBecomeZero)
{
    Editor t;
    t.show(kEg1);
    const int first = t.frame().SubFirst;
    t.buffers().current[static_cast<std::size_t>(first)] = -40;
    copySpecial(t.model);
    t.show(kAmpEg);
    const ParamValues before = t.buffers().current;
    t.host.expectMessage(kPasteTitle, Answer::No, std::string(kNegativeEgQuestion));
    pasteSpecial(t.model);
    EXPECT_EQ(t.buffers().current, before);
    t.host.expectMessage(kPasteTitle, Answer::Yes, std::string(kNegativeEgQuestion));
    pasteSpecial(t.model);
    EXPECT_TRUE(t.host.allShown());
    EXPECT_EQ(t.buffers().current[static_cast<std::size_t>(t.frame().SubFirst)], 0);
}

// Pastes the subsection `source` into `target` and checks what the
// compatibility table says: an allowed pair of equal size changes the
// target's rows only (and Last with them), an allowed pair of other sizes
// and a forbidden pair change nothing and say why.
void checkPair(Editor& t, int source, int target, int& pasted)
{
    const int kind = t.mode();
    t.show(source);
    copySpecial(t.model);
    t.show(target);
    const FrameState to = t.frame();
    if (to.Subsection == 0 || to.SubLast < to.SubFirst)
        return;
    const CopyBuffer& copied = t.model.copyBuffer;
    const int c = kind == kMultiset ? copied.CopySubsection - kMultiCopyOffset : copied.CopySubsection;
    const bool targetOverlay = !overlayCaption(kind, target).empty();
    const ParamValues& values = t.buffers().current;
    const int tPrime = !targetOverlay         ? 0
                       : kind == kMultiset ? multiSectionOfSubsection(target, values)
                                           : sectionOfSubsection(target, values);
    const PasteCompatibility rule = kind == kMultiset ? multiPasteCompatibility(c, copied.CopyIsOverlay, target, tPrime)
                                                      : patchPasteCompatibility(c, copied.CopyIsOverlay, target, tPrime);
    const int n = to.SubLast - to.SubFirst + 1;
    const ParamValues before = t.buffers().current;
    const ParamValues lastBefore = t.buffers().last;
    if (!rule.yes) {
        t.host.expectMessage(kPasteTitle, Answer::Ok, std::string(kCopiedTypeIs) + rule.label);
    } else {
        if (kind == kPatch && c >= 2 && c <= 5 && target == kAmpEg) {
            bool negative = false;
            for (int i = 1; i <= std::min(9, n); ++i)
                negative = negative || copied.CopyValues[static_cast<std::size_t>(i)] < 0;
            if (negative)
                t.host.expectMessage(kPasteTitle, Answer::Yes, std::string(kNegativeEgQuestion));
        }
        if (n != copied.CopyCount)
            t.host.expectMessage(kPasteTitle, Answer::Ok, std::string(kDifferentSizes));
    }
    pasteSpecial(t.model);
    ASSERT_TRUE(t.host.allShown()) << source << " into " << target;
    const ParamValues& after = t.buffers().current;
    const bool written = rule.yes && n == copied.CopyCount;
    for (int p = 1; p < static_cast<int>(after.size()); ++p) {
        const std::size_t i = static_cast<std::size_t>(p);
        const bool inside = p >= to.SubFirst && p <= to.SubLast;
        if (!written || !inside || isHard(kind, p)) {
            ASSERT_EQ(after[i], before[i]) << source << " into " << target << " changed " << p;
            ASSERT_EQ(t.buffers().last[i], lastBefore[i]) << source << " into " << target << " Last of " << p;
            continue;
        }
        ASSERT_EQ(t.buffers().last[i], before[i]) << p;
        const int k = p - to.SubFirst + 1;
        int w = copied.CopyValues[static_cast<std::size_t>(k)];
        if (kind == kPatch && c >= 2 && c <= 5 && target == kAmpEg && k <= 9)
            w = std::max(w, 0);
        if (kind == kPatch && c == kAmpEg && target >= 2 && target <= 5 && (k == 1 || k == 9))
            w = 0;
        ASSERT_EQ(after[i], w) << source << " into " << target << " value of " << p;
    }
    pasted += written;
}

TEST(CopySpecial, EveryPairOfPatchSubsectionsPastesOnlyIntoTheTargetOrIsRefusedWithNothingChanged)
{
    Editor t;
    t.buffers().current[kOsc1Type] = 2;
    t.buffers().current[188] = 2;   // OSC2 of the same type
    t.buffers().current[kFx1Type] = 5;
    t.buffers().current[kFx2Type] = 5;
    int pasted = 0;
    for (int source = 1; source <= 50; ++source) {
        for (int target = 1; target <= 50; ++target) {
            t.scramble(static_cast<unsigned>(source * 64 + target));
            t.buffers().current[kOsc1Type] = 2;
            t.buffers().current[188] = 2;
            t.buffers().current[kFx1Type] = 5;
            t.buffers().current[kFx2Type] = 5;
            checkPair(t, source, target, pasted);
            if (testing::Test::HasFatalFailure())
                return;
        }
    }
    EXPECT_GT(pasted, 50);
}

TEST(CopySpecial, EveryPairOfMultisetSubsectionsPastesOnlyIntoTheTargetOrIsRefusedWithNothingChanged)
{
    Editor t(kMultiset);
    int pasted = 0;
    for (int source = 1; source <= 22; ++source) {
        for (int target = 1; target <= 22; ++target) {
            t.scramble(static_cast<unsigned>(source * 64 + target));
            t.buffers().current[179] = 2;  // FX1 and FX2 of one type
            t.buffers().current[180] = 2;
            checkPair(t, source, target, pasted);
            if (testing::Test::HasFatalFailure())
                return;
        }
    }
    EXPECT_GT(pasted, 22);
}

TEST(CopySpecial, CompatibilityTableNamesWhatWasCopied)
{
    EXPECT_TRUE(patchPasteCompatibility(2, false, 34, 0).yes);
    EXPECT_TRUE(patchPasteCompatibility(34, false, 5, 0).yes);
    EXPECT_EQ(patchPasteCompatibility(20, false, 26, 0).label, "Mixer Output");
    EXPECT_FALSE(patchPasteCompatibility(20, false, 26, 0).yes);
    EXPECT_EQ(patchPasteCompatibility(19, false, 19, 0).label, "");
    EXPECT_FALSE(patchPasteCompatibility(19, false, 19, 0).yes);
    EXPECT_TRUE(patchPasteCompatibility(35, true, 16, 66).yes);   // OSC1 type 2 into OSC2 type 2
    EXPECT_FALSE(patchPasteCompatibility(35, true, 16, 67).yes);
    EXPECT_FALSE(patchPasteCompatibility(6, false, 13, 35).yes);
    EXPECT_EQ(patchPasteCompatibility(6, false, 13, 35).label, "LFO1");
    EXPECT_TRUE(multiPasteCompatibility(11, false, 21, 0).yes);
    EXPECT_EQ(multiPasteCompatibility(12, false, 11, 0).label, "MIDI");
    EXPECT_FALSE(multiPasteCompatibility(12, false, 11, 0).yes);
    EXPECT_TRUE(multiPasteCompatibility(14, true, 5, 32).yes);
}

}  // namespace
}  // namespace quillon

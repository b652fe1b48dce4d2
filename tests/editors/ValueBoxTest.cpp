#include "editors/ValueBox.h"

#include "editors/Frames.h"
#include "editors/ParamRowEdit.h"
#include "editors/ScreenLayout.h"

#include "model/Kind.h"
#include "model/ParamTables.h"
#include "model/SubsectionBounds.h"
#include "model/ValueDecoder.h"
#include "shell/AppObserver.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace quillon {
namespace {

// Parameters of the patch used below, with their ranges.
constexpr int kCenterKey = 179;       // 0 to 127, decoded as a key name
constexpr int kRetriggerLevel = 23;   // 1 to 127
constexpr int kReservedPatch = 321;   // "reserved", 0 to 255: Hard
constexpr int kOsc1Type = 174;        // 0 to 12
constexpr int kAttackTime = 32;       // EG1, 0 to 99
constexpr int kFx1TypeMulti = 179;    // the multiset's FX1 type, 0 to 14
constexpr int kReservedMulti = 42;    // "reserved", -99 to 99: Hard
constexpr int kPatternLength = 30;    // 1 to 36, pattern row 7
constexpr int kStepPitchOffset = 43;  // -48 to 48, pattern row 10 (no decode label)

// Subsections of the patch screen.
constexpr int kEg1 = 2;
constexpr int kOsc1TypeSubsection = 11;
constexpr int kOsc1Setting = 13;
constexpr int kFx1Setting = 38;

ParamValues& current(TestModel& t, int kind) { return t.model.buffers.of(kind).current; }

// The row of a frame that shows param, or -1.
int rowOf(const AppModel& model, int frame, int param)
{
    for (int r = (frame - 1) * kFrameRows; r < frame * kFrameRows; ++r)
        if (model.layout.rows[static_cast<std::size_t>(r)].visible &&
            model.layout.RowParam[static_cast<std::size_t>(r)] == param)
            return r;
    return -1;
}

// Types one character after the other, as a user at the keyboard does.
std::vector<BoxChange> typeInto(TestModel& t, ValueBox& box, const std::string& typed)
{
    std::vector<BoxChange> changes;
    box.text.clear();
    for (char c : typed)
        changes.push_back(changeValueBox(t.model, box, box.text + c));
    return changes;
}

TEST(ValueBox, TypingTwelveIntoABoxOf0To127StoresOneThenTwelve)
{
    TestModel t;
    ValueBox box = fillValueBox(t.model, kPatch, 2, kCenterKey);
    ASSERT_EQ(box.min, 0);
    ASSERT_EQ(box.max, 127);
    box.text = "60";

    BoxChange first = changeValueBox(t.model, box, "1");
    EXPECT_TRUE(first.stored);
    EXPECT_EQ(first.storedValue, 1);
    EXPECT_EQ(current(t, kPatch)[kCenterKey], 1);

    BoxChange second = changeValueBox(t.model, box, "12");
    EXPECT_TRUE(second.stored);
    EXPECT_EQ(current(t, kPatch)[kCenterKey], 12);
    EXPECT_EQ(box.text, "12");
    EXPECT_EQ(box.decode, decodeValue(paramTables().patch[kCenterKey].table, 12));
}

TEST(ValueBox, TypingTwoHundredStoresTwoTwentyThenTheMaximumOnTheRepeatPass)
{
    TestModel t;
    ValueBox box = fillValueBox(t.model, kPatch, 2, kCenterKey);
    std::vector<BoxChange> changes = typeInto(t, box, "200");

    ASSERT_EQ(changes.size(), 3u);
    EXPECT_EQ(changes[0].storedValue, 2);
    EXPECT_EQ(changes[1].storedValue, 20);
    // "200" is corrected to "127" and stores nothing itself; the correction
    // runs the procedure again, and that pass stores.
    EXPECT_EQ(changes[2].passes, 2);
    EXPECT_TRUE(changes[2].stored);
    EXPECT_EQ(changes[2].storedOnPass, 2);
    EXPECT_EQ(changes[2].storedValue, 127);
    EXPECT_EQ(box.text, "127");
    EXPECT_EQ(current(t, kPatch)[kCenterKey], 127);
}

TEST(ValueBox, ClearingABoxWhoseMinimumIsOneShowsOneAtOnce)
{
    TestModel t;
    current(t, kPatch)[kRetriggerLevel] = 64;
    ValueBox box = fillValueBox(t.model, kPatch, 0, kRetriggerLevel);
    ASSERT_EQ(box.min, 1);

    BoxChange change = changeValueBox(t.model, box, "");
    EXPECT_EQ(box.text, "1");
    EXPECT_EQ(change.storedValue, 1);
    EXPECT_EQ(current(t, kPatch)[kRetriggerLevel], 1);
    // Retyping "7" after the "1" gives 17, not 7.
    changeValueBox(t.model, box, box.text + "7");
    EXPECT_EQ(current(t, kPatch)[kRetriggerLevel], 17);
}

// Sets its boxes from the rows each time a frame is filled, as the screen
// does: every box whose text differs runs the change procedure.
class BoxesOnScreen : public AppObserver {
public:
    explicit BoxesOnScreen(AppModel& model) : model_(model)
    {
        for (int r = 0; r < kScreenRows; ++r)
            boxes_[r] = paramRowBox(model, r);
    }
    void modelChanged(unsigned changes) override
    {
        for (int frame = 1; frame <= 2; ++frame) {
            if ((changes & frameChangedBit(frame)) == 0)
                continue;
            for (int r = (frame - 1) * kFrameRows; r < frame * kFrameRows; ++r) {
                ValueBox& box = boxes_[r];
                const RowView& row = model_.layout.rows[static_cast<std::size_t>(r)];
                if (!row.visible)
                    continue;
                box.param = model_.layout.RowParam[static_cast<std::size_t>(r)];
                box.min = row.spinMin;
                box.max = row.spinMax;
                changes_.push_back(changeValueBox(model_, box, row.valueText));
            }
        }
    }
    const std::vector<BoxChange>& changes() const { return changes_; }

private:
    AppModel& model_;
    std::array<ValueBox, kScreenRows> boxes_;
    std::vector<BoxChange> changes_;
};

TEST(ValueBox, HardRowShowsItsValueWithoutComplaintWhenTheFrameIsFilled)
{
    TestModel t;
    ASSERT_NE(paramTables().patchHard[kReservedPatch], 0);
    // Current no longer equals Loaded, which the refusal compares against.
    current(t, kPatch)[kReservedPatch] = 77;
    BoxesOnScreen screen(t.model);
    t.model.addObserver(&screen);
    refreshParamRows(t.model, 1, kReservedPatch - 4, kReservedPatch + 4);
    t.model.removeObserver(&screen);

    EXPECT_EQ(t.model.layout.rows[4].valueText, "77");
    EXPECT_FALSE(screen.changes().empty());
    // The box's change procedure ran and found nothing to refuse.
    EXPECT_TRUE(t.host.messages.empty());
    ValueBox box = paramRowBox(t.model, 4);
    EXPECT_EQ(box.param, kReservedPatch);
    EXPECT_EQ(box.text, "77");

    // Once filled, the row refuses a change.
    t.host.expectMessage("Quillon", Answer::Ok, "Sorry - this parameter cannot be changed");
    BoxChange typed = changeParamRow(t.model, 4, "5");
    EXPECT_TRUE(typed.refused);
    EXPECT_EQ(t.model.layout.rows[4].valueText, "0");
    EXPECT_EQ(current(t, kPatch)[kReservedPatch], 77);
}

TEST(ValueBox, HardParameterIsRefusedAndTheBoxGoesBackToLoaded)
{
    TestModel t;
    t.model.buffers.of(kPatch).loaded[kReservedPatch] = 5;
    current(t, kPatch)[kReservedPatch] = 9;
    ValueBox box = fillValueBox(t.model, kPatch, 4, kReservedPatch);
    t.host.expectMessage("Quillon", Answer::Ok, "Sorry - this parameter cannot be changed");

    BoxChange change = changeValueBox(t.model, box, "90");
    EXPECT_TRUE(change.refused);
    EXPECT_FALSE(change.stored);
    EXPECT_EQ(box.text, "5");
    EXPECT_EQ(current(t, kPatch)[kReservedPatch], 9);
    ASSERT_EQ(t.host.messages.size(), 1u);
    EXPECT_EQ(t.host.messages[0].icon, MessageIcon::Information);
}

TEST(ValueBox, HardParameterTypedAsItsLoadedValueIsLeftAlone)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.model.buffers.of(kMultiset).loaded[kReservedMulti] = -3;
    ValueBox box = fillValueBox(t.model, kMultiset, 1, kReservedMulti);
    BoxChange change = changeValueBox(t.model, box, "-3");
    EXPECT_EQ(change.passes, 1);
    EXPECT_FALSE(change.refused);
    EXPECT_FALSE(change.stored);
    EXPECT_TRUE(t.host.messages.empty());
}

TEST(ValueBox, Osc1TypeChangeInFrame1RedrawsOsc1SettingInFrame2)
{
    TestModel t;
    current(t, kPatch)[kOsc1Type] = 0;
    fraPatchHeaders(t.model, 2, 0, kOsc1Setting);
    fraPatchHeaders(t.model, 1, 0, kOsc1TypeSubsection);
    const FrameState& right = t.model.layout.patchFrames[2];
    const int firstOfType0 = right.SubFirst;
    ASSERT_EQ(t.model.layout.RowParam[15], firstOfType0);
    const int row = rowOf(t.model, 1, kOsc1Type);
    ASSERT_GE(row, 0);

    BoxChange change = changeParamRow(t.model, row, "2");
    ASSERT_TRUE(change.stored);
    EXPECT_EQ(change.followUp.frame, 1);
    EXPECT_EQ(change.followUp.overlaySubsection, kOsc1Setting);
    // Frame 2 now shows the block of type 2 in its rows.
    EXPECT_EQ(right.Subsection, kOsc1Setting);
    EXPECT_EQ(right.SubFirst, firstParamOfSubsection(kOsc1Setting, current(t, kPatch)));
    EXPECT_NE(right.SubFirst, firstOfType0);
    EXPECT_EQ(t.model.layout.RowParam[15], right.SubFirst);
    EXPECT_EQ(t.model.layout.rows[static_cast<std::size_t>(row)].valueText, "2");
}

TEST(ValueBox, TypeChangeLeavesAnOtherFrameOfAnotherSubsectionAlone)
{
    TestModel t;
    fraPatchHeaders(t.model, 2, 0, kFx1Setting);
    fraPatchHeaders(t.model, 1, 0, kOsc1TypeSubsection);
    const int fx1First = t.model.layout.patchFrames[2].SubFirst;
    const int row = rowOf(t.model, 1, kOsc1Type);
    ASSERT_GE(row, 0);
    RecordingObserver observer;
    t.model.addObserver(&observer);
    changeParamRow(t.model, row, "3");
    t.model.removeObserver(&observer);
    EXPECT_EQ(observer.calls, 1);
    EXPECT_EQ(observer.all & kFrame2Changed, 0u);
    EXPECT_EQ(t.model.layout.patchFrames[2].SubFirst, fx1First);
}

TEST(ValueBox, TypeParametersOfBothScreensNameTheirSettingSubsection)
{
    TestModel t;
    const std::pair<int, int> patch[] = {{174, 13}, {188, 16}, {359, 38}, {360, 40}, {361, 42}};
    for (auto [param, subsection] : patch) {
        ValueBox box = fillValueBox(t.model, kPatch, 20, param);
        StoreFollowUp followUp = storePatchValue(t.model, box);
        EXPECT_EQ(followUp.overlaySubsection, subsection) << param;
        EXPECT_EQ(followUp.frame, 2);
    }
    t.model.mode = kMultiset;
    const std::pair<int, int> multi[] = {{179, 3}, {180, 5}, {181, 7}};
    for (auto [param, subsection] : multi) {
        ValueBox box = fillValueBox(t.model, kMultiset, 0, param);
        EXPECT_EQ(storeMultiValue(t.model, box).overlaySubsection, subsection) << param;
    }
    ValueBox other = fillValueBox(t.model, kMultiset, 0, 20);
    EXPECT_EQ(storeMultiValue(t.model, other).overlaySubsection, 0);
}

TEST(ValueBox, MultisetRowStoresIntoTheMultisetInMode4)
{
    TestModel t;
    t.model.mode = kMultiset;
    ValueBox box = fillValueBox(t.model, kMultiset, 16, kFx1TypeMulti);
    BoxChange change = changeValueBox(t.model, box, "7");
    EXPECT_TRUE(change.stored);
    EXPECT_EQ(current(t, kMultiset)[kFx1TypeMulti], 7);
    EXPECT_EQ(change.followUp.overlaySubsection, 3);
    EXPECT_FALSE(change.followUp.envelopeRedrawn);
}

TEST(ValueBox, EnvelopeRowRedrawsTheGraphOfItsFrame)
{
    TestModel t;
    std::vector<std::pair<int, int>> rules;
    t.model.layout.envelopeRule = [&rules](AppModel&, int frame, int subsection) {
        rules.emplace_back(frame, subsection);
    };
    fraPatchHeaders(t.model, 1, 0, kEg1);
    rules.clear();
    const int row = rowOf(t.model, 1, kAttackTime);
    ASSERT_GE(row, 0);
    BoxChange change = changeParamRow(t.model, row, "45");
    ASSERT_TRUE(change.stored);
    EXPECT_TRUE(change.followUp.envelopeRedrawn);
    ASSERT_EQ(rules.size(), 1u);
    EXPECT_EQ(rules[0], std::make_pair(1, kEg1));

    // A row of a frame that shows no envelope leaves the graph alone.
    fraPatchHeaders(t.model, 1, 0, kOsc1TypeSubsection);
    rules.clear();
    changeParamRow(t.model, rowOf(t.model, 1, kOsc1Type), "1");
    EXPECT_TRUE(rules.empty());
}

TEST(ValueBox, NothingHappensOffItsScreen)
{
    TestModel t;
    t.model.mode = 2;
    ValueBox box = fillValueBox(t.model, kPatch, 2, kCenterKey);
    const int before = current(t, kPatch)[kCenterKey];
    BoxChange change = changeValueBox(t.model, box, "500");
    EXPECT_EQ(change.passes, 1);
    EXPECT_FALSE(change.stored);
    EXPECT_EQ(box.text, "500");
    EXPECT_EQ(current(t, kPatch)[kCenterKey], before);
}

TEST(ValueBox, StoreTellsTheObserversAndLeavesTheFlagsAndLast)
{
    TestModel t;
    RecordingObserver observer;
    t.model.addObserver(&observer);
    ValueBox box = fillValueBox(t.model, kPatch, 2, kCenterKey);
    changeValueBox(t.model, box, "200");
    EXPECT_EQ(observer.calls, 1);
    EXPECT_EQ(observer.all & kBuffersChanged, kBuffersChanged);
    EXPECT_FALSE(t.model.flags.changed[kPatch]);
    EXPECT_NE(t.model.buffers.of(kPatch).last[kCenterKey], 127);
    t.model.removeObserver(&observer);
}

TEST(ValueBox, TextThatIsNoNumberCountsAsZeroThenIsLimited)
{
    EXPECT_EQ(boxNumber(""), 0);
    EXPECT_EQ(boxNumber("-"), 0);
    EXPECT_EQ(boxNumber("abc"), 0);
    EXPECT_EQ(boxNumber("  42x"), 42);
    EXPECT_EQ(boxNumber("-17"), -17);
    EXPECT_EQ(boxNumber("2.5"), 3);
    EXPECT_EQ(boxNumber("-2.5"), -3);
    EXPECT_EQ(boxNumber("12.4"), 12);
    EXPECT_EQ(boxNumber("99999999"), 32767);

    TestModel t;
    ValueBox box = fillValueBox(t.model, kPatch, 0, kRetriggerLevel);
    changeValueBox(t.model, box, "xyz");
    EXPECT_EQ(box.text, "1");
    EXPECT_EQ(current(t, kPatch)[kRetriggerLevel], 1);
}

TEST(ValueBox, PatternRowsHaveNoHardTestAndRowsTenAndElevenNoDecode)
{
    TestModel t;
    t.model.mode = kPattern;
    ValueBox reserved = fillValueBox(t.model, kPattern, 3, 17);  // a "reserved" byte
    BoxChange change = changeValueBox(t.model, reserved, "-200");
    EXPECT_TRUE(change.stored);
    EXPECT_EQ(current(t, kPattern)[17], -200);

    ValueBox pitch = fillValueBox(t.model, kPattern, 10, kStepPitchOffset);
    EXPECT_FALSE(pitch.hasDecode());
    EXPECT_EQ(pitch.decode, "");
    changeValueBox(t.model, pitch, "60");
    EXPECT_EQ(pitch.text, "48");
    EXPECT_EQ(current(t, kPattern)[kStepPitchOffset], 48);
    EXPECT_EQ(pitch.decode, "");
}

TEST(ValueBox, PatternLengthRowTellsTheGridItsStepsBeforeAndAfter)
{
    TestModel t;
    t.model.mode = kPattern;
    current(t, kPattern)[kPatternLength] = 16;
    ValueBox box = fillValueBox(t.model, kPattern, 7, kPatternLength);
    BoxChange change = changeValueBox(t.model, box, "8");
    ASSERT_TRUE(change.stored);
    EXPECT_TRUE(change.followUp.changesPatternLength());
    EXPECT_EQ(change.followUp.lengthBefore, 16);
    EXPECT_EQ(change.followUp.lengthAfter, 8);
    EXPECT_EQ(box.decode, decodeValue(paramTables().arp[kPatternLength].table, 8));
}

TEST(ValueBox, PatternRowsWaitForThePatternScreen)
{
    TestModel t;
    ValueBox box = fillValueBox(t.model, kPattern, 7, kPatternLength);
    changeValueBox(t.model, box, "5");
    EXPECT_EQ(current(t, kPattern)[kPatternLength], 36);
}

}  // namespace
}  // namespace quillon

#include "editors/SubsectionActions.h"

#include "editors/Frames.h"
#include "editors/ItemStatus.h"
#include "editors/Navigation.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillon {
namespace {

constexpr int kPatchCommon = 1;
constexpr int kLfo1 = 6;
constexpr int kOsc1Setting = 13;
constexpr int kAmp1 = 32;  // "Amplitude: Amp 1", with a reserved row
constexpr int kOsc1Type = 174;
constexpr int kBrassModelType = 9;
constexpr int kRetriggerThreshold = 23;  // minimum 1
constexpr int kReservedInAmp1 = 321;

const ParamDef& row(int param) { return paramTables().patch[static_cast<std::size_t>(param)]; }

struct PatchEditor : TestModel {
    PatchEditor()
    {
        applyStartUpView(model);
        model.flags.loaded[kPatch] = true;
        setUpScreen(model, kPatch);
    }
    ItemBuffers& patch() { return model.buffers.of(kPatch); }
    FrameState& frame(int f) { return model.layout.patchFrames[static_cast<std::size_t>(f)]; }
    void show(int subsection) { fraPatchHeaders(model, 1, 0, subsection); }
};

TEST(SubsectionActions, ItemsCarryTheirNumbersCaptionsAndTitles)
{
    ASSERT_EQ(subsectionItems().size(), 7u);
    EXPECT_EQ(subsectionItems()[3].name, "mnuSubSZero");
    EXPECT_EQ(subsectionItems()[3].number, 4);
    EXPECT_EQ(subsectionTitle(1), "Subsection: Restore Loaded Settings");
    EXPECT_EQ(subsectionTitle(7), "Subsection: Save User Settings");
    EXPECT_TRUE(subsectionTitle(8).empty());
}

TEST(SubsectionActions, ZeroOnAParameterWithMinimumOneGivesOne)
{
    PatchEditor t;
    ASSERT_EQ(row(kRetriggerThreshold).min, 1);
    t.show(kPatchCommon);
    t.patch().current[kRetriggerThreshold] = 90;
    t.patch().current[kRetriggerThreshold + 1] = 5;
    subsectionCommand(t.model, kSubSZero);
    EXPECT_EQ(t.patch().current[kRetriggerThreshold], 1);
    EXPECT_EQ(t.patch().current[kRetriggerThreshold + 1], std::max<int>(0, row(kRetriggerThreshold + 1).min));
}

TEST(SubsectionActions, ZeroLeavesHardParametersAndDefaultDoesNot)
{
    PatchEditor t;
    ASSERT_EQ(row(kReservedInAmp1).name, "reserved");
    t.show(kAmp1);
    ASSERT_LE(t.frame(1).SubFirst, kReservedInAmp1);
    ASSERT_GE(t.frame(1).SubLast, kReservedInAmp1);
    t.patch().current[kReservedInAmp1] = 77;
    subsectionCommand(t.model, kSubSZero);
    EXPECT_EQ(t.patch().current[kReservedInAmp1], 77);
    subsectionCommand(t.model, kSubSDefault);
    EXPECT_EQ(t.patch().current[kReservedInAmp1], t.patch().defaults[kReservedInAmp1]);
    EXPECT_NE(t.patch().defaults[kReservedInAmp1], 77);
}

TEST(SubsectionActions, RestorePreviousAfterRandomGivesTheOldValuesAndAgainTheRandomOnes)
{
    PatchEditor t;
    t.model.settings.random.resetAll = 100;
    t.show(kLfo1);
    const int first = t.frame(1).SubFirst;
    const int last = t.frame(1).SubLast;
    const ParamValues before = t.patch().current;
    subsectionCommand(t.model, kSubSRandom);
    const ParamValues randomised = t.patch().current;
    ASSERT_NE(randomised, before);
    for (int p = 1; p <= kPatchParams; ++p) {
        if (p < first || p > last)
            EXPECT_EQ(randomised[static_cast<std::size_t>(p)], before[static_cast<std::size_t>(p)]) << p;
    }
    subsectionCommand(t.model, kSubSPrevious);
    EXPECT_EQ(t.patch().current, before);
    subsectionCommand(t.model, kSubSPrevious);
    EXPECT_EQ(t.patch().current, randomised);
}

TEST(SubsectionActions, RestoreLoadedOnOsc1SettingAfterTheTypeChangedSetsTheTypeBackAndShowsItsRows)
{
    PatchEditor t;
    const int loadedType = t.patch().loaded[kOsc1Type];
    ASSERT_NE(loadedType, kBrassModelType);
    t.patch().current[kOsc1Type] = kBrassModelType;
    t.show(kOsc1Setting);
    ASSERT_EQ(t.model.layout.frames[1].label, "Brass Model");
    subsectionCommand(t.model, kSubSLoaded);
    EXPECT_EQ(t.patch().current[kOsc1Type], loadedType);
    const SectionDef& loadedSection = paramTables().patchSections[static_cast<std::size_t>(loadedType + 33)];
    EXPECT_EQ(t.model.layout.frames[1].label, loadedSection.name);
    EXPECT_EQ(t.frame(1).SubFirst, loadedSection.firstParam);
    EXPECT_EQ(t.model.layout.RowParam[0], loadedSection.firstParam);
    // Last keeps the type as it stood, so that Restore Previous brings it back.
    EXPECT_EQ(t.patch().last[kOsc1Type], kBrassModelType);
    subsectionCommand(t.model, kSubSPrevious);
    EXPECT_EQ(t.patch().current[kOsc1Type], kBrassModelType);
    EXPECT_EQ(t.model.layout.frames[1].label, "Brass Model");
}

TEST(SubsectionActions, RandomWithResetZeroLeavesEachValueAtMostOneStepAway)
{
    PatchEditor t;
    t.model.settings.random.resetAll = 0;
    t.show(kLfo1);
    ParamValues& current = t.patch().current;
    for (int p = t.frame(1).SubFirst; p <= t.frame(1).SubLast; ++p)
        current[static_cast<std::size_t>(p)] = static_cast<std::int16_t>((row(p).min + row(p).max) / 2);
    const ParamValues before = current;
    subsectionCommand(t.model, kSubSRandom);
    for (int p = t.frame(1).SubFirst; p <= t.frame(1).SubLast; ++p) {
        if (paramTables().patchFirm[static_cast<std::size_t>(p)] == 0)
            EXPECT_LE(std::abs(current[static_cast<std::size_t>(p)] - before[static_cast<std::size_t>(p)]), 1) << p;
    }
}

TEST(SubsectionActions, RandomRuleCentresTheRangeAndKeepsItWithinTheLimits)
{
    EXPECT_EQ(randomSubsectionValue(50, 0, 127, 0, 0.0), 50);
    EXPECT_EQ(randomSubsectionValue(50, 0, 127, 0, 0.99), 51);
    EXPECT_EQ(randomSubsectionValue(127, 0, 127, 0, 0.99), 127);
    EXPECT_EQ(randomSubsectionValue(0, 0, 127, 100, 0.0), 0);
    EXPECT_EQ(randomSubsectionValue(0, 0, 127, 100, 0.999), 127);
    // A range of 20 % around 95, shifted down to end at the maximum.
    EXPECT_EQ(randomSubsectionValue(95, 0, 100, 20, 0.0), 80);
    EXPECT_EQ(randomSubsectionValue(95, 0, 100, 20, 0.999), 100);
}

TEST(SubsectionActions, RandomOnTheMultiScreenIsRefused)
{
    PatchEditor t;
    setUpScreen(t.model, kMultiset);
    fraMultiHeaders(t.model, 1, 0, 11);
    const ParamValues before = t.model.buffers.of(kMultiset).current;
    t.host.expectMessage("Subsection: Apply Random Settings", Answer::Ok,
                         std::string("This function is only available in patch editor"));
    subsectionCommand(t.model, kSubSRandom);
    EXPECT_TRUE(t.host.allShown());
    EXPECT_EQ(t.model.buffers.of(kMultiset).current, before);
}

TEST(SubsectionActions, WithNoSubsectionOnShowTheCommandSaysSo)
{
    PatchEditor t;
    t.host.expectMessage("Subsection: Apply Zero Settings", Answer::Ok, std::string("No current subsection"));
    subsectionCommand(t.model, kSubSZero);
    EXPECT_TRUE(t.host.allShown());
}

TEST(SubsectionActions, AnEmptyCurrentFrameDoesNothingThoughTheOtherShowsASubsection)
{
    PatchEditor t;
    setFrameMode(t.model, 2);  // frame 1, empty, is current
    fraPatchHeaders(t.model, 2, 0, kLfo1);
    const ParamValues before = t.patch().current;
    subsectionCommand(t.model, kSubSZero);
    EXPECT_EQ(t.patch().current, before);
}

TEST(SubsectionActions, UserAppliesAndSaveSettingStoresTheUserValuesAndTheirFile)
{
    PatchEditor t;
    t.show(kLfo1);
    const int first = t.frame(1).SubFirst;
    t.patch().current[static_cast<std::size_t>(first)] = 3;
    subsectionCommand(t.model, kSubSUserSave);
    EXPECT_EQ(t.patch().user[static_cast<std::size_t>(first)], 3);
    EXPECT_TRUE(std::filesystem::exists(t.folder / "Quillonusr0.dat"));
    t.patch().current[static_cast<std::size_t>(first)] = 4;
    subsectionCommand(t.model, kSubSUserApply);
    EXPECT_EQ(t.patch().current[static_cast<std::size_t>(first)], 3);
}

TEST(SubsectionActions, MultiZeroActsOnTheMultisetFrame)
{
    PatchEditor t;
    setUpScreen(t.model, kMultiset);
    fraMultiHeaders(t.model, 1, 0, 11);
    const FrameState frame = t.model.layout.multiFrames[1];
    ParamValues& multi = t.model.buffers.of(kMultiset).current;
    for (int p = frame.SubFirst; p <= frame.SubLast; ++p)
        multi[static_cast<std::size_t>(p)] = paramTables().multi[static_cast<std::size_t>(p)].max;
    subsectionCommand(t.model, kSubSZero);
    for (int p = frame.SubFirst; p <= frame.SubLast; ++p) {
        const ParamDef& def = paramTables().multi[static_cast<std::size_t>(p)];
        if (def.name != "reserved")
            EXPECT_EQ(multi[static_cast<std::size_t>(p)], std::max<int>(0, def.min)) << p;
    }
}

}  // namespace
}  // namespace quillon

#include "editors/ModList.h"
#include "editors/ModSources.h"

#include "editors/Frames.h"
#include "editors/ItemStatus.h"
#include "editors/Navigation.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "model/ValueDecoder.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

constexpr int kLfo1 = 6;
constexpr int kLfo1FreqMod1Sce = 110;
constexpr int kOsc2Setting = 16;

// A patch whose every value is 7: every source is on, so the rule has
// nothing to clear until a test turns one off.
ParamValues patchOfSevens()
{
    ParamValues values(kPatchParams + 1, 7);
    values[0] = 0;
    return values;
}

const ParamDef& row(int param) { return paramTables().patch[static_cast<std::size_t>(param)]; }

struct PatchEditor : TestModel {
    PatchEditor()
    {
        applyStartUpView(model);
        model.flags.loaded[kPatch] = true;
        setUpScreen(model, kPatch);
    }
    ParamValues& current() { return model.buffers.of(kPatch).current; }
};

TEST(ModSources, SourceTablesAreFourteenFifteenThirtyTwoAndSeventyFour)
{
    EXPECT_TRUE(isModSourceTable(14));
    EXPECT_TRUE(isModSourceTable(15));
    EXPECT_TRUE(isModSourceTable(32));
    EXPECT_TRUE(isModSourceTable(74));
    EXPECT_FALSE(isModSourceTable(0));
    EXPECT_FALSE(isModSourceTable(16));
    EXPECT_EQ(row(kLfo1FreqMod1Sce).name, "Freq Mod1 Sce");
    EXPECT_TRUE(isModSource(kLfo1FreqMod1Sce));
}

TEST(ModSources, NodeTimeSourcesDriveFourIntensitiesAndAFewSourcesNone)
{
    for (int source : {45, 64, 83, 102, 347})
        EXPECT_EQ(intensitiesOfSource(source), 4) << source;
    for (int source : {22, 320, 329, 851, 933, 954, 991, 993, 1243, 1325})
        EXPECT_EQ(intensitiesOfSource(source), 0) << source;
    EXPECT_EQ(intensitiesOfSource(110), 1);
}

TEST(TidyUpPatch, SourceAtZeroLosesAnIntensityOfTwentyAndASourceAtOneKeepsIt)
{
    PatchEditor t;
    t.current() = patchOfSevens();
    t.current()[kLfo1FreqMod1Sce] = 0;
    t.current()[kLfo1FreqMod1Sce + 1] = 20;
    t.current()[115] = 1;  // LFO1 Amplitude Mod Sce
    t.current()[116] = 20;
    t.host.expectMessage(kTidyTitle, Answer::Yes, std::string(kTidyQuestion));
    tidyUpPatch(t.model);
    EXPECT_TRUE(t.host.allShown());
    EXPECT_EQ(t.current()[kLfo1FreqMod1Sce + 1], 0);
    EXPECT_EQ(t.current()[116], 20);
}

TEST(TidyUpPatch, NoLeavesThePatchAsItWas)
{
    PatchEditor t;
    t.current()[kLfo1FreqMod1Sce] = 0;
    t.current()[kLfo1FreqMod1Sce + 1] = 20;
    t.host.expectMessage(kTidyTitle, Answer::No);
    tidyUpPatch(t.model);
    EXPECT_EQ(t.current()[kLfo1FreqMod1Sce + 1], 20);
}

TEST(TidyUpPatch, OnlyOnThePatchScreen)
{
    PatchEditor t;
    setUpScreen(t.model, kMultiset);
    t.current()[kLfo1FreqMod1Sce] = 0;
    t.current()[kLfo1FreqMod1Sce + 1] = 20;
    tidyUpPatch(t.model);  // no question is expected
    EXPECT_EQ(t.current()[kLfo1FreqMod1Sce + 1], 20);
}

TEST(TidyUpPatch, ShowsTheNewValuesInTheCurrentFrame)
{
    PatchEditor t;
    fraPatchHeaders(t.model, 1, 0, kLfo1);
    const int rowOfIntensity = kLfo1FreqMod1Sce + 1 - t.model.layout.patchFrames[1].RowFirst;
    t.current()[kLfo1FreqMod1Sce] = 0;
    t.current()[kLfo1FreqMod1Sce + 1] = 20;
    t.host.expectMessage(kTidyTitle, Answer::Yes);
    tidyUpPatch(t.model);
    EXPECT_EQ(t.model.layout.rows[static_cast<std::size_t>(rowOfIntensity)].valueText, "0");
}

TEST(ZeroIntensity, ModSceAtZeroInTheLastParameterOfABlockClearsTheParameterAfterItAndNoOther)
{
    // OSC1's "Mod2 Sce" and its intensity end the block; the OSC2 type follows.
    constexpr int kMod2Sce = 186;
    ASSERT_TRUE(isModSource(kMod2Sce));
    ASSERT_EQ(row(kMod2Sce + 2).name, "Oscillator Type");
    ParamValues values = patchOfSevens();
    values[kMod2Sce] = 0;
    values[kMod2Sce + 1] = 20;
    values[kMod2Sce + 2] = 3;
    ParamValues expected = values;
    expected[kMod2Sce + 1] = 0;
    zeroIntensity(values);
    EXPECT_EQ(values, expected);
}

TEST(ZeroIntensity, RetriggerControllerAtZeroClearsNothing)
{
    constexpr int kRetriggerController = 22;
    ASSERT_EQ(row(kRetriggerController).name, "Retrigger Controller");
    ParamValues values = patchOfSevens();
    values[kRetriggerController] = 0;
    const ParamValues before = values;
    zeroIntensity(values);
    EXPECT_EQ(values, before);
}

TEST(ZeroIntensity, NodeTimeSourceAtZeroClearsItsFourTimeIntensities)
{
    constexpr int kAmpEgNodeSource = 347;
    ParamValues values = patchOfSevens();
    values[kAmpEgNodeSource] = 0;
    ParamValues expected = values;
    for (int p = kAmpEgNodeSource + 1; p <= kAmpEgNodeSource + 4; ++p)
        expected[static_cast<std::size_t>(p)] = 0;
    zeroIntensity(values);
    EXPECT_EQ(values, expected);
}

TEST(ZeroIntensity, TableThirtyTwoSourcesHaveMinimumOneAndTriggerOnlyWhenCorruptWhileThreeTwentyAndThreeTwentyNineAreExempt)
{
    int tableThirtyTwo = 0;
    for (int p = 1; p <= kPatchParams; ++p) {
        if (row(p).table == 32) {
            ++tableThirtyTwo;
            EXPECT_EQ(row(p).min, 1) << p;
        }
    }
    EXPECT_GT(tableThirtyTwo, 0);

    constexpr int kFilter1CutoffModEg = 268;
    ASSERT_EQ(row(kFilter1CutoffModEg).table, 32);
    ParamValues values = patchOfSevens();
    values[kFilter1CutoffModEg] = 0;  // a corrupt value below the minimum
    values[320] = 0;
    values[329] = 0;
    ParamValues expected = values;
    expected[kFilter1CutoffModEg + 1] = 0;
    zeroIntensity(values);
    EXPECT_EQ(values, expected);
}

TEST(ModList, ExactlyFifteenRowsGiveTheScrollBarAMaximumOfOne)
{
    PatchEditor t;
    t.model.settings.modulationShow = true;
    std::vector<ModRow> all = collectModRows(t.current(), false);
    ASSERT_GT(all.size(), 15u);
    for (const ModRow& r : all)
        t.current()[static_cast<std::size_t>(r.Param)] = 0;
    for (std::size_t i = 0; i < 15; ++i)
        t.current()[static_cast<std::size_t>(all[i].Param)] = 1;

    ModList list;
    buildModList(t.model, list);
    ASSERT_EQ(list.rows.size(), 15u);
    EXPECT_TRUE(list.scrollEnabled);
    EXPECT_EQ(list.scrollMax, 1);
    EXPECT_EQ(list.showHead, kModShowSelected);

    t.current()[static_cast<std::size_t>(all[0].Param)] = 0;
    buildModList(t.model, list);
    showModRows(t.model, list);
    EXPECT_FALSE(list.scrollEnabled);
    EXPECT_TRUE(list.screen[13].visible);
    EXPECT_FALSE(list.screen[14].visible);
}

TEST(ModList, ShowAllListsEverySourceOfTheTypesInForce)
{
    PatchEditor t;
    t.model.settings.modulationShow = false;
    ModList list;
    buildModList(t.model, list);
    EXPECT_EQ(list.showHead, kModShowAll);
    ASSERT_FALSE(list.rows.empty());
    EXPECT_EQ(list.rows.front().Param, 22);
    EXPECT_EQ(list.rows.front().Section, "Patch Common");
    for (const ModRow& r : list.rows)
        EXPECT_TRUE(isModSource(r.Param)) << r.Param;
    const auto osc1 = std::find_if(list.rows.begin(), list.rows.end(),
                                   [](const ModRow& r) { return r.Param >= 464 && r.Param <= 754; });
    ASSERT_NE(osc1, list.rows.end());
    EXPECT_EQ(osc1->Section, "OSC1 Setting ");
    EXPECT_EQ(osc1->Subsection, "Standard OSC");
}

TEST(ModList, AnEditStoresIntoCurrentLimitedToTheRangeWithoutTouchingLast)
{
    PatchEditor t;
    t.model.settings.modulationShow = false;
    ModList list;
    buildModList(t.model, list);
    showModRows(t.model, list);
    const ModRow first = list.rows[0];
    const std::int16_t lastBefore = t.model.buffers.of(kPatch).last[static_cast<std::size_t>(first.Param)];
    changeModValue(t.model, list, 0, "9");
    EXPECT_EQ(t.current()[static_cast<std::size_t>(first.Param)], 9);
    EXPECT_EQ(list.screen[0].decode, decodeValue(first.Table, 9));
    changeModValue(t.model, list, 0, "900");
    EXPECT_EQ(t.current()[static_cast<std::size_t>(first.Param)], first.Max);
    EXPECT_EQ(list.screen[0].valueText, std::to_string(first.Max));
    EXPECT_EQ(t.model.buffers.of(kPatch).last[static_cast<std::size_t>(first.Param)], lastBefore);
}

TEST(ModList, ResetFollowedByDoneShowsTheNewValuesOnTheMainScreen)
{
    PatchEditor t;
    t.model.settings.modulationShow = true;
    t.current()[kLfo1FreqMod1Sce] = 5;
    fraPatchHeaders(t.model, 1, 0, kLfo1);
    const int screenRow = kLfo1FreqMod1Sce - t.model.layout.patchFrames[1].RowFirst;
    ASSERT_EQ(t.model.layout.rows[static_cast<std::size_t>(screenRow)].valueText, "5");

    ModList list;
    buildModList(t.model, list);
    t.host.expectMessage(kResetModTitle, Answer::Yes, std::string(kResetModQuestion));
    resetModSources(t.model, list);
    EXPECT_EQ(t.current()[kLfo1FreqMod1Sce], 0);
    closeModList(t.model);
    EXPECT_EQ(t.model.layout.rows[static_cast<std::size_t>(screenRow)].valueText, "0");
    // With "Show selected modulators" only the sources whose minimum is
    // above 0 stay on the list, at their minimum.
    ASSERT_FALSE(list.rows.empty());
    for (const ModRow& r : list.rows) {
        EXPECT_GT(r.Min, 0) << r.Param;
        EXPECT_EQ(t.current()[static_cast<std::size_t>(r.Param)], r.Min) << r.Param;
    }
}

TEST(ModList, ClickingARowOfAnOsc2SettingGoesToSubsectionSixteenWhateverModeWas)
{
    PatchEditor t;
    t.model.settings.modulationShow = false;
    setUpScreen(t.model, kMultiset);
    ModList list;
    buildModList(t.model, list);
    showModRows(t.model, list);
    int index = -1;
    for (std::size_t i = 0; i < list.rows.size(); ++i) {
        if (list.rows[i].Param >= 1040 && list.rows[i].Param <= 1191) {
            index = static_cast<int>(i);
            break;
        }
    }
    ASSERT_GE(index, 0);
    scrollModList(t.model, list, index);
    const int screenRow = index - list.ModOffset;
    ASSERT_TRUE(goToModSubsection(t.model, list, screenRow));
    EXPECT_EQ(t.model.mode, kPatch);
    EXPECT_EQ(t.model.layout.patchFrames[1].Subsection, kOsc2Setting);
    EXPECT_EQ(t.model.labels.highlightedKind(), kPatch);
}

TEST(ModList, SubsectionOfEachBlockOfSettings)
{
    EXPECT_EQ(subsectionOfPatchParam(17), 1);
    EXPECT_EQ(subsectionOfPatchParam(464), 13);
    EXPECT_EQ(subsectionOfPatchParam(800), 38);
    EXPECT_EQ(subsectionOfPatchParam(1004), 42);
    EXPECT_EQ(subsectionOfPatchParam(1191), 16);
    EXPECT_EQ(subsectionOfPatchParam(760), 40);
    EXPECT_EQ(subsectionOfPatchParam(1343), 40);
}

TEST(ModList, WithoutAPatchTheListDoesNotOpen)
{
    TestModel t;
    t.host.expectMessage(kModSourcesTitle, Answer::Ok, std::string("No patch loaded"));
    EXPECT_FALSE(canOpenModSources(t.model));
    EXPECT_TRUE(t.host.allShown());
}

TEST(ModList, DoubleClicksTakeUserAndLoadedValues)
{
    PatchEditor t;
    t.model.settings.modulationShow = false;
    ModList list;
    buildModList(t.model, list);
    showModRows(t.model, list);
    const int param = list.rows[0].Param;
    t.model.buffers.of(kPatch).user[static_cast<std::size_t>(param)] = 3;
    t.model.buffers.of(kPatch).loaded[static_cast<std::size_t>(param)] = 4;
    doubleClickModName(t.model, list, 0);
    EXPECT_EQ(t.current()[static_cast<std::size_t>(param)], 3);
    doubleClickModDecode(t.model, list, 0);
    EXPECT_EQ(t.current()[static_cast<std::size_t>(param)], 4);
    doubleClickModValue(t.model, list, 0);
    EXPECT_EQ(t.current()[static_cast<std::size_t>(param)], list.rows[0].Max);
}

TEST(ModList, PrintLinesHaveColumnsOfTwenty)
{
    PatchEditor t;
    t.model.settings.modulationShow = false;
    ModList list;
    buildModList(t.model, list);
    const std::vector<std::string> lines = modListPrintLines(t.model, list);
    ASSERT_EQ(lines.size(), list.rows.size() + 2);
    EXPECT_EQ(lines[1].substr(0, 20), "Section             ");
    EXPECT_EQ(lines[1].substr(60), "Modulator");
    EXPECT_EQ(lines[2].substr(40, list.rows[0].ParamName.size()), list.rows[0].ParamName);
}

}  // namespace
}  // namespace quillon

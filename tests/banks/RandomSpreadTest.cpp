#include "banks/RandomSpread.h"

#include "banks/BankFixtures.h"
#include "editors/ModSources.h"
#include "model/Kind.h"
#include "model/LoadReport.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <set>
#include <stdexcept>

namespace quillon {
namespace {

constexpr int kAttackLevel = 33;  // EG1, -99 to 99
constexpr int kDecayTime = 34;    // EG1, 0 to 99
constexpr int kLfo1Freq = 109;    // LFO1, 0 to 199
constexpr int kAmpEGLevel = 335;  // Amp EG
constexpr int kOsc1Type = 174;
constexpr int kSubOscFirst = 202;
constexpr int kSubOscLast = 215;
constexpr int kStandardWaveEdge = 465;    // OSC1 type 0
constexpr int kCombInputLevel = 487;      // OSC1 type 1
constexpr int kEG1NodeTimeSource = 45;    // four time intensities follow
constexpr int kRetriggerController = 22;  // a source followed by no intensity of its own

std::size_t at(int param) { return static_cast<std::size_t>(param); }

const ParamDef& row(int param) { return paramTables().patch[at(param)]; }
bool firm(int param) { return paramTables().patchFirm[at(param)] != 0; }

// The patch in the editor: the factory defaults named "Lead".
ParamValues& loadPatch(AppModel& model)
{
    ParamValues& values = model.buffers.of(kPatch).current;
    values = paramTables().patchDefaults;
    const std::string name = "Lead Synth      ";
    for (int i = 0; i < 16; ++i)
        values[at(i + 1)] = static_cast<std::int16_t>(name[at(i)]);
    patchParamsToImage(values, model.itemImage(kPatch));
    model.flags.loaded[kPatch] = true;
    return values;
}

// The values of patch p of a bank, unpacked.
ParamValues bankPatchValues(const AppModel& model, int bank, int p)
{
    ParamValues values(at(kPatchParams + 1), 0);
    LoadReport report;
    imageToParams(kPatch, model.banks.readBankPatch(bank, p), values, report);
    return values;
}

GenerationRun spreadOf(const GenerationSettings& settings)
{
    GenerationRun run;
    run.how = Generation::Spread;
    run.settings = settings;
    return run;
}

GenerationSettings everyGroupAt(int percent)
{
    GenerationSettings s;
    s.eg.fill(true);
    s.lfo.fill(true);
    s.osc.fill(true);
    s.fx.fill(true);
    s.filter.fill(true);
    s.modInt = s.ampEG = s.css = true;
    s.varEG = s.varLFO = s.varOSC = s.varSONO = s.varFX = s.varFilter = s.varModInt = s.varAmpEG = s.varCSS =
        percent;
    return s;
}

// --- the refusals ---------------------------------------------------------

TEST(RandomSpreadCommand, WithEveryFlagOffTheMessageComesUpAndNoDialogOpens)
{
    TestModel t;
    loadPatch(t.model);
    t.model.settings.random = GenerationSettings{};
    t.model.settings.random.varEG = 50;
    t.host.expectMessage("New Bank - 128 Random Patches", Answer::Ok,
                         "Please check settings. Quillon thinks all random patches will be the same");
    mnuRandomBank(t.model);
    t.model.settings.spread = GenerationSettings{};
    t.host.expectMessage("New Bank - 128 Spread Patches", Answer::Ok,
                         "Please check settings. Quillon thinks all spread patches will be the same");
    mnuSpreadBank(t.model);
    EXPECT_TRUE(t.host.allShown());
    EXPECT_TRUE(t.host.bankDialogs.empty());
    EXPECT_FALSE(t.model.flags.loaded[kPatchBankA]);
}

TEST(RandomSpreadCommand, OneFlagOnWithAPercentageOfZeroGivesTheMessage)
{
    TestModel t;
    loadPatch(t.model);
    GenerationSettings s;
    s.lfo[2] = true;
    s.varLFO = 0;
    s.varEG = 100;  // the percentage of a group that is off counts for nothing
    t.model.settings.random = s;
    t.model.settings.spread = s;
    t.host.expectMessage(kRandomBankTitle, Answer::Ok, kRandomSameText);
    mnuRandomBank(t.model);
    t.host.expectMessage(kSpreadBankTitle, Answer::Ok, kSpreadSameText);
    mnuSpreadBank(t.model);
    EXPECT_TRUE(t.host.bankDialogs.empty());
    EXPECT_EQ(t.host.messages.at(0).helpContext, kRandomBankHelpContext);
    EXPECT_EQ(t.host.messages.at(1).helpContext, kSpreadBankHelpContext);
}

TEST(RandomSpreadSettings, EachGroupOnWithAPercentageIsUseful)
{
    const ParamValues patch = paramTables().patchDefaults;
    GenerationSettings s;
    EXPECT_FALSE(generationSettingsUseful(s, patch));
    s.fx[1] = true;
    s.varFX = 1;
    EXPECT_TRUE(generationSettingsUseful(s, patch));
    s = {};
    s.ampEG = true;
    s.varAmpEG = 1;
    EXPECT_TRUE(generationSettingsUseful(s, patch));
    s = {};
    s.css = true;
    s.varCSS = 0;
    EXPECT_FALSE(generationSettingsUseful(s, patch));
    s.varCSS = 5;
    EXPECT_TRUE(generationSettingsUseful(s, patch));
}

TEST(RandomSpreadSettings, ModIntensityNeedsASourceOfThePatchSetToTheChosenOne)
{
    ParamValues patch = paramTables().patchDefaults;
    GenerationSettings s;
    s.modInt = true;
    s.varModInt = 30;
    s.modIntChoice = 37;  // "Foot Pedal"
    for (int i = 1; i <= kPatchParams; ++i)
        if (isModSource(i) && patch[at(i)] == 37)
            patch[at(i)] = 0;
    EXPECT_FALSE(generationSettingsUseful(s, patch));
    patch[at(kEG1NodeTimeSource)] = 37;
    EXPECT_TRUE(generationSettingsUseful(s, patch));
    s.varModInt = 0;
    EXPECT_FALSE(generationSettingsUseful(s, patch));
}

// --- the dialog -----------------------------------------------------------

TEST(RandomSpreadCommand, TheDialogStartsOnBWhenAIsLoadedAndCancelChangesNothing)
{
    TestModel t;
    loadPatch(t.model);
    loadNumberedBank(t.model, kPatchBankA);
    t.model.settings.spread = everyGroupAt(20);
    t.host.status = "old";
    t.host.expectBankDialog(3, -1);
    mnuSpreadBank(t.model);
    const BankDialogRequest& request = t.host.bankDialogs.at(0);
    EXPECT_EQ(request.mode, 3);
    EXPECT_EQ(request.selectedPlace, kPatchBankB);
    EXPECT_TRUE(request.bankLoaded(kPatchBankA));
    EXPECT_FALSE(request.bankLoaded(kPatchBankB));
    EXPECT_EQ(t.host.status, "") << "the status lines are cleared before the dialog";
    EXPECT_EQ(bankNames(t.model, kPatchBankA)[5], "P005");
    EXPECT_FALSE(t.model.flags.loaded[kPatchBankB]);
}

TEST(RandomSpreadCommand, TheChosenBankBecomesTheNewBankOnShow)
{
    TestModel t;
    const ParamValues base = loadPatch(t.model);
    const ByteImage patchImage = t.model.itemImage(kPatch);
    loadNumberedBank(t.model, kPatchBankA);
    selectBankPatches(t.model, kPatchBankA, {1, 2});
    t.model.itemPath[kPatchBankA] = "/music/old.syx";
    t.model.flags.clean[kPatchBankA] = true;
    t.model.settings.random = everyGroupAt(40);
    t.host.expectBankDialog(2, kPatchBankA);
    std::mt19937 generator(7);
    mnuRandomBank(t.model, generator);

    EXPECT_EQ(t.host.bankDialogs.at(0).mode, 2);
    EXPECT_EQ(t.host.bankDialogs.at(0).selectedPlace, kPatchBankB);
    EXPECT_TRUE(t.model.flags.loaded[kPatchBankA]);
    EXPECT_TRUE(t.model.flags.changed[kPatchBankA]);
    EXPECT_FALSE(t.model.flags.clean[kPatchBankA]);
    EXPECT_EQ(t.model.itemPath[kPatchBankA], "");
    EXPECT_EQ(t.model.bankTarget, kPatchBankA);
    EXPECT_EQ(t.model.mode, kPatchBankA);
    EXPECT_EQ(t.model.banks.selection(kPatchBankA).selectionCount, 0);
    EXPECT_EQ(t.model.bankView.labels[0].caption, "Lead Synth  R000");
    EXPECT_EQ(t.model.bankView.labels[127].caption, "Lead Synth  R127");
    EXPECT_EQ(t.model.bankView.labels[9].scheme, kUnselectedScheme);
    EXPECT_TRUE(t.model.banks.undoEmpty());
    EXPECT_EQ(t.host.busyDepth, 0);
    // The patch in the editor is the same as before.
    EXPECT_EQ(t.model.buffers.of(kPatch).current, base);
    EXPECT_EQ(t.model.itemImage(kPatch), patchImage);
}

// --- Spread, worked out by hand ------------------------------------------

TEST(SpreadBank, ChosenValuesGiveTheExpectedPatches)
{
    TestModel t;
    ParamValues& base = loadPatch(t.model);
    base[at(kAttackLevel)] = 11;  // -99..99 at 50 %: d = 99, low end 11 - 49.5 = -38.5
    base[at(kLfo1Freq)] = 100;    // 0..199 at 30 %: d = 59.7, low end 70.15
    GenerationSettings s;
    s.eg[0] = true;
    s.varEG = 50;
    s.lfo[0] = true;
    s.varLFO = 30;
    t.model.settings.spread = s;
    ASSERT_FALSE(firm(kAttackLevel));
    ASSERT_FALSE(firm(kLfo1Freq));
    generateSpreadBank(t.model, kPatchBankB);

    // -38.5 + p * 99 / 127: halves go to the even neighbour at both ends.
    const int attack[][2] = {{0, -38}, {1, -38}, {63, 11}, {64, 11}, {127, 60}};
    for (const auto& [p, value] : attack)
        EXPECT_EQ(bankPatchValues(t.model, kPatchBankB, p)[at(kAttackLevel)], value) << "patch " << p;
    // 70.15 + p * 59.7 / 127: 70.15, 70.62, 99.76, 100.24, 129.85.
    const int freq[][2] = {{0, 70}, {1, 71}, {63, 100}, {64, 100}, {127, 130}};
    for (const auto& [p, value] : freq)
        EXPECT_EQ(bankPatchValues(t.model, kPatchBankB, p)[at(kLfo1Freq)], value) << "patch " << p;
    // A parameter of no chosen group keeps its value in every patch.
    EXPECT_EQ(bankPatchValues(t.model, kPatchBankB, 77)[at(kAmpEGLevel)], base[at(kAmpEGLevel)]);
}

TEST(SpreadBank, ARangeTimesPercentBeyondSixteenBitsFailsAndChangesNothing)
{
    TestModel t;
    const ParamValues base = loadPatch(t.model);
    loadNumberedBank(t.model, kPatchBankB);
    GenerationSettings s;
    s.eg[0] = true;
    s.varEG = 166;  // 198 * 166 = 32868
    t.model.settings.spread = s;
    EXPECT_THROW(generateSpreadBank(t.model, kPatchBankB), std::overflow_error);
    EXPECT_EQ(bankNames(t.model, kPatchBankB)[0], "P000");
    EXPECT_FALSE(t.model.flags.changed[kPatchBankB]);
    EXPECT_EQ(t.model.buffers.of(kPatch).current, base);
    EXPECT_EQ(t.host.busyDepth, 0);

    t.model.settings.spread.varEG = 165;  // 32670 still fits
    generateSpreadBank(t.model, kPatchBankB);
    EXPECT_EQ(bankNames(t.model, kPatchBankB)[0], "Lead Synth  S000");
}

TEST(SpreadBank, PercentHundredOnAParameterAtMinReachesFromMinToHalfTheRange)
{
    TestModel t;
    ParamValues& base = loadPatch(t.model);
    base[at(kDecayTime)] = 0;  // Min of 0..99
    GenerationSettings s;
    s.eg[0] = true;
    s.varEG = 100;
    t.model.settings.spread = s;
    generateSpreadBank(t.model, kPatchBankA);
    int lowest = 1000;
    int highest = -1000;
    for (int p = 0; p < kPatchesPerBank; ++p) {
        const int value = bankPatchValues(t.model, kPatchBankA, p)[at(kDecayTime)];
        lowest = std::min(lowest, value);
        highest = std::max(highest, value);
    }
    EXPECT_EQ(lowest, 0);
    EXPECT_EQ(highest, 50) << "-49.5 + 99 = 49.5, a half going to the even 50, not 99";
    EXPECT_EQ(bankPatchValues(t.model, kPatchBankA, 64)[at(kDecayTime)], 0);
    EXPECT_EQ(bankPatchValues(t.model, kPatchBankA, 65)[at(kDecayTime)], 1);
}

TEST(RandomBank, ASpanOfZeroStillVariesByUpToOne)
{
    TestModel t;
    ParamValues& base = loadPatch(t.model);
    base[at(kAttackLevel)] = 10;
    GenerationSettings s;
    s.eg[0] = true;
    s.varEG = 0;  // d = 0 for every EG1 row
    s.lfo[0] = true;
    s.varLFO = 50;
    t.model.settings.random = s;
    std::mt19937 generator(2024);
    generateRandomBank(t.model, kPatchBankA, generator);
    std::set<int> seen;
    for (int p = 0; p < kPatchesPerBank; ++p)
        seen.insert(bankPatchValues(t.model, kPatchBankA, p)[at(kAttackLevel)]);
    EXPECT_EQ(seen, (std::set<int>{10, 11})) << "the span is d + 1 wide";
}

TEST(SpreadBank, SubOscFlagWithOscPercentZeroStaysFixedWhateverItsOwnBoxSays)
{
    TestModel t;
    loadPatch(t.model);
    GenerationSettings s;
    s.osc[2] = true;
    s.varOSC = 0;
    s.varSONO = 50;
    t.model.settings.spread = s;
    t.host.expectMessage(kSpreadBankTitle, Answer::Ok, kSpreadSameText);
    mnuSpreadBank(t.model);
    EXPECT_TRUE(t.host.bankDialogs.empty());

    // With another group to vary, the Sub OSC rows still keep their values.
    t.model.settings.spread.eg[1] = true;
    t.model.settings.spread.varEG = 50;
    t.host.expectBankDialog(3, kPatchBankA);
    mnuSpreadBank(t.model);
    const ParamValues& base = t.model.buffers.of(kPatch).current;
    for (int p : {0, 63, 127}) {
        const ParamValues values = bankPatchValues(t.model, kPatchBankA, p);
        for (int i = kSubOscFirst; i <= kSubOscLast; ++i)
            EXPECT_EQ(values[at(i)], base[at(i)]) << "patch " << p << " parameter " << i;
    }
    EXPECT_NE(bankPatchValues(t.model, kPatchBankA, 0)[50 + 3], base[50 + 3]) << "EG2 is varied";
}

TEST(GenerationGroups, TheOscBlockVariedIsTheOneOfTheTypeThePatchHoldsAndTheFirmTypeStays)
{
    ParamValues base = paramTables().patchDefaults;
    GenerationSettings s;
    s.osc[0] = true;
    s.varOSC = 40;
    s.css = true;
    s.varCSS = 100;
    GenerationRun run = spreadOf(s);
    run.cssFirst = kOsc1Type;  // the active frame shows "OSC1 Type"
    run.cssLast = kOsc1Type;
    ASSERT_TRUE(firm(kOsc1Type));
    ASSERT_FALSE(firm(kStandardWaveEdge));
    ASSERT_FALSE(firm(kCombInputLevel));
    base[at(kStandardWaveEdge)] = 50;
    base[at(kCombInputLevel)] = 50;

    base[at(kOsc1Type)] = 0;
    std::vector<ParamValues> patches = generatePatchValues(base, run);
    EXPECT_NE(patches[127][at(kStandardWaveEdge)], base[at(kStandardWaveEdge)]);
    EXPECT_EQ(patches[127][at(kCombInputLevel)], base[at(kCombInputLevel)]);
    for (const ParamValues& patch : patches)
        EXPECT_EQ(patch[at(kOsc1Type)], 0);

    base[at(kOsc1Type)] = 1;  // Comb Filter OSC
    patches = generatePatchValues(base, run);
    EXPECT_EQ(patches[127][at(kStandardWaveEdge)], base[at(kStandardWaveEdge)]);
    EXPECT_NE(patches[127][at(kCombInputLevel)], base[at(kCombInputLevel)]);
}

TEST(GenerationGroups, ModIntensityVariesTheIntensitiesOfTheChosenSource)
{
    ParamValues base = paramTables().patchDefaults;
    base[at(kEG1NodeTimeSource)] = 20;  // "Mod Wheel"
    base[at(kRetriggerController)] = 20;
    for (int i = 1; i <= 4; ++i)
        base[at(kEG1NodeTimeSource + i)] = 10;
    GenerationSettings s;
    s.modInt = true;
    s.varModInt = 50;
    s.modIntChoice = 20;
    const std::vector<ParamValues> patches = generatePatchValues(base, spreadOf(s));
    for (int i = 1; i <= 4; ++i) {
        // -99..99 at 50 %: 10 - 49.5 = -39.5 at patch 0.
        EXPECT_EQ(patches[0][at(kEG1NodeTimeSource + i)], -40) << "intensity " << i;
        EXPECT_EQ(patches[127][at(kEG1NodeTimeSource + i)], 60) << "intensity " << i;
    }
    EXPECT_EQ(patches[0][at(kRetriggerController + 1)], base[at(kRetriggerController + 1)])
        << "what follows this source is no intensity";
    EXPECT_EQ(patches[0][at(kEG1NodeTimeSource + 5)], base[at(kEG1NodeTimeSource + 5)]);
}

TEST(GenerationGroups, CssVariesTheRowsOfTheActiveFrame)
{
    TestModel t;
    ParamValues& base = loadPatch(t.model);
    base[at(kLfo1Freq)] = 100;
    t.model.layout.CurrentFrame = 2;
    FrameState& frame = t.model.layout.frame(kPatch, 2);
    frame.Subsection = 6;  // "LFO1"
    frame.SubFirst = 107;
    frame.SubLast = 120;
    GenerationSettings s;
    s.css = true;
    s.varCSS = 30;
    t.model.settings.spread = s;
    generateSpreadBank(t.model, kPatchBankA);
    EXPECT_EQ(bankPatchValues(t.model, kPatchBankA, 0)[at(kLfo1Freq)], 70);
    EXPECT_EQ(bankPatchValues(t.model, kPatchBankA, 127)[at(kLfo1Freq)], 130);

    frame.Subsection = 0;  // an empty frame: CSS has nothing to vary
    generateSpreadBank(t.model, kPatchBankA);
    EXPECT_EQ(bankPatchValues(t.model, kPatchBankA, 127)[at(kLfo1Freq)], 100);
}

// --- Random with a fixed seed ---------------------------------------------

TEST(RandomBank, WithAFixedSeedEveryValueIsInRangeFirmRowsStayAndNamesAreTagged)
{
    TestModel t;
    const ParamValues base = loadPatch(t.model);
    const ByteImage patchImage = t.model.itemImage(kPatch);
    t.model.layout.CurrentFrame = 1;
    FrameState& frame = t.model.layout.frame(kPatch, 1);
    frame.Subsection = 1;  // "Patch Common"
    frame.SubFirst = 17;
    frame.SubLast = 30;
    t.model.settings.random = everyGroupAt(100);
    t.model.settings.random.modIntChoice = 0;
    std::mt19937 generator(12345);
    generateRandomBank(t.model, kPatchBankB, generator);

    // The same run on the values alone: the rows of every overlay can be
    // seen there, not only those of the types in force.
    GenerationRun run;
    run.how = Generation::Random;
    run.settings = t.model.settings.random;
    run.cssFirst = 17;
    run.cssLast = 30;
    std::mt19937 again(12345);
    run.generator = &again;
    const std::vector<ParamValues> patches = generatePatchValues(base, run);

    const ParamTables& tables = paramTables();
    int varied = 0;
    for (int p = 0; p < kPatchesPerBank; ++p) {
        const ParamValues& values = patches[at(p)];
        ByteImage packed = patchImage;
        patchParamsToImage(values, packed);
        EXPECT_EQ(t.model.banks.readBankPatch(kPatchBankB, p), packed) << "patch " << p;
        char tag[8];
        std::snprintf(tag, sizeof tag, " R%03d", p);
        const std::string name = t.model.banks.bankPatchName(kPatchBankB, p);
        EXPECT_EQ(name.substr(0, 11), "Lead Synth ");
        EXPECT_EQ(name.substr(11), tag);
        for (int i = 17; i <= kPatchParams; ++i) {
            const ParamDef& def = tables.patch[at(i)];
            if (firm(i)) {
                EXPECT_EQ(values[at(i)], base[at(i)]) << "firm parameter " << i << " of patch " << p;
                continue;
            }
            if (values[at(i)] != base[at(i)])
                ++varied;
            if (values[at(i)] < def.min || values[at(i)] > def.max)
                ADD_FAILURE() << "parameter " << i << " of patch " << p << " is " << values[at(i)] << ", outside "
                              << def.min << ".." << def.max;
        }
    }
    EXPECT_GT(varied, 128 * 100);
}

TEST(RandomBank, TheSameSeedGivesTheSameBankAndAnotherSeedAnother)
{
    const ParamValues base = paramTables().patchDefaults;
    GenerationRun run;
    run.how = Generation::Random;
    run.settings = everyGroupAt(60);
    std::mt19937 first(99);
    run.generator = &first;
    const auto a = generatePatchValues(base, run);
    std::mt19937 second(99);
    run.generator = &second;
    const auto b = generatePatchValues(base, run);
    std::mt19937 third(100);
    run.generator = &third;
    const auto c = generatePatchValues(base, run);
    EXPECT_EQ(a, b);
    EXPECT_NE(a, c);
}

}  // namespace
}  // namespace quillon

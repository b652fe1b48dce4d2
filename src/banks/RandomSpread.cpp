#include "banks/RandomSpread.h"

#include "banks/BankView.h"
#include "banks/GenerationRule.h"
#include "editors/ItemStatus.h"
#include "editors/ModSources.h"
#include "model/Kind.h"
#include "model/NumberFormat.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"

#include <chrono>
#include <string>

namespace quillon {

namespace {

// The sections of the patch table that the groups vary.
constexpr int kFirstEGSection = 2;    // "EG1" .. "EG4"
constexpr int kFirstLFOSection = 6;   // "LFO1" .. "LFO4"
constexpr int kSubOscSection = 13;    // "Sub OSC"
constexpr int kNoiseSection = 14;     // "Noise Generator"
constexpr int kFilter1Section = 18;   // "Filter 1", then "Filter 2"
constexpr int kAmpEGSection = 22;     // "Amp EG"

// The type parameters that choose the setting block of an oscillator or an
// effect, and the section of their type 0.
struct TypedBlock {
    int typeParam;
    int firstSection;
};
constexpr TypedBlock kOsc1{174, 33};
constexpr TypedBlock kOsc2{188, 64};
constexpr TypedBlock kFx1{359, 46};
constexpr TypedBlock kFx2{360, 73};

// The name tag goes into name characters 12 to 16.
constexpr int kTagFirst = 12;

std::size_t at(int param) { return static_cast<std::size_t>(param); }

// One walk over the 128 patches.
class Walk {
public:
    Walk(const ParamValues& base, const GenerationRun& run) : base_(base), run_(run), values_(base) {}

    std::vector<ParamValues> patches()
    {
        std::vector<ParamValues> result;
        result.reserve(kPatchesPerBank);
        for (p_ = 0; p_ < kPatchesPerBank; ++p_) {
            varyGroups();
            tag();
            zeroIntensity(values_);
            result.push_back(values_);
        }
        return result;
    }

private:
    void varyGroups()
    {
        const GenerationSettings& s = run_.settings;
        for (int n = 0; n < 4; ++n)
            if (s.eg[at(n)])
                varySection(kFirstEGSection + n, s.varEG);
        for (int n = 0; n < 4; ++n)
            if (s.lfo[at(n)])
                varySection(kFirstLFOSection + n, s.varLFO);
        if (s.osc[0])
            varyTypedBlock(kOsc1, s.varOSC);
        if (s.osc[1])
            varyTypedBlock(kOsc2, s.varOSC);
        // Sub OSC and Noise vary by the OSC percentage, not their own.
        if (s.osc[2])
            varySection(kSubOscSection, s.varOSC);
        if (s.osc[3])
            varySection(kNoiseSection, s.varOSC);
        if (s.fx[0])
            varyTypedBlock(kFx1, s.varFX);
        if (s.fx[1])
            varyTypedBlock(kFx2, s.varFX);
        for (int n = 0; n < 2; ++n)
            if (s.filter[at(n)])
                varySection(kFilter1Section + n, s.varFilter);
        if (s.modInt)
            varyModIntensities(s.modIntChoice, s.varModInt);
        if (s.ampEG)
            varySection(kAmpEGSection, s.varAmpEG);
        if (s.css)
            varyRange(run_.cssFirst, run_.cssLast, s.varCSS);
    }

    void varySection(int section, int percent)
    {
        const auto& sections = paramTables().patchSections;
        if (section < 1 || section >= static_cast<int>(sections.size()))
            return;
        varyRange(sections[at(section)].firstParam, sections[at(section)].lastParam, percent);
    }

    // The block of the type the patch holds now, before its group is varied.
    void varyTypedBlock(const TypedBlock& block, int percent)
    {
        const ParamDef& type = paramTables().patch[at(block.typeParam)];
        const int value = values_[at(block.typeParam)];
        if (value < type.min || value > type.max)
            return;
        varySection(block.firstSection + value, percent);
    }

    // The intensities driven by every source now set to the chosen one.
    void varyModIntensities(int source, int percent)
    {
        for (int i = 1; i <= kPatchParams; ++i) {
            if (!isModSource(i) || values_[at(i)] != source)
                continue;
            const int count = intensitiesOfSource(i);
            varyRange(i + 1, std::min(i + count, kPatchParams), percent);
        }
    }

    void varyRange(int first, int last, int percent)
    {
        const ParamTables& t = paramTables();
        for (int i = std::max(first, 1); i <= last && i <= kPatchParams; ++i) {
            if (t.patchFirm[at(i)] != 0)
                continue;
            const ParamDef& row = t.patch[at(i)];
            const float d = generationSpan(row.min, row.max, percent);
            const int base = base_[at(i)];
            const int value = run_.how == Generation::Random
                                  ? randomRuleValue(base, row.min, row.max, d, nextRandom())
                                  : spreadRuleValue(base, row.min, row.max, d, p_);
            values_[at(i)] = static_cast<std::int16_t>(value);
        }
    }

    // 0 up to but not including 1, from the top 24 bits of the generator.
    float nextRandom()
    {
        if (run_.generator == nullptr)
            return 0.0F;
        return static_cast<float>((*run_.generator)() >> 8) * (1.0F / 16777216.0F);
    }

    void tag()
    {
        const std::string text =
            std::string(run_.how == Generation::Random ? " R" : " S") + formatNumber(p_, "000");
        for (std::size_t k = 0; k < text.size(); ++k)
            values_[at(kTagFirst) + k] = static_cast<std::int16_t>(static_cast<unsigned char>(text[k]));
    }

    const ParamValues& base_;
    const GenerationRun& run_;
    ParamValues values_;
    int p_ = 0;
};

bool hasSourceSetTo(const ParamValues& patch, int source)
{
    const int count = std::min(kPatchParams, static_cast<int>(patch.size()) - 1);
    for (int i = 1; i <= count; ++i) {
        if (isModSource(i) && patch[at(i)] == source)
            return true;
    }
    return false;
}

template <std::size_t N>
bool anyOn(const std::array<bool, N>& flags)
{
    for (bool on : flags)
        if (on)
            return true;
    return false;
}

void generateBank(AppModel& model, int bank, Generation how, std::mt19937* generator)
{
    if (bank != kPatchBankA && bank != kPatchBankB)
        return;
    ParamValues& current = model.buffers.of(kPatch).current;
    const ParamValues base = current;
    BusyPointer busy(model.host());

    GenerationRun run;
    run.how = how;
    run.settings = how == Generation::Random ? model.settings.random : model.settings.spread;
    run.generator = generator;
    const FrameState& active = model.layout.frame(kPatch, model.layout.CurrentFrame);
    if (active.Subsection > 0) {
        run.cssFirst = active.SubFirst;
        run.cssLast = active.SubLast;
    }
    // Everything is worked out before the bank is touched, so that a
    // failure leaves the bank as it was.
    const std::vector<ParamValues> patches = generatePatchValues(base, run);

    AppModel::Batch batch(model);
    ByteImage image = model.itemImage(kPatch);
    for (int p = 0; p < kPatchesPerBank; ++p) {
        paramsToImage(kPatch, patches[at(p)], image);
        model.banks.writeBankPatch(bank, p, image);
    }

    model.bankTarget = bank;
    model.itemPath[bank].clear();
    fraBankSetUp(model);
    model.flags.loaded[bank] = true;
    model.flags.changed[bank] = true;
    model.flags.clean[bank] = false;
    fraBankLabelsSetUp(model, bank, 0);
    model.labels.doLoadedStatusColour(bank, 1);
    model.bankMenuEnabled = true;
    model.labels.showLabelHighlight(bank);
    setUpScreen(model, bank);
    setUpSendMenu(model, bank);

    // The patch in the editor is the same as before.
    current = base;
    paramsToImage(kPatch, base, model.itemImage(kPatch));
    model.changed(kBanksChanged | kLabelsChanged | kBankMenuChanged | kBankViewChanged | kBuffersChanged);
}

// The settings test, the dialog and the generator.
void bankCommand(AppModel& model, Generation how, std::mt19937* generator)
{
    const bool random = how == Generation::Random;
    Host& host = model.host();
    if (!(random ? randomSettingsUseful(model) : spreadSettingsUseful(model))) {
        showInformation(host, random ? kRandomBankTitle : kSpreadBankTitle, random ? kRandomSameText : kSpreadSameText,
                        random ? kRandomBankHelpContext : kSpreadBankHelpContext);
        return;
    }
    clearStatusMessages(model);
    BankDialogRequest request;
    request.mode = random ? 2 : 3;
    request.bankLoaded = [&model](int kind) { return model.flags.loaded[kind]; };
    request.selectedPlace = model.flags.loaded[kPatchBankA] ? kPatchBankB : kPatchBankA;
    const int bank = host.chooseBankPlace(request);
    if (bank != kPatchBankA && bank != kPatchBankB)
        return;
    if (generator != nullptr) {
        generateBank(model, bank, how, generator);
        return;
    }
    if (random)
        generateRandomBank(model, bank);
    else
        generateSpreadBank(model, bank);
}

}  // namespace

bool generationSettingsUseful(const GenerationSettings& s, const ParamValues& patch)
{
    if ((anyOn(s.eg) && s.varEG > 0) || (anyOn(s.lfo) && s.varLFO > 0) || (anyOn(s.osc) && s.varOSC > 0) ||
        (anyOn(s.filter) && s.varFilter > 0) || (anyOn(s.fx) && s.varFX > 0))
        return true;
    if (s.modInt && s.varModInt >= 1 && hasSourceSetTo(patch, s.modIntChoice))
        return true;
    return (s.ampEG && s.varAmpEG >= 1) || (s.css && s.varCSS >= 1);
}

bool randomSettingsUseful(const AppModel& model)
{
    return generationSettingsUseful(model.settings.random, model.buffers.of(kPatch).current);
}

bool spreadSettingsUseful(const AppModel& model)
{
    return generationSettingsUseful(model.settings.spread, model.buffers.of(kPatch).current);
}

std::vector<ParamValues> generatePatchValues(const ParamValues& base, const GenerationRun& run)
{
    return Walk(base, run).patches();
}

void generateRandomBank(AppModel& model, int bank)
{
    std::mt19937 generator(
        static_cast<std::mt19937::result_type>(std::chrono::system_clock::now().time_since_epoch().count()));
    generateBank(model, bank, Generation::Random, &generator);
}

void generateRandomBank(AppModel& model, int bank, std::mt19937& generator)
{
    generateBank(model, bank, Generation::Random, &generator);
}

void generateSpreadBank(AppModel& model, int bank) { generateBank(model, bank, Generation::Spread, nullptr); }

void mnuRandomBank(AppModel& model) { bankCommand(model, Generation::Random, nullptr); }
void mnuRandomBank(AppModel& model, std::mt19937& generator) { bankCommand(model, Generation::Random, &generator); }
void mnuSpreadBank(AppModel& model) { bankCommand(model, Generation::Spread, nullptr); }

}  // namespace quillon

#include "editors/BankMerge.h"

#include "banks/BankView.h"
#include "editors/ItemStatus.h"
#include "editors/ScreenLayout.h"
#include "files/LoadFlow.h"
#include "files/SuggestedNames.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "output/ListFormat.h"
#include "shell/AppModel.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr int kNameBytes = 16;
constexpr int kNameLength = 16;
constexpr int kKeptNameCharacters = 12;
constexpr int kMergeHelp = 420;

constexpr MergeBytes kGroupBytes[] = {
    {17, 25},    // 1 Comm
    {26, 101},   // 2 EG
    {102, 145},  // 3 LFO
    {146, 280},  // 4 OSC
    {281, 311},  // 5 Mix
    {312, 366},  // 6 Filt
    {367, 407},  // 7 Amp
    {408, 479},  // 8 FX
    {480, 576},  // 9 Ctrls
};

// The oscillator and effect subsections lie over fixed bytes, with their
// type in a byte of its own.
struct FixedSubsection {
    int subsection;
    MergeBytes bytes;
};
constexpr FixedSubsection kFixedSubsections[] = {
    {11, {169, 206, 155}}, {13, {169, 206, 155}},  // OSC1 Type, OSC1 Setting
    {14, {221, 258, 207}}, {16, {221, 258, 207}},  // OSC2
    {37, {412, 433, 411}}, {38, {412, 433, 411}},  // FX1
    {39, {435, 456, 434}}, {40, {435, 456, 434}},  // FX2
    {41, {458, 475, 457}}, {42, {458, 475, 457}},  // Master FX
};

constexpr MergeMenuItem kMergeMenu[] = {
    {"mnuCopyExceptArray_1", "Comm", 1},       {"mnuCopyExceptArray_2", "EG", 2},
    {"mnuCopyExceptArray_3", "LFO", 3},        {"mnuCopyExceptArray_4", "OSC", 4},
    {"mnuCopyExceptArray_5", "Mix", 5},        {"mnuCopyExceptArray_6", "Filt", 6},
    {"mnuCopyExceptArray_7", "Amp", 7},        {"mnuCopyExceptArray_8", "FX", 8},
    {"mnuCopyExceptArray_9", "Ctrls", 9},      {"mnuCopyAllXCSS", "Copy All ex CSS", kMergeAllExceptCss},
    {"mnuCopyCSS", "Copy CSS", kMergeCss},     {"mnuCopyArray_1", "Copy Comm", 11},
    {"mnuCopyArray_2", "Copy EG", 12},         {"mnuCopyArray_3", "Copy LFO", 13},
    {"mnuCopyArray_4", "Copy OSC", 14},        {"mnuCopyArray_5", "Copy Mix", 15},
    {"mnuCopyArray_6", "Copy Filt", 16},       {"mnuCopyArray_7", "Copy Amp", 17},
    {"mnuCopyArray_8", "Copy FX", 18},         {"mnuCopyArray_9", "Copy Ctrls", 19},
};

bool inRange(const MergeBytes& range, int byte) { return byte >= range.first && byte <= range.last; }

// The current subsection of the merges: frame 1's in the frame modes that
// give new subsections to frame 1, frame 2's in "Frame right active".
int currentSubsection(const AppModel& model)
{
    const int frame = model.settings.frameMode == 3 ? 2 : 1;
    return model.layout.patchFrames[static_cast<std::size_t>(frame)].Subsection;
}

// Last takes the patch, and the editor's image the values in force.
void prepareImage(AppModel& model)
{
    model.buffers.updateLast(kPatch);
    patchParamsToImage(model.buffers.of(kPatch).current, model.itemImage(kPatch));
}

// The image back into the editor; the patch no longer matches any file.
void takeMergedImage(AppModel& model)
{
    doPostLoad(model, kPatch);
    model.flags.clean[kPatch] = false;
}

void copyBytes(const ByteImage& from, ByteImage& to, const MergeBytes& range)
{
    for (int byte = std::max(range.first, kNameBytes + 1); byte <= std::min(range.last, kPatchBytes); ++byte)
        to[static_cast<std::size_t>(byte - 1)] = from[static_cast<std::size_t>(byte - 1)];
    if (range.typeByte > kNameBytes && range.typeByte <= kPatchBytes)
        to[static_cast<std::size_t>(range.typeByte - 1)] = from[static_cast<std::size_t>(range.typeByte - 1)];
}

// Every byte after the name but those of `kept` (and its type byte).
void copyAllBut(const ByteImage& from, ByteImage& to, const MergeBytes& kept)
{
    for (int byte = kNameBytes + 1; byte <= kPatchBytes; ++byte) {
        if (!inRange(kept, byte) && byte != kept.typeByte)
            to[static_cast<std::size_t>(byte - 1)] = from[static_cast<std::size_t>(byte - 1)];
    }
}

bool patchSelected(const AppModel& model)
{
    return model.banks.selection(model.bankTarget).selectionCount > 0;
}

int selectedPlace(const AppModel& model) { return model.banks.selection(model.bankTarget).selectionSequence[1]; }

void showPatchScreen(AppModel& model)
{
    if (model.mode == kPatch)
        return;
    model.labels.showLabelHighlight(kPatch);
    model.changed(kLabelsChanged);
    setUpSendMenu(model, kPatch);
    setUpScreen(model, kPatch);
}

}  // namespace

std::span<const MergeMenuItem> mergeMenuItems() { return kMergeMenu; }

MergeBytes groupBytes(int group)
{
    if (group < 1 || group > kMergeGroups)
        return {};
    return kGroupBytes[group - 1];
}

MergeBytes subsectionBytes(int subsection)
{
    for (const FixedSubsection& fixed : kFixedSubsections) {
        if (fixed.subsection == subsection)
            return fixed.bytes;
    }
    const ParamTables& t = paramTables();
    if (subsection < 1 || subsection >= static_cast<int>(t.patchSubsections.size()))
        return {};
    const SubSectionDef& sub = t.patchSubsections[static_cast<std::size_t>(subsection)];
    if (sub.firstParam < 1 || sub.lastParam < sub.firstParam)
        return {};
    return {t.patch[static_cast<std::size_t>(sub.firstParam)].startB / 8,
            t.patch[static_cast<std::size_t>(sub.lastParam)].endB / 8, 0};
}

void mergeFromBank(AppModel& model, int place, int code)
{
    if (code < 1 || code > kMergeCss || place < 0 || place >= kPatchesPerBank)
        return;
    const int css = currentSubsection(model);
    if (code == kMergeCss && css < 1) {
        showInformation(model.host(), kCopyToCssTitle, kNoSubsectionSelected, kMergeHelp);
        return;
    }
    AppModel::Batch batch(model);
    prepareImage(model);
    const int bank = model.bankTarget;
    model.merge.sourcePosition = place + (bank == kPatchBankB ? kPatchesPerBank : 0);
    const ByteImage source = model.banks.readBankPatch(bank, place);
    ByteImage& image = model.itemImage(kPatch);
    if (code < kMergeAllExceptCss)
        copyAllBut(source, image, groupBytes(code));
    else if (code == kMergeAllExceptCss)
        copyAllBut(source, image, subsectionBytes(css));
    else if (code < kMergeCss)
        copyBytes(source, image, groupBytes(code - kMergeAllExceptCss));
    else
        copyBytes(source, image, subsectionBytes(css));
    takeMergedImage(model);

    if (code > kMergeAllExceptCss && code < kMergeCss) {
        const int next = code - kMergeAllExceptCss;
        model.merge.BankGroupNext = next > 8 ? 0 : next;
    } else if (code == kMergeCss) {
        model.merge.BankSubsectionNext = css >= kLastMergedSubsection ? 1 : css + 1;
    }
    model.changed(kBankViewChanged);
}

void mergeFromBankPopup(AppModel& model, int code) { mergeFromBank(model, selectedPlace(model), code); }

void mergeNextGroup(AppModel& model)
{
    if (!patchSelected(model)) {
        bankSelectSequence(model);
        return;
    }
    AppModel::Batch batch(model);
    const int number = model.merge.BankGroupNext + 1;
    mergeFromBank(model, selectedPlace(model), model.merge.BankGroupNext + kMergeFirstGroup);
    showPatchScreen(model);
    tagMergedName(model, "Q", number);
}

void mergeNextSubsection(AppModel& model)
{
    if (!patchSelected(model)) {
        bankSelectSequence(model);
        return;
    }
    AppModel::Batch batch(model);
    showPatchScreen(model);
    prepareImage(model);
    const int number = model.merge.BankSubsectionNext;
    const int bank = model.bankTarget;
    const int place = selectedPlace(model);
    model.merge.sourcePosition = place + (bank == kPatchBankB ? kPatchesPerBank : 0);
    copyBytes(model.banks.readBankPatch(bank, place), model.itemImage(kPatch), subsectionBytes(number));
    takeMergedImage(model);
    model.merge.BankSubsectionNext = number >= kLastMergedSubsection ? 1 : number + 1;
    model.changed(kBankViewChanged);
    tagMergedName(model, "S", number);
}

std::string bankPatchSelGroupText(const AppModel& model)
{
    return std::string(patchGroup(model.merge.BankGroupNext).caption);
}

std::string bankPatchSelSSText(const AppModel& model) { return std::to_string(model.merge.BankSubsectionNext); }

void setBankGroupNext(AppModel& model, int group)
{
    model.merge.BankGroupNext = std::clamp(group, 0, kMergeGroups - 1);
    model.changed(kBankViewChanged);
}

void setBankSubsectionNext(AppModel& model, int subsection)
{
    model.merge.BankSubsectionNext = std::clamp(subsection, 1, kLastMergedSubsection);
    model.changed(kBankViewChanged);
}

void doubleClickBankPatchSelGroup(AppModel& model) { setBankGroupNext(model, 0); }

void doubleClickBankPatchSelSS(AppModel& model) { setBankSubsectionNext(model, 1); }

void tagMergedName(AppModel& model, std::string_view tag, int number)
{
    if (tag.empty())
        return;
    std::string name = nameFromParams(model.buffers.of(kPatch).current).substr(0, kKeptNameCharacters);
    name.resize(kKeptNameCharacters, ' ');
    name += " " + zeroPadded(number, 2) + std::string(tag.substr(0, 1));
    name.resize(kNameLength, ' ');
    ParamValues& current = model.buffers.of(kPatch).current;
    for (int i = 0; i < kNameLength; ++i)
        current[static_cast<std::size_t>(i + 1)] = static_cast<std::int16_t>(static_cast<unsigned char>(name[i]));
    doLabelFileName(model, kPatch);
    model.changed(kBuffersChanged);
}

}  // namespace quillon

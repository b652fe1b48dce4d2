#include "files/MiscDialog.h"

#include "files/LoadFlow.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <algorithm>

namespace quillon {

namespace {

// The lengths of the messages that hold several kinds of data.
constexpr int kAllDataLength = 182939;
constexpr int kAllProgramLength = 168531;
constexpr int kAllMultiLength = 7617;
constexpr int kGlobalOrMidiLength = 483;
constexpr int kGlobalAndMidiLength = 966;

// The largest such message.
constexpr std::size_t kMostMiscBytes = 184000;

constexpr std::array<const char*, kMiscTypeBoxes> kBoxCaptions{"Bank A", "Bank B", "Multibank A", "Multibank B",
                                                                "Pattern bank"};

// Where in the unpacked dump the bank of a box lies, bytes from 1.
struct ExtractRange {
    int length;
    int index;
    int firstByte;
    int lastByte;
};

constexpr std::array<ExtractRange, 9> kExtractRanges{{
    {kAllDataLength, 0, 1, 73728},
    {kAllDataLength, 1, 73729, 147456},
    {kAllDataLength, 2, 147457, 150784},
    {kAllDataLength, 3, 150785, 154112},
    {kAllDataLength, 4, 154113, 159232},
    {kAllProgramLength, 0, 1, 73728},
    {kAllProgramLength, 1, 73729, 147456},
    {kAllMultiLength, 2, 1, 3328},
    {kAllMultiLength, 3, 3329, 6656},
}};

// The first byte of packed data in the message, counted from 1.
int dataStart(int length)
{
    switch (length) {
    case kAllMultiLength: return 10;
    case kGlobalOrMidiLength:
    case kGlobalAndMidiLength: return 7;
    case kAllProgramLength: return 9;
    case kAllDataLength: return 8;
    default: return 0;
    }
}

}  // namespace

namespace misc {

int boxKind(int index)
{
    static constexpr std::array<int, kMiscTypeBoxes> kKinds{kPatchBankA, kPatchBankB, kMultiBankA, kMultiBankB,
                                                            kArpBank};
    return index >= 0 && index < kMiscTypeBoxes ? kKinds[static_cast<std::size_t>(index)] : 0;
}

MiscDialogState doSetup(AppModel& model)
{
    MiscDialogState state;
    for (int i = 0; i < kMiscTypeBoxes; ++i)
        state.typeCaption[static_cast<std::size_t>(i)] = kBoxCaptions[static_cast<std::size_t>(i)];

    auto show = [&state](std::initializer_list<int> boxes) {
        for (const int box : boxes)
            state.typeVisible[static_cast<std::size_t>(box)] = true;
        state.extractFrameVisible = true;
    };
    switch (model.misc.length()) {
    case kAllMultiLength:
        show({2, 3});
        model.misc.name = "All Multi";
        break;
    case kAllProgramLength:
        show({0, 1});
        model.misc.name = "All Program";
        break;
    case kAllDataLength:
        show({0, 1, 2, 3, 4});
        model.misc.name = "All Data";
        break;
    case kGlobalAndMidiLength: model.misc.name = "Global and MIDI"; break;
    case kGlobalOrMidiLength: model.misc.name = std::string(globalOrMidiName(model.misc.message)); break;
    default: break;
    }

    state.caption = model.misc.name;
    if (model.misc.mode == 1)
        state.saveSendCaption = "Save " + model.misc.name;
    else if (model.misc.mode == 3)
        state.saveSendCaption = "Send " + model.misc.name + " to Z1";
    return state;
}

void doProcessLoad(AppModel& model, const MiscDialogState& state)
{
    BusyPointer busy(model.host());
    auto chosen = [&state](int i) {
        return state.typeVisible[static_cast<std::size_t>(i)] && state.typeTicked[static_cast<std::size_t>(i)];
    };
    bool any = false;
    for (int i = 0; i < kMiscTypeBoxes; ++i)
        any = any || chosen(i);
    if (!any)
        return;

    AppModel::Batch batch(model);
    doMiscData(model);
    for (int i = 0; i < kMiscTypeBoxes; ++i) {
        if (!chosen(i) || !doLocalPreload(model, i))
            continue;
        doExtract(model, i);
        doLocalPostLoad(model, i);
    }
}

void doMiscData(AppModel& model)
{
    MiscDump& misc = model.misc;
    const int start = dataStart(misc.length());
    if (start == 0) {
        misc.packed.clear();
        misc.image.clear();
        return;
    }
    misc.packed.assign(misc.message.begin() + (start - 1), misc.message.end());
    misc.image = MIDItoDATA(kOtherDump, misc.packed, model.report);
}

void doExtract(AppModel& model, int index)
{
    const int kind = boxKind(index);
    const int target = kind == kPatchBankA || kind == kPatchBankB   ? model.bankTarget
                       : kind == kMultiBankA || kind == kMultiBankB ? model.multiBankTarget
                                                                    : kind;
    for (const auto& range : kExtractRanges) {
        if (range.length != model.misc.length() || range.index != index)
            continue;
        const ByteImage& image = model.misc.image;
        ByteImage& bank = model.banks.image(target);
        if (static_cast<int>(image.size()) < range.lastByte ||
            static_cast<int>(bank.size()) != range.lastByte - range.firstByte + 1)
            return;
        std::copy(image.begin() + (range.firstByte - 1), image.begin() + range.lastByte, bank.begin());
        model.changed(kBanksChanged);
        return;
    }
}

bool doLocalPreload(AppModel& model, int index)
{
    const int kind = boxKind(index);
    if (kind == 0)
        return false;
    model.saveCancelled = false;
    if (!doPreLoad(model, kind))
        return false;
    if (index <= 1)
        model.bankTarget = kind;
    else if (index <= 3)
        model.multiBankTarget = kind;
    return true;
}

void doLocalPostLoad(AppModel& model, int index)
{
    const int kind = boxKind(index);
    if (kind != 0)
        showLoadedBank(model, kind);
}

}  // namespace misc

bool miscReceive(AppModel& model, std::span<const std::uint8_t> block)
{
    if (block.size() > kMostMiscBytes)
        return false;
    model.misc.message.assign(block.begin(), block.end());
    return true;
}

}  // namespace quillon

#include "sysex/SysExClassifier.h"

#include "sysex/SysExBytes.h"

#include <array>

namespace quillon {

int classifySysEx(std::span<const std::uint8_t> firstBytes)
{
    if (firstBytes.size() < kCommonHeaderBytes)
        return kSysExNone;
    if (firstBytes[0] != kSysExStart || firstBytes[1] != kKorgId)
        return kSysExNone;
    if (firstBytes[kChannelIndex] < kChannelBase || firstBytes[kChannelIndex] > kChannelBase + 15)
        return kSysExNone;
    if (firstBytes[3] != kZ1ModelId)
        return kSysExNone;

    switch (firstBytes[kFunctionIndex]) {
    case kFunctionCurrentPatch: return kSysExPatch;
    case kFunctionCurrentMulti: return kSysExSingleMulti;
    case kFunctionPatchBank: return kSysExAllProgram;
    case kFunctionMultiBank: return kSysExAllMulti;
    case kFunctionAllData: return kSysExAllData;
    case kFunctionGlobalOrMidi: return kSysExGlobalOrMidi;
    case kFunctionArpBank: return kSysExArpBank;
    case kFunctionCurrentPattern: return kSysExSinglePattern;
    default: return kSysExNonZ1;
    }
}

std::string_view sysExTypeLabel(int type)
{
    static constexpr std::array<std::string_view, 12> kLabels{
        "all Z1",
        "all program",
        "bank",
        "patch",
        "all multi",
        "multi A/B",
        "single multi",
        "arpeggiator",
        "single arpeggiator",
        "global/MIDI",
        "global & MIDI",
        "non-Z1",
    };
    if (type < 1 || type > static_cast<int>(kLabels.size()))
        return {};
    return kLabels[static_cast<std::size_t>(type - 1)];
}

}  // namespace quillon

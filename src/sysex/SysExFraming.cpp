#include "sysex/SysExFraming.h"

#include "model/Kind.h"
#include "sysex/SysExBytes.h"
#include "sysex/SysExClassifier.h"

#include <array>

namespace quillon {

namespace {

// The lengths that carry one item. A patch may come as a current patch dump
// or with a header two bytes longer, with the patch or the bank function
// code; a multiset likewise. A pattern comes with the pattern or the
// arpeggiator bank function code, and as the instrument's own dump of one
// pattern, whose header carries the pattern's number.
constexpr std::array<MessageShape, 9> kShapes{{
    {668, 8, {kSysExAllProgram, kSysExPatch}, kPatch, false, {}, {}},
    {666, 6, {kSysExAllProgram, kSysExPatch}, kPatch, false, {}, {}},
    {300, 6, {kSysExArpBank, kSysExSinglePattern}, kPattern, false, {}, {}},
    {301, 7, {kSysExArpBank, kSysExSinglePattern}, kPattern, false, {}, {}},
    {245, 6, {kSysExAllMulti, kSysExSingleMulti}, kMultiset, false, {}, {}},
    {248, 9, {kSysExAllMulti, kSysExSingleMulti}, kMultiset, false, {}, {}},
    {3814, 9, {kSysExAllMulti, kSysExAllMulti}, kMultiBankA, true,
     "Converting multibank data", "Converted multibank data"},
    {5860, 7, {kSysExArpBank, kSysExArpBank}, kArpBank, false,
     "Converting arpeggiator bank data", "Converted arpeggiator bank data"},
    {84270, 8, {kSysExAllProgram, kSysExAllProgram}, kPatchBankA, true,
     "Converting bank data", "Converted bank data"},
}};

constexpr std::string_view kConvertTitle = "Converting MIDI Data";
constexpr std::string_view kBadHeaderText = "Problem with SysEx header";

}  // namespace

std::span<const MessageShape> messageShapes()
{
    return kShapes;
}

const MessageShape* findMessageShape(std::size_t length)
{
    for (const auto& shape : kShapes) {
        if (static_cast<std::size_t>(shape.length) == length)
            return &shape;
    }
    return nullptr;
}

StringToMidiResult STRINGtoMIDI(std::span<const std::uint8_t> message, int bankTarget,
                                int multiBankTarget)
{
    StringToMidiResult result;
    const MessageShape* shape = findMessageShape(message.size());
    if (shape == nullptr)
        return result;
    result.handled = true;

    if (!shape->accepts(classifySysEx(message.first(kCommonHeaderBytes)))) {
        result.errorTitle = kConvertTitle;
        result.errorText = kBadHeaderText;
        result.clearStatusLine = true;
        return result;
    }

    // The bank byte in the message is not looked at: the bank the user chose
    // to receive into is the one that takes the data.
    result.target = shape->target;
    if (shape->targetIsCurrentBank)
        result.target = shape->target == kPatchBankA ? bankTarget : multiBankTarget;

    const auto data = message.subspan(static_cast<std::size_t>(shape->headerBytes));
    result.packed.assign(data.begin(), data.end());
    result.channel = channelOfByte(message[kChannelIndex]);
    result.busyText = shape->busyText;
    result.doneText = shape->doneText;
    result.success = true;
    return result;
}

}  // namespace quillon

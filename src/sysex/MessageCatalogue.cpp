#include "sysex/MessageCatalogue.h"

#include "model/Kind.h"
#include "sysex/SysExClassifier.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr std::array<std::uint8_t, 4> kNoFixedBytes{};

constexpr std::array<DumpShape, 16> kDumps{{
    {"Current patch", kFunctionCurrentPatch, kFunctionCurrentPatch, 1, {0x01}, true,
     659, 1, 666, kSysExPatch},
    {"Patch with a longer header", kFunctionCurrentPatch, kFunctionPatchBank, 3, kNoFixedBytes,
     false, 659, 1, 668, kSysExPatch},
    {"Current multi", kFunctionCurrentMulti, kFunctionCurrentMulti, 1, {0x00}, true,
     238, 1, 245, kSysExSingleMulti},
    {"Multi with a longer header", kFunctionCurrentMulti, kFunctionMultiBank, 4, kNoFixedBytes,
     false, 238, 1, 248, kSysExSingleMulti},
    {"Current pattern", kFunctionCurrentPattern, kFunctionCurrentPattern, 1, {0x00}, true,
     293, 1, 300, kSysExSinglePattern},
    // The instrument's own dump of one pattern: the arpeggiator bank's
    // function code, a 0 and the pattern's number in the bank.
    {"Pattern with a longer header", kFunctionArpBank, kFunctionArpBank, 2, kNoFixedBytes, false,
     293, 1, 301, kSysExSinglePattern},
    {"Bank A", kFunctionPatchBank, kFunctionPatchBank, 3, {kBankASelect, 0x00, 0x00}, true,
     84261, 1, 84270, kSysExPatchBank},
    {"Bank B", kFunctionPatchBank, kFunctionPatchBank, 3, {kBankBSelect, 0x00, 0x00}, true,
     84261, 1, 84270, kSysExPatchBank},
    {"All Program", kFunctionPatchBank, kFunctionPatchBank, 3, kNoFixedBytes, false,
     168522, 1, 168531, kSysExAllProgram},
    {"Multi bank A", kFunctionMultiBank, kFunctionMultiBank, 4, {0x00, kBankASelect, 0x00, 0x00},
     true, 3804, 1, 3814, kSysExMultiBank},
    {"Multi bank B", kFunctionMultiBank, kFunctionMultiBank, 4, {0x00, kBankBSelect, 0x00, 0x00},
     true, 3804, 1, 3814, kSysExMultiBank},
    {"All Multi", kFunctionMultiBank, kFunctionMultiBank, 4, kNoFixedBytes, false,
     7607, 1, 7617, kSysExAllMulti},
    {"Arpeggiator bank", kFunctionArpBank, kFunctionArpBank, 2, {kBankASelect, 0x00}, true,
     5852, 1, 5860, kSysExArpBank},
    // The sub-header byte is 0 for Global and anything else for MIDI.
    {"Global or MIDI settings", kFunctionGlobalOrMidi, kFunctionGlobalOrMidi, 1, kNoFixedBytes,
     false, 476, 1, 483, kSysExGlobalOrMidi},
    // Global and MIDI: the two settings dumps back to back.
    {"Global and MIDI", kFunctionGlobalOrMidi, kFunctionGlobalOrMidi, 1, kNoFixedBytes, false,
     476, 2, 966, kSysExGlobalAndMidi},
    {"All Data", kFunctionAllData, kFunctionAllData, 2, kNoFixedBytes, false,
     182931, 1, 182939, kSysExAllData},
}};

constexpr std::array<DumpRequest, 8> kRequests{{
    {"Current patch", kRequestCurrentPatch, {0x00}, 1},
    {"Bank A", kRequestPatchBank, {kBankASelect, 0x00, 0x00}, 3},
    {"Bank B", kRequestPatchBank, {kBankBSelect, 0x00, 0x00}, 3},
    {"Current multi", kRequestCurrentMulti, {0x00}, 1},
    {"Multibank A", kRequestMultiBank, {kBankASelect, 0x00, 0x00}, 3},
    {"Multibank B", kRequestMultiBank, {kBankBSelect, 0x00, 0x00}, 3},
    {"Current pattern", kRequestCurrentPattern, {0x00}, 1},
    {"Pattern bank", kRequestPatternBank, {kBankASelect, 0x00}, 2},
}};

constexpr int kBankBytes = kPatchBytes * kPatchesPerBank;
constexpr int kMultiBankBytes = kMultiBytes * kMultisPerBank;
constexpr int kArpBankBytes = kPatternBytes * kPatternsPerBank;
constexpr int kGlobalOrMidiBytes = 416;

constexpr std::array<ImagePart, 6> kAllDataLayout{{
    {"Bank A", 1, kBankBytes, kPatchBankA},
    {"Bank B", kBankBytes + 1, 2 * kBankBytes, kPatchBankB},
    {"Multi bank A", 2 * kBankBytes + 1, 2 * kBankBytes + kMultiBankBytes, kMultiBankA},
    {"Multi bank B", 2 * kBankBytes + kMultiBankBytes + 1, 2 * kBankBytes + 2 * kMultiBankBytes,
     kMultiBankB},
    {"Arpeggiator bank", 2 * kBankBytes + 2 * kMultiBankBytes + 1,
     2 * kBankBytes + 2 * kMultiBankBytes + kArpBankBytes, kArpBank},
    {"Global and MIDI data", 2 * kBankBytes + 2 * kMultiBankBytes + kArpBankBytes + 1,
     2 * kBankBytes + 2 * kMultiBankBytes + kArpBankBytes + 2 * kGlobalOrMidiBytes, 0},
}};

constexpr std::array<ImagePart, 2> kAllProgramLayout{{
    {"Bank A", 1, kBankBytes, kPatchBankA},
    {"Bank B", kBankBytes + 1, 2 * kBankBytes, kPatchBankB},
}};

constexpr std::array<ImagePart, 2> kAllMultiLayout{{
    {"Multi bank A", 1, kMultiBankBytes, kMultiBankA},
    {"Multi bank B", kMultiBankBytes + 1, 2 * kMultiBankBytes, kMultiBankB},
}};

constexpr std::array<ImagePart, 1> kGlobalOrMidiLayout{{
    {"Global or MIDI data", 1, kGlobalOrMidiBytes, 0},
}};

// The whole message in one buffer of its final size: the frame, the
// sub-header, packedSize bytes of packed data (a shorter buffer is filled up
// with zeros, a longer one is cut), the closing F7.
SysExMessage frameMessage(std::uint8_t function, std::span<const std::uint8_t> subHeader,
                          int channel, std::span<const std::uint8_t> packed,
                          std::size_t packedSize)
{
    SysExMessage message(kCommonHeaderBytes + subHeader.size() + packedSize + 1, 0);
    message[0] = kSysExStart;
    message[1] = kKorgId;
    message[kChannelIndex] = channelByte(channel);
    message[3] = kZ1ModelId;
    message[kFunctionIndex] = function;
    auto out = std::copy(subHeader.begin(), subHeader.end(), message.begin() + kSubHeaderIndex);
    std::copy_n(packed.begin(), std::min(packedSize, packed.size()), out);
    message.back() = kSysExEnd;
    return message;
}

// A dump of fixed size: exactly the packed size of its kind is written, so a
// closing F7 left on the packed buffer is not copied twice.
SysExMessage fixedDump(int kind, std::uint8_t function, std::span<const std::uint8_t> subHeader,
                       int channel, std::span<const std::uint8_t> packed)
{
    return frameMessage(function, subHeader, channel, packed,
                        static_cast<std::size_t>(packedImageSize(kind)));
}

}  // namespace

std::span<const DumpShape> dumpShapes()
{
    return kDumps;
}

int dumpTypeForLength(std::size_t length)
{
    for (const auto& dump : kDumps) {
        if (static_cast<std::size_t>(dump.totalBytes) == length)
            return dump.type;
    }
    return 0;
}

SysExMessage buildSysExMessage(std::uint8_t function, std::span<const std::uint8_t> subHeader,
                               int channel, std::span<const std::uint8_t> packed)
{
    return frameMessage(function, subHeader, channel, packed, packed.size());
}

SysExMessage currentPatchDump(int channel, std::span<const std::uint8_t> packed)
{
    const std::uint8_t subHeader[] = {0x01};
    return fixedDump(kPatch, kFunctionCurrentPatch, subHeader, channel, packed);
}

SysExMessage currentMultiDump(int channel, std::span<const std::uint8_t> packed)
{
    const std::uint8_t subHeader[] = {0x00};
    return fixedDump(kMultiset, kFunctionCurrentMulti, subHeader, channel, packed);
}

SysExMessage currentPatternDump(int channel, std::span<const std::uint8_t> packed)
{
    const std::uint8_t subHeader[] = {0x00};
    return fixedDump(kPattern, kFunctionCurrentPattern, subHeader, channel, packed);
}

SysExMessage patchBankDump(int bank, int channel, std::span<const std::uint8_t> packed)
{
    if (bank != kPatchBankA && bank != kPatchBankB)
        return {};
    const std::uint8_t subHeader[] = {bank == kPatchBankA ? kBankASelect : kBankBSelect, 0x00, 0x00};
    return fixedDump(bank, kFunctionPatchBank, subHeader, channel, packed);
}

SysExMessage multiBankDump(int multiBank, int channel, std::span<const std::uint8_t> packed)
{
    if (multiBank != kMultiBankA && multiBank != kMultiBankB)
        return {};
    const std::uint8_t subHeader[] = {0x00, multiBank == kMultiBankA ? kBankASelect : kBankBSelect,
                                      0x00, 0x00};
    return fixedDump(multiBank, kFunctionMultiBank, subHeader, channel, packed);
}

SysExMessage arpBankDump(int channel, std::span<const std::uint8_t> packed)
{
    const std::uint8_t subHeader[] = {kBankASelect, 0x00};
    return fixedDump(kArpBank, kFunctionArpBank, subHeader, channel, packed);
}

SysExMessage dumpForKind(int kind, int channel, std::span<const std::uint8_t> packed)
{
    switch (kind) {
    case kPatch: return currentPatchDump(channel, packed);
    case kPatchBankA:
    case kPatchBankB: return patchBankDump(kind, channel, packed);
    case kMultiset: return currentMultiDump(channel, packed);
    case kPattern: return currentPatternDump(channel, packed);
    case kMultiBankA:
    case kMultiBankB: return multiBankDump(kind, channel, packed);
    case kArpBank: return arpBankDump(channel, packed);
    default: return {};
    }
}

std::span<const DumpRequest> dumpRequests()
{
    return kRequests;
}

SysExMessage requestMessage(const DumpRequest& request, int channel)
{
    return buildSysExMessage(request.function,
                             std::span<const std::uint8_t>(request.further.data(),
                                                           static_cast<std::size_t>(request.furtherCount)),
                             channel, {});
}

SysExMessage withChannel(std::span<const std::uint8_t> message, int channel)
{
    SysExMessage resent(message.begin(), message.end());
    if (resent.size() > static_cast<std::size_t>(kChannelIndex))
        resent[kChannelIndex] = channelByte(channel);
    // A dump of two messages (Global then MIDI) has a channel byte in each.
    const auto channelAt = static_cast<std::size_t>(kChannelIndex);
    for (std::size_t at = 1; at + channelAt < resent.size(); ++at)
        if (resent[at] == kSysExStart && resent[at + 1] == kKorgId)
            resent[at + channelAt] = channelByte(channel);
    return resent;
}

int miscDataOffset(int type)
{
    switch (type) {
    case kSysExAllData: return 7;
    case kSysExAllProgram: return 8;
    case kSysExAllMulti: return 9;
    case kSysExGlobalOrMidi:
    case kSysExGlobalAndMidi: return 6;
    default: return 0;
    }
}

int miscImageBytes(int type)
{
    const auto parts = miscImageLayout(type);
    return parts.empty() ? 0 : parts.back().lastByte;
}

std::span<const ImagePart> miscImageLayout(int type)
{
    switch (type) {
    case kSysExAllData: return kAllDataLayout;
    case kSysExAllProgram: return kAllProgramLayout;
    case kSysExAllMulti: return kAllMultiLayout;
    case kSysExGlobalOrMidi: return kGlobalOrMidiLayout;
    default: return {};
    }
}

std::string_view globalOrMidiName(std::span<const std::uint8_t> message)
{
    const bool midi = message.size() > static_cast<std::size_t>(kSubHeaderIndex) &&
                      message[kSubHeaderIndex] != 0;
    return midi ? "MIDI" : "Global";
}

int bankNamedBy(std::span<const std::uint8_t> message, int firstOfPair)
{
    if (firstOfPair == kArpBank)
        return kArpBank;
    const std::size_t selector = firstOfPair == kPatchBankA ? 5 : 6;
    return message.size() > selector && (message[selector] & 1) != 0 ? firstOfPair + 1 : firstOfPair;
}

std::vector<SysExMessage> splitSysExMessages(std::span<const std::uint8_t> bytes)
{
    std::vector<SysExMessage> messages;
    SysExMessage current;
    bool inside = false;
    for (std::uint8_t byte : bytes) {
        if (byte == kSysExStart) {
            current.assign(1, byte);
            inside = true;
        } else if (inside) {
            current.push_back(byte);
            if (byte == kSysExEnd) {
                messages.push_back(std::move(current));
                current.clear();
                inside = false;
            }
        }
    }
    return messages;
}

int dumpRequestIndex(std::span<const std::uint8_t> message)
{
    for (std::size_t i = 0; i < kRequests.size(); ++i) {
        const DumpRequest& request = kRequests[i];
        if (message.size() != static_cast<std::size_t>(kCommonHeaderBytes + request.furtherCount + 1))
            continue;
        if (message[kFunctionIndex] != request.function)
            continue;
        if (std::equal(request.further.begin(), request.further.begin() + request.furtherCount,
                       message.begin() + kSubHeaderIndex))
            return static_cast<int>(i);
    }
    return -1;
}

}  // namespace quillon

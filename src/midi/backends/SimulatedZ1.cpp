#include "midi/backends/SimulatedZ1.h"

#include "midi/backends/Z1FactoryMemory.h"
#include "model/Kind.h"
#include "model/LoadReport.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExBytes.h"
#include "sysex/SysExPacking.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr std::uint8_t kDataLoadCompleted = 0x23;
constexpr std::uint8_t kDataLoadError = 0x24;
constexpr int kGlobalOrMidiBytes = 416;
constexpr int kBankBytes = kPatchBytes * kPatchesPerBank;
constexpr int kMultiBankBytes = kMultiBytes * kMultisPerBank;
constexpr int kArpBankBytes = kPatternBytes * kPatternsPerBank;

// The instrument names both banks in an All Program dump with this
// sub-header; the program takes such bytes over as they come.
constexpr std::uint8_t kAllProgramSubHeader[] = {0x00, 0x00, 0x00};

enum class Taken { NotADump, Taken, Refused };

SysExMessage shortAnswer(int channel, std::uint8_t function)
{
    return {kSysExStart, kKorgId, channelByte(channel), kZ1ModelId, function, kSysExEnd};
}

// The packed data of a message: what stands behind its header, without F7.
SysExImage dataOf(std::span<const std::uint8_t> message, int headerBytes)
{
    return SysExImage(message.begin() + headerBytes, message.end() - 1);
}

// The unpacked image of packed data of any length.
ByteImage unpacked(const SysExImage& packed)
{
    SysExImage buffer = packed;
    buffer.push_back(kSysExEnd);
    LoadReport report;
    return MIDItoDATA(kOtherDump, buffer, report);
}

ByteImage part(const ByteImage& image, int offset, int bytes)
{
    ByteImage result(static_cast<std::size_t>(bytes), 0);
    if (offset < static_cast<int>(image.size()))
        std::copy_n(image.begin() + offset, std::min<int>(bytes, static_cast<int>(image.size()) - offset), result.begin());
    return result;
}

ByteImage unpackedBank(int kind, const SysExImage& packed)
{
    SysExImage buffer = packed;
    LoadReport report;
    return MIDItoDATA(kind, buffer, report);
}

// Data bytes of a SysEx message never have bit 7 set.
bool cleanData(std::span<const std::uint8_t> message)
{
    return std::all_of(message.begin() + 1, message.end() - 1, [](std::uint8_t b) { return b < 0x80; });
}

Taken takeDump(std::span<const std::uint8_t> message, Z1Memory& memory)
{
    const std::uint8_t function = message[kFunctionIndex];
    const std::size_t length = message.size();
    const std::uint8_t sub0 = length > 6 ? message[kSubHeaderIndex] : 0;
    const std::uint8_t sub1 = length > 7 ? message[kSubHeaderIndex + 1] : 0;
    switch (function) {
    case kFunctionCurrentPatch:
    case kFunctionPatchBank:
    case kFunctionCurrentMulti:
    case kFunctionMultiBank:
    case kFunctionCurrentPattern:
    case kFunctionArpBank:
    case kFunctionGlobalOrMidi:
    case kFunctionAllData:
        break;
    default:
        return Taken::NotADump;
    }
    if (!cleanData(message))
        return Taken::Refused;

    if (function == kFunctionCurrentPatch || function == kFunctionPatchBank) {
        if (length == 666 && function == kFunctionCurrentPatch) {
            memory.currentPatch = dataOf(message, 6);
            return Taken::Taken;
        }
        if (length == 668) {
            memory.currentPatch = dataOf(message, 8);
            return Taken::Taken;
        }
        if (length == 84270 && function == kFunctionPatchBank && (sub0 == kBankASelect || sub0 == kBankBSelect)) {
            (sub0 == kBankASelect ? memory.bankA : memory.bankB) = dataOf(message, 8);
            return Taken::Taken;
        }
        if (length == 168531 && function == kFunctionPatchBank) {
            const ByteImage both = unpacked(dataOf(message, 8));
            memory.bankA = DATAtoMIDI(kPatchBankA, part(both, 0, kBankBytes));
            memory.bankB = DATAtoMIDI(kPatchBankB, part(both, kBankBytes, kBankBytes));
            return Taken::Taken;
        }
        return Taken::Refused;
    }
    if (function == kFunctionCurrentMulti || function == kFunctionMultiBank) {
        if (length == 245 && function == kFunctionCurrentMulti) {
            memory.currentMulti = dataOf(message, 6);
            return Taken::Taken;
        }
        if (length == 248) {
            memory.currentMulti = dataOf(message, 9);
            return Taken::Taken;
        }
        if (length == 3814 && function == kFunctionMultiBank && (sub1 == kBankASelect || sub1 == kBankBSelect)) {
            (sub1 == kBankASelect ? memory.multiBankA : memory.multiBankB) = dataOf(message, 9);
            return Taken::Taken;
        }
        if (length == 7617 && function == kFunctionMultiBank) {
            const ByteImage both = unpacked(dataOf(message, 9));
            memory.multiBankA = DATAtoMIDI(kMultiBankA, part(both, 0, kMultiBankBytes));
            memory.multiBankB = DATAtoMIDI(kMultiBankB, part(both, kMultiBankBytes, kMultiBankBytes));
            return Taken::Taken;
        }
        return Taken::Refused;
    }
    if (function == kFunctionCurrentPattern) {
        if (length != 300)
            return Taken::Refused;
        memory.currentPattern = dataOf(message, 6);
        return Taken::Taken;
    }
    if (function == kFunctionArpBank) {
        if (length != 5860)
            return Taken::Refused;
        memory.arpBank = dataOf(message, 7);
        return Taken::Taken;
    }
    if (function == kFunctionGlobalOrMidi) {
        if (length != 483)
            return Taken::Refused;
        (sub0 == 0 ? memory.global : memory.midi) = dataOf(message, 6);
        return Taken::Taken;
    }
    // All Data: both banks, both multi banks, the arpeggiator bank, then
    // Global and MIDI.
    if (length != 182939)
        return Taken::Refused;
    const ByteImage all = unpacked(dataOf(message, 7));
    int at = 0;
    memory.bankA = DATAtoMIDI(kPatchBankA, part(all, at, kBankBytes));
    memory.bankB = DATAtoMIDI(kPatchBankB, part(all, at += kBankBytes, kBankBytes));
    memory.multiBankA = DATAtoMIDI(kMultiBankA, part(all, at += kBankBytes, kMultiBankBytes));
    memory.multiBankB = DATAtoMIDI(kMultiBankB, part(all, at += kMultiBankBytes, kMultiBankBytes));
    memory.arpBank = DATAtoMIDI(kArpBank, part(all, at += kMultiBankBytes, kArpBankBytes));
    memory.global = packBytes(part(all, at += kArpBankBytes, kGlobalOrMidiBytes));
    memory.midi = packBytes(part(all, at + kGlobalOrMidiBytes, kGlobalOrMidiBytes));
    return Taken::Taken;
}

// The index of the request in the request list, or -1.
int requestIndex(std::span<const std::uint8_t> message)
{
    const auto requests = dumpRequests();
    for (std::size_t i = 0; i < requests.size(); ++i) {
        const DumpRequest& request = requests[i];
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

}  // namespace

SimulatedZ1::SimulatedZ1(int globalChannel) : globalChannel_(globalChannel), memory_(z1FactoryMemory()) {}

std::vector<SysExMessage> SimulatedZ1::receiveSysEx(std::span<const std::uint8_t> message)
{
    received_.emplace_back(message.begin(), message.end());
    std::vector<SysExMessage> answers;
    for (const SysExMessage& one : splitSysExMessages(message)) {
        // Korg, this channel, the Z1: anything else is some other device's.
        if (one.size() < 6 || one[1] != kKorgId || one[kChannelIndex] != channelByte(globalChannel_) ||
            one[3] != kZ1ModelId)
            continue;
        const int request = requestIndex(one);
        if (request >= 0) {
            answers.push_back(dumpFor(request));
            continue;
        }
        switch (takeDump(one, memory_)) {
        case Taken::Taken: answers.push_back(shortAnswer(globalChannel_, kDataLoadCompleted)); break;
        case Taken::Refused: answers.push_back(shortAnswer(globalChannel_, kDataLoadError)); break;
        case Taken::NotADump: break;
        }
    }
    return answers;
}

void SimulatedZ1::receiveShort(int status, int data1, int data2)
{
    const int type = status & 0xF0;
    if (type == 0x90 || type == 0x80)
        notes_.push_back({status, data1, data2});
}

bool SimulatedZ1::load(std::span<const std::uint8_t> message)
{
    const auto messages = splitSysExMessages(message);
    if (messages.empty())
        return false;
    bool all = true;
    for (const SysExMessage& one : messages) {
        if (one.size() < 6 || one[1] != kKorgId || one[3] != kZ1ModelId ||
            takeDump(one, memory_) != Taken::Taken)
            all = false;
    }
    return all;
}

SysExMessage SimulatedZ1::dumpFor(int requestIndex) const
{
    switch (requestIndex) {
    case 0: return currentPatchDump(globalChannel_, memory_.currentPatch);
    case 1:
        if (bankAAsAllProgram_) {
            ByteImage both = unpackedBank(kPatchBankA, memory_.bankA);
            const ByteImage b = unpackedBank(kPatchBankB, memory_.bankB);
            both.insert(both.end(), b.begin(), b.end());
            return buildSysExMessage(kFunctionPatchBank, kAllProgramSubHeader, globalChannel_, packBytes(both));
        }
        return patchBankDump(kPatchBankA, globalChannel_, memory_.bankA);
    case 2: return patchBankDump(kPatchBankB, globalChannel_, memory_.bankB);
    case 3: return currentMultiDump(globalChannel_, memory_.currentMulti);
    case 4: return multiBankDump(kMultiBankA, globalChannel_, memory_.multiBankA);
    case 5: return multiBankDump(kMultiBankB, globalChannel_, memory_.multiBankB);
    case 6: return currentPatternDump(globalChannel_, memory_.currentPattern);
    case 7: return arpBankDump(globalChannel_, memory_.arpBank);
    default: return {};
    }
}

}  // namespace quillon

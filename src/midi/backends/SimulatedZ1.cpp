#include "midi/backends/SimulatedZ1.h"

#include "midi/backends/Z1FactoryMemory.h"
#include "model/Kind.h"
#include "model/LoadReport.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExBytes.h"
#include "sysex/SysExClassifier.h"
#include "sysex/SysExPacking.h"

#include <algorithm>
#include <chrono>
#include <map>

namespace quillon {

namespace {

// The instrument names both banks in an All Program dump with this
// sub-header; the program takes such bytes over as they come.
constexpr std::uint8_t kAllProgramSubHeader[] = {0x20, 0x00, 0x00};

enum class Taken { NotADump, Taken, Refused };

// DATA LOAD COMPLETED is six bytes; DATA LOAD ERROR carries a 0 before its
// F7.
SysExMessage shortAnswer(int channel, std::uint8_t function)
{
    if (function == kFunctionDataLoadError)
        return {kSysExStart, kKorgId, channelByte(channel), kZ1ModelId, function, 0x00, kSysExEnd};
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

bool isDumpFunction(std::uint8_t function)
{
    const auto shapes = dumpShapes();
    return std::any_of(shapes.begin(), shapes.end(), [function](const DumpShape& shape) {
        return shape.function == function || shape.otherFunction == function;
    });
}

// The dump that comes as one message of this function code and length. Bank
// A and bank B (and the two multi banks) share their shape here; the bank
// select byte tells them apart.
const DumpShape* shapeOf(std::span<const std::uint8_t> message)
{
    const std::uint8_t function = message[kFunctionIndex];
    for (const DumpShape& shape : dumpShapes()) {
        if (shape.messageCount == 1 && static_cast<std::size_t>(shape.totalBytes) == message.size() &&
            (shape.function == function || shape.otherFunction == function))
            return &shape;
    }
    return nullptr;
}

SysExImage& bankOf(Z1Memory& memory, int kind)
{
    switch (kind) {
    case kPatchBankA: return memory.bankA;
    case kPatchBankB: return memory.bankB;
    case kMultiBankA: return memory.multiBankA;
    case kMultiBankB: return memory.multiBankB;
    default: return memory.arpBank;  // the one other bank a dump holds
    }
}

// The parts of an All Program, All Multi or All Data image, each into its
// place; the part of no bank is Global and MIDI back to back.
void takeImage(int type, const ByteImage& image, Z1Memory& memory)
{
    for (const ImagePart& place : miscImageLayout(type)) {
        const ByteImage bytes = part(image, place.firstByte - 1, place.bytes());
        if (place.kind != 0) {
            bankOf(memory, place.kind) = DATAtoMIDI(place.kind, bytes);
            continue;
        }
        const int half = place.bytes() / 2;
        memory.global = packBytes(part(bytes, 0, half));
        memory.midi = packBytes(part(bytes, half, half));
    }
}

Taken takeDump(std::span<const std::uint8_t> message, Z1Memory& memory)
{
    if (!isDumpFunction(message[kFunctionIndex]))
        return Taken::NotADump;
    if (!cleanData(message))
        return Taken::Refused;
    const DumpShape* shape = shapeOf(message);
    if (shape == nullptr)
        return Taken::Refused;
    SysExImage data = dataOf(message, shape->headerBytes());
    switch (shape->type) {
    case kSysExPatch: memory.currentPatch = std::move(data); return Taken::Taken;
    case kSysExSingleMulti: memory.currentMulti = std::move(data); return Taken::Taken;
    case kSysExSinglePattern: memory.currentPattern = std::move(data); return Taken::Taken;
    case kSysExArpBank: memory.arpBank = std::move(data); return Taken::Taken;
    case kSysExGlobalOrMidi:
        (message[kSubHeaderIndex] == 0 ? memory.global : memory.midi) = std::move(data);
        return Taken::Taken;
    case kSysExPatchBank:
    case kSysExMultiBank: {
        // A bank names itself in its first sub-header byte, a multi bank in
        // its second.
        const bool multi = shape->type == kSysExMultiBank;
        const std::uint8_t select = message[kSubHeaderIndex + (multi ? 1 : 0)];
        if (select != kBankASelect && select != kBankBSelect)
            return Taken::Refused;
        const int first = multi ? kMultiBankA : kPatchBankA;
        bankOf(memory, select == kBankASelect ? first : first + 1) = std::move(data);
        return Taken::Taken;
    }
    default:  // All Program, All Multi, All Data
        takeImage(shape->type, unpacked(data), memory);
        return Taken::Taken;
    }
}


}  // namespace

SimulatedZ1::SimulatedZ1(int globalChannel) : globalChannel_(globalChannel), memory_(z1FactoryMemory())
{
    const auto madeAt = std::chrono::steady_clock::now();
    clock_ = [madeAt] {
        return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - madeAt).count();
    };
}

std::vector<SysExMessage> SimulatedZ1::receiveSysEx(std::span<const std::uint8_t> message)
{
    received_.emplace_back(message.begin(), message.end());
    std::vector<SysExMessage> answers;
    for (const SysExMessage& one : splitSysExMessages(message)) {
        // Korg, this channel, the Z1: anything else is some other device's.
        if (one.size() < 6 || one[1] != kKorgId || one[kChannelIndex] != channelByte(globalChannel_) ||
            one[3] != kZ1ModelId)
            continue;
        const int request = dumpRequestIndex(one);
        if (request >= 0) {
            answers.push_back(dumpFor(request));
            continue;
        }
        switch (takeDump(one, memory_)) {
        case Taken::Taken: answers.push_back(shortAnswer(globalChannel_, kFunctionDataLoadCompleted)); break;
        case Taken::Refused: answers.push_back(shortAnswer(globalChannel_, kFunctionDataLoadError)); break;
        case Taken::NotADump: break;
        }
    }
    return answers;
}

void SimulatedZ1::receiveShort(int status, int data1, int data2)
{
    const int type = status & 0xF0;
    if (type == 0x90 || type == 0x80)
        notes_.push_back({status, data1, data2, clock_ ? clock_() : 0});
}

std::vector<SoundingKey> SimulatedZ1::sounding() const
{
    std::map<SoundingKey, bool> held;
    for (const PlayedNote& note : notes_)
        held[{(note.status & 0x0F) + 1, note.key}] = note.on();
    std::vector<SoundingKey> keys;
    for (const auto& [key, on] : held)
        if (on)
            keys.push_back(key);
    return keys;
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

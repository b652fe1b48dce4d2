#pragma once

#include "sysex/SysExBytes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace quillon {

// One dump the instrument sends or takes: its function code (some dumps come
// with either of two), the bytes between function code and packed data, the
// packed data and the whole length. Sub-header bytes that are not fixed are
// taken over from what was received.
struct DumpShape {
    std::string_view name;
    std::uint8_t function;
    std::uint8_t otherFunction;  // the same as function when there is one
    int subHeaderBytes;
    std::array<std::uint8_t, 4> subHeader;  // valid when subHeaderFixed
    bool subHeaderFixed;
    int packedBytes;
    int messageCount;  // Global and MIDI come as two messages back to back
    int totalBytes;
    int type;          // SysExType

    int headerBytes() const { return kCommonHeaderBytes + subHeaderBytes; }
};

// Every dump: current patch, patch with a longer header, current multi, multi
// with a longer header, current pattern, pattern with a longer header, bank A, bank B, All Program, multi
// bank A, multi bank B, All Multi, arpeggiator bank, Global or MIDI, Global
// and MIDI, All Data.
std::span<const DumpShape> dumpShapes();

// The type of a received message by its exact length; 0 for a length that
// is no dump of the instrument.
int dumpTypeForLength(std::size_t length);

// A whole message: F0 42 3n 46, function, sub-header, packed data as given,
// F7. channel is 1 to 16.
SysExMessage buildSysExMessage(std::uint8_t function, std::span<const std::uint8_t> subHeader,
                               int channel, std::span<const std::uint8_t> packed);

// The dumps the program sends and saves. Each writes exactly the packed size
// of its kind: a closing F7 left on the packed buffer is not copied, and a
// short buffer is filled up with zeros. Saved files use channel 1 (byte 30).
SysExMessage currentPatchDump(int channel, std::span<const std::uint8_t> packed);
SysExMessage currentMultiDump(int channel, std::span<const std::uint8_t> packed);
SysExMessage currentPatternDump(int channel, std::span<const std::uint8_t> packed);
// bank is the kind: 2 for bank A, 3 for bank B; any other gives no message.
SysExMessage patchBankDump(int bank, int channel, std::span<const std::uint8_t> packed);
// multiBank is the kind: 6 for multi bank A, 7 for B; any other gives none.
SysExMessage multiBankDump(int multiBank, int channel, std::span<const std::uint8_t> packed);
SysExMessage arpBankDump(int channel, std::span<const std::uint8_t> packed);
// The dump of kind 1 to 8; an empty message for any other kind.
SysExMessage dumpForKind(int kind, int channel, std::span<const std::uint8_t> packed);

// A request for a dump, as offered to the user by its label.
struct DumpRequest {
    std::string_view label;
    std::uint8_t function;
    std::array<std::uint8_t, 3> further;
    int furtherCount;
};

// The eight requests: "Current patch", "Bank A", "Bank B", "Current multi",
// "Multibank A", "Multibank B", "Current pattern", "Pattern bank".
std::span<const DumpRequest> dumpRequests();

SysExMessage requestMessage(const DumpRequest& request, int channel);

// The index (0 to 7) of the request a message is, whatever its channel; -1
// for any other message.
int dumpRequestIndex(std::span<const std::uint8_t> message);

// A miscellaneous dump sent again as it came, with only its channel set anew.
SysExMessage withChannel(std::span<const std::uint8_t> message, int channel);

// Where the packed data of a miscellaneous dump starts: the number of bytes
// in front of it (7 All Data, 8 All Program, 9 All Multi, 6 Global or MIDI
// and Global and MIDI); 0 for any other type.
int miscDataOffset(int type);

// Size of the unpacked image of a miscellaneous dump (types 1, 2, 5, 10);
// 0 for any other type.
int miscImageBytes(int type);

// One part of the unpacked image of a miscellaneous dump, bytes numbered
// from 1. kind is the bank the part fills, or 0 for data that is carried
// through whole and never taken apart.
struct ImagePart {
    std::string_view content;
    int firstByte;
    int lastByte;
    int kind;

    int bytes() const { return lastByte - firstByte + 1; }
};

// The parts of the unpacked image of a dump of type 1, 2, 5 or 10; empty for
// any other type.
std::span<const ImagePart> miscImageLayout(int type);

// The messages that stand one behind the other in a buffer (a file, or what
// an output plays out): each from F0 up to its F7. Bytes outside a message,
// and a message cut short by the next F0 or by the end, are dropped.
std::vector<SysExMessage> splitSysExMessages(std::span<const std::uint8_t> bytes);

// Which bank of its pair a bank or multi bank dump names: bit 0 of the byte
// behind its function code (bank) or of its first sub-header byte (multi
// bank). firstOfPair is 2 (patch banks) or 6 (multi banks); the arpeggiator
// bank (8) is one of a kind.
int bankNamedBy(std::span<const std::uint8_t> message, int firstOfPair);

// "MIDI" or "Global" for a Global or MIDI dump, by the sub-header byte behind
// its function code: non-zero means MIDI.
std::string_view globalOrMidiName(std::span<const std::uint8_t> message);

}  // namespace quillon

#pragma once

#include "model/DataTypes.h"
#include "sysex/SysExBytes.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace quillon {

// A note the simulated instrument was played, and when.
struct PlayedNote {
    int status;  // 0x90 note on or 0x80 note off, with the channel
    int key;
    int velocity;
    std::int64_t time = 0;  // milliseconds on the instrument's clock

    // A note on with a velocity above 0; anything else releases the key.
    bool on() const { return (status & 0xF0) == 0x90 && velocity > 0; }
};

// A key held down: channel 1 to 16 and key number.
struct SoundingKey {
    int channel;
    int key;
    bool operator==(const SoundingKey&) const = default;
    auto operator<=>(const SoundingKey&) const = default;
};

// The memory of the simulated instrument, packed as the Z1 sends it: the
// packed data of each dump, without header and F7.
struct Z1Memory {
    std::vector<std::uint8_t> currentPatch;    // 659 bytes
    std::vector<std::uint8_t> bankA;           // 84261
    std::vector<std::uint8_t> bankB;           // 84261
    std::vector<std::uint8_t> currentMulti;    // 238
    std::vector<std::uint8_t> multiBankA;      // 3804
    std::vector<std::uint8_t> multiBankB;      // 3804
    std::vector<std::uint8_t> currentPattern;  // 293
    std::vector<std::uint8_t> arpBank;         // 5852
    std::vector<std::uint8_t> global;          // the Global dump's packed data
    std::vector<std::uint8_t> midi;            // the MIDI dump's packed data
};

// A Korg Z1 as seen over MIDI: it answers every dump request on its global
// channel with the dump the instrument sends, takes every dump into its
// memory and acknowledges it (DATA LOAD COMPLETED, or DATA LOAD ERROR when
// the data is not acceptable), and keeps the notes it is played. No threads,
// no clock: the caller carries messages to and from it.
class SimulatedZ1 {
public:
    // Seeded with plausible patches, multisets and patterns.
    explicit SimulatedZ1(int globalChannel = 1);

    int globalChannel() const { return globalChannel_; }
    void setGlobalChannel(int channel) { globalChannel_ = channel; }

    // Owners report that their instruments answer a Bank A request with an
    // All Program dump; so can this one.
    void setBankAAsAllProgram(bool on) { bankAAsAllProgram_ = on; }
    bool bankAAsAllProgram() const { return bankAAsAllProgram_; }

    // One whole SysEx message in; the messages the instrument sends back
    // (none for a message not on its channel or not for a Z1).
    std::vector<SysExMessage> receiveSysEx(std::span<const std::uint8_t> message);
    // A short message in (notes are recorded with the time of the clock).
    void receiveShort(int status, int data1, int data2);

    // The instrument's clock in milliseconds; unless set, the time since
    // the instrument was made.
    void setClock(std::function<std::int64_t()> clock) { clock_ = std::move(clock); }

    // Puts the items of a dump into memory as if it had been sent, without
    // an answer; false when it is no dump the instrument takes.
    bool load(std::span<const std::uint8_t> message);

    // The dump the instrument sends for request `index` of the request list
    // (0 current patch ... 7 pattern bank), on its channel.
    SysExMessage dumpFor(int requestIndex) const;

    const Z1Memory& memory() const { return memory_; }
    const std::vector<PlayedNote>& notes() const { return notes_; }
    // The keys whose last note was a note on, by channel and key.
    std::vector<SoundingKey> sounding() const;
    // Every SysEx message taken in, in order.
    const std::vector<SysExMessage>& received() const { return received_; }

private:
    int globalChannel_;
    bool bankAAsAllProgram_ = false;
    Z1Memory memory_;
    std::vector<PlayedNote> notes_;
    std::function<std::int64_t()> clock_;
    std::vector<SysExMessage> received_;
};

}  // namespace quillon

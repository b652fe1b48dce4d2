#pragma once

#include "model/DataTypes.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillon {

// One message length that the program takes apart: how many header bytes
// stand before the packed data, which message types may carry it, and where
// the data goes. The copied bytes are the packed data and the closing F7.
struct MessageShape {
    int length;
    int headerBytes;
    int acceptedTypes[2];  // a shape with one accepted type repeats it
    int target;            // kind; for the banks, the first of the pair
    bool targetIsCurrentBank;
    std::string_view busyText;
    std::string_view doneText;

    int copiedBytes() const { return length - headerBytes; }
    bool accepts(int type) const { return type == acceptedTypes[0] || type == acceptedTypes[1]; }
};

// The eight message lengths that carry one patch, multiset, pattern, bank,
// multi bank or arpeggiator bank, in the order the program tests them.
std::span<const MessageShape> messageShapes();

// The shape of a message of this length, or nullptr for any other length.
const MessageShape* findMessageShape(std::size_t length);

// What STRINGtoMIDI made of one message. The core shows nothing itself: the
// caller stores the channel, shows the status texts and, on a bad header, the
// message box, and empties the status line.
struct StringToMidiResult {
    // The length is one of the eight; any other length does nothing at all.
    bool handled = false;
    // False when the header is bad; then only the message box texts and
    // clearStatusLine below are set.
    bool success = false;
    // The kind whose packed buffer takes the data: 1, 4, 5, 8, or the bank
    // (2/3) or multi bank (6/7) the caller named.
    int target = 0;
    // The packed data with the closing F7 behind it.
    SysExImage packed;
    // The message's MIDI channel, 1 to 16, for the input channel setting.
    int channel = 0;
    // For the three bank conversions: the status line while converting and
    // when done. Empty for the short messages.
    std::string_view busyText;
    std::string_view doneText;
    // Set on a bad header: the message box to show.
    std::string_view errorTitle;
    std::string_view errorText;
    // Set on a bad header: the status line is to be emptied.
    bool clearStatusLine = false;
};

// Strips a received or loaded message down to its packed data. The message's
// length decides its shape; its first five bytes must then be of a type the
// shape accepts. A bank dump goes to bankTarget (2 or 3) and a multi bank
// dump to multiBankTarget (6 or 7) whatever bank its sub-header names.
StringToMidiResult STRINGtoMIDI(std::span<const std::uint8_t> message, int bankTarget,
                                int multiBankTarget);

}  // namespace quillon

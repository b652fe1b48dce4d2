#include "sysex/SysExPacking.h"

#include "model/Kind.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace quillon {

namespace {

constexpr std::size_t kGroupBytes = 8;  // one first byte and seven data bytes
constexpr std::size_t kDataPerGroup = 7;

void reportHiBitsBehindData(LoadReport& report, std::size_t byteNumber)
{
    report.add("MIDI byte " + std::to_string(byteNumber) + " hiBits present (ignored)");
}

void reportHighValue(LoadReport& report, std::size_t byteNumber, int newValue, int oldValue)
{
    report.add("MIDI byte " + std::to_string(byteNumber) + " high value " +
               std::to_string(newValue) + " changed to " + std::to_string(oldValue));
}

// Unpacks the first n bytes of the packed buffer, putting the high bits into
// the buffer's data bytes as it goes. Byte numbers in the reports count from
// 1, as the user counts the bytes of the data.
ByteImage unpackInPlace(std::uint8_t* packed, std::size_t n, LoadReport& report)
{
    const std::size_t firstBytes = (n + kGroupBytes - 1) / kGroupBytes;
    ByteImage image(n - firstBytes);
    std::uint8_t* out = image.data();

    for (std::size_t i = 0; i < n; i += kGroupBytes) {
        // Bit b of the first byte is bit 7 of data byte b; bit 7 of the first
        // byte stands for no data byte and is ignored.
        const unsigned high = packed[i];
        std::uint8_t* data = packed + i + 1;
        const std::size_t dataCount = std::min(kDataPerGroup, n - i - 1);
        for (std::size_t b = 0; b < dataCount; ++b) {
            const unsigned add = (high >> b) & 1u;
            // A data byte that already has bit 7 keeps it and is reported;
            // or-ing the bit in leaves such a byte as it is.
            if ((add & (data[b] >> 7)) != 0)
                reportHighValue(report, i + b + 2, data[b] + 128, data[b]);
            data[b] = static_cast<std::uint8_t>(data[b] | (add << 7));
            *out++ = data[b];
        }
        // Only the short last group can name bytes behind the data.
        for (std::size_t b = dataCount; b < kDataPerGroup; ++b) {
            if (((high >> b) & 1u) != 0)
                reportHiBitsBehindData(report, i + b + 2);
        }
    }
    return image;
}

}  // namespace

ByteImage MIDItoDATA(int kind, SysExImage& packed, LoadReport& report)
{
    std::size_t n = 0;
    if (kind == kOtherDump) {
        // The miscellaneous buffer ends with the message's F7, which is not data.
        n = packed.empty() ? 0 : packed.size() - 1;
    } else {
        const int size = packedImageSize(kind);
        if (size == 0)
            return {};
        n = static_cast<std::size_t>(size);
        if (packed.size() < n)
            packed.resize(n, 0);
    }
    return unpackInPlace(packed.data(), n, report);
}

SysExImage packBytes(std::span<const std::uint8_t> image)
{
    const std::size_t n = image.size();
    SysExImage packed(n + (n + kDataPerGroup - 1) / kDataPerGroup);
    const std::uint8_t* in = image.data();
    std::uint8_t* out = packed.data();
    for (std::size_t i = 0; i < n; i += kDataPerGroup) {
        const std::size_t count = std::min(kDataPerGroup, n - i);
        std::uint8_t* first = out++;
        std::uint8_t high = 0;
        for (std::size_t b = 0; b < count; ++b) {
            const std::uint8_t value = in[i + b];
            high = static_cast<std::uint8_t>(high | ((value >> 7) << b));
            *out++ = static_cast<std::uint8_t>(value & 0x7F);
        }
        *first = high;
    }
    return packed;
}

SysExImage DATAtoMIDI(int kind, const ByteImage& image)
{
    const int size = byteImageSize(kind);
    if (size == 0)
        return {};
    const auto n = static_cast<std::size_t>(size);
    if (image.size() >= n)
        return packBytes(std::span<const std::uint8_t>(image).first(n));
    ByteImage filled(n, 0);
    std::copy(image.begin(), image.end(), filled.begin());
    return packBytes(filled);
}

}  // namespace quillon

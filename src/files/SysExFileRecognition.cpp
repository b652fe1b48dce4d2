#include "files/SysExFileRecognition.h"

#include "sysex/HexText.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExBytes.h"
#include "sysex/SysExClassifier.h"

#include <algorithm>
#include <array>

namespace quillon {

namespace {

struct SizeBand {
    int band;
    std::uintmax_t first;
    std::uintmax_t last;
};

// Each band is the message length plus 200, except that the global band stops
// short of the patch band and the single multiset and pattern bands are
// shaped around each other. The order matters: the first band that holds
// the size wins.
constexpr std::array<SizeBand, 12> kSizeBands{{
    {1, 182939, 183139},
    {2, 168531, 168731},
    {3, 84270, 84470},
    {4, 666, 866},
    {5, 7617, 7817},
    {6, 3814, 4014},
    {7, 245, 297},
    {7, 365, 448},
    {8, 5860, 6060},
    {9, 300, 364},
    {10, 483, 663},
    {11, 966, 1166},
}};

// Where a loader takes its file as plain and where as wrapped, and how big a
// buffer it reads the file into. A band with no wrapped form has an empty
// wrapped range (first above last).
struct LoaderSearch {
    int band;
    std::uintmax_t scanFirst;
    std::uintmax_t scanLast;
    std::uintmax_t wrappedFirst;
    std::uintmax_t wrappedLast;
    std::size_t bufferBytes;
};

constexpr std::array<LoaderSearch, 6> kLoaderSearches{{
    {4, 666, 785, 786, 866, 910},
    {7, 245, 364, 365, 448, 448},
    {9, 300, 364, 1, 0, 364},
    {3, 84270, 84389, 84390, 84470, 84472},
    {6, 3814, 3933, 3934, 4014, 4014},
    {8, 5860, 5979, 5980, 6060, 6060},
}};

constexpr std::size_t kMiscBufferBytes = 184000;

// The wrapped form: a preamble that is not read, the count of messages at
// bytes 115 and 116, then four bytes of length for each message.
constexpr std::size_t kCountIndex = 114;
constexpr std::size_t kLengthTableIndex = 116;
constexpr std::size_t kLengthBytes = 4;
constexpr int kMostWrappedMessages = 10;

const LoaderSearch* loaderSearchOf(int band)
{
    for (const auto& search : kLoaderSearches) {
        if (search.band == band)
            return &search;
    }
    return nullptr;
}

bool isAccepted(std::span<const int> accepted, long long length)
{
    return std::any_of(accepted.begin(), accepted.end(), [length](int a) { return a == length; });
}

// Two bytes, low byte first, read as the wrapped files have always been read:
// through their hexadecimal text.
int lowHighWord(std::uint8_t low, std::uint8_t high)
{
    return lsbMsbToInteger(hexByte(low).text + hexByte(high).text).value;
}

}  // namespace

int recognizeFileSize(std::uintmax_t size)
{
    for (const auto& band : kSizeBands) {
        if (size >= band.first && size <= band.last)
            return band.band;
    }
    return kSysExNonZ1;
}

std::string_view fileBandName(int band) { return sysExTypeLabel(band); }

std::vector<int> acceptedLengths(int band)
{
    switch (band) {
    case kSysExPatch: return {666, 668};
    case kSysExSingleMulti: return {245, 248};
    case kSysExSinglePattern: return {300, 301};
    case kSysExPatchBank: return {84270};
    case kSysExMultiBank: return {3814};
    case kSysExArpBank: return {5860};
    default: break;
    }
    if (isMiscBand(band))
        return {miscWantedLength(band)};
    return {};
}

std::size_t loaderBufferBytes(int band)
{
    if (const LoaderSearch* search = loaderSearchOf(band))
        return search->bufferBytes;
    return isMiscBand(band) ? kMiscBufferBytes : 0;
}

MessageSearch scanForMessage(std::span<const std::uint8_t> file, std::span<const int> accepted)
{
    // Places count from 1 here; 0 means none seen yet.
    long long latestStart = 0;
    long long latestEnd = 0;
    for (std::size_t i = 1; i <= file.size(); ++i) {
        const std::uint8_t byte = file[i - 1];
        if (byte == kSysExStart)
            latestStart = static_cast<long long>(i);
        else if (byte == kSysExEnd)
            latestEnd = static_cast<long long>(i);
        // Without an F0 there is no message to speak of, whatever the F7.
        if (latestStart == 0)
            continue;
        const long long span = latestEnd - latestStart + 1;
        if (isAccepted(accepted, span)) {
            const auto first = static_cast<std::size_t>(latestStart - 1);
            MessageSearch found;
            found.result = SearchResult::Found;
            found.offset = first;
            found.message.assign(file.begin() + static_cast<std::ptrdiff_t>(first),
                                 file.begin() + static_cast<std::ptrdiff_t>(first + static_cast<std::size_t>(span)));
            return found;
        }
    }
    return {};
}

MessageSearch walkWrappedFile(std::span<const std::uint8_t> file, std::span<const int> accepted,
                              std::size_t bufferBytes)
{
    MessageSearch error;
    error.result = SearchResult::Error;

    // The loader's buffer: the file as far as it fits, zeros behind it.
    std::vector<std::uint8_t> buffer(bufferBytes, 0);
    std::copy_n(file.begin(), std::min(file.size(), bufferBytes), buffer.begin());
    if (buffer.size() < kLengthTableIndex)
        return error;

    const int count = lowHighWord(buffer[kCountIndex], buffer[kCountIndex + 1]);
    if (count > kMostWrappedMessages)
        return error;
    const std::size_t tableEnd = kLengthTableIndex + kLengthBytes * static_cast<std::size_t>(count);
    if (tableEnd > buffer.size())
        return error;

    MessageSearch result;
    std::size_t position = tableEnd;
    for (int m = 0; m < count; ++m) {
        const std::size_t entry = kLengthTableIndex + kLengthBytes * static_cast<std::size_t>(m);
        const std::size_t length =
            static_cast<std::size_t>(lowHighWord(buffer[entry], buffer[entry + 1])) +
            65536u * static_cast<std::size_t>(lowHighWord(buffer[entry + 2], buffer[entry + 3]));
        if (position + length > buffer.size())
            return error;
        if (isAccepted(accepted, static_cast<long long>(length))) {
            result.result = SearchResult::Found;
            result.offset = position;
            result.message.assign(buffer.begin() + static_cast<std::ptrdiff_t>(position),
                                  buffer.begin() + static_cast<std::ptrdiff_t>(position + length));
        }
        position += length;
    }
    return result;
}

namespace {

// The instrument, and other librarians, write Global and MIDI as two
// messages of 483 bytes, Global first: together they are the 966 bytes of
// the dump, whichever of the two forms of file holds them.
MessageSearch findGlobalThenMidi(std::span<const std::uint8_t> file)
{
    constexpr std::size_t kHalf = 483;
    const std::vector<SysExMessage> messages = splitSysExMessages(file);
    for (std::size_t i = 0; i + 1 < messages.size(); ++i) {
        const SysExMessage& global = messages[i];
        const SysExMessage& midi = messages[i + 1];
        if (global.size() != kHalf || midi.size() != kHalf || globalOrMidiName(global) != "Global" ||
            globalOrMidiName(midi) != "MIDI")
            continue;
        MessageSearch found;
        found.result = SearchResult::Found;
        found.message = global;
        found.message.insert(found.message.end(), midi.begin(), midi.end());
        return found;
    }
    return {};
}

}  // namespace

MessageSearch findMessageInFile(std::span<const std::uint8_t> file, int band)
{
    const std::vector<int> accepted = acceptedLengths(band);
    if (isMiscBand(band)) {
        const auto inBuffer = file.first(std::min(file.size(), kMiscBufferBytes));
        MessageSearch found = scanForMessage(inBuffer, accepted);
        if (found.result == SearchResult::NotFound)
            found = walkWrappedFile(file, accepted, kMiscBufferBytes);
        if (found.result != SearchResult::Found && band == kSysExGlobalAndMidi) {
            // A plain file of the two messages is no wrapped file: its walk
            // fails, and the pair is what it holds.
            MessageSearch pair = findGlobalThenMidi(inBuffer);
            if (pair.result == SearchResult::Found)
                return pair;
        }
        return found;
    }
    const LoaderSearch* search = loaderSearchOf(band);
    if (!search)
        return {};
    const std::uintmax_t size = file.size();
    if (size >= search->scanFirst && size <= search->scanLast)
        return scanForMessage(file.first(std::min(file.size(), search->bufferBytes)), accepted);
    if (size >= search->wrappedFirst && size <= search->wrappedLast)
        return walkWrappedFile(file, accepted, search->bufferBytes);
    return {};
}

int miscWantedLength(int band)
{
    switch (band) {
    case kSysExAllData: return 182939;
    case kSysExAllProgram: return 168531;
    case kSysExAllMulti: return 7617;
    case kSysExGlobalOrMidi: return 483;
    case kSysExGlobalAndMidi: return 966;
    default: return 0;
    }
}

std::string_view miscFileName(int band)
{
    switch (band) {
    case kSysExAllData: return "All Data";
    case kSysExAllProgram: return "All Program";
    case kSysExAllMulti: return "All Multi";
    case kSysExGlobalOrMidi: return "Global/MIDI";
    case kSysExGlobalAndMidi: return "Global and MIDI";
    default: return {};
    }
}

bool isMiscBand(int band)
{
    return band == kSysExAllData || band == kSysExAllProgram || band == kSysExAllMulti ||
           band == kSysExGlobalOrMidi || band == kSysExGlobalAndMidi;
}

}  // namespace quillon

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace quillon {

// How a .syx file is told apart: first by its size alone, into one of twelve
// bands numbered like the message types (1 "all Z1" ... 12 "non-Z1"); then
// the loader of that band looks inside the file for the one message it
// wants. Two forms of file are read: plain (a message, maybe with stray bytes
// around it) and wrapped (a 114-byte preamble, a count at bytes 115 and 116,
// a table of lengths, then the messages back to back).

// The band of a file of this size, 1 to 12; the bounds are inclusive and the
// bands are tried in the order that lets a size of 298, 299 or 449 to 482
// fall through to "non-Z1".
int recognizeFileSize(std::uintmax_t size);

// "all Z1", "all program", "bank", "patch", "all multi", "multi A/B",
// "single multi", "arpeggiator", "single arpeggiator", "global/MIDI",
// "global & MIDI", "non-Z1"; empty for a number outside 1 to 12.
std::string_view fileBandName(int band);

// The message lengths the loader of a band accepts: 666 and 668 for a patch,
// 245 and 248 for a multiset, 300 for a pattern, 84270 for a bank, 3814 for a
// multi bank, 5860 for the arpeggiator bank, and the one length of the
// several-kinds file of that band. Empty for "non-Z1".
std::vector<int> acceptedLengths(int band);

// How many bytes the loader of a band reads its file into; a wrapped file's
// entries are walked within this buffer, which is zero behind the file.
std::size_t loaderBufferBytes(int band);

// The outcome of looking for a message. An error is a wrapped file with more
// than ten messages or whose entries run past the buffer: the loader reports
// it as a problem with the file rather than as data not found.
enum class SearchResult { Found, NotFound, Error };

struct MessageSearch {
    SearchResult result = SearchResult::NotFound;
    std::vector<std::uint8_t> message;  // the whole message, F0 ... F7
    std::size_t offset = 0;             // where it starts in the file, from 0
};

// The plain scan: walk the file remembering the latest F0 and the latest F7;
// as soon as the span from the one to the other is an accepted length, the
// message at that F0 is it. The bytes between are not looked at, and of
// several messages of the right length the first wins.
MessageSearch scanForMessage(std::span<const std::uint8_t> file, std::span<const int> accepted);

// The wrapped walk: the count at bytes 115 and 116 (low byte first), that
// many lengths of four bytes (low byte first) from byte 117, then the
// messages in order. Every entry of an accepted length is copied out, so of
// several the last one is kept; others are stepped over by their length.
MessageSearch walkWrappedFile(std::span<const std::uint8_t> file, std::span<const int> accepted,
                              std::size_t bufferBytes);

// What the loader of the band finds in a file of that band: the plain scan
// for sizes in its scan band, the wrapped walk in its wrapped band; a
// several-kinds file is scanned first and walked when the scan finds nothing.
// A file outside both bands of the loader finds nothing.
MessageSearch findMessageInFile(std::span<const std::uint8_t> file, int band);

// For the several-kinds bands (1, 2, 5, 10, 11): the length wanted, and the
// name the file goes by until its message is found ("All Data",
// "All Program", "All Multi", "Global/MIDI", "Global and MIDI"). 0 and empty
// for any other band.
int miscWantedLength(int band);
std::string_view miscFileName(int band);

// True for the bands whose file holds several kinds of data and goes to
// frmMisc.
bool isMiscBand(int band);

}  // namespace quillon

#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace quillon {

class AppModel;

// Copy Special and Paste Special of the Edit menu: the values of the current
// frame's subsection go into a buffer, and from there into another
// subsection that is alike (EG1 into EG3, OSC1 settings into OSC2 of the
// same type, one timbre's page into another's), of the patch or of the
// multiset.

inline constexpr int kCopyLimit = 50;

// What was copied. Empty at start-up; it survives changes of screen and
// loads.
struct CopyBuffer {
    std::array<std::int16_t, kCopyLimit + 1> CopyValues{};  // 1 to CopyCount; entry 0 unused
    int CopyCount = 0;
    // The subsection, or for a setting subsection the section of its type;
    // plus 100 when it comes from the multiset.
    int CopySubsection = 0;
    bool CopyIsOverlay = false;
};

inline constexpr int kMultiCopyOffset = 100;

inline constexpr const char* kPasteTitle = "Paste Special";
inline constexpr const char* kNothingCopied = "Nothing has been copied";
inline constexpr const char* kCopiedFromMultiset = "Cannot paste. Copied parameters are from multiset";
inline constexpr const char* kCopiedFromPatch = "Cannot paste. Copied parameters are from patch";
inline constexpr const char* kCopiedTypeIs = "Cannot paste. Copied parameters are type: ";
inline constexpr const char* kDifferentSizes = "Copy and paste sections are different sizes";
inline constexpr const char* kNegativeEgQuestion =
    "Negative values in copied EG will be changed to zero in Amp EG. Ok to proceed?";

// mnuCopySpecial: the current frame's subsection, at most 50 values, on the
// patch or multi screen. An empty frame changes nothing.
void copySpecial(AppModel& model);

// mnuPasteSpecial: the buffer into the current frame's subsection when the
// two are alike and of one size. Each pasted value's old one goes to Last;
// Hard parameters are left alone. Every refusal is a message and changes
// nothing.
void pasteSpecial(AppModel& model);

// Whether values copied from c may be pasted into subsection t of the patch
// (multi false) or multiset, with the computed section tPrime of t when t
// is a setting subsection. The label names what the copied values are, for
// the refusal.
struct PasteCompatibility {
    bool yes = false;
    std::string label;
};
PasteCompatibility patchPasteCompatibility(int c, bool copiedOverlay, int t, int tPrime);
PasteCompatibility multiPasteCompatibility(int c, bool copiedOverlay, int t, int tPrime);

}  // namespace quillon

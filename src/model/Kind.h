#pragma once

namespace quillon {

// The number of an item. Buffers, flags and conversions are indexed by it.
enum Kind : int {
    kPatch = 1,
    kPatchBankA = 2,
    kPatchBankB = 3,
    kMultiset = 4,
    kPattern = 5,
    kMultiBankA = 6,
    kMultiBankB = 7,
    kArpBank = 8,
    kOtherDump = 9,
};

inline constexpr int kPatchBytes = 576;
inline constexpr int kMultiBytes = 208;
inline constexpr int kPatternBytes = 256;
inline constexpr int kPatchesPerBank = 128;
inline constexpr int kMultisPerBank = 16;
inline constexpr int kPatternsPerBank = 20;

inline constexpr int kPatchParams = 1343;
inline constexpr int kMultiParams = 615;
inline constexpr int kArpParams = 256;

// The largest packed data of a miscellaneous dump (All Data and the like).
inline constexpr int kMaxOtherPacked = 184000;

// Size of the unpacked image of kinds 1 to 8; 0 for any other kind.
constexpr int byteImageSize(int kind)
{
    switch (kind) {
    case kPatch: return kPatchBytes;
    case kPatchBankA:
    case kPatchBankB: return kPatchBytes * kPatchesPerBank;
    case kMultiset: return kMultiBytes;
    case kPattern: return kPatternBytes;
    case kMultiBankA:
    case kMultiBankB: return kMultiBytes * kMultisPerBank;
    case kArpBank: return kPatternBytes * kPatternsPerBank;
    default: return 0;
    }
}

// Packed size of n unpacked bytes: one byte of high bits for every seven.
constexpr int packedSizeOf(int unpackedBytes)
{
    return unpackedBytes + (unpackedBytes + 6) / 7;
}

// Size of the packed data (without the closing 0xF7) of kinds 1 to 8.
constexpr int packedImageSize(int kind)
{
    return packedSizeOf(byteImageSize(kind));
}

// Number of parameters of an item of kind 1, 4 or 5; 0 for any other kind.
constexpr int paramCount(int kind)
{
    switch (kind) {
    case kPatch: return kPatchParams;
    case kMultiset: return kMultiParams;
    case kPattern: return kArpParams;
    default: return 0;
    }
}

}  // namespace quillon

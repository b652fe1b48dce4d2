#pragma once

#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace quillon {

// A patch image named `name` (padded with blanks) whose other bytes count
// up from `seed`, so that every patch is told apart by its data too.
inline ByteImage namedPatch(const std::string& name, int seed = 0)
{
    ByteImage image(kPatchBytes);
    for (int i = 0; i < kPatchBytes; ++i)
        image[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>((seed + i * 7) & 0xFF);
    for (int i = 0; i < 16; ++i)
        image[static_cast<std::size_t>(i)] =
            static_cast<std::uint8_t>(i < static_cast<int>(name.size()) ? name[static_cast<std::size_t>(i)] : ' ');
    return image;
}

// The 666 bytes of a saved patch file holding the image.
inline std::vector<std::uint8_t> patchFileBytes(const ByteImage& image)
{
    return currentPatchDump(1, DATAtoMIDI(kPatch, image));
}

inline std::filesystem::path writeBytes(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes)
{
    EXPECT_TRUE(writeFileAtomically(path, bytes)) << path;
    return path;
}

inline std::filesystem::path writePatchFile(const std::filesystem::path& path, const ByteImage& image)
{
    return writeBytes(path, patchFileBytes(image));
}

// A container file of `total` bytes: 114 bytes of preamble, the block count,
// a length of four bytes for each block, the blocks, and zeros up to total.
inline std::vector<std::uint8_t> containerBytes(const std::vector<std::vector<std::uint8_t>>& blocks,
                                                std::size_t total)
{
    std::vector<std::uint8_t> bytes(114, 0x11);
    bytes.push_back(static_cast<std::uint8_t>(blocks.size() & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(blocks.size() >> 8));
    for (const auto& block : blocks)
        for (int shift = 0; shift < 32; shift += 8)
            bytes.push_back(static_cast<std::uint8_t>((block.size() >> shift) & 0xFF));
    for (const auto& block : blocks)
        bytes.insert(bytes.end(), block.begin(), block.end());
    bytes.resize(std::max(bytes.size(), total), 0);
    return bytes;
}

}  // namespace quillon

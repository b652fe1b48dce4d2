#pragma once

#include "files/OpenSysExFile.h"
#include "model/DataTypes.h"
#include "support/TestModel.h"
#include "sysex/SysExBytes.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillon {

class AppModel;

// Files and messages for the loading tests, made the way the instrument and
// the program make them.

// The unpacked image of a patch, multiset or pattern of default values with
// this name.
ByteImage namedItemImage(AppModel& model, int kind, const std::string& name);

// The dumps of one item or bank, on channel 1, from an unpacked image.
SysExMessage patchMessage(const ByteImage& image);
// The patch with the 2-byte longer header (function 0x4C, three sub-header
// bytes): 668 bytes.
SysExMessage longPatchMessage(const ByteImage& image);
SysExMessage multiMessage(const ByteImage& image);
SysExMessage longMultiMessage(const ByteImage& image);
SysExMessage patternMessage(const ByteImage& image);
SysExMessage bankMessage(int bank, const ByteImage& image);
SysExMessage multiBankMessage(int multiBank, const ByteImage& image);
SysExMessage arpBankMessage(const ByteImage& image);

// The several-kinds dumps: All Data (182939 bytes), All Program (168531),
// All Multi (7617), Global or MIDI (483) with its sub-header byte.
SysExMessage allDataMessage(const ByteImage& image);
SysExMessage allProgramMessage(const ByteImage& image);
SysExMessage allMultiMessage(const ByteImage& image);
SysExMessage globalOrMidiMessage(std::uint8_t which);

// An image of n bytes counting up (byte i holds i mod 251), so that each
// part of it can be told from the others.
ByteImage countingImage(std::size_t n);

// The wrapped form: 114 bytes of preamble, the count, the lengths of four
// bytes each (low byte first), then the messages.
std::vector<std::uint8_t> wrappedFile(const std::vector<SysExMessage>& messages);

// Bytes around a message: `before` stray bytes of 0x01 in front, `after`
// behind it.
std::vector<std::uint8_t> withStrayBytes(const SysExMessage& message, std::size_t before, std::size_t after);

void writeFile(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes);

// A model with a scripted host and a temporary folder for the files the test
// makes. The open dialog starts in a Music folder that does not exist unless
// the test makes it.
struct LoadingTest : ::testing::Test {
    TestModel t;
    AppModel& model = t.model;
    ScriptedHost& host = t.host;
    OpenFileSurroundings surroundings{t.folder / "Music", {}};

    std::string put(const std::string& name, const std::vector<std::uint8_t>& bytes) const;

    // A box or save dialog that the next open() brings after its open dialog.
    void expectBox(std::string title, Answer answer = Answer::Ok, std::optional<std::string> text = {});
    void expectSaveDialog(std::string title, std::optional<std::string> path);

    // Opens the file through the open dialog.
    void open(const std::string& path);

private:
    std::vector<std::function<void()>> afterOpenDialog_;
};

}  // namespace quillon

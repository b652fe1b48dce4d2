#pragma once

#include "support/FakeMidiPorts.h"
#include "support/ManualTimer.h"
#include "support/TestModel.h"
#include "sysex/SysExBytes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillon {

struct MiscDialogState;

// The model with fake MIDI ports and a hand-ticked TimerMain attached, as
// the program attaches its ports at start-up. The ports outlive the model,
// which lets go of them when it goes.
struct MidiFlowTest : ::testing::Test {
    FakeMidiOutput out;
    FakeMidiInput in;
    ManualTimer timer;
    std::vector<std::string> journal;
    TestModel t;
    AppModel& model = t.model;
    ScriptedHost& host = t.host;

    // frmMisc and frmRequest as the flows see them.
    int miscShown = 0;
    std::string miscCaption;
    std::string miscSaveSendCaption;
    int requestUnloads = 0;

    MidiFlowTest();

    // The patch, multiset and pattern made New, as at start-up, named.
    void newItems(const std::string& patch = "Test Patch", const std::string& multi = "Test Multi",
                  const std::string& pattern = "Test Pattern");
    // Every step of a pattern given a tone, so that it can be sent.
    void giveThePatternTones();
    // The name of the patch, multiset or pattern in the editor.
    std::string nameOf(int kind) const;

    // Everything queued on the output now, joined.
    std::vector<std::uint8_t> queuedBytes() const;
    std::vector<std::size_t> pieceSizes() const;
};

// A message of the instrument on another channel than the first: byte 3
// set to 47 + channel.
SysExMessage onChannel(SysExMessage message, int channel);

// A message of n bytes that is no dump: F0, stray data, F7.
SysExMessage strayMessage(std::size_t n);

}  // namespace quillon

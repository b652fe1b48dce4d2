#pragma once

#include "midi/MidiPorts.h"
#include "midi/backends/EventPump.h"
#include "midi/backends/MidiSystem.h"
#include "support/ManualTimer.h"
#include "support/TestModel.h"
#include "sysex/SysExBytes.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillon {

// The fixture's settings: from the environment CTest gives, else those
// the build compiled in (put into the environment, where the JACK client
// library looks for its server).
std::string z1simInputName();   // the port that z1sim listens on
std::string z1simOutputName();  // the port that z1sim plays out on
std::filesystem::path jackFixtureFolder();
void useJackFixtureEnvironment();

// The number of a device in a list; -1 when it is not there.
int deviceNumber(const std::vector<std::string>& devices, const std::string& name);

// Runs the pump's events as they come until `done` holds or the time-out
// has passed; whether it holds.
bool runUntil(QueuedEventPump& pump, const std::function<bool()>& done,
              std::chrono::seconds timeout = std::chrono::seconds(60));

// z1sim's front panel and an ear on its output: a second pair of ports
// beside the program's. Controller 119 with a value 0 to 7 makes z1sim send
// that dump, 127 report the notes it has been played.
class Panel : private MidiInputEvents, private MidiOutputEvents {
public:
    explicit Panel(QueuedEventPump& pump);
    ~Panel() override;

    MidiSystem& system() { return *system_; }
    // Sends controller 119 with this value to z1sim.
    void press(int value);
    // Plays a message out to z1sim at the system's pace.
    void send(const SysExMessage& message);

    // Everything that came from z1sim since the last clear.
    std::vector<SysExMessage> heard;
    std::vector<std::string> errors;
    bool done = false;

private:
    void inputMessage() override;
    void inputError(int, const std::string& text) override { errors.push_back(text); }
    void outputDone() override { done = true; }
    void outputError(int, const std::string& text) override { errors.push_back(text); }

    std::unique_ptr<MidiSystem> system_;
};

// The program's model with its ports on JACK, pointed at z1sim, and the
// panel. Quillon's output plays at ten times the pace of a cable, so that a
// bank takes seconds.
struct JackRig : ::testing::Test {
    JackRig();
    ~JackRig() override;

    QueuedEventPump pump;
    ManualTimer timer;
    std::unique_ptr<MidiSystem> system;
    Panel panel{pump};
    TestModel t;
    AppModel& model = t.model;
    ScriptedHost& host = t.host;

    // z1sim's acknowledgement of a dump (DATA LOAD COMPLETED on channel 1)
    // has been heard by the panel.
    bool heardAcknowledgement() const;
    // Waits for the acknowledgement of the next dump z1sim takes.
    ::testing::AssertionResult waitForAcknowledgement();

    // The newest file z1sim saved for a kind of dump ("bank-a"), if any.
    std::optional<SysExMessage> newestSaved(const std::string& kind) const;
    // The newest `count` files saved for a kind, oldest first.
    std::vector<SysExMessage> lastSaved(const std::string& kind, int count) const;
    int savedCount(const std::string& kind) const;
};

}  // namespace quillon

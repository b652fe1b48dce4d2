#pragma once

#include "midi/MidiPorts.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quillon {

class AppModel;
class Timer;
struct MiscDialogState;

inline constexpr int kMaxReceivedBlocks = 20;
inline constexpr int kInputBufferBytes = 200000;

// What the MIDI flows need from around the core: the forms they show or
// close. Without a hook the flow goes on as if the form had been closed at
// once.
struct MidiSurroundings {
    // frmMisc, modal, for a received dump of several kinds.
    std::function<void(AppModel&, MiscDialogState&)> showMiscDialog;
    // Unloads frmRequest if it is loaded.
    std::function<void()> unloadRequestDialog;
};

// A dump going out or coming in, for the progress bar beside the status
// lines: bytes done of bytes expected, or, with nothing expected (a Listen),
// the bytes so far.
struct MidiTransfer {
    bool active = false;
    bool sending = false;  // going out; else coming in
    std::size_t done = 0;
    std::size_t expected = 0;
};

// The state of the invisible form that owns the MIDI ports: the ports
// themselves, the text shown when the output queue has run empty, the
// request waiting for its answer, the count of ignored short messages and
// the test tone's step. It takes the ports' events and hands them to the
// flows of the core.
class MidiLink : private MidiOutputEvents, private MidiInputEvents {
public:
    explicit MidiLink(AppModel& model) : model_(model) {}
    ~MidiLink() override;
    MidiLink(const MidiLink&) = delete;
    MidiLink& operator=(const MidiLink&) = delete;

    // The ports and the timer of the test tone; any may be null (no MIDI
    // yet). The link registers itself for the ports' events and the timer's
    // tick.
    void attach(MidiOutput* output, MidiInput* input, Timer* timerMain);
    bool attached() const { return output_ != nullptr && input_ != nullptr; }

    MidiOutput& output() { return *output_; }
    MidiInput& input() { return *input_; }
    Timer* timerMain() { return timerMain_; }

    MidiSurroundings surroundings;

    std::string doneText;        // lblStatus when the output queue has run empty
    int requestPending = 0;      // 0, or the request's list index + 1
    int ignoredCount = 0;        // short messages ignored since the last dump
    std::int32_t ignoredTotal = 0;
    int toneStep = 0;            // the test tone's counter, 1 to 4 in use
    // The hourglass of a long send, shown until the output has played out.
    bool hourglass = false;
    // The dump under way, if any.
    MidiTransfer transfer;
    // The kind of the block the last reception acted on (1 "all Z1" to 11);
    // 0 before any.
    int receivedKind = 0;
    // The blocks of the last collection, from 1; entry 0 stays empty.
    std::array<std::vector<std::uint8_t>, kMaxReceivedBlocks + 1> receivedBlocks;

private:
    void outputError(int code, const std::string& text) override;
    void outputDone() override;
    void outputProgress(std::size_t bytes) override;
    void inputError(int code, const std::string& text) override;
    void inputMessage() override;
    void inputProgress(std::size_t bytesSoFar) override;

    AppModel& model_;
    MidiOutput* output_ = nullptr;
    MidiInput* input_ = nullptr;
    Timer* timerMain_ = nullptr;
};

}  // namespace quillon

// The receive engine fed arbitrary messages through fake ports: the input
// is a script of what the user and the ports do (Listen, a request, a
// message arriving, the output running empty, a port's error, the test
// tone's timer), each step with its bytes.

#include "FuzzSupport.h"

#include "files/MiscDialog.h"
#include "midi/ReceiveEngine.h"
#include "shell/AppModel.h"
#include "support/FakeMidiPorts.h"
#include "support/ManualTimer.h"
#include "sysex/SysExBytes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

using namespace quillon;

// The lengths the engine tells apart, so that a step can ask for one
// without the input having to be that long.
constexpr std::array<std::size_t, 13> kBlockLengths{182939, 168531, 84270, 666, 668, 7617, 3814,
                                                    245,    248,    5860,  300, 483, 966};
constexpr int kMostSteps = 64;

// A message of the length the step asks for: one of the engine's block
// lengths or a short one of its own; its bytes come from the input and are
// filled up with zeros, and it may be given the instrument's frame.
std::vector<std::uint8_t> messageOf(fuzz::InputReader& input)
{
    const std::uint8_t lengthChoice = input.byte();
    const std::uint8_t frame = input.byte();
    const std::size_t length =
        lengthChoice < kBlockLengths.size() ? kBlockLengths[lengthChoice] : (lengthChoice - kBlockLengths.size());
    const auto bytes = input.take(std::min<std::size_t>(length, input.word() % 1024));
    std::vector<std::uint8_t> message(bytes.begin(), bytes.end());
    message.resize(length, 0);
    if (message.empty())
        return message;
    if ((frame & 1) && message.size() >= kCommonHeaderBytes) {
        message[0] = kSysExStart;
        message[1] = kKorgId;
        message[kChannelIndex] = static_cast<std::uint8_t>(kChannelBase + (frame >> 4));
        message[3] = kZ1ModelId;
    }
    if (frame & 2)
        message.back() = kSysExEnd;
    return message;
}

// One program session with its ports, as a user would have it: the model
// and the ports are made once, and each input goes on from where the last
// one left them.
struct Session {
    fuzz::QuietHost host;
    MemorySettingsStore store;
    FakeMidiOutput out;
    FakeMidiInput in;
    ManualTimer timer;
    AppModel model{host, store, fuzz::scratchFolder() / "data"};

    Session()
    {
        model.midi.attach(&out, &in, &timer);
        model.midi.surroundings.showMiscDialog = [](AppModel& shown, MiscDialogState& state) {
            for (int box = 0; box < kMiscTypeBoxes; ++box)
                state.typeTicked[box] = state.typeVisible[box];
            misc::doProcessLoad(shown, state);
        };
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::InputReader input(data, size);
    static Session session;
    AppModel& model = session.model;
    FakeMidiOutput& out = session.out;
    FakeMidiInput& in = session.in;
    ManualTimer& timer = session.timer;
    session.host.questionAnswer = static_cast<Answer>(input.byte() % 4);

    for (int step = 0; step < kMostSteps && !input.empty(); ++step) {
        switch (input.byte() % 9) {
        case 0: mnuListen(model); break;
        case 1: doSendRequest(model, input.byte() % 10 - 1); break;
        case 2: in.deliver(messageOf(input)); break;
        case 3: in.arrive(messageOf(input)); break;
        case 4: in.fireMessage(); break;
        case 5: timer.tick(); break;
        case 6: out.finishPlaying(); break;
        case 7: in.fireError(input.byte(), "Input failed"); break;
        case 8: out.fireError(input.byte(), "Output failed"); break;
        }
        out.clearLog();
        in.clearLog();
        out.wire.clear();
        out.shorts.clear();
        timer.intervals.clear();
    }
    return 0;
}

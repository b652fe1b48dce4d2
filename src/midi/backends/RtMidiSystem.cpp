#include "midi/backends/RtMidiSystem.h"

#include "midi/backends/RtMidiInputPort.h"
#include "midi/backends/RtMidiOutputPort.h"

namespace quillon {

namespace {

// The program's one output and one input on a layer of RtMidi. Each port is
// a client of the layer of its own, named after the program and its
// direction, so that JACK shows both under names of their own.
class RtMidiSystem : public MidiSystem {
public:
    RtMidiSystem(MidiApi api, EventPump& pump, const MidiSystemOptions& options)
        : api_(api),
          output_(api, options.clientName + " out", pump),
          input_(api, options.clientName + " in", pump)
    {
        output_.setSysExRate(options.sysExRate);
    }

    MidiApi api() const override { return api_; }
    std::vector<std::string> inputDevices() const override { return input_.deviceNames(); }
    std::vector<std::string> outputDevices() const override { return output_.deviceNames(); }
    MidiOutput& output() override { return output_; }
    MidiInput& input() override { return input_; }
    void setSysExRate(int bytesPerSecond) override { output_.setSysExRate(bytesPerSecond); }
    int sysExRate() const override { return output_.sysExRate(); }

private:
    MidiApi api_;
    RtMidiOutputPort output_;
    RtMidiInputPort input_;
};

}  // namespace

std::unique_ptr<MidiSystem> openRtMidiSystem(MidiApi api, EventPump& pump, const MidiSystemOptions& options)
{
    return std::make_unique<RtMidiSystem>(api, pump, options);
}

}  // namespace quillon

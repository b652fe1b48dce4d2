// Sends a bank to z1sim through the RtMidi output at the pace of a MIDI
// cable and tells how long it took: run by tools/measure-sysex-pace.

#include "midi/backends/EventPump.h"
#include "midi/backends/RtMidiSystem.h"
#include "midi/backends/SimulatedZ1.h"

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <iostream>
#include <string>

namespace quillon {
namespace {

class Watch : public MidiOutputEvents, public MidiInputEvents {
public:
    explicit Watch(MidiInput& in) : in_(in) {}
    void outputDone() override { done = true; }
    void outputError(int code, const std::string& text) override { error(code, text); }
    void inputError(int code, const std::string& text) override { error(code, text); }
    void inputMessage() override
    {
        heard.push_back(in_.messageText());
        in_.next();
    }

    bool done = false;
    bool failed = false;
    std::vector<SysExMessage> heard;

private:
    void error(int code, const std::string& text)
    {
        std::cerr << "MIDI error " << code << ": " << text << '\n';
        failed = failed || code != 0;
    }
    MidiInput& in_;
};

int deviceOf(const std::vector<std::string>& devices, const std::string& name)
{
    const auto found = std::find(devices.begin(), devices.end(), name);
    return found == devices.end() ? -1 : static_cast<int>(found - devices.begin());
}

int measure(int rate)
{
    using Clock = std::chrono::steady_clock;
    QueuedEventPump pump;
    MidiSystemOptions options;
    options.clientName = "Pace";
    options.sysExRate = rate;
    const auto system = openRtMidiSystem(MidiApi::Jack, pump, options);
    MidiOutput& out = system->output();
    MidiInput& in = system->input();
    Watch watch(in);
    out.setEvents(&watch);
    in.setEvents(&watch);
    const int z1In = deviceOf(system->outputDevices(), "Z1 in:midi");
    const int z1Out = deviceOf(system->inputDevices(), "Z1 out:midi");
    if (z1In < 0 || z1Out < 0) {
        std::cerr << "z1sim's ports are not on the JACK server\n";
        return 1;
    }
    in.setBufferSize(200000);
    in.setDevice(z1Out);
    in.open();
    in.start();
    out.setDevice(z1In);
    out.open();

    const SysExMessage bank = SimulatedZ1(1).dumpFor(1);
    const SysExMessage acknowledgement{0xF0, 0x42, 0x30, 0x46, 0x23, 0xF7};
    out.setMessageType(240);
    out.setMessageText(bank);
    out.queue();
    const auto begun = Clock::now();
    out.start();
    const auto deadline = begun + std::chrono::seconds(120);
    while (!watch.done && !watch.failed && Clock::now() < deadline)
        pump.waitAndRun(std::chrono::milliseconds(100));
    const auto doneAt = Clock::now();
    const auto acknowledged = [&] {
        return std::find(watch.heard.begin(), watch.heard.end(), acknowledgement) != watch.heard.end();
    };
    while (!acknowledged() && !watch.failed && Clock::now() < deadline)
        pump.waitAndRun(std::chrono::milliseconds(100));
    const auto ackAt = Clock::now();

    const double ideal = static_cast<double>(bank.size()) / rate;
    const double took = std::chrono::duration<double>(doneAt - begun).count();
    const double ackTook = std::chrono::duration<double>(ackAt - begun).count();
    std::cout << std::fixed << std::setprecision(3) << "bytes " << bank.size() << ", rate " << rate
              << " bytes/s, ideal " << ideal << " s\n"
              << "played out (done event) after " << took << " s, ratio " << took / ideal << "\n"
              << "acknowledged by z1sim after " << ackTook << " s, ratio " << ackTook / ideal << "\n";
    if (!watch.done || !acknowledged()) {
        std::cout << "the bank did not arrive whole\n";
        return 1;
    }
    return 0;
}

}  // namespace
}  // namespace quillon

int main(int argc, char** argv)
{
    int rate = quillon::kCableSysExRate;
    if (argc == 3 && std::string(argv[1]) == "--rate")
        rate = std::stoi(argv[2]);
    else if (argc != 1) {
        std::cerr << "usage: measure_sysex_pace [--rate BYTES]\n";
        return 2;
    }
    try {
        return quillon::measure(rate);
    } catch (const quillon::MidiError& error) {
        std::cerr << "MIDI error " << error.code() << ": " << error.what() << '\n';
        return 1;
    }
}

#include "app/CliMidi.h"

#include "app/CliArguments.h"
#include "app/CliCommands.h"
#include "midi/MidiGlobal.h"
#include "shell/AppModel.h"

#include <cstdlib>

namespace quillon {

CliMidi::~CliMidi()
{
    // The model outlives this object: it must not keep ports that are gone.
    session_.model().midi.attach(nullptr, nullptr, nullptr);
}

bool CliMidi::open(int sysExRate, std::string& error)
{
    try {
        MidiSystemOptions options;
        options.sysExRate = sysExRate;
        options.clientName = "quillon-cli";
        system_ = openMidiSystem(chooseMidiApi(std::getenv("QUILLON_MIDI_API")), pump_, options);
    } catch (const MidiError& failure) {
        error = "MIDI is not available: " + std::string(failure.what());
        return false;
    }
    session_.model().midi.attach(&system_->output(), &system_->input(), nullptr);
    return true;
}

std::optional<int> CliMidi::findDevice(const std::vector<std::string>& devices, const std::string& wanted)
{
    if (const auto number = parseInt(wanted)) {
        if (*number >= 0 && *number < static_cast<int>(devices.size()))
            return number;
        return std::nullopt;
    }
    for (std::size_t i = 0; i < devices.size(); ++i) {
        if (devices[i].find(wanted) != std::string::npos)
            return static_cast<int>(i);
    }
    return std::nullopt;
}

bool CliMidi::runUntil(const std::function<bool()>& finished, std::chrono::milliseconds timeout)
{
    const auto end = std::chrono::steady_clock::now() + timeout;
    pump_.runPending();
    while (!finished()) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        if (left.count() <= 0)
            return false;
        pump_.waitAndRun(left);
    }
    return true;
}

int prepareMidi(CliSession& session, CliMidi& midi, const MidiCommandOptions& options, bool needInput,
                std::ostream& err)
{
    std::string error;
    if (!midi.open(options.rate, error)) {
        err << error << '\n';
        return kExitBadData;
    }
    AppModel& model = session.model();
    const auto output = CliMidi::findDevice(midi.system().outputDevices(), options.outDevice);
    if (!output) {
        err << "no MIDI output device " << options.outDevice << " (see quillon-cli ports)\n";
        return kExitUsage;
    }
    model.settings.outputDevice = *output;
    if (needInput) {
        const auto input = CliMidi::findDevice(midi.system().inputDevices(), options.inDevice);
        if (!input) {
            err << "no MIDI input device " << options.inDevice << " (see quillon-cli ports)\n";
            return kExitUsage;
        }
        model.settings.inputDevice = *input;
    }
    model.settings.outputChannel = options.channel;
    if (!doInitMIDI(model)) {
        err << session.host().firstProblem() << '\n';
        return kExitBadData;
    }
    return kExitOk;
}

bool parseMidiOptions(const std::vector<std::string>& args, MidiCommandOptions& options, std::string& error)
{
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        const bool hasValue = i + 1 < args.size();
        const auto number = [&](int low, int high, int& into) {
            const auto value = hasValue ? parseInt(args[++i]) : std::nullopt;
            if (!value || *value < low || *value > high) {
                error = arg + " needs a number from " + std::to_string(low) + " to " + std::to_string(high);
                return false;
            }
            into = *value;
            return true;
        };
        if (arg == "--yes") {
            options.yes = true;
        } else if (arg == "--in" && hasValue) {
            options.inDevice = args[++i];
        } else if (arg == "--out-port" && hasValue) {
            options.outDevice = args[++i];
        } else if (arg == "--out" && hasValue) {
            options.outFile = args[++i];
        } else if (arg == "--channel") {
            if (!number(1, 16, options.channel))
                return false;
        } else if (arg == "--rate") {
            if (!number(100, 1000000, options.rate))
                return false;
        } else if (arg == "--timeout") {
            if (!number(1, 86400, options.timeoutSeconds))
                return false;
        } else if (arg.starts_with("--")) {
            error = "unknown option " + arg;
            return false;
        } else {
            options.positional.push_back(arg);
        }
    }
    return true;
}

}  // namespace quillon

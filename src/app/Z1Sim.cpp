// z1sim: a simulated Korg Z1 on MIDI ports of its own, for trying Quillon
// without the instrument and for the tests that run Quillon over a real
// MIDI stack.

#include "files/AtomicFile.h"
#include "midi/backends/EventPump.h"
#include "midi/backends/RtMidiInputPort.h"
#include "midi/backends/RtMidiOutputPort.h"
#include "midi/backends/SimulatedZ1.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExBytes.h"

#include <atomic>
#include <cctype>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace quillon {
namespace {

constexpr const char* kUsage =
    "usage: z1sim [--api jack|alsa] [--name NAME] [--channel C] [--rate BYTES] [--load FILE]... "
    "[--save-dir DIR] [--bank-a-as-all-program]";

constexpr const char* kHelp = R"(
A simulated Korg Z1 on two MIDI ports of its own: "NAME in:midi", to which
others send, and "NAME out:midi", from which others read (NAME is "Z1"
unless --name says otherwise). It answers the dump requests on its global
channel, takes every dump into its memory and acknowledges it, and plays
notes (it prints them). Its answers go out at the pace of a MIDI cable, or
at --rate bytes a second.

  --api jack|alsa          the MIDI system (default jack)
  --name NAME              the name of its ports
  --channel C              its global channel, 1 to 16 (default 1)
  --rate BYTES             bytes a second of its answers (default 3125)
  --load FILE              puts the dumps of a .syx file into its memory;
                           may be given more than once
  --save-dir DIR           writes each dump it takes to DIR, named by its
                           kind and a running number, e.g. bank-a-001.syx
  --bank-a-as-all-program  answers a Bank A request with an All Program dump

The front panel, over MIDI (any channel):
  controller 119, value 0 to 7   sends the dump of that request as if its
                                 panel had been used (0 current patch,
                                 1 bank A, 2 bank B, 3 current multi,
                                 4 multi bank A, 5 multi bank B,
                                 6 current pattern, 7 pattern bank)
  controller 119, value 127      reports the notes it has been played, as
                                 F0 7D 01, then per note: 1 on or 0 off,
                                 channel 0-15, key, velocity; then F7
  controller 119, value 126      the same with the time of each note, as
                                 F0 7D 02, then per note the four bytes
                                 above and the milliseconds since z1sim
                                 started in four bytes of seven bits, the
                                 lowest first; then F7

It runs until interrupted (SIGINT or SIGTERM).
)";

// The front panel's controller and the answer to a question for notes.
constexpr int kPanelController = 119;
constexpr int kPanelNotes = 127;
constexpr int kPanelTimedNotes = 126;
constexpr std::uint8_t kNonCommercialId = 0x7D;
constexpr std::uint8_t kNotesReport = 0x01;
constexpr std::uint8_t kTimedNotesReport = 0x02;

constexpr int kInputBufferBytes = 200000;

std::atomic<bool> stopRequested{false};

extern "C" void onSignal(int) { stopRequested = true; }

struct Options {
    MidiApi api = MidiApi::Jack;
    std::string name = "Z1";
    int channel = 1;
    int rate = kCableSysExRate;
    std::vector<std::string> loads;
    std::string saveDir;
    bool bankAAsAllProgram = false;
};

std::optional<int> parseNumber(const std::string& text, int low, int high)
{
    try {
        std::size_t used = 0;
        const int value = std::stoi(text, &used);
        if (used != text.size() || value < low || value > high)
            return std::nullopt;
        return value;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

// Nullopt on a bad argument.
std::optional<Options> parseArguments(const std::vector<std::string>& args)
{
    Options options;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--bank-a-as-all-program") {
            options.bankAAsAllProgram = true;
            continue;
        }
        if (i + 1 >= args.size())
            return std::nullopt;
        const std::string& value = args[++i];
        if (arg == "--api") {
            if (value == "jack")
                options.api = MidiApi::Jack;
            else if (value == "alsa")
                options.api = MidiApi::Alsa;
            else
                return std::nullopt;
        } else if (arg == "--name" && !value.empty()) {
            options.name = value;
        } else if (arg == "--channel") {
            const auto channel = parseNumber(value, 1, 16);
            if (!channel)
                return std::nullopt;
            options.channel = *channel;
        } else if (arg == "--rate") {
            const auto rate = parseNumber(value, 1, 10'000'000);
            if (!rate)
                return std::nullopt;
            options.rate = *rate;
        } else if (arg == "--load") {
            options.loads.push_back(value);
        } else if (arg == "--save-dir") {
            options.saveDir = value;
        } else {
            return std::nullopt;
        }
    }
    return options;
}

// The name of a dump by its length, function and fixed sub-header.
std::string dumpName(const SysExMessage& message)
{
    if (message.size() < 6)
        return "SysEx";
    for (const DumpShape& shape : dumpShapes()) {
        const int length = shape.totalBytes / shape.messageCount;
        if (static_cast<int>(message.size()) != length
            || (message[4] != shape.function && message[4] != shape.otherFunction))
            continue;
        if (shape.subHeaderFixed) {
            bool same = true;
            for (int b = 0; b < shape.subHeaderBytes; ++b)
                same = same && message[5 + static_cast<std::size_t>(b)] == shape.subHeader[static_cast<std::size_t>(b)];
            if (!same)
                continue;
        }
        // Global and MIDI come as two messages of the length of either.
        if (shape.function == kFunctionGlobalOrMidi)
            return std::string(globalOrMidiName(message));
        return std::string(shape.name);
    }
    return "SysEx";
}

std::string fileKind(const std::string& name)
{
    std::string kind;
    for (char c : name)
        kind += c == ' ' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return kind;
}

class Z1Program : private MidiInputEvents, private MidiOutputEvents {
public:
    Z1Program(const Options& options, EventPump& pump)
        : options_(options),
          z1_(options.channel),
          input_(options.api, options.name + " in", pump),
          output_(options.api, options.name + " out", pump)
    {
        z1_.setBankAAsAllProgram(options.bankAAsAllProgram);
        output_.setSysExRate(options.rate);
        output_.setEvents(this);
        output_.setMessageType(240);
        input_.setEvents(this);
        input_.setBufferSize(kInputBufferBytes);
    }

    bool load(const std::string& path)
    {
        std::vector<std::uint8_t> bytes;
        if (!readWholeFile(path, bytes)) {
            std::cerr << "z1sim: cannot read " << path << '\n';
            return false;
        }
        int taken = 0;
        for (const auto& message : splitSysExMessages(bytes)) {
            if (z1_.load(message)) {
                ++taken;
                std::cout << "loaded " << dumpName(message) << " " << message.size() << " bytes from " << path
                          << std::endl;
            }
        }
        if (taken == 0) {
            std::cerr << "z1sim: no dump of a Korg Z1 in " << path << '\n';
            return false;
        }
        return true;
    }

    void openPorts()
    {
        input_.openVirtual("midi");
        output_.openVirtual("midi");
        input_.start();
    }

private:
    void inputMessage() override
    {
        const SysExMessage message = input_.messageText();
        input_.next();
        if (message.empty())
            return;
        if (message.front() == 0xF0)
            takeSysEx(message);
        else
            takeShort(message);
    }

    void inputError(int code, const std::string& text) override
    {
        std::cout << "input error " << code << ": " << text << std::endl;
    }

    void outputDone() override {}

    void outputError(int code, const std::string& text) override
    {
        std::cout << "output error " << code << ": " << text << std::endl;
    }

    void takeSysEx(const SysExMessage& message)
    {
        const int request = dumpRequestIndex(message);
        const auto answers = z1_.receiveSysEx(message);
        // A request on another channel gets no answer and counts as ignored.
        if (request >= 0 && !answers.empty()) {
            std::size_t bytes = 0;
            for (const auto& answer : answers)
                bytes += answer.size();
            std::cout << "request " << dumpRequests()[static_cast<std::size_t>(request)].label << " on channel " << z1_.globalChannel()
                      << ": sent " << bytes << " bytes" << std::endl;
            play(answers);
            return;
        }
        const std::string name = dumpName(message);
        const bool acknowledged = answers.size() == 1 && (answers.front()[kFunctionIndex] == kFunctionDataLoadCompleted ||
                                                           answers.front()[kFunctionIndex] == kFunctionDataLoadError);
        if (!acknowledged) {
            std::cout << "ignored SysEx of " << message.size() << " bytes" << std::endl;
            return;
        }
        const bool loaded = answers.front()[kFunctionIndex] == kFunctionDataLoadCompleted;
        std::cout << "received " << name << " " << message.size() << " bytes: " << (loaded ? "loaded" : "error")
                  << std::endl;
        if (loaded && !options_.saveDir.empty())
            save(name, message);
        play(answers);
    }

    void takeShort(const SysExMessage& message)
    {
        const int status = message[0];
        const int data1 = message.size() > 1 ? message[1] : 0;
        const int data2 = message.size() > 2 ? message[2] : 0;
        const int kind = status & 0xF0;
        if (kind == 0x90 || kind == 0x80) {
            z1_.receiveShort(status, data1, data2);
            const PlayedNote& note = z1_.notes().back();
            std::cout << (note.on() ? "note on " : "note off ") << data1 << " " << data2 << " at "
                      << note.time << " ms" << std::endl;
            return;
        }
        if (kind == 0xB0 && data1 == kPanelController) {
            if (data2 == kPanelNotes || data2 == kPanelTimedNotes) {
                std::cout << "panel: notes reported" << std::endl;
                play({notesReport(data2 == kPanelTimedNotes)});
            } else if (data2 < static_cast<int>(dumpRequests().size())) {
                const SysExMessage dump = z1_.dumpFor(data2);
                std::cout << "panel: sent " << dumpRequests()[static_cast<std::size_t>(data2)].label << " "
                          << dump.size() << " bytes" << std::endl;
                play({dump});
            }
            return;
        }
        std::cout << "ignored message " << std::hex << status << std::dec << std::endl;
    }

    SysExMessage notesReport(bool timed) const
    {
        SysExMessage report{0xF0, kNonCommercialId, timed ? kTimedNotesReport : kNotesReport};
        for (const PlayedNote& note : z1_.notes()) {
            report.push_back(note.on() ? 1 : 0);
            report.push_back(static_cast<std::uint8_t>(note.status & 0x0F));
            report.push_back(static_cast<std::uint8_t>(note.key & 0x7F));
            report.push_back(static_cast<std::uint8_t>(note.velocity & 0x7F));
            for (int shift = 0; timed && shift < 28; shift += 7)
                report.push_back(static_cast<std::uint8_t>((note.time >> shift) & 0x7F));
        }
        report.push_back(0xF7);
        return report;
    }

    void play(const std::vector<SysExMessage>& messages)
    {
        for (const auto& message : messages) {
            output_.setMessageText(message);
            output_.queue();
        }
        output_.start();
    }

    void save(const std::string& name, const SysExMessage& message)
    {
        const std::string kind = fileKind(name);
        const int number = ++saved_[kind];
        std::ostringstream file;
        file << kind << '-' << std::setw(3) << std::setfill('0') << number << ".syx";
        const auto path = std::filesystem::path(options_.saveDir) / file.str();
        std::ofstream out(path, std::ios::binary);
        out.write(reinterpret_cast<const char*>(message.data()), static_cast<std::streamsize>(message.size()));
        if (!out)
            std::cout << "cannot write " << path.string() << std::endl;
        else
            std::cout << "saved " << path.string() << std::endl;
    }

    Options options_;
    SimulatedZ1 z1_;
    RtMidiInputPort input_;
    RtMidiOutputPort output_;
    std::map<std::string, int> saved_;
};

int run(const Options& options)
{
    if (!options.saveDir.empty()) {
        std::error_code error;
        std::filesystem::create_directories(options.saveDir, error);
    }
    QueuedEventPump pump;
    try {
        Z1Program program(options, pump);
        for (const auto& path : options.loads)
            if (!program.load(path))
                return 1;
        program.openPorts();
        std::signal(SIGINT, onSignal);
        std::signal(SIGTERM, onSignal);
        std::cout << "z1sim ready: " << options.name << std::endl;
        while (!stopRequested)
            pump.waitAndRun(std::chrono::milliseconds(100));
    } catch (const MidiError& error) {
        std::cerr << "z1sim: MIDI error " << error.code() << ": " << error.what() << '\n';
        return 1;
    }
    std::cout << "z1sim stopped" << std::endl;
    return 0;
}

}  // namespace
}  // namespace quillon

int main(int argc, char** argv)
{
    const std::vector<std::string> args(argv + 1, argv + argc);
    for (const auto& arg : args) {
        if (arg == "--help" || arg == "-h") {
            std::cout << quillon::kUsage << '\n' << quillon::kHelp;
            return 0;
        }
    }
    const auto options = quillon::parseArguments(args);
    if (!options) {
        std::cerr << quillon::kUsage << '\n';
        return 2;
    }
    return quillon::run(*options);
}

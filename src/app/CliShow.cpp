#include "app/CliArguments.h"
#include "app/CliCommands.h"
#include "app/CliMidi.h"
#include "app/CliSession.h"
#include "app/CliTimer.h"
#include "autosend/AutoSend.h"
#include "banks/BankView.h"
#include "midi/MidiGlobal.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <filesystem>

namespace quillon {

namespace {

constexpr const char* kShowUsage =
    "usage: quillon-cli show BANK.syx --members LIST [--interval S] [--arp off|on|patch] [--pattern N]"
    " [--chords N] [--out-port N] [--channel C]\n";

// How often the loop looks for Ctrl+C while it waits for the next tick.
constexpr auto kWatchInterrupt = std::chrono::milliseconds(100);
// How long the last patch and the notes off may take to leave.
constexpr auto kPlayOutLimit = std::chrono::seconds(30);

std::atomic<bool> interrupted{false};

extern "C" void onInterrupt(int) { interrupted = true; }

// Ctrl+C ends the show through Done while this lives.
class InterruptWatch {
public:
    InterruptWatch()
    {
        interrupted = false;
        previous_ = std::signal(SIGINT, onInterrupt);
    }
    ~InterruptWatch() { std::signal(SIGINT, previous_); }
    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;

private:
    void (*previous_)(int) = nullptr;
};

struct ShowOptions {
    std::vector<int> members;
    std::optional<int> interval;
    std::optional<int> arpMode;
    std::optional<int> pattern;
    std::optional<int> chords;
};

// Takes the show's own options out of args; the MIDI options stay.
bool parseShowOptions(std::vector<std::string>& args, ShowOptions& show, std::string& error)
{
    std::vector<std::string> rest;
    bool haveMembers = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        const bool ours = arg == "--members" || arg == "--interval" || arg == "--arp" || arg == "--pattern" ||
                          arg == "--chords";
        if (!ours) {
            rest.push_back(arg);
            continue;
        }
        if (i + 1 >= args.size()) {
            error = arg + " needs a value";
            return false;
        }
        const std::string& value = args[++i];
        const auto number = [&](int low, int high, std::optional<int>& into) {
            const auto parsed = parseInt(value);
            if (!parsed || *parsed < low || *parsed > high) {
                error = arg + " needs a number from " + std::to_string(low) + " to " + std::to_string(high);
                return false;
            }
            into = parsed;
            return true;
        };
        if (arg == "--members") {
            const auto places = parsePlaceList(value, kPatchesPerBank - 1);
            if (!places) {
                error = "--members needs places 0 to 127 such as 0-3,17";
                return false;
            }
            show.members = *places;
            haveMembers = true;
        } else if (arg == "--interval") {
            if (!number(kLowestInterval, kHighestInterval, show.interval))
                return false;
        } else if (arg == "--pattern") {
            if (!number(0, kPatternAsPatch, show.pattern))
                return false;
        } else if (arg == "--chords") {
            if (!number(0, kChordSequences - 1, show.chords))
                return false;
        } else if (value == "off" || value == "on" || value == "patch") {
            show.arpMode = value == "off" ? kShowArpOff : value == "on" ? kShowArpOn : kShowArpAsPatch;
        } else {
            error = "--arp needs off, on or patch";
            return false;
        }
    }
    if (!haveMembers) {
        error = "--members is needed";
        return false;
    }
    args = std::move(rest);
    return true;
}

// The bank view's selection made of the places, as clicks on them would.
void selectPlaces(AppModel& model, int bank, const std::vector<int>& places)
{
    model.bankTarget = bank;
    fraBankLabelsSetUp(model, bank, 3);
    for (int place : places)
        model.banks.selection(bank).selectionFlags[static_cast<std::size_t>(place)] = -1;
    bankSelectSequence(model);
}

const char* arpName(int mode)
{
    switch (mode) {
    case kShowArpOff: return "Off";
    case kShowArpOn: return "On";
    default: return "As patch";
    }
}

std::optional<std::string> outputError(const CliHost& host)
{
    for (const auto& [text, colour] : host.statuses)
        if (colour == StatusColour::Error)
            return text;
    return std::nullopt;
}

}  // namespace

int runShow(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err)
{
    std::vector<std::string> args = arguments;
    ShowOptions show;
    MidiCommandOptions options;
    std::string error;
    if (!parseShowOptions(args, show, error) || !parseMidiOptions(args, options, error) ||
        options.positional.size() != 1 || options.outFile || options.yes) {
        if (!error.empty())
            err << error << '\n';
        err << kShowUsage;
        return kExitUsage;
    }
    const std::string& path = options.positional[0];
    CliSession session;
    const auto kind = session.open(path, error);
    if (!kind) {
        err << error << '\n';
        return std::filesystem::exists(path) ? kExitBadData : kExitUsage;
    }
    if (*kind != kPatchBankA && *kind != kPatchBankB) {
        err << path << " holds no patch bank\n";
        return kExitBadData;
    }
    AppModel& model = session.model();
    if (show.interval)
        setShowInterval(model, *show.interval);
    if (show.arpMode)
        setShowArpMode(model, *show.arpMode);
    if (show.pattern)
        setShowPatternSelect(model, *show.pattern);
    if (show.chords)
        setShowChordSequence(model, *show.chords);
    selectPlaces(model, *kind, show.members);

    CliMidi midi(session);
    if (const int code = prepareMidi(session, midi, options, false, err); code != kExitOk)
        return code;
    CliHost& host = session.host();
    host.statuses.clear();

    CliTimer autoTimer;
    CliTimer miniTimer;
    AutoSend autoSend(model, *kind, autoTimer, miniTimer);
    autoSend.doSetup();
    out << "Sound show of " << autoSend.sendCount() << (autoSend.sendCount() == 1 ? " patch" : " patches")
        << ", one every " << showInterval(model) << " seconds, arpeggiator " << arpName(showArpMode(model));
    if (showArpMode(model) == kShowArpOn)
        out << ", pattern row " << showPatternSelect(model) << ", chord sequence " << showChordSequence(model);
    out << std::endl;

    InterruptWatch watch;
    autoSend.start();
    int shown = 0;
    bool stopped = false;
    while (autoSend.state() != ShowState::Finished) {
        if (interrupted) {
            autoSend.done();
            stopped = true;
            break;
        }
        auto wait = kWatchInterrupt;
        for (const CliTimer* timer : {&autoTimer, &miniTimer}) {
            if (const auto due = timer->due()) {
                const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(*due - CliTimer::Clock::now());
                wait = std::clamp(left, std::chrono::milliseconds(0), wait);
            }
        }
        midi.runUntil([] { return interrupted.load(); }, wait);
        const auto now = CliTimer::Clock::now();
        if (miniTimer.tickIfDue(now)) {
            const auto& notes = autoSend.chordNotes();
            out << "  chord " << notes[0] << " " << notes[1] << " " << notes[2] << std::endl;
        }
        if (autoTimer.tickIfDue(now) && autoSend.sendIndex() > shown) {
            shown = autoSend.sendIndex();
            out << shown << "/" << autoSend.sendCount() << " " << autoSend.currentPatchText() << std::endl;
        }
        if (const auto failure = outputError(host)) {
            autoTimer.setEnabled(false);
            err << *failure << '\n';
            return kExitBadData;
        }
    }
    // What is still queued (the last patch again, the notes off) goes out
    // before the port closes.
    midi.runUntil([&model] { return model.midi.output().state() != kPortBusy; }, kPlayOutLimit);
    resetGlobalMIDIAll(model);
    if (stopped)
        out << "Stopped after " << autoSend.sendIndex() << " of " << autoSend.sendCount() << std::endl;
    else
        out << "Show finished: " << autoSend.sendCount() << " sent" << std::endl;
    return kExitOk;
}

}  // namespace quillon

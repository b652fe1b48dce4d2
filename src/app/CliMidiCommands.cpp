#include "app/CliCommands.h"

#include "app/CliMidi.h"
#include "app/CliSession.h"
#include "files/SysExSaving.h"
#include "midi/MidiGlobal.h"
#include "midi/ReceiveEngine.h"
#include "midi/SendFlows.h"
#include "model/Kind.h"
#include "sysex/SysExClassifier.h"

#include <array>
#include <chrono>
#include <filesystem>
#include <string_view>

namespace quillon {

namespace {

// The items of the Request dialog as the command names them: the dialog's
// index, the Kind that takes the answer, and the blocks that answer it (a
// bank may come inside an All Program dump).
struct RequestItem {
    std::string_view word;
    int index;
    int kind;
    std::array<int, 2> answers;
};

constexpr RequestItem kRequestItems[] = {
    {"patch", 0, kPatch, {kSysExPatch, kSysExPatch}},
    {"bank-a", 1, kPatchBankA, {kSysExPatchBank, kSysExAllProgram}},
    {"bank-b", 2, kPatchBankB, {kSysExPatchBank, kSysExAllProgram}},
    {"multi", 3, kMultiset, {kSysExSingleMulti, kSysExSingleMulti}},
    {"multibank-a", 4, kMultiBankA, {kSysExMultiBank, kSysExMultiBank}},
    {"multibank-b", 5, kMultiBankB, {kSysExMultiBank, kSysExMultiBank}},
    {"pattern", 6, kPattern, {kSysExSinglePattern, kSysExSinglePattern}},
    {"pattern-bank", 7, kArpBank, {kSysExArpBank, kSysExArpBank}},
};

const RequestItem* findRequestItem(const std::string& word)
{
    for (const RequestItem& item : kRequestItems) {
        if (item.word == word)
            return &item;
    }
    return nullptr;
}

void writeDevices(std::ostream& out, std::string_view heading, const std::vector<std::string>& devices)
{
    out << heading << ":\n";
    if (devices.empty())
        out << "  (none)\n";
    for (std::size_t i = 0; i < devices.size(); ++i)
        out << "  " << i << "  " << devices[i] << '\n';
}

// The last text of lblStatus, or empty.
const std::pair<std::string, StatusColour>* lastStatus(const CliHost& host)
{
    return host.statuses.empty() ? nullptr : &host.statuses.back();
}

}  // namespace

int runPorts(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    if (!args.empty()) {
        err << "usage: quillon-cli ports\n";
        return kExitUsage;
    }
    CliSession session;
    CliMidi midi(session);
    std::string error;
    if (!midi.open(kCableSysExRate, error)) {
        err << error << '\n';
        return kExitBadData;
    }
    out << "MIDI system: " << midiApiName(midi.system().api()) << '\n';
    writeDevices(out, "Input devices", midi.system().inputDevices());
    writeDevices(out, "Output devices", midi.system().outputDevices());
    return kExitOk;
}

int runRequest(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    MidiCommandOptions options;
    std::string error;
    const RequestItem* item = nullptr;
    if (!parseMidiOptions(args, options, error) || options.positional.size() != 1 || !options.outFile ||
        options.yes || (item = findRequestItem(options.positional[0])) == nullptr) {
        if (!error.empty())
            err << error << '\n';
        err << "usage: quillon-cli request patch|bank-a|bank-b|multi|multibank-a|multibank-b|pattern|pattern-bank"
               " --out FILE [--in N] [--out-port N] [--channel C] [--timeout S]\n";
        return kExitUsage;
    }
    CliSession session;
    CliMidi midi(session);
    if (const int code = prepareMidi(session, midi, options, true, err); code != kExitOk)
        return code;
    AppModel& model = session.model();
    CliHost& host = session.host();
    host.messages.clear();

    doSendRequest(model, item->index);
    const bool answered = midi.runUntil([&model] { return model.midi.requestPending == 0; },
                                        std::chrono::seconds(options.timeoutSeconds));
    resetGlobalMIDIAll(model);
    if (!answered) {
        err << "no answer from the instrument within " << options.timeoutSeconds << " seconds\n";
        return kExitBadData;
    }
    if (const std::string problem = host.firstProblem(); !problem.empty()) {
        err << problem << '\n';
        return kExitBadData;
    }
    const int block = model.midi.receivedKind;
    if (block != item->answers[0] && block != item->answers[1]) {
        err << "the instrument answered with " << (block == 0 ? "nothing usable" : receivedBlockName(block))
            << ", not " << requestCaption(item->index) << '\n';
        return kExitBadData;
    }
    host.savePath = *options.outFile;
    if (!saveKind(model, item->kind, 2) || !std::filesystem::exists(*options.outFile)) {
        err << "could not save " << *options.outFile;
        if (const std::string problem = host.firstProblem(); !problem.empty())
            err << ": " << problem;
        err << '\n';
        return kExitBadData;
    }
    out << requestCaption(item->index) << ": received " << receivedBlockName(block) << " data, saved to "
        << *options.outFile << '\n';
    return kExitOk;
}

int runSend(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    MidiCommandOptions options;
    std::string error;
    if (!parseMidiOptions(args, options, error) || options.positional.size() != 1 || options.outFile) {
        if (!error.empty())
            err << error << '\n';
        err << "usage: quillon-cli send FILE [--out-port N] [--channel C] [--yes] [--timeout S]\n";
        return kExitUsage;
    }
    const std::string& path = options.positional[0];
    CliSession session;
    const auto kind = session.open(path, error);
    if (!kind) {
        err << error << '\n';
        return std::filesystem::exists(path) ? kExitBadData : kExitUsage;
    }
    CliMidi midi(session);
    if (const int code = prepareMidi(session, midi, options, false, err); code != kExitOk)
        return code;
    AppModel& model = session.model();
    CliHost& host = session.host();
    host.messages.clear();
    host.statuses.clear();
    host.refuseQuestions = !options.yes;

    // Opening the file has put its item on its screen, as the window does:
    // Send takes what that screen shows.
    if (*kind == kOtherDump)
        miscSend(model);
    else
        doSendActive(model);
    if (!host.refused.empty()) {
        const MessageRequest& question = host.refused.front();
        err << question.title << ": " << question.text << "\n(give --yes to send)\n";
        return kExitBadData;
    }
    if (const std::string problem = host.firstProblem(); !problem.empty()) {
        err << problem << '\n';
        return kExitBadData;
    }
    const auto ended = [&host] {
        const auto* status = lastStatus(host);
        return status != nullptr && status->second != StatusColour::Busy;
    };
    if (!midi.runUntil(ended, std::chrono::seconds(options.timeoutSeconds))) {
        err << "the send did not end within " << options.timeoutSeconds << " seconds\n";
        return kExitBadData;
    }
    const auto& [text, colour] = *lastStatus(host);
    if (colour == StatusColour::Error) {
        err << text << '\n';
        return kExitBadData;
    }
    out << text << '\n';
    return kExitOk;
}

}  // namespace quillon

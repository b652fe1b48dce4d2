#include "midi/SendFlows.h"

#include "editors/ItemStatus.h"
#include "files/SysExSaving.h"
#include "midi/MidiGlobal.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "sysex/MessageCatalogue.h"

#include <algorithm>
#include <optional>
#include <string>

namespace quillon {

namespace {

constexpr int kSysExStatus = 240;
constexpr int kSendHelpContext = 110;
constexpr int kMiscSendHelpContext = 65;
// How much of a long message is handed to the output queue at a time.
constexpr std::size_t kPieceBytes = 1000;

void inform(AppModel& model, const std::string& title, const std::string& text)
{
    showInformation(model.host(), title, text, kSendHelpContext);
}

std::string bytesOnChannel(const AppModel& model, std::size_t bytes)
{
    return std::to_string(bytes) + " bytes on " + "MIDI channel " + std::to_string(midiChannel(model));
}

// Both lines are shown before the long work that follows.
void showSending(AppModel& model, const std::string& status, const std::string& doneText, std::size_t bytes)
{
    model.host().setStatus(status, StatusColour::Busy);
    model.midi.doneText = doneText;
    model.host().setMessage(bytesOnChannel(model, bytes));
}

// One message handed to the queue in pieces: the first piece is `first`
// bytes long, each further piece `kPieceBytes`, and the last takes what is
// left. Together the pieces are one SysEx message on the wire. A bank's
// pieces count packed bytes, so its closing F7 rides with the last data
// byte; a several-kinds dump is cut by its bytes, F7 included.
// False, with nothing queued, when the output device is gone. An error of the
// port while queuing has already said that the item was not sent; nothing
// more is queued and the queue is not started.
bool queueInPieces(AppModel& model, const SysExMessage& message, std::size_t first, bool f7WithLastData)
{
    if (!MIDIOutOpen(model))
        return false;
    beginTransfer(model, true, message.size());
    MidiOutput& output = model.midi.output();
    output.setMessageType(kSysExStatus);
    std::size_t from = 0;
    std::size_t size = first;
    while (from < message.size()) {
        std::size_t to = std::min(message.size(), from + size);
        if (f7WithLastData && message.size() - to == 1)
            to = message.size();
        output.setMessageText(SysExMessage(message.begin() + static_cast<std::ptrdiff_t>(from),
                                           message.begin() + static_cast<std::ptrdiff_t>(to)));
        output.queue();
        if (!sendUnderWay(model))
            return true;
        from = to;
        size = kPieceBytes;
    }
    output.start();
    return true;
}

bool sendWhole(AppModel& model, const SysExMessage& message)
{
    return queueInPieces(model, message, message.size(), false);
}

// A bank message: the header and the first 1000 packed bytes, then 1000
// packed bytes a piece, the last with the F7.
bool sendBankMessage(AppModel& model, const SysExMessage& message, int kind)
{
    const std::size_t header = message.size() - static_cast<std::size_t>(packedImageSize(kind)) - 1;
    return queueInPieces(model, message, header + kPieceBytes, true);
}

// The status lines first, then the packed data made anew and the dump
// queued: whole for the patch, multiset and pattern, in pieces for the banks.
// A device that is gone leaves the item not sent.
bool sendDump(AppModel& model, int kind, const std::string& status, const std::string& doneText)
{
    const int channel = midiChannel(model);
    showSending(model, status, doneText, dumpForKind(kind, channel, {}).size());
    refreshPacked(model, kind);
    const SysExMessage message = dumpForKind(kind, channel, model.packed[kind]);
    const bool queued =
        EditBuffers::hasBuffers(kind) ? sendWhole(model, message) : sendBankMessage(model, message, kind);
    if (!queued)
        reportNotSent(model, "");
    return queued;
}

bool sendSingle(AppModel& model, int kind)
{
    if (!model.midi.attached())
        return false;
    const std::string& name = model.itemName[kind];
    return sendDump(model, kind, "Sending " + name, name + " has been sent");
}

struct MiscSendRow {
    const char* name;
    const char* question;
};

std::optional<MiscSendRow> miscSendRow(const MiscDump& misc)
{
    switch (misc.length()) {
    case 182939: return MiscSendRow{"All Data", "Completely replace data in Korg Z1. Are you sure?"};
    case 168531: return MiscSendRow{"All Program", "Replace all patches in Korg Z1. Are you sure?"};
    case 7617: return MiscSendRow{"All Multi", "Replace both multi banks in Korg Z1. Are you sure?"};
    case 966: return MiscSendRow{"Global and MIDI", "Replace global and MIDI settings in Korg Z1. Are you sure?"};
    case 483:
        if (globalOrMidiName(misc.message) == "MIDI")
            return MiscSendRow{"MIDI", "Replace MIDI settings in Korg Z1. Are you sure?"};
        return MiscSendRow{"Global", "Replace global settings in Korg Z1. Are you sure?"};
    default: return std::nullopt;
    }
}

// A bank is replaced whole in the instrument: the user confirms first.
void sendAfterConfirmation(AppModel& model, const std::string& title, const std::string& question,
                           bool (*routine)(AppModel&))
{
    resetGlobalMIDIInput(model);
    if (!askYesNo(model.host(), title, question, kSendHelpContext))
        return;
    resetGlobalMIDIInput(model);
    routine(model);
}

void sendNow(AppModel& model, bool (*routine)(AppModel&))
{
    resetGlobalMIDIInput(model);
    routine(model);
}

}  // namespace

void doSendActive(AppModel& model)
{
    if (!model.midi.attached())
        return;
    clearStatusMessages(model);
    model.midi.doneText.clear();
    const KindFlags& flags = model.flags;
    switch (model.mode) {
    case kPatch:
        if (!flags.loaded[kPatch])
            return inform(model, "Send patch", "No patch loaded");
        return sendNow(model, doSendPatch);
    case kPatchBankA:
        if (!flags.loaded[kPatchBankA])
            return inform(model, "Send bank A", "No bank A loaded");
        model.bankTarget = kPatchBankA;
        return sendAfterConfirmation(model, "Send bank A", "Replace bank A in Korg Z1. Are you sure?", doSendBank);
    case kPatchBankB:
        if (!flags.loaded[kPatchBankB])
            return inform(model, "Send bank B", "No bank B loaded");
        model.bankTarget = kPatchBankB;
        return sendAfterConfirmation(model, "Send bank B", "Replace bank B in Korg Z1. Are you sure?", doSendBank);
    case kMultiset:
        switch (model.multiMode) {
        case 0:
            if (!flags.loaded[kMultiset])
                return inform(model, "Send Multiset", "No multiset loaded");
            return sendNow(model, doSendMultiset);
        case 1:
            if (!flags.loaded[kMultiBankA])
                return inform(model, "Send Multi Bank A", "No multibank A loaded");
            return sendAfterConfirmation(model, "Send Multi Bank A", "Replace multibank A in Korg Z1. Are you sure?",
                                         doSendMultiBank);
        case 2:
            if (!flags.loaded[kMultiBankB])
                return inform(model, "Send Multi Bank B", "No multibank B loaded");
            return sendAfterConfirmation(model, "Send Multi Bank B", "Replace multibank B in Korg Z1. Are you sure?",
                                         doSendMultiBank);
        default: return;
        }
    case kPattern:
        switch (model.arpMode) {
        case 0:
            if (!arpHasTones(model))
                return inform(model, "Send Single Pattern", "Pattern has no tones selected. Korg Z1 will not play it");
            return sendNow(model, doSendPattern);
        case 1:
            if (!flags.loaded[kArpBank])
                return inform(model, "Send Arpeggiator Bank", "No arpeggiator bank loaded");
            return sendAfterConfirmation(model, "Send Arpeggiator Bank",
                                         "Replace all arpeggiator patterns in Korg Z1. Are you sure?", doSendArpBank);
        default: return;
        }
    default: return;
    }
}

bool doSendPatch(AppModel& model) { return sendSingle(model, kPatch); }

bool doSendMultiset(AppModel& model) { return sendSingle(model, kMultiset); }

bool doSendPattern(AppModel& model) { return sendSingle(model, kPattern); }

bool doSendBank(AppModel& model)
{
    if (!model.midi.attached())
        return false;
    const int bank = model.bankTarget == kPatchBankB ? kPatchBankB : kPatchBankA;
    holdHourglassUntilDone(model);
    if (bank == kPatchBankA)
        return sendDump(model, bank, "Sending Bank A - see progress bar on Z1", "Bank A has been sent");
    return sendDump(model, bank, "Sending Bank B - see progress bar on Z1", "Bank B has been sent");
}

bool doSendMultiBank(AppModel& model)
{
    if (!model.midi.attached())
        return false;
    if (model.multiMode == 1) {
        model.multiBankTarget = kMultiBankA;
    } else if (model.multiMode == 2) {
        model.multiBankTarget = kMultiBankB;
    } else {
        inform(model, "Send Multi Bank", "Please select multibank to send");
        return false;
    }
    holdHourglassUntilDone(model);
    if (model.multiBankTarget == kMultiBankA)
        return sendDump(model, kMultiBankA, "Sending multibank A (please wait)", "Multibank A has been sent");
    return sendDump(model, kMultiBankB, "Sending multibank B (please wait)", "Multibank B has been sent");
}

bool doSendArpBank(AppModel& model)
{
    if (!model.midi.attached())
        return false;
    holdHourglassUntilDone(model);
    return sendDump(model, kArpBank, "Sending Arpeggiator Bank (please wait)", "Arpeggiator Bank has been sent");
}

void sendWholeMessage(AppModel& model, const SysExMessage& message)
{
    if (!model.midi.attached())
        return;
    sendWhole(model, message);
}

bool miscSend(AppModel& model)
{
    MiscDump& misc = model.misc;
    // A dump received from the instrument is offered for saving only.
    if (!model.midi.attached() || misc.mode != 3)
        return false;
    const std::optional<MiscSendRow> row = miscSendRow(misc);
    if (!row)
        return false;
    misc.name = row->name;
    const std::string title = "Send " + misc.name + " (loaded from file)";
    if (!askYesNo(model.host(), title, row->question, kMiscSendHelpContext)) {
        misc.name.clear();
        return false;
    }
    holdHourglassUntilDone(model);
    showSending(model, "Sending " + misc.name + " (loaded from file)", misc.name + " data has been sent",
                misc.message.size());
    // A dump taken on another channel goes out on the current one; the dump
    // stays as it was when the device is gone.
    SysExMessage message = withChannel(misc.message, midiChannel(model));
    if (!queueInPieces(model, message, kPieceBytes, false)) {
        reportNotSent(model, "");
        return false;
    }
    misc.message = std::move(message);
    return true;
}

}  // namespace quillon

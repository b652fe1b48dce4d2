#include "midi/ReceiveEngine.h"

#include "editors/ItemStatus.h"
#include "files/LoadFlow.h"
#include "files/MiscDialog.h"
#include "midi/MidiGlobal.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExClassifier.h"
#include "sysex/SysExFraming.h"

#include <array>
#include <string>

namespace quillon {

namespace {

constexpr int kSysExStatus = 240;
// Anything shorter is no dump: the shortest, a multiset, has 245 bytes.
constexpr std::size_t kShortestDump = 200;

// The request for bank A takes long enough for the instrument to show its
// progress bar; every other request, bank B among them, just asks to wait.
constexpr int kBankARequest = 1;

// STRINGtoMIDI on a received block, with what the caller of the conversion
// shows: the status lines of a long conversion, the channel of the message
// kept as the input channel, and on a bad header the box and an empty status
// line. True when the packed store of the Kind holds the block's data.
bool convertBlock(AppModel& model, const std::vector<std::uint8_t>& block)
{
    const StringToMidiResult result = STRINGtoMIDI(block, model.bankTarget, model.multiBankTarget);
    if (!result.handled)
        return false;
    if (!result.success) {
        MessageRequest box;
        box.title = std::string(result.errorTitle);
        box.text = std::string(result.errorText);
        box.icon = MessageIcon::Exclamation;
        model.host().showMessage(box);
        if (result.clearStatusLine)
            model.host().setStatus("", StatusColour::Done);
        return false;
    }
    if (!result.busyText.empty())
        model.host().setStatus(std::string(result.busyText), StatusColour::Busy);
    model.packed[result.target] = result.packed;
    model.settings.inputChannel = result.channel;
    model.changed(kSettingsChanged);
    if (!result.doneText.empty())
        model.host().setStatus(std::string(result.doneText), StatusColour::Done);
    return true;
}

// A received dump becomes the item as if loaded, but counts as not clean:
// the save-first prompt comes before it is next replaced, and with no file
// behind it the suggested name comes from the item's own name.
void markReceived(AppModel& model, int kind, bool forgetPath)
{
    model.flags.clean[kind] = false;
    if (forgetPath)
        model.itemPath[kind].clear();
    model.changed(kLabelsChanged);
}

// Patch, multiset or pattern: the same road as a file of one item.
void receiveSingleItem(AppModel& model, int kind, const std::vector<std::uint8_t>& block)
{
    model.saveCancelled = false;
    if (!doPreLoad(model, kind))
        return;
    if (!convertBlock(model, block))
        return;
    takeSingleItem(model, kind);
    markReceived(model, kind, true);
}

// Bank or multi bank: the dump names the bank of the pair it fills.
void receiveBank(AppModel& model, int target, const std::vector<std::uint8_t>& block)
{
    model.saveCancelled = false;
    if (!doPreLoad(model, target))
        return;
    if (target == kPatchBankA || target == kPatchBankB)
        model.bankTarget = target;
    else
        model.multiBankTarget = target;
    if (!convertBlock(model, block))
        return;
    doPostLoad(model, target);
    markReceived(model, target, true);
}

void receiveArpBank(AppModel& model, const std::vector<std::uint8_t>& block)
{
    model.saveCancelled = false;
    if (!doPreLoad(model, kArpBank))
        return;
    if (!convertBlock(model, block))
        return;
    doPostLoad(model, kArpBank);
    markReceived(model, kArpBank, false);
}

// A dump of several kinds waits in frmMisc, which can only save it.
void receiveMisc(AppModel& model, const std::vector<std::uint8_t>& block)
{
    miscReceive(model, block);
    model.misc.mode = 1;
}

void showMisc(AppModel& model)
{
    MiscDialogState state = misc::doSetup(model);
    if (model.midi.surroundings.showMiscDialog)
        model.midi.surroundings.showMiscDialog(model, state);
}

void unloadRequestDialog(AppModel& model)
{
    if (model.midi.surroundings.unloadRequestDialog)
        model.midi.surroundings.unloadRequestDialog();
}

// The length of the dump that answers a request: the item or bank it asks
// for. (An instrument may answer Bank A or B with All Program; the bar then
// fills up and waits.)
std::size_t requestAnswerBytes(int index)
{
    static constexpr int kAnsweredKinds[] = {kPatch,      kPatchBankA, kPatchBankB, kMultiset,
                                             kMultiBankA, kMultiBankB, kPattern,    kArpBank};
    if (index < 0 || index >= static_cast<int>(std::size(kAnsweredKinds)))
        return 0;
    return dumpForKind(kAnsweredKinds[index], 1, {}).size();
}

}  // namespace

int receivedBlockKind(std::size_t length) { return dumpTypeForLength(length); }

std::string_view receivedBlockName(int kind)
{
    // Only the kinds a dump can be; "non-Z1" is no block of the instrument.
    return kind >= kSysExAllData && kind <= kSysExGlobalAndMidi ? sysExTypeLabel(kind) : std::string_view();
}

void mnuListen(AppModel& model)
{
    if (!model.midi.attached())
        return;
    model.host().setStatus("Waiting for SysEx data", StatusColour::Busy);
    model.host().setMessage("");
    resetGlobalMIDIOutput(model);
    resetGlobalMIDIInput(model);
    if (!MIDIInOpen(model)) {
        clearStatusMessages(model);
        return;
    }
    model.midi.input().start();
    beginTransfer(model, false, 0);
}

std::string_view requestCaption(int index)
{
    const auto requests = dumpRequests();
    if (index < 0 || index >= static_cast<int>(requests.size()))
        return {};
    return requests[static_cast<std::size_t>(index)].label;
}

void doSendRequest(AppModel& model, int index)
{
    const auto requests = dumpRequests();
    if (index < 0 || index >= static_cast<int>(requests.size()) || !model.midi.attached())
        return;
    const DumpRequest& request = requests[static_cast<std::size_t>(index)];
    const std::string text = std::string(request.label) + (index == kBankARequest
                                                               ? " data requested - see progress bar on Z1"
                                                               : " data requested - please wait");
    unloadRequestDialog(model);
    MidiLink& midi = model.midi;
    const std::string doneTextBefore = midi.doneText;
    const int pendingBefore = midi.requestPending;
    model.host().setStatus(text, StatusColour::Busy);
    midi.doneText = text;
    model.host().setMessage("");
    midi.requestPending = index + 1;
    // A device that is gone ends the request as if it had not been made.
    const auto giveUp = [&] {
        resetGlobalMIDIOutput(model);
        midi.doneText = doneTextBefore;
        midi.requestPending = pendingBefore;
        clearStatusMessages(model);
    };

    resetGlobalMIDIOutput(model);
    resetGlobalMIDIInput(model);
    if (!MIDIOutOpen(model))
        return giveUp();
    MidiOutput& output = midi.output();
    output.setMessageType(kSysExStatus);
    output.setMessageText(requestMessage(request, midiChannel(model)));
    output.queue();
    output.start();

    if (!MIDIInOpen(model))
        return giveUp();
    midi.input().start();
    beginTransfer(model, false, requestAnswerBytes(index));
}

void onInputMessage(AppModel& model)
{
    if (!model.midi.attached())
        return;
    MidiLink& midi = model.midi;
    MidiInput& input = midi.input();
    if (input.messageCount() <= 0)
        return;
    const std::size_t length = input.messageText().size();
    // The message is in; the next one, if the input stays open, counts from
    // nothing.
    if (midi.transfer.active && !midi.transfer.sending)
        onInputProgress(model, 0);
    if (length < kShortestDump) {
        // The instrument is talking, but nothing of value: the line shows it.
        ++midi.ignoredCount;
        midi.ignoredTotal += static_cast<std::int32_t>(length);
        model.host().setMessage("Last message " + std::to_string(length) + " bytes (ignored). " +
                                std::to_string(midi.ignoredCount) + " messages " + std::to_string(midi.ignoredTotal) +
                                " bytes");
        input.next();
        return;
    }
    midi.ignoredCount = 0;
    midi.ignoredTotal = 0;
    if (midi.requestPending > 0)
        unloadRequestDialog(model);
    processMIDIGlobalInput(model);
    midi.requestPending = 0;
}

void processMIDIGlobalInput(AppModel& model)
{
    if (!model.midi.attached())
        return;
    MidiLink& midi = model.midi;
    MidiInput& input = midi.input();
    AppModel::Batch batch(model);

    // Collect whatever has arrived; a 21st message overwrites the 20th.
    int count = 0;
    for (;;) {
        std::vector<std::uint8_t> text = input.messageText();
        if (text.empty() || input.messageCount() <= 0)
            break;
        if (count < kMaxReceivedBlocks)
            ++count;
        midi.receivedBlocks[static_cast<std::size_t>(count)] = std::move(text);
        input.next();
    }

    std::array<int, kMaxReceivedBlocks + 1> kinds{};
    int found = 0;
    for (int i = 1; i <= count; ++i) {
        kinds[static_cast<std::size_t>(i)] = receivedBlockKind(midi.receivedBlocks[static_cast<std::size_t>(i)].size());
        if (found == 0 && kinds[static_cast<std::size_t>(i)] > 0)
            found = i;
    }
    const std::size_t lastLength = count > 0 ? midi.receivedBlocks[static_cast<std::size_t>(count)].size() : 0;

    if (found == 0) {
        // Listen goes on: the port stays open for the next message.
        model.host().setMessage("Unrecognised block " + std::to_string(lastLength) + " bytes");
        input.next();
        return;
    }

    // The name is that of the last block, even when the action below goes by
    // an earlier one.
    model.host().setStatus(
        "Received " + std::string(receivedBlockName(kinds[static_cast<std::size_t>(count)])) + " data",
        StatusColour::Done);
    model.host().setMessage(std::to_string(lastLength) + " bytes");
    resetGlobalMIDIInput(model);
    input.next();

    midi.receivedKind = kinds[static_cast<std::size_t>(found)];
    // A copy: the save-first prompt and frmMisc run the event loop, and a
    // message that comes in meanwhile would refill the blocks.
    const std::vector<std::uint8_t> block = midi.receivedBlocks[static_cast<std::size_t>(found)];
    switch (midi.receivedKind) {
    case kSysExAllData:
    case kSysExAllMulti:
    case kSysExGlobalOrMidi:
    case kSysExGlobalAndMidi:
        receiveMisc(model, block);
        showMisc(model);
        break;
    case kSysExAllProgram:
        receiveMisc(model, block);
        if (midi.requestPending == kPatchBankA || midi.requestPending == kPatchBankB)
            doExtractAllProgramBank(model, midi.requestPending);
        else
            showMisc(model);
        break;
    case kSysExPatchBank: receiveBank(model, bankNamedBy(block, kPatchBankA), block); break;
    case kSysExMultiBank: receiveBank(model, bankNamedBy(block, kMultiBankA), block); break;
    case kSysExPatch: receiveSingleItem(model, kPatch, block); break;
    case kSysExSingleMulti: receiveSingleItem(model, kMultiset, block); break;
    case kSysExSinglePattern: receiveSingleItem(model, kPattern, block); break;
    case kSysExArpBank: receiveArpBank(model, block); break;
    default: break;
    }

    // Listen is over, whatever the action made of the block.
    input.next();
    resetGlobalMIDIInput(model);
}

void doExtractAllProgramBank(AppModel& model, int kind)
{
    if (kind != kPatchBankA && kind != kPatchBankB)
        return;
    const int index = kind - kPatchBankA;
    const bool bankA = index == 0;
    BusyPointer busy(model.host());
    model.host().setStatus(bankA ? "Extracting bank A" : "Extracting bank B", StatusColour::Done);
    misc::doMiscData(model);
    model.host().setStatus(bankA ? "Converting bank A" : "Converting bank B", StatusColour::Done);
    model.host().setMessage("84270 bytes");
    if (misc::doLocalPreload(model, index)) {
        misc::doExtract(model, index);
        misc::doLocalPostLoad(model, index);
    }
}

}  // namespace quillon

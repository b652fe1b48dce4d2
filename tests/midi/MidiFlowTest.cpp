#include "midi/MidiFlowTest.h"

#include "editors/ItemStatus.h"
#include "files/MiscDialog.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr int kNameChars = 16;
constexpr int kFirstToneParam = 41;

void nameItem(AppModel& model, int kind, const std::string& name)
{
    ParamValues& values = model.buffers.of(kind).current;
    for (int p = 1; p <= kNameChars; ++p)
        values[p] = static_cast<std::int16_t>(p <= static_cast<int>(name.size()) ? name[p - 1] : ' ');
}

}  // namespace

MidiFlowTest::MidiFlowTest()
{
    out.journal = &journal;
    in.journal = &journal;
    model.midi.attach(&out, &in, &timer);
    model.midi.surroundings.showMiscDialog = [this](AppModel&, MiscDialogState& state) {
        ++miscShown;
        miscCaption = state.caption;
        miscSaveSendCaption = state.saveSendCaption;
    };
    model.midi.surroundings.unloadRequestDialog = [this] { ++requestUnloads; };
}

void MidiFlowTest::newItems(const std::string& patch, const std::string& multi, const std::string& pattern)
{
    const std::pair<int, const std::string*> items[] = {{kMultiset, &multi}, {kPattern, &pattern}, {kPatch, &patch}};
    for (const auto& [kind, name] : items) {
        model.buffers.updateCurrentDefaults(kind);
        nameItem(model, kind, *name);
        newItemReady(model, kind, false);
        model.buffers.updateLoaded(kind);
        model.buffers.updateLast(kind);
    }
    model.mode = kPatch;
}

void MidiFlowTest::giveThePatternTones()
{
    ParamValues& values = model.buffers.of(kPattern).current;
    values[kPatternLengthParam] = 8;
    values[kFirstToneParam] = 1;
}

std::string MidiFlowTest::nameOf(int kind) const { return model.itemName[kind]; }

std::vector<std::uint8_t> MidiFlowTest::queuedBytes() const
{
    std::vector<std::uint8_t> bytes;
    for (const auto& piece : out.queued)
        bytes.insert(bytes.end(), piece.begin(), piece.end());
    return bytes;
}

std::vector<std::size_t> MidiFlowTest::pieceSizes() const
{
    std::vector<std::size_t> sizes;
    for (const auto& piece : out.queued)
        sizes.push_back(piece.size());
    return sizes;
}

SysExMessage onChannel(SysExMessage message, int channel)
{
    message[kChannelIndex] = static_cast<std::uint8_t>(47 + channel);
    return message;
}

SysExMessage strayMessage(std::size_t n)
{
    SysExMessage message(n, 0x01);
    message.front() = kSysExStart;
    message.back() = kSysExEnd;
    return message;
}

}  // namespace quillon

#include "editors/ArpStepTools.h"

#include "editors/ArpScreen.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <cstdint>

namespace quillon {

namespace {

using StepWords = std::array<std::int16_t, kStepWords + 1>;  // columns 1 to 6

struct Pattern {
    ParamValues& current;
    const ParamValues& defaults;
    const ArpEditorState& state;

    std::int16_t& at(int step, int column) { return current[static_cast<std::size_t>(stepParam(step, column))]; }
    int length() const { return patternLength(current); }
    void setLength(int length) { current[kPatternLengthParam] = static_cast<std::int16_t>(length); }
};

Pattern patternOf(AppModel& model)
{
    ItemBuffers& b = model.buffers.of(kPattern);
    return {b.current, b.defaults, model.buffers.arpEditor};
}

bool copiesTones(int mode) { return mode == kCopyAll || mode == kCopyTonesOnly; }
bool copiesParams(int mode) { return mode == kCopyAll || mode == kCopyParamsOnly; }

// The column copy mode 3 takes: rows 10 to 13 are columns 3 to 6.
int singleParamColumn(const ArpEditorState& state) { return state.SingleParamRow - 7; }

void copyColumns(Pattern& p, int from, int to, int first, int last)
{
    for (int column = first; column <= last; ++column)
        p.at(to, column) = p.at(from, column);
}

void moveStep(Pattern& p, int from, int to) { copyColumns(p, from, to, kToneMsbColumn, kLastStepParamColumn); }

// An empty step with the pattern's default step parameters.
void emptyStep(Pattern& p, int step)
{
    p.at(step, kToneMsbColumn) = 0;
    p.at(step, kToneLsbColumn) = 0;
    for (int column = kFirstStepParamColumn; column <= kLastStepParamColumn; ++column)
        p.at(step, column) = p.defaults[static_cast<std::size_t>(stepParam(step, column))];
}

// Copy mode 4: the source's box of SingleTone is set on the target's box,
// which stores the target's tones as a click does.
void copySingleToneBox(AppModel& model, int from, int to)
{
    const int tone = model.buffers.arpEditor.SingleTone;
    setToneBox(model, toneBoxIndex(to, tone), model.arpScreen.toneBoxChecked(from, tone));
}

// The block step that block step j of repeat r takes, by the block option.
int blockSource(int option, int length, int repeats, int r, int j)
{
    switch (option) {
    case kBlockReverse: return r % 2 == 1 ? length + 1 - j : j;
    case kBlockRotate: {
        const int source = (repeats * length + j - r) % length;
        return source == 0 ? length : source;
    }
    default: return j;
    }
}

}  // namespace

void arpClearStep(AppModel& model)
{
    Pattern p = patternOf(model);
    const int step = p.state.StepCurrent;
    const int mode = p.state.StepCopyMode;
    if (mode != kCopyParamsOnly) {
        p.at(step, kToneMsbColumn) = 0;
        p.at(step, kToneLsbColumn) = 0;
    }
    if (mode != kCopyTonesOnly) {
        for (int column = kFirstStepParamColumn; column <= kLastStepParamColumn; ++column)
            p.at(step, column) = p.defaults[static_cast<std::size_t>(stepParam(step, column))];
    }
    model.changed(kBuffersChanged);
}

void arpCopyStep(AppModel& model)
{
    Pattern p = patternOf(model);
    const int from = p.state.StepCurrent;
    const int to = p.state.StepTarget;
    const int mode = p.state.StepCopyMode;
    if (from == to)
        return;
    if (copiesTones(mode))
        copyColumns(p, from, to, kToneMsbColumn, kToneLsbColumn);
    if (mode == kCopySingleTone)
        copySingleToneBox(model, from, to);
    if (copiesParams(mode))
        copyColumns(p, from, to, kFirstStepParamColumn, kLastStepParamColumn);
    if (mode == kCopySingleParam)
        copyColumns(p, from, to, singleParamColumn(p.state), singleParamColumn(p.state));
    if (to > p.length())
        p.setLength(to);
    model.changed(kBuffersChanged);
}

void arpInsertStep(AppModel& model)
{
    Pattern p = patternOf(model);
    const int at = p.state.StepCurrent;
    const int length = p.length();
    if (at == kArpSteps)
        return;
    for (int step = std::min(length + 1, kArpSteps); step >= at + 1; --step)
        moveStep(p, step - 1, step);
    emptyStep(p, at);
    p.setLength(length + 1);
    model.changed(kBuffersChanged);
}

void arpDeleteStep(AppModel& model)
{
    Pattern p = patternOf(model);
    const int at = p.state.StepCurrent;
    const int length = p.length();
    if (length == 1)
        return;
    for (int step = at; step <= length - 1; ++step)
        moveStep(p, step + 1, step);
    emptyStep(p, length);
    ArpEditorState& state = model.buffers.arpEditor;
    if (state.StepNum >= length)
        --state.StepNum;
    p.setLength(length - 1);
    model.changed(kBuffersChanged);
}

void arpBlockCopy(AppModel& model, int length, int repeats)
{
    if (length < 1 || length > kArpSteps)
        return;
    Pattern p = patternOf(model);
    const int mode = p.state.StepCopyMode;
    if (repeats == 0)
        repeats = p.length() / length;
    if (repeats < 2)
        return;
    std::vector<StepWords> block(static_cast<std::size_t>(length) + 1);
    for (int j = 1; j <= length; ++j) {
        for (int column = 1; column <= kStepWords; ++column)
            block[static_cast<std::size_t>(j)][static_cast<std::size_t>(column)] = p.at(j, column);
    }
    auto copyFromBlock = [&p, &block](int source, int dest, int first, int last) {
        for (int column = first; column <= last; ++column)
            p.at(dest, column) = block[static_cast<std::size_t>(source)][static_cast<std::size_t>(column)];
    };
    int dest = length;
    for (int r = 1; r <= repeats - 1; ++r) {
        for (int j = 1; j <= length; ++j) {
            const int source = blockSource(p.state.BlockOption, length, repeats, r, j);
            // Past step 36 every further step lands on 36 again.
            if (dest < kArpSteps)
                ++dest;
            if (copiesTones(mode))
                copyFromBlock(source, dest, kToneMsbColumn, kToneLsbColumn);
            if (mode == kCopySingleTone)
                copySingleToneBox(model, source, dest);
            if (copiesParams(mode))
                copyFromBlock(source, dest, kFirstStepParamColumn, kLastStepParamColumn);
            if (mode == kCopySingleParam)
                copyFromBlock(source, dest, singleParamColumn(p.state), singleParamColumn(p.state));
        }
    }
    if (dest > p.length())
        p.setLength(dest);
    model.changed(kBuffersChanged);
}

}  // namespace quillon

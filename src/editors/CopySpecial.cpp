#include "editors/CopySpecial.h"

#include "editors/Frames.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "model/SubsectionBounds.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <vector>

namespace quillon {

namespace {

constexpr int kPasteHelp = 410;
// The oscillators' and the effects' section numbers lie this far apart, so
// that OSC1 settings paste into OSC2 of the same type, and FX1 into FX2.
constexpr int kOscSectionDistance = 31;
constexpr int kFxSectionDistance = 27;
constexpr int kMultiFxSectionDistance = 18;
constexpr int kAmpEg = 34;
constexpr int kEgValues = 9;

// Subsections whose values are alike: values copied from one of `from`
// paste into any of `from` and of `also`.
struct AlikeRow {
    std::vector<int> from;
    std::vector<int> also;
    const char* label;
};

const std::vector<AlikeRow>& patchAlike()
{
    static const std::vector<AlikeRow> rows = {
        {{1}, {}, "Patch Common"},
        {{2, 3, 4, 5}, {kAmpEg}, "EG"},
        {{6, 7, 8, 9}, {}, "LFO"},
        {{10}, {}, "OSC Common"},
        {{11, 14}, {}, "OSC Type"},
        {{12, 15}, {}, "OSC Pitch"},
        {{17}, {}, "Sub OSC"},
        {{18}, {}, "Noise Generator"},
        {{20, 21, 22, 23, 25}, {}, "Mixer Output"},
        {{26}, {}, "Mixer SW"},
        {{27}, {}, "Filter Routing"},
        {{28, 30}, {}, "Filter"},
        {{29, 31}, {}, "Filter B"},
        {{32, 33}, {}, "Amp"},
        {{kAmpEg}, {2, 3, 4, 5}, "Amp EG"},
        {{35}, {}, "Output"},
        {{36}, {}, "FX"},
        {{37, 39}, {}, "FX Type"},
        {{41}, {}, "Master FX Type"},
        {{43}, {}, "2 Band EQ"},
        {{44}, {}, "Controller"},
        {{45}, {}, "Link Arpeggio"},
        {{46, 47, 48, 49, 50}, {}, "PE Knob"},
    };
    return rows;
}

const std::vector<AlikeRow>& multiAlike()
{
    static const std::vector<AlikeRow> rows = {
        {{1}, {}, "Multi Common"},
        {{2, 4}, {}, "FX Type"},
        {{6}, {}, "Master FX Type"},
        {{8}, {}, "Multi 2 Band EQ"},
        {{9}, {}, "Multi Controller"},
        {{10}, {}, "Multi Link Arpeggio"},
        {{11, 13, 15, 17, 19, 21}, {}, "Pitch-Mix-Zone"},
        {{12, 14, 16, 18, 20, 22}, {}, "MIDI"},
    };
    return rows;
}

bool contains(const std::vector<int>& list, int value) { return std::find(list.begin(), list.end(), value) != list.end(); }

PasteCompatibility byAlikeTable(const std::vector<AlikeRow>& rows, int c, int t)
{
    for (const AlikeRow& row : rows) {
        if (contains(row.from, c))
            return {contains(row.from, t) || contains(row.also, t), row.label};
    }
    // A copied subsection without a row: no, and the message ends after the colon.
    return {false, std::string()};
}

template <typename Entry>
std::string nameAt(const std::vector<Entry>& entries, int index)
{
    return index >= 1 && index < static_cast<int>(entries.size()) ? entries[static_cast<std::size_t>(index)].name
                                                                   : std::string();
}

bool isOverlay(int kind, int subsection) { return !overlayCaption(kind, subsection).empty(); }

int computedSection(const AppModel& model, int kind, int subsection)
{
    const ParamValues& current = model.buffers.of(kind).current;
    return kind == kMultiset ? multiSectionOfSubsection(subsection, current) : sectionOfSubsection(subsection, current);
}

void warn(AppModel& model, const std::string& text)
{
    MessageRequest box;
    box.title = kPasteTitle;
    box.text = text;
    box.icon = MessageIcon::Exclamation;
    box.help = true;
    box.helpContext = kPasteHelp;
    model.host().showMessage(box);
}

}  // namespace

PasteCompatibility patchPasteCompatibility(int c, bool copiedOverlay, int t, int tPrime)
{
    const ParamTables& tables = paramTables();
    if (copiedOverlay) {
        const std::string label = nameAt(tables.patchSections, c);
        switch (t) {
        case 13: return {tPrime == c || tPrime == c - kOscSectionDistance, label};
        case 16: return {tPrime == c || tPrime == c + kOscSectionDistance, label};
        case 38: return {tPrime == c || tPrime == c - kFxSectionDistance, label};
        case 40: return {tPrime == c || tPrime == c + kFxSectionDistance, label};
        case 42: return {tPrime == c, label};
        default: return {false, label};
        }
    }
    if (isOverlay(kPatch, t))
        return {false, nameAt(tables.patchSubsections, c)};
    return byAlikeTable(patchAlike(), c, t);
}

PasteCompatibility multiPasteCompatibility(int c, bool copiedOverlay, int t, int tPrime)
{
    const ParamTables& tables = paramTables();
    if (copiedOverlay) {
        const std::string label = nameAt(tables.multiSections, c);
        switch (t) {
        case 3: return {tPrime == c || tPrime == c - kMultiFxSectionDistance, label};
        case 5: return {tPrime == c || tPrime == c + kMultiFxSectionDistance, label};
        case 7: return {tPrime == c, label};
        default: return {false, label};
        }
    }
    if (isOverlay(kMultiset, t))
        return {false, nameAt(tables.multiSubsections, c)};
    return byAlikeTable(multiAlike(), c, t);
}

void copySpecial(AppModel& model)
{
    const int kind = model.mode;
    if (kind != kPatch && kind != kMultiset)
        return;
    const FrameState state = model.layout.frame(kind, model.layout.CurrentFrame);
    if (state.Subsection == 0)
        return;
    CopyBuffer& buffer = model.copyBuffer;
    buffer.CopyIsOverlay = isOverlay(kind, state.Subsection);
    buffer.CopySubsection = buffer.CopyIsOverlay ? computedSection(model, kind, state.Subsection) : state.Subsection;
    if (kind == kMultiset)
        buffer.CopySubsection += kMultiCopyOffset;
    buffer.CopyCount = 0;
    const ParamValues& current = model.buffers.of(kind).current;
    for (int p = state.SubFirst; p <= state.SubLast && buffer.CopyCount < kCopyLimit; ++p)
        buffer.CopyValues[static_cast<std::size_t>(++buffer.CopyCount)] = current[static_cast<std::size_t>(p)];
}

void pasteSpecial(AppModel& model)
{
    const int kind = model.mode;
    if (kind != kPatch && kind != kMultiset)
        return;
    const CopyBuffer& buffer = model.copyBuffer;
    if (buffer.CopyCount == 0) {
        warn(model, kNothingCopied);
        return;
    }
    if (kind == kPatch && buffer.CopySubsection > kMultiCopyOffset) {
        warn(model, kCopiedFromMultiset);
        return;
    }
    if (kind == kMultiset && buffer.CopySubsection < kMultiCopyOffset) {
        warn(model, kCopiedFromPatch);
        return;
    }
    const int c = kind == kMultiset ? buffer.CopySubsection - kMultiCopyOffset : buffer.CopySubsection;
    const int frame = model.layout.CurrentFrame;
    const FrameState state = model.layout.frame(kind, frame);
    const int t = state.Subsection;
    if (t == 0)
        return;
    const int n = state.SubLast + 1 - state.SubFirst;
    std::vector<std::int16_t> w(static_cast<std::size_t>(std::max(n, 0)) + 1, 0);  // 1 to n
    for (int i = 1; i <= n && i <= kCopyLimit; ++i)
        w[static_cast<std::size_t>(i)] = buffer.CopyValues[static_cast<std::size_t>(i)];

    const int tPrime = isOverlay(kind, t) ? computedSection(model, kind, t) : 0;
    const PasteCompatibility answer = kind == kMultiset ? multiPasteCompatibility(c, buffer.CopyIsOverlay, t, tPrime)
                                                        : patchPasteCompatibility(c, buffer.CopyIsOverlay, t, tPrime);
    if (!answer.yes) {
        warn(model, kCopiedTypeIs + answer.label);
        return;
    }

    // An envelope into the Amp EG, and back: the levels the other has not.
    const int egValues = std::min(kEgValues, n);
    if (kind == kPatch && c >= 2 && c <= 5 && t == kAmpEg) {
        const bool negative = std::any_of(w.begin() + 1, w.begin() + 1 + egValues, [](std::int16_t v) { return v < 0; });
        if (negative) {
            MessageRequest box;
            box.title = kPasteTitle;
            box.text = kNegativeEgQuestion;
            box.icon = MessageIcon::Question;
            box.buttons = MessageButtons::YesNo;
            box.help = true;
            box.helpContext = kPasteHelp;
            if (model.host().showMessage(box) != Answer::Yes)
                return;
        }
        for (int i = 1; i <= egValues; ++i)
            w[static_cast<std::size_t>(i)] = std::max<std::int16_t>(w[static_cast<std::size_t>(i)], 0);
    } else if (kind == kPatch && c == kAmpEg && t >= 2 && t <= 5 && n >= kEgValues) {
        w[1] = 0;
        w[kEgValues] = 0;
    }

    if (n != buffer.CopyCount) {
        warn(model, kDifferentSizes);
        return;
    }
    AppModel::Batch batch(model);
    ItemBuffers& b = model.buffers.of(kind);
    for (int i = 1; i <= n; ++i) {
        const int p = state.SubFirst + i - 1;
        if (isHardNow(model, kind, p))
            continue;
        b.last[static_cast<std::size_t>(p)] = b.current[static_cast<std::size_t>(p)];
        b.current[static_cast<std::size_t>(p)] = w[static_cast<std::size_t>(i)];
    }
    model.changed(kBuffersChanged);
    if (kind == kMultiset) {
        refreshMultiRows(model, frame, state.SubFirst, state.SubLast);
        return;
    }
    refreshParamRows(model, frame, state.SubFirst, state.SubLast);
    if (model.layout.envelopeRule)
        model.layout.envelopeRule(model, frame, t);
}

}  // namespace quillon

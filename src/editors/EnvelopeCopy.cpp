#include "editors/EnvelopeCopy.h"

#include "editors/EnvelopeGraph.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/AppObserver.h"

#include <algorithm>

namespace quillon {

namespace {

bool isEG1ToEG4(int subsection) { return subsection >= 2 && subsection <= 5; }

bool validButton(int button) { return button >= 1 && button <= 5; }

}  // namespace

void copyEnvelope(AppModel& model, int source, int destination)
{
    const int s = envelopeBase(source);
    const int d = envelopeBase(destination);
    if (s < 0 || d < 0)
        return;
    ParamValues& patch = model.buffers.of(kPatch).current;
    const bool toAmp = destination == kEnvelopeAmpEG;

    // Start and Release levels exist in EG1 to EG4 only.
    for (int offset : {31, 39}) {
        const std::int16_t level = isEG1ToEG4(source) ? patch[s + offset] : std::int16_t{0};
        if (isEG1ToEG4(destination))
            patch[d + offset] = level;
    }
    // The Amp EG has no negative levels.
    for (int offset = 32; offset <= 38; ++offset) {
        const std::int16_t value = patch[s + offset];
        patch[d + offset] = toAmp ? std::max<std::int16_t>(value, 0) : value;
    }
    model.changed(kBuffersChanged);
}

int envelopeCopyDestination(int button)
{
    if (button >= 1 && button <= 4)
        return button + 1;
    return button == 5 ? kEnvelopeAmpEG : 0;
}

bool pressCopyButton(AppModel& model, int button)
{
    EnvelopeGraph& graph = model.envelope;
    if (!validButton(button) || !isEnvelopeSubsection(graph.subsection()))
        return false;
    EnvelopeCopyButton& pressed = graph.lblEG[static_cast<std::size_t>(button)];
    pressed.border = true;
    const int destination = envelopeCopyDestination(button);

    if (destination == kEnvelopeAmpEG) {
        const bool belowZero = std::any_of(graph.points.begin(), graph.points.end(),
                                           [](const EnvelopePoint& p) { return p.Y > EnvelopeGraph::Baseline; });
        if (belowZero) {
            const bool yes = askYesNo(model.host(), kCopyToAmpEGTitle, kCopyToAmpEGQuestion, kCopyToAmpEGHelpContext);
            pressed.border = false;
            if (!yes)
                return false;
        }
    }
    copyEnvelope(model, graph.subsection(), destination);
    return true;
}

void releaseCopyButton(AppModel& model, int button)
{
    if (validButton(button))
        model.envelope.lblEG[static_cast<std::size_t>(button)].border = false;
}

}  // namespace quillon

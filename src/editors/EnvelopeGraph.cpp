#include "editors/EnvelopeGraph.h"

#include "model/Kind.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"

namespace quillon {

namespace {

using G = EnvelopeGraph;

float levelY(float value) { return G::Baseline - value * G::LevelScale; }
float timeX(float value) { return value * G::TimeScale; }

// A point that follows `before` by a time and stands at a level, both
// parameters read from the patch with their ranges from the table.
EnvelopePoint pointAfter(const EnvelopePoint& before, const ParamValues& patch, int timeParam, int levelParam)
{
    const auto& rows = paramTables().patch;
    const ParamDef& time = rows[static_cast<std::size_t>(timeParam)];
    const float from = before.X + G::XGap;
    EnvelopePoint p;
    p.X = from + timeX(patch[timeParam]);
    p.XMin = from + timeX(time.min);
    p.XMax = from + timeX(time.max);
    if (levelParam == 0) {
        p.Y = p.YLow = p.YHigh = G::Baseline;
    } else {
        const ParamDef& level = rows[static_cast<std::size_t>(levelParam)];
        p.Y = levelY(patch[levelParam]);
        p.YLow = levelY(level.min);
        p.YHigh = levelY(level.max);
    }
    return p;
}

}  // namespace

EnvelopeGraph::EnvelopeGraph()
{
    static const char* const captions[] = {"", "Copy to EG1", "Copy to EG2", "Copy to EG3", "Copy to EG4",
                                           "Copy to A EG"};
    for (int i = 1; i <= 5; ++i)
        lblEG[static_cast<std::size_t>(i)].caption = captions[i];
    for (int i = 0; i < 6; ++i)
        shaCircle[static_cast<std::size_t>(i)].colour = i == 4 ? kEnvelopeBlack : kEnvelopeRed;
}

bool isEnvelopeSubsection(int subsection)
{
    return (subsection >= 2 && subsection <= 5) || subsection == kEnvelopeAmpEG;
}

int envelopeBase(int subsection)
{
    if (subsection == kEnvelopeAmpEG)
        return 302;
    if (subsection >= 2 && subsection <= 5)
        return (subsection - 2) * 19;
    return -1;
}

EnvelopePoints computeEnvelopePoints(const ParamValues& patch, int subsection)
{
    EnvelopePoints p{};
    const int b = envelopeBase(subsection);
    if (b < 0)
        return p;
    // The Amp EG has no Start and Release levels: its ends lie at level 0.
    const bool amp = subsection == kEnvelopeAmpEG;

    p[0].X = p[0].XMin = p[0].XMax = G::XStart;
    if (amp) {
        p[0].Y = p[0].YLow = p[0].YHigh = G::Baseline;
    } else {
        const ParamDef& start = paramTables().patch[static_cast<std::size_t>(b + 31)];
        p[0].Y = levelY(patch[b + 31]);
        p[0].YLow = levelY(start.min);
        p[0].YHigh = levelY(start.max);
    }
    p[1] = pointAfter(p[0], patch, b + 32, b + 33);
    p[2] = pointAfter(p[1], patch, b + 34, b + 35);
    p[3] = pointAfter(p[2], patch, b + 36, b + 37);

    // The sustain runs for a fixed length to key-off.
    p[4].X = p[4].XMin = p[4].XMax = p[3].X + G::XGap + G::SustainLength;
    p[4].Y = p[4].YLow = p[4].YHigh = p[3].Y;

    p[5] = pointAfter(p[4], patch, b + 38, amp ? 0 : b + 39);
    return p;
}

void positionEnvelope(EnvelopeGraph& graph)
{
    auto& p = graph.points;
    p[4].Y = p[3].Y;
    for (std::size_t i = 0; i < p.size(); ++i) {
        graph.shaCircle[i].left = p[i].X - G::CircleRadius;
        graph.shaCircle[i].top = p[i].Y - G::CircleRadius;
    }
    for (std::size_t i = 0; i < graph.linSlope.size(); ++i)
        graph.linSlope[i] = {p[i].X, p[i].Y, p[i + 1].X, p[i + 1].Y};
}

void drawEnvelope(AppModel& model, int frame, int subsection)
{
    if (!isEnvelopeSubsection(subsection) || (frame != 1 && frame != 2))
        return;
    EnvelopeGraph& graph = model.envelope;
    for (std::size_t i = 0; i < graph.shaCircle.size(); ++i)
        graph.shaCircle[i].colour = i == 4 ? kEnvelopeBlack : kEnvelopeRed;
    graph.points = computeEnvelopePoints(model.buffers.of(kPatch).current, subsection);
    positionEnvelope(graph);

    // Every envelope but the one on show can be copied to.
    for (int i = 1; i <= 5; ++i)
        graph.lblEG[static_cast<std::size_t>(i)].visible = true;
    graph.lblEG[subsection == kEnvelopeAmpEG ? 5u : static_cast<std::size_t>(subsection - 1)].visible = false;

    graph.caption = model.layout.frames[static_cast<std::size_t>(frame)].caption;
    graph.tag = frame * 100 + subsection;
    graph.place = 3 - frame;
}

void envelopeRule(AppModel& model, int frame, int subsection)
{
    ScreenLayout& layout = model.layout;
    layout.EGShown[1] = false;
    layout.EGShown[2] = false;
    const int frameMode = model.settings.frameMode;
    const bool receiving = frame == 1 ? (frameMode == 1 || frameMode == 2) : (frame == 2 && frameMode == 3);
    if (!receiving)
        return;

    const int other = 3 - frame;
    FrameView& otherView = layout.frames[static_cast<std::size_t>(other)];
    if (isEnvelopeSubsection(subsection) && model.settings.graphicEnvelope) {
        otherView.visible = false;
        drawEnvelope(model, frame, subsection);
        layout.parts.fraEnvelope = true;
        layout.EGShown[static_cast<std::size_t>(other)] = true;
    } else {
        layout.parts.fraEnvelope = false;
        if (layout.patchFrames[static_cast<std::size_t>(other)].Subsection != 0)
            otherView.visible = true;
    }
    model.changed(kNavigationChanged | frameChangedBit(other));
}

void installEnvelopeRule(AppModel& model) { model.layout.envelopeRule = envelopeRule; }

}  // namespace quillon

#include "editors/EnvelopeDrag.h"

#include "editors/Frames.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/AppObserver.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace quillon {

namespace {

using G = EnvelopeGraph;

// The points that can be grabbed, in the order a press tries them.
constexpr int kGrabbable[] = {0, 1, 2, 3, 5};

struct PointNames {
    const char* time;
    const char* level;
};

// By point 0 to 5; point 4 is never grabbed and has none.
constexpr PointNames kNames[] = {
    {"", "Start level"},
    {"Attack time", "Attack level"},
    {"Decay time", "Break level"},
    {"Slope time", "Sustain level"},
    {"", ""},
    {"Release time", "Release level"},
};

// The offsets from B of each point's time and level; 0 for none.
struct PointParams {
    int time;
    int level;
};
constexpr PointParams kParams[] = {{0, 31}, {32, 33}, {34, 35}, {36, 37}, {0, 0}, {38, 39}};

bool validPoint(int point) { return point >= 0 && point <= 5; }

int numberIn(const std::string& caption)
{
    int value = 0;
    std::from_chars(caption.data(), caption.data() + caption.size(), value);
    return value;
}

void showValues(EnvelopeGraph& graph)
{
    const EnvelopeReading reading = readEnvelopePoint(graph.points, graph.Grabbed);
    if (graph.Grabbed != 0)
        graph.lblTimeVal.caption = std::to_string(reading.time);
    graph.lblLevelVal.caption = std::to_string(reading.level);
}

}  // namespace

EnvelopeReading readEnvelopePoint(const EnvelopePoints& points, int point)
{
    if (!validPoint(point))
        return {};
    const EnvelopePoint& p = points[static_cast<std::size_t>(point)];
    EnvelopeReading reading;
    if (point != 0)
        reading.time = static_cast<int>(std::lround((p.X - p.XMin) / G::TimeScale));
    reading.level = static_cast<int>(std::lround((G::Baseline - p.Y) / G::LevelScale));
    return reading;
}

int grabEnvelopePoint(const EnvelopePoints& points, float x, float y)
{
    for (int i : kGrabbable) {
        const EnvelopePoint& p = points[static_cast<std::size_t>(i)];
        if (std::abs(x - p.X) < G::GrabDistance && std::abs(y - p.Y) < G::GrabDistance)
            return i;
    }
    return -1;
}

void moveEnvelopePoint(EnvelopePoints& points, int point, float x, float y)
{
    if (!validPoint(point))
        return;
    EnvelopePoint& p = points[static_cast<std::size_t>(point)];
    x = std::clamp(x, p.XMin, p.XMax);
    y = std::clamp(y, p.YHigh, p.YLow);  // a smaller Y is a higher level
    const auto dx = static_cast<float>(std::lround(x - p.X));
    p.X = x;
    p.Y = y;
    // The tail keeps its times.
    for (std::size_t i = static_cast<std::size_t>(point) + 1; i < points.size(); ++i) {
        points[i].X += dx;
        points[i].XMin += dx;
        points[i].XMax += dx;
    }
    points[4].Y = points[3].Y;
}

EnvelopeReading dragEnvelopePoint(EnvelopePoints& points, int point, float dx, float dy)
{
    if (!validPoint(point))
        return {};
    const EnvelopePoint& p = points[static_cast<std::size_t>(point)];
    moveEnvelopePoint(points, point, p.X + dx, p.Y + dy);
    return readEnvelopePoint(points, point);
}

std::vector<EnvelopeWrite> envelopeWrites(int subsection, int point, EnvelopeReading reading)
{
    std::vector<EnvelopeWrite> writes;
    const int b = envelopeBase(subsection);
    if (b < 0 || !validPoint(point) || point == 4)
        return writes;
    const PointParams& params = kParams[point];
    if (params.time != 0)
        writes.push_back({b + params.time, reading.time});
    // The Amp EG keeps reserved parameters where the other EGs have their
    // Start and Release levels; they are set to 0.
    const bool reserved = subsection == kEnvelopeAmpEG && (point == 0 || point == 5);
    writes.push_back({b + params.level, reserved ? 0 : reading.level});
    return writes;
}

int pressEnvelope(EnvelopeGraph& graph, float x, float y)
{
    graph.Grabbed = grabEnvelopePoint(graph.points, x, y);
    if (graph.Grabbed < 0)
        return -1;
    const auto point = static_cast<std::size_t>(graph.Grabbed);
    graph.shaCircle[point].colour = kEnvelopeYellow;
    graph.lblLevelName.visible = true;
    graph.lblLevelVal.visible = true;
    graph.lblTimeName.visible = graph.Grabbed != 0;
    graph.lblTimeVal.visible = graph.Grabbed != 0;
    graph.lblTimeName.caption = kNames[point].time;
    graph.lblLevelName.caption = kNames[point].level;
    showValues(graph);
    return graph.Grabbed;
}

void dragEnvelope(EnvelopeGraph& graph, float x, float y, bool leftButtonDown)
{
    if (graph.Grabbed < 0)
        return;
    if (!leftButtonDown) {
        graph.Grabbed = -1;
        return;
    }
    moveEnvelopePoint(graph.points, graph.Grabbed, x, y);
    positionEnvelope(graph);
    showValues(graph);
}

bool releaseEnvelope(AppModel& model)
{
    EnvelopeGraph& graph = model.envelope;
    if (graph.Grabbed < 0)
        return false;
    const int point = graph.Grabbed;
    graph.shaCircle[static_cast<std::size_t>(point)].colour = kEnvelopeRed;

    // The values shown are the values written.
    EnvelopeReading reading;
    reading.time = point == 0 ? 0 : numberIn(graph.lblTimeVal.caption);
    reading.level = numberIn(graph.lblLevelVal.caption);
    ParamValues& patch = model.buffers.of(kPatch).current;
    for (const EnvelopeWrite& w : envelopeWrites(graph.subsection(), point, reading))
        patch[static_cast<std::size_t>(w.param)] = static_cast<std::int16_t>(w.value);
    model.changed(kBuffersChanged);

    fraPatchHeaders(model, graph.frame(), 0, graph.subsection());

    graph.lblTimeName.visible = false;
    graph.lblTimeVal.visible = false;
    graph.lblLevelName.visible = false;
    graph.lblLevelVal.visible = false;
    graph.Grabbed = -1;
    return true;
}

}  // namespace quillon

#pragma once

#include "model/DataTypes.h"

#include <array>
#include <string>

namespace quillon {

class AppModel;

// The envelope graph of the patch screen, fraEnvelope: a drawing of EG1 to
// EG4 or the Amp EG whose corners the user drags, standing in the place of
// the other frame's rows. The model keeps it as model.envelope; whether it
// shows and whose place it takes are model.layout.parts.fraEnvelope and
// model.layout.EGShown. Everything the screen draws is held here in twips of
// the drawing area picFrame (the screen scales the whole to pixels); the
// screen mirrors it and turns its mouse events into the calls of
// EnvelopeDrag.h and EnvelopeCopy.h.

// One corner of the envelope.
struct EnvelopePoint {
    float X = 0;
    float Y = 0;
    float XMin = 0;   // horizontal limits of a drag
    float XMax = 0;
    float YLow = 0;   // Y of the lowest level allowed (the larger Y)
    float YHigh = 0;  // Y of the highest level allowed
};

// Point 0 the start, 1 the end of the attack, 2 of the decay, 3 of the
// slope, 4 the end of the sustain (key-off), 5 the end of the release.
using EnvelopePoints = std::array<EnvelopePoint, 6>;

// shaCircle(i): a circle of 100 twips around point i.
struct EnvelopeCircle {
    float left = 0;
    float top = 0;
    int colour = 0;  // RGB
};

// linSlope(i): from point i to point i + 1.
struct EnvelopeLine {
    float x1 = 0;
    float y1 = 0;
    float x2 = 0;
    float y2 = 0;
};

// lblLevelName, lblLevelVal, lblTimeName, lblTimeVal.
struct EnvelopeLabel {
    std::string caption;
    bool visible = false;
};

// lblEG(1..5): the buttons that copy the envelope on show to another one.
struct EnvelopeCopyButton {
    std::string caption;
    bool visible = false;
    bool border = false;  // single-line border while the button is pressed
};

inline constexpr int kEnvelopeRed = 0xFF0000;     // a point at rest
inline constexpr int kEnvelopeYellow = 0xFFFF00;  // the point being dragged
inline constexpr int kEnvelopeBlack = 0x000000;   // point 4, key-off
inline constexpr int kEnvelopeAmpEG = 34;         // subsection "Amp EG"
inline constexpr const char* kKeyOffCaption = "= key-off";  // lblKeyOff beside shaSquareLegend

struct EnvelopeGraph {
    // The drawing's fixed measures, in twips.
    static constexpr float Baseline = 2760;      // Y of level 0: linHorizontal
    static constexpr float XStart = 150;         // X of point 0
    static constexpr float XGap = 100;           // added to every time
    static constexpr float TimeScale = 7;        // twips per time unit
    static constexpr float LevelScale = 15;      // twips per level unit
    static constexpr float SustainLength = 250;  // from point 3 to point 4
    static constexpr float CircleRadius = 50;
    static constexpr float GrabDistance = 75;    // a press strictly closer than this in both axes grabs
    static constexpr int LabelScheme = 2;        // colour scheme of the four value labels

    std::string caption;  // fraEnvelope's: that of fraParams of the frame with the envelope
    int tag = 0;          // that frame as one digit and the subsection as two: 134 is frame 1, Amp EG
    int place = 0;        // the frame whose place the graph takes: its left edge is that of fraParams(place)

    EnvelopePoints points;
    int Grabbed = -1;  // the point being dragged, -1 for none

    std::array<EnvelopeCircle, 6> shaCircle;
    std::array<EnvelopeLine, 5> linSlope;
    EnvelopeLabel lblLevelName;
    EnvelopeLabel lblLevelVal;
    EnvelopeLabel lblTimeName;
    EnvelopeLabel lblTimeVal;
    std::array<EnvelopeCopyButton, 6> lblEG;  // 1 to 5; entry 0 unused

    EnvelopeGraph();

    int frame() const { return tag / 100; }
    int subsection() const { return tag % 100; }
};

// Subsections 2 to 5 (EG1 to EG4) and 34 (Amp EG).
bool isEnvelopeSubsection(int subsection);

// B of an envelope: its parameters are B + 31 (Start level) to B + 39
// (Release level). -1 for a subsection that is no envelope.
int envelopeBase(int subsection);

// The six points of an envelope drawn from its values, with the limits of
// a drag from the parameter table's ranges.
EnvelopePoints computeEnvelopePoints(const ParamValues& patch, int subsection);

// Sets circles and lines from the points; point 4 first takes point 3's
// height, as the sustain is level.
void positionEnvelope(EnvelopeGraph& graph);

// Computes the points of the envelope from the patch in the editor and sets
// model.envelope up for frame `frame`, taking the caption of its fraParams.
// A subsection that is no envelope is ignored.
void drawEnvelope(AppModel& model, int frame, int subsection);

// Decides whether the graph is shown when `frame` of the patch screen has
// just been given `subsection`, and redraws it after a value of that
// subsection changed: the graph takes the other frame's place (hiding its
// fraParams) when the subsection is an envelope and the "Graphic EG
// display" setting is on, and otherwise gives the place back to the other
// frame's rows if it has a subsection. Only the frame that receives new
// subsections counts (frame 1 in frame modes 1 and 2, frame 2 in mode 3),
// so a frame that merely receives a shifted subsection brings up no graph.
// EGShown is cleared in every case. fraPatchHeaders runs it through
// model.layout.envelopeRule.
void envelopeRule(AppModel& model, int frame, int subsection);

// Lets fraPatchHeaders apply the rule: sets model.layout.envelopeRule.
void installEnvelopeRule(AppModel& model);

}  // namespace quillon

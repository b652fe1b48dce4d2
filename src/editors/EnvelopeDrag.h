#pragma once

#include "editors/EnvelopeGraph.h"

#include <vector>

namespace quillon {

class AppModel;

// Dragging the corners of the envelope graph. Coordinates are twips of
// picFrame. Point 4 (key-off) is never grabbed: it follows point 3.

// The time and level a point stands for: time = (X - XMin) / TimeScale (0
// for point 0), level = (Baseline - Y) / LevelScale, each rounded to nearest.
struct EnvelopeReading {
    int time = 0;
    int level = 0;
};
EnvelopeReading readEnvelopePoint(const EnvelopePoints& points, int point);

// The point that a press at (x, y) grabs: the first of 0, 1, 2, 3, 5 within
// GrabDistance in both axes, or -1.
int grabEnvelopePoint(const EnvelopePoints& points, float x, float y);

// Moves a point to (x, y), held within its limits; the later points move
// sideways with it (by the rounded distance) so that the tail of the
// envelope keeps its times.
void moveEnvelopePoint(EnvelopePoints& points, int point, float x, float y);

// A whole drag of a point by (dx, dy) from where it stands: the reading it
// gives on release. The points are left as the drag leaves them.
EnvelopeReading dragEnvelopePoint(EnvelopePoints& points, int point, float dx, float dy);

// One value written back on release.
struct EnvelopeWrite {
    int param = 0;
    int value = 0;
};

// What releasing `point` of the envelope of `subsection` writes to the
// patch: its time (points 1, 2, 3, 5) and its level; on the Amp EG points
// 0 and 5 write 0 into the two reserved parameters that stand where its
// Start and Release levels would be.
std::vector<EnvelopeWrite> envelopeWrites(int subsection, int point, EnvelopeReading reading);

// Mouse down on picFrame: grabs a point, colours it yellow and shows its
// names and values in lblTimeName, lblTimeVal, lblLevelName, lblLevelVal.
// Returns the point grabbed, or -1.
int pressEnvelope(EnvelopeGraph& graph, float x, float y);

// Mouse move on picFrame. With the left button down the grabbed point
// follows, within its limits, and the value labels follow it; with any
// other button state the point is let go at once, without writing.
void dragEnvelope(EnvelopeGraph& graph, float x, float y, bool leftButtonDown);

// Mouse up on picFrame: writes the grabbed point's time and level, as the
// value labels show them, into the patch in the editor (past the Hard test
// and the value boxes' change procedure, and without touching Last), tells
// the observers, and shows the envelope's rows again with
// fraPatchHeaders(frame, 0, subsection) for the frame and subsection of the
// graph's tag, which redraws the graph from the values written. Then the
// labels hide and the point is let go. Returns false when no point was
// grabbed, and then does nothing.
bool releaseEnvelope(AppModel& model);

}  // namespace quillon

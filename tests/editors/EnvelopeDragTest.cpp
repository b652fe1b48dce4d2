#include "editors/EnvelopeDrag.h"

#include "editors/Frames.h"
#include "editors/Navigation.h"
#include "model/Kind.h"
#include "shell/AppObserver.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

using G = EnvelopeGraph;

constexpr int kEG1 = 2;
constexpr int kEG4 = 5;

// An envelope shown as a graph on the patch screen, in frame 1 ("Frame left
// active") or frame 2 ("Frame right active").
struct DrawnEnvelope {
    TestModel t;
    EnvelopeGraph& graph = t.model.envelope;
    RecordingObserver observer;

    explicit DrawnEnvelope(int subsection = kEG1, int frame = 1)
    {
        applyStartUpView(t.model);
        installEnvelopeRule(t.model);
        t.model.settings.graphicEnvelope = true;
        setFrameMode(t.model, frame == 2 ? 3 : 2);
        fraPatchHeaders(t.model, frame, 0, subsection);
        t.model.addObserver(&observer);
    }
    ~DrawnEnvelope() { t.model.removeObserver(&observer); }

    ParamValues& patch() { return t.model.buffers.of(kPatch).current; }
    int press(int point) { return pressEnvelope(graph, graph.points[point].X, graph.points[point].Y); }
};

TEST(EnvelopeDrag, DraggingPointOneRightBy70MovesTheTailBy70AndTheTimeBy10)
{
    DrawnEnvelope e;
    const EnvelopePoints before = e.graph.points;
    ASSERT_EQ(e.press(1), 1);
    EXPECT_EQ(e.graph.lblTimeVal.caption, "0");

    dragEnvelope(e.graph, before[1].X + 70, before[1].Y, true);

    EXPECT_FLOAT_EQ(e.graph.points[1].X, before[1].X + 70);
    for (int i = 2; i <= 5; ++i) {
        EXPECT_FLOAT_EQ(e.graph.points[i].X, before[i].X + 70) << i;
        EXPECT_FLOAT_EQ(e.graph.points[i].XMin, before[i].XMin + 70) << i;
        EXPECT_FLOAT_EQ(e.graph.points[i].XMax, before[i].XMax + 70) << i;
        EXPECT_FLOAT_EQ(e.graph.shaCircle[i].left, before[i].X + 70 - 50) << i;
    }
    EXPECT_FLOAT_EQ(e.graph.points[0].X, before[0].X);
    EXPECT_EQ(e.graph.lblTimeVal.caption, "10");
    EXPECT_EQ(e.graph.lblLevelVal.caption, "99");

    EXPECT_TRUE(releaseEnvelope(e.t.model));
    EXPECT_EQ(e.patch()[32], 10);  // Attack time
    EXPECT_EQ(e.patch()[33], 99);  // Attack level
    EXPECT_EQ(e.patch()[34], 20);  // Decay time keeps its value
    // The rows and the graph are shown again from the values written.
    EXPECT_EQ(e.t.model.layout.rows[0].value, 0);   // Start level
    EXPECT_EQ(e.t.model.layout.rows[1].value, 10);  // Attack time
    EXPECT_FLOAT_EQ(e.graph.points[2].X, before[2].X + 70);
    EXPECT_EQ(e.graph.tag, 102);
}

TEST(EnvelopeDrag, PointFourCannotBeGrabbedAndItsHeightFollowsPointThree)
{
    DrawnEnvelope e;
    EXPECT_EQ(e.press(4), -1);
    EXPECT_EQ(e.graph.Grabbed, -1);
    EXPECT_FALSE(e.graph.lblLevelVal.visible);
    EXPECT_EQ(e.graph.shaCircle[4].colour, kEnvelopeBlack);

    ASSERT_EQ(e.press(3), 3);
    dragEnvelope(e.graph, e.graph.points[3].X, e.graph.points[3].Y + 300, true);
    EXPECT_FLOAT_EQ(e.graph.points[4].Y, e.graph.points[3].Y);
    EXPECT_FLOAT_EQ(e.graph.shaCircle[4].top, e.graph.points[3].Y - 50);
    EXPECT_EQ(e.graph.lblLevelVal.caption, "79");  // 99 less 300 / 15
}

TEST(EnvelopeDrag, DraggingPointZeroOfTheAmpEGChangesNothing)
{
    DrawnEnvelope e(kEnvelopeAmpEG);
    const EnvelopePoints before = e.graph.points;
    const ParamValues patchBefore = e.patch();
    ASSERT_EQ(e.press(0), 0);

    dragEnvelope(e.graph, before[0].X + 400, before[0].Y - 600, true);
    for (int i = 0; i < 6; ++i) {
        EXPECT_FLOAT_EQ(e.graph.points[i].X, before[i].X) << i;
        EXPECT_FLOAT_EQ(e.graph.points[i].Y, before[i].Y) << i;
    }
    EXPECT_EQ(e.graph.lblLevelVal.caption, "0");

    releaseEnvelope(e.t.model);
    EXPECT_EQ(e.patch(), patchBefore);
}

TEST(EnvelopeDrag, PressShowsTheNamesAndValuesOfThePoint)
{
    DrawnEnvelope e;
    ASSERT_EQ(e.press(0), 0);
    EXPECT_EQ(e.graph.shaCircle[0].colour, kEnvelopeYellow);
    EXPECT_EQ(e.graph.lblLevelName.caption, "Start level");
    EXPECT_TRUE(e.graph.lblLevelName.visible);
    EXPECT_TRUE(e.graph.lblLevelVal.visible);
    EXPECT_FALSE(e.graph.lblTimeName.visible);
    EXPECT_FALSE(e.graph.lblTimeVal.visible);
    releaseEnvelope(e.t.model);

    const std::pair<const char*, const char*> names[] = {
        {"Attack time", "Attack level"},
        {"Decay time", "Break level"},
        {"Slope time", "Sustain level"},
        {"Release time", "Release level"},
    };
    const int points[] = {1, 2, 3, 5};
    for (int k = 0; k < 4; ++k) {
        ASSERT_EQ(e.press(points[k]), points[k]);
        EXPECT_EQ(e.graph.lblTimeName.caption, names[k].first);
        EXPECT_EQ(e.graph.lblLevelName.caption, names[k].second);
        EXPECT_TRUE(e.graph.lblTimeName.visible);
        EXPECT_TRUE(e.graph.lblTimeVal.visible);
        releaseEnvelope(e.t.model);
    }
    ASSERT_EQ(e.press(2), 2);
    EXPECT_EQ(e.graph.lblTimeVal.caption, "20");
    EXPECT_EQ(e.graph.lblLevelVal.caption, "99");
}

TEST(EnvelopeDrag, APressBetweenTwoPointsGrabsTheEarlierAndAFarOneNothing)
{
    DrawnEnvelope e;
    e.patch()[33] = 0;  // Attack level on the baseline, beside point 0
    drawEnvelope(e.t.model, 1, kEG1);
    EXPECT_EQ(grabEnvelopePoint(e.graph.points, 200, G::Baseline), 0);
    EXPECT_EQ(grabEnvelopePoint(e.graph.points, 240, G::Baseline + 74), 1);
    EXPECT_EQ(grabEnvelopePoint(e.graph.points, 250, G::Baseline + 75), -1);
    EXPECT_EQ(pressEnvelope(e.graph, 3000, 100), -1);
    EXPECT_FALSE(e.graph.lblLevelVal.visible);
}

TEST(EnvelopeDrag, ADragIsHeldWithinTheLimitsOfThePoint)
{
    DrawnEnvelope e;
    EnvelopePoints points = e.graph.points;
    EXPECT_EQ(dragEnvelopePoint(points, 1, 5000, -5000).time, 99);
    EXPECT_EQ(readEnvelopePoint(points, 1).level, 99);
    EXPECT_EQ(dragEnvelopePoint(points, 1, -9000, 9000).level, -99);
    EXPECT_EQ(readEnvelopePoint(points, 1).time, 0);

    EnvelopePoints amp = computeEnvelopePoints(e.patch(), kEnvelopeAmpEG);
    const EnvelopeReading reading = dragEnvelopePoint(amp, 3, -35, 3000);
    EXPECT_EQ(reading.time, 15);  // Slope time 20 less 5
    EXPECT_EQ(reading.level, 0);  // the Amp EG goes no lower
}

TEST(EnvelopeDrag, ATimeIsReadToTheNearestUnit)
{
    DrawnEnvelope e;
    EnvelopePoints points = e.graph.points;
    EXPECT_EQ(dragEnvelopePoint(points, 2, 10, 0).time, 21);   // 150 / 7 = 21.4
    EXPECT_EQ(dragEnvelopePoint(points, 2, 1, 0).time, 22);    // 151 / 7 = 21.6
    EXPECT_EQ(dragEnvelopePoint(points, 2, 0, 7).level, 99);   // 1478 / 15 = 98.53
    EXPECT_EQ(dragEnvelopePoint(points, 2, 0, 1).level, 98);   // 1477 / 15 = 98.47
}

TEST(EnvelopeDrag, ReleaseWritesPastTheHardTestWithoutLastAndTellsTheObservers)
{
    DrawnEnvelope e(kEnvelopeAmpEG);
    e.patch()[341] = 7;  // a reserved value where the Amp EG's Release level would be
    const ParamValues last = e.t.model.buffers.of(kPatch).last;
    ASSERT_EQ(e.press(5), 5);
    dragEnvelope(e.graph, e.graph.points[5].X + 140, e.graph.points[5].Y, true);
    EXPECT_TRUE(releaseEnvelope(e.t.model));

    EXPECT_EQ(e.patch()[340], 40);  // Release time 20 and 20 more
    EXPECT_EQ(e.patch()[341], 0);
    EXPECT_EQ(e.t.model.buffers.of(kPatch).last, last);
    EXPECT_TRUE(e.observer.all & kBuffersChanged);
    EXPECT_EQ(e.graph.Grabbed, -1);
    EXPECT_EQ(e.graph.shaCircle[5].colour, kEnvelopeRed);
    EXPECT_FALSE(e.graph.lblTimeName.visible);
    EXPECT_FALSE(e.graph.lblTimeVal.visible);
    EXPECT_FALSE(e.graph.lblLevelName.visible);
    EXPECT_FALSE(e.graph.lblLevelVal.visible);
}

TEST(EnvelopeDrag, ReleaseWritesToTheEnvelopeOfTheTagAndShowsItsRowsInItsFrame)
{
    DrawnEnvelope e(kEG4, 2);
    ASSERT_EQ(e.graph.tag, 205);
    ASSERT_EQ(e.press(0), 0);
    dragEnvelope(e.graph, e.graph.points[0].X, e.graph.points[0].Y + 150, true);
    EXPECT_TRUE(releaseEnvelope(e.t.model));
    EXPECT_EQ(e.patch()[57 + 31], -10);
    EXPECT_EQ(e.patch()[31], 0);
    EXPECT_EQ(e.t.model.layout.patchFrames[2].Subsection, kEG4);
    EXPECT_EQ(e.t.model.layout.rows[15].value, -10);
    EXPECT_TRUE(e.observer.all & kFrame2Changed);
}

TEST(EnvelopeDrag, AMoveWithoutTheLeftButtonLetsGoWithoutWriting)
{
    DrawnEnvelope e;
    const ParamValues before = e.patch();
    ASSERT_EQ(e.press(2), 2);
    dragEnvelope(e.graph, e.graph.points[2].X + 70, e.graph.points[2].Y, false);
    EXPECT_EQ(e.graph.Grabbed, -1);
    dragEnvelope(e.graph, e.graph.points[2].X + 140, e.graph.points[2].Y, true);
    EXPECT_FALSE(releaseEnvelope(e.t.model));
    EXPECT_EQ(e.patch(), before);
    EXPECT_EQ(e.observer.calls, 0);
}

TEST(EnvelopeDrag, ReleaseWritesTheLevelsOfEachPoint)
{
    const std::vector<EnvelopeWrite> start = envelopeWrites(kEG1, 0, {5, -3});
    ASSERT_EQ(start.size(), 1u);
    EXPECT_EQ(start[0].param, 31);
    EXPECT_EQ(start[0].value, -3);

    const std::vector<EnvelopeWrite> slope = envelopeWrites(kEG1, 3, {12, 40});
    ASSERT_EQ(slope.size(), 2u);
    EXPECT_EQ(slope[0].param, 36);
    EXPECT_EQ(slope[0].value, 12);
    EXPECT_EQ(slope[1].param, 37);
    EXPECT_EQ(slope[1].value, 40);

    const std::vector<EnvelopeWrite> ampStart = envelopeWrites(kEnvelopeAmpEG, 0, {0, 9});
    ASSERT_EQ(ampStart.size(), 1u);
    EXPECT_EQ(ampStart[0].param, 333);
    EXPECT_EQ(ampStart[0].value, 0);

    EXPECT_TRUE(envelopeWrites(kEG1, 4, {1, 1}).empty());
}

}  // namespace
}  // namespace quillon

#include "editors/EnvelopeGraph.h"

#include "editors/Frames.h"
#include "editors/Navigation.h"
#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

using G = EnvelopeGraph;

constexpr int kEG1 = 2;
constexpr int kEG2 = 3;
constexpr int kEG3 = 4;
constexpr int kLFO1 = 6;
constexpr int kPatchCommon = 1;

float level(int v) { return G::Baseline - static_cast<float>(v) * G::LevelScale; }

// The patch screen as the program starts it, with the envelope rule in
// place and the "Graphic EG display" setting on.
struct PatchScreen : TestModel {
    PatchScreen()
    {
        applyStartUpView(model);
        installEnvelopeRule(model);
        model.settings.graphicEnvelope = true;
    }
    ScreenLayout& layout() { return model.layout; }
    const EnvelopeGraph& graph() const { return model.envelope; }
    int subsectionOf(int frame) const { return model.layout.patchFrames[static_cast<std::size_t>(frame)].Subsection; }
    bool rowsShown(int frame) const { return model.layout.frames[static_cast<std::size_t>(frame)].visible; }
    // A click on the tree node of a subsection that stands for its section.
    void choose(int subsection)
    {
        std::string key = "S";  // appended: GCC 12 warns wrongly about "S" + std::to_string(...)
        key += std::to_string(subsection);
        clickTreeNode(model, key);
    }
};

TEST(EnvelopeGraph, DefaultEG1PointsStandWhereTheirTimesAndLevelsPutThem)
{
    TestModel t;
    const ParamValues& patch = t.model.buffers.of(kPatch).current;
    ASSERT_EQ(patch[31], 0);   // Start level
    ASSERT_EQ(patch[32], 0);   // Attack time
    ASSERT_EQ(patch[33], 99);  // Attack level
    ASSERT_EQ(patch[34], 20);  // Decay time
    ASSERT_EQ(patch[38], 20);  // Release time
    ASSERT_EQ(patch[39], 0);   // Release level

    const EnvelopePoints p = computeEnvelopePoints(patch, kEG1);
    EXPECT_FLOAT_EQ(p[0].X, 150);
    EXPECT_FLOAT_EQ(p[0].XMin, 150);
    EXPECT_FLOAT_EQ(p[0].XMax, 150);
    EXPECT_FLOAT_EQ(p[0].Y, 2760);
    EXPECT_FLOAT_EQ(p[0].YLow, level(-99));
    EXPECT_FLOAT_EQ(p[0].YHigh, level(99));

    EXPECT_FLOAT_EQ(p[1].X, 250);
    EXPECT_FLOAT_EQ(p[1].XMin, 250);
    EXPECT_FLOAT_EQ(p[1].XMax, 250 + 99 * 7);
    EXPECT_FLOAT_EQ(p[1].Y, 1275);

    EXPECT_FLOAT_EQ(p[2].X, 250 + 100 + 140);
    EXPECT_FLOAT_EQ(p[2].XMin, 350);
    EXPECT_FLOAT_EQ(p[3].X, 490 + 100 + 140);

    EXPECT_FLOAT_EQ(p[4].X, 730 + 100 + 250);
    EXPECT_FLOAT_EQ(p[4].XMin, p[4].X);
    EXPECT_FLOAT_EQ(p[4].XMax, p[4].X);
    EXPECT_FLOAT_EQ(p[4].Y, p[3].Y);

    EXPECT_FLOAT_EQ(p[5].X, 1080 + 100 + 140);
    EXPECT_FLOAT_EQ(p[5].XMin, 1180);
    EXPECT_FLOAT_EQ(p[5].Y, 2760);
}

TEST(EnvelopeGraph, AmpEGStartAndEndLieOnTheBaselineWhateverTheReservedValues)
{
    TestModel t;
    ParamValues& patch = t.model.buffers.of(kPatch).current;
    patch[333] = 40;
    patch[341] = 60;
    patch[335] = 50;
    const EnvelopePoints p = computeEnvelopePoints(patch, kEnvelopeAmpEG);
    for (int i : {0, 5}) {
        EXPECT_FLOAT_EQ(p[i].Y, G::Baseline) << i;
        EXPECT_FLOAT_EQ(p[i].YLow, G::Baseline) << i;
        EXPECT_FLOAT_EQ(p[i].YHigh, G::Baseline) << i;
    }
    EXPECT_FLOAT_EQ(p[1].Y, level(50));
    // The Amp EG's levels go from 0 to 99 only.
    EXPECT_FLOAT_EQ(p[1].YLow, G::Baseline);
    EXPECT_FLOAT_EQ(p[1].YHigh, level(99));
}

TEST(EnvelopeGraph, EnvelopesAreEG1ToEG4AndTheAmpEG)
{
    EXPECT_FALSE(isEnvelopeSubsection(1));
    for (int s = 2; s <= 5; ++s)
        EXPECT_TRUE(isEnvelopeSubsection(s)) << s;
    EXPECT_FALSE(isEnvelopeSubsection(6));
    EXPECT_FALSE(isEnvelopeSubsection(33));
    EXPECT_TRUE(isEnvelopeSubsection(34));
    EXPECT_EQ(envelopeBase(2), 0);
    EXPECT_EQ(envelopeBase(5), 57);
    EXPECT_EQ(envelopeBase(34), 302);
    EXPECT_EQ(envelopeBase(6), -1);
}

TEST(EnvelopeGraph, DrawHidesTheButtonOfTheEnvelopeOnShowAndTagsFrameAndSubsection)
{
    TestModel t;
    t.model.layout.frames[1].caption = "EG3";
    t.model.layout.frames[2].caption = "Amp EG";
    const EnvelopeGraph& graph = t.model.envelope;
    drawEnvelope(t.model, 1, kEG3);
    EXPECT_EQ(graph.tag, 104);
    EXPECT_EQ(graph.place, 2);
    EXPECT_EQ(graph.caption, "EG3");
    for (int i = 1; i <= 5; ++i)
        EXPECT_EQ(graph.lblEG[i].visible, i != 3) << i;

    drawEnvelope(t.model, 2, kEnvelopeAmpEG);
    EXPECT_EQ(graph.tag, 234);
    EXPECT_EQ(graph.place, 1);
    EXPECT_EQ(graph.caption, "Amp EG");
    EXPECT_EQ(graph.frame(), 2);
    EXPECT_EQ(graph.subsection(), 34);
    for (int i = 1; i <= 5; ++i)
        EXPECT_EQ(graph.lblEG[i].visible, i != 5) << i;
    EXPECT_EQ(graph.lblEG[1].caption, "Copy to EG1");
    EXPECT_EQ(graph.lblEG[4].caption, "Copy to EG4");
    EXPECT_EQ(graph.lblEG[5].caption, "Copy to A EG");
}

TEST(EnvelopeGraph, CirclesAreRedExceptTheBlackKeyOffAndCentredOnTheirPoints)
{
    TestModel t;
    EnvelopeGraph& graph = t.model.envelope;
    graph.shaCircle[2].colour = kEnvelopeYellow;
    drawEnvelope(t.model, 1, kEG1);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(graph.shaCircle[i].colour, i == 4 ? kEnvelopeBlack : kEnvelopeRed) << i;
        EXPECT_FLOAT_EQ(graph.shaCircle[i].left, graph.points[i].X - 50) << i;
        EXPECT_FLOAT_EQ(graph.shaCircle[i].top, graph.points[i].Y - 50) << i;
    }
    for (int i = 0; i < 5; ++i) {
        EXPECT_FLOAT_EQ(graph.linSlope[i].x1, graph.points[i].X) << i;
        EXPECT_FLOAT_EQ(graph.linSlope[i].y2, graph.points[i + 1].Y) << i;
    }
}

TEST(EnvelopeGraph, PositionLetsTheSustainEndFollowTheSustainLevel)
{
    EnvelopeGraph graph;
    graph.points[3].Y = 2000;
    graph.points[4].Y = 1000;
    positionEnvelope(graph);
    EXPECT_FLOAT_EQ(graph.points[4].Y, 2000);
    EXPECT_FLOAT_EQ(graph.shaCircle[4].top, 1950);
    EXPECT_FLOAT_EQ(graph.linSlope[3].y2, 2000);
    EXPECT_FLOAT_EQ(graph.linSlope[4].y1, 2000);
}

TEST(EnvelopeRule, WithTheSettingOffNoGraphIsShownAndEGShownStaysClear)
{
    PatchScreen s;
    s.model.settings.graphicEnvelope = false;
    s.choose(kPatchCommon);
    s.choose(kEG1);
    EXPECT_EQ(s.subsectionOf(1), kEG1);
    EXPECT_FALSE(s.layout().parts.fraEnvelope);
    EXPECT_FALSE(s.layout().EGShown[1]);
    EXPECT_FALSE(s.layout().EGShown[2]);
    EXPECT_TRUE(s.rowsShown(1));
    EXPECT_TRUE(s.rowsShown(2));
    EXPECT_EQ(s.graph().tag, 0);
}

TEST(EnvelopeRule, InFrameChangeLToREG1GoesLeftAndHidesTheRightRowsUntilANonEnvelopeComes)
{
    PatchScreen s;
    setFrameMode(s.model, 1);
    s.choose(kPatchCommon);
    s.choose(kEG1);

    EXPECT_EQ(s.subsectionOf(1), kEG1);
    EXPECT_TRUE(s.layout().parts.fraEnvelope);
    EXPECT_EQ(s.graph().tag, 102);
    EXPECT_EQ(s.graph().place, 2);
    EXPECT_EQ(s.graph().caption, "EG1");
    EXPECT_TRUE(s.layout().EGShown[2]);
    EXPECT_FALSE(s.layout().EGShown[1]);
    EXPECT_FALSE(s.rowsShown(2));
    EXPECT_TRUE(s.rowsShown(1));
    // Frame 2 keeps its subsection behind the graph.
    EXPECT_EQ(s.subsectionOf(2), kPatchCommon);

    s.choose(kLFO1);
    EXPECT_FALSE(s.layout().parts.fraEnvelope);
    EXPECT_FALSE(s.layout().EGShown[2]);
    EXPECT_TRUE(s.rowsShown(2));
    EXPECT_EQ(s.subsectionOf(2), kEG1);  // moved along by "Frame change L to R"
    EXPECT_EQ(s.subsectionOf(1), kLFO1);
}

TEST(EnvelopeRule, NonEnvelopeInFrameLeftActiveBringsBackTheRightFramesOwnRows)
{
    PatchScreen s;
    setFrameMode(s.model, 2);
    fraPatchHeaders(s.model, 2, 0, kPatchCommon);
    s.choose(kEG2);
    EXPECT_FALSE(s.rowsShown(2));
    EXPECT_TRUE(s.layout().EGShown[2]);

    s.choose(kLFO1);
    EXPECT_TRUE(s.rowsShown(2));
    EXPECT_EQ(s.subsectionOf(2), kPatchCommon);
    EXPECT_FALSE(s.layout().parts.fraEnvelope);
}

TEST(EnvelopeRule, InFrameRightActiveTheGraphTakesThePlaceOfFrameOne)
{
    PatchScreen s;
    setFrameMode(s.model, 1);
    s.choose(kLFO1);
    setFrameMode(s.model, 3);
    s.choose(kEG2);

    EXPECT_EQ(s.subsectionOf(2), kEG2);
    EXPECT_TRUE(s.layout().parts.fraEnvelope);
    EXPECT_TRUE(s.layout().EGShown[1]);
    EXPECT_FALSE(s.layout().EGShown[2]);
    EXPECT_EQ(s.graph().place, 1);
    EXPECT_EQ(s.graph().tag, 203);
    EXPECT_FALSE(s.rowsShown(1));
    EXPECT_TRUE(s.rowsShown(2));
    EXPECT_EQ(s.subsectionOf(1), kLFO1);
}

TEST(EnvelopeRule, AFrameThatMerelyReceivesAShiftedEnvelopeBringsUpNoGraph)
{
    PatchScreen s;
    setFrameMode(s.model, 1);
    s.layout().EGShown[2] = true;
    envelopeRule(s.model, 2, kEG1);
    EXPECT_FALSE(s.layout().parts.fraEnvelope);
    EXPECT_FALSE(s.layout().EGShown[1]);
    EXPECT_FALSE(s.layout().EGShown[2]);
    EXPECT_EQ(s.graph().tag, 0);
}

TEST(EnvelopeRule, NonEnvelopeLeavesAnEmptyOtherFrameHidden)
{
    PatchScreen s;
    setFrameMode(s.model, 2);
    s.layout().parts.fraEnvelope = true;
    RecordingObserver observer;
    s.model.addObserver(&observer);
    envelopeRule(s.model, 1, kLFO1);
    s.model.removeObserver(&observer);
    EXPECT_FALSE(s.layout().parts.fraEnvelope);
    EXPECT_FALSE(s.rowsShown(2));
    EXPECT_TRUE(observer.all & kNavigationChanged);
}

TEST(EnvelopeRule, RuleAgainAfterAValueChangeRedrawsTheGraph)
{
    PatchScreen s;
    setFrameMode(s.model, 2);
    s.choose(kEG1);
    s.model.buffers.of(kPatch).current[37] = -20;  // Sustain level typed in a row
    envelopeRule(s.model, 1, kEG1);
    EXPECT_FLOAT_EQ(s.graph().points[3].Y, level(-20));
    EXPECT_FLOAT_EQ(s.graph().points[4].Y, level(-20));
    EXPECT_FLOAT_EQ(s.graph().shaCircle[4].top, level(-20) - 50);
    EXPECT_TRUE(s.layout().EGShown[2]);
}

TEST(EnvelopeRule, ReturningToThePatchScreenShowsTheGraphAgain)
{
    PatchScreen s;
    s.choose(kEG1);
    ASSERT_TRUE(s.layout().parts.fraEnvelope);
    const int before = s.model.mode;
    s.model.mode = kMultiset;
    setUpScreenContent(s.model, before);
    EXPECT_FALSE(s.layout().parts.fraEnvelope);
    s.model.mode = kPatch;
    setUpScreenContent(s.model, kMultiset);
    EXPECT_TRUE(s.layout().parts.fraEnvelope);
    EXPECT_TRUE(s.layout().EGShown[2]);
    EXPECT_FALSE(s.rowsShown(2));
    EXPECT_EQ(s.graph().tag, 102);
}

}  // namespace
}  // namespace quillon

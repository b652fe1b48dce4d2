#include "editors/EnvelopeCopy.h"

#include "editors/EnvelopeGraph.h"
#include "model/Kind.h"
#include "shell/AppObserver.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

constexpr int kEG1 = 2;
constexpr int kEG2 = 3;
constexpr int kAmpB = 302;

// Gives the nine values of an envelope, Start level to Release level.
void setEnvelope(ParamValues& patch, int base, std::array<int, 9> values)
{
    for (int k = 0; k < 9; ++k)
        patch[base + 31 + k] = static_cast<std::int16_t>(values[k]);
}

std::array<int, 9> envelopeOf(const ParamValues& patch, int base)
{
    std::array<int, 9> values{};
    for (int k = 0; k < 9; ++k)
        values[k] = patch[base + 31 + k];
    return values;
}

// The graph of an envelope in frame 1 of the patch screen.
struct ShownEnvelope {
    TestModel t;
    EnvelopeGraph& graph = t.model.envelope;
    RecordingObserver observer;

    ShownEnvelope() { t.model.addObserver(&observer); }
    ~ShownEnvelope() { t.model.removeObserver(&observer); }

    ParamValues& patch() { return t.model.buffers.of(kPatch).current; }
    void draw(int subsection) { drawEnvelope(t.model, 1, subsection); }
};

TEST(CopyEnvelope, AnEGCopiesAllNineValuesToAnother)
{
    TestModel t;
    ParamValues& patch = t.model.buffers.of(kPatch).current;
    setEnvelope(patch, 0, {-5, 10, 20, 30, -40, 50, 60, 70, -80});
    copyEnvelope(t.model, kEG1, kEG2);
    EXPECT_EQ(envelopeOf(patch, 19), (std::array<int, 9>{-5, 10, 20, 30, -40, 50, 60, 70, -80}));
}

TEST(CopyEnvelope, NegativeValuesBecomeZeroInTheAmpEGAndItsReservedValuesStay)
{
    TestModel t;
    ParamValues& patch = t.model.buffers.of(kPatch).current;
    setEnvelope(patch, 19, {-5, 10, -20, 30, -40, 50, 60, 70, -80});
    patch[333] = 3;
    patch[341] = 4;
    copyEnvelope(t.model, kEG2, kEnvelopeAmpEG);
    EXPECT_EQ(envelopeOf(patch, kAmpB), (std::array<int, 9>{3, 10, 0, 30, 0, 50, 60, 70, 4}));
}

TEST(CopyEnvelope, LastIsNotWrittenAndTheObserversAreTold)
{
    ShownEnvelope e;
    const ParamValues last = e.t.model.buffers.of(kPatch).last;
    e.patch()[32] = 44;
    copyEnvelope(e.t.model, kEG1, kEG2);
    EXPECT_EQ(e.patch()[51], 44);
    EXPECT_EQ(e.t.model.buffers.of(kPatch).last, last);
    EXPECT_TRUE(e.observer.all & kBuffersChanged);
}

TEST(CopyEnvelope, ButtonsCopyToEG1ToEG4AndTheAmpEG)
{
    EXPECT_EQ(envelopeCopyDestination(1), 2);
    EXPECT_EQ(envelopeCopyDestination(4), 5);
    EXPECT_EQ(envelopeCopyDestination(5), 34);
    EXPECT_EQ(envelopeCopyDestination(0), 0);
    EXPECT_EQ(envelopeCopyDestination(6), 0);
}

TEST(CopyEnvelope, StartLevelBelowZeroStillAsksAndIsThenDroppedInTheAmpEG)
{
    ShownEnvelope e;
    setEnvelope(e.patch(), 0, {-10, 11, 22, 33, 44, 55, 66, 77, 8});
    e.draw(kEG1);
    e.t.host.expectMessage(kCopyToAmpEGTitle, Answer::Yes, kCopyToAmpEGQuestion);

    EXPECT_TRUE(pressCopyButton(e.t.model, 5));

    EXPECT_TRUE(e.t.host.allShown());
    ASSERT_EQ(e.t.host.messages.size(), 1u);
    const MessageRequest& question = e.t.host.messages[0];
    EXPECT_EQ(question.text, "Negative values in this EG will be changed to zero in Amp EG. Ok to proceed?");
    EXPECT_EQ(question.title, "Copy EG to Amp EG");
    EXPECT_EQ(question.buttons, MessageButtons::YesNo);
    EXPECT_TRUE(question.help);
    EXPECT_EQ(envelopeOf(e.patch(), kAmpB), (std::array<int, 9>{0, 11, 22, 33, 44, 55, 66, 77, 0}));
    EXPECT_FALSE(e.graph.lblEG[5].border);
}

TEST(CopyEnvelope, AnythingButYesLeavesTheAmpEGAsItWas)
{
    ShownEnvelope e;
    setEnvelope(e.patch(), 0, {0, 11, 22, 33, -44, 55, 66, 77, 8});
    const std::array<int, 9> amp = envelopeOf(e.patch(), kAmpB);
    e.draw(kEG1);
    e.t.host.expectMessage(kCopyToAmpEGTitle, Answer::No, kCopyToAmpEGQuestion);

    EXPECT_FALSE(pressCopyButton(e.t.model, 5));

    EXPECT_EQ(envelopeOf(e.patch(), kAmpB), amp);
    EXPECT_FALSE(e.graph.lblEG[5].border);
    EXPECT_EQ(e.observer.calls, 0);
}

TEST(CopyEnvelope, AnEGWithNoPointBelowZeroGoesToTheAmpEGWithoutAQuestion)
{
    ShownEnvelope e;
    setEnvelope(e.patch(), 0, {0, 11, 22, 33, 44, 55, 66, 77, 0});
    e.draw(kEG1);
    EXPECT_TRUE(pressCopyButton(e.t.model, 5));
    EXPECT_TRUE(e.t.host.messages.empty());
    EXPECT_EQ(envelopeOf(e.patch(), kAmpB), (std::array<int, 9>{0, 11, 22, 33, 44, 55, 66, 77, 0}));
    EXPECT_TRUE(e.graph.lblEG[5].border);
    releaseCopyButton(e.t.model, 5);
    EXPECT_FALSE(e.graph.lblEG[5].border);
}

TEST(CopyEnvelope, TheAmpEGCopiedToEG1SetsItsStartAndReleaseLevelsToZero)
{
    ShownEnvelope e;
    setEnvelope(e.patch(), 0, {-50, 1, 2, 3, 4, 5, 6, 7, 30});
    setEnvelope(e.patch(), kAmpB, {9, 11, 22, 33, 44, 55, 66, 77, 9});
    e.draw(kEnvelopeAmpEG);

    EXPECT_TRUE(pressCopyButton(e.t.model, 1));

    EXPECT_EQ(envelopeOf(e.patch(), 0), (std::array<int, 9>{0, 11, 22, 33, 44, 55, 66, 77, 0}));
    EXPECT_TRUE(e.observer.all & kBuffersChanged);
    // The graph still shows the Amp EG: the copy does not redraw it.
    EXPECT_EQ(e.graph.tag, 134);
}

TEST(CopyEnvelope, TheCopyLeavesTheGraphOfTheSourceAsItIs)
{
    ShownEnvelope e;
    e.draw(kEG1);
    const EnvelopePoints points = e.graph.points;
    setEnvelope(e.patch(), 19, {-99, 99, -99, 99, -99, 99, -99, 99, -99});
    EXPECT_TRUE(pressCopyButton(e.t.model, 2));
    for (int i = 0; i < 6; ++i)
        EXPECT_FLOAT_EQ(e.graph.points[i].Y, points[i].Y) << i;
    EXPECT_EQ(envelopeOf(e.patch(), 19), envelopeOf(e.patch(), 0));
}

}  // namespace
}  // namespace quillon

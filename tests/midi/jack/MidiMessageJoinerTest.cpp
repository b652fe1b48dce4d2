#include "midi/backends/RtMidiInputPort.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Messages = std::vector<Bytes>;

Messages take(MidiMessageJoiner& joiner, const Bytes& bytes) { return joiner.take(bytes.data(), bytes.size()); }

TEST(MidiMessageJoiner, AWholeSysExMessageIsOneMessage)
{
    MidiMessageJoiner joiner;
    EXPECT_EQ(take(joiner, {0xF0, 0x42, 0x30, 0xF7}), (Messages{{0xF0, 0x42, 0x30, 0xF7}}));
}

TEST(MidiMessageJoiner, PartsAreJoinedUntilTheirF7)
{
    MidiMessageJoiner joiner;
    EXPECT_TRUE(take(joiner, {0xF0, 0x42, 0x30}).empty());
    EXPECT_TRUE(take(joiner, {0x01, 0x02}).empty());
    EXPECT_EQ(take(joiner, {0x03, 0xF7}), (Messages{{0xF0, 0x42, 0x30, 0x01, 0x02, 0x03, 0xF7}}));
}

TEST(MidiMessageJoiner, TheBytesSoFarOfASysExComingInAreCountedForItsProgress)
{
    MidiMessageJoiner joiner;
    EXPECT_EQ(joiner.bytesSoFar(), 0u);
    take(joiner, {0xF0, 0x42, 0x30});
    EXPECT_EQ(joiner.bytesSoFar(), 3u);
    take(joiner, {0x01, 0x02});
    EXPECT_EQ(joiner.bytesSoFar(), 5u);
    take(joiner, {0x03, 0xF7});
    EXPECT_EQ(joiner.bytesSoFar(), 0u) << "whole: nothing is coming in any more";
}

TEST(MidiMessageJoiner, ClockBetweenPartsIsAMessageOfItsOwnAndTheSysExGoesOn)
{
    MidiMessageJoiner joiner;
    take(joiner, {0xF0, 0x01});
    EXPECT_EQ(take(joiner, {0xF8}), (Messages{{0xF8}}));
    EXPECT_EQ(take(joiner, {0x02, 0xF7}), (Messages{{0xF0, 0x01, 0x02, 0xF7}}));
}

TEST(MidiMessageJoiner, ANewStatusCutsAnUnfinishedSysExWhichIsLost)
{
    MidiMessageJoiner joiner;
    take(joiner, {0xF0, 0x01});
    EXPECT_EQ(take(joiner, {0x90, 60, 100}), (Messages{{0x90, 60, 100}}));
    EXPECT_TRUE(take(joiner, {0x02, 0xF7}).empty());
}

TEST(MidiMessageJoiner, AnF0InsideAPartStartsAfreshAndTheCutMessageIsLost)
{
    // A sender reset in the middle of a bank, then a new dump: the layer
    // may hand both over as one part.
    MidiMessageJoiner joiner;
    EXPECT_TRUE(take(joiner, {0xF0, 0x01, 0x02}).empty());
    EXPECT_EQ(take(joiner, {0x03, 0xF0, 0x42, 0xF7}), (Messages{{0xF0, 0x42, 0xF7}}));
}

TEST(MidiMessageJoiner, ClockInsideAPartIsTakenOutOfTheSysEx)
{
    MidiMessageJoiner joiner;
    EXPECT_EQ(take(joiner, {0xF0, 0x01, 0xF8, 0x02, 0xF7}), (Messages{{0xF8}, {0xF0, 0x01, 0x02, 0xF7}}));
}

TEST(MidiMessageJoiner, APartWhoseStartWasNotSeenIsDropped)
{
    MidiMessageJoiner joiner;
    EXPECT_TRUE(take(joiner, {0x01, 0x02, 0xF7}).empty());
    EXPECT_EQ(take(joiner, {0xC0, 5}), (Messages{{0xC0, 5}}));
}

TEST(MidiMessageJoiner, AMessageLongerThanTheLimitIsDroppedWholeAndTheNextIsTaken)
{
    MidiMessageJoiner joiner;
    joiner.setLimit(6);
    EXPECT_TRUE(take(joiner, {0xF0, 1, 2, 3}).empty());
    EXPECT_TRUE(take(joiner, {4, 5, 0xF7}).empty());
    EXPECT_EQ(take(joiner, {0xF0, 1, 2, 3, 4, 0xF7}), (Messages{{0xF0, 1, 2, 3, 4, 0xF7}}));
}

TEST(MidiMessageJoiner, ClearForgetsAnUnfinishedMessage)
{
    MidiMessageJoiner joiner;
    take(joiner, {0xF0, 0x01});
    joiner.clear();
    EXPECT_TRUE(take(joiner, {0x02, 0xF7}).empty());
}

}  // namespace
}  // namespace quillon

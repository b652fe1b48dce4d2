#include "autosend/ChordTable.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

namespace quillon {
namespace {

using Chord = std::array<int, 3>;
using Steps = std::array<Chord, 24>;

// The 24 chords of a sequence as the table holds them.
Steps stepsOf(const ChordTable& table, int sequence)
{
    Steps steps{};
    for (int k = 1; k <= 24; ++k)
        steps[static_cast<std::size_t>(k - 1)] = table.chord(sequence, k);
    return steps;
}

// Worked out by hand, step by step, from the rules of each sequence.

TEST(ChordTable, FixedIsCMajorAtEveryStep)
{
    const ChordTable table = buildChordTable(1);
    Steps expected;
    expected.fill({60, 64, 67});
    EXPECT_EQ(stepsOf(table, 0), expected);
}

TEST(ChordTable, ChromaticRisesASemitoneAStepFromAFlat)
{
    const Steps expected{{{56, 60, 63}, {57, 61, 64}, {58, 62, 65}, {59, 63, 66}, {60, 64, 67}, {61, 65, 68},
                          {62, 66, 69}, {63, 67, 70}, {64, 68, 71}, {65, 69, 72}, {66, 70, 73}, {67, 71, 74},
                          {68, 72, 75}, {69, 73, 76}, {70, 74, 77}, {71, 75, 78}, {72, 76, 79}, {73, 77, 80},
                          {74, 78, 81}, {75, 79, 82}, {76, 80, 83}, {77, 81, 84}, {78, 82, 85}, {79, 83, 86}}};
    EXPECT_EQ(stepsOf(buildChordTable(1), 1), expected);
}

TEST(ChordTable, MajorFourthsWalkTheCircleOfFourthsTwice)
{
    // acc 5, 10, 15, ...: remainders 5 10 3 8 1 6 11 4 9 2 7 0, twice; notes
    // r + 55, r + 59, r + 62.
    const Steps expected{{{60, 64, 67}, {65, 69, 72}, {58, 62, 65}, {63, 67, 70}, {56, 60, 63}, {61, 65, 68},
                          {66, 70, 73}, {59, 63, 66}, {64, 68, 71}, {57, 61, 64}, {62, 66, 69}, {55, 59, 62},
                          {60, 64, 67}, {65, 69, 72}, {58, 62, 65}, {63, 67, 70}, {56, 60, 63}, {61, 65, 68},
                          {66, 70, 73}, {59, 63, 66}, {64, 68, 71}, {57, 61, 64}, {62, 66, 69}, {55, 59, 62}}};
    EXPECT_EQ(stepsOf(buildChordTable(1), 2), expected);
}

TEST(ChordTable, MajorFifthsWalkTheCircleOfFifthsTwice)
{
    // acc 7, 14, 21, ...: remainders 7 2 9 4 11 6 1 8 3 10 5 0, twice; notes
    // r + 53, r + 57, r + 60.
    const Steps expected{{{60, 64, 67}, {55, 59, 62}, {62, 66, 69}, {57, 61, 64}, {64, 68, 71}, {59, 63, 66},
                          {54, 58, 61}, {61, 65, 68}, {56, 60, 63}, {63, 67, 70}, {58, 62, 65}, {53, 57, 60},
                          {60, 64, 67}, {55, 59, 62}, {62, 66, 69}, {57, 61, 64}, {64, 68, 71}, {59, 63, 66},
                          {54, 58, 61}, {61, 65, 68}, {56, 60, 63}, {63, 67, 70}, {58, 62, 65}, {53, 57, 60}}};
    EXPECT_EQ(stepsOf(buildChordTable(1), 3), expected);
}

TEST(ChordTable, MajorMinorFourthsTurnMinorOnEvenSteps)
{
    // acc 5, 10, ...: d = remainder - 5 = 0 5 -2 3 -4 1 6 -1 4 -3 2 -5,
    // twice; odd steps major on 60 + d, even steps minor.
    const Steps expected{{{60, 64, 67}, {65, 68, 72}, {58, 62, 65}, {63, 66, 70}, {56, 60, 63}, {61, 64, 68},
                          {66, 70, 73}, {59, 62, 66}, {64, 68, 71}, {57, 60, 64}, {62, 66, 69}, {55, 58, 62},
                          {60, 64, 67}, {65, 68, 72}, {58, 62, 65}, {63, 66, 70}, {56, 60, 63}, {61, 64, 68},
                          {66, 70, 73}, {59, 62, 66}, {64, 68, 71}, {57, 60, 64}, {62, 66, 69}, {55, 58, 62}}};
    EXPECT_EQ(stepsOf(buildChordTable(1), 4), expected);
}

TEST(ChordTable, MajorMinorRelativeAddsEightThenNine)
{
    // acc 8 17 25 34 42 51 59 68 76 85 93 102 110 119 127 136 144 153 161
    // 170 178 187 195 204: remainders 8 5 1 10 6 3 11 8 4 1 9 6 2 11 7 4 0 9
    // 5 2 10 7 3 0; odd steps r + 52, r + 56, r + 59, even r + 52, r + 55,
    // r + 59.
    const Steps expected{{{60, 64, 67}, {57, 60, 64}, {53, 57, 60}, {62, 65, 69}, {58, 62, 65}, {55, 58, 62},
                          {63, 67, 70}, {60, 63, 67}, {56, 60, 63}, {53, 56, 60}, {61, 65, 68}, {58, 61, 65},
                          {54, 58, 61}, {63, 66, 70}, {59, 63, 66}, {56, 59, 63}, {52, 56, 59}, {61, 64, 68},
                          {57, 61, 64}, {54, 57, 61}, {62, 66, 69}, {59, 62, 66}, {55, 59, 62}, {52, 55, 59}}};
    EXPECT_EQ(stepsOf(buildChordTable(1), 5), expected);
}

TEST(ChordTable, MajorMinorRandomStaysWithinItsBoundsForAFixedSeed)
{
    for (std::uint32_t seed : {0u, 1u, 42u, 20261124u}) {
        const ChordTable table = buildChordTable(seed);
        EXPECT_EQ(table.chord(6, 1), (Chord{60, 64, 67})) << "seed " << seed;
        std::set<int> roots;
        for (int k = 2; k <= 24; ++k) {
            const Chord chord = table.chord(6, k);
            const int d = chord[0] - 60;
            EXPECT_GE(d, -5) << "seed " << seed << " step " << k;
            EXPECT_LE(d, 6) << "seed " << seed << " step " << k;
            EXPECT_EQ(chord[1], chord[0] + (k % 2 == 1 ? 4 : 3)) << "seed " << seed << " step " << k;
            EXPECT_EQ(chord[2], chord[0] + 7) << "seed " << seed << " step " << k;
            roots.insert(d);
        }
        // 23 draws from twelve roots are not all the same.
        EXPECT_GT(roots.size(), 1u) << "seed " << seed;
    }
}

TEST(ChordTable, TheSameSeedGivesTheSameRandomSequence)
{
    const ChordTable first = buildChordTable(7);
    const ChordTable second = buildChordTable(7);
    const ChordTable other = buildChordTable(8);
    EXPECT_EQ(stepsOf(first, 6), stepsOf(second, 6));
    EXPECT_NE(stepsOf(first, 6), stepsOf(other, 6));
}

TEST(ChordTable, TheStepOfAPatchGoesRoundTwentyFour)
{
    EXPECT_EQ(chordStep(1), 1);
    EXPECT_EQ(chordStep(24), 24);
    EXPECT_EQ(chordStep(25), 1);
    EXPECT_EQ(chordStep(49), 1);
    EXPECT_EQ(chordStep(128), 8);
}

TEST(ChordTable, StepsOutsideTheTableReadNoNote)
{
    const ChordTable table = buildChordTable(1);
    EXPECT_EQ(table.chord(0, 0), (Chord{0, 0, 0}));
    EXPECT_EQ(table.chord(7, 1), (Chord{0, 0, 0}));
    EXPECT_EQ(table.chord(0, 25), (Chord{0, 0, 0}));
}

}  // namespace
}  // namespace quillon

#include "autosend/ChordTable.h"

#include <chrono>
#include <cmath>
#include <random>

namespace quillon {

namespace {

// A major triad on `root`, or a minor one when `minor` is set.
std::array<int, kChordVoices> triad(int root, bool minor)
{
    return {root, root + (minor ? 3 : 4), root + 7};
}

// A number in [0, 1) from the generator, as the random function of the
// program gives it.
double randomFraction(std::mt19937& random)
{
    return static_cast<double>(random()) / 4294967296.0;
}

}  // namespace

std::array<int, kChordVoices> ChordTable::chord(int sequence, int step) const
{
    return {note(0, sequence, step), note(1, sequence, step), note(2, sequence, step)};
}

int ChordTable::note(int voice, int sequence, int step) const
{
    if (voice < 0 || voice >= kChordVoices || sequence < 0 || sequence >= kChordSequences || step < 1 ||
        step > kChordSteps)
        return 0;
    return notes_[static_cast<std::size_t>(voice)][static_cast<std::size_t>(sequence)][static_cast<std::size_t>(step)];
}

ChordTable buildChordTable(std::uint32_t seed)
{
    std::mt19937 random(seed);
    ChordTable table;
    // Each sequence keeps its own running sum of intervals; it is never
    // wrapped, only read modulo an octave.
    std::array<int, kChordSequences> acc{};
    for (int k = 1; k <= kChordSteps; ++k) {
        const bool odd = k % 2 == 1;
        std::array<std::array<int, kChordVoices>, kChordSequences> chords;
        // Fixed: C major.
        chords[0] = {60, 64, 67};
        // Chromatic: up a semitone a step.
        chords[1] = {k + 55, k + 59, k + 62};
        // Major 4ths: round the circle of fourths.
        acc[2] += 5;
        int r = acc[2] % 12;
        chords[2] = {r + 55, r + 59, r + 62};
        // Major 5ths: round the circle of fifths.
        acc[3] += 7;
        r = acc[3] % 12;
        chords[3] = {r + 53, r + 57, r + 60};
        // Major-minor 4ths: fourths, major and minor by turns.
        acc[4] += 5;
        int d = acc[4] % 12 - 5;
        chords[4] = triad(d + 60, !odd);
        // Major-minor relative: a major chord, then the minor a third below
        // the next.
        acc[5] += odd ? 8 : 9;
        r = acc[5] % 12;
        chords[5] = odd ? std::array<int, kChordVoices>{r + 52, r + 56, r + 59}
                        : std::array<int, kChordVoices>{r + 52, r + 55, r + 59};
        // Major-minor random: C, then any root from a fourth below to a
        // tritone above.
        d = k == 1 ? 0 : static_cast<int>(std::floor(randomFraction(random) * 12 + 1)) - 6;
        chords[6] = triad(d + 60, !odd);
        for (std::size_t s = 0; s < kChordSequences; ++s)
            for (std::size_t v = 0; v < kChordVoices; ++v)
                table.notes_[v][s][static_cast<std::size_t>(k)] = static_cast<std::int16_t>(chords[s][v]);
    }
    return table;
}

std::uint32_t clockSeed()
{
    return static_cast<std::uint32_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

int chordStep(int sendIndex) { return ((sendIndex - 1) % kChordSteps + kChordSteps) % kChordSteps + 1; }

}  // namespace quillon

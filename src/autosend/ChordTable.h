#pragma once

#include <array>
#include <cstdint>

namespace quillon {

inline constexpr int kChordSequences = 7;
inline constexpr int kChordSteps = 24;
inline constexpr int kChordVoices = 3;

// The chords the sound show plays on the instrument's arpeggiator: for each
// of the seven sequences of cmbChordSeq, 24 steps of three MIDI note
// numbers. The table is built once when the form opens, so a show of more
// than 24 patches starts the sequence again at step 1.
class ChordTable {
public:
    // Sequence 0 to 6, step 1 to 24: the three notes of that chord.
    std::array<int, kChordVoices> chord(int sequence, int step) const;
    int note(int voice, int sequence, int step) const;

private:
    friend ChordTable buildChordTable(std::uint32_t seed);
    // [voice 0..2][sequence 0..6][step 1..24]; step 0 unused.
    std::array<std::array<std::array<std::int16_t, kChordSteps + 1>, kChordSequences>, kChordVoices> notes_{};
};

// Builds the table; the seed feeds the random source of sequence 6
// ("Major-minor random"), which the form seeds from the clock.
ChordTable buildChordTable(std::uint32_t seed);

// A seed taken from the clock.
std::uint32_t clockSeed();

// The step of the chord that goes with the patch at element `sendIndex`
// (from 1) of the show: 1 to 24, round and round.
int chordStep(int sendIndex);

}  // namespace quillon

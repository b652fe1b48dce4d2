#pragma once

#include <array>
#include <string_view>

namespace quillon {

class AppModel;

// The step tools of the arpeggiator screen, on the pattern's Current, by
// the tool choices of model.buffers.arpEditor. None reports anything: what
// cannot be done (COPY onto the same step, INS at step 36, DEL in a
// one-step pattern, a block that fits less than twice) is quietly left
// undone. The copy mode "Single tone" works through the grid's boxes, as a
// click on them does.

// CLR on StepCurrent. The tones go in every mode but "Params only", and the
// four step parameters take their defaults in every mode but "Tones only":
// both Single modes clear as "All" does.
void arpClearStep(AppModel& model);

// COPY from StepCurrent to StepTarget, of what the copy mode takes; a target
// beyond the pattern length lengthens the pattern to it.
void arpCopyStep(AppModel& model);

// INS at StepCurrent: the steps from there on move one on, the last falling
// off at 36, and the step itself is empty with default parameters. The
// length grows by one without limit, so a full pattern stands at 37 until
// the length row brings it back to 36.
void arpInsertStep(AppModel& model);

// DEL at StepCurrent: the steps behind it move one back, the last step of
// the pattern is emptied, the length shrinks by one, and a step shown at or
// beyond the length moves back by one.
void arpDeleteStep(AppModel& model);

// Repeats steps 1 to `length` behind themselves, `repeats` times in all
// (0: as often as the pattern length holds it), turned by the block option,
// copying what the copy mode takes. Steps beyond 36 all land on step 36.
void arpBlockCopy(AppModel& model, int length, int repeats);

// lblArpStepBlockCopy(0..15): caption and the arguments of arpBlockCopy.
struct BlockCopyButton {
    std::string_view caption;
    int length = 0;
    int repeats = 0;  // 0: as often as it fits into the pattern length ("PL")
};
inline constexpr int kBlockCopyButtons = 16;
inline constexpr std::array<BlockCopyButton, kBlockCopyButtons> kBlockCopyTable = {{
    {"2---8", 2, 4},   {"3---9", 3, 3},   {"3---12", 3, 4},  {"4---16", 4, 4},  {"8---16", 8, 2},  {"9---36", 9, 4},
    {"12---36", 12, 3}, {"16---32", 16, 2}, {"1---PL", 1, 0},  {"2---PL", 2, 0},  {"3---PL", 3, 0},  {"4---PL", 4, 0},
    {"5---PL", 5, 0},  {"6---PL", 6, 0},  {"7---PL", 7, 0},  {"8---PL", 8, 0},
}};

}  // namespace quillon

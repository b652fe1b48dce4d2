#pragma once

#include "editors/ArpScreen.h"
#include "editors/ArpSteps.h"
#include "editors/ItemStatus.h"
#include "model/Kind.h"
#include "support/TestModel.h"

#include <cstdint>
#include <initializer_list>

namespace quillon {

// The arpeggiator screen set up on the default pattern, with helpers to
// write a pattern into Current as a load would leave it.
struct PatternScreen : TestModel {
    PatternScreen() { setUpScreen(model, kPattern); }

    ParamValues& current() { return model.buffers.of(kPattern).current; }
    const ParamValues& defaults() { return model.buffers.of(kPattern).defaults; }
    ArpEditorState& state() { return model.buffers.arpEditor; }
    ArpScreenView& view() { return model.arpScreen; }

    int mask(int step) { return arpStepMask(current(), step); }
    int length() { return patternLength(current()); }
    int word(int step, int column) { return current()[static_cast<std::size_t>(stepParam(step, column))]; }
    void setWord(int step, int column, int value)
    {
        current()[static_cast<std::size_t>(stepParam(step, column))] = static_cast<std::int16_t>(value);
    }

    // Step s gets tones `mask` and the step parameters Pitch Offset s,
    // Flam -s, Velocity 90 + s, Gate s, so that every step is told apart.
    void markStep(int step, int mask)
    {
        arpSetStepMask(current(), step, mask);
        setWord(step, 3, step);
        setWord(step, 4, -step);
        setWord(step, 5, 90 + step);
        setWord(step, 6, step);
    }

    // A pattern of `length` steps, each marked with a mask of its own, shown
    // as after a load.
    void loadMarkedPattern(int length)
    {
        for (int step = 1; step <= kArpSteps; ++step)
            markStep(step, step * 7 % 1024 + 1);
        current()[kPatternLengthParam] = static_cast<std::int16_t>(length);
        model.buffers.updateLoaded(kPattern);
        model.buffers.updateLast(kPattern);
        setUpScreen(model, kPattern);
    }

    // Step `step` holds what step `source` held in a pattern made by
    // loadMarkedPattern.
    bool holdsMarkedStep(int step, int source)
    {
        return mask(step) == source * 7 % 1024 + 1 && word(step, 3) == source && word(step, 4) == -source &&
               word(step, 5) == 90 + source && word(step, 6) == source;
    }

    bool holdsDefaultParams(int step)
    {
        for (int column = 3; column <= 6; ++column) {
            if (word(step, column) != defaults()[static_cast<std::size_t>(stepParam(step, column))])
                return false;
        }
        return true;
    }
};

}  // namespace quillon

#include "editors/ArpCommands.h"
#include "editors/ArpStepTools.h"
#include "editors/PatternScreenFixture.h"
#include "model/ParamImage.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace quillon {
namespace {

int pick(std::mt19937& rng, int low, int high) { return std::uniform_int_distribution<int>(low, high)(rng); }

// A pattern from a random image as a load reads it, with a random length
// and random tones in every step.
void loadRandomPattern(PatternScreen& t, std::mt19937& rng)
{
    ByteImage image(kPatternBytes);
    for (auto& byte : image)
        byte = static_cast<std::uint8_t>(pick(rng, 0, 255));
    ParamValues& current = t.current();
    current = t.defaults();
    LoadReport report;
    imageToArpParams(image, current, report);
    for (int step = 1; step <= kArpSteps; ++step)
        arpSetStepMask(current, step, pick(rng, 0, 3) == 0 ? 0 : pick(rng, 0, 1023));
    current[kPatternLengthParam] = static_cast<std::int16_t>(pick(rng, 1, kArpSteps));
    t.model.buffers.updateLoaded(kPattern);
    t.model.buffers.updateLast(kPattern);
    setUpScreen(t.model, kPattern);
}

// The pattern written into an image and read back is the same pattern,
// with nothing to correct.
void expectImageRoundTrip(const ParamValues& pattern, const std::string& where)
{
    ByteImage image(kPatternBytes, 0);
    arpParamsToImage(pattern, image);
    ParamValues readBack = pattern;
    for (std::size_t p = 1; p < readBack.size(); ++p)
        readBack[p] = 0;
    LoadReport report;
    imageToArpParams(image, readBack, report);
    EXPECT_EQ(report.changeCount(), 0) << where;
    EXPECT_EQ(readBack, pattern) << where;
}

enum Tool { kClear, kCopy, kInsert, kDelete, kBlock, kTools };

std::string toolName(int tool, int mode, int option, int button)
{
    static const char* const names[] = {"CLR", "COPY", "INS", "DEL", "block copy"};
    std::string name = names[tool];
    if (tool == kBlock)
        name += std::string(" ") + std::string(kBlockCopyTable[static_cast<std::size_t>(button)].caption) + " " +
                std::string(kBlockOptions[static_cast<std::size_t>(option)]);
    return name + " in " + std::string(kStepCopyModes[static_cast<std::size_t>(mode)]);
}

void runTool(AppModel& model, int tool, int button)
{
    switch (tool) {
    case kClear: clickArpClear(model); break;
    case kCopy: clickArpCopy(model); break;
    case kInsert: clickArpInsert(model); break;
    case kDelete: clickArpDelete(model); break;
    default: clickArpBlockCopy(model, button); break;
    }
}

TEST(ArpToolsProperty, EveryToolKeepsThePatternImageWholeAndUndoBringsBackThePatternBeforeIt)
{
    std::mt19937 rng(5551999);
    int toolsRun = 0;
    for (int pattern = 0; pattern < 40; ++pattern) {
        PatternScreen t;
        loadRandomPattern(t, rng);
        for (int round = 0; round < 40; ++round) {
            const int tool = pick(rng, 0, kTools - 1);
            const int mode = pick(rng, 0, static_cast<int>(kStepCopyModes.size()) - 1);
            const int option = pick(rng, 0, static_cast<int>(kBlockOptions.size()) - 1);
            const int button = pick(rng, 0, kBlockCopyButtons - 1);
            selectStepCopyMode(t.model, mode);
            selectBlockOption(t.model, option);
            if (mode == kCopySingleTone)
                clickToneNum(t.model, pick(rng, 0, kArpTones - 1));
            if (mode == kCopySingleParam)
                clickArpParamName(t.model, pick(rng, 10, 13));
            changeStepNum(t.model, std::to_string(pick(rng, 1, kArpSteps)));
            changeStepCount(t.model, std::to_string(pick(rng, 1, kArpSteps)));
            const std::string where = "pattern " + std::to_string(pattern) + ", round " + std::to_string(round) +
                                      ": " + toolName(tool, mode, option, button);

            const ParamValues before = t.current();
            const int stepBefore = t.state().StepCurrent;
            runTool(t.model, tool, button);
            ++toolsRun;
            EXPECT_EQ(t.model.buffers.of(kPattern).last, before) << where;
            expectImageRoundTrip(t.current(), where);
            EXPECT_GE(t.length(), 1) << where;
            EXPECT_LE(t.length(), kArpSteps) << where;

            clickArpUndo(t.model);
            EXPECT_EQ(t.current(), before) << where;
            EXPECT_EQ(t.state().StepCurrent, stepBefore) << where;
            expectImageRoundTrip(t.current(), where + ", undone");

            // Again, and the sequence goes on from there.
            runTool(t.model, tool, button);
            expectImageRoundTrip(t.current(), where + ", again");
            if (testing::Test::HasFailure())
                return;
        }
    }
    EXPECT_EQ(toolsRun, 40 * 40);
}

}  // namespace
}  // namespace quillon

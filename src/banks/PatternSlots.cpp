#include "banks/PatternSlots.h"

#include "model/Kind.h"

namespace quillon {

std::string patternSlotName(int position)
{
    if (position < kPresetPatterns || position >= kPatternsPerBank)
        return {};
    const int user = position - kPresetPatterns;
    std::string slot = "U";
    slot += static_cast<char>('1' + user / kUserPatternsPerGroup);
    slot += '-';
    slot += static_cast<char>('1' + user % kUserPatternsPerGroup);
    return slot;
}

}  // namespace quillon

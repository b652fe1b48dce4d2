#include "support/ManualTimer.h"

namespace quillon {

void ManualTimer::setInterval(int milliseconds)
{
    interval_ = milliseconds;
    intervals.push_back(milliseconds);
}

bool ManualTimer::tick()
{
    if (!enabled_ || !tick_)
        return false;
    tick_();
    return true;
}

}  // namespace quillon

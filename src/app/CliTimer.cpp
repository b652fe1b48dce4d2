#include "app/CliTimer.h"

namespace quillon {

void CliTimer::setInterval(int milliseconds)
{
    interval_ = milliseconds;
    if (due_)
        due_ = Clock::now() + std::chrono::milliseconds(interval_);
}

void CliTimer::setEnabled(bool enabled)
{
    if (!enabled)
        due_.reset();
    else if (!due_)
        due_ = Clock::now() + std::chrono::milliseconds(interval_);
}

bool CliTimer::tickIfDue(Clock::time_point now)
{
    if (!due_ || now < *due_)
        return false;
    // The next tick counts from this one; the tick may stop the timer or
    // set it anew.
    due_ = *due_ + std::chrono::milliseconds(interval_);
    if (auto tick = tick_)
        tick();
    return true;
}

}  // namespace quillon

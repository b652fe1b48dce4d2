#pragma once

#include <functional>

namespace quillon {

// A timer of the main form (the test tone's TimerMain, the sound show's):
// while enabled it calls its tick every interval, on the thread of the user
// interface. Tests advance it by hand.
class Timer {
public:
    virtual ~Timer() = default;
    virtual void setTick(std::function<void()> tick) = 0;
    virtual void setInterval(int milliseconds) = 0;
    virtual int interval() const = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual bool enabled() const = 0;
};

}  // namespace quillon

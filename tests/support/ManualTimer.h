#pragma once

#include "shell/Timer.h"

#include <functional>
#include <vector>

namespace quillon {

// A Timer that the test ticks by hand: tick() calls the tick function when
// the timer is enabled, as the real one would when its interval has passed.
class ManualTimer : public Timer {
public:
    void setTick(std::function<void()> tick) override { tick_ = std::move(tick); }
    void setInterval(int milliseconds) override;
    int interval() const override { return interval_; }
    void setEnabled(bool enabled) override { enabled_ = enabled; }
    bool enabled() const override { return enabled_; }

    // One tick; false (and nothing happens) when the timer is not enabled.
    bool tick();

    // Every interval set, in order.
    std::vector<int> intervals;

private:
    std::function<void()> tick_;
    int interval_ = 0;
    bool enabled_ = false;
};

}  // namespace quillon

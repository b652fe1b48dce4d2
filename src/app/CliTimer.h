#pragma once

#include "shell/Timer.h"

#include <chrono>
#include <functional>
#include <optional>

namespace quillon {

// A Timer for a command-line run: it keeps its next tick as a point on the
// steady clock, and the command's loop ticks it when that point has come.
class CliTimer : public Timer {
public:
    using Clock = std::chrono::steady_clock;

    void setTick(std::function<void()> tick) override { tick_ = std::move(tick); }
    // A new interval starts the count again, as the window's timers do.
    void setInterval(int milliseconds) override;
    int interval() const override { return interval_; }
    // Enabling a running timer does not start its count again.
    void setEnabled(bool enabled) override;
    bool enabled() const override { return due_.has_value(); }

    // When the next tick is due; nothing while the timer is off.
    std::optional<Clock::time_point> due() const { return due_; }
    // Ticks if the time has come; whether it did.
    bool tickIfDue(Clock::time_point now);

private:
    std::function<void()> tick_;
    int interval_ = 0;
    std::optional<Clock::time_point> due_;
};

}  // namespace quillon

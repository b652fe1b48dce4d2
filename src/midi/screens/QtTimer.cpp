#include "midi/screens/QtTimer.h"

namespace quillon {

QtTimer::QtTimer(const char* name)
{
    timer_.setObjectName(name);
    QObject::connect(&timer_, &QTimer::timeout, [this] {
        // The tick may change the interval or stop the timer; a copy keeps
        // the routine alive while it runs even if a new one is set.
        if (auto tick = tick_)
            tick();
    });
}

void QtTimer::setTick(std::function<void()> tick) { tick_ = std::move(tick); }

void QtTimer::setInterval(int milliseconds) { timer_.setInterval(milliseconds); }

int QtTimer::interval() const { return timer_.interval(); }

void QtTimer::setEnabled(bool enabled)
{
    // Enabling a timer that runs already does not start its count again;
    // QTimer::start would.
    if (enabled && !timer_.isActive())
        timer_.start();
    else if (!enabled)
        timer_.stop();
}

bool QtTimer::enabled() const { return timer_.isActive(); }

}  // namespace quillon

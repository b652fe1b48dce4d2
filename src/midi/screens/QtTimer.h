#pragma once

#include "shell/Timer.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace quillon {

// A timer of a form over the toolkit's timer: TimerMain of the test tone,
// AutoTimer and miniTimer of the sound show. It ticks on the thread of the
// user interface while enabled; its name is the toolkit timer's objectName.
class QtTimer : public Timer {
public:
    explicit QtTimer(const char* name = "TimerMain");

    void setTick(std::function<void()> tick) override;
    void setInterval(int milliseconds) override;
    int interval() const override;
    void setEnabled(bool enabled) override;
    bool enabled() const override;

    // The toolkit's timer, for those who watch its ticks.
    QTimer& timer() { return timer_; }

private:
    QTimer timer_;
    std::function<void()> tick_;
};

}  // namespace quillon

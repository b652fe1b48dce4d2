#include "midi/backends/EventPump.h"

namespace quillon {

void QueuedEventPump::post(std::function<void()> event)
{
    {
        std::lock_guard lock(mutex_);
        events_.push_back(std::move(event));
    }
    arrived_.notify_all();
}

int QueuedEventPump::runPending()
{
    int ran = 0;
    for (;;) {
        std::function<void()> event;
        {
            std::lock_guard lock(mutex_);
            if (events_.empty())
                return ran;
            event = std::move(events_.front());
            events_.pop_front();
        }
        // Run outside the lock: an event may post the next one.
        event();
        ++ran;
    }
}

bool QueuedEventPump::waitAndRun(std::chrono::milliseconds timeout)
{
    {
        std::unique_lock lock(mutex_);
        if (!arrived_.wait_for(lock, timeout, [this] { return !events_.empty(); }))
            return false;
    }
    runPending();
    return true;
}

bool QueuedEventPump::empty() const
{
    std::lock_guard lock(mutex_);
    return events_.empty();
}

}  // namespace quillon

#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace quillon {

// Hands the events of a MIDI backend (a message arrived, the queue played
// out, an error) from whatever thread saw them to the thread of the user
// interface, in the order they were posted. The core only ever sees them
// there.
class EventPump {
public:
    virtual ~EventPump() = default;
    // May be called from any thread.
    virtual void post(std::function<void()> event) = 0;
};

// A pump whose events wait until the owner runs them: the command-line
// program's loop and the tests, which decide when "later" is.
class QueuedEventPump : public EventPump {
public:
    void post(std::function<void()> event) override;

    // Runs every event posted so far, and those they post in turn; returns
    // how many ran.
    int runPending();
    // Waits up to `timeout` for an event and runs what is waiting; false
    // when none came.
    bool waitAndRun(std::chrono::milliseconds timeout);
    bool empty() const;

private:
    mutable std::mutex mutex_;
    std::condition_variable arrived_;
    std::deque<std::function<void()>> events_;
};

}  // namespace quillon

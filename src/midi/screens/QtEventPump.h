#pragma once

#include "midi/backends/EventPump.h"

#include <functional>
#include <memory>

class QObject;

namespace quillon {

// The pump of the program with its window: an event posted from any thread
// (RtMidi's callback, the output's pacing worker) runs later on the thread
// of the user interface, between the toolkit's other events, in the order
// posted. Events still waiting when the pump goes are dropped, so the MIDI
// system must be closed before its pump.
class QtEventPump : public EventPump {
public:
    // Made on the thread of the user interface, whose events it joins.
    QtEventPump();
    ~QtEventPump() override;
    QtEventPump(const QtEventPump&) = delete;
    QtEventPump& operator=(const QtEventPump&) = delete;

    void post(std::function<void()> event) override;

private:
    // The receiver of the queued calls; it lives on the thread that made it.
    std::unique_ptr<QObject> context_;
};

}  // namespace quillon

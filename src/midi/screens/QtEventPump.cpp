#include "midi/screens/QtEventPump.h"

#include <QMetaObject>
#include <QObject>

namespace quillon {

QtEventPump::QtEventPump() : context_(std::make_unique<QObject>()) {}

QtEventPump::~QtEventPump() = default;

void QtEventPump::post(std::function<void()> event)
{
    // A queued call is safe from any thread: the toolkit keeps it in the
    // receiver's event queue and runs it on the receiver's thread.
    QMetaObject::invokeMethod(
        context_.get(), [event = std::move(event)] { event(); }, Qt::QueuedConnection);
}

}  // namespace quillon

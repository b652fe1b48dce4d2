#include "midi/backends/RtMidiOutputPort.h"

#include "midi/backends/EventPump.h"

#include <RtMidi.h>

#include <algorithm>
#include <chrono>

namespace quillon {

namespace {

using Clock = std::chrono::steady_clock;

// A piece that starts this late after its due time is taken as sent on
// time: the worker's wake-up delay must not add up over the pieces of a
// bank.
constexpr auto kOnTime = std::chrono::milliseconds(5);

bool isTwoByteStatus(int status)
{
    const int kind = status & 0xF0;
    return kind == 0xC0 || kind == 0xD0;
}

}  // namespace

RtMidiOutputPort::RtMidiOutputPort(MidiApi api, const std::string& clientName, EventPump& pump)
    : pump_(pump),
      shared_(std::make_shared<Shared>()),
      layer_(RtMidiDirection::Output, api, clientName,
             [this](int code, const std::string& text) { postError(code, text); })
{
    worker_ = std::thread([this] { workerLoop(); });
}

RtMidiOutputPort::~RtMidiOutputPort()
{
    shared_->events = nullptr;
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
        queue_.clear();
    }
    wake_.notify_all();
    worker_.join();
    std::lock_guard sending(sendMutex_);
    layer_.midi().closePort();
}

void RtMidiOutputPort::setEvents(MidiOutputEvents* events) { shared_->events = events; }

int RtMidiOutputPort::state() const
{
    std::lock_guard lock(mutex_);
    if (!open_)
        return kPortClosed;
    return playing_ ? kPortBusy : kPortOpen;
}

std::vector<std::string> RtMidiOutputPort::deviceNames() const { return layer_.deviceNames(); }

void RtMidiOutputPort::setDevice(int device)
{
    layer_.requireDevices();
    device_ = device;
}

void RtMidiOutputPort::open()
{
    if (state() != kPortClosed)
        return;
    int code = 0;
    std::string text;
    bool opened = false;
    {
        std::lock_guard sending(sendMutex_);
        opened = layer_.openDevice(device_, code, text);
    }
    if (!opened) {
        postError(code, text);
        return;
    }
    std::lock_guard lock(mutex_);
    open_ = true;
}

void RtMidiOutputPort::openVirtual(const std::string& portName)
{
    {
        std::lock_guard sending(sendMutex_);
        layer_.openVirtual(portName);
    }
    std::lock_guard lock(mutex_);
    open_ = true;
}

void RtMidiOutputPort::close()
{
    stopOutput();
    {
        std::lock_guard lock(mutex_);
        if (!open_)
            return;
        open_ = false;
    }
    std::lock_guard sending(sendMutex_);
    layer_.midi().closePort();
}

void RtMidiOutputPort::start()
{
    {
        std::lock_guard lock(mutex_);
        if (open_) {
            playing_ = true;
            wake_.notify_all();
            return;
        }
    }
    postError(rtMidiErrorCode(RtMidiError::INVALID_USE), "The MIDI output is not open");
}

void RtMidiOutputPort::reset() { stopOutput(); }

void RtMidiOutputPort::stopOutput()
{
    std::lock_guard lock(mutex_);
    queue_.clear();
    playing_ = false;
    ++shared_->generation;
    wake_.notify_all();
}

void RtMidiOutputPort::queue()
{
    std::lock_guard lock(mutex_);
    // A text longer than a piece is cut here, so that no layer is handed
    // more than it can carry in one call.
    for (std::size_t at = 0; at < text_.size(); at += kMaxSysExPiece) {
        const auto end = std::min(text_.size(), at + kMaxSysExPiece);
        queue_.emplace_back(text_.begin() + static_cast<std::ptrdiff_t>(at),
                            text_.begin() + static_cast<std::ptrdiff_t>(end));
    }
    wake_.notify_all();
}

void RtMidiOutputPort::sendShort()
{
    std::vector<std::uint8_t> bytes{static_cast<std::uint8_t>(messageType_ & 0xFF),
                                    static_cast<std::uint8_t>(data1_ & 0x7F)};
    if (!isTwoByteStatus(messageType_))
        bytes.push_back(static_cast<std::uint8_t>(data2_ & 0x7F));
    {
        std::unique_lock lock(mutex_);
        if (!open_) {
            lock.unlock();
            postError(rtMidiErrorCode(RtMidiError::INVALID_USE), "The MIDI output is not open");
            return;
        }
        // While a queue plays, the note waits its turn behind it.
        if (playing_) {
            queue_.push_back(std::move(bytes));
            wake_.notify_all();
            return;
        }
    }
    send(bytes);
}

void RtMidiOutputPort::setSysExRate(int bytesPerSecond) { rate_ = std::max(1, bytesPerSecond); }

void RtMidiOutputPort::send(const std::vector<std::uint8_t>& bytes)
{
    std::lock_guard sending(sendMutex_);
    layer_.out().sendMessage(bytes.data(), bytes.size());
}

void RtMidiOutputPort::workerLoop()
{
    std::unique_lock lock(mutex_);
    // When the next piece may start: the previous one's start plus its
    // bytes at the rate.
    auto due = Clock::now();
    for (;;) {
        wake_.wait(lock, [this] { return stopping_ || playing_; });
        if (stopping_)
            return;
        const std::uint64_t generation = shared_->generation;
        const auto moved = [&] { return stopping_ || shared_->generation != generation; };
        if (queue_.empty()) {
            // The last piece is still on its way over the cable: done is
            // told when its time is over.
            wake_.wait_until(lock, due, [&] { return moved() || !queue_.empty(); });
            if (stopping_)
                return;
            if (moved() || !queue_.empty())
                continue;
            playing_ = false;
            postDone(generation);
            continue;
        }
        wake_.wait_until(lock, due, moved);
        if (stopping_)
            return;
        if (moved())
            continue;
        const std::vector<std::uint8_t> piece = std::move(queue_.front());
        queue_.pop_front();
        lock.unlock();
        const auto now = Clock::now();
        const auto begun = now - due < kOnTime ? due : now;
        {
            // A reset between taking the piece and sending it drops it.
            std::lock_guard sending(sendMutex_);
            if (shared_->generation == generation) {
                layer_.out().sendMessage(piece.data(), piece.size());
                postProgress(generation, piece.size());
            }
        }
        due = begun + std::chrono::duration_cast<Clock::duration>(
                          std::chrono::duration<double>(static_cast<double>(piece.size()) / rate_.load()));
        lock.lock();
    }
}

void RtMidiOutputPort::postError(int code, const std::string& text)
{
    pump_.post([shared = std::weak_ptr<Shared>(shared_), code, text] {
        if (auto alive = shared.lock())
            if (MidiOutputEvents* events = alive->events)
                events->outputError(code, text);
    });
}

void RtMidiOutputPort::postDone(std::uint64_t generation)
{
    pump_.post([shared = std::weak_ptr<Shared>(shared_), generation] {
        // A reset or a close since the queue ran out means the owner no
        // longer waits for this end.
        if (auto alive = shared.lock())
            if (MidiOutputEvents* events = alive->events; events != nullptr && alive->generation == generation)
                events->outputDone();
    });
}

void RtMidiOutputPort::postProgress(std::uint64_t generation, std::size_t bytes)
{
    pump_.post([shared = std::weak_ptr<Shared>(shared_), generation, bytes] {
        if (auto alive = shared.lock())
            if (MidiOutputEvents* events = alive->events; events != nullptr && alive->generation == generation)
                events->outputProgress(bytes);
    });
}

}  // namespace quillon

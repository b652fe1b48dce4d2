#include "midi/backends/RtMidiInputPort.h"

#include "midi/backends/EventPump.h"
#include "sysex/SysExBytes.h"

#include <RtMidi.h>

#include <algorithm>

namespace quillon {

namespace {

constexpr std::uint8_t kFirstRealTime = 0xF8;

// The smallest buffer RtMidi is given: its own default.
constexpr int kLayerBufferFloor = 1024;
constexpr int kLayerBufferCount = 4;

// How many bytes of a SysEx message coming in make a progress report.
constexpr std::size_t kProgressStep = 1000;

}  // namespace

std::vector<std::vector<std::uint8_t>> MidiMessageJoiner::take(const std::uint8_t* bytes, std::size_t size)
{
    std::vector<std::vector<std::uint8_t>> whole;
    const std::uint8_t* at = bytes;
    const std::uint8_t* const end = bytes + size;
    const auto isData = [](std::uint8_t b) { return b < 0x80; };
    while (at != end) {
        const std::uint8_t b = *at;
        // Clock and active sensing may fall anywhere, even inside a SysEx
        // message; they are whole messages of their own.
        if (b >= kFirstRealTime) {
            whole.push_back({b});
            ++at;
            continue;
        }
        if (inSysEx_) {
            if (isData(b)) {
                const std::uint8_t* run = std::find_if_not(at, end, isData);
                append(at, static_cast<std::size_t>(run - at));
                at = run;
                continue;
            }
            if (b == kSysExEnd) {
                append(at, 1);
                ++at;
                if (!tooLong_)
                    whole.push_back(std::move(sysEx_));
                clear();
                continue;
            }
            // Any other status ends the message before its F7: a sender cut
            // short. What came of it is lost; the status counts afresh.
            clear();
            continue;
        }
        if (b == kSysExStart) {
            clear();
            inSysEx_ = true;
            append(at, 1);
            ++at;
            continue;
        }
        if (isData(b) || b == kSysExEnd) {
            // A part of a message whose start was not seen.
            ++at;
            continue;
        }
        // A short message: its status and the data bytes behind it.
        const std::uint8_t* run = std::find_if_not(at + 1, end, isData);
        if (static_cast<std::size_t>(run - at) <= limit_)
            whole.emplace_back(at, run);
        at = run;
    }
    return whole;
}

void MidiMessageJoiner::append(const std::uint8_t* bytes, std::size_t size)
{
    if (tooLong_ || sysEx_.size() + size > limit_) {
        tooLong_ = true;
        sysEx_.clear();
        return;
    }
    sysEx_.insert(sysEx_.end(), bytes, bytes + size);
}

void MidiMessageJoiner::clear()
{
    sysEx_.clear();
    inSysEx_ = false;
    tooLong_ = false;
}

RtMidiInputPort::RtMidiInputPort(MidiApi api, const std::string& clientName, EventPump& pump)
    : pump_(pump),
      shared_(std::make_shared<Shared>()),
      layer_(RtMidiDirection::Input, api, clientName,
             [this](int code, const std::string& text) { postError(code, text); })
{
    joiner_.setLimit(static_cast<std::size_t>(bufferSize_));
    // SysEx in; clock, time code and active sensing stay out at the layer.
    layer_.in().ignoreTypes(false, true, true);
    layer_.in().setCallback(
        [](double, std::vector<unsigned char>* message, void* self) {
            static_cast<RtMidiInputPort*>(self)->takeBytes(message->data(), message->size());
        },
        this);
}

RtMidiInputPort::~RtMidiInputPort()
{
    {
        std::lock_guard lock(mutex_);
        started_ = false;
    }
    // Closing the layer ends RtMidi's thread, which may be inside takeBytes
    // right now: it must be over before the mutex and joiner go. Events
    // still waiting in the pump then find shared_ gone with the port.
    layer_.shutDown();
}

void RtMidiInputPort::setEvents(MidiInputEvents* events) { shared_->events = events; }

int RtMidiInputPort::state() const
{
    if (!open_)
        return kPortClosed;
    std::lock_guard lock(mutex_);
    return started_ ? kPortBusy : kPortOpen;
}

std::vector<std::uint8_t> RtMidiInputPort::messageText() const
{
    if (waiting_.empty())
        return {};
    return waiting_.front();
}

void RtMidiInputPort::setBufferSize(int bytes)
{
    std::lock_guard lock(mutex_);
    bufferSize_ = std::max(0, bytes);
    joiner_.setLimit(static_cast<std::size_t>(bufferSize_));
}

std::vector<std::string> RtMidiInputPort::deviceNames() const { return layer_.deviceNames(); }

void RtMidiInputPort::setDevice(int device)
{
    layer_.requireDevices();
    device_ = device;
}

void RtMidiInputPort::setFilter(int status, bool filtered)
{
    if (status < 0 || status > 255)
        return;
    std::lock_guard lock(mutex_);
    filtered_[static_cast<std::size_t>(status)] = filtered;
}

bool RtMidiInputPort::filter(int status) const
{
    if (status < 0 || status > 255)
        return false;
    std::lock_guard lock(mutex_);
    return filtered_[static_cast<std::size_t>(status)];
}

void RtMidiInputPort::prepareOpening()
{
    // RtMidi takes its buffer size only before a port opens; the layers
    // that need one (WinMM) then take a whole dump in one buffer.
    int bytes = 0;
    {
        std::lock_guard lock(mutex_);
        bytes = bufferSize_;
    }
    layer_.in().setBufferSize(static_cast<unsigned>(std::max(bytes, kLayerBufferFloor)), kLayerBufferCount);
}

void RtMidiInputPort::open()
{
    if (open_)
        return;
    prepareOpening();
    int code = 0;
    std::string text;
    if (!layer_.openDevice(device_, code, text)) {
        postError(code, text);
        return;
    }
    open_ = true;
}

void RtMidiInputPort::openVirtual(const std::string& portName)
{
    prepareOpening();
    layer_.openVirtual(portName);
    open_ = true;
}

void RtMidiInputPort::close()
{
    stopInput();
    if (!open_)
        return;
    open_ = false;
    layer_.midi().closePort();
}

void RtMidiInputPort::start()
{
    if (!open_) {
        postError(rtMidiErrorCode(RtMidiError::INVALID_USE), "The MIDI input is not open");
        return;
    }
    std::lock_guard lock(mutex_);
    started_ = true;
}

void RtMidiInputPort::reset() { stopInput(); }

void RtMidiInputPort::stopInput()
{
    {
        std::lock_guard lock(mutex_);
        started_ = false;
        joiner_.clear();
        ++shared_->generation;
    }
    waiting_.clear();
}

void RtMidiInputPort::next()
{
    if (!waiting_.empty())
        waiting_.pop_front();
}

void RtMidiInputPort::takeBytes(const std::uint8_t* bytes, std::size_t size)
{
    std::lock_guard lock(mutex_);
    if (!started_) {
        joiner_.clear();
        return;
    }
    auto whole = joiner_.take(bytes, size);
    // A long dump tells how far it has come, at most every kProgressStep
    // bytes, so that the pump is not flooded.
    const std::size_t soFar = joiner_.bytesSoFar();
    if (soFar >= reportedSoFar_ + kProgressStep || soFar < reportedSoFar_) {
        reportedSoFar_ = soFar;
        pump_.post([shared = std::weak_ptr<Shared>(shared_), generation = shared_->generation.load(), soFar] {
            auto alive = shared.lock();
            if (!alive || alive->generation != generation)
                return;
            if (MidiInputEvents* events = alive->events)
                events->inputProgress(soFar);
        });
    }
    for (auto& message : whole) {
        if (filtered_[message.front()])
            continue;
        pump_.post([this, shared = std::weak_ptr<Shared>(shared_), generation = shared_->generation.load(),
                    message = std::move(message)]() mutable {
            auto alive = shared.lock();
            if (!alive || alive->generation != generation)
                return;
            arrive(std::move(message));
        });
    }
}

void RtMidiInputPort::arrive(std::vector<std::uint8_t> message)
{
    waiting_.push_back(std::move(message));
    if (MidiInputEvents* events = shared_->events)
        events->inputMessage();
}

void RtMidiInputPort::postError(int code, const std::string& text)
{
    pump_.post([shared = std::weak_ptr<Shared>(shared_), code, text] {
        if (auto alive = shared.lock())
            if (MidiInputEvents* events = alive->events)
                events->inputError(code, text);
    });
}

}  // namespace quillon

#include "support/FakeMidiPorts.h"

#include <cstdio>

namespace quillon {

std::string hexBytes(const std::vector<int>& bytes)
{
    std::string text;
    for (const int byte : bytes) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02X", byte & 0xFF);
        if (!text.empty())
            text += ' ';
        text += digits;
    }
    return text;
}

void FakeMidiOutput::record(const std::string& operation)
{
    log.push_back(operation);
    if (journal != nullptr)
        journal->push_back("out " + operation);
}

void FakeMidiInput::record(const std::string& operation)
{
    log.push_back(operation);
    if (journal != nullptr)
        journal->push_back("in " + operation);
}

void FakeMidiOutput::setDevice(int device)
{
    record("device " + std::to_string(device));
    if (noDevices)
        throw MidiError(noDevicesCode, noDevicesText);
    device_ = device;
}

void FakeMidiOutput::open()
{
    record("open");
    if (openFails) {
        fireError(kFaultCode, faultText);
        return;
    }
    if (state_ == kPortClosed)
        state_ = kPortOpen;
}

void FakeMidiOutput::close()
{
    record("close");
    state_ = kPortClosed;
    queued.clear();
    queuedTypes.clear();
}

void FakeMidiOutput::start()
{
    record("start");
    if (state_ == kPortClosed) {
        fireError(kNotOpenCode, "Port not open");
        return;
    }
    if (!queued.empty())
        state_ = kPortBusy;
}

void FakeMidiOutput::reset()
{
    record("reset");
    queued.clear();
    queuedTypes.clear();
    if (state_ != kPortClosed)
        state_ = kPortOpen;
}

void FakeMidiOutput::queue()
{
    record("queue:" + std::to_string(text_.size()) + " bytes");
    if (queueFails) {
        fireError(kFaultCode, faultText);
        return;
    }
    if (state_ == kPortClosed)
        return;
    queued.push_back(text_);
    queuedTypes.push_back(messageType);
}

void FakeMidiOutput::sendShort()
{
    const std::vector<int> bytes{messageType, data1, data2};
    record("sendShort " + hexBytes(bytes));
    if (state_ == kPortClosed)
        return;
    shorts.push_back(bytes);
}

void FakeMidiOutput::finishPlaying()
{
    for (const auto& piece : queued)
        wire.insert(wire.end(), piece.begin(), piece.end());
    queued.clear();
    queuedTypes.clear();
    if (state_ != kPortClosed)
        state_ = kPortOpen;
    if (events_ != nullptr)
        events_->outputDone();
}

void FakeMidiOutput::playPieces(std::size_t pieces)
{
    for (std::size_t i = 0; i < pieces && !queued.empty(); ++i) {
        const std::vector<std::uint8_t> piece = queued.front();
        queued.erase(queued.begin());
        queuedTypes.erase(queuedTypes.begin());
        wire.insert(wire.end(), piece.begin(), piece.end());
        if (events_ != nullptr)
            events_->outputProgress(piece.size());
    }
}

void FakeMidiOutput::unplug()
{
    record("unplugged");
    noDevices = true;
    openFails = true;
    queued.clear();
    queuedTypes.clear();
    fireError(kFaultCode, faultText);
}

void FakeMidiOutput::plugBackIn()
{
    record("plugged in");
    noDevices = false;
    openFails = false;
}

void FakeMidiOutput::fireError(int code, const std::string& text)
{
    if (events_ != nullptr)
        events_->outputError(code, text);
}

std::vector<std::uint8_t> FakeMidiInput::messageText() const
{
    return waiting_.empty() ? std::vector<std::uint8_t>{} : waiting_.front();
}

void FakeMidiInput::setBufferSize(int bytes)
{
    record("buffer " + std::to_string(bytes));
    bufferSize_ = bytes;
}

void FakeMidiInput::setDevice(int device)
{
    record("device " + std::to_string(device));
    if (noDevices)
        throw MidiError(noDevicesCode, noDevicesText);
    device_ = device;
}

void FakeMidiInput::setFilter(int status, bool filtered)
{
    record("filter " + std::to_string(status) + (filtered ? " on" : " off"));
    filters_[status] = filtered;
}

bool FakeMidiInput::filter(int status) const
{
    const auto found = filters_.find(status);
    return found != filters_.end() && found->second;
}

void FakeMidiInput::open()
{
    record("open");
    if (openFails) {
        fireError(kFaultCode, faultText);
        return;
    }
    if (state_ == kPortClosed)
        state_ = kPortOpen;
}

void FakeMidiInput::close()
{
    record("close");
    state_ = kPortClosed;
    waiting_.clear();
}

void FakeMidiInput::start()
{
    record("start");
    if (state_ != kPortClosed)
        state_ = kPortBusy;
}

void FakeMidiInput::reset()
{
    record("reset");
    waiting_.clear();
    if (state_ != kPortClosed)
        state_ = kPortOpen;
}

void FakeMidiInput::next()
{
    record("next");
    if (!waiting_.empty())
        waiting_.pop_front();
}

bool FakeMidiInput::arrive(std::vector<std::uint8_t> message)
{
    if (state_ < kPortBusy || message.empty() || static_cast<int>(message.size()) > bufferSize_ ||
        filter(message.front()))
        return false;
    waiting_.push_back(std::move(message));
    return true;
}

bool FakeMidiInput::deliver(std::vector<std::uint8_t> message)
{
    if (!arrive(std::move(message)))
        return false;
    fireMessage();
    return true;
}

void FakeMidiInput::fireMessage()
{
    if (events_ != nullptr)
        events_->inputMessage();
}

void FakeMidiInput::fireProgress(std::size_t bytesSoFar)
{
    if (events_ != nullptr)
        events_->inputProgress(bytesSoFar);
}

void FakeMidiInput::unplug()
{
    record("unplugged");
    noDevices = true;
    openFails = true;
    waiting_.clear();
    fireError(kFaultCode, faultText);
}

void FakeMidiInput::plugBackIn()
{
    record("plugged in");
    noDevices = false;
    openFails = false;
}

void FakeMidiInput::fireError(int code, const std::string& text)
{
    if (events_ != nullptr)
        events_->inputError(code, text);
}

}  // namespace quillon

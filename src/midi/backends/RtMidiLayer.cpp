#include "midi/backends/RtMidiLayer.h"

#include <RtMidi.h>

#include <algorithm>

namespace quillon {

int rtMidiErrorCode(int rtMidiErrorType)
{
    if (rtMidiErrorType == RtMidiError::WARNING || rtMidiErrorType == RtMidiError::DEBUG_WARNING)
        return 0;
    return kRtMidiErrorBase + rtMidiErrorType;
}

int rtMidiApiNumber(MidiApi api)
{
    RtMidi::Api wanted = RtMidi::UNSPECIFIED;
    switch (api) {
    case MidiApi::Alsa: wanted = RtMidi::LINUX_ALSA; break;
    case MidiApi::Jack: wanted = RtMidi::UNIX_JACK; break;
    case MidiApi::CoreMidi: wanted = RtMidi::MACOSX_CORE; break;
    case MidiApi::WinMm: wanted = RtMidi::WINDOWS_MM; break;
    case MidiApi::Sim: break;
    }
    std::vector<RtMidi::Api> compiled;
    RtMidi::getCompiledApi(compiled);
    if (wanted == RtMidi::UNSPECIFIED || std::find(compiled.begin(), compiled.end(), wanted) == compiled.end())
        throw MidiError(rtMidiErrorCode(RtMidiError::INVALID_PARAMETER),
                        "The MIDI system " + std::string(midiApiName(api)) + " is not available in RtMidi");
    return wanted;
}

RtMidiLayer::RtMidiLayer(RtMidiDirection direction, MidiApi api, const std::string& clientName, Report report)
    : direction_(direction), report_(std::move(report))
{
    const auto rtApi = static_cast<RtMidi::Api>(rtMidiApiNumber(api));
    try {
        if (direction_ == RtMidiDirection::Input) {
            in_ = std::make_unique<RtMidiIn>(rtApi, clientName);
            midi_ = in_.get();
        } else {
            out_ = std::make_unique<RtMidiOut>(rtApi, clientName);
            midi_ = out_.get();
        }
    } catch (const RtMidiError& error) {
        throw MidiError(rtMidiErrorCode(error.getType()), error.getMessage());
    }
    midi_->setErrorCallback(
        [](RtMidiError::Type type, const std::string& text, void* self) {
            static_cast<RtMidiLayer*>(self)->onError(type, text);
        },
        this);
    // Some layers (JACK without a server) only warn when they cannot start:
    // asking for the devices shows whether the layer works.
    opening_ = true;
    midi_->getPortCount();
    opening_ = false;
    if (!openError_.empty())
        throw MidiError(rtMidiErrorCode(RtMidiError::DRIVER_ERROR), openError_);
}

RtMidiLayer::~RtMidiLayer() = default;

RtMidiIn& RtMidiLayer::in() { return *in_; }

RtMidiOut& RtMidiLayer::out() { return *out_; }

std::vector<std::string> RtMidiLayer::deviceNames() const
{
    std::vector<std::string> names;
    const unsigned count = midi_->getPortCount();
    for (unsigned i = 0; i < count; ++i)
        names.push_back(midi_->getPortName(i));
    return names;
}

void RtMidiLayer::requireDevices() const
{
    if (midi_->getPortCount() == 0)
        throw MidiError(rtMidiErrorCode(RtMidiError::NO_DEVICES_FOUND),
                        std::string("No MIDI ") + directionName() + " device was found");
}

bool RtMidiLayer::openDevice(int device, int& code, std::string& text)
{
    const std::string named = std::string("MIDI ") + directionName() + " device " + std::to_string(device);
    if (device < 0 || static_cast<unsigned>(device) >= midi_->getPortCount()) {
        code = rtMidiErrorCode(RtMidiError::INVALID_DEVICE);
        text = named + " is not there";
        return false;
    }
    openError_.clear();
    opening_ = true;
    midi_->openPort(static_cast<unsigned>(device), "midi");
    opening_ = false;
    if (midi_->isPortOpen())
        return true;
    code = rtMidiErrorCode(RtMidiError::DRIVER_ERROR);
    text = openError_.empty() ? named + " cannot be opened" : openError_;
    return false;
}

void RtMidiLayer::openVirtual(const std::string& portName)
{
    openError_.clear();
    opening_ = true;
    midi_->openVirtualPort(portName);
    opening_ = false;
    if (!openError_.empty())
        throw MidiError(rtMidiErrorCode(RtMidiError::DRIVER_ERROR), openError_);
}

void RtMidiLayer::shutDown()
{
    midi_ = nullptr;
    in_.reset();
    out_.reset();
}

void RtMidiLayer::onError(int type, const std::string& text)
{
    if (opening_) {
        // Opening reports by its result; keep the layer's words for it.
        if (type != RtMidiError::DEBUG_WARNING)
            openError_ = text;
        return;
    }
    if (report_)
        report_(rtMidiErrorCode(type), text);
}

const char* RtMidiLayer::directionName() const { return direction_ == RtMidiDirection::Input ? "input" : "output"; }

}  // namespace quillon

#include "midi/MidiLink.h"

#include "midi/MidiGlobal.h"
#include "midi/ReceiveEngine.h"
#include "midi/TestTone.h"
#include "shell/Timer.h"

namespace quillon {

MidiLink::~MidiLink()
{
    if (output_ != nullptr)
        output_->setEvents(nullptr);
    if (input_ != nullptr)
        input_->setEvents(nullptr);
    if (timerMain_ != nullptr)
        timerMain_->setTick(nullptr);
}

void MidiLink::attach(MidiOutput* output, MidiInput* input, Timer* timerMain)
{
    if (output_ != nullptr)
        output_->setEvents(nullptr);
    if (input_ != nullptr)
        input_->setEvents(nullptr);
    output_ = output;
    input_ = input;
    timerMain_ = timerMain;
    if (output_ != nullptr)
        output_->setEvents(this);
    if (input_ != nullptr)
        input_->setEvents(this);
    if (timerMain_ != nullptr)
        timerMain_->setTick([this] { doToneStep(model_); });
}

void MidiLink::outputError(int code, const std::string& text) { onOutputError(model_, code, text); }

void MidiLink::outputDone() { onOutputDone(model_); }

void MidiLink::outputProgress(std::size_t bytes) { onOutputProgress(model_, bytes); }

void MidiLink::inputProgress(std::size_t bytesSoFar) { onInputProgress(model_, bytesSoFar); }

void MidiLink::inputError(int code, const std::string& text) { onMidiError(model_, code, text); }

void MidiLink::inputMessage() { onInputMessage(model_); }

}  // namespace quillon

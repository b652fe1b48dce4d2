#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillon {

class AppModel;

// Block kinds of a received message, by its exact length: 1 "all Z1" to 11
// "global & MIDI"; 0 for any other length.
int receivedBlockKind(std::size_t length);
std::string_view receivedBlockName(int kind);

// Listen: waits for whatever the user sends from the instrument.
void mnuListen(AppModel& model);

// The captions of frmRequest's eight options, index 0 to 7.
std::string_view requestCaption(int index);

// Sends request `index` (0 to 7) and opens the input for its answer.
void doSendRequest(AppModel& model, int index);

// The message event of the input port.
void onInputMessage(AppModel& model);

// Collects the waiting messages and acts on the first recognised one.
void processMIDIGlobalInput(AppModel& model);

// A bank asked for and answered with an All Program dump: the bank of
// `kind` (2 or 3) is taken out of it.
void doExtractAllProgramBank(AppModel& model, int kind);

}  // namespace quillon

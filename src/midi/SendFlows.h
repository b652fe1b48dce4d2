#pragma once

#include "sysex/SysExBytes.h"

namespace quillon {

class AppModel;

// Send (menu and toolbar): what the current Mode shows goes to the
// instrument, after a confirmation for the banks.
void doSendActive(AppModel& model);

// The dump routines. They queue the message and return at once; the
// output's done event tells of the end. False when nothing went out: the
// output device is gone ("MIDI Error" box, the status line says the item was
// not sent) or no multi bank is chosen.
bool doSendPatch(AppModel& model);
bool doSendMultiset(AppModel& model);
bool doSendPattern(AppModel& model);
bool doSendBank(AppModel& model);       // the bank of bankTarget
bool doSendMultiBank(AppModel& model);  // the multi bank of multiMode
bool doSendArpBank(AppModel& model);

// One SysEx message, F0 to F7, queued whole on the output and started; the
// output's done event tells of the end.
void sendWholeMessage(AppModel& model, const SysExMessage& message);

// frmMisc's Send: the dump of several kinds loaded from a file, after its
// question. Returns whether it was sent (frmMisc is then unloaded).
bool miscSend(AppModel& model);

}  // namespace quillon

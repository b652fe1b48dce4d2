#pragma once

namespace quillon {

class AppModel;

// Send (menu and toolbar): what the current Mode shows goes to the
// instrument, after a confirmation for the banks.
void doSendActive(AppModel& model);

// The dump routines. They queue the message and return at once; the
// output's done event tells of the end.
void doSendPatch(AppModel& model);
void doSendMultiset(AppModel& model);
void doSendPattern(AppModel& model);
void doSendBank(AppModel& model);       // the bank of bankTarget
void doSendMultiBank(AppModel& model);  // the multi bank of multiMode
void doSendArpBank(AppModel& model);

// frmMisc's Send: the dump of several kinds loaded from a file, after its
// question. Returns whether it was sent (frmMisc is then unloaded).
bool miscSend(AppModel& model);

}  // namespace quillon

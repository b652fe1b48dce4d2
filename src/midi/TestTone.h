#pragma once

namespace quillon {

class AppModel;

// Test Tone: sends the patch, waits a second, then plays one note of the
// tone settings on the instrument's channel.
void mnuTestTone(AppModel& model);

// One step of the tone, from the command and then from each tick of
// TimerMain.
void doToneStep(AppModel& model);

}  // namespace quillon

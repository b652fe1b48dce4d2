#pragma once

namespace quillon {

class AppModel;

// Copies one envelope of the patch in the editor onto another: subsections
// 2 to 5 (EG1 to EG4) and 34 (Amp EG). The Amp EG has no Start and Release
// levels: copied from it they become 0, copied to it they are dropped, and
// any negative time or level becomes 0 there. Last is not written. Tells
// the observers.
void copyEnvelope(AppModel& model, int source, int destination);

// The subsection that lblEG(button) copies to: 2 to 5 for buttons 1 to 4,
// 34 for button 5; 0 for any other button.
int envelopeCopyDestination(int button);

// The question asked before an envelope is copied to the Amp EG while any
// of the graph's points lies below level 0.
inline constexpr const char* kCopyToAmpEGTitle = "Copy EG to Amp EG";
inline constexpr const char* kCopyToAmpEGQuestion =
    "Negative values in this EG will be changed to zero in Amp EG. Ok to proceed?";
// The question has no help topic of its own; its Help button opens the
// help's contents.
inline constexpr int kCopyToAmpEGHelpContext = 0;

// Mouse down on lblEG(button) of model.envelope: the button shows its
// border, and the envelope on show is copied to the one the button names,
// after the question above for the Amp EG (anything but Yes stops the copy;
// the border is taken off before the answer is used). Returns true when it
// copied.
bool pressCopyButton(AppModel& model, int button);

// Mouse up on lblEG(button): the border goes.
void releaseCopyButton(AppModel& model, int button);

}  // namespace quillon

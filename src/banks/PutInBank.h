#pragma once

namespace quillon {

class AppModel;

// The help topics of the Put dialogs and their messages.
inline constexpr int kPutPatchHelpContext = 140;
inline constexpr int kPutMultiHelpContext = 245;
inline constexpr int kPutPatternHelpContext = 260;

// Puts the item of an editor into a bank at a place the user chooses on the
// bank Dialog, starting on the place given: the patch at a combined position
// (bank B from 128), the multiset at a combined multi position (bank B from
// 16), the pattern at a position of the arpeggiator bank (the user patterns
// 5 to 19). The old entry's name and the new one are reported in lblStatus.
// Nothing loaded to put, no bank to put it in, a Cancel or a bank that is
// not loaded change nothing.
void putPatchInBank(AppModel& model, int combined);
void putMultiInBank(AppModel& model, int combined);
void putPatternInBank(AppModel& model, int position);

// The menu items and the toolbar's put key: each starts on the place last
// used.
void mnuPutPatchInBank(AppModel& model);
void mnuPutMultiInBank(AppModel& model);
void mnuPutArpInBank(AppModel& model);
// The toolbar's put key: the command of the Mode on show (1 patch, 4 multi,
// 5 arpeggiator); other Modes do nothing.
void putCurrentInBank(AppModel& model);

}  // namespace quillon

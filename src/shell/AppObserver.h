#pragma once

namespace quillon {

// What of the model changed, as bits: screens redraw only what concerns them.
enum ModelChange : unsigned {
    kScreenChanged = 1u << 0,       // Mode or the sub-modes: a new screen to set up
    kLabelsChanged = 1u << 1,       // the labels of fraLoaded
    kSendMenuChanged = 1u << 2,     // mnuSendActive and mnuTestTone
    kRecentFilesChanged = 1u << 3,  // the recent files of the File menu
    kBankMenuChanged = 1u << 4,     // the bank commands (a bank was loaded)
    kUndoMenuChanged = 1u << 5,     // the undo of bank reorderings
    kBuffersChanged = 1u << 6,      // values of the edit buffers
    kBanksChanged = 1u << 7,        // data in the bank store
    kSettingsChanged = 1u << 8,     // the system settings
};

// Screens observe the model through this; a bulk change such as a load
// arrives as one call with all its bits.
class AppObserver {
public:
    virtual ~AppObserver() = default;
    virtual void modelChanged(unsigned changes) = 0;
};

}  // namespace quillon

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
    // fraMultiSelect: its section buttons, the selection label and arrows,
    // the multi bank lists.
    kMultiSelectChanged = 1u << 9,
    // The patch or multi screen: the rows and captions of frame 1 or 2, and
    // everything around them (tree or group panel, group labels, trail,
    // favourites, frame mode buttons, the Subsection and Copy/Paste Special
    // menus, fraEnvelope's place).
    kFrame1Changed = 1u << 10,
    kFrame2Changed = 1u << 11,
    kNavigationChanged = 1u << 12,
    // The arpeggiator screen: the grid's boxes and step markers; the rows,
    // step boxes, tone numbers, copy mode marks and pattern list.
    kPatternGridChanged = 1u << 13,
    kPatternRowsChanged = 1u << 14,
    // The bank view: the captions and colours of the name labels, the grid
    // made, the selection tools shown or hidden.
    kBankViewChanged = 1u << 15,
    // A dump going out or coming in: the progress bar beside the status
    // lines. (A high bit, apart from the screens' bits.)
    kTransferChanged = 1u << 24,
};

// Screens observe the model through this; a bulk change such as a load
// arrives as one call with all its bits.
class AppObserver {
public:
    virtual ~AppObserver() = default;
    virtual void modelChanged(unsigned changes) = 0;
};

}  // namespace quillon

#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace quillon {

class AppModel;

// frmMisc: the dialog for a message of several kinds (All Data, All Program,
// All Multi, Global, MIDI, Global and MIDI) from a file or the instrument.
// The user saves or sends the message whole, or ticks which of its banks to
// take into the editor. The form shows this state and calls the operations
// below; they work on the model's misc dump.

inline constexpr int kMiscTypeBoxes = 5;

struct MiscDialogState {
    std::string caption;                   // the dialog's caption: the dump's name
    bool extractFrameVisible = false;      // fraExtract
    std::string extractFrameCaption = "Load into Editor";
    // chkType(0..4): "Bank A", "Bank B", "Multibank A", "Multibank B",
    // "Pattern bank".
    std::array<bool, kMiscTypeBoxes> typeVisible{};
    std::array<std::string, kMiscTypeBoxes> typeCaption;
    std::array<bool, kMiscTypeBoxes> typeTicked{};
    std::string loadCaption = "Extract and Load Selected";  // cmdLoad
    std::string saveSendCaption;                            // cmdSaveSend
    std::string doneCaption = "Done";                       // cmdDone
    std::string helpCaption = "Help";                       // cmdHelp
    int helpContext = 66;
};

// The operations of the dialog, by the names the form gives them; other
// forms have a doSetup of their own.
namespace misc {

// Which boxes and frame the dump offers, the name it goes by (also kept as
// the dump's name) and the caption of cmdSaveSend by the dump's mode: "Save "
// and the name for 1, "Send ", the name and " to Z1" for 3.
MiscDialogState doSetup(AppModel& model);

// cmdLoad: every visible ticked bank is taken out of the dump into the bank
// store, each after its own save-first prompt; a Cancel there skips that bank
// only. Nothing happens when no visible box is ticked.
void doProcessLoad(AppModel& model, const MiscDialogState& state);

// The dump's packed data from behind its header, and its unpacked image.
void doMiscData(AppModel& model);

// The bank of box `index` (0 bank A, 1 bank B, 2 multi bank A, 3 multi bank B,
// 4 arpeggiator bank) copied from the unpacked dump into the bank store.
void doExtract(AppModel& model, int index);

// The save-first prompt of the bank of box `index`; false when the user
// cancelled. Otherwise the bank becomes the bank or multi bank target.
bool doLocalPreload(AppModel& model, int index);

// The bank of box `index` shown as loaded, as after a load from a file.
void doLocalPostLoad(AppModel& model, int index);

// The Kind of box `index`: 2, 3, 6, 7, 8; 0 for any other index.
int boxKind(int index);

}  // namespace misc

// A message of several kinds received from the instrument becomes the dump.
// A block longer than any such message is refused (false) and changes
// nothing.
bool miscReceive(AppModel& model, std::span<const std::uint8_t> block);

}  // namespace quillon

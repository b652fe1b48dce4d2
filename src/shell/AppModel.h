#pragma once

#include "banks/BankStore.h"
#include "banks/BankView.h"
#include "editors/ArpScreen.h"
#include "editors/BankMerge.h"
#include "editors/CopySpecial.h"
#include "editors/EditBuffers.h"
#include "editors/EnvelopeGraph.h"
#include "editors/KindFlags.h"
#include "editors/LoadedLabels.h"
#include "editors/MultiSelect.h"
#include "editors/ScreenLayout.h"
#include "files/SettingsStore.h"
#include "files/SystemSettings.h"
#include "midi/MidiLink.h"
#include "model/DataTypes.h"
#include "model/LoadReport.h"
#include "shell/AppObserver.h"
#include "shell/Host.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace quillon {

class Printer;

inline constexpr int kRecentFiles = 20;
inline constexpr int kRecentMenuSlots = 10;

// What Remap knows of the old and new arrangement of the patch banks: the
// names of its lists by combined position (bank B from 128), whether both new
// lists have been read, and the table from each old position to the new
// position of the patch of the same name (-1 when none has it).
struct RemapLists {
    std::array<std::string, 256> oldNames;
    std::array<std::string, 256> newNames;
    std::array<std::int16_t, 256> remapTable{};
    bool newListsPresent = false;
};

// A whole message of a several-kinds file or dump (All Data, All Program,
// All Multi, Global, MIDI), kept for frmMisc to save, send or take apart.
struct MiscDump {
    std::vector<std::uint8_t> message;  // F0 ... F7; empty when none was found
    std::string name;                   // the display name
    int mode = 0;                       // 1: the dialog offers Save, 3: Send
    SysExImage packed;                  // the message without its header
    ByteImage image;                    // unpacked from packed
    int length() const { return static_cast<int>(message.size()); }
};

// The one model object of the program: everything the screens show and the
// commands change. Each part has its owner (the buffers and flags the
// editors, the bank store the bank tools, the settings the files); screens
// observe it and never poll.
class AppModel {
public:
    AppModel(Host& host, SettingsStore& store, std::filesystem::path dataFolder, Printer* printer = nullptr);

    Host& host() { return host_; }
    SettingsStore& store() { return store_; }
    // Where Quillonset.dat, the user files and the "Param" folder live.
    const std::filesystem::path& dataFolder() const { return dataFolder_; }
    // Where Print sends its text; none: nothing is printed.
    Printer* printer() { return printer_; }
    void setPrinter(Printer* printer) { printer_ = printer; }

    // Screen and sub-modes.
    int mode = 1;             // 1 patch, 2 bank A, 3 bank B, 4 multi, 5 arpeggiator
    int bankTarget = 2;       // 2 or 3
    int multiBankTarget = 6;  // 6 or 7
    int multiMode = 0;        // 0 none, 1 multi bank A, 2 multi bank B highlighted
    int arpMode = 0;          // 1: the arpeggiator bank is highlighted

    EditBuffers buffers;
    KindFlags flags;
    BankStore banks{flags};
    LoadedLabels labels;
    MultiSelectState multiSelect;  // fraMultiSelect of the multi screen
    ScreenLayout layout;           // the frames of the patch and multi screens and their navigation
    EnvelopeGraph envelope;        // fraEnvelope of the patch screen
    ArpScreenView arpScreen;       // the arpeggiator screen: grid, rows, step boxes, pattern list
    BankViewState bankView;        // the grid of the bank view and the Undo items
    CopyBuffer copyBuffer;         // what Copy Special took, for Paste Special
    MergeState merge;              // where the merges from a bank patch go next

    // The unpacked image of the patch, multiset and pattern, by Kind; the
    // banks keep theirs in the bank store.
    ByteImage& itemImage(int kind);

    // The packed data of each Kind 1 to 8 as it came from a file or message,
    // with its closing F7.
    std::array<SysExImage, 9> packed;

    // What the last load had to correct.
    LoadReport report;

    // Files.
    std::array<std::string, 9> itemPath;  // by Kind: the file each came from
    std::array<std::string, 9> itemName;  // by Kind 1, 4, 5: the name shown and used in prompts
    std::array<std::string, 9> suggestedPath;  // by Kind 1, 4, 5
    // By Kind 1, 4, 5: the item was taken out of a bank and has no file yet.
    std::array<bool, 9> takenFromBank{};
    std::string workFolder;
    std::array<std::string, kRecentFiles + 1> recentFiles;  // 1 newest; an empty entry ends the list
    std::array<std::string, kRecentMenuSlots + 1> recentMenu;  // captions of mnuFileArray(1..10); empty: hidden
    bool recentSeparatorVisible = false;
    bool saveCancelled = false;
    MiscDump misc;
    RemapLists remap;

    SystemSettings settings;
    // The MIDI ports and the state of the flows that use them.
    MidiLink midi{*this};
    // Quillonpe.dat as opened at start-up: the names of the performance knob
    // destinations in records of 60 characters.
    std::string peRecords;

    // The menu command that sends the current item, as the screen shows it.
    std::string sendMenuCaption = "Patch";
    bool sendMenuEnabled = false;
    bool bankMenuEnabled = false;

    void addObserver(AppObserver* observer);
    void removeObserver(AppObserver* observer);

    // Tells the observers what changed, or keeps it for the end of the batch
    // under way.
    void changed(unsigned changes);

    // Gathers the changes of a bulk operation into one notification.
    class Batch {
    public:
        explicit Batch(AppModel& model);
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        AppModel& model_;
    };

private:
    Host& host_;
    SettingsStore& store_;
    std::filesystem::path dataFolder_;
    Printer* printer_ = nullptr;
    std::array<ByteImage, 3> itemImages_;
    std::vector<AppObserver*> observers_;
    int batchDepth_ = 0;
    unsigned pending_ = 0;
};

}  // namespace quillon

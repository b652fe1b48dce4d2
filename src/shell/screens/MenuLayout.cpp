#include "shell/screens/MenuLayout.h"

namespace quillon {

namespace {

constexpr MenuItemLayout kFile[] = {
    {"mnuNew", "&New"},
    {"mnuOpen", "&Open"},
    {"mnuSave", "&Save"},
    {"mnuSaveAs", "Save &as..."},
    {"", ""},
    {"mnuSaveList", "Save List"},
    {"mnuImportToBank", "Import to Bank"},
    {"mnuPrint", "&Print"},
    {kRecentFilesMarker, ""},
    {"", ""},
    {"mnuExit", "E&xit"},
};

constexpr MenuItemLayout kEdit[] = {
    {"mnuCopySpecial", "Copy Special"},
    {"mnuPasteSpecial", "Paste Special"},
};

constexpr MenuItemLayout kReceive[] = {
    {"mnuListen", "Listen"},
    {"mnuRequest", "Request"},
    {"", ""},
    {"mnuResetInput", "Reset"},
};

constexpr MenuItemLayout kSend[] = {
    {"mnuSendActive", "Patch"},
    {"mnuTestTone", "Test Tone"},
    {"", ""},
    {"mnuResetOutput", "Reset"},
};

constexpr MenuItemLayout kPatch[] = {
    {"mnuShowPatchSectionsTree", "Tree Mode"},
    {"mnuShowPatchSectionsGroup", "Group Mode"},
    {"", ""},
    {"mnuPatchModSources", "Modulation Sources"},
    {"", ""},
    {"mnuPutPatchInBank", "Patch to Bank"},
    {"", ""},
    {"mnuRandomBank", "Random 128"},
    {"mnuSpreadBank", "Spread  128"},
};

constexpr MenuItemLayout kBank[] = {
    {"mnuUndoBank", "Undo"},
    {"mnuSwapBanks", "Swap Banks"},
    {"", ""},
    {"mnuSortBankArray_0", "Sort by Name"},
    {"mnuSortBankArray_1", "Sort by Patch Category"},
    {"mnuSortBankArray_2", "Sort by User Group"},
    {"mnuSortBankArray_3", "Sort by OSC1 Type"},
    {"mnuSortBankArray_4", "Sort by OSC2 Type"},
    {"mnuSortBankArray_5", "Sort by FX1 Type"},
    {"mnuSortBankArray_6", "Sort by FX2 Type"},
    {"mnuSortBankArray_7", "Sort by Filt1 Type"},
    {"mnuSortBankArray_8", "Sort by Filt2 Type"},
    {"mnuSortBankArray_9", "Sort by Linked Arp."},
    {"", ""},
    {"mnuFind", "Find Patches"},
    {"", ""},
    {"mnuMapOld", "Map Old"},
    {"mnuMapNew", "Map New"},
    {"mnuCreateRemap", "Create Remap"},
    {"mnuShowRemap", "Show Remap"},
};

constexpr MenuItemLayout kMulti[] = {
    {"mnuPutMultiInBank", "Multiset to Multi Bank"},
    {"", ""},
    {"mnuRemapMultiset", "Remap Multiset"},
    {"mnuRemapMultiBank", "Remap Multi Bank"},
};

constexpr MenuItemLayout kArpeggiator[] = {
    {"mnuPutArpInBank", "Pattern to Arpeggiator Bank"},
};

constexpr MenuItemLayout kSubsection[] = {
    {"mnuSubSPrevious", "Restore Previous"},
    {"mnuSubSLoaded", "Restore Loaded"},
    {"mnuSubSDefault", "Default"},
    {"mnuSubSUserApply", "User"},
    {"mnuSubSZero", "Zero"},
    {"mnuSubSRandom", "Random"},
    {"", ""},
    {"mnuSubSUserSave", "Save Setting"},
};

constexpr MenuItemLayout kSettings[] = {
    {"mnuSettingsArray_1", "Startup"},
    {"mnuSettingsArray_2", "MIDI"},
    {"mnuSettingsArray_3", "Test Tone"},
    {"mnuSettingsArray_4", "File Names"},
    {"mnuSettingsArray_5", "Random"},
    {"mnuSettingsArray_6", "Spread"},
    {"mnuSettingsArray_7", "Misc"},
    {"", ""},
    {"mnuCreateUserPatchFile", "Create User Patch File"},
    {"mnuResetUserPatchFile", "Reset User Patch File"},
    {"mnuCreateUserMultiFile", "Create User Multiset File"},
    {"mnuResetUserMultiFile", "Reset User Multiset File"},
};

constexpr MenuItemLayout kSystem[] = {
    {"mnuParameters", "Parameters"},
    {"mnuSectionsPatch", "Sections: Patch"},
    {"mnuSectionsMulti", "Sections: Multi"},
    {"mnuSubSectionsPatch", "Subsections: Patch"},
    {"mnuSubSectionsMulti", "Subsections: Multi"},
    {"", ""},
    {"mnuCheckLoad", "Check Load"},
    {"mnuCompareLast", "Compare Last"},
    {"mnuDumpParamList", "Dump Current Params"},
};

constexpr MenuItemLayout kHelp[] = {
    {"mnuHelpContents", "&Contents..."},
    {"mnuHelpIndex", "&Index..."},
    {"mnuHelpFAQ", "Quillon on the &Web"},
    {"", ""},
    {"mnuAbout", "About Quillon..."},
};

constexpr MenuLayout kMenus[] = {
    {"mnuFile", "&File", kFile},
    {"mnuEdit", "&Edit", kEdit},
    {"mnuReceive", "Receive", kReceive},
    {"mnuSend", "Send", kSend},
    {"mnuPatch", "Patch", kPatch},
    {"mnuBank", "Bank", kBank},
    {"mnuMulti", "Multi", kMulti},
    {"mnuArpeggiator", "Arpeggiator", kArpeggiator},
    {"mnuSubsection", "Subsection", kSubsection},
    {"mnuSettings", "Settings", kSettings},
    {"mnuSystem", "System", kSystem},
    {"mnuHelp", "&Help", kHelp},
};

// Each key with the short text under its icon and the icon of the platform's
// theme that stands for it, where the theme has one.
constexpr ToolKeyLayout kToolKeys[] = {
    {"open", "Open file", "Open", "document-open"},
    {"save", "Save file as...", "Save As", "document-save-as"},
    {"listen", "Listen to Korg Z1 (wait for SysEx data)", "Listen", ""},
    {"request", "Request data from Z1", "Request", ""},
    {"send", "Send current to Korg Z1", "Send", ""},
    {"test", "Send test tone to Korg Z1", "Test Tone", ""},
    {"put", "Put current in bank", "To Bank", ""},
    {"mod", "Show/edit patch mod sources", "Mod Sources", ""},
    {"spst", "Show patch sections (tree mode)", "Tree", ""},
    {"spsg", "Show patch sections (group mode)", "Groups", ""},
    {"flr", "Frame change L to R", "L to R", ""},
    {"fla", "Frame left active", "Left", ""},
    {"fra", "Frame right active", "Right", ""},
    {"bpg", "Quick Merge: bank patch group to patch editor", "Merge Group", ""},
    {"bps", "Slow Merge: bank patch subsection to patch editor", "Merge Sub", ""},
};

}  // namespace

std::span<const MenuLayout> mainMenuLayout() { return kMenus; }

std::span<const ToolKeyLayout> toolbarLayout() { return kToolKeys; }

}  // namespace quillon

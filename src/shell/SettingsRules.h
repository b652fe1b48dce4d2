#pragma once

#include "files/SystemSettings.h"

#include <string>

namespace quillon {

class AppModel;

// The tabs of the settings dialog, by their number.
inline constexpr int kSettingsTabStartup = 1;
inline constexpr int kSettingsTabMidi = 2;
inline constexpr int kSettingsTabTestTone = 3;
inline constexpr int kSettingsTabFileNames = 4;
inline constexpr int kSettingsTabRandom = 5;
inline constexpr int kSettingsTabSpread = 6;
inline constexpr int kSettingsTabMisc = 7;
inline constexpr int kSettingsTabs = 7;

// The block of choices that the Random or the Spread tab shows; none for the
// other tabs.
GenerationSettings* generationSettingsOfTab(SystemSettings& settings, int tab);

// A percentage box of the Random and Spread tabs takes 0 to 100.
inline constexpr int kPercentageLeast = 0;
inline constexpr int kPercentageMost = 100;

// The number typed into a percentage box: the leading whole number, with a
// sign, and 0 when the text does not begin with one. Held within 0 to 100.
int percentageOfText(const std::string& text);

// What a percentage box shows after an entry: "0" for a number below 0,
// "100" for one above 100, else the text as typed.
std::string limitedPercentageText(const std::string& text);

// The buttons beside the groups. Select all and Select none set or clear
// every box; Select main sets the EG, LFO, OSC, FX and Filt boxes and clears
// Mod Intensity, AmpEG and CSS.
void selectAllGroups(GenerationSettings& settings);
void selectNoGroups(GenerationSettings& settings);
void selectMainGroups(GenerationSettings& settings);

// "Reset %": every percentage of the groups takes the value of the reset box.
void resetAllPercentages(GenerationSettings& settings);

// The test tone lengths, 0.0 to 5.0 seconds in tenths, as the list shows
// them: "0.0", "0.1" ... "5.0".
inline constexpr int kToneLengthTenths = 50;
std::string toneLengthCaption(int tenths);

// The numbers of recent files the File menu can show, 0 to its 10 slots.
// Choosing one shows as many entries as it allows at once.
void chooseRecentFilesMax(AppModel& model, int count);

// Makes another of the six user patch files (0 to 5) the current one and
// reads it into the patch User buffer.
inline constexpr int kUserPatchFiles = 6;
void chooseUserPatchFile(AppModel& model, int number);

}  // namespace quillon

#pragma once

namespace quillon {

class AppModel;

// The user files keep the User buffers, the user's own values of each
// parameter: Quillonusr0.dat to Quillonusr5.dat for the patch (one of them
// current at a time) and QuillonusrM.dat for the multiset, one decimal value
// a line. A missing file is made from its backup first.

// Where saving takes the values from.
inline constexpr int kUserSourceDefaults = 5;
inline constexpr int kUserSourceCurrent = 6;

// Read the file into the User buffer. On failure the box says so and the
// buffer stays as it was.
bool readUserPatchFile(AppModel& model, int number);
bool readUserMultiFile(AppModel& model);

// Write the User buffer, after taking the defaults (source 5) or Current
// (source 6) into it; any other source writes it as it stands.
bool saveUserPatchFile(AppModel& model, int number, int source);
bool saveUserMultiFile(AppModel& model, int source);

// The four commands of the Settings menu, each asking first.
void mnuCreateUserPatchFile(AppModel& model);
void mnuResetUserPatchFile(AppModel& model);
void mnuCreateUserMultiFile(AppModel& model);
void mnuResetUserMultiFile(AppModel& model);

}  // namespace quillon

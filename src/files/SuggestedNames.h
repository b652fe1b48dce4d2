#pragma once

#include "model/DataTypes.h"

#include <span>
#include <string>

namespace quillon {

class AppModel;

// Takes the name of the patch, multiset or pattern from its edit buffer into
// its label and the model's item name, and builds the suggested file path.
void doLabelFileName(AppModel& model, int kind);

// The suggested path of a patch file in one of the ten name formats; any
// other format gives the empty text. selectedPlace is the combined position
// (0 to 255) of the patch selected in the bank on show, which names the
// bank place of format 6.
std::string doBuildPatchFileName(const AppModel& model, const std::string& folder, const std::string& name,
                                 int format, int selectedPlace = 0);

// The same for a patch other than the one in the editor, such as a bank
// patch being extracted: the parts of the formats come from its values.
std::string doBuildPatchFileName(const AppModel& model, const ParamValues& patch, const std::string& folder,
                                 const std::string& name, int format, int selectedPlace);

// The name of an item as its label shows it: the characters of parameters
// 1 to 16, stopping at the first one that ends a text.
std::string nameFromValues(const ParamValues& values);

// The captions of the ten formats as cmbFormat lists them, format 0 first.
std::span<const char* const> patchFileNameFormats();

}  // namespace quillon

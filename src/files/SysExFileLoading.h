#pragma once

#include <cstdint>
#include <string>

namespace quillon {

class AppModel;

// The loaders of .syx files, one for each kind of file. Each reads the file,
// looks for its message the way its size says (plain or wrapped), checks the
// message's first bytes and takes its packed data. Each returns true when it
// loaded; false is its failure flag, and the user has been told why.

// Patch, multiset and pattern: the caller has run doPreLoad. On success the
// item is unpacked, shown, and becomes Loaded and Last.
bool doLoadPatchFile(AppModel& model, const std::string& path, std::uintmax_t fileLength);
bool doLoadMultisetFile(AppModel& model, const std::string& path, std::uintmax_t fileLength);
bool doLoadPatternFile(AppModel& model, const std::string& path, std::uintmax_t fileLength);

// Bank, multi bank and arpeggiator bank: the message names its bank (A or B),
// the loader runs doPreLoad for it, and on success the packed data waits in
// the bank's packed store for doPostLoad. A cancelled save prompt fails.
bool doLoadBankFile(AppModel& model, const std::string& path, std::uintmax_t fileLength);
bool doLoadMultiBankFile(AppModel& model, const std::string& path, std::uintmax_t fileLength);
bool doLoadArpBankFile(AppModel& model, const std::string& path, std::uintmax_t fileLength);

// A file of several kinds (All Data, All Program, All Multi, Global and/or
// MIDI): the whole message goes to the model's misc dump with its name.
bool doLoadMiscFile(AppModel& model, const std::string& path, std::uintmax_t fileLength);

}  // namespace quillon

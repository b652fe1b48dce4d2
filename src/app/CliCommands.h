#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace quillon {

// The commands of quillon-cli. Each writes its result to out and a one-line
// reason to err, and returns the exit code: 0 done, 1 data it cannot use,
// 2 bad usage or a file it cannot read.
inline constexpr int kExitOk = 0;
inline constexpr int kExitBadData = 1;
inline constexpr int kExitUsage = 2;

// All parameter, section and subsection tables and the default values.
int runTables(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// "value<TAB>text" for every value of a decode table from FROM to TO.
int runDecode(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// The commands on .syx files, which find their data as the Open command does.
// What each file holds: its size, the name of its size band, whether its
// message was found, then its items.
int runInfo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// The text list of a bank, multi bank, arpeggiator bank, multiset or pattern.
int runList(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// The parameter dump of the patch, multiset or pattern (or bank member).
int runDump(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// The parameter values of the item (or bank member) of a file, as JSON.
int runParams(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// A file opened and saved again in the program's own plain form.
int runConvert(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// A PatchBank file sorted by one of the ten keys of the bank view and saved
// to another file.
int runSort(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// The patches of a PatchBank file written one to a file, named as Extract to
// Files names them.
int runExtract(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// Patch files imported into consecutive places of a PatchBank file as Import
// to Bank imports them, the result lines on out, the bank saved to another
// file.
int runImport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// A multiset or MultiBank file whose timbres follow their patches from the
// old bank lists to the new ones, saved to another file.
int runRemap(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// A new PatchBank of 128 variations of a patch file, as Random 128 or Spread
// 128 makes it with the settings of a Quillonset.dat, saved to a file.
int runRandom(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int runSpread(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// The printout of a file's item as Print gives it from the window, written
// to a PDF file: a patch subsection by subsection in the order of the tree, a
// multiset group by group, a pattern's parameters, a bank's list (--member N
// prints that member instead).
int runPrint(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// The patches of .syx files (folders searched through) that meet every
// condition given, by Find's rules: file, position in the file, bank place
// and name, a line each.
int runFindFiles(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// The commands over MIDI, on the system QUILLON_MIDI_API names.
// The input and output devices, numbered.
int runPorts(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// One item of the Request dialog asked of the instrument and saved to a file.
int runRequest(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// The item of a file sent to the instrument; a send that replaces a bank
// needs --yes.
int runSend(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// The sound show: the chosen patches of a bank file sent to the instrument's
// edit buffer one an interval, with a chord on its arpeggiator when asked;
// Ctrl+C ends it as Done does.
int runShow(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace quillon

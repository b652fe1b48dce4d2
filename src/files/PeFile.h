#pragma once

#include <string>

namespace quillon {

class AppModel;

// Quillonpe.dat: the names of the parameters a performance knob can reach,
// records of 60 characters numbered from 1. Its numbers above 157 name a
// parameter of the patch's oscillator or effect type, so the record depends
// on the current patch.

// Restores the file from its backup if need be and takes it in for the life
// of the program. False, after the box, when it cannot be read.
bool openPeFile(AppModel& model);

// The record that knob value n (1 to 230) names in the current patch; 0 for
// a value outside them.
int peRecordNumber(const AppModel& model, int n);

// "Off" below 1, else the 60 characters of the record; empty when the file
// holds no such record.
std::string peParamName(const AppModel& model, int n);

}  // namespace quillon

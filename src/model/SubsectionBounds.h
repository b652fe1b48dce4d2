#pragma once

#include "model/DataTypes.h"

namespace quillon {

// Row bounds and section of a subsection, given by its index. The setting
// subsections of the oscillators and effects have no rows of their own: they
// stand for the block of the type in force, read from the type parameters of
// the patch or multiset in hand.

int firstParamOfSubsection(int index, const ParamValues& patch);
int lastParamOfSubsection(int index, const ParamValues& patch);
int sectionOfSubsection(int index, const ParamValues& patch);

int firstMultiParamOfSubsection(int index, const ParamValues& multi);
int lastMultiParamOfSubsection(int index, const ParamValues& multi);
int multiSectionOfSubsection(int index, const ParamValues& multi);

}  // namespace quillon

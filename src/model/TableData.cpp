#include "model/TableData.h"

namespace quillon {

namespace {

const char* const kPatchRows[] = {
#include "model/data/PatchRows.inc"
};
const char* const kMultiRows[] = {
#include "model/data/MultiRows.inc"
};
const char* const kArpRows[] = {
#include "model/data/ArpRows.inc"
};
const char* const kPatchSections[] = {
#include "model/data/PatchSections.inc"
};
const char* const kPatchSubsections[] = {
#include "model/data/PatchSubsections.inc"
};
const char* const kMultiSections[] = {
#include "model/data/MultiSections.inc"
};
const char* const kMultiSubsections[] = {
#include "model/data/MultiSubsections.inc"
};
const DefaultPair kPatchDefaults[] = {
#include "model/data/PatchDefaults.inc"
};
const DefaultPair kMultiDefaults[] = {
#include "model/data/MultiDefaults.inc"
};
const DefaultPair kArpDefaults[] = {
#include "model/data/ArpDefaults.inc"
};

}  // namespace

std::span<const char* const> patchRowStrings() { return kPatchRows; }
std::span<const char* const> multiRowStrings() { return kMultiRows; }
std::span<const char* const> arpRowStrings() { return kArpRows; }
std::span<const char* const> patchSectionStrings() { return kPatchSections; }
std::span<const char* const> patchSubsectionStrings() { return kPatchSubsections; }
std::span<const char* const> multiSectionStrings() { return kMultiSections; }
std::span<const char* const> multiSubsectionStrings() { return kMultiSubsections; }
std::span<const DefaultPair> patchDefaultPairs() { return kPatchDefaults; }
std::span<const DefaultPair> multiDefaultPairs() { return kMultiDefaults; }
std::span<const DefaultPair> arpDefaultPairs() { return kArpDefaults; }

}  // namespace quillon

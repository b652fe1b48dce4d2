#include "model/SubsectionBounds.h"

#include "model/ParamTables.h"

namespace quillon {

namespace {

// A subsection that stands for the rows of the selected type: the section
// index is the value of the type parameter plus an offset.
struct TypeSubsection {
    int index;
    int typeParam;
    int sectionOffset;
};

constexpr TypeSubsection kPatchTypeSubsections[] = {
    {13, 174, 33},  // OSC1 Setting
    {16, 188, 64},  // OSC2 Setting
    {38, 359, 46},  // FX1 Setting
    {40, 360, 73},  // FX2 Setting
    {42, 361, 61},  // Master FX Setting
};

constexpr TypeSubsection kMultiTypeSubsections[] = {
    {3, 179, 12},  // FX1 Setting
    {5, 180, 30},  // FX2 Setting
    {7, 181, 27},  // Master FX Setting
};

// The section index that a type subsection stands for, or 0 for any other.
template <std::size_t N>
int typeSection(const TypeSubsection (&list)[N], int index, const ParamValues& values)
{
    for (const auto& t : list) {
        if (t.index == index)
            return values[t.typeParam] + t.sectionOffset;
    }
    return 0;
}

template <typename Entry>
const Entry& entryAt(const std::vector<Entry>& entries, int index)
{
    static const Entry none{};
    return index >= 0 && index < static_cast<int>(entries.size()) ? entries[index] : none;
}

}  // namespace

int firstParamOfSubsection(int index, const ParamValues& patch)
{
    const auto& t = paramTables();
    if (const int s = typeSection(kPatchTypeSubsections, index, patch))
        return entryAt(t.patchSections, s).firstParam;
    return entryAt(t.patchSubsections, index).firstParam;
}

int lastParamOfSubsection(int index, const ParamValues& patch)
{
    const auto& t = paramTables();
    if (const int s = typeSection(kPatchTypeSubsections, index, patch))
        return entryAt(t.patchSections, s).lastParam;
    return entryAt(t.patchSubsections, index).lastParam;
}

int sectionOfSubsection(int index, const ParamValues& patch)
{
    if (const int s = typeSection(kPatchTypeSubsections, index, patch))
        return s;
    return entryAt(paramTables().patchSubsections, index).sect;
}

int firstMultiParamOfSubsection(int index, const ParamValues& multi)
{
    const auto& t = paramTables();
    if (const int s = typeSection(kMultiTypeSubsections, index, multi))
        return entryAt(t.multiSections, s).firstParam;
    return entryAt(t.multiSubsections, index).firstParam;
}

int lastMultiParamOfSubsection(int index, const ParamValues& multi)
{
    const auto& t = paramTables();
    if (const int s = typeSection(kMultiTypeSubsections, index, multi))
        return entryAt(t.multiSections, s).lastParam;
    return entryAt(t.multiSubsections, index).lastParam;
}

int multiSectionOfSubsection(int index, const ParamValues& multi)
{
    if (const int s = typeSection(kMultiTypeSubsections, index, multi))
        return s;
    return entryAt(paramTables().multiSubsections, index).sect;
}

}  // namespace quillon

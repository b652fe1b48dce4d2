#include "output/ParamDumps.h"

#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "model/SubsectionBounds.h"
#include "model/ValueDecoder.h"
#include "output/ListFormat.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <set>
#include <span>

namespace quillon {

namespace {

constexpr const char* kReservedName = "reserved";
constexpr int kNumberWidth = 4;
constexpr int kValueWidth = 3;

// A subsection that stands for the rows of the type in force, with the words
// of its type line and of its block heading; a dump lists the block only
// when `block` is set.
struct Overlay {
    int subsection;
    int typeParam;
    const char* typeWords;
    const char* heading;
    bool block = true;
};

constexpr Overlay kPatchOverlays[] = {
    {13, 174, "OSC1 setting ", "OSC1 Setting "},
    {16, 188, "OSC2 setting ", "OSC2 Setting "},
    {38, 359, "FX1 setting ", "FX1 Setting "},
    {40, 360, "FX2 setting ", "FX2 Setting "},
    {42, 361, "Master FX setting ", "Master FX Setting "},
};

constexpr Overlay kMultiOverlays[] = {
    {3, 179, "FX1 setting ", "FX1 Setting "},
    {5, 180, "FX2 setting ", "FX2 Setting "},
    // The multiset's list names its master effect type but has no block for
    // its rows.
    {7, 181, "Master FX setting ", "Master FX Setting ", false},
};

// How the dump of one kind finds its overlay blocks in the tables.
struct DumpShape {
    int kind;
    const std::vector<ParamDef>& rows;
    const std::vector<SectionDef>& sections;
    std::span<const Overlay> overlays;
    int (*sectionOf)(int, const ParamValues&);
    int (*firstOf)(int, const ParamValues&);
    int (*lastOf)(int, const ParamValues&);
};

DumpShape patchShape()
{
    const auto& t = paramTables();
    return {kPatch, t.patch, t.patchSections, kPatchOverlays, sectionOfSubsection, firstParamOfSubsection,
            lastParamOfSubsection};
}

DumpShape multiShape()
{
    const auto& t = paramTables();
    return {kMultiset, t.multi, t.multiSections, kMultiOverlays, multiSectionOfSubsection,
            firstMultiParamOfSubsection, lastMultiParamOfSubsection};
}

// Every section that some value of a type parameter's range selects: its rows
// are used only through their overlay.
std::set<int> overlaySections(const DumpShape& shape)
{
    std::set<int> sections;
    ParamValues probe = makeParamValues(shape.kind);
    for (const auto& overlay : shape.overlays) {
        const ParamDef& type = shape.rows[overlay.typeParam];
        for (int v = type.min; v <= type.max; ++v) {
            probe[overlay.typeParam] = static_cast<std::int16_t>(v);
            sections.insert(shape.sectionOf(overlay.subsection, probe));
        }
    }
    return sections;
}

bool isReserved(const ParamDef& row)
{
    return row.name == kReservedName;
}

std::string sectionName(const DumpShape& shape, int section)
{
    return section >= 1 && section < static_cast<int>(shape.sections.size()) ? shape.sections[section].name
                                                                              : std::string();
}

std::vector<std::string> dumpWithOverlays(const AppModel& model, const DumpShape& shape)
{
    const ParamValues& values = model.buffers.of(shape.kind).current;
    std::vector<std::string> lines{model.itemPath[shape.kind], std::string()};

    for (const auto& overlay : shape.overlays) {
        const int type = values[overlay.typeParam];
        lines.push_back(rightAligned(type, kValueWidth) + " " + overlay.typeWords +
                        decodeValue(shape.rows[overlay.typeParam].table, type));
    }
    lines.emplace_back();

    // The general range: the rows of a section that no type selects, up to
    // the highest of them. Rows of no section carry no parameter.
    const std::set<int> overlays = overlaySections(shape);
    const auto isGeneral = [&](const ParamDef& row) {
        return row.sect > 0 && !overlays.contains(row.sect / 10);
    };
    int highest = 0;
    for (int p = 1; p < static_cast<int>(shape.rows.size()); ++p) {
        if (isGeneral(shape.rows[p]))
            highest = p;
    }
    for (int p = 1; p <= highest; ++p) {
        const ParamDef& row = shape.rows[p];
        if (isGeneral(row) && !isReserved(row))
            lines.push_back(paramDumpLine(p, values[p], row));
    }

    // A block lists every row of the overlay's range, reserved ones included:
    // the rows of a type are its whole block.
    for (const auto& overlay : shape.overlays) {
        if (!overlay.block)
            continue;
        lines.emplace_back();
        lines.push_back(overlay.heading + sectionName(shape, shape.sectionOf(overlay.subsection, values)));
        const int first = std::max(shape.firstOf(overlay.subsection, values), 1);
        const int last = std::min(shape.lastOf(overlay.subsection, values), static_cast<int>(shape.rows.size()) - 1);
        for (int p = first; p <= last; ++p)
            lines.push_back(paramDumpLine(p, values[p], shape.rows[p]));
    }
    return lines;
}

}  // namespace

std::string paramDumpLine(int number, int value, const ParamDef& row)
{
    return "Param no " + rightAligned(number, kNumberWidth) + " = " + rightAligned(value, kValueWidth) + " " + "[" +
           decodeValue(row.table, value) + "]" + row.name;
}

std::vector<std::string> patchDumpLines(const AppModel& model)
{
    return dumpWithOverlays(model, patchShape());
}

std::vector<std::string> multiDumpLines(const AppModel& model)
{
    return dumpWithOverlays(model, multiShape());
}

std::vector<std::string> arpDumpLines(const AppModel& model)
{
    const auto& rows = paramTables().arp;
    const ParamValues& values = model.buffers.of(kPattern).current;
    std::vector<std::string> lines{model.itemPath[kPattern], std::string()};

    // The pattern's own rows carry section 0; each step's rows carry the
    // step's number.
    int steps = 0;
    for (int p = 1; p < static_cast<int>(rows.size()); ++p) {
        if (rows[p].sect == 0)
            lines.push_back(paramDumpLine(p, values[p], rows[p]));
        steps = std::max(steps, static_cast<int>(rows[p].sect));
    }
    for (int step = 1; step <= steps; ++step) {
        lines.emplace_back();
        lines.push_back("Step " + std::to_string(step));
        for (int p = 1; p < static_cast<int>(rows.size()); ++p) {
            if (rows[p].sect == step)
                lines.push_back(paramDumpLine(p, values[p], rows[p]));
        }
    }
    return lines;
}

}  // namespace quillon

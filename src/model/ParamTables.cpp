#include "model/ParamTables.h"

#include "model/Kind.h"
#include "model/TableData.h"
#include "model/TableParsing.h"

#include <algorithm>
#include <span>

namespace quillon {

namespace {

constexpr int kPatchFixedLastRow = 754;
constexpr int kPatchUnusedFirstRow = 755;
constexpr int kPatchEffectFirstRow = 800;
constexpr int kPatchEffectLastRow = 1039;

const char* const kReservedName = "reserved";

// Rows that take another row over with a new ID and moved Sect, SubSect and
// bits: the second oscillator and effect, and the effects of the multiset.
struct RowCopy {
    int firstRow;
    int lastRow;
    int sourceOffset;  // source row = new row + sourceOffset
    int sectionShift;  // added to Sect and SubSect
    int bitShift;      // added to StartB and EndB
};

// OSC2 settings from the OSC1 rows, FX2 settings from the FX1 rows.
constexpr RowCopy kPatchRowCopies[] = {
    {1040, 1191, -576, 310, 416},
    {1192, 1343, -392, 270, 184},
};

// The multiset's FX1, Master FX and FX2 rows from the finished patch table.
constexpr RowCopy kMultiRowCopies[] = {
    {224, 463, 576, -340, -2384},
    {464, 615, 728, -430, -2384},
};

struct SectionCopy {
    int firstRow;
    int lastRow;
    int firstSource;
    int idShift;
};

constexpr SectionCopy kPatchSectionCopies[] = {{64, 72, 33, 310}, {73, 83, 46, 270}};
constexpr SectionCopy kPatchSubsectionCopies[] = {{104, 127, 51, 310}, {128, 138, 86, 270}};
constexpr SectionCopy kMultiSectionCopies[] = {{30, 40, 12, 180}};
constexpr SectionCopy kMultiSubsectionCopies[] = {{41, 51, 23, 180}};

void copyRows(const std::vector<ParamDef>& source, std::vector<ParamDef>& target, const RowCopy& copy)
{
    for (int r = copy.firstRow; r <= copy.lastRow; ++r) {
        ParamDef def = source[r + copy.sourceOffset];
        def.id = static_cast<std::int16_t>(r);
        def.sect = static_cast<std::int16_t>(def.sect + copy.sectionShift);
        def.subSect = static_cast<std::int16_t>(def.subSect + copy.sectionShift);
        def.startB = static_cast<std::int16_t>(def.startB + copy.bitShift);
        def.endB = static_cast<std::int16_t>(def.endB + copy.bitShift);
        target[r] = std::move(def);
    }
}

template <typename Entry>
void copySectionRows(std::vector<Entry>& entries, const SectionCopy& copy)
{
    for (int r = copy.firstRow; r <= copy.lastRow; ++r) {
        Entry entry;
        entry.id = static_cast<std::int16_t>(entries[copy.firstSource + r - copy.firstRow].id + copy.idShift);
        entry.name = entries[copy.firstSource + r - copy.firstRow].name;
        entries[r] = std::move(entry);
    }
}

// Parses row strings into rows first.. of a table, in order.
void parseRowsInto(std::vector<ParamDef>& rows, std::span<const char* const> strings, int first)
{
    int r = first;
    for (const char* s : strings)
        rows[r++] = parseParamRow(s);
}

template <typename Entry, typename Parse>
std::vector<Entry> parseSectionTable(std::span<const char* const> strings, int rows, Parse parse)
{
    std::vector<Entry> entries(rows + 1);
    int r = 1;
    for (const char* s : strings)
        entries[r++] = parse(s);
    return entries;
}

// Finds each section's first and last row by walking the rows upward. The
// patch rows stand in section order, so a section is entered only when its
// index rises; the multi rows do not, so there a section is entered whenever
// the index changes, and a section met twice keeps its later range.
template <typename Entry, typename KeyOf>
void walkBounds(const std::vector<ParamDef>& rows, std::vector<Entry>& entries, bool enterOnRise, KeyOf keyOf)
{
    int current = 0;
    int last = 0;
    for (int r = 1; r < static_cast<int>(rows.size()); ++r) {
        const int k = keyOf(rows[r]);
        if (k < 0 || k >= static_cast<int>(entries.size()))
            continue;
        if (enterOnRise ? k > current : k != current) {
            entries[current].lastParam = static_cast<std::int16_t>(last);
            current = k;
            entries[current].firstParam = static_cast<std::int16_t>(r);
        }
        last = r;
    }
    entries[current].lastParam = static_cast<std::int16_t>(last);
}

std::vector<std::int16_t> reverseSubsectionIndex(std::vector<SubSectionDef>& subsections)
{
    int maxId = 0;
    for (auto& s : subsections) {
        s.sect = static_cast<std::int16_t>(s.id / 10);
        maxId = std::max<int>(maxId, s.id);
    }
    std::vector<std::int16_t> index(maxId + 1, 0);
    for (int i = 1; i < static_cast<int>(subsections.size()); ++i)
        index[subsections[i].id] = static_cast<std::int16_t>(i);
    return index;
}

// Where the section tables of the patch or the multiset come from.
struct SectionSource {
    std::span<const char* const> sectionStrings;
    int sectionRows;
    std::span<const SectionCopy> sectionCopies;
    std::span<const char* const> subsectionStrings;
    int subsectionRows;
    std::span<const SectionCopy> subsectionCopies;
    bool enterOnRise;
};

// The section and subsection tables: parsed, completed by their copies, the
// parent section of each subsection and the reverse index, then the row
// bounds of sections and of subsections.
void setUpSections(const std::vector<ParamDef>& rows, const SectionSource& source, std::vector<SectionDef>& sections,
                   std::vector<SubSectionDef>& subsections, std::vector<std::int16_t>& reverse)
{
    sections = parseSectionTable<SectionDef>(source.sectionStrings, source.sectionRows, parseSectionRow);
    for (const auto& copy : source.sectionCopies)
        copySectionRows(sections, copy);
    subsections = parseSectionTable<SubSectionDef>(source.subsectionStrings, source.subsectionRows, parseSubSectionRow);
    for (const auto& copy : source.subsectionCopies)
        copySectionRows(subsections, copy);
    reverse = reverseSubsectionIndex(subsections);
    walkBounds(rows, sections, source.enterOnRise,
               [](const ParamDef& d) { return d.sect > 1 ? d.sect / 10 : -1; });
    walkBounds(rows, subsections, source.enterOnRise, [&reverse](const ParamDef& d) {
        if (d.subSect <= 1 || d.subSect >= static_cast<int>(reverse.size()))
            return -1;
        return static_cast<int>(reverse[d.subSect]);
    });
}

// Every value starts at Min when Min is above 0, else at 0; then the listed
// values are set.
ParamValues defaultsFrom(const std::vector<ParamDef>& rows, std::span<const DefaultPair> pairs)
{
    ParamValues values(rows.size(), 0);
    for (std::size_t r = 1; r < rows.size(); ++r)
        values[r] = rows[r].min > 0 ? rows[r].min : 0;
    for (const auto& pair : pairs)
        values[pair.row] = static_cast<std::int16_t>(pair.value);
    return values;
}

bool isReserved(const ParamDef& def) { return def.name == kReservedName; }

// Decode tables whose values random generation may change: plain numbers,
// levels, times, frequencies and the like. Rows of every other table (names,
// types, modulation sources, switches) are firm and keep their values.
bool tableIsRandomised(int table)
{
    static constexpr int kRandomTables[] = {0, 3, 12, 13, 18, 19, 21, 22, 23, 25, 26, 28, 29, 31, 78, 83, 84, 85, 91};
    if ((table >= 51 && table <= 59) || (table >= 61 && table <= 70))
        return true;
    return std::find(std::begin(kRandomTables), std::end(kRandomTables), table) != std::end(kRandomTables);
}

void noteIdErrors(ParamTables& t, int count, std::string_view errorsText)
{
    if (count > 0)
        t.errorTexts.push_back(tableErrorText(count, errorsText));
}

void setUpPatch(ParamTables& t)
{
    t.patch.assign(kPatchParams + 1, ParamDef{});
    const auto strings = patchRowStrings();
    parseRowsInto(t.patch, strings.first(kPatchFixedLastRow), 1);
    parseRowsInto(t.patch, strings.subspan(kPatchFixedLastRow), kPatchEffectFirstRow);
    for (int r = kPatchUnusedFirstRow; r < kPatchEffectFirstRow; ++r) {
        t.patch[r] = ParamDef{};
        t.patch[r].id = static_cast<std::int16_t>(r);
        t.patch[r].name = "not used (by Korg)";
    }
    // The fixed rows are checked in their two runs, each counted afresh.
    noteIdErrors(t, countIdMismatches(t.patch, 1, kPatchFixedLastRow), kPatchTableErrors);
    noteIdErrors(t, countIdMismatches(t.patch, kPatchEffectFirstRow, kPatchEffectLastRow), kPatchTableErrors);
    for (const auto& copy : kPatchRowCopies)
        copyRows(t.patch, t.patch, copy);

    setUpSections(t.patch,
                  {patchSectionStrings(), kPatchSectionRows, kPatchSectionCopies, patchSubsectionStrings(),
                   kPatchSubsectionRows, kPatchSubsectionCopies, true},
                  t.patchSections, t.patchSubsections, t.patchSubsectionIndex);

    t.patchDefaults = defaultsFrom(t.patch, patchDefaultPairs());
}

void setUpMulti(ParamTables& t)
{
    t.multi.assign(kMultiParams + 1, ParamDef{});
    const auto strings = multiRowStrings();
    parseRowsInto(t.multi, strings, 1);
    noteIdErrors(t, countIdMismatches(t.multi, 1, static_cast<int>(strings.size())), kMultiTableErrors);
    for (const auto& copy : kMultiRowCopies)
        copyRows(t.patch, t.multi, copy);

    setUpSections(t.multi,
                  {multiSectionStrings(), kMultiSectionRows, kMultiSectionCopies, multiSubsectionStrings(),
                   kMultiSubsectionRows, kMultiSubsectionCopies, false},
                  t.multiSections, t.multiSubsections, t.multiSubsectionIndex);

    // The multiset's effect defaults are those of the patch's FX1 rows, for
    // its FX2 rows too (patch row + 336, not the row copy's + 728).
    t.multiDefaults = defaultsFrom(t.multi, multiDefaultPairs());
    for (int r = 224; r <= 463; ++r)
        t.multiDefaults[r] = t.patchDefaults[r + 576];
    for (int r = 464; r <= kMultiParams; ++r)
        t.multiDefaults[r] = t.patchDefaults[r + 336];
}

void setUpArp(ParamTables& t)
{
    t.arp.assign(kArpParams + 1, ParamDef{});
    parseRowsInto(t.arp, arpRowStrings(), 1);
    noteIdErrors(t, countIdMismatches(t.arp, 1, kArpParams), kArpTableErrors);
    t.arpDefaults = defaultsFrom(t.arp, arpDefaultPairs());
}

void setUpFlags(ParamTables& t)
{
    t.patchFirm.assign(t.patch.size(), 0);
    t.patchHard.assign(t.patch.size(), 0);
    for (std::size_t r = 1; r < t.patch.size(); ++r) {
        const bool reserved = isReserved(t.patch[r]);
        t.patchFirm[r] = (reserved || !tableIsRandomised(t.patch[r].table)) ? -1 : 0;
        t.patchHard[r] = reserved ? -1 : 0;
    }
    t.multiHard.assign(t.multi.size(), 0);
    for (std::size_t r = 1; r < t.multi.size(); ++r)
        t.multiHard[r] = isReserved(t.multi[r]) ? -1 : 0;
}

}  // namespace

ParamTables setUpTables()
{
    ParamTables t;
    setUpPatch(t);
    setUpMulti(t);
    setUpArp(t);
    setUpFlags(t);
    return t;
}

const ParamTables& paramTables()
{
    static const ParamTables tables = setUpTables();
    return tables;
}

}  // namespace quillon

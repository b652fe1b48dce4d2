#include "model/ParamImage.h"

#include "model/BitFields.h"
#include "model/Kind.h"
#include "model/ParamTables.h"

#include <string>

namespace quillon {

namespace {

// A run of rows read and written together. Rows of a typed block are in
// force only when their Sect is that of the type in hand:
// (value of typeParam + sectionOffset) x 10.
struct RowBlock {
    int first;
    int last;
    int typeParam;  // 0: every row of the block is in force
    int sectionOffset;
};

// Common part, OSC1 settings, OSC2, FX1, FX2, Master FX.
constexpr RowBlock kPatchBlocks[] = {
    {1, 463, 0, 0},          {464, 754, 174, 33},   {1040, 1191, 188, 64},
    {800, 1003, 359, 46},    {1192, 1343, 360, 73}, {1004, 1039, 361, 61},
};

// Common part and timbres, FX1, FX2, Master FX.
constexpr RowBlock kMultiBlocks[] = {
    {1, 223, 0, 0}, {224, 427, 179, 12}, {464, 615, 180, 30}, {428, 463, 181, 27},
};

constexpr RowBlock kArpBlocks[] = {{1, 256, 0, 0}};

template <std::size_t N, typename Visit>
void forEachRowInForce(const RowBlock (&blocks)[N], const std::vector<ParamDef>& rows, const ParamValues& values,
                       Visit visit)
{
    for (const auto& block : blocks) {
        const int sect = block.typeParam ? (values[block.typeParam] + block.sectionOffset) * 10 : 0;
        for (int r = block.first; r <= block.last; ++r) {
            if (block.typeParam == 0 || rows[r].sect == sect)
                visit(r, rows[r]);
        }
    }
}

std::size_t byteIndex(const ParamDef& def) { return static_cast<std::size_t>(def.startB / 8) - 1; }

std::string rangeReport(const ParamDef& def, int from, int to)
{
    return def.name + " (" + std::to_string(def.id) + ") value changed from " + std::to_string(from) + " to " +
           std::to_string(to);
}

template <std::size_t N>
void readRows(const RowBlock (&blocks)[N], const std::vector<ParamDef>& rows, std::span<const std::uint8_t> image,
              ParamValues& values, LoadReport& report)
{
    forEachRowInForce(blocks, rows, values,
                      [&](int r, const ParamDef& def) { values[r] = readParam(def, image, report); });
}

template <std::size_t N>
void writeRows(const RowBlock (&blocks)[N], const std::vector<ParamDef>& rows, const ParamValues& values,
               std::span<std::uint8_t> image)
{
    forEachRowInForce(blocks, rows, values, [&](int r, const ParamDef& def) { writeParam(def, values[r], image); });
}

}  // namespace

std::int16_t readParam(const ParamDef& def, std::span<const std::uint8_t> image, LoadReport& report)
{
    const std::size_t at = byteIndex(def);
    if (def.startB < 8 || at >= image.size())
        return 0;
    int v = getBits(image[at], def.startB % 8, def.endB % 8);
    if (v > def.max)
        v -= 256;
    if (v > def.max) {
        report.add(rangeReport(def, v, def.max));
        v = def.max;
    }
    if (v < def.min) {
        report.add(rangeReport(def, v, def.min));
        v = def.min;
    }
    return static_cast<std::int16_t>(v);
}

void writeParam(const ParamDef& def, int value, std::span<std::uint8_t> image)
{
    const std::size_t at = byteIndex(def);
    if (def.startB < 8 || at >= image.size())
        return;
    if (value < 0)
        value += 256;
    image[at] = setBits(image[at], def.startB % 8, def.endB % 8, value);
}

void imageToPatchParams(std::span<const std::uint8_t> image, ParamValues& values, LoadReport& report)
{
    readRows(kPatchBlocks, paramTables().patch, image, values, report);
}

void imageToMultiParams(std::span<const std::uint8_t> image, ParamValues& values, LoadReport& report)
{
    readRows(kMultiBlocks, paramTables().multi, image, values, report);
}

void imageToArpParams(std::span<const std::uint8_t> image, ParamValues& values, LoadReport& report)
{
    readRows(kArpBlocks, paramTables().arp, image, values, report);
}

void patchParamsToImage(const ParamValues& values, std::span<std::uint8_t> image)
{
    writeRows(kPatchBlocks, paramTables().patch, values, image);
}

void multiParamsToImage(const ParamValues& values, std::span<std::uint8_t> image)
{
    writeRows(kMultiBlocks, paramTables().multi, values, image);
}

void arpParamsToImage(const ParamValues& values, std::span<std::uint8_t> image)
{
    writeRows(kArpBlocks, paramTables().arp, values, image);
}

void imageToParams(int kind, std::span<const std::uint8_t> image, ParamValues& values, LoadReport& report)
{
    if (kind == kPatch)
        imageToPatchParams(image, values, report);
    else if (kind == kMultiset)
        imageToMultiParams(image, values, report);
    else if (kind == kPattern)
        imageToArpParams(image, values, report);
}

void paramsToImage(int kind, const ParamValues& values, std::span<std::uint8_t> image)
{
    if (kind == kPatch)
        patchParamsToImage(values, image);
    else if (kind == kMultiset)
        multiParamsToImage(values, image);
    else if (kind == kPattern)
        arpParamsToImage(values, image);
}

std::vector<int> rowsInForce(int kind, const ParamValues& values)
{
    std::vector<int> rows;
    const auto collect = [&rows](int r, const ParamDef&) { rows.push_back(r); };
    const auto& t = paramTables();
    if (kind == kPatch)
        forEachRowInForce(kPatchBlocks, t.patch, values, collect);
    else if (kind == kMultiset)
        forEachRowInForce(kMultiBlocks, t.multi, values, collect);
    else if (kind == kPattern)
        forEachRowInForce(kArpBlocks, t.arp, values, collect);
    return rows;
}

ParamValues makeParamValues(int kind) { return ParamValues(paramCount(kind) + 1, 0); }

}  // namespace quillon

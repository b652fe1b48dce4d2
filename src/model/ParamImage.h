#pragma once

#include "model/DataTypes.h"
#include "model/LoadReport.h"
#include "model/ParamDef.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillon {

// One parameter read from the unpacked data of its item. A byte above Max
// counts as negative (two's complement); what still lies outside Min..Max is
// brought into range and reported.
std::int16_t readParam(const ParamDef& def, std::span<const std::uint8_t> image, LoadReport& report);

// One parameter written into the unpacked data. Negative values are stored in
// two's complement; bits outside the field are kept.
void writeParam(const ParamDef& def, int value, std::span<std::uint8_t> image);

// The values of all rows in force, read from a patch (576 bytes), multiset
// (208) or pattern (256) image. The type parameters are read before the
// blocks of rows that they select. Values of rows not in force are kept.
void imageToPatchParams(std::span<const std::uint8_t> image, ParamValues& values, LoadReport& report);
void imageToMultiParams(std::span<const std::uint8_t> image, ParamValues& values, LoadReport& report);
void imageToArpParams(std::span<const std::uint8_t> image, ParamValues& values, LoadReport& report);

// The values of all rows in force written into the image in the same order.
// The image is changed in place, so bits that no row in force describes keep
// what they held.
void patchParamsToImage(const ParamValues& values, std::span<std::uint8_t> image);
void multiParamsToImage(const ParamValues& values, std::span<std::uint8_t> image);
void arpParamsToImage(const ParamValues& values, std::span<std::uint8_t> image);

// The reading or writing operation of a Kind 1, 4 or 5; other kinds do
// nothing.
void imageToParams(int kind, std::span<const std::uint8_t> image, ParamValues& values, LoadReport& report);
void paramsToImage(int kind, const ParamValues& values, std::span<std::uint8_t> image);

// The rows in force for an item of kind 1, 4 or 5 with the type parameters in
// values, in the order in which they are read and written.
std::vector<int> rowsInForce(int kind, const ParamValues& values);

// A ParamValues array of the right length for kind 1, 4 or 5, all zero.
ParamValues makeParamValues(int kind);

}  // namespace quillon

#include "files/PeFile.h"

#include "files/AtomicFile.h"
#include "files/DataFolder.h"
#include "files/FactoryFiles.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <cstdint>
#include <vector>

namespace quillon {

namespace {

// The blocks of type-dependent records: knob values first to last reach the
// records of the type held by the type parameter, perType records a type,
// the block of type 0 beginning after base.
struct TypeBlock {
    int first;
    int last;
    int typeParam;
    int perType;
    int base;
};

constexpr int kCommonDestinations = 157;
constexpr TypeBlock kTypeBlocks[] = {
    {158, 178, 174, 21, 157},  // OSC1
    {179, 199, 188, 21, 430},  // OSC2
    {200, 211, 359, 12, 619},  // FX1
    {212, 223, 360, 12, 799},  // FX2
    {224, 230, 361, 7, 931},   // Master FX
};

}  // namespace

bool openPeFile(AppModel& model)
{
    const std::filesystem::path folder = model.dataFolder();
    std::vector<std::uint8_t> bytes;
    if (!restoreFromBackup(folder, kPeFile, kPeBackup) || !readWholeFile(folder / kPeFile, bytes)) {
        model.host().showMessage({"Problem reading user settings",
                                  "Please check that Quillonpe.dat is in Quillon directory", MessageIcon::Exclamation});
        return false;
    }
    model.peRecords.assign(bytes.begin(), bytes.end());
    return true;
}

int peRecordNumber(const AppModel& model, int n)
{
    if (n >= 1 && n <= kCommonDestinations)
        return n;
    const ParamValues& patch = model.buffers.of(kPatch).current;
    for (const TypeBlock& block : kTypeBlocks)
        if (n >= block.first && n <= block.last)
            return patch[static_cast<std::size_t>(block.typeParam)] * block.perType + block.base +
                   (n - (block.first - 1));
    return 0;
}

std::string peParamName(const AppModel& model, int n)
{
    if (n < 1)
        return "Off";
    const int record = peRecordNumber(model, n);
    const std::size_t start = static_cast<std::size_t>(record - 1) * kPeRecordLength;
    if (record < 1 || start + kPeRecordLength > model.peRecords.size())
        return {};
    return model.peRecords.substr(start, kPeRecordLength);
}

}  // namespace quillon

#pragma once

#include "banks/RemapLists.h"
#include "banks/RemapTable.h"
#include "editors/TimbreCaption.h"
#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <array>
#include <cstdio>
#include <string>

namespace quillon {

// 128 names "<prefix>000" ... "<prefix>127", padded to 16 characters.
inline std::array<std::string, 128> numberedNames(const std::string& prefix)
{
    std::array<std::string, 128> names;
    for (int p = 0; p < 128; ++p) {
        char number[8];
        std::snprintf(number, sizeof number, "%03d", p);
        std::string name = prefix + number;
        name.resize(16, ' ');
        names[static_cast<std::size_t>(p)] = name;
    }
    return names;
}

// A PatchBank file of these names for bank A (2) or B (3).
inline void writeBankSyx(const std::filesystem::path& path, int bank, const std::array<std::string, 128>& names)
{
    ByteImage image(static_cast<std::size_t>(byteImageSize(kPatchBankA)), 0);
    for (int p = 0; p < kPatchesPerBank; ++p) {
        ParamValues values = paramTables().patchDefaults;
        const std::string& name = names[static_cast<std::size_t>(p)];
        for (int i = 0; i < 16; ++i)
            values[static_cast<std::size_t>(i + 1)] =
                static_cast<std::int16_t>(i < static_cast<int>(name.size()) ? name[static_cast<std::size_t>(i)] : ' ');
        ByteImage patch(kPatchBytes, 0);
        patchParamsToImage(values, patch);
        std::copy(patch.begin(), patch.end(), image.begin() + p * kPatchBytes);
    }
    writeFileAtomically(path, patchBankDump(bank, 1, DATAtoMIDI(bank, image)));
}

// A list file of the data folder written with these names.
inline void writeBankListFile(const AppModel& model, int bank, int which, const std::array<std::string, 128>& names)
{
    writeLinesAtomically(bankListPath(model, bank, which), formatBankList(names));
}

// Quillonrmp.dat written with this table.
inline void writeRemapFile(const AppModel& model, const RemapTable& table)
{
    writeLinesAtomically(remapTablePath(model), formatRemapTable(table));
}

// The combined patch position timbre t (1 to 6) of the edit multiset plays,
// set as the editor sets it, the timbre on.
inline void setEditTimbre(AppModel& model, int t, int position)
{
    ParamValues& current = model.buffers.of(kMultiset).current;
    const int first = timbreFirstParam(t);
    current[first] = static_cast<std::int16_t>(position >= 128 ? 1 : 0);
    current[first + 1] = static_cast<std::int16_t>(position % 128);
    current[first + 2] = 1;
}

inline int editTimbre(const AppModel& model, int t)
{
    const ParamValues& current = model.buffers.of(kMultiset).current;
    const int first = timbreFirstParam(t);
    return (current[first] != 0 ? 128 : 0) + current[first + 1];
}

// The byte of timbre t of multiset `position` of a MultiBank.
inline std::uint8_t& bankTimbre(AppModel& model, int kind, int position, int t)
{
    return model.banks.image(kind)[static_cast<std::size_t>(position * kMultiBytes + 16 + 16 * (t - 1))];
}

}  // namespace quillon

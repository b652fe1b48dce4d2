#pragma once

#include "banks/BankSelection.h"
#include "banks/BankUndoRing.h"
#include "editors/KindFlags.h"
#include "model/DataTypes.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace quillon {

// The bank data of the instrument in memory for the life of the program: the
// two PatchBanks, the two MultiBanks and the ArpBank, as unpacked images.
// Writing a member marks the bank changed at the first byte that differs.
class BankStore {
public:
    explicit BankStore(KindFlags& flags);

    // The whole image of bank Kind 2, 3, 6, 7 or 8.
    ByteImage& image(int kind);
    const ByteImage& image(int kind) const;

    ByteImage readBankPatch(int bank, int position) const;
    ByteImage readBankMulti(int bank, int position) const;
    ByteImage readBankPattern(int position) const;

    void writeBankPatch(int bank, int position, std::span<const std::uint8_t> member);
    void writeBankMulti(int bank, int position, std::span<const std::uint8_t> member);
    void writeBankPattern(int position, std::span<const std::uint8_t> member);

    std::string bankPatchName(int bank, int position) const;
    std::string bankMultiName(int bank, int position) const;
    std::string bankPatternName(int position) const;
    int bankPatchAttribute(int bank, int position, int key) const;

    // The entries last put into a bank or taken into an editor, the default
    // entries of the Put dialog: combined positions (patch 0-255, multiset
    // 0-31) and the pattern's position.
    int lastPutPatch = 0;
    int lastPutMulti = 0;
    int lastPutPattern = 0;

    // The selection of each PatchBank in the bank view: index 0 bank A,
    // 1 bank B.
    std::array<BankSelection, 2> selections{};
    BankSelection& selection(int bank) { return selections[bank == 3 ? 1 : 0]; }
    const BankSelection& selection(int bank) const { return selections[bank == 3 ? 1 : 0]; }

    // The undo ring of bank reorderings, one for both PatchBanks.
    BankUndoRing undo;
    bool undoEmpty() const { return undo.empty(); }
    void clearUndo() { undo.clear(); }

private:
    void writeMember(int kind, int position, int memberBytes, std::span<const std::uint8_t> member);

    KindFlags& flags_;
    ByteImage patchBanks_[2];
    ByteImage multiBanks_[2];
    ByteImage arpBank_;
};

}  // namespace quillon

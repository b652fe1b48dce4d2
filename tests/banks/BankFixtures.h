#pragma once

#include "banks/BankView.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace quillon {

// Writes a name into the first 16 bytes of a patch of a bank, padded with
// blanks, straight into the image.
inline void nameBankPatch(AppModel& model, int bank, int position, const std::string& name)
{
    ByteImage& image = model.banks.image(bank);
    for (int i = 0; i < 16; ++i)
        image[static_cast<std::size_t>(position * kPatchBytes + i)] =
            static_cast<std::uint8_t>(i < static_cast<int>(name.size()) ? name[static_cast<std::size_t>(i)] : ' ');
}

// A loaded, unchanged PatchBank whose patches are named "<prefix>000" ...
// "<prefix>127" and carry their number in the last byte, so that every
// patch is told apart by its name and its data.
inline void loadNumberedBank(AppModel& model, int bank, const std::string& prefix = "P")
{
    for (int p = 0; p < kPatchesPerBank; ++p) {
        char number[8];
        std::snprintf(number, sizeof number, "%03d", p);
        nameBankPatch(model, bank, p, prefix + number);
        model.banks.image(bank)[static_cast<std::size_t>(p * kPatchBytes + kPatchBytes - 1)] =
            static_cast<std::uint8_t>(p);
    }
    model.flags.loaded[bank] = true;
    model.flags.changed[bank] = false;
}

// The trimmed names of a bank in order.
inline std::vector<std::string> bankNames(const AppModel& model, int bank)
{
    std::vector<std::string> names;
    for (int p = 0; p < kPatchesPerBank; ++p) {
        std::string name = model.banks.bankPatchName(bank, p);
        while (!name.empty() && name.back() == ' ')
            name.pop_back();
        names.push_back(name);
    }
    return names;
}

// Sets the byte that sort key 2..10 reads in a patch.
inline void setPatchKey(AppModel& model, int bank, int patch, int key, int value)
{
    static constexpr int kKeyByte[] = {0, 456, 16, 17, 154, 206, 410, 433, 312, 339, 483};
    model.banks.image(bank)[static_cast<std::size_t>(patch * kPatchBytes + kKeyByte[key])] =
        static_cast<std::uint8_t>(value);
}

// Puts the bank view on a bank, as clicking its label does.
inline void showBank(AppModel& model, int bank)
{
    model.mode = bank;
    model.bankTarget = bank;
}

// Flags the given patches of a bank and rebuilds its sequence.
void selectPatches(AppModel& model, std::initializer_list<int> patches);

// Bank A loaded with numbered patches and on show, its labels drawn.
struct BankAOnShow : ::testing::Test {
    TestModel t;
    AppModel& model = t.model;

    void SetUp() override
    {
        loadNumberedBank(model, kPatchBankA);
        showBank(model, kPatchBankA);
        fraBankLabelsSetUp(model, kPatchBankA, 0);
    }

    std::vector<std::string> names() { return bankNames(model, kPatchBankA); }

    // The flagged patches of bank A in order.
    std::vector<int> selected()
    {
        std::vector<int> patches;
        for (int p = 0; p < kPatchesPerBank; ++p) {
            if (model.banks.selection(kPatchBankA).selected(p))
                patches.push_back(p);
        }
        return patches;
    }
};

}  // namespace quillon

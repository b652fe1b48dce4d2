#include "banks/BankReorder.h"
#include "banks/BankSort.h"
#include "banks/BankUndo.h"

#include "banks/BankFixtures.h"
#include "banks/BankView.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace quillon {
namespace {

struct Snapshot {
    std::vector<std::string> names;
    std::array<std::int16_t, kBankPatches> flags;
};

Snapshot snapshot(const AppModel& model)
{
    return {bankNames(model, kPatchBankA), model.banks.selection(kPatchBankA).selectionFlags};
}

int pick(std::mt19937& random, int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }

void selectAtRandom(AppModel& model, std::mt19937& random)
{
    mnuDeselectAll(model);
    BankSelection& selection = model.banks.selection(kPatchBankA);
    const int count = pick(random, 2, 24);
    for (int i = 0; i < count; ++i)
        selection.selectionFlags[static_cast<std::size_t>(pick(random, 0, 127))] = -1;
    bankSelectSequence(model);
}

void reorderAtRandom(AppModel& model, std::mt19937& random)
{
    static constexpr int kSteps[] = {-2, -1, 1, 2};
    switch (pick(random, 0, 4)) {
    case 0: swapSelection(model, pick(random, 1, 2)); break;
    case 1: insertSelection(model, pick(random, 1, 2)); break;
    case 2: rotateSelection(model, kSteps[pick(random, 0, 3)]); break;
    case 3: sortSelection(model, pick(random, 1, kSortKeys)); break;
    default: sortBank(model, pick(random, 1, kSortKeys)); break;
    }
}

TEST(BankUndoRing, RandomReorderingsUndoneOneByOneGiveBackEachOrderAndSelection)
{
    std::mt19937 random(20261124);
    for (int run = 0; run < 60; ++run) {
        TestModel t;
        AppModel& model = t.model;
        loadNumberedBank(model, kPatchBankA);
        showBank(model, kPatchBankA);
        // Distinct names in a shuffled order, and keys in a few values, so
        // that sorts move patches and meet ties.
        std::vector<int> order(kBankPatches);
        std::iota(order.begin(), order.end(), 0);
        std::shuffle(order.begin(), order.end(), random);
        for (int p = 0; p < kBankPatches; ++p) {
            nameBankPatch(model, kPatchBankA, p, "Name " + std::to_string(order[static_cast<std::size_t>(p)]));
            for (int key = 2; key <= kSortKeys; ++key)
                setPatchKey(model, kPatchBankA, p, key, pick(random, 0, 6));
        }

        const int length = pick(random, 1, 30);
        std::vector<Snapshot> before;
        for (int step = 0; step < length; ++step) {
            selectAtRandom(model, random);
            before.push_back(snapshot(model));
            reorderAtRandom(model, random);
        }

        const int undoable = std::min(length, kUndoSlots - 1);
        for (int k = 1; k <= undoable; ++k) {
            ASSERT_FALSE(model.banks.undo.empty()) << "run " << run << ", undo " << k;
            undoBankOperation(model);
            const Snapshot& expected = before[static_cast<std::size_t>(length - k)];
            const Snapshot now = snapshot(model);
            ASSERT_EQ(now.names, expected.names) << "run " << run << ", undo " << k << " of " << length;
            ASSERT_EQ(now.flags, expected.flags) << "run " << run << ", undo " << k << " of " << length;
        }
        EXPECT_TRUE(model.banks.undo.empty());
        EXPECT_FALSE(model.bankView.undoItems[kMnuUndoBank].enabled);
    }
}

}  // namespace
}  // namespace quillon

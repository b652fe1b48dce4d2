#include "banks/BankSort.h"

#include "banks/BankReorder.h"
#include "banks/BankUndo.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <array>
#include <cctype>
#include <cstring>

namespace quillon {

namespace {

constexpr int kNameBytes = 16;
constexpr int kSortSelectionCode = 10;

using NameKey = std::array<unsigned char, kNameBytes>;

bool greaterName(const NameKey& left, const NameKey& right)
{
    return std::memcmp(left.data(), right.data(), kNameBytes) > 0;
}

template <typename Key, typename Greater>
int bubbleSort(const std::array<Key, kPatchesPerBank>& keys, std::vector<int>& patches, Greater greater)
{
    int passes = 0;
    bool sorted = false;
    while (!sorted) {
        ++passes;
        sorted = true;
        for (std::size_t i = 0; i + 1 < patches.size(); ++i) {
            if (greater(keys[static_cast<std::size_t>(patches[i])], keys[static_cast<std::size_t>(patches[i + 1])])) {
                std::swap(patches[i], patches[i + 1]);
                sorted = false;
            }
        }
    }
    return passes;
}

}  // namespace

int sortPatchesByKey(const ByteImage& bank, int key, std::vector<int>& patches)
{
    if (key == 1) {
        std::array<NameKey, kPatchesPerBank> names{};
        for (int p : patches) {
            for (int i = 0; i < kNameBytes; ++i) {
                const auto at = static_cast<std::size_t>(p) * kPatchBytes + static_cast<std::size_t>(i);
                names[static_cast<std::size_t>(p)][static_cast<std::size_t>(i)] =
                    static_cast<unsigned char>(std::tolower(at < bank.size() ? bank[at] : 0));
            }
        }
        return bubbleSort(names, patches, greaterName);
    }
    if (key >= 2 && key <= kSortKeys) {
        std::array<int, kPatchesPerBank> values{};
        for (int p : patches)
            values[static_cast<std::size_t>(p)] = bankPatchAttribute(bank, p, key);
        return bubbleSort(values, patches, [](int left, int right) { return left > right; });
    }
    return 0;
}

int sortKeyNamed(std::string_view word)
{
    static constexpr std::string_view kWords[] = {"name", "category", "group",   "osc1",    "osc2",
                                                  "fx1",  "fx2",      "filter1", "filter2", "arp"};
    for (int key = 1; key <= kSortKeys; ++key) {
        if (kWords[key - 1] == word)
            return key;
    }
    return 0;
}

void sortSelection(AppModel& model, int key)
{
    const int bank = bankToReorder(model, 2);
    if (bank == 0)
        return;
    ReorderingStep reordering(model);
    const BankSelection& selection = model.banks.selection(bank);
    const int n = selection.selectionCount;
    std::vector<int> patches(selection.selectionSequence.begin() + 1, selection.selectionSequence.begin() + 1 + n);
    sortPatchesByKey(model.banks.image(bank), key, patches);
    BankPlaces newPlace = unmovedPlaces();
    for (int i = 0; i < n; ++i)
        newPlace[static_cast<std::size_t>(patches[static_cast<std::size_t>(i)])] =
            selection.selectionSequence[static_cast<std::size_t>(i + 1)];
    const bool known = key >= 1 && key <= kSortKeys;
    finishReordering(model, bank, known ? kSortSelectionCode + key : -1, newPlace);
}

void sortBank(AppModel& model, int key)
{
    const int bank = bankToReorder(model, 0);
    if (bank == 0)
        return;
    ReorderingStep reordering(model);
    std::vector<int> patches(kPatchesPerBank);
    for (int p = 0; p < kPatchesPerBank; ++p)
        patches[static_cast<std::size_t>(p)] = p;
    sortPatchesByKey(model.banks.image(bank), key, patches);
    BankPlaces newPlace{};
    for (int i = 0; i < kPatchesPerBank; ++i)
        newPlace[static_cast<std::size_t>(patches[static_cast<std::size_t>(i)])] = static_cast<std::int16_t>(i);
    const bool known = key >= 1 && key <= kSortKeys;
    finishReordering(model, bank, known ? key : -1, newPlace);
}

}  // namespace quillon

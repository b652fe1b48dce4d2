#include "banks/RemapTable.h"

#include "files/AtomicFile.h"
#include "files/LoadFlow.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace quillon {

namespace {

constexpr int kPositions = 256;
constexpr int kTimbres = 6;
// Timbre t plays the combined position in byte 17 + 16 x (t - 1) of the
// multiset, counted from 1.
constexpr std::size_t kFirstTimbreByte = 16;
constexpr std::size_t kTimbreStride = 16;
constexpr const char* kLoadingTitle = "Loading Remap";

int lowerOf(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 'A' && byte <= 'Z' ? byte + ('a' - 'A') : byte;
}

void showBox(AppModel& model, const std::string& title, const std::string& text)
{
    MessageRequest box;
    box.title = title;
    box.text = text;
    box.icon = MessageIcon::Exclamation;
    model.host().showMessage(box);
}

}  // namespace

std::filesystem::path remapTablePath(const AppModel& model) { return model.dataFolder() / kRemapFile; }

std::string nameIgnoringCase(const std::string& name)
{
    std::string lower = name;
    for (char& c : lower)
        c = static_cast<char>(lowerOf(c));
    return lower;
}

std::array<int, 256> bubbleSortedPositions(const RemapNames& names)
{
    std::array<int, 256> order{};
    for (int i = 0; i < kPositions; ++i)
        order[static_cast<std::size_t>(i)] = i;
    // Passes that swap only where the left name is greater never pass one
    // equal name over another: what they end with is the one stable order
    // of the names, which a stable sort gives in far fewer steps.
    std::stable_sort(order.begin(), order.end(), [&names](int left, int right) {
        return names[static_cast<std::size_t>(left)] < names[static_cast<std::size_t>(right)];
    });
    return order;
}

RemapTable matchNames(const RemapNames& oldNames, const RemapNames& newNames)
{
    RemapTable table;
    table.fill(-1);
    RemapNames oldKeys;
    RemapNames newKeys;
    for (std::size_t i = 0; i < oldKeys.size(); ++i) {
        oldKeys[i] = nameIgnoringCase(oldNames[i]);
        newKeys[i] = nameIgnoringCase(newNames[i]);
    }
    const auto newOrder = bubbleSortedPositions(newKeys);
    const auto newKeyOf = [&newKeys](int position) -> const std::string& {
        return newKeys[static_cast<std::size_t>(position)];
    };
    // Walking the sorted new names from the start until one is equal or
    // greater stops at the first name not less than the old one: found by
    // halving instead. Among equal names the stable order puts the lowest
    // position first, so a name given twice still maps to its first place.
    for (std::size_t oldIndex = 0; oldIndex < oldKeys.size(); ++oldIndex) {
        const std::string& oldKey = oldKeys[oldIndex];
        const auto first = std::lower_bound(newOrder.begin(), newOrder.end(), oldKey,
                                            [&newKeyOf](int position, const std::string& key) {
                                                return newKeyOf(position) < key;
                                            });
        if (first != newOrder.end() && newKeyOf(*first) == oldKey)
            table[oldIndex] = static_cast<std::int16_t>(*first);
    }
    return table;
}

void matchNames(AppModel& model)
{
    BusyPointer busy(model.host());
    model.remap.remapTable = matchNames(model.remap.oldNames, model.remap.newNames);
}

std::vector<std::string> formatRemapTable(const RemapTable& table)
{
    std::vector<std::string> lines;
    lines.reserve(table.size());
    for (const std::int16_t value : table)
        lines.push_back(std::to_string(value));
    return lines;
}

bool parseRemapTable(const std::vector<std::string>& lines, RemapTable& table)
{
    if (lines.size() < table.size())
        return false;
    RemapTable read{};
    for (std::size_t i = 0; i < read.size(); ++i) {
        std::string_view line = lines[i];
        while (!line.empty() && line.front() == ' ')
            line.remove_prefix(1);
        while (!line.empty() && line.back() == ' ')
            line.remove_suffix(1);
        int value = 0;
        const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), value);
        if (line.empty() || error != std::errc{} || end != line.data() + line.size() || value < -1 ||
            value >= kPositions)
            return false;
        read[i] = static_cast<std::int16_t>(value);
    }
    table = read;
    return true;
}

bool saveRemapTable(AppModel& model)
{
    // A write-protected old table is replaced as well.
    if (writeLinesAtomically(remapTablePath(model), formatRemapTable(model.remap.remapTable)))
        return true;
    showBox(model, "Problem Saving Remap", "Please check that file Quillonrmp.dat is write enabled");
    return false;
}

bool loadRemapTable(AppModel& model)
{
    const auto path = remapTablePath(model);
    std::error_code error;
    if (!std::filesystem::exists(path, error)) {
        showBox(model, kLoadingTitle, "No remap created. Could not find file Quillonrmp.dat");
        return false;
    }
    std::vector<std::string> lines;
    if (!readLines(path, lines) || !parseRemapTable(lines, model.remap.remapTable)) {
        showBox(model, kLoadingTitle, "Problem reading file Quillonrmp.dat");
        return false;
    }
    return true;
}

void remapMultiImage(const RemapTable& table, std::span<std::uint8_t> multiImage)
{
    for (int t = 0; t < kTimbres; ++t) {
        const std::size_t at = kFirstTimbreByte + kTimbreStride * static_cast<std::size_t>(t);
        if (at >= multiImage.size())
            return;
        const std::int16_t mapped = table[multiImage[at]];
        multiImage[at] = static_cast<std::uint8_t>(mapped < 0 ? 0 : mapped);
    }
}

void remapMultiset(AppModel& model, int kind, int position)
{
    AppModel::Batch batch(model);
    if (kind == 0) {
        ByteImage& image = model.itemImage(kMultiset);
        multiParamsToImage(model.buffers.of(kMultiset).current, image);
        remapMultiImage(model.remap.remapTable, image);
        doPostLoad(model, kMultiset);
        model.flags.clean[kMultiset] = false;
        model.changed(kLabelsChanged);
        return;
    }
    if ((kind != kMultiBankA && kind != kMultiBankB) || position < 0 || position >= kMultisPerBank)
        return;
    ByteImage multi = model.banks.readBankMulti(kind, position);
    remapMultiImage(model.remap.remapTable, multi);
    model.banks.writeBankMulti(kind, position, multi);
    model.flags.clean[kind] = false;
    model.changed(kBanksChanged | kLabelsChanged);
}

}  // namespace quillon

#include "app/CliCommands.h"

#include "app/CliRun.h"
#include "app/CliSession.h"
#include "banks/BankSort.h"
#include "files/AtomicFile.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

// A patch of the factory defaults with a name and a category.
ByteImage patch(const std::string& name, int category)
{
    ParamValues values = paramTables().patchDefaults;
    const std::string padded = (name + std::string(16, ' ')).substr(0, 16);
    for (int i = 0; i < 16; ++i)
        values[static_cast<std::size_t>(i + 1)] = static_cast<std::int16_t>(padded[static_cast<std::size_t>(i)]);
    ByteImage image(kPatchBytes, 0);
    patchParamsToImage(values, image);
    image[16] = static_cast<std::uint8_t>(category);
    return image;
}

// Bank B of 128 patches, names in a mixed order and case, categories 0..3.
ByteImage mixedBank()
{
    static const char* const stems[] = {"pad", "Bass", "lead", "Organ", "brass", "Keys", "string", "Arp"};
    ByteImage image(byteImageSize(kPatchBankB), 0);
    for (int p = 0; p < kPatchesPerBank; ++p) {
        const int turn = (p * 37) % kPatchesPerBank;
        const std::string name = std::string(stems[turn % 8]) + " " + std::to_string(turn / 8 % 4);
        const ByteImage one = patch(name, (p * 5) % 4);
        std::copy(one.begin(), one.end(), image.begin() + static_cast<std::ptrdiff_t>(p) * kPatchBytes);
    }
    return image;
}

std::string writeBank(const TempFolder& folder, const ByteImage& image)
{
    const auto path = folder / "bank.syx";
    EXPECT_TRUE(writeFileAtomically(path, patchBankDump(kPatchBankB, 1, DATAtoMIDI(kPatchBankB, image))));
    return path.string();
}

std::vector<std::string> namesInFile(const std::string& path)
{
    CliSession session;
    std::string error;
    const auto kind = session.open(path, error);
    EXPECT_TRUE(kind) << error;
    std::vector<std::string> names;
    for (int p = 0; kind && p < kPatchesPerBank; ++p)
        names.push_back(session.model().banks.bankPatchName(*kind, p));
    return names;
}

// The order the bank view gives for a key, worked out on the image.
std::vector<std::string> expectedOrder(const ByteImage& image, int key)
{
    std::vector<int> patches(kPatchesPerBank);
    for (int p = 0; p < kPatchesPerBank; ++p)
        patches[static_cast<std::size_t>(p)] = p;
    sortPatchesByKey(image, key, patches);
    std::vector<std::string> names;
    for (int p : patches)
        names.push_back(bankPatchName(image, true, kPatchBankB, p));
    return names;
}

TEST(CliSort, ByNameGivesTheOrderOfTheBankView)
{
    TempFolder folder;
    const ByteImage image = mixedBank();
    const auto in = writeBank(folder, image);
    const auto out = (folder / "sorted.syx").string();
    const CliRun r = run(runSort, {in, "--by", "name", "--out", out});
    ASSERT_EQ(r.exitCode, kExitOk) << r.err;
    EXPECT_EQ(r.out, out + "\n");
    const auto names = namesInFile(out);
    EXPECT_EQ(names, expectedOrder(image, 1));
    EXPECT_EQ(names.front().substr(0, 5), "Arp 0");
    EXPECT_EQ(names.back().substr(0, 8), "string 3");
}

TEST(CliSort, ByCategoryKeepsTheBankOrderWithinACategory)
{
    TempFolder folder;
    const ByteImage image = mixedBank();
    const auto out = (folder / "sorted.syx").string();
    ASSERT_EQ(run(runSort, {writeBank(folder, image), "--out", out, "--by", "category"}).exitCode, kExitOk);
    const auto names = namesInFile(out);
    EXPECT_EQ(names, expectedOrder(image, 2));
    EXPECT_NE(names, namesInFile((folder / "bank.syx").string()));
}

TEST(CliSort, UnknownKeyOrMissingArgumentsAreBadUsage)
{
    TempFolder folder;
    const auto in = writeBank(folder, mixedBank());
    const auto out = (folder / "sorted.syx").string();
    EXPECT_EQ(run(runSort, {in, "--by", "colour", "--out", out}).exitCode, kExitUsage);
    EXPECT_EQ(run(runSort, {in, "--by", "name"}).exitCode, kExitUsage);
    EXPECT_EQ(run(runSort, {in, "--out", out}).exitCode, kExitUsage);
    EXPECT_EQ(run(runSort, {in, in, "--by", "name", "--out", out}).exitCode, kExitUsage);
    EXPECT_EQ(run(runSort, {}).exitCode, kExitUsage);
    EXPECT_FALSE(std::filesystem::exists(out));
}

TEST(CliSort, AFileThatCannotBeReadIsBadUsage)
{
    TempFolder folder;
    const CliRun r =
        run(runSort, {(folder / "missing.syx").string(), "--by", "name", "--out", (folder / "o.syx").string()});
    EXPECT_EQ(r.exitCode, kExitUsage);
    EXPECT_FALSE(r.err.empty());
}

TEST(CliSort, APatchFileIsDataItCannotUse)
{
    TempFolder folder;
    const auto in = folder / "patch.syx";
    ASSERT_TRUE(writeFileAtomically(in, currentPatchDump(1, DATAtoMIDI(kPatch, patch("Single", 0)))));
    const auto out = (folder / "o.syx").string();
    const CliRun r = run(runSort, {in.string(), "--by", "name", "--out", out});
    EXPECT_EQ(r.exitCode, kExitBadData);
    EXPECT_NE(r.err.find("not a PatchBank"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(out));
}

TEST(CliSort, AFileWithoutZ1DataIsDataItCannotUse)
{
    TempFolder folder;
    const auto in = folder / "noise.syx";
    ASSERT_TRUE(writeFileAtomically(in, std::vector<std::uint8_t>(5000, 0x11)));
    EXPECT_EQ(run(runSort, {in.string(), "--by", "arp", "--out", (folder / "o.syx").string()}).exitCode,
              kExitBadData);
}

}  // namespace
}  // namespace quillon

#include "app/CliCommands.h"

#include "app/CliRun.h"
#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExBytes.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quillon {
namespace {

// A patch of default values with a name and an OSC1 type.
ByteImage patch(const std::string& name, int osc1 = 0)
{
    ParamValues values = paramTables().patchDefaults;
    const std::string padded = (name + std::string(16, ' ')).substr(0, 16);
    for (int i = 0; i < 16; ++i)
        values[static_cast<std::size_t>(i + 1)] = static_cast<std::int16_t>(padded[static_cast<std::size_t>(i)]);
    ByteImage image(kPatchBytes, 0);
    patchParamsToImage(values, image);
    image[155 - 1] = static_cast<std::uint8_t>(osc1);
    return image;
}

// Patches named "<prefix> 0" ... "<prefix> 127" (or fewer), patch 5 with
// OSC1 type 2.
ByteImage patches(const std::string& prefix, int count)
{
    ByteImage image;
    for (int p = 0; p < count; ++p) {
        const ByteImage one = patch(prefix + " " + std::to_string(p), p == 5 ? 2 : 0);
        image.insert(image.end(), one.begin(), one.end());
    }
    return image;
}

void write(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes)
{
    std::filesystem::create_directories(path.parent_path());
    ASSERT_TRUE(writeFileAtomically(path, bytes));
}

struct Collection {
    TempFolder folder;
    Collection()
    {
        write(folder / "single.syx", currentPatchDump(1, DATAtoMIDI(kPatch, patch("Warm Pad"))));
        write(folder / "sub" / "deeper" / "bank.syx",
              patchBankDump(kPatchBankB, 1, DATAtoMIDI(kPatchBankB, patches("Pad", kPatchesPerBank))));
        // All Data: both PatchBanks first, then the rest of the instrument.
        ByteImage all = patches("Lead", 2 * kPatchesPerBank);
        all.resize(160064, 0);
        const std::uint8_t subHeader[] = {0x00, 0x00};
        write(folder / "all.SYX", buildSysExMessage(kFunctionAllData, subHeader, 1, packBytes(all)));
        write(folder / "notes.txt", {1, 2, 3});
    }
};

TEST(CliFind, SearchesAFolderThroughAndPrintsFilePositionPlaceAndName)
{
    Collection c;
    const CliRun r = run(runFindFiles, {c.folder.path().string(), "--name", "PAD 1"});
    EXPECT_EQ(r.exitCode, kExitOk) << r.err;
    const std::string bank = (c.folder / "sub" / "deeper" / "bank.syx").string();
    EXPECT_NE(r.out.find(bank + "\t1\tB001\tPad 1\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find(bank + "\t127\tB127\tPad 127\n"), std::string::npos);
    EXPECT_EQ(r.out.find("Warm Pad"), std::string::npos);
    EXPECT_EQ(r.out.find("Lead"), std::string::npos);
}

TEST(CliFind, AllDataPatchesAreNumberedOverBothBanks)
{
    Collection c;
    const CliRun r = run(runFindFiles, {(c.folder / "all.SYX").string(), "--last-part", "130"});
    EXPECT_EQ(r.exitCode, kExitOk) << r.err;
    EXPECT_EQ(r.out, (c.folder / "all.SYX").string() + "\t130\tB002\tLead 130\n");
}

TEST(CliFind, ASinglePatchHasNoBankPlace)
{
    Collection c;
    const CliRun r = run(runFindFiles, {c.folder.path().string(), "--any-part", "pad", "--not-name", " "});
    EXPECT_EQ(r.out, "") << "every name has a blank";
    const CliRun single = run(runFindFiles, {(c.folder / "single.syx").string(), "--starts", "warm"});
    EXPECT_EQ(single.out, (c.folder / "single.syx").string() + "\t0\t-\tWarm Pad\n");
}

TEST(CliFind, EveryConditionMustHoldAndTypesGoByNumberOrName)
{
    Collection c;
    const auto bank = (c.folder / "sub" / "deeper" / "bank.syx").string();
    const CliRun byName = run(runFindFiles, {bank, "--osc1", "vpm osc"});
    EXPECT_EQ(byName.out, bank + "\t5\tB005\tPad 5\n") << byName.err;
    const CliRun byNumber = run(runFindFiles, {bank, "--osc1", "2", "--name", "pad"});
    EXPECT_EQ(byNumber.out, byName.out);
    EXPECT_EQ(run(runFindFiles, {bank, "--osc1", "2", "--name", "lead"}).out, "");
    EXPECT_EQ(run(runFindFiles, {bank, "--bank-num", "17"}).out, bank + "\t17\tB017\tPad 17\n");
}

TEST(CliFind, ExitCodesForBadUsageAndFilesItCannotUse)
{
    Collection c;
    EXPECT_EQ(run(runFindFiles, {c.folder.path().string()}).exitCode, kExitUsage) << "no condition";
    EXPECT_EQ(run(runFindFiles, {"--name", "x"}).exitCode, kExitUsage) << "no path";
    EXPECT_EQ(run(runFindFiles, {c.folder.path().string(), "--osc1", "no such oscillator"}).exitCode, kExitUsage);
    EXPECT_EQ(run(runFindFiles, {c.folder.path().string(), "--colour", "red"}).exitCode, kExitUsage);
    EXPECT_EQ(run(runFindFiles, {"/nonexistent/folder", "--name", "x"}).exitCode, kExitUsage);
    write(c.folder / "broken.syx", std::vector<std::uint8_t>(666, 1));
    const CliRun r = run(runFindFiles, {c.folder.path().string(), "--name", "pad 12"});
    EXPECT_EQ(r.exitCode, kExitBadData);
    EXPECT_NE(r.out.find("Pad 12\n"), std::string::npos) << "the other files are still searched";
    EXPECT_NE(r.err.find("broken.syx"), std::string::npos);
}

}  // namespace
}  // namespace quillon

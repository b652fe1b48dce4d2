#include "app/CliCommands.h"

#include "app/CliRun.h"
#include "app/CliSession.h"
#include "files/AtomicFile.h"
#include "files/DataFolder.h"
#include "files/SystemSettingsFile.h"
#include "model/Kind.h"
#include "model/LoadReport.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace quillon {
namespace {

constexpr int kAttackLevel = 33;  // EG1, -99 to 99

std::size_t at(int param) { return static_cast<std::size_t>(param); }

// A patch file of the factory defaults named "Brass", Attack Level 11.
std::string writePatch(const TempFolder& folder)
{
    ParamValues values = paramTables().patchDefaults;
    const std::string name = "Brass           ";
    for (int i = 0; i < 16; ++i)
        values[at(i + 1)] = static_cast<std::int16_t>(name[at(i)]);
    values[at(kAttackLevel)] = 11;
    ByteImage image(kPatchBytes, 0);
    patchParamsToImage(values, image);
    const auto path = folder / "patch.syx";
    EXPECT_TRUE(writeFileAtomically(path, currentPatchDump(1, DATAtoMIDI(kPatch, image))));
    return path.string();
}

// A Quillonset.dat with these Random and Spread blocks, written as the
// program writes its own.
std::string writeSettings(const TempFolder& folder, const GenerationSettings& random,
                          const GenerationSettings& spread)
{
    TestModel t;
    EXPECT_TRUE(prepareDataFolder(t.folder.path()));
    EXPECT_TRUE(readSystemSettings(t.model));
    t.model.settings.random = random;
    t.model.settings.spread = spread;
    EXPECT_TRUE(saveSystemSettings(t.model));
    const auto path = folder / "Quillonset.dat";
    std::filesystem::copy_file(t.folder / "Quillonset.dat", path, std::filesystem::copy_options::overwrite_existing);
    return path.string();
}

GenerationSettings eg1At(int percent)
{
    GenerationSettings s;
    s.eg[0] = true;
    s.varEG = percent;
    return s;
}

struct GeneratedBank {
    std::vector<std::string> names;
    std::vector<ParamValues> patches;
};

GeneratedBank readBank(const std::string& path)
{
    CliSession session;
    std::string error;
    const auto kind = session.open(path, error);
    EXPECT_TRUE(kind) << error;
    GeneratedBank bank;
    for (int p = 0; kind && p < kPatchesPerBank; ++p) {
        bank.names.push_back(session.model().banks.bankPatchName(*kind, p));
        ParamValues values(at(kPatchParams + 1), 0);
        LoadReport report;
        imageToParams(kPatch, session.model().banks.readBankPatch(*kind, p), values, report);
        bank.patches.push_back(values);
    }
    return bank;
}

std::string contentOf(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(CliGenerate, RandomWithASeedTagsTheNamesAndTheSameSeedGivesTheSameBank)
{
    TempFolder folder;
    const std::string patch = writePatch(folder);
    const std::string settings = writeSettings(folder, eg1At(40), {});
    const std::string out1 = (folder / "r1.syx").string();
    const std::string out2 = (folder / "r2.syx").string();
    const std::string out3 = (folder / "r3.syx").string();
    const CliRun first = run(runRandom, {patch, "--out", out1, "--settings", settings, "--seed", "42"});
    ASSERT_EQ(first.exitCode, kExitOk) << first.err;
    EXPECT_EQ(first.out, out1 + "\n");
    ASSERT_EQ(run(runRandom, {patch, "--settings", settings, "--seed", "42", "--out", out2}).exitCode, kExitOk);
    ASSERT_EQ(run(runRandom, {patch, "--settings", settings, "--seed", "43", "--out", out3}).exitCode, kExitOk);
    EXPECT_EQ(contentOf(out1), contentOf(out2));
    EXPECT_NE(contentOf(out1), contentOf(out3));

    const GeneratedBank bank = readBank(out1);
    ASSERT_EQ(bank.names.size(), 128u);
    for (int p = 0; p < kPatchesPerBank; ++p) {
        char expected[20];
        std::snprintf(expected, sizeof expected, "Brass       R%03d", p);
        EXPECT_EQ(bank.names[at(p)], expected);
        const int attack = bank.patches[at(p)][at(kAttackLevel)];
        EXPECT_GE(attack, 11 - 40) << "patch " << p;  // 198 * 40 % = 79.2 wide
        EXPECT_LE(attack, 11 + 41) << "patch " << p;
    }
}

TEST(CliGenerate, SpreadGivesTheValuesOfTheRule)
{
    TempFolder folder;
    const std::string out = (folder / "s.syx").string();
    const CliRun result =
        run(runSpread, {writePatch(folder), "--out", out, "--settings", writeSettings(folder, {}, eg1At(50))});
    ASSERT_EQ(result.exitCode, kExitOk) << result.err;
    const GeneratedBank bank = readBank(out);
    ASSERT_EQ(bank.patches.size(), 128u);
    EXPECT_EQ(bank.patches[0][at(kAttackLevel)], -38);
    EXPECT_EQ(bank.patches[64][at(kAttackLevel)], 11);
    EXPECT_EQ(bank.patches[127][at(kAttackLevel)], 60);
    EXPECT_EQ(bank.names[127], "Brass       S127");
}

TEST(CliGenerate, SettingsThatVaryNothingAreRefusedAndNoFileIsWritten)
{
    TempFolder folder;
    const std::string out = (folder / "none.syx").string();
    const CliRun result =
        run(runSpread, {writePatch(folder), "--out", out, "--settings", writeSettings(folder, eg1At(20), {})});
    EXPECT_EQ(result.exitCode, kExitBadData);
    EXPECT_EQ(result.err, "Please check settings. Quillon thinks all spread patches will be the same\n");
    EXPECT_FALSE(std::filesystem::exists(out));
}

TEST(CliGenerate, APercentageTooLargeForARangeFailsWithOverflow)
{
    TempFolder folder;
    const std::string out = (folder / "big.syx").string();
    const CliRun result =
        run(runSpread, {writePatch(folder), "--out", out, "--settings", writeSettings(folder, {}, eg1At(166))});
    EXPECT_EQ(result.exitCode, kExitBadData);
    EXPECT_TRUE(result.err.starts_with("Overflow")) << result.err;
    EXPECT_FALSE(std::filesystem::exists(out));
}

TEST(CliGenerate, WithoutSettingsTheDataFolderOnesAreUsed)
{
    TempFolder folder;
    TempFolder home;
    writeSettings(home, {}, eg1At(50));
    const std::string out = (folder / "s.syx").string();
    setenv("QUILLON_HOME", home.path().c_str(), 1);
    const CliRun result = run(runSpread, {writePatch(folder), "--out", out});
    unsetenv("QUILLON_HOME");
    ASSERT_EQ(result.exitCode, kExitOk) << result.err;
    EXPECT_EQ(readBank(out).patches[127][at(kAttackLevel)], 60);
}

TEST(CliGenerate, BadUsageAndInputsThatAreNoPatchAreRefused)
{
    TempFolder folder;
    const std::string patch = writePatch(folder);
    const std::string settings = writeSettings(folder, eg1At(10), eg1At(10));
    EXPECT_EQ(run(runRandom, {patch}).exitCode, kExitUsage);
    EXPECT_EQ(run(runSpread, {patch, "--out", (folder / "x.syx").string(), "--seed", "3"}).exitCode, kExitUsage);
    EXPECT_EQ(run(runRandom, {patch, "--out", (folder / "x.syx").string(), "--seed", "-3"}).exitCode, kExitUsage);
    EXPECT_EQ(run(runRandom, {patch, "--out", (folder / "x.syx").string(), "--settings", (folder / "no.dat").string()})
                  .exitCode,
              kExitUsage);
    EXPECT_EQ(run(runRandom, {(folder / "missing.syx").string(), "--out", (folder / "x.syx").string()}).exitCode,
              kExitUsage);

    const std::string bank = (folder / "bank.syx").string();
    ASSERT_EQ(run(runSpread, {patch, "--out", bank, "--settings", settings}).exitCode, kExitOk);
    const CliRun fromBank = run(runSpread, {bank, "--out", (folder / "y.syx").string(), "--settings", settings});
    EXPECT_EQ(fromBank.exitCode, kExitBadData);
    EXPECT_NE(fromBank.err.find("not a patch"), std::string::npos) << fromBank.err;
}

}  // namespace
}  // namespace quillon

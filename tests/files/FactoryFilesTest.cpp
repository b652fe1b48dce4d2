#include "files/FactoryFiles.h"

#include "files/AtomicFile.h"
#include "files/DataFolder.h"
#include "files/SystemSettingsFile.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quillon {
namespace {

std::vector<std::string> fileLines(const std::filesystem::path& file)
{
    std::vector<std::string> lines;
    EXPECT_TRUE(readLines(file, lines));
    return lines;
}

TEST(FactoryFiles, FourBackupsAreWrittenIntoAnEmptyFolder)
{
    TempFolder folder;
    EXPECT_TRUE(installFactoryFiles(folder.path()));

    for (const char* name : {kSystemSettingsBackup, kUserPatchBackup, kUserMultiBackup, kPeBackup})
        EXPECT_TRUE(std::filesystem::exists(folder / name)) << name;
    // Only backups: the settings files themselves are made from them when read.
    EXPECT_FALSE(std::filesystem::exists(folder / kSystemSettingsFile));
}

TEST(FactoryFiles, SettingsBackupReadsAsTheFactorySettingsWithoutAMessage)
{
    TestModel t;
    ASSERT_TRUE(installFactoryFiles(t.folder.path()));
    EXPECT_EQ(fileLines(t.folder / kSystemSettingsBackup).size(), 50u);

    EXPECT_TRUE(readSystemSettings(t.model));
    EXPECT_EQ(t.model.settings, factorySystemSettings());
    EXPECT_TRUE(t.host.messages.empty());
}

TEST(FactoryFiles, FactorySettingsAreTheChosenOnes)
{
    const SystemSettings s = factorySystemSettings();
    EXPECT_TRUE(s.suggestNames);
    EXPECT_EQ(s.fileNameFormat, 0);
    for (std::size_t k = 1; k <= 5; ++k)
        EXPECT_EQ(s.prefixes[k], "");
    EXPECT_EQ(s.userFileNumber, 0);
    EXPECT_EQ(s.frameMode, 1);
    EXPECT_EQ(s.showMode[1], 1);
    EXPECT_EQ(s.recentFilesMax, 10);
    EXPECT_EQ(s.inputChannel, 1);
    EXPECT_EQ(s.outputChannel, 1);
    EXPECT_EQ(s.soundShow, (std::array<int, 4>{5, 1, 20, 5}));
    EXPECT_TRUE(s.graphicEnvelope);
    EXPECT_EQ(s.favourites, (std::array<int, 8>{}));
}

TEST(FactoryFiles, UserBackupsHoldTheDefaultValues)
{
    TempFolder folder;
    ASSERT_TRUE(installFactoryFiles(folder.path()));

    const std::vector<std::string> patch = fileLines(folder / kUserPatchBackup);
    const std::vector<std::string> multi = fileLines(folder / kUserMultiBackup);
    ASSERT_EQ(patch.size(), 1343u);
    ASSERT_EQ(multi.size(), 615u);
    for (std::size_t p = 1; p <= 1343; ++p)
        ASSERT_EQ(patch[p - 1], std::to_string(paramTables().patchDefaults[p])) << "parameter " << p;
    for (std::size_t p = 1; p <= 615; ++p)
        ASSERT_EQ(multi[p - 1], std::to_string(paramTables().multiDefaults[p])) << "parameter " << p;
}

TEST(FactoryFiles, PeBackupHas952RecordsOf60Characters)
{
    TempFolder folder;
    ASSERT_TRUE(installFactoryFiles(folder.path()));

    std::vector<std::uint8_t> bytes;
    ASSERT_TRUE(readWholeFile(folder / kPeBackup, bytes));
    ASSERT_EQ(bytes.size(), 952u * 60u);
    const std::string records(bytes.begin(), bytes.end());
    EXPECT_EQ(records.substr(0, 60), "Common Pitch Mod.Int." + std::string(39, ' '));
    EXPECT_EQ(records.substr(951 * 60, 32), "[MFX Rvb-Room] Model parameter 7");
    EXPECT_EQ(records.find('\n'), std::string::npos);
}

TEST(FactoryFiles, PeNamesAreNumberedWithoutAGapAndFitARecord)
{
    const auto names = peDestinationNames();
    ASSERT_EQ(names.size(), 952u);
    for (const char* name : names)
        EXPECT_LE(std::string(name).size(), 60u) << name;
    EXPECT_STREQ(names[4], "[OSC1] Octave");
    EXPECT_STREQ(names[156], "Unison Detune");
    EXPECT_STREQ(names[157], "[OSC1 Standard OSC] Model parameter 1");
}

TEST(FactoryFiles, PresentFilesAreLeftAlone)
{
    TempFolder folder;
    ASSERT_TRUE(writeLinesAtomically(folder / kUserPatchBackup, {"mine"}));

    EXPECT_TRUE(installFactoryFiles(folder.path()));
    EXPECT_EQ(fileLines(folder / kUserPatchBackup), std::vector<std::string>{"mine"});
    EXPECT_EQ(fileLines(folder / kUserMultiBackup).size(), 615u);
}

TEST(FactoryFiles, AFolderThatCannotTakeThemIsReported)
{
    TempFolder folder;
    ASSERT_TRUE(writeLinesAtomically(folder / "not a folder", {"x"}));
    EXPECT_FALSE(installFactoryFiles(folder / "not a folder"));
}

}  // namespace
}  // namespace quillon

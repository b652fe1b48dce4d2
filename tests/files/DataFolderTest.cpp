#include "files/DataFolder.h"

#include "files/AtomicFile.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>

namespace quillon {
namespace {

// Sets QUILLON_HOME for one test and puts back what was there.
class DataFolderVariable {
public:
    explicit DataFolderVariable(const char* value)
    {
        if (const char* old = std::getenv(kDataFolderVariable))
            old_ = old;
        set(value);
    }
    ~DataFolderVariable() { set(old_ ? old_->c_str() : nullptr); }

private:
    static void set(const char* value)
    {
#ifdef _WIN32
        _putenv_s(kDataFolderVariable, value ? value : "");
#else
        if (value)
            setenv(kDataFolderVariable, value, 1);
        else
            unsetenv(kDataFolderVariable);
#endif
    }
    std::optional<std::string> old_;
};

TEST(DataFolder, QuillonHomeWinsOverThePlatformFolder)
{
    DataFolderVariable home("/srv/quillon");
    EXPECT_EQ(chooseDataFolder("/home/me/.local/share/Quillon"), std::filesystem::path("/srv/quillon"));
}

TEST(DataFolder, WithoutQuillonHomeThePlatformFolderIsUsed)
{
    DataFolderVariable home(nullptr);
    EXPECT_EQ(chooseDataFolder("/home/me/.local/share/Quillon"), std::filesystem::path("/home/me/.local/share/Quillon"));
}

TEST(DataFolder, AnEmptyQuillonHomeCountsAsUnset)
{
    DataFolderVariable home("");
    EXPECT_EQ(chooseDataFolder("/home/me/.local/share/Quillon"), std::filesystem::path("/home/me/.local/share/Quillon"));
}

TEST(DataFolder, FirstStartMakesTheFolderWithTheFactoryFiles)
{
    TempFolder parent;
    const std::filesystem::path folder = parent / "deep" / "Quillon";

    EXPECT_TRUE(prepareDataFolder(folder));
    for (const char* name : {kSystemSettingsBackup, kUserPatchBackup, kUserMultiBackup, kPeBackup})
        EXPECT_TRUE(std::filesystem::exists(folder / name)) << name;
}

TEST(DataFolder, RestoringFromTheBackupLeavesAPresentFileAlone)
{
    TempFolder folder;
    ASSERT_TRUE(writeLinesAtomically(folder / "a.dat", {"mine"}));
    ASSERT_TRUE(writeLinesAtomically(folder / "a.bkp", {"factory"}));

    EXPECT_TRUE(restoreFromBackup(folder.path(), "a.dat", "a.bkp"));
    std::vector<std::string> lines;
    ASSERT_TRUE(readLines(folder / "a.dat", lines));
    EXPECT_EQ(lines, std::vector<std::string>{"mine"});
}

TEST(DataFolder, RestoringWithoutABackupFails)
{
    TempFolder folder;
    EXPECT_FALSE(restoreFromBackup(folder.path(), "a.dat", "a.bkp"));
    EXPECT_FALSE(std::filesystem::exists(folder / "a.dat"));
}

TEST(DataFolder, UserPatchFilesAreNumbered)
{
    EXPECT_EQ(userPatchFileName(0), "Quillonusr0.dat");
    EXPECT_EQ(userPatchFileName(5), "Quillonusr5.dat");
}

TEST(DataFolder, FolderTextEndsInOneSeparator)
{
    const char separator = static_cast<char>(std::filesystem::path::preferred_separator);
    const std::string folder = std::string("quillon") + separator + "data";
    EXPECT_EQ(folderWithSeparator(folder), folder + separator);
    EXPECT_EQ(folderWithSeparator(folder + separator), folder + separator);
}

}  // namespace
}  // namespace quillon

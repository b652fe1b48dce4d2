#include "files/RecentFiles.h"

#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace quillon {
namespace {

// "f<i>.syx", built by appending: GCC 12 warns wrongly about
// "literal" + std::to_string(...) here.
std::string numberedFile(int i)
{
    std::string name = "f";
    name += std::to_string(i);
    name += ".syx";
    return name;
}


struct RecentFiles : ::testing::Test {
    TestModel t;
    AppModel& model = t.model;

    void add(const std::string& path)
    {
        std::string entry = path;
        recentFilesUpdate(model, 1, entry);
    }

    int entries() const
    {
        int n = 0;
        for (int i = 1; i <= kRecentFiles; ++i)
            n += model.recentFiles[i].empty() ? 0 : 1;
        return n;
    }
};

const char kSep = static_cast<char>(std::filesystem::path::preferred_separator);

std::string inFolder(const std::string& name) { return std::string("d:") + kSep + name; }

TEST_F(RecentFiles, NewFileGoesFirstAndTheMenuShowsIt)
{
    RecordingObserver observer;
    model.addObserver(&observer);
    add(inFolder("one.syx"));
    add(inFolder("two.syx"));
    model.removeObserver(&observer);

    EXPECT_EQ(model.recentFiles[1], inFolder("two.syx"));
    EXPECT_EQ(model.recentFiles[2], inFolder("one.syx"));
    EXPECT_EQ(model.settings.recentFilesShown, 2);
    EXPECT_EQ(model.recentMenu[1], inFolder("two.syx"));
    EXPECT_EQ(model.recentMenu[2], inFolder("one.syx"));
    EXPECT_TRUE(model.recentMenu[3].empty());
    EXPECT_TRUE(model.recentSeparatorVisible);
    EXPECT_TRUE(observer.all & kRecentFilesChanged);
}

TEST_F(RecentFiles, FileOpenedAgainMovesToTheTopIgnoringCase)
{
    add(inFolder("one.syx"));
    add(inFolder("two.syx"));
    add(inFolder("ONE.SYX"));
    EXPECT_EQ(model.recentFiles[1], inFolder("ONE.SYX"));
    EXPECT_EQ(model.recentFiles[2], inFolder("two.syx"));
    EXPECT_TRUE(model.recentFiles[3].empty());
    EXPECT_EQ(model.settings.recentFilesShown, 2);
}

TEST_F(RecentFiles, EmptyPathChangesNothing)
{
    add(inFolder("one.syx"));
    add("");
    EXPECT_EQ(entries(), 1);
    EXPECT_EQ(model.settings.recentFilesShown, 1);
}

TEST_F(RecentFiles, ListKeepsTwentyAndTheMenuShowsAtMostTheSetting)
{
    model.settings.recentFilesMax = 4;
    for (int i = 1; i <= 25; ++i)
        add(inFolder(numberedFile(i)));
    EXPECT_EQ(entries(), 20);
    EXPECT_EQ(model.recentFiles[1], inFolder("f25.syx"));
    EXPECT_EQ(model.recentFiles[20], inFolder("f6.syx"));
    EXPECT_EQ(model.settings.recentFilesShown, 4);
    EXPECT_FALSE(model.recentMenu[4].empty());
    EXPECT_TRUE(model.recentMenu[5].empty());
}

TEST_F(RecentFiles, ClearingEmptiesTheListAndHidesTheSeparator)
{
    add(inFolder("one.syx"));
    std::string path = inFolder("one.syx");
    recentFilesUpdate(model, 0, path);
    EXPECT_EQ(path, "xxyxxz");
    EXPECT_EQ(entries(), 0);
    EXPECT_EQ(model.settings.recentFilesShown, 0);
    EXPECT_TRUE(model.recentMenu[1].empty());
    EXPECT_FALSE(model.recentSeparatorVisible);
}

TEST_F(RecentFiles, RemovingAFileClosesTheGap)
{
    add(inFolder("a.syx"));
    add(inFolder("b.syx"));
    add(inFolder("c.syx"));
    std::string path = inFolder("B.syx");
    recentFilesUpdate(model, 2, path);
    EXPECT_EQ(model.recentFiles[1], inFolder("c.syx"));
    EXPECT_EQ(model.recentFiles[2], inFolder("a.syx"));
    EXPECT_TRUE(model.recentFiles[3].empty());
    EXPECT_EQ(model.settings.recentFilesShown, 2);
    EXPECT_TRUE(model.recentMenu[3].empty());
}

TEST_F(RecentFiles, RemovingFindsTheFirstMatchOnly)
{
    model.recentFiles[1] = "x";
    model.recentFiles[2] = "y";
    model.recentFiles[3] = "x";
    model.settings.recentFilesShown = 3;
    std::string path = "X";
    recentFilesUpdate(model, 2, path);
    EXPECT_EQ(model.recentFiles[1], "y");
    EXPECT_EQ(model.recentFiles[2], "x");
    EXPECT_EQ(model.settings.recentFilesShown, 2);
}

TEST_F(RecentFiles, ShowingAsManyAsTheSettingAllows)
{
    model.settings.recentFilesMax = 2;
    for (int i = 1; i <= 5; ++i)
        add(inFolder(numberedFile(i)));
    ASSERT_EQ(model.settings.recentFilesShown, 2);
    model.settings.recentFilesMax = 10;
    std::string path;
    recentFilesUpdate(model, 3, path);
    EXPECT_EQ(path, "xxyxxz");
    EXPECT_EQ(model.settings.recentFilesShown, 5) << "as many as there are, up to the setting";
    EXPECT_FALSE(model.recentMenu[5].empty());
    EXPECT_EQ(entries(), 5);
}

TEST_F(RecentFiles, SetupCaptionsTheStoredListUpToTheSetting)
{
    for (int i = 1; i <= 6; ++i)
        model.recentFiles[i] = inFolder(numberedFile(i));
    model.settings.recentFilesShown = 8;
    model.settings.recentFilesMax = 5;
    recentFilesSetup(model);
    EXPECT_EQ(model.settings.recentFilesShown, 5);
    EXPECT_EQ(model.recentMenu[5], inFolder("f5.syx"));
    EXPECT_TRUE(model.recentMenu[6].empty());
    EXPECT_TRUE(model.recentSeparatorVisible);
}

TEST_F(RecentFiles, SetupWithNothingShownHidesTheSeparator)
{
    model.recentFiles[1] = inFolder("f.syx");
    model.settings.recentFilesShown = 0;
    recentFilesSetup(model);
    EXPECT_TRUE(model.recentMenu[1].empty());
    EXPECT_FALSE(model.recentSeparatorVisible);
}

TEST(RecentFilesPath, ShortPathsStandAsTheyAre)
{
    const std::string forty(40, 'a');
    EXPECT_EQ(shortenPath(forty), forty);
    EXPECT_EQ(shortenPath("C:"), "C:");
}

TEST(RecentFilesPath, LongPathKeepsItsStartAndItsTailFromASeparator)
{
    // 45 characters; the last 35 begin "aaaaa" and the separator at their
    // sixth place.
    const std::string path = std::string("C:") + kSep + std::string(12, 'a') + kSep + std::string(25, 'c') + ".syx";
    ASSERT_EQ(path.size(), 45u);
    EXPECT_EQ(shortenPath(path), std::string("C:") + kSep + ".." + kSep + std::string(25, 'c') + ".syx");
}

TEST(RecentFilesPath, SeparatorPastThe19thPlaceOfTheTailIsNotUsed)
{
    // The first separator of the last 35 characters stands at their 20th.
    const std::string path = std::string(10, 'a') + std::string(19, 'b') + kSep + std::string(11, 'c') + ".syx";
    ASSERT_EQ(path.size(), 45u);
    EXPECT_EQ(shortenPath(path), std::string("aaa..") + path.substr(10));
}

TEST(RecentFilesPath, SeparatorAtThe19thPlaceIsUsed)
{
    const std::string path = std::string(11, 'a') + std::string(17, 'b') + kSep + std::string(12, 'c') + ".syx";
    ASSERT_EQ(path.size(), 45u);
    EXPECT_EQ(shortenPath(path), std::string("aaa..") + kSep + std::string(12, 'c') + ".syx");
}

TEST(RecentFilesPath, FortyOneCharactersAreShortened)
{
    const std::string path(41, 'z');
    EXPECT_EQ(shortenPath(path), "zzz.." + std::string(35, 'z'));
}

}  // namespace
}  // namespace quillon

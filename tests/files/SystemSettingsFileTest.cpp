#include "files/SystemSettingsFile.h"

#include "files/AtomicFile.h"
#include "files/DataFolder.h"
#include "files/FactoryFiles.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace quillon {
namespace {

// Settings in which every value differs from a fresh program's, so that a
// round trip shows each one.
SystemSettings everySettingChanged()
{
    SystemSettings s;
    s.takeStoredView = true;
    s.storedFrameMode = 3;
    s.frameMode = 2;
    for (std::size_t k = 1; k <= 5; ++k) {
        s.storedShowMode[k] = static_cast<int>(k) + 1;
        s.showMode[k] = static_cast<int>(k) + 6;
    }
    s.favourites = {13, 16, 38, 40, 42, 2, 138, 0};
    s.suggestNames = true;
    s.fileNameFormat = 9;
    s.prefixes = {"", "pch_", "bnk ", "mlt-", "arp", "oth"};
    s.userFileNumber = 5;
    s.random.eg = {true, false, true, false};
    s.random.lfo = {false, true, false, true};
    s.random.osc = {true, true, false, false};
    s.random.fx = {true, false};
    s.random.filter = {false, true};
    s.random.varEG = 1;
    s.random.varLFO = 2;
    s.random.varOSC = 3;
    s.random.varSONO = 4;
    s.random.varFX = 5;
    s.random.varFilter = 6;
    s.random.resetAll = 100;
    s.random.modInt = true;
    s.random.ampEG = false;
    s.random.css = true;
    s.random.varModInt = 7;
    s.random.varAmpEG = 8;
    s.random.varCSS = 9;
    s.random.modIntChoice = 11;
    s.spread.eg = {false, true, false, true};
    s.spread.lfo = {true, false, true, false};
    s.spread.osc = {false, false, true, true};
    s.spread.fx = {false, true};
    s.spread.filter = {true, false};
    s.spread.varEG = 91;
    s.spread.varLFO = 92;
    s.spread.varOSC = 93;
    s.spread.varSONO = 94;
    s.spread.varFX = 95;
    s.spread.varFilter = 96;
    s.spread.resetAll = 97;
    s.spread.modInt = false;
    s.spread.ampEG = true;
    s.spread.css = false;
    s.spread.varModInt = 98;
    s.spread.varAmpEG = 99;
    s.spread.varCSS = 100;
    s.spread.modIntChoice = 12;
    s.inputDevice = 2;
    s.outputDevice = 4;
    s.inputChannel = 16;
    s.outputChannel = 7;
    s.toneLength = 50;
    s.toneVelocity = 127;
    s.tonePitch = 72;
    s.soundShow = {9, 3, 40, 2};
    s.graphicEnvelope = true;
    s.modulationShow = true;
    s.recentFilesShown = 4;
    s.recentFilesMax = 6;
    s.extractFolder = "/music/extracted";
    s.listFolder = "/music/lists";
    s.helpFolder = "/opt/quillon/help/";
    s.find.textOption = 4;
    s.find.typeOption = 10;
    s.find.typeValue = 127;
    s.find.text = "warm pad";
    s.find.recentTexts = {"warm pad", "bell", "Lead 2", "a", "b", "c", "d", "e", "f", "last"};
    return s;
}

void writeSettingsFile(const std::filesystem::path& file, const std::vector<std::string>& lines)
{
    ASSERT_TRUE(writeLinesAtomically(file, lines));
}

// The lines of a good file, for tests that spoil one of them.
std::vector<std::string> goodLines() { return systemSettingsLines(everySettingChanged()); }

TEST(SystemSettingsFile, WithoutTheFileTheBackupIsCopiedAndRead)
{
    TestModel t;
    writeSettingsFile(t.folder / kSystemSettingsBackup, goodLines());
    ASSERT_FALSE(std::filesystem::exists(t.folder / kSystemSettingsFile));

    EXPECT_TRUE(readSystemSettings(t.model));

    std::vector<std::string> copied;
    ASSERT_TRUE(readLines(t.folder / kSystemSettingsFile, copied));
    EXPECT_EQ(copied, goodLines());
    EXPECT_EQ(t.model.settings.userFileNumber, 5);
    EXPECT_EQ(t.model.settings.random.varFilter, 6);
}

TEST(SystemSettingsFile, Line15Of22CharactersStopsTheReadingThere)
{
    TestModel t;
    std::vector<std::string> lines = goodLines();
    lines[14].pop_back();
    writeSettingsFile(t.folder / kSystemSettingsFile, lines);
    t.host.expectMessage("Quillon", Answer::Ok, "Error reading user settings. Line 15 22 [23]");

    EXPECT_FALSE(readSystemSettings(t.model));

    const SystemSettings factory = factorySystemSettings();
    const SystemSettings wanted = everySettingChanged();
    // What came before line 15 stands...
    EXPECT_EQ(t.model.settings.favourites, wanted.favourites);
    EXPECT_EQ(t.model.settings.prefixes, wanted.prefixes);
    EXPECT_EQ(t.model.settings.userFileNumber, 5);
    // ...and nothing from line 15 on is taken: with no factory file beside
    // it, the factory values the program ships stand there.
    EXPECT_EQ(t.model.settings.random, factory.random);
    EXPECT_EQ(t.model.settings.spread, factory.spread);
    EXPECT_EQ(t.model.settings.outputChannel, factory.outputChannel);
    EXPECT_EQ(t.model.settings.recentFilesMax, factory.recentFilesMax);
}

TEST(SystemSettingsFile, ABadLineTakesTheSettingsAfterItFromTheFactoryFile)
{
    TestModel t;
    SystemSettings backup = factorySystemSettings();
    backup.outputDevice = 3;
    backup.inputDevice = 2;
    backup.toneVelocity = 77;
    backup.random.eg = {true, false, true, true};
    backup.spread.varOSC = 42;
    backup.recentFilesMax = 7;
    writeSettingsFile(t.folder / kSystemSettingsBackup, systemSettingsLines(backup));
    std::vector<std::string> lines = goodLines();
    lines[14].pop_back();
    writeSettingsFile(t.folder / kSystemSettingsFile, lines);
    t.host.expectMessage("Quillon", Answer::Ok, "Error reading user settings. Line 15 22 [23]");

    EXPECT_FALSE(readSystemSettings(t.model));

    EXPECT_EQ(t.model.settings.userFileNumber, 5) << "read before the bad line";
    EXPECT_EQ(t.model.settings.prefixes, everySettingChanged().prefixes);
    EXPECT_EQ(t.model.settings.outputDevice, 3);
    EXPECT_EQ(t.model.settings.inputDevice, 2);
    EXPECT_EQ(t.model.settings.toneVelocity, 77);
    EXPECT_EQ(t.model.settings.random.eg, backup.random.eg);
    EXPECT_EQ(t.model.settings.spread.varOSC, 42);
    EXPECT_EQ(t.model.settings.recentFilesMax, 7);
    // So the next exit writes the factory file's values, not zeros.
    const std::vector<std::string> written = systemSettingsLines(t.model.settings);
    EXPECT_EQ(written[19], systemSettingsLines(backup)[19]);
    EXPECT_EQ(written[14], systemSettingsLines(backup)[14]);
}

TEST(SystemSettingsFile, Line22OfTheWrongLengthGivesTheDefaultsAndNoMessage)
{
    for (const std::string& line22 : {std::string(), std::string("!!!"), std::string("!!!!!")}) {
        TestModel t;
        std::vector<std::string> lines = goodLines();
        lines[21] = line22;
        writeSettingsFile(t.folder / kSystemSettingsFile, lines);
        t.model.settings.soundShow = {1, 2, 3, 4};

        EXPECT_TRUE(readSystemSettings(t.model));

        EXPECT_EQ(t.model.settings.soundShow, (std::array<int, 4>{5, 1, 20, 5}));
        // The lines after it are still read.
        EXPECT_TRUE(t.model.settings.graphicEnvelope);
        EXPECT_EQ(t.model.settings.recentFilesMax, 6);
        EXPECT_TRUE(t.host.messages.empty());
    }
}

TEST(SystemSettingsFile, EverySettingSurvivesSaveAndRead)
{
    TestModel t;
    t.model.settings = everySettingChanged();
    EXPECT_TRUE(saveSystemSettings(t.model));

    AppModel later(t.host, t.store, t.folder.path());
    ASSERT_NE(later.settings, everySettingChanged());
    readPersistentLists(later);
    EXPECT_TRUE(readSystemSettings(later));

    EXPECT_EQ(later.settings, everySettingChanged());
    EXPECT_TRUE(t.host.messages.empty());
}

TEST(SystemSettingsFile, AFileWithoutFindsLinesGivesFindsDefaultsQuietly)
{
    TestModel t;
    std::vector<std::string> lines = goodLines();
    for (int line : {10, 11, 12, 40, 41, 49})
        lines[static_cast<std::size_t>(line - 1)].clear();
    writeSettingsFile(t.folder / kSystemSettingsFile, lines);
    EXPECT_TRUE(readSystemSettings(t.model));
    EXPECT_EQ(t.model.settings.find, FindSettings{});
    EXPECT_TRUE(t.host.messages.empty());
}

TEST(SystemSettingsFile, LowestAndHighestValuesSurviveSaveAndRead)
{
    TestModel t;
    SystemSettings s = everySettingChanged();
    s.favourites = {138, 0, 1, 0, 0, 0, 0, 137};
    s.inputDevice = -1;  // no device chosen
    s.outputDevice = 200;
    s.inputChannel = 1;
    s.outputChannel = 16;
    s.random.varEG = 0;
    s.spread.varCSS = 100;
    s.random.modIntChoice = -1;
    s.soundShow = {0, 0, 100, 100};
    s.recentFilesShown = 10;
    s.recentFilesMax = 10;
    t.model.settings = s;
    ASSERT_TRUE(saveSystemSettings(t.model));

    AppModel later(t.host, t.store, t.folder.path());
    readPersistentLists(later);
    EXPECT_TRUE(readSystemSettings(later));
    EXPECT_EQ(later.settings, s);
}

TEST(SystemSettingsFile, FileHasFiftyLinesOfOneCharacterANumber)
{
    SystemSettings s;
    s.takeStoredView = true;
    s.storedFrameMode = 2;
    s.frameMode = 3;
    s.favourites = {0, 13, 0, 0, 0, 0, 0, 1};
    s.suggestNames = false;
    s.fileNameFormat = 7;
    s.prefixes[1] = "Z1 ";
    s.inputChannel = 1;
    s.outputChannel = 10;
    s.soundShow = {5, 1, 20, 5};
    s.recentFilesShown = 3;
    s.recentFilesMax = 10;

    const std::vector<std::string> lines = systemSettingsLines(s);

    ASSERT_EQ(lines.size(), 50u);
    EXPECT_EQ(lines[0].substr(0, 3), "!\"#");
    EXPECT_EQ(lines[1], " - \x20\x20\x20\x20!");  // a blank for an empty favourite
    EXPECT_EQ(lines[2], " ");
    EXPECT_EQ(lines[3], "'");
    EXPECT_EQ(lines[4], "Z1 ");
    EXPECT_EQ(lines[19].substr(2), " )");  // channels 1 and 10 as their places 0 and 9
    EXPECT_EQ(lines[21], "%!4%");
    EXPECT_EQ(lines[29], "#*");
    EXPECT_EQ(lines[9], "  ");  // Find's options, both 0
    EXPECT_EQ(lines[10], "0");  // the row of Find's type list
    for (int line : {12, 14, 19, 23, 24, 26, 27, 28, 29, 31, 40, 50})
        EXPECT_TRUE(lines[static_cast<std::size_t>(line - 1)].empty()) << "line " << line;
}

TEST(SystemSettingsFile, GenerationFlagsAreOnOnlyForTheExclamationMark)
{
    TestModel t;
    std::vector<std::string> lines = goodLines();
    lines[14].replace(0, 4, "!\"# ");  // 1, 2, 3 and 0
    writeSettingsFile(t.folder / kSystemSettingsFile, lines);

    EXPECT_TRUE(readSystemSettings(t.model));
    EXPECT_EQ(t.model.settings.random.eg, (std::array<bool, 4>{true, false, false, false}));
}

TEST(SystemSettingsFile, WrongLengthOfTheFirstLineTakesNothing)
{
    TestModel t;
    std::vector<std::string> lines = goodLines();
    lines[0] += "!";
    writeSettingsFile(t.folder / kSystemSettingsFile, lines);
    t.host.expectMessage("Quillon", Answer::Ok, "Error reading user settings. Line 1 14 [13]");

    EXPECT_FALSE(readSystemSettings(t.model));
    EXPECT_EQ(t.model.settings, factorySystemSettings());
}

TEST(SystemSettingsFile, WrongLengthOfTheLastLineKeepsEverythingBefore)
{
    TestModel t;
    std::vector<std::string> lines = goodLines();
    lines[29] = "";
    writeSettingsFile(t.folder / kSystemSettingsFile, lines);
    t.host.expectMessage("Quillon", Answer::Ok, "Error reading user settings. Line 30 0 [2]");

    EXPECT_FALSE(readSystemSettings(t.model));
    EXPECT_EQ(t.model.settings.soundShow, everySettingChanged().soundShow);
    EXPECT_TRUE(t.model.settings.modulationShow);
    EXPECT_EQ(t.model.settings.recentFilesMax, factorySystemSettings().recentFilesMax);
}

TEST(SystemSettingsFile, AUserFileNumberBeyondFiveIsAReadingProblem)
{
    TestModel t;
    std::vector<std::string> lines = goodLines();
    lines[12] = ")";  // 9
    writeSettingsFile(t.folder / kSystemSettingsFile, lines);
    t.host.expectMessage("Problem reading system settings", Answer::Ok,
                         "Please check that file Quillonset.dat is in Quillon directory");

    EXPECT_FALSE(readSystemSettings(t.model));
    EXPECT_EQ(t.model.settings.userFileNumber, 0);
    EXPECT_EQ(t.model.settings.fileNameFormat, 9);  // line 4 came before
}

TEST(SystemSettingsFile, NoFileAndNoBackupIsAReadingProblem)
{
    TestModel t;
    t.host.expectMessage("Problem reading system settings", Answer::Ok,
                         "Please check that file Quillonset.dat is in Quillon directory");

    EXPECT_FALSE(readSystemSettings(t.model));
    EXPECT_EQ(t.model.settings, SystemSettings{});
}

TEST(SystemSettingsFile, UnreadableBackupIsAReadingProblem)
{
    TestModel t;
    std::filesystem::create_directory(t.folder / kSystemSettingsBackup);
    t.host.expectMessage("Problem reading system settings", Answer::Ok,
                         "Please check that file Quillonset.dat is in Quillon directory");

    EXPECT_FALSE(readSystemSettings(t.model));
    EXPECT_EQ(t.model.settings, SystemSettings{});
}

TEST(SystemSettingsFile, FileOfFewerThanFiftyLinesIsAReadingProblem)
{
    TestModel t;
    std::vector<std::string> lines = goodLines();
    lines.resize(40);
    writeSettingsFile(t.folder / kSystemSettingsFile, lines);
    t.host.expectMessage("Problem reading system settings", Answer::Ok,
                         "Please check that file Quillonset.dat is in Quillon directory");

    EXPECT_FALSE(readSystemSettings(t.model));
    EXPECT_EQ(t.model.settings, SystemSettings{});
}

TEST(SystemSettingsFile, WriteProtectedFileIsSavedAllTheSame)
{
    TestModel t;
    writeSettingsFile(t.folder / kSystemSettingsFile, std::vector<std::string>(50));
    std::filesystem::permissions(t.folder / kSystemSettingsFile, std::filesystem::perms::owner_read);
    t.model.settings = everySettingChanged();

    EXPECT_TRUE(saveSystemSettings(t.model));

    std::vector<std::string> lines;
    ASSERT_TRUE(readLines(t.folder / kSystemSettingsFile, lines));
    EXPECT_EQ(lines, goodLines());
}

TEST(SystemSettingsFile, FailedSaveShowsItsBoxAndStillKeepsTheLists)
{
    TestModel t;
    std::filesystem::create_directories(t.folder / kSystemSettingsFile / "in the way");
    t.model.recentFiles[1] = "/music/latest.syx";
    t.host.expectMessage("Problem saving system settings", Answer::Ok,
                         "Please check that file Quillonset.dat is write enabled");

    EXPECT_FALSE(saveSystemSettings(t.model));
    EXPECT_EQ(t.store.read("Recent files", "01"), "/music/latest.syx");
}

TEST(PersistentLists, RecentFilesAndFoldersAreReadFromTheStore)
{
    TestModel t;
    t.store.write("Recent files", "01", "/music/a.syx");
    t.store.write("Recent files", "02", "/music/b.syx");
    t.store.write("Recent files", "20", "/music/t.syx");
    t.store.write("Folders", "01", "/music");
    t.store.write("Folders", "02", "/music/out");
    t.store.write("Folders", "03", "/music/lists");
    t.store.write("Folders", "04", "/help/");

    readPersistentLists(t.model);

    EXPECT_EQ(t.model.recentFiles[1], "/music/a.syx");
    EXPECT_EQ(t.model.recentFiles[2], "/music/b.syx");
    EXPECT_EQ(t.model.recentFiles[3], "");
    EXPECT_EQ(t.model.recentFiles[20], "/music/t.syx");
    EXPECT_EQ(t.model.workFolder, "/music");
    EXPECT_EQ(t.model.settings.extractFolder, "/music/out");
    EXPECT_EQ(t.model.settings.listFolder, "/music/lists");
    EXPECT_EQ(t.model.settings.helpFolder, "/help/");
}

TEST(PersistentLists, AbsentHelpFolderIsTheDataFolderWithASeparator)
{
    TestModel t;
    readPersistentLists(t.model);

    const std::string expected =
        t.folder.path().string() + static_cast<char>(std::filesystem::path::preferred_separator);
    EXPECT_EQ(t.model.settings.helpFolder, expected);
    EXPECT_EQ(t.model.workFolder, "");
    EXPECT_EQ(t.model.settings.extractFolder, "");
}

TEST(PersistentLists, SavingWritesAllTwentyRecentFilesAndTheFourFolders)
{
    TestModel t;
    t.store.write("Recent files", "05", "/music/old.syx");
    t.model.recentFiles[1] = "/music/new.syx";
    t.model.recentFiles[20] = "/music/oldest.syx";
    t.model.workFolder = "/music";
    t.model.settings.extractFolder = "/x";
    t.model.settings.listFolder = "/l";
    t.model.settings.helpFolder = "/h/";

    ASSERT_TRUE(saveSystemSettings(t.model));

    EXPECT_EQ(t.store.read("Recent files", "01"), "/music/new.syx");
    EXPECT_EQ(t.store.read("Recent files", "05"), "");  // no longer in the list
    EXPECT_EQ(t.store.read("Recent files", "20"), "/music/oldest.syx");
    EXPECT_EQ(t.store.read("Folders", "01"), "/music");
    EXPECT_EQ(t.store.read("Folders", "02"), "/x");
    EXPECT_EQ(t.store.read("Folders", "03"), "/l");
    EXPECT_EQ(t.store.read("Folders", "04"), "/h/");
}

TEST(Favourites, OverlaySubsectionsHaveFixedCaptions)
{
    EXPECT_EQ(favouriteCaption(13), "OSC1 Setting");
    EXPECT_EQ(favouriteCaption(16), "OSC2 Setting");
    EXPECT_EQ(favouriteCaption(38), "FX1 Setting");
    EXPECT_EQ(favouriteCaption(40), "FX2 Setting");
    EXPECT_EQ(favouriteCaption(42), "Master FX Setting");
}

TEST(Favourites, OtherSubsectionsShowTheirNameAndNoneIsEmpty)
{
    EXPECT_EQ(favouriteCaption(2), "EG1");
    EXPECT_EQ(favouriteCaption(1), "Patch Common");
    EXPECT_EQ(favouriteCaption(0), "");
    EXPECT_EQ(favouriteCaption(139), "");
}

}  // namespace
}  // namespace quillon

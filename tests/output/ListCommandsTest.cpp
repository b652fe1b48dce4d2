#include "output/ListCommands.h"
#include "files/UserFolders.h"

#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "output/ParamDumps.h"
#include "output/TextLists.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace quillon {
namespace {

std::vector<std::string> linesOf(const std::filesystem::path& path)
{
    std::vector<std::string> lines;
    EXPECT_TRUE(readLines(path, lines)) << path;
    return lines;
}

void setName(ParamValues& values, std::string name)
{
    name.resize(16, ' ');
    for (int i = 0; i < 16; ++i)
        values[i + 1] = static_cast<std::int16_t>(name[i]);
}

struct Refusal {
    int mode;
    int multiMode;
    int arpMode;
    const char* title;
    const char* text;
};

TEST(SaveListCommand, RefusesWhatIsNotLoadedByMode)
{
    const Refusal refusals[] = {
        {1, 0, 0, "Save Patch Parameter List", "No patch loaded"},
        {2, 0, 0, "Save Bank Patch List", "No bank loaded"},
        {3, 0, 0, "Save Bank Patch List", "No bank loaded"},
        {4, 1, 0, "Save Multi Bank A List", "No Multi Bank A loaded"},
        {4, 2, 0, "Save Multi Bank B List", "No Multi Bank B loaded"},
        {4, 0, 0, "Save Multiset List", "No multiset loaded"},
        {5, 0, 1, "Save Arpeggiator Bank List", "No arpeggiator bank loaded"},
        {5, 0, 0, "Save Arp Pattern List", "No arp pattern loaded"},
    };
    for (const auto& r : refusals) {
        TestModel t;
        t.model.mode = r.mode;
        t.model.multiMode = r.multiMode;
        t.model.arpMode = r.arpMode;
        t.host.expectMessage(r.title, Answer::Ok, r.text);
        EXPECT_FALSE(mnuSaveList(t.model)) << r.title;
        EXPECT_TRUE(t.host.saveDialogs.empty()) << r.title;
    }
}

TEST(SaveListCommand, ChosenMultiBankIsTheOneTested)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.model.multiMode = 2;
    t.model.flags.loaded[kMultiBankA] = true;
    t.model.flags.loaded[kMultiset] = true;
    t.host.expectMessage("Save Multi Bank B List", Answer::Ok, "No Multi Bank B loaded");
    EXPECT_FALSE(mnuSaveList(t.model));
}

TEST(DumpParamListCommand, RefusesWhatIsNotLoadedByMode)
{
    const Refusal refusals[] = {
        {1, 0, 0, "Dump Patch Parameter List", "No patch loaded"},
        {4, 0, 0, "Dump Multiset Parameter List", "No multiset loaded"},
        {5, 0, 0, "Dump Arp Pattern Parameter List", "No arp pattern loaded"},
    };
    for (const auto& r : refusals) {
        TestModel t;
        t.model.mode = r.mode;
        t.host.expectMessage(r.title, Answer::Ok, r.text);
        EXPECT_FALSE(mnuDumpParamList(t.model)) << r.title;
    }
}

TEST(DumpParamListCommand, DumpOfAnUnloadedPatchIsRefusedNotWrittenWithDefaults)
{
    TestModel t;
    t.model.mode = kPatch;
    t.host.expectMessage("Dump Patch Parameter List", Answer::Ok, "No patch loaded");
    EXPECT_FALSE(mnuDumpParamList(t.model));
    EXPECT_TRUE(t.host.saveDialogs.empty());
    EXPECT_FALSE(std::filesystem::exists(t.folder / "Param"));

    t.host.expectMessage("Save Patch Parameter List", Answer::Ok, "No patch loaded");
    EXPECT_FALSE(mnuSaveList(t.model));
    EXPECT_TRUE(t.host.saveDialogs.empty());
}

TEST(DumpParamListCommand, BankModesDoNothing)
{
    TestModel t;
    for (int mode : {2, 3}) {
        t.model.mode = mode;
        t.model.flags.loaded[mode] = true;
        EXPECT_FALSE(mnuDumpParamList(t.model));
    }
    EXPECT_TRUE(t.host.messages.empty());
    EXPECT_TRUE(t.host.saveDialogs.empty());
}

TEST(SaveListCommand, BankListDialogOffersTheListFolderAndTheBankName)
{
    TestModel t;
    t.model.mode = kPatchBankB;
    t.model.flags.loaded[kPatchBankB] = true;
    t.model.settings.listFolder = (t.folder / "lists").string();
    const std::string chosen = (t.folder / "Bank B.txt").string();
    t.host.expectSaveFile("Save Bank Patch List", chosen);

    EXPECT_TRUE(mnuSaveList(t.model));
    ASSERT_EQ(t.host.saveDialogs.size(), 1u);
    const FileDialogRequest& request = t.host.saveDialogs[0];
    EXPECT_EQ(request.filter, "Text files (*.txt)|*.txt");
    EXPECT_EQ(request.startFolder, (t.folder / "lists").string());
    EXPECT_EQ(request.fileName, "Bank B.txt");
    EXPECT_EQ(linesOf(chosen), bankListLines(t.model, kPatchBankB));
    EXPECT_EQ(linesOf(chosen).size(), 130u);
}

TEST(SaveListCommand, ListFolderDefaultsOnlyUntilTheFirstSave)
{
    TestModel t;
    t.model.mode = kPatchBankA;
    t.model.flags.loaded[kPatchBankA] = true;
    std::filesystem::create_directories(t.folder / "chosen");
    const std::string chosen = (t.folder / "chosen" / "my list.txt").string();
    t.host.expectSaveFile("Save Bank Patch List", chosen);
    ASSERT_TRUE(t.model.settings.listFolder.empty());
    RecordingObserver observer;
    t.model.addObserver(&observer);
    EXPECT_TRUE(mnuSaveList(t.model));
    t.model.removeObserver(&observer);
    EXPECT_NE(observer.all & kSettingsChanged, 0u);
    EXPECT_EQ(t.host.saveDialogs[0].startFolder, userDocumentsFolder().string());
    EXPECT_EQ(t.host.saveDialogs[0].fileName, "Bank A.txt");
    EXPECT_EQ(t.model.settings.listFolder, (t.folder / "chosen").string());

    t.host.expectSaveFile("Save Bank Patch List", std::nullopt);
    EXPECT_FALSE(mnuSaveList(t.model));
    EXPECT_EQ(t.host.saveDialogs[1].startFolder, (t.folder / "chosen").string());
}

TEST(SaveListCommand, DocumentsFolderIsBelowTheHome)
{
#ifdef _WIN32
    const char* home = std::getenv("USERPROFILE");
#else
    const char* home = std::getenv("HOME");
#endif
    if (home == nullptr || *home == '\0')
        EXPECT_EQ(userDocumentsFolder().string(), "");
    else
        EXPECT_EQ(userDocumentsFolder().string(), (std::filesystem::path(home) / "Documents").string());
}

TEST(SaveListCommand, CancelWritesNothingAndKeepsTheFolder)
{
    TestModel t;
    t.model.mode = kPatchBankA;
    t.model.flags.loaded[kPatchBankA] = true;
    t.model.settings.listFolder = "/somewhere";
    t.host.expectSaveFile("Save Bank Patch List", std::nullopt);
    EXPECT_FALSE(mnuSaveList(t.model));
    EXPECT_EQ(t.model.settings.listFolder, "/somewhere");
}

TEST(SaveListCommand, WriteFailureIsReportedAndTheFolderSettingStays)
{
    TestModel t;
    t.model.mode = kPattern;
    t.model.arpMode = 1;
    t.model.flags.loaded[kArpBank] = true;
    t.model.settings.listFolder = (t.folder / "before").string();
    const std::string unwritable = (t.folder / "no such folder" / "Arp Bank.txt").string();
    t.host.expectSaveFile("Save Arp Bank Pattern List", unwritable);
    t.host.expectMessage("Save Arp Bank Pattern List", Answer::Ok, "Problem writing to file");
    EXPECT_FALSE(mnuSaveList(t.model));
    EXPECT_EQ(t.model.settings.listFolder, (t.folder / "before").string());
    EXPECT_FALSE(std::filesystem::exists(unwritable));
}

TEST(SaveListCommand, MultiBankAndArpBankListsHaveTheirDefaultNames)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.model.multiMode = 1;
    t.model.flags.loaded[kMultiBankA] = true;
    t.host.expectSaveFile("Save Multi Bank Patch List", std::nullopt);
    mnuSaveList(t.model);
    t.model.multiMode = 2;
    t.model.flags.loaded[kMultiBankB] = true;
    t.host.expectSaveFile("Save Multi Bank Patch List", std::nullopt);
    mnuSaveList(t.model);
    t.model.mode = kPattern;
    t.model.arpMode = 1;
    t.model.flags.loaded[kArpBank] = true;
    t.host.expectSaveFile("Save Arp Bank Pattern List", std::nullopt);
    mnuSaveList(t.model);

    ASSERT_EQ(t.host.saveDialogs.size(), 3u);
    EXPECT_EQ(t.host.saveDialogs[0].fileName, "Multi Bank A.txt");
    EXPECT_EQ(t.host.saveDialogs[1].fileName, "Multi Bank B.txt");
    EXPECT_EQ(t.host.saveDialogs[2].fileName, "Arp Bank.txt");
}

TEST(SaveListCommand, SingleMultisetWritesItsBlock)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.model.flags.loaded[kMultiset] = true;
    setName(t.model.buffers.of(kMultiset).current, "Duo");
    const std::string chosen = (t.folder / "duo.txt").string();
    t.host.expectSaveFile("Save Multi Bank Patch List", chosen);
    EXPECT_TRUE(mnuSaveList(t.model));
    EXPECT_EQ(t.host.saveDialogs[0].fileName, "Duo.txt");
    EXPECT_EQ(linesOf(chosen), multiBankListLines(t.model, kMultiset));
}

TEST(SaveListCommand, PatchModeWritesTheParameterDump)
{
    TestModel t;
    t.model.mode = kPatch;
    t.model.flags.loaded[kPatch] = true;
    t.model.itemPath[kPatch] = "Solo.syx";
    setName(t.model.buffers.of(kPatch).current, "Solo: Lead");
    const std::string chosen = (t.folder / "solo.txt").string();
    t.host.expectSaveFile("Save Patch Parameter List", chosen);
    EXPECT_TRUE(mnuSaveList(t.model));
    EXPECT_EQ(t.host.saveDialogs[0].fileName, (t.folder / "Param" / "Solo  Lead.txt").string());
    EXPECT_EQ(linesOf(chosen), patchDumpLines(t.model));
}

TEST(DumpParamListCommand, DumpsAreOfferedUnderTheParamFolder)
{
    TestModel t;
    t.model.flags.loaded[kPatch] = true;
    t.model.flags.loaded[kMultiset] = true;
    t.model.flags.loaded[kPattern] = true;
    setName(t.model.buffers.of(kPatch).current, "Bright Keys");
    setName(t.model.buffers.of(kMultiset).current, "Stack");
    setName(t.model.buffers.of(kPattern).current, "Trill");
    t.host.expectSaveFile("Save Patch Parameter List", std::nullopt);
    t.host.expectSaveFile("Save Multiset Parameter List", std::nullopt);
    t.host.expectSaveFile("Save Arp Pattern Parameter List", std::nullopt);
    for (int mode : {kPatch, kMultiset, kPattern}) {
        t.model.mode = mode;
        EXPECT_FALSE(mnuDumpParamList(t.model));
    }
    ASSERT_EQ(t.host.saveDialogs.size(), 3u);
    const std::filesystem::path param = t.folder / "Param";
    EXPECT_EQ(t.host.saveDialogs[0].fileName, (param / "Bright Keys.txt").string());
    EXPECT_EQ(t.host.saveDialogs[1].fileName, (param / "Stack(m).txt").string());
    EXPECT_EQ(t.host.saveDialogs[2].fileName, (param / "Trill(a).txt").string());
    for (const auto& request : t.host.saveDialogs)
        EXPECT_EQ(request.filter, "Text files (*.txt)|*.txt");
    EXPECT_TRUE(std::filesystem::is_directory(param));
}

TEST(DumpParamListCommand, WritesTheDumpAndKeepsTheFolder)
{
    TestModel t;
    t.model.mode = kPattern;
    t.model.flags.loaded[kPattern] = true;
    std::filesystem::create_directories(t.folder / "dumps");
    const std::string chosen = (t.folder / "dumps" / "pattern.txt").string();
    t.host.expectSaveFile("Save Arp Pattern Parameter List", chosen);
    EXPECT_TRUE(mnuDumpParamList(t.model));
    EXPECT_EQ(linesOf(chosen), arpDumpLines(t.model));
    EXPECT_EQ(t.model.settings.listFolder, (t.folder / "dumps").string());
}

TEST(DumpParamListCommand, WriteFailureShowsTheProblem)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.model.flags.loaded[kMultiset] = true;
    t.host.expectSaveFile("Save Multiset Parameter List", (t.folder / "missing" / "m.txt").string());
    t.host.expectMessage("Save Multiset Parameter List", Answer::Ok, "Problem writing to file");
    EXPECT_FALSE(mnuDumpParamList(t.model));
    EXPECT_TRUE(t.model.settings.listFolder.empty());
}

}  // namespace
}  // namespace quillon

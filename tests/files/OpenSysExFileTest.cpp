#include "files/OpenSysExFile.h"
#include "files/UserFolders.h"

#include "files/LoadingFiles.h"
#include "files/RecentFiles.h"
#include "model/Kind.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace quillon {
namespace {

struct OpenSysExFile : LoadingTest {
    // Opens through the dialog, which the user cancels; returns what the
    // dialog was given.
    FileDialogRequest cancelledDialog()
    {
        host.expectOpenFile("Open Z1 SysEx file", std::nullopt);
        doOpenSysExFile(model, 0, surroundings);
        EXPECT_EQ(host.openDialogs.size(), 1u);
        return host.openDialogs.empty() ? FileDialogRequest{} : host.openDialogs.back();
    }

    void addRecent(const std::string& path)
    {
        std::string entry = path;
        recentFilesUpdate(model, 1, entry);
    }
};

TEST_F(OpenSysExFile, DialogAsksForSysExFilesAndCancelEndsSilently)
{
    const auto before = model.buffers.of(kPatch).current;
    const FileDialogRequest request = cancelledDialog();
    EXPECT_EQ(request.filter, "SysEx files (*.syx)|*.syx");
    EXPECT_TRUE(host.messages.empty());
    EXPECT_TRUE(model.workFolder.empty());
    EXPECT_EQ(model.buffers.of(kPatch).current, before);
}

TEST_F(OpenSysExFile, DialogIsPrefilledWithTheFileOfTheItemOnScreen)
{
    model.itemPath[kPatchBankB] = "/music/bankB.syx";
    model.mode = kPatchBankB;
    model.workFolder = t.folder.path().string();
    const FileDialogRequest request = cancelledDialog();
    EXPECT_EQ(request.fileName, "/music/bankB.syx");
    EXPECT_TRUE(request.startFolder.empty());
}

TEST_F(OpenSysExFile, MultiBanksAndTheArpeggiatorBankDoNotPrefill)
{
    model.itemPath[kMultiBankA] = "/music/multiA.syx";
    model.itemPath[kMultiset] = "";
    model.mode = kMultiset;
    model.multiMode = 1;
    model.workFolder = t.folder.path().string();
    const FileDialogRequest request = cancelledDialog();
    EXPECT_TRUE(request.fileName.empty());
    EXPECT_EQ(request.startFolder, t.folder.path().string());
}

TEST_F(OpenSysExFile, DialogStartsInTheMusicFolderWhenTheWorkFolderIsGone)
{
    model.workFolder = (t.folder / "gone").string();
    fs::create_directories(t.folder / "Music");
    EXPECT_EQ(cancelledDialog().startFolder, (t.folder / "Music").string());
}

TEST_F(OpenSysExFile, DialogStartsInTheDataFolderWhenThereIsNoMusicFolder)
{
    model.workFolder = (t.folder / "gone").string();
    EXPECT_EQ(cancelledDialog().startFolder, model.dataFolder().string());
}

TEST_F(OpenSysExFile, MusicFolderIsInTheHomeFolder)
{
    const char* home = std::getenv("HOME");
    if (!home)
        GTEST_SKIP() << "no home folder";
    EXPECT_EQ(userMusicFolder(), fs::path(home) / "Music");
}

TEST_F(OpenSysExFile, WorkFolderMovesEvenWhenTheLoadFails)
{
    fs::create_directories(t.folder / "sub");
    const std::string path = (t.folder / "sub" / "odd.syx").string();
    writeFile(path, std::vector<std::uint8_t>(299, 0));
    expectBox("Open Z1 SysEx file", Answer::Ok, "File may be non-Z1 (size 299)");
    open(path);
    EXPECT_EQ(model.workFolder, (t.folder / "sub").string());
}

TEST_F(OpenSysExFile, A299ByteFileIsNonZ1)
{
    expectBox("Open Z1 SysEx file", Answer::Ok, "File may be non-Z1 (size 299)");
    open(put("odd.syx", std::vector<std::uint8_t>(299, 0xF0)));
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].icon, MessageIcon::Information);
    EXPECT_TRUE(host.messages[0].help);
    EXPECT_EQ(host.messages[0].helpContext, 65);
    EXPECT_TRUE(model.recentFiles[1].empty());
}

TEST_F(OpenSysExFile, RecentFileOpensWithoutTheDialog)
{
    const ByteImage image = namedItemImage(model, kPatch, "Recent");
    const std::string path = put("recent.syx", patchMessage(image));
    addRecent(path);
    addRecent(put("other.syx", {}));

    doOpenSysExFile(model, 2, surroundings);

    EXPECT_TRUE(host.openDialogs.empty());
    EXPECT_EQ(model.itemImage(kPatch), image);
    EXPECT_EQ(model.recentFiles[1], path) << "moved to the top";
    EXPECT_TRUE(model.workFolder.empty()) << "only a file dialog moves the work folder";
}

TEST_F(OpenSysExFile, OpeningADeletedRecentFileRemovesItFromTheMenu)
{
    const std::string first = put("first.syx", {});
    const std::string deleted = put("deleted.syx", {});
    const std::string last = put("last.syx", {});
    addRecent(first);
    addRecent(deleted);
    addRecent(last);
    ASSERT_EQ(model.settings.recentFilesShown, 3);
    fs::remove(deleted);
    host.expectMessage("Open Z1 SysEx file", Answer::Ok,
                       "Quillon cannot open file:\n\n" + deleted + "\n\nThe file may have been moved or deleted.");

    doOpenSysExFile(model, 2, surroundings);

    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].icon, MessageIcon::Exclamation);
    EXPECT_EQ(model.settings.recentFilesShown, 2);
    EXPECT_EQ(model.recentFiles[1], last);
    EXPECT_EQ(model.recentFiles[2], first);
    EXPECT_TRUE(model.recentFiles[3].empty());
    EXPECT_FALSE(model.recentMenu[2].empty());
    EXPECT_TRUE(model.recentMenu[3].empty());
}

TEST_F(OpenSysExFile, RecentEntryThatCannotBeReadIsAProblemLoadingTheFile)
{
    fs::create_directories(t.folder / "folder.syx");
    addRecent((t.folder / "folder.syx").string());
    host.expectMessage("Open Z1 SysEx file", Answer::Ok, "Problem loading file");
    doOpenSysExFile(model, 1, surroundings);
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].icon, MessageIcon::Critical);
    EXPECT_EQ(host.messages[0].helpContext, 65);
}

TEST_F(OpenSysExFile, EmptyOrOutOfRangeRecentIndexDoesNothing)
{
    doOpenSysExFile(model, 3, surroundings);
    doOpenSysExFile(model, 21, surroundings);
    doOpenSysExFile(model, -1, surroundings);
    EXPECT_TRUE(host.messages.empty());
    EXPECT_TRUE(host.openDialogs.empty());
}

TEST_F(OpenSysExFile, GlobalOrMidiFileIsNamedByItsSubHeaderAndOfferedToSend)
{
    for (const std::uint8_t which : {0, 1}) {
        const auto bytes = withStrayBytes(globalOrMidiMessage(which), 10, 7);
        ASSERT_EQ(bytes.size(), 500u);
        MiscDialogState shown;
        int shows = 0;
        surroundings.showMiscDialog = [&](AppModel&, MiscDialogState& state) {
            shown = state;
            ++shows;
        };

        open(put("global.syx", bytes));

        const std::string name = which == 0 ? "Global" : "MIDI";
        EXPECT_EQ(shows, 1);
        EXPECT_EQ(model.misc.name, name);
        EXPECT_EQ(model.misc.mode, 3);
        EXPECT_EQ(model.misc.message, globalOrMidiMessage(which));
        EXPECT_EQ(shown.caption, name);
        EXPECT_EQ(shown.saveSendCaption, "Send " + name + " to Z1");
        EXPECT_FALSE(shown.extractFrameVisible);
        EXPECT_TRUE(model.recentFiles[1].empty()) << "files of several kinds stay out of the list";
    }
}

TEST_F(OpenSysExFile, GlobalThenMidiAsTwoMessagesIsGlobalAndMidi)
{
    SysExMessage bytes = globalOrMidiMessage(0);
    const SysExMessage midi = globalOrMidiMessage(1);
    bytes.insert(bytes.end(), midi.begin(), midi.end());
    ASSERT_EQ(bytes.size(), 966u);
    MiscDialogState shown;
    int shows = 0;
    surroundings.showMiscDialog = [&](AppModel&, MiscDialogState& state) {
        shown = state;
        ++shows;
    };

    open(put("globalmidi.syx", bytes));

    EXPECT_TRUE(host.allShown());
    EXPECT_EQ(shows, 1);
    EXPECT_EQ(model.misc.name, "Global and MIDI");
    EXPECT_EQ(model.misc.message, bytes);
    EXPECT_EQ(shown.caption, "Global and MIDI");
    EXPECT_EQ(shown.saveSendCaption, "Send Global and MIDI to Z1");
    EXPECT_FALSE(shown.extractFrameVisible);
}

TEST_F(OpenSysExFile, MidiThenGlobalIsNoGlobalAndMidiFile)
{
    SysExMessage bytes = globalOrMidiMessage(1);
    const SysExMessage global = globalOrMidiMessage(0);
    bytes.insert(bytes.end(), global.begin(), global.end());
    // Nor a wrapped file: the walk of the wrapped form fails.
    expectBox("Loading Global and MIDI", Answer::Ok, "Problem loading file");
    bool shown = false;
    surroundings.showMiscDialog = [&](AppModel&, MiscDialogState&) { shown = true; };

    open(put("midiglobal.syx", bytes));

    EXPECT_FALSE(shown);
}

TEST_F(OpenSysExFile, AllDataFileOffersAllFiveBanks)
{
    const auto bytes = allDataMessage(countingImage(160064));
    ASSERT_EQ(bytes.size(), 182939u);
    MiscDialogState shown;
    surroundings.showMiscDialog = [&](AppModel&, MiscDialogState& state) { shown = state; };

    open(put("all.syx", bytes));

    EXPECT_EQ(shown.caption, "All Data");
    EXPECT_TRUE(shown.extractFrameVisible);
    for (const bool visible : shown.typeVisible)
        EXPECT_TRUE(visible);
    EXPECT_EQ(shown.saveSendCaption, "Send All Data to Z1");
}

TEST_F(OpenSysExFile, SeveralKindsFileWithoutItsMessageIsNotFound)
{
    std::vector<std::uint8_t> bytes(7700, 0x00);
    expectBox("Load All Multi", Answer::Ok, "Could not find Z1 data in file");
    bool shown = false;
    surroundings.showMiscDialog = [&](AppModel&, MiscDialogState&) { shown = true; };
    model.misc.name = "Before";

    open(put("nomulti.syx", bytes));

    EXPECT_FALSE(shown);
    EXPECT_TRUE(model.misc.name.empty());
    EXPECT_TRUE(model.misc.message.empty());
}

}  // namespace
}  // namespace quillon

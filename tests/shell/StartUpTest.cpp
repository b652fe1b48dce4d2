#include "shell/StartUp.h"

#include "files/DataFolder.h"
#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(StartUp, MissingSettingsFileIsRestoredAndStartUpGoesOn)
{
    TestModel t;
    ASSERT_FALSE(std::filesystem::exists(t.folder / kSystemSettingsFile));
    EXPECT_TRUE(doFormLoadMain(t.model));
    EXPECT_TRUE(std::filesystem::exists(t.folder / kSystemSettingsFile));
    EXPECT_TRUE(t.model.flags.loaded[kPatch]);
}

TEST(StartUp, AFolderInPlaceOfQuillonpeDatShowsItsBoxAndStartUpGoesOn)
{
    TestModel t;
    std::filesystem::create_directory(t.folder / kPeFile);
    t.host.expectMessage("Problem reading user settings", Answer::Ok,
                         "Please check that Quillonpe.dat is in Quillon directory");

    EXPECT_TRUE(doFormLoadMain(t.model));

    EXPECT_TRUE(t.host.allShown());
    EXPECT_TRUE(t.model.flags.loaded[kPatch]) << "start-up went on to the default items";
    EXPECT_TRUE(t.model.flags.loaded[kPattern]);
}

TEST(StartUp, LeavesTheThreeDefaultItemsLoadedUnchangedAndCleanWithThePatchShowing)
{
    TestModel t;
    ASSERT_TRUE(doFormLoadMain(t.model));
    for (int kind : {kPatch, kMultiset, kPattern}) {
        EXPECT_TRUE(t.model.flags.loaded[kind]) << kind;
        EXPECT_FALSE(t.model.flags.changed[kind]) << kind;
        EXPECT_TRUE(t.model.flags.clean[kind]) << kind;
        EXPECT_EQ(t.model.buffers.of(kind).current, t.model.buffers.of(kind).defaults) << kind;
        EXPECT_EQ(t.model.buffers.of(kind).loaded, t.model.buffers.of(kind).defaults) << kind;
    }
    EXPECT_EQ(t.model.mode, kPatch);
    EXPECT_EQ(t.model.labels.highlightedKind(), kPatch);
    EXPECT_EQ(t.model.itemName[kPatch], "Init Patch");
    EXPECT_EQ(t.model.itemName[kPattern], "Init Pattern");
    EXPECT_TRUE(t.model.sendMenuEnabled);
}

TEST(StartUp, NotifiesItsObserversOnceForTheWholeStartUp)
{
    TestModel t;
    RecordingObserver observer;
    t.model.addObserver(&observer);
    ASSERT_TRUE(doFormLoadMain(t.model));
    EXPECT_EQ(observer.calls, 1);
    EXPECT_NE(observer.all & kScreenChanged, 0u);
}

TEST(StartUp, MidiFailureComesAfterEverythingElseIsSetUpAndEndsStartUp)
{
    TestModel t;
    bool everythingSetUp = false;
    StartUpSurroundings surroundings;
    surroundings.initMidi = [&](AppModel& model) {
        everythingSetUp = model.flags.loaded[kPatch] && model.flags.loaded[kMultiset] &&
                          model.flags.loaded[kPattern] && model.settings.recentFilesMax == 10 &&
                          std::filesystem::exists(model.dataFolder() / kSystemSettingsFile);
        return false;
    };
    EXPECT_FALSE(doFormLoadMain(t.model, surroundings));
    EXPECT_TRUE(everythingSetUp);
}

TEST(StartUp, WorkFolderThatIsGoneFallsBackToTheMusicFolder)
{
    TestModel t;
    std::filesystem::create_directories(t.folder / "Music");
    t.model.workFolder = (t.folder / "gone").string();
    StartUpSurroundings surroundings;
    surroundings.musicFolder = t.folder / "Music";
    ASSERT_TRUE(doFormLoadMain(t.model, surroundings));
    EXPECT_EQ(t.model.workFolder, (t.folder / "Music").string());
}

TEST(StartUp, ErrorTextGivesNumberDescriptionAndProgress)
{
    EXPECT_EQ(startUpErrorText("53", "File not found", 300), "[Error 53 File not found]\n[Proc no 300]");
}

TEST(Closing, EditedPatchAndChangedBankAskPatchFirstAndCancelKeepsTheProgramOpen)
{
    TestModel t;
    ASSERT_TRUE(doFormLoadMain(t.model));
    t.model.buffers.of(kPatch).current[40] = 12;
    t.model.flags.loaded[kPatchBankA] = true;
    t.model.flags.changed[kPatchBankA] = true;
    t.host.expectMessage("Exit Quillon", Answer::No, "Save Init Patch first?")
        .expectMessage("Exit Quillon", Answer::Cancel, "Save current Bank A first?");
    EXPECT_FALSE(confirmClose(t.model));
    EXPECT_FALSE(t.model.flags.changed[kPatch]);  // its question was answered
    EXPECT_TRUE(t.model.flags.changed[kPatchBankA]);
    EXPECT_FALSE(t.model.saveCancelled);
}

TEST(Closing, NothingChangedClosesWithoutAQuestion)
{
    TestModel t;
    ASSERT_TRUE(doFormLoadMain(t.model));
    EXPECT_TRUE(confirmClose(t.model));
}

TEST(Closing, PatternWithoutTonesIsNotAskedAbout)
{
    TestModel t;
    ASSERT_TRUE(doFormLoadMain(t.model));
    t.model.buffers.of(kPattern).current[25] = 90;  // Gate changed, no tone drawn
    EXPECT_TRUE(confirmClose(t.model));
}

TEST(Closing, ShutDownWritesTheSettingsAndTheRecentFiles)
{
    TestModel t;
    ASSERT_TRUE(doFormLoadMain(t.model));
    std::filesystem::remove(t.folder / kSystemSettingsFile);
    t.model.recentFiles[1] = "/music/z1/pads.syx";
    shutDown(t.model);
    EXPECT_TRUE(std::filesystem::exists(t.folder / kSystemSettingsFile));
    EXPECT_EQ(t.store.read("Recent files", "01"), "/music/z1/pads.syx");
}

}  // namespace
}  // namespace quillon

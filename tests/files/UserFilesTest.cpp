#include "files/UserFiles.h"

#include "files/AtomicFile.h"
#include "files/DataFolder.h"
#include "files/FactoryFiles.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quillon {
namespace {

std::vector<std::string> valueLines(const ParamValues& values)
{
    std::vector<std::string> lines;
    for (std::size_t p = 1; p < values.size(); ++p)
        lines.push_back(std::to_string(values[p]));
    return lines;
}

std::vector<std::string> fileLines(const std::filesystem::path& file)
{
    std::vector<std::string> lines;
    EXPECT_TRUE(readLines(file, lines));
    return lines;
}

// A patch backup that differs from the defaults, so that a copy of it shows.
ParamValues markedPatchValues()
{
    ParamValues values = paramTables().patchDefaults;
    values[40] = 77;
    values[1343] = -12;
    return values;
}

TEST(UserFiles, FirstStartWithoutUserFile3CopiesTheBackupOfFile0)
{
    TestModel t;
    ASSERT_TRUE(writeLinesAtomically(t.folder / kUserPatchBackup, valueLines(markedPatchValues())));
    t.model.settings.userFileNumber = 3;

    EXPECT_TRUE(readUserPatchFile(t.model, t.model.settings.userFileNumber));

    ASSERT_TRUE(std::filesystem::exists(t.folder / "Quillonusr3.dat"));
    EXPECT_EQ(fileLines(t.folder / "Quillonusr3.dat"), valueLines(markedPatchValues()));
    EXPECT_EQ(t.model.buffers.of(kPatch).user, markedPatchValues());
    EXPECT_FALSE(std::filesystem::exists(t.folder / "Quillonusr0.dat"));
}

TEST(UserFiles, AnExistingUserFileIsReadAsItIs)
{
    TestModel t;
    ASSERT_TRUE(installFactoryFiles(t.folder.path()));
    ASSERT_TRUE(writeLinesAtomically(t.folder / "Quillonusr1.dat", valueLines(markedPatchValues())));

    EXPECT_TRUE(readUserPatchFile(t.model, 1));
    EXPECT_EQ(t.model.buffers.of(kPatch).user, markedPatchValues());
}

TEST(UserFiles, SavingWithSource5PutsTheDefaultsIntoTheUserBufferAlsoInMemory)
{
    TestModel t;
    ItemBuffers& patch = t.model.buffers.of(kPatch);
    patch.user[40] = -999;  // no default is this low
    patch.current[41] = 55;

    EXPECT_TRUE(saveUserPatchFile(t.model, 2, kUserSourceDefaults));

    EXPECT_EQ(patch.user, patch.defaults);
    EXPECT_EQ(fileLines(t.folder / "Quillonusr2.dat"), valueLines(paramTables().patchDefaults));
}

TEST(UserFiles, SavingWithSource6TakesTheCurrentPatch)
{
    TestModel t;
    ItemBuffers& patch = t.model.buffers.of(kPatch);
    patch.current[41] = 55;

    EXPECT_TRUE(saveUserPatchFile(t.model, 4, kUserSourceCurrent));

    EXPECT_EQ(patch.user, patch.current);
    const std::vector<std::string> lines = fileLines(t.folder / "Quillonusr4.dat");
    ASSERT_EQ(lines.size(), 1343u);
    EXPECT_EQ(lines[40], "55");
}

TEST(UserFiles, SavingWithAnyOtherSourceWritesTheUserBufferAsItStands)
{
    TestModel t;
    ItemBuffers& patch = t.model.buffers.of(kPatch);
    patch.user[7] = -3;
    patch.current[7] = 12;
    const ParamValues before = patch.user;

    EXPECT_TRUE(saveUserPatchFile(t.model, 0, 1));

    EXPECT_EQ(patch.user, before);
    EXPECT_EQ(fileLines(t.folder / "Quillonusr0.dat")[6], "-3");
}

TEST(UserFiles, PatchUserBufferSurvivesSaveAndRead)
{
    TestModel t;
    ParamValues& user = t.model.buffers.of(kPatch).user;
    for (std::size_t p = 1; p < user.size(); ++p)
        user[p] = static_cast<std::int16_t>(static_cast<int>(p % 300) - 150);
    const ParamValues saved = user;
    ASSERT_TRUE(saveUserPatchFile(t.model, 5, 0));

    AppModel later(t.host, t.store, t.folder.path());
    EXPECT_TRUE(readUserPatchFile(later, 5));
    EXPECT_EQ(later.buffers.of(kPatch).user, saved);
}

TEST(UserFiles, MultiUserBufferSurvivesSaveAndRead)
{
    TestModel t;
    ItemBuffers& multi = t.model.buffers.of(kMultiset);
    multi.current[3] = 101;
    multi.current[615] = 2;
    ASSERT_TRUE(saveUserMultiFile(t.model, kUserSourceCurrent));
    EXPECT_EQ(fileLines(t.folder / kUserMultiFile).size(), 615u);

    AppModel later(t.host, t.store, t.folder.path());
    EXPECT_TRUE(readUserMultiFile(later));
    EXPECT_EQ(later.buffers.of(kMultiset).user, multi.current);
}

TEST(UserFiles, MissingMultiFileComesFromItsBackup)
{
    TestModel t;
    ParamValues values = paramTables().multiDefaults;
    values[10] = 9;
    ASSERT_TRUE(writeLinesAtomically(t.folder / kUserMultiBackup, valueLines(values)));

    EXPECT_TRUE(readUserMultiFile(t.model));
    EXPECT_TRUE(std::filesystem::exists(t.folder / kUserMultiFile));
    EXPECT_EQ(t.model.buffers.of(kMultiset).user, values);
}

TEST(UserFiles, NoFileAndNoBackupShowsTheBoxAndKeepsTheUserBuffer)
{
    TestModel t;
    t.model.buffers.of(kPatch).user[40] = 33;
    const ParamValues before = t.model.buffers.of(kPatch).user;
    t.host.expectMessage("Problem reading user settings", Answer::Ok,
                         "Please check that file Quillonusr2.dat is in Quillon directory");

    EXPECT_FALSE(readUserPatchFile(t.model, 2));
    EXPECT_EQ(t.model.buffers.of(kPatch).user, before);
}

TEST(UserFiles, UnreadableMultiBackupShowsTheBox)
{
    TestModel t;
    std::filesystem::create_directory(t.folder / kUserMultiBackup);
    t.host.expectMessage("Problem reading user settings", Answer::Ok,
                         "Please check that file QuillonusrM.dat is in Quillon directory");

    EXPECT_FALSE(readUserMultiFile(t.model));
    EXPECT_EQ(t.model.buffers.of(kMultiset).user, paramTables().multiDefaults);
}

TEST(UserFiles, AValueThatIsNoNumberKeepsTheValuesReadBeforeIt)
{
    TestModel t;
    ParamValues marked = markedPatchValues();
    for (std::size_t p = 1; p < marked.size(); ++p)
        marked[p] = static_cast<std::int16_t>(paramTables().patchDefaults[p] + 1);
    std::vector<std::string> lines = valueLines(marked);
    lines[500] = "twelve";
    ASSERT_TRUE(writeLinesAtomically(t.folder / "Quillonusr0.dat", lines));
    t.host.expectMessage("Problem reading user settings", Answer::Ok,
                         "Please check that file Quillonusr0.dat is in Quillon directory");

    EXPECT_FALSE(readUserPatchFile(t.model, 0));
    const ParamValues& user = t.model.buffers.of(kPatch).user;
    const ParamValues& defaults = paramTables().patchDefaults;
    ASSERT_EQ(user.size(), defaults.size());
    for (std::size_t p = 1; p <= 500; ++p)
        ASSERT_EQ(user[p], marked[p]) << "parameter " << p << " was read before the bad line";
    for (std::size_t p = 501; p < user.size(); ++p)
        ASSERT_EQ(user[p], defaults[p]) << "parameter " << p << " stays as it was";
}

TEST(UserFiles, AShortFileIsAReadingProblem)
{
    TestModel t;
    std::vector<std::string> lines = valueLines(paramTables().multiDefaults);
    lines.pop_back();
    ASSERT_TRUE(writeLinesAtomically(t.folder / kUserMultiFile, lines));
    t.host.expectMessage("Problem reading user settings", Answer::Ok,
                         "Please check that file QuillonusrM.dat is in Quillon directory");

    EXPECT_FALSE(readUserMultiFile(t.model));
}

TEST(UserFiles, NumbersWithBlanksAndWindowsLineEndsAreRead)
{
    TestModel t;
    std::string text;
    for (std::size_t p = 1; p <= 615; ++p)
        text += (p == 2 ? std::string(" -7 ") : std::to_string(paramTables().multiDefaults[p])) + "\r\n";
    ASSERT_TRUE(writeFileAtomically(t.folder / kUserMultiFile,
                                    std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size())));

    EXPECT_TRUE(readUserMultiFile(t.model));
    EXPECT_EQ(t.model.buffers.of(kMultiset).user[2], -7);
}

TEST(UserFiles, FailedSaveShowsItsBox)
{
    TestModel t;
    std::filesystem::create_directories(t.folder / kUserMultiFile / "in the way");
    t.host.expectMessage("Problem saving user settings", Answer::Ok,
                         "Please check that file QuillonusrM.dat is write enabled");

    EXPECT_FALSE(saveUserMultiFile(t.model, kUserSourceDefaults));
}

TEST(UserFiles, WriteProtectedUserFileIsSavedAllTheSame)
{
    TestModel t;
    ASSERT_TRUE(writeLinesAtomically(t.folder / "Quillonusr1.dat", {"1"}));
    std::filesystem::permissions(t.folder / "Quillonusr1.dat", std::filesystem::perms::owner_read);

    EXPECT_TRUE(saveUserPatchFile(t.model, 1, kUserSourceDefaults));
    EXPECT_EQ(fileLines(t.folder / "Quillonusr1.dat").size(), 1343u);
}

TEST(UserFileCommands, CreateUserPatchFileAsksAndSavesTheCurrentPatch)
{
    TestModel t;
    t.model.settings.userFileNumber = 3;
    t.model.buffers.of(kPatch).current[40] = 88;
    t.host.expectMessage("Create User Patch File", Answer::Yes,
                         "Generate all settings in User File 3 using current patch. Are you sure?");

    mnuCreateUserPatchFile(t.model);

    ASSERT_EQ(t.host.messages.size(), 1u);
    const MessageRequest& box = t.host.messages[0];
    EXPECT_EQ(box.icon, MessageIcon::Question);
    EXPECT_EQ(box.buttons, MessageButtons::YesNo);
    EXPECT_TRUE(box.help);
    EXPECT_EQ(box.helpContext, 345);
    EXPECT_EQ(t.model.buffers.of(kPatch).user[40], 88);
    EXPECT_EQ(fileLines(t.folder / "Quillonusr3.dat")[39], "88");
}

TEST(UserFileCommands, ResetUserPatchFileAsksAndSavesTheDefaults)
{
    TestModel t;
    t.model.settings.userFileNumber = 1;
    t.model.buffers.of(kPatch).user[40] = -999;
    t.host.expectMessage("Reset User Patch File", Answer::Yes,
                         "Change all settings in User File 1 back to defaults. Are you sure?");

    mnuResetUserPatchFile(t.model);

    EXPECT_EQ(t.host.messages[0].helpContext, 345);
    EXPECT_EQ(t.host.messages[0].icon, MessageIcon::Question);
    EXPECT_EQ(t.model.buffers.of(kPatch).user, paramTables().patchDefaults);
    EXPECT_TRUE(std::filesystem::exists(t.folder / "Quillonusr1.dat"));
}

TEST(UserFileCommands, AnsweringNoChangesNothing)
{
    TestModel t;
    t.model.flags.loaded[kMultiset] = true;
    t.model.buffers.of(kPatch).user[40] = 88;
    t.model.buffers.of(kMultiset).user[4] = 5;
    t.host.expectMessage("Create User Patch File", Answer::No)
        .expectMessage("Reset User Patch File", Answer::No)
        .expectMessage("Create User Multi File", Answer::No)
        .expectMessage("Reset User Multi File", Answer::No);

    mnuCreateUserPatchFile(t.model);
    mnuResetUserPatchFile(t.model);
    mnuCreateUserMultiFile(t.model);
    mnuResetUserMultiFile(t.model);

    EXPECT_EQ(t.model.buffers.of(kPatch).user[40], 88);
    EXPECT_EQ(t.model.buffers.of(kMultiset).user[4], 5);
    EXPECT_TRUE(std::filesystem::is_empty(t.folder.path()));
}

TEST(UserFileCommands, PatchCommandsNeedNoPatchLoaded)
{
    TestModel t;
    ASSERT_FALSE(t.model.flags.loaded[kPatch]);
    t.host.expectMessage("Reset User Patch File", Answer::Yes);

    mnuResetUserPatchFile(t.model);
    EXPECT_TRUE(std::filesystem::exists(t.folder / "Quillonusr0.dat"));
}

TEST(UserFileCommands, CreateUserMultiFileAsksAndSavesTheCurrentMultiset)
{
    TestModel t;
    t.model.flags.loaded[kMultiset] = true;
    t.model.buffers.of(kMultiset).current[9] = 42;
    t.host.expectMessage("Create User Multi File", Answer::Yes,
                         "Generate all settings in User Multiset File using current multiset. Are you sure?");

    mnuCreateUserMultiFile(t.model);

    EXPECT_EQ(t.host.messages[0].helpContext, 350);
    EXPECT_EQ(t.host.messages[0].icon, MessageIcon::Question);
    EXPECT_EQ(t.host.messages[0].buttons, MessageButtons::YesNo);
    EXPECT_EQ(t.model.buffers.of(kMultiset).user[9], 42);
    EXPECT_EQ(fileLines(t.folder / kUserMultiFile)[8], "42");
}

TEST(UserFileCommands, ResetUserMultiFileAsksAndSavesTheDefaults)
{
    TestModel t;
    t.model.flags.loaded[kMultiset] = true;
    t.model.buffers.of(kMultiset).user[9] = -999;
    t.host.expectMessage("Reset User Multi File", Answer::Yes,
                         "Change all settings in User Multi File back to defaults. Are you sure?");

    mnuResetUserMultiFile(t.model);

    EXPECT_EQ(t.host.messages[0].helpContext, 355);
    EXPECT_EQ(t.model.buffers.of(kMultiset).user, paramTables().multiDefaults);
    EXPECT_TRUE(std::filesystem::exists(t.folder / kUserMultiFile));
}

TEST(UserFileCommands, MultiCommandsRefuseWithoutAMultiset)
{
    TestModel t;
    t.model.buffers.of(kMultiset).user[9] = 42;
    t.host.expectMessage("Create User Multi File", Answer::Ok, "No multiset loaded")
        .expectMessage("Reset User Multi File", Answer::Ok, "No multiset loaded");

    mnuCreateUserMultiFile(t.model);
    mnuResetUserMultiFile(t.model);

    ASSERT_EQ(t.host.messages.size(), 2u);
    EXPECT_EQ(t.host.messages[0].icon, MessageIcon::Information);
    EXPECT_EQ(t.host.messages[0].helpContext, 350);
    EXPECT_TRUE(t.host.messages[0].help);
    EXPECT_EQ(t.host.messages[1].helpContext, 355);
    EXPECT_EQ(t.model.buffers.of(kMultiset).user[9], 42);
    EXPECT_TRUE(std::filesystem::is_empty(t.folder.path()));
}

}  // namespace
}  // namespace quillon

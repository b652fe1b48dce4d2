#include "files/AtomicFile.h"
#include "files/SysExSaving.h"
#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace quillon {
namespace {

// A dump of the given length as the instrument sent it on channel 4.
std::vector<std::uint8_t> dumpOfLength(std::size_t length, std::uint8_t function, std::uint8_t byte6)
{
    std::vector<std::uint8_t> message(length, 0x00);
    for (std::size_t i = 6; i + 1 < length; ++i)
        message[i] = static_cast<std::uint8_t>(i % 128);
    message[0] = 0xF0;
    message[1] = 0x42;
    message[2] = 0x33;
    message[3] = 0x46;
    message[4] = function;
    message[5] = byte6;
    message.back() = 0xF7;
    return message;
}

struct MiscSaving : ::testing::Test {
    MiscSaving()
    {
        model.workFolder = t.folder.path().string();
        model.settings.suggestNames = true;
        model.settings.prefixes[5] = "Z1 ";
    }

    std::string inFolder(const std::string& name) const { return (t.folder / name).string(); }

    // Saves a dump and checks the dialog's title and offered name.
    void expectSaved(std::size_t length, std::uint8_t function, std::uint8_t byte6, const std::string& title,
                     const std::string& name)
    {
        model.misc.message = dumpOfLength(length, function, byte6);
        const std::string path = inFolder("dump.syx");
        t.host.expectSaveFile(title, path);
        EXPECT_TRUE(miscSave(model));
        EXPECT_EQ(t.host.saveDialogs.back().fileName, inFolder("Z1 " + name));
        EXPECT_EQ(t.host.saveDialogs.back().filter, "SysEx files (*.syx)|*.syx");
        std::vector<std::uint8_t> written;
        ASSERT_TRUE(readWholeFile(path, written));
        EXPECT_EQ(written, model.misc.message);
    }

    TestModel t;
    AppModel& model = t.model;
};

TEST_F(MiscSaving, AllDataIsSavedAsItCame)
{
    expectSaved(182939, 0x50, 0x00, "Save All Data (sent from Z1)", "All Data");
}

TEST_F(MiscSaving, AllProgramIsSavedAsItCame)
{
    expectSaved(168531, 0x4C, 0x00, "Save All Program (sent from Z1)", "All Program");
}

TEST_F(MiscSaving, AllMultiIsSavedAsItCame)
{
    expectSaved(7617, 0x4D, 0x00, "Save All Multi (sent from Z1)", "All Multi");
}

TEST_F(MiscSaving, GlobalAndMidiIsSavedAsItCame)
{
    expectSaved(966, 0x51, 0x00, "Save Global and MIDI (sent from Z1)", "Global MIDI");
}

TEST_F(MiscSaving, DumpWithByte6ZeroIsSavedAsGlobal)
{
    expectSaved(483, 0x51, 0x00, "Save Global (sent from Z1)", "Global");
}

TEST_F(MiscSaving, DumpWithByte6NotZeroIsSavedAsMidi)
{
    expectSaved(483, 0x51, 0x01, "Save MIDI (sent from Z1)", "MIDI");
}

TEST_F(MiscSaving, ChannelByteStaysAsTheDumpCame)
{
    expectSaved(483, 0x51, 0x01, "Save MIDI (sent from Z1)", "MIDI");
    std::vector<std::uint8_t> written;
    ASSERT_TRUE(readWholeFile(inFolder("dump.syx"), written));
    EXPECT_EQ(written.at(2), 0x33);
}

TEST_F(MiscSaving, RecentFilesAndFlagsStayAsTheyWere)
{
    model.flags.changed[kPatch] = true;
    model.recentFiles[1] = "earlier.syx";
    const KindFlags before = model.flags;
    const fs::path sub = t.folder / "dumps";
    fs::create_directories(sub);
    model.misc.message = dumpOfLength(966, 0x51, 0x00);
    t.host.expectSaveFile("Save Global and MIDI (sent from Z1)", (sub / "gm.syx").string());
    EXPECT_TRUE(miscSave(model));
    EXPECT_EQ(model.recentFiles[1], "earlier.syx");
    EXPECT_EQ(model.recentFiles[2], "");
    EXPECT_EQ(model.flags.loaded, before.loaded);
    EXPECT_EQ(model.flags.changed, before.changed);
    EXPECT_EQ(model.flags.clean, before.clean);
    EXPECT_EQ(model.workFolder, sub.string());
}

TEST_F(MiscSaving, CancelWritesNothing)
{
    model.misc.message = dumpOfLength(7617, 0x4D, 0x00);
    t.host.expectSaveFile("Save All Multi (sent from Z1)", std::nullopt);
    EXPECT_FALSE(miscSave(model));
    EXPECT_TRUE(fs::is_empty(t.folder.path()));
    EXPECT_EQ(model.workFolder, t.folder.path().string());
}

TEST_F(MiscSaving, SuggestionsOffOfferNoName)
{
    model.settings.suggestNames = false;
    model.misc.message = dumpOfLength(7617, 0x4D, 0x00);
    t.host.expectSaveFile("Save All Multi (sent from Z1)", std::nullopt);
    miscSave(model);
    EXPECT_EQ(t.host.saveDialogs.at(0).fileName, "");
}

TEST_F(MiscSaving, FailedWriteSaysProblemSavingFile)
{
    model.misc.message = dumpOfLength(966, 0x51, 0x00);
    t.host.expectSaveFile("Save Global and MIDI (sent from Z1)", inFolder("missing/gm.syx"))
        .expectMessage("Save Global and MIDI (sent from Z1)", Answer::Ok, "Problem saving file");
    EXPECT_FALSE(miscSave(model));
}

TEST_F(MiscSaving, NoDumpOfAKnownLengthOpensNoDialog)
{
    model.misc.message = dumpOfLength(500, 0x51, 0x00);
    EXPECT_FALSE(miscSave(model));
    model.misc.message.clear();
    EXPECT_FALSE(miscSave(model));
}

}  // namespace
}  // namespace quillon

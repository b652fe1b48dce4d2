#include "files/SysExSaving.h"

#include "files/AtomicFile.h"
#include "files/SuggestedNames.h"
#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#ifdef __linux__
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace quillon {
namespace {

constexpr int kPatternLength = 30;
constexpr int kStep1ToneLsb = 42;

std::vector<std::uint8_t> fileBytes(const fs::path& path)
{
    std::vector<std::uint8_t> bytes;
    EXPECT_TRUE(readWholeFile(path, bytes)) << path;
    return bytes;
}

void writeBytes(const fs::path& path, const std::vector<std::uint8_t>& bytes)
{
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

struct Saving : ::testing::Test {
    TestModel t;
    AppModel& model = t.model;
    ScriptedHost& host = t.host;

    std::string file(const std::string& name) const { return (t.folder / name).string(); }

    void expectRefusal(const std::string& title, const std::string& text)
    {
        host.expectMessage(title, Answer::Ok, text);
        saveCommand(model, 1);
        ASSERT_EQ(host.messages.size(), 1u);
        EXPECT_EQ(host.messages[0].icon, MessageIcon::Information);
        EXPECT_TRUE(host.messages[0].help);
        EXPECT_EQ(host.messages[0].helpContext, 70);
        EXPECT_TRUE(host.saveDialogs.empty());
    }
};

// What Save refuses while there is nothing to save.

TEST_F(Saving, PatchModeWithoutAPatchRefuses) { expectRefusal("Save Patch", "No patch to save"); }

TEST_F(Saving, BankAModeWithoutBankARefuses)
{
    model.mode = kPatchBankA;
    expectRefusal("Save Bank A", "No bank A to save");
}

TEST_F(Saving, BankBModeWithoutBankBRefuses)
{
    model.mode = kPatchBankB;
    expectRefusal("Save Bank B", "No bank B to save");
}

TEST_F(Saving, MultiModeWithoutAMultisetRefuses)
{
    model.mode = kMultiset;
    expectRefusal("Save Multiset", "No multiset to save");
}

TEST_F(Saving, MultiBankAHighlightedWithoutMultiBankARefuses)
{
    model.mode = kMultiset;
    model.multiMode = 1;
    model.flags.loaded[kMultiset] = true;
    expectRefusal("Save Multi Bank A", "No multibank to save");
}

TEST_F(Saving, MultiBankBHighlightedWithoutMultiBankBRefuses)
{
    model.mode = kMultiset;
    model.multiMode = 2;
    expectRefusal("Save Multi Bank B", "No multibank to save");
}

TEST_F(Saving, ArpBankHighlightedWithoutArpBankRefuses)
{
    model.mode = kPattern;
    model.arpMode = 1;
    expectRefusal("Save Arpeggiator Bank", "No arpeggiator bank to save");
}

TEST_F(Saving, CommandSavesTheMultiBankThatIsHighlighted)
{
    model.mode = kMultiset;
    model.multiMode = 2;
    model.flags.loaded[kMultiBankB] = true;
    host.expectSaveFile("Save Multi Bank B", file("mb.syx"));
    saveCommand(model, 2);
    EXPECT_EQ(fs::file_size(file("mb.syx")), 3814u);
}

// The pattern: no loaded flag needed, but a question when it has no tones.

TEST_F(Saving, PatternWithoutTonesIsNotSavedWhenTheUserSaysNo)
{
    model.mode = kPattern;
    model.buffers.of(kPattern).current[kPatternLength] = 0;
    host.expectMessage("Save Arpeggiator Pattern", Answer::No,
                       "Pattern has no tones selected. Do you still want to save?");
    saveCommand(model, 2);
    EXPECT_EQ(host.messages.at(0).buttons, MessageButtons::YesNo);
    EXPECT_EQ(host.messages.at(0).helpContext, 70);
    EXPECT_TRUE(host.saveDialogs.empty());
    EXPECT_TRUE(fs::is_empty(t.folder.path()));
}

TEST_F(Saving, PatternWithoutTonesIsSavedWhenTheUserSaysYes)
{
    model.mode = kPattern;
    model.buffers.of(kPattern).current[kPatternLength] = 0;
    host.expectMessage("Save Arpeggiator Pattern", Answer::Yes)
        .expectSaveFile("Save (Single) Arp Pattern", file("empty.syx"));
    saveCommand(model, 2);
    EXPECT_EQ(fs::file_size(file("empty.syx")), 300u);
}

TEST_F(Saving, PatternWithATonePlayedIsSavedWithoutAQuestion)
{
    model.mode = kPattern;
    ParamValues& pattern = model.buffers.of(kPattern).current;
    pattern[kPatternLength] = 8;
    pattern[kStep1ToneLsb] = 1;
    host.expectSaveFile("Save (Single) Arp Pattern", file("tone.syx"));
    saveCommand(model, 1);
    EXPECT_TRUE(host.messages.empty());
    EXPECT_TRUE(fs::exists(file("tone.syx")));
}

// The road of a save.

TEST_F(Saving, SaveWithoutAFilePathFallsThroughToTheDialog)
{
    model.flags.loaded[kPatch] = true;
    model.itemPath[kPatch] = "";  // as for data received from the instrument
    host.expectSaveFile("Save Patch", file("received.syx"));
    saveCommand(model, 1);
    EXPECT_EQ(host.saveDialogs.size(), 1u);
    EXPECT_EQ(fs::file_size(file("received.syx")), 666u);
}

TEST_F(Saving, SaveWithAFilePathWritesThereWithoutADialog)
{
    model.flags.loaded[kPatch] = true;
    model.itemPath[kPatch] = file("mine.syx");
    saveCommand(model, 1);
    EXPECT_TRUE(host.saveDialogs.empty());
    EXPECT_EQ(fs::file_size(file("mine.syx")), 666u);
}

TEST_F(Saving, SaveAsWithSuggestionsOffAndNoPathOffersAnEmptyName)
{
    model.settings.suggestNames = false;
    model.suggestedPath[kPatch] = file("Suggested.syx");
    host.expectSaveFile("Save Patch", std::nullopt);
    doSavePatch(model, 2);
    ASSERT_EQ(host.saveDialogs.size(), 1u);
    EXPECT_EQ(host.saveDialogs[0].fileName, "");
    EXPECT_EQ(host.saveDialogs[0].filter, "SysEx files (*.syx)|*.syx");
}

TEST_F(Saving, SaveAsWithSuggestionsOffOffersTheFilePath)
{
    model.itemPath[kMultiset] = file("old multi.syx");
    host.expectSaveFile("Save (Single) Multiset", std::nullopt);
    doSaveMultiset(model, 2);
    EXPECT_EQ(host.saveDialogs.at(0).fileName, file("old multi.syx"));
}

TEST_F(Saving, SaveAsWithSuggestionsOnOffersTheSuggestedName)
{
    model.settings.suggestNames = true;
    model.settings.prefixes[1] = "Z1-";
    model.workFolder = t.folder.path().string();
    model.itemPath[kPatch] = file("old.syx");
    doLabelFileName(model, kPatch);
    host.expectSaveFile("Save Patch", std::nullopt);
    doSavePatch(model, 2);
    EXPECT_EQ(host.saveDialogs.at(0).fileName, model.suggestedPath[kPatch]);
    EXPECT_EQ(fs::path(host.saveDialogs.at(0).fileName).filename().string().substr(0, 3), "Z1-");
}

TEST_F(Saving, MultisetSavedUnderItsSuggestionWithoutExtensionGetsSyx)
{
    model.settings.suggestNames = true;
    model.settings.prefixes[3] = "M_";
    model.workFolder = t.folder.path().string();
    doLabelFileName(model, kMultiset);
    const std::string chosen = file("M_Item 4");
    host.expectSaveFile("Save (Single) Multiset", chosen);
    doSaveMultiset(model, 2);
    EXPECT_FALSE(fs::exists(chosen));
    ASSERT_TRUE(fs::exists(chosen + ".syx"));
    EXPECT_EQ(fileBytes(chosen + ".syx").size(), 245u);
    EXPECT_EQ(model.itemPath[kMultiset], chosen + ".syx");
}

TEST_F(Saving, PatternSavedUnderANameWithoutExtensionGetsSyxAndOneWithAnExtensionKeepsIt)
{
    model.buffers.of(kPattern).current[kStep1ToneLsb] = 1;
    host.expectSaveFile("Save (Single) Arp Pattern", file("A_Walk"));
    doSavePattern(model, 2);
    EXPECT_TRUE(fs::exists(file("A_Walk.syx")));
    host.expectSaveFile("Save (Single) Arp Pattern", file("walk.old"));
    doSavePattern(model, 2);
    EXPECT_TRUE(fs::exists(file("walk.old")));
}

TEST_F(Saving, BankSuggestionsAreBuiltFromPrefixAndBankName)
{
    model.settings.suggestNames = true;
    model.settings.prefixes = {"", "P ", "B ", "M ", "R ", "X "};
    model.workFolder = t.folder.path().string();
    host.expectSaveFile("Save Bank A", std::nullopt)
        .expectSaveFile("Save Bank B", std::nullopt)
        .expectSaveFile("Save Multi Bank A", std::nullopt)
        .expectSaveFile("Save Multi Bank B", std::nullopt)
        .expectSaveFile("Save Arpeggiator Bank", std::nullopt);
    doSaveBank(model, kPatchBankA, 2);
    doSaveBank(model, kPatchBankB, 2);
    doSaveMultiBank(model, kMultiBankA, 2);
    doSaveMultiBank(model, kMultiBankB, 2);
    doSaveArpBank(model, 2);
    ASSERT_EQ(host.saveDialogs.size(), 5u);
    EXPECT_EQ(host.saveDialogs[0].fileName, file("B Bank A.syx"));
    EXPECT_EQ(host.saveDialogs[1].fileName, file("B Bank B.syx"));
    EXPECT_EQ(host.saveDialogs[2].fileName, file("M Bank A.syx"));
    EXPECT_EQ(host.saveDialogs[3].fileName, file("M Bank B.syx"));
    EXPECT_EQ(host.saveDialogs[4].fileName, file("R Bank.syx"));
    EXPECT_EQ(host.busyDepth, 0);
}

TEST_F(Saving, CancellingTheDialogLeavesTheItemChangedAndWritesNothing)
{
    model.flags.loaded[kPatch] = true;
    model.flags.changed[kPatch] = true;
    model.flags.clean[kPatch] = false;
    model.workFolder = "before";
    host.expectSaveFile("Save Patch", std::nullopt);
    EXPECT_FALSE(doSavePatch(model, 2));
    EXPECT_TRUE(model.flags.changed[kPatch]);
    EXPECT_FALSE(model.flags.clean[kPatch]);
    EXPECT_EQ(model.itemPath[kPatch], "");
    EXPECT_EQ(model.workFolder, "before");
    EXPECT_EQ(model.recentFiles[1], "");
    EXPECT_TRUE(fs::is_empty(t.folder.path()));
}

TEST_F(Saving, SavedItemCountsAsCleanAndUnchanged)
{
    model.flags.changed[kMultiset] = true;
    model.flags.clean[kMultiset] = false;
    model.buffers.of(kMultiset).current[20] = 3;
    const std::string path = (t.folder / "sub" / "multi.syx").string();
    fs::create_directories(t.folder / "sub");
    host.expectSaveFile("Save (Single) Multiset", path);
    EXPECT_TRUE(doSaveMultiset(model, 2));
    EXPECT_EQ(model.itemPath[kMultiset], path);
    EXPECT_TRUE(model.flags.clean[kMultiset]);
    EXPECT_FALSE(model.flags.changed[kMultiset]);
    EXPECT_EQ(model.workFolder, (t.folder / "sub").string());
    EXPECT_EQ(model.recentFiles[1], path);
    EXPECT_EQ(model.buffers.of(kMultiset).loaded, model.buffers.of(kMultiset).current);
}

TEST_F(Saving, SavedBankCountsAsCleanAndEntersTheRecentFiles)
{
    model.flags.loaded[kArpBank] = true;
    model.flags.changed[kArpBank] = true;
    model.itemPath[kArpBank] = file("arps.syx");
    EXPECT_TRUE(doSaveArpBank(model, 1));
    EXPECT_FALSE(model.flags.changed[kArpBank]);
    EXPECT_TRUE(model.flags.clean[kArpBank]);
    EXPECT_EQ(model.recentFiles[1], file("arps.syx"));
    EXPECT_EQ(host.busyDepth, 0);
}

TEST_F(Saving, SaveReplacesTheOldFile)
{
    writeBytes(file("old.syx"), std::vector<std::uint8_t>(1000, 0x55));
    model.itemPath[kPattern] = file("old.syx");
    EXPECT_TRUE(doSavePattern(model, 1));
    const auto bytes = fileBytes(file("old.syx"));
    ASSERT_EQ(bytes.size(), 300u);
    EXPECT_EQ(bytes.front(), 0xF0);
    EXPECT_EQ(bytes.back(), 0xF7);
}

// A save that cannot write.

// Makes a folder read-only for as long as it lives; under an administrator
// account the folder is also made immutable where the system allows it.
class ReadOnlyFolder {
public:
    explicit ReadOnlyFolder(fs::path folder) : folder_(std::move(folder))
    {
        fs::permissions(folder_, fs::perms::owner_read | fs::perms::owner_exec, fs::perm_options::replace);
#ifdef __linux__
        if (::geteuid() == 0)
            immutable_ = setImmutable(true);
#endif
    }
    ~ReadOnlyFolder()
    {
#ifdef __linux__
        if (immutable_)
            setImmutable(false);
#endif
        fs::permissions(folder_, fs::perms::owner_all, fs::perm_options::replace);
    }

    // Whether a new file can still be made in it.
    bool stillWritable() const
    {
        const fs::path probe = folder_ / "probe";
        const bool made = std::ofstream(probe).good();
        std::error_code ignored;
        fs::remove(probe, ignored);
        return made;
    }

private:
#ifdef __linux__
    bool setImmutable(bool on)
    {
        const int fd = ::open(folder_.c_str(), O_RDONLY | O_DIRECTORY);
        if (fd < 0)
            return false;
        int flags = 0;
        bool done = ::ioctl(fd, FS_IOC_GETFLAGS, &flags) == 0;
        if (done) {
            flags = on ? (flags | FS_IMMUTABLE_FL) : (flags & ~FS_IMMUTABLE_FL);
            done = ::ioctl(fd, FS_IOC_SETFLAGS, &flags) == 0;
        }
        ::close(fd);
        return done;
    }
    bool immutable_ = false;
#endif
    fs::path folder_;
};

TEST_F(Saving, SaveIntoAReadOnlyFolderKeepsTheOldFileAndSaysSo)
{
    const fs::path folder = t.folder / "locked";
    fs::create_directories(folder);
    const std::string path = (folder / "bank.syx").string();
    const std::vector<std::uint8_t> old(84270, 0x11);
    writeBytes(path, old);
    model.flags.loaded[kPatchBankB] = true;
    model.flags.changed[kPatchBankB] = true;
    model.itemPath[kPatchBankB] = path;

    ReadOnlyFolder locked(folder);
    if (locked.stillWritable())
        GTEST_SKIP() << "this account can write into a read-only folder";
    host.expectMessage("Save Bank B", Answer::Ok, "Problem saving file");
    EXPECT_FALSE(doSaveBank(model, kPatchBankB, 1));
    EXPECT_EQ(host.messages.at(0).icon, MessageIcon::Information);
    EXPECT_TRUE(host.messages.at(0).help);
    EXPECT_EQ(fileBytes(path), old);
    EXPECT_TRUE(model.flags.changed[kPatchBankB]);
    EXPECT_FALSE(model.flags.clean[kPatchBankB]);
    EXPECT_EQ(model.recentFiles[1], "");
    EXPECT_EQ(host.busyDepth, 0);
}

TEST_F(Saving, SaveIntoAFolderThatIsGoneSaysProblemSavingFile)
{
    const std::string path = (t.folder / "gone" / "patch.syx").string();
    model.flags.changed[kPatch] = true;
    host.expectSaveFile("Save Patch", path).expectMessage("Save Patch", Answer::Ok, "Problem saving file");
    EXPECT_FALSE(doSavePatch(model, 2));
    EXPECT_FALSE(fs::exists(t.folder / "gone"));
    EXPECT_TRUE(model.flags.changed[kPatch]);
    EXPECT_EQ(model.itemPath[kPatch], "");
}

TEST_F(Saving, SaveKindRunsTheRoutineOfEveryKindAndIgnoresOthers)
{
    EXPECT_FALSE(saveKind(model, 0, 1));
    EXPECT_FALSE(saveKind(model, kOtherDump, 1));
    EXPECT_FALSE(doSaveBank(model, kMultiBankA, 1));
    EXPECT_FALSE(doSaveMultiBank(model, kPatchBankA, 1));
    host.expectSaveFile("Save Multi Bank A", file("k6.syx"));
    EXPECT_TRUE(saveKind(model, kMultiBankA, 1));
    EXPECT_EQ(fs::file_size(file("k6.syx")), 3814u);
}

}  // namespace
}  // namespace quillon

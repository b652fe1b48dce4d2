#include "banks/ImportFiles.h"

#include "banks/BankFixtures.h"
#include "banks/BankUndo.h"
#include "banks/ImportFixtures.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quillon {
namespace {

namespace fs = std::filesystem;

struct ImportFiles : ::testing::Test {
    TestModel t;
    AppModel& model = t.model;
    ImportState state;

    void SetUp() override
    {
        loadNumberedBank(model, kPatchBankA, "A");
        loadNumberedBank(model, kPatchBankB, "B");
        state.targetBank = kPatchBankB;
    }

    // Numbered patch files "f00.syx" ... named "New 00" ...
    std::vector<fs::path> patchFiles(int count)
    {
        std::vector<fs::path> files;
        for (int i = 0; i < count; ++i) {
            char name[8];
            std::snprintf(name, sizeof name, "%02d", i);
            files.push_back(writePatchFile(t.folder / ("f" + std::string(name) + ".syx"),
                                           namedPatch("New " + std::string(name), i)));
        }
        return files;
    }

    void run(const std::vector<fs::path>& files, int start, const std::function<void()>& between = {})
    {
        importFiles(model, state, files, start, between);
    }
};

TEST_F(ImportFiles, A666ByteFileWithOneByteAbove7FInTheDumpIsDoubtfulAndNotLoaded)
{
    // A data byte whose own high bit is clear in its group's first byte:
    // nothing in the unpacking itself would notice it.
    auto bytes = patchFileBytes(namedPatch("Odd", 0));
    ASSERT_EQ(bytes.size(), 666u);
    const std::size_t dataByte = 6 + 8 * 10 + 1;
    bytes[6 + 8 * 10] = 0;
    bytes[dataByte] = 0x85;
    const ByteImage before = model.banks.image(kPatchBankB);
    run({writeBytes(t.folder / "odd.syx", bytes)}, 5);
    EXPECT_EQ(state.results, std::vector<std::string>{"!    odd.syx looks doubtful - not loaded"});
    EXPECT_EQ(model.banks.image(kPatchBankB), before);
    EXPECT_EQ(state.position, 5);
    EXPECT_EQ(state.written, 0);
}

TEST_F(ImportFiles, AHighBitOnADataByteAbove7FIsReportedBeforeTheDoubtfulLine)
{
    auto bytes = patchFileBytes(namedPatch("Odd", 0));
    bytes[6] = 0x01;   // the first byte of the first group: bit 7 for data byte 1
    bytes[7] = 0xFF;   // which already has it
    run({writeBytes(t.folder / "odd.syx", bytes)}, 0);
    EXPECT_EQ(state.results, (std::vector<std::string>{"MIDI byte 2 high value 383 changed to 255",
                                                       "!    odd.syx looks doubtful - not loaded"}));
}

TEST_F(ImportFiles, HighBitsPointingBehindThePatchDataMakeTheFileDoubtful)
{
    auto bytes = patchFileBytes(namedPatch("Odd", 0));
    bytes[6 + 656] |= 0x04;  // byte 657 of the packed data, bit 2: byte 660
    run({writeBytes(t.folder / "odd.syx", bytes)}, 0);
    EXPECT_EQ(state.results, (std::vector<std::string>{"MIDI byte 660 hiBits present (ignored)",
                                                       "!    odd.syx looks doubtful - not loaded"}));
}

TEST_F(ImportFiles, FilesOf665And867BytesAreNotZ1PatchFiles)
{
    auto shortFile = patchFileBytes(namedPatch("Short"));
    shortFile.pop_back();
    auto longFile = patchFileBytes(namedPatch("Long"));
    longFile.resize(867, 0);
    const ByteImage before = model.banks.image(kPatchBankB);
    run({writeBytes(t.folder / "short.syx", shortFile), writeBytes(t.folder / "long.syx", longFile)}, 0);
    EXPECT_EQ(state.results, (std::vector<std::string>{"short.syx is not a Z1 patch file",
                                                       "long.syx is not a Z1 patch file"}));
    EXPECT_EQ(model.banks.image(kPatchBankB), before);
}

TEST_F(ImportFiles, FromPosition120TwentyFilesStopWithTheFinalPatchLineAfterEight)
{
    run(patchFiles(20), 120);
    ASSERT_FALSE(state.results.empty());
    EXPECT_EQ(state.results.back(), "Import terminated - final patch");
    EXPECT_EQ(state.results.size(), 8u * 2 + 1);
    EXPECT_EQ(state.results[14], "f07.syx loaded");
    EXPECT_EQ(state.results[15], "New 07 has replaced B127 B127");
    EXPECT_EQ(state.written, 8);
    const auto names = bankNames(model, kPatchBankB);
    EXPECT_EQ(names[119], "B119");
    EXPECT_EQ(names[120], "New 00");
    EXPECT_EQ(names[127], "New 07");
}

TEST_F(ImportFiles, StopBetweenTwoFilesKeepsWhatWasAlreadyWritten)
{
    int files = 0;
    run(patchFiles(4), 10, [&] {
        // The user clicks cmdStop while the second file is being loaded.
        if (++files == 3)
            state.stopRequested = true;
    });
    EXPECT_EQ(state.results, (std::vector<std::string>{"f00.syx loaded", "New 00 has replaced B010 B010",
                                                       "f01.syx loaded", "New 01 has replaced B011 B011",
                                                       "Import terminated by user"}));
    const auto names = bankNames(model, kPatchBankB);
    EXPECT_EQ(names[10], "New 00");
    EXPECT_EQ(names[11], "New 01");
    EXPECT_EQ(names[12], "B012");
    EXPECT_EQ(state.written, 2);
    EXPECT_FALSE(state.running);
}

TEST_F(ImportFiles, ALoadedPatchIsWrittenByteForByteAndMarksTheBankChanged)
{
    const ByteImage patch = namedPatch("Glass Choir", 99);
    run({writePatchFile(t.folder / "glass.syx", patch)}, 3);
    EXPECT_EQ(state.results,
              (std::vector<std::string>{"glass.syx loaded", "Glass Choir has replaced B003 B003"}));
    EXPECT_EQ(model.banks.readBankPatch(kPatchBankB, 3), patch);
    EXPECT_TRUE(model.flags.changed[kPatchBankB]);
    EXPECT_EQ(state.position, 4);
}

TEST_F(ImportFiles, WithNoFileSelectedTheUserIsAskedToSelectSome)
{
    t.host.expectMessage("Import to Bank", Answer::Ok, "Please select files to import");
    run({}, 0);
    EXPECT_TRUE(t.host.allShown());
    EXPECT_TRUE(state.results.empty());
}

TEST_F(ImportFiles, ASecondRunContinuesWhereTheFirstStoppedUntilTheLinesAreCleared)
{
    const auto files = patchFiles(2);
    run({files[0]}, 40);
    run({files[1]}, 40);
    EXPECT_EQ(bankNames(model, kPatchBankB)[41], "New 01");
    state.results.clear();
    run({files[1]}, 60);
    EXPECT_EQ(bankNames(model, kPatchBankB)[60], "New 01");
}

TEST_F(ImportFiles, ADumpWithStrayBytesAroundItAndA668ByteHeaderLoadsTheSame)
{
    const ByteImage patch = namedPatch("Stray", 5);
    std::vector<std::uint8_t> bytes(50, 0x00);
    auto dump = patchFileBytes(patch);
    // The longer header: two more bytes behind the function code.
    dump.insert(dump.begin() + 5, {0x00, 0x00});
    ASSERT_EQ(dump.size(), 668u);
    bytes.insert(bytes.end(), dump.begin(), dump.end());
    bytes.insert(bytes.end(), 30, 0x00);
    run({writeBytes(t.folder / "stray.syx", bytes)}, 0);
    EXPECT_EQ(state.results.front(), "stray.syx loaded");
    EXPECT_EQ(model.banks.readBankPatch(kPatchBankB, 0), patch);
}

TEST_F(ImportFiles, InAContainerTheDumpBlockIsTakenAndOtherBlocksAreSkipped)
{
    const ByteImage first = namedPatch("First", 1);
    const ByteImage last = namedPatch("Last", 2);
    const std::vector<std::uint8_t> other(20, 0x42);
    const auto fits = containerBytes({other, patchFileBytes(last)}, 850);
    run({writeBytes(t.folder / "box.syx", fits)}, 0);
    EXPECT_EQ(state.results.front(), "box.syx loaded");
    EXPECT_EQ(model.banks.readBankPatch(kPatchBankB, 0), last);
    const ImportDecoded decoded = decodeImportFile(containerBytes({patchFileBytes(first)}, 800));
    EXPECT_EQ(decoded.verdict, ImportVerdict::Loaded);
    EXPECT_EQ(decoded.image, first);
}

TEST_F(ImportFiles, AContainerOfMoreThanTenBlocksIsAProblemReadingTheFile)
{
    std::vector<std::vector<std::uint8_t>> blocks(11);
    blocks.push_back(patchFileBytes(namedPatch("Late")));
    const auto bytes = containerBytes(blocks, 0);
    ASSERT_LE(bytes.size(), 866u);
    run({writeBytes(t.folder / "many.syx", bytes)}, 0);
    EXPECT_EQ(state.results, std::vector<std::string>{"Problem reading file many.syx"});
}

TEST_F(ImportFiles, AFolderOfEveryOtherSizeAContainerAndAnUnreadableFileGivesTheirLines)
{
    const fs::path folder = t.folder / "in";
    fs::create_directory(folder);
    std::vector<fs::path> files;
    for (std::size_t size : {0u, 1u, 245u, 300u, 665u, 867u, 5000u, 84270u})
        files.push_back(writeBytes(folder / ("size" + std::to_string(size) + ".syx"),
                                   std::vector<std::uint8_t>(size, 0xF0)));
    const ByteImage boxed = namedPatch("Boxed", 3);
    files.push_back(writeBytes(folder / "wrapped.syx", containerBytes({patchFileBytes(boxed)}, 820)));
    fs::create_directory(folder / "folder.syx");
    files.push_back(folder / "folder.syx");
    files.push_back(folder / "gone.syx");

    ByteImage expected = model.banks.image(kPatchBankB);
    const ByteImage bankA = model.banks.image(kPatchBankA);
    run(files, 7);
    EXPECT_EQ(state.results, (std::vector<std::string>{
                                 "size0.syx is not a Z1 patch file",
                                 "size1.syx is not a Z1 patch file",
                                 "size245.syx is not a Z1 patch file",
                                 "size300.syx is not a Z1 patch file",
                                 "size665.syx is not a Z1 patch file",
                                 "size867.syx is not a Z1 patch file",
                                 "size5000.syx is not a Z1 patch file",
                                 "size84270.syx is not a Z1 patch file",
                                 "wrapped.syx loaded",
                                 "Boxed has replaced B007 B007",
                                 "Problem reading file folder.syx",
                                 "Problem reading file gone.syx",
                             }));
    std::copy(boxed.begin(), boxed.end(), expected.begin() + 7 * kPatchBytes);
    EXPECT_EQ(model.banks.image(kPatchBankB), expected);
    EXPECT_EQ(model.banks.image(kPatchBankA), bankA);
    EXPECT_FALSE(model.flags.changed[kPatchBankA]);
    EXPECT_EQ(state.written, 1);
    EXPECT_EQ(state.position, 8);
}

TEST_F(ImportFiles, NothingHappensWhenTheTargetBankIsNotLoaded)
{
    model.flags.loaded[kPatchBankB] = false;
    run(patchFiles(1), 0);
    EXPECT_TRUE(state.results.empty());
}

TEST_F(ImportFiles, TheFolderListsItsSyxFilesByName)
{
    const fs::path folder = t.folder / "list";
    fs::create_directory(folder);
    for (const char* name : {"b.syx", "A.SYX", "c.txt", "a.syx"})
        writeBytes(folder / name, {0xF0});
    fs::create_directory(folder / "d.syx");
    std::vector<std::string> names;
    for (const auto& path : importFilesInFolder(folder))
        names.push_back(path.filename().string());
    EXPECT_EQ(names, (std::vector<std::string>{"A.SYX", "a.syx", "b.syx"}));
    EXPECT_TRUE(importFilesInFolder(folder / "missing").empty());
}

TEST_F(ImportFiles, TheStartRowsNameEveryPlaceOfTheBank)
{
    const auto rows = startPatchRows(model, kPatchBankB);
    ASSERT_EQ(rows.size(), 128u);
    EXPECT_EQ(rows[0], "B000 B000" + std::string(12, ' '));
    EXPECT_EQ(rows[127].substr(0, 9), "B127 B127");
    EXPECT_EQ(startPatchRows(model, kPatchBankA)[5].substr(0, 9), "A005 A005");
    EXPECT_EQ(filesSelectedText(3), "3 files selected");
}

TEST_F(ImportFiles, OnlyALoadedBankCanBeChosenAndTheCurrentOneComesFirst)
{
    model.bankTarget = kPatchBankB;
    EXPECT_EQ(importBankChoice(model).preselected, kPatchBankB);
    model.flags.loaded[kPatchBankB] = false;
    const ImportBankChoice choice = importBankChoice(model);
    EXPECT_TRUE(choice.aEnabled);
    EXPECT_FALSE(choice.bEnabled);
    EXPECT_EQ(choice.preselected, kPatchBankA);
    model.flags.loaded[kPatchBankA] = false;
    EXPECT_EQ(importBankChoice(model).preselected, 0);
}

TEST_F(ImportFiles, DoneAfterAWriteShowsTheBankChangedAndEmptiesTheUndoRing)
{
    model.flags.clean[kPatchBankB] = true;
    pushUndoSlot(model);
    updateUndoBankMenu(model, 30);
    ASSERT_FALSE(model.banks.undo.empty());
    model.banks.selection(kPatchBankB).selectionCount = 3;
    run(patchFiles(1), 0);
    finishImport(model, state, (t.folder / "in").string());
    EXPECT_EQ(model.mode, kPatchBankB);
    EXPECT_EQ(model.bankTarget, kPatchBankB);
    EXPECT_TRUE(model.flags.changed[kPatchBankB]);
    EXPECT_FALSE(model.flags.clean[kPatchBankB]);
    EXPECT_TRUE(model.banks.undo.empty());
    EXPECT_EQ(model.bankView.undoItems[kMnuUndoBank].caption, "Undo");
    EXPECT_EQ(model.banks.selection(kPatchBankB).selectionCount, 0);
    EXPECT_EQ(model.workFolder, (t.folder / "in").string());
    EXPECT_EQ(model.bankView.labels[0].caption.substr(0, 6), "New 00");
    EXPECT_EQ(model.labels.highlightedKind(), kPatchBankB);
}

TEST_F(ImportFiles, DoneWithNothingWrittenKeepsTheFlagsAndTheUndoRing)
{
    pushUndoSlot(model);
    updateUndoBankMenu(model, 30);
    finishImport(model, state, "");
    EXPECT_FALSE(model.flags.changed[kPatchBankB]);
    EXPECT_FALSE(model.banks.undo.empty());
    EXPECT_EQ(model.mode, kPatchBankB);
}

TEST_F(ImportFiles, DoneWithNoBankLoadedLeavesTheScreenAlone)
{
    model.flags.loaded[kPatchBankA] = false;
    model.flags.loaded[kPatchBankB] = false;
    model.mode = kPatch;
    finishImport(model, state, t.folder.path().string());
    EXPECT_EQ(model.mode, kPatch);
    EXPECT_NE(model.workFolder, t.folder.path().string());
}

}  // namespace
}  // namespace quillon

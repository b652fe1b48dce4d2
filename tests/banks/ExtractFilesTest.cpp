#include "banks/ExtractFiles.h"

#include "banks/BankFixtures.h"
#include "banks/ImportFiles.h"
#include "banks/ImportFixtures.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quillon {
namespace {

namespace fs = std::filesystem;

std::vector<std::uint8_t> fileBytes(const fs::path& path)
{
    std::vector<std::uint8_t> bytes;
    EXPECT_TRUE(readWholeFile(path, bytes)) << path;
    return bytes;
}

struct ExtractFiles : ::testing::Test {
    TestModel t;
    AppModel& model = t.model;
    fs::path out = t.folder / "out";

    void SetUp() override
    {
        fs::create_directory(out);
        loadNumberedBank(model, kPatchBankA, "A");
        loadNumberedBank(model, kPatchBankB, "B");
    }

    // Bank `bank` on show with these places selected.
    void select(int bank, const std::vector<int>& places)
    {
        showBank(model, bank);
        selectBankPatches(model, bank, places);
    }
};

TEST_F(ExtractFiles, FormatSixFromBankBNamesFilesBAndThePlace)
{
    model.settings.fileNameFormat = 6;
    select(kPatchBankB, {5, 100});
    t.host.expectSaveFile("Extract patches - save 2 files", (out / "chosen.syx").string());
    const auto written = extractPatches(model);
    EXPECT_EQ(written, (std::vector<std::string>{(out / "b005 B005.syx").string(), (out / "b100 B100.syx").string()}));
    const auto bytes = fileBytes(out / "b100 B100.syx");
    EXPECT_EQ(bytes, patchFileBytes(model.banks.readBankPatch(kPatchBankB, 100)));
    EXPECT_EQ(model.banks.lastPutPatch, 228);
    EXPECT_EQ(t.host.status, "2 files saved");
    EXPECT_EQ(t.host.statusColour, StatusColour::Done);
}

TEST_F(ExtractFiles, TheSaveDialogOffersTheFirstPatchInTheExtractFolder)
{
    model.settings.extractFolder = out.string();
    select(kPatchBankA, {9, 3});
    t.host.expectSaveFile("Extract patches - save 2 files", std::nullopt);
    EXPECT_TRUE(extractPatches(model).empty());
    ASSERT_EQ(t.host.saveDialogs.size(), 1u);
    const FileDialogRequest& dialog = t.host.saveDialogs[0];
    EXPECT_EQ(dialog.filter, "SysEx files (*.syx)|*.syx");
    EXPECT_EQ(dialog.startFolder, out.string());
    EXPECT_EQ(dialog.fileName, (out / "A003.syx").string());
    EXPECT_TRUE(fs::is_empty(out));
}

TEST_F(ExtractFiles, WithoutAnExtractFolderTheDialogStartsInTheWorkFolder)
{
    model.workFolder = t.folder.path().string();
    select(kPatchBankA, {0});
    t.host.expectSaveFile("Extract patches - save 1 files", std::nullopt);
    extractPatches(model);
    EXPECT_EQ(t.host.saveDialogs.at(0).startFolder, t.folder.path().string());
}

TEST_F(ExtractFiles, TheFilesFollowTheSelectionSequenceAndShowEachSave)
{
    select(kPatchBankA, {7, 2});
    t.host.expectSaveFile("Extract patches - save 2 files", (out / "x.syx").string());
    const auto written = extractPatches(model);
    EXPECT_EQ(written, (std::vector<std::string>{(out / "A002.syx").string(), (out / "A007.syx").string()}));
    EXPECT_EQ(model.settings.extractFolder, out.string());
    EXPECT_EQ(model.banks.lastPutPatch, 7);
}

TEST_F(ExtractFiles, ANameCharacterAFileCannotHoldBecomesABlank)
{
    nameBankPatch(model, kPatchBankA, 4, "Lead/Solo:1");
    select(kPatchBankA, {4});
    t.host.expectSaveFile("Extract patches - save 1 files", (out / "x.syx").string());
    extractPatches(model);
    EXPECT_TRUE(fs::exists(out / "Lead Solo 1.syx"));
}

TEST_F(ExtractFiles, TheEditPatchStaysAsItWas)
{
    const ByteImage edit = model.itemImage(kPatch);
    const ParamValues values = model.buffers.of(kPatch).current;
    select(kPatchBankA, {1, 2, 3});
    t.host.expectSaveFile("Extract patches - save 3 files", (out / "x.syx").string());
    extractPatches(model);
    EXPECT_EQ(model.itemImage(kPatch), edit);
    EXPECT_EQ(model.buffers.of(kPatch).current, values);
}

TEST_F(ExtractFiles, NothingHappensWithoutASelectionOrALoadedBank)
{
    select(kPatchBankA, {});
    EXPECT_TRUE(extractPatches(model).empty());
    select(kPatchBankB, {1});
    model.flags.loaded[kPatchBankB] = false;
    EXPECT_TRUE(extractPatches(model).empty());
    EXPECT_TRUE(t.host.saveDialogs.empty());
}

TEST_F(ExtractFiles, ASaveErrorEndsTheRunAndKeepsTheFilesWrittenBefore)
{
    fs::create_directory(out / "A002.syx");
    select(kPatchBankA, {1, 2, 3});
    t.host.expectSaveFile("Extract patches - save 3 files", (out / "x.syx").string());
    t.host.expectMessage("Extract patches - save 3 files", Answer::Ok, "Problem saving file");
    const auto written = extractPatches(model);
    EXPECT_EQ(written, std::vector<std::string>{(out / "A001.syx").string()});
    EXPECT_TRUE(fs::exists(out / "A001.syx"));
    EXPECT_FALSE(fs::exists(out / "A003.syx"));
    EXPECT_TRUE(t.host.allShown());
}

TEST(ImportExtractRoundTrip, ABankExtractedTo128FilesAndImportedBackIsTheSameBank)
{
    TestModel t;
    AppModel& model = t.model;
    const fs::path out = t.folder / "patches";
    fs::create_directory(out);
    for (int p = 0; p < kPatchesPerBank; ++p)
        model.banks.writeBankPatch(kPatchBankA, p, namedPatch("Patch " + std::to_string(p), p * 13));
    model.flags.loaded[kPatchBankA] = true;
    loadNumberedBank(model, kPatchBankB, "B");
    model.settings.fileNameFormat = 6;
    std::vector<int> all(kPatchesPerBank);
    for (int p = 0; p < kPatchesPerBank; ++p)
        all[static_cast<std::size_t>(p)] = p;
    showBank(model, kPatchBankA);
    selectBankPatches(model, kPatchBankA, all);
    t.host.expectSaveFile("Extract patches - save 128 files", (out / "x.syx").string());
    ASSERT_EQ(extractPatches(model).size(), 128u);

    ImportState state;
    state.targetBank = kPatchBankB;
    importFiles(model, state, importFilesInFolder(out), 0, {});
    EXPECT_EQ(state.written, 128);
    EXPECT_EQ(state.results.back(), "Import terminated - final patch");
    EXPECT_EQ(model.banks.image(kPatchBankB), model.banks.image(kPatchBankA));
}

}  // namespace
}  // namespace quillon

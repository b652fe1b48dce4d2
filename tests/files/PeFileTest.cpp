#include "files/PeFile.h"

#include "files/AtomicFile.h"
#include "files/DataFolder.h"
#include "files/FactoryFiles.h"
#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quillon {
namespace {

std::string padded(const std::string& name)
{
    std::string record = name;
    record.resize(kPeRecordLength, ' ');
    return record;
}

std::string factoryRecord(int record) { return padded(peDestinationNames()[static_cast<std::size_t>(record - 1)]); }

// A model whose Quillonpe.dat is open.
struct OpenPeFile : TestModel {
    OpenPeFile()
    {
        EXPECT_TRUE(installFactoryFiles(folder.path()));
        EXPECT_TRUE(openPeFile(model));
    }
    void setType(int param, int type) { model.buffers.of(kPatch).current[static_cast<std::size_t>(param)] = type; }
};

TEST(PeFile, ValuesBelowOneAreOff)
{
    OpenPeFile t;
    EXPECT_EQ(peParamName(t.model, 0), "Off");
    EXPECT_EQ(peParamName(t.model, -5), "Off");
}

TEST(PeFile, CommonDestinationsAreTheirOwnRecord)
{
    OpenPeFile t;
    EXPECT_EQ(peParamName(t.model, 1), padded("Common Pitch Mod.Int."));
    EXPECT_EQ(peParamName(t.model, 2), padded("Portamento Time"));
    EXPECT_EQ(peParamName(t.model, 157), factoryRecord(157));
    EXPECT_EQ(peParamName(t.model, 157).size(), 60u);
}

TEST(PeFile, Osc1ParametersFollowTheOsc1Type)
{
    OpenPeFile t;
    t.setType(174, 0);
    EXPECT_EQ(peRecordNumber(t.model, 158), 158);
    t.setType(174, 12);
    EXPECT_EQ(peRecordNumber(t.model, 158), 12 * 21 + 158);
    EXPECT_EQ(peRecordNumber(t.model, 178), 430);
    EXPECT_EQ(peParamName(t.model, 178), factoryRecord(430));
}

TEST(PeFile, Osc2ParametersFollowTheOsc2Type)
{
    OpenPeFile t;
    t.setType(174, 5);  // OSC1 has no say here
    t.setType(188, 0);
    EXPECT_EQ(peRecordNumber(t.model, 179), 431);
    t.setType(188, 8);
    EXPECT_EQ(peRecordNumber(t.model, 199), 8 * 21 + 430 + 21);
    EXPECT_EQ(peParamName(t.model, 199), factoryRecord(619));
}

TEST(PeFile, Fx1Fx2AndMasterFxParametersFollowTheirTypes)
{
    OpenPeFile t;
    t.setType(359, 14);
    t.setType(360, 10);
    t.setType(361, 2);
    EXPECT_EQ(peRecordNumber(t.model, 200), 14 * 12 + 620);
    EXPECT_EQ(peRecordNumber(t.model, 211), 799);
    EXPECT_EQ(peRecordNumber(t.model, 212), 10 * 12 + 800);
    EXPECT_EQ(peRecordNumber(t.model, 223), 931);
    EXPECT_EQ(peRecordNumber(t.model, 224), 2 * 7 + 932);
    EXPECT_EQ(peRecordNumber(t.model, 230), 952);
    EXPECT_EQ(peParamName(t.model, 230), factoryRecord(952));
    t.setType(361, 0);
    EXPECT_EQ(peParamName(t.model, 224), factoryRecord(932));
}

TEST(PeFile, ValuesBeyondTheListHaveNoName)
{
    OpenPeFile t;
    EXPECT_EQ(peRecordNumber(t.model, 231), 0);
    EXPECT_EQ(peParamName(t.model, 231), "");
}

TEST(PeFile, MissingFileIsCopiedFromItsBackup)
{
    TestModel t;
    ASSERT_TRUE(installFactoryFiles(t.folder.path()));
    ASSERT_FALSE(std::filesystem::exists(t.folder / kPeFile));

    EXPECT_TRUE(openPeFile(t.model));
    EXPECT_EQ(std::filesystem::file_size(t.folder / kPeFile), 952u * 60u);
    EXPECT_EQ(peParamName(t.model, 2), padded("Portamento Time"));
}

TEST(PeFile, NoFileAndNoBackupShowsTheBox)
{
    TestModel t;
    t.host.expectMessage("Problem reading user settings", Answer::Ok,
                         "Please check that Quillonpe.dat is in Quillon directory");

    EXPECT_FALSE(openPeFile(t.model));
    EXPECT_EQ(peParamName(t.model, 2), "");
    EXPECT_EQ(peParamName(t.model, 0), "Off");
}

TEST(PeFile, ARecordBeyondTheEndOfAShortFileHasNoName)
{
    TestModel t;
    const std::string records = padded("First") + padded("Second");
    std::vector<std::uint8_t> bytes(records.begin(), records.end());
    ASSERT_TRUE(writeFileAtomically(t.folder / kPeFile, bytes));

    ASSERT_TRUE(openPeFile(t.model));
    EXPECT_EQ(peParamName(t.model, 2), padded("Second"));
    EXPECT_EQ(peParamName(t.model, 3), "");
}

}  // namespace
}  // namespace quillon

#include "banks/RemapShow.h"

#include "RemapFixtures.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quillon {
namespace {

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

// Old and new lists where new A is old A reversed, old B012 is renamed and
// new B000 is a patch that was not there before.
struct ShowRemapData : ::testing::Test {
    TestModel t;
    RemapShowData data;

    void SetUp() override
    {
        auto newA = numberedNames("A");
        std::reverse(newA.begin(), newA.end());
        auto newB = numberedNames("B");
        newB[12] = "Renamed         ";
        writeBankListFile(t.model, kPatchBankA, kOldList, numberedNames("A"));
        writeBankListFile(t.model, kPatchBankB, kOldList, numberedNames("B"));
        writeBankListFile(t.model, kPatchBankA, kNewList, newA);
        writeBankListFile(t.model, kPatchBankB, kNewList, newB);
        RemapNames oldNames;
        RemapNames newNames;
        for (int p = 0; p < 128; ++p) {
            oldNames[static_cast<std::size_t>(p)] = numberedNames("A")[static_cast<std::size_t>(p)];
            oldNames[static_cast<std::size_t>(p + 128)] = numberedNames("B")[static_cast<std::size_t>(p)];
            newNames[static_cast<std::size_t>(p)] = newA[static_cast<std::size_t>(p)];
            newNames[static_cast<std::size_t>(p + 128)] = newB[static_cast<std::size_t>(p)];
        }
        writeRemapFile(t.model, matchNames(oldNames, newNames));
        ASSERT_TRUE(openShowRemap(t.model, data));
    }
};

TEST_F(ShowRemapData, ByOldNumberListsEveryOldPatchWithItsNewPlace)
{
    const auto lines = linesOf(remapShowText(data, kByOldNumber));
    ASSERT_EQ(lines.size(), 256u);
    EXPECT_EQ(lines[0], "A000\tA000            \tA127\tA000            ");
    EXPECT_EQ(lines[131], "B003\tB003            \tB003\tB003            ");
    EXPECT_EQ(lines[140], "B012\tB012            \tA000\t[not present]");
}

TEST_F(ShowRemapData, ByNewNumberShowsNotPresentForANewPatchWithNoOldOne)
{
    const auto lines = linesOf(remapShowText(data, kByNewNumber));
    ASSERT_EQ(lines.size(), 256u);
    EXPECT_EQ(lines[0], "A127\tA127            \tA000\tA127            ");
    EXPECT_EQ(lines[140], "A000\t[not present]\tB012\tRenamed         ");
}

TEST_F(ShowRemapData, ByOldNameSortsOnTheOldNamesByCharacterCode)
{
    const auto lines = linesOf(remapShowText(data, kByOldName));
    ASSERT_EQ(lines.size(), 256u);
    EXPECT_EQ(lines[0].substr(0, 4), "A000");
    EXPECT_EQ(lines[128].substr(0, 4), "B000");
}

TEST_F(ShowRemapData, ByNewNameSortsOnTheNewNamesByCharacterCode)
{
    const auto lines = linesOf(remapShowText(data, kByNewName));
    ASSERT_EQ(lines.size(), 256u);
    EXPECT_EQ(lines[0], "A000\tA000            \tA127\tA000            ");
    // "Renamed" comes after every "A..." and "B..." name.
    EXPECT_EQ(lines[255], "A000\t[not present]\tB012\tRenamed         ");
}

TEST(ShowRemap, TheCharacterCodeSortPutsCapitalsBeforeSmallLetters)
{
    RemapShowData data;
    data.table.fill(-1);
    data.newToOld.fill(-1);
    for (std::size_t i = 0; i < 256; ++i)
        data.oldNames[i] = "m" + std::to_string(1000 + i);
    data.oldNames[200] = "Zebra";
    data.oldNames[100] = "apple";
    const auto lines = linesOf(remapShowText(data, kByOldName));
    EXPECT_EQ(lines[0].substr(0, 10), "B072\tZebra");
    EXPECT_EQ(lines[1].substr(0, 10), "A100\tapple");
}

TEST(ShowRemap, TheInverseTableTakesTheLastOldPatchOfANewOne)
{
    RemapTable table{};
    table.fill(-1);
    table[4] = 9;
    table[30] = 9;
    const RemapTable inverse = invertRemapTable(table);
    EXPECT_EQ(inverse[9], 30);
    EXPECT_EQ(inverse[4], -1);
}

TEST(ShowRemap, TableWithOneListMissingShowsTheMissingFilesMessage)
{
    TestModel t;
    writeRemapFile(t.model, RemapTable{});
    writeBankListFile(t.model, kPatchBankA, kOldList, numberedNames("A"));
    writeBankListFile(t.model, kPatchBankB, kOldList, numberedNames("B"));
    writeBankListFile(t.model, kPatchBankA, kNewList, numberedNames("A"));
    t.host.expectMessage("Show Remap", Answer::Ok, "Missing remap text files");
    RemapShowData data;
    EXPECT_FALSE(openShowRemap(t.model, data));
}

TEST(ShowRemap, WithoutTheTableTheFormStaysClosed)
{
    TestModel t;
    t.host.expectMessage("Loading Remap", Answer::Ok, "No remap created. Could not find file Quillonrmp.dat");
    RemapShowData data;
    EXPECT_FALSE(openShowRemap(t.model, data));
}

}  // namespace
}  // namespace quillon

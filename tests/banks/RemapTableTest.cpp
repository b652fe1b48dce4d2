#include "banks/RemapTable.h"

#include "RemapFixtures.h"
#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace quillon {
namespace {

RemapNames blankNames()
{
    RemapNames names;
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i] = "Name " + std::to_string(i);
    return names;
}

RemapTable identityTable()
{
    RemapTable table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<std::int16_t>(i);
    return table;
}

TEST(RemapMatch, APatchMovedElsewhereIsFoundAtItsNewPlace)
{
    RemapNames oldNames = blankNames();
    RemapNames newNames = blankNames();
    std::swap(newNames[3], newNames[200]);
    const RemapTable table = matchNames(oldNames, newNames);
    EXPECT_EQ(table[3], 200);
    EXPECT_EQ(table[200], 3);
    EXPECT_EQ(table[4], 4);
}

TEST(RemapMatch, APatchRenamedBetweenTheMapsComesOutAsMinusOneAndGoesToA000InEveryMultisetThatUsedIt)
{
    RemapNames oldNames = blankNames();
    RemapNames newNames = blankNames();
    newNames[140] = "Renamed";
    const RemapTable table = matchNames(oldNames, newNames);
    EXPECT_EQ(table[140], -1);

    TestModel t;
    t.model.remap.remapTable = table;
    t.model.flags.loaded[kMultiBankA] = true;
    for (int position : {0, 9})
        bankTimbre(t.model, kMultiBankA, position, 2) = 140;
    bankTimbre(t.model, kMultiBankA, 5, 4) = 140;
    bankTimbre(t.model, kMultiBankA, 5, 5) = 141;
    for (int position = 0; position < kMultisPerBank; ++position)
        remapMultiset(t.model, kMultiBankA, position);
    EXPECT_EQ(bankTimbre(t.model, kMultiBankA, 0, 2), 0);
    EXPECT_EQ(bankTimbre(t.model, kMultiBankA, 9, 2), 0);
    EXPECT_EQ(bankTimbre(t.model, kMultiBankA, 5, 4), 0);
    EXPECT_EQ(bankTimbre(t.model, kMultiBankA, 5, 5), 141);

    t.model.flags.loaded[kMultiset] = true;
    setEditTimbre(t.model, 6, 140);
    setEditTimbre(t.model, 1, 141);
    remapMultiset(t.model, 0, 0);
    EXPECT_EQ(editTimbre(t.model, 6), 0);
    EXPECT_EQ(editTimbre(t.model, 1), 141);
}

TEST(RemapMatch, TwoOldPatchesNamedAlikeBothGoToTheFirstPositionOfThatNameInTheNewList)
{
    RemapNames oldNames = blankNames();
    RemapNames newNames = blankNames();
    oldNames[10] = "Twin";
    oldNames[150] = "Twin";
    newNames[40] = "Twin";
    newNames[7] = "Twin";
    newNames[220] = "Twin";
    const RemapTable table = matchNames(oldNames, newNames);
    EXPECT_EQ(table[10], 7);
    EXPECT_EQ(table[150], 7);
}

TEST(RemapMatch, NamesDifferingOnlyInCaseMatch)
{
    RemapNames oldNames = blankNames();
    RemapNames newNames = blankNames();
    oldNames[20] = "Warm PAD  ";
    newNames[20] = "Other";
    newNames[90] = "wARM pad  ";
    const RemapTable table = matchNames(oldNames, newNames);
    EXPECT_EQ(table[20], 90);
}

TEST(RemapMatch, NamesMatchOnlyAsAWholeBlanksIncluded)
{
    RemapNames oldNames = blankNames();
    RemapNames newNames = blankNames();
    oldNames[1] = "Pad ";
    newNames[1] = "Pad";
    newNames[2] = "Pad  ";
    const RemapTable table = matchNames(oldNames, newNames);
    EXPECT_EQ(table[1], -1);
}

TEST(RemapMatch, EmptyNamesMatchEmptyNames)
{
    RemapNames oldNames{};
    RemapNames newNames{};
    const RemapTable table = matchNames(oldNames, newNames);
    for (const std::int16_t value : table)
        EXPECT_EQ(value, 0);
}

TEST(RemapMatch, TheBubbleSortKeepsEqualNamesInTheirOrder)
{
    RemapNames names = blankNames();
    names[200] = "AAA";
    names[3] = "AAA";
    names[100] = "AAA";
    const auto order = bubbleSortedPositions(names);
    EXPECT_EQ(order[0], 3);
    EXPECT_EQ(order[1], 100);
    EXPECT_EQ(order[2], 200);
}

TEST(RemapMatch, TheBubbleSortOrdersAReversedListFully)
{
    RemapNames names;
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i] = std::string(1, static_cast<char>('A' + (255 - i) / 26)) + static_cast<char>('a' + (255 - i) % 26);
    const auto order = bubbleSortedPositions(names);
    for (std::size_t i = 0; i < order.size(); ++i)
        EXPECT_EQ(order[i], 255 - static_cast<int>(i));
}

// The match as the lists were first matched: bubble passes until none
// swaps, then for each old name in sorted order a walk of the sorted new
// names from their start.
RemapTable matchByPassesAndWalks(const RemapNames& oldNames, const RemapNames& newNames)
{
    const auto sortByPasses = [](const RemapNames& keys) {
        std::array<int, 256> order{};
        for (int i = 0; i < 256; ++i)
            order[static_cast<std::size_t>(i)] = i;
        bool swapped = true;
        while (swapped) {
            swapped = false;
            for (std::size_t i = 0; i + 1 < order.size(); ++i) {
                if (keys[static_cast<std::size_t>(order[i])] > keys[static_cast<std::size_t>(order[i + 1])]) {
                    std::swap(order[i], order[i + 1]);
                    swapped = true;
                }
            }
        }
        return order;
    };
    RemapNames oldKeys;
    RemapNames newKeys;
    for (std::size_t i = 0; i < oldKeys.size(); ++i) {
        oldKeys[i] = nameIgnoringCase(oldNames[i]);
        newKeys[i] = nameIgnoringCase(newNames[i]);
    }
    RemapTable table;
    table.fill(-1);
    const auto newOrder = sortByPasses(newKeys);
    for (const int oldIndex : sortByPasses(oldKeys)) {
        for (const int newIndex : newOrder) {
            const int order = newKeys[static_cast<std::size_t>(newIndex)].compare(oldKeys[static_cast<std::size_t>(oldIndex)]);
            if (order == 0) {
                table[static_cast<std::size_t>(oldIndex)] = static_cast<std::int16_t>(newIndex);
                break;
            }
            if (order > 0)
                break;
        }
    }
    return table;
}

TEST(RemapMatch, TheMatchGivesWhatPassesAndWalksGiveForBanksOfFewAndManyRepeatedNames)
{
    // Names drawn from small alphabets repeat often, in either case, and
    // include empty names and high character codes.
    std::mt19937 generator(20261124);
    const std::string letters[] = {"ab", "aBc ", "xyz\xe9", " Zz"};
    for (int run = 0; run < 40; ++run) {
        const std::string& alphabet = letters[run % 4];
        std::uniform_int_distribution<int> length(0, run % 3 + 1);
        std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
        const auto draw = [&] {
            RemapNames names;
            for (std::string& name : names) {
                const int n = length(generator);
                for (int c = 0; c < n; ++c)
                    name += alphabet[pick(generator)];
            }
            return names;
        };
        const RemapNames oldNames = draw();
        const RemapNames newNames = draw();
        EXPECT_EQ(matchNames(oldNames, newNames), matchByPassesAndWalks(oldNames, newNames)) << "run " << run;
        for (const RemapNames* names : {&oldNames, &newNames}) {
            const auto order = bubbleSortedPositions(*names);
            for (std::size_t i = 0; i + 1 < order.size(); ++i) {
                const std::string& left = (*names)[static_cast<std::size_t>(order[i])];
                const std::string& right = (*names)[static_cast<std::size_t>(order[i + 1])];
                ASSERT_TRUE(left < right || (left == right && order[i] < order[i + 1])) << "run " << run;
            }
        }
    }
}

TEST(RemapMatch, CaseIsIgnoredByMakingCapitalsSmall)
{
    EXPECT_EQ(nameIgnoringCase("Warm PAD 1"), "warm pad 1");
    // "_" lies between the capitals and the small letters: made small, "Z"
    // sorts after it.
    RemapNames oldNames;
    RemapNames newNames;
    oldNames.fill("x");
    newNames.fill("y");
    oldNames[0] = "Z";
    newNames[0] = "_";
    newNames[1] = "z";
    const RemapTable table = matchNames(oldNames, newNames);
    EXPECT_EQ(table[0], 1);
}

TEST(RemapMultiset, ATimbreAbove127GoesThroughTheBHalfOfTheTable)
{
    TestModel t;
    RemapTable table = identityTable();
    table[5] = 60;     // A005 went to A060
    table[133] = 250;  // B005 went to B122
    t.model.remap.remapTable = table;
    t.model.flags.loaded[kMultiset] = true;
    setEditTimbre(t.model, 3, 133);
    setEditTimbre(t.model, 4, 5);
    remapMultiset(t.model, 0, 0);
    EXPECT_EQ(editTimbre(t.model, 3), 250);
    EXPECT_EQ(editTimbre(t.model, 4), 60);
}

TEST(RemapMultiset, TheEditMultisetIsShownAgainAndNoLongerClean)
{
    TestModel t;
    t.model.remap.remapTable = identityTable();
    t.model.remap.remapTable[17] = 18;
    t.model.flags.loaded[kMultiset] = true;
    t.model.flags.clean[kMultiset] = true;
    setEditTimbre(t.model, 1, 17);
    remapMultiset(t.model, 0, 0);
    EXPECT_EQ(editTimbre(t.model, 1), 18);
    EXPECT_EQ(t.model.itemImage(kMultiset)[16], 18);
    EXPECT_FALSE(t.model.flags.clean[kMultiset]);
}

TEST(RemapMultiset, ABankMultisetIsWrittenBackAndTheBankIsNoLongerClean)
{
    TestModel t;
    t.model.remap.remapTable = identityTable();
    t.model.remap.remapTable[0] = 255;
    t.model.flags.loaded[kMultiBankB] = true;
    t.model.flags.clean[kMultiBankB] = true;
    bankTimbre(t.model, kMultiBankB, 15, 6) = 0;
    bankTimbre(t.model, kMultiBankB, 14, 6) = 0;
    remapMultiset(t.model, kMultiBankB, 15);
    EXPECT_EQ(bankTimbre(t.model, kMultiBankB, 15, 6), 255);
    EXPECT_EQ(bankTimbre(t.model, kMultiBankB, 14, 6), 0);
    EXPECT_FALSE(t.model.flags.clean[kMultiBankB]);
    EXPECT_TRUE(t.model.flags.changed[kMultiBankB]);
}

TEST(RemapMultiset, OnlyTheSixPatchNumberBytesChange)
{
    RemapTable table{};
    table.fill(-1);
    std::vector<std::uint8_t> image(kMultiBytes, 77);
    remapMultiImage(table, image);
    for (std::size_t i = 0; i < image.size(); ++i) {
        const bool timbreByte = i >= 16 && i <= 96 && (i - 16) % 16 == 0;
        EXPECT_EQ(image[i], timbreByte ? 0 : 77) << i;
    }
}

TEST(RemapTableFile, SavedAndLoadedTheTableIsTheSame)
{
    TestModel t;
    RemapTable table = identityTable();
    table[7] = -1;
    table[255] = 0;
    t.model.remap.remapTable = table;
    ASSERT_TRUE(saveRemapTable(t.model));
    std::vector<std::string> lines;
    ASSERT_TRUE(readLines(remapTablePath(t.model), lines));
    ASSERT_EQ(lines.size(), 256u);
    EXPECT_EQ(lines[7], "-1");
    EXPECT_EQ(lines[8], "8");
    t.model.remap.remapTable.fill(3);
    ASSERT_TRUE(loadRemapTable(t.model));
    EXPECT_EQ(t.model.remap.remapTable, table);
}

TEST(RemapTableFile, AWriteProtectedTableIsReplaced)
{
    TestModel t;
    writeRemapFile(t.model, RemapTable{});
    std::filesystem::permissions(remapTablePath(t.model), std::filesystem::perms::owner_read);
    t.model.remap.remapTable = identityTable();
    EXPECT_TRUE(saveRemapTable(t.model));
    ASSERT_TRUE(loadRemapTable(t.model));
    EXPECT_EQ(t.model.remap.remapTable[9], 9);
}

TEST(RemapTableFile, ATableThatCannotBeWrittenSaysSo)
{
    TestModel t;
    std::filesystem::create_directory(remapTablePath(t.model));
    std::filesystem::create_directory(remapTablePath(t.model) / "inside");
    t.host.expectMessage("Problem Saving Remap", Answer::Ok, "Please check that file Quillonrmp.dat is write enabled");
    EXPECT_FALSE(saveRemapTable(t.model));
}

TEST(RemapTableFile, NoFileGivesNoRemapCreated)
{
    TestModel t;
    t.host.expectMessage("Loading Remap", Answer::Ok, "No remap created. Could not find file Quillonrmp.dat");
    EXPECT_FALSE(loadRemapTable(t.model));
}

TEST(RemapTableFile, AShortOrBadTableIsAReadErrorAndChangesNothing)
{
    for (const std::vector<std::string>& lines :
         {std::vector<std::string>(255, "1"), std::vector<std::string>(256, "x"), std::vector<std::string>(256, "256"),
          std::vector<std::string>(256, "-2"), std::vector<std::string>(256, "")}) {
        TestModel t;
        writeLinesAtomically(remapTablePath(t.model), lines);
        t.model.remap.remapTable = identityTable();
        t.host.expectMessage("Loading Remap", Answer::Ok, "Problem reading file Quillonrmp.dat");
        EXPECT_FALSE(loadRemapTable(t.model));
        EXPECT_EQ(t.model.remap.remapTable, identityTable());
    }
}

TEST(RemapTableFile, AFolderInPlaceOfTheTableIsAReadError)
{
    TestModel t;
    std::filesystem::create_directory(remapTablePath(t.model));
    t.host.expectMessage("Loading Remap", Answer::Ok, "Problem reading file Quillonrmp.dat");
    EXPECT_FALSE(loadRemapTable(t.model));
}

}  // namespace
}  // namespace quillon

#include "app/CliCommands.h"

#include "app/CliRun.h"
#include "app/CliSession.h"
#include "banks/ImportFixtures.h"
#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "support/TestModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quillon {
namespace {

namespace fs = std::filesystem;

// A bank file of patches "Tone 000" ... with data of their own.
ByteImage writeBank(const fs::path& path, int bank, const std::string& stem)
{
    ByteImage image(byteImageSize(bank), 0);
    for (int p = 0; p < kPatchesPerBank; ++p) {
        const ByteImage one = namedPatch(stem + " " + std::to_string(1000 + p).substr(1), p + bank);
        std::copy(one.begin(), one.end(), image.begin() + static_cast<std::ptrdiff_t>(p) * kPatchBytes);
    }
    EXPECT_TRUE(writeFileAtomically(path, patchBankDump(bank, 1, DATAtoMIDI(bank, image))));
    return image;
}

// The bank image a bank file holds, opened as the Open command opens it.
ByteImage bankInFile(const fs::path& path, int& kind)
{
    CliSession session;
    std::string error;
    const auto opened = session.open(path.string(), error);
    EXPECT_TRUE(opened) << error;
    kind = opened.value_or(0);
    return kind == kPatchBankA || kind == kPatchBankB ? session.model().banks.image(kind) : ByteImage{};
}

std::vector<std::string> lines(const std::string& text)
{
    std::vector<std::string> result;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1)
        result.push_back(text.substr(start, end - start));
    return result;
}

TEST(CliExtract, EveryPatchOfABankBecomesAFileNamedByTheFormat)
{
    TempFolder folder;
    writeBank(folder / "bank.syx", kPatchBankB, "Tone");
    const auto result = run(runExtract, {(folder / "bank.syx").string(), "--out", (folder / "out").string(),
                                         "--format", "6"});
    EXPECT_EQ(result.exitCode, kExitOk) << result.err;
    const auto printed = lines(result.out);
    ASSERT_EQ(printed.size(), 129u);
    EXPECT_EQ(printed.front(), (folder / "out" / "b000 Tone 000.syx").string());
    EXPECT_EQ(printed.back(), "128 files saved");
    EXPECT_EQ(fs::file_size(folder / "out" / "b127 Tone 127.syx"), 666u);
}

TEST(CliExtract, MembersPickThePlacesToExtract)
{
    TempFolder folder;
    writeBank(folder / "bank.syx", kPatchBankA, "Tone");
    const auto result =
        run(runExtract, {(folder / "bank.syx").string(), "--out", (folder / "out").string(), "--members", "5,0-1"});
    EXPECT_EQ(result.exitCode, kExitOk) << result.err;
    EXPECT_EQ(lines(result.out), (std::vector<std::string>{(folder / "out" / "Tone 000.syx").string(),
                                                           (folder / "out" / "Tone 001.syx").string(),
                                                           (folder / "out" / "Tone 005.syx").string(),
                                                           "3 files saved"}));
}

TEST(CliExtract, BadArgumentsAndAFileThatIsNoBankAreRefused)
{
    TempFolder folder;
    writeBank(folder / "bank.syx", kPatchBankA, "Tone");
    EXPECT_EQ(run(runExtract, {(folder / "bank.syx").string()}).exitCode, kExitUsage);
    EXPECT_EQ(run(runExtract, {(folder / "bank.syx").string(), "--out", "x", "--format", "10"}).exitCode, kExitUsage);
    EXPECT_EQ(run(runExtract, {(folder / "bank.syx").string(), "--out", "x", "--members", "128"}).exitCode,
              kExitUsage);
    EXPECT_TRUE(writeFileAtomically(folder / "patch.syx", patchFileBytes(namedPatch("P", 1))));
    EXPECT_EQ(run(runExtract, {(folder / "patch.syx").string(), "--out", (folder / "o").string()}).exitCode,
              kExitBadData);
}

TEST(CliImport, ABankExtractedAndImportedBackIntoAnotherBankIsTheSameBank)
{
    TempFolder folder;
    const ByteImage original = writeBank(folder / "a.syx", kPatchBankA, "Tone");
    writeBank(folder / "b.syx", kPatchBankB, "Other");
    ASSERT_EQ(run(runExtract, {(folder / "a.syx").string(), "--out", (folder / "files").string(), "--format", "6"})
                  .exitCode,
              kExitOk);
    const auto result = run(runImport, {(folder / "files").string(), "--into", (folder / "b.syx").string(), "--at",
                                        "0", "--out", (folder / "result.syx").string()});
    EXPECT_EQ(result.exitCode, kExitOk) << result.err;
    const auto printed = lines(result.out);
    ASSERT_EQ(printed.size(), 128u * 2 + 2);
    EXPECT_EQ(printed[0], "a000 Tone 000.syx loaded");
    EXPECT_EQ(printed[1], "Tone 000 has replaced B000 Other 000");
    EXPECT_EQ(printed[256], "Import terminated - final patch");
    EXPECT_EQ(printed[257], "128 patches imported into " + (folder / "result.syx").string());
    int kind = 0;
    EXPECT_EQ(bankInFile(folder / "result.syx", kind), original);
    EXPECT_EQ(kind, kPatchBankB);
}

TEST(CliImport, TheResultLinesOfEveryFileAreWrittenAndTheBankLetterCanChange)
{
    TempFolder folder;
    const ByteImage bank = writeBank(folder / "b.syx", kPatchBankB, "Old");
    EXPECT_TRUE(writeFileAtomically(folder / "new.syx", patchFileBytes(namedPatch("New", 3))));
    EXPECT_TRUE(writeFileAtomically(folder / "tiny.syx", std::vector<std::uint8_t>(10, 0)));
    const auto result = run(runImport, {(folder / "tiny.syx").string(), (folder / "new.syx").string(), "--into",
                                        (folder / "b.syx").string(), "--at", "126", "--bank", "a", "--out",
                                        (folder / "out.syx").string()});
    EXPECT_EQ(result.exitCode, kExitOk) << result.err;
    EXPECT_EQ(lines(result.out), (std::vector<std::string>{"tiny.syx is not a Z1 patch file", "new.syx loaded",
                                                           "New has replaced A126 Old 126",
                                                           "1 patches imported into " + (folder / "out.syx").string()}));
    int kind = 0;
    ByteImage expected = bank;
    const ByteImage patch = namedPatch("New", 3);
    std::copy(patch.begin(), patch.end(), expected.begin() + 126 * kPatchBytes);
    EXPECT_EQ(bankInFile(folder / "out.syx", kind), expected);
    EXPECT_EQ(kind, kPatchBankA);
}

TEST(CliImport, MissingArgumentsAreRefused)
{
    EXPECT_EQ(run(runImport, {"x.syx", "--into", "b.syx", "--out", "o.syx"}).exitCode, kExitUsage);
    EXPECT_EQ(run(runImport, {"x.syx", "--into", "b.syx", "--at", "128", "--out", "o.syx"}).exitCode, kExitUsage);
    EXPECT_EQ(run(runImport, {"x.syx", "--into", "b.syx", "--at", "1", "--bank", "c", "--out", "o.syx"}).exitCode,
              kExitUsage);
    EXPECT_EQ(run(runImport, {"--into", "b.syx", "--at", "1", "--out", "o.syx"}).exitCode, kExitUsage);
}

}  // namespace
}  // namespace quillon

#include "app/CliCommands.h"

#include "app/CliRun.h"
#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <sys/stat.h>


namespace quillon {
namespace {

ByteImage patchNamed(const std::string& name)
{
    ParamValues values = paramTables().patchDefaults;
    const std::string padded = (name + std::string(16, ' ')).substr(0, 16);
    for (int i = 0; i < 16; ++i)
        values[i + 1] = static_cast<std::int16_t>(padded[i]);
    ByteImage image(kPatchBytes, 0);
    patchParamsToImage(values, image);
    return image;
}

std::string write(const TempFolder& folder, const std::string& name, const std::vector<std::uint8_t>& bytes)
{
    const auto path = folder / name;
    EXPECT_TRUE(writeFileAtomically(path, bytes));
    return path.string();
}

std::vector<std::uint8_t> bankFile(int bank)
{
    ByteImage image(byteImageSize(bank), 0);
    for (int p = 0; p < kPatchesPerBank; ++p) {
        const ByteImage patch = patchNamed("Sound " + std::to_string(p));
        std::copy(patch.begin(), patch.end(), image.begin() + p * kPatchBytes);
    }
    return patchBankDump(bank, 1, DATAtoMIDI(bank, image));
}

// The wrapped form: a preamble, the count of messages and their lengths,
// low byte first, then the messages.
std::vector<std::uint8_t> wrapped(const std::vector<std::uint8_t>& message)
{
    std::vector<std::uint8_t> file(114, 0);
    file.insert(file.end(), {1, 0});
    const auto n = message.size();
    file.insert(file.end(), {static_cast<std::uint8_t>(n & 0xFF), static_cast<std::uint8_t>(n >> 8), 0, 0});
    file.insert(file.end(), message.begin(), message.end());
    return file;
}

TEST(CliInfo, NamesSizeBandAndFoundThenTheItems)
{
    TempFolder folder;
    const auto patch = write(folder, "p.syx", currentPatchDump(1, DATAtoMIDI(kPatch, patchNamed("Glass Keys"))));
    const auto junk = write(folder, "j.syx", std::vector<std::uint8_t>(299, 0));
    const CliRun r = run(runInfo, {patch, junk});
    ASSERT_EQ(r.exitCode, kExitOk) << r.err;
    EXPECT_EQ(r.out, patch + "\t666\tpatch\tfound\n\tGlass Keys\n" + junk + "\t299\tnon-Z1\tnot found\n");
}

TEST(CliInfo, BankListsEveryMemberWithItsPlace)
{
    TempFolder folder;
    const auto bank = write(folder, "b.syx", bankFile(kPatchBankB));
    const CliRun r = run(runInfo, {bank});
    ASSERT_EQ(r.exitCode, kExitOk) << r.err;
    EXPECT_EQ(r.out.rfind(bank + "\t84270\tbank\tfound\n\tB000\tSound 0\n\tB001\tSound 1\n", 0), 0u);
    EXPECT_NE(r.out.find("\tB127\tSound 127\n"), std::string::npos);
}

TEST(CliInfo, PatchWithTooManyStrayBytesIsNotFound)
{
    TempFolder folder;
    std::vector<std::uint8_t> bytes(150, 0x00);
    const auto message = currentPatchDump(1, DATAtoMIDI(kPatch, patchNamed("X")));
    bytes.insert(bytes.begin(), 0xF7);
    bytes.insert(bytes.end(), message.begin(), message.end());
    const auto path = write(folder, "p.syx", bytes);
    // 817 bytes: a patch by size, but past the band that is scanned, so the
    // wrapped form is looked for and nothing is found.
    const CliRun r = run(runInfo, {path});
    EXPECT_EQ(r.out, path + "\t817\tpatch\tnot found\n");
}

TEST(CliInfo, UnreadableFileIsExit2)
{
    EXPECT_EQ(run(runInfo, {"/nonexistent/x.syx"}).exitCode, kExitUsage);
}

TEST(CliInfo, FolderPipeAndEndlessDeviceCannotBeReadAndTheRestGoesOn)
{
    TempFolder folder;
    std::filesystem::create_directory(folder / "dir.syx");
    const std::string pipe = (folder / "pipe.syx").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const std::string dir = (folder / "dir.syx").string();
    const auto good = write(folder, "b.syx", bankFile(kPatchBankA));

    const CliRun r = run(runInfo, {dir, pipe, "/dev/zero", good});

    EXPECT_EQ(r.exitCode, kExitUsage);
    EXPECT_EQ(r.err, "cannot read " + dir + "\ncannot read " + pipe + "\ncannot read /dev/zero\n");
    EXPECT_TRUE(r.out.starts_with(good + "\t84270\tbank\tfound\n")) << r.out;
}

TEST(CliList, BankListHas130Lines)
{
    TempFolder folder;
    const CliRun r = run(runList, {write(folder, "b.syx", bankFile(kPatchBankA))});
    ASSERT_EQ(r.exitCode, kExitOk) << r.err;
    EXPECT_EQ(std::count(r.out.begin(), r.out.end(), '\n'), 130);
    EXPECT_NE(r.out.find("A005 Sound 5"), std::string::npos);
}

TEST(CliList, PatchHasNoListAndIsDataItCannotUse)
{
    TempFolder folder;
    const auto patch = write(folder, "p.syx", currentPatchDump(1, DATAtoMIDI(kPatch, patchNamed("A"))));
    EXPECT_EQ(run(runList, {patch}).exitCode, kExitBadData);
}

TEST(CliDump, PatchDumpStartsWithTheFileNameAndListsTheTypes)
{
    TempFolder folder;
    const auto patch = write(folder, "p.syx", currentPatchDump(1, DATAtoMIDI(kPatch, patchNamed("Dumped"))));
    const CliRun r = run(runDump, {patch});
    ASSERT_EQ(r.exitCode, kExitOk) << r.err;
    EXPECT_EQ(r.out.rfind(patch + "\n\n", 0), 0u);
    EXPECT_NE(r.out.find("OSC1 setting "), std::string::npos);
}

TEST(CliDump, BankMemberIsDumpedByItsNumber)
{
    TempFolder folder;
    const auto bank = write(folder, "b.syx", bankFile(kPatchBankA));
    const CliRun r = run(runParams, {bank, "--member", "77", "--json"});
    ASSERT_EQ(r.exitCode, kExitOk) << r.err;
    EXPECT_NE(r.out.find(R"("name":"Sound 77        ")"), std::string::npos);
    EXPECT_EQ(run(runDump, {bank, "--member", "128"}).exitCode, kExitUsage);
}

TEST(CliConvert, WrappedPatchBecomesThePlain666ByteForm)
{
    TempFolder folder;
    const auto message = currentPatchDump(1, DATAtoMIDI(kPatch, patchNamed("Wrapped")));
    const auto in = write(folder, "in.syx", wrapped(message));
    const auto out = (folder / "out.syx").string();
    const CliRun r = run(runConvert, {in, out});
    ASSERT_EQ(r.exitCode, kExitOk) << r.err;
    std::vector<std::uint8_t> written;
    ASSERT_TRUE(readWholeFile(out, written));
    EXPECT_EQ(written, message);
}

TEST(CliConvert, LongerHeaderPatchLosesItsTwoExtraBytes)
{
    TempFolder folder;
    const auto plain = currentPatchDump(1, DATAtoMIDI(kPatch, patchNamed("Longer")));
    std::vector<std::uint8_t> longer(plain.begin(), plain.begin() + 5);
    longer.insert(longer.end(), {0x00, 0x00, 0x00});
    longer.insert(longer.end(), plain.begin() + 6, plain.end());
    ASSERT_EQ(longer.size(), 668u);
    const auto out = (folder / "out.syx").string();
    ASSERT_EQ(run(runConvert, {write(folder, "in.syx", longer), out}).exitCode, kExitOk);
    std::vector<std::uint8_t> written;
    ASSERT_TRUE(readWholeFile(out, written));
    EXPECT_EQ(written, plain);
}

TEST(CliConvert, TheInstrumentsOwn301BytePatternDumpBecomesThePlain300ByteForm)
{
    TempFolder folder;
    ParamValues values = paramTables().arpDefaults;
    const std::string name = "Own Pattern     ";
    for (int i = 0; i < 16; ++i)
        values[i + 1] = static_cast<std::int16_t>(name[static_cast<std::size_t>(i)]);
    ByteImage image(byteImageSize(kPattern), 0);
    arpParamsToImage(values, image);
    const auto plain = currentPatternDump(1, DATAtoMIDI(kPattern, image));
    std::vector<std::uint8_t> own(plain.begin(), plain.begin() + 4);
    own.insert(own.end(), {0x69, 0x00, 0x02});
    own.insert(own.end(), plain.begin() + 6, plain.end());
    ASSERT_EQ(own.size(), 301u);
    const auto in = write(folder, "own.syx", own);
    const CliRun info = run(runInfo, {in});
    ASSERT_EQ(info.exitCode, kExitOk) << info.err;
    EXPECT_EQ(info.out, in + "\t301\tsingle arpeggiator\tfound\n\tOwn Pattern\n");
    const auto out = (folder / "out.syx").string();
    ASSERT_EQ(run(runConvert, {in, out}).exitCode, kExitOk);
    std::vector<std::uint8_t> written;
    ASSERT_TRUE(readWholeFile(out, written));
    EXPECT_EQ(written, plain);
}

TEST(CliConvert, BadUsageWithOneFile)
{
    EXPECT_EQ(run(runConvert, {"only.syx"}).exitCode, kExitUsage);
}

}  // namespace
}  // namespace quillon

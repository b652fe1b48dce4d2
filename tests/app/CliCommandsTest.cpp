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

#include <filesystem>

namespace quillon {
namespace {

// A file of the given bytes in a folder of its own.
class TempFile {
public:
    explicit TempFile(const std::vector<std::uint8_t>& bytes) : path_(folder_ / "dump.syx")
    {
        EXPECT_TRUE(writeFileAtomically(path_, bytes));
    }
    std::string path() const { return path_.string(); }

private:
    TempFolder folder_;
    std::filesystem::path path_;
};

ByteImage patchImageNamed(const char* name, int category)
{
    ParamValues values = paramTables().patchDefaults;
    const std::string padded = (std::string(name) + std::string(16, ' ')).substr(0, 16);
    for (int i = 0; i < 16; ++i)
        values[i + 1] = static_cast<std::int16_t>(padded[i]);
    values[17] = static_cast<std::int16_t>(category);
    ByteImage image(kPatchBytes, 0);
    patchParamsToImage(values, image);
    return image;
}

TEST(CliTables, PrintsEveryTableAndDefaultsAsOneObject)
{
    const CliRun r = run(runTables, {"--json"});
    ASSERT_EQ(r.exitCode, kExitOk);
    EXPECT_EQ(r.out.front(), '{');
    EXPECT_NE(r.out.find(R"("patch":[{"id":1,"name":"Patch Name chr1","sect":10,"subsect":1,"table":16,)"
                         R"("min":32,"max":127,"startb":8,"endb":15,"firm":true,"hard":false})"),
              std::string::npos);
    EXPECT_NE(r.out.find(R"({"index":83,"id":830,)"), std::string::npos);
    EXPECT_NE(r.out.find(R"("defaults":{"patch":[73,110,105,116,32,80,)"), std::string::npos);
}

TEST(CliTables, RefusesUnknownArgumentsAsBadUsage)
{
    EXPECT_EQ(run(runTables, {"--xml"}).exitCode, kExitUsage);
}

TEST(CliDecode, PrintsValueTabAndTextForEachValue)
{
    const CliRun r = run(runDecode, {"38", "63", "65"});
    ASSERT_EQ(r.exitCode, kExitOk);
    EXPECT_EQ(r.out, "63\tLEFT 1\n64\tCENTRE\n65\tRIGHT 1\n");
}

TEST(CliDecode, ValueOutsideTheTablePrintsEmptyText)
{
    EXPECT_EQ(run(runDecode, {"17", "2", "2"}).out, "2\t\n");
}

TEST(CliDecode, NonNumberIsBadUsage)
{
    const CliRun r = run(runDecode, {"17", "one", "2"});
    EXPECT_EQ(r.exitCode, kExitUsage);
    EXPECT_FALSE(r.err.empty());
}

TEST(CliParams, ReadsTheValuesOfAPatchDump)
{
    const ByteImage image = patchImageNamed("Warm Pad", 9);
    const TempFile file(currentPatchDump(1, DATAtoMIDI(kPatch, image)));
    const CliRun r = run(runParams, {file.path(), "--json"});
    ASSERT_EQ(r.exitCode, kExitOk) << r.err;
    EXPECT_EQ(r.out.rfind(R"({"kind":1,"name":"Warm Pad        ","values":[87,97,114,109,32,80,97,100,)", 0), 0u);
    EXPECT_NE(r.out.find(R"("changeCount":0,"changeList":[]})"), std::string::npos);
}

TEST(CliParams, ReadsTheChosenMemberOfABankAndReportsClampedValues)
{
    ByteImage bank(byteImageSize(kPatchBankA), 0);
    for (int p = 0; p < kPatchesPerBank; ++p) {
        const ByteImage patch = patchImageNamed(("Patch " + std::to_string(p)).c_str(), p % 18);
        std::copy(patch.begin(), patch.end(), bank.begin() + p * kPatchBytes);
    }
    bank[5 * kPatchBytes + 17 - 1] = 18;  // category 18 lies above "SFX/Other"
    const TempFile file(patchBankDump(kPatchBankB, 1, DATAtoMIDI(kPatchBankB, bank)));
    const CliRun r = run(runParams, {file.path(), "--member", "5", "--json"});
    ASSERT_EQ(r.exitCode, kExitOk) << r.err;
    EXPECT_NE(r.out.find(R"("name":"Patch 5         ")"), std::string::npos);
    EXPECT_NE(r.out.find(R"("changeCount":1,"changeList":["Patch Category (17) value changed from -238 to 0"]})"),
              std::string::npos);
}

TEST(CliParams, MemberOutsideTheBankIsBadUsage)
{
    const TempFile file(arpBankDump(1, DATAtoMIDI(kArpBank, ByteImage(byteImageSize(kArpBank), 32))));
    EXPECT_EQ(run(runParams, {file.path(), "--member", "20", "--json"}).exitCode, kExitUsage);
    EXPECT_EQ(run(runParams, {file.path(), "--member", "19", "--json"}).exitCode, kExitOk);
}

TEST(CliParams, FileWithStrayBytesAroundTheMessageLoadsAsTheOpenCommandDoes)
{
    std::vector<std::uint8_t> bytes{0x00, 0x01};
    const auto message = currentMultiDump(1, DATAtoMIDI(kMultiset, ByteImage(kMultiBytes, 'M')));
    bytes.insert(bytes.end(), message.begin(), message.end());
    bytes.push_back(0x00);
    const TempFile file(bytes);
    const CliRun r = run(runParams, {file.path(), "--json"});
    ASSERT_EQ(r.exitCode, kExitOk) << r.err;
    EXPECT_EQ(r.out.rfind(R"({"kind":4,"name":"MMMMMMMMMMMMMMMM",)", 0), 0u);
}

TEST(CliParams, BadHeaderIsDataItCannotUseWithTheLoadersReason)
{
    std::vector<std::uint8_t> bytes = currentPatchDump(1, DATAtoMIDI(kPatch, ByteImage(kPatchBytes, 32)));
    bytes[1] = 0x41;  // not Korg
    const TempFile file(bytes);
    const CliRun r = run(runParams, {file.path(), "--json"});
    EXPECT_EQ(r.exitCode, kExitBadData);
    EXPECT_EQ(r.err, file.path() + ": Load Patch: Problem loading patch file\n");
}

TEST(CliParams, FileOfNoZ1SizeIsDataItCannotUse)
{
    const TempFile file(std::vector<std::uint8_t>(299, 0xF0));
    const CliRun r = run(runParams, {file.path(), "--json"});
    EXPECT_EQ(r.exitCode, kExitBadData);
    EXPECT_NE(r.err.find("File may be non-Z1 (size 299)"), std::string::npos);
}

TEST(CliParams, UnreadableFileIsExit2)
{
    EXPECT_EQ(run(runParams, {"/nonexistent/quillon.syx", "--json"}).exitCode, kExitUsage);
}

}  // namespace
}  // namespace quillon

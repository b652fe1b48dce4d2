#include "app/CliCommands.h"

#include "app/CliRun.h"
#include "app/CliSession.h"
#include "banks/RemapLists.h"
#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "support/TestModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

namespace quillon {
namespace {

std::array<std::string, 128> numbered(const std::string& prefix)
{
    std::array<std::string, 128> names;
    for (int p = 0; p < 128; ++p) {
        char name[17];
        std::snprintf(name, sizeof name, "%-16s", (prefix + std::to_string(1000 + p).substr(1)).c_str());
        names[static_cast<std::size_t>(p)] = name;
    }
    return names;
}

// Lists in which bank A was reversed and B012 renamed.
struct RemapListFiles {
    TempFolder folder;
    std::vector<std::string> options;

    RemapListFiles()
    {
        auto newA = numbered("A");
        std::reverse(newA.begin(), newA.end());
        auto newB = numbered("B");
        newB[12] = "Renamed         ";
        const std::pair<const char*, std::array<std::string, 128>> lists[] = {
            {"--old-a", numbered("A")}, {"--old-b", numbered("B")}, {"--new-a", newA}, {"--new-b", newB}};
        for (const auto& [option, names] : lists) {
            const auto path = folder / (std::string(option + 2) + ".txt");
            EXPECT_TRUE(writeLinesAtomically(path, formatBankList(names)));
            options.push_back(option);
            options.push_back(path.string());
        }
    }
};

// Multi bank B whose multiset m plays A003 on timbre 1, B012 on timbre 2 and
// B(m) on timbre 3.
std::string writeMultiBank(const TempFolder& folder)
{
    ByteImage image(static_cast<std::size_t>(byteImageSize(kMultiBankB)), 0);
    for (int m = 0; m < kMultisPerBank; ++m) {
        const std::size_t base = static_cast<std::size_t>(m * kMultiBytes);
        image[base + 16] = 3;
        image[base + 32] = 140;
        image[base + 48] = static_cast<std::uint8_t>(128 + m);
        for (int t = 0; t < 6; ++t)
            image[base + 17 + 16 * static_cast<std::size_t>(t)] = 1;
    }
    const auto path = folder / "multibank.syx";
    EXPECT_TRUE(writeFileAtomically(path, multiBankDump(kMultiBankB, 1, DATAtoMIDI(kMultiBankB, image))));
    return path.string();
}

TEST(CliRemap, AMultiBankFollowsItsPatchesToTheNewLists)
{
    RemapListFiles lists;
    TempFolder folder;
    const std::string in = writeMultiBank(folder);
    const std::string out = (folder / "out.syx").string();
    std::vector<std::string> args{in};
    args.insert(args.end(), lists.options.begin(), lists.options.end());
    args.insert(args.end(), {"--out", out});
    const CliRun result = run(runRemap, args);
    ASSERT_EQ(result.exitCode, kExitOk) << result.err;
    EXPECT_EQ(result.out, out + "\n");

    CliSession session;
    std::string error;
    const auto kind = session.open(out, error);
    ASSERT_EQ(kind, std::optional<int>(kMultiBankB)) << error;
    const ByteImage& bank = session.model().banks.image(kMultiBankB);
    for (int m = 0; m < kMultisPerBank; ++m) {
        const std::size_t base = static_cast<std::size_t>(m * kMultiBytes);
        EXPECT_EQ(bank[base + 16], 124) << m;
        EXPECT_EQ(bank[base + 32], 0) << m;
        EXPECT_EQ(bank[base + 48], m == 12 ? 0 : 128 + m) << m;  // B012 was renamed
    }
}

TEST(CliRemap, ASingleMultisetIsRemappedToo)
{
    RemapListFiles lists;
    TempFolder folder;
    ByteImage multi(kMultiBytes, 0);
    multi[16] = 0;   // A000 went to A127
    multi[17] = 1;
    const auto in = folder / "multi.syx";
    ASSERT_TRUE(writeFileAtomically(in, currentMultiDump(1, DATAtoMIDI(kMultiset, multi))));
    const std::string out = (folder / "out.syx").string();
    std::vector<std::string> args{in.string()};
    args.insert(args.end(), lists.options.begin(), lists.options.end());
    args.insert(args.end(), {"--out", out});
    const CliRun result = run(runRemap, args);
    ASSERT_EQ(result.exitCode, kExitOk) << result.err;
    CliSession session;
    std::string error;
    ASSERT_EQ(session.open(out, error), std::optional<int>(kMultiset)) << error;
    EXPECT_EQ(session.model().itemImage(kMultiset)[16], 127);
}

TEST(CliRemap, AMissingListOrOptionIsBadUsage)
{
    RemapListFiles lists;
    TempFolder folder;
    const std::string in = writeMultiBank(folder);
    std::vector<std::string> args{in};
    args.insert(args.end(), lists.options.begin(), lists.options.end() - 2);
    args.insert(args.end(), {"--out", (folder / "out.syx").string()});
    CliRun result = run(runRemap, args);
    EXPECT_EQ(result.exitCode, kExitUsage);
    EXPECT_NE(result.err.find("usage: quillon-cli remap"), std::string::npos);

    args.insert(args.end(), {"--new-b", (folder / "absent.txt").string()});
    result = run(runRemap, args);
    EXPECT_EQ(result.exitCode, kExitUsage);
    EXPECT_NE(result.err.find("absent.txt: cannot read a bank list"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(folder / "out.syx"));
}

TEST(CliRemap, APatchBankIsRefused)
{
    RemapListFiles lists;
    TempFolder folder;
    const auto in = folder / "bank.syx";
    ASSERT_TRUE(writeFileAtomically(
        in, patchBankDump(kPatchBankA, 1, DATAtoMIDI(kPatchBankA, ByteImage(byteImageSize(kPatchBankA), 0)))));
    std::vector<std::string> args{in.string()};
    args.insert(args.end(), lists.options.begin(), lists.options.end());
    args.insert(args.end(), {"--out", (folder / "out.syx").string()});
    const CliRun result = run(runRemap, args);
    EXPECT_EQ(result.exitCode, kExitBadData);
    EXPECT_NE(result.err.find("not a multiset or MultiBank"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(folder / "out.syx"));
}

}  // namespace
}  // namespace quillon

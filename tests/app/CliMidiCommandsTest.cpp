#include "app/CliCommands.h"

#include "app/CliRun.h"
#include "files/AtomicFile.h"
#include "midi/backends/SimulatedZ1.h"
#include "support/TestModel.h"
#include "sysex/MessageCatalogue.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillon {
namespace {

// The commands over MIDI talk to the simulated Z1 in the same process.
class CliMidiCommands : public ::testing::Test {
protected:
    void SetUp() override { setenv("QUILLON_MIDI_API", "sim", 1); }
    void TearDown() override { unsetenv("QUILLON_MIDI_API"); }

    TempFolder folder;
};

std::vector<std::uint8_t> fileBytes(const std::filesystem::path& path)
{
    std::vector<std::uint8_t> bytes;
    EXPECT_TRUE(readWholeFile(path, bytes));
    return bytes;
}

TEST_F(CliMidiCommands, PortsListsTheSimulatedInstrumentForInputAndOutput)
{
    const CliRun result = run(runPorts, {});
    EXPECT_EQ(result.exitCode, kExitOk);
    EXPECT_NE(result.out.find("MIDI system: sim"), std::string::npos);
    EXPECT_NE(result.out.find("Input devices:\n  0  Simulated Z1"), std::string::npos);
    EXPECT_NE(result.out.find("Output devices:\n  0  Simulated Z1"), std::string::npos);
}

TEST_F(CliMidiCommands, AnUnknownMidiSystemIsRefusedWithItsName)
{
    setenv("QUILLON_MIDI_API", "carrier-pigeon", 1);
    const CliRun result = run(runPorts, {});
    EXPECT_EQ(result.exitCode, kExitBadData);
    EXPECT_NE(result.err.find("carrier-pigeon"), std::string::npos);
}

TEST_F(CliMidiCommands, RequestedBankASavedAsTheInstrumentSentIt)
{
    const auto path = folder / "bank-a.syx";
    const CliRun result = run(runRequest, {"bank-a", "--out", path.string()});
    ASSERT_EQ(result.exitCode, kExitOk) << result.err;
    EXPECT_NE(result.out.find("Bank A: received bank data"), std::string::npos);
    EXPECT_EQ(fileBytes(path), SimulatedZ1().dumpFor(1));
}

TEST_F(CliMidiCommands, EveryRequestItemArrivesAndIsSavedAtItsSize)
{
    const std::pair<const char*, std::size_t> items[] = {
        {"patch", 666},         {"bank-a", 84270},  {"bank-b", 84270}, {"multi", 245},
        {"multibank-a", 3814}, {"multibank-b", 3814}, {"pattern", 300}, {"pattern-bank", 5860},
    };
    for (const auto& [item, size] : items) {
        const auto path = folder / (std::string(item) + ".syx");
        const CliRun result = run(runRequest, {item, "--out", path.string()});
        ASSERT_EQ(result.exitCode, kExitOk) << item << ": " << result.err;
        EXPECT_EQ(std::filesystem::file_size(path), size) << item;
    }
}

TEST_F(CliMidiCommands, ABankAAnsweredWithAllProgramIsTakenApartAndSavedAsBankA)
{
    setenv("QUILLON_SIM_BANK_A_AS_ALL_PROGRAM", "1", 1);
    const auto path = folder / "bank-a.syx";
    const CliRun result = run(runRequest, {"bank-a", "--out", path.string()});
    unsetenv("QUILLON_SIM_BANK_A_AS_ALL_PROGRAM");
    ASSERT_EQ(result.exitCode, kExitOk) << result.err;
    EXPECT_EQ(result.out, "Bank A: received all program data, saved to " + path.string() + "\n");
    EXPECT_EQ(fileBytes(path), SimulatedZ1().dumpFor(1));
}

TEST_F(CliMidiCommands, TheRequestSaysWhatArrived)
{
    const auto path = folder / "patch.syx";
    const CliRun result = run(runRequest, {"patch", "--out", path.string()});
    ASSERT_EQ(result.exitCode, kExitOk) << result.err;
    EXPECT_EQ(result.out, "Current patch: received patch data, saved to " + path.string() + "\n");
}

TEST_F(CliMidiCommands, ARequestNobodyAnswersGivesUpAfterItsTimeOut)
{
    // The simulated Z1 listens on channel 1 only.
    const auto path = folder / "none.syx";
    const CliRun result = run(runRequest, {"patch", "--out", path.string(), "--channel", "2", "--timeout", "1"});
    EXPECT_EQ(result.exitCode, kExitBadData);
    EXPECT_NE(result.err.find("no answer from the instrument within 1 seconds"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(CliMidiCommands, RequestNeedsAKnownItemAndAnOutputFile)
{
    EXPECT_EQ(run(runRequest, {"bank-c", "--out", (folder / "x.syx").string()}).exitCode, kExitUsage);
    EXPECT_EQ(run(runRequest, {"bank-a"}).exitCode, kExitUsage);
    EXPECT_EQ(run(runRequest, {"bank-a", "--out", (folder / "x.syx").string(), "--channel", "17"}).exitCode,
              kExitUsage);
}

TEST_F(CliMidiCommands, ADeviceThatIsNotThereIsRefused)
{
    const CliRun result = run(runRequest, {"patch", "--out", (folder / "p.syx").string(), "--out-port", "5"});
    EXPECT_EQ(result.exitCode, kExitUsage);
    EXPECT_NE(result.err.find("no MIDI output device 5"), std::string::npos);
}

TEST_F(CliMidiCommands, APatchFileIsSentWithoutAQuestion)
{
    const auto path = folder / "patch.syx";
    ASSERT_TRUE(writeFileAtomically(path, SimulatedZ1().dumpFor(0)));
    const CliRun result = run(runSend, {path.string()});
    ASSERT_EQ(result.exitCode, kExitOk) << result.err;
    EXPECT_NE(result.out.find(" has been sent"), std::string::npos);
}

TEST_F(CliMidiCommands, SendingABankAsksForYesAndOtherwiseSendsNothing)
{
    const auto path = folder / "bank.syx";
    ASSERT_TRUE(writeFileAtomically(path, SimulatedZ1().dumpFor(2)));
    const CliRun refused = run(runSend, {path.string()});
    EXPECT_EQ(refused.exitCode, kExitBadData);
    EXPECT_NE(refused.err.find("Replace bank B in Korg Z1. Are you sure?"), std::string::npos);
    EXPECT_NE(refused.err.find("--yes"), std::string::npos);

    const CliRun sent = run(runSend, {path.string(), "--yes"});
    ASSERT_EQ(sent.exitCode, kExitOk) << sent.err;
    EXPECT_EQ(sent.out, "Bank B has been sent\n");
}

TEST_F(CliMidiCommands, AnAllDataFileIsSentAfterItsQuestion)
{
    const std::vector<std::uint8_t> packed(182931, 0);
    const SysExMessage allData = buildSysExMessage(0x50, std::vector<std::uint8_t>{0, 0}, 1, packed);
    ASSERT_EQ(allData.size(), 182939u);
    const auto path = folder / "all.syx";
    ASSERT_TRUE(writeFileAtomically(path, allData));

    const CliRun refused = run(runSend, {path.string()});
    EXPECT_EQ(refused.exitCode, kExitBadData);
    EXPECT_NE(refused.err.find("Send All Data (loaded from file): Completely replace data in Korg Z1. Are you sure?"),
              std::string::npos);

    const CliRun sent = run(runSend, {path.string(), "--yes"});
    ASSERT_EQ(sent.exitCode, kExitOk) << sent.err;
    EXPECT_EQ(sent.out, "All Data data has been sent\n");
}

TEST_F(CliMidiCommands, SendingAFileThatIsNotThereIsAUsageError)
{
    EXPECT_EQ(run(runSend, {(folder / "missing.syx").string()}).exitCode, kExitUsage);
}

}  // namespace
}  // namespace quillon

#include "files/AtomicFile.h"

#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace quillon {
namespace {

std::filesystem::path makeFifo(const TempFolder& folder)
{
    const std::filesystem::path path = folder / "pipe.syx";
    EXPECT_EQ(::mkfifo(path.c_str(), 0600), 0);
    return path;
}

TEST(FileReading, AFolderIsRefusedWithoutAnException)
{
    TempFolder folder;
    std::filesystem::create_directory(folder / "dir.syx");
    std::vector<std::uint8_t> bytes{1, 2, 3};
    std::vector<std::string> lines{"kept"};
    EXPECT_FALSE(readWholeFile(folder / "dir.syx", bytes));
    EXPECT_FALSE(readLines(folder / "dir.syx", lines));
    EXPECT_EQ(bytes, (std::vector<std::uint8_t>{1, 2, 3})) << "a refused read leaves the buffer alone";
    EXPECT_EQ(lines, std::vector<std::string>{"kept"});
}

TEST(FileReading, APipeIsRefusedWithoutWaitingForAWriter)
{
    TempFolder folder;
    const auto fifo = makeFifo(folder);
    std::vector<std::uint8_t> bytes;
    std::vector<std::string> lines;
    EXPECT_FALSE(readWholeFile(fifo, bytes));
    EXPECT_FALSE(readLines(fifo, lines));
}

TEST(FileReading, ADeviceWithoutEndIsRefused)
{
    std::vector<std::uint8_t> bytes;
    EXPECT_FALSE(readWholeFile("/dev/zero", bytes));
    EXPECT_TRUE(bytes.empty());
}

TEST(FileReading, AFileOfOneMebibyteIsReadAndOneByteMoreIsRefused)
{
    TempFolder folder;
    std::vector<std::uint8_t> big(kLargestReadableFile, 0x41);
    ASSERT_TRUE(writeFileAtomically(folder / "big.syx", big));
    std::vector<std::uint8_t> bytes;
    EXPECT_TRUE(readWholeFile(folder / "big.syx", bytes));
    EXPECT_EQ(bytes.size(), kLargestReadableFile);

    big.push_back(0x41);
    ASSERT_TRUE(writeFileAtomically(folder / "big.syx", big));
    bytes.clear();
    EXPECT_FALSE(readWholeFile(folder / "big.syx", bytes));
    std::vector<std::string> lines;
    EXPECT_FALSE(readLines(folder / "big.syx", lines));
}

TEST(FileReading, LinesLoseTheirLineEndsOfEitherKind)
{
    TempFolder folder;
    const std::string text = "one\r\ntwo\n\nlast";
    ASSERT_TRUE(writeFileAtomically(folder / "a.dat",
                                    std::vector<std::uint8_t>(text.begin(), text.end())));
    std::vector<std::string> lines;
    ASSERT_TRUE(readLines(folder / "a.dat", lines));
    EXPECT_EQ(lines, (std::vector<std::string>{"one", "two", "", "last"}));
}

TEST(FileReading, AMissingFileIsRefused)
{
    TempFolder folder;
    std::vector<std::uint8_t> bytes;
    EXPECT_FALSE(readWholeFile(folder / "none.syx", bytes));
}

}  // namespace
}  // namespace quillon

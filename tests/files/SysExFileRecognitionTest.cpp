#include "files/SysExFileRecognition.h"

#include "files/LoadingFiles.h"
#include "model/Kind.h"
#include "sysex/SysExClassifier.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillon {
namespace {

struct Band {
    int band;
    std::uintmax_t first;
    std::uintmax_t last;
    const char* name;
};

const std::vector<Band>& bands()
{
    static const std::vector<Band> all{
        {1, 182939, 183139, "all Z1"},        {2, 168531, 168731, "all program"},
        {3, 84270, 84470, "bank"},            {4, 666, 866, "patch"},
        {5, 7617, 7817, "all multi"},         {6, 3814, 4014, "multi A/B"},
        {7, 245, 297, "single multi"},        {7, 365, 448, "single multi"},
        {8, 5860, 6060, "arpeggiator"},       {9, 300, 364, "single arpeggiator"},
        {10, 483, 663, "global/MIDI"},        {11, 966, 1166, "global & MIDI"},
    };
    return all;
}

TEST(SysExFileRecognition, EveryBandHoldsItsBoundsInclusive)
{
    for (const Band& b : bands()) {
        EXPECT_EQ(recognizeFileSize(b.first), b.band) << b.first;
        EXPECT_EQ(recognizeFileSize(b.last), b.band) << b.last;
        EXPECT_EQ(recognizeFileSize((b.first + b.last) / 2), b.band);
        EXPECT_EQ(fileBandName(b.band), b.name);
    }
    EXPECT_EQ(fileBandName(12), "non-Z1");
}

TEST(SysExFileRecognition, SizesOutsideEveryBandAreNonZ1)
{
    for (const std::uintmax_t size : {0u, 1u, 244u, 298u, 299u, 449u, 482u, 664u, 665u, 867u, 965u, 1167u,
                                      3813u, 4015u, 5859u, 6061u, 7616u, 7818u, 84269u, 84471u, 168530u, 168732u,
                                      182938u, 183140u, 200000u}) {
        EXPECT_EQ(recognizeFileSize(size), kSysExNonZ1) << size;
    }
}

TEST(SysExFileRecognition, Size299IsNonZ1ThoughItsNeighboursAreRecognised)
{
    EXPECT_EQ(recognizeFileSize(298), kSysExNonZ1);
    EXPECT_EQ(recognizeFileSize(297), kSysExSingleMulti);
    EXPECT_EQ(recognizeFileSize(299), kSysExNonZ1);
    EXPECT_EQ(recognizeFileSize(300), kSysExSinglePattern);
}

TEST(SysExFileRecognition, SizesBetweenTheMultisetAndGlobalBandsFallThrough)
{
    for (std::uintmax_t size = 449; size <= 482; ++size)
        EXPECT_EQ(recognizeFileSize(size), kSysExNonZ1) << size;
}

TEST(SysExFileRecognition, LoadersAcceptTheirMessageLengths)
{
    EXPECT_EQ(acceptedLengths(kSysExPatch), (std::vector<int>{666, 668}));
    EXPECT_EQ(acceptedLengths(kSysExSingleMulti), (std::vector<int>{245, 248}));
    EXPECT_EQ(acceptedLengths(kSysExSinglePattern), (std::vector<int>{300, 301}));
    EXPECT_EQ(acceptedLengths(kSysExPatchBank), (std::vector<int>{84270}));
    EXPECT_EQ(acceptedLengths(kSysExMultiBank), (std::vector<int>{3814}));
    EXPECT_EQ(acceptedLengths(kSysExArpBank), (std::vector<int>{5860}));
    EXPECT_EQ(acceptedLengths(kSysExAllData), (std::vector<int>{182939}));
    EXPECT_EQ(acceptedLengths(kSysExGlobalOrMidi), (std::vector<int>{483}));
    EXPECT_EQ(acceptedLengths(kSysExGlobalAndMidi), (std::vector<int>{966}));
    EXPECT_TRUE(acceptedLengths(kSysExNonZ1).empty());
}

TEST(SysExFileRecognition, SeveralKindsFilesWantOneLengthUnderTheirName)
{
    EXPECT_EQ(miscWantedLength(kSysExAllData), 182939);
    EXPECT_EQ(miscFileName(kSysExAllData), "All Data");
    EXPECT_EQ(miscWantedLength(kSysExAllProgram), 168531);
    EXPECT_EQ(miscFileName(kSysExAllProgram), "All Program");
    EXPECT_EQ(miscWantedLength(kSysExAllMulti), 7617);
    EXPECT_EQ(miscFileName(kSysExAllMulti), "All Multi");
    EXPECT_EQ(miscWantedLength(kSysExGlobalAndMidi), 966);
    EXPECT_EQ(miscFileName(kSysExGlobalAndMidi), "Global and MIDI");
    EXPECT_EQ(miscWantedLength(kSysExGlobalOrMidi), 483);
    EXPECT_EQ(miscFileName(kSysExGlobalOrMidi), "Global/MIDI");
    EXPECT_EQ(miscWantedLength(kSysExPatch), 0);
}

// A message of the given length: F0, filler, F7.
std::vector<std::uint8_t> frame(std::size_t length, std::uint8_t filler = 0x10)
{
    std::vector<std::uint8_t> message(length, filler);
    message.front() = 0xF0;
    message.back() = 0xF7;
    return message;
}

TEST(SysExFileRecognition, ScanFindsTheMessageBehindStrayBytes)
{
    auto file = withStrayBytes(frame(666), 100, 3);
    const std::vector<int> accepted{666, 668};
    const MessageSearch found = scanForMessage(file, accepted);
    ASSERT_EQ(found.result, SearchResult::Found);
    EXPECT_EQ(found.offset, 100u);
    EXPECT_EQ(found.message, frame(666));
}

TEST(SysExFileRecognition, ScanTakesTheFirstOfSeveralMessagesOfTheRightLength)
{
    auto first = frame(300, 0x01);
    auto second = frame(300, 0x02);
    std::vector<std::uint8_t> file = frame(20);  // a short message in front
    file.insert(file.end(), first.begin(), first.end());
    file.insert(file.end(), second.begin(), second.end());
    const std::vector<int> accepted{300};
    const MessageSearch found = scanForMessage(file, accepted);
    ASSERT_EQ(found.result, SearchResult::Found);
    EXPECT_EQ(found.offset, 20u);
    EXPECT_EQ(found.message, first);
}

TEST(SysExFileRecognition, ScanDoesNotLookBetweenStartAndEnd)
{
    // Any bytes will do between F0 and F7, even more F7s in a message that
    // is then cut short by the first one of the right span.
    std::vector<std::uint8_t> file(300, 0x7F);
    file[0] = 0xF0;
    file[299] = 0xF7;
    const std::vector<int> accepted{300};
    EXPECT_EQ(scanForMessage(file, accepted).result, SearchResult::Found);
}

TEST(SysExFileRecognition, ScanFindsNothingWithoutAStart)
{
    std::vector<std::uint8_t> file(666, 0x00);
    file[664] = 0xF7;  // 665 bytes in: as long as a patch if a start were before it
    file[665] = 0xF7;
    const std::vector<int> accepted{666, 668};
    EXPECT_EQ(scanForMessage(file, accepted).result, SearchResult::NotFound);
}

TEST(SysExFileRecognition, ScanIgnoresSpansOfOtherLengths)
{
    auto file = frame(667);
    const std::vector<int> accepted{666, 668};
    EXPECT_EQ(scanForMessage(file, accepted).result, SearchResult::NotFound);
}

TEST(SysExFileRecognition, WrappedWalkKeepsTheLastMessageOfAnAcceptedLength)
{
    const auto file = wrappedFile({frame(300, 0x01), frame(50), frame(300, 0x02), frame(20)});
    const std::vector<int> accepted{300};
    const MessageSearch found = walkWrappedFile(file, accepted, 2000);
    ASSERT_EQ(found.result, SearchResult::Found);
    EXPECT_EQ(found.message, frame(300, 0x02));
    EXPECT_EQ(found.offset, 116u + 16u + 350u);
}

TEST(SysExFileRecognition, WrappedWalkSkipsMessagesOfOtherLengths)
{
    const auto file = wrappedFile({frame(10), frame(299)});
    const std::vector<int> accepted{300};
    EXPECT_EQ(walkWrappedFile(file, accepted, 2000).result, SearchResult::NotFound);
}

TEST(SysExFileRecognition, WrappedWalkWithNoMessagesFindsNothing)
{
    const auto file = wrappedFile({});
    const std::vector<int> accepted{300};
    EXPECT_EQ(walkWrappedFile(file, accepted, 2000).result, SearchResult::NotFound);
}

TEST(SysExFileRecognition, WrappedFileOfTenMessagesIsReadAndOfElevenIsAnError)
{
    std::vector<std::vector<std::uint8_t>> messages(9, frame(3));
    messages.push_back(frame(30));
    const std::vector<int> accepted{30};
    EXPECT_EQ(walkWrappedFile(wrappedFile(messages), accepted, 2000).result, SearchResult::Found);
    messages.push_back(frame(3));
    EXPECT_EQ(walkWrappedFile(wrappedFile(messages), accepted, 2000).result, SearchResult::Error);
}

TEST(SysExFileRecognition, WrappedLengthsRunningPastTheBufferAreAnError)
{
    auto file = wrappedFile({frame(30)});
    const std::vector<int> accepted{30};
    EXPECT_EQ(walkWrappedFile(file, accepted, file.size()).result, SearchResult::Found);
    EXPECT_EQ(walkWrappedFile(file, accepted, file.size() - 1).result, SearchResult::Error);
}

TEST(SysExFileRecognition, WrappedWalkReadsWithinTheLoadersBufferBehindTheFile)
{
    // The last entry reaches past the end of the file but not of the
    // buffer, which is zero there: read, not an error.
    auto file = wrappedFile({frame(30), frame(40)});
    file.resize(file.size() - 5);
    const std::vector<int> accepted{30};
    EXPECT_EQ(walkWrappedFile(file, accepted, file.size() + 5).result, SearchResult::Found);
}

TEST(SysExFileRecognition, WrappedLengthsUseAllFourBytes)
{
    std::vector<std::uint8_t> bank(84270, 0x00);
    bank.front() = 0xF0;
    bank.back() = 0xF7;
    const auto file = wrappedFile({bank});
    ASSERT_EQ(file.size(), 84390u);
    const MessageSearch found = findMessageInFile(file, kSysExPatchBank);
    ASSERT_EQ(found.result, SearchResult::Found);
    EXPECT_EQ(found.message.size(), 84270u);
}

TEST(SysExFileRecognition, PatchLoaderScansUpTo785BytesAndWalksFrom786)
{
    const auto plain = withStrayBytes(frame(666), 0, 119);
    ASSERT_EQ(plain.size(), 785u);
    EXPECT_EQ(findMessageInFile(plain, kSysExPatch).result, SearchResult::Found);
    const auto longer = withStrayBytes(frame(666), 0, 120);
    EXPECT_NE(findMessageInFile(longer, kSysExPatch).result, SearchResult::Found);

    auto wrapped = wrappedFile({frame(668)});
    wrapped.resize(786, 0x00);
    EXPECT_EQ(findMessageInFile(wrapped, kSysExPatch).result, SearchResult::Found);
}

TEST(SysExFileRecognition, PatternLoaderReadsNoWrappedFiles)
{
    auto wrapped = wrappedFile({frame(300)});
    ASSERT_EQ(wrapped.size(), 420u);
    EXPECT_EQ(findMessageInFile(wrapped, kSysExSinglePattern).result, SearchResult::NotFound);
    EXPECT_EQ(findMessageInFile(wrapped, kSysExSingleMulti).result, SearchResult::NotFound);
}

TEST(SysExFileRecognition, SeveralKindsLoaderWalksTheWrappedFormWhenTheScanFindsNothing)
{
    const auto plain = withStrayBytes(globalOrMidiMessage(1), 10, 7);
    EXPECT_EQ(findMessageInFile(plain, kSysExGlobalOrMidi).result, SearchResult::Found);
    // An entry without F0 and F7 is found by the walk alone.
    const std::vector<std::uint8_t> unframed(483, 0x22);
    const auto wrapped = wrappedFile({unframed});
    ASSERT_EQ(scanForMessage(wrapped, std::vector<int>{483}).result, SearchResult::NotFound);
    const MessageSearch found = findMessageInFile(wrapped, kSysExGlobalOrMidi);
    ASSERT_EQ(found.result, SearchResult::Found);
    EXPECT_EQ(found.message, unframed);
}

TEST(SysExFileRecognition, GlobalThenMidiBackToBackIsTheGlobalAndMidiDump)
{
    // Two messages of 483 back to back: the scan never sees a span of 966
    // (the latest start is always that of the second), yet the pair is the
    // dump, as the instrument writes it.
    auto file = globalOrMidiMessage(0);
    const auto midi = globalOrMidiMessage(1);
    file.insert(file.end(), midi.begin(), midi.end());
    ASSERT_EQ(recognizeFileSize(file.size()), kSysExGlobalAndMidi);
    const MessageSearch found = findMessageInFile(file, kSysExGlobalAndMidi);
    EXPECT_EQ(found.result, SearchResult::Found);
    EXPECT_EQ(found.message, file);
}

TEST(SysExFileRecognition, GlobalThenMidiInTheWrappedFormIsTheGlobalAndMidiDump)
{
    auto both = globalOrMidiMessage(0);
    const auto midi = globalOrMidiMessage(1);
    both.insert(both.end(), midi.begin(), midi.end());
    const auto file = wrappedFile({globalOrMidiMessage(0), midi});
    ASSERT_EQ(recognizeFileSize(file.size()), kSysExGlobalAndMidi);
    const MessageSearch found = findMessageInFile(file, kSysExGlobalAndMidi);
    EXPECT_EQ(found.result, SearchResult::Found);
    EXPECT_EQ(found.message, both);
}

TEST(SysExFileRecognition, FilesOutsideTheirLoadersBandsFindNothing)
{
    EXPECT_EQ(findMessageInFile(frame(666), kSysExNonZ1).result, SearchResult::NotFound);
    EXPECT_EQ(findMessageInFile(frame(666), kSysExSingleMulti).result, SearchResult::NotFound);
}

}  // namespace
}  // namespace quillon

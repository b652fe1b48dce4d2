#include "files/SysExFileLoading.h"

#include "files/AtomicFile.h"
#include "files/LoadingFiles.h"
#include "files/MiscDialog.h"
#include "files/SysExFileRecognition.h"
#include "model/Kind.h"
#include "sysex/SysExClassifier.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillon {
namespace {

struct SysExFileLoading : LoadingTest {
    // The box a failed load shows: critical, with Help on context 65.
    void expectLoadBox(const std::string& title, const std::string& text)
    {
        expectBox(title, Answer::Ok, text);
        expectedBoxes.push_back(title);
    }

    void checkLoadBoxes() const
    {
        ASSERT_EQ(host.messages.size(), expectedBoxes.size());
        for (const auto& box : host.messages) {
            EXPECT_EQ(box.icon, MessageIcon::Critical) << box.title;
            EXPECT_TRUE(box.help) << box.title;
            EXPECT_EQ(box.helpContext, 65) << box.title;
        }
    }

    std::vector<std::string> expectedBoxes;
};

TEST_F(SysExFileLoading, PatchFileLoadsIntoTheEditor)
{
    const ByteImage image = namedItemImage(model, kPatch, "Solar Wind");
    const std::string path = put("solar.syx", patchMessage(image));
    model.mode = kPatchBankA;
    RecordingObserver observer;
    model.addObserver(&observer);

    open(path);

    model.removeObserver(&observer);
    const ItemBuffers& patch = model.buffers.of(kPatch);
    EXPECT_EQ(model.itemImage(kPatch), image);
    EXPECT_EQ(model.itemName[kPatch], "Solar Wind");
    EXPECT_EQ(patch.current[1], 'S');
    EXPECT_EQ(patch.loaded, patch.current);
    EXPECT_EQ(patch.last, patch.current);
    EXPECT_TRUE(model.flags.loaded[kPatch]);
    EXPECT_FALSE(model.flags.changed[kPatch]);
    EXPECT_TRUE(model.flags.clean[kPatch]);
    EXPECT_EQ(model.itemPath[kPatch], path);
    EXPECT_EQ(model.recentFiles[1], path);
    EXPECT_EQ(model.mode, kPatch);
    EXPECT_EQ(model.labels.highlightedKind(), kPatch);
    EXPECT_EQ(model.labels.label(kPatch).scheme, 9);
    EXPECT_TRUE(model.sendMenuEnabled);
    EXPECT_EQ(observer.calls, 1) << "a load tells the screens once";
    EXPECT_TRUE(observer.all & kBuffersChanged);
    EXPECT_TRUE(observer.all & kRecentFilesChanged);
}

TEST_F(SysExFileLoading, A666ByteFileNotStartingWithF0IsAPatchThatIsNotFound)
{
    auto bytes = patchMessage(namedItemImage(model, kPatch, "Broken"));
    bytes[0] = 0x00;
    ASSERT_EQ(bytes.size(), 666u);
    const auto before = model.buffers.of(kPatch);
    expectLoadBox("Load Patch", "Could not find patch data in file");

    open(put("broken.syx", bytes));

    checkLoadBoxes();
    EXPECT_EQ(model.buffers.of(kPatch).current, before.current);
    EXPECT_FALSE(model.flags.loaded[kPatch]);
    EXPECT_TRUE(model.itemPath[kPatch].empty());
    EXPECT_TRUE(model.recentFiles[1].empty());
}

TEST_F(SysExFileLoading, A320ByteFileHoldingAMultisetIsReadAsAPatternAndFails)
{
    const auto bytes = withStrayBytes(multiMessage(namedItemImage(model, kMultiset, "Layers")), 0, 75);
    ASSERT_EQ(bytes.size(), 320u);
    expectLoadBox("Load (Single) Arp Pattern", "Could not find arp pattern data in file");

    open(put("multi.syx", bytes));

    checkLoadBoxes();
    EXPECT_FALSE(model.flags.loaded[kMultiset]);
    EXPECT_FALSE(model.flags.loaded[kPattern]);
}

TEST_F(SysExFileLoading, PatchWith100StrayBytesInFrontLoads)
{
    const ByteImage image = namedItemImage(model, kPatch, "Stray");
    open(put("stray.syx", withStrayBytes(patchMessage(image), 100, 0)));

    EXPECT_TRUE(model.flags.loaded[kPatch]);
    EXPECT_EQ(model.itemImage(kPatch), image);
}

TEST_F(SysExFileLoading, PatchWith300StrayBytesInFrontTakesTheGlobalAndMidiRoad)
{
    const auto bytes = withStrayBytes(patchMessage(namedItemImage(model, kPatch, "Stray")), 300, 0);
    ASSERT_EQ(bytes.size(), 966u);
    // The stray bytes stand where a wrapped file keeps its count: 257
    // messages, more than a wrapped file may hold.
    expectLoadBox("Loading Global and MIDI", "Problem loading file");

    open(put("stray.syx", bytes));

    checkLoadBoxes();
    EXPECT_FALSE(model.flags.loaded[kPatch]);
    EXPECT_TRUE(model.misc.message.empty());
}

TEST_F(SysExFileLoading, A668BytePatchLoadsTheSame660BytesAsA666ByteOne)
{
    const ByteImage image = namedItemImage(model, kPatch, "Twin");
    const auto shortForm = patchMessage(image);
    const auto longForm = longPatchMessage(image);
    ASSERT_EQ(longForm.size(), 668u);

    open(put("short.syx", shortForm));
    const SysExImage packedShort = model.packed[kPatch];
    const ParamValues valuesShort = model.buffers.of(kPatch).current;
    open(put("long.syx", longForm));

    EXPECT_EQ(packedShort.size(), 660u);
    EXPECT_EQ(model.packed[kPatch], packedShort);
    EXPECT_EQ(model.buffers.of(kPatch).current, valuesShort);
    EXPECT_EQ(SysExImage(shortForm.begin() + 6, shortForm.end()), SysExImage(longForm.begin() + 8, longForm.end()));
}

TEST_F(SysExFileLoading, PatchWhoseHeaderIsNotOfThePatchIsRefused)
{
    const ByteImage image = namedItemImage(model, kPatch, "Alien");
    auto bytes = patchMessage(image);
    bytes[4] = 0x69;  // an arpeggiator bank's function code
    const auto before = model.buffers.of(kPatch).current;
    expectLoadBox("Load Patch", "Problem loading patch file");

    open(put("alien.syx", bytes));

    checkLoadBoxes();
    // The packed data has been taken, the values in the editor have not.
    EXPECT_EQ(model.packed[kPatch], SysExImage(bytes.begin() + 6, bytes.end()));
    EXPECT_EQ(model.buffers.of(kPatch).current, before);
    EXPECT_FALSE(model.flags.loaded[kPatch]);
    EXPECT_TRUE(model.recentFiles[1].empty());
}

TEST_F(SysExFileLoading, PatchMessageWithBankFunctionCodeIsAccepted)
{
    auto bytes = patchMessage(namedItemImage(model, kPatch, "Bank Code"));
    bytes[4] = 0x4C;
    open(put("bankcode.syx", bytes));
    EXPECT_TRUE(model.flags.loaded[kPatch]);
}

TEST_F(SysExFileLoading, LoadWithCorrectionsSavesTheCheckResultsAndMarksTheLabel)
{
    auto bytes = patchMessage(namedItemImage(model, kPatch, "Checked"));
    // The first byte of the last group names a byte behind the data.
    bytes[6 + 656] |= 0x04;
    const std::string path = put("checked.syx", bytes);

    open(path);

    EXPECT_EQ(model.report.changeCount(), 1);
    EXPECT_EQ(model.labels.label(kPatch).scheme, 8);
    std::vector<std::string> lines;
    ASSERT_TRUE(readLines(model.dataFolder() / "Param" / "QuillonChkPch.txt", lines));
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[2], "MIDI byte 660 hiBits present (ignored)");
}

TEST_F(SysExFileLoading, LoadWithoutCorrectionsLeavesThePreviousCheckFile)
{
    const auto checkFile = model.dataFolder() / "Param" / "QuillonChkPch.txt";
    std::filesystem::create_directories(checkFile.parent_path());
    ASSERT_TRUE(writeLinesAtomically(checkFile, {"earlier.syx", "", "an earlier correction"}));

    open(put("clean.syx", patchMessage(namedItemImage(model, kPatch, "Clean"))));

    EXPECT_EQ(model.report.changeCount(), 0);
    EXPECT_EQ(model.labels.label(kPatch).scheme, 9);
    std::vector<std::string> lines;
    ASSERT_TRUE(readLines(checkFile, lines));
    EXPECT_EQ(lines, (std::vector<std::string>{"earlier.syx", "", "an earlier correction"}));
}

TEST_F(SysExFileLoading, MultisetsOfBothHeaderLengthsLoad)
{
    const ByteImage image = namedItemImage(model, kMultiset, "Ensemble");
    open(put("multi.syx", multiMessage(image)));
    EXPECT_EQ(model.itemImage(kMultiset), image);
    EXPECT_EQ(model.itemName[kMultiset], "Ensemble");
    EXPECT_EQ(model.mode, kMultiset);

    const ByteImage other = namedItemImage(model, kMultiset, "Other");
    open(put("long.syx", longMultiMessage(other)));
    EXPECT_EQ(model.itemImage(kMultiset), other);
    EXPECT_EQ(model.recentFiles[1], (t.folder / "long.syx").string());
    EXPECT_EQ(model.recentFiles[2], (t.folder / "multi.syx").string());
}

TEST_F(SysExFileLoading, MultisetLoadLeavesTheMultiBankHighlight)
{
    model.multiMode = 2;
    open(put("multi.syx", multiMessage(namedItemImage(model, kMultiset, "Ensemble"))));
    EXPECT_EQ(model.multiMode, 0);
    EXPECT_EQ(model.labels.highlightedKind(), kMultiset);
}

TEST_F(SysExFileLoading, PatternLoadsAndLeavesTheArpeggiatorBankHighlight)
{
    model.arpMode = 1;
    const ByteImage image = namedItemImage(model, kPattern, "Walk");
    open(put("walk.syx", patternMessage(image)));
    EXPECT_EQ(model.itemImage(kPattern), image);
    EXPECT_EQ(model.arpMode, 0);
    EXPECT_EQ(model.mode, kPattern);
    EXPECT_TRUE(model.flags.loaded[kPattern]);
}

TEST_F(SysExFileLoading, TheInstrumentsOwn301BytePatternDumpLoadsAsAPattern)
{
    const ByteImage image = namedItemImage(model, kPattern, "Own Dump");
    const SysExMessage plain = patternMessage(image);
    // F0 42 30 46 69 00 pp, the 293 packed bytes, F7.
    SysExMessage own(plain.begin(), plain.begin() + 4);
    own.insert(own.end(), {0x69, 0x00, 0x03});
    own.insert(own.end(), plain.begin() + 6, plain.end());
    ASSERT_EQ(own.size(), 301u);
    open(put("own.syx", own));
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(model.itemImage(kPattern), image);
    EXPECT_EQ(model.mode, kPattern);
    EXPECT_TRUE(model.flags.loaded[kPattern]);
}

TEST_F(SysExFileLoading, WrappedPatchFileLoads)
{
    const ByteImage image = namedItemImage(model, kPatch, "Wrapped");
    const auto bytes = wrappedFile({patchMessage(image), SysExMessage{0xF0, 0x7E, 0xF7}});
    ASSERT_EQ(bytes.size(), 793u);
    open(put("wrapped.syx", bytes));
    EXPECT_EQ(model.itemImage(kPatch), image);
    EXPECT_TRUE(model.flags.loaded[kPatch]);
}

TEST_F(SysExFileLoading, WrappedMultisetFileStepsOverOtherEntries)
{
    const ByteImage image = namedItemImage(model, kMultiset, "Second");
    const auto bytes = wrappedFile({SysExMessage(3, 0xF7), multiMessage(image)});
    ASSERT_EQ(bytes.size(), 372u);
    open(put("two.syx", bytes));
    EXPECT_EQ(model.itemImage(kMultiset), image);
}

TEST_F(SysExFileLoading, WrappedFileOfMoreThanTenMessagesIsAProblem)
{
    std::vector<SysExMessage> messages(11, SysExMessage{0xF0, 0xF7});
    messages.push_back(patchMessage(namedItemImage(model, kPatch, "Late")));
    auto bytes = wrappedFile(messages);
    ASSERT_EQ(recognizeFileSize(bytes.size()), kSysExPatch);
    expectLoadBox("Load Patch", "Problem loading patch file");

    open(put("eleven.syx", bytes));

    checkLoadBoxes();
    EXPECT_FALSE(model.flags.loaded[kPatch]);
}

TEST_F(SysExFileLoading, BankFileGoesToTheBankItsMessageNamesAndTheScreenFollows)
{
    model.mode = kPatchBankA;
    model.bankTarget = kPatchBankA;
    const ByteImage image = countingImage(73728);
    const std::string path = put("bankB.syx", bankMessage(kPatchBankB, image));

    open(path);

    EXPECT_EQ(model.banks.image(kPatchBankB), image);
    EXPECT_EQ(model.banks.image(kPatchBankA), ByteImage(73728, 0));
    EXPECT_EQ(model.bankTarget, kPatchBankB);
    EXPECT_EQ(model.mode, kPatchBankB);
    EXPECT_TRUE(model.flags.loaded[kPatchBankB]);
    EXPECT_FALSE(model.flags.loaded[kPatchBankA]);
    EXPECT_TRUE(model.bankMenuEnabled);
    EXPECT_EQ(model.labels.highlightedKind(), kPatchBankB);
    EXPECT_EQ(model.itemPath[kPatchBankB], path);
    EXPECT_EQ(model.recentFiles[1], path);
    EXPECT_EQ(host.busyDepth, 0);
}

TEST_F(SysExFileLoading, CancelAtTheSavePromptWhileOpeningABankLeavesTheOldBank)
{
    model.banks.image(kPatchBankA) = countingImage(73728);
    model.flags.loaded[kPatchBankA] = true;
    model.flags.changed[kPatchBankA] = true;
    model.itemPath[kPatchBankA] = "old.syx";
    const auto oldPacked = model.packed[kPatchBankA];
    expectBox("New Bank", Answer::Cancel, "Save current Bank A first?");

    open(put("bankA.syx", bankMessage(kPatchBankA, ByteImage(73728, 0x55))));

    EXPECT_EQ(model.banks.image(kPatchBankA), countingImage(73728));
    EXPECT_EQ(model.packed[kPatchBankA], oldPacked);
    EXPECT_TRUE(model.flags.changed[kPatchBankA]);
    EXPECT_EQ(model.itemPath[kPatchBankA], "old.syx");
    EXPECT_TRUE(model.recentFiles[1].empty());
    EXPECT_TRUE(model.saveCancelled);
    EXPECT_EQ(host.busyDepth, 0);
}

TEST_F(SysExFileLoading, FailedBankLoadDoesNotEnterTheRecentList)
{
    auto bytes = bankMessage(kPatchBankA, countingImage(73728));
    bytes[4] = 0x4D;
    expectLoadBox("Load Bank", "Problem loading bank file");

    open(put("bank.syx", bytes));

    checkLoadBoxes();
    EXPECT_FALSE(model.flags.loaded[kPatchBankA]);
    EXPECT_TRUE(model.recentFiles[1].empty());
}

TEST_F(SysExFileLoading, MultiBankFileGoesToTheBankItsMessageNames)
{
    const ByteImage image = countingImage(3328);
    open(put("multiB.syx", multiBankMessage(kMultiBankB, image)));

    EXPECT_EQ(model.banks.image(kMultiBankB), image);
    EXPECT_EQ(model.multiBankTarget, kMultiBankB);
    EXPECT_EQ(model.multiMode, 2);
    EXPECT_EQ(model.mode, kMultiset);
    EXPECT_TRUE(model.flags.loaded[kMultiBankB]);
    EXPECT_EQ(model.labels.highlightedKind(), kMultiBankB);
    EXPECT_EQ(model.labels.label(kMultiBankB).scheme, 9);
    EXPECT_EQ(model.labels.label(kMultiset).scheme, 9);
}

TEST_F(SysExFileLoading, FailedMultiBankLoadReplacesNothingAndStaysOutOfTheRecentList)
{
    // Multi bank A edited since it came in.
    const ByteImage edited = countingImage(3328);
    model.packed[kMultiBankA] = DATAtoMIDI(kMultiBankA, ByteImage(3328, 0x22));
    model.banks.image(kMultiBankA) = edited;
    model.flags.loaded[kMultiBankA] = true;
    model.flags.changed[kMultiBankA] = true;
    model.flags.clean[kMultiBankA] = false;
    auto bytes = multiBankMessage(kMultiBankA, countingImage(3328));
    bytes[4] = 0x4C;
    const std::string path = put("multibank.syx", bytes);
    expectLoadBox("Load multibank", "Problem loading multibank file");

    open(path);

    checkLoadBoxes();
    EXPECT_EQ(model.banks.image(kMultiBankA), edited) << "the bank in memory stays as it was";
    EXPECT_TRUE(model.flags.changed[kMultiBankA]);
    EXPECT_FALSE(model.flags.clean[kMultiBankA]);
    EXPECT_TRUE(model.recentFiles[1].empty());
    EXPECT_TRUE(model.itemPath[kMultiBankA].empty());
}

TEST_F(SysExFileLoading, FailedMultiBankLoadDoesNotMarkAnEmptyBankLoaded)
{
    auto bytes = multiBankMessage(kMultiBankA, countingImage(3328));
    bytes[4] = 0x4C;
    expectLoadBox("Load multibank", "Problem loading multibank file");

    open(put("multibank.syx", bytes));

    checkLoadBoxes();
    EXPECT_FALSE(model.flags.loaded[kMultiBankA]);
    EXPECT_FALSE(model.flags.clean[kMultiBankA]);
    EXPECT_TRUE(model.recentFiles[1].empty());
}

TEST_F(SysExFileLoading, FailedMultiBankLoadKeepsTheBankThatCameFromAnAllDataFile)
{
    // Multi bank A taken out of an All Data file in frmMisc.
    surroundings.showMiscDialog = [](AppModel& m, MiscDialogState& state) {
        state.typeTicked.fill(false);
        state.typeTicked[2] = true;
        misc::doProcessLoad(m, state);
    };
    open(put("all.syx", allDataMessage(countingImage(160064))));
    surroundings.showMiscDialog = nullptr;
    const ByteImage fromAllData = model.banks.image(kMultiBankA);
    ASSERT_TRUE(model.flags.loaded[kMultiBankA]);
    const std::string recent = model.recentFiles[1];
    auto bytes = multiBankMessage(kMultiBankA, ByteImage(3328, 0x33));
    bytes[4] = 0x4C;
    expectLoadBox("Load multibank", "Problem loading multibank file");

    open(put("multibank.syx", bytes));

    checkLoadBoxes();
    EXPECT_EQ(model.banks.image(kMultiBankA), fromAllData);
    EXPECT_EQ(model.recentFiles[1], recent);
}

TEST_F(SysExFileLoading, ArpeggiatorBankLoads)
{
    const ByteImage image = countingImage(5120);
    const std::string path = put("arp.syx", arpBankMessage(image));
    open(path);
    EXPECT_EQ(model.banks.image(kArpBank), image);
    EXPECT_EQ(model.arpMode, 1);
    EXPECT_EQ(model.mode, kPattern);
    EXPECT_TRUE(model.flags.loaded[kArpBank]);
    EXPECT_EQ(model.itemPath[kArpBank], path);
    EXPECT_EQ(model.recentFiles[1], path);
}

TEST_F(SysExFileLoading, FailedArpeggiatorBankLoadReplacesNothingAndStaysOutOfTheRecentList)
{
    const ByteImage edited = countingImage(5120);
    model.banks.image(kArpBank) = edited;
    model.flags.loaded[kArpBank] = true;
    model.flags.changed[kArpBank] = true;
    model.flags.clean[kArpBank] = false;
    auto bytes = withStrayBytes(SysExMessage(100, 0x00), 0, 5800);
    const std::string path = put("noarp.syx", bytes);
    expectLoadBox("Load Arpeggiator", "Could not find arpeggiator data in file");

    open(path);

    checkLoadBoxes();
    EXPECT_EQ(model.banks.image(kArpBank), edited);
    EXPECT_TRUE(model.flags.changed[kArpBank]);
    EXPECT_FALSE(model.flags.clean[kArpBank]);
    EXPECT_TRUE(model.recentFiles[1].empty());
}

TEST_F(SysExFileLoading, MultiBankCancelAtTheSavePromptLeavesTheBankAsItWas)
{
    const ByteImage old = countingImage(3328);
    model.packed[kMultiBankA] = DATAtoMIDI(kMultiBankA, old);
    model.banks.image(kMultiBankA) = ByteImage(3328, 0x01);  // edited since
    model.flags.loaded[kMultiBankA] = true;
    model.flags.changed[kMultiBankA] = true;
    expectBox("New Multi Bank", Answer::Cancel, "Save current Multi Bank A first?");

    const std::string path = put("multiA.syx", multiBankMessage(kMultiBankA, ByteImage(3328, 0x22)));
    open(path);

    EXPECT_EQ(model.banks.image(kMultiBankA), ByteImage(3328, 0x01)) << "the edits stay";
    EXPECT_TRUE(model.flags.changed[kMultiBankA]);
    EXPECT_TRUE(model.recentFiles[1].empty());
}

TEST_F(SysExFileLoading, LoadersCanBeCalledAlone)
{
    const ByteImage image = namedItemImage(model, kPattern, "Alone");
    const auto bytes = patternMessage(image);
    const std::string path = put("alone.syx", bytes);
    EXPECT_TRUE(doLoadPatternFile(model, path, bytes.size()));
    EXPECT_EQ(model.itemImage(kPattern), image);

    const auto bank = arpBankMessage(countingImage(5120));
    const std::string bankPath = put("bank.syx", bank);
    EXPECT_TRUE(doLoadArpBankFile(model, bankPath, bank.size()));
    EXPECT_EQ(model.itemPath[kArpBank], bankPath);
    EXPECT_FALSE(model.flags.loaded[kArpBank]) << "shown only by doPostLoad";
}

TEST_F(SysExFileLoading, UnreadableFileIsTheLoadersProblem)
{
    host.expectMessage("Load Patch", Answer::Ok, "Problem loading patch file");
    EXPECT_FALSE(doLoadPatchFile(model, (t.folder / "missing.syx").string(), 666));
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].icon, MessageIcon::Critical);
    EXPECT_EQ(host.messages[0].helpContext, 65);
}

}  // namespace
}  // namespace quillon

#include "output/Printing.h"

#include "editors/Frames.h"
#include "editors/Navigation.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "model/ValueDecoder.h"
#include "output/ListFormat.h"
#include "output/TextLists.h"
#include "support/TestModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quillon {
namespace {

void setName(ParamValues& values, std::string name)
{
    name.resize(16, ' ');
    for (int i = 0; i < 16; ++i)
        values[i + 1] = static_cast<std::int16_t>(name[i]);
}

bool startsWith(const std::string& text, const std::string& start)
{
    return text.compare(0, start.size(), start) == 0;
}

bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// Every row line holds the value in three places, four blanks, the decoded
// text and, after it, the name.
void expectRowLine(const std::string& line, int value, const ParamDef& def)
{
    EXPECT_TRUE(startsWith(line, rightAligned(value, 3) + "    " + decodeValue(def.table, value))) << line;
    EXPECT_TRUE(endsWith(line, def.name)) << line;
}

struct Refusal {
    int mode;
    int multiMode;
    int arpMode;
    const char* text;
};

TEST(PrintCommand, EveryRefusalHasItsTitleAndPrintsNothing)
{
    const Refusal refusals[] = {
        {kPatch, 0, 0, "No current subsection to print"},
        {kPatchBankA, 0, 0, "Nothing to send"},
        {kPatchBankB, 0, 0, "Nothing to send"},
        {kMultiset, 1, 0, "Nothing to send"},
        {kMultiset, 2, 0, "Nothing to send"},
        {kMultiset, 0, 0, "No current subsection to print"},
        {kPattern, 0, 1, "Nothing to send"},
    };
    for (const Refusal& r : refusals) {
        TestModel t;
        t.model.mode = r.mode;
        t.model.multiMode = r.multiMode;
        t.model.arpMode = r.arpMode;
        t.host.expectMessage("Send to printer", Answer::Ok, r.text);
        EXPECT_FALSE(mnuPrint(t.model)) << r.text;
        EXPECT_TRUE(t.host.allShown()) << r.mode;
        EXPECT_TRUE(t.printer.jobs.empty()) << r.mode;
    }
}

TEST(PrintCommand, PatchPrintsTheRowsOfTheCurrentSubsectionInOrder)
{
    TestModel t;
    t.model.flags.loaded[kPatch] = true;
    const auto& sub = paramTables().patchSubsections;
    // The first subsection of the tree with rows of its own.
    int subsection = 1;
    while (sub[static_cast<std::size_t>(subsection)].firstParam == 0)
        ++subsection;
    fraPatchHeaders(t.model, 1, 0, subsection);
    t.model.layout.CurrentFrame = 1;
    const FrameState frame = t.model.layout.patchFrames[1];
    ParamValues& values = t.model.buffers.of(kPatch).current;
    values[frame.SubFirst] = 7;

    ASSERT_TRUE(mnuPrint(t.model));
    ASSERT_EQ(t.printer.jobs.size(), 1u);
    const auto& lines = t.printer.jobs[0].lines;
    ASSERT_EQ(static_cast<int>(lines.size()), frame.SubLast - frame.SubFirst + 1);
    for (int p = frame.SubFirst; p <= frame.SubLast; ++p)
        expectRowLine(lines[static_cast<std::size_t>(p - frame.SubFirst)], values[p], paramTables().patch[p]);
    EXPECT_TRUE(startsWith(lines[0], "  7    "));
    EXPECT_EQ(t.printer.jobs[0].title, t.model.layout.frames[1].label);
}

TEST(PrintCommand, PatchPrintsTheFrameThatIsCurrentNotTheOther)
{
    TestModel t;
    fraPatchHeaders(t.model, 1, 0, 1);
    fraPatchHeaders(t.model, 2, 0, 13);
    t.model.layout.CurrentFrame = 2;
    const FrameState frame = t.model.layout.patchFrames[2];
    ASSERT_TRUE(mnuPrint(t.model));
    const auto& lines = t.printer.jobs.at(0).lines;
    ASSERT_EQ(static_cast<int>(lines.size()), frame.SubLast - frame.SubFirst + 1);
    EXPECT_TRUE(endsWith(lines.back(), paramTables().patch[frame.SubLast].name));
}

TEST(PrintCommand, ValuesStandRightAlignedInThreePlacesWithTheNamesInOneColumn)
{
    TestModel t;
    fraPatchHeaders(t.model, 1, 0, 13);
    t.model.layout.CurrentFrame = 1;
    const FrameState frame = t.model.layout.patchFrames[1];
    ASSERT_GE(frame.SubLast - frame.SubFirst, 2);
    ParamValues& values = t.model.buffers.of(kPatch).current;
    values[frame.SubFirst] = -12;
    values[frame.SubFirst + 1] = 127;
    values[frame.SubFirst + 2] = 3;
    const auto lines = subsectionPrintLines(t.model, kPatch);
    EXPECT_TRUE(startsWith(lines[0], "-12    "));
    EXPECT_TRUE(startsWith(lines[1], "127    "));
    EXPECT_TRUE(startsWith(lines[2], "  3    "));
    // The names begin in one column.
    std::vector<std::size_t> nameColumns;
    for (int i = 0; i < static_cast<int>(lines.size()); ++i)
        nameColumns.push_back(lines[static_cast<std::size_t>(i)].size() -
                              paramTables().patch[frame.SubFirst + i].name.size());
    EXPECT_EQ(std::count(nameColumns.begin(), nameColumns.end(), nameColumns.front()),
              static_cast<long>(nameColumns.size()));
}

TEST(PrintCommand, MultisetWithNoBankChosenPrintsItsCurrentSubsection)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.model.multiMode = 0;
    fraMultiHeaders(t.model, 1, 0, 11);
    t.model.layout.CurrentFrame = 1;
    const FrameState frame = t.model.layout.multiFrames[1];
    ParamValues& values = t.model.buffers.of(kMultiset).current;
    values[frame.SubFirst] = 1;
    ASSERT_TRUE(mnuPrint(t.model));
    const auto& lines = t.printer.jobs.at(0).lines;
    ASSERT_EQ(static_cast<int>(lines.size()), frame.SubLast - frame.SubFirst + 1);
    for (int p = frame.SubFirst; p <= frame.SubLast; ++p)
        expectRowLine(lines[static_cast<std::size_t>(p - frame.SubFirst)], values[p], paramTables().multi[p]);
}

TEST(PrintCommand, BankPrintsItsHeadingThenTheNumberedNames)
{
    for (int bank : {kPatchBankA, kPatchBankB}) {
        TestModel t;
        t.model.mode = bank;
        t.model.flags.loaded[bank] = true;
        ASSERT_TRUE(mnuPrint(t.model));
        const auto& job = t.printer.jobs.at(0);
        EXPECT_EQ(job.lines, bankListLines(t.model, bank));
        EXPECT_EQ(job.lines.size(), 130u);
        EXPECT_EQ(job.lines[0], bank == kPatchBankA ? "Bank A" : "Bank B");
        EXPECT_TRUE(startsWith(job.lines[2], bank == kPatchBankA ? "A000 " : "B000 "));
        EXPECT_TRUE(startsWith(job.lines[129], bank == kPatchBankA ? "A127 " : "B127 "));
        EXPECT_EQ(job.title, job.lines[0]);
    }
}

TEST(PrintCommand, ChosenMultiBankPrintsItsMultisetsWithTheirTimbres)
{
    for (int multiMode : {1, 2}) {
        TestModel t;
        const int bank = multiMode == 1 ? kMultiBankA : kMultiBankB;
        t.model.mode = kMultiset;
        t.model.multiMode = multiMode;
        t.model.flags.loaded[bank] = true;
        ASSERT_TRUE(mnuPrint(t.model));
        const auto& lines = t.printer.jobs.at(0).lines;
        EXPECT_EQ(lines, multiBankListLines(t.model, bank));
        EXPECT_EQ(lines[0], multiMode == 1 ? "Multi Bank A" : "Multi Bank B");
        EXPECT_TRUE(startsWith(lines[2], multiMode == 1 ? "A00 " : "B00 "));
        EXPECT_TRUE(startsWith(lines[3], "  patch A000 "));
        EXPECT_EQ(lines.size(), 2u + 16u * 8u);
    }
}

TEST(PrintCommand, MultiBankThatIsNotChosenIsNotAskedAbout)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.model.multiMode = 2;
    t.model.flags.loaded[kMultiBankA] = true;
    t.host.expectMessage("Send to printer", Answer::Ok, "Nothing to send");
    EXPECT_FALSE(mnuPrint(t.model));
    EXPECT_TRUE(t.printer.jobs.empty());
}

TEST(PrintCommand, ArpeggiatorBankPrintsPresetsAndUserSlots)
{
    TestModel t;
    t.model.mode = kPattern;
    t.model.arpMode = 1;
    t.model.flags.loaded[kArpBank] = true;
    ASSERT_TRUE(mnuPrint(t.model));
    const auto& lines = t.printer.jobs.at(0).lines;
    ASSERT_EQ(lines.size(), 22u);
    EXPECT_EQ(lines[0], "Arpeggiator Bank");
    EXPECT_TRUE(startsWith(lines[2], "PRESET: "));
    EXPECT_TRUE(startsWith(lines[6], "PRESET: "));
    EXPECT_TRUE(startsWith(lines[7], "U1-1 "));
    EXPECT_TRUE(startsWith(lines[12], "U2-1 "));
    EXPECT_TRUE(startsWith(lines[21], "U3-5 "));
}

TEST(PrintCommand, SinglePatternAsksFirstAndNoPrintsNothing)
{
    TestModel t;
    t.model.mode = kPattern;
    t.model.arpMode = 0;
    setName(t.model.buffers.of(kPattern).current, "Up And Down");
    t.host.expectMessage("Send to Printer: Up And Down", Answer::No,
                         "Text printout only (pattern parameters). OK to proceed?");
    EXPECT_FALSE(mnuPrint(t.model));
    EXPECT_TRUE(t.host.allShown());
    EXPECT_TRUE(t.printer.jobs.empty());
    ASSERT_EQ(t.host.messages.size(), 1u);
    EXPECT_EQ(t.host.messages[0].buttons, MessageButtons::YesNo);
}

TEST(PrintCommand, SinglePatternPrintsItsCommonRowsThenEachStepInOrder)
{
    TestModel t;
    t.model.mode = kPattern;
    setName(t.model.buffers.of(kPattern).current, "Up And Down");
    t.host.expectMessage("Send to Printer: Up And Down", Answer::Yes);
    ASSERT_TRUE(mnuPrint(t.model));
    const auto& lines = t.printer.jobs.at(0).lines;

    const auto& defs = paramTables().arp;
    const ParamValues& values = t.model.buffers.of(kPattern).current;
    std::vector<std::string> headings;
    std::size_t at = 0;
    int steps = 0;
    for (std::size_t p = 1; p < defs.size(); ++p)
        steps = std::max(steps, static_cast<int>(defs[p].sect));
    ASSERT_GT(steps, 0);
    for (int step = 0; step <= steps; ++step) {
        if (step > 0) {
            EXPECT_EQ(lines.at(at++), "");
        }
        EXPECT_EQ(lines.at(at++), step == 0 ? std::string("Pattern parameters")
                                            : "Step " + std::to_string(step) + " parameters");
        for (std::size_t p = 1; p < defs.size(); ++p) {
            if (defs[p].sect == step) {
                expectRowLine(lines.at(at++), values[p], defs[p]);
            }
        }
    }
    EXPECT_EQ(at, lines.size());
    EXPECT_EQ(t.printer.jobs[0].title, "Up And Down");
}

TEST(PrintCommand, CancelledAtThePrintDialogSaysNothing)
{
    TestModel t;
    t.model.mode = kPatchBankA;
    t.model.flags.loaded[kPatchBankA] = true;
    t.printer.outcome = PrintOutcome::Cancelled;
    EXPECT_FALSE(mnuPrint(t.model));
    EXPECT_EQ(t.printer.jobs.size(), 1u);
    EXPECT_TRUE(t.host.messages.empty());
}

TEST(PrintCommand, PrinterThatFailsIsToldInABox)
{
    TestModel t;
    t.model.mode = kPatchBankA;
    t.model.flags.loaded[kPatchBankA] = true;
    t.printer.outcome = PrintOutcome::Failed;
    t.host.expectMessage("Send to printer");
    EXPECT_FALSE(mnuPrint(t.model));
    EXPECT_TRUE(t.host.allShown());
}

TEST(PrintCommand, WithNoPrinterNothingHappens)
{
    TestModel t;
    t.model.setPrinter(nullptr);
    t.model.mode = kPatchBankA;
    t.model.flags.loaded[kPatchBankA] = true;
    EXPECT_FALSE(mnuPrint(t.model));
    EXPECT_TRUE(t.printer.jobs.empty());
}

TEST(WholeItemPrintout, PatchGoesSubsectionBySubsectionInTheOrderOfTheTree)
{
    TestModel t;
    const Printout printout = wholeItemPrintout(t.model, kPatch);
    // The headings in the order they stand, each after an empty line but
    // the first.
    std::vector<std::string> headings;
    for (std::size_t i = 0; i < printout.lines.size(); ++i) {
        if (i == 0 || printout.lines[i - 1].empty())
            headings.push_back(printout.lines[i]);
    }
    std::vector<std::string> tree;
    for (const TreeNode& root : sectionTree()) {
        if (!root.parentKey.empty())
            continue;
        tree.push_back(root.text);
        for (const TreeNode& child : sectionTree()) {
            if (child.parentKey == root.key)
                tree.push_back(child.text);
        }
    }
    // Every heading is a node of the tree, in the tree's order.
    ASSERT_FALSE(headings.empty());
    std::size_t next = 0;
    for (const std::string& heading : headings) {
        while (next < tree.size() && tree[next] != heading)
            ++next;
        ASSERT_LT(next, tree.size()) << heading;
        ++next;
    }
    EXPECT_EQ(headings.front(), tree.front());
    EXPECT_TRUE(printout.lines.back().empty());
}

TEST(WholeItemPrintout, MultisetAndBanksAreTheirViewsPrintouts)
{
    TestModel t;
    const Printout multi = wholeItemPrintout(t.model, kMultiset);
    EXPECT_GT(multi.lines.size(), 100u);
    EXPECT_EQ(wholeItemPrintout(t.model, kPatchBankB).lines, bankListLines(t.model, kPatchBankB));
    EXPECT_EQ(wholeItemPrintout(t.model, kMultiBankA).lines, multiBankListLines(t.model, kMultiBankA));
    EXPECT_EQ(wholeItemPrintout(t.model, kArpBank).lines, arpBankListLines(t.model, kArpBank));
    EXPECT_EQ(wholeItemPrintout(t.model, kPattern).lines.front(), "Pattern parameters");
    EXPECT_TRUE(wholeItemPrintout(t.model, kOtherDump).lines.empty());
}

}  // namespace
}  // namespace quillon

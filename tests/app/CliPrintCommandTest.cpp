#include "app/CliCommands.h"

#include "app/CliRun.h"
#include "app/CliSession.h"
#include "editors/Navigation.h"
#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "output/Printing.h"
#include "output/TextLists.h"
#include "support/PdfText.h"
#include "support/TestModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace quillon {
namespace {

// An item of the factory defaults with a name, as its Kind's byte image.
ByteImage itemNamed(int kind, const std::string& name)
{
    const auto& t = paramTables();
    ParamValues values = kind == kPatch ? t.patchDefaults : kind == kMultiset ? t.multiDefaults : t.arpDefaults;
    const std::string padded = (name + std::string(16, ' ')).substr(0, 16);
    for (int i = 0; i < 16; ++i)
        values[static_cast<std::size_t>(i + 1)] = static_cast<std::int16_t>(padded[static_cast<std::size_t>(i)]);
    ByteImage image(byteImageSize(kind), 0);
    paramsToImage(kind, values, image);
    return image;
}

// A bank whose members are named the stem and their place.
ByteImage bankNamed(int bank, int memberKind, int members, const std::string& stem)
{
    ByteImage image(byteImageSize(bank), 0);
    const std::size_t size = byteImageSize(memberKind);
    for (int m = 0; m < members; ++m) {
        const ByteImage one = itemNamed(memberKind, stem + " " + std::to_string(m));
        std::copy(one.begin(), one.end(), image.begin() + static_cast<std::ptrdiff_t>(m * size));
    }
    return image;
}

std::string write(const TempFolder& folder, const std::string& name, const std::vector<std::uint8_t>& bytes)
{
    const auto path = folder / name;
    EXPECT_TRUE(writeFileAtomically(path, bytes));
    return path.string();
}

// The printout the window would give for the file's item, as the command
// makes it.
std::vector<std::string> printoutOf(const std::string& path, int kind, std::optional<int> member = {})
{
    CliSession session;
    std::string error;
    const auto opened = session.open(path, error);
    EXPECT_TRUE(opened) << error;
    int item = kind;
    if (member) {
        const auto taken = session.takeItem(*opened, member, error);
        EXPECT_TRUE(taken) << error;
        item = taken.value_or(kind);
    }
    return wholeItemPrintout(session.model(), item).lines;
}

void expectPdfHolds(const std::filesystem::path& pdf, const std::vector<std::string>& lines)
{
    ASSERT_TRUE(std::filesystem::exists(pdf));
    const std::string text = pdfText(pdf);
    std::string missing;
    EXPECT_TRUE(linesInOrder(text, lines, missing)) << "not in the PDF: '" << missing << "'";
}

TEST(CliPrint, BankPrintsItsListToThePdf)
{
    TempFolder folder;
    const ByteImage bank = bankNamed(kPatchBankB, kPatch, kPatchesPerBank, "Choir");
    const auto path = write(folder, "bank.syx", patchBankDump(kPatchBankB, 1, DATAtoMIDI(kPatchBankB, bank)));
    const auto pdf = folder / "bank.pdf";
    const CliRun r = run(runPrint, {path, "--pdf", pdf.string()});
    ASSERT_EQ(r.exitCode, kExitOk) << r.err;
    EXPECT_EQ(r.out, pdf.string() + "\n");
    const std::vector<std::string> lines = printoutOf(path, kPatchBankB);
    ASSERT_EQ(lines.size(), 130u);
    EXPECT_EQ(lines[129], "B127 Choir 127       ");
    expectPdfHolds(pdf, lines);
}

TEST(CliPrint, PatchPrintsEverySubsectionInTheOrderOfTheTree)
{
    TempFolder folder;
    const auto path =
        write(folder, "patch.syx", currentPatchDump(1, DATAtoMIDI(kPatch, itemNamed(kPatch, "Glass Bell"))));
    const auto pdf = folder / "patch.pdf";
    const CliRun r = run(runPrint, {"--pdf", pdf.string(), path});
    ASSERT_EQ(r.exitCode, kExitOk) << r.err;
    const std::vector<std::string> lines = printoutOf(path, kPatch);
    // The first section of the tree heads the printout, and the subsections
    // of the tree stand in it in their order.
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), sectionTree().front().text);
    expectPdfHolds(pdf, lines);
}

TEST(CliPrint, BankMemberPrintsThatPatch)
{
    TempFolder folder;
    const ByteImage bank = bankNamed(kPatchBankA, kPatch, kPatchesPerBank, "Organ");
    const auto path = write(folder, "bank.syx", patchBankDump(kPatchBankA, 1, DATAtoMIDI(kPatchBankA, bank)));
    const auto pdf = folder / "member.pdf";
    const CliRun r = run(runPrint, {path, "--member", "5", "--pdf", pdf.string()});
    ASSERT_EQ(r.exitCode, kExitOk) << r.err;
    const std::vector<std::string> lines = printoutOf(path, kPatch, 5);
    EXPECT_EQ(lines.front(), sectionTree().front().text);
    expectPdfHolds(pdf, lines);
}

TEST(CliPrint, MultisetMultiBankPatternAndArpBankPrintTheirViews)
{
    TempFolder folder;
    struct Case {
        const char* name;
        std::vector<std::uint8_t> bytes;
        int kind;
        std::string first;
    };
    const Case cases[] = {
        {"multi.syx", currentMultiDump(1, DATAtoMIDI(kMultiset, itemNamed(kMultiset, "Layered"))), kMultiset, ""},
        {"multibank.syx",
         multiBankDump(kMultiBankA, 1, DATAtoMIDI(kMultiBankA, bankNamed(kMultiBankA, kMultiset, kMultisPerBank, "Split"))),
         kMultiBankA, "Multi Bank A"},
        {"pattern.syx", currentPatternDump(1, DATAtoMIDI(kPattern, itemNamed(kPattern, "Up Down"))), kPattern,
         "Pattern parameters"},
        {"arpbank.syx", arpBankDump(1, DATAtoMIDI(kArpBank, bankNamed(kArpBank, kPattern, kPatternsPerBank, "Arp"))),
         kArpBank, "Arpeggiator Bank"},
    };
    for (const Case& c : cases) {
        const auto path = write(folder, c.name, c.bytes);
        const auto pdf = folder / (std::string(c.name) + ".pdf");
        const CliRun r = run(runPrint, {path, "--pdf", pdf.string()});
        ASSERT_EQ(r.exitCode, kExitOk) << c.name << ": " << r.err;
        const std::vector<std::string> lines = printoutOf(path, c.kind);
        ASSERT_FALSE(lines.empty()) << c.name;
        if (!c.first.empty())
            EXPECT_EQ(lines.front(), c.first) << c.name;
        expectPdfHolds(pdf, lines);
    }
}

TEST(CliPrint, WithoutAPdfOrWithTwoFilesItIsBadUsage)
{
    TempFolder folder;
    const auto path =
        write(folder, "patch.syx", currentPatchDump(1, DATAtoMIDI(kPatch, itemNamed(kPatch, "Glass Bell"))));
    EXPECT_EQ(run(runPrint, {path}).exitCode, kExitUsage);
    EXPECT_EQ(run(runPrint, {path, "--pdf"}).exitCode, kExitUsage);
    EXPECT_EQ(run(runPrint, {path, path, "--pdf", (folder / "x.pdf").string()}).exitCode, kExitUsage);
    EXPECT_FALSE(std::filesystem::exists(folder / "x.pdf"));
}

TEST(CliPrint, UnreadableFileIsExit2AndWritesNoPdf)
{
    TempFolder folder;
    const auto pdf = folder / "none.pdf";
    const CliRun r = run(runPrint, {(folder / "missing.syx").string(), "--pdf", pdf.string()});
    EXPECT_EQ(r.exitCode, kExitUsage);
    EXPECT_FALSE(r.err.empty());
    EXPECT_FALSE(std::filesystem::exists(pdf));
}

TEST(CliPrint, MemberOutOfTheBankIsRefused)
{
    TempFolder folder;
    const ByteImage bank = bankNamed(kPatchBankA, kPatch, kPatchesPerBank, "Organ");
    const auto path = write(folder, "bank.syx", patchBankDump(kPatchBankA, 1, DATAtoMIDI(kPatchBankA, bank)));
    const auto pdf = folder / "member.pdf";
    const CliRun r = run(runPrint, {path, "--member", "128", "--pdf", pdf.string()});
    EXPECT_NE(r.exitCode, kExitOk);
    EXPECT_FALSE(std::filesystem::exists(pdf));
}

}  // namespace
}  // namespace quillon

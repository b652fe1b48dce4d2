#include "output/screens/QtPrinter.h"

#include "editors/Frames.h"
#include "editors/ItemStatus.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "output/Printing.h"
#include "output/TextLists.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmMain.h"
#include "support/DialogAnswers.h"
#include "support/PdfText.h"
#include "support/TestModel.h"

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPrintDialog>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <filesystem>
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

// Gives every member of a bank a readable name: the stem and its place.
void nameMembers(AppModel& model, int kind, int members, int memberBytes, const std::string& stem)
{
    ByteImage& image = model.banks.image(kind);
    for (int m = 0; m < members; ++m) {
        std::string name = stem + " " + std::to_string(m);
        name.resize(16, ' ');
        std::copy(name.begin(), name.end(), image.begin() + static_cast<std::ptrdiff_t>(m) * memberBytes);
    }
}

// Prints the view of the model to a PDF file with the program's printer and
// reads the text back.
std::string printViewToPdf(AppModel& model, const std::filesystem::path& pdf, std::vector<std::string>& sent)
{
    const std::optional<Printout> printout = printoutOfView(model);
    EXPECT_TRUE(printout.has_value());
    if (!printout)
        return {};
    sent = printout->lines;
    QtPrinter printer(QString::fromStdString(pdf.string()));
    EXPECT_EQ(printer.print(printout->title, printout->lines), PrintOutcome::Printed);
    return pdfText(pdf);
}

void expectPrinted(const std::string& text, const std::vector<std::string>& lines)
{
    std::string missing;
    EXPECT_TRUE(linesInOrder(text, lines, missing)) << "not in the printout: '" << missing << "'";
}

int pagesOf(const std::string& text)
{
    // pdftotext ends every page with a form feed.
    return static_cast<int>(std::count(text.begin(), text.end(), '\f'));
}

TEST(QtPrinter, PatchSubsectionPrintsItsRowsToPdf)
{
    TestModel t;
    fraPatchHeaders(t.model, 1, 0, 13);
    t.model.layout.CurrentFrame = 1;
    t.model.buffers.of(kPatch).current[t.model.layout.patchFrames[1].SubFirst] = 42;
    std::vector<std::string> sent;
    const std::string text = printViewToPdf(t.model, t.folder / "patch.pdf", sent);
    ASSERT_FALSE(sent.empty());
    EXPECT_EQ(sent[0].substr(0, 7), " 42    ");
    expectPrinted(text, sent);
}

TEST(QtPrinter, BankListPrintsToPdfOverMoreThanOnePage)
{
    for (int bank : {kPatchBankA, kPatchBankB}) {
        TestModel t;
        t.model.mode = bank;
        t.model.flags.loaded[bank] = true;
        nameMembers(t.model, bank, kPatchesPerBank, kPatchBytes, "Pad");
        std::vector<std::string> sent;
        const std::string text = printViewToPdf(t.model, t.folder / "bank.pdf", sent);
        EXPECT_EQ(sent.size(), 130u);
        expectPrinted(text, sent);
        EXPECT_NE(text.find(bank == kPatchBankA ? "A127 Pad 127" : "B127 Pad 127"), std::string::npos);
        EXPECT_GE(pagesOf(text), 2);
    }
}

TEST(QtPrinter, MultiBankListWithTimbresPrintsToPdf)
{
    TestModel t;
    t.model.mode = kMultiset;
    t.model.multiMode = 2;
    t.model.flags.loaded[kMultiBankB] = true;
    t.model.flags.loaded[kPatchBankA] = true;
    nameMembers(t.model, kMultiBankB, kMultisPerBank, kMultiBytes, "Split");
    nameMembers(t.model, kPatchBankA, kPatchesPerBank, kPatchBytes, "Lead");
    std::vector<std::string> sent;
    const std::string text = printViewToPdf(t.model, t.folder / "multibank.pdf", sent);
    EXPECT_EQ(sent[0], "Multi Bank B");
    expectPrinted(text, sent);
    EXPECT_NE(text.find("patch A000 Lead 0"), std::string::npos) << text.substr(0, 400);
}

TEST(QtPrinter, MultisetSubsectionPrintsToPdf)
{
    TestModel t;
    t.model.mode = kMultiset;
    fraMultiHeaders(t.model, 1, 0, 11);
    t.model.layout.CurrentFrame = 1;
    std::vector<std::string> sent;
    const std::string text = printViewToPdf(t.model, t.folder / "multi.pdf", sent);
    ASSERT_FALSE(sent.empty());
    expectPrinted(text, sent);
}

TEST(QtPrinter, ArpeggiatorBankPrintsToPdf)
{
    TestModel t;
    t.model.mode = kPattern;
    t.model.arpMode = 1;
    t.model.flags.loaded[kArpBank] = true;
    nameMembers(t.model, kArpBank, kPatternsPerBank, kPatternBytes, "Arp");
    std::vector<std::string> sent;
    const std::string text = printViewToPdf(t.model, t.folder / "arpbank.pdf", sent);
    EXPECT_EQ(sent[0], "Arpeggiator Bank");
    expectPrinted(text, sent);
    EXPECT_NE(text.find("PRESET: Arp 0"), std::string::npos);
    EXPECT_NE(text.find("U3-5 Arp 19"), std::string::npos);
}

TEST(QtPrinter, SinglePatternPrintsItsParametersStepByStepToPdf)
{
    TestModel t;
    t.model.mode = kPattern;
    setName(t.model.buffers.of(kPattern).current, "Up And Down");
    t.host.expectMessage("Send to Printer: Up And Down", Answer::Yes);
    std::vector<std::string> sent;
    const std::string text = printViewToPdf(t.model, t.folder / "pattern.pdf", sent);
    EXPECT_EQ(sent[0], "Pattern parameters");
    expectPrinted(text, sent);
    EXPECT_NE(text.find("Step 1 parameters"), std::string::npos);
}

TEST(QtPrinter, ColumnsStandStraightInTheFixedPitchFont)
{
    TestModel t;
    fraPatchHeaders(t.model, 1, 0, 13);
    t.model.layout.CurrentFrame = 1;
    const FrameState frame = t.model.layout.patchFrames[1];
    ParamValues& values = t.model.buffers.of(kPatch).current;
    values[frame.SubFirst] = 1;
    values[frame.SubFirst + 1] = 100;
    std::vector<std::string> sent;
    const std::string text = printViewToPdf(t.model, t.folder / "columns.pdf", sent);

    // In a fixed-pitch font every value ends in the third place and every
    // name begins in one column of the text read back.
    std::vector<std::string> read;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        read.push_back(line);
    std::set<std::size_t> nameColumns;
    for (int p = frame.SubFirst; p <= frame.SubLast; ++p) {
        const std::string& line = read.at(static_cast<std::size_t>(p - frame.SubFirst));
        const std::string value = std::to_string(values[p]);
        EXPECT_EQ(line.substr(3 - value.size(), value.size()), value) << line;
        const std::string& name = paramTables().patch[p].name;
        ASSERT_GE(line.size(), name.size()) << line;
        EXPECT_EQ(line.substr(line.size() - name.size()), name) << line;
        nameColumns.insert(line.size() - name.size());
    }
    EXPECT_EQ(nameColumns.size(), 1u) << text.substr(0, 400);
}

// Opens the File menu of the menu bar and clicks Print, as the user does.
void clickFilePrint(frmMain& window)
{
    QMenuBar* bar = window.menuBar();
    auto* fileMenu = window.findChild<QMenu*>("mnuFile");
    ASSERT_NE(fileMenu, nullptr);
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(fileMenu->menuAction()).center());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(fileMenu));
    QAction* print = window.action("mnuPrint");
    ASSERT_NE(print, nullptr);
    ASSERT_TRUE(print->isEnabled());
    QTest::mouseClick(fileMenu, Qt::LeftButton, {}, fileMenu->actionGeometry(print).center());
}

// The main window with the program's own printer, on the list of a loaded
// bank whose patches are named the stem and their place.
struct PrintWindow {
    QtHost host;
    MemorySettingsStore store;
    TempFolder folder;
    QtPrinter printer;
    AppModel model{host, store, folder.path(), &printer};
    frmMain window{model, host};

    PrintWindow(int bank, const std::string& stem)
    {
        EXPECT_TRUE(doFormLoadMain(model));
        window.resize(1300, 800);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        setUpScreen(model, bank);
        model.flags.loaded[bank] = true;
        nameMembers(model, bank, kPatchesPerBank, kPatchBytes, stem);
    }
};

TEST(QtPrinter, FileMenuPrintAnsweredInThePrintDialogWritesThePdf)
{
    PrintWindow w(kPatchBankA, "Bell");
    AppModel& model = w.model;
    frmMain& window = w.window;
    const TempFolder& folder = w.folder;

    const QString pdf = QString::fromStdString((folder / "from-menu.pdf").string());
    bool answered = false;
    whenNextModalOpens([&](QWidget* modal) {
        auto* dialog = qobject_cast<QPrintDialog*>(modal);
        if (dialog == nullptr) {
            modal->close();
            return;
        }
        answered = true;
        auto* name = dialog->findChild<QLineEdit*>("filename");
        ASSERT_NE(name, nullptr);
        name->selectAll();
        QTest::keyClicks(name, pdf);
        for (QAbstractButton* button : dialog->findChildren<QAbstractButton*>()) {
            if (button->text().remove('&') == "Print") {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        dialog->reject();
    });

    clickFilePrint(window);

    EXPECT_TRUE(answered);
    ASSERT_TRUE(std::filesystem::exists(pdf.toStdString()));
    const std::string text = pdfText(pdf.toStdString());
    expectPrinted(text, bankListLines(model, kPatchBankA));
    EXPECT_NE(text.find("A127 Bell 127"), std::string::npos);
}

TEST(QtPrinter, FileMenuPrintCancelledAtTheDialogWritesNothing)
{
    PrintWindow w(kPatchBankB, "Harp");
    frmMain& window = w.window;
    const TempFolder& folder = w.folder;

    bool cancelled = false;
    whenNextModalOpens([&](QWidget* modal) {
        if (qobject_cast<QPrintDialog*>(modal) == nullptr) {
            modal->close();
            return;
        }
        for (QAbstractButton* button : modal->findChildren<QAbstractButton*>()) {
            if (button->text().remove('&') == "Cancel") {
                cancelled = true;
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        modal->close();
    });
    clickFilePrint(window);
    EXPECT_TRUE(cancelled);
    EXPECT_TRUE(std::none_of(std::filesystem::recursive_directory_iterator(folder.path()),
                             std::filesystem::recursive_directory_iterator(),
                             [](const auto& entry) { return entry.path().extension() == ".pdf"; }));
}

}  // namespace
}  // namespace quillon

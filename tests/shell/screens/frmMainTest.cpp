#include "shell/screens/frmMain.h"

#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/QtHost.h"
#include "support/DialogAnswers.h"
#include "support/TestModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>

#include <gtest/gtest.h>

namespace quillon {
namespace {

// The main window over a model of its own, started as the program starts.
struct MainWindow {
    QtHost host;
    MemorySettingsStore store;
    TempFolder folder;
    AppModel model{host, store, folder.path()};
    frmMain window{model, host};

    explicit MainWindow(bool started = true)
    {
        if (started) {
            EXPECT_TRUE(doFormLoadMain(model));
        }
    }

    QAction* action(const char* name) { return window.action(name); }
    QLabel* label(const char* name) { return window.findChild<QLabel*>(name); }
};

std::vector<std::string> itemsOf(QMenu* menu)
{
    std::vector<std::string> items;
    for (QAction* a : menu->actions()) {
        if (!a->isSeparator())
            items.push_back(a->objectName().toStdString() + "=" + a->text().toStdString());
    }
    return items;
}

std::string writePatchFile(const TempFolder& folder, const std::string& fileName, const std::string& name)
{
    ParamValues values = paramTables().patchDefaults;
    const std::string padded = (name + std::string(16, ' ')).substr(0, 16);
    for (int i = 0; i < 16; ++i)
        values[i + 1] = static_cast<std::int16_t>(padded[i]);
    ByteImage image(kPatchBytes, 0);
    patchParamsToImage(values, image);
    const auto path = folder / fileName;
    EXPECT_TRUE(writeFileAtomically(path, currentPatchDump(1, DATAtoMIDI(kPatch, image))));
    return path.string();
}

TEST(frmMain, MenuBarHasEveryMenuInOrder)
{
    MainWindow w;
    std::vector<std::string> menus;
    for (QAction* a : w.window.menuBar()->actions())
        menus.push_back(a->menu()->objectName().toStdString() + "=" + a->text().toStdString());
    EXPECT_EQ(menus, (std::vector<std::string>{"mnuFile=&File", "mnuEdit=&Edit", "mnuReceive=Receive",
                                               "mnuSend=Send", "mnuPatch=Patch", "mnuBank=Bank", "mnuMulti=Multi",
                                               "mnuArpeggiator=Arpeggiator", "mnuSubsection=Subsection",
                                               "mnuSettings=Settings", "mnuSystem=System", "mnuHelp=&Help"}));
}

TEST(frmMain, FileMenuHoldsItsItemsAndTheRecentFilesInOrder)
{
    MainWindow w;
    const auto items = itemsOf(w.window.findChild<QMenu*>("mnuFile"));
    std::vector<std::string> expected{"mnuNew=&New", "mnuOpen=&Open", "mnuSave=&Save", "mnuSaveAs=Save &as...",
                                      "mnuSaveList=Save List", "mnuImportToBank=Import to Bank",
                                      "mnuPrint=&Print"};
    for (int i = 1; i <= 10; ++i)
        expected.push_back("mnuFileArray_" + std::to_string(i) + "=");
    expected.push_back("mnuExit=E&xit");
    EXPECT_EQ(items, expected);
}

TEST(frmMain, OtherMenusHoldTheirItemsInOrder)
{
    // Before start-up, as the form is built: the Send command reads "Patch"
    // until the first item names it.
    MainWindow w(false);
    EXPECT_EQ(itemsOf(w.window.findChild<QMenu*>("mnuSend")),
              (std::vector<std::string>{"mnuSendActive=Patch", "mnuTestTone=Test Tone", "mnuResetOutput=Reset"}));
    EXPECT_EQ(itemsOf(w.window.findChild<QMenu*>("mnuPatch")),
              (std::vector<std::string>{"mnuShowPatchSectionsTree=Tree Mode", "mnuShowPatchSectionsGroup=Group Mode",
                                        "mnuPatchModSources=Modulation Sources", "mnuPutPatchInBank=Patch to Bank",
                                        "mnuRandomBank=Random 128", "mnuSpreadBank=Spread  128"}));
    const auto bank = itemsOf(w.window.findChild<QMenu*>("mnuBank"));
    ASSERT_EQ(bank.size(), 17u);
    EXPECT_EQ(bank[2], "mnuSortBankArray_0=Sort by Name");
    EXPECT_EQ(bank[11], "mnuSortBankArray_9=Sort by Linked Arp.");
    EXPECT_EQ(bank[16], "mnuShowRemap=Show Remap");
    EXPECT_EQ(itemsOf(w.window.findChild<QMenu*>("mnuSubsection")),
              (std::vector<std::string>{"mnuSubSPrevious=Restore Previous", "mnuSubSLoaded=Restore Loaded",
                                        "mnuSubSDefault=Default", "mnuSubSUserApply=User", "mnuSubSZero=Zero",
                                        "mnuSubSRandom=Random", "mnuSubSUserSave=Save Setting"}));
    const auto settings = itemsOf(w.window.findChild<QMenu*>("mnuSettings"));
    ASSERT_EQ(settings.size(), 11u);
    EXPECT_EQ(settings[0], "mnuSettingsArray_1=Startup");
    EXPECT_EQ(settings[6], "mnuSettingsArray_7=Misc");
    EXPECT_EQ(settings[9], "mnuCreateUserMultiFile=Create User Multiset File");
    EXPECT_EQ(itemsOf(w.window.findChild<QMenu*>("mnuHelp")),
              (std::vector<std::string>{"mnuHelpContents=&Contents...", "mnuHelpIndex=&Index...",
                                        "mnuHelpFAQ=Quillon on the &Web", "mnuAbout=About Quillon..."}));
}

TEST(frmMain, EditReceiveMultiArpeggiatorAndSystemMenusHoldTheirItemsInOrder)
{
    MainWindow w(false);
    EXPECT_EQ(itemsOf(w.window.findChild<QMenu*>("mnuEdit")),
              (std::vector<std::string>{"mnuCopySpecial=Copy Special", "mnuPasteSpecial=Paste Special"}));
    EXPECT_EQ(itemsOf(w.window.findChild<QMenu*>("mnuReceive")),
              (std::vector<std::string>{"mnuListen=Listen", "mnuRequest=Request", "mnuResetInput=Reset"}));
    EXPECT_EQ(itemsOf(w.window.findChild<QMenu*>("mnuMulti")),
              (std::vector<std::string>{"mnuPutMultiInBank=Multiset to Multi Bank",
                                        "mnuRemapMultiset=Remap Multiset", "mnuRemapMultiBank=Remap Multi Bank"}));
    EXPECT_EQ(itemsOf(w.window.findChild<QMenu*>("mnuArpeggiator")),
              (std::vector<std::string>{"mnuPutArpInBank=Pattern to Arpeggiator Bank"}));
    EXPECT_EQ(itemsOf(w.window.findChild<QMenu*>("mnuSystem")),
              (std::vector<std::string>{"mnuParameters=Parameters", "mnuSectionsPatch=Sections: Patch",
                                        "mnuSectionsMulti=Sections: Multi", "mnuSubSectionsPatch=Subsections: Patch",
                                        "mnuSubSectionsMulti=Subsections: Multi", "mnuCheckLoad=Check Load",
                                        "mnuCompareLast=Compare Last", "mnuDumpParamList=Dump Current Params"}));
    const auto bank = itemsOf(w.window.findChild<QMenu*>("mnuBank"));
    EXPECT_EQ(bank[0], "mnuUndoBank=Undo");
    EXPECT_EQ(bank[1], "mnuSwapBanks=Swap Banks");
    EXPECT_EQ(bank[12], "mnuFind=Find Patches");
    EXPECT_EQ(bank[13], "mnuMapOld=Map Old");
    EXPECT_EQ(bank[14], "mnuMapNew=Map New");
    EXPECT_EQ(bank[15], "mnuCreateRemap=Create Remap");
}

TEST(frmMain, ClickingABankLabelShowsThatBankAndHighlightsIt)
{
    MainWindow w;
    QTest::mouseClick(w.label("lblLoaded_3"), Qt::LeftButton);
    EXPECT_EQ(w.model.mode, kPatchBankB);
    EXPECT_TRUE(w.label("lblLoaded_3")->styleSheet().contains("bold"));
    EXPECT_FALSE(w.label("lblLoaded_1")->styleSheet().contains("bold"));
    EXPECT_EQ(w.action("mnuSendActive")->text(), "Bank B");
}

TEST(frmMain, RightClickOnThePatchLabelOpensTheNameDialog)
{
    MainWindow w;
    QString caption;
    whenNextModalOpens([&caption](QWidget* modal) {
        caption = modal->windowTitle();
        modal->close();
    });
    QTest::mouseClick(w.label("lblLoaded_1"), Qt::RightButton);
    EXPECT_EQ(caption, "Edit Patch Name");
}

TEST(frmMain, ToolbarKeysStandInOrderWithTheirTooltips)
{
    MainWindow w;
    std::vector<std::string> keys;
    for (QAction* a : w.window.findChild<QToolBar*>("tlbMain")->actions())
        if (a->objectName().startsWith("tlbMain_"))
            keys.push_back(a->objectName().mid(8).toStdString() + "=" + a->toolTip().toStdString());
    EXPECT_EQ(keys.size(), 15u);
    for (const char* tool : {"txtBankPatchSelGroup", "updBankPatchSelGroup", "txtBankPatchSelSS", "updBankPatchSelSS"})
        EXPECT_NE(w.window.findChild<QWidget*>(tool), nullptr) << tool;
    EXPECT_EQ(keys.front(), "open=Open file");
    EXPECT_EQ(keys[1], "save=Save file as...");
    EXPECT_EQ(keys[2], "listen=Listen to Korg Z1 (wait for SysEx data)");
    EXPECT_EQ(keys[6], "put=Put current in bank");
    EXPECT_EQ(keys.back(), "bps=Slow Merge: bank patch subsection to patch editor");
}

TEST(frmMain, FileCommandsArePresentAndEnabled)
{
    MainWindow w;
    EXPECT_TRUE(w.action("mnuPrint")->isEnabled());
    EXPECT_TRUE(w.action("mnuOpen")->isEnabled());
    EXPECT_TRUE(w.action("tlbMain_save")->isEnabled());
}

TEST(frmMain, StartsWithTheDefaultPatchHighlighted)
{
    MainWindow w;
    EXPECT_EQ(w.label("lblLoaded_1")->text(), "Init Patch      ");
    EXPECT_TRUE(w.label("lblLoaded_1")->styleSheet().contains("bold"));
    EXPECT_EQ(w.label("lblLoaded_2")->text(), "Bank A");
    EXPECT_EQ(w.label("lblArpBank")->text(), "Arpeggiator Bank");
    EXPECT_EQ(w.action("mnuSendActive")->text(), "Init Patch      ");
}

TEST(frmMain, OpeningAPatchThroughTheMenuLoadsItAndEntersTheRecentFiles)
{
    MainWindow w;
    const std::string path = writePatchFile(w.folder, "warm.syx", "Warm Pad");
    answerNextFileDialog(QString::fromStdString(path));
    w.action("mnuOpen")->trigger();
    EXPECT_EQ(w.model.buffers.of(kPatch).current[1], 'W');
    EXPECT_EQ(w.label("lblLoaded_1")->text(), "Warm Pad        ");
    EXPECT_TRUE(w.label("lblLoaded_1")->styleSheet().contains("#800000"));
    EXPECT_EQ(w.action("mnuSendActive")->text(), "Warm Pad        ");
    EXPECT_TRUE(w.action("mnuFileArray_1")->isVisible());
    EXPECT_TRUE(w.action("mnuFileArray_0")->isVisible());
    EXPECT_FALSE(w.action("mnuFileArray_2")->isVisible());

    const std::string other = writePatchFile(w.folder, "bright.syx", "Bright");
    answerNextFileDialog(QString::fromStdString(other));
    w.action("mnuOpen")->trigger();
    ASSERT_EQ(w.model.buffers.of(kPatch).current[1], 'B');
    w.action("mnuFileArray_2")->trigger();
    EXPECT_EQ(w.model.buffers.of(kPatch).current[1], 'W');
}

TEST(frmMain, DeletedRecentFileGivesTheBoxAndLeavesTheMenu)
{
    MainWindow w;
    const std::string path = writePatchFile(w.folder, "gone.syx", "Gone");
    answerNextFileDialog(QString::fromStdString(path));
    w.action("mnuOpen")->trigger();
    ASSERT_TRUE(w.action("mnuFileArray_1")->isVisible());
    std::filesystem::remove(path);
    QString text;
    QString title;
    answerNextMessageBox("OK", &text, &title);
    w.action("mnuFileArray_1")->trigger();
    EXPECT_EQ(title, "Open Z1 SysEx file");
    EXPECT_TRUE(text.startsWith("Quillon cannot open file:"));
    EXPECT_FALSE(w.action("mnuFileArray_1")->isVisible());
    EXPECT_FALSE(w.action("mnuFileArray_0")->isVisible());
}

TEST(frmMain, ClosingWithAChangedPatchAndBankAsksPatchFirstAndCancelKeepsItOpen)
{
    MainWindow w;
    w.window.show();
    w.model.buffers.of(kPatch).current[40] = 9;
    w.model.flags.loaded[kPatchBankB] = true;
    w.model.flags.changed[kPatchBankB] = true;
    QStringList titles;
    QStringList texts;
    answerMessageBoxesInTurn({"No", "Cancel"}, &titles, &texts);
    EXPECT_FALSE(w.window.close());
    EXPECT_TRUE(w.window.isVisible());
    EXPECT_EQ(titles, (QStringList{"Exit Quillon", "Exit Quillon"}));
    EXPECT_EQ(texts, (QStringList{"Save Init Patch first?", "Save current Bank B first?"}));
    EXPECT_FALSE(w.model.flags.changed[kPatch]);
    EXPECT_TRUE(w.model.flags.changed[kPatchBankB]);
}

}  // namespace
}  // namespace quillon

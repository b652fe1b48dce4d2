#include "shell/screens/frmSettings.h"

#include "files/AtomicFile.h"
#include "files/FactoryFiles.h"
#include "files/SystemSettingsFile.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "shell/SettingsRules.h"
#include "shell/screens/FormLaunchers.h"
#include "support/DialogAnswers.h"
#include "support/TestModel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

namespace quillon {
namespace {

// The dialog over a model started as the program starts it: factory files
// in the data folder and the settings read from them.
struct SettingsForm {
    TestModel t;
    RecordingObserver observer;
    std::unique_ptr<frmSettings> form;

    SettingsForm()
    {
        EXPECT_TRUE(installFactoryFiles(t.folder.path()));
        EXPECT_TRUE(readSystemSettings(t.model));
        readPersistentLists(t.model);
        t.model.addObserver(&observer);
    }
    ~SettingsForm() { t.model.removeObserver(&observer); }

    SystemSettings& settings() { return t.model.settings; }

    void open(int tab)
    {
        form = std::make_unique<frmSettings>(t.model, tab);
        form->show();
    }

    template <class T>
    T* child(const QString& name)
    {
        T* found = form->findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    QComboBox* combo(const QString& name) { return child<QComboBox>(name); }
    QLineEdit* box(const QString& name) { return child<QLineEdit>(name); }
    QCheckBox* check(const QString& name) { return child<QCheckBox>(name); }
    QPushButton* button(const QString& name) { return child<QPushButton>(name); }

    // The caption beside a control: the label that names it as its buddy.
    QString labelOf(const QString& name)
    {
        QWidget* control = form->findChild<QWidget*>(name);
        for (QLabel* label : form->findChildren<QLabel*>())
            if (control != nullptr && label->buddy() == control)
                return label->text();
        return "<no label for " + name + ">";
    }

    void clickTab(int tab)
    {
        auto* bar = child<QTabBar>("tabSettings");
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(tab - 1).center());
    }

    // Replaces the text of a box as a person types it.
    void type(const QString& name, const QString& text)
    {
        QLineEdit* edit = box(name);
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }

    QWidget* shownFrame() { return child<QStackedWidget>(QString())->currentWidget(); }
};

QStringList itemsOf(QComboBox* combo)
{
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items << combo->itemText(i);
    return items;
}

QStringList numbers(int first, int last)
{
    QStringList items;
    for (int n = first; n <= last; ++n)
        items << QString::number(n);
    return items;
}

const char* const kFlagBoxes[] = {"chkEG_0",  "chkEG_1",  "chkEG_2",   "chkEG_3",   "chkLFO_0",  "chkLFO_1",
                                  "chkLFO_2", "chkLFO_3", "chkOSC_0",  "chkOSC_1",  "chkOSC_2",  "chkOSC_3",
                                  "chkFX_0",  "chkFX_1",  "chkFilt_0", "chkFilt_1", "chkModInt", "chkAEG",
                                  "chkCSS"};
const char* const kPercentBoxes[] = {"txtVarEG",  "txtVarLFO",    "txtVarOSC", "txtVarSONO", "txtVarFX",
                                     "txtVarFilt", "txtVarModInt", "txtVarAEG", "txtVarCSS"};

TEST(frmSettings, HasItsCaptionAndTheSevenTabsInOrder)
{
    SettingsForm f;
    f.open(1);
    EXPECT_EQ(f.form->windowTitle(), "Quillon Settings");
    auto* tabs = f.child<QTabBar>("tabSettings");
    QStringList captions;
    for (int i = 0; i < tabs->count(); ++i)
        captions << tabs->tabText(i);
    EXPECT_EQ(captions, (QStringList{"Startup", "MIDI", "Test tone", "File names", "Random", "Spread", "Misc"}));
    for (int tab : {1, 2, 3, 4, 5, 7})
        EXPECT_NE(f.form->findChild<QFrame*>(QString("fraSettings_%1").arg(tab)), nullptr) << tab;
    EXPECT_EQ(f.button("cmdDone")->text(), "Done");
    EXPECT_EQ(f.button("cmdHelp")->text(), "Help");
}

TEST(frmSettings, EveryLabelledControlCarriesItsCaption)
{
    SettingsForm f;
    f.open(1);
    const std::pair<const char*, const char*> labelled[] = {
        {"cmbRecentFiles", "Show recent files"},   {"cmbUserFileNum", "User file num"},
        {"txtHelpFolder", "Help folder"},          {"cmbInpDev", "Input device"},
        {"cmbInpCha", "Input channel"},            {"cmbOutDev", "Output device"},
        {"cmbOutCha", "Output channel"},           {"cmbToneLen", "Tone length (secs)"},
        {"cmbToneVel", "Tone velocity (0 -127)"}, {"cmbTonePitch", "Tone pitch"},
        {"cmbFormat", "Patch name format"},        {"txtPrefix_1", "Patch"},
        {"txtPrefix_2", "Bank A/B"},               {"txtPrefix_3", "Multi"},
        {"txtPrefix_4", "Arpeggiator"},            {"txtPrefix_5", "Other"},
    };
    for (const auto& [name, caption] : labelled)
        EXPECT_EQ(f.labelOf(name), caption) << name;

    EXPECT_EQ(f.check("chkSuggestNames")->text(), "Suggest file names");
    EXPECT_EQ(f.child<QLabel>("lblPrefixes")->text(), "File name prefixes:");
    const char* legend[] = {"p = Patch Category", "u = User Group",    "o = OSC1 setting",
                            "f =   FX1 setting",  "l = Link Arpeggio", "a = Bank A/B and number"};
    for (int n = 0; n < 6; ++n)
        EXPECT_EQ(f.child<QLabel>(QString("lblLegend_%1").arg(n))->text(), legend[n]);
    EXPECT_EQ(f.check("chkGraphEnv")->text(), "Graphic EG display");
    EXPECT_EQ(f.child<QRadioButton>("optModShow_0")->text(), "Show selected modulators");
    EXPECT_EQ(f.child<QRadioButton>("optModShow_1")->text(), "Show all modulators");
}

TEST(frmSettings, RandomAndSpreadFrameHoldsItsGroupsAndButtons)
{
    SettingsForm f;
    f.open(kSettingsTabRandom);
    const std::pair<const char*, const char*> groups[] = {
        {"fraEG", "EG"},   {"fraLFO", "LFO"},   {"fraOSC", "OSC"},          {"fraSONO", "Sub OSC Noise"},
        {"fraFX", "FX"},   {"fraFilt", "Filt"}, {"fraModInt", "Mod Intensity"}, {"fraAEG", "AmpEG"},
        {"fraCSS", "CSS"}, {"fraInput", "Input"}, {"fraOutput", "Output"},
    };
    for (const auto& [name, caption] : groups)
        EXPECT_EQ(f.child<QGroupBox>(name)->title(), caption) << name;
    auto* eg = f.child<QGroupBox>("fraEG");
    EXPECT_EQ(eg->findChildren<QCheckBox*>().size(), 4);
    EXPECT_NE(eg->findChild<QLineEdit*>("txtVarEG"), nullptr);
    EXPECT_EQ(f.child<QGroupBox>("fraModInt")->findChild<QComboBox*>("cmbModInt"), f.combo("cmbModInt"));
    for (const char* name : kFlagBoxes)
        f.check(name);
    for (const char* name : kPercentBoxes)
        f.box(name);
    f.box("txtResetAll");
    const std::pair<const char*, const char*> buttons[] = {
        {"cmdSelectMain", "Select main"}, {"cmdSelectAll", "Select all"},
        {"cmdSelectNone", "Select none"}, {"cmdResetAll", "Reset %"}};
    for (const auto& [name, caption] : buttons)
        EXPECT_EQ(f.button(name)->text(), caption) << name;
}

TEST(frmSettings, ListsHoldTheirChoices)
{
    SettingsForm f;
    f.open(1);
    EXPECT_EQ(itemsOf(f.combo("cmbRecentFiles")), numbers(0, 10));
    EXPECT_EQ(itemsOf(f.combo("cmbUserFileNum")), numbers(0, 5));
    EXPECT_EQ(itemsOf(f.combo("cmbInpCha")), numbers(1, 16));
    EXPECT_EQ(itemsOf(f.combo("cmbOutCha")), numbers(1, 16));
    EXPECT_EQ(f.combo("cmbInpDev")->count(), 0);
    EXPECT_EQ(f.combo("cmbOutDev")->count(), 0);

    const QStringList lengths = itemsOf(f.combo("cmbToneLen"));
    ASSERT_EQ(lengths.size(), 51);
    EXPECT_EQ(lengths[0], "0.0");
    EXPECT_EQ(lengths[7], "0.7");
    EXPECT_EQ(lengths[10], "1.0");
    EXPECT_EQ(lengths[50], "5.0");
    EXPECT_EQ(itemsOf(f.combo("cmbToneVel")), numbers(0, 127));

    const QStringList pitches = itemsOf(f.combo("cmbTonePitch"));
    ASSERT_EQ(pitches.size(), 128);
    EXPECT_EQ(pitches[0], "C-1");
    EXPECT_EQ(pitches[9], "A0");
    EXPECT_EQ(pitches[60], "C4");
    EXPECT_EQ(pitches[127], "G9");

    const QStringList formats = itemsOf(f.combo("cmbFormat"));
    EXPECT_EQ(formats, (QStringList{"patch name", "pxx patch name", "uxx patch name", "oxx patch name",
                                    "fxx patch name", "lxx patch name", "axxx patch name", "pxxuxx patch name",
                                    "pxxoxx patch name", "uxxoxx patch name"}));

    const QStringList sources = itemsOf(f.combo("cmbModInt"));
    ASSERT_EQ(sources.size(), 49);
    EXPECT_EQ(sources[0], "Off");
    EXPECT_EQ(sources[5], "Amp EG");
    EXPECT_EQ(sources[48], "FX2 OFF/ON");
}

TEST(frmSettings, ControlsShowTheSettingsInMemory)
{
    SettingsForm f;
    SystemSettings& s = f.settings();
    s.recentFilesMax = 7;
    s.userFileNumber = 2;
    s.helpFolder = "/help/here/";
    s.inputChannel = 16;
    s.outputChannel = 3;
    s.toneLength = 12;
    s.toneVelocity = 99;
    s.tonePitch = 60;
    s.suggestNames = true;
    s.fileNameFormat = 8;
    s.prefixes[4] = "ARP_";
    s.graphicEnvelope = true;
    s.modulationShow = false;
    f.open(1);

    EXPECT_EQ(f.combo("cmbRecentFiles")->currentText(), "7");
    EXPECT_EQ(f.combo("cmbUserFileNum")->currentText(), "2");
    EXPECT_EQ(f.box("txtHelpFolder")->text(), "/help/here/");
    EXPECT_EQ(f.combo("cmbInpCha")->currentText(), "16");
    EXPECT_EQ(f.combo("cmbOutCha")->currentText(), "3");
    EXPECT_EQ(f.combo("cmbToneLen")->currentText(), "1.2");
    EXPECT_EQ(f.combo("cmbToneVel")->currentText(), "99");
    EXPECT_EQ(f.combo("cmbTonePitch")->currentText(), "C4");
    EXPECT_TRUE(f.check("chkSuggestNames")->isChecked());
    EXPECT_EQ(f.combo("cmbFormat")->currentText(), "pxxoxx patch name");
    EXPECT_EQ(f.box("txtPrefix_4")->text(), "ARP_");
    EXPECT_TRUE(f.check("chkGraphEnv")->isChecked());
    EXPECT_TRUE(f.child<QRadioButton>("optModShow_1")->isChecked());
    EXPECT_FALSE(f.child<QRadioButton>("optModShow_0")->isChecked());
}

// Drives a sample of every kind of control and returns nothing: the caller
// checks where each value went.
void changeEveryKindOfControl(SettingsForm& f)
{
    f.open(kSettingsTabStartup);
    f.combo("cmbRecentFiles")->setCurrentIndex(4);
    f.type("txtHelpFolder", "/usr/share/quillon/help/");
    f.clickTab(kSettingsTabMidi);
    f.combo("cmbInpCha")->setCurrentIndex(15);
    f.combo("cmbOutCha")->setCurrentIndex(8);
    f.clickTab(kSettingsTabTestTone);
    f.combo("cmbToneLen")->setCurrentIndex(25);
    f.combo("cmbToneVel")->setCurrentIndex(101);
    f.combo("cmbTonePitch")->setCurrentIndex(64);
    f.clickTab(kSettingsTabFileNames);
    f.check("chkSuggestNames")->setChecked(!f.settings().suggestNames);
    f.combo("cmbFormat")->setCurrentIndex(9);
    f.type("txtPrefix_1", "P-");
    f.type("txtPrefix_5", "Dump ");
    f.clickTab(kSettingsTabRandom);
    f.check("chkLFO_2")->setChecked(!f.settings().random.lfo[2]);
    f.type("txtVarOSC", "37");
    f.combo("cmbModInt")->setCurrentIndex(20);
    f.clickTab(kSettingsTabSpread);
    f.check("chkCSS")->setChecked(!f.settings().spread.css);
    f.type("txtVarSONO", "64");
    f.clickTab(kSettingsTabMisc);
    f.check("chkGraphEnv")->setChecked(!f.settings().graphicEnvelope);
    (f.settings().modulationShow ? f.child<QRadioButton>("optModShow_1") : f.child<QRadioButton>("optModShow_0"))
        ->click();
}

TEST(frmSettings, EachControlStoresIntoTheSettingsAtOnce)
{
    SettingsForm f;
    const SystemSettings before = f.settings();
    changeEveryKindOfControl(f);
    const SystemSettings& s = f.settings();

    EXPECT_EQ(s.recentFilesMax, 4);
    EXPECT_EQ(s.helpFolder, "/usr/share/quillon/help/");
    EXPECT_EQ(s.inputChannel, 16);
    EXPECT_EQ(s.outputChannel, 9);
    EXPECT_EQ(s.toneLength, 25);
    EXPECT_EQ(s.toneVelocity, 101);
    EXPECT_EQ(s.tonePitch, 64);
    EXPECT_EQ(s.suggestNames, !before.suggestNames);
    EXPECT_EQ(s.fileNameFormat, 9);
    EXPECT_EQ(s.prefixes[1], "P-");
    EXPECT_EQ(s.prefixes[5], "Dump ");
    EXPECT_EQ(s.random.lfo[2], !before.random.lfo[2]);
    EXPECT_EQ(s.random.varOSC, 37);
    EXPECT_EQ(s.random.modIntChoice, 20);
    EXPECT_EQ(s.spread.css, !before.spread.css);
    EXPECT_EQ(s.spread.varSONO, 64);
    EXPECT_EQ(s.graphicEnvelope, !before.graphicEnvelope);
    EXPECT_EQ(s.modulationShow, !before.modulationShow);
    EXPECT_NE(f.observer.all & kSettingsChanged, 0u);
}

TEST(frmSettings, ChangedSettingsSurviveARestart)
{
    SettingsForm f;
    changeEveryKindOfControl(f);
    f.form.reset();
    ASSERT_TRUE(saveSystemSettings(f.t.model));

    AppModel later(f.t.host, f.t.store, f.t.folder.path());
    ASSERT_TRUE(readSystemSettings(later));
    readPersistentLists(later);
    EXPECT_EQ(later.settings.helpFolder, "/usr/share/quillon/help/");
    EXPECT_EQ(later.settings.outputChannel, 9);
    EXPECT_EQ(later.settings.tonePitch, 64);
    EXPECT_EQ(later.settings.prefixes[5], "Dump ");
    EXPECT_EQ(later.settings.random.varOSC, 37);
    EXPECT_EQ(later.settings.spread.varSONO, 64);
    EXPECT_TRUE(later.settings == f.settings());
}

TEST(frmSettings, MidiChannelsAreKeptAsOneToSixteen)
{
    SettingsForm f;
    f.open(kSettingsTabMidi);
    f.combo("cmbInpCha")->setCurrentIndex(0);
    f.combo("cmbOutCha")->setCurrentIndex(15);
    EXPECT_EQ(f.settings().inputChannel, 1);
    EXPECT_EQ(f.settings().outputChannel, 16);
}

TEST(frmSettings, RandomAndSpreadShowTheirOwnValuesInTheOneFrame)
{
    SettingsForm f;
    f.settings().random.varEG = 10;
    f.settings().random.eg = {true, false, true, false};
    f.settings().random.modIntChoice = 6;
    f.settings().spread.varEG = 20;
    f.settings().spread.eg = {false, true, false, true};
    f.settings().spread.modIntChoice = 19;
    f.open(kSettingsTabRandom);
    QWidget* randomFrame = f.shownFrame();

    EXPECT_EQ(f.box("txtVarEG")->text(), "10");
    EXPECT_TRUE(f.check("chkEG_0")->isChecked());
    EXPECT_FALSE(f.check("chkEG_1")->isChecked());
    EXPECT_EQ(f.combo("cmbModInt")->currentText(), "LFO1");

    f.clickTab(kSettingsTabSpread);
    EXPECT_EQ(f.shownFrame(), randomFrame);
    EXPECT_EQ(f.box("txtVarEG")->text(), "20");
    EXPECT_FALSE(f.check("chkEG_0")->isChecked());
    EXPECT_TRUE(f.check("chkEG_1")->isChecked());
    EXPECT_EQ(f.combo("cmbModInt")->currentText(), "After Touch");

    f.type("txtVarEG", "55");
    f.check("chkEG_0")->click();
    EXPECT_EQ(f.settings().spread.varEG, 55);
    EXPECT_TRUE(f.settings().spread.eg[0]);
    EXPECT_EQ(f.settings().random.varEG, 10);
    EXPECT_TRUE(f.settings().random.eg[0]);

    f.clickTab(kSettingsTabRandom);
    EXPECT_EQ(f.box("txtVarEG")->text(), "10");
    f.type("txtVarEG", "3");
    EXPECT_EQ(f.settings().random.varEG, 3);
    EXPECT_EQ(f.settings().spread.varEG, 55);
}

TEST(frmSettings, PercentageBoxesKeepToZeroToHundred)
{
    SettingsForm f;
    f.open(kSettingsTabRandom);
    for (const char* name : kPercentBoxes) {
        f.type(name, "150");
        EXPECT_EQ(f.box(name)->text(), "100") << name;
        f.type(name, "-5");
        EXPECT_EQ(f.box(name)->text(), "0") << name;
        f.type(name, "42");
        EXPECT_EQ(f.box(name)->text(), "42") << name;
    }
    const GenerationSettings& g = f.settings().random;
    for (int value : {g.varEG, g.varLFO, g.varOSC, g.varSONO, g.varFX, g.varFilter, g.varModInt, g.varAmpEG, g.varCSS})
        EXPECT_EQ(value, 42);

    f.type("txtVarFX", "101");
    EXPECT_EQ(f.settings().random.varFX, 100);
    f.type("txtVarFX", "-1");
    EXPECT_EQ(f.settings().random.varFX, 0);
}

TEST(frmSettings, SelectButtonsSetTheGroupsOfTheTabShown)
{
    SettingsForm f;
    f.settings().random = {};
    f.settings().spread = {};
    f.open(kSettingsTabSpread);

    f.button("cmdSelectAll")->click();
    for (const char* name : kFlagBoxes)
        EXPECT_TRUE(f.check(name)->isChecked()) << name;
    GenerationSettings all;
    selectAllGroups(all);
    EXPECT_TRUE(f.settings().spread == all);
    EXPECT_TRUE(f.settings().random == GenerationSettings{});

    f.button("cmdSelectNone")->click();
    for (const char* name : kFlagBoxes)
        EXPECT_FALSE(f.check(name)->isChecked()) << name;
    EXPECT_TRUE(f.settings().spread == GenerationSettings{});

    f.button("cmdSelectMain")->click();
    const GenerationSettings& s = f.settings().spread;
    for (bool on : s.eg) EXPECT_TRUE(on);
    for (bool on : s.lfo) EXPECT_TRUE(on);
    for (bool on : s.osc) EXPECT_TRUE(on);
    for (bool on : s.fx) EXPECT_TRUE(on);
    for (bool on : s.filter) EXPECT_TRUE(on);
    EXPECT_FALSE(s.modInt);
    EXPECT_FALSE(s.ampEG);
    EXPECT_FALSE(s.css);
    EXPECT_TRUE(f.check("chkFilt_1")->isChecked());
    EXPECT_FALSE(f.check("chkModInt")->isChecked());
    EXPECT_FALSE(f.check("chkAEG")->isChecked());
    EXPECT_FALSE(f.check("chkCSS")->isChecked());
    EXPECT_TRUE(f.settings().random == GenerationSettings{});
}

TEST(frmSettings, ResetPercentSetsEveryPercentageBoxToItsValue)
{
    SettingsForm f;
    f.settings().random = {};
    f.open(kSettingsTabRandom);
    f.type("txtResetAll", "33");
    f.button("cmdResetAll")->click();
    for (const char* name : kPercentBoxes)
        EXPECT_EQ(f.box(name)->text(), "33") << name;
    const GenerationSettings& g = f.settings().random;
    for (int value : {g.varEG, g.varLFO, g.varOSC, g.varSONO, g.varFX, g.varFilter, g.varModInt, g.varAmpEG, g.varCSS})
        EXPECT_EQ(value, 33);
    EXPECT_EQ(g.resetAll, 33);
    f.type("txtResetAll", "250");
    EXPECT_EQ(f.box("txtResetAll")->text(), "100");
}

TEST(frmSettings, TheTabLastShownIsRememberedBetweenOpenings)
{
    SettingsForm f;
    f.open(kSettingsTabTestTone);
    EXPECT_EQ(f.shownFrame()->objectName(), "fraSettings_3");
    f.clickTab(kSettingsTabSpread);
    EXPECT_EQ(frmSettings::activeTab(), kSettingsTabSpread);
    f.form.reset();

    f.open(0);
    EXPECT_EQ(f.child<QTabBar>("tabSettings")->currentIndex(), kSettingsTabSpread - 1);
    EXPECT_EQ(f.shownFrame()->objectName(), "fraSettings_5");
    f.clickTab(kSettingsTabMisc);
    f.form.reset();

    f.open(0);
    EXPECT_EQ(f.shownFrame()->objectName(), "fraSettings_7");
    f.form.reset();
    f.open(kSettingsTabMidi);
    EXPECT_EQ(f.shownFrame()->objectName(), "fraSettings_2");
    EXPECT_EQ(frmSettings::activeTab(), kSettingsTabMidi);
}

TEST(frmSettings, ChoosingAUserFileReadsItIntoTheUserBuffer)
{
    SettingsForm f;
    ParamValues marked = paramTables().patchDefaults;
    marked[40] = 77;
    marked[1343] = -12;
    std::vector<std::string> lines;
    for (std::size_t p = 1; p < marked.size(); ++p)
        lines.push_back(std::to_string(marked[p]));
    ASSERT_TRUE(writeLinesAtomically(f.t.folder / "Quillonusr4.dat", lines));
    f.open(kSettingsTabStartup);

    f.combo("cmbUserFileNum")->setCurrentIndex(4);
    EXPECT_EQ(f.settings().userFileNumber, 4);
    EXPECT_EQ(f.t.model.buffers.of(kPatch).user, marked);

    // A file not yet made is made from the factory file.
    f.combo("cmbUserFileNum")->setCurrentIndex(5);
    EXPECT_EQ(f.settings().userFileNumber, 5);
    EXPECT_TRUE(std::filesystem::exists(f.t.folder / "Quillonusr5.dat"));
    EXPECT_NE(f.t.model.buffers.of(kPatch).user, marked);
}

TEST(frmSettings, ShowRecentFilesCutsTheMenuAtOnce)
{
    SettingsForm f;
    for (int i = 1; i <= 6; ++i)
        f.t.model.recentFiles[static_cast<std::size_t>(i)] = "/music/file" + std::to_string(i) + ".syx";
    f.settings().recentFilesMax = 10;
    f.settings().recentFilesShown = 6;
    f.open(kSettingsTabStartup);

    f.combo("cmbRecentFiles")->setCurrentIndex(2);
    EXPECT_EQ(f.settings().recentFilesMax, 2);
    EXPECT_EQ(f.settings().recentFilesShown, 2);
    EXPECT_NE(f.observer.all & kRecentFilesChanged, 0u);
}

TEST(frmSettings, DoneClosesTheDialogOpenedFromTheMenu)
{
    TestModel t;
    bool seen = false;
    whenNextModalOpens([&seen](QWidget* modal) {
        seen = modal->objectName() == "frmSettings" &&
               modal->findChild<QTabBar*>("tabSettings")->currentIndex() == kSettingsTabFileNames - 1;
        QTest::mouseClick(modal->findChild<QPushButton*>("cmdDone"), Qt::LeftButton);
    });
    showSettingsDialog(t.model, kSettingsTabFileNames, nullptr);
    EXPECT_TRUE(seen);
}

}  // namespace
}  // namespace quillon

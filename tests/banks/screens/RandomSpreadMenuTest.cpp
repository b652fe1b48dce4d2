#include "banks/screens/RandomSpreadMenu.h"

#include "banks/BankFixtures.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmMain.h"
#include "support/DialogAnswers.h"
#include "support/TestModel.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

#include <cstdio>

namespace quillon {
namespace {

// The main window after start-up, with the default patch in the editor and
// bank A loaded.
struct GenerationWindow {
    QtHost host;
    MemorySettingsStore store;
    TempFolder folder;
    AppModel model{host, store, folder.path()};
    frmMain window{model, host};

    GenerationWindow()
    {
        EXPECT_TRUE(doFormLoadMain(model));
        loadNumberedBank(model, kPatchBankA);
        model.changed(kBanksChanged | kLabelsChanged);
        window.show();
    }

    QLabel* label(int i) { return window.findChild<QLabel*>(QString("lblBkPatch_%1").arg(i)); }
};

GenerationSettings eg1At(int percent)
{
    GenerationSettings s;
    s.eg[0] = true;
    s.varEG = percent;
    return s;
}

TEST(RandomSpreadMenu, WithEveryFlagOffTheItemOpensTheRefusalBox)
{
    GenerationWindow w;
    w.model.settings.random = GenerationSettings{};
    QAction* item = w.window.action("mnuRandomBank");
    ASSERT_TRUE(item->isEnabled());
    QString text;
    QString title;
    answerNextMessageBox("OK", &text, &title);
    item->trigger();
    EXPECT_EQ(title, "New Bank - 128 Random Patches");
    EXPECT_EQ(text, "Please check settings. Quillon thinks all random patches will be the same");
    EXPECT_FALSE(w.model.flags.loaded[kPatchBankB]);
}

TEST(RandomSpreadMenu, TheDialogStartsOnBAndBankBShowsTheTaggedNames)
{
    GenerationWindow w;
    w.model.settings.random = eg1At(30);
    QString caption;
    QString frame;
    bool startedOnB = false;
    QString noteOnB;
    QString noteOnA;
    whenNextModalOpens([&](QWidget* dialog) {
        caption = dialog->windowTitle();
        frame = dialog->findChild<QGroupBox*>("fraOptAB")->title();
        startedOnB = dialog->findChild<QRadioButton*>("Option2")->isChecked();
        auto* note = dialog->findChild<QLabel*>("lblCurrent");
        noteOnB = note->text();
        QTest::mouseClick(dialog->findChild<QRadioButton*>("Option1"), Qt::LeftButton);
        noteOnA = note->text();
        QTest::mouseClick(dialog->findChild<QRadioButton*>("Option2"), Qt::LeftButton);
        QTest::mouseClick(dialog->findChild<QPushButton*>("OKButton"), Qt::LeftButton);
    });
    w.window.action("mnuRandomBank")->trigger();
    EXPECT_EQ(caption, "New Bank - 128 Random Patches");
    EXPECT_EQ(frame, "Select Bank");
    EXPECT_TRUE(startedOnB);
    EXPECT_EQ(noteOnB, "");
    EXPECT_EQ(noteOnA, "Overwrite loaded bank?");
    ASSERT_TRUE(w.model.flags.loaded[kPatchBankB]);
    EXPECT_EQ(w.model.bankTarget, kPatchBankB);
    for (int p = 0; p < kPatchesPerBank; ++p) {
        char expected[20];
        std::snprintf(expected, sizeof expected, "Init Patch  R%03d", p);
        EXPECT_EQ(w.label(p)->text().toStdString(), expected) << "label " << p;
    }
}

TEST(RandomSpreadMenu, SpreadOverwritesTheLoadedBankAChosenOnTheDialog)
{
    GenerationWindow w;
    w.model.settings.spread = eg1At(50);
    QString caption;
    whenNextModalOpens([&](QWidget* dialog) {
        caption = dialog->windowTitle();
        QTest::mouseClick(dialog->findChild<QRadioButton*>("Option1"), Qt::LeftButton);
        QTest::mouseClick(dialog->findChild<QPushButton*>("OKButton"), Qt::LeftButton);
    });
    w.window.action("mnuSpreadBank")->trigger();
    EXPECT_EQ(caption, "New Bank - 128 Patch Spread");
    EXPECT_TRUE(w.model.flags.changed[kPatchBankA]);
    EXPECT_EQ(w.label(0)->text().toStdString(), "Init Patch  S000");
    EXPECT_EQ(w.label(127)->text().toStdString(), "Init Patch  S127");
}

TEST(RandomSpreadMenu, AnOverflowIsReportedAndTheBankStaysAsItWas)
{
    GenerationWindow w;
    w.model.settings.spread = eg1At(166);  // 198 * 166 does not fit 16 bits
    QString text;
    QString title;
    whenNextModalOpens([&](QWidget* dialog) {
        answerNextMessageBox("OK", &text, &title);
        QTest::mouseClick(dialog->findChild<QRadioButton*>("Option1"), Qt::LeftButton);
        QTest::mouseClick(dialog->findChild<QPushButton*>("OKButton"), Qt::LeftButton);
    });
    w.window.action("mnuSpreadBank")->trigger();
    EXPECT_EQ(title, "Quillon Error");
    EXPECT_TRUE(text.contains("[Overflow]")) << text.toStdString();
    EXPECT_EQ(bankNames(w.model, kPatchBankA)[0], "P000");
    EXPECT_FALSE(w.model.flags.changed[kPatchBankA]);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace quillon

#include "shell/screens/Dialog.h"

#include "shell/screens/HelpWindow.h"
#include "support/DialogAnswers.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace quillon {
namespace {

// Names the places of every bank after their number, and says which banks
// are loaded.
DialogSource sourceAt(int selectedPlace, std::set<int> loadedBanks = {})
{
    DialogSource source;
    source.nameAt = [](int place) { return "Name " + std::to_string(place); };
    source.bankLoaded = [loadedBanks](int kind) { return loadedBanks.count(kind) > 0; };
    source.selectedPlace = selectedPlace;
    source.newName = "New Sound";
    return source;
}

struct OpenDialog {
    Dialog form;
    OpenDialog(int mode, DialogSource source) : form(std::move(source))
    {
        form.doSetup(mode);
        form.show();
    }
    template <typename T> T* find(const char* name) { return form.findChild<T*>(name); }
    QString current() { return find<QLabel>("lblCurrent")->text(); }
    void click(const char* name) { QTest::mouseClick(find<QAbstractButton>(name), Qt::LeftButton); }
    void type(const QString& number)
    {
        auto* txtNum = find<QLineEdit>("txtNum");
        txtNum->selectAll();
        QTest::keyClicks(txtNum, number);
    }
    void spin(const char* arrow) { QTest::mouseClick(find<QToolButton>(arrow), Qt::LeftButton); }
};

TEST(Dialog, EachModeHasItsCaption)
{
    const char* captions[] = {"Put Patch in Bank", "New Bank - 128 Random Patches", "New Bank - 128 Patch Spread",
                              "Put Multiset in Multi Bank", "Put Pattern in Arpeggiator Bank"};
    for (int mode = 1; mode <= 5; ++mode) {
        OpenDialog d(mode, sourceAt(0));
        EXPECT_EQ(d.form.windowTitle(), captions[mode - 1]) << "mode " << mode;
    }
}

TEST(Dialog, HelpButtonOpensTheTopicOfTheMode)
{
    const int contexts[] = {140, 145, 150, 245, 260};
    for (int mode = 1; mode <= 5; ++mode) {
        OpenDialog d(mode, sourceAt(0));
        d.click("cmdHelp");
        EXPECT_EQ(HelpWindow::instance()->context(), contexts[mode - 1]) << "mode " << mode;
        EXPECT_TRUE(HelpWindow::instance()->isVisible());
    }
    HelpWindow::instance()->close();
}

TEST(Dialog, ModesOutsideOneToFiveDoNothing)
{
    for (int mode : {0, 6, -1}) {
        Dialog form(sourceAt(0));
        form.doSetup(mode);
        EXPECT_EQ(form.mode(), 0);
        EXPECT_TRUE(form.windowTitle().isEmpty());
        EXPECT_EQ(form.value(), -1);
    }
    EXPECT_EQ(runDialog(7, sourceAt(0), nullptr), -1);
}

TEST(Dialog, PatchPlaceStartsFromTheSelectedPlace)
{
    OpenDialog d(1, sourceAt(130));
    EXPECT_TRUE(d.find<QRadioButton>("Option2")->isChecked());
    EXPECT_EQ(d.find<QLineEdit>("txtNum")->text(), "2");
    EXPECT_EQ(d.form.value(), 130);
    EXPECT_EQ(d.current(), "Name 130");
    EXPECT_EQ(d.find<QLabel>("lblReplacement")->text(), "New Sound");
    EXPECT_EQ(d.find<QLabel>("lblOld")->text(), "Replace old");
    EXPECT_EQ(d.find<QLabel>("lblWith")->text(), "with new");
    EXPECT_EQ(d.find<QRadioButton>("Option1")->text(), "Bank A");
    EXPECT_EQ(d.find<QRadioButton>("Option2")->text(), "Bank B");
    EXPECT_FALSE(d.find<QComboBox>("cmbTextChoice")->isVisible());
}

TEST(Dialog, PatchResultAndNameFollowEveryChangeOfBankAndNumber)
{
    OpenDialog d(1, sourceAt(130));
    d.click("Option1");
    EXPECT_EQ(d.form.value(), 2);
    EXPECT_EQ(d.current(), "Name 2");
    d.type("45");
    EXPECT_EQ(d.form.value(), 45);
    EXPECT_EQ(d.current(), "Name 45");
    d.spin("cmdUp");
    EXPECT_EQ(d.find<QLineEdit>("txtNum")->text(), "46");
    EXPECT_EQ(d.current(), "Name 46");
    d.click("Option2");
    EXPECT_EQ(d.form.value(), 46 + 128);
    EXPECT_EQ(d.current(), "Name 174");
    EXPECT_EQ(d.form.bankKind(), 3);
}

TEST(Dialog, PatchNumberIsKeptWithinNoughtTo127)
{
    OpenDialog d(1, sourceAt(127));
    d.type("200");
    EXPECT_EQ(d.find<QLineEdit>("txtNum")->text(), "127");
    EXPECT_EQ(d.form.value(), 127);
    d.spin("cmdUp");
    EXPECT_EQ(d.find<QLineEdit>("txtNum")->text(), "127");
    d.type("0");
    d.spin("cmdDown");
    EXPECT_EQ(d.find<QLineEdit>("txtNum")->text(), "0");
    EXPECT_EQ(d.form.value(), 0);
}

TEST(Dialog, MultisetPlaceAddsSixteenForMultiBankB)
{
    OpenDialog d(4, sourceAt(3));
    EXPECT_TRUE(d.find<QRadioButton>("Option1")->isChecked());
    EXPECT_EQ(d.find<QRadioButton>("Option1")->text(), "Multi Bank A");
    EXPECT_EQ(d.form.value(), 3);
    EXPECT_EQ(d.form.bankKind(), 6);
    d.click("Option2");
    EXPECT_EQ(d.form.value(), 19);
    EXPECT_EQ(d.form.bankKind(), 7);
    EXPECT_EQ(d.current(), "Name 19");
    d.type("99");
    EXPECT_EQ(d.find<QLineEdit>("txtNum")->text(), "15");
    EXPECT_EQ(d.form.value(), 31);
    EXPECT_EQ(d.current(), "Name 31");
}

TEST(Dialog, PatternListNamesTheFifteenUserSlots)
{
    OpenDialog d(5, sourceAt(12));
    auto* list = d.find<QComboBox>("cmbTextChoice");
    ASSERT_EQ(list->count(), 15);
    EXPECT_EQ(list->itemText(0), "U1-1 Name 5");
    EXPECT_EQ(list->itemText(4), "U1-5 Name 9");
    EXPECT_EQ(list->itemText(5), "U2-1 Name 10");
    EXPECT_EQ(list->itemText(14), "U3-5 Name 19");
    EXPECT_EQ(list->currentIndex(), 7);
    EXPECT_FALSE(d.find<QGroupBox>("fraOptAB")->isVisible());
    EXPECT_FALSE(d.find<QGroupBox>("fraOptNum")->isVisible());
    EXPECT_EQ(d.form.value(), 12);
    list->setCurrentIndex(0);
    EXPECT_EQ(d.form.value(), 5);
    EXPECT_EQ(d.current(), "Name 5");
    list->setCurrentIndex(14);
    EXPECT_EQ(d.form.value(), 19);
    EXPECT_EQ(d.current(), "Name 19");
}

TEST(Dialog, GeneratedBankStartsOnBWhenAIsLoadedAndWarnsOfALoadedBank)
{
    OpenDialog d(2, sourceAt(0, {2}));
    EXPECT_EQ(d.find<QGroupBox>("fraOptAB")->title(), "Select Bank");
    EXPECT_FALSE(d.find<QGroupBox>("fraOptNum")->isVisible());
    EXPECT_TRUE(d.find<QRadioButton>("Option2")->isChecked());
    EXPECT_EQ(d.form.value(), 3);
    EXPECT_EQ(d.current(), "");
    d.click("Option1");
    EXPECT_EQ(d.form.value(), 2);
    EXPECT_EQ(d.current(), "Overwrite loaded bank?");
}

TEST(Dialog, SpreadBankStartsOnAWhenAIsNotLoaded)
{
    OpenDialog d(3, sourceAt(0, {3}));
    EXPECT_TRUE(d.find<QRadioButton>("Option1")->isChecked());
    EXPECT_EQ(d.form.value(), 2);
    EXPECT_EQ(d.current(), "");
    d.click("Option2");
    EXPECT_EQ(d.form.value(), 3);
    EXPECT_EQ(d.current(), "Overwrite loaded bank?");
}

TEST(Dialog, CancelGivesMinusOneAndOkTheChoice)
{
    {
        OpenDialog d(1, sourceAt(5));
        d.click("CancelButton");
        EXPECT_FALSE(d.form.isVisible());
        EXPECT_EQ(d.form.value(), -1);
    }
    OpenDialog d(1, sourceAt(5));
    d.click("Option2");
    d.click("OKButton");
    EXPECT_FALSE(d.form.isVisible());
    EXPECT_EQ(d.form.value(), 133);
}

TEST(Dialog, RunDialogGivesTheAnswerOfTheModalForm)
{
    whenNextModalOpens([](QWidget* modal) {
        QTest::mouseClick(modal->findChild<QRadioButton*>("Option2"), Qt::LeftButton);
        QTest::mouseClick(modal->findChild<QPushButton*>("OKButton"), Qt::LeftButton);
    });
    EXPECT_EQ(runDialog(4, sourceAt(0), nullptr), 16);
    whenNextModalOpens([](QWidget* modal) {
        QTest::mouseClick(modal->findChild<QPushButton*>("CancelButton"), Qt::LeftButton);
    });
    EXPECT_EQ(runDialog(4, sourceAt(0), nullptr), -1);
}

TEST(Dialog, ResultArithmeticOfEachMode)
{
    EXPECT_EQ(dialogResult(1, {false, 127, 0}), 127);
    EXPECT_EQ(dialogResult(1, {true, 0, 0}), 128);
    EXPECT_EQ(dialogResult(1, {true, 127, 0}), 255);
    EXPECT_EQ(dialogResult(2, {false, 50, 3}), 2);
    EXPECT_EQ(dialogResult(3, {true, 50, 3}), 3);
    EXPECT_EQ(dialogResult(4, {false, 15, 0}), 15);
    EXPECT_EQ(dialogResult(4, {true, 15, 0}), 31);
    EXPECT_EQ(dialogResult(5, {true, 9, 0}), 5);
    EXPECT_EQ(dialogResult(5, {false, 0, 14}), 19);
    EXPECT_EQ(dialogResult(5, {false, 0, -1}), 5);
    EXPECT_EQ(dialogResult(6, {true, 1, 1}), -1);
    EXPECT_EQ(dialogBankKind(4, true), 7);
    EXPECT_EQ(dialogBankKind(5, true), 8);
}

TEST(Dialog, RangesAndHelpContextsOfTheModes)
{
    EXPECT_EQ(dialogPlaceMax(1), 127);
    EXPECT_EQ(dialogPlaceMax(4), 15);
    EXPECT_EQ(dialogPlaceMax(2), -1);
    EXPECT_EQ(dialogPlaceMax(5), -1);
    EXPECT_EQ(dialogHelpContext(1), 140);
    EXPECT_EQ(dialogHelpContext(2), 145);
    EXPECT_EQ(dialogHelpContext(3), 150);
    EXPECT_EQ(dialogHelpContext(4), 245);
    EXPECT_EQ(dialogHelpContext(5), 260);
    EXPECT_EQ(dialogHelpContext(6), 0);
}

}  // namespace
}  // namespace quillon

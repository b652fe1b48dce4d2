#include "shell/screens/frmName.h"

#include "model/Kind.h"
#include "shell/screens/FormLaunchers.h"
#include "support/DialogAnswers.h"
#include "support/TestModel.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <string>

namespace quillon {
namespace {

void setName(AppModel& model, int kind, const std::string& name)
{
    const std::string padded = (name + std::string(16, ' ')).substr(0, 16);
    for (int p = 1; p <= 16; ++p)
        model.buffers.of(kind).current[p] = static_cast<unsigned char>(padded[p - 1]);
}

std::string storedName(const AppModel& model, int kind)
{
    std::string name;
    for (int p = 1; p <= 16; ++p)
        name += static_cast<char>(model.buffers.of(kind).current[p]);
    return name;
}

// The form of a Mode with a name typed over the old one and OK pressed.
void typeAndAccept(AppModel& model, int mode, const QString& typed)
{
    model.mode = mode;
    frmName form(model);
    form.show();
    auto* box = form.findChild<QLineEdit*>("txtPatchName");
    box->clear();
    QTest::keyClicks(box, typed);
    QTest::mouseClick(form.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
}

TEST(frmName, CaptionFollowsTheMode)
{
    TestModel t;
    const std::pair<int, const char*> captions[] = {
        {kPatch, "Edit Patch Name"},
        {kMultiset, "Edit (Single) Multiset Name"},
        {kPattern, "Edit (Single) Arpeggio Pattern Name"},
    };
    for (const auto& [mode, caption] : captions) {
        t.model.mode = mode;
        frmName form(t.model);
        EXPECT_EQ(form.windowTitle(), caption);
    }
}

TEST(frmName, StartsWithTheNameOfTheItem)
{
    TestModel t;
    setName(t.model, kMultiset, "Strings Layer");
    t.model.mode = kMultiset;
    frmName form(t.model);
    EXPECT_EQ(form.findChild<QLineEdit*>("txtPatchName")->text(), "Strings Layer");
}

TEST(frmName, GainingTheFocusSelectsTheWholeName)
{
    TestModel t;
    setName(t.model, kPatch, "Brass Pad");
    t.model.mode = kPatch;
    frmName form(t.model);
    form.show();
    QApplication::setActiveWindow(&form);
    auto* box = form.findChild<QLineEdit*>("txtPatchName");
    box->deselect();
    box->setFocus(Qt::MouseFocusReason);
    QCoreApplication::processEvents();
    EXPECT_EQ(box->selectedText(), "Brass Pad");
}

TEST(frmName, TrimsAndPadsTheNameToSixteenInCurrent)
{
    TestModel t;
    typeAndAccept(t.model, kPatch, "  Lead  ");
    EXPECT_EQ(storedName(t.model, kPatch), "Lead            ");
    EXPECT_EQ(t.model.itemName[kPatch], "Lead");
    EXPECT_EQ(t.model.labels.label(kPatch).text, "Lead            ");
    EXPECT_TRUE(t.host.messages.empty());
}

TEST(frmName, AnEmptyNameBecomesUnnamed)
{
    TestModel t;
    typeAndAccept(t.model, kPattern, "   ");
    EXPECT_EQ(storedName(t.model, kPattern), "Unnamed         ");
    EXPECT_EQ(t.model.itemName[kPattern], "Unnamed");
}

TEST(frmName, ALongerNameIsReportedAndCutToSixteen)
{
    const std::pair<int, const char*> titles[] = {
        {kPatch, "Edit Patch Name"},
        {kMultiset, "Edit Multiset Name"},
        {kPattern, "Edit Arpeggiator Pattern Name"},
    };
    for (const auto& [mode, title] : titles) {
        TestModel t;
        t.host.expectMessage(title, Answer::Ok, "Name can be up to 16 characters");
        typeAndAccept(t.model, mode, "Seventeen letters");
        EXPECT_TRUE(t.host.allShown()) << title;
        EXPECT_EQ(storedName(t.model, mode), "Seventeen letter") << title;
    }
}

TEST(frmName, ExactlySixteenCharactersNeedNoMessage)
{
    TestModel t;
    typeAndAccept(t.model, kMultiset, "Sixteen letters!");
    EXPECT_TRUE(t.host.messages.empty());
    EXPECT_EQ(storedName(t.model, kMultiset), "Sixteen letters!");
}

TEST(frmName, APatternNameRepaintsItsLabelAsPresent)
{
    TestModel t;
    ASSERT_EQ(t.model.labels.label(kPattern).scheme, 0);
    typeAndAccept(t.model, kPattern, "Groove");
    EXPECT_EQ(t.model.labels.label(kPattern).scheme, 9);
    TestModel u;
    typeAndAccept(u.model, kPatch, "Groove");
    EXPECT_EQ(u.model.labels.label(kPatch).scheme, 0);
}

TEST(frmName, OkTellsTheScreensOnceOfTheNewValuesAndLabel)
{
    TestModel t;
    RecordingObserver observer;
    t.model.addObserver(&observer);
    typeAndAccept(t.model, kPatch, "Bells");
    t.model.removeObserver(&observer);
    EXPECT_EQ(observer.calls, 1);
    EXPECT_NE(observer.all & kBuffersChanged, 0u);
    EXPECT_NE(observer.all & kLabelsChanged, 0u);
}

TEST(frmName, TheNameGivesTheSuggestedFileName)
{
    TestModel t;
    typeAndAccept(t.model, kMultiset, "Night Pad");
    EXPECT_NE(t.model.suggestedPath[kMultiset].find("Night Pad"), std::string::npos)
        << t.model.suggestedPath[kMultiset];
}

TEST(frmName, CancelChangesNothing)
{
    TestModel t;
    setName(t.model, kPatch, "Old Name");
    t.model.mode = kPatch;
    frmName form(t.model);
    form.show();
    auto* box = form.findChild<QLineEdit*>("txtPatchName");
    box->clear();
    QTest::keyClicks(box, "New Name");
    QTest::mouseClick(form.findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(storedName(t.model, kPatch), "Old Name        ");
}

TEST(frmName, CharactersTheInstrumentCannotShowBecomeQuestionMarks)
{
    const PreparedName prepared = prepareItemName(QString::fromUtf8("Caf\u00e9\tBar"));
    EXPECT_EQ(prepared.name, "Caf??Bar        ");
    EXPECT_FALSE(prepared.tooLong);
}

TEST(frmName, BanksHaveNoNameToEdit)
{
    TestModel t;
    setName(t.model, kPatch, "Kept");
    storeTypedName(t.model, kPatchBankA, "Other");
    EXPECT_EQ(storedName(t.model, kPatch), "Kept            ");
    EXPECT_TRUE(nameDialogCaption(kPatchBankB).isEmpty());
}

TEST(frmName, TheLauncherOpensTheFormOfTheCurrentMode)
{
    TestModel t;
    t.model.mode = kMultiset;
    QString caption;
    whenNextModalOpens([&caption](QWidget* modal) {
        caption = modal->windowTitle();
        auto* box = modal->findChild<QLineEdit*>("txtPatchName");
        box->setText("From Launcher");
        QTest::mouseClick(modal->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    showNameDialog(t.model, nullptr);
    EXPECT_EQ(caption, "Edit (Single) Multiset Name");
    EXPECT_EQ(storedName(t.model, kMultiset), "From Launcher   ");
}

}  // namespace
}  // namespace quillon

#include "model/screens/frmParam.h"

#include "model/ParamTables.h"
#include "shell/screens/FormLaunchers.h"

#include <QAction>
#include <QApplication>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon {
namespace {

template <typename T>
T* child(QWidget& form, const QString& name)
{
    T* found = form.findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name.toStdString();
    return found;
}

QString cell(QWidget& form, const char* stem, int line)
{
    return child<QLabel>(form, QString("lbl%1_%2").arg(stem).arg(line))->text();
}

void selectMode(frmParam& form, const char* menuName)
{
    QAction* action = form.findChild<QAction*>(menuName);
    ASSERT_NE(action, nullptr) << menuName;
    action->trigger();
}

void typeInto(QWidget& form, const char* box, const QString& text)
{
    QTest::keyClicks(child<QLineEdit>(form, box), text);
}

void click(QWidget& form, const char* button)
{
    QTest::mouseClick(child<QPushButton>(form, button), Qt::LeftButton);
}

TEST(frmParam, OpensOnTheWholePatchTable)
{
    frmParam form;
    EXPECT_EQ(form.windowTitle(), "Patch-OSC-FX parameters");
    QScrollBar* bar = child<QScrollBar>(form, "vsbParamNo");
    EXPECT_EQ(bar->minimum(), 1);
    EXPECT_EQ(bar->maximum(), 1334);
    EXPECT_EQ(bar->singleStep(), 1);
    EXPECT_EQ(bar->pageStep(), 10);
    EXPECT_EQ(cell(form, "ID", 0), "1");
    EXPECT_EQ(cell(form, "ID", 9), "10");
    EXPECT_EQ(cell(form, "Name", 0).toStdString(), paramTables().patch[1].name);
}

TEST(frmParam, EveryColumnHasTenLabelsAHeadAndASearchBox)
{
    frmParam form;
    const char* labels[] = {"ID", "Name", "Sect", "Subsect", "Table", "Min", "Max", "StartB", "EndB", "Firm", "Hard"};
    const char* boxes[] = {"txtID", "txtName", "txtSect", "txtSubSect", "txtTable", "txtMin",
                           "txtMax", "txtStartB", "txtEndB", "txtFirm", "txtHard"};
    for (const char* stem : labels) {
        for (int line = 0; line < 10; ++line)
            EXPECT_NE(form.findChild<QLabel*>(QString("lbl%1_%2").arg(stem).arg(line)), nullptr) << stem << line;
        EXPECT_NE(form.findChild<QLabel*>(QString("lblHead%1").arg(stem)), nullptr) << stem;
    }
    for (const char* box : boxes)
        EXPECT_NE(form.findChild<QLineEdit*>(box), nullptr) << box;
    EXPECT_EQ(child<QPushButton>(form, "cmdAll")->text(), "Display all");
    EXPECT_EQ(child<QPushButton>(form, "cmdDone")->text(), "Done");
    EXPECT_EQ(child<QPushButton>(form, "cmdHelp")->text(), "Help");
    EXPECT_NE(form.findChild<QPushButton*>("cmdSearch"), nullptr);
}

TEST(frmParam, HeadsOfFirmAndHardExplainTheFlags)
{
    frmParam form;
    EXPECT_EQ(child<QLabel>(form, "lblHeadHard")->toolTip(), "Hard status - cannot be changed by editor");
    EXPECT_EQ(child<QLabel>(form, "lblHeadFirm")->toolTip(), "Firm status - not changed by random feature");
}

TEST(frmParam, SelectModeMenuSetsTitleAndBarOfEachMode)
{
    frmParam form;
    EXPECT_EQ(form.selectMenu()->title(), "Select mode");
    EXPECT_EQ(form.selectMenu()->objectName(), "mnuSelect");
    struct Expected {
        const char* menuName;
        const char* title;
        int min;
        int max;
    };
    const Expected expected[] = {
        {"mnuPatchParam", "Patch parameters", 1, 454},
        {"mnuOSC1Param", "OSC1 parameters", 464, 745},
        {"mnuOSC2Param", "OSC2 parameters", 1040, 1182},
        {"mnuFX1Param", "FX1 parameters", 800, 994},
        {"mnuFX2Param", "FX2 parameters", 1192, 1334},
        {"mnuMFXParam", "Master FX parameters", 1004, 1030},
        {"mnuMultiParam", "Multi parameters", 1, 606},
        {"mnuPatchOSCFXParameters", "Patch-OSC-FX parameters", 1, 1334},
    };
    QScrollBar* bar = child<QScrollBar>(form, "vsbParamNo");
    for (const Expected& e : expected) {
        selectMode(form, e.menuName);
        EXPECT_EQ(form.windowTitle(), e.title);
        EXPECT_EQ(bar->minimum(), e.min) << e.menuName;
        EXPECT_EQ(bar->maximum(), e.max) << e.menuName;
        EXPECT_EQ(bar->value(), e.min) << e.menuName;
        EXPECT_EQ(bar->pageStep(), 10);
        EXPECT_EQ(cell(form, "ID", 0), QString::number(e.min)) << e.menuName;
    }
}

TEST(frmParam, BarPositionIsTheFirstRowShown)
{
    frmParam form;
    child<QScrollBar>(form, "vsbParamNo")->setValue(500);
    EXPECT_EQ(cell(form, "ID", 0), "500");
    EXPECT_EQ(cell(form, "ID", 9), "509");
    const ParamDef& def = paramTables().patch[500];
    EXPECT_EQ(cell(form, "Name", 0).toStdString(), def.name);
    EXPECT_EQ(cell(form, "StartB", 0), QString::number(def.startB));
    EXPECT_EQ(cell(form, "EndB", 0), QString::number(def.endB));
}

TEST(frmParam, MultiModeShowsNoFirmAndThePatchHardFlagOfTheRowNumber)
{
    frmParam form;
    selectMode(form, "mnuMultiParam");
    const ParamTables& tables = paramTables();
    int row = 1;
    while (row <= 606 && tables.patchHard[row] == 0)
        ++row;
    ASSERT_LE(row, 606);
    child<QScrollBar>(form, "vsbParamNo")->setValue(row);
    EXPECT_EQ(cell(form, "Name", 0).toStdString(), tables.multi[row].name);
    EXPECT_EQ(cell(form, "Hard", 0), "Y");
    for (int line = 0; line < 10; ++line)
        EXPECT_EQ(cell(form, "Firm", line), "");
}

TEST(frmParam, FreqInMode4ListsHitsFromSeveralEffectTypes)
{
    frmParam form;
    selectMode(form, "mnuFX1Param");
    typeInto(form, "txtName", "freq");
    click(form, "cmdSearch");
    QScrollBar* bar = child<QScrollBar>(form, "vsbParamNo");
    ASSERT_EQ(form.hits().size(), 22u);
    EXPECT_EQ(bar->minimum(), 1);
    EXPECT_EQ(bar->maximum(), 13);
    EXPECT_EQ(bar->pageStep(), 10);
    EXPECT_EQ(cell(form, "ID", 0), "804");
    EXPECT_EQ(cell(form, "Name", 0), "Low EQ Freq");
    bar->setValue(13);
    EXPECT_EQ(cell(form, "ID", 9), "920");
    EXPECT_EQ(cell(form, "Sect", 9), "540");
    EXPECT_EQ(form.windowTitle(), "FX1 parameters");
}

TEST(frmParam, HardYInMode2ListsTheReservedRowsOfBrassAndReedModel)
{
    frmParam form;
    selectMode(form, "mnuOSC1Param");
    typeInto(form, "txtHard", "y");
    click(form, "cmdSearch");
    ASSERT_FALSE(form.hits().empty());
    for (int row : form.hits()) {
        const int sect = paramTables().patch[row].sect;
        EXPECT_TRUE(sect == 420 || sect == 430) << row;
    }
    EXPECT_EQ(cell(form, "ID", 0), "625");
    EXPECT_EQ(cell(form, "Name", 0), "reserved");
    EXPECT_EQ(cell(form, "Hard", 0), "Y");
    child<QScrollBar>(form, "vsbParamNo")->setValue(child<QScrollBar>(form, "vsbParamNo")->maximum());
    EXPECT_EQ(cell(form, "ID", 9), "688");
}

TEST(frmParam, Id800InMode0ListsEveryRowFrom800Up)
{
    frmParam form;
    typeInto(form, "txtID", "800");
    click(form, "cmdSearch");
    QScrollBar* bar = child<QScrollBar>(form, "vsbParamNo");
    EXPECT_EQ(static_cast<int>(form.hits().size()), 1343 - 800 + 1);
    EXPECT_EQ(bar->maximum(), 1343 - 800 + 1 - 9);
    EXPECT_EQ(cell(form, "ID", 0), "800");
    bar->setValue(bar->maximum());
    EXPECT_EQ(cell(form, "ID", 9), "1343");
}

TEST(frmParam, LinesPastAShortHitListAreBlank)
{
    frmParam form;
    typeInto(form, "txtID", "1340");
    click(form, "cmdSearch");
    QScrollBar* bar = child<QScrollBar>(form, "vsbParamNo");
    EXPECT_EQ(bar->minimum(), 1);
    EXPECT_EQ(bar->maximum(), 1);
    EXPECT_EQ(bar->pageStep(), 1);
    EXPECT_EQ(cell(form, "ID", 3), "1343");
    for (int line = 4; line < 10; ++line) {
        for (const char* stem : {"ID", "Name", "Sect", "Min", "Max", "Hard"})
            EXPECT_EQ(cell(form, stem, line), "") << stem << line;
    }
}

TEST(frmParam, SearchWithNoBoxFilledListsTheWholeModeAgain)
{
    frmParam form;
    selectMode(form, "mnuOSC2Param");
    QScrollBar* bar = child<QScrollBar>(form, "vsbParamNo");
    bar->setValue(1100);
    click(form, "cmdSearch");
    EXPECT_FALSE(form.searched());
    EXPECT_EQ(bar->value(), 1040);
    EXPECT_EQ(bar->maximum(), 1182);
    EXPECT_EQ(cell(form, "ID", 0), "1040");
}

TEST(frmParam, DisplayAllClearsTheSearchAndTheBoxes)
{
    frmParam form;
    selectMode(form, "mnuPatchParam");
    typeInto(form, "txtName", "patch name");
    click(form, "cmdSearch");
    ASSERT_TRUE(form.searched());
    ASSERT_EQ(child<QScrollBar>(form, "vsbParamNo")->maximum(), 7);
    click(form, "cmdAll");
    EXPECT_FALSE(form.searched());
    EXPECT_TRUE(child<QLineEdit>(form, "txtName")->text().isEmpty());
    EXPECT_EQ(child<QScrollBar>(form, "vsbParamNo")->maximum(), 454);
    EXPECT_EQ(form.windowTitle(), "Patch parameters");
    EXPECT_EQ(cell(form, "ID", 0), "1");
}

TEST(frmParam, ChangingModeClearsTheSearchBoxes)
{
    frmParam form;
    typeInto(form, "txtMin", "0");
    click(form, "cmdSearch");
    selectMode(form, "mnuMFXParam");
    EXPECT_TRUE(child<QLineEdit>(form, "txtMin")->text().isEmpty());
    EXPECT_FALSE(form.searched());
    EXPECT_EQ(cell(form, "ID", 0), "1004");
}

TEST(frmParam, EnterInASearchBoxSearches)
{
    frmParam form;
    form.show();
    typeInto(form, "txtEndB", "15");
    QTest::keyClick(child<QLineEdit>(form, "txtEndB"), Qt::Key_Return);
    ASSERT_TRUE(form.searched());
    EXPECT_EQ(cell(form, "EndB", 0), "15");
    EXPECT_EQ(cell(form, "ID", 0), "1");
}

TEST(frmParam, SearchBoxSelectsAllItsTextOnFocus)
{
    frmParam form;
    QLineEdit* box = child<QLineEdit>(form, "txtName");
    box->setText("filter");
    box->deselect();
    QFocusEvent focus(QEvent::FocusIn, Qt::MouseFocusReason);
    QApplication::sendEvent(box, &focus);
    QTRY_COMPARE(box->selectedText(), QString("filter"));
}

TEST(frmParam, LauncherKeepsOneBrowserOpen)
{
    showParamBrowser(nullptr);
    showParamBrowser(nullptr);
    int open = 0;
    frmParam* shown = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* form = qobject_cast<frmParam*>(widget); form != nullptr && form->isVisible()) {
            ++open;
            shown = form;
        }
    }
    ASSERT_EQ(open, 1);
    EXPECT_EQ(shown->windowTitle(), "Patch-OSC-FX parameters");
    QPointer<frmParam> guard(shown);
    QTest::mouseClick(child<QPushButton>(*shown, "cmdDone"), Qt::LeftButton);
    QTRY_VERIFY(guard.isNull());
}

}  // namespace
}  // namespace quillon

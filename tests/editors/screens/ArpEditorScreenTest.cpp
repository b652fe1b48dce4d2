#include "editors/ArpSteps.h"
#include "editors/ItemStatus.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmMain.h"
#include "support/TestModel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

#include <gtest/gtest.h>

#include <string>

namespace quillon {
namespace {

// The main window started as the program starts, on the pattern screen
// reached by a click on its label.
struct PatternWindow {
    QtHost host;
    MemorySettingsStore store;
    TempFolder folder;
    AppModel model{host, store, folder.path()};
    frmMain window{model, host};

    PatternWindow()
    {
        EXPECT_TRUE(doFormLoadMain(model));
        window.resize(1300, 800);
        window.show();
        QTest::mouseClick(control("lblLoaded_5"), Qt::LeftButton);
    }
    template <typename T = QWidget>
    T* control(const QString& name)
    {
        T* found = window.findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    QCheckBox* toneBox(int step, int tone) { return control<QCheckBox>(QString("chkTone_%1").arg(toneBoxIndex(step, tone))); }
    void click(const QString& name) { QTest::mouseClick(control(name), Qt::LeftButton); }
    void type(const QString& name, const QString& text)
    {
        auto* box = control<QLineEdit>(name);
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(box, text);
    }
    const ParamValues& pattern() { return model.buffers.of(kPattern).current; }
    int mask(int step) { return arpStepMask(pattern(), step); }
};

TEST(ArpEditorScreen, TheLabelOfThePatternShowsThePatternScreenInPlaceOfTheHint)
{
    PatternWindow t;
    EXPECT_EQ(t.model.mode, kPattern);
    EXPECT_TRUE(t.control("fraArpEditor")->isVisible());
    EXPECT_FALSE(t.control("fraEditor")->isVisible());
    EXPECT_FALSE(t.control("lblScreensHint")->isVisible());
    EXPECT_EQ(t.control<QLabel>("lblArpParamName_7")->text(), "Pattern Length");
    EXPECT_EQ(t.control<QLineEdit>("txtArpParamVal_7")->text(), "36");
    EXPECT_EQ(t.window.findChild<QLabel*>("lblArpParamDecode_10"), nullptr);
    EXPECT_EQ(t.control<QLabel>("lblArpStepBlockCopy_8")->text(), "1---PL");
    EXPECT_EQ(t.control<QComboBox>("cmbStepCopyMode")->count(), 5);
    QTest::mouseClick(t.control("lblLoaded_1"), Qt::LeftButton);
    EXPECT_FALSE(t.control("fraArpEditor")->isVisible());
    EXPECT_TRUE(t.control("fraEditor")->isVisible());
}

TEST(ArpEditorScreen, TickingGridBoxesSetsTheStepsToneMaskAndMakesItsStepCurrent)
{
    PatternWindow t;
    QTest::mouseClick(t.toneBox(4, 9), Qt::LeftButton);
    QTest::mouseClick(t.toneBox(4, 2), Qt::LeftButton);
    EXPECT_EQ(t.mask(4), (1 << 9) | (1 << 2));
    EXPECT_EQ(t.pattern()[stepParam(4, 1)], 2);
    EXPECT_EQ(t.pattern()[stepParam(4, 2)], 4);
    EXPECT_TRUE(t.toneBox(4, 9)->isChecked());
    EXPECT_EQ(t.model.buffers.arpEditor.StepCurrent, 4);
    EXPECT_EQ(t.control<QLineEdit>("txtStepNum")->text(), "4");
    EXPECT_TRUE(t.control("lblStepMarker_4")->styleSheet().contains("#ffff00"));
    EXPECT_FALSE(t.control("lblStepMarker_1")->styleSheet().contains("#ffff00"));
    QTest::mouseClick(t.toneBox(4, 9), Qt::LeftButton);
    EXPECT_EQ(t.mask(4), 1 << 2);
}

TEST(ArpEditorScreen, ACopyInTheWindowCopiesTheStepAndMovesTheTargetOn)
{
    PatternWindow t;
    t.click("lblStepMarker_2");
    QTest::mouseClick(t.toneBox(2, 0), Qt::LeftButton);
    QTest::mouseClick(t.toneBox(2, 5), Qt::LeftButton);
    t.type("txtArpParamVal_10", "12");
    EXPECT_EQ(t.pattern()[stepParam(2, 3)], 12);
    t.type("txtStepCount", "5");
    EXPECT_EQ(t.model.buffers.arpEditor.StepTarget, 5);
    t.click("lblArpCopy");
    EXPECT_EQ(t.mask(5), (1 << 0) | (1 << 5));
    EXPECT_EQ(t.pattern()[stepParam(5, 3)], 12);
    EXPECT_TRUE(t.toneBox(5, 5)->isChecked());
    EXPECT_EQ(t.control<QLineEdit>("txtStepCount")->text(), "6");

    t.click("lblArpUndo");
    EXPECT_EQ(t.mask(5), 0);
    EXPECT_FALSE(t.toneBox(5, 5)->isChecked());
}

TEST(ArpEditorScreen, TonesOnlyMarksTheToneNumbersAndShorteningThePatternGreysItsSteps)
{
    PatternWindow t;
    auto* mode = t.control<QComboBox>("cmbStepCopyMode");
    mode->setFocus();
    QTest::keyClick(mode, Qt::Key_Down);
    QTest::keyClick(mode, Qt::Key_Down);
    EXPECT_EQ(t.model.buffers.arpEditor.StepCopyMode, 2);
    EXPECT_TRUE(t.control("lblToneNum_3")->styleSheet().contains("#ffff00"));

    t.type("txtArpParamVal_7", "8");
    EXPECT_EQ(patternLength(t.pattern()), 8);
    EXPECT_TRUE(t.toneBox(8, 0)->isEnabled());
    EXPECT_FALSE(t.toneBox(9, 0)->isEnabled());
    EXPECT_FALSE(t.control("lblStepMarker_9")->isEnabled());
}

TEST(ArpEditorScreen, SelectingInTheArpeggioListTakesThatPatternIntoTheEditor)
{
    PatternWindow t;
    ParamValues values = paramTables().arpDefaults;
    const std::string name = "Listed Pattern  ";
    for (int i = 0; i < 16; ++i)
        values[static_cast<std::size_t>(i + 1)] = static_cast<std::int16_t>(name[static_cast<std::size_t>(i)]);
    values[kPatternLengthParam] = 3;
    arpSetStepMask(values, 2, (1 << 7) | 1);
    ByteImage image(kPatternBytes, 0);
    arpParamsToImage(values, image);
    t.model.banks.writeBankPattern(9, image);
    t.model.flags.loaded[kArpBank] = true;
    t.model.arpMode = 1;
    setUpScreen(t.model, kPattern);

    auto* list = t.control<QListWidget>("lstArpeggio");
    ASSERT_EQ(list->count(), 20);
    EXPECT_TRUE(list->item(9)->text().startsWith("Listed Pattern"));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(9)).center());
    EXPECT_EQ(patternLength(t.pattern()), 3);
    EXPECT_EQ(t.mask(2), (1 << 7) | 1);
    EXPECT_TRUE(t.toneBox(2, 7)->isChecked());
    EXPECT_FALSE(t.toneBox(4, 0)->isEnabled());
    EXPECT_EQ(t.control<QLineEdit>("txtArpParamVal_7")->text(), "3");
    EXPECT_EQ(t.control<QLabel>("lblLoaded_5")->text().left(14), "Listed Pattern");
    EXPECT_TRUE(t.model.itemPath[kPattern].empty());
}

}  // namespace
}  // namespace quillon

// The patch and multi screens inside the main window, driven as a musician
// drives them: clicks and keys on the controls found by their names.
#include "editors/Frames.h"
#include "editors/ItemStatus.h"
#include "editors/MultiSelect.h"
#include "editors/Navigation.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmMain.h"
#include "support/DialogAnswers.h"
#include "support/TestModel.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QContextMenuEvent>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace quillon {
namespace {

constexpr int kAttackTime = 32;         // EG1's Attack Time, 20 in a new patch
constexpr int kRetriggerThreshold = 23; // "Retrigger Control Threshold" of Patch Common
constexpr int kKnob1Destination = 384;  // PE Knob1's destination, decode table 11

struct EditorWindow {
    QtHost host;
    MemorySettingsStore store;
    TempFolder folder;
    AppModel model{host, store, folder.path()};
    frmMain window{model, host};

    EditorWindow()
    {
        EXPECT_TRUE(doFormLoadMain(model));
        window.resize(1300, 800);
        window.show();
        QApplication::setActiveWindow(&window);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    template <typename T = QWidget>
    T* control(const QString& name)
    {
        T* found = window.findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    // The row of frame 1 that shows a parameter, or -1.
    int rowOf(int param) const
    {
        for (int r = 0; r < kFrameRows; ++r) {
            if (model.layout.rows[static_cast<std::size_t>(r)].visible &&
                model.layout.RowParam[static_cast<std::size_t>(r)] == param)
                return r;
        }
        return -1;
    }
    QLineEdit* valueBox(int row) { return control<QLineEdit>(QString("txtParamVal_%1").arg(row)); }
    void clickTreeItem(const QString& text)
    {
        auto* tree = control<QTreeWidget>("trvSection");
        const auto found = tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_FALSE(found.isEmpty()) << text.toStdString();
        tree->scrollToItem(found.front());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(found.front()).center());
    }
    int visibleRows(int frame)
    {
        int n = 0;
        for (int r = (frame - 1) * kFrameRows; r < frame * kFrameRows; ++r)
            n += control(QString("lblParamName_%1").arg(r))->isVisible() ? 1 : 0;
        return n;
    }
};

TEST(RowsInWindow, AClickIntoAValueBoxSelectsItsTextSoThatTypingReplacesIt)
{
    EditorWindow t;
    t.model.buffers.of(kPatch).current[kAttackTime] = 20;
    fraPatchHeaders(t.model, 1, 0, 2);  // EG1
    const int row = t.rowOf(kAttackTime);
    ASSERT_GE(row, 0);
    QLineEdit* box = t.valueBox(row);
    ASSERT_EQ(box->text(), "20");
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->width() - 4, box->height() / 2));
    EXPECT_TRUE(box->hasFocus());
    EXPECT_EQ(box->selectedText(), "20");
    QTest::keyClicks(box, "10");
    EXPECT_EQ(box->text(), "10");
    EXPECT_EQ(t.model.buffers.of(kPatch).current[kAttackTime], 10);
}

TEST(RowsInWindow, ADestinationNameShowsInGreenInTheMessageLine)
{
    EditorWindow t;
    fraPatchHeaders(t.model, 1, 0, 46);  // PE Knob1
    const int row = t.rowOf(kKnob1Destination);
    ASSERT_GE(row, 0);
    QTest::mouseClick(t.control(QString("lblParamDecode_%1").arg(row)), Qt::LeftButton);
    auto* message = t.control<QLabel>("lblMessage");
    EXPECT_FALSE(message->text().isEmpty());
    EXPECT_TRUE(message->styleSheet().contains("#008000")) << message->styleSheet().toStdString();
}

TEST(RowsInWindow, ARightClickOnTheSpinArrowsTakesTheBigStepAndOpensNoMenu)
{
    EditorWindow t;
    t.model.buffers.of(kPatch).current[kAttackTime] = 20;
    fraPatchHeaders(t.model, 1, 0, 2);
    const int row = t.rowOf(kAttackTime);
    auto* spin = t.control<QAbstractSpinBox>(QString("updParamVal_%1").arg(row));
    // A menu that opens is noted and closed, so that the test goes on.
    bool menuOpened = false;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [&menuOpened] {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            menuOpened = true;
            popup->close();
        }
    });
    closer.start(20);
    const QPoint upper(spin->width() / 2, 2);
    QTest::mousePress(spin, Qt::RightButton, {}, upper);
    QContextMenuEvent menuEvent(QContextMenuEvent::Mouse, upper, spin->mapToGlobal(upper));
    QApplication::sendEvent(spin, &menuEvent);
    QTest::mouseRelease(spin, Qt::RightButton, {}, upper);
    closer.stop();
    EXPECT_FALSE(menuOpened);
    EXPECT_EQ(t.model.buffers.of(kPatch).current[kAttackTime], 40);
    // The next right click steps again.
    QTest::mousePress(spin, Qt::RightButton, {}, upper);
    EXPECT_EQ(t.model.buffers.of(kPatch).current[kAttackTime], 60);
}

TEST(RowsInWindow, ALongNameIsReadWholeInItsTooltipAndItsColumnWidensWithTheWindow)
{
    EditorWindow t;
    fraPatchHeaders(t.model, 1, 0, 1);  // Patch Common
    const int row = t.rowOf(kRetriggerThreshold);
    ASSERT_GE(row, 0);
    auto* name = t.control<QLabel>(QString("lblParamName_%1").arg(row));
    EXPECT_EQ(name->text(), "Retrigger Control Threshold");
    EXPECT_TRUE(name->toolTip().startsWith("Retrigger Control Threshold\n"));
    EXPECT_TRUE(name->toolTip().contains("Parameter name: double click for user/default value"));
    const int narrow = name->width();
    t.window.resize(1800, 800);
    QApplication::processEvents();
    EXPECT_GT(name->width(), narrow);
}

TEST(RowsInWindow, AfterATreeGroupTrailOrFavouriteClickTheFocusStaysWhereTheUserClicked)
{
    EditorWindow t;
    fraPatchHeaders(t.model, 1, 0, 2);
    QLineEdit* box = t.valueBox(t.rowOf(kAttackTime));
    QTest::mouseClick(box, Qt::LeftButton);
    ASSERT_TRUE(box->hasFocus());

    t.clickTreeItem("LFO1");
    EXPECT_EQ(QApplication::focusWidget(), t.control("trvSection"));

    t.window.action("tlbMain_spsg")->trigger();
    QTest::mouseClick(t.valueBox(0), Qt::LeftButton);
    QTest::mouseClick(t.control("lblGroup_2"), Qt::LeftButton);
    EXPECT_EQ(QApplication::focusWidget(), t.control("lblGroup_2"));

    QTest::mouseClick(t.valueBox(0), Qt::LeftButton);
    QTest::mouseClick(t.control("cmdBack"), Qt::LeftButton);
    EXPECT_EQ(QApplication::focusWidget(), t.control("cmdBack"));

    t.model.layout.nav.favourites[0] = {"EG1", 2};
    t.model.changed(kNavigationChanged);
    QTest::mouseClick(t.valueBox(0), Qt::LeftButton);
    QTest::mouseClick(t.control("lblFavSubSect_0"), Qt::LeftButton);
    EXPECT_EQ(t.model.layout.patchFrames[1].Subsection, 2);
    EXPECT_EQ(QApplication::focusWidget(), t.control("lblFavSubSect_0"));
}

TEST(RowsInWindow, TheTreesSectionNodeShowsTheRowsTheGroupShowsForIt)
{
    EditorWindow t;
    t.clickTreeItem("FX");
    EXPECT_EQ(t.control<QLabel>("lblSubsect_1")->text(), "FX");
    EXPECT_EQ(t.visibleRows(1), 3);
    t.clickTreeItem("OSC1");
    EXPECT_EQ(t.visibleRows(1), 1);
    EXPECT_EQ(t.visibleRows(2), 3);  // the FX frame moved right, still with three rows
}

TEST(RowsInWindow, BackOnTheMultiScreenLeavesItsFramesAlone)
{
    EditorWindow t;
    t.clickTreeItem("EG1");
    t.clickTreeItem("LFO1");
    QTest::mouseClick(t.control("lblLoaded_4"), Qt::LeftButton);
    ASSERT_EQ(t.model.mode, kMultiset);
    QTest::mouseClick(t.control("lblMultiSect_0"), Qt::LeftButton);
    const QString name = t.control<QLabel>("lblParamName_0")->text();
    const QString value = t.valueBox(0)->text();
    QTest::mouseClick(t.control("cmdBack"), Qt::LeftButton);
    EXPECT_EQ(t.control<QLabel>("lblSubsect_1")->text().toStdString(), t.model.layout.frames[1].label);
    EXPECT_EQ(t.control<QLabel>("lblParamName_0")->text(), name);
    EXPECT_EQ(t.valueBox(0)->text(), value);
    EXPECT_EQ(t.model.layout.patchFrames[1].Subsection, 6);
}

TEST(RowsInWindow, MultiBankLabelsStandOnTheMultiScreenAndSendAlwaysSaysWhatItSends)
{
    EditorWindow t;
    EXPECT_FALSE(t.control("lblMultiBankA")->isVisible());
    EXPECT_FALSE(t.control("lblMultiBankB")->isVisible());
    EXPECT_FALSE(t.control("lblArpBank")->isVisible());
    EXPECT_TRUE(t.control("fraMultiSelect")->isAncestorOf(t.control("lblMultiBankA")));
    EXPECT_TRUE(t.control("fraMultiBank")->isAncestorOf(t.control("cmbMultiBankB")));

    QTest::mouseClick(t.control("lblLoaded_4"), Qt::LeftButton);
    ASSERT_TRUE(t.control("lblMultiBankA")->isVisible());
    QTest::mouseClick(t.control("lblMultiBankA"), Qt::LeftButton);
    EXPECT_EQ(t.model.mode, kMultiset);
    EXPECT_EQ(t.model.multiMode, 1);
    EXPECT_EQ(t.window.action("mnuSendActive")->text(), t.control<QLabel>("lblMultiBankA")->text());
    EXPECT_TRUE(t.control<QLabel>("lblMultiBankA")->styleSheet().contains("bold"));

    QTest::mouseClick(t.control("lblLoaded_1"), Qt::LeftButton);
    EXPECT_EQ(t.model.mode, kPatch);
    EXPECT_EQ(t.window.action("mnuSendActive")->text(), t.control<QLabel>("lblLoaded_1")->text());
    EXPECT_FALSE(t.control("lblMultiBankA")->isVisible());

    setUpScreen(t.model, kPattern);
    EXPECT_TRUE(t.control("lblArpBank")->isVisible());
}

TEST(RowsInWindow, AMultiBankListShowsWhereTheEditorsMultisetCameFromAfterACancel)
{
    EditorWindow t;
    ByteImage image(kMultiBytes, 0);
    multiParamsToImage(paramTables().multiDefaults, image);
    for (int m = 0; m < kMultisPerBank; ++m)
        t.model.banks.writeBankMulti(kMultiBankA, m, image);
    t.model.flags.loaded[kMultiBankA] = true;
    fillMultiBankList(t.model, kMultiBankA);
    QTest::mouseClick(t.control("lblLoaded_4"), Qt::LeftButton);
    QTest::mouseClick(t.control("lblMultiBankA"), Qt::LeftButton);
    auto* list = t.control<QComboBox>("cmbMultiBankA");
    ASSERT_EQ(list->count(), kMultisPerBank);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);  // takes entry 0
    ASSERT_TRUE(t.model.takenFromBank[kMultiset]);
    EXPECT_EQ(list->currentIndex(), 0);

    t.model.flags.changed[kMultiset] = true;
    answerNextMessageBox("Cancel");
    QTest::keyClick(list, Qt::Key_Down);  // entry 1, cancelled at the save prompt
    EXPECT_EQ(list->currentIndex(), 0);
    EXPECT_EQ(t.control<QComboBox>("cmbMultiBankB")->currentIndex(), -1);
}

}  // namespace
}  // namespace quillon

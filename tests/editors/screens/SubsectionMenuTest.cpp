#include "editors/ItemStatus.h"
#include "editors/Navigation.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmMain.h"
#include "support/TestModel.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon {
namespace {

struct MenuWindow {
    QtHost host;
    MemorySettingsStore store;
    TempFolder folder;
    AppModel model{host, store, folder.path()};
    frmMain window{model, host};

    MenuWindow()
    {
        EXPECT_TRUE(doFormLoadMain(model));
        model.flags.loaded[kPatch] = true;
        window.resize(1300, 800);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    // Opens a menu of the menu bar and clicks one of its items, as the user does.
    void clickMenuItem(const char* menuName, const char* itemName)
    {
        QMenuBar* bar = window.menuBar();
        auto* menu = window.findChild<QMenu*>(menuName);
        ASSERT_NE(menu, nullptr);
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
        ASSERT_TRUE(QTest::qWaitForWindowExposed(menu));
        QAction* item = window.action(itemName);
        ASSERT_NE(item, nullptr);
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item).center());
    }
};

TEST(SubsectionMenu, ZeroFromTheMenuBarZeroesTheCurrentFrame)
{
    MenuWindow t;
    auto* subsectionMenu = t.window.findChild<QMenu*>("mnuSubsection");
    clickTreeNode(t.model, "S6");  // LFO1
    ASSERT_TRUE(subsectionMenu->menuAction()->isEnabled());
    ASSERT_TRUE(t.window.action("mnuCopySpecial")->isEnabled());
    const FrameState frame = t.model.layout.patchFrames[1];
    ParamValues& current = t.model.buffers.of(kPatch).current;
    for (int p = frame.SubFirst; p <= frame.SubLast; ++p)
        current[static_cast<std::size_t>(p)] = paramTables().patch[static_cast<std::size_t>(p)].max;
    t.clickMenuItem("mnuSubsection", "mnuSubSZero");
    for (int p = frame.SubFirst; p <= frame.SubLast; ++p) {
        const ParamDef& def = paramTables().patch[static_cast<std::size_t>(p)];
        EXPECT_EQ(current[static_cast<std::size_t>(p)], std::max<int>(0, def.min)) << p;
    }
    // The rows on screen show the new values.
    const int first = frame.RowFirst;
    EXPECT_EQ(t.window.findChild<QLineEdit*>("txtParamVal_0")->text().toInt(),
              std::max<int>(0, paramTables().patch[static_cast<std::size_t>(first)].min));
}

TEST(SubsectionMenu, SubsectionMenuIsOffOnTheBankScreenAndCopyMenusWithoutASubsection)
{
    MenuWindow t;
    EXPECT_FALSE(t.window.action("mnuCopySpecial")->isEnabled());
    EXPECT_TRUE(t.window.findChild<QMenu*>("mnuSubsection")->menuAction()->isEnabled());
    setUpScreen(t.model, kPatchBankA);
    EXPECT_FALSE(t.window.findChild<QMenu*>("mnuSubsection")->menuAction()->isEnabled());
    setUpScreen(t.model, kPatch);
    EXPECT_TRUE(t.window.findChild<QMenu*>("mnuSubsection")->menuAction()->isEnabled());
}

}  // namespace
}  // namespace quillon

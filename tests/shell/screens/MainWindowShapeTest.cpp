// The main window as a musician meets it: the toolbar's pictures and words,
// and a size that is the user's.
#include "editors/Frames.h"
#include "editors/ItemStatus.h"
#include "editors/Navigation.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmMain.h"
#include "support/TestModel.h"

#include <QAction>
#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <gtest/gtest.h>

#include <string>

namespace quillon {
namespace {

struct ShapedWindow {
    QtHost host;
    MemorySettingsStore store;
    TempFolder folder;
    AppModel model{host, store, folder.path()};
    std::unique_ptr<frmMain> window;

    explicit ShapedWindow(const std::string& width = {}, const std::string& height = {})
    {
        if (!width.empty()) {
            store.write("Window", "Width", width);
            store.write("Window", "Height", height);
        }
        window = std::make_unique<frmMain>(model, host);
        EXPECT_TRUE(doFormLoadMain(model));
        window->show();
        QApplication::processEvents();
    }
    bool screensFitWithoutScrolling()
    {
        QApplication::processEvents();
        auto* scroll = window->findChild<QScrollArea*>("scrScreens");
        return scroll != nullptr && !scroll->horizontalScrollBar()->isVisible() &&
               !scroll->verticalScrollBar()->isVisible();
    }
};

TEST(MainWindowShape, ToolbarButtonsShowAnIconAndAShortTextAndKeepTheirKeysAndTooltips)
{
    ShapedWindow t;
    auto* toolbar = t.window->findChild<QToolBar*>("tlbMain");
    ASSERT_NE(toolbar, nullptr);
    EXPECT_EQ(toolbar->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    const struct {
        const char* key;
        const char* text;
        const char* tooltip;
    } keys[] = {
        {"open", "Open", "Open file"},
        {"save", "Save As", "Save file as..."},
        {"listen", "Listen", "Listen to Korg Z1 (wait for SysEx data)"},
        {"spst", "Tree", "Show patch sections (tree mode)"},
        {"flr", "L to R", "Frame change L to R"},
        {"bpg", "Merge Group", "Quick Merge: bank patch group to patch editor"},
    };
    for (const auto& key : keys) {
        QAction* action = t.window->action(QString("tlbMain_") + key.key);
        ASSERT_NE(action, nullptr) << key.key;
        EXPECT_EQ(action->text(), key.text);
        EXPECT_EQ(action->toolTip(), key.tooltip);
        EXPECT_FALSE(action->icon().isNull()) << key.key;
        EXPECT_FALSE(action->icon().pixmap(24, 24).isNull()) << key.key;
    }
    for (QAction* action : toolbar->actions()) {
        if (action->objectName().startsWith("tlbMain_"))
            EXPECT_FALSE(action->icon().isNull()) << action->objectName().toStdString();
    }
}

TEST(MainWindowShape, FirstStartFitsA1366By768ScreenWithNothingHidden)
{
    ShapedWindow t;
    EXPECT_LE(t.window->width(), 1366);
    EXPECT_LE(t.window->frameGeometry().height(), 768 - 40);  // a panel of the desktop beside it
    EXPECT_TRUE(t.screensFitWithoutScrolling());
    t.window->action("tlbMain_spsg")->trigger();
    EXPECT_TRUE(t.screensFitWithoutScrolling());
    setUpScreen(t.model, kMultiset);
    clickMultiSect(t.model, 5);
    EXPECT_TRUE(t.screensFitWithoutScrolling());
}

TEST(MainWindowShape, TheWindowDoesNotGrowWhenAnEnvelopeAndAGroupAreShown)
{
    ShapedWindow t("900", "620");
    ASSERT_EQ(t.window->size(), QSize(900, 620));
    t.window->action("tlbMain_spsg")->trigger();
    QTest::mouseClick(t.window->findChild<QWidget*>("lblGroup_1"), Qt::LeftButton);  // EG: the envelope graph
    QApplication::processEvents();
    ASSERT_TRUE(t.window->findChild<QWidget*>("fraPatchGroup")->isVisible());
    ASSERT_EQ(t.model.layout.patchFrames[1].Subsection, 2);
    EXPECT_EQ(t.window->size(), QSize(900, 620));
}

TEST(MainWindowShape, TheSizeTheUserGaveIsKeptForTheNextStart)
{
    MemorySettingsStore kept;
    {
        ShapedWindow first;
        first.window->resize(1111, 666);
        ASSERT_TRUE(first.window->close());
        EXPECT_EQ(first.store.read("Window", "Width"), "1111");
        EXPECT_EQ(first.store.read("Window", "Height"), "666");
        kept.write("Window", "Width", first.store.read("Window", "Width"));
        kept.write("Window", "Height", first.store.read("Window", "Height"));
    }
    ShapedWindow second(kept.read("Window", "Width"), kept.read("Window", "Height"));
    EXPECT_EQ(second.window->size(), QSize(1111, 666));
    ShapedWindow nonsense("wide", "-3");
    EXPECT_EQ(nonsense.window->size(), ShapedWindow().window->size());
}

}  // namespace
}  // namespace quillon

#include "editors/ItemStatus.h"
#include "editors/MultiSelect.h"
#include "editors/Navigation.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmMain.h"
#include "support/TestModel.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace quillon {
namespace {

// The main window over a model of its own, started as the program starts.
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
    }
    template <typename T = QWidget>
    T* control(const char* name)
    {
        T* found = window.findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
};

TEST(EditorInMainWindow, PatchScreenStandsInPlaceOfTheHintAndTheBankGridInPlaceOfThePatchScreen)
{
    EditorWindow t;
    ASSERT_EQ(t.model.mode, 1);
    EXPECT_TRUE(t.control("fraEditor")->isVisible());
    EXPECT_FALSE(t.control("lblScreensHint")->isVisible());
    setUpScreen(t.model, 2);
    EXPECT_FALSE(t.control("fraEditor")->isVisible());
    EXPECT_FALSE(t.control("lblScreensHint")->isVisible());
    EXPECT_TRUE(t.control("fraBank")->isVisible());
    setUpScreen(t.model, 4);
    EXPECT_TRUE(t.control("fraEditor")->isVisible());
    EXPECT_TRUE(t.control("fraMultiSelect")->isVisible());
    EXPECT_FALSE(t.control("trvSection")->isVisible());
}

TEST(EditorInMainWindow, GroupModeKeyShowsTheGroupPanelAndChecksItsMenuItem)
{
    EditorWindow t;
    QAction* key = t.window.action("tlbMain_spsg");
    ASSERT_NE(key, nullptr);
    EXPECT_TRUE(key->isEnabled());
    key->trigger();
    EXPECT_TRUE(t.control("fraPatchGroup")->isVisible());
    EXPECT_FALSE(t.control("trvSection")->isVisible());
    EXPECT_TRUE(t.window.action("mnuShowPatchSectionsGroup")->isChecked());
    EXPECT_FALSE(t.window.action("mnuShowPatchSectionsTree")->isChecked());
    EXPECT_TRUE(key->isChecked());

    t.window.action("mnuShowPatchSectionsTree")->trigger();
    EXPECT_TRUE(t.control("trvSection")->isVisible());
    EXPECT_FALSE(t.control("fraPatchGroup")->isVisible());
    EXPECT_TRUE(t.window.action("tlbMain_spst")->isChecked());
}

TEST(EditorInMainWindow, FrameModeKeysFollowTheModel)
{
    EditorWindow t;
    t.window.action("tlbMain_fra")->trigger();
    EXPECT_TRUE(t.window.action("tlbMain_fra")->isChecked());
    EXPECT_FALSE(t.window.action("tlbMain_flr")->isChecked());
    EXPECT_EQ(t.model.layout.CurrentFrame, 2);
}

TEST(EditorInMainWindow, MultiScreenSectionButtonsShowTheirCaptionsAndAClickOpensTheirRows)
{
    EditorWindow t;
    setUpScreen(t.model, 4);
    for (int i = 0; i < kMultiGroups; ++i) {
        auto* label = t.control<QLabel>(QString("lblMultiSect_%1").arg(i).toUtf8().constData());
        EXPECT_EQ(label->text().toStdString(), t.model.multiSelect.sect[static_cast<std::size_t>(i)].caption);
    }
    QTest::mouseClick(t.control<QLabel>("lblMultiSect_0"), Qt::LeftButton);
    EXPECT_TRUE(t.control("fraParams_1")->isVisible());
    EXPECT_EQ(t.control<QLabel>("lblMultiSectSel")->text().toStdString(), t.model.multiSelect.sectSel.caption);
    EXPECT_EQ(t.control<QLabel>("lblParamName_0")->text().toStdString(), t.model.layout.rows[0].name);
    EXPECT_FALSE(t.model.layout.rows[0].name.empty());
}

}  // namespace
}  // namespace quillon

#include "editors/screens/FavouritesBar.h"

#include "editors/Frames.h"
#include "editors/Navigation.h"
#include "editors/screens/EditorScreens.h"
#include "model/Kind.h"
#include "shell/StartUp.h"
#include "support/TestModel.h"

#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon {
namespace {

// Delivers a drop of a frame caption onto a slot, as the mouse would.
void dropCaptionOn(QLabel* slot, const QString& caption)
{
    QMimeData data;
    data.setData(kSubsectionCaptionMime, caption.toUtf8());
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(slot, &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(slot, &drop);
}

struct PatchScreen {
    TestModel t;
    EditorScreens screens{t.model};

    PatchScreen()
    {
        EXPECT_TRUE(doFormLoadMain(t.model));
        t.model.settings.graphicEnvelope = false;
        fraPatchHeaders(t.model, 1, 0, 6);  // LFO1
    }
    QLabel* label(const QString& name) { return screens.findChild<QLabel*>(name); }
};

TEST(FavouritesBar, EightSlotsWithTheirTooltip)
{
    PatchScreen s;
    for (int slot = 0; slot < 8; ++slot) {
        QLabel* label = s.label(QString("lblFavSubSect_%1").arg(slot));
        ASSERT_NE(label, nullptr) << slot;
        EXPECT_EQ(label->toolTip(), "Press shift key & click to remove");
    }
}

TEST(FavouritesBar, DroppingAFrameCaptionKeepsItsSubsectionInTheSlot)
{
    PatchScreen s;
    const QString caption = s.label("lblSubsect_1")->text();
    ASSERT_FALSE(caption.isEmpty());
    dropCaptionOn(s.label("lblFavSubSect_2"), caption);
    EXPECT_EQ(s.t.model.layout.nav.favourites[2].subsection, 6);
    EXPECT_EQ(s.label("lblFavSubSect_2")->text(), caption);
    EXPECT_EQ(s.t.model.settings.favourites[2], 6);
}

TEST(FavouritesBar, DroppingOtherTextChangesNothing)
{
    PatchScreen s;
    dropCaptionOn(s.label("lblFavSubSect_0"), "Something else");
    EXPECT_EQ(s.t.model.layout.nav.favourites[0].subsection, 0);
    EXPECT_TRUE(s.label("lblFavSubSect_0")->text().isEmpty());
}

TEST(FavouritesBar, ClickOpensTheFavouriteAndShiftClickRemovesIt)
{
    PatchScreen s;
    dropCaptionOn(s.label("lblFavSubSect_0"), s.label("lblSubsect_1")->text());
    fraPatchHeaders(s.t.model, 1, 0, 2);  // EG1 now in frame 1
    QTest::mouseClick(s.label("lblFavSubSect_0"), Qt::LeftButton);
    EXPECT_EQ(s.t.model.layout.patchFrames[static_cast<std::size_t>(s.t.model.layout.CurrentFrame)].Subsection, 6);
    QTest::mouseClick(s.label("lblFavSubSect_0"), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(s.t.model.layout.nav.favourites[0].subsection, 0);
    EXPECT_TRUE(s.label("lblFavSubSect_0")->text().isEmpty());
}

}  // namespace
}  // namespace quillon

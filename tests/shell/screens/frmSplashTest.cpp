#include "shell/screens/frmSplash.h"

#include <QLabel>
#include <QTimer>

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(frmSplash, ShowsTheVersionOfTheProgram)
{
    frmSplash splash;
    const auto* version = splash.findChild<QLabel*>("lblVersion");
    ASSERT_NE(version, nullptr);
    EXPECT_EQ(version->text(), QString("Version %1.%2.%3")
                                   .arg(QUILLON_VERSION_MAJOR)
                                   .arg(QUILLON_VERSION_MINOR)
                                   .arg(QUILLON_VERSION_PATCH));
}

TEST(frmSplash, ClosesTwoSecondsAfterStartUpHasFinished)
{
    frmSplash splash;
    splash.show();
    auto* timer1 = splash.findChild<QTimer*>("Timer1");
    ASSERT_NE(timer1, nullptr);
    EXPECT_FALSE(timer1->isActive());
    splash.closeAfterTwoSeconds();
    EXPECT_TRUE(timer1->isActive());
    EXPECT_EQ(timer1->interval(), 2000);
    EXPECT_TRUE(timer1->isSingleShot());
    // Its tick closes the form, whatever the user is doing meanwhile.
    QMetaObject::invokeMethod(timer1, "timeout");
    EXPECT_FALSE(splash.isVisible());
}

}  // namespace
}  // namespace quillon

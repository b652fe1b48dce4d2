#include "shell/screens/MessageBox.h"

#include "shell/screens/HelpWindow.h"
#include "support/DialogAnswers.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon {
namespace {

struct OpenBox {
    MessageBox box;
    OpenBox(int style)
    {
        box.setUp("Use currently loaded bank?", style, "Create Remap");
        box.show();
    }
    QPushButton* button(const char* name) { return box.findChild<QPushButton*>(name); }
    int press(const char* name)
    {
        QTest::mouseClick(button(name), Qt::LeftButton);
        EXPECT_FALSE(box.isVisible());
        return box.answer();
    }
};

TEST(MessageBox, ShowsTheTitleAndText)
{
    OpenBox b(3);
    EXPECT_EQ(b.box.windowTitle(), "Create Remap");
    EXPECT_EQ(b.box.findChild<QLabel*>("lblText")->text(), "Use currently loaded bank?");
}

TEST(MessageBox, StyleThreeAsksYesNoOrCancelWithTheFocusOnYes)
{
    OpenBox b(3);
    EXPECT_EQ(b.button("cmdYesOrOK")->text(), "Yes");
    EXPECT_EQ(b.button("cmdNoOrOK")->text(), "No");
    EXPECT_EQ(b.button("cmdCancel")->text(), "Cancel");
    for (const char* name : {"cmdYesOrOK", "cmdNoOrOK", "cmdCancel", "cmdHelp"})
        EXPECT_TRUE(b.button(name)->isVisible()) << name;
    EXPECT_EQ(b.box.focusWidget(), b.button("cmdYesOrOK"));
}

TEST(MessageBox, StyleOneAsksOkOrCancelWithTheFocusOnOk)
{
    OpenBox b(1);
    EXPECT_EQ(b.button("cmdYesOrOK")->text(), "OK");
    EXPECT_TRUE(b.button("cmdYesOrOK")->isVisible());
    EXPECT_FALSE(b.button("cmdNoOrOK")->isVisible());
    EXPECT_TRUE(b.button("cmdCancel")->isVisible());
    EXPECT_EQ(b.box.focusWidget(), b.button("cmdYesOrOK"));
}

TEST(MessageBox, OtherStylesTellWithOneOkInTheMiddle)
{
    for (int style : {0, 2, 4}) {
        OpenBox b(style);
        EXPECT_FALSE(b.button("cmdYesOrOK")->isVisible()) << style;
        EXPECT_TRUE(b.button("cmdNoOrOK")->isVisible()) << style;
        EXPECT_EQ(b.button("cmdNoOrOK")->text(), "OK") << style;
        EXPECT_FALSE(b.button("cmdCancel")->isVisible()) << style;
        EXPECT_EQ(b.box.focusWidget(), b.button("cmdNoOrOK")) << style;
    }
}

TEST(MessageBox, AnswersAreSixSevenOneAndTwo)
{
    EXPECT_EQ(OpenBox(3).press("cmdYesOrOK"), kAnswerYes);
    EXPECT_EQ(OpenBox(3).press("cmdNoOrOK"), kAnswerNo);
    EXPECT_EQ(OpenBox(3).press("cmdCancel"), kAnswerCancel);
    EXPECT_EQ(OpenBox(1).press("cmdYesOrOK"), kAnswerOk);
    EXPECT_EQ(OpenBox(1).press("cmdCancel"), kAnswerCancel);
    EXPECT_EQ(OpenBox(0).press("cmdNoOrOK"), kAnswerOk);
    EXPECT_EQ(kAnswerYes, 6);
    EXPECT_EQ(kAnswerNo, 7);
    EXPECT_EQ(kAnswerOk, 1);
    EXPECT_EQ(kAnswerCancel, 2);
}

TEST(MessageBox, ASecondSetUpChangesTheButtonsAgain)
{
    OpenBox b(0);
    b.box.setUp("No bank loaded.", 3, "Create Remap");
    EXPECT_TRUE(b.button("cmdYesOrOK")->isVisible());
    EXPECT_EQ(b.button("cmdNoOrOK")->text(), "No");
    EXPECT_TRUE(b.button("cmdCancel")->isVisible());
    EXPECT_EQ(b.press("cmdNoOrOK"), kAnswerNo);
}

TEST(MessageBox, ClosingTheWindowCountsAsCancelOrAsTheOneOk)
{
    OpenBox question(3);
    question.box.reject();
    EXPECT_EQ(question.box.answer(), kAnswerCancel);
    OpenBox note(0);
    note.box.reject();
    EXPECT_EQ(note.box.answer(), kAnswerOk);
}

TEST(MessageBox, HelpOpensItsTopicAndLeavesTheBoxOpen)
{
    OpenBox b(3);
    QTest::mouseClick(b.button("cmdHelp"), Qt::LeftButton);
    EXPECT_EQ(HelpWindow::instance()->context(), 220);
    EXPECT_TRUE(b.box.isVisible());
    HelpWindow::instance()->close();
}

TEST(MessageBox, TheModalFormGivesItsAnswerToTheCaller)
{
    QString title;
    whenNextModalOpens([&title](QWidget* modal) {
        title = modal->windowTitle();
        QTest::mouseClick(modal->findChild<QPushButton*>("cmdNoOrOK"), Qt::LeftButton);
    });
    EXPECT_EQ(showMessageBox("Use existing bank map?", 3, "Create Remap", nullptr), kAnswerNo);
    EXPECT_EQ(title, "Create Remap");
}

TEST(MessageBox, HelpFromTheModalFormCanBeReadWhileTheFormWaits)
{
    bool helpModal = false;
    bool helpVisible = false;
    whenNextModalOpens([&](QWidget* modal) {
        QTest::mouseClick(modal->findChild<QPushButton*>("cmdHelp"), Qt::LeftButton);
        HelpWindow* help = HelpWindow::instance();
        helpVisible = help->isVisible();
        helpModal = help->windowModality() == Qt::ApplicationModal && QApplication::activeModalWidget() == help;
        help->close();
        QTest::mouseClick(modal->findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
    });
    EXPECT_EQ(showMessageBox("Use existing bank map?", 3, "Create Remap", nullptr), kAnswerCancel);
    EXPECT_TRUE(helpVisible);
    EXPECT_TRUE(helpModal);
}

}  // namespace
}  // namespace quillon

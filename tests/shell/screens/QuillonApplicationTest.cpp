#include "shell/screens/QuillonApplication.h"

#include "support/DialogAnswers.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <stdexcept>

namespace quillon {
namespace {

// An object whose own event handler fails, as a command of the core may.
class FailingObject : public QObject {
public:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::User)
            throw std::runtime_error("No MIDI output device was found");
        return QObject::event(event);
    }
};

TEST(QuillonApplication, TheProgramRunsUnderTheGuardedApplication)
{
    EXPECT_NE(qobject_cast<QuillonApplication*>(QCoreApplication::instance()), nullptr);
}

TEST(QuillonApplication, AFailureInAnEventHandlerBecomesABoxWithAFixedTitle)
{
    FailingObject failing;
    QEvent event(QEvent::User);
    QString title;
    QString text;
    answerNextMessageBox("OK", &text, &title);

    EXPECT_NO_THROW(QApplication::sendEvent(&failing, &event));

    EXPECT_EQ(title, QuillonApplication::failureTitle());
    EXPECT_TRUE(text.contains("[No MIDI output device was found]")) << text.toStdString();
}

TEST(QuillonApplication, AClickWhoseCommandFailsShowsTheBoxAndTheButtonStillWorks)
{
    QPushButton button("Send");
    button.resize(80, 30);
    button.show();
    int clicks = 0;
    // Wired as the window wires its commands.
    QObject::connect(&button, &QPushButton::clicked, [&clicks] {
        QuillonApplication::runCommand([&clicks] {
            if (++clicks == 1)
                throw std::runtime_error("device gone");
        });
    });
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QString title;
    answerNextMessageBox("OK", nullptr, &title);

    EXPECT_NO_THROW(QTest::mouseClick(&button, Qt::LeftButton));

    EXPECT_EQ(title, "Quillon Error");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "the hourglass of the failed command is gone";
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks, 2);
}

TEST(QuillonApplication, AFailedCommandNamesItsReasonInTheBoxAndNothingIsThrown)
{
    QString title;
    QString text;
    answerNextMessageBox("OK", &text, &title);

    EXPECT_NO_THROW(QuillonApplication::runCommand([] { throw std::runtime_error("No MIDI input device"); }));

    EXPECT_EQ(title, QuillonApplication::failureTitle());
    EXPECT_TRUE(text.contains("[No MIDI input device]")) << text.toStdString();
    EXPECT_TRUE(text.contains("Your work is still in memory")) << text.toStdString();
}

}  // namespace
}  // namespace quillon

#include "shell/screens/frmAbout.h"

#include "midi/backends/EventPump.h"
#include "midi/backends/MidiSystem.h"
#include "midi/backends/SimMidiSystem.h"
#include "midi/screens/MidiSystemAccess.h"
#include "support/DialogAnswers.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

namespace quillon {
namespace {

QString factOf(const std::vector<PlatformFact>& facts, const QString& what)
{
    const auto fact = std::find_if(facts.begin(), facts.end(), [&](const PlatformFact& f) { return f.first == what; });
    return fact == facts.end() ? QString() : fact->second;
}

TEST(frmAbout, CaptionNamesTheProgram)
{
    frmAbout form;
    EXPECT_EQ(form.windowTitle(), "About Quillon");
    EXPECT_EQ(form.findChild<QLabel*>("lblTitle")->text(), "Quillon");
}

TEST(frmAbout, VersionShowsTheRevisionInThreeDigits)
{
    EXPECT_EQ(aboutVersionText(1, 2, 5), "Version 1.2.005");
    EXPECT_EQ(aboutVersionText(2, 10, 123), "Version 2.10.123");
    EXPECT_EQ(aboutVersionText(0, 1, 0), "Version 0.1.000");
}

TEST(frmAbout, VersionLabelShowsThisProgramsVersion)
{
    frmAbout form;
    const QString shown = form.findChild<QLabel*>("lblVersion")->text();
    EXPECT_EQ(shown, aboutVersionText(QUILLON_VERSION_MAJOR, QUILLON_VERSION_MINOR, QUILLON_VERSION_PATCH));
    EXPECT_TRUE(QRegularExpression(R"(^Version \d+\.\d+\.\d{3}$)").match(shown).hasMatch()) << shown.toStdString();
}

TEST(frmAbout, OkClosesTheForm)
{
    frmAbout form;
    form.show();
    QTest::mouseClick(form.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
}

TEST(frmAbout, PlatformFactsNameTheSystemTheToolkitAndMidi)
{
    const auto facts = platformFacts();
    EXPECT_FALSE(factOf(facts, "Operating system").isEmpty());
    EXPECT_TRUE(factOf(facts, "Qt").startsWith(qVersion()));
    EXPECT_EQ(factOf(facts, "MIDI system"), "none open");
}

TEST(frmAbout, SysInfoNamesTheMidiSystemInUseAndItsInputAndOutputDevices)
{
    QueuedEventPump pump;
    const std::unique_ptr<MidiSystem> system = openSimMidiSystem(pump, MidiSystemOptions{});
    registerMidiSystem(system.get());
    frmAbout form;
    form.show();
    QString shown;
    whenNextModalOpens([&](QWidget* modal) {
        shown = modal->findChild<QPlainTextEdit*>("txtSysInfo")->toPlainText();
        modal->close();
    });
    QTest::mouseClick(form.findChild<QPushButton*>("cmdSysInfo"), Qt::LeftButton);
    registerMidiSystem(nullptr);
    EXPECT_TRUE(shown.contains("MIDI system: sim\n")) << shown.toStdString();
    ASSERT_FALSE(system->inputDevices().empty());
    ASSERT_FALSE(system->outputDevices().empty());
    EXPECT_TRUE(shown.contains("MIDI input devices: " + QString::fromStdString(system->inputDevices().front())));
    EXPECT_TRUE(shown.contains("MIDI output devices: " + QString::fromStdString(system->outputDevices().front())));
    EXPECT_FALSE(shown.contains("none yet"));
}

TEST(frmAbout, SystemInformationIsOneFactALine)
{
    EXPECT_EQ(systemInformationText({{"Qt", "6.4.2"}, {"MIDI system", "alsa"}}), "Qt: 6.4.2\nMIDI system: alsa");
}

TEST(frmAbout, WithoutFactsTheSystemInformationIsUnavailable)
{
    EXPECT_EQ(systemInformationText({}), "System Information Is Unavailable At This Time");
}

TEST(frmAbout, SysInfoButtonShowsThePlatformFacts)
{
    frmAbout form;
    form.show();
    QString shown;
    QString caption;
    whenNextModalOpens([&](QWidget* modal) {
        caption = modal->windowTitle();
        shown = modal->findChild<QPlainTextEdit*>("txtSysInfo")->toPlainText();
        modal->close();
    });
    QTest::mouseClick(form.findChild<QPushButton*>("cmdSysInfo"), Qt::LeftButton);
    EXPECT_EQ(caption, "System Information");
    EXPECT_EQ(shown, systemInformationText(platformFacts()));
    EXPECT_TRUE(shown.contains("MIDI system: "));
}

}  // namespace
}  // namespace quillon

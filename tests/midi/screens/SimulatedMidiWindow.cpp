#include "midi/screens/SimulatedMidiWindow.h"

#include "midi/MidiGlobal.h"
#include "midi/backends/SimulatedZ1.h"
#include "shell/StartUp.h"

#include <QCoreApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon {

SimulatedMidiWindow::SimulatedMidiWindow()
{
    StartUpSurroundings surroundings;
    surroundings.musicFolder = folder.path();
    surroundings.initMidi = [this](AppModel& m) {
        midi = std::make_unique<MidiConnection>(m, MidiApi::Sim, &window);
        return doInitMIDI(m);
    };
    EXPECT_TRUE(doFormLoadMain(model, surroundings));
}

SimulatedZ1& SimulatedMidiWindow::z1() { return *midi->system().simulator(); }

bool runEventsUntil(const std::function<bool()>& done, int milliseconds)
{
    return QTest::qWaitFor(done, milliseconds);
}

void runWaitingEvents()
{
    // An event may post the next one (a request's answer follows the end of
    // its output), so run until a pass finds nothing more.
    for (int pass = 0; pass < 10; ++pass)
        QCoreApplication::processEvents(QEventLoop::AllEvents);
}

}  // namespace quillon

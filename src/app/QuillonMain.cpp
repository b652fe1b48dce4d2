// Quillon: the program with its window.

#include "files/DataFolder.h"
#include "midi/screens/MidiConnection.h"
#include "output/screens/QtPrinter.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/QtSettingsStore.h"
#include "shell/screens/QuillonApplication.h"
#include "shell/screens/frmMain.h"
#include "shell/screens/frmSplash.h"

#include <QApplication>
#include <QStandardPaths>

#include <memory>

int main(int argc, char** argv)
{
    // Nothing a command throws gets past the toolkit's events: it becomes a
    // box, and the program goes on.
    quillon::QuillonApplication application(argc, argv);
    // No organisation name: the data folder is then ~/.local/share/Quillon
    // (and its like on other platforms); the settings store names
    // "Quillon" itself.
    QApplication::setApplicationName("Quillon");
    QApplication::setApplicationVersion(quillon::frmSplash::versionText().mid(8));

    quillon::frmSplash splash;
    splash.show();
    QApplication::processEvents();

    quillon::QtHost host;
    quillon::QtSettingsStore store;
    quillon::QtPrinter printer;
    const auto platformFolder =
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString();
    quillon::AppModel model(host, store, quillon::chooseDataFolder(platformFolder), &printer);
    quillon::readRememberedLists(model);

    quillon::frmMain main(model, host);
    // The MIDI system, opened as the last step of start-up; it goes before
    // the main window and the model.
    std::unique_ptr<quillon::MidiConnection> midi;
    quillon::StartUpSurroundings surroundings;
    surroundings.musicFolder = QStandardPaths::writableLocation(QStandardPaths::MusicLocation).toStdString();
    surroundings.initMidi = [&main, &midi](quillon::AppModel& m) { return quillon::startMidi(m, &main, midi); };
    if (!quillon::doFormLoadMain(model, surroundings))
        return 1;
    main.show();
    splash.raise();
    splash.closeAfterTwoSeconds();
    return QApplication::exec();
}

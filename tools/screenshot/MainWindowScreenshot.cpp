// Makes the picture of the main window that the README shows: the program
// started as a user starts it, with a patch opened, drawn into a PNG file.
//
// Usage: quillon_screenshot OUT.png [FILE.syx]

#include "files/MiscDialog.h"
#include "files/OpenSysExFile.h"
#include "files/SettingsStore.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmMain.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTemporaryDir>

#include <cstdio>

namespace {

// Answers the open dialog with the given file and nothing else.
class ScreenshotHost : public quillon::QtHost {
public:
    explicit ScreenshotHost(std::string path) : path_(std::move(path)) {}
    std::optional<std::string> chooseOpenFile(const quillon::FileDialogRequest&) override { return path_; }

private:
    std::string path_;
};

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: quillon_screenshot OUT.png [FILE.syx]\n");
        return 2;
    }
    QTemporaryDir dataFolder;
    ScreenshotHost host(argc > 2 ? argv[2] : "");
    quillon::MemorySettingsStore store;
    quillon::AppModel model(host, store, dataFolder.path().toStdString());
    quillon::frmMain window(model, host);
    if (!quillon::doFormLoadMain(model))
        return 1;
    if (argc > 2)
        quillon::doOpenSysExFile(model, 0);
    window.resize(1000, 640);
    window.show();
    QApplication::processEvents();
    if (!window.grab().save(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}

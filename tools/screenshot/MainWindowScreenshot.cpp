// Makes the pictures of Quillon's windows for the README and the docs: the
// program started as a user starts it, with a file opened if one is given,
// and the main window or one of its forms drawn into a PNG file.
//
// Usage: quillon_screenshot OUT.png [--form main|settings|help|params|about|patch|envelope|mod|pattern|bank|request|midi|received|import] [FILE.syx | FOLDER]
//
// "patch" shows the patch screen with OSC1 in the left frame and its
// setting rows in the right one; "envelope" shows EG1 with its graph;
// "mod" the list of the patch's modulation sources.
// The program talks to the simulated Z1: "request" shows the Request
// dialog, "midi" the MIDI tab of the settings, "received" the main window
// once bank A has been requested and has arrived, "pattern" the pattern
// screen once the ArpBank has arrived and a pattern has been taken from it,
// "import" Import to Bank over the FOLDER given, bank A having arrived.

#include "banks/BankMouse.h"
#include "banks/screens/frmImport.h"
#include "editors/ArpCommands.h"
#include "editors/ItemStatus.h"
#include "editors/Navigation.h"
#include "editors/screens/frmMod.h"
#include "files/MiscDialog.h"
#include "files/OpenSysExFile.h"
#include "files/SettingsStore.h"
#include "midi/MidiGlobal.h"
#include "midi/ReceiveEngine.h"
#include "midi/screens/MidiConnection.h"
#include "midi/screens/frmRequest.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "model/screens/frmParam.h"
#include "shell/AppModel.h"
#include "shell/StartUp.h"
#include "shell/screens/HelpWindow.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmAbout.h"
#include "shell/screens/frmMain.h"
#include "shell/screens/frmSettings.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QPixmap>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>
#include <string>

namespace {

// Answers the open dialog with the given file and nothing else.
class ScreenshotHost : public quillon::QtHost {
public:
    explicit ScreenshotHost(std::string path) : path_(std::move(path)) {}
    std::optional<std::string> chooseOpenFile(const quillon::FileDialogRequest&) override { return path_; }

private:
    std::string path_;
};

// The key of the tree's root whose section holds the parameter.
std::string sectionKeyOf(int param)
{
    const auto& sections = quillon::paramTables().patchSections;
    for (std::size_t i = 1; i <= 32 && i < sections.size(); ++i) {
        if (sections[i].firstParam <= param && param <= sections[i].lastParam) {
            std::string key = "S";  // appended: GCC 12 warns wrongly about "S" + std::to_string(...)
            key += std::to_string(i);
            return key;
        }
    }
    return {};
}

constexpr int kOsc1Type = 174;
constexpr int kArpBankRequest = 7;
constexpr int kShownPattern = 6;  // a user pattern of the ArpBank

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: quillon_screenshot OUT.png [--form "
                             "main|settings|help|params|about|patch|envelope|mod|pattern|bank|request|midi|received|import] [FILE.syx | FOLDER]\n");
        return 2;
    }
    std::string form = "main";
    std::string file;
    for (int i = 2; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--form" && i + 1 < argc)
            form = argv[++i];
        else
            file = arg;
    }
    QTemporaryDir dataFolder;
    ScreenshotHost host(file);
    quillon::MemorySettingsStore store;
    quillon::AppModel model(host, store, dataFolder.path().toStdString());
    quillon::frmMain window(model, host);
    const quillon::MidiConnection midi(model, quillon::MidiApi::Sim, &window);
    quillon::StartUpSurroundings surroundings;
    surroundings.initMidi = quillon::doInitMIDI;
    if (!quillon::doFormLoadMain(model, surroundings))
        return 1;
    if (!file.empty() && form != "import")
        quillon::doOpenSysExFile(model, 0);
    if (form == "patch") {
        // OSC1 Setting first, then OSC1: the setting moves to the right frame.
        quillon::clickTreeNode(model, "SS13");
        quillon::clickTreeNode(model, sectionKeyOf(kOsc1Type));
    } else if (form == "received" || form == "pattern" || form == "bank" || form == "import") {
        quillon::doSendRequest(model, form == "pattern" ? kArpBankRequest : 1);
        const QDeadlineTimer deadline(10000);
        while (model.midi.requestPending != 0 && !deadline.hasExpired())
            QApplication::processEvents(QEventLoop::AllEvents, 50);
        if (form == "pattern")
            quillon::clickArpeggioList(model, kShownPattern);
        if (form == "bank") {
            // Bank A on show with a selection: a run made by SHIFT and one more.
            quillon::clickLoadedLabel(model, quillon::kPatchBankA, false);
            for (const auto& [patch, shift] : {std::pair{9, 0}, std::pair{13, quillon::kShiftKey}, std::pair{42, 0}}) {
                quillon::bankLabelMouseDown(model, patch, quillon::kLeftButton, shift);
                quillon::bankLabelClick(model, patch);
            }
        }
    } else if (form == "envelope") {
        model.settings.graphicEnvelope = true;
        quillon::clickTreeNode(model, "S2");  // EG1
    }
    // The editing screens are drawn a little larger than a first start;
    // the rest at the size the window has on its first start.
    const bool editing = form == "patch" || form == "envelope" || form == "pattern";
    if (editing)
        window.resize(1280, 720);
    window.show();

    QWidget* shown = &window;
    std::unique_ptr<QWidget> other;
    if (form == "settings") {
        other = std::make_unique<quillon::frmSettings>(model, 5);
    } else if (form == "help") {
        other = std::make_unique<quillon::HelpWindow>();
        static_cast<quillon::HelpWindow*>(other.get())->showContext(65);
    } else if (form == "params") {
        other = std::make_unique<quillon::frmParam>();
    } else if (form == "request") {
        auto request = std::make_unique<quillon::frmRequest>(model);
        request->doSetup();
        other = std::move(request);
    } else if (form == "midi") {
        other = std::make_unique<quillon::frmSettings>(model, 2);
    } else if (form == "about") {
        other = std::make_unique<quillon::frmAbout>();
    } else if (form == "mod") {
        model.settings.modulationShow = false;  // every source, in use or not
        other = std::make_unique<quillon::frmMod>(model);
    } else if (form == "import") {
        auto import = std::make_unique<quillon::frmImport>(model);
        if (!file.empty())
            import->showFolder(QString::fromStdString(file));
        other = std::move(import);
    }
    if (other) {
        other->show();
        shown = other.get();
    }
    QApplication::processEvents();
    if (!shown->grab().save(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}

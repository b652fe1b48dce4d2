#include "banks/screens/RemapMenus.h"

#include "banks/RemapCommands.h"
#include "banks/screens/frmRemap.h"
#include "shell/screens/QuillonApplication.h"
#include "shell/screens/frmMain.h"

#include <QAction>

#include <functional>

namespace quillon {

namespace {

// A failure of the command becomes the program's failure box.
void wire(frmMain& window, const char* name, std::function<void()> command)
{
    QAction* item = window.action(name);
    if (item == nullptr)
        return;
    item->setEnabled(true);
    QObject::connect(item, &QAction::triggered, &window,
                     [command = std::move(command)] { QuillonApplication::runCommand(command); });
}

}  // namespace

void wireRemapCommands(frmMain& window, AppModel& model)
{
    wire(window, "mnuMapOld", [&model] { mnuMapOld(model); });
    wire(window, "mnuMapNew", [&model] { mnuMapNew(model); });
    wire(window, "mnuCreateRemap", [&model] { mnuCreateRemap(model); });
    wire(window, "mnuShowRemap", [&model, &window] { showRemapForm(model, &window); });
    wire(window, "mnuRemapMultiset", [&model] { mnuRemapMultiset(model); });
    wire(window, "mnuRemapMultiBank", [&model] { mnuRemapMultiBank(model); });
}

}  // namespace quillon

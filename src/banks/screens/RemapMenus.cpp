#include "banks/screens/RemapMenus.h"

#include "banks/RemapCommands.h"
#include "banks/screens/frmRemap.h"
#include "shell/screens/QuillonApplication.h"
#include "shell/screens/frmMain.h"

#include <functional>

namespace quillon {

namespace {

void wire(frmMain& window, const char* name, std::function<void()> command)
{
    QuillonApplication::wireCommand(window.action(name), &window, std::move(command));
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

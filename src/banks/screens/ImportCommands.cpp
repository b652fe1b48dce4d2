#include "banks/screens/ImportCommands.h"

#include "banks/ExtractFiles.h"
#include "banks/screens/BankScreen.h"
#include "banks/screens/frmImport.h"
#include "shell/screens/QuillonApplication.h"

#include <QAction>
#include <QMainWindow>

namespace quillon {

void wireImportCommands(QMainWindow& window, AppModel& model, BankScreen& bankScreen)
{
    QuillonApplication::wireCommand(window.findChild<QAction*>("mnuImportToBank"), &window,
                                    [&model, &window] { showImportForm(model, &window); });
    bankScreen.setCommand("mnuExtractToFiles", [&model] { extractPatches(model); });
}

}  // namespace quillon

#include "banks/screens/RandomSpreadMenu.h"

#include "banks/RandomSpread.h"
#include "shell/screens/QuillonApplication.h"

#include <QAction>
#include <QWidget>

namespace quillon {

void wireRandomSpreadCommands(AppModel& model, QAction* randomBank, QAction* spreadBank, QWidget* parent)
{
    QuillonApplication::wireCommand(randomBank, parent, [&model] { mnuRandomBank(model); });
    QuillonApplication::wireCommand(spreadBank, parent, [&model] { mnuSpreadBank(model); });
}

}  // namespace quillon

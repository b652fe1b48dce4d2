#include "banks/screens/RandomSpreadMenu.h"

#include "banks/RandomSpread.h"
#include "shell/screens/QuillonApplication.h"

#include <QAction>
#include <QWidget>

#include <functional>

namespace quillon {

namespace {

// A failure of the command becomes the program's failure box.
void wire(QAction* action, std::function<void()> command, QWidget* parent)
{
    if (action == nullptr)
        return;
    action->setEnabled(true);
    QObject::connect(action, &QAction::triggered, parent,
                     [command = std::move(command)] { QuillonApplication::runCommand(command); });
}

}  // namespace

void wireRandomSpreadCommands(AppModel& model, QAction* randomBank, QAction* spreadBank, QWidget* parent)
{
    wire(randomBank, [&model] { mnuRandomBank(model); }, parent);
    wire(spreadBank, [&model] { mnuSpreadBank(model); }, parent);
}

}  // namespace quillon

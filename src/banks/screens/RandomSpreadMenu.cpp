#include "banks/screens/RandomSpreadMenu.h"

#include "banks/RandomSpread.h"
#include "shell/screens/QuillonApplication.h"

#include <QAction>
#include <QApplication>
#include <QMessageBox>

#include <exception>
#include <functional>

namespace quillon {

namespace {

void runReportingFailure(const std::function<void()>& command, QWidget* parent)
{
    try {
        command();
    } catch (const std::exception& error) {
        // The hourglass of the run that failed must not stay.
        while (QApplication::overrideCursor() != nullptr)
            QApplication::restoreOverrideCursor();
        QMessageBox box(QMessageBox::Warning, QuillonApplication::failureTitle(),
                        QuillonApplication::failureText(QString::fromLocal8Bit(error.what())), QMessageBox::Ok,
                        parent);
        box.exec();
    }
}

void wire(QAction* action, std::function<void()> command, QWidget* parent)
{
    if (action == nullptr)
        return;
    action->setEnabled(true);
    QObject::connect(action, &QAction::triggered, parent,
                     [command = std::move(command), parent] { runReportingFailure(command, parent); });
}

}  // namespace

void wireRandomSpreadCommands(AppModel& model, QAction* randomBank, QAction* spreadBank, QWidget* parent)
{
    wire(randomBank, [&model] { mnuRandomBank(model); }, parent);
    wire(spreadBank, [&model] { mnuSpreadBank(model); }, parent);
}

}  // namespace quillon

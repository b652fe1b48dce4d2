#include "shell/screens/QuillonApplication.h"

#include <QAction>
#include <QMessageBox>

#include <exception>

namespace quillon {

QuillonApplication::QuillonApplication(int& argc, char** argv) : QApplication(argc, argv) {}

QString QuillonApplication::failureText(const QString& reason)
{
    return "The command could not be finished and has been stopped. Your work is still in memory.\n\n[" + reason +
           "]";
}

bool QuillonApplication::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        reportFailure(QString::fromLocal8Bit(error.what()));
    } catch (...) {
        reportFailure("Unknown error");
    }
    return false;
}

void QuillonApplication::runCommand(const std::function<void()>& command)
{
    try {
        command();
    } catch (const std::exception& error) {
        report(QString::fromLocal8Bit(error.what()));
    } catch (...) {
        report("Unknown error");
    }
}

void QuillonApplication::wireCommand(QAction* item, QObject* context, std::function<void()> command)
{
    if (item == nullptr)
        return;
    item->setEnabled(true);
    connect(item, &QAction::triggered, context, [command = std::move(command)] { runCommand(command); });
}

void QuillonApplication::report(const QString& reason)
{
    if (auto* application = qobject_cast<QuillonApplication*>(QCoreApplication::instance())) {
        application->reportFailure(reason);
        return;
    }
    // Under another application object (a tool that borrows a screen) the
    // box is the same.
    while (QApplication::overrideCursor() != nullptr)
        QApplication::restoreOverrideCursor();
    QMessageBox box(QMessageBox::Warning, failureTitle(), failureText(reason), QMessageBox::Ok,
                    QApplication::activeWindow());
    box.exec();
}

void QuillonApplication::reportFailure(const QString& reason)
{
    // The hourglass of the command that failed must not stay.
    while (QApplication::overrideCursor() != nullptr)
        QApplication::restoreOverrideCursor();
    // A failure inside the box itself is not shown again.
    if (reporting_)
        return;
    reporting_ = true;
    QMessageBox box(QMessageBox::Warning, failureTitle(), failureText(reason), QMessageBox::Ok, activeWindow());
    box.exec();
    reporting_ = false;
}

}  // namespace quillon

#pragma once

#include <QApplication>
#include <QString>

#include <functional>

class QAction;

namespace quillon {

// The program's application object: the one place where the toolkit hands
// every event to the program. A failure that escapes a command there becomes
// a box with a fixed title, and the program goes on with the user's work in
// memory, instead of ending with it.
class QuillonApplication : public QApplication {
    Q_OBJECT
public:
    QuillonApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    static QString failureTitle() { return "Quillon Error"; }
    static QString failureText(const QString& reason);

    // Runs a command of a menu, a key or a button, and turns a failure into
    // the box before it reaches the toolkit. Commands are wired through
    // this, so that a failure never unwinds through the toolkit's own
    // frames (which the toolkit does not expect and where memory is lost);
    // notify stays the last guard for everything else.
    static void runCommand(const std::function<void()>& command);

    // Enables a menu item, toolbar action or popup item and runs its command
    // under runCommand when it is chosen; nothing when there is no item.
    static void wireCommand(QAction* item, QObject* context, std::function<void()> command);

private:
    static void report(const QString& reason);
    void reportFailure(const QString& reason);

    bool reporting_ = false;
};

}  // namespace quillon

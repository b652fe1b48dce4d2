#pragma once

#include <QApplication>
#include <QString>

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

private:
    void reportFailure(const QString& reason);

    bool reporting_ = false;
};

}  // namespace quillon

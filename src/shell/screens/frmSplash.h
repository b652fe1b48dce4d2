#pragma once

#include <QWidget>

class QTimer;

namespace quillon {

// The first form: the program's name and version while the main form is
// built; it closes two seconds after start-up has finished.
class frmSplash : public QWidget {
    Q_OBJECT
public:
    explicit frmSplash(QWidget* parent = nullptr);

    // Starts Timer1; on its tick the form closes.
    void closeAfterTwoSeconds();

    // "Version 0.1.0".
    static QString versionText();

private:
    QTimer* timer1_ = nullptr;
};

}  // namespace quillon

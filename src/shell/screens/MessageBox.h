#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QPushButton;

namespace quillon {

// The help topic of the MessageBox form.
inline constexpr int kMessageBoxHelpContext = 220;

// The answers the form gives, as the toolkit's boxes number them.
inline constexpr int kAnswerOk = 1;
inline constexpr int kAnswerCancel = 2;
inline constexpr int kAnswerYes = 6;
inline constexpr int kAnswerNo = 7;

// A message form with its own look, for the questions of a dialogue of
// several steps: style 3 asks Yes, No or Cancel, style 1 OK or Cancel, any
// other style just tells, with one OK. The caller reads the answer after the
// form has closed.
class MessageBox : public QDialog {
    Q_OBJECT
public:
    explicit MessageBox(QWidget* parent = nullptr);

    void setUp(const QString& text, int style, const QString& title);

    // 6 Yes, 7 No, 1 OK, 2 Cancel. Closing the window counts as Cancel
    // when the form offers it, else as OK.
    int answer() const { return answer_; }

private:
    void answerWith(QPushButton* button);

    int answer_ = kAnswerOk;
    QLabel* lblText_ = nullptr;
    QPushButton* cmdYesOrOK_ = nullptr;
    QPushButton* cmdNoOrOK_ = nullptr;
    QPushButton* cmdCancel_ = nullptr;
    QPushButton* cmdHelp_ = nullptr;
};

// Shows the form modally and gives its answer.
int showMessageBox(const QString& text, int style, const QString& title, QWidget* parent);

}  // namespace quillon

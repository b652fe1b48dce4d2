#pragma once

#include <QDialog>
#include <QString>

#include <functional>
#include <string>

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace quillon {

class UpDownButtons;

// What the bank commands tell the shared dialog: the names to show and where
// it starts.
struct DialogSource {
    // The name now standing at a place of the bank the mode means: mode 1 a
    // combined patch position 0 to 255, mode 4 a combined multiset position
    // 0 to 31, mode 5 a position 0 to 19 of the arpeggiator bank.
    std::function<std::string(int place)> nameAt;
    // Whether a bank Kind is loaded: modes 2 and 3 warn before a loaded
    // PatchBank (2 or 3) is overwritten, and start on B when A is loaded.
    std::function<bool(int kind)> bankLoaded;
    // The place the dialog starts on, numbered as for nameAt.
    int selectedPlace = 0;
    // The name of the item in the editor that goes into the bank.
    std::string newName;
};

// The choices on the dialog at one moment.
struct DialogChoice {
    bool bankB = false;  // Option2 rather than Option1
    int number = 0;      // the place in txtNum
    int listIndex = 0;   // the row of cmbTextChoice, -1 for none
};

// The dialog's result for a choice: mode 1 the combined patch position
// (place + 128 for bank B), modes 2 and 3 the PatchBank (2 or 3), mode 4 the
// combined multiset position (place + 16 for bank B), mode 5 the position in
// the arpeggiator bank (list row + 5, never below 5). -1 for any other mode.
int dialogResult(int mode, const DialogChoice& choice);

// The bank Kind a choice means: 2 or 3 for modes 1 to 3, 6 or 7 for mode 4,
// 8 for mode 5, 0 for any other mode.
int dialogBankKind(int mode, bool bankB);

// The caption, help context and highest place number of each mode; a mode
// without a number field has -1 as its highest place, an unknown mode the
// empty caption and context 0.
QString dialogCaption(int mode);
int dialogHelpContext(int mode);
int dialogPlaceMax(int mode);

// One form for the bank commands' questions: where to put the patch, the
// multiset or the pattern, and which PatchBank a generated bank replaces.
class Dialog : public QDialog {
    Q_OBJECT
public:
    explicit Dialog(DialogSource source, QWidget* parent = nullptr);

    // Sets the form up for mode 1 to 5; any other mode does nothing.
    void doSetup(int mode);

    int mode() const { return mode_; }
    // The result of the last change, or -1 after Cancel.
    int value() const { return value_; }
    // The bank Kind of the choice on the form.
    int bankKind() const;

    // The choice on the form now.
    DialogChoice choice() const;

protected:
    void done(int code) override;

private:
    void buildControls();
    // The common routine: recomputes the result and shows the name now at
    // the place chosen.
    void doUpdate();

    DialogSource source_;
    int mode_ = 0;
    int value_ = -1;
    bool settingUp_ = false;

    QGroupBox* fraOptAB_ = nullptr;
    QRadioButton* option1_ = nullptr;
    QRadioButton* option2_ = nullptr;
    QComboBox* cmbTextChoice_ = nullptr;
    QGroupBox* fraOptNum_ = nullptr;
    QLineEdit* txtNum_ = nullptr;
    UpDownButtons* updNum_ = nullptr;
    QLabel* lblOld_ = nullptr;
    QLabel* lblWith_ = nullptr;
    QLabel* lblCurrent_ = nullptr;
    QLabel* lblReplacement_ = nullptr;
    QPushButton* okButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
    QPushButton* cmdHelp_ = nullptr;
};

// Shows the dialog in a mode, modally, and gives its result: -1 on Cancel.
int runDialog(int mode, DialogSource source, QWidget* parent);

}  // namespace quillon

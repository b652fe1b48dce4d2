#pragma once

#include <QDialog>
#include <QString>

#include <string>

class QLineEdit;
class QPushButton;

namespace quillon {

class AppModel;

inline constexpr int kItemNameLength = 16;

// A typed name made ready for the instrument: blanks at both ends trimmed,
// an empty name "Unnamed", a longer one cut to 16 characters (tooLong then
// says the user must be told), and the whole padded with blanks to 16.
// Characters the instrument cannot show become "?".
struct PreparedName {
    std::string name;
    bool tooLong = false;
};
PreparedName prepareItemName(const QString& typed);

// The caption of the form and the title of its box, by Mode 1, 4, 5; empty
// for other Modes.
QString nameDialogCaption(int mode);
std::string nameTooLongTitle(int mode);

// The name of the item of a Mode as its edit buffer holds it, blanks at the
// right end trimmed.
QString currentItemName(const AppModel& model, int mode);

// What OK does with a typed name for the item of a Mode: tells the user when
// it is too long, stores it into the 16 name values of Current, repaints a
// pattern's label and shows the new name with its suggested file name.
void storeTypedName(AppModel& model, int mode, const QString& typed);

// Edits the name of the patch, multiset or pattern of the current Mode.
class frmName : public QDialog {
    Q_OBJECT
public:
    frmName(AppModel& model, QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    AppModel& model_;
    int mode_ = 0;
    QLineEdit* txtPatchName_ = nullptr;
};

}  // namespace quillon

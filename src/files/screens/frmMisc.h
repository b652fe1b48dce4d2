#pragma once

#include "files/MiscDialog.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QGroupBox;
class QPushButton;

namespace quillon {

class AppModel;

// The dialog for a message of several kinds (All Data, All Program, All
// Multi, Global, MIDI) from a file or the instrument: the user ticks which
// of its banks to take into the editor, or saves or sends it whole.
class frmMisc : public QDialog {
    Q_OBJECT
public:
    frmMisc(AppModel& model, MiscDialogState& state, QWidget* parent = nullptr);

private:
    void cmdLoadClick();
    void cmdSaveSendClick();

    AppModel& model_;
    MiscDialogState& state_;
    QGroupBox* fraExtract_ = nullptr;
    std::array<QCheckBox*, kMiscTypeBoxes> chkType_{};
    QPushButton* cmdSaveSend_ = nullptr;
};

}  // namespace quillon

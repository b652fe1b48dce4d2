#pragma once

#include "autosend/AutoSend.h"
#include "midi/screens/QtTimer.h"

#include <QDialog>

#include <array>

class QComboBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace quillon {

class AppModel;

// The help topic of the sound show.
inline constexpr int kAutoSendHelpContext = 170;

// Auto Send: the sound show of the selected patches of a PatchBank, with its
// interval, arpeggiator option, pattern and chord sequence, the buttons and
// the keys ALT (Start), CTRL (Mark) and PAUSE (Pause), on the two timers
// AutoTimer and miniTimer.
class frmAutoSend : public QDialog {
    Q_OBJECT

public:
    frmAutoSend(AppModel& model, int bank, QWidget* parent = nullptr);
    ~frmAutoSend() override;

    AutoSend& autoSend() { return show_; }
    QtTimer& autoTimer() { return autoTimer_; }
    QtTimer& miniTimer() { return miniTimer_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

public slots:
    void reject() override;

private:
    // The form's keys, before any control sees them; whether one was taken.
    bool takeKey(const QKeyEvent* event);
    void refresh();

    AppModel& model_;
    QtTimer autoTimer_{"AutoTimer"};
    QtTimer miniTimer_{"miniTimer"};
    AutoSend show_;
    bool closing_ = false;

    QComboBox* cmbInterval_ = nullptr;
    QComboBox* cmbPatternSelect_ = nullptr;
    QComboBox* cmbChordSeq_ = nullptr;
    std::array<QRadioButton*, 3> optArp_{};
    QPushButton* cmdPause_ = nullptr;
    QPushButton* cmdReselect_ = nullptr;
    QLabel* lblCurrentPatch_ = nullptr;
    QLabel* lblStartPatch_ = nullptr;
    QLabel* lblEndPatch_ = nullptr;
    QLabel* lblSelected_ = nullptr;
    QLabel* lblMarked_ = nullptr;
    QLabel* lblSent_ = nullptr;
    QLabel* lblSoundShow_ = nullptr;
    QLabel* lblPaused_ = nullptr;
};

// mnuAutoSend1 and mnuAutoSend2: the status lines emptied, then the form,
// modal, on the selection of the bank; nothing when the selection is empty.
void showAutoSendForm(AppModel& model, int bank, QWidget* parent);

}  // namespace quillon

#pragma once

#include "editors/ArpScreen.h"

#include <QWidget>

#include <array>

class QComboBox;
class QGroupBox;
class QLineEdit;
class QListWidget;

namespace quillon {

class AppModel;
class ClickLabel;
class ModelSignals;
class SpinArrows;
class ToneBox;

// The arpeggiator screen of Mode 5: fraArpSelect with lstArpeggio, fraArpSteps
// with the grid chkTone(0..359), its step markers and tone numbers, and
// fraArpParams with the thirteen rows, the step boxes, the tools COPY, INS,
// DEL, CLR and UNDO, the two copy settings and the block copies, placed by
// their twip measures. It mirrors model.arpScreen and hands every gesture to
// the editors' core; a box or label is touched only when what it shows has
// changed.
class ArpEditorScreen : public QWidget {
    Q_OBJECT
public:
    explicit ArpEditorScreen(AppModel& model, QWidget* parent = nullptr);
    ~ArpEditorScreen() override;

    // Shows what of the model changed (the ModelChange bits).
    void refresh(unsigned changes);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct RowControls {
        ClickLabel* name = nullptr;    // lblArpParamName
        QLineEdit* value = nullptr;    // txtArpParamVal
        SpinArrows* spin = nullptr;    // updArpParamVal
        ClickLabel* decode = nullptr;  // lblArpParamDecode; none on rows 10 and 11
    };

    QWidget* buildSelect(QWidget* canvas);
    QWidget* buildSteps(QWidget* canvas);
    QWidget* buildParams(QWidget* canvas);
    QWidget* buildCurrent(QWidget* canvas);
    QWidget* buildCopySettings(QWidget* canvas);
    QWidget* buildBlockCopy(QWidget* canvas);
    void buildRow(int row, QWidget* parent, int top);
    ClickLabel* toolLabel(const QString& name, const QString& caption, QWidget* parent);
    QLineEdit* stepBox(const QString& name, QWidget* parent);

    // Puts a widget at a place given in twips.
    void place(QWidget* widget, int left, int top, int width, int height) const;

    void mirrorGrid();
    void mirrorRows();
    void mirrorRow(int row);
    void mirrorList();

    AppModel& model_;
    ModelSignals* signals_ = nullptr;
    double scale_ = 1.0;

    std::array<ToneBox*, kToneBoxes> boxes_{};
    std::array<ClickLabel*, kArpSteps + 1> markers_{};
    std::array<ClickLabel*, kArpTones> toneNums_{};
    std::array<RowControls, kArpParamRows + 1> rows_;
    QLineEdit* stepNum_ = nullptr;    // txtStepNum
    SpinArrows* stepNumSpin_ = nullptr;
    QLineEdit* stepCount_ = nullptr;  // txtStepCount
    SpinArrows* stepCountSpin_ = nullptr;
    QComboBox* copyMode_ = nullptr;   // cmbStepCopyMode
    QComboBox* blockOptions_ = nullptr;  // cmbBlockOptions
    QListWidget* list_ = nullptr;     // lstArpeggio

    // What the grid shows, so that only the boxes and markers that change
    // are touched.
    std::array<ToneBoxView, kToneBoxes> shownBoxes_;
    std::array<StepMarkerView, kArpSteps + 1> shownMarkers_;
    bool gridShown_ = false;
};

}  // namespace quillon

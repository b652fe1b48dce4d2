#pragma once

#include "editors/ModList.h"

#include <QDialog>

#include <array>

class QGridLayout;
class QLabel;
class QLineEdit;
class QScrollBar;

namespace quillon {

class AppModel;
class ClickLabel;
class SpinArrows;

// The modulation sources of the patch in one scrolling list of fifteen
// rows, edited in place: each row names its section and subsection (a click
// goes there on the patch screen), the source, its value box with spin
// arrows and the decoded value. It mirrors a ModList and hands the user's
// gestures to the editors' core.
class frmMod : public QDialog {
    Q_OBJECT
public:
    explicit frmMod(AppModel& model, QWidget* parent = nullptr);

    const ModList& list() const { return list_; }

private:
    struct RowControls {
        ClickLabel* sect = nullptr;       // lblSect
        ClickLabel* subsect = nullptr;    // lblSubsect
        ClickLabel* name = nullptr;       // lblParamName
        QLineEdit* value = nullptr;       // txtParamVal
        SpinArrows* spin = nullptr;       // updParamVal
        ClickLabel* decode = nullptr;     // lblParamDecode
    };

    void buildRow(int row, QGridLayout* grid);
    void mirror();
    void mirrorRow(int row);
    void print();
    bool eventFilter(QObject* watched, QEvent* event) override;

    AppModel& model_;
    ModList list_;
    QLabel* showHead_ = nullptr;  // lblModShowHead
    QScrollBar* scroll_ = nullptr;  // vsbArrayNo
    std::array<RowControls, kModScreenRows> rows_;
};

// mnuPatchModSources and the toolbar key "mod": frmMod, modal, on the patch
// in the editor; "No patch loaded" when there is none.
void showModSources(AppModel& model, QWidget* parent);

}  // namespace quillon

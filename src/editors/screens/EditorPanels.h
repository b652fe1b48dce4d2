#pragma once

#include <QWidget>

#include <array>

class QComboBox;
class QLabel;
class QToolButton;

namespace quillon {

class AppModel;
class ClickLabel;

// fraPatchGroup: the patch screen's group buttons lblGroup(0..9), the
// caption of the group in use and the arrows that step through it.
class PatchGroupPanel : public QWidget {
    Q_OBJECT
public:
    PatchGroupPanel(AppModel& model, QWidget* parent);
    // Shows model.layout.nav.
    void mirror();

private:
    AppModel& model_;
    std::array<ClickLabel*, 10> groups_{};
    QLabel* selected_ = nullptr;     // lblGroupSelected
    QWidget* subSections_ = nullptr; // fraSubSections
};

// fraMultiSelect: the multi screen's fraMultiBank (the labels of the two
// multi banks, which choose what the Send command sends, and their lists),
// its section buttons lblMultiSect(0..10), the selection label and its
// arrows.
class MultiSelectPanel : public QWidget {
    Q_OBJECT
public:
    MultiSelectPanel(AppModel& model, QWidget* parent);
    // Shows model.multiSelect and the bold button of model.layout.nav.
    void mirror();
    // Shows the two multi bank labels as model.labels has them.
    void mirrorLabels();

private:
    AppModel& model_;
    ClickLabel* labelA_ = nullptr;  // lblMultiBankA
    ClickLabel* labelB_ = nullptr;  // lblMultiBankB
    QComboBox* bankA_ = nullptr;  // cmbMultiBankA
    QComboBox* bankB_ = nullptr;  // cmbMultiBankB
    std::array<ClickLabel*, 11> sections_{};
    ClickLabel* sectSel_ = nullptr;  // lblMultiSectSel
    QWidget* sectionsFrame_ = nullptr;  // fraMultiSections
};

}  // namespace quillon

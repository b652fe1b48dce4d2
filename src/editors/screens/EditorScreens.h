#pragma once

#include "editors/FloatingSlider.h"
#include "editors/ScreenLayout.h"

#include <QWidget>

#include <array>

class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QSlider;
class QToolButton;
class QTreeWidget;
class QVBoxLayout;

namespace quillon {

class FavouritesBar;

class AppModel;
class ClickLabel;
class EnvelopeView;
class ModelSignals;
class MultiSelectPanel;
class PatchGroupPanel;
class SpinArrows;

// The patch and multi editing screens, fraEditor: the section tree or the
// group panel (the multi screen's fraMultiSelect in its place), the two
// frames of parameter rows, the envelope graph standing in one frame's
// place, the trail buttons and the floating sliders. It mirrors
// model.layout, model.envelope and model.multiSelect, and hands the user's
// gestures to the editors' core.
class EditorScreens : public QWidget {
    Q_OBJECT
public:
    explicit EditorScreens(AppModel& model, QWidget* parent = nullptr);
    ~EditorScreens() override;

    // Shows what of the model changed (the ModelChange bits).
    void refresh(unsigned changes);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // One frame's own controls.
    struct FrameControls {
        QWidget* slot = nullptr;        // the place fraParams or fraEnvelope stands in
        QVBoxLayout* slotLayout = nullptr;
        QGroupBox* box = nullptr;       // fraParams
        QLabel* subsect = nullptr;      // lblSubsect
        QToolButton* fastUp = nullptr;  // cmdFastUp
        QToolButton* up = nullptr;      // cmdUp
        QToolButton* down = nullptr;    // cmdDown
        QToolButton* fastDown = nullptr;  // cmdFastDown
        bool coloured = false;
    };
    // One parameter row's controls.
    struct RowControls {
        ClickLabel* name = nullptr;     // lblParamName
        QLineEdit* value = nullptr;     // txtParamVal
        SpinArrows* spin = nullptr;     // updParamVal
        QToolButton* slider = nullptr;  // cmdSliderLink
        ClickLabel* decode = nullptr;   // lblParamDecode
    };

    QWidget* buildLeftColumn();
    void buildFrame(int frame);
    void buildRow(int row, QWidget* parent, QGridLayout* grid, int gridRow);
    void wireRow(int row);

    void mirrorFrame(int frame);
    void mirrorRow(int row);
    void mirrorNavigation();
    void mirrorSliders();
    void placeEnvelope();

    // The row gestures, each followed by the row's mirror.
    void pressSlider(int row);
    void moveSlider(QObject* source, const QPointF& position, bool leftDown);
    void closeSlider();

    AppModel& model_;
    ModelSignals* signals_ = nullptr;
    QTreeWidget* tree_ = nullptr;
    PatchGroupPanel* group_ = nullptr;
    MultiSelectPanel* multi_ = nullptr;
    EnvelopeView* envelope_ = nullptr;
    QWidget* backForward_ = nullptr;  // fraBackForward
    FavouritesBar* favourites_ = nullptr;
    std::array<FrameControls, 3> frames_;
    std::array<RowControls, kScreenRows> rows_;
    std::array<QSlider*, 3> floating_{};  // sldFloating 1 and 2
    FloatingSliders sliders_;
    bool mirroring_ = false;
    int mouseFocusRow_ = -1;  // the row whose box a mouse press just gave the focus
};

}  // namespace quillon

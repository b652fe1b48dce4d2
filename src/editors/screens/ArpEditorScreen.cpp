#include "editors/screens/ArpEditorScreen.h"

#include "editors/ArpCommands.h"
#include "editors/ArpRowEdit.h"
#include "editors/ArpStepTools.h"
#include "editors/ValueGestures.h"
#include "editors/screens/EditorWidgets.h"
#include "shell/AppModel.h"
#include "shell/screens/ModelSignals.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFontDatabase>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <functional>

namespace quillon {

// chkTone(i): a check box that, after its click, reports the release of the
// mouse on it, which makes its step the current one.
class ToneBox : public QCheckBox {
public:
    ToneBox(QWidget* parent, std::function<void()> released) : QCheckBox(parent), released_(std::move(released)) {}

protected:
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        QCheckBox::mouseReleaseEvent(event);
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
            released_();
    }

private:
    std::function<void()> released_;
};

namespace {

// The places of the screen's parts, in twips. The grid's own measures are
// the instrument editor's: a column of 265 and a row of 220 twips.
constexpr int kMargin = 60;
constexpr int kSelectWidth = 2100;
constexpr int kStepsLeft = kMargin + kSelectWidth + 90;
constexpr int kStepsWidth = 10900;
constexpr int kStepsHeight = 2940;
constexpr int kLowerTop = kMargin + kStepsHeight + 90;
constexpr int kLowerHeight = 2940;
constexpr int kRowsWidth = 4500;
constexpr int kCurrentLeft = kStepsLeft + kRowsWidth + 100;
constexpr int kSettingsLeft = kCurrentLeft + kRowsWidth + 100;
constexpr int kBlockWidth = 4240;
constexpr int kCanvasWidth = kSettingsLeft + kBlockWidth + kMargin;
constexpr int kCanvasHeight = kLowerTop + kLowerHeight + kMargin;

constexpr int kColumnWidth = 265;
constexpr int kToneRowHeight = 220;
constexpr int kGridLeft = 1200;
constexpr int kGridTop = 600;
constexpr int kToneNumLeft = 900;
constexpr int kToneNumBottom = 2560;  // top of tone 0's caption
constexpr int kMarkerTop = 330;

// A parameter row: name, value box, spin arrows, decode label.
constexpr int kRowTop = 300;
constexpr int kRowPitch = 280;
constexpr int kRowHeight = 256;
constexpr int kNameLeft = 120;
constexpr int kNameWidth = 2100;
constexpr int kValueLeft = 2280;
constexpr int kValueWidth = 620;
constexpr int kSpinLeft = 2910;
constexpr int kSpinWidth = 255;
constexpr int kDecodeLeft = 3210;
constexpr int kDecodeWidth = 1200;

constexpr int kToolWidth = 760;
constexpr int kToolHeight = 330;
constexpr int kBlockLabelWidth = 900;
constexpr int kToolScheme = 2;  // the tool labels and the block copies

QString colourSheet(const ColourScheme& colours, const QWidget* widget)
{
    return colourStyle(colours, widget) + " padding-left: 3px;";
}

QGroupBox* frame(const QString& name, const QString& title, QWidget* parent)
{
    auto* box = new QGroupBox(title, parent);
    box->setObjectName(name);
    return box;
}

}  // namespace

ArpEditorScreen::ArpEditorScreen(AppModel& model, QWidget* parent) : QWidget(parent), model_(model)
{
    setObjectName("fraArpEditor");
    scale_ = screenScale(this);
    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    auto* canvas = new QWidget(scroll);
    canvas->setFixedSize(twipsToPixels(kCanvasWidth, scale_), twipsToPixels(kCanvasHeight, scale_));
    buildSelect(canvas);
    buildSteps(canvas);
    buildParams(canvas);
    buildCurrent(canvas);
    buildCopySettings(canvas);
    buildBlockCopy(canvas);
    scroll->setWidget(canvas);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scroll);

    signals_ = new ModelSignals(model_, this);
    connect(signals_, &ModelSignals::changed, this, &ArpEditorScreen::refresh);
    refresh(~0u);
}

ArpEditorScreen::~ArpEditorScreen() = default;

void ArpEditorScreen::place(QWidget* widget, int left, int top, int width, int height) const
{
    widget->setGeometry(twipsToPixels(left, scale_), twipsToPixels(top, scale_), twipsToPixels(width, scale_),
                        twipsToPixels(height, scale_));
}

QWidget* ArpEditorScreen::buildSelect(QWidget* canvas)
{
    QGroupBox* box = frame("fraArpSelect", "Arpeggiator Bank", canvas);
    place(box, kMargin, kMargin, kSelectWidth, kCanvasHeight - 2 * kMargin);
    list_ = new QListWidget(box);
    list_->setObjectName("lstArpeggio");
    place(list_, 90, 300, kSelectWidth - 180, kCanvasHeight - 2 * kMargin - 390);
    connect(list_, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { clickArpeggioList(model_, list_->row(item)); });
    connect(list_, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { clickArpeggioList(model_, list_->row(item)); });
    return box;
}

QWidget* ArpEditorScreen::buildSteps(QWidget* canvas)
{
    QGroupBox* box = frame("fraArpSteps", "Steps", canvas);
    place(box, kStepsLeft, kMargin, kStepsWidth, kStepsHeight);
    const QFont small = QFontDatabase::systemFont(QFontDatabase::SmallestReadableFont);
    for (int step = 1; step <= kArpSteps; ++step) {
        const int left = kGridLeft + (step - 1) * kColumnWidth;
        auto* marker = new ClickLabel(QString::number(step), box);
        marker->setObjectName(QString("lblStepMarker_%1").arg(step));
        marker->setAlignment(Qt::AlignCenter);
        marker->setFont(small);
        place(marker, left, kMarkerTop, kColumnWidth - 15, kToneRowHeight);
        connect(marker, &ClickLabel::released, this, [this, step](Qt::MouseButton button) {
            if (button == Qt::LeftButton)
                clickStepMarker(model_, step);
        });
        markers_[static_cast<std::size_t>(step)] = marker;
        for (int tone = 0; tone < kArpTones; ++tone) {
            const int index = toneBoxIndex(step, tone);
            auto* toneBox = new ToneBox(box, [this, index] { releaseToneBox(model_, index); });
            toneBox->setObjectName(QString("chkTone_%1").arg(index));
            toneBox->setToolTip(QString("Step %1, tone %2").arg(step).arg(tone));
            place(toneBox, left + 20, kGridTop + (kArpTones - 1 - tone) * kToneRowHeight, kColumnWidth - 20,
                  kToneRowHeight);
            connect(toneBox, &QCheckBox::clicked, this,
                    [this, index](bool checked) { clickToneBox(model_, index, checked); });
            boxes_[static_cast<std::size_t>(index)] = toneBox;
        }
    }
    for (int tone = 0; tone < kArpTones; ++tone) {
        auto* number = new ClickLabel(QString::number(tone), box);
        number->setObjectName(QString("lblToneNum_%1").arg(tone));
        number->setAlignment(Qt::AlignCenter);
        number->setFont(small);
        place(number, kToneNumLeft, kToneNumBottom - tone * kToneRowHeight, kColumnWidth, kToneRowHeight);
        connect(number, &ClickLabel::released, this, [this, tone](Qt::MouseButton button) {
            if (button == Qt::LeftButton)
                clickToneNum(model_, tone);
        });
        toneNums_[static_cast<std::size_t>(tone)] = number;
    }
    return box;
}

void ArpEditorScreen::buildRow(int row, QWidget* parent, int top)
{
    RowControls& r = rows_[static_cast<std::size_t>(row)];
    const QString n = QString::number(row);
    r.name = new ClickLabel(parent);
    r.name->setObjectName("lblArpParamName_" + n);
    place(r.name, kNameLeft, top, kNameWidth, kRowHeight);
    r.value = new QLineEdit(parent);
    r.value->setObjectName("txtArpParamVal_" + n);
    r.value->setAlignment(Qt::AlignRight);
    r.value->setStyleSheet(schemeStyle(kParamValueScheme, this));
    place(r.value, kValueLeft, top, kValueWidth, kRowHeight);
    r.spin = new SpinArrows(parent);
    r.spin->setObjectName("updArpParamVal_" + n);
    place(r.spin, kSpinLeft, top, kSpinWidth, kRowHeight);
    if (row != 10 && row != 11) {
        r.decode = new ClickLabel(parent);
        r.decode->setObjectName("lblArpParamDecode_" + n);
        r.decode->setToolTip(kParamDecodeTip);
        r.decode->setStyleSheet(schemeStyle(kParamDecodeScheme, this) + " padding-left: 3px;");
        place(r.decode, kDecodeLeft, top, kDecodeWidth, kRowHeight);
        connect(r.decode, &ClickLabel::doubleClicked, this, [this, row] {
            editArpRow(model_, row, [](AppModel& m, ValueBox& b) { return doubleClickParamDecode(m, b); });
        });
    }
    connect(r.value, &QLineEdit::textEdited, this,
            [this, row](const QString& text) { changeArpRow(model_, row, text.toStdString()); });
    connect(r.spin, &SpinArrows::stepped, this, [this, row](bool up) {
        editArpRow(model_, row, [up](AppModel& m, ValueBox& b) { return clickSpin(m, b, up); });
    });
    connect(r.spin, &SpinArrows::rightPressed, this, [this, row](int y) {
        editArpRow(model_, row, [y](AppModel& m, ValueBox& b) { return rightPressSpin(m, b, y); });
    });
    connect(r.name, &ClickLabel::released, this, [this, row](Qt::MouseButton button) {
        if (button == Qt::LeftButton)
            clickArpParamName(model_, row);
    });
    r.value->installEventFilter(this);
}

QWidget* ArpEditorScreen::buildParams(QWidget* canvas)
{
    QGroupBox* box = frame("fraArpParams", "Pattern", canvas);
    place(box, kStepsLeft, kLowerTop, kRowsWidth, kLowerHeight);
    for (int row = 1; row < kFirstStepRow; ++row)
        buildRow(row, box, kRowTop + (row - 1) * kRowPitch);
    return box;
}

ClickLabel* ArpEditorScreen::toolLabel(const QString& name, const QString& caption, QWidget* parent)
{
    auto* label = new ClickLabel(caption, parent);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    label->setStyleSheet(schemeStyle(kToolScheme, this));
    label->setCursor(Qt::PointingHandCursor);
    return label;
}

QLineEdit* ArpEditorScreen::stepBox(const QString& name, QWidget* parent)
{
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    box->setAlignment(Qt::AlignRight);
    box->setStyleSheet(schemeStyle(kParamValueScheme, this));
    box->installEventFilter(this);
    return box;
}

QWidget* ArpEditorScreen::buildCurrent(QWidget* canvas)
{
    QGroupBox* box = frame("fraArpSingle", "Current", canvas);
    place(box, kCurrentLeft, kLowerTop, kRowsWidth, kLowerHeight);

    auto* stepCaption = new QLabel("Step", box);
    place(stepCaption, kNameLeft, kRowTop, kNameWidth, kRowHeight);
    stepNum_ = stepBox("txtStepNum", box);
    place(stepNum_, kValueLeft, kRowTop, kValueWidth, kRowHeight);
    stepNumSpin_ = new SpinArrows(box);
    stepNumSpin_->setObjectName("updStepNum");
    place(stepNumSpin_, kSpinLeft, kRowTop, kSpinWidth, kRowHeight);
    connect(stepNum_, &QLineEdit::textEdited, this,
            [this](const QString& text) { changeStepNum(model_, text.toStdString()); });
    connect(stepNumSpin_, &SpinArrows::stepped, this, [this](bool up) { spinStepNum(model_, up); });

    for (int row = kFirstStepRow; row <= kArpParamRows; ++row)
        buildRow(row, box, kRowTop + (row - kFirstStepRow + 1) * kRowPitch);

    const int targetTop = kRowTop + 5 * kRowPitch + 120;
    auto* targetCaption = new QLabel("COPY to step", box);
    place(targetCaption, kNameLeft, targetTop, kNameWidth, kRowHeight);
    stepCount_ = stepBox("txtStepCount", box);
    place(stepCount_, kValueLeft, targetTop, kValueWidth, kRowHeight);
    stepCountSpin_ = new SpinArrows(box);
    stepCountSpin_->setObjectName("updStepCount");
    place(stepCountSpin_, kSpinLeft, targetTop, kSpinWidth, kRowHeight);
    connect(stepCount_, &QLineEdit::textEdited, this,
            [this](const QString& text) { changeStepCount(model_, text.toStdString()); });
    connect(stepCountSpin_, &SpinArrows::stepped, this, [this](bool up) { spinStepCount(model_, up); });

    struct Tool {
        const char* name;
        const char* caption;
        void (*run)(AppModel&);
    };
    constexpr Tool kTools[] = {
        {"lblArpCopy", "COPY", clickArpCopy},     {"lblArpInsert", "INS", clickArpInsert},
        {"lblArpDelete", "DEL", clickArpDelete},  {"lblArpClear", "CLR", clickArpClear},
        {"lblArpUndo", "UNDO", clickArpUndo},
    };
    const int toolTop = targetTop + kRowPitch + 120;
    for (int i = 0; i < static_cast<int>(std::size(kTools)); ++i) {
        const Tool& tool = kTools[i];
        ClickLabel* label = toolLabel(tool.name, tool.caption, box);
        place(label, kNameLeft + i * (kToolWidth + 60), toolTop, kToolWidth, kToolHeight);
        connect(label, &ClickLabel::released, this, [this, run = tool.run](Qt::MouseButton button) {
            if (button == Qt::LeftButton)
                run(model_);
        });
    }
    return box;
}

QWidget* ArpEditorScreen::buildCopySettings(QWidget* canvas)
{
    const int half = (kBlockWidth - 80) / 2;
    QGroupBox* modeBox = frame("fraStepCopyMode", "Step Copy Mode", canvas);
    place(modeBox, kSettingsLeft, kLowerTop, half, 700);
    copyMode_ = new QComboBox(modeBox);
    copyMode_->setObjectName("cmbStepCopyMode");
    for (std::string_view item : kStepCopyModes)
        copyMode_->addItem(QString::fromUtf8(item.data(), static_cast<qsizetype>(item.size())));
    place(copyMode_, 90, 280, half - 180, 330);
    connect(copyMode_, &QComboBox::activated, this, [this](int index) { selectStepCopyMode(model_, index); });

    QGroupBox* optionBox = frame("fraBlockOptions", "Block Options", canvas);
    place(optionBox, kSettingsLeft + half + 80, kLowerTop, half, 700);
    blockOptions_ = new QComboBox(optionBox);
    blockOptions_->setObjectName("cmbBlockOptions");
    for (std::string_view item : kBlockOptions)
        blockOptions_->addItem(QString::fromUtf8(item.data(), static_cast<qsizetype>(item.size())));
    place(blockOptions_, 90, 280, half - 180, 330);
    connect(blockOptions_, &QComboBox::activated, this, [this](int index) { selectBlockOption(model_, index); });
    return modeBox;
}

QWidget* ArpEditorScreen::buildBlockCopy(QWidget* canvas)
{
    QGroupBox* box = frame("fraBlockCopy", "Step Block Copy", canvas);
    place(box, kSettingsLeft, kLowerTop + 800, kBlockWidth, 1900);
    for (int i = 0; i < kBlockCopyButtons; ++i) {
        const std::string_view caption = kBlockCopyTable[static_cast<std::size_t>(i)].caption;
        ClickLabel* label = toolLabel(QString("lblArpStepBlockCopy_%1").arg(i),
                                      QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size())), box);
        place(label, (i % 4) * 1000 + 240, (i / 4) * 400 + 240, kBlockLabelWidth, kToolHeight);
        connect(label, &ClickLabel::released, this, [this, i](Qt::MouseButton button) {
            if (button == Qt::LeftButton)
                clickArpBlockCopy(model_, i);
        });
    }
    return box;
}

bool ArpEditorScreen::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::FocusIn && type != QEvent::MouseButtonDblClick)
        return QWidget::eventFilter(watched, event);
    // Every box selects its text when it receives the focus, so that typing
    // replaces it.
    if (type == QEvent::FocusIn) {
        if (auto* box = qobject_cast<QLineEdit*>(watched))
            box->selectAll();
        return false;
    }
    if (watched == stepNum_) {
        doubleClickStepNum(model_);
        return true;
    }
    if (watched == stepCount_) {
        doubleClickStepCount(model_);
        return true;
    }
    for (int row = 1; row <= kArpParamRows; ++row) {
        if (watched == rows_[static_cast<std::size_t>(row)].value) {
            editArpRow(model_, row, [](AppModel& m, ValueBox& b) { return doubleClickValueBox(m, b); });
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void ArpEditorScreen::refresh(unsigned changes)
{
    if (changes & kPatternGridChanged)
        mirrorGrid();
    if (changes & kPatternRowsChanged)
        mirrorRows();
}

void ArpEditorScreen::mirrorGrid()
{
    const ArpScreenView& view = model_.arpScreen;
    for (int i = 0; i < kToneBoxes; ++i) {
        const ToneBoxView& want = view.chkTone[static_cast<std::size_t>(i)];
        ToneBoxView& shown = shownBoxes_[static_cast<std::size_t>(i)];
        ToneBox* box = boxes_[static_cast<std::size_t>(i)];
        if (!gridShown_ || shown.checked != want.checked) {
            const QSignalBlocker blocker(box);
            box->setChecked(want.checked);
        }
        if (!gridShown_ || shown.enabled != want.enabled)
            box->setEnabled(want.enabled);
        shown = want;
    }
    for (int step = 1; step <= kArpSteps; ++step) {
        const StepMarkerView& want = view.lblStepMarker[static_cast<std::size_t>(step)];
        StepMarkerView& shown = shownMarkers_[static_cast<std::size_t>(step)];
        ClickLabel* marker = markers_[static_cast<std::size_t>(step)];
        if (!gridShown_ || shown.current != want.current)
            restyle(marker, colourSheet(want.current ? kCurrentStepColour : kButtonFaceColour, this));
        if (!gridShown_ || shown.enabled != want.enabled)
            marker->setEnabled(want.enabled);
        shown = want;
    }
    gridShown_ = true;
}

void ArpEditorScreen::mirrorRow(int row)
{
    const ArpScreenView& view = model_.arpScreen;
    const ValueBox& box = view.rows[static_cast<std::size_t>(row)];
    RowControls& r = rows_[static_cast<std::size_t>(row)];
    const QString name = QString::fromStdString(view.rowName[static_cast<std::size_t>(row)]);
    if (r.name->text() != name)
        r.name->setText(name);
    restyle(r.name, colourSheet(view.rowNameColour[static_cast<std::size_t>(row)], this));
    showRowValue(r.value, r.spin, QString::fromStdString(box.text), spinValue(box), box.min, box.max);
    if (r.decode != nullptr) {
        const QString decode = QString::fromStdString(box.decode);
        if (r.decode->text() != decode)
            r.decode->setText(decode);
    }
}

void ArpEditorScreen::mirrorRows()
{
    const ArpScreenView& view = model_.arpScreen;
    const ArpEditorState& state = model_.buffers.arpEditor;
    for (int row = 1; row <= kArpParamRows; ++row)
        mirrorRow(row);
    showRowValue(stepNum_, stepNumSpin_, QString::fromStdString(view.txtStepNum), state.StepNum, 1, kArpSteps);
    showRowValue(stepCount_, stepCountSpin_, QString::fromStdString(view.txtStepCount), state.StepTarget, 1,
                 kArpSteps);
    for (int tone = 0; tone < kArpTones; ++tone)
        restyle(toneNums_[static_cast<std::size_t>(tone)],
                colourSheet(view.toneNumColour[static_cast<std::size_t>(tone)], this));
    if (copyMode_->currentIndex() != state.StepCopyMode) {
        const QSignalBlocker blocker(copyMode_);
        copyMode_->setCurrentIndex(state.StepCopyMode);
    }
    if (blockOptions_->currentIndex() != state.BlockOption) {
        const QSignalBlocker blocker(blockOptions_);
        blockOptions_->setCurrentIndex(state.BlockOption);
    }
    mirrorList();
}

void ArpEditorScreen::mirrorList()
{
    const std::vector<std::string>& names = model_.arpScreen.lstArpeggio;
    bool same = list_->count() == static_cast<int>(names.size());
    for (int i = 0; same && i < list_->count(); ++i)
        same = list_->item(i)->text() == QString::fromStdString(names[static_cast<std::size_t>(i)]);
    if (same)
        return;
    const QSignalBlocker blocker(list_);
    list_->clear();
    for (const std::string& name : names)
        list_->addItem(QString::fromStdString(name));
}

}  // namespace quillon

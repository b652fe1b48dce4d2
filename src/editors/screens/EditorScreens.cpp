#include "editors/screens/EditorScreens.h"

#include "editors/screens/FavouritesBar.h"

#include "editors/Frames.h"
#include "editors/Navigation.h"
#include "editors/ParamRowEdit.h"
#include "editors/ValueBox.h"
#include "editors/ValueGestures.h"
#include "editors/ValueNote.h"
#include "editors/screens/EditorPanels.h"
#include "editors/screens/EditorWidgets.h"
#include "editors/screens/EnvelopeView.h"
#include "shell/AppModel.h"
#include "shell/screens/ModelSignals.h"

#include <QEvent>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <map>

namespace quillon {

namespace {

// Measures of the rows, in twips.
constexpr int kNameWidth = 1900;
constexpr int kValueWidth = 620;
constexpr int kSpinWidth = 255;
constexpr int kRowHeight = 256;  // the spin's halves meet at kSpinArrowHeight
constexpr int kLinkWidth = 180;
constexpr int kDecodeWidth = 1900;
constexpr int kTreeWidth = 2900;

QString text(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

QToolButton* arrowButton(const QString& name, Qt::ArrowType arrow, const QString& caption, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    if (caption.isEmpty())
        button->setArrowType(arrow);
    else
        button->setText(caption);
    button->setAutoRaise(true);
    return button;
}

// Only the caption turns bold: a font set on the frame would pass to its rows.
void setCaptionBold(QGroupBox* box, bool bold)
{
    restyle(box, bold ? "QGroupBox { font-weight: bold; }" : QString());
}

}  // namespace

EditorScreens::EditorScreens(AppModel& model, QWidget* parent) : QWidget(parent), model_(model)
{
    setObjectName("fraEditor");
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(4, 4, 4, 4);
    columns->addWidget(buildLeftColumn());
    for (int frame = 1; frame <= 2; ++frame) {
        buildFrame(frame);
        columns->addWidget(frames_[static_cast<std::size_t>(frame)].slot, 1);
        favourites_->watchDragSource(frames_[static_cast<std::size_t>(frame)].subsect);
    }

    envelope_ = new EnvelopeView(model_, this);
    envelope_->hide();

    for (int i = 1; i <= 2; ++i) {
        auto* slider = new QSlider(Qt::Horizontal, this);
        slider->setObjectName(QString("sldFloating_%1").arg(i));
        slider->setFocusPolicy(Qt::StrongFocus);
        slider->hide();
        slider->installEventFilter(this);
        floating_[static_cast<std::size_t>(i)] = slider;
    }

    signals_ = new ModelSignals(model_, this);
    connect(signals_, &ModelSignals::changed, this, &EditorScreens::refresh);
    refresh(~0u);
}

EditorScreens::~EditorScreens() = default;

QWidget* EditorScreens::buildLeftColumn()
{
    const double scale = screenScale(this);
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);

    tree_ = new QTreeWidget(column);
    tree_->setObjectName("trvSection");
    tree_->setHeaderHidden(true);
    tree_->setFixedWidth(twipsToPixels(kTreeWidth, scale));
    std::map<std::string, QTreeWidgetItem*> items;
    for (const TreeNode& node : sectionTree()) {
        QTreeWidgetItem* item = nullptr;
        auto parent = items.find(node.parentKey);
        if (node.parentKey.empty() || parent == items.end())
            item = new QTreeWidgetItem(tree_);
        else
            item = new QTreeWidgetItem(parent->second);
        item->setText(0, QString::fromStdString(node.text));
        item->setData(0, Qt::UserRole, QString::fromStdString(node.key));
        items[node.key] = item;
    }
    for (const TreeNode& node : sectionTree())
        items[node.key]->setExpanded(node.expanded);
    connect(tree_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        clickTreeNode(model_, item->data(0, Qt::UserRole).toString().toStdString());
    });
    layout->addWidget(tree_, 1);

    group_ = new PatchGroupPanel(model_, column);
    group_->setFixedWidth(twipsToPixels(kTreeWidth, scale));
    layout->addWidget(group_, 1);
    multi_ = new MultiSelectPanel(model_, column);
    multi_->setFixedWidth(twipsToPixels(kTreeWidth, scale));
    layout->addWidget(multi_, 1);

    backForward_ = new QWidget(column);
    backForward_->setObjectName("fraBackForward");
    auto* trail = new QHBoxLayout(backForward_);
    trail->setContentsMargins(0, 0, 0, 0);
    auto* back = arrowButton("cmdBack", Qt::LeftArrow, QString(), backForward_);
    auto* forward = arrowButton("cmdForward", Qt::RightArrow, QString(), backForward_);
    for (QToolButton* button : {back, forward}) {
        button->setToolTip(text(kTrailTip));
        // The focus stays on the button clicked, not on a value box of the
        // rows it shows, where a stray digit would overwrite a value.
        button->setFocusPolicy(Qt::StrongFocus);
        trail->addWidget(button);
    }
    trail->addStretch(1);
    connect(back, &QToolButton::clicked, this, [this] { trailMove(model_, -1); });
    connect(forward, &QToolButton::clicked, this, [this] { trailMove(model_, +1); });
    layout->addWidget(backForward_);
    favourites_ = new FavouritesBar(model_, column);
    favourites_->setFixedWidth(twipsToPixels(kTreeWidth, scale));
    layout->addWidget(favourites_);
    return column;
}

void EditorScreens::buildFrame(int frame)
{
    FrameControls& f = frames_[static_cast<std::size_t>(frame)];
    f.slot = new QWidget(this);
    f.slotLayout = new QVBoxLayout(f.slot);
    f.slotLayout->setContentsMargins(0, 0, 0, 0);
    f.box = new QGroupBox(f.slot);
    f.box->setObjectName(QString("fraParams_%1").arg(frame));
    f.slotLayout->addWidget(f.box);
    f.slotLayout->addStretch(1);

    auto* layout = new QVBoxLayout(f.box);
    auto* head = new QHBoxLayout;
    f.subsect = new QLabel(f.box);
    f.subsect->setObjectName(QString("lblSubsect_%1").arg(frame));
    f.subsect->setContentsMargins(4, 1, 4, 1);
    head->addWidget(f.subsect, 1);
    const QString n = QString::number(frame);
    f.fastUp = arrowButton("cmdFastUp_" + n, Qt::NoArrow, QString::fromUtf8("\u21C8"), f.box);
    f.up = arrowButton("cmdUp_" + n, Qt::UpArrow, QString(), f.box);
    f.down = arrowButton("cmdDown_" + n, Qt::DownArrow, QString(), f.box);
    f.fastDown = arrowButton("cmdFastDown_" + n, Qt::NoArrow, QString::fromUtf8("\u21CA"), f.box);
    f.fastUp->setToolTip("Up 10 rows");
    f.up->setToolTip("Up 1 row");
    f.down->setToolTip("Down 1 row");
    f.fastDown->setToolTip("Down 10 rows");
    for (QToolButton* button : {f.fastUp, f.up, f.down, f.fastDown})
        head->addWidget(button);
    connect(f.up, &QToolButton::clicked, this, [this, frame] { scrollRowsUp(model_, frame, 1); });
    connect(f.fastUp, &QToolButton::clicked, this, [this, frame] { scrollRowsUp(model_, frame, 10); });
    connect(f.down, &QToolButton::clicked, this, [this, frame] { scrollRowsDown(model_, frame, 1); });
    connect(f.fastDown, &QToolButton::clicked, this, [this, frame] { scrollRowsDown(model_, frame, 10); });
    layout->addLayout(head);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(3);
    grid->setVerticalSpacing(2);
    const int first = (frame - 1) * kFrameRows;
    for (int i = 0; i < kFrameRows; ++i)
        buildRow(first + i, f.box, grid, i);
    grid->setRowStretch(kFrameRows, 1);
    // The names widen with the window as the decoded values do.
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(4, 1);
    layout->addLayout(grid, 1);
}

void EditorScreens::buildRow(int row, QWidget* parent, QGridLayout* grid, int gridRow)
{
    const double scale = screenScale(this);
    const int height = twipsToPixels(kRowHeight, scale);
    RowControls& r = rows_[static_cast<std::size_t>(row)];
    const QString n = QString::number(row);
    r.name = new ClickLabel(parent);
    r.name->setObjectName("lblParamName_" + n);
    r.name->setToolTip(kParamNameTip);
    r.name->setMinimumWidth(twipsToPixels(kNameWidth, scale));
    r.value = new QLineEdit(parent);
    r.value->setObjectName("txtParamVal_" + n);
    r.value->setFixedWidth(twipsToPixels(kValueWidth, scale));
    r.value->setAlignment(Qt::AlignRight);
    r.spin = new SpinArrows(parent);
    r.spin->setObjectName("updParamVal_" + n);
    r.spin->setFixedSize(twipsToPixels(kSpinWidth, scale), height);
    r.slider = new QToolButton(parent);
    r.slider->setObjectName("cmdSliderLink_" + n);
    r.slider->setToolTip("Hold to slide the value");
    r.slider->setText(QString::fromUtf8("\u2194"));
    r.slider->setStyleSheet("QToolButton { padding: 0px; font-size: 8pt; }");
    r.slider->setFixedSize(twipsToPixels(kLinkWidth, scale), height);
    r.decode = new ClickLabel(parent);
    r.decode->setObjectName("lblParamDecode_" + n);
    r.decode->setToolTip(kParamDecodeTip);
    r.decode->setMinimumWidth(twipsToPixels(kDecodeWidth, scale));
    for (QWidget* w : {static_cast<QWidget*>(r.name), static_cast<QWidget*>(r.value), static_cast<QWidget*>(r.decode)})
        w->setFixedHeight(height);
    r.name->setContentsMargins(3, 0, 3, 0);
    r.decode->setContentsMargins(3, 0, 3, 0);
    grid->addWidget(r.name, gridRow, 0);
    grid->addWidget(r.value, gridRow, 1);
    grid->addWidget(r.spin, gridRow, 2);
    grid->addWidget(r.slider, gridRow, 3);
    grid->addWidget(r.decode, gridRow, 4);
    wireRow(row);
}

void EditorScreens::wireRow(int row)
{
    RowControls& r = rows_[static_cast<std::size_t>(row)];
    connect(r.value, &QLineEdit::textEdited, this, [this, row](const QString& t) {
        changeParamRow(model_, row, t.toStdString());
        mirrorRow(row);
    });
    connect(r.spin, &SpinArrows::stepped, this, [this, row](bool up) {
        editParamRow(model_, row, [up](AppModel& m, ValueBox& b) { return clickSpin(m, b, up); });
        mirrorRow(row);
    });
    connect(r.spin, &SpinArrows::rightPressed, this, [this, row](int y) {
        editParamRow(model_, row, [y](AppModel& m, ValueBox& b) { return rightPressSpin(m, b, y); });
        mirrorRow(row);
    });
    connect(r.name, &ClickLabel::doubleClicked, this, [this, row] {
        editParamRow(model_, row, [](AppModel& m, ValueBox& b) { return doubleClickParamName(m, b); });
        mirrorRow(row);
    });
    connect(r.decode, &ClickLabel::doubleClicked, this, [this, row] {
        editParamRow(model_, row, [](AppModel& m, ValueBox& b) { return doubleClickParamDecode(m, b); });
        mirrorRow(row);
    });
    connect(r.decode, &ClickLabel::released, this, [this, row](Qt::MouseButton button) {
        if (button == Qt::LeftButton)
            showValueNote(model_, paramRowBox(model_, row));
    });
    r.value->installEventFilter(this);
    r.slider->installEventFilter(this);
}

bool EditorScreens::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    for (int row = 0; row < kScreenRows; ++row) {
        RowControls& r = rows_[static_cast<std::size_t>(row)];
        if (watched == r.value) {
            if (type == QEvent::FocusIn) {
                const TextSelection s = focusSelection(paramRowBox(model_, row));
                r.value->setSelection(s.start, s.length);
                if (static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason)
                    mouseFocusRow_ = row;
            } else if (type == QEvent::MouseButtonPress && mouseFocusRow_ == row) {
                // The press that brought the focus keeps the whole text
                // selected, as the Tab key does: it would otherwise put the
                // caret into the old text, and typing would add to it.
                mouseFocusRow_ = -1;
                return true;
            } else if (type == QEvent::FocusOut) {
                mouseFocusRow_ = -1;
            } else if (type == QEvent::MouseButtonDblClick) {
                editParamRow(model_, row, [](AppModel& m, ValueBox& b) { return doubleClickValueBox(m, b); });
                mirrorRow(row);
                return true;
            }
            return false;
        }
        if (watched == r.slider) {
            // Every event passes here; only a mouse event is one.
            auto* mouse = dynamic_cast<QMouseEvent*>(event);
            if (mouse == nullptr)
                return false;
            if (type == QEvent::MouseButtonPress && mouse->button() == Qt::LeftButton) {
                pressSlider(row);
                return true;
            }
            if (type == QEvent::MouseMove) {
                moveSlider(watched, mouse->position(), (mouse->buttons() & Qt::LeftButton) != 0);
                return true;
            }
            if (type == QEvent::MouseButtonRelease) {
                closeSlider();
                return true;
            }
            return false;
        }
    }
    for (int i = 1; i <= 2; ++i) {
        if (watched != floating_[static_cast<std::size_t>(i)])
            continue;
        auto* mouse = dynamic_cast<QMouseEvent*>(event);
        switch (type) {
        case QEvent::MouseButtonPress: return true;
        case QEvent::MouseMove:
            if (mouse == nullptr)
                return false;
            moveSlider(watched, mouse->position(), (mouse->buttons() & Qt::LeftButton) != 0);
            return true;
        case QEvent::MouseButtonRelease:
        case QEvent::FocusOut: closeSlider(); return type != QEvent::FocusOut;
        default: return false;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void EditorScreens::pressSlider(int row)
{
    QToolButton* button = rows_[static_cast<std::size_t>(row)].slider;
    const double scale = screenScale(this);
    const QPoint at = button->mapTo(this, QPoint(0, 0));
    if (!pressSliderLink(model_, sliders_, paramRowBox(model_, row), pixelsToTwips(at.x(), scale),
                         pixelsToTwips(at.y(), scale)))
        return;
    mirrorSliders();
    QSlider* slider = floating_[static_cast<std::size_t>(sliders_.sliderIndex)];
    slider->raise();
    slider->setFocus();
}

void EditorScreens::moveSlider(QObject* source, const QPointF& position, bool leftDown)
{
    if (sliders_.sliderRow < 0 || !sliders_.active().visible)
        return;
    QSlider* slider = floating_[static_cast<std::size_t>(sliders_.sliderIndex)];
    // The pointer may come from the link button, which holds the mouse while
    // its button is down and is no parent of the slider: map through the
    // screen.
    const QPointF onSlider = slider->mapFromGlobal(static_cast<QWidget*>(source)->mapToGlobal(position));
    const int x = pixelsToTwips(onSlider.x(), screenScale(this));
    const int row = sliders_.sliderRow;
    editParamRow(model_, row, [this, x, leftDown](AppModel& m, ValueBox& b) {
        return moveOverSlider(m, sliders_, b, x, leftDown);
    });
    mirrorRow(row);
    mirrorSliders();
}

void EditorScreens::closeSlider()
{
    if (!sliders_.active().visible)
        return;
    hideFloatingSlider(sliders_);
    mirrorSliders();
}

void EditorScreens::mirrorSliders()
{
    const double scale = screenScale(this);
    for (int i = 1; i <= 2; ++i) {
        const FloatingSlider& s = sliders_.sldFloating[static_cast<std::size_t>(i)];
        QSlider* slider = floating_[static_cast<std::size_t>(i)];
        const QSignalBlocker blocker(slider);
        slider->setRange(s.min, s.max);
        slider->setValue(s.value);
        slider->setSingleStep(s.smallChange);
        slider->setPageStep(s.largeChange);
        slider->setGeometry(twipsToPixels(s.geometry.left, scale), twipsToPixels(s.geometry.top, scale),
                            twipsToPixels(s.geometry.width, scale), twipsToPixels(s.geometry.height, scale));
        slider->setVisible(s.visible);
    }
}

void EditorScreens::refresh(unsigned changes)
{
    if (changes & kFrame1Changed)
        mirrorFrame(1);
    if (changes & kFrame2Changed)
        mirrorFrame(2);
    if (changes & (kNavigationChanged | kScreenChanged | kSettingsChanged))
        mirrorNavigation();
    if ((changes & kMultiSelectChanged) || ((changes & kScreenChanged) && model_.mode == 4))
        multi_->mirror();
    if (changes & (kLabelsChanged | kScreenChanged))
        multi_->mirrorLabels();
    if (changes & (kNavigationChanged | kFrame1Changed | kFrame2Changed | kBuffersChanged | kScreenChanged)) {
        placeEnvelope();
        envelope_->mirror();
    }
}

void EditorScreens::mirrorFrame(int frame)
{
    const FrameView& view = model_.layout.frames[static_cast<std::size_t>(frame)];
    FrameControls& f = frames_[static_cast<std::size_t>(frame)];
    f.box->setTitle(QString::fromStdString(view.caption));
    setCaptionBold(f.box, view.captionBold);
    f.subsect->setText(QString::fromStdString(view.label));
    f.up->setEnabled(view.upEnabled);
    f.fastUp->setEnabled(view.upEnabled);
    f.down->setEnabled(view.downEnabled);
    f.fastDown->setEnabled(view.downEnabled);
    const int first = (frame - 1) * kFrameRows;
    if (model_.layout.FrameColoured[static_cast<std::size_t>(frame)] && !f.coloured) {
        f.coloured = true;
        f.subsect->setStyleSheet(schemeStyle(kSubsectLabelScheme, this));
        for (int i = first; i < first + kFrameRows; ++i) {
            RowControls& r = rows_[static_cast<std::size_t>(i)];
            r.name->setStyleSheet(schemeStyle(kParamNameScheme, this));
            r.value->setStyleSheet(schemeStyle(kParamValueScheme, this));
            r.decode->setStyleSheet(schemeStyle(kParamDecodeScheme, this));
        }
    }
    for (int i = first; i < first + kFrameRows; ++i)
        mirrorRow(i);
    f.box->setVisible(view.visible);
}

void EditorScreens::mirrorRow(int row)
{
    const RowView& view = model_.layout.rows[static_cast<std::size_t>(row)];
    RowControls& r = rows_[static_cast<std::size_t>(row)];
    const QString name = QString::fromStdString(view.name);
    if (r.name->text() != name) {
        r.name->setText(name);
        // A name too long for its column is read whole in the tooltip.
        r.name->setToolTip(name + "\n" + kParamNameTip);
    }
    showRowValue(r.value, r.spin, QString::fromStdString(view.valueText), view.value, view.spinMin, view.spinMax);
    r.decode->setText(QString::fromStdString(view.decode));
    for (QWidget* w : {static_cast<QWidget*>(r.name), static_cast<QWidget*>(r.value), static_cast<QWidget*>(r.spin),
                       static_cast<QWidget*>(r.slider), static_cast<QWidget*>(r.decode)})
        w->setVisible(view.visible);
}

void EditorScreens::mirrorNavigation()
{
    const ScreenParts& parts = model_.layout.parts;
    tree_->setVisible(parts.trvSection);
    group_->setVisible(parts.fraPatchGroup);
    group_->mirror();
    multi_->setVisible(parts.fraMultiSelect);
    backForward_->setVisible(parts.fraBackForward);
    favourites_->setVisible(model_.mode == kPatch);
    favourites_->mirror();
    for (int frame = 1; frame <= 2; ++frame) {
        const FrameView& view = model_.layout.frames[static_cast<std::size_t>(frame)];
        FrameControls& f = frames_[static_cast<std::size_t>(frame)];
        setCaptionBold(f.box, view.captionBold);
        f.box->setVisible(view.visible);
    }
}

void EditorScreens::placeEnvelope()
{
    const bool shown = model_.layout.parts.fraEnvelope && model_.mode == 1;
    const int place = model_.envelope.place == 2 ? 2 : 1;
    FrameControls& f = frames_[static_cast<std::size_t>(place)];
    if (envelope_->parentWidget() != f.slot) {
        envelope_->setParent(f.slot);
        f.slotLayout->insertWidget(0, envelope_);
    }
    envelope_->setVisible(shown);
}

}  // namespace quillon

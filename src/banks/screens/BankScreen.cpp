#include "banks/screens/BankScreen.h"

#include "banks/BankMenuCaptions.h"
#include "banks/BankMouse.h"
#include "banks/BankView.h"
#include "editors/screens/EditorWidgets.h"
#include "shell/AppModel.h"
#include "shell/screens/QuillonApplication.h"

#include <QCursor>
#include <QMenu>
#include <QMouseEvent>
#include <QResizeEvent>

#include <algorithm>
#include <cmath>

namespace quillon {

namespace {

// The grid in twips: label i at column i mod 8, row i / 8.
constexpr int kColumns = 8;
constexpr int kLabelWidth = 1360;
constexpr int kLabelHeight = 365;
constexpr int kLeft = 50;
constexpr int kTop = 135;
constexpr int kGridWidth = kLeft + kColumns * kLabelWidth + kLeft;
constexpr int kGridHeight = kTop + 16 * kLabelHeight + kLeft;

int buttonOf(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton: return kLeftButton;
    case Qt::RightButton: return kRightButton;
    case Qt::MiddleButton: return kMiddleButton;
    default: return 0;
    }
}

int shiftOf(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? kShiftKey : 0) | (modifiers & Qt::ControlModifier ? kCtrlKey : 0) |
           (modifiers & Qt::AltModifier ? kAltKey : 0);
}

// The items of the popups in their order: name and caption; an empty name
// is a separator, a caption with a name of "sub:" opens a submenu.
struct PopupItem {
    const char* name;
    std::string caption;
};

std::vector<PopupItem> popup1Items()
{
    std::vector<PopupItem> items{{"mnuUndoBankPopup1", "Undo"}, {"", ""},
                                 {"mnuAutoSend1", "Auto Send"}, {"", ""},
                                 {"mnuPutInEditor", "Put in Patch Editor"}, {"", ""},
                                 {"mnuCopyAllExcept", "Copy All except.."}, {"", ""},
                                 {"mnuCopyAllXCSS", "Copy All ex CSS"}, {"mnuCopyCSS", "Copy CSS"}, {"", ""}};
    for (const char* caption : {"Copy Comm", "Copy EG", "Copy LFO", "Copy OSC", "Copy Mix", "Copy Filt", "Copy Amp",
                                "Copy FX", "Copy Ctrls"})
        items.push_back({"mnuCopyArray", caption});
    items.insert(items.end(), {{"", ""},
                               {"mnuInsertFirst1", kInsertFirstCaption},
                               {"mnuInsertLast1", kInsertLastCaption},
                               {"mnuSwapFirst1", kSwapFirstCaption},
                               {"mnuSwapLast1", kSwapLastCaption},
                               {"", ""},
                               {"mnuExportImport1", kExportImportCaption},
                               {"", ""},
                               {"mnuProperties", "Properties..."}});
    return items;
}

std::vector<PopupItem> popup2Items()
{
    std::vector<PopupItem> items{{"mnuUndoBankPopup2", "Undo"},
                                 {"", ""},
                                 {"mnuSelectAll", "Select All"},
                                 {"mnuDeselectAll", "Deselect All"},
                                 {"", ""},
                                 {"mnuAutoSend2", "Auto Send"},
                                 {"", ""},
                                 {"mnuRotatePlusPlus", kRotatePlusPlusCaption},
                                 {"mnuRotatePlus", kRotatePlusCaption},
                                 {"mnuRotateMinus", kRotateMinusCaption},
                                 {"mnuRotateMinusMinus", kRotateMinusMinusCaption},
                                 {"", ""}};
    for (int key = 1; key <= 10; ++key)
        items.push_back({"mnuSortArray", sortSelectionCaption(key)});
    items.insert(items.end(), {{"", ""},
                               {"mnuInsertFirst2", kInsertFirstCaption},
                               {"mnuInsertLast2", kInsertLastCaption},
                               {"mnuSwapFirst2", kSwapFirstCaption},
                               {"mnuSwapLast2", kSwapLastCaption},
                               {"", ""},
                               {"mnuExportImport2", kExportImportCaption},
                               {"", ""},
                               {"mnuExtractToFiles", "Extract to Files"}});
    return items;
}

// Adds the items to a menu; arrays get "_" and their index from 1.
void addItems(QMenu* menu, const std::vector<PopupItem>& items)
{
    std::map<std::string, int> counts;
    for (const PopupItem& item : items) {
        const std::string name = item.name;
        if (name.empty()) {
            menu->addSeparator();
            continue;
        }
        const QString caption = QString::fromStdString(item.caption);
        if (name == "mnuCopyAllExcept") {
            QMenu* sub = menu->addMenu(caption);
            sub->setObjectName("mnuCopyAllExcept");
            sub->menuAction()->setObjectName("mnuCopyAllExcept");
            int index = 0;
            for (const char* part : {"Comm", "EG", "LFO", "OSC", "Mix", "Filt", "Amp", "FX", "Ctrls"}) {
                QAction* action = sub->addAction(part);
                action->setObjectName(QString("mnuCopyExceptArray_%1").arg(++index));
                action->setEnabled(false);
            }
            continue;
        }
        QAction* action = menu->addAction(caption);
        const bool array = name == "mnuCopyArray" || name == "mnuSortArray";
        action->setObjectName(array ? QString("%1_%2").arg(QString::fromStdString(name)).arg(++counts[name])
                                    : QString::fromStdString(name));
        action->setEnabled(false);
    }
}

}  // namespace

BankScreen::BankScreen(AppModel& model, QWidget* parent) : QWidget(parent), model_(model)
{
    setObjectName("fraBank");
    schemes_.fill(-1);
    for (int scheme = 0; scheme < kSchemeStyles; ++scheme)
        styles_[static_cast<std::size_t>(scheme)] = schemeStyle(scheme, this);
    buildPopups();
}

QAction* BankScreen::item(const QString& name) const
{
    QAction* found = popup1_->findChild<QAction*>(name);
    return found != nullptr ? found : popup2_->findChild<QAction*>(name);
}

void BankScreen::buildPopups()
{
    popup1_ = new QMenu(this);
    popup1_->setObjectName("mnuPopup1");
    addItems(popup1_, popup1Items());
    popup2_ = new QMenu(this);
    popup2_->setObjectName("mnuPopup2");
    addItems(popup2_, popup2Items());
}

void BankScreen::setCommand(const QString& name, std::function<void()> command)
{
    QAction* target = item(name);
    if (target == nullptr)
        return;
    wired_[name] = true;
    QuillonApplication::wireCommand(target, this, std::move(command));
}

void BankScreen::makeLabels()
{
    const double scale = screenScale(this);
    const int minimumWidth = twipsToPixels(kGridWidth, scale);
    const int minimumHeight = twipsToPixels(kGridHeight, scale);
    setMinimumSize(minimumWidth, minimumHeight);
    for (int i = 0; i < kBankLabels; ++i) {
        auto* label = new ClickLabel(this);
        label->setObjectName(QString("lblBkPatch_%1").arg(i));
        label->setAlignment(Qt::AlignVCenter | Qt::AlignLeft);
        label->setContentsMargins(3, 0, 3, 0);
        labels_[static_cast<std::size_t>(i)] = label;
        connect(label, &ClickLabel::pressed, this, [this, i](Qt::MouseButton button, Qt::KeyboardModifiers mods) {
            bankLabelMouseDown(model_, i, buttonOf(button), shiftOf(mods));
        });
        // The release that ends a press on the label is its click.
        connect(label, &ClickLabel::released, this, [this, i, label](Qt::MouseButton, Qt::KeyboardModifiers) {
            const BankClickResult result = bankLabelClick(model_, i);
            if (result.popup != BankPopup::None)
                showPopup(result.popup == BankPopup::Popup1 ? 1 : 2, result.reorderItemsEnabled,
                          label->mapToGlobal(label->rect().center()));
        });
        label->show();
    }
    placeLabels();
}

void BankScreen::placeLabels()
{
    if (labels_[0] == nullptr)
        return;
    // The grid fills the screen in both directions, keeping its proportions
    // of label to gap.
    const double sx = static_cast<double>(width()) / kGridWidth;
    const double sy = static_cast<double>(height()) / kGridHeight;
    QFont font = this->font();
    const double labelHeight = kLabelHeight * sy;
    const double labelWidth = kLabelWidth * sx;
    font.setPixelSize(std::max(8, static_cast<int>(std::min(labelHeight * 0.55, labelWidth / 9.5))));
    for (int i = 0; i < kBankLabels; ++i) {
        const int column = i % kColumns;
        const int row = i / kColumns;
        const int left = static_cast<int>(std::lround((kLeft + column * kLabelWidth) * sx));
        const int top = static_cast<int>(std::lround((kTop + row * kLabelHeight) * sy));
        const int right = static_cast<int>(std::lround((kLeft + (column + 1) * kLabelWidth) * sx));
        const int bottom = static_cast<int>(std::lround((kTop + (row + 1) * kLabelHeight) * sy));
        ClickLabel* label = labels_[static_cast<std::size_t>(i)];
        label->setGeometry(left, top, right - left - 1, bottom - top - 1);
        // Each label's own: a label with a style sheet does not follow its
        // parent's font.
        if (label->font() != font)
            label->setFont(font);
    }
}

void BankScreen::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeLabels();
}

void BankScreen::refresh(unsigned changes)
{
    if (changes & kUndoMenuChanged) {
        const UndoMenuItemState& one = model_.bankView.undoItems[kMnuUndoBankPopup1];
        const UndoMenuItemState& two = model_.bankView.undoItems[kMnuUndoBankPopup2];
        item("mnuUndoBankPopup1")->setText(QString::fromStdString(one.caption));
        item("mnuUndoBankPopup1")->setEnabled(one.enabled);
        item("mnuUndoBankPopup2")->setText(QString::fromStdString(two.caption));
        item("mnuUndoBankPopup2")->setEnabled(two.enabled);
    }
    if (!(changes & (kBankViewChanged | kBanksChanged | kScreenChanged)))
        return;
    if (!model_.bankView.gridMade)
        return;
    if (labels_[0] == nullptr)
        makeLabels();
    for (int i = 0; i < kBankLabels; ++i) {
        const BankLabelState& state = model_.bankView.labels[static_cast<std::size_t>(i)];
        ClickLabel* label = labels_[static_cast<std::size_t>(i)];
        const QString caption = QString::fromStdString(state.caption);
        if (label->text() != caption)
            label->setText(caption);
        int& shown = schemes_[static_cast<std::size_t>(i)];
        if (shown != state.scheme && state.scheme >= 0 && state.scheme < kSchemeStyles) {
            shown = state.scheme;
            restyle(label, styles_[static_cast<std::size_t>(state.scheme)]);
        }
    }
}

void BankScreen::showPopup(int popup, bool reorderItemsEnabled, QPoint at)
{
    QMenu* menu = popup == 1 ? popup1_ : popup2_;
    if (popup == 1) {
        for (const char* name :
             {"mnuInsertFirst1", "mnuInsertLast1", "mnuSwapFirst1", "mnuSwapLast1", "mnuExportImport1", "mnuAutoSend1"})
            item(name)->setEnabled(reorderItemsEnabled && wired_.count(name) != 0);
    }
    menu->popup(at);
}

}  // namespace quillon

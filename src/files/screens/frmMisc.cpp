#include "files/screens/frmMisc.h"

#include "files/SysExSaving.h"
#include "midi/SendFlows.h"
#include "shell/AppModel.h"
#include "shell/screens/FormLaunchers.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillon {

namespace {

// The dump's mode when it came from the instrument and can be saved, and
// when it came from a file and can be sent.
constexpr int kMiscModeSave = 1;
constexpr int kMiscModeSend = 3;

QString textOf(const std::string& text) { return QString::fromStdString(text); }

}  // namespace

frmMisc::frmMisc(AppModel& model, MiscDialogState& state, QWidget* parent)
    : QDialog(parent), model_(model), state_(state)
{
    setObjectName("frmMisc");
    setWindowTitle(textOf(state_.caption));

    auto* outer = new QVBoxLayout(this);

    fraExtract_ = new QGroupBox(textOf(state_.extractFrameCaption), this);
    fraExtract_->setObjectName("fraExtract");
    auto* frame = new QVBoxLayout(fraExtract_);
    for (int i = 0; i < kMiscTypeBoxes; ++i) {
        const auto at = static_cast<std::size_t>(i);
        auto* box = new QCheckBox(textOf(state_.typeCaption[at]), fraExtract_);
        box->setObjectName(QString("chkType_%1").arg(i));
        box->setChecked(state_.typeTicked[at]);
        box->setVisible(state_.typeVisible[at]);
        connect(box, &QCheckBox::toggled, this, [this, at](bool ticked) { state_.typeTicked[at] = ticked; });
        chkType_[at] = box;
        frame->addWidget(box);
    }
    auto* cmdLoad = new QPushButton(textOf(state_.loadCaption), fraExtract_);
    cmdLoad->setObjectName("cmdLoad");
    cmdLoad->setAutoDefault(false);
    frame->addWidget(cmdLoad);
    fraExtract_->setVisible(state_.extractFrameVisible);
    outer->addWidget(fraExtract_);

    auto* buttons = new QHBoxLayout;
    cmdSaveSend_ = new QPushButton(textOf(state_.saveSendCaption), this);
    cmdSaveSend_->setObjectName("cmdSaveSend");
    cmdSaveSend_->setAutoDefault(false);
    auto* cmdDone = new QPushButton(textOf(state_.doneCaption), this);
    cmdDone->setObjectName("cmdDone");
    cmdDone->setAutoDefault(false);
    auto* cmdHelp = new QPushButton(textOf(state_.helpCaption), this);
    cmdHelp->setObjectName("cmdHelp");
    cmdHelp->setAutoDefault(false);
    buttons->addWidget(cmdSaveSend_);
    buttons->addStretch(1);
    buttons->addWidget(cmdDone);
    buttons->addWidget(cmdHelp);
    outer->addLayout(buttons);
    outer->setSizeConstraint(QLayout::SetFixedSize);

    connect(cmdLoad, &QPushButton::clicked, this, [this] { cmdLoadClick(); });
    connect(cmdSaveSend_, &QPushButton::clicked, this, [this] { cmdSaveSendClick(); });
    connect(cmdDone, &QPushButton::clicked, this, &QDialog::reject);
    const int helpContext = state_.helpContext;
    connect(cmdHelp, &QPushButton::clicked, this, [helpContext] { doHelpShowThis(helpContext); });
}

void frmMisc::cmdLoadClick() { misc::doProcessLoad(model_, state_); }

// The dialog goes before the question of the send or the save dialog, and
// does not come back, whatever the answer.
void frmMisc::cmdSaveSendClick()
{
    if (model_.misc.mode != kMiscModeSend && model_.misc.mode != kMiscModeSave)
        return;
    hide();
    if (model_.misc.mode == kMiscModeSend)
        miscSend(model_);
    else
        miscSave(model_);
    accept();
}

void showMiscDialog(AppModel& model, MiscDialogState& state, QWidget* parent)
{
    frmMisc dialog(model, state, parent);
    dialog.exec();
}

}  // namespace quillon

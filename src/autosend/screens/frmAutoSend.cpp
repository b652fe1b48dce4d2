#include "autosend/screens/frmAutoSend.h"

#include "editors/ItemStatus.h"
#include "editors/screens/EditorWidgets.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/screens/FormLaunchers.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quillon {

namespace {

// A marked patch is shown in the selected colours of the bank view.
constexpr int kMarkedScheme = 13;

QString text(const std::string& s) { return QString::fromStdString(s); }

QPushButton* button(QWidget* parent, const char* name, const char* caption, const char* tip)
{
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    b->setAutoDefault(false);
    if (tip != nullptr)
        b->setToolTip(tip);
    return b;
}

QLabel* label(QWidget* parent, const char* name, const QString& caption, const char* tip = nullptr)
{
    auto* l = new QLabel(caption, parent);
    l->setObjectName(name);
    if (tip != nullptr)
        l->setToolTip(tip);
    return l;
}

QComboBox* combo(QWidget* parent, const char* name, const std::vector<std::string>& rows)
{
    auto* c = new QComboBox(parent);
    c->setObjectName(name);
    for (const auto& row : rows)
        c->addItem(text(row));
    return c;
}

}  // namespace

frmAutoSend::frmAutoSend(AppModel& model, int bank, QWidget* parent)
    : QDialog(parent), model_(model), show_(model, bank, autoTimer_, miniTimer_)
{
    setObjectName("frmAutoSend");
    setWindowTitle(bank == kPatchBankB ? "Auto Send - Bank B" : "Auto Send - Bank A");
    setModal(true);

    auto* cmdStart = button(this, "cmdStart", "Start", "Send start patch and other patches selected");
    cmdPause_ = button(this, "cmdPause", "Pause", "Stop or start at current patch");
    auto* cmdMark = button(this, "cmdMark", "Mark", "Mark to include in new selection");
    cmdReselect_ = button(this, "cmdReselect", "Reselect", "Make new selection with marked patches only");
    auto* cmdDone = button(this, "cmdDone", "Done", "Stop auto send and return to bank screen");
    auto* cmdHelp = button(this, "cmdHelp", "Help", nullptr);

    cmbInterval_ = combo(this, "cmbInterval", intervalRows());
    auto* lblInterval = label(this, "lblInterval", "Interval (secs)");
    lblInterval->setBuddy(cmbInterval_);

    auto* fraArp = new QGroupBox("Arpeggiator", this);
    fraArp->setObjectName("fraArp");
    auto* arpColumn = new QVBoxLayout(fraArp);
    const std::array<const char*, 3> arpCaptions{"Off", "On", "As patch"};
    for (int mode : {kShowArpAsPatch, kShowArpOn, kShowArpOff}) {
        auto* option = new QRadioButton(arpCaptions[static_cast<std::size_t>(mode)], fraArp);
        option->setObjectName(QString("optArp_%1").arg(mode));
        arpColumn->addWidget(option);
        optArp_[static_cast<std::size_t>(mode)] = option;
    }
    cmbPatternSelect_ = combo(fraArp, "cmbPatternSelect", patternSelectRows(model));
    cmbChordSeq_ = combo(fraArp, "cmbChordSeq", chordSequenceRows());
    arpColumn->addWidget(cmbPatternSelect_);
    arpColumn->addWidget(cmbChordSeq_);

    auto* patches = new QGridLayout;
    patches->addWidget(label(this, "lblCurrentCaption", "Current patch:",
                             "Patch just sent. Name will be highlighted if marked"), 0, 0);
    patches->addWidget(label(this, "lblStartCaption", "Start patch:", "Patch sent when start key is pressed"), 1, 0);
    patches->addWidget(label(this, "lblEndCaption", "End patch:", "Last patch selected"), 2, 0);
    lblCurrentPatch_ = label(this, "lblCurrentPatch", {}, "Patch just sent. Name will be highlighted if marked");
    lblStartPatch_ = label(this, "lblStartPatch", {}, "Patch sent when start key is pressed");
    lblEndPatch_ = label(this, "lblEndPatch", {}, "Last patch selected");
    for (QLabel* value : {lblCurrentPatch_, lblStartPatch_, lblEndPatch_})
        value->setMinimumWidth(fontMetrics().horizontalAdvance(QString(24, 'M')));
    patches->addWidget(lblCurrentPatch_, 0, 1);
    patches->addWidget(lblStartPatch_, 1, 1);
    patches->addWidget(lblEndPatch_, 2, 1);

    auto* fraProgress = new QGroupBox("Progress", this);
    fraProgress->setObjectName("fraProgress");
    auto* progress = new QGridLayout(fraProgress);
    progress->addWidget(label(fraProgress, "lblSelectedCaption", "Patches selected:"), 0, 0);
    progress->addWidget(label(fraProgress, "lblMarkedCaption", "Patches marked:"), 1, 0);
    progress->addWidget(label(fraProgress, "lblSentCaption", "Patches sent:"), 2, 0);
    lblSelected_ = label(fraProgress, "lblSelected", {});
    lblMarked_ = label(fraProgress, "lblMarked", {});
    lblSent_ = label(fraProgress, "lblSent", {});
    progress->addWidget(lblSelected_, 0, 1);
    progress->addWidget(lblMarked_, 1, 1);
    progress->addWidget(lblSent_, 2, 1);

    lblSoundShow_ = label(this, "lblSoundShow", "SOUND SHOW MODE [uses Korg Z1 INT clock]");
    lblPaused_ = label(this, "lblPaused", "Paused");
    auto* lblTips = label(this, "lblTips", "ALT=Start | CTRL=Mark | PAUSE=Pause");

    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {cmdStart, cmdPause_, cmdMark, cmdReselect_, cmdDone, cmdHelp})
        buttons->addWidget(b);
    buttons->addStretch(1);
    auto* interval = new QHBoxLayout;
    interval->addWidget(lblInterval);
    interval->addWidget(cmbInterval_);
    interval->addStretch(1);
    interval->addWidget(lblPaused_);
    auto* left = new QVBoxLayout;
    left->addLayout(patches);
    left->addLayout(interval);
    left->addWidget(fraProgress);
    left->addWidget(fraArp);
    left->addWidget(lblSoundShow_);
    auto* top = new QHBoxLayout;
    top->addLayout(left, 1);
    top->addLayout(buttons);
    auto* column = new QVBoxLayout(this);
    column->addLayout(top);
    column->addWidget(lblTips);
    column->setSizeConstraint(QLayout::SetFixedSize);

    connect(cmdStart, &QPushButton::clicked, this, [this] { show_.start(); });
    connect(cmdPause_, &QPushButton::clicked, this, [this] { show_.pause(); });
    connect(cmdMark, &QPushButton::clicked, this, [this] { show_.mark(); });
    connect(cmdReselect_, &QPushButton::clicked, this, [this] { show_.reselect(); });
    connect(cmdDone, &QPushButton::clicked, this, [this] { show_.done(); });
    connect(cmdHelp, &QPushButton::clicked, this, [] { doHelpShowThis(kAutoSendHelpContext); });
    connect(cmbInterval_, &QComboBox::activated, this, [this](int index) { show_.chooseInterval(index); });
    connect(cmbPatternSelect_, &QComboBox::activated, this, [this](int row) { show_.choosePattern(row); });
    connect(cmbChordSeq_, &QComboBox::activated, this, [this](int row) { show_.chooseChordSequence(row); });
    for (int mode = 0; mode < 3; ++mode)
        connect(optArp_[static_cast<std::size_t>(mode)], &QRadioButton::clicked, this,
                [this, mode] { show_.chooseArpMode(mode); });

    // Every control hands the form's keys to the form first.
    for (QWidget* child : findChildren<QWidget*>())
        child->installEventFilter(this);

    show_.onChanged = [this] { refresh(); };
    show_.onClose = [this] {
        closing_ = true;
        accept();
    };
    show_.doSetup();
}

frmAutoSend::~frmAutoSend()
{
    show_.onChanged = {};
    show_.onClose = {};
}

void frmAutoSend::refresh()
{
    const QSignalBlocker blockInterval(cmbInterval_);
    const QSignalBlocker blockPattern(cmbPatternSelect_);
    const QSignalBlocker blockChords(cmbChordSeq_);
    cmbInterval_->setCurrentIndex(showInterval(model_) - kLowestInterval);
    cmbPatternSelect_->setCurrentIndex(showPatternSelect(model_));
    cmbChordSeq_->setCurrentIndex(showChordSequence(model_));
    optArp_[static_cast<std::size_t>(showArpMode(model_))]->setChecked(true);

    lblCurrentPatch_->setText(text(show_.currentPatchText()));
    restyle(lblCurrentPatch_, show_.currentPatchMarked() ? schemeStyle(kMarkedScheme, lblCurrentPatch_) : QString());
    lblStartPatch_->setText(text(show_.startPatchText()));
    lblEndPatch_->setText(text(show_.endPatchText()));
    lblSelected_->setText(QString::number(show_.sendCount()));
    lblMarked_->setText(QString::number(show_.markCount()));
    lblSent_->setText(QString::number(show_.sendIndex()));

    cmdPause_->setEnabled(show_.pauseEnabled());
    cmdReselect_->setEnabled(show_.reselectEnabled());
    lblPaused_->setVisible(show_.pausedVisible());
    lblSoundShow_->setVisible(show_.soundShowVisible());
}

bool frmAutoSend::takeKey(const QKeyEvent* event)
{
    if (event->key() == Qt::Key_Pause) {
        show_.pause();
        return true;
    }
    if (event->modifiers() & Qt::AltModifier) {
        show_.start();
        return true;
    }
    if (event->modifiers() & Qt::ControlModifier) {
        show_.mark();
        return true;
    }
    return false;
}

bool frmAutoSend::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && takeKey(static_cast<QKeyEvent*>(event)))
        return true;
    return QDialog::eventFilter(watched, event);
}

void frmAutoSend::keyPressEvent(QKeyEvent* event)
{
    if (!takeKey(event))
        QDialog::keyPressEvent(event);
}

void frmAutoSend::reject()
{
    // Closing the window or Escape is Done: the show stops and its chord
    // with it.
    if (closing_)
        QDialog::reject();
    else
        show_.done();
}

void showAutoSendForm(AppModel& model, int bank, QWidget* parent)
{
    if (model.banks.selection(bank).selectionCount < 1)
        return;
    clearStatusMessages(model);
    frmAutoSend form(model, bank, parent);
    form.exec();
}

}  // namespace quillon

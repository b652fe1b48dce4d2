#include "shell/screens/Dialog.h"

#include "banks/PatternSlots.h"
#include "editors/ColourSchemes.h"
#include "shell/screens/FormLaunchers.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace quillon {

namespace {

constexpr int kPatchPlaces = 128;
constexpr int kMultiPlaces = 16;
constexpr int kUserPatterns = 15;

// Colours of the two names: the one now in the bank, the one that replaces it.
constexpr int kCurrentScheme = 12;
constexpr int kReplacementScheme = 9;

void paintLabel(QLabel* label, int scheme)
{
    const ColourScheme* colours = colourScheme(scheme);
    const bool plain = colours == nullptr || colours->backgroundSystem != SystemColour::None ||
                       colours->textSystem != SystemColour::None;
    if (plain) {
        label->setStyleSheet("padding: 2px 6px;");
        return;
    }
    label->setStyleSheet(QString("background-color: %1; color: %2; padding: 2px 6px;")
                             .arg(QColor(QRgb(colours->background)).name(), QColor(QRgb(colours->text)).name()));
}

}  // namespace

// The small up and down arrows beside txtNum.
class UpDownButtons : public QWidget {
    Q_OBJECT
public:
    explicit UpDownButtons(QWidget* parent) : QWidget(parent)
    {
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(0);
        addArrow(Qt::UpArrow, "cmdUp", 1, column);
        addArrow(Qt::DownArrow, "cmdDown", -1, column);
    }

signals:
    void stepped(int step);

private:
    void addArrow(Qt::ArrowType arrow, const char* name, int step, QVBoxLayout* column)
    {
        auto* button = new QToolButton(this);
        button->setObjectName(name);
        button->setArrowType(arrow);
        button->setAutoRepeat(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
        connect(button, &QToolButton::clicked, this, [this, step] { emit stepped(step); });
        column->addWidget(button);
    }
};

int dialogResult(int mode, const DialogChoice& choice)
{
    switch (mode) {
    case 1: return choice.number + (choice.bankB ? kPatchPlaces : 0);
    case 2:
    case 3: return choice.bankB ? 3 : 2;
    case 4: return choice.number + (choice.bankB ? kMultiPlaces : 0);
    case 5: return std::max(choice.listIndex + kPresetPatterns, kPresetPatterns);
    default: return -1;
    }
}

int dialogBankKind(int mode, bool bankB)
{
    switch (mode) {
    case 1:
    case 2:
    case 3: return bankB ? 3 : 2;
    case 4: return bankB ? 7 : 6;
    case 5: return 8;
    default: return 0;
    }
}

QString dialogCaption(int mode)
{
    switch (mode) {
    case 1: return "Put Patch in Bank";
    case 2: return "New Bank - 128 Random Patches";
    case 3: return "New Bank - 128 Patch Spread";
    case 4: return "Put Multiset in Multi Bank";
    case 5: return "Put Pattern in Arpeggiator Bank";
    default: return {};
    }
}

int dialogHelpContext(int mode)
{
    switch (mode) {
    case 1: return 140;
    case 2: return 145;
    case 3: return 150;
    case 4: return 245;
    case 5: return 260;
    default: return 0;
    }
}

int dialogPlaceMax(int mode)
{
    switch (mode) {
    case 1: return kPatchPlaces - 1;
    case 4: return kMultiPlaces - 1;
    default: return -1;
    }
}

Dialog::Dialog(DialogSource source, QWidget* parent) : QDialog(parent), source_(std::move(source))
{
    setObjectName("Dialog");
    buildControls();
}

void Dialog::buildControls()
{
    fraOptAB_ = new QGroupBox(this);
    fraOptAB_->setObjectName("fraOptAB");
    option1_ = new QRadioButton(fraOptAB_);
    option1_->setObjectName("Option1");
    option2_ = new QRadioButton(fraOptAB_);
    option2_->setObjectName("Option2");
    auto* options = new QHBoxLayout(fraOptAB_);
    options->addWidget(option1_);
    options->addWidget(option2_);
    options->addStretch();

    fraOptNum_ = new QGroupBox("Number", this);
    fraOptNum_->setObjectName("fraOptNum");
    txtNum_ = new QLineEdit(fraOptNum_);
    txtNum_->setObjectName("txtNum");
    txtNum_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,3}"), txtNum_));
    txtNum_->setMaxLength(3);
    txtNum_->setFixedWidth(txtNum_->fontMetrics().horizontalAdvance("0000") + 16);
    updNum_ = new UpDownButtons(fraOptNum_);
    updNum_->setObjectName("updNum");
    updNum_->setFixedWidth(txtNum_->sizeHint().height() * 3 / 4);
    auto* number = new QHBoxLayout(fraOptNum_);
    number->setSpacing(0);
    number->addWidget(txtNum_);
    number->addWidget(updNum_);
    number->addStretch();

    cmbTextChoice_ = new QComboBox(this);
    cmbTextChoice_->setObjectName("cmbTextChoice");
    cmbTextChoice_->setMinimumContentsLength(22);

    lblOld_ = new QLabel("Replace old", this);
    lblOld_->setObjectName("lblOld");
    lblWith_ = new QLabel("with new", this);
    lblWith_->setObjectName("lblWith");
    lblCurrent_ = new QLabel(this);
    lblCurrent_->setObjectName("lblCurrent");
    lblReplacement_ = new QLabel(this);
    lblReplacement_->setObjectName("lblReplacement");
    const int nameWidth = lblCurrent_->fontMetrics().horizontalAdvance(QString(18, 'W'));
    lblCurrent_->setMinimumWidth(nameWidth);
    lblReplacement_->setMinimumWidth(nameWidth);
    auto* names = new QGridLayout;
    names->addWidget(lblOld_, 0, 0);
    names->addWidget(lblCurrent_, 0, 1);
    names->addWidget(lblWith_, 1, 0);
    names->addWidget(lblReplacement_, 1, 1);
    names->setColumnStretch(1, 1);

    okButton_ = new QPushButton("OK", this);
    okButton_->setObjectName("OKButton");
    okButton_->setDefault(true);
    cancelButton_ = new QPushButton("Cancel", this);
    cancelButton_->setObjectName("CancelButton");
    cmdHelp_ = new QPushButton("Help", this);
    cmdHelp_->setObjectName("cmdHelp");
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(okButton_);
    buttons->addWidget(cancelButton_);
    buttons->addWidget(cmdHelp_);
    buttons->addStretch();

    auto* choices = new QVBoxLayout;
    auto* top = new QHBoxLayout;
    top->addWidget(fraOptAB_);
    top->addWidget(fraOptNum_);
    choices->addLayout(top);
    choices->addWidget(cmbTextChoice_);
    choices->addLayout(names);
    choices->addStretch();

    auto* whole = new QHBoxLayout(this);
    whole->addLayout(choices, 1);
    whole->addSpacing(12);
    whole->addLayout(buttons);

    connect(option1_, &QRadioButton::toggled, this, [this] { doUpdate(); });
    connect(option2_, &QRadioButton::toggled, this, [this] { doUpdate(); });
    connect(cmbTextChoice_, &QComboBox::currentIndexChanged, this, [this] { doUpdate(); });
    connect(txtNum_, &QLineEdit::textChanged, this, [this] {
        // A typed number above the range is taken back to its highest place.
        const int highest = dialogPlaceMax(mode_);
        if (highest >= 0 && txtNum_->text().toInt() > highest)
            txtNum_->setText(QString::number(highest));
        doUpdate();
    });
    connect(updNum_, &UpDownButtons::stepped, this, [this](int step) {
        const int highest = dialogPlaceMax(mode_);
        txtNum_->setText(QString::number(std::clamp(txtNum_->text().toInt() + step, 0, std::max(highest, 0))));
    });
    connect(okButton_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancelButton_, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdHelp_, &QPushButton::clicked, this, [this] { doHelpShowThis(dialogHelpContext(mode_)); });
}

void Dialog::doSetup(int mode)
{
    if (mode < 1 || mode > 5)
        return;
    mode_ = mode;
    settingUp_ = true;
    setWindowTitle(dialogCaption(mode));

    const bool patchBanks = mode >= 1 && mode <= 3;
    const bool generated = mode == 2 || mode == 3;
    const bool numbered = mode == 1 || mode == 4;
    const bool named = mode == 1 || mode == 4 || mode == 5;

    fraOptAB_->setVisible(mode != 5);
    fraOptAB_->setTitle(generated ? "Select Bank" : patchBanks ? "Bank" : "Multi Bank");
    option1_->setText(patchBanks ? "Bank A" : "Multi Bank A");
    option2_->setText(patchBanks ? "Bank B" : "Multi Bank B");
    fraOptNum_->setVisible(numbered);
    cmbTextChoice_->setVisible(mode == 5);
    lblOld_->setVisible(named);
    lblWith_->setVisible(named);
    lblReplacement_->setVisible(named);
    lblCurrent_->setVisible(true);
    lblReplacement_->setText(QString::fromStdString(source_.newName));
    paintLabel(lblReplacement_, kReplacementScheme);
    paintLabel(lblCurrent_, generated ? 0 : kCurrentScheme);

    const int place = source_.selectedPlace;
    bool bankB = false;
    if (mode == 1) {
        bankB = place / kPatchPlaces == 1;
        txtNum_->setText(QString::number(std::clamp(place % kPatchPlaces, 0, kPatchPlaces - 1)));
    } else if (mode == 4) {
        bankB = place / kMultiPlaces == 1;
        txtNum_->setText(QString::number(std::clamp(place % kMultiPlaces, 0, kMultiPlaces - 1)));
    } else if (generated) {
        bankB = source_.bankLoaded && source_.bankLoaded(2);
    }
    (bankB ? option2_ : option1_)->setChecked(true);

    cmbTextChoice_->clear();
    if (mode == 5) {
        for (int position = kPresetPatterns; position < kPresetPatterns + kUserPatterns; ++position) {
            const std::string name = source_.nameAt ? source_.nameAt(position) : std::string();
            cmbTextChoice_->addItem(QString::fromStdString(patternSlotName(position) + " " + name));
        }
        cmbTextChoice_->setCurrentIndex(std::clamp(place - kPresetPatterns, 0, kUserPatterns - 1));
    }
    settingUp_ = false;
    doUpdate();
    adjustSize();
}

DialogChoice Dialog::choice() const
{
    return {option2_->isChecked(), txtNum_->text().toInt(), cmbTextChoice_->currentIndex()};
}

int Dialog::bankKind() const { return dialogBankKind(mode_, option2_->isChecked()); }

void Dialog::doUpdate()
{
    if (settingUp_ || mode_ == 0)
        return;
    value_ = dialogResult(mode_, choice());
    if (mode_ == 2 || mode_ == 3) {
        const bool loaded = source_.bankLoaded && source_.bankLoaded(bankKind());
        lblCurrent_->setText(loaded ? "Overwrite loaded bank?" : "");
        return;
    }
    const std::string name = source_.nameAt ? source_.nameAt(value_) : std::string();
    lblCurrent_->setText(QString::fromStdString(name));
}

void Dialog::done(int code)
{
    if (code == QDialog::Accepted)
        doUpdate();
    else
        value_ = -1;
    QDialog::done(code);
}

int runDialog(int mode, DialogSource source, QWidget* parent)
{
    Dialog dialog(std::move(source), parent);
    dialog.doSetup(mode);
    if (dialog.mode() == 0)
        return -1;
    dialog.exec();
    return dialog.value();
}

}  // namespace quillon

#include "Dialog.moc"

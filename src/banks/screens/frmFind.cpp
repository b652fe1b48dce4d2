#include "banks/screens/frmFind.h"

#include "banks/BankFind.h"
#include "shell/AppModel.h"
#include "shell/screens/FormButtons.h"
#include "shell/screens/FormLaunchers.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace quillon {

namespace {

QStringList toList(const std::vector<std::string>& rows)
{
    QStringList list;
    for (const std::string& row : rows)
        list << QString::fromStdString(row);
    return list;
}

}  // namespace

frmFind::frmFind(AppModel& model, QWidget* parent) : QDialog(parent), model_(model)
{
    setObjectName("frmFind");
    setWindowTitle("Find Patches");
    const FindSettings& settings = model_.settings.find;

    auto* byName = new QGroupBox("Find by name", this);
    byName->setObjectName("fraFindByName");
    textOptions_ = new QComboBox(byName);
    textOptions_->setObjectName("cmbFindTextOptions");
    textOptions_->addItems(toList(findTextOptionCaptions()));
    textOptions_->setCurrentIndex(settings.textOption);
    text_ = new QComboBox(byName);
    text_->setObjectName("cmbFindText");
    text_->setEditable(true);
    text_->setInsertPolicy(QComboBox::NoInsert);
    fillRecentTexts();
    text_->setEditText(QString::fromStdString(settings.text));
    auto* nameRow = new QGridLayout(byName);
    nameRow->addWidget(textOptions_, 0, 0);
    nameRow->addWidget(text_, 0, 1);
    auto* nameButtons = new QHBoxLayout;
    QPushButton* cmdFindText = namedButton("cmdFindText", "Find", byName);
    QPushButton* cmdFindTextPlus = namedButton("cmdFindTextPlus", "+", byName);
    QPushButton* cmdFindTextMinus = namedButton("cmdFindTextMinus", "-", byName);
    for (QPushButton* b : {cmdFindText, cmdFindTextPlus, cmdFindTextMinus})
        nameButtons->addWidget(b);
    nameRow->addLayout(nameButtons, 0, 2);

    auto* byType = new QGroupBox("Find by type", this);
    byType->setObjectName("fraFindByType");
    typeOptions_ = new QComboBox(byType);
    typeOptions_->setObjectName("cmbFindTypeOptions");
    typeOptions_->addItems(toList(findTypeOptionCaptions()));
    typeOptions_->setCurrentIndex(settings.typeOption);
    auto* lblIs = new QLabel("is", byType);
    lblIs->setObjectName("lblIs");
    typeName_ = new QComboBox(byType);
    typeName_->setObjectName("cmbTypeName");
    typeName_->setMaxVisibleItems(20);
    fillTypeNames();
    typeName_->setCurrentIndex(std::min(settings.typeValue, typeName_->count() - 1));
    auto* typeRow = new QGridLayout(byType);
    typeRow->addWidget(typeOptions_, 0, 0);
    typeRow->addWidget(lblIs, 0, 1);
    typeRow->addWidget(typeName_, 0, 2);
    auto* typeButtons = new QHBoxLayout;
    QPushButton* cmdFindType = namedButton("cmdFindType", "Find", byType);
    QPushButton* cmdFindTypePlus = namedButton("cmdFindTypePlus", "+", byType);
    QPushButton* cmdFindTypeMinus = namedButton("cmdFindTypeMinus", "-", byType);
    for (QPushButton* b : {cmdFindType, cmdFindTypePlus, cmdFindTypeMinus})
        typeButtons->addWidget(b);
    typeRow->addLayout(typeButtons, 0, 3);

    auto* bottom = new QHBoxLayout;
    QPushButton* cmdSwitchButton = namedButton("cmdSwitch", "Switch", this);
    cmdSwitchButton->setToolTip("Select the patches not selected, and deselect the others");
    QPushButton* cmdDone = namedButton("cmdDone", "Done", this);
    QPushButton* cmdHelp = namedButton("cmdHelp", "Help", this);
    bottom->addWidget(cmdSwitchButton);
    bottom->addStretch(1);
    bottom->addWidget(cmdDone);
    bottom->addWidget(cmdHelp);

    auto* column = new QVBoxLayout(this);
    column->addWidget(byName);
    column->addWidget(byType);
    column->addLayout(bottom);

    connect(cmdFindText, &QPushButton::clicked, this, [this] { findText({false, false}); });
    connect(cmdFindTextPlus, &QPushButton::clicked, this, [this] { findText({true, false}); });
    connect(cmdFindTextMinus, &QPushButton::clicked, this, [this] { findText({false, true}); });
    connect(cmdFindType, &QPushButton::clicked, this, [this] { findType({false, false}); });
    connect(cmdFindTypePlus, &QPushButton::clicked, this, [this] { findType({true, false}); });
    connect(cmdFindTypeMinus, &QPushButton::clicked, this, [this] { findType({false, true}); });
    connect(cmdSwitchButton, &QPushButton::clicked, this, [this] { cmdSwitch(model_); });
    connect(cmdDone, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdHelp, &QPushButton::clicked, this, [] { doHelpShowThis(kFindHelpContext); });
    connect(textOptions_, &QComboBox::currentIndexChanged, this,
            [this](int index) { model_.settings.find.textOption = std::max(0, index); });
    connect(typeOptions_, &QComboBox::currentIndexChanged, this, [this](int index) {
        model_.settings.find.typeOption = std::max(0, index);
        // A new option starts on the first row of its list.
        fillTypeNames();
        typeName_->setCurrentIndex(0);
        model_.settings.find.typeValue = 0;
    });
    connect(typeName_, &QComboBox::currentIndexChanged, this,
            [this](int index) { model_.settings.find.typeValue = std::max(0, index); });
}

void frmFind::fillRecentTexts()
{
    const QString typed = text_->currentText();
    text_->clear();
    text_->addItems(toList(model_.settings.find.recentTexts));
    text_->setEditText(typed);
}

void frmFind::fillTypeNames()
{
    const QSignalBlocker quiet(typeName_);
    typeName_->clear();
    typeName_->addItems(toList(findTypeNames(model_, typeOptions_->currentIndex() + kFindTypeCodeBase)));
}

void frmFind::findText(FindScope scope)
{
    FindSettings& settings = model_.settings.find;
    settings.text = findTextOf(text_->currentText().toStdString());
    if (!settings.text.empty()) {
        rememberFindText(settings, settings.text);
        fillRecentTexts();
    }
    runFind(model_, textOptions_->currentIndex(), scope);
}

void frmFind::findType(FindScope scope)
{
    model_.settings.find.typeValue = std::max(0, typeName_->currentIndex());
    runFind(model_, typeOptions_->currentIndex() + kFindTypeCodeBase, scope);
}

void showFindForm(AppModel& model, QWidget* parent)
{
    frmFind form(model, parent);
    form.exec();
}

}  // namespace quillon

#include "editors/screens/EditorPanels.h"

#include "editors/ItemStatus.h"
#include "editors/MultiSelect.h"
#include "editors/Navigation.h"
#include "editors/ScreenLayout.h"
#include "editors/screens/EditorWidgets.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

namespace quillon {

namespace {

QString text(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

QString boldStyle(bool bold) { return bold ? "font-weight: bold;" : "font-weight: normal;"; }

// The buttons and labels that choose what the frames show keep the focus
// when clicked: it must not fall into a value box of the rows they bring.
QToolButton* arrow(const QString& name, Qt::ArrowType type, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setArrowType(type);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

void fillCombo(QComboBox* combo, const MultiBankList& list)
{
    const QSignalBlocker blocker(combo);
    combo->clear();
    for (const std::string& name : list.names)
        combo->addItem(QString::fromStdString(name));
    combo->setCurrentIndex(list.listIndex);
}

}  // namespace

PatchGroupPanel::PatchGroupPanel(AppModel& model, QWidget* parent) : QWidget(parent), model_(model)
{
    setObjectName("fraPatchGroup");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < kPatchGroups; ++i) {
        auto* label = new ClickLabel(text(patchGroup(i).caption), this);
        label->setObjectName(QString("lblGroup_%1").arg(i));
        label->setFocusPolicy(Qt::ClickFocus);
        label->setFrameShape(QFrame::StyledPanel);
        label->setContentsMargins(6, 3, 6, 3);
        label->setCursor(Qt::PointingHandCursor);
        connect(label, &ClickLabel::released, this, [this, i](Qt::MouseButton button) {
            if (button == Qt::LeftButton)
                clickGroup(model_, i);
        });
        column->addWidget(label);
        groups_[static_cast<std::size_t>(i)] = label;
    }
    column->addSpacing(8);
    selected_ = new QLabel(this);
    selected_->setObjectName("lblGroupSelected");
    selected_->setAlignment(Qt::AlignCenter);
    column->addWidget(selected_);

    subSections_ = new QWidget(this);
    subSections_->setObjectName("fraSubSections");
    auto* arrows = new QHBoxLayout(subSections_);
    arrows->setContentsMargins(0, 0, 0, 0);
    auto* down = arrow("cmdSubSectionDown", Qt::LeftArrow, subSections_);
    auto* up = arrow("cmdSubSectionUp", Qt::RightArrow, subSections_);
    down->setToolTip(text(kSubSectionDownTip));
    up->setToolTip(text(kSubSectionUpTip));
    arrows->addStretch(1);
    arrows->addWidget(down);
    arrows->addWidget(up);
    arrows->addStretch(1);
    connect(up, &QToolButton::clicked, this, [this] { clickSubSectionArrow(model_, +1); });
    connect(down, &QToolButton::clicked, this, [this] { clickSubSectionArrow(model_, -1); });
    column->addWidget(subSections_);
    column->addStretch(1);
}

void PatchGroupPanel::mirror()
{
    const NavigationState& nav = model_.layout.nav;
    for (int i = 0; i < kPatchGroups; ++i)
        restyle(groups_[static_cast<std::size_t>(i)], boldStyle(nav.boldGroup == i));
    selected_->setText(QString::fromStdString(nav.lblGroupSelected));
    subSections_->setVisible(nav.fraSubSections);
}

MultiSelectPanel::MultiSelectPanel(AppModel& model, QWidget* parent) : QWidget(parent), model_(model)
{
    setObjectName("fraMultiSelect");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    bankA_ = new QComboBox(this);
    bankA_->setObjectName("cmbMultiBankA");
    bankB_ = new QComboBox(this);
    bankB_->setObjectName("cmbMultiBankB");
    connect(bankA_, &QComboBox::activated, this, [this](int index) { clickMultiBankList(model_, kMultiBankA, index); });
    connect(bankB_, &QComboBox::activated, this, [this](int index) { clickMultiBankList(model_, kMultiBankB, index); });
    auto* banks = new QWidget(this);
    banks->setObjectName("fraMultiBank");
    auto* bankColumn = new QVBoxLayout(banks);
    bankColumn->setContentsMargins(0, 0, 0, 0);
    const auto bankLabel = [this, banks](const char* name, int kind) {
        auto* label = new ClickLabel(banks);
        label->setObjectName(name);
        label->setAlignment(Qt::AlignCenter);
        label->setCursor(Qt::PointingHandCursor);
        connect(label, &ClickLabel::released, this, [this, kind](Qt::MouseButton button) {
            clickLoadedLabel(model_, kind, button == Qt::RightButton);
        });
        return label;
    };
    labelA_ = bankLabel("lblMultiBankA", kMultiBankA);
    labelB_ = bankLabel("lblMultiBankB", kMultiBankB);
    bankColumn->addWidget(labelA_);
    bankColumn->addWidget(bankA_);
    bankColumn->addWidget(labelB_);
    bankColumn->addWidget(bankB_);
    column->addWidget(banks);
    column->addSpacing(8);

    for (int i = 0; i < kMultiGroups; ++i) {
        auto* label = new ClickLabel(this);
        label->setObjectName(QString("lblMultiSect_%1").arg(i));
        label->setFocusPolicy(Qt::ClickFocus);
        label->setFrameShape(QFrame::StyledPanel);
        label->setContentsMargins(6, 2, 6, 2);
        label->setCursor(Qt::PointingHandCursor);
        connect(label, &ClickLabel::released, this, [this, i](Qt::MouseButton button) {
            if (button == Qt::LeftButton)
                clickMultiSect(model_, i);
        });
        column->addWidget(label);
        sections_[static_cast<std::size_t>(i)] = label;
    }
    column->addSpacing(8);

    // The selection label with its arrows, shown while a button with more
    // than one subsection is in use.
    sectionsFrame_ = new QWidget(this);
    sectionsFrame_->setObjectName("fraMultiSections");
    auto* selection = new QVBoxLayout(sectionsFrame_);
    selection->setContentsMargins(0, 0, 0, 0);
    sectSel_ = new ClickLabel(sectionsFrame_);
    sectSel_->setObjectName("lblMultiSectSel");
    sectSel_->setAlignment(Qt::AlignCenter);
    sectSel_->setToolTip(text(kMultiSectSelTooltip));
    selection->addWidget(sectSel_);
    auto* arrows = new QHBoxLayout;
    auto* down = arrow("cmdMultiSectDown", Qt::LeftArrow, sectionsFrame_);
    auto* up = arrow("cmdMultiSectUp", Qt::RightArrow, sectionsFrame_);
    arrows->addStretch(1);
    arrows->addWidget(down);
    arrows->addWidget(up);
    arrows->addStretch(1);
    connect(up, &QToolButton::clicked, this, [this] { clickMultiSectArrow(model_, +1); });
    connect(down, &QToolButton::clicked, this, [this] { clickMultiSectArrow(model_, -1); });
    selection->addLayout(arrows);
    column->addWidget(sectionsFrame_);
    column->addStretch(1);
}

void MultiSelectPanel::mirrorLabels()
{
    for (const auto& [kind, label] : {std::pair{kMultiBankA, labelA_}, std::pair{kMultiBankB, labelB_}}) {
        const LoadedLabel& state = model_.labels.label(kind);
        label->setText(QString::fromStdString(state.text));
        restyle(label, loadedLabelStyle(state.scheme, state.highlighted, label));
    }
}

void MultiSelectPanel::mirror()
{
    const MultiSelectState& state = model_.multiSelect;
    for (int i = 0; i < kMultiGroups; ++i) {
        const MultiSectLabel& sect = state.sect[static_cast<std::size_t>(i)];
        ClickLabel* label = sections_[static_cast<std::size_t>(i)];
        label->setText(QString::fromStdString(sect.caption));
        restyle(label, schemeStyle(sect.scheme, this) + boldStyle(model_.layout.nav.boldMultiGroup == i));
    }
    sectSel_->setText(QString::fromStdString(state.sectSel.caption));
    restyle(sectSel_, schemeStyle(state.sectSel.scheme, this));
    sectionsFrame_->setVisible(state.sectionsVisible);
    fillCombo(bankA_, state.bankA);
    fillCombo(bankB_, state.bankB);
}

}  // namespace quillon

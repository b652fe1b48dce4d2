#include "editors/screens/frmMod.h"

#include "editors/ScreenLayout.h"
#include "editors/screens/EditorWidgets.h"
#include "output/Printer.h"
#include "shell/AppModel.h"
#include "shell/screens/FormLaunchers.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace quillon {

namespace {

// Measures of the columns, in twips.
constexpr int kSectWidth = 1800;
constexpr int kSubsectWidth = 1800;
constexpr int kNameWidth = 2000;
constexpr int kValueWidth = 620;
constexpr int kSpinWidth = 255;
constexpr int kDecodeWidth = 2000;
constexpr int kRowHeight = 256;

QLabel* header(const QString& name, const QString& caption, QWidget* parent)
{
    auto* label = new QLabel(caption, parent);
    label->setObjectName(name);
    label->setContentsMargins(3, 1, 3, 1);
    label->setStyleSheet(schemeStyle(kModHeaderScheme, parent));
    return label;
}

}  // namespace

frmMod::frmMod(AppModel& model, QWidget* parent) : QDialog(parent), model_(model)
{
    setObjectName("frmMod");
    const double scale = screenScale(this);
    auto* column = new QVBoxLayout(this);

    showHead_ = header("lblModShowHead", QString(), this);
    column->addWidget(showHead_);

    auto* body = new QHBoxLayout;
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(3);
    grid->setVerticalSpacing(2);
    grid->addWidget(header("lblSectHead", "Section", this), 0, 0);
    grid->addWidget(header("lblSubsectHead", "Subsection", this), 0, 1);
    grid->addWidget(header("lblParamHead", "Parameter", this), 0, 2);
    grid->addWidget(header("lblModHead", "Modulator", this), 0, 3, 1, 3);
    for (int r = 0; r < kModScreenRows; ++r)
        buildRow(r, grid);
    grid->setColumnMinimumWidth(0, twipsToPixels(kSectWidth, scale));
    grid->setColumnMinimumWidth(1, twipsToPixels(kSubsectWidth, scale));
    grid->setColumnMinimumWidth(2, twipsToPixels(kNameWidth, scale));
    grid->setColumnMinimumWidth(5, twipsToPixels(kDecodeWidth, scale));
    grid->setRowStretch(kModScreenRows + 1, 1);
    body->addLayout(grid, 1);

    scroll_ = new QScrollBar(Qt::Vertical, this);
    scroll_->setObjectName("vsbArrayNo");
    scroll_->setPageStep(kModScreenRows - 1);
    connect(scroll_, &QScrollBar::valueChanged, this, [this](int offset) {
        scrollModList(model_, list_, offset);
        for (int r = 0; r < kModScreenRows; ++r)
            mirrorRow(r);
    });
    body->addWidget(scroll_);
    column->addLayout(body, 1);

    auto* buttons = new QHBoxLayout;
    auto button = [this, buttons](const char* name, const char* caption) {
        auto* b = new QPushButton(caption, this);
        b->setObjectName(name);
        b->setAutoDefault(false);
        buttons->addWidget(b);
        return b;
    };
    QPushButton* done = button("cmdDone", "Done");
    QPushButton* reset = button("cmdReset", "Reset all");
    QPushButton* printButton = button("cmdPrint", "Print");
    QPushButton* help = button("cmdHelp", "Help");
    buttons->addStretch(1);
    column->addLayout(buttons);
    connect(done, &QPushButton::clicked, this, [this] {
        closeModList(model_);
        accept();
    });
    connect(reset, &QPushButton::clicked, this, [this] {
        resetModSources(model_, list_);
        mirror();
    });
    connect(printButton, &QPushButton::clicked, this, &frmMod::print);
    connect(help, &QPushButton::clicked, this, [] { doHelpShowThis(kModSourcesHelp); });

    buildModList(model_, list_);
    showModRows(model_, list_);
    mirror();
}

void frmMod::buildRow(int row, QGridLayout* grid)
{
    const double scale = screenScale(this);
    const int height = twipsToPixels(kRowHeight, scale);
    RowControls& r = rows_[static_cast<std::size_t>(row)];
    const QString n = QString::number(row);
    auto label = [this, &n, height](const char* name, const char* tip) {
        auto* l = new ClickLabel(this);
        l->setObjectName(QString(name) + "_" + n);
        l->setToolTip(tip);
        l->setFixedHeight(height);
        l->setContentsMargins(3, 0, 3, 0);
        l->setStyleSheet(schemeStyle(kModLabelScheme, this));
        return l;
    };
    r.sect = label("lblSect", kModSectTip);
    r.subsect = label("lblSubsect", kModSubsectTip);
    r.name = label("lblParamName", kModParamNameTip);
    r.decode = label("lblParamDecode", kModDecodeTip);
    r.value = new QLineEdit(this);
    r.value->setObjectName("txtParamVal_" + n);
    r.value->setFixedSize(twipsToPixels(kValueWidth, scale), height);
    r.value->setAlignment(Qt::AlignRight);
    r.value->installEventFilter(this);
    r.spin = new SpinArrows(this);
    r.spin->setObjectName("updParamVal_" + n);
    r.spin->setFixedSize(twipsToPixels(kSpinWidth, scale), height);
    const int gridRow = row + 1;
    grid->addWidget(r.sect, gridRow, 0);
    grid->addWidget(r.subsect, gridRow, 1);
    grid->addWidget(r.name, gridRow, 2);
    grid->addWidget(r.value, gridRow, 3);
    grid->addWidget(r.spin, gridRow, 4);
    grid->addWidget(r.decode, gridRow, 5);

    auto jump = [this, row](Qt::MouseButton button) {
        if (button == Qt::LeftButton && goToModSubsection(model_, list_, row))
            accept();
    };
    connect(r.sect, &ClickLabel::released, this, jump);
    connect(r.subsect, &ClickLabel::released, this, jump);
    connect(r.value, &QLineEdit::textEdited, this, [this, row](const QString& t) {
        changeModValue(model_, list_, row, t.toStdString());
        mirrorRow(row);
    });
    connect(r.spin, &SpinArrows::stepped, this, [this, row](bool up) {
        stepModValue(model_, list_, row, up);
        mirrorRow(row);
    });
    connect(r.name, &ClickLabel::doubleClicked, this, [this, row] {
        doubleClickModName(model_, list_, row);
        mirrorRow(row);
    });
    connect(r.decode, &ClickLabel::doubleClicked, this, [this, row] {
        doubleClickModDecode(model_, list_, row);
        mirrorRow(row);
    });
}

bool frmMod::eventFilter(QObject* watched, QEvent* event)
{
    for (int row = 0; row < kModScreenRows; ++row) {
        QLineEdit* value = rows_[static_cast<std::size_t>(row)].value;
        if (watched != value)
            continue;
        if (event->type() == QEvent::FocusIn) {
            value->selectAll();
        } else if (event->type() == QEvent::MouseButtonDblClick) {
            doubleClickModValue(model_, list_, row);
            mirrorRow(row);
            return true;
        }
        return false;
    }
    return QDialog::eventFilter(watched, event);
}

void frmMod::mirror()
{
    setWindowTitle(QString::fromStdString(list_.title));
    showHead_->setText(QString::fromStdString(list_.showHead));
    {
        const QSignalBlocker blocker(scroll_);
        scroll_->setRange(0, list_.scrollMax);
        scroll_->setValue(list_.ModOffset);
        scroll_->setEnabled(list_.scrollEnabled);
    }
    for (int r = 0; r < kModScreenRows; ++r)
        mirrorRow(r);
}

void frmMod::mirrorRow(int row)
{
    const ModScreenRow& view = list_.screen[static_cast<std::size_t>(row)];
    RowControls& r = rows_[static_cast<std::size_t>(row)];
    r.sect->setText(QString::fromStdString(view.sect));
    r.subsect->setText(QString::fromStdString(view.subsect));
    r.name->setText(QString::fromStdString(view.paramName));
    showRowValue(r.value, r.spin, QString::fromStdString(view.valueText), view.value, view.min, view.max);
    r.decode->setText(QString::fromStdString(view.decode));
    for (QWidget* w : {static_cast<QWidget*>(r.sect), static_cast<QWidget*>(r.subsect), static_cast<QWidget*>(r.name),
                       static_cast<QWidget*>(r.value), static_cast<QWidget*>(r.spin), static_cast<QWidget*>(r.decode)})
        w->setVisible(view.visible);
}

void frmMod::print()
{
    // The list goes to the program's printer like every other printout.
    if (Printer* printer = model_.printer())
        printer->print(windowTitle().toStdString(), modListPrintLines(model_, list_));
}

void showModSources(AppModel& model, QWidget* parent)
{
    if (!canOpenModSources(model))
        return;
    frmMod form(model, parent);
    form.exec();
}

}  // namespace quillon

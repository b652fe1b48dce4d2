#include "model/screens/TableBrowserForm.h"

#include "shell/screens/FormLaunchers.h"

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

namespace quillon {

namespace {

// The browsers have no help topic of their own; their Help opens the
// contents.
constexpr int kBrowserHelpContext = 1;

// 15 twips to a pixel at 96 dots an inch, scaled with the screen's font.
int pixelsOf(const QWidget* widget, int twips)
{
    const qreal scale = widget->logicalDpiX() / 96.0;
    return static_cast<int>(twips / 15.0 * (scale > 0 ? scale : 1.0));
}

QLabel* makeCell(QWidget* parent, const QString& name)
{
    auto* cell = new QLabel(parent);
    cell->setObjectName(name);
    cell->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    cell->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return cell;
}

}  // namespace

TableBrowserForm::TableBrowserForm(BrowserTable table, std::vector<BrowserColumnLayout> columns,
                                   const QString& barName, QWidget* parent)
    : QDialog(parent), table_(table), columns_(std::move(columns))
{
    auto* outer = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(pixelsOf(this, 60));
    grid->setVerticalSpacing(pixelsOf(this, 30));

    const int columnCount = static_cast<int>(columns_.size());
    cells_.resize(columnCount);
    for (int c = 0; c < columnCount; ++c) {
        const BrowserColumnLayout& column = columns_[c];
        auto* headLabel = new QLabel(column.head, this);
        headLabel->setObjectName(QString("lblHead%1").arg(column.labelStem));
        headLabel->setAlignment(Qt::AlignCenter);
        heads_.push_back(headLabel);
        grid->addWidget(headLabel, 0, c);

        auto* box = new QLineEdit(this);
        box->setObjectName(QString("txt%1").arg(column.boxStem));
        box->setMinimumWidth(pixelsOf(this, column.widthInTwips));
        box->installEventFilter(this);
        boxes_.push_back(box);
        grid->addWidget(box, 1, c);

        for (int line = 0; line < kBrowserLines; ++line) {
            QLabel* cell = makeCell(this, QString("lbl%1_%2").arg(column.labelStem).arg(line));
            cell->setMinimumWidth(pixelsOf(this, column.widthInTwips));
            cells_[c][line] = cell;
            grid->addWidget(cell, 2 + line, c);
        }
        // The name takes what room there is; the numbers keep their width.
        grid->setColumnStretch(c, browserSearchRule(table_, c) == SearchRule::Text ? 1 : 0);
    }

    bar_ = new QScrollBar(Qt::Vertical, this);
    bar_->setObjectName(barName);
    bar_->setSingleStep(1);
    grid->addWidget(bar_, 2, columnCount, kBrowserLines, 1);
    connect(bar_, &QScrollBar::valueChanged, this, [this] { showRows(); });

    outer->addLayout(grid);

    auto* buttons = new QHBoxLayout;
    auto* cmdSearch = new QPushButton("Search", this);
    cmdSearch->setObjectName("cmdSearch");
    cmdSearch->setDefault(true);
    auto* cmdAll = new QPushButton("Display all", this);
    cmdAll->setObjectName("cmdAll");
    cmdAll->setAutoDefault(false);
    auto* cmdDone = new QPushButton("Done", this);
    cmdDone->setObjectName("cmdDone");
    cmdDone->setAutoDefault(false);
    auto* cmdHelp = new QPushButton("Help", this);
    cmdHelp->setObjectName("cmdHelp");
    cmdHelp->setAutoDefault(false);
    buttons->addWidget(cmdSearch);
    buttons->addWidget(cmdAll);
    buttons->addStretch(1);
    buttons->addWidget(cmdDone);
    buttons->addWidget(cmdHelp);
    outer->addLayout(buttons);

    connect(cmdSearch, &QPushButton::clicked, this, [this] { cmdSearchClick(); });
    connect(cmdAll, &QPushButton::clicked, this, [this] { doSetup(mode_.mode); });
    connect(cmdDone, &QPushButton::clicked, this, &QDialog::close);
    connect(cmdHelp, &QPushButton::clicked, this, [] { doHelpShowThis(kBrowserHelpContext); });
}

void TableBrowserForm::doSetup(int mode)
{
    mode_ = modeFor(mode);
    setWindowTitle(QString::fromStdString(mode_.title));
    hits_.clear();
    searched_ = false;
    for (QLineEdit* box : boxes_)
        box->clear();
    const ScrollRange range = modeRange(mode_);
    const QSignalBlocker blocker(bar_);
    bar_->setRange(range.min, range.max);
    bar_->setPageStep(range.largeChange);
    bar_->setValue(range.min);
    showRows();
}

void TableBrowserForm::cmdSearchClick()
{
    const std::vector<std::string> texts = boxTexts();
    if (!anySearchBoxFilled(texts)) {
        doSetup(mode_.mode);
        return;
    }
    hits_ = searchBrowser(paramTables(), mode_, texts);
    searched_ = true;
    const ScrollRange range = hitListRange(static_cast<int>(hits_.size()));
    const QSignalBlocker blocker(bar_);
    bar_->setRange(range.min, range.max);
    bar_->setPageStep(range.largeChange);
    bar_->setValue(range.min);
    showRows();
}

void TableBrowserForm::showRows()
{
    const ParamTables& tables = paramTables();
    const std::array<int, kBrowserLines> rows = shownRows(mode_, searched_, hits_, bar_->value());
    for (int c = 0; c < static_cast<int>(cells_.size()); ++c)
        for (int line = 0; line < kBrowserLines; ++line)
            cells_[c][line]->setText(QString::fromStdString(browserCell(tables, mode_, rows[line], c)));
}

std::vector<std::string> TableBrowserForm::boxTexts() const
{
    std::vector<std::string> texts;
    for (const QLineEdit* box : boxes_)
        texts.push_back(box->text().toStdString());
    return texts;
}

// A search box takes all its text when it gets the focus, whether by key or
// by mouse; the selection waits for the click that gave the focus to end.
bool TableBrowserForm::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        if (auto* box = qobject_cast<QLineEdit*>(watched))
            QTimer::singleShot(0, box, &QLineEdit::selectAll);
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace quillon

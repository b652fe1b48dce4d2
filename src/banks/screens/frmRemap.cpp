#include "banks/screens/frmRemap.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCursor>
#include <QTextDocumentFragment>
#include <QVBoxLayout>

namespace quillon {

namespace {

// A tab stop wide enough for a 16-character name and a blank or two.
constexpr int kTabStopCharacters = 18;

struct SortButton {
    const char* name;
    const char* caption;
    int order;
};

constexpr SortButton kSortButtons[] = {
    {"cmdSortByOldNum", "Old Number", kByOldNumber},
    {"cmdSortByOldName", "Old Name", kByOldName},
    {"cmdSortByNewNum", "New Number", kByNewNumber},
    {"cmdSortByNewName", "New Name", kByNewName},
};

}  // namespace

frmRemap::frmRemap(RemapShowData data, QWidget* parent) : QDialog(parent), data_(std::move(data))
{
    setObjectName("frmRemap");
    setWindowTitle("Show Remap");
    auto* column = new QVBoxLayout(this);

    txtShowRemap_ = new QPlainTextEdit(this);
    txtShowRemap_->setObjectName("txtShowRemap");
    txtShowRemap_->setReadOnly(true);
    txtShowRemap_->setLineWrapMode(QPlainTextEdit::NoWrap);
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    txtShowRemap_->setFont(fixed);
    const QFontMetrics metrics(fixed);
    txtShowRemap_->setTabStopDistance(metrics.horizontalAdvance(QLatin1Char(' ')) * kTabStopCharacters);
    txtShowRemap_->setMinimumSize(metrics.horizontalAdvance(QLatin1Char(' ')) * kTabStopCharacters * 4,
                                  metrics.lineSpacing() * 24);
    column->addWidget(txtShowRemap_);

    auto* buttons = new QHBoxLayout;
    for (const SortButton& sort : kSortButtons) {
        auto* button = new QPushButton(sort.caption, this);
        button->setObjectName(sort.name);
        connect(button, &QPushButton::clicked, this, [this, order = sort.order] { showOrder(order); });
        buttons->addWidget(button);
    }
    buttons->addStretch();
    auto* copy = new QPushButton("Copy", this);
    copy->setObjectName("cmdCopy");
    connect(copy, &QPushButton::clicked, this, &frmRemap::copyText);
    buttons->addWidget(copy);
    column->addLayout(buttons);

    showOrder(kByOldNumber);
}

void frmRemap::showOrder(int order)
{
    txtShowRemap_->setPlainText(QString::fromStdString(remapShowText(data_, order)));
}

void frmRemap::copyText()
{
    const QTextCursor cursor = txtShowRemap_->textCursor();
    QString text = cursor.hasSelection() ? cursor.selection().toPlainText() : txtShowRemap_->toPlainText();
    QGuiApplication::clipboard()->setText(text);
}

void showRemapForm(AppModel& model, QWidget* parent)
{
    RemapShowData data;
    if (!openShowRemap(model, data))
        return;
    frmRemap form(std::move(data), parent);
    form.exec();
}

}  // namespace quillon

#include "shell/screens/MessageBox.h"

#include "shell/screens/FormLaunchers.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace quillon {

MessageBox::MessageBox(QWidget* parent) : QDialog(parent)
{
    setObjectName("MessageBox");
    auto* icon = new QLabel(this);
    icon->setObjectName("imgIcon");
    const int iconSize = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxQuestion, nullptr, this).pixmap(iconSize));
    icon->setAlignment(Qt::AlignTop);
    lblText_ = new QLabel(this);
    lblText_->setObjectName("lblText");
    lblText_->setWordWrap(true);
    lblText_->setMinimumWidth(lblText_->fontMetrics().horizontalAdvance(QString(40, 'x')));
    lblText_->setTextInteractionFlags(Qt::TextSelectableByMouse);

    cmdYesOrOK_ = new QPushButton(this);
    cmdYesOrOK_->setObjectName("cmdYesOrOK");
    cmdNoOrOK_ = new QPushButton(this);
    cmdNoOrOK_->setObjectName("cmdNoOrOK");
    cmdCancel_ = new QPushButton("Cancel", this);
    cmdCancel_->setObjectName("cmdCancel");
    cmdHelp_ = new QPushButton("Help", this);
    cmdHelp_->setObjectName("cmdHelp");
    for (QPushButton* button : {cmdYesOrOK_, cmdNoOrOK_, cmdCancel_})
        connect(button, &QPushButton::clicked, this, [this, button] { answerWith(button); });
    connect(cmdHelp_, &QPushButton::clicked, this, [] { doHelpShowThis(kMessageBoxHelpContext); });

    auto* message = new QHBoxLayout;
    message->addWidget(icon);
    message->addSpacing(12);
    message->addWidget(lblText_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* button : {cmdYesOrOK_, cmdNoOrOK_, cmdCancel_, cmdHelp_})
        buttons->addWidget(button);
    auto* whole = new QVBoxLayout(this);
    whole->addLayout(message, 1);
    whole->addSpacing(12);
    whole->addLayout(buttons);
}

void MessageBox::setUp(const QString& text, int style, const QString& title)
{
    setWindowTitle(title);
    lblText_->setText(text);
    QPushButton* first = nullptr;
    switch (style) {
    case 3:
        cmdYesOrOK_->setText("Yes");
        cmdNoOrOK_->setText("No");
        cmdNoOrOK_->setVisible(true);
        cmdYesOrOK_->setVisible(true);
        cmdCancel_->setVisible(true);
        first = cmdYesOrOK_;
        break;
    case 1:
        cmdYesOrOK_->setText("OK");
        cmdYesOrOK_->setVisible(true);
        cmdNoOrOK_->setVisible(false);
        cmdCancel_->setVisible(true);
        first = cmdYesOrOK_;
        break;
    default:
        cmdNoOrOK_->setText("OK");
        cmdYesOrOK_->setVisible(false);
        cmdNoOrOK_->setVisible(true);
        cmdCancel_->setVisible(false);
        first = cmdNoOrOK_;
        break;
    }
    answer_ = cmdCancel_->isVisibleTo(this) ? kAnswerCancel : kAnswerOk;
    for (QPushButton* button : {cmdYesOrOK_, cmdNoOrOK_, cmdCancel_})
        button->setDefault(button == first);
    first->setFocus();
    adjustSize();
}

void MessageBox::answerWith(QPushButton* button)
{
    if (button == cmdYesOrOK_)
        answer_ = button->text() == "Yes" ? kAnswerYes : kAnswerOk;
    else if (button == cmdNoOrOK_)
        answer_ = button->text() == "No" ? kAnswerNo : kAnswerOk;
    else
        answer_ = kAnswerCancel;
    accept();
}

int showMessageBox(const QString& text, int style, const QString& title, QWidget* parent)
{
    MessageBox box(parent);
    box.setUp(text, style, title);
    box.exec();
    return box.answer();
}

}  // namespace quillon

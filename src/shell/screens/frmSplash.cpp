#include "shell/screens/frmSplash.h"

#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace quillon {

frmSplash::frmSplash(QWidget* parent) : QWidget(parent, Qt::SplashScreen | Qt::WindowStaysOnTopHint)
{
    setObjectName("frmSplash");
    auto* column = new QVBoxLayout(this);
    auto* title = new QLabel("Quillon", this);
    title->setObjectName("lblTitle");
    QFont big = title->font();
    big.setPointSize(big.pointSize() * 3);
    big.setBold(true);
    title->setFont(big);
    auto* subtitle = new QLabel("Sound editor and librarian for the Korg Z1", this);
    subtitle->setObjectName("lblProductName");
    auto* version = new QLabel(versionText(), this);
    version->setObjectName("lblVersion");
    for (QLabel* label : {title, subtitle, version}) {
        label->setAlignment(Qt::AlignCenter);
        column->addWidget(label);
    }
    column->setContentsMargins(40, 30, 40, 30);
    timer1_ = new QTimer(this);
    timer1_->setObjectName("Timer1");
    timer1_->setSingleShot(true);
    timer1_->setInterval(2000);
    connect(timer1_, &QTimer::timeout, this, &QWidget::close);
}

void frmSplash::closeAfterTwoSeconds() { timer1_->start(); }

QString frmSplash::versionText()
{
    return QString("Version %1.%2.%3").arg(QUILLON_VERSION_MAJOR).arg(QUILLON_VERSION_MINOR).arg(QUILLON_VERSION_PATCH);
}

}  // namespace quillon

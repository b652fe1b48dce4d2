#include "support/DialogAnswers.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <memory>

namespace quillon {

void whenNextModalOpens(std::function<void(QWidget* modal)> answer)
{
    auto* poll = new QTimer;
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, [poll, answer] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr)
            return;
        poll->stop();
        poll->deleteLater();
        answer(modal);
    });
    poll->start();
}

void answerNextFileDialog(const QString& path)
{
    whenNextModalOpens([path](QWidget* modal) {
        auto* dialog = qobject_cast<QFileDialog*>(modal);
        if (dialog == nullptr) {
            modal->close();
            return;
        }
        dialog->selectFile(path);
        if (auto* name = dialog->findChild<QLineEdit*>("fileNameEdit"))
            name->setText(path);
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

void answerNextMessageBox(const QString& buttonText, QString* seenText, QString* seenTitle)
{
    whenNextModalOpens([buttonText, seenText, seenTitle](QWidget* modal) {
        auto* box = qobject_cast<QMessageBox*>(modal);
        if (box == nullptr) {
            modal->close();
            return;
        }
        if (seenText != nullptr)
            *seenText = box->text();
        if (seenTitle != nullptr)
            *seenTitle = box->windowTitle();
        for (QAbstractButton* button : box->buttons()) {
            if (button->text().remove('&') == buttonText) {
                button->click();
                return;
            }
        }
        box->close();
    });
}

void answerMessageBoxesInTurn(const QStringList& buttonTexts, QStringList* seenTitles, QStringList* seenTexts)
{
    auto* poll = new QTimer;
    poll->setInterval(10);
    auto remaining = std::make_shared<QStringList>(buttonTexts);
    auto answered = std::make_shared<QPointer<QWidget>>();
    QObject::connect(poll, &QTimer::timeout, [=] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || box == answered->data())
            return;
        *answered = box;
        if (seenTitles != nullptr)
            seenTitles->append(box->windowTitle());
        if (seenTexts != nullptr)
            seenTexts->append(box->text());
        const QString wanted = remaining->takeFirst();
        if (remaining->isEmpty()) {
            poll->stop();
            poll->deleteLater();
        }
        for (QAbstractButton* button : box->buttons()) {
            if (button->text().remove('&') == wanted) {
                button->click();
                return;
            }
        }
        box->close();
    });
    poll->start();
}

}  // namespace quillon

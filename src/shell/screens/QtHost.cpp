#include "shell/screens/QtHost.h"

#include "shell/screens/Dialog.h"
#include "shell/screens/MessageBox.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace quillon {

namespace {

QMessageBox::Icon iconOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Information: return QMessageBox::Information;
    case MessageIcon::Exclamation: return QMessageBox::Warning;
    case MessageIcon::Critical: return QMessageBox::Critical;
    case MessageIcon::Question: return QMessageBox::Question;
    case MessageIcon::None: break;
    }
    return QMessageBox::NoIcon;
}

// The program's colours of lblStatus keep red in the low byte.
QString colourName(StatusColour colour)
{
    const int value = static_cast<int>(colour);
    return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF).name();
}

QString startFolderOf(const FileDialogRequest& request)
{
    return QString::fromStdString(request.fileName.empty() ? request.startFolder : request.fileName);
}

}  // namespace

std::string toolkitFilter(const std::string& filter)
{
    const auto bar = filter.find('|');
    return bar == std::string::npos ? filter : filter.substr(0, bar);
}

std::string filterSuffix(const std::string& filter)
{
    const auto bar = filter.find('|');
    const std::string pattern = bar == std::string::npos ? std::string() : filter.substr(bar + 1);
    return pattern.starts_with("*.") && pattern.find_first_of(";*", 2) == std::string::npos ? pattern.substr(2)
                                                                                              : std::string();
}

void QtHost::setStatusLines(QLabel* status, QLabel* message)
{
    status_ = status;
    message_ = message;
}

Answer QtHost::showMessage(const MessageRequest& request)
{
    QMessageBox box(iconOf(request.icon), QString::fromStdString(request.title), QString::fromStdString(request.text),
                    QMessageBox::NoButton, parent_);
    switch (request.buttons) {
    case MessageButtons::Ok: box.setStandardButtons(QMessageBox::Ok); break;
    case MessageButtons::YesNo: box.setStandardButtons(QMessageBox::Yes | QMessageBox::No); break;
    case MessageButtons::YesNoCancel:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        break;
    case MessageButtons::OkCancel: box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel); break;
    }
    QPushButton* help = nullptr;
    if (request.help) {
        help = box.addButton(QMessageBox::Help);
        // The box stays open while the help is read.
        help->disconnect();
        QObject::connect(help, &QPushButton::clicked, [this, context = request.helpContext] {
            if (showHelp_)
                showHelp_(context);
        });
    }
    switch (box.exec()) {
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    case QMessageBox::Cancel: return Answer::Cancel;
    case QMessageBox::Ok: return Answer::Ok;
    default:
        return request.buttons == MessageButtons::YesNoCancel || request.buttons == MessageButtons::OkCancel
                   ? Answer::Cancel
                   : Answer::Ok;
    }
}

Answer QtHost::askStep(const std::string& title, const std::string& text, int style)
{
    switch (showMessageBox(QString::fromStdString(text), style, QString::fromStdString(title), parent_)) {
    case kAnswerYes: return Answer::Yes;
    case kAnswerNo: return Answer::No;
    case kAnswerCancel: return Answer::Cancel;
    default: return Answer::Ok;
    }
}

std::optional<std::string> QtHost::chooseOpenFile(const FileDialogRequest& request)
{
    const QString path =
        QFileDialog::getOpenFileName(parent_, QString::fromStdString(request.title), startFolderOf(request),
                                     QString::fromStdString(toolkitFilter(request.filter)));
    if (path.isEmpty())
        return std::nullopt;
    return QDir::toNativeSeparators(path).toStdString();
}

std::optional<std::string> QtHost::chooseSaveFile(const FileDialogRequest& request)
{
    QFileDialog dialog(parent_, QString::fromStdString(request.title), startFolderOf(request),
                       QString::fromStdString(toolkitFilter(request.filter)));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // A name typed without an extension takes the filter's, and the question
    // before overwriting is asked of the name that will be written.
    dialog.setDefaultSuffix(QString::fromStdString(filterSuffix(request.filter)));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QString path = dialog.selectedFiles().constFirst();
    if (path.isEmpty())
        return std::nullopt;
    return QDir::toNativeSeparators(path).toStdString();
}

void QtHost::setStatus(const std::string& text, StatusColour colour)
{
    if (status_ == nullptr)
        return;
    status_->setText(QString::fromStdString(text));
    // Set only when the colour changes: a new style sheet polishes the label
    // again, and the receive and send flows set the line often.
    const QString style = "color: " + colourName(colour) + ";";
    if (status_->styleSheet() != style)
        status_->setStyleSheet(style);
    // Painted at once: a bank conversion or a send may keep the event loop
    // busy before the next paint, and the line must say what is going on.
    status_->repaint();
}

void QtHost::setMessage(const std::string& text)
{
    if (message_ == nullptr)
        return;
    if (!message_->styleSheet().isEmpty())
        message_->setStyleSheet(QString());
    message_->setText(QString::fromStdString(text));
    message_->repaint();
}

void QtHost::setMessage(const std::string& text, StatusColour colour)
{
    if (message_ == nullptr)
        return;
    const QString style = "color: " + colourName(colour) + ";";
    if (message_->styleSheet() != style)
        message_->setStyleSheet(style);
    message_->setText(QString::fromStdString(text));
    message_->repaint();
}

void QtHost::setBusy(bool busy)
{
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

int QtHost::chooseBankPlace(const BankDialogRequest& request)
{
    DialogSource source;
    source.nameAt = request.nameAt;
    source.bankLoaded = request.bankLoaded;
    source.selectedPlace = request.selectedPlace;
    source.newName = request.newName;
    return runDialog(request.mode, std::move(source), parent_);
}

}  // namespace quillon

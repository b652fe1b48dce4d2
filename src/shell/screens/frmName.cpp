#include "shell/screens/frmName.h"

#include "files/SuggestedNames.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/screens/FormLaunchers.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace quillon {

namespace {

bool hasName(int mode) { return mode == kPatch || mode == kMultiset || mode == kPattern; }

// The instrument shows the printable characters of ASCII in a name.
char instrumentCharacter(QChar c)
{
    const char16_t code = c.unicode();
    return code >= 32 && code <= 126 ? static_cast<char>(code) : '?';
}

}  // namespace

PreparedName prepareItemName(const QString& typed)
{
    PreparedName prepared;
    QString name = typed.trimmed();
    if (name.isEmpty())
        name = "Unnamed";
    if (name.size() > kItemNameLength) {
        prepared.tooLong = true;
        name.truncate(kItemNameLength);
    }
    for (QChar c : name)
        prepared.name += instrumentCharacter(c);
    prepared.name.resize(kItemNameLength, ' ');
    return prepared;
}

QString nameDialogCaption(int mode)
{
    switch (mode) {
    case kPatch: return "Edit Patch Name";
    case kMultiset: return "Edit (Single) Multiset Name";
    case kPattern: return "Edit (Single) Arpeggio Pattern Name";
    default: return {};
    }
}

std::string nameTooLongTitle(int mode)
{
    switch (mode) {
    case kPatch: return "Edit Patch Name";
    case kMultiset: return "Edit Multiset Name";
    case kPattern: return "Edit Arpeggiator Pattern Name";
    default: return {};
    }
}

QString currentItemName(const AppModel& model, int mode)
{
    if (!hasName(mode))
        return {};
    const ParamValues& values = model.buffers.of(mode).current;
    QString name;
    for (int p = 1; p <= kItemNameLength && p < static_cast<int>(values.size()); ++p) {
        if (values[p] == 0)
            break;
        name += QChar(static_cast<char16_t>(static_cast<unsigned char>(values[p])));
    }
    while (name.endsWith(' '))
        name.chop(1);
    return name;
}

void storeTypedName(AppModel& model, int mode, const QString& typed)
{
    if (!hasName(mode))
        return;
    const PreparedName prepared = prepareItemName(typed);
    if (prepared.tooLong) {
        model.host().showMessage({nameTooLongTitle(mode), "Name can be up to 16 characters",
                                  MessageIcon::Information, MessageButtons::Ok});
    }
    AppModel::Batch batch(model);
    ParamValues& values = model.buffers.of(mode).current;
    for (int p = 1; p <= kItemNameLength; ++p)
        values[p] = static_cast<unsigned char>(prepared.name[p - 1]);
    model.changed(kBuffersChanged);
    if (mode == kPattern)
        model.labels.doLoadedStatusColour(kPattern, 0);
    doLabelFileName(model, mode);
}

frmName::frmName(AppModel& model, QWidget* parent) : QDialog(parent), model_(model), mode_(model.mode)
{
    setObjectName("frmName");
    setWindowTitle(nameDialogCaption(mode_));
    txtPatchName_ = new QLineEdit(currentItemName(model, mode_), this);
    txtPatchName_->setObjectName("txtPatchName");
    txtPatchName_->setMinimumWidth(txtPatchName_->fontMetrics().horizontalAdvance(QString(kItemNameLength + 4, 'W')));
    txtPatchName_->installEventFilter(this);
    auto* cmdOK = new QPushButton("OK", this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    auto* cmdCancel = new QPushButton("Cancel", this);
    cmdCancel->setObjectName("cmdCancel");

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* whole = new QVBoxLayout(this);
    whole->addWidget(txtPatchName_);
    whole->addSpacing(8);
    whole->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, [this] {
        storeTypedName(model_, mode_, txtPatchName_->text());
        accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

bool frmName::eventFilter(QObject* watched, QEvent* event)
{
    // Gaining the focus selects the whole name, after the click that gave it.
    if (watched == txtPatchName_ && event->type() == QEvent::FocusIn)
        QTimer::singleShot(0, txtPatchName_, &QLineEdit::selectAll);
    return QDialog::eventFilter(watched, event);
}

void showNameDialog(AppModel& model, QWidget* parent)
{
    if (!hasName(model.mode))
        return;
    frmName form(model, parent);
    form.exec();
}

}  // namespace quillon

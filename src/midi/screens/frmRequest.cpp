#include "midi/screens/frmRequest.h"

#include "editors/ItemStatus.h"
#include "midi/ReceiveEngine.h"
#include "shell/AppModel.h"
#include "shell/screens/FormLaunchers.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quillon {

namespace {

// There is one Request dialog at a time; the receive engine closes it when
// the answer arrives.
frmRequest* loadedRequest = nullptr;

}  // namespace

frmRequest::frmRequest(AppModel& model, QWidget* parent) : QDialog(parent), model_(model)
{
    setObjectName("frmRequest");
    setWindowTitle("Request data from Korg Z1");

    auto* fraSelectData = new QGroupBox("Select", this);
    fraSelectData->setObjectName("fraSelectData");
    auto* options = new QVBoxLayout(fraSelectData);
    for (int i = 0; i < kRequestOptions; ++i) {
        const std::string_view caption = requestCaption(i);
        auto* option = new QRadioButton(QString::fromUtf8(caption.data(), static_cast<int>(caption.size())),
                                        fraSelectData);
        option->setObjectName(QString("optData_%1").arg(i));
        options->addWidget(option);
        optData_[static_cast<std::size_t>(i)] = option;
    }

    auto* lblMIDINote = new QLabel("REQUEST uses MIDI IN and OUT", this);
    lblMIDINote->setObjectName("lblMIDINote");

    auto* cmdOK = new QPushButton("OK", this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    auto* cmdCancel = new QPushButton("Cancel", this);
    cmdCancel->setObjectName("cmdCancel");
    cmdCancel->setAutoDefault(false);
    auto* cmdHelp = new QPushButton("Help", this);
    cmdHelp->setObjectName("cmdHelp");
    cmdHelp->setAutoDefault(false);
    connect(cmdOK, &QPushButton::clicked, this, [this] { cmdOKClick(); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdHelp, &QPushButton::clicked, this, [] { doHelpShowThis(kRequestHelpContext); });

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    buttons->addWidget(cmdHelp);
    buttons->addStretch(1);
    auto* top = new QHBoxLayout;
    top->addWidget(fraSelectData, 1);
    top->addLayout(buttons);
    auto* column = new QVBoxLayout(this);
    column->addLayout(top);
    column->addWidget(lblMIDINote);
    column->setSizeConstraint(QLayout::SetFixedSize);

    loadedRequest = this;
}

frmRequest::~frmRequest()
{
    if (loadedRequest == this)
        loadedRequest = nullptr;
}

frmRequest* frmRequest::loaded() { return loadedRequest; }

void frmRequest::doSetup()
{
    optData_[0]->setChecked(true);
    model_.midi.doneText.clear();
}

int frmRequest::selectedIndex() const
{
    for (int i = 0; i < kRequestOptions; ++i) {
        if (optData_[static_cast<std::size_t>(i)]->isChecked())
            return i;
    }
    return 0;
}

void frmRequest::cmdOKClick()
{
    const int index = selectedIndex();
    hide();
    // The request unloads the dialog itself before it goes out.
    doSendRequest(model_, index);
    if (loadedRequest == this)
        accept();
}

void unloadRequestDialog()
{
    if (loadedRequest == nullptr)
        return;
    frmRequest* dialog = loadedRequest;
    // Unloaded: not found again, even before its modal loop has ended.
    loadedRequest = nullptr;
    dialog->hide();
    dialog->done(QDialog::Accepted);
}

void showRequestDialog(AppModel& model, QWidget* parent)
{
    clearStatusMessages(model);
    frmRequest dialog(model, parent);
    dialog.doSetup();
    dialog.exec();
}

}  // namespace quillon

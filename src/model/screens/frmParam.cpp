#include "model/screens/frmParam.h"

#include "model/ParamTables.h"
#include "shell/screens/FormLaunchers.h"

#include <QAction>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

namespace quillon {

namespace {

std::vector<BrowserColumnLayout> paramColumns()
{
    return {
        {"ID", "ID", "ID", 600},          {"Name", "Name", "Name", 2800},
        {"Sect", "Sect", "Sect", 600},    {"Subsect", "SubSect", "SubSect", 750},
        {"Table", "Table", "Table", 600}, {"Min", "Min", "Min", 600},
        {"Max", "Max", "Max", 600},       {"StartB", "StartB", "StartB", 700},
        {"EndB", "EndB", "EndB", 700},    {"Firm", "Firm", "Firm", 500},
        {"Hard", "Hard", "Hard", 500},
    };
}

}  // namespace

frmParam::frmParam(QWidget* parent) : TableBrowserForm(BrowserTable::Parameters, paramColumns(), "vsbParamNo", parent)
{
    setObjectName("frmParam");
    setWindowTitle("Parameters");
    head(kColFirm)->setToolTip(kFirmDescription);
    head(kColHard)->setToolTip(kHardDescription);

    auto* bar = new QMenuBar(this);
    mnuSelect_ = bar->addMenu("Select mode");
    mnuSelect_->setObjectName("mnuSelect");
    for (const ParamModeItem& item : paramModeItems()) {
        QAction* action = mnuSelect_->addAction(item.caption);
        action->setObjectName(item.menuName);
        const int mode = item.mode;
        connect(action, &QAction::triggered, this, [this, mode] { doSetup(mode); });
    }
    layout()->setMenuBar(bar);
    doSetup(0);
}

BrowserMode frmParam::modeFor(int mode) const { return paramBrowserMode(mode); }

void showParamBrowser(QWidget* parent)
{
    static QPointer<frmParam> form;
    if (form == nullptr) {
        form = new frmParam(parent);
        form->setAttribute(Qt::WA_DeleteOnClose);
    }
    form->show();
    form->raise();
    form->activateWindow();
}

}  // namespace quillon

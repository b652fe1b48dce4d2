#include "model/screens/frmSubSection.h"

#include "shell/screens/FormLaunchers.h"

#include <QPointer>

namespace quillon {

namespace {

std::vector<BrowserColumnLayout> subSectionColumns()
{
    return {
        {"No", "No", "No", 600},
        {"ID", "ID", "ID", 700},
        {"Name", "Name", "Name", 2800},
        {"Sect", "Sect", "Sect", 600},
        {"FirstParam", "FirstParam", "First param", 1100},
        {"LastParam", "LastParam", "Last param", 1100},
    };
}

}  // namespace

frmSubSection::frmSubSection(int which, QWidget* parent)
    : TableBrowserForm(BrowserTable::SubSections, subSectionColumns(), "vsbSubSectNo", parent)
{
    setObjectName("frmSubSection");
    doSetup(which);
}

BrowserMode frmSubSection::modeFor(int mode) const { return subSectionBrowserMode(mode); }

void showSubSectionList(int which, QWidget* parent)
{
    static QPointer<frmSubSection> form;
    if (form == nullptr) {
        form = new frmSubSection(which, parent);
        form->setAttribute(Qt::WA_DeleteOnClose);
    } else {
        form->doSetup(which);
    }
    form->show();
    form->raise();
    form->activateWindow();
}

}  // namespace quillon

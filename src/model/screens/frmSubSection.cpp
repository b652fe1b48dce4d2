#include "model/screens/frmSubSection.h"

#include "shell/screens/FormLaunchers.h"

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
    showBrowserWindow(form, which, parent);
}

}  // namespace quillon

#include "model/screens/frmSection.h"

#include "shell/screens/FormLaunchers.h"

namespace quillon {

namespace {

std::vector<BrowserColumnLayout> sectionColumns()
{
    return {
        {"No", "No", "No", 600},
        {"ID", "ID", "ID", 700},
        {"Name", "Name", "Name", 2800},
        {"FirstParam", "FirstParam", "First param", 1100},
        {"LastParam", "LastParam", "Last param", 1100},
    };
}

}  // namespace

frmSection::frmSection(int which, QWidget* parent)
    : TableBrowserForm(BrowserTable::Sections, sectionColumns(), "vsbSectNo", parent)
{
    setObjectName("frmSection");
    setWindowTitle("Section list");
    doSetup(which);
}

BrowserMode frmSection::modeFor(int mode) const { return sectionBrowserMode(mode); }

void showSectionList(int which, QWidget* parent)
{
    static QPointer<frmSection> form;
    showBrowserWindow(form, which, parent);
}

}  // namespace quillon

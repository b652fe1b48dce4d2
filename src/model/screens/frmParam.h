#pragma once

#include "model/screens/TableBrowserForm.h"

class QMenu;

namespace quillon {

// The parameter browser: ten rows of the patch or multi parameter table with
// their flags, a search over the columns, and the menu mnuSelect ("Select
// mode") that picks which part of the tables is listed.
class frmParam : public TableBrowserForm {
    Q_OBJECT
public:
    explicit frmParam(QWidget* parent = nullptr);

    QMenu* selectMenu() const { return mnuSelect_; }

protected:
    BrowserMode modeFor(int mode) const override;

private:
    QMenu* mnuSelect_ = nullptr;
};

}  // namespace quillon

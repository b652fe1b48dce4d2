#pragma once

#include "model/screens/TableBrowserForm.h"

namespace quillon {

// The section list: the sections of the patch (1) or the multiset (2) with
// their ID, name and first and last parameter, ten at a time.
class frmSection : public TableBrowserForm {
    Q_OBJECT
public:
    explicit frmSection(int which, QWidget* parent = nullptr);

protected:
    BrowserMode modeFor(int mode) const override;
};

}  // namespace quillon

#pragma once

#include "model/screens/TableBrowserForm.h"

namespace quillon {

// The subsection list: the subsections of the patch (1) or the multiset (2)
// with their ID, name, parent section and first and last parameter.
class frmSubSection : public TableBrowserForm {
    Q_OBJECT
public:
    explicit frmSubSection(int which, QWidget* parent = nullptr);

protected:
    BrowserMode modeFor(int mode) const override;
};

}  // namespace quillon

#pragma once

#include "output/screens/DifferencesForm.h"

namespace quillon {

class AppModel;

// How the patch (Kind 1) or multiset (Kind 4) in the editor differs from
// the one that stood there when the latest load began. The lines are built
// as the form opens, and the same lines go to the compare file then.
class frmCompare : public DifferencesForm {
    Q_OBJECT
public:
    frmCompare(AppModel& model, int kind, QWidget* parent = nullptr);
};

}  // namespace quillon

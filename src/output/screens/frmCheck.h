#pragma once

#include "output/screens/DifferencesForm.h"

namespace quillon {

class AppModel;

// What the last load of the patch (Kind 1) or multiset (Kind 4) had to
// correct.
class frmCheck : public DifferencesForm {
    Q_OBJECT
public:
    frmCheck(const AppModel& model, int kind, QWidget* parent = nullptr);
};

}  // namespace quillon

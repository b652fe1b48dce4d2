#include "output/screens/frmCheck.h"

#include "model/Kind.h"
#include "shell/AppModel.h"
#include "shell/screens/FormLaunchers.h"

namespace quillon {

frmCheck::frmCheck(const AppModel& model, int kind, QWidget* parent) : DifferencesForm(checkView(model, kind), parent)
{
    setObjectName("frmCheck");
}

void showCheckForm(AppModel& model, QWidget* parent)
{
    if (model.mode != kPatch && model.mode != kMultiset)
        return;
    frmCheck form(model, model.mode, parent);
    form.exec();
}

}  // namespace quillon

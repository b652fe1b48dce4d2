#include "output/screens/frmCompare.h"

#include "model/Kind.h"
#include "output/CompareLast.h"
#include "shell/AppModel.h"
#include "shell/screens/FormLaunchers.h"

namespace quillon {

frmCompare::frmCompare(AppModel& model, int kind, QWidget* parent)
    : DifferencesForm(compareView(model, kind), parent)
{
    setObjectName("frmCompare");
    saveCompareResults(model, kind);
}

void showCompareForm(AppModel& model, QWidget* parent)
{
    if (model.mode != kPatch && model.mode != kMultiset)
        return;
    frmCompare form(model, model.mode, parent);
    form.exec();
}

}  // namespace quillon

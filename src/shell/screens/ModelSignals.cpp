#include "shell/screens/ModelSignals.h"

#include "shell/AppModel.h"

namespace quillon {

ModelSignals::ModelSignals(AppModel& model, QObject* parent) : QObject(parent), model_(model)
{
    model_.addObserver(this);
}

ModelSignals::~ModelSignals() { model_.removeObserver(this); }

}  // namespace quillon

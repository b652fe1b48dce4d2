#pragma once

#include "shell/AppObserver.h"

#include <QObject>

namespace quillon {

class AppModel;

// The model's notifications as a Qt signal, for the screens.
class ModelSignals : public QObject, public AppObserver {
    Q_OBJECT
public:
    explicit ModelSignals(AppModel& model, QObject* parent = nullptr);
    ~ModelSignals() override;

    void modelChanged(unsigned changes) override { emit changed(changes); }

signals:
    void changed(unsigned changes);

private:
    AppModel& model_;
};

}  // namespace quillon

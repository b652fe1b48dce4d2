#pragma once

#include <QProgressBar>

namespace quillon {

class AppModel;

// The bar beside the status lines while a dump goes out or comes in: bytes
// done of bytes expected, or the bytes so far of a Listen. It is hidden when
// no dump is under way.
class TransferProgress : public QProgressBar {
    Q_OBJECT
public:
    TransferProgress(const AppModel& model, QWidget* parent = nullptr);

    // Shows the transfer of the model as it now stands.
    void mirror();

private:
    const AppModel& model_;
};

}  // namespace quillon

#include "midi/screens/TransferProgress.h"

#include "shell/AppModel.h"

#include <algorithm>
#include <climits>

namespace quillon {

namespace {

int clampedToInt(std::size_t bytes) { return static_cast<int>(std::min<std::size_t>(bytes, INT_MAX)); }

}  // namespace

TransferProgress::TransferProgress(const AppModel& model, QWidget* parent) : QProgressBar(parent), model_(model)
{
    setObjectName("prgTransfer");
    setTextVisible(true);
    mirror();
}

void TransferProgress::mirror()
{
    const MidiTransfer& transfer = model_.midi.transfer;
    setVisible(transfer.active);
    if (!transfer.active)
        return;
    if (transfer.expected > 0) {
        // An answer longer than expected (All Program for a bank) fills the
        // bar and goes on counting.
        const std::size_t whole = std::max(transfer.expected, transfer.done);
        setRange(0, clampedToInt(whole));
        setValue(clampedToInt(transfer.done));
        setFormat("%v of %m bytes");
    } else {
        setRange(0, std::max(1, clampedToInt(transfer.done)));
        setValue(clampedToInt(transfer.done));
        setFormat("%v bytes");
    }
}

}  // namespace quillon

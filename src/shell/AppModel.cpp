#include "shell/AppModel.h"

#include "model/Kind.h"

#include <algorithm>
#include <stdexcept>

namespace quillon {

AppModel::AppModel(Host& host, SettingsStore& store, std::filesystem::path dataFolder, Printer* printer)
    : host_(host),
      store_(store),
      dataFolder_(std::move(dataFolder)),
      printer_(printer),
      itemImages_{ByteImage(kPatchBytes, 0), ByteImage(kMultiBytes, 0), ByteImage(kPatternBytes, 0)}
{
}

ByteImage& AppModel::itemImage(int kind)
{
    switch (kind) {
    case kPatch: return itemImages_[0];
    case kMultiset: return itemImages_[1];
    case kPattern: return itemImages_[2];
    default: throw std::out_of_range("no item image for kind " + std::to_string(kind));
    }
}

void AppModel::addObserver(AppObserver* observer) { observers_.push_back(observer); }

void AppModel::removeObserver(AppObserver* observer)
{
    observers_.erase(std::remove(observers_.begin(), observers_.end(), observer), observers_.end());
}

void AppModel::changed(unsigned changes)
{
    if (batchDepth_ > 0) {
        pending_ |= changes;
        return;
    }
    for (AppObserver* observer : observers_)
        observer->modelChanged(changes);
}

AppModel::Batch::Batch(AppModel& model) : model_(model) { ++model_.batchDepth_; }

AppModel::Batch::~Batch()
{
    if (--model_.batchDepth_ == 0 && model_.pending_ != 0) {
        const unsigned changes = model_.pending_;
        model_.pending_ = 0;
        model_.changed(changes);
    }
}

}  // namespace quillon

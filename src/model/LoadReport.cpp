#include "model/LoadReport.h"

#include <utility>

namespace quillon {

void LoadReport::add(std::string text)
{
    ++changeCount_;
    if (changeCount_ <= textLimit_)
        changeList_.push_back(std::move(text));
}

void LoadReport::reset()
{
    changeCount_ = 0;
    changeList_.clear();
}

}  // namespace quillon

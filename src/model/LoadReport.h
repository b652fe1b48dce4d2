#pragma once

#include <string>
#include <vector>

namespace quillon {

// What a load corrected: every value brought into range and every stray high
// bit in packed data raises the count; only the first hundred texts are kept,
// the count goes on. The caller resets it before a load.
class LoadReport {
public:
    static constexpr int kTextLimit = 100;

    // A report that keeps up to textLimit texts; a report of its own, such
    // as the one of an import run, may keep them all.
    explicit LoadReport(int textLimit = kTextLimit) : textLimit_(textLimit) {}

    void add(std::string text);
    void reset();

    int changeCount() const { return changeCount_; }
    const std::vector<std::string>& changeList() const { return changeList_; }

private:
    int textLimit_ = kTextLimit;
    int changeCount_ = 0;
    std::vector<std::string> changeList_;
};

}  // namespace quillon

#pragma once

#include <array>
#include <string>

namespace quillon {

// The eight labels of fraLoaded that name what is in memory: lblLoaded(1) to
// lblLoaded(5) for patch, bank A, bank B, multiset and pattern, then
// lblMultiBankA, lblMultiBankB and lblArpBank, indexed here by Kind.
struct LoadedLabel {
    std::string text;
    int scheme = 0;  // colour scheme, 0 until one is set
    bool highlighted = false;
};

class LoadedLabels {
public:
    LoadedLabels();

    const LoadedLabel& label(int kind) const { return labels_.at(kind); }
    LoadedLabel& label(int kind) { return labels_.at(kind); }

    // Paints a label with a colour scheme; a scheme outside 1 to 13 leaves it.
    void setColours(int kind, int scheme);

    // Paints an item's label by what its load gave: status 0 present as
    // loaded, 1 loaded with corrections (or a bank present), 2 a bank absent.
    // A status the item does not know does nothing.
    void doLoadedStatusColour(int kind, int status);

    // Marks the one label the user is on, bold with a border.
    void showLabelHighlight(int kind);

    // The kind whose label is marked, or 0.
    int highlightedKind() const;

    // The caption each label starts with.
    static std::string caption(int kind);

private:
    std::array<LoadedLabel, 9> labels_;  // by Kind; entry 0 unused
};

}  // namespace quillon

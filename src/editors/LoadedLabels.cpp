#include "editors/LoadedLabels.h"

#include "editors/ColourSchemes.h"
#include "model/Kind.h"

namespace quillon {

namespace {

constexpr const char* kCaptions[] = {"",         "Patch",        "Bank A",       "Bank B",          "Multiset",
                                     "Arpeggiator Pattern", "Multi Bank A", "Multi Bank B", "Arpeggiator Bank"};

struct StatusPaint {
    int kind;
    int status;
    int scheme;
};

// What each item's label shows for the states of its load.
constexpr StatusPaint kStatusPaints[] = {
    {kPatch, 0, 9},      {kPatch, 1, 8},      {kPatchBankA, 1, 9}, {kPatchBankA, 2, 7},
    {kPatchBankB, 1, 9}, {kPatchBankB, 2, 7}, {kMultiset, 0, 9},   {kMultiset, 1, 8},
    {kPattern, 0, 9},    {kPattern, 1, 8},    {kMultiBankA, 1, 9}, {kMultiBankB, 1, 9},
    {kArpBank, 1, 9},
};

}  // namespace

LoadedLabels::LoadedLabels()
{
    for (int kind = kPatch; kind <= kArpBank; ++kind)
        labels_[kind].text = caption(kind);
}

std::string LoadedLabels::caption(int kind)
{
    return kind >= kPatch && kind <= kArpBank ? kCaptions[kind] : "";
}

void LoadedLabels::setColours(int kind, int scheme)
{
    if (kind < kPatch || kind > kArpBank || colourScheme(scheme) == nullptr)
        return;
    labels_[kind].scheme = scheme;
}

void LoadedLabels::doLoadedStatusColour(int kind, int status)
{
    for (const auto& paint : kStatusPaints) {
        if (paint.kind == kind && paint.status == status)
            setColours(kind, paint.scheme);
    }
}

void LoadedLabels::showLabelHighlight(int kind)
{
    for (int k = kPatch; k <= kArpBank; ++k)
        labels_[k].highlighted = (k == kind);
}

int LoadedLabels::highlightedKind() const
{
    for (int k = kPatch; k <= kArpBank; ++k) {
        if (labels_[k].highlighted)
            return k;
    }
    return 0;
}

}  // namespace quillon

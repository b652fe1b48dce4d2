#include "model/BankImage.h"

#include "model/Kind.h"

#include <cstdio>

namespace quillon {

namespace {

constexpr int kNameLength = 16;

std::string memberName(const ByteImage& bank, bool bankLoaded, int bankKind, int member, int members,
                       int memberBytes, const char* missingText)
{
    if (bankKind < 0 || bankKind > 8 || member < 0 || member >= members)
        return {};
    if (!bankLoaded) {
        char number[8];
        std::snprintf(number, sizeof number, "%03d", member);
        return std::string(missingText) + number + ")";
    }
    const std::size_t at = static_cast<std::size_t>(member) * memberBytes;
    if (at + kNameLength > bank.size())
        return {};
    return std::string(bank.begin() + static_cast<std::ptrdiff_t>(at),
                       bank.begin() + static_cast<std::ptrdiff_t>(at + kNameLength));
}

}  // namespace

std::string bankPatchName(const ByteImage& bank, bool bankLoaded, int bankKind, int patch)
{
    return memberName(bank, bankLoaded, bankKind, patch, kPatchesPerBank, kPatchBytes, "No patch (");
}

// An empty multi bank names its members "No patch (...)" as well; the wording
// is the program's own and is kept.
std::string bankMultiName(const ByteImage& bank, bool bankLoaded, int bankKind, int multi)
{
    return memberName(bank, bankLoaded, bankKind, multi, kMultisPerBank, kMultiBytes, "No patch (");
}

std::string bankPatternName(const ByteImage& bank, bool bankLoaded, int pattern)
{
    return memberName(bank, bankLoaded, kArpBank, pattern, kPatternsPerBank, kPatternBytes, "No pattern (");
}

std::string trimmedRight(std::string_view name)
{
    while (!name.empty() && name.back() == ' ')
        name.remove_suffix(1);
    return std::string(name);
}

std::string fileNameFromName(std::string_view name)
{
    std::string result = trimmedRight(name);
    if (result.empty())
        result = "Untitled";
    for (char& c : result) {
        switch (c) {
        case '"': case '*': case '/': case ':': case ';': case '<': case '>': case '?': case '\\': case '|':
            c = ' ';
            break;
        default:
            break;
        }
    }
    return result;
}

int bankPatchAttribute(const ByteImage& bank, int patch, int field)
{
    // Byte numbers (from 1) within the patch.
    static constexpr int kFieldBytes[] = {0, 457, 17, 18, 155, 207, 411, 434, 313, 340, 484};
    if (field < 1 || field > 10 || patch < 0 || patch >= kPatchesPerBank)
        return 0;
    const std::size_t at = static_cast<std::size_t>(patch) * kPatchBytes + kFieldBytes[field] - 1;
    return at < bank.size() ? bank[at] : 0;
}

}  // namespace quillon

#include "output/CheckResults.h"

#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <system_error>

namespace quillon {

namespace {

// Colours of lblCompareStatement: the plain face of the form while there is
// something to read, and the colours of an item loaded without corrections
// (as its label in fraLoaded shows it) when there is not.
constexpr int kSchemeWithChanges = 10;
constexpr int kSchemeWithout = 9;

// The file of each Kind's check results and what a failure to write it says.
struct CheckFile {
    const char* name;
    const char* failure;
};

const CheckFile* checkFile(int kind)
{
    static constexpr CheckFile kPatchFile{"QuillonChkPch.txt",
                                          "Please check QuillonChkPch.txt in Param folder is write enabled"};
    static constexpr CheckFile kMultiFile{"QuillonChkMlt.txt",
                                          "Please check QuillonChkMlt.txt in Param folder is write enabled"};
    static constexpr CheckFile kPatternFile{"QuillonChkArp.txt",
                                            "Please check QuillonChkArp.txt in Param folder is write enabled"};
    switch (kind) {
    case kPatch: return &kPatchFile;
    case kMultiset: return &kMultiFile;
    case kPattern: return &kPatternFile;
    default: return nullptr;
    }
}

const char* loadedWords(int kind)
{
    return kind == kMultiset ? "loaded multiset" : "loaded patch";
}

void refuse(AppModel& model, const char* text)
{
    MessageRequest request;
    request.title = "Check Load";
    request.text = text;
    request.icon = MessageIcon::Exclamation;
    model.host().showMessage(request);
}

}  // namespace

std::filesystem::path paramFolder(const AppModel& model)
{
    return model.dataFolder() / "Param";
}

void saveCheckResults(AppModel& model, int kind)
{
    const CheckFile* file = checkFile(kind);
    if (file == nullptr || model.report.changeCount() <= 0)
        return;

    std::vector<std::string> lines;
    lines.push_back(model.itemPath[kind]);
    lines.emplace_back();
    const auto& texts = model.report.changeList();
    lines.insert(lines.end(), texts.begin(), texts.end());

    const std::filesystem::path folder = paramFolder(model);
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!writeLinesAtomically(folder / file->name, lines)) {
        MessageRequest request;
        request.title = "Problem saving check results";
        request.text = file->failure;
        request.icon = MessageIcon::Exclamation;
        model.host().showMessage(request);
    }
}

InspectionView checkView(const AppModel& model, int kind)
{
    InspectionView view;
    const std::string words = loadedWords(kind);
    view.caption = "System changes made to last " + words;

    const int count = model.report.changeCount();
    const auto& texts = model.report.changeList();
    // The count goes on past the texts that were kept; only those are shown.
    for (int i = 0; i < count && i < static_cast<int>(texts.size()); ++i)
        view.differences.push_back(texts[i]);

    if (count > 0) {
        view.statement = "System has made " + std::to_string(count) + (count == 1 ? " change to " : " changes to ") +
                         words;
        view.statementScheme = kSchemeWithChanges;
    } else {
        view.statement = "The " + words + " is OK - no system changes made";
        view.statementScheme = kSchemeWithout;
    }
    return view;
}

bool mnuCheckLoad(AppModel& model)
{
    switch (model.mode) {
    case kPatch:
        if (!model.flags.loaded[kPatch]) {
            refuse(model, "No loaded patch to check");
            return false;
        }
        return true;
    case kMultiset:
        if (!model.flags.loaded[kMultiset]) {
            refuse(model, "No loaded multiset to check");
            return false;
        }
        return true;
    default:
        return false;
    }
}

}  // namespace quillon

#include "output/CompareLast.h"

#include "files/AtomicFile.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"

#include <system_error>

namespace quillon {

namespace {

constexpr int kSchemeWithChanges = 10;
constexpr int kSchemeWithout = 9;

const char* itemWord(int kind)
{
    return kind == kMultiset ? "multiset" : "patch";
}

// The file of each Kind's comparison and the start of what a failure to
// write it says.
struct CompareFile {
    const char* name;
    const char* failure;
};

const CompareFile* compareFile(int kind)
{
    static constexpr CompareFile kPatchFile{"QuillonCmpPch.txt", "Please check that QuillonCmpPch.txt"};
    static constexpr CompareFile kMultiFile{"QuillonCmpMlt.txt", "Please check that QuillonCmpMlt.txt"};
    switch (kind) {
    case kPatch: return &kPatchFile;
    case kMultiset: return &kMultiFile;
    default: return nullptr;
    }
}

void refuse(AppModel& model, const char* text)
{
    MessageRequest request;
    request.title = "Compare Last";
    request.text = text;
    request.icon = MessageIcon::Exclamation;
    model.host().showMessage(request);
}

}  // namespace

InspectionView compareView(const AppModel& model, int kind)
{
    InspectionView view;
    if (kind != kPatch && kind != kMultiset)
        return view;

    const std::string word = itemWord(kind);
    view.caption = "Compare loaded " + word + " to last loaded";

    const auto& rows = kind == kPatch ? paramTables().patch : paramTables().multi;
    const ItemBuffers& buffers = model.buffers.of(kind);
    for (int p = 1; p <= paramCount(kind); ++p) {
        const int current = buffers.current[p];
        const int previous = buffers.prevLoaded[p];
        if (current == previous)
            continue;
        view.differences.push_back("param(" + std::to_string(p) + ") = " + std::to_string(current) + " " +
                                   " last " + word + " " + std::to_string(previous) + " [" + rows[p].name + "]");
    }

    const int count = static_cast<int>(view.differences.size());
    if (count > 0) {
        view.statement = "Currently loaded " + word + " has " + std::to_string(count) +
                         (count == 1 ? " change" : " changes");
        view.statementScheme = kSchemeWithChanges;
    } else {
        view.statement = "Currently loaded " + word + " is same as last " + word + " loaded";
        view.statementScheme = kSchemeWithout;
    }
    return view;
}

bool saveCompareResults(AppModel& model, int kind)
{
    const CompareFile* file = compareFile(kind);
    if (file == nullptr)
        return false;

    std::vector<std::string> lines;
    lines.push_back(model.itemPath[kind]);
    lines.emplace_back();
    const InspectionView view = compareView(model, kind);
    lines.insert(lines.end(), view.differences.begin(), view.differences.end());

    const std::filesystem::path folder = paramFolder(model);
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (writeLinesAtomically(folder / file->name, lines))
        return true;

    MessageRequest request;
    request.title = "Problem Saving Compare Data";
    request.text = std::string(file->failure) + " in Param folder is write enabled";
    request.icon = MessageIcon::Exclamation;
    model.host().showMessage(request);
    return false;
}

bool mnuCompareLast(AppModel& model)
{
    switch (model.mode) {
    case kPatch:
        if (!model.flags.loaded[kPatch]) {
            refuse(model, "No loaded patch to compare");
            return false;
        }
        return true;
    case kMultiset:
        if (!model.flags.loaded[kMultiset]) {
            refuse(model, "No loaded multiset to compare");
            return false;
        }
        return true;
    default:
        return false;
    }
}

}  // namespace quillon

#include "output/Printing.h"

#include "editors/Frames.h"
#include "editors/Navigation.h"
#include "editors/ScreenLayout.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "model/ValueDecoder.h"
#include "output/ListFormat.h"
#include "output/Printer.h"
#include "output/TextLists.h"
#include "shell/AppModel.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr const char* kNoSubsectionText = "No current subsection to print";
constexpr const char* kNothingText = "Nothing to send";
constexpr const char* kPatternQuestionTitle = "Send to Printer: ";
constexpr const char* kPatternQuestionText = "Text printout only (pattern parameters). OK to proceed?";
constexpr const char* kPrintFailedText = "The printer could not print this";
constexpr int kValueWidth = 3;
constexpr const char* kAfterValue = "    ";
// Between the widest decoded text of a block and the names, so that the
// names stand in a column of their own.
constexpr int kDecodeGap = 2;

struct PrintRow {
    int value;
    std::string decoded;
    std::string name;
};

PrintRow printRow(const ParamDef& def, int value)
{
    return {value, decodeValue(def.table, value), def.name};
}

void appendRows(std::vector<std::string>& lines, const std::vector<PrintRow>& rows)
{
    std::size_t width = 0;
    for (const PrintRow& row : rows)
        width = std::max(width, row.decoded.size());
    for (const PrintRow& row : rows) {
        lines.push_back(rightAligned(row.value, kValueWidth) + kAfterValue + row.decoded +
                        std::string(width - row.decoded.size() + kDecodeGap, ' ') + row.name);
    }
}

void refuse(AppModel& model, const char* text)
{
    MessageRequest box;
    box.title = kPrintRefusalTitle;
    box.text = text;
    box.icon = MessageIcon::Exclamation;
    model.host().showMessage(box);
}

std::string trimmedRight(std::string text)
{
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

std::optional<Printout> subsectionPrintout(AppModel& model, int kind)
{
    std::vector<std::string> lines = subsectionPrintLines(model, kind);
    if (lines.empty()) {
        refuse(model, kNoSubsectionText);
        return std::nullopt;
    }
    const FrameView& frame = model.layout.frames[static_cast<std::size_t>(model.layout.CurrentFrame == 2 ? 2 : 1)];
    return Printout{frame.label, std::move(lines)};
}

// A bank's list, when the bank is loaded.
std::optional<Printout> listPrintout(AppModel& model, int kind, std::vector<std::string> lines)
{
    if (!model.flags.loaded[kind]) {
        refuse(model, kNothingText);
        return std::nullopt;
    }
    return Printout{LoadedLabels::caption(kind), std::move(lines)};
}

std::optional<Printout> patternPrintout(AppModel& model)
{
    const std::string name = trimmedRight(nameFromParams(model.buffers.of(kPattern).current));
    MessageRequest question;
    question.title = kPatternQuestionTitle + name;
    question.text = kPatternQuestionText;
    question.icon = MessageIcon::Question;
    question.buttons = MessageButtons::YesNo;
    if (model.host().showMessage(question) != Answer::Yes)
        return std::nullopt;
    return Printout{name, patternPrintLines(model)};
}

void appendBlock(Printout& printout, const std::string& heading, const std::vector<std::string>& lines)
{
    if (lines.empty())
        return;
    printout.lines.push_back(heading);
    printout.lines.insert(printout.lines.end(), lines.begin(), lines.end());
    printout.lines.emplace_back();
}

// The section tree as it stands on screen: each section followed by its
// subsections.
std::vector<const TreeNode*> treeInScreenOrder()
{
    std::vector<const TreeNode*> order;
    const auto& tree = sectionTree();
    for (const TreeNode& root : tree) {
        if (!root.parentKey.empty())
            continue;
        order.push_back(&root);
        for (const TreeNode& child : tree) {
            if (child.parentKey == root.key)
                order.push_back(&child);
        }
    }
    return order;
}

Printout wholePatchPrintout(AppModel& model)
{
    Printout printout{trimmedRight(nameFromParams(model.buffers.of(kPatch).current)), {}};
    for (const TreeNode* node : treeInScreenOrder()) {
        clickTreeNode(model, node->key);
        appendBlock(printout, node->text, subsectionPrintLines(model, kPatch));
    }
    return printout;
}

Printout wholeMultiPrintout(AppModel& model)
{
    Printout printout{trimmedRight(nameFromParams(model.buffers.of(kMultiset).current)), {}};
    for (int group = 0; group < kMultiGroups; ++group) {
        const GroupDef def = multiGroup(group);
        for (int subsection = def.first; subsection <= def.last && def.first != 0; ++subsection) {
            fraMultiHeaders(model, fnFrame(model, kMultiset), 0, subsection);
            const FrameView& frame = model.layout.frames[static_cast<std::size_t>(model.layout.CurrentFrame)];
            appendBlock(printout, frame.label, subsectionPrintLines(model, kMultiset));
        }
    }
    return printout;
}

}  // namespace

std::vector<std::string> subsectionPrintLines(const AppModel& model, int kind)
{
    if (kind != kPatch && kind != kMultiset)
        return {};
    const FrameState& frame = model.layout.frame(kind, model.layout.CurrentFrame);
    if (frame.Subsection == 0 && frame.Section == 0)
        return {};
    const auto& tables = paramTables();
    const std::vector<ParamDef>& defs = kind == kPatch ? tables.patch : tables.multi;
    const ParamValues& values = model.buffers.of(kind).current;
    const int last = std::min<int>({frame.SubLast, static_cast<int>(defs.size()) - 1, static_cast<int>(values.size()) - 1});
    std::vector<PrintRow> rows;
    for (int p = std::max<int>(frame.SubFirst, 1); p <= last; ++p)
        rows.push_back(printRow(defs[p], values[p]));
    std::vector<std::string> lines;
    appendRows(lines, rows);
    return lines;
}

std::vector<std::string> patternPrintLines(const AppModel& model)
{
    const auto& defs = paramTables().arp;
    const ParamValues& values = model.buffers.of(kPattern).current;
    const int count = std::min(static_cast<int>(defs.size()), static_cast<int>(values.size()));
    // The pattern's own rows carry section 0, each step's rows the step's
    // number.
    int steps = 0;
    for (int p = 1; p < count; ++p)
        steps = std::max(steps, static_cast<int>(defs[p].sect));

    std::vector<std::string> lines;
    for (int step = 0; step <= steps; ++step) {
        std::vector<PrintRow> rows;
        for (int p = 1; p < count; ++p) {
            if (defs[p].sect == step)
                rows.push_back(printRow(defs[p], values[p]));
        }
        if (step > 0)
            lines.emplace_back();
        lines.push_back(step == 0 ? std::string("Pattern parameters") : "Step " + std::to_string(step) + " parameters");
        appendRows(lines, rows);
    }
    return lines;
}

std::optional<Printout> printoutOfView(AppModel& model)
{
    switch (model.mode) {
    case kPatch: return subsectionPrintout(model, kPatch);
    case kPatchBankA:
    case kPatchBankB: return listPrintout(model, model.mode, bankListLines(model, model.mode));
    case kMultiset:
        if (model.multiMode == 1 || model.multiMode == 2) {
            const int bank = model.multiMode == 1 ? kMultiBankA : kMultiBankB;
            return listPrintout(model, bank, multiBankListLines(model, bank));
        }
        return subsectionPrintout(model, kMultiset);
    case kPattern:
        if (model.arpMode == 1)
            return listPrintout(model, kArpBank, arpBankListLines(model, kArpBank));
        return patternPrintout(model);
    default: return std::nullopt;
    }
}

bool mnuPrint(AppModel& model)
{
    Printer* printer = model.printer();
    if (printer == nullptr)
        return false;
    const std::optional<Printout> printout = printoutOfView(model);
    if (!printout)
        return false;
    switch (printer->print(printout->title, printout->lines)) {
    case PrintOutcome::Printed: return true;
    case PrintOutcome::Cancelled: return false;
    case PrintOutcome::Failed: refuse(model, kPrintFailedText); return false;
    }
    return false;
}

Printout wholeItemPrintout(AppModel& model, int kind)
{
    switch (kind) {
    case kPatch: return wholePatchPrintout(model);
    case kMultiset: return wholeMultiPrintout(model);
    case kPattern: return {trimmedRight(nameFromParams(model.buffers.of(kPattern).current)), patternPrintLines(model)};
    case kPatchBankA:
    case kPatchBankB: return {LoadedLabels::caption(kind), bankListLines(model, kind)};
    case kMultiBankA:
    case kMultiBankB: return {LoadedLabels::caption(kind), multiBankListLines(model, kind)};
    case kArpBank: return {LoadedLabels::caption(kind), arpBankListLines(model, kind)};
    default: return {};
    }
}

}  // namespace quillon

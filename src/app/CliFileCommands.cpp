#include "app/CliCommands.h"

#include "app/CliArguments.h"
#include "app/CliSession.h"
#include "app/JsonWriter.h"
#include "files/AtomicFile.h"
#include "files/MiscDialog.h"
#include "files/SysExFileRecognition.h"
#include "files/SysExSaving.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "output/ParamDumps.h"
#include "output/TextLists.h"

#include <cstdio>
#include <string_view>

namespace quillon {

namespace {

std::string numbered(int value, int digits)
{
    char text[16];
    std::snprintf(text, sizeof text, "%0*d", digits, value);
    return text;
}

// The members of a bank in the session's store, one line each: the bank
// letter and position, a tab and the name.
void writeBankMembers(std::ostream& out, const AppModel& model, int bank)
{
    switch (bank) {
    case kPatchBankA:
    case kPatchBankB:
        for (int p = 0; p < kPatchesPerBank; ++p)
            out << '\t' << (bank == kPatchBankA ? 'A' : 'B') << numbered(p, 3) << '\t'
                << trimmedRight(model.banks.bankPatchName(bank, p)) << '\n';
        break;
    case kMultiBankA:
    case kMultiBankB:
        for (int m = 0; m < kMultisPerBank; ++m)
            out << '\t' << (bank == kMultiBankA ? 'A' : 'B') << numbered(m, 2) << '\t'
                << trimmedRight(model.banks.bankMultiName(bank, m)) << '\n';
        break;
    case kArpBank:
        for (int n = 0; n < kPatternsPerBank; ++n)
            out << '\t' << numbered(n, 2) << '\t' << trimmedRight(model.banks.bankPatternName(n)) << '\n';
        break;
    default:
        break;
    }
}

// The items of an opened file: the item's name, a bank's members, or for a
// file of several kinds the members of every bank it holds.
void writeItems(std::ostream& out, CliSession& session, int kind)
{
    AppModel& model = session.model();
    if (kind == kPatch || kind == kMultiset || kind == kPattern) {
        out << '\t' << model.itemName[kind] << '\n';
        return;
    }
    if (kind != kOtherDump) {
        writeBankMembers(out, model, kind);
        return;
    }
    MiscDialogState state = misc::doSetup(model);
    if (!state.extractFrameVisible) {
        out << '\t' << model.misc.name << '\n';
        return;
    }
    state.typeTicked = state.typeVisible;
    misc::doProcessLoad(model, state);
    for (int box = 0; box < kMiscTypeBoxes; ++box) {
        if (state.typeVisible[box])
            writeBankMembers(out, model, misc::boxKind(box));
    }
}

int usage(std::ostream& err, std::string_view text)
{
    err << "usage: quillon-cli " << text << '\n';
    return kExitUsage;
}

// Opens the one file of a command and takes its item into the editor.
// Returns the Kind 1, 4 or 5, or an exit code below 0 (negated).
int openItem(CliSession& session, const FileArguments& args, std::ostream& err)
{
    std::string error;
    const auto opened = session.open(args.paths.front(), error);
    if (!opened) {
        err << error << '\n';
        return error.starts_with("cannot read") ? -kExitUsage : -kExitBadData;
    }
    const auto item = session.takeItem(*opened, args.member, error);
    if (!item) {
        err << args.paths.front() << ": " << error << '\n';
        return error.starts_with("--member") ? -kExitUsage : -kExitBadData;
    }
    return *item;
}

void writeLines(std::ostream& out, const std::vector<std::string>& lines)
{
    for (const auto& line : lines)
        out << line << '\n';
}

}  // namespace

int runInfo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    FileArguments parsed;
    if (!parseFileArguments(args, parsed) || parsed.paths.empty() || parsed.member)
        return usage(err, "info FILE...");
    int exitCode = kExitOk;
    for (const auto& path : parsed.paths) {
        std::vector<std::uint8_t> bytes;
        if (!readWholeFile(path, bytes)) {
            err << "cannot read " << path << '\n';
            exitCode = kExitUsage;
            continue;
        }
        const int band = recognizeFileSize(bytes.size());
        const bool found = findMessageInFile(bytes, band).result == SearchResult::Found;
        out << path << '\t' << bytes.size() << '\t' << fileBandName(band) << '\t' << (found ? "found" : "not found")
            << '\n';
        if (!found)
            continue;
        CliSession session;
        std::string error;
        if (const auto kind = session.open(path, error))
            writeItems(out, session, *kind);
        else
            err << error << '\n';
    }
    return exitCode;
}

int runList(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    FileArguments parsed;
    if (!parseFileArguments(args, parsed) || parsed.paths.size() != 1 || parsed.member)
        return usage(err, "list FILE");
    CliSession session;
    std::string error;
    const auto kind = session.open(parsed.paths.front(), error);
    if (!kind) {
        err << error << '\n';
        return error.starts_with("cannot read") ? kExitUsage : kExitBadData;
    }
    const AppModel& model = session.model();
    switch (*kind) {
    case kPatchBankA:
    case kPatchBankB: writeLines(out, bankListLines(model, *kind)); return kExitOk;
    case kMultiset:
    case kMultiBankA:
    case kMultiBankB: writeLines(out, multiBankListLines(model, *kind)); return kExitOk;
    case kPattern:
    case kArpBank: writeLines(out, arpBankListLines(model, *kind)); return kExitOk;
    default:
        err << parsed.paths.front() << ": no list for this file; a patch has its parameters (dump)\n";
        return kExitBadData;
    }
}

int runDump(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    FileArguments parsed;
    if (!parseFileArguments(args, parsed) || parsed.paths.size() != 1)
        return usage(err, "dump FILE [--member N]");
    CliSession session;
    const int kind = openItem(session, parsed, err);
    if (kind < 0)
        return -kind;
    const AppModel& model = session.model();
    writeLines(out, kind == kPatch ? patchDumpLines(model) : kind == kMultiset ? multiDumpLines(model) : arpDumpLines(model));
    return kExitOk;
}

int runParams(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    FileArguments parsed;
    if (!parseFileArguments(args, parsed) || parsed.paths.size() != 1)
        return usage(err, "params FILE [--member N] --json");
    CliSession session;
    const int kind = openItem(session, parsed, err);
    if (kind < 0)
        return -kind;
    const AppModel& model = session.model();
    const ParamValues& values = model.buffers.of(kind).current;
    std::string name;
    for (int i = 1; i <= 16; ++i)
        name += static_cast<char>(values[i]);

    JsonWriter json(out);
    json.beginObject();
    json.field("kind", kind);
    json.field("name", name);
    json.key("values");
    writeParamValues(json, values);
    json.field("changeCount", model.report.changeCount());
    json.key("changeList");
    json.beginArray();
    for (const auto& text : model.report.changeList())
        json.value(text);
    json.endArray();
    json.endObject();
    out << '\n';
    return kExitOk;
}

int runConvert(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    FileArguments parsed;
    if (!parseFileArguments(args, parsed) || parsed.paths.size() != 2 || parsed.member || parsed.json)
        return usage(err, "convert IN OUT");
    CliSession session;
    std::string error;
    const auto kind = session.open(parsed.paths[0], error);
    if (!kind) {
        err << error << '\n';
        return error.starts_with("cannot read") ? kExitUsage : kExitBadData;
    }
    session.host().savePath = parsed.paths[1];
    session.host().messages.clear();
    const bool saved = *kind == kOtherDump ? miscSave(session.model()) : saveKind(session.model(), *kind, 2);
    if (!saved) {
        err << parsed.paths[1] << ": " << session.host().firstProblem() << '\n';
        return kExitUsage;
    }
    out << parsed.paths[1] << '\n';
    return kExitOk;
}

}  // namespace quillon

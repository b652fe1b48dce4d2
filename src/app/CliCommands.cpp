#include "app/CliCommands.h"

#include "app/JsonWriter.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "model/ParamTables.h"
#include "model/ValueDecoder.h"
#include "sysex/SysExFraming.h"
#include "sysex/SysExPacking.h"

#include <charconv>
#include <fstream>
#include <iterator>
#include <optional>

namespace quillon {

namespace {

std::optional<int> parseInt(const std::string& text)
{
    int value = 0;
    const auto* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, value);
    if (ec != std::errc() || ptr != end)
        return std::nullopt;
    return value;
}

void writeRows(JsonWriter& json, const std::vector<ParamDef>& rows, const std::vector<std::int16_t>* firm,
               const std::vector<std::int16_t>* hard)
{
    json.beginArray();
    for (std::size_t r = 1; r < rows.size(); ++r) {
        const ParamDef& d = rows[r];
        json.beginObject();
        json.field("id", d.id);
        json.field("name", d.name);
        json.field("sect", d.sect);
        json.field("subsect", d.subSect);
        json.field("table", d.table);
        json.field("min", d.min);
        json.field("max", d.max);
        json.field("startb", d.startB);
        json.field("endb", d.endB);
        json.field("firm", firm != nullptr && (*firm)[r] != 0);
        json.field("hard", hard != nullptr && (*hard)[r] != 0);
        json.endObject();
    }
    json.endArray();
}

void writeSections(JsonWriter& json, const std::vector<SectionDef>& sections)
{
    json.beginArray();
    for (std::size_t i = 1; i < sections.size(); ++i) {
        json.beginObject();
        json.field("index", static_cast<int>(i));
        json.field("id", sections[i].id);
        json.field("name", sections[i].name);
        json.field("first", sections[i].firstParam);
        json.field("last", sections[i].lastParam);
        json.endObject();
    }
    json.endArray();
}

void writeSubsections(JsonWriter& json, const std::vector<SubSectionDef>& subsections)
{
    json.beginArray();
    for (std::size_t i = 1; i < subsections.size(); ++i) {
        json.beginObject();
        json.field("index", static_cast<int>(i));
        json.field("id", subsections[i].id);
        json.field("name", subsections[i].name);
        json.field("sect", subsections[i].sect);
        json.field("first", subsections[i].firstParam);
        json.field("last", subsections[i].lastParam);
        json.endObject();
    }
    json.endArray();
}

void writeValues(JsonWriter& json, const ParamValues& values)
{
    json.beginArray();
    for (std::size_t p = 1; p < values.size(); ++p)
        json.value(values[p]);
    json.endArray();
}

bool readFile(const std::string& path, std::vector<std::uint8_t>& bytes)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return false;
    bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return !in.bad();
}

// What a dump holds once unpacked: the kind of item, how many there are and
// how each is read into parameter values.
struct ItemShape {
    int kind;
    int members;
    int memberBytes;
    void (*read)(std::span<const std::uint8_t>, ParamValues&, LoadReport&);
    const ParamValues& defaults;
};

std::optional<ItemShape> itemShapeOf(int target)
{
    const auto& t = paramTables();
    switch (target) {
    case kPatch: return ItemShape{kPatch, 1, kPatchBytes, imageToPatchParams, t.patchDefaults};
    case kPatchBankA:
    case kPatchBankB: return ItemShape{kPatch, kPatchesPerBank, kPatchBytes, imageToPatchParams, t.patchDefaults};
    case kMultiset: return ItemShape{kMultiset, 1, kMultiBytes, imageToMultiParams, t.multiDefaults};
    case kMultiBankA:
    case kMultiBankB: return ItemShape{kMultiset, kMultisPerBank, kMultiBytes, imageToMultiParams, t.multiDefaults};
    case kPattern: return ItemShape{kPattern, 1, kPatternBytes, imageToArpParams, t.arpDefaults};
    case kArpBank: return ItemShape{kPattern, kPatternsPerBank, kPatternBytes, imageToArpParams, t.arpDefaults};
    default: return std::nullopt;
    }
}

}  // namespace

int runTables(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    if (!(args.empty() || (args.size() == 1 && args[0] == "--json"))) {
        err << "usage: quillon-cli tables --json\n";
        return kExitUsage;
    }
    const auto& t = paramTables();
    JsonWriter json(out);
    json.beginObject();
    json.key("patch");
    writeRows(json, t.patch, &t.patchFirm, &t.patchHard);
    json.key("multi");
    writeRows(json, t.multi, nullptr, &t.multiHard);
    json.key("arp");
    writeRows(json, t.arp, nullptr, nullptr);
    json.key("patch_sections");
    writeSections(json, t.patchSections);
    json.key("multi_sections");
    writeSections(json, t.multiSections);
    json.key("patch_subsections");
    writeSubsections(json, t.patchSubsections);
    json.key("multi_subsections");
    writeSubsections(json, t.multiSubsections);
    json.key("defaults");
    json.beginObject();
    json.key("patch");
    writeValues(json, t.patchDefaults);
    json.key("multi");
    writeValues(json, t.multiDefaults);
    json.key("arp");
    writeValues(json, t.arpDefaults);
    json.endObject();
    json.endObject();
    out << '\n';
    return kExitOk;
}

int runDecode(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    const auto table = args.size() == 3 ? parseInt(args[0]) : std::nullopt;
    const auto from = args.size() == 3 ? parseInt(args[1]) : std::nullopt;
    const auto to = args.size() == 3 ? parseInt(args[2]) : std::nullopt;
    if (!table || !from || !to) {
        err << "usage: quillon-cli decode TABLE FROM TO\n";
        return kExitUsage;
    }
    for (int v = *from; v <= *to; ++v)
        out << v << '\t' << decodeValue(*table, v) << '\n';
    return kExitOk;
}

int runParams(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    std::string path;
    std::optional<int> member;
    bool usageError = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--json")
            continue;
        if (args[i] == "--member" && i + 1 < args.size()) {
            member = parseInt(args[++i]);
            usageError |= !member;
        } else if (path.empty() && !args[i].starts_with("--")) {
            path = args[i];
        } else {
            usageError = true;
        }
    }
    if (usageError || path.empty()) {
        err << "usage: quillon-cli params FILE [--member N] --json\n";
        return kExitUsage;
    }

    std::vector<std::uint8_t> message;
    if (!readFile(path, message)) {
        err << "cannot read " << path << '\n';
        return kExitUsage;
    }
    if (!findMessageShape(message.size()) || message.front() != 0xF0 || message.back() != 0xF7) {
        err << path << ": not a single patch, multiset, pattern or bank dump (" << message.size() << " bytes)\n";
        return kExitBadData;
    }
    StringToMidiResult stripped = STRINGtoMIDI(message, kPatchBankA, kMultiBankA);
    if (!stripped.success) {
        err << path << ": " << stripped.errorText << '\n';
        return kExitBadData;
    }
    const auto shape = itemShapeOf(stripped.target);
    if (!shape) {
        err << path << ": no item to read in this dump\n";
        return kExitBadData;
    }
    const int index = member.value_or(0);
    if (index < 0 || index >= shape->members || (member && shape->members == 1)) {
        err << "--member must be 0 to " << shape->members - 1 << " for this dump, and only for a bank\n";
        return kExitUsage;
    }

    LoadReport report;
    const ByteImage data = MIDItoDATA(stripped.target, stripped.packed, report);
    const auto item = std::span(data).subspan(static_cast<std::size_t>(index) * shape->memberBytes,
                                              shape->memberBytes);
    ParamValues values = shape->defaults;
    shape->read(item, values, report);

    JsonWriter json(out);
    json.beginObject();
    json.field("kind", shape->kind);
    json.field("name", std::string_view(reinterpret_cast<const char*>(item.data()), 16));
    json.key("values");
    writeValues(json, values);
    json.field("changeCount", report.changeCount());
    json.key("changeList");
    json.beginArray();
    for (const auto& text : report.changeList())
        json.value(text);
    json.endArray();
    json.endObject();
    out << '\n';
    return kExitOk;
}

}  // namespace quillon

#include "app/CliCommands.h"

#include "app/CliArguments.h"
#include "app/JsonWriter.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "model/ValueDecoder.h"

#include <optional>

namespace quillon {

namespace {

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
    writeParamValues(json, t.patchDefaults);
    json.key("multi");
    writeParamValues(json, t.multiDefaults);
    json.key("arp");
    writeParamValues(json, t.arpDefaults);
    json.endObject();
    json.endObject();
    out << '\n';
    return kExitOk;
}

int runDecode(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    const auto usage = [&err] {
        err << "usage: quillon-cli decode TABLE FROM TO\n";
        return kExitUsage;
    };
    if (args.size() != 3)
        return usage();
    const auto table = parseInt(args[0]);
    const auto from = parseInt(args[1]);
    const auto to = parseInt(args[2]);
    if (!table || !from || !to)
        return usage();
    for (long long v = *from; v <= *to; ++v)
        out << v << '\t' << decodeValue(*table, static_cast<int>(v)) << '\n';
    return kExitOk;
}

}  // namespace quillon

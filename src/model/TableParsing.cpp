#include "model/TableParsing.h"

#include <array>
#include <charconv>
#include <cstddef>

namespace quillon {

namespace {

std::int16_t toInt16(std::string_view field)
{
    while (!field.empty() && field.front() == ' ')
        field.remove_prefix(1);
    int value = 0;
    std::from_chars(field.data(), field.data() + field.size(), value);
    return static_cast<std::int16_t>(value);
}

constexpr std::size_t kRowFields = 9;

std::array<std::string_view, kRowFields> splitRow(std::string_view row)
{
    std::array<std::string_view, kRowFields> fields{};
    std::size_t count = 0;
    while (count + 1 < kRowFields) {
        const auto comma = row.find(',');
        if (comma == std::string_view::npos)
            break;
        fields[count++] = row.substr(0, comma);
        row.remove_prefix(comma + 1);
    }
    fields[count] = row;
    return fields;
}

}  // namespace

ParamDef parseParamRow(std::string_view row)
{
    const auto f = splitRow(row);
    ParamDef def;
    def.id = toInt16(f[0]);
    def.name = std::string(f[1]);
    def.sect = toInt16(f[2]);
    def.subSect = toInt16(f[3]);
    def.table = toInt16(f[4]);
    def.min = toInt16(f[5]);
    def.max = toInt16(f[6]);
    def.startB = toInt16(f[7]);
    def.endB = toInt16(f[8]);
    return def;
}

SectionDef parseSectionRow(std::string_view row)
{
    const auto comma = row.find(',');
    SectionDef def;
    def.id = toInt16(row.substr(0, comma));
    if (comma != std::string_view::npos)
        def.name = std::string(row.substr(comma + 1));
    return def;
}

SubSectionDef parseSubSectionRow(std::string_view row)
{
    const SectionDef section = parseSectionRow(row);
    SubSectionDef def;
    def.id = section.id;
    def.name = section.name;
    return def;
}

int countIdMismatches(const std::vector<ParamDef>& rows, int from, int to)
{
    int count = 0;
    for (int r = from; r <= to; ++r) {
        if (rows[r].id != r)
            ++count;
    }
    return count;
}

std::string tableErrorText(int count, std::string_view errorsText)
{
    if (count <= 0)
        return {};
    return std::to_string(count) + std::string(errorsText);
}

}  // namespace quillon

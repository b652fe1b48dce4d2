#include "app/JsonWriter.h"

#include <cstdio>

namespace quillon {

void JsonWriter::separate()
{
    if (needComma_)
        out_ << ',';
    needComma_ = true;
}

void JsonWriter::beginObject()
{
    separate();
    out_ << '{';
    needComma_ = false;
}

void JsonWriter::endObject()
{
    out_ << '}';
    needComma_ = true;
}

void JsonWriter::beginArray()
{
    separate();
    out_ << '[';
    needComma_ = false;
}

void JsonWriter::endArray()
{
    out_ << ']';
    needComma_ = true;
}

void JsonWriter::key(std::string_view name)
{
    separate();
    writeString(name);
    out_ << ':';
    needComma_ = false;
}

void JsonWriter::value(std::string_view text)
{
    separate();
    writeString(text);
}

void JsonWriter::value(long long number)
{
    separate();
    out_ << number;
}

void JsonWriter::value(bool flag)
{
    separate();
    out_ << (flag ? "true" : "false");
}

void JsonWriter::writeString(std::string_view text)
{
    out_ << '"';
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out_ << '\\' << c;
        } else if (byte < 0x20 || byte >= 0x7F) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\u%04x", byte);
            out_ << escaped;
        } else {
            out_ << c;
        }
    }
    out_ << '"';
}

void writeParamValues(JsonWriter& json, const ParamValues& values)
{
    json.beginArray();
    for (std::size_t p = 1; p < values.size(); ++p)
        json.value(values[p]);
    json.endArray();
}

}  // namespace quillon

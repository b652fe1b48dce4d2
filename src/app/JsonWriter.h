#pragma once

#include "model/DataTypes.h"

#include <ostream>
#include <string_view>

namespace quillon {

// Writes JSON text to a stream: values separated by commas within their
// object or array, strings escaped. Bytes of names outside printable ASCII
// are written as \u00XX, the character of that byte code.
class JsonWriter {
public:
    explicit JsonWriter(std::ostream& out) : out_(out) {}

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    void key(std::string_view name);
    void value(std::string_view text);
    void value(const char* text) { value(std::string_view(text)); }
    void value(long long number);
    void value(int number) { value(static_cast<long long>(number)); }
    void value(bool flag);

    template <typename T>
    void field(std::string_view name, T v)
    {
        key(name);
        value(v);
    }

private:
    void separate();
    void writeString(std::string_view text);

    std::ostream& out_;
    bool needComma_ = false;
};

// The values of parameters 1 to n as one array.
void writeParamValues(JsonWriter& json, const ParamValues& values);

}  // namespace quillon

#include "app/JsonWriter.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quillon {
namespace {

TEST(JsonWriter, SeparatesMembersAndNestedArrays)
{
    std::ostringstream out;
    JsonWriter json(out);
    json.beginObject();
    json.field("a", 1);
    json.key("b");
    json.beginArray();
    json.value(-2);
    json.value(true);
    json.endArray();
    json.field("c", "x");
    json.endObject();
    EXPECT_EQ(out.str(), R"({"a":1,"b":[-2,true],"c":"x"})");
}

TEST(JsonWriter, EscapesQuotesBackslashesAndBytesOutsidePrintableAscii)
{
    std::ostringstream out;
    JsonWriter json(out);
    json.value(std::string_view("a\"b\\c\x01\x7F\xE9", 8));
    EXPECT_EQ(out.str(), R"("a\"b\\c\u0001\u007f\u00e9")");
}

}  // namespace
}  // namespace quillon

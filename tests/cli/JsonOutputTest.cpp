#include "cli/output/JsonOutput.h"

#include <gtest/gtest.h>

namespace dorvik::test {

TEST(JsonOutput, NestsAsTheCallsDo) {
    JsonOutput json;
    json.BeginObject();
    json.Text("title", "a \"b\"\n");
    json.BeginArray("numbers");
    json.Number(1);
    json.Text("x");
    json.EndArray();
    json.BeginObject("inner");
    json.Flag("yes", true);
    json.Null("none");
    json.Number("big", 1234567890123);
    json.EndObject();
    json.EndObject();
    EXPECT_EQ(
        json.Result(),
        "{\n  \"title\": \"a \\\"b\\\"\\n\",\n  \"numbers\": [\n    1,\n    \"x\"\n  ],\n"
        "  \"inner\": {\n    \"yes\": true,\n    \"none\": null,\n    \"big\": 1234567890123\n  "
        "}\n}");
}

TEST(JsonOutput, BytesThatAreNoTextBecomeReplacements) {
    JsonOutput json;
    json.BeginArray();
    json.Text("a\xFF\xC3");
    json.EndArray();
    EXPECT_EQ(json.Result(), "[\n  \"a\xEF\xBF\xBD\xEF\xBF\xBD\"\n]");
}

}  // namespace dorvik::test

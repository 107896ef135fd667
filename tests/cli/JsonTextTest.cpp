#include <gtest/gtest.h>

#include <string>

#include "JsonReader.h"
#include "zrsim/JsonText.h"
#include "zrsim/VisibleText.h"

namespace {

TEST(JsonText, EscapesQuotesBackslashesAndControlCharacters) {
  EXPECT_EQ(zrsim::JsonString("a\"b\\c\r\n\t\x01"), "\"a\\\"b\\\\c\\r\\n\\t\\u0001\"");
  EXPECT_EQ(zrsim::JsonString(""), "\"\"");
}

TEST(JsonText, KeepsUtf8AndReplacesBytesThatAreNotUtf8) {
  EXPECT_EQ(zrsim::JsonString("Gr\xc3\xbcn"), "\"Gr\xc3\xbcn\"");
  EXPECT_EQ(zrsim::JsonString("a\xff"
                              "b\xc3"),
            "\"a\\ufffdb\\ufffd\"");
  EXPECT_EQ(zrsim::JsonString("\xed\xa0\x80"), "\"\\ufffd\\ufffd\\ufffd\"");  // a surrogate
}

TEST(JsonText, EveryByteReadsBackAsValidJson) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
  JsonValue value = JsonValue::Parse(zrsim::JsonString(all));
  EXPECT_EQ(value.kind, JsonValue::Kind::kString);
  EXPECT_EQ(value.text.substr(0, 127), all.substr(0, 127));
}

TEST(VisibleText, ShowsCarriageReturnsAndOtherControlCharacters) {
  EXPECT_EQ(zrsim::VisibleText("a\r\nb\tc\x01"), "a\\r\\nb\\tc\\x01");
  EXPECT_EQ(zrsim::VisibleLines("a\r\nb\n"), "a\\r\nb\n");
}

TEST(JsonReader, RejectsWhatIsNotJson) {
  EXPECT_THROW(JsonValue::Parse("{\"a\":1,}"), std::runtime_error);
  EXPECT_THROW(JsonValue::Parse("\"a\rb\""), std::runtime_error);
  EXPECT_THROW(JsonValue::Parse("[1] 2"), std::runtime_error);
  EXPECT_EQ(JsonValue::Parse(" {\"a\":[true,false,null,-1.5e2]} ")["a"][3].number, -150);
}

}  // namespace

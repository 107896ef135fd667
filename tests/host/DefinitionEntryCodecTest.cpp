#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {
namespace {

struct Read {
  std::string key;
  std::string value;
  std::vector<std::string> names;
  std::vector<std::string> values;
  int32_t count = -1;
};

Read ReadOne(std::string& text) {
  Read read;
  DefinitionEntryCodec::Instance().ReadNextEntry(text, read.key, read.value, read.names, read.values,
                                                 read.count);
  return read;
}

std::string Append(const std::string& key, const std::string& value, std::vector<std::string> names,
                   std::vector<std::string> values, bool line_breaks) {
  std::string text;
  DefinitionEntryCodec::Instance().AppendEntry(text, key, value, names, values,
                                               static_cast<int32_t>(names.size()), 0, line_breaks);
  return text;
}

TEST(DefinitionEntryCodec, WritesBareAndQuotedTokens) {
  EXPECT_EQ(Append("Engine", "SIM", {}, {}, false), "Engine=SIM;");
  EXPECT_EQ(Append("Transects", "Survey", {"ObjectID"}, {"3"}, false), "Transects=Survey /ObjectID=3;");
  EXPECT_EQ(Append("Density", "Simple", {"Formula", "GridSpace"}, {"= -100 + x*1.02 + y*1.15", "10"}, false),
            "Density=Simple /Formula=\"= -100 + x*1.02 + y*1.15\" /GridSpace=10;");
  EXPECT_EQ(Append("Hotspot", "", {"X,Y,Sig,Amp"}, {"10,20,5,2"}, false),
            "Hotspot=\"\" /X,Y,Sig,Amp=10,20,5,2;");
  EXPECT_EQ(Append("PopSize", "Poisson N", {}, {}, true), "PopSize=\"Poisson N\";\r\n");
  EXPECT_EQ(Append("Say", "a \"b\"", {}, {}, false), "Say=\"a \"\"b\"\"\";");
}

TEST(DefinitionEntryCodec, ReadsEntriesOffTheFrontOfTheText) {
  std::string text =
      "Engine=SIM;\r\nTransects=Survey /ObjectID=3;\r\n"
      "Density=Simple /Formula=\"= -100 + x*1.02 + y*1.15\" /GridSpace=10;\r\n";
  Read engine = ReadOne(text);
  EXPECT_EQ(engine.key, "Engine");
  EXPECT_EQ(engine.value, "SIM");
  EXPECT_EQ(text.substr(0, 9), "Transects");
  Read transects = ReadOne(text);
  EXPECT_EQ(transects.count, 1);
  EXPECT_EQ(transects.names, std::vector<std::string>({"ObjectID"}));
  EXPECT_EQ(transects.values, std::vector<std::string>({"3"}));
  Read density = ReadOne(text);
  EXPECT_EQ(density.count, 2);
  EXPECT_EQ(density.values[0], "= -100 + x*1.02 + y*1.15");
  EXPECT_EQ(density.values[1], "10");
  EXPECT_TRUE(text.empty());
}

TEST(DefinitionEntryCodec, AnEntryWithoutFieldsHasOneEmptySlot) {
  std::string text = "PopSize=\"Poisson N\";";
  Read read = ReadOne(text);
  EXPECT_EQ(read.count, 0);
  ASSERT_EQ(read.values.size(), 1u);
  ASSERT_EQ(read.names.size(), 1u);
  EXPECT_EQ(read.values[0], "");
  EXPECT_EQ(read.names[0], "");
}

TEST(DefinitionEntryCodec, WhiteSpaceOnlyGivesAnEmptyKeyAndEmptiesTheText) {
  std::string text = " \r\n\t ";
  Read read = ReadOne(text);
  EXPECT_EQ(read.key, "");
  EXPECT_EQ(read.count, 0);
  EXPECT_TRUE(text.empty());
}

TEST(DefinitionEntryCodec, AnEntryMayEndAtTheEndOfTheTextAndHaveEmptyValues) {
  std::string text = "  Reps =  ;Analyse=True /x= ";
  Read reps = ReadOne(text);
  EXPECT_EQ(reps.key, "Reps");
  EXPECT_EQ(reps.value, "");
  Read analyse = ReadOne(text);
  EXPECT_EQ(analyse.value, "True");
  EXPECT_EQ(analyse.count, 1);
  EXPECT_EQ(analyse.values[0], "");
  EXPECT_TRUE(text.empty());
}

TEST(DefinitionEntryCodec, MalformedTextRaisesAndStillShortensTheText) {
  const std::vector<std::string> malformed = {
      "Reps;Density=Uniform;",
      "=5;Density=Uniform;",
      "Reps=\"unterminated",
      "Reps=5 6;Density=Uniform;",
      "Reps=\"5\"x;Density=Uniform;",
      "a=b /=c;Density=Uniform;",
      "a=b /c;Density=Uniform;",
      ";;",
      "/",
      "a\"b\"=1;",
  };
  for (const std::string& bad : malformed) {
    std::string text = bad;
    try {
      ReadOne(text);
      ADD_FAILURE() << "no error for " << bad;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.source, "DefinitionEntryCodec") << bad;
      EXPECT_EQ(error.number, 5) << bad;
      EXPECT_NE(error.description.find("Malformed definition entry"), std::string::npos);
    }
    EXPECT_LT(text.size(), bad.size()) << bad;
  }
}

TEST(DefinitionEntryCodec, ReadingMalformedTextUntilEmptyAlwaysEnds) {
  std::string text = "Reps;Density=Uniform;x=\"open";
  int reads = 0;
  int errors = 0;
  while (!text.empty() && reads < 100) {
    ++reads;
    try {
      ReadOne(text);
    } catch (const RuntimeError&) {
      ++errors;
    }
  }
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(reads, 3);
  EXPECT_EQ(errors, 2);
}

TEST(DefinitionEntryCodec, MissingEqualsMessageNamesTheKey) {
  std::string text = "Reps 5;";
  try {
    ReadOne(text);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(
        error.description,
        "Malformed definition entry: \"=\" is missing after the key \"Reps\" at character 6 of \"Reps 5;\"");
  }
}

TEST(DefinitionEntryCodec, AppendRefusesAFieldCountBeyondTheArrays) {
  std::string text;
  std::vector<std::string> names(1), values(1);
  try {
    DefinitionEntryCodec::Instance().AppendEntry(text, "k", "v", names, values, 2, 0, false);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 9);
  }
  EXPECT_TRUE(text.empty());
}

TEST(DefinitionEntryCodec, EntryValueFindsTheFirstEntryIgnoringCase) {
  auto& codec = DefinitionEntryCodec::Instance();
  EXPECT_EQ(codec.EntryValue("Engine=MRDS;Method=ds;method=io;", "METHOD"), "ds");
  EXPECT_EQ(codec.EntryValue("Engine=MRDS;", "Method"), "");
  EXPECT_EQ(codec.EntryValue("", "Method"), "");
  EXPECT_EQ(codec.EntryValue("bad;Method=ds;", "Method"), "ds");
}

std::string RandomBytes(std::mt19937& random, size_t max_length) {
  std::uniform_int_distribution<size_t> length(0, max_length);
  std::uniform_int_distribution<int> byte(0, 255);
  // Half the time draw from the characters that matter to the syntax.
  static const std::string kSpecial = " \t\r\n;/=\"ab,";
  std::uniform_int_distribution<size_t> special(0, kSpecial.size() - 1);
  std::string text(length(random), '\0');
  for (char& c : text) c = (random() & 1) ? kSpecial[special(random)] : static_cast<char>(byte(random));
  return text;
}

TEST(DefinitionEntryCodec, AnyBytesSurviveAWriteAndARead) {
  std::mt19937 random(20261121);
  for (int round = 0; round < 2000; ++round) {
    const bool line_breaks = round % 2 == 0;
    std::string text;
    std::vector<Read> written;
    const int entries = 1 + static_cast<int>(random() % 4);
    for (int e = 0; e < entries; ++e) {
      Read entry;
      entry.key = RandomBytes(random, 8);
      entry.value = RandomBytes(random, 12);
      const int fields = static_cast<int>(random() % 4);
      for (int f = 0; f < fields; ++f) {
        entry.names.push_back(RandomBytes(random, 6));
        entry.values.push_back(RandomBytes(random, 10));
      }
      entry.count = fields;
      DefinitionEntryCodec::Instance().AppendEntry(text, entry.key, entry.value, entry.names, entry.values,
                                                   entry.count, 0, line_breaks);
      written.push_back(entry);
    }
    for (const Read& expected : written) {
      Read read = ReadOne(text);
      ASSERT_EQ(read.key, expected.key);
      ASSERT_EQ(read.value, expected.value);
      ASSERT_EQ(read.count, expected.count);
      if (expected.count > 0) {
        ASSERT_EQ(read.names, expected.names);
        ASSERT_EQ(read.values, expected.values);
      }
    }
    ASSERT_TRUE(text.empty());
  }
}

TEST(DefinitionEntryCodec, ViewReadingAdvancesWithoutCopying) {
  const std::string text = "a=1;b=2 /c=3;";
  std::string_view rest(text);
  DefinitionEntry entry;
  DefinitionEntryCodec::Instance().ReadNextEntry(rest, entry);
  EXPECT_EQ(entry.key, "a");
  DefinitionEntryCodec::Instance().ReadNextEntry(rest, entry);
  EXPECT_EQ(entry.key, "b");
  EXPECT_EQ(entry.field_count, 1);
  EXPECT_EQ(entry.field_values, std::vector<std::string>({"3"}));
  EXPECT_TRUE(rest.empty());
}

}  // namespace
}  // namespace zrsimprp

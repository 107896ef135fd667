#include <gtest/gtest.h>

#include "zrsim/ArgumentParser.h"
#include "zrsim/UsageError.h"

namespace {

using zrsim::ArgumentParser;
using zrsim::UsageError;

std::string FailureOf(const ArgumentParser& parser, const std::vector<std::string>& words) {
  try {
    parser.Parse(words);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "";
}

TEST(ArgumentParser, TakesSeparateAndInlineValues) {
  auto parsed =
      ArgumentParser("cmd").Option("project").Option("name").Parse({"--project", "a.gpkg", "--name=x y"});
  EXPECT_EQ(parsed.Value("project"), "a.gpkg");
  EXPECT_EQ(parsed.Value("name"), "x y");
}

TEST(ArgumentParser, AcceptsADashAsAValue) {
  auto parsed = ArgumentParser("cmd").Option("definition").Parse({"--definition", "-"});
  EXPECT_EQ(parsed.Value("definition"), "-");
}

TEST(ArgumentParser, UnknownOptionNamesTheCommandAndTheOption) {
  EXPECT_EQ(FailureOf(ArgumentParser("zrsim check").Option("project"), {"--projekt", "x"}),
            "zrsim check: unknown option '--projekt'");
}

TEST(ArgumentParser, OptionWithoutValueIsRefused) {
  EXPECT_EQ(FailureOf(ArgumentParser("c").Option("project"), {"--project"}),
            "c: option '--project' needs a value");
}

TEST(ArgumentParser, AnotherOptionIsNeverTakenAsAValue) {
  EXPECT_EQ(FailureOf(ArgumentParser("c").Option("project").Option("simulation"),
                      {"--project", "--simulation", "s"}),
            "c: option '--project' needs a value");
}

TEST(ArgumentParser, RepeatedOptionIsRefused) {
  EXPECT_EQ(FailureOf(ArgumentParser("c").Option("id"), {"--id", "1", "--id", "2"}),
            "c: option '--id' is given more than once");
}

TEST(ArgumentParser, FlagWithValueIsRefused) {
  EXPECT_EQ(FailureOf(ArgumentParser("c").Flag("force"), {"--force=yes"}),
            "c: option '--force' takes no value");
}

TEST(ArgumentParser, PositionalsAreCounted) {
  ArgumentParser parser("c");
  parser.Positionals(1, 1, "FILE");
  EXPECT_EQ(FailureOf(parser, {}), "c: missing FILE");
  EXPECT_EQ(FailureOf(parser, {"a", "b"}), "c: unexpected argument 'b'");
  EXPECT_EQ(parser.Parse({"a"}).Positionals(), std::vector<std::string>{"a"});
}

TEST(ArgumentParser, HelpIsFoundAnywhere) {
  EXPECT_TRUE(ArgumentParser::AsksForHelp({"--project", "x", "--help"}));
  EXPECT_TRUE(ArgumentParser::AsksForHelp({"-h"}));
  EXPECT_FALSE(ArgumentParser::AsksForHelp({"--project", "help"}));
}

}  // namespace

#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "CliFixture.h"
#include "zrsimprp/Version.h"

namespace {

using Cli = CliFixture;

TEST(Version, IsTheProjectsMajorMinorPatch) {
  EXPECT_TRUE(std::regex_match(std::string(zrsimprp::kVersion), std::regex(R"(\d+\.\d+\.\d+)")))
      << zrsimprp::kVersion;
  EXPECT_EQ(std::string(zrsimprp::kVersion), std::to_string(ZRSIMPRP_VERSION_MAJOR) + "." +
                                                 std::to_string(ZRSIMPRP_VERSION_MINOR) + "." +
                                                 std::to_string(ZRSIMPRP_VERSION_PATCH));
}

TEST_F(Cli, VersionPrintsTheProgramAndItsVersionAndSucceeds) {
  Result result = Run({"--version"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, std::string("zrsim ") + ZRSIMPRP_VERSION + "\n");
  EXPECT_EQ(result.err, "");
}

}  // namespace

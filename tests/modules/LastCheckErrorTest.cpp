#include <gtest/gtest.h>

#include <string>

#include "zrsimprp/modules/CModErrorHandling.h"

namespace zrsimprp {
namespace {

TEST(LastCheckError, KeepsTheErrorThatInterruptedAPagesChecksForOneTaking) {
  CModErrorHandling::TakeLastCheckError();
  std::string message = "old";
  EXPECT_FALSE(CModErrorHandling::RunPageChecks(
      message, []() -> std::string { throw RuntimeError(13, "Conversions", "Type mismatch"); }));
  EXPECT_EQ(message, CModErrorHandling::kUnexpectedCheckMessage);
  std::optional<RuntimeError> error = CModErrorHandling::TakeLastCheckError();
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->number, 13);
  EXPECT_EQ(error->description, "Type mismatch");
  EXPECT_FALSE(CModErrorHandling::TakeLastCheckError().has_value());
}

TEST(LastCheckError, ChecksThatFinishLeaveNoError) {
  CModErrorHandling::TakeLastCheckError();
  std::string message;
  EXPECT_FALSE(CModErrorHandling::RunPageChecks(message, [] { return std::string("A failure."); }));
  EXPECT_TRUE(CModErrorHandling::RunPageChecks(message, [] { return std::string(); }));
  EXPECT_FALSE(CModErrorHandling::TakeLastCheckError().has_value());
}

}  // namespace
}  // namespace zrsimprp

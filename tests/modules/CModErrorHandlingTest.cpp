#include <gtest/gtest.h>

#include <string>

#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/modules/CModErrorHandling.h"

namespace zrsimprp {
namespace {

const std::string kExpectedWriteDefinitionReport =
    "The following internal error has occured in Pellunar:\r\n"
    "\r\n"
    "ReadSetting failed\r\n"
    "\r\n"
    "(Error raised from: ZrSIMPrp.SIM.WriteDefinition)\r\n"
    "(Error source: ProjectSettings)\r\n"
    "(Error number: 5)\r\n"
    "\r\n"
    "If you suspect that this error is caused by a bug in the program, please note down all of the above "
    "information and contact the program authors.\r\n"
    "\r\n"
    "Press Ok and Pellunar will try to recover from the error.\r\n"
    "Press Help for more information about internal errors in Pellunar.";

TEST(InternalErrorReport, TextIsBuiltLineByLineWithCrLf) {
  const RuntimeError error(5, "ProjectSettings", "ReadSetting failed");
  EXPECT_EQ(CModErrorHandling::InternalErrorText("ZrSIMPrp", "SIM", "WriteDefinition", error),
            kExpectedWriteDefinitionReport);
}

TEST(InternalErrorReport, RaisedFromLineNamesComponentModuleAndRoutine) {
  const RuntimeError error(13, "ZrSIMPrp", "Type mismatch");
  const std::string text =
      CModErrorHandling::InternalErrorText("ZrSIMPrp", "PagDensity", "Inititalize", error);
  EXPECT_NE(text.find("\r\n(Error raised from: ZrSIMPrp.PagDensity.Inititalize)\r\n"), std::string::npos);
  EXPECT_NE(text.find("(Error source: ZrSIMPrp)\r\n(Error number: 13)\r\n\r\n"), std::string::npos);
}

TEST(InternalErrorReport, ResetsPointerBeepsAndShowsOneCriticalBox) {
  HeadlessPlatform platform;
  CModErrorHandling::ReportInternalError(platform, "SIM", "WriteDefinition",
                                         RuntimeError(5, "ProjectSettings", "ReadSetting failed"));
  EXPECT_EQ(platform.MousePointerResets(), 1);
  EXPECT_EQ(platform.Beeps(), 1);
  ASSERT_EQ(platform.Messages().size(), 1u);
  EXPECT_EQ(platform.Messages()[0].title, "Pellunar Internal Error");
  EXPECT_EQ(platform.Messages()[0].icon, MessageIcon::Critical);
  EXPECT_EQ(platform.Messages()[0].text, kExpectedWriteDefinitionReport);
}

// The component name comes from the platform, so a host that renames the library is reported as such.
class RenamedPlatform : public HeadlessPlatform {
 public:
  std::string ComponentName() override { return "OtherName"; }
};

TEST(InternalErrorReport, UsesThePlatformsComponentName) {
  RenamedPlatform platform;
  CModErrorHandling::ReportInternalError(platform, "SIM", "IsValid",
                                         RuntimeError(9, "X", "Subscript out of range"));
  ASSERT_EQ(platform.Messages().size(), 1u);
  EXPECT_NE(platform.Messages()[0].text.find("(Error raised from: OtherName.SIM.IsValid)"),
            std::string::npos);
}

TEST(InternalErrorReport, UnexpectedCheckMessageHasThreeBlanksAndNoFullStop) {
  EXPECT_EQ(std::string(CModErrorHandling::kUnexpectedCheckMessage),
            "An unexpected error occured while checking the options on this page.   Please check they are "
            "valid and change any incorrect values");
}

}  // namespace
}  // namespace zrsimprp

#include <gtest/gtest.h>

#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {
namespace {

TEST(Conversions, SevenWithBlanksIsNumeric) { EXPECT_TRUE(IsNumeric(" 7 ")); }

}  // namespace
}  // namespace zrsimprp

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/ErrorNumberOf.h"
#include "zrsimprp/host/Required.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {
namespace {

TEST(Required, MissingObjectRaisesError91NamingWhatIsMissing) {
  const std::shared_ptr<int> missing;
  const auto error = RaisedError([&] { Required(missing, "no survey record"); });
  ASSERT_TRUE(error) << "no error for a missing object";
  EXPECT_EQ(error->number, 91);
  EXPECT_EQ(error->source, "ZrSIMPrp");
  EXPECT_EQ(error->description, "Object variable or With block variable not set (no survey record)");
}

TEST(Required, HeldObjectIsPassedThroughWithoutACopy) {
  const auto held = std::make_shared<int>(7);
  const std::shared_ptr<int>& passed = Required(held, "no number");
  EXPECT_EQ(&passed, &held);
  EXPECT_EQ(held.use_count(), 1);
}

TEST(Required, ReturnedObjectIsKeptAlive) {
  const std::shared_ptr<std::string> kept = Required(std::make_shared<std::string>("Strata"), "no layer");
  ASSERT_TRUE(kept);
  EXPECT_EQ(*kept, "Strata");
  EXPECT_EQ(kept.use_count(), 1);
}

TEST(Required, MissingReturnedObjectRaisesError91) {
  const auto error =
      RaisedError([] { Required(std::shared_ptr<int>(), std::string("no layer named '") + "Strata" + "'"); });
  ASSERT_TRUE(error) << "no error for a missing object";
  EXPECT_EQ(error->number, 91);
  EXPECT_EQ(error->description, "Object variable or With block variable not set (no layer named 'Strata')");
}

}  // namespace
}  // namespace zrsimprp

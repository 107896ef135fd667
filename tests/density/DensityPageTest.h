#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/pages/CPagDensity/CPagDensity.h"

namespace zrsimprp {

class DensityPageTest : public testing::Test {
 protected:
  // The page as the control leaves it after Initialize with three strata and a valid grid spacing.
  void PrepareUniformPage() {
    page_.Initialize();
    page_.UpdateFlxConstantDensity(3, {"North", "Centre", "South"});
    page_.SetGridSpacing("10");
  }

  // Fills hotspot row `row` (already present) through the grid, as a person would.
  void TypeHotspot(int row, const std::vector<std::string>& values) {
    for (int c = 0; c < static_cast<int>(values.size()); ++c)
      page_.flxHotspots.SetTextMatrix(row, c, values[c]);
  }

  std::string Check() {
    std::string message;
    last_result_ = page_.IsValid(message);
    return message;
  }

  HeadlessPlatform platform_;
  CPagDensity page_{platform_};
  bool last_result_ = false;
};

}  // namespace zrsimprp

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "zrsimprp/host/MemoryProjectDatabase.h"

namespace zrsimprp::testing {

// A survey of design 10 over the strata layer "Strata" (`strata` strata labelled `label_prefix` and
// their number) inside the one-stratum region "Region", so the region list offers both layers.
inline std::shared_ptr<MemoryProjectDatabase> StrataInRegionProject(int strata,
                                                                    const std::string& label_prefix) {
  auto database = std::make_shared<MemoryProjectDatabase>();
  database->AddDesign(10, "Lines", "\"STRATUM LAYER\"=Strata;");
  database->AddSurvey(1, "Line survey", 1, 10);
  MemoryProjectDatabase::LayerData region;
  region.name = "Region";
  region.kind = 1;
  region.label_field = "Label";
  region.ids.emplace_back(int32_t{1});
  region.labels.emplace_back(std::string("Whole region"));
  database->AddLayer(region);
  MemoryProjectDatabase::LayerData layer;
  layer.name = "Strata";
  layer.kind = 2;
  layer.parent = "Region";
  layer.label_field = "Label";
  for (int i = 1; i <= strata; ++i) {
    layer.ids.emplace_back(int32_t{i});
    layer.labels.emplace_back(label_prefix + std::to_string(i));
  }
  database->AddLayer(layer);
  return database;
}

}  // namespace zrsimprp::testing

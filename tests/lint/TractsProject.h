#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/host/MemoryProjectDatabase.h"

namespace zrsimprp {

// A project whose survey 3 (design 1: parallel lines 500 apart, truncation distance 200) uses the
// layer "Tracts" of `count` strata under the region "Region". Tract i (from 0) is the square of side
// 1000 from x = 1000 i, y = 0 (or of side 1 degree from longitude -3 + i, latitude 50 when
// `degrees`); its identifier is i + 1 and its label "T" and that number.
inline std::shared_ptr<MemoryProjectDatabase> TractsProject(std::size_t count, bool degrees = false) {
  auto project = std::make_shared<MemoryProjectDatabase>();
  project->AddDesign(1, "Lines",
                     "Engine=DES;\r\nType=Parallel /Spacing=500;\r\n\"STRATUM LAYER\"=Tracts;\r\n"
                     "Truncation=200;\r\n");
  project->AddSurvey(3, "Survey A", 1, 1);
  project->AddLayer({"Region", 1, "", "ID", "Name", {Variant(int32_t{1})}, {Variant(std::string("All"))}});
  MemoryProjectDatabase::LayerData tracts{"Tracts", 2, "Region", "ID", "Name", {}, {}};
  std::vector<std::vector<MapPolygon>> shapes;
  const double side = degrees ? 1 : 1000;
  const double x0 = degrees ? -3 : 0;
  const double y0 = degrees ? 50 : 0;
  for (std::size_t i = 0; i < count; ++i) {
    tracts.ids.push_back(Variant(static_cast<int32_t>(i + 1)));
    tracts.labels.push_back(Variant("T" + std::to_string(i + 1)));
    const double left = x0 + side * static_cast<double>(i);
    MapPolygon square;
    square.rings.push_back({{left, y0}, {left + side, y0}, {left + side, y0 + side}, {left, y0 + side}});
    shapes.push_back({square});
  }
  project->AddLayer(tracts);
  CoordinateReference reference;
  if (degrees) reference = {"WGS 84", true};
  project->SetLayerShapes("Tracts", shapes, reference);
  project->AddDataFilter(2, "Truncate");
  project->AddModelDefinition(1, "HN", "MRDS", "Method=ds;");
  return project;
}

// A definition on the tracts that gives no finding when the layer has three tracts, one entry a line;
// `replace` swaps the entries whose keys it names.
inline std::string TractsDefinition(const std::vector<std::string>& replace = {}) {
  std::vector<std::string> entries = {"Engine=SIM;",
                                      "Transects=Survey /ObjectID=3;",
                                      "StrataLayer=Tracts;",
                                      "Reps=10;",
                                      "Density=Uniform /Densities=1,2,3 /GridSpace=100;",
                                      "PopSize=\"Fixed N\" /Values=10,20,30;",
                                      "Clusters=False;",
                                      "Detectability=Half-Normal /ParamByStratum=False;",
                                      "DetFuncParam=\"\" /Scale=60;",
                                      "Analyse=True;",
                                      "DataFilter=2;",
                                      "ModelDef=1;",
                                      "ModelSelection=AIC;",
                                      "ParallelProcessing=False /cores=\"max cores\";"};
  std::string text;
  for (const std::string& entry : entries) {
    const std::string key = entry.substr(0, entry.find('='));
    bool replaced = false;
    for (const std::string& other : replace) {
      if (other.compare(0, key.size() + 1, key + "=") == 0) {
        if (!replaced) text += other + "\r\n";
        replaced = true;
      }
    }
    if (!replaced) text += entry + "\r\n";
  }
  for (const std::string& other : replace) {
    if (text.find(other) == std::string::npos) text += other + "\r\n";
  }
  return text;
}

}  // namespace zrsimprp

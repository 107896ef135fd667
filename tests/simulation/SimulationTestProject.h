#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/pages/CPagSimulation/CPagSimulation.h"

namespace zrsimprp {

// Reaches the page's click behaviours directly, for states no selection can produce.
class CPagSimulationProbe {
 public:
  static void ClickRegionLayer(CPagSimulation& page) { page.CboRegionLayerClick(); }
  static std::string StrataIdentifiers(const CPagSimulation& page) { return page.strata_ids_; }
  static bool NamesDimensioned(const CPagSimulation& page) { return page.strata_names_.has_value(); }
};

// A design's definition text naming its stratum layer, written as the host writes it.
inline std::string DesignText(const std::string& stratum_layer) {
  std::string text;
  std::vector<std::string> names{""};
  std::vector<std::string> values{""};
  DefinitionEntryCodec::Instance().AppendEntry(text, "Sampler", "Line", names, values, 0, 0, false);
  DefinitionEntryCodec::Instance().AppendEntry(text, "STRATUM LAYER", stratum_layer, names, values, 0, 0,
                                               false);
  return text;
}

inline MemoryProjectDatabase::LayerData MakeLayer(const std::string& name, int32_t kind,
                                                  const std::string& parent, std::vector<Variant> ids,
                                                  std::vector<Variant> labels,
                                                  const std::string& label_field) {
  MemoryProjectDatabase::LayerData layer;
  layer.name = name;
  layer.kind = kind;
  layer.parent = parent;
  layer.id_field = "ID";
  layer.label_field = label_field;
  layer.ids = std::move(ids);
  layer.labels = std::move(labels);
  return layer;
}

// The page on a project that the test fills; the globals are cleared around every test.
class SimulationPageTest : public ::testing::Test {
 protected:
  SimulationPageTest() { CModGlobal::Clear(); }
  ~SimulationPageTest() override { CModGlobal::Clear(); }

  // Region (kind 1) with three strata below it, and blocks without labels below it too.
  void AddStandardProject() {
    db_->AddLayer(
        MakeLayer("Region", 1, "", {Variant(int32_t{1})}, {Variant(std::string("Study area"))}, "Label"));
    db_->AddLayer(MakeLayer(
        "Strata", 0, "Region", {Variant(int32_t{1}), Variant(int32_t{2}), Variant(int32_t{3})},
        {Variant(std::string("North")), Variant(std::string("Centre")), Variant(std::string("South"))},
        "Label"));
    db_->AddLayer(MakeLayer("Blocks", 0, "Region", {Variant(int32_t{10}), Variant(int32_t{20})}, {}, ""));
    db_->AddDesign(5, "Design A", DesignText("Strata"));
    db_->AddDesign(6, "Design B", DesignText("Blocks"));
    db_->AddSurvey(12, "Lines A", 1, 5);
    db_->AddSurvey(13, "Lines B", 0, 5);
    db_->AddSurvey(14, "Zigzag", 1, 6);
  }

  void UseProject() { CModGlobal::SetProjectDatabase(db_); }

  void InitializeStandard() {
    AddStandardProject();
    UseProject();
    page_.Initialize();
  }

  std::string OnlyReport() {
    if (platform_.Messages().size() != 1)
      return "<" + std::to_string(platform_.Messages().size()) + " reports>";
    EXPECT_EQ(platform_.Messages()[0].title, "Pellunar Internal Error");
    EXPECT_EQ(platform_.Messages()[0].icon, MessageIcon::Critical);
    return platform_.Messages()[0].text;
  }

  static std::string RaisedFrom(const std::string& routine) {
    return "(Error raised from: ZrSIMPrp.PagSimulation." + routine + ")";
  }

  std::vector<std::string> LayerList() { return page_.cboRegionLayer.Items(); }

  HeadlessPlatform platform_;
  std::shared_ptr<MemoryProjectDatabase> db_ = std::make_shared<MemoryProjectDatabase>();
  CPagSimulation page_{platform_};
};

}  // namespace zrsimprp

#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "zrsimprp/host/ProjectDatabase.h"
#include "zrsimprp/lint/StrataGeometry.h"

namespace zrsimprp {

// What a definition may refer to in a project, gathered once so that checking many simulations of
// one project asks the project for its lists only once. Identifiers are kept as the pages compare
// them: the decimal text, case ignored. Layers and their strata are looked up on first use and kept.
// A failing host call leaves that list empty and is remembered in Problems().
class ProjectFacts {
 public:
  explicit ProjectFacts(std::shared_ptr<ProjectDatabase> project);

  bool OffersSurvey(const std::string& id) const;  // surveys with status 1, as the page lists them
  bool HasDesign(const std::string& id) const;
  bool HasDataFilter(const std::string& id) const;
  bool OffersModelDefinition(const std::string& id) const;  // MRDS with method ds, and MA
  // The first survey the page lists ("" when none): the one Initialize selects.
  const std::string& FirstSurvey() const { return first_survey_; }
  // The layers the page offers for a survey: its design's stratum layer, then its parents up to the
  // study region. Empty when the survey or its design is unknown or a layer cannot be read.
  const std::vector<std::string>& LayersOfferedFor(const std::string& survey_id);
  // The stratum labels of a layer in record order; no value when the layer cannot be read.
  const std::optional<std::vector<std::string>>& StrataOf(const std::string& layer_name);
  // The identifiers of a layer's strata in record order, as text; empty when the layer cannot be read.
  const std::vector<std::string>& StrataIdsOf(const std::string& layer_name);
  // The polygons of a layer, read once through the host's geometry interface; null when the host has
  // no such interface, the layer has no geometry or it cannot be read.
  const StrataGeometry* GeometryOf(const std::string& layer_name);

  // The design a survey was made with ("" when the survey is unknown).
  std::string DesignOfSurvey(const std::string& survey_id) const;
  // The distances a design's own entries give, as typed: the "Spacing" field of its "Type" entry and
  // its "Truncation" ("" when not given).
  struct DesignDistances {
    std::string spacing;
    std::string truncation;
  };
  DesignDistances DistancesOfDesign(const std::string& design_id) const;

  const std::vector<std::string>& Problems() const { return problems_; }

 private:
  void GatherSurveysAndDesigns();
  void GatherDataFilters();
  void GatherModelDefinitions();
  std::vector<std::string> OfferedLayers(const std::string& survey_id);
  std::optional<std::vector<std::string>> ReadStrata(const std::string& layer_name);
  std::unique_ptr<StrataGeometry> ReadGeometry(const std::string& layer_name);
  static std::string Key(const std::string& id);

  std::shared_ptr<ProjectDatabase> project_;
  std::map<std::string, bool> survey_offered_;
  std::map<std::string, int32_t> design_of_survey_;
  std::map<std::string, std::string> design_texts_;
  std::map<std::string, bool> data_filters_;
  std::map<std::string, bool> model_definitions_;
  std::string first_survey_;
  std::map<std::string, std::vector<std::string>> offered_layers_;
  std::map<std::string, std::optional<std::vector<std::string>>> strata_;
  std::map<std::string, std::vector<std::string>> strata_ids_;
  std::map<std::string, std::unique_ptr<StrataGeometry>> geometry_;
  std::vector<std::string> problems_;
};

}  // namespace zrsimprp

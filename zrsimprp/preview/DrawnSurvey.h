#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zrsimprp {

// One piece of a survey line inside a stratum: lines run south to north.
struct SurveyLine {
  double x = 0;
  double y0 = 0;
  double y1 = 0;
  int32_t stratum = 0;
};

struct DrawnAnimal {
  double x = 0;
  double y = 0;
  int32_t stratum = 0;
  bool detected = false;
};

// One survey drawn at random: where the animals (clusters, when they come in clusters) were, which
// were seen, and the lines. The same seed draws the same survey.
struct DrawnSurvey {
  uint64_t seed = 0;
  std::vector<SurveyLine> lines;
  std::vector<DrawnAnimal> animals;
  std::vector<uint64_t> animals_by_stratum;
  std::vector<uint64_t> detections_by_stratum;
  uint64_t total_animals = 0;
  uint64_t total_detections = 0;
  double line_length = 0;
  // Why nothing was drawn, when nothing could be: one sentence.
  std::string refusal;
  std::vector<std::string> notes;
};

}  // namespace zrsimprp

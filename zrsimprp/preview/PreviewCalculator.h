#pragma once

#include <string>
#include <vector>

#include "zrsimprp/preview/DetectionScales.h"
#include "zrsimprp/preview/Preview.h"
#include "zrsimprp/preview/PreviewInputs.h"

namespace zrsimprp {

// Works out the expected detections of one repetition from the pages' values, the design and the
// strata's geometry. Pure and free of shared state; never throws for anything typed.
class PreviewCalculator {
 public:
  // Fewer expected detections than this are too few to fit a detection function reliably.
  static constexpr double kFewDetections = 60;

  // `previous` (may be null) lends its density surface's grid, as the map does. The density surface a
  // drawn survey places its animals by is evaluated only `with_surface` (and always for Poisson N,
  // whose animals it gives): the expected numbers of the other population sizes do not need it.
  static Preview Compute(const PreviewInputs& inputs, const MapModel* previous = nullptr,
                         bool with_surface = true);

  // The area of a stratum: its outer rings less its holes (even-odd), in square map units.
  static double Area(const StratumGeometry& stratum);

 private:
  static bool ReadDesign(const PreviewInputs& inputs, Preview& preview);
  static void ReadCurves(const PreviewInputs& inputs, const std::vector<ColumnDetection>& columns,
                         Preview& preview);
  static bool ReadStrata(const PreviewInputs& inputs, Preview& preview);
  static bool ReadPopulation(const PreviewInputs& inputs, Preview& preview);
  static bool ReadDetection(const PreviewInputs& inputs, const std::vector<ColumnDetection>& columns,
                            Preview& preview);
  static void Sum(Preview& preview);
};

}  // namespace zrsimprp

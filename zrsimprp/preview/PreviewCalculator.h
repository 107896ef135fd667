#pragma once

#include <string>
#include <vector>

#include "zrsimprp/preview/Preview.h"
#include "zrsimprp/preview/PreviewInputs.h"

namespace zrsimprp {

// Works out the expected detections of one repetition from the pages' values, the design and the
// strata's geometry. Pure and free of shared state; never throws for anything typed.
class PreviewCalculator {
 public:
  // Fewer expected detections than this are too few to fit a detection function reliably.
  static constexpr double kFewDetections = 60;
  // Points along each detection curve.
  static constexpr int kCurvePoints = 101;

  // `previous` (may be null) lends its density surface's grid, as the map does.
  static Preview Compute(const PreviewInputs& inputs, const MapModel* previous = nullptr);

  // The area of a stratum: its outer rings less its holes (even-odd), in square map units.
  static double Area(const StratumGeometry& stratum);

 private:
  static bool ReadDesign(const PreviewInputs& inputs, Preview& preview);
  static void ReadCurves(const PreviewInputs& inputs, Preview& preview);
  static bool ReadStrata(const PreviewInputs& inputs, Preview& preview);
  static bool ReadPopulation(const PreviewInputs& inputs, Preview& preview);
  static bool ReadDetection(const PreviewInputs& inputs, Preview& preview);
  static void Sum(Preview& preview);
};

}  // namespace zrsimprp

#pragma once

#include <cstddef>
#include <string>

namespace zrsimprp {

// Which input of a density surface a problem is about.
enum class SurfaceInput { kStratumDensity, kGridSpacing, kFormula, kHotspot };

// The values of one hotspot, in the order the hotspot grid and a definition's hotspot entry give them.
enum class HotspotField { kCentreX = 0, kCentreY = 1, kSigma = 2, kAmplitude = 3 };
inline constexpr std::size_t kHotspotFields = 4;

// What is wrong with one typed value. The first four leave the value without a number; a value that
// is a number but breaks its input's rule keeps its number beside the problem.
enum class SurfaceProblemKind {
  kMissing,     // not given at all: a hotspot with fewer than four values, a stratum after the last value
  kBlank,       // nothing but blanks
  kNotANumber,  // not a number as the system reads one (C locale: "." is the decimal separator)
  kNotFinite,   // written as a number, but beyond what a double holds (1e999)
  kNegative,    // below 0 where it cannot be: a density, an amplitude
  kNotPositive  // not above 0 where it must be: the grid spacing, a sigma
};

// One problem with the input it names and the text as typed, so that each consumer phrases it in its
// own words.
struct DensitySurfaceProblem {
  SurfaceProblemKind kind = SurfaceProblemKind::kMissing;
  SurfaceInput input = SurfaceInput::kGridSpacing;
  std::size_t index = 0;  // the stratum (column) or hotspot (row), from 0
  std::string stratum;    // the stratum's name as given; "" when it has none
  HotspotField field = HotspotField::kCentreX;
  std::string text;  // as typed; "" when missing

  // True when the value has no number (missing, blank, not a number, not finite).
  bool Unread() const {
    return kind == SurfaceProblemKind::kMissing || kind == SurfaceProblemKind::kBlank ||
           kind == SurfaceProblemKind::kNotANumber || kind == SurfaceProblemKind::kNotFinite;
  }
};

}  // namespace zrsimprp

#pragma once

#include <string>

#include "zrsimprp/host/LayerGeometrySource.h"
#include "zrsimprp/preview/DrawnSurvey.h"

namespace zrsim {

// The drawn survey as a picture: the strata in light tints, the lines in blue, the animals that were
// not seen as grey dots and those seen as red squares, north up.
class PreviewPicture {
 public:
  static constexpr int kWidth = 800;

  // "" when the file was written, else the sentence that says why not.
  static std::string Write(const std::string& path, const zrsimprp::LayerShapes& strata,
                           const zrsimprp::DrawnSurvey& survey);
};

}  // namespace zrsim

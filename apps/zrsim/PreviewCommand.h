#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "zrsim/InputFiles.h"
#include "zrsimprp/preview/DrawnSurvey.h"
#include "zrsimprp/preview/Preview.h"

namespace zrsim {

// zrsim preview: what a simulation will give before it runs. Loads the definition as check does,
// visits every tab, and prints the detection curves' scales, the expected detections per stratum and
// in total, the CV guide and, with --seed, one drawn survey; --out draws that survey on the map.
class PreviewCommand {
 public:
  PreviewCommand(std::ostream& out, std::ostream& err, InputFiles& files)
      : out_(out), err_(err), files_(files) {}

  static std::string Usage();
  int Run(const std::vector<std::string>& words);

 private:
  void WriteText(const zrsimprp::Preview& preview, const std::optional<zrsimprp::DrawnSurvey>& survey);
  void WriteJson(const zrsimprp::Preview& preview, const std::optional<zrsimprp::DrawnSurvey>& survey);
  int Refuse(const std::string& sentence);

  std::ostream& out_;
  std::ostream& err_;
  InputFiles& files_;
};

}  // namespace zrsim

#pragma once

#include <memory>
#include <string>
#include <vector>

namespace zrsimprp {

class ProjectDatabase;

// How a strata column is told apart from the others on screen: its heading is the stratum's label,
// with the stratum's id where the label is blank ("id 37") or shared with another stratum
// ("Binghamton city (37)"); its tooltip names its place, id and label ("stratum 12 of 281, id 37,
// Binghamton city"). The grids' cells keep the labels the pages give them: this is presentation.
class StrataHeadings {
 public:
  struct Heading {
    std::string id;
    std::string label;
    std::string text;
    int number = 0;  // the stratum's place, from 1
    int count = 0;   // how many strata the layer has

    // Made when a person points at the heading, not for every stratum of every table.
    std::string Tooltip() const;
  };

  // One heading per stratum, for the ids and labels in record order (a missing label is blank).
  static std::vector<Heading> Make(const std::vector<std::string>& ids,
                                   const std::vector<std::string>& labels);
  // The headings of the strata of layer `layer_name`, read as the Simulation page reads them;
  // none when the project or the layer cannot be read. Never throws.
  static std::vector<Heading> ForLayer(const std::shared_ptr<ProjectDatabase>& database,
                                       const std::string& layer_name);
};

}  // namespace zrsimprp

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/control/StrataHeadings.h"
#include "zrsimprp/host/Grid.h"
#include "zrsimprp/host/GridBlockEdit.h"

namespace zrsimprp {

class ProjectDatabase;

// Fills a strata table's row (one value per stratum, strata from column `first_col` on) from data a
// person already has: a numeric field of the strata layer, matched by stratum id, or a column of a
// CSV file, matched by stratum id or label. Every cell goes through Grid::UserEditCell.
class StrataRowFill {
 public:
  struct Outcome {
    BlockEditCount count;
    std::vector<std::string> unmatched;  // ids of the strata that found no value
    std::string error;                   // why nothing was filled; "" when something was
  };

  // `csv_text`: a heading line, then one line per stratum; the first column names the stratum (id or
  // label), `column` (a heading, case ignored; "" for the second column) holds the values.
  static Outcome FromCsv(Grid& grid, int row, int first_col,
                         const std::vector<StrataHeadings::Heading>& strata, const std::string& csv_text,
                         const std::string& column);
  // Field `field` of layer `layer_name`, record by record, matched by the layer's identifier.
  static Outcome FromLayerField(Grid& grid, int row, int first_col,
                                const std::vector<StrataHeadings::Heading>& strata,
                                const std::shared_ptr<ProjectDatabase>& database,
                                const std::string& layer_name, const std::string& field);
  // The numeric fields of layer `layer_name` a person may pick from; empty when the host cannot list
  // them (the person then types the name) or the list cannot be read. Never throws.
  static std::vector<std::string> FieldChoices(const std::shared_ptr<ProjectDatabase>& database,
                                               const std::string& layer_name);
  // One sentence for a person: what was filled, skipped and left without a value.
  static std::string Describe(const Outcome& outcome);

 private:
  // `keys` and `values` side by side; a key is compared with each stratum's id, then its label.
  static Outcome Fill(Grid& grid, int row, int first_col, const std::vector<StrataHeadings::Heading>& strata,
                      const std::vector<std::string>& keys, const std::vector<std::string>& values);
};

}  // namespace zrsimprp

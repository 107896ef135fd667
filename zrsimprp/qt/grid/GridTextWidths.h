#pragma once

#include <functional>
#include <string>
#include <vector>

#include "zrsimprp/host/Grid.h"

namespace zrsimprp {

// The width each grid column needs to show its widest text, kept from one refresh to the next so
// that only the columns whose texts changed are measured again. Checking a column costs one string
// comparison per cell; a thousand strata are measured once, then never again until they change.
class GridTextWidths {
 public:
  // The width, in pixels, that one cell text needs.
  using Measure = std::function<int(const std::string& text)>;

  explicit GridTextWidths(Measure measure) : measure_(std::move(measure)) {}

  // Brings every column up to date with the grid's texts.
  void Update(const Grid& grid);
  // The width column `col` needs; 0 for a column with no text.
  int Width(int col) const;
  // How many columns the last Update measured.
  int Measured() const { return measured_; }
  // Every column is measured again at the next Update (the font changed).
  void Forget() { columns_.clear(); }

 private:
  struct Column {
    std::vector<std::string> texts;
    int width = 0;
  };

  static bool SameTexts(const Grid& grid, int col, const Column& column);
  void MeasureColumn(const Grid& grid, int col, Column& column) const;

  Measure measure_;
  std::vector<Column> columns_;
  int measured_ = 0;
};

}  // namespace zrsimprp

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "zrsimprp/host/Grid.h"

namespace zrsimprp {

// The width each grid column needs to show its widest text, kept from one refresh to the next so
// that only the columns whose texts changed are measured again. Checking a column costs one string
// comparison per cell; a thousand strata are measured once, then never again until they change.
//
// Shaping a text is what costs, and most cells hold a short number that fits the column's least
// width by far: a text whose cheap upper bound already fits is never shaped.
class GridTextWidths {
 public:
  // The width, in pixels, that one cell text needs.
  using Measure = std::function<int(const std::string& text)>;
  // A width no smaller than Measure's for the same text, found without shaping it; negative when
  // the text has none.
  using Bound = std::function<int(const std::string& text)>;
  // The least width of a column, whatever its texts.
  using Floor = std::function<int(int col)>;

  GridTextWidths(Measure measure, Bound bound) : measure_(std::move(measure)), bound_(std::move(bound)) {}

  // Brings every column up to date with the grid's texts and the columns' least widths.
  void Update(const Grid& grid, const Floor& floor);
  // The width column `col` needs: its least width, or its widest text where that is wider.
  int Width(int col) const;
  // How many columns the last Update measured.
  int Measured() const { return measured_; }
  // How many texts have been shaped since this was made.
  int Shaped() const { return shaped_; }
  // Every column is measured again at the next Update (the font changed).
  void Forget() { columns_.clear(); }

  // `width` widened to what `text` needs; `text` is shaped only when its bound exceeds `width`.
  int Widen(int width, const std::string& text) const;

 private:
  struct Column {
    std::vector<std::string> texts;
    int floor = -1;
    int width = 0;
  };

  static bool SameTexts(const Grid& grid, int col, const Column& column);
  void MeasureColumn(const Grid& grid, int col, Column& column) const;

  Measure measure_;
  Bound bound_;
  std::vector<Column> columns_;
  int measured_ = 0;
  mutable int shaped_ = 0;
};

}  // namespace zrsimprp

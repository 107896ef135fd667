#pragma once

#include <memory>
#include <string>

namespace mu {
class Parser;
}

namespace zrsimprp {

// The Simple model's formula, evaluated in the map coordinates x and y (X and Y too: the page ignores
// case) with muParser. The text is taken as the page holds it: blanks and one leading "=" are dropped.
class DensityFormula {
 public:
  explicit DensityFormula(const std::string& text);
  ~DensityFormula();
  DensityFormula(const DensityFormula&) = delete;
  DensityFormula& operator=(const DensityFormula&) = delete;

  // The expression after the equals sign, without surrounding blanks.
  static std::string Expression(const std::string& text);

  bool Empty() const { return expression_.empty(); }
  bool Parses() const { return error_.empty() && !expression_.empty(); }
  // muParser's account of why the expression does not parse; "" when it does.
  const std::string& Error() const { return error_; }
  // Only when Parses().
  double Evaluate(double x, double y);

 private:
  std::string expression_;
  std::string error_;
  double x_ = 0;
  double y_ = 0;
  std::unique_ptr<mu::Parser> parser_;
};

}  // namespace zrsimprp

#include "zrsimprp/map/DensityFormula.h"

#include <muParser.h>

#include "zrsimprp/surface/DensitySurfaceReader.h"

namespace zrsimprp {

std::string DensityFormula::Expression(const std::string& text) {
  return DensitySurfaceReader::FormulaExpression(text);
}

DensityFormula::DensityFormula(const std::string& text)
    : expression_(Expression(text)), parser_(std::make_unique<mu::Parser>()) {
  if (expression_.empty()) return;
  try {
    parser_->DefineVar("x", &x_);
    parser_->DefineVar("y", &y_);
    parser_->DefineVar("X", &x_);
    parser_->DefineVar("Y", &y_);
    parser_->SetExpr(expression_);
    parser_->Eval();  // muParser reports most syntax errors only on the first evaluation
  } catch (const mu::Parser::exception_type& error) {
    error_ = error.GetMsg();
    if (error_.empty()) error_ = "it cannot be read";
  }
}

DensityFormula::~DensityFormula() = default;

double DensityFormula::Evaluate(double x, double y) {
  x_ = x;
  y_ = y;
  return parser_->Eval();
}

}  // namespace zrsimprp

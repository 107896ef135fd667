#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zrsimprp/host/Button.h"
#include "zrsimprp/host/CaptionedControl.h"
#include "zrsimprp/host/CheckBox.h"
#include "zrsimprp/host/ComboBox.h"
#include "zrsimprp/host/Grid.h"
#include "zrsimprp/host/OptionGroup.h"
#include "zrsimprp/host/PageControl.h"
#include "zrsimprp/host/Platform.h"
#include "zrsimprp/host/TextBox.h"

namespace zrsimprp {

// The "&Density" tab: the relative density surface (uniform by stratum, a simple formula in x and y,
// or a density surface model), the spacing of the grid it is evaluated on, and optional hotspots.
// The page holds no state beyond its controls; every property reads or writes them.
class CPagDensity : public PageControl {
 public:
  // The formula box shows this until the user is allowed to type a formula.
  static constexpr const char* kExampleFormula = "e.g. = -100 + x*1.02 + y*1.15";

  explicit CPagDensity(Platform& platform);

  LabelLine lalDensity{"Relative density surface"};
  OptionGroup optDensity{
      {"Uniform density (within strata where applicable)", "Simple model ", "DSM analysis"}};
  Grid flxConstantDensity{2, 2, 1, 1};
  TextBox txtFormula;
  Label labLayer{"Layer:"};
  ComboBox cboLayer{ComboBox::Style::kEditable, "Layer"};
  Label labField{"Field:"};
  ComboBox cboField{ComboBox::Style::kEditable, "Field"};
  Label labGridSpace{"GridSpacing:"};
  TextBox txtGridSpace;
  CheckBox chkHotspots{"Add Hotspots"};
  Grid flxHotspots{1, 4, 1, 0};
  Button cmdAddHotspot{"+"};
  Button cmdSubHotspot{"-"};

  std::string Description();
  void SetDescription(const std::string& value);
  std::string Densities();
  void SetDensities(const std::string& value);
  std::string Formula();
  void SetFormula(const std::string& value);
  std::string GridSpacing();
  void SetGridSpacing(const std::string& value);
  std::string DSMLayer();
  void SetDSMLayer(const std::string& value);
  std::string DSMField();
  void SetDSMField(const std::string& value);
  int16_t NumHotspots();
  std::string HotspotValues(int16_t k);
  void SetHotspotValues(int16_t k, const std::string& value);
  bool IsValid(std::string& validation_string);
  void Initialize();
  void AddHotspot();
  void UpdateFlxConstantDensity(int32_t strata_count, const std::vector<std::string>& strata_names);

 private:
  void OptDensityClick(int index);
  void ChkHotspotsClick();
  void CmdAddHotspotClick();
  void CmdSubHotspotClick();

  void PaintDensityCells(Color color);
  void PaintHotspotCells(Color color);
  // Each gives the message of its first failing check, or "" when its checks pass.
  std::string GridSpacingFailure() const;
  std::string UniformDensityFailure();
  std::string FormulaFailure() const;
  std::string HotspotFailure();

  Platform& platform_;
};

}  // namespace zrsimprp

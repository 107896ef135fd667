#include "zrsimprp/pages/CPagDensity/CPagDensity.h"

namespace zrsimprp {

CPagDensity::CPagDensity(Platform& platform) : platform_(platform) {}

std::string CPagDensity::Description() { return ""; }
void CPagDensity::SetDescription(const std::string&) {}
std::string CPagDensity::Densities() { return ""; }
void CPagDensity::SetDensities(const std::string&) {}
std::string CPagDensity::Formula() { return txtFormula.Text(); }
void CPagDensity::SetFormula(const std::string& value) { txtFormula.SetText(value); }
std::string CPagDensity::GridSpacing() { return txtGridSpace.Text(); }
void CPagDensity::SetGridSpacing(const std::string& value) { txtGridSpace.SetText(value); }
std::string CPagDensity::DSMLayer() { return cboLayer.Text(); }
void CPagDensity::SetDSMLayer(const std::string&) {}
std::string CPagDensity::DSMField() { return cboField.Text(); }
void CPagDensity::SetDSMField(const std::string&) {}
int16_t CPagDensity::NumHotspots() { return 0; }
std::string CPagDensity::HotspotValues(int16_t) { return ""; }
void CPagDensity::SetHotspotValues(int16_t, const std::string&) {}
bool CPagDensity::IsValid(std::string& validation_string) {
  validation_string.clear();
  return true;
}
void CPagDensity::Initialize() {}
void CPagDensity::AddHotspot() {}
void CPagDensity::UpdateFlxConstantDensity(int32_t, const std::vector<std::string>&) {}
void CPagDensity::OptDensityClick(int) {}
void CPagDensity::ChkHotspotsClick() {}
void CPagDensity::CmdAddHotspotClick() {}
void CPagDensity::CmdSubHotspotClick() {}

}  // namespace zrsimprp

#include "zrsimprp/pages/CPagAnalyses/CPagAnalyses.h"

#include <cstdint>
#include <string>

#include "zrsimprp/host/ComboTools.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/DesignModeGuard.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/host/ProjectDatabase.h"
#include "zrsimprp/host/Required.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace zrsimprp {

namespace {

constexpr const char* kModule = "PagAnalyses";
constexpr const char* kSource = "ZrSIMPrp";

// Data filters and model definitions enter their lists alike: "<a> <s>" shown, "<b>" as identifier.
// The caller's `name` buffer serves every record of a list, so that reading a name allocates nothing.
template <class Item>
void AddItemValues(KeyedList& list, Item& item, std::string& name) {
  int32_t a = 0;
  int32_t b = 0;
  name.clear();
  item.ItemValues(a, b, name);
  list.AddNumbered(a, name, b);
}

// Only distance-sampling fits of MRDS can be offered; the other MRDS methods and DSM cannot.
bool OfferedModel(ModelDefinition& model) {
  const std::string engine = model.EngineName();
  if (TextEquals(engine, "MRDS")) {
    const std::string method = DefinitionEntryCodec::Instance().EntryValue(model.DefinitionText(), "Method");
    return TextEquals(method, "ds");
  }
  return TextEquals(engine, "MA");
}

}  // namespace

CPagAnalyses::CPagAnalyses(Platform& platform) : platform_(platform) {
  chkAnalyse.SetClickHandler([this] { ChkAnalyseClick(); });
  cmdAddModel.SetClickHandler([this] { CmdAddModelClick(); });
  cmdSubModel.SetClickHandler([this] { CmdSubModelClick(); });

  chkAnalyse.SetValue(CheckBox::kChecked);
  cboModelDef.Clear();
  cboCriteria.Clear();
  for (const char* criterion : {"AIC", "AICc", "BIC"}) cboCriteria.AddItem(criterion);
  cboCriteria.SetListIndex(0);
  cboCriteria.SetEnabled(false);
  cboCriteria.SetVisible(false);
  flxModels.SetEnabled(true);
  flxModels.SetRows(1);
  flxModels.SetCols(2);
  flxModels.SetFixedRows(0);
  flxModels.SetFixedCols(1);
  flxModels.SetTextMatrix(0, 0, "Analysis 1");
}

void CPagAnalyses::ShowListEnabled(ComboBox& combo, bool enabled) {
  combo.SetEnabled(enabled);
  combo.SetBackColor(
      platform_.SystemColor(enabled ? SystemColorRole::kWindowBackground : SystemColorRole::kButtonFace));
}

void CPagAnalyses::ChkAnalyseClick() {
  const bool checked = chkAnalyse.Value() == CheckBox::kChecked;
  ShowListEnabled(cboDataFilter, checked);
  ShowListEnabled(cboAnalysisType, checked);
  ShowListEnabled(cboCriteria, checked);
  flxModels.SetEnabled(checked);
  cmdAddModel.SetEnabled(checked);
}

void CPagAnalyses::CmdAddModelClick() {
  flxModels.AddItem();
  const int row = flxModels.Rows() - 1;
  flxModels.SetCellAlignment(row, 0, row, flxModels.Cols() - 1, CellAlignment::kCenterCenter);
  flxModels.SetCellBackColor(row, 1, row, 1, flxModels.BackColor());
  flxModels.SetCellBackColor(row, 0, row, 0, flxModels.BackColorFixed());
  flxModels.SetTextMatrix(row, 0, "Analysis " + std::to_string(flxModels.Rows()));
  if (flxModels.Rows() > 1) {
    cmdSubModel.SetEnabled(true);
    cboCriteria.SetEnabled(true);
  }
}

void CPagAnalyses::CmdSubModelClick() {
  if (flxModels.Rows() >= 2 && flxModels.Row() >= 0) flxModels.RemoveItem(flxModels.Row());
  const bool several = flxModels.Rows() > 1;
  cmdSubModel.SetEnabled(several);
  cboCriteria.SetEnabled(several);
}

std::string CPagAnalyses::Analyse() { return chkAnalyse.Value() != CheckBox::kUnchecked ? "True" : "False"; }

void CPagAnalyses::SetAnalyse(const std::string& value) {
  if (TextEquals(value, "True")) {
    chkAnalyse.SetValue(CheckBox::kChecked);
  } else if (TextEquals(value, "False")) {
    chkAnalyse.SetValue(CheckBox::kUnchecked);
  }
}

std::string CPagAnalyses::IdentifierOfName(const KeyedList& list, const std::string& name) {
  if (name.empty()) return "0";
  return std::string(list.LastKeyOfItem(name));
}

void CPagAnalyses::SelectIdentifier(const KeyedList& list, ComboBox& combo, const std::string& value) {
  if (value == "0") return;
  ComboTools::SelectComboItemOrFirst(combo, list.LastItemOfKey(value));
}

std::string CPagAnalyses::DataFilter() {
  RequireUserMode(platform_, kSource);
  return IdentifierOfName(filter_list_, cboDataFilter.Text());
}

void CPagAnalyses::SetDataFilter(const std::string& value) {
  RequireUserMode(platform_, kSource);
  SelectIdentifier(filter_list_, cboDataFilter, value);
}

std::string CPagAnalyses::ModelDef() {
  RequireUserMode(platform_, kSource);
  return IdentifierOfName(model_list_, cboModelDef.Text());
}

void CPagAnalyses::SetModelDef(const std::string& value) {
  RequireUserMode(platform_, kSource);
  SelectIdentifier(model_list_, cboModelDef, value);
}

std::string CPagAnalyses::Criteria() { return cboCriteria.Text(); }

void CPagAnalyses::SetCriteria(const std::string& value) {
  RequireUserMode(platform_, kSource);
  ComboTools::SelectComboItemOrFirst(cboCriteria, value);
}

bool CPagAnalyses::IsValid(std::string& message) {
  // The page has nothing to check.
  message = "";
  return true;
}

void CPagAnalyses::FillDataFilters() {
  const auto database = Required(CModGlobal::ProjectDatabase(), "no project database");
  filter_list_ = KeyedList();
  const auto filters = database->DataFilters();
  filter_list_.Reserve(filters.size());
  std::string name;
  for (const auto& filter : filters) AddItemValues(filter_list_, *Required(filter, "no data filter"), name);
  ComboTools::ShowItems(cboDataFilter, filter_list_);
}

void CPagAnalyses::FillModelDefinitions() {
  const auto database = Required(CModGlobal::ProjectDatabase(), "no project database");
  model_list_ = KeyedList();
  const auto models = database->ModelDefinitions();
  model_list_.Reserve(models.size());
  std::string name;
  for (const auto& model : models) {
    if (OfferedModel(*Required(model, "no model definition"))) AddItemValues(model_list_, *model, name);
  }
  ComboTools::ShowItems(cboModelDef, model_list_);
}

void CPagAnalyses::Initialize() {
  RunTrapped(
      [this] {
        flxModels.SetRows(1);
        flxModels.SetCols(2);
        cboCriteria.SetEnabled(false);
        FillDataFilters();
        FillModelDefinitions();
        // Analysis is always on: the box is checked and the user cannot clear it.
        chkAnalyse.SetValue(CheckBox::kChecked);
        chkAnalyse.SetEnabled(false);
        // Only one model definition is offered; the several-models controls stay out of sight.
        cboCriteria.SetEnabled(false);
        cboCriteria.SetVisible(false);
        labCriteria.SetVisible(false);
        cmdAddModel.SetEnabled(false);
        cmdAddModel.SetVisible(false);
        cmdSubModel.SetVisible(false);
      },
      [this](const RuntimeError& error) {
        CModErrorHandling::ReportInternalError(platform_, kModule, CModErrorHandling::kInitializeRoutine,
                                               error);
      });
}

}  // namespace zrsimprp

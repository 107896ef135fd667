#include "zrsimprp/pages/CPagSimulation/CPagSimulation.h"

#include <set>
#include <utility>

#include "zrsimprp/host/ComboTools.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/DesignModeGuard.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/host/ProjectDatabase.h"
#include "zrsimprp/host/Required.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/host/Variant.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace zrsimprp {

namespace {

constexpr const char* kModule = "PagSimulation";
constexpr const char* kSource = "ZrSIMPrp";

using Rows = std::vector<std::vector<Variant>>;

std::shared_ptr<ProjectDatabase> Project() {
  return Required(CModGlobal::ProjectDatabase(), "no project database");
}

// The companion is asked of the database every time, so that a host which swaps it is followed.
std::shared_ptr<Layer> LayerNamed(const std::string& name) {
  auto companion = Required(Project()->Companion(), "no project companion");
  return Required(companion->LayerByName(name), "no layer named '" + name + "'");
}

// The identifier is what stands before the first blank of a list entry.
std::string IdentifierOf(const std::string& entry_text) {
  const std::vector<std::string> pieces = Split(entry_text, ' ');
  return pieces.empty() ? std::string() : pieces[0];
}

const Variant& Cell(const Rows& rows, size_t field, size_t record) {
  if (field >= rows.size() || record >= rows[field].size()) {
    throw RuntimeError(error_number::kSubscriptOutOfRange, kSource, "Subscript out of range");
  }
  return rows[field][record];
}

void FetchFeature(Layer& layer, const Variant& id) {
  // Only asked for; nothing of the record is kept.
  layer.FeatureByID(Variant(VariantToInt32(id)));
}

}  // namespace

CPagSimulation::CPagSimulation(Platform& platform) : platform_(platform) {
  optDesign.SetClickHandler([this](int index) { OptDesignClick(index); });
  cboSurvey.SetClickHandler([this] { CboSurveyClick(); });
  cboDesign.SetClickHandler([this] { CboDesignClick(); });
  cboRegionLayer.SetClickHandler([this] { CboRegionLayerClick(); });
  optDesign.Select(0);
  cboSurvey.SetEnabled(false);
}

void CPagSimulation::ShowListEnabled(ComboBox& combo, bool enabled) {
  combo.SetEnabled(enabled);
  combo.SetBackColor(
      platform_.SystemColor(enabled ? SystemColorRole::kWindowBackground : SystemColorRole::kButtonFace));
}

void CPagSimulation::OptDesignClick(int index) {
  if (index == 0) {
    ShowListEnabled(cboDesign, true);
    ShowListEnabled(cboSurvey, false);
  } else if (index == 1) {
    ShowListEnabled(cboSurvey, true);
    ShowListEnabled(cboDesign, false);
  }
}

std::vector<std::string> CPagSimulation::StrataNames() {
  return strata_names_ ? *strata_names_ : std::vector<std::string>();
}

int32_t CPagSimulation::StrataNum() { return stratified_ ? strata_count_ : 0; }

std::string CPagSimulation::StrataLayer() {
  return cboRegionLayer.Text().empty() ? std::string("None") : cboRegionLayer.Text();
}

void CPagSimulation::SetStrataLayer(const std::string& value) {
  RequireUserMode(platform_, kSource);
  if (TextEquals(value, "None")) return;
  ComboTools::SelectComboItemOrFirst(cboRegionLayer, value);
}

std::string CPagSimulation::Reps() { return txtReps.Text(); }

void CPagSimulation::SetReps(const std::string& value) {
  RequireUserMode(platform_, kSource);
  txtReps.SetText(value);
}

std::string CPagSimulation::TransectObjectType() {
  if (optDesign.Value(0)) return "Design";
  if (optDesign.Value(1)) return "Survey";
  return "";
}

void CPagSimulation::SetTransectObjectType(const std::string& value) {
  RequireUserMode(platform_, kSource);
  optDesign.Select(TextEquals(value, "Design") ? 0 : 1);
}

std::string CPagSimulation::TransectObjectID() {
  const ComboBox* list = nullptr;
  if (optDesign.Value(0)) {
    list = &cboDesign;
  } else if (optDesign.Value(1)) {
    list = &cboSurvey;
  } else {
    return "";
  }
  return list->Text().empty() ? std::string("0") : IdentifierOf(list->Text());
}

void CPagSimulation::SetDesignObjectID(const std::string& value) {
  RequireUserMode(platform_, kSource);
  SelectByKey(design_list_, cboDesign, value);
}

void CPagSimulation::SetSurveyObjectID(const std::string& value) {
  RequireUserMode(platform_, kSource);
  if (value == "0") return;
  SelectByKey(survey_list_, cboSurvey, value);
}

void CPagSimulation::SelectByKey(const KeyedList& list, ComboBox& combo, const std::string& value) {
  ComboTools::SelectComboItemOrFirst(combo, list.LastItemOfKey(value));
}

bool CPagSimulation::IsValid(std::string& validation_string) {
  validation_string = "";
  ClearInvalid();
  return CModErrorHandling::RunPageChecks(validation_string, [this] {
    std::string message = RepetitionsFailure();
    if (!message.empty()) MarkInvalid(txtReps);
    return message;
  });
}

// The message for repetitions that are not a positive whole number, or "".
std::string CPagSimulation::RepetitionsFailure() {
  const std::string& text = txtReps.Text();
  if (IsNumeric(text)) {
    const int16_t repetitions = ToInt16(text);
    if (ToDouble(text) != static_cast<double>(repetitions))
      return "The number of repetitions must be an integer.";
    if (repetitions >= 1) return "";
    return "The number of repetitions must be greater than 0.";
  }
  // A blank box is not numeric, so the blank-box wording is never reached and the numeric one shows.
  const bool blank_and_numeric = text.empty() && IsNumeric(text);
  return blank_and_numeric ? "The number of repetitions cannot be left blank, please provide a number."
                           : "The number of repetitions must be numeric.";
}

void CPagSimulation::Initialize() {
  RunTrapped(
      [this] {
        FillDesignList();
        FillSurveyList();
        optDesign.Select(1);
        optDesign.Button(0).SetEnabled(false);
        cboDesign.SetEnabled(false);
      },
      [this](const RuntimeError& error) {
        CModErrorHandling::ReportInternalError(platform_, kModule, CModErrorHandling::kInitializeRoutine,
                                               error);
      });
}

void CPagSimulation::FillDesignList() {
  design_list_ = KeyedList();
  for (const auto& group : Project()->DesignGroups()) {
    const auto records = Required(group, "no design group")->Records();
    design_list_.Reserve(static_cast<size_t>(design_list_.Count()) + records.size());
    for (const auto& record : records) {
      Required(record, "no design record");
      const int32_t id = record->ID();
      design_list_.AddNumbered(id, record->Name(), id);
    }
  }
  ComboTools::ShowItems(cboDesign, design_list_);
  // The design box starts out showing no design until one is picked or set.
  cboDesign.SetText(" ");
}

void CPagSimulation::FillSurveyList() {
  survey_list_ = KeyedList();
  for (const auto& group : Project()->SurveyGroups()) {
    const auto records = Required(group, "no survey group")->Records();
    survey_list_.Reserve(static_cast<size_t>(survey_list_.Count()) + records.size());
    for (const auto& record : records) {
      Required(record, "no survey record");
      if (record->Status() != 1) continue;
      const int32_t id = record->ID();
      survey_list_.AddNumbered(id, record->Name(), id);
    }
  }
  ComboTools::ShowItems(cboSurvey, survey_list_);
}

void CPagSimulation::CboSurveyClick() {
  if (cboSurvey.Text().empty()) {
    cboRegionLayer.Clear();
    return;
  }
  const double survey_id = ToDouble(IdentifierOf(cboSurvey.Text()));
  int32_t design_id = 0;
  for (const auto& group : Project()->SurveyGroups()) {
    for (const auto& record : Required(group, "no survey group")->Records()) {
      if (static_cast<double>(Required(record, "no survey record")->ID()) == survey_id) {
        design_id = record->DesignID();
      }
    }
  }
  FillRegionLayers(design_id);
}

void CPagSimulation::CboDesignClick() {
  if (cboDesign.Text().empty()) cboRegionLayer.Clear();
}

std::shared_ptr<DesignRecord> CPagSimulation::FindDesign(double design_id) {
  std::shared_ptr<DesignRecord> found;
  for (const auto& group : Project()->DesignGroups()) {
    for (const auto& record : Required(group, "no design group")->Records()) {
      if (static_cast<double>(Required(record, "no design record")->ID()) == design_id) found = record;
    }
  }
  return found;
}

void CPagSimulation::FillRegionLayers(double design_id) {
  cboRegionLayer.Clear();
  const std::string text =
      Required(FindDesign(design_id), "no design with that identifier")->DefinitionText();

  std::string layer_name;
  std::string_view rest(text);
  DefinitionEntry entry;
  while (!rest.empty()) {
    DefinitionEntryCodec::Instance().ReadNextEntry(rest, entry);
    if (TextEquals(entry.key, "STRATUM LAYER")) {
      layer_name = entry.value;
      break;
    }
  }

  cboRegionLayer.AddItem(layer_name);
  // Guard: a project whose parent links loop back would otherwise keep this walk going for ever.
  std::set<std::string> seen{ToLowerAscii(layer_name)};
  std::string current = layer_name;
  while (true) {
    auto layer = LayerNamed(current);
    if (layer->Kind() == 1) break;
    current = Required(layer->Parent(""), "layer '" + current + "' has no parent")->Name();
    if (!seen.insert(ToLowerAscii(current)).second) {
      throw RuntimeError(error_number::kInvalidProcedureCall, kSource,
                         "The parent layers of '" + layer_name + "' lead back to '" + current + "'");
    }
    cboRegionLayer.AddItem(current);
  }

  for (int i = 0; i < cboRegionLayer.ListCount(); ++i) cboRegionLayer.SetListIndex(i);
  cboRegionLayer.SetListIndex(0);
}

void CPagSimulation::CboRegionLayerClick() {
  RunTrapped([this] { ComputeStrata(); },
             [this](const RuntimeError& error) {
               CModErrorHandling::ReportInternalError(platform_, kModule, "cboRegionLayer_Click", error);
             });
}

void CPagSimulation::ClearStrata() {
  stratified_ = false;
  strata_count_ = 0;
  strata_ids_.clear();
  if (!strata_names_) {
    throw RuntimeError(error_number::kSubscriptOutOfRange, kSource, "Subscript out of range");
  }
  (*strata_names_)[0] = "";
  has_label_ = false;
}

void CPagSimulation::ComputeStrata() {
  if (cboRegionLayer.ListCount() == 0) {
    ClearStrata();
    return;
  }
  stratified_ = true;
  if (TextEquals(cboRegionLayer.Text(), last_layer_)) return;

  last_layer_ = cboRegionLayer.Text();
  auto layer = LayerNamed(last_layer_);
  auto table = Required(layer->AttributeTable(), "layer '" + last_layer_ + "' has no attribute table");
  auto id_field = Required(table->IDField(), "layer '" + last_layer_ + "' has no identifier field");
  auto label_field = table->LabelField();

  std::string fields = id_field->Name();
  has_label_ = label_field != nullptr;
  if (has_label_) fields += "," + label_field->Name();

  const std::optional<Rows> rows = layer->GetRows(fields, 0, 1);
  const bool no_rows = !rows || rows->empty();
  const int64_t last = no_rows ? -1 : static_cast<int64_t>((*rows)[0].size()) - 1;
  strata_count_ = static_cast<int32_t>(last + 1);

  std::string first_label;
  if (last >= 0) {
    strata_ids_ = VariantToText(Cell(*rows, 0, 0));
    FetchFeature(*layer, Cell(*rows, 0, 0));
    if (has_label_) first_label = VariantToText(Cell(*rows, 1, 0));
  }

  if (strata_count_ < 1) {
    throw RuntimeError(error_number::kSubscriptOutOfRange, kSource, "Subscript out of range");
  }
  strata_names_ = std::vector<std::string>(static_cast<size_t>(strata_count_));
  (*strata_names_)[0] = first_label;

  for (int64_t r = 1; r <= last; ++r) {
    const auto record = static_cast<size_t>(r);
    const Variant& id = Cell(*rows, 0, record);
    strata_ids_ += ",";
    strata_ids_ += VariantToText(id);
    FetchFeature(*layer, id);
    if (has_label_) (*strata_names_)[record] = VariantToText(Cell(*rows, 1, record));
  }
}

}  // namespace zrsimprp

#include "zrsimprp/control/SIMProperties.h"

#include <unordered_map>
#include <utility>

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace zrsimprp {
namespace {

constexpr const char* kModule = "SIM";
constexpr int32_t kObjectNotSet = 91;

}  // namespace

SIMProperties::SIMProperties(Platform& platform)
    : pagSimulation(platform),
      pagDensity(platform),
      pagPopulation(platform),
      pagCovariates(platform),
      pagDetectability(platform),
      pagAnalyses(platform),
      pagMisc(platform),
      platform_(platform) {
  // The strip opens on "General", so its page is the one shown on the Population tab.
  pagCovariates.SetVisible(false);
}

// ---------------------------------------------------------------------------------------------------
// Public interface

std::string SIMProperties::Definition() {
  if (!platform_.UserMode()) return std::string();
  definition_ = WriteDefinition();
  return definition_;
}

void SIMProperties::SetDefinition(const std::string& text) { definition_ = text; }

void SIMProperties::SetProjectDatabase(std::shared_ptr<ProjectDatabase> database) {
  CModGlobal::SetProjectDatabase(std::move(database));
}

bool SIMProperties::IsValid() {
  if (!platform_.UserMode()) return false;
  bool valid = false;
  RunTrapped([&] { valid = navigation_.ValidateShownPage(); },
             [&](const RuntimeError& error) {
               CModErrorHandling::ReportInternalError(platform_, kModule, "IsValid", error);
               valid = false;
             });
  return valid;
}

void SIMProperties::Initialize() {
  // A form designer shows the control as it was created: nothing is loaded into the pages there.
  if (!platform_.UserMode()) return;
  pagSimulation.Initialize();
  pagDensity.Initialize();
  pagPopulation.Initialize();
  pagCovariates.Initialize();
  pagDetectability.Initialize();
  pagAnalyses.Initialize();
  // The Misc page keeps its design-time state until the definition sets it.
  ReadDefinition(definition_);
  navigation_.RestoreTabs();
  StrataHandOver();
  navigation_.MarkInitialized();
}

void SIMProperties::ResetDefinition() {
  if (!platform_.UserMode()) return;
  const std::shared_ptr<zrsimprp::EngineDefaults> defaults = RequireProjectDatabase()->EngineDefaults();
  if (!defaults) throw RuntimeError(kObjectNotSet, kModule, "The project supplies no engine defaults");
  definition_ = VariantToText(defaults->DefaultDefinition("SIM"));
  Initialize();
}

// ---------------------------------------------------------------------------------------------------
// Host objects

std::shared_ptr<ProjectDatabase> SIMProperties::RequireProjectDatabase() {
  std::shared_ptr<ProjectDatabase> database = CModGlobal::ProjectDatabase();
  if (!database) {
    throw RuntimeError(kObjectNotSet, kModule, "No project database has been given to the control");
  }
  return database;
}

// ---------------------------------------------------------------------------------------------------
// Reading the definition text into the pages

SIMProperties::EntryReader SIMProperties::FindEntryReader(const std::string& key) {
  // "Engine" is deliberately absent: like any unknown key it is passed over.
  static const std::unordered_map<std::string, EntryReader> kReaders = {
      {"transects", &SIMProperties::ReadTransects},
      {"stratalayer", &SIMProperties::ReadStrataLayer},
      {"reps", &SIMProperties::ReadReps},
      {"density", &SIMProperties::ReadDensity},
      {"hotspot", &SIMProperties::ReadHotspot},
      {"popsize", &SIMProperties::ReadPopSize},
      {"clusters", &SIMProperties::ReadClusters},
      {"categoricalcov", &SIMProperties::ReadCategoricalCov},
      {"continuouscov", &SIMProperties::ReadContinuousCov},
      {"detectability", &SIMProperties::ReadDetectability},
      {"detfuncparam", &SIMProperties::ReadDetFuncParam},
      {"analyse", &SIMProperties::ReadAnalyse},
      {"datafilter", &SIMProperties::ReadDataFilter},
      {"modeldef", &SIMProperties::ReadModelDef},
      {"modelselection", &SIMProperties::ReadModelSelection},
      {"parallelprocessing", &SIMProperties::ReadParallelProcessing},
  };
  const auto it = kReaders.find(ToLowerAscii(key));
  return it == kReaders.end() ? nullptr : it->second;
}

const std::string& SIMProperties::FieldValue(const DefinitionEntry& entry, size_t position) {
  // Fields are taken by slot, whatever the field count says; a missing slot is an error.
  if (position < 1 || position > entry.field_values.size()) {
    throw RuntimeError(error_number::kSubscriptOutOfRange, "ZrSIMPrp", "Subscript out of range");
  }
  return entry.field_values[position - 1];
}

void SIMProperties::ReadDefinition(const std::string& text) {
  RunTrapped(
      [&] {
        DefinitionEntryCodec& codec = DefinitionEntryCodec::Instance();
        std::string_view rest(text);
        DefinitionEntry entry;
        // The codec consumes at least one character per call, so the loop ends.
        while (!rest.empty()) {
          codec.ReadNextEntry(rest, entry);
          const EntryReader reader = FindEntryReader(entry.key);
          if (reader != nullptr) (this->*reader)(entry);
        }
      },
      [&](const RuntimeError& error) {
        CModErrorHandling::ReportInternalError(platform_, kModule, "ReadDefinition", error);
      });
}

void SIMProperties::ReadTransects(const DefinitionEntry& entry) {
  pagSimulation.SetTransectObjectType(entry.value);
  if (TextEquals(entry.value, "Design")) {
    pagSimulation.SetDesignObjectID(FieldValue(entry, 1));
  } else if (TextEquals(entry.value, "Survey")) {
    pagSimulation.SetSurveyObjectID(FieldValue(entry, 1));
  }
}

void SIMProperties::ReadStrataLayer(const DefinitionEntry& entry) {
  pagSimulation.SetStrataLayer(entry.value);
  StrataHandOver();
}

void SIMProperties::ReadReps(const DefinitionEntry& entry) { pagSimulation.SetReps(entry.value); }

void SIMProperties::ReadDensity(const DefinitionEntry& entry) {
  pagDensity.SetDescription(entry.value);
  if (TextEquals(entry.value, "Uniform")) {
    pagDensity.SetDensities(FieldValue(entry, 1));
    pagDensity.SetGridSpacing(FieldValue(entry, 2));
  } else if (TextEquals(entry.value, "Simple")) {
    pagDensity.SetFormula(FieldValue(entry, 1));
    pagDensity.SetGridSpacing(FieldValue(entry, 2));
  }
  // "DSM" writes its layer and field, but they are not read back: the page finds them itself.
}

void SIMProperties::ReadHotspot(const DefinitionEntry& entry) {
  pagDensity.AddHotspot();
  const int16_t k = pagDensity.NumHotspots();
  pagDensity.SetHotspotValues(k, FieldValue(entry, 1));
}

void SIMProperties::ReadPopSize(const DefinitionEntry& entry) {
  pagPopulation.SetPopulationSize(entry.value);
  pagPopulation.SetPopSizeValues(FieldValue(entry, 1));
}

void SIMProperties::ReadClusters(const DefinitionEntry& entry) {
  pagPopulation.SetClusteredPop(entry.value);
  if (!TextEquals(entry.value, "True")) return;
  const std::string& distribution = FieldValue(entry, 1);
  pagPopulation.SetClusterDistribution(distribution);
  if (!TextEquals(distribution, "pmf")) {
    pagPopulation.SetClusterDistribution(distribution);
    pagPopulation.SetClusterParams(FieldValue(entry, 2));
  } else {
    pagPopulation.SetClusterPMFSize(FieldValue(entry, 2));
    pagPopulation.SetClusterPMFProb(FieldValue(entry, 3));
  }
}

void SIMProperties::ReadCategoricalCov(const DefinitionEntry& entry) {
  pagCovariates.SetCategoricalCov(true);
  pagCovariates.SetCategoricalName(entry.value);
  pagCovariates.SetCategoricalLevels(FieldValue(entry, 1));
  pagCovariates.SetCategoricalProbs(FieldValue(entry, 2));
}

void SIMProperties::ReadContinuousCov(const DefinitionEntry& entry) {
  pagCovariates.SetContinuousCovariate(true);
  pagCovariates.SetContinuousName(entry.value);
  pagCovariates.SetContinuousDist(FieldValue(entry, 1));
  pagCovariates.SetContinuousParams(FieldValue(entry, 2));
}

void SIMProperties::ReadDetectability(const DefinitionEntry& entry) {
  pagDetectability.SetDetFunction(entry.value);
  pagDetectability.SetParamByStratum(FieldValue(entry, 1));
}

void SIMProperties::ReadDetFuncParam(const DefinitionEntry& entry) {
  // The parameter is found by the name in the first field-name slot.
  if (entry.field_names.empty()) {
    throw RuntimeError(error_number::kSubscriptOutOfRange, "ZrSIMPrp", "Subscript out of range");
  }
  const int32_t row = pagDetectability.ParamRow(entry.field_names[0]);
  pagDetectability.SetParam(row, FieldValue(entry, 1));
}

void SIMProperties::ReadAnalyse(const DefinitionEntry& entry) { pagAnalyses.SetAnalyse(entry.value); }
void SIMProperties::ReadDataFilter(const DefinitionEntry& entry) { pagAnalyses.SetDataFilter(entry.value); }
void SIMProperties::ReadModelDef(const DefinitionEntry& entry) { pagAnalyses.SetModelDef(entry.value); }
void SIMProperties::ReadModelSelection(const DefinitionEntry& entry) { pagAnalyses.SetCriteria(entry.value); }

void SIMProperties::ReadParallelProcessing(const DefinitionEntry& entry) {
  pagMisc.SetParallel(entry.value);
  if (ToBoolean(entry.value)) pagMisc.SetCores(FieldValue(entry, 1));
}

void SIMProperties::StrataHandOver() {
  PageTable::HandOver(PageTable::Get(PageId::kSimulation).on_leave, *this);
}

// ---------------------------------------------------------------------------------------------------
// Writing the pages back into a definition text

void SIMProperties::Append(std::string& text, const std::string& key, const std::string& value,
                           FieldSlots& slots, int32_t field_count, bool line_breaks) {
  DefinitionEntryCodec::Instance().AppendEntry(text, key, value, slots.names, slots.values, field_count, 0,
                                               line_breaks);
}

std::string SIMProperties::WriteDefinition() {
  std::string result;
  RunTrapped(
      [&] {
        std::string text;
        FieldSlots slots;
        const std::shared_ptr<ProjectSettings> settings = CModGlobal::ProjectSettings();
        if (!settings) {
          throw RuntimeError(kObjectNotSet, kModule, "No project database has been given to the control");
        }
        const bool line_breaks =
            VariantToBoolean(settings->ReadSetting(1, 3, "Properties", "InsertCrLf", Variant(int32_t{-1})));
        WriteSimulationEntries(text, slots, line_breaks);
        WriteDensityEntries(text, slots, line_breaks);
        WritePopulationEntries(text, slots, line_breaks);
        WriteCovariateEntries(text, slots, line_breaks);
        WriteDetectabilityEntries(text, slots, line_breaks);
        WriteAnalysisEntries(text, slots, line_breaks);
        WriteMiscEntries(text, slots, line_breaks);
        result = std::move(text);
      },
      [&](const RuntimeError& error) {
        CModErrorHandling::ReportInternalError(platform_, kModule, "WriteDefinition", error);
      });
  return result;
}

void SIMProperties::WriteSimulationEntries(std::string& text, FieldSlots& slots, bool line_breaks) {
  Append(text, "Engine", "SIM", slots, 0, line_breaks);
  slots.names[0] = "ObjectID";
  slots.values[0] = pagSimulation.TransectObjectID();
  slots.count = 1;
  Append(text, "Transects", pagSimulation.TransectObjectType(), slots, slots.count, line_breaks);
  Append(text, "StrataLayer", pagSimulation.StrataLayer(), slots, 0, line_breaks);
  Append(text, "Reps", pagSimulation.Reps(), slots, 0, line_breaks);
}

void SIMProperties::WriteDensityEntries(std::string& text, FieldSlots& slots, bool line_breaks) {
  const std::string description = pagDensity.Description();
  if (TextEquals(description, "Uniform")) {
    slots.names[0] = "Densities";
    slots.values[0] = pagDensity.Densities();
    slots.names[1] = "GridSpace";
    slots.values[1] = pagDensity.GridSpacing();
    slots.count = 2;
  } else if (TextEquals(description, "Simple")) {
    slots.names[0] = "Formula";
    slots.values[0] = pagDensity.Formula();
    slots.names[1] = "GridSpace";
    slots.values[1] = pagDensity.GridSpacing();
    slots.count = 2;
  } else if (TextEquals(description, "DSM")) {
    slots.names[0] = "Layer";
    slots.values[0] = pagDensity.DSMLayer();
    slots.names[1] = "Field";
    slots.values[1] = pagDensity.DSMField();
    slots.count = 2;
  }
  // Any other description keeps the slots of the last entry that set them; the engine expects it so.
  Append(text, "Density", description, slots, slots.count, line_breaks);

  // The counter is wider than the 16-bit count so that 32,767 hotspots end the loop instead of wrapping.
  const int32_t hotspots = pagDensity.NumHotspots();
  for (int32_t i = 1; i <= hotspots; ++i) {
    slots.names[0] = "X,Y,Sig,Amp";
    slots.values[0] = pagDensity.HotspotValues(static_cast<int16_t>(i));
    slots.count = 1;
    Append(text, "Hotspot", "", slots, slots.count, line_breaks);
  }
}

void SIMProperties::WritePopulationEntries(std::string& text, FieldSlots& slots, bool line_breaks) {
  const std::string population_size = pagPopulation.PopulationSize();
  if (TextEquals(population_size, "Poisson N")) {
    slots.count = 0;
  } else {
    slots.names[0] = "Values";
    slots.values[0] = pagPopulation.PopSizeValues();
    slots.count = 1;
  }
  Append(text, "PopSize", population_size, slots, slots.count, line_breaks);

  const std::string clustered = pagPopulation.ClusteredPop();
  if (TextEquals(clustered, "True")) {
    const std::string distribution = pagPopulation.ClusterDistribution();
    slots.names[0] = "Distribution";
    slots.values[0] = distribution;
    if (!TextEquals(distribution, "pmf")) {
      slots.names[1] = "param";
      slots.values[1] = pagPopulation.ClusterParams();
      slots.count = 2;
    } else {
      slots.names[1] = "size";
      slots.values[1] = pagPopulation.ClusterPMF(0);
      slots.names[2] = "prob";
      slots.values[2] = pagPopulation.ClusterPMF(1);
      slots.count = 3;
    }
  } else {
    slots.count = 0;
  }
  Append(text, "Clusters", clustered, slots, slots.count, line_breaks);
}

void SIMProperties::WriteCovariateEntries(std::string& text, FieldSlots& slots, bool line_breaks) {
  if (pagCovariates.CategoricalCov()) {
    slots.names[0] = "categories";
    slots.values[0] = pagCovariates.CategoricalValues(0);
    slots.names[1] = "prob";
    slots.values[1] = pagCovariates.CategoricalValues(1);
    slots.count = 2;
    Append(text, "CategoricalCov", pagCovariates.CategoricalName(), slots, slots.count, line_breaks);
  }
  if (pagCovariates.ContinuousCovariate()) {
    slots.names[0] = "distribution";
    slots.values[0] = pagCovariates.ContinuousDist();
    slots.names[1] = "param";
    slots.values[1] = pagCovariates.ContinuousParams();
    slots.count = 2;
    Append(text, "ContinuousCov", pagCovariates.ContinuousName(), slots, slots.count, line_breaks);
  }
}

void SIMProperties::WriteDetectabilityEntries(std::string& text, FieldSlots& slots, bool line_breaks) {
  const std::string det_function = pagDetectability.DetFunction();
  slots.names[0] = "ParamByStratum";
  slots.values[0] = pagDetectability.ParamByStratum();
  slots.count = 1;
  Append(text, "Detectability", det_function, slots, slots.count, line_breaks);

  slots.names[0] = "Scale";
  slots.values[0] = pagDetectability.Param(1);
  slots.count = 1;
  Append(text, "DetFuncParam", "", slots, slots.count, line_breaks);
  if (TextEquals(det_function, "Hazard Rate")) {
    slots.names[0] = "Shape";
    slots.values[0] = pagDetectability.Param(2);
    slots.count = 1;
    Append(text, "DetFuncParam", "", slots, slots.count, line_breaks);
  }
  const int16_t params = pagDetectability.NumParams();
  for (int32_t i = 3; i <= params; ++i) {
    slots.names[0] = pagDetectability.ParamName(i);
    slots.values[0] = pagDetectability.Param(i);
    slots.count = 1;
    Append(text, "DetFuncParam", "", slots, slots.count, line_breaks);
  }
}

void SIMProperties::WriteAnalysisEntries(std::string& text, FieldSlots& slots, bool line_breaks) {
  const std::string analyse = pagAnalyses.Analyse();
  Append(text, "Analyse", analyse, slots, 0, line_breaks);
  if (!TextEquals(analyse, "True")) return;
  Append(text, "DataFilter", pagAnalyses.DataFilter(), slots, 0, line_breaks);
  Append(text, "ModelDef", pagAnalyses.ModelDef(), slots, 0, line_breaks);
  Append(text, "ModelSelection", pagAnalyses.Criteria(), slots, 0, line_breaks);
}

void SIMProperties::WriteMiscEntries(std::string& text, FieldSlots& slots, bool line_breaks) {
  const std::string parallel = pagMisc.Parallel();
  slots.names[0] = "cores";
  slots.values[0] = pagMisc.Cores();
  slots.count = 1;
  Append(text, "ParallelProcessing", parallel, slots, slots.count, line_breaks);
}

}  // namespace zrsimprp

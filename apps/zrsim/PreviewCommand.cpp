#include "zrsim/PreviewCommand.h"

#include <charconv>
#include <cmath>
#include <sstream>

#include "zrsim/ArgumentParser.h"
#include "zrsim/ControlSession.h"
#include "zrsim/ExitStatus.h"
#include "zrsim/JsonText.h"
#include "zrsim/PageChecker.h"
#include "zrsim/PreviewPicture.h"
#include "zrsim/UsageError.h"
#include "zrsim/VisibleText.h"
#include "zrsimprp/map/MapNumber.h"
#include "zrsimprp/preview/PreviewCalculator.h"
#include "zrsimprp/preview/PreviewInputsReader.h"
#include "zrsimprp/preview/SurveyDrawer.h"

namespace zrsim {

namespace {

const char* const kName = "zrsim preview";

// The shortest text that reads back as the same double; null for what JSON cannot hold.
std::string JsonNumber(double value) {
  if (!std::isfinite(value)) return "null";
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, result.ptr);
}

std::string Number(double value) { return zrsimprp::MapNumber::Text(value, 4); }

std::string JsonStrings(const std::vector<std::string>& texts) {
  std::string json = "[";
  for (size_t i = 0; i < texts.size(); ++i) json += (i ? ", " : "") + JsonString(texts[i]);
  return json + "]";
}

uint64_t ReadSeed(const std::string& text) {
  uint64_t seed = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, seed);
  if (text.empty() || result.ec != std::errc() || result.ptr != end) {
    throw UsageError(std::string(kName) +
                     ": --seed must be a whole number from 0 to 18446744073709551615, not '" + text + "'");
  }
  return seed;
}

std::string Padded(const std::string& text, size_t width) {
  return text.size() >= width ? text + " " : text + std::string(width - text.size(), ' ');
}

}  // namespace

std::string PreviewCommand::Usage() {
  return "Usage: zrsim preview --project FILE (--simulation NAME | --definition FILE | --definition -)\n"
         "                     [--format text|json] [--seed N] [--out PNG]\n"
         "\n"
         "Loads the definition into the control, visits every tab as check does, and prints what one\n"
         "repetition is expected to give: each stratum's animals (clusters, when they come in clusters),\n"
         "the coverage of the design's lines min(1, 2w/S), the average detectability P_a within the\n"
         "truncation distance w, the expected detections N x coverage x P_a, their total and the CV\n"
         "guide sqrt(3/n), with a warning below 60 detections.\n"
         "Exit status: 0 done, 2 arguments, files, or a definition, design or layer that cannot be\n"
         "previewed (one sentence says why).\n"
         "\nOptions:\n"
         "  --project FILE     the project file (GeoPackage) the definition refers to\n"
         "  --simulation NAME  a simulation stored in the project\n"
         "  --definition FILE  a definition text in a file; \"-\" reads the standard input\n"
         "  --format FORMAT    text (the default) or json\n"
         "  --seed N           also draw one survey with this seed (the same seed, the same survey)\n"
         "  --out PNG          draw the strata, the lines and the drawn survey's animals into a PNG\n"
         "                     file (needs --seed)\n"
         "  --help             this text\n";
}

int PreviewCommand::Refuse(const std::string& sentence) {
  err_ << kName << ": " << VisibleLines(sentence) << "\n";
  return kUsageOrFileError;
}

int PreviewCommand::Run(const std::vector<std::string>& words) {
  if (ArgumentParser::AsksForHelp(words)) {
    out_ << Usage();
    return kSuccess;
  }
  ParsedArguments arguments = ArgumentParser(kName)
                                  .Option("project")
                                  .Option("simulation")
                                  .Option("definition")
                                  .Option("format")
                                  .Option("seed")
                                  .Option("out")
                                  .Parse(words);
  if (!arguments.Has("project")) throw UsageError(std::string(kName) + ": --project FILE is required");
  if (arguments.Has("simulation") == arguments.Has("definition")) {
    throw UsageError(std::string(kName) + ": give exactly one of --simulation NAME and --definition FILE");
  }
  const std::string format = arguments.Value("format", "text");
  if (format != "text" && format != "json") {
    throw UsageError(std::string(kName) + ": --format must be text or json, not '" + format + "'");
  }
  std::optional<uint64_t> seed;
  if (arguments.Has("seed")) seed = ReadSeed(arguments.Value("seed"));
  if (arguments.Has("out") && !seed) {
    throw UsageError(std::string(kName) + ": --out draws a survey, so it needs --seed N");
  }

  std::string definition;
  if (arguments.Has("definition")) definition = files_.ReadText(kName, arguments.Value("definition"));
  auto project = files_.OpenProject(kName, arguments.Value("project"));
  if (arguments.Has("simulation")) {
    definition = files_.SimulationDefinition(kName, *project, arguments.Value("simulation"));
  }
  ControlSession session;
  session.Load(project, definition);
  // Every tab is visited first, so that the pages hold what the control hands over on the way.
  for (const PageVerdict& verdict : PageChecker(session).CheckAll()) {
    if (!verdict.valid) {
      return Refuse("the " + verdict.page + " page refuses the definition: " + verdict.message);
    }
  }
  const std::vector<std::string> reports = session.TakeInternalErrors();
  if (!reports.empty()) return Refuse("the control reported an internal error: " + reports.front());

  const zrsimprp::PreviewInputs inputs =
      zrsimprp::PreviewInputsReader::FromControl(session.Control(), project);
  const zrsimprp::Preview preview = zrsimprp::PreviewCalculator::Compute(inputs);
  if (!preview.Usable()) return Refuse(preview.refusal);
  std::optional<zrsimprp::DrawnSurvey> survey;
  if (seed) {
    survey = zrsimprp::SurveyDrawer::Draw(preview, *inputs.layers.region, *seed);
    if (!survey->refusal.empty()) return Refuse(survey->refusal);
  }
  if (arguments.Has("out")) {
    const std::string problem = PreviewPicture::Write(arguments.Value("out"), *inputs.layers.region, *survey);
    if (!problem.empty()) return Refuse(problem);
  }
  if (format == "json") {
    WriteJson(preview, survey);
  } else {
    WriteText(preview, survey);
  }
  return kSuccess;
}

void PreviewCommand::WriteText(const zrsimprp::Preview& preview,
                               const std::optional<zrsimprp::DrawnSurvey>& survey) {
  std::ostringstream text;
  const std::string unit = preview.clusters ? "clusters" : "animals";
  text << "Design: " << preview.design_name << " (" << preview.design_type << "), spacing S "
       << Number(preview.spacing) << ", truncation w " << Number(preview.truncation) << "\n";
  text << "Population: " << preview.population_size << ". " << preview.population_source << "\n";
  text << "Detection curves, g(x) for x from 0 to " << Number(preview.truncation) << ":\n";
  for (const zrsimprp::DetectionCurve& curve : preview.curves) {
    if (!curve.Usable()) {
      text << "  " << curve.problem << "\n";
      continue;
    }
    text << "  " << curve.label << ": sigma " << Number(curve.sigma);
    if (curve.shape > 0) text << ", shape " << Number(curve.shape);
    text << ", average detectability " << Number(curve.average_detectability) << "\n";
  }
  text << "\n"
       << Padded("Stratum", 16) << Padded("ID", 6)
       << Padded(preview.clusters ? "N clusters" : "N animals", 11) << Padded("Coverage", 10)
       << Padded("P_a", 8) << "Expected detections\n";
  for (const zrsimprp::StratumPreview& stratum : preview.strata) {
    text << Padded(stratum.name, 16) << Padded(stratum.id, 6) << Padded(Number(stratum.animals), 11)
         << Padded(Number(stratum.coverage), 10) << Padded(Number(stratum.average_detectability), 8)
         << Number(stratum.expected_detections) << "\n";
  }
  text << "\nExpected detections per repetition: " << Number(preview.expected_detections);
  if (preview.clusters) text << " clusters";
  if (preview.clusters && std::isfinite(preview.expected_individuals)) {
    text << ", " << Number(preview.expected_individuals) << " individuals";
  }
  text << "\nCV guide sqrt(3/n): " << Number(preview.cv_guide) << "\n";
  if (!preview.warning.empty()) text << "Warning: " << preview.warning << "\n";
  for (const std::string& note : preview.notes) text << "Note: " << note << "\n";
  if (survey) {
    text << "\nDrawn survey (seed " << survey->seed << "): " << survey->total_animals << " " << unit << ", "
         << survey->total_detections << " detected (expected " << Number(preview.expected_detections)
         << "), line length " << Number(survey->line_length) << "\n";
    for (size_t s = 0; s < survey->animals_by_stratum.size(); ++s) {
      text << "  " << preview.strata[s].name << ": " << survey->animals_by_stratum[s] << " " << unit << ", "
           << survey->detections_by_stratum[s] << " detected (expected "
           << Number(preview.strata[s].expected_detections) << ")\n";
    }
    for (const std::string& note : survey->notes) text << "Note: " << note << "\n";
  }
  out_ << VisibleLines(text.str());
}

void PreviewCommand::WriteJson(const zrsimprp::Preview& preview,
                               const std::optional<zrsimprp::DrawnSurvey>& survey) {
  std::ostringstream json;
  json << "{\n  \"design\": {\"name\": " << JsonString(preview.design_name)
       << ", \"type\": " << JsonString(preview.design_type)
       << ", \"spacing\": " << JsonNumber(preview.spacing)
       << ", \"truncation\": " << JsonNumber(preview.truncation) << "},\n";
  json << "  \"population\": {\"size\": " << JsonString(preview.population_size)
       << ", \"source\": " << JsonString(preview.population_source)
       << ", \"clusters\": " << (preview.clusters ? "true" : "false")
       << ", \"mean_cluster_size\": " << JsonNumber(preview.mean_cluster_size) << "},\n";
  json << "  \"curves\": [";
  for (size_t i = 0; i < preview.curves.size(); ++i) {
    const zrsimprp::DetectionCurve& curve = preview.curves[i];
    json << (i ? ",\n    " : "\n    ") << "{\"label\": " << JsonString(curve.label);
    if (curve.Usable()) {
      json << ", \"sigma\": " << JsonNumber(curve.sigma) << ", \"shape\": " << JsonNumber(curve.shape)
           << ", \"average_detectability\": " << JsonNumber(curve.average_detectability);
    } else {
      json << ", \"problem\": " << JsonString(curve.problem);
    }
    json << "}";
  }
  json << "\n  ],\n  \"strata\": [";
  for (size_t i = 0; i < preview.strata.size(); ++i) {
    const zrsimprp::StratumPreview& stratum = preview.strata[i];
    json << (i ? ",\n    " : "\n    ") << "{\"name\": " << JsonString(stratum.name)
         << ", \"id\": " << JsonString(stratum.id) << ", \"area\": " << JsonNumber(stratum.area)
         << ", \"animals\": " << JsonNumber(stratum.animals)
         << ", \"coverage\": " << JsonNumber(stratum.coverage)
         << ", \"average_detectability\": " << JsonNumber(stratum.average_detectability)
         << ", \"expected_detections\": " << JsonNumber(stratum.expected_detections)
         << ", \"expected_individuals\": " << JsonNumber(stratum.expected_individuals) << "}";
  }
  json << "\n  ],\n  \"expected_detections\": " << JsonNumber(preview.expected_detections)
       << ",\n  \"expected_individuals\": " << JsonNumber(preview.expected_individuals)
       << ",\n  \"cv_guide\": " << JsonNumber(preview.cv_guide)
       << ",\n  \"warning\": " << (preview.warning.empty() ? "null" : JsonString(preview.warning))
       << ",\n  \"notes\": " << JsonStrings(preview.notes);
  if (survey) {
    json << ",\n  \"realization\": {\"seed\": " << survey->seed << ", \"animals\": " << survey->total_animals
         << ", \"detections\": " << survey->total_detections
         << ", \"line_length\": " << JsonNumber(survey->line_length) << ", \"strata\": [";
    for (size_t s = 0; s < survey->animals_by_stratum.size(); ++s) {
      json << (s ? ", " : "") << "{\"name\": " << JsonString(preview.strata[s].name)
           << ", \"animals\": " << survey->animals_by_stratum[s]
           << ", \"detections\": " << survey->detections_by_stratum[s] << "}";
    }
    json << "], \"notes\": " << JsonStrings(survey->notes) << "}";
  }
  json << "\n}\n";
  out_ << json.str();
}

}  // namespace zrsim

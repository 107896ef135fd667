#include "zrsim/map/MapCommand.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <exception>
#include <sstream>

#include "zrsim/ArgumentParser.h"
#include "zrsim/ControlSession.h"
#include "zrsim/ExitStatus.h"
#include "zrsim/InputFiles.h"
#include "zrsim/UsageError.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/map/DensityMapBuilder.h"
#include "zrsimprp/qt/map/MapPainter.h"

namespace zrsim {

namespace {

constexpr int kDefaultWidth = 900;
constexpr int kDefaultHeight = 700;
constexpr int kLargestSide = 16384;

}  // namespace

std::string MapCommand::Usage() {
  return "Usage: zrsim map --project FILE --simulation NAME --out FILE.png [--width W] [--height H]\n"
         "\n"
         "Draws the simulation's region / strata layer and its relative density surface (with its\n"
         "hotspots) into a PNG picture, as the editor's Density page shows them. Needs no display.\n"
         "\n"
         "  --project FILE     the project file (GeoPackage)\n"
         "  --simulation NAME  the simulation of that project\n"
         "  --out FILE.png     the picture to write\n"
         "  --width W          its width in pixels (default 900)\n"
         "  --height H         its height in pixels (default 700)\n"
         "\n"
         "Exit status: 0 written, 2 a mistake in the arguments, a file that cannot be used, or a\n"
         "simulation whose map cannot be drawn (no region layer, or no geometry for it).\n";
}

int MapCommand::Run(const std::vector<std::string>& words) {
  try {
    return Draw(words);
  } catch (const UsageError& error) {
    err_ << error.what() << "\n";
  } catch (const zrsimprp::RuntimeError& error) {
    err_ << "zrsim map: " << error.description << " (error " << error.number << ", " << error.source << ")\n";
  } catch (const std::exception& error) {
    err_ << "zrsim map: " << error.what() << "\n";
  }
  return kUsageOrFileError;
}

int MapCommand::Dimension(const std::string& option, const std::string& text) {
  const bool whole =
      !text.empty() && text.size() <= 6 && text.find_first_not_of("0123456789") == std::string::npos;
  const int value = whole ? std::stoi(text) : 0;
  if (value < 16 || value > kLargestSide) {
    throw UsageError("zrsim map: --" + option + " must be a whole number of pixels from 16 to " +
                     std::to_string(kLargestSide) + ", not '" + text + "'");
  }
  return value;
}

int MapCommand::Draw(const std::vector<std::string>& words) {
  if (ArgumentParser::AsksForHelp(words)) {
    out_ << Usage();
    return kSuccess;
  }
  const ParsedArguments arguments = ArgumentParser("zrsim map")
                                        .Option("project")
                                        .Option("simulation")
                                        .Option("out")
                                        .Option("width")
                                        .Option("height")
                                        .Parse(words);
  for (const char* required : {"project", "simulation", "out"}) {
    if (!arguments.Has(required))
      throw UsageError(std::string("zrsim map: --") + required + " is missing\n" + Usage());
  }
  const int width = Dimension("width", arguments.Value("width", std::to_string(kDefaultWidth)));
  const int height = Dimension("height", arguments.Value("height", std::to_string(kDefaultHeight)));
  const std::string simulation = arguments.Value("simulation");

  std::istringstream no_input;
  InputFiles files(no_input);
  const auto project = files.OpenProject("zrsim map", arguments.Value("project"));
  const std::string definition = files.SimulationDefinition("zrsim map", *project, simulation);
  ControlSession session;
  session.Load(project, definition);

  const std::string region = session.Control().pagSimulation.cboRegionLayer.Text();
  if (zrsimprp::TrimBlanks(region).empty()) {
    err_ << "zrsim map: the simulation '" << simulation
         << "' has no region / strata layer, so there is no map to draw\n";
    return kUsageOrFileError;
  }
  // Geometry comes from the project itself: the control's own database only routes settings.
  zrsimprp::MapLayers layers;
  zrsimprp::MapLayers::LoadRegion(layers, project, region);
  zrsimprp::MapLayers::LoadDsm(layers, project, session.Control().pagDensity.cboLayer.Text(),
                               session.Control().pagDensity.cboField.Text());
  if (!layers.region) {
    err_ << "zrsim map: " << layers.region_notice << "\n";
    return kUsageOrFileError;
  }
  const zrsimprp::DensityMapInputs inputs =
      zrsimprp::DensityMapInputs::FromPage(session.Control().pagDensity);
  auto model = std::make_shared<const zrsimprp::MapModel>(zrsimprp::DensityMapBuilder::Build(layers, inputs));

  QImage picture(width, height, QImage::Format_ARGB32_Premultiplied);
  {
    QPainter painter(&picture);
    zrsimprp::MapPainter map;
    map.SetModel(model);
    map.SetTitle(QString::fromStdString(simulation + " — " + region));
    map.Paint(painter, QRectF(0, 0, width, height), QGuiApplication::palette());
  }
  const std::string out = arguments.Value("out");
  if (!picture.save(QString::fromStdString(out), "PNG")) {
    err_ << "zrsim map: the picture could not be written to '" << out << "'\n";
    return kUsageOrFileError;
  }
  for (const std::string& notice : model->notices) err_ << "zrsim map: note: " << notice << "\n";
  out_ << "zrsim map: wrote " << out << " (" << width << " x " << height << ")\n";
  return kSuccess;
}

}  // namespace zrsim

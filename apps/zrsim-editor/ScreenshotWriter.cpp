#include "zrsim-editor/ScreenshotWriter.h"

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <filesystem>

#include "zrsim-editor/EditorError.h"
#include "zrsim-editor/EditorWindow.h"

namespace zrsim_editor {

const std::vector<ScreenshotWriter::Shot>& ScreenshotWriter::Shots() {
  static const std::vector<Shot> shots = {
      {"1-simulation.png", 0, 0},  {"2-density.png", 1, 0},       {"3a-general.png", 2, 1},
      {"3b-covariates.png", 2, 2}, {"4-detectability.png", 3, 0}, {"5-analysis.png", 4, 0},
      {"6-misc.png", 5, 0},
  };
  return shots;
}

std::vector<std::string> ScreenshotWriter::WriteAll(EditorWindow& window, const std::string& folder,
                                                    std::vector<std::string>& problems) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (!std::filesystem::is_directory(folder)) {
    throw EditorError("Cannot create the folder '" + folder + "' for the screenshots");
  }
  // Drawn off screen: the whole form, whatever the size of the screen the platform pretends to have.
  window.resize(window.sizeHint());
  window.show();
  std::vector<std::string> written;
  for (const Shot& shot : Shots()) {
    zrsimprp::SIMPropertiesWidget& properties = window.Properties();
    properties.ShowOuterTab(shot.outer_tab);
    if (shot.inner_tab > 0) properties.ShowInnerTab(shot.inner_tab);
    if (properties.CurrentOuterTab() != shot.outer_tab ||
        (shot.inner_tab > 0 && properties.CurrentInnerTab() != shot.inner_tab)) {
      problems.push_back(shot.file_name + ": the control stayed on another tab (a page is not valid)");
    }
    properties.RefreshNow();
    QApplication::processEvents();
    const std::string path = (std::filesystem::path(folder) / shot.file_name).string();
    if (!window.grab().save(QString::fromStdString(path), "PNG")) {
      throw EditorError("Cannot write the screenshot '" + path + "'");
    }
    written.push_back(path);
  }
  return written;
}

}  // namespace zrsim_editor

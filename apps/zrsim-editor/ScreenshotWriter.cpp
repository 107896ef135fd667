#include "zrsim-editor/ScreenshotWriter.h"

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <filesystem>

#include "zrsim-editor/EditorError.h"
#include "zrsim-editor/EditorWindow.h"
#include "zrsimprp/control/PageTable.h"

namespace zrsim_editor {

namespace {

// One shot per page, named by its tab's number, its inner tab's letter and its word:
// "1-simulation.png", "3a-general.png", "3b-covariates.png".
std::vector<ScreenshotWriter::Shot> PageShots() {
  std::vector<ScreenshotWriter::Shot> shots;
  int inner = 0;
  for (const zrsimprp::PageEntry& page : zrsimprp::PageTable::Pages()) {
    const bool shares_tab = zrsimprp::PageTable::HasInnerTabs(page.tab);
    inner = shares_tab ? inner + 1 : 0;
    std::string name = std::to_string(page.tab + 1);
    if (shares_tab) name += static_cast<char>('a' + inner - 1);
    name += "-" + QString::fromLatin1(page.word).toLower().toStdString() + ".png";
    shots.push_back({name, page.tab, inner});
  }
  return shots;
}

}  // namespace

const std::vector<ScreenshotWriter::Shot>& ScreenshotWriter::Shots() {
  static const std::vector<Shot> shots = PageShots();
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

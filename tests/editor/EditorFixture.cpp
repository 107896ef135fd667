#include "EditorFixture.h"

#include <unistd.h>

#include "projectdb/GeoPackageProject.h"
#include "projectdb/SampleProject.h"

void EditorFixture::SetUp() {
  static int counter = 0;
  folder_ = std::filesystem::temp_directory_path() /
            ("zrsim-editor-" + std::to_string(::getpid()) + "-" + std::to_string(++counter));
  std::filesystem::remove_all(folder_);
  std::filesystem::create_directories(folder_);
  sample_ = (folder_ / "sample.gpkg").string();
  zrsimprp::SampleProject::Create(sample_);
}

void EditorFixture::TearDown() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

std::string EditorFixture::StoredDefinition(const std::string& simulation) const {
  return zrsimprp::GeoPackageProject::Open(sample_)->SimulationDefinition(simulation);
}

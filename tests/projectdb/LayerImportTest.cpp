#include <gtest/gtest.h>

#include "ProjectTestSupport.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/LayerImport.h"
#include "projectdb/ProjectLayerTables.h"

namespace zrsimprp::testing {
namespace {

// The import's steps one by one, as a reader of another format will replace the first of them.
class LayerImportTest : public ::testing::Test {
 protected:
  void SetUp() override {
    source_ = folder_.File("nc.gpkg");
    WriteForeignGeoPackage(source_, "nc.gpkg", 12);
  }
  LayerImport::Request Counties(const std::string& label_field = "NAME") const {
    return LayerImport::Request{source_, "nc.gpkg", "OBJECTID", label_field, "Counties", 2, ""};
  }

  TempFolder folder_;
  std::string source_;
};

TEST_F(LayerImportTest, ReadingAndCheckingASourceNeedsNoProject) {
  LayerImport import(Counties());
  import.ReadSource();
  EXPECT_NO_THROW(import.Check());
}

TEST_F(LayerImportTest, CheckingRefusesAFieldTheSourceDoesNotHaveBeforeAnythingIsWritten) {
  LayerImport import(Counties("LABEL"));
  import.ReadSource();
  const RuntimeError error = CaptureError([&] { import.Check(); });
  EXPECT_EQ(error.description,
            "The table 'nc.gpkg' of '" + source_ +
                "' has no field 'LABEL'; its fields are 'NAME', 'SHAPE', 'OBJECTID' and 'CODE'.");
}

TEST_F(LayerImportTest, WritingCopiesEveryFeatureInsideTheCallersTransaction) {
  const std::string path = folder_.File("p.gpkg");
  std::shared_ptr<GeoPackageProject> project = MakeSmallProject(path);
  LayerImport import(Counties());
  import.ReadSource();
  import.Check();
  int32_t count = 0;
  project->Write([&] {
    ProjectLayerTables layers(project->Connection());
    count = import.Write(layers, project->Connection());
  });
  EXPECT_EQ(count, 12);
  EXPECT_EQ(project->Layers().back().name, "Counties");
  EXPECT_EQ(project->Layers().back().label_field, "NAME");
  EXPECT_EQ(project->FeatureCount("Counties"), 12);
}

}  // namespace
}  // namespace zrsimprp::testing

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ProjectTestSupport.h"
#include "projectdb/GeoPackageProject.h"

namespace zrsimprp::testing {
namespace {

class ForeignGeoPackageTest : public ::testing::Test {
 protected:
  void SetUp() override {
    source_ = folder_.File("nc.gpkg");
    WriteForeignGeoPackage(source_, "nc.gpkg", 150);
    path_ = folder_.File("p.gpkg");
    project_ = MakeSmallProject(path_);
  }

  TempFolder folder_;
  std::string source_;
  std::string path_;
  std::shared_ptr<GeoPackageProject> project_;
};

TEST_F(ForeignGeoPackageTest, ImportingA150FeatureLayerReadsBackThroughTheLayerInterface) {
  // A layer lies inside its parent, in the parent's coordinates: the parent here is the same table.
  path_ = folder_.File("own.gpkg");
  project_ = GeoPackageProject::Create(path_);
  project_->ImportLayer(source_, "nc.gpkg", "OBJECTID", "", "Region", 1, "");
  EXPECT_EQ(project_->ImportLayer(source_, "nc.gpkg", "OBJECTID", "NAME", "Counties", 2, "Region"), 150);
  project_.reset();
  auto layer = GeoPackageProject::Open(path_)->Companion()->LayerByName("counties");
  EXPECT_EQ(layer->Name(), "Counties");
  EXPECT_EQ(layer->Kind(), 2);
  EXPECT_EQ(layer->Parent("")->Name(), "Region");
  auto table = layer->AttributeTable();
  EXPECT_EQ(table->IDField()->Name(), "OBJECTID");
  EXPECT_EQ(table->LabelField()->Name(), "NAME");
  const auto rows = layer->GetRows(table->IDField()->Name() + "," + table->LabelField()->Name(), 0, 1);
  ASSERT_TRUE(rows.has_value());
  ASSERT_EQ(rows->at(0).size(), 150u);
  // Feature order is the key's order, whatever order the other tool inserted them in.
  EXPECT_EQ(rows->at(0).front(), Variant(int32_t{851}));
  EXPECT_EQ(rows->at(0).back(), Variant(int32_t{1000}));
  EXPECT_EQ(rows->at(1).front(), Variant(std::string("County 851")));
  for (const Variant& id : rows->at(0)) ASSERT_NE(layer->FeatureByID(id), nullptr);
}

TEST_F(ForeignGeoPackageTest, TheImportedTableKeepsGeometryAndRegistersItsSpatialReference) {
  project_->ImportLayer(source_, "NC.GPKG", "", "", "Counties", 2, "");
  const std::string table = project_->Layers().back().table_name;
  EXPECT_EQ(
      QueryInteger(
          path_, "SELECT count(*) FROM gpkg_geometry_columns WHERE table_name = '" + table +
                     "' AND column_name = 'SHAPE' AND geometry_type_name = 'MULTIPOLYGON' AND srs_id = 4267"),
      1);
  EXPECT_EQ(QueryInteger(path_, "SELECT count(*) FROM gpkg_spatial_ref_sys WHERE srs_id = 4267"), 1);
  EXPECT_EQ(QueryInteger(
                path_, "SELECT count(*) FROM \"" + table + "\" WHERE substr(hex(SHAPE), 1, 8) = '47500000'"),
            150);
  // Without an identifier field named, the feature-id column serves.
  EXPECT_EQ(project_->Companion()->LayerByName("Counties")->AttributeTable()->IDField()->Name(), "OBJECTID");
}

TEST_F(ForeignGeoPackageTest, ATextIdentifierFieldIsIndexedAndFound) {
  project_->ImportLayer(source_, "nc.gpkg", "CODE", "NAME", "Counties", 2, "");
  auto layer = project_->Companion()->LayerByName("Counties");
  EXPECT_NE(layer->FeatureByID(Variant(std::string("C900"))), nullptr);
  EXPECT_EQ(CaptureError([&] { layer->FeatureByID(Variant(std::string("C1"))); }).description,
            "The layer 'Counties' has no feature with the identifier 'C1'.");
}

TEST_F(ForeignGeoPackageTest, AProjectLayerOnAForeignTableWithoutIndexStillFindsFeatures) {
  project_.reset();
  RunSql(path_,
         "CREATE TABLE \"other.table\" (NAME TEXT, SHAPE POLYGON, OBJECTID INTEGER PRIMARY KEY, CODE TEXT);"
         "INSERT INTO \"other.table\" VALUES ('a', NULL, 10, 'K1'), ('b', NULL, 20, 'K2');"
         "INSERT INTO zrsim_layers (name, kind, parent, id_field, label_field, table_name)"
         " VALUES ('Other', 2, '', 'CODE', 'NAME', 'other.table');");
  auto layer = GeoPackageProject::Open(path_)->Companion()->LayerByName("Other");
  EXPECT_THAT(layer->GetRows("CODE,NAME", 0, 1)->at(0),
              ::testing::ElementsAre(Variant(std::string("K1")), Variant(std::string("K2"))));
  EXPECT_NE(layer->FeatureByID(Variant(std::string("K2"))), nullptr);
  EXPECT_EQ(CaptureError([&] { layer->FeatureByID(Variant(std::string("K3"))); }).source, "Layer");
}

TEST_F(ForeignGeoPackageTest, AForeignTableWithNoRowsGivesNoRows) {
  const std::string empty = folder_.File("empty.gpkg");
  WriteForeignGeoPackage(empty, "nc.gpkg", 0);
  EXPECT_EQ(project_->ImportLayer(empty, "nc.gpkg", "OBJECTID", "NAME", "Nothing", 2, ""), 0);
  EXPECT_FALSE(project_->Companion()->LayerByName("Nothing")->GetRows("OBJECTID,NAME", 0, 1).has_value());
}

TEST_F(ForeignGeoPackageTest, ImportNamesAMissingLabelField) {
  EXPECT_EQ(CaptureError([&] {
              project_->ImportLayer(source_, "nc.gpkg", "OBJECTID", "LABEL", "C", 2, "");
            }).description,
            "The table 'nc.gpkg' of '" + source_ +
                "' has no field 'LABEL'; its fields are 'NAME', 'SHAPE', 'OBJECTID' and 'CODE'.");
  EXPECT_EQ(project_->Layers().size(), 2u);
}

TEST_F(ForeignGeoPackageTest, ImportRefusesAPointTableAMissingTableAndAFileThatIsNoGeoPackage) {
  EXPECT_EQ(CaptureError([&] { project_->ImportLayer(source_, "points", "", "", "P", 2, ""); }).description,
            "The table 'points' of '" + source_ + "' holds POINT geometries, not polygons.");
  EXPECT_EQ(CaptureError([&] { project_->ImportLayer(source_, "lakes", "", "", "L", 2, ""); }).description,
            "The file '" + source_ +
                "' holds no table named 'lakes'; its feature tables are 'nc.gpkg' and 'points'.");
  const std::string text = folder_.File("t.gpkg");
  WriteBytes(text, "hello");
  EXPECT_EQ(CaptureError([&] { project_->ImportLayer(text, "nc.gpkg", "", "", "L", 2, ""); }).description,
            "The project file '" + text + "' could not be read: it is not an SQLite database.");
  EXPECT_EQ(CaptureError([&] {
              project_->ImportLayer(folder_.File("none.gpkg"), "t", "", "", "L", 2, "");
            }).description,
            "The GeoPackage '" + folder_.File("none.gpkg") + "' does not exist.");
}

TEST_F(ForeignGeoPackageTest, ImportRefusesALayerNameInUseAndLeavesNoTableBehind) {
  const int64_t tables = QueryInteger(path_, "SELECT count(*) FROM sqlite_master WHERE type = 'table'");
  EXPECT_EQ(
      CaptureError([&] { project_->ImportLayer(source_, "nc.gpkg", "", "", "Strata", 2, ""); }).description,
      "The project already has a layer named 'Strata'.");
  EXPECT_EQ(QueryInteger(path_, "SELECT count(*) FROM sqlite_master WHERE type = 'table'"), tables);
}

TEST_F(ForeignGeoPackageTest, AFeatureWhoseGeometryIsNotAPolygonStopsTheImportWholly) {
  RunSql(source_,
         "UPDATE \"nc.gpkg\" SET SHAPE = X'4750000100000000010100000000000000000000000000000000000000'"
         " WHERE OBJECTID = 900");
  const RuntimeError error =
      CaptureError([&] { project_->ImportLayer(source_, "nc.gpkg", "", "", "Counties", 2, ""); });
  EXPECT_EQ(error.description,
            "The table 'nc.gpkg' of '" + source_ + "' has a feature (900) whose geometry is not a polygon.");
  EXPECT_EQ(project_->Layers().size(), 2u);
}

}  // namespace
}  // namespace zrsimprp::testing

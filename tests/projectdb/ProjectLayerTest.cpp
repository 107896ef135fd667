#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "ProjectTestSupport.h"
#include "projectdb/GeoPackageLayerFields.h"
#include "projectdb/GeoPackageProject.h"

namespace zrsimprp::testing {
namespace {

using ::testing::ElementsAre;

class ProjectLayerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    path_ = folder_.File("p.gpkg");
    MakeSmallProject(path_);
    project_ = GeoPackageProject::Open(path_);
  }
  std::shared_ptr<Layer> Strata() { return project_->Companion()->LayerByName("Strata"); }

  TempFolder folder_;
  std::string path_;
  std::shared_ptr<GeoPackageProject> project_;
};

TEST_F(ProjectLayerTest, LayerByNameIgnoresCaseAndGivesNameAndKind) {
  auto layer = project_->Companion()->LayerByName("STRATA");
  EXPECT_EQ(layer->Name(), "Strata");
  EXPECT_EQ(layer->Kind(), 2);
  EXPECT_EQ(project_->Companion()->LayerByName("region")->Kind(), 1);
}

TEST_F(ProjectLayerTest, AnUnknownLayerIsReportedByTheCatalogue) {
  const RuntimeError error = CaptureError([&] { project_->Companion()->LayerByName("Transects"); });
  EXPECT_EQ(error.source, "LayerCatalogue");
  EXPECT_EQ(error.description, "The project has no layer named 'Transects'.");
}

TEST_F(ProjectLayerTest, ParentWalksUpToTheRegion) {
  auto parent = Strata()->Parent("");
  EXPECT_EQ(parent->Name(), "Region");
  EXPECT_EQ(parent->Kind(), 1);
}

TEST_F(ProjectLayerTest, TheTopLayerHasNoParent) {
  auto region = project_->Companion()->LayerByName("Region");
  const RuntimeError error = CaptureError([&] { region->Parent(""); });
  EXPECT_EQ(error.source, "Layer");
  EXPECT_EQ(error.description, "The layer 'Region' has no parent layer.");
}

TEST_F(ProjectLayerTest, TheAttributeTableNamesIdentifierAndLabelFields) {
  auto table = Strata()->AttributeTable();
  EXPECT_EQ(table->IDField()->Name(), "StratumID");
  ASSERT_NE(table->LabelField(), nullptr);
  EXPECT_EQ(table->LabelField()->Name(), "Label");
  EXPECT_EQ(project_->Companion()->LayerByName("Region")->AttributeTable()->LabelField(), nullptr);
}

TEST_F(ProjectLayerTest, GetRowsGivesFieldsByRecordInFeatureOrder) {
  const auto rows = Strata()->GetRows("StratumID,Label", 0, 1);
  ASSERT_TRUE(rows.has_value());
  ASSERT_EQ(rows->size(), 2u);
  EXPECT_THAT((*rows)[0], ElementsAre(Variant(int32_t{7}), Variant(int32_t{3}), Variant(int32_t{5})));
  EXPECT_THAT((*rows)[1], ElementsAre(Variant(std::string("North")), Variant(std::string("Middle")),
                                      Variant(std::string("South"))));
}

TEST_F(ProjectLayerTest, GetRowsMatchesFieldNamesIgnoringCase) {
  const auto rows = Strata()->GetRows("stratumid", 0, 1);
  ASSERT_TRUE(rows.has_value());
  EXPECT_EQ(rows->at(0).size(), 3u);
}

TEST_F(ProjectLayerTest, GetRowsOfAnUnknownFieldNamesLayerAndField) {
  const RuntimeError error = CaptureError([&] { Strata()->GetRows("StratumID,Area", 0, 1); });
  EXPECT_EQ(error.source, "Layer");
  EXPECT_EQ(error.description, "The layer 'Strata' has no field 'Area' in its table 'strata'.");
}

TEST_F(ProjectLayerTest, ALayerWithNoFeaturesGivesNoRows) {
  project_->AddLayer("Empty", 2, "Region", "ID", "Name", {});
  EXPECT_FALSE(project_->Companion()->LayerByName("Empty")->GetRows("ID,Name", 0, 1).has_value());
}

TEST_F(ProjectLayerTest, FeatureByIDFindsEachStratumByItsIdentifier) {
  auto layer = Strata();
  for (const Variant& id : {Variant(int32_t{7}), Variant(int32_t{3}), Variant(int16_t{5}), Variant(5.0),
                            Variant(std::string("3"))}) {
    EXPECT_NE(layer->FeatureByID(id), nullptr) << VariantToText(id);
  }
}

TEST_F(ProjectLayerTest, FeatureByIDOfAnUnknownIdentifierIsReported) {
  const RuntimeError error = CaptureError([&] { Strata()->FeatureByID(Variant(int32_t{4})); });
  EXPECT_EQ(error.source, "Layer");
  EXPECT_EQ(error.description, "The layer 'Strata' has no feature with the identifier '4'.");
}

TEST_F(ProjectLayerTest, TheIdentifierColumnIsIndexedSoFeatureByIDIsOneLookup) {
  EXPECT_EQ(QueryInteger(path_,
                         "SELECT count(*) FROM pragma_index_list('strata') AS il,"
                         " pragma_index_info(il.name) AS ii WHERE ii.name = 'StratumID'"),
            1);
}

TEST_F(ProjectLayerTest, FeaturesAreStoredAsGeoPackageGeometryWithAnEnvelope) {
  EXPECT_EQ(QueryInteger(path_,
                         "SELECT count(*) FROM gpkg_geometry_columns WHERE table_name = 'strata'"
                         " AND column_name = 'geom' AND geometry_type_name = 'POLYGON' AND srs_id = -1"),
            1);
  EXPECT_EQ(
      QueryInteger(path_,
                   "SELECT count(*) FROM gpkg_contents WHERE table_name = 'strata'"
                   " AND data_type = 'features' AND min_x = 0 AND min_y = 0 AND max_x = 10 AND max_y = 30"),
      1);
  // Magic "GP", version 0, flags 0x03 (little endian, x/y envelope), then WKB type 3 at byte 40 + 1.
  EXPECT_EQ(QueryInteger(path_,
                         "SELECT count(*) FROM strata WHERE substr(hex(geom), 1, 8) = '47500003'"
                         " AND substr(hex(geom), 83, 8) = '03000000' AND length(geom) = 40 + 9 + 4 + 5 * 16"),
            3);
}

TEST_F(ProjectLayerTest, AFeatureOfSeveralPolygonsMakesAMultiPolygonTable) {
  PolygonFeature two{1, "Islands", {{{{0, 0}, {1, 0}, {1, 1}}}, {{{5, 5}, {6, 5}, {6, 6}}}}};
  project_->AddLayer("Islands", 2, "Region", "ID", "", {two});
  const std::string table = project_->Layers().back().table_name;
  EXPECT_EQ(QueryInteger(path_, "SELECT count(*) FROM gpkg_geometry_columns WHERE table_name = '" + table +
                                    "' AND geometry_type_name = 'MULTIPOLYGON'"),
            1);
}

TEST_F(ProjectLayerTest, AddLayerRefusesARepeatedNameAnUnknownParentAndRepeatedIdentifiers) {
  EXPECT_EQ(CaptureError([&] { project_->AddLayer("strata", 2, "", "ID", "", {}); }).description,
            "The project already has a layer named 'strata'.");
  EXPECT_EQ(CaptureError([&] { project_->AddLayer("New", 2, "Nowhere", "ID", "", {}); }).description,
            "The parent layer 'Nowhere' of the layer 'New' is not in the project.");
  EXPECT_EQ(CaptureError([&] {
              project_->AddLayer("New", 2, "", "ID", "", {Square(1, "", 0, 0, 1), Square(1, "", 1, 1, 1)});
            }).description,
            "Two features of the layer 'New' have the identifier 1.");
  EXPECT_EQ(project_->Layers().size(), 2u);
}

TEST_F(ProjectLayerTest, ALayerNamedLikeAnSqlKeywordGetsItsOwnTable) {
  project_->AddLayer("select \"x\"; drop", 2, "", "ID", "", {Square(1, "", 0, 0, 1)});
  EXPECT_EQ(project_->Companion()->LayerByName("select \"x\"; drop")->GetRows("ID", 0, 1)->at(0).size(), 1u);
}

TEST_F(ProjectLayerTest, ALabelFieldMissingFromTheTableIsAClearError) {
  RunSql(path_, "UPDATE zrsim_layers SET label_field = 'NAME' WHERE name = 'Strata'");
  auto layer = GeoPackageProject::Open(path_)->Companion()->LayerByName("Strata");
  const RuntimeError error = CaptureError([&] { layer->AttributeTable()->LabelField(); });
  EXPECT_EQ(error.source, "AttributeTable");
  EXPECT_EQ(error.description,
            "The layer 'Strata' names 'NAME' as its label field, but its table 'strata' has no such field.");
  EXPECT_EQ(layer->AttributeTable()->IDField()->Name(), "StratumID");
  EXPECT_EQ(CaptureError([&] { layer->GetRows("StratumID,NAME", 0, 1); }).description,
            "The layer 'Strata' has no field 'NAME' in its table 'strata'.");
}

TEST_F(ProjectLayerTest, ALayerWhoseFeatureTableIsGoneIsReported) {
  RunSql(path_, "DROP TABLE strata");
  const RuntimeError error =
      CaptureError([&] { GeoPackageProject::Open(path_)->Companion()->LayerByName("Strata"); });
  EXPECT_EQ(error.source, "LayerCatalogue");
  EXPECT_EQ(error.description,
            "The layer 'Strata' refers to the table 'strata', which the project file does not hold.");
}

TEST_F(ProjectLayerTest, ABinaryValueInAFieldIsReportedNotRead) {
  RunSql(path_, "UPDATE strata SET Label = X'00FF' WHERE StratumID = 3");
  const RuntimeError error = CaptureError([&] { Strata()->GetRows("Label", 0, 1); });
  EXPECT_EQ(error.description, "The field 'Label' of the layer 'Strata' holds binary data, not a value.");
}

TEST_F(ProjectLayerTest, NumericFieldsAreTheTablesNumberColumnsWithoutIdOrGeometry) {
  RunSql(path_,
         "ALTER TABLE strata ADD COLUMN Area REAL; ALTER TABLE strata ADD COLUMN Households INTEGER; "
         "ALTER TABLE strata ADD COLUMN Surveyed DATE; ALTER TABLE strata ADD COLUMN Coastal BOOLEAN; "
         "ALTER TABLE strata ADD COLUMN Cover DOUBLE PRECISION; ALTER TABLE strata ADD COLUMN Kind TEXT(8)");
  project_ = GeoPackageProject::Open(path_);
  EXPECT_THAT(project_->NumericFields("STRATA"), ElementsAre("Area", "Households", "Cover"));
  EXPECT_TRUE(project_->NumericFields("No such layer").empty());
}

TEST(GeoPackageLayerFields, DeclaredTypesThatHoldNumbersAPersonFillsWith) {
  for (const char* type :
       {"INTEGER", "int", "MEDIUMINT", "REAL", "FLOAT", "DOUBLE", "numeric(10,2)", "DECIMAL"}) {
    EXPECT_TRUE(GeoPackageLayerFields::IsNumericType(type)) << type;
  }
  for (const char* type :
       {"TEXT", "TEXT(20)", "BOOLEAN", "DATE", "DATETIME", "BLOB", "", "POLYGON", "MULTIPOINT"}) {
    EXPECT_FALSE(GeoPackageLayerFields::IsNumericType(type)) << type;
  }
}

}  // namespace
}  // namespace zrsimprp::testing

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "projectdb/GeoPackageLayerGeometry.h"
#include "projectdb/SqliteConnection.h"

namespace zrsimprp {
namespace {

// A spatial reference table in memory with a projected system in metres, one in feet and a
// geographic one, as GeoPackages from other tools hold them.
class CoordinateUnitsTest : public ::testing::Test {
 protected:
  CoordinateUnitsTest()
      : connection(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, SqliteConnection::Limits{}) {
    connection.Execute(
        "CREATE TABLE gpkg_spatial_ref_sys (srs_name TEXT, srs_id INTEGER PRIMARY KEY, organization TEXT, "
        "organization_coordsys_id INTEGER, definition TEXT, description TEXT);"
        "INSERT INTO gpkg_spatial_ref_sys VALUES ('UTM 18N', 32618, 'EPSG', 32618, "
        "'PROJCS[\"WGS 84 / UTM zone 18N\",GEOGCS[\"WGS 84\",UNIT[\"degree\",0.0174532925199433]],"
        "PROJECTION[\"Transverse_Mercator\"],UNIT[\"metre\",1]]', NULL);"
        "INSERT INTO gpkg_spatial_ref_sys VALUES ('NY feet', 2261, 'EPSG', 2261, "
        "'PROJCS[\"NAD83 / New York Central (ftUS)\",GEOGCS[\"NAD83\",UNIT[\"degree\",0.0174532925199433]],"
        "UNIT[\"US survey foot\",0.304800609601219]]', NULL);"
        "INSERT INTO gpkg_spatial_ref_sys VALUES ('WGS 84', 4326, 'EPSG', 4326, "
        "'GEOGCS[\"WGS 84\",UNIT[\"degree\",0.0174532925199433]]', NULL);");
  }
  SqliteConnection connection;
};

TEST_F(CoordinateUnitsTest, AProjectedSystemInMetresIsToldApartFromFeetAndDegrees) {
  const CoordinateReference utm = GeoPackageLayerGeometry::Reference(connection, 32618);
  EXPECT_TRUE(utm.metres);
  EXPECT_FALSE(utm.geographic);
  EXPECT_FALSE(GeoPackageLayerGeometry::Reference(connection, 2261).metres);
  const CoordinateReference wgs84 = GeoPackageLayerGeometry::Reference(connection, 4326);
  EXPECT_TRUE(wgs84.geographic);
  EXPECT_FALSE(wgs84.metres);
  EXPECT_FALSE(GeoPackageLayerGeometry::Reference(connection, 999).metres);
}

}  // namespace
}  // namespace zrsimprp

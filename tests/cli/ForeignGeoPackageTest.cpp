#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdint>
#include <cstring>
#include <regex>
#include <string>
#include <vector>

#include "CliFixture.h"

namespace {

// A GeoPackage 1.0 file ("GP10") as another desktop tool writes it: its own geometry column name,
// envelopes in the geometry headers, a table whose name holds a dot and fields with blanks.
class ForeignGeoPackage {
 public:
  explicit ForeignGeoPackage(const std::string& path) {
    EXPECT_EQ(sqlite3_open(path.c_str(), &db_), SQLITE_OK);
    Exec("PRAGMA application_id = 1196437808;");  // "GP10"
    Exec(
        "CREATE TABLE gpkg_spatial_ref_sys (srs_name TEXT NOT NULL, srs_id INTEGER PRIMARY KEY,"
        " organization TEXT NOT NULL, organization_coordsys_id INTEGER NOT NULL, definition TEXT NOT NULL,"
        " description TEXT);"
        "INSERT INTO gpkg_spatial_ref_sys VALUES ('Undefined cartesian SRS', -1, 'NONE', -1, 'undefined', "
        "NULL);"
        "INSERT INTO gpkg_spatial_ref_sys VALUES ('Undefined geographic SRS', 0, 'NONE', 0, 'undefined', "
        "NULL);"
        "INSERT INTO gpkg_spatial_ref_sys VALUES ('WGS 84 / UTM zone 30N', 32630, 'EPSG', 32630, "
        "'PROJCS[\"WGS 84 / "
        "UTM zone 30N\"]', NULL);"
        "CREATE TABLE gpkg_contents (table_name TEXT NOT NULL PRIMARY KEY, data_type TEXT NOT NULL,"
        " identifier TEXT UNIQUE, description TEXT DEFAULT '', last_change DATETIME NOT NULL DEFAULT"
        " (strftime('%Y-%m-%dT%H:%M:%fZ','now')), min_x DOUBLE, min_y DOUBLE, max_x DOUBLE, max_y DOUBLE,"
        " srs_id INTEGER);"
        "CREATE TABLE gpkg_geometry_columns (table_name TEXT NOT NULL, column_name TEXT NOT NULL,"
        " geometry_type_name TEXT NOT NULL, srs_id INTEGER NOT NULL, z TINYINT NOT NULL, m TINYINT NOT NULL,"
        " CONSTRAINT pk_geom_cols PRIMARY KEY (table_name, column_name));"
        "CREATE TABLE \"survey.blocks\" (OBJECTID INTEGER PRIMARY KEY AUTOINCREMENT, \"SHAPE\" POLYGON,"
        " \"block_no\" INTEGER, \"Block name\" TEXT);"
        "INSERT INTO gpkg_contents (table_name, data_type, identifier, min_x, min_y, max_x, max_y, srs_id)"
        " VALUES ('survey.blocks', 'features', 'survey.blocks', 0, 0, 3000, 1000, 32630);"
        "INSERT INTO gpkg_geometry_columns VALUES ('survey.blocks', 'SHAPE', 'POLYGON', 32630, 0, 0);");
    AddBlock(11, "West block", 0);
    AddBlock(12, "Middle block", 1000);
    AddBlock(13, "East block", 2000);
  }
  ~ForeignGeoPackage() { sqlite3_close(db_); }

 private:
  void Exec(const std::string& sql) {
    char* error = nullptr;
    EXPECT_EQ(sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &error), SQLITE_OK) << (error ? error : "");
    sqlite3_free(error);
  }

  template <class T>
  static void Put(std::vector<unsigned char>& blob, T value) {
    unsigned char bytes[sizeof(T)];
    std::memcpy(bytes, &value, sizeof(T));
    blob.insert(blob.end(), bytes, bytes + sizeof(T));
  }

  // A square of 1000 m from x0: GeoPackage header with an [minx, maxx, miny, maxy] envelope, then a
  // little-endian WKB polygon.
  static std::vector<unsigned char> Square(double x0) {
    std::vector<unsigned char> blob = {'G', 'P', 0, 0x03};
    Put<int32_t>(blob, 32630);
    for (double bound : {x0, x0 + 1000, 0.0, 1000.0}) Put<double>(blob, bound);
    blob.push_back(1);
    Put<uint32_t>(blob, 3);
    Put<uint32_t>(blob, 1);
    Put<uint32_t>(blob, 5);
    const double points[][2] = {{x0, 0}, {x0 + 1000, 0}, {x0 + 1000, 1000}, {x0, 1000}, {x0, 0}};
    for (const auto& point : points) {
      Put<double>(blob, point[0]);
      Put<double>(blob, point[1]);
    }
    return blob;
  }

  void AddBlock(int number, const std::string& name, double x0) {
    sqlite3_stmt* statement = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(
                  db_, "INSERT INTO \"survey.blocks\" (\"SHAPE\", block_no, \"Block name\") VALUES (?, ?, ?)",
                  -1, &statement, nullptr),
              SQLITE_OK);
    std::vector<unsigned char> blob = Square(x0);
    sqlite3_bind_blob(statement, 1, blob.data(), static_cast<int>(blob.size()), SQLITE_TRANSIENT);
    sqlite3_bind_int(statement, 2, number);
    sqlite3_bind_text(statement, 3, name.c_str(), -1, SQLITE_TRANSIENT);
    EXPECT_EQ(sqlite3_step(statement), SQLITE_DONE);
    sqlite3_finalize(statement);
  }

  sqlite3* db_ = nullptr;
};

using ForeignLayer = CliFixture;

TEST_F(ForeignLayer, ImportedLayerServesAsTheStrataOfACheckedSimulation) {
  const std::string foreign = PathIn("other tool.gpkg");
  { ForeignGeoPackage writer(foreign); }
  const std::string project = SampleProject();

  Result imported =
      Run({"project", "import-layer", project, "--from", foreign, "--table", "survey.blocks", "--id-field",
           "block_no", "--label-field", "Block name", "--name", "Blocks", "--kind", "1"});
  ASSERT_EQ(imported.status, 0) << imported.err;
  EXPECT_EQ(imported.out, "Imported 3 features of 'survey.blocks' as the layer 'Blocks'\n");
  ASSERT_EQ(Run({"project", "add-design", project, "--id", "950", "--name", "Blocks design",
                 "--stratum-layer", "Blocks"})
                .status,
            0);
  ASSERT_EQ(
      Run({"project", "add-survey", project, "--id", "951", "--name", "Blocks survey", "--design", "950"})
          .status,
      0);

  // The sample's definition, moved onto the new survey and layer (both have three strata).
  std::string definition = SampleDefinition();
  definition =
      std::regex_replace(definition, std::regex("Transects=[^;]*;"), "Transects=Survey /ObjectID=951;");
  definition = std::regex_replace(definition, std::regex("StrataLayer=[^;]*;"), "StrataLayer=Blocks;");
  const std::string file = PathIn("blocks.txt");
  WriteFile(file, definition);
  ASSERT_EQ(Run({"project", "add-simulation", project, "--name", "On blocks", "--definition", file}).status,
            0);

  Result check = Run({"check", "--project", project, "--simulation", "On blocks"});
  EXPECT_EQ(check.status, 0) << check.out << check.err;
  Result show = Run({"show", "--project", project, "--simulation", "On blocks"});
  EXPECT_NE(show.out.find("  Region / strata layer: Blocks\n"), std::string::npos) << show.out;
  EXPECT_NE(show.out.find("  Strata: 3 (West block, Middle block, East block)\n"), std::string::npos)
      << show.out;
  Result list = Run({"project", "list", project});
  EXPECT_NE(list.out.find("  Blocks (kind 1, "), std::string::npos) << list.out;
}

TEST_F(ForeignLayer, MissingTableIsAFileErrorAndLeavesTheProjectAlone) {
  const std::string foreign = PathIn("other.gpkg");
  { ForeignGeoPackage writer(foreign); }
  const std::string project = SampleProject();
  const std::string before = Run({"project", "list", project}).out;
  Result result = Run({"project", "import-layer", project, "--from", foreign, "--table", "survey.lines",
                       "--id-field", "block_no", "--name", "Lines", "--kind", "1"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err.rfind("zrsim project import-layer: ", 0), 0u);
  EXPECT_EQ(Run({"project", "list", project}).out, before);
}

}  // namespace

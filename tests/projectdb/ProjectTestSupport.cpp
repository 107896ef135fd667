#include "ProjectTestSupport.h"

#include <sqlite3.h>

#include <atomic>
#include <cstring>
#include <fstream>
#include <random>

namespace zrsimprp::testing {

TempFolder::TempFolder() {
  static std::atomic<int> counter{0};
  std::random_device random;
  path_ = std::filesystem::temp_directory_path() /
          ("zrsim-projectdb-" + std::to_string(random()) + "-" + std::to_string(counter++));
  std::filesystem::create_directories(path_);
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

RuntimeError CaptureError(const std::function<void()>& call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return error;
  }
  ADD_FAILURE() << "the call raised no error";
  return RuntimeError(0, "", "");
}

void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void RunSql(const std::string& path, const std::string& sql) {
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
  char* error = nullptr;
  const int code = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &error);
  const std::string message = error ? error : "";
  sqlite3_free(error);
  sqlite3_close(db);
  ASSERT_EQ(code, SQLITE_OK) << message;
}

int64_t QueryInteger(const std::string& path, const std::string& sql) {
  sqlite3* db = nullptr;
  sqlite3_open(path.c_str(), &db);
  sqlite3_stmt* statement = nullptr;
  int64_t value = -999;
  if (sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr) == SQLITE_OK &&
      sqlite3_step(statement) == SQLITE_ROW) {
    value = sqlite3_column_int64(statement, 0);
  }
  sqlite3_finalize(statement);
  sqlite3_close(db);
  return value;
}

namespace {

void AppendBigEndian(std::string& out, uint64_t value, int bytes) {
  for (int i = bytes - 1; i >= 0; --i) out.push_back(static_cast<char>((value >> (8 * i)) & 0xff));
}

void AppendDouble(std::string& out, double value) {
  uint64_t bits;
  static_assert(sizeof bits == sizeof value);
  std::memcpy(&bits, &value, sizeof bits);
  AppendBigEndian(out, bits, 8);
}

std::string HexOf(const std::string& bytes) {
  static const char* digits = "0123456789ABCDEF";
  std::string hex;
  for (const char c : bytes) {
    hex += digits[(static_cast<unsigned char>(c) >> 4) & 0xf];
    hex += digits[static_cast<unsigned char>(c) & 0xf];
  }
  return hex;
}

}  // namespace

std::string BigEndianSquareBlob(double x, double y, double size, int32_t srs_id) {
  std::string blob = "GP";
  blob.push_back(0);
  blob.push_back(0);  // big endian, no envelope
  AppendBigEndian(blob, static_cast<uint32_t>(srs_id), 4);
  blob.push_back(0);  // WKB big endian
  AppendBigEndian(blob, 6, 4);
  AppendBigEndian(blob, 1, 4);
  blob.push_back(0);
  AppendBigEndian(blob, 3, 4);
  AppendBigEndian(blob, 1, 4);
  AppendBigEndian(blob, 5, 4);
  const double points[][2] = {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}, {x, y}};
  for (const auto& point : points) {
    AppendDouble(blob, point[0]);
    AppendDouble(blob, point[1]);
  }
  return blob;
}

void WriteForeignGeoPackage(const std::string& path, const std::string& table, int feature_count) {
  const std::string quoted = "\"" + table + "\"";
  std::string sql =
      "PRAGMA application_id = 1196437808;"  // "GP10"
      "CREATE TABLE gpkg_spatial_ref_sys (srs_name TEXT NOT NULL, srs_id INTEGER NOT NULL PRIMARY KEY,"
      " organization TEXT NOT NULL, organization_coordsys_id INTEGER NOT NULL, definition TEXT NOT NULL,"
      " description TEXT);"
      "INSERT INTO gpkg_spatial_ref_sys VALUES ('NAD27', 4267, 'EPSG', 4267, 'GEOGCS[\"NAD27\"]', 'nad27');"
      "CREATE TABLE gpkg_contents (table_name TEXT NOT NULL PRIMARY KEY, data_type TEXT NOT NULL,"
      " identifier TEXT UNIQUE, description TEXT DEFAULT '', last_change DATETIME, min_x DOUBLE, min_y "
      "DOUBLE,"
      " max_x DOUBLE, max_y DOUBLE, srs_id INTEGER);"
      "CREATE TABLE gpkg_geometry_columns (table_name TEXT NOT NULL, column_name TEXT NOT NULL,"
      " geometry_type_name TEXT NOT NULL, srs_id INTEGER NOT NULL, z TINYINT NOT NULL, m TINYINT NOT NULL);"
      "CREATE TABLE " +
      quoted +
      " (NAME TEXT, SHAPE MULTIPOLYGON, OBJECTID INTEGER PRIMARY KEY, CODE TEXT);"
      "INSERT INTO gpkg_contents VALUES ('" +
      table + "', 'features', '" + table +
      "', '', '2020-01-01T00:00:00Z', 0, 0, 1000, 1000, 4267);"
      "INSERT INTO gpkg_geometry_columns VALUES ('" +
      table +
      "', 'SHAPE', 'MULTIPOLYGON', 4267, 0, 0);"
      "CREATE TABLE points (fid INTEGER PRIMARY KEY, geom POINT);"
      "INSERT INTO gpkg_contents VALUES ('points', 'features', 'points', '', '2020-01-01T00:00:00Z', 0, 0, "
      "1, 1, 4267);"
      "INSERT INTO gpkg_geometry_columns VALUES ('points', 'geom', 'POINT', 4267, 0, 0);"
      "BEGIN;";
  // Identifiers run backwards from the insertion order, so feature order is the key's order.
  for (int i = 0; i < feature_count; ++i) {
    const int object_id = 1000 - i;
    sql += "INSERT INTO " + quoted + " (NAME, SHAPE, OBJECTID, CODE) VALUES ('County " +
           std::to_string(object_id) + "', X'" + HexOf(BigEndianSquareBlob(i * 10.0, 0, 5, 4267)) + "', " +
           std::to_string(object_id) + ", 'C" + std::to_string(object_id) + "');";
  }
  sql += "COMMIT;";
  RunSql(path, sql);
}

PolygonFeature Square(int32_t id, const std::string& label, double x, double y, double size) {
  return PolygonFeature{id, label, {{{{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}}}}};
}

std::shared_ptr<GeoPackageProject> MakeSmallProject(const std::string& path) {
  auto project = GeoPackageProject::Create(path);
  project->AddLayer("Region", 1, "", "RegionID", "", {Square(1, "", 0, 0, 30)});
  project->AddLayer(
      "Strata", 2, "Region", "StratumID", "Label",
      {Square(7, "North", 0, 20, 10), Square(3, "Middle", 0, 10, 10), Square(5, "South", 0, 0, 10)});
  return project;
}

}  // namespace zrsimprp::testing

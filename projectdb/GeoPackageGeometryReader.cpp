#include "projectdb/GeoPackageGeometryReader.h"

#include <cstdint>
#include <cstring>

namespace zrsimprp {

namespace {

constexpr uint32_t kLineString = 2;
constexpr uint32_t kPolygon = 3;
constexpr uint32_t kMultiPolygon = 6;
constexpr uint32_t kCurvePolygon = 10;
constexpr uint32_t kMultiSurface = 12;
// Nested collections deeper than this are not polygons any host would write.
constexpr int kMaxDepth = 4;

// A cursor over the blob's bytes that refuses to read past the end.
class ByteCursor {
 public:
  ByteCursor(const std::string& bytes, size_t at) : bytes_(bytes), at_(at) {}

  size_t Left() const { return at_ <= bytes_.size() ? bytes_.size() - at_ : 0; }
  bool Skip(size_t count) {
    if (Left() < count) return false;
    at_ += count;
    return true;
  }
  bool Byte(uint8_t& value) {
    if (Left() < 1) return false;
    value = static_cast<uint8_t>(bytes_[at_++]);
    return true;
  }
  bool Uint32(uint32_t& value, bool little_endian) {
    unsigned char raw[4];
    if (!Raw(raw, 4)) return false;
    value =
        little_endian
            ? (uint32_t{raw[0]} | uint32_t{raw[1]} << 8 | uint32_t{raw[2]} << 16 | uint32_t{raw[3]} << 24)
            : (uint32_t{raw[3]} | uint32_t{raw[2]} << 8 | uint32_t{raw[1]} << 16 | uint32_t{raw[0]} << 24);
    return true;
  }
  bool Double(double& value, bool little_endian) {
    unsigned char raw[8];
    if (!Raw(raw, 8)) return false;
    uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) bits |= uint64_t{raw[little_endian ? i : 7 - i]} << (8 * i);
    std::memcpy(&value, &bits, sizeof value);
    return true;
  }

 private:
  bool Raw(unsigned char* out, size_t count) {
    if (Left() < count) return false;
    std::memcpy(out, bytes_.data() + at_, count);
    at_ += count;
    return true;
  }

  const std::string& bytes_;
  size_t at_;
};

// One WKB geometry header: byte order, base type and how many ordinates a point has.
struct WkbHeader {
  bool little_endian = true;
  uint32_t base_type = 0;
  size_t ordinates = 2;
};

bool ReadWkbHeader(ByteCursor& cursor, WkbHeader& header, std::string& problem) {
  uint8_t order = 0;
  uint32_t code = 0;
  if (!cursor.Byte(order) || order > 1) {
    problem = "the WKB byte-order mark is missing or not 0 or 1";
    return false;
  }
  header.little_endian = order == 1;
  if (!cursor.Uint32(code, header.little_endian)) {
    problem = "the WKB geometry type is cut off";
    return false;
  }
  // Extended WKB marks Z, M and an embedded SRID with high bits; ISO WKB adds 1000, 2000 or 3000.
  bool has_z = (code & 0x80000000u) != 0;
  bool has_m = (code & 0x40000000u) != 0;
  const bool has_srid = (code & 0x20000000u) != 0;
  code &= 0x0FFFFFFFu;
  const uint32_t dimension = code / 1000;
  if (dimension > 3) {
    problem = "the WKB geometry type " + std::to_string(code) + " is unknown";
    return false;
  }
  has_z = has_z || dimension == 1 || dimension == 3;
  has_m = has_m || dimension == 2 || dimension == 3;
  header.base_type = code % 1000;
  header.ordinates = 2 + (has_z ? 1 : 0) + (has_m ? 1 : 0);
  if (has_srid && !cursor.Skip(4)) {
    problem = "the WKB SRID is cut off";
    return false;
  }
  return true;
}

bool ReadCount(ByteCursor& cursor, bool little_endian, size_t min_item_bytes, uint32_t& count,
               std::string& problem) {
  if (!cursor.Uint32(count, little_endian)) {
    problem = "a WKB count is cut off";
    return false;
  }
  if (min_item_bytes > 0 && count > cursor.Left() / min_item_bytes) {
    problem = "a WKB count of " + std::to_string(count) + " is more than the blob holds";
    return false;
  }
  return true;
}

bool ReadRing(ByteCursor& cursor, const WkbHeader& header, std::vector<MapPoint>& ring,
              std::string& problem) {
  uint32_t points = 0;
  const size_t point_bytes = 8 * header.ordinates;
  if (!ReadCount(cursor, header.little_endian, point_bytes, points, problem)) return false;
  ring.reserve(points);
  for (uint32_t i = 0; i < points; ++i) {
    MapPoint point;
    cursor.Double(point.x, header.little_endian);
    cursor.Double(point.y, header.little_endian);
    cursor.Skip(8 * (header.ordinates - 2));
    ring.push_back(point);
  }
  return true;
}

bool ReadGeometry(ByteCursor& cursor, std::vector<MapPolygon>& polygons, std::string& problem, int depth);

bool ReadPolygonBody(ByteCursor& cursor, const WkbHeader& header, std::vector<MapPolygon>& polygons,
                     std::string& problem) {
  uint32_t rings = 0;
  if (!ReadCount(cursor, header.little_endian, 4, rings, problem)) return false;
  MapPolygon polygon;
  for (uint32_t i = 0; i < rings; ++i) {
    polygon.rings.emplace_back();
    if (!ReadRing(cursor, header, polygon.rings.back(), problem)) return false;
  }
  if (!polygon.rings.empty()) polygons.push_back(std::move(polygon));
  return true;
}

// A curve polygon's rings are themselves geometries; straight ones (LineString) are read, arcs refused.
bool ReadCurvePolygonBody(ByteCursor& cursor, const WkbHeader& header, std::vector<MapPolygon>& polygons,
                          std::string& problem) {
  uint32_t rings = 0;
  if (!ReadCount(cursor, header.little_endian, 9, rings, problem)) return false;
  MapPolygon polygon;
  for (uint32_t i = 0; i < rings; ++i) {
    WkbHeader ring_header;
    if (!ReadWkbHeader(cursor, ring_header, problem)) return false;
    if (ring_header.base_type != kLineString) {
      problem = "a curved ring (WKB type " + std::to_string(ring_header.base_type) + ") cannot be drawn";
      return false;
    }
    polygon.rings.emplace_back();
    if (!ReadRing(cursor, ring_header, polygon.rings.back(), problem)) return false;
  }
  if (!polygon.rings.empty()) polygons.push_back(std::move(polygon));
  return true;
}

bool ReadGeometry(ByteCursor& cursor, std::vector<MapPolygon>& polygons, std::string& problem, int depth) {
  if (depth > kMaxDepth) {
    problem = "the geometry nests collections too deeply";
    return false;
  }
  WkbHeader header;
  if (!ReadWkbHeader(cursor, header, problem)) return false;
  switch (header.base_type) {
    case kPolygon:
      return ReadPolygonBody(cursor, header, polygons, problem);
    case kCurvePolygon:
      return ReadCurvePolygonBody(cursor, header, polygons, problem);
    case kMultiPolygon:
    case kMultiSurface: {
      uint32_t parts = 0;
      if (!ReadCount(cursor, header.little_endian, 9, parts, problem)) return false;
      for (uint32_t i = 0; i < parts; ++i) {
        if (!ReadGeometry(cursor, polygons, problem, depth + 1)) return false;
      }
      return true;
    }
    default:
      problem = "WKB geometry type " + std::to_string(header.base_type) + " is not a polygon";
      return false;
  }
}

}  // namespace

bool GeoPackageGeometryReader::Read(const std::string& blob, std::vector<MapPolygon>& polygons,
                                    std::string& problem) {
  if (blob.size() < 8 || blob[0] != 'G' || blob[1] != 'P') {
    problem = "it does not start with the GeoPackage mark \"GP\"";
    return false;
  }
  const auto flags = static_cast<uint8_t>(blob[3]);
  if ((flags & 0x20) != 0) {
    problem = "it is an extended (non-standard) GeoPackage geometry";
    return false;
  }
  static const size_t kEnvelopeBytes[] = {0, 32, 48, 48, 64};
  const unsigned envelope_kind = (flags >> 1) & 0x07u;
  if (envelope_kind > 4) {
    problem = "its envelope kind " + std::to_string(envelope_kind) + " is not one GeoPackage defines";
    return false;
  }
  const size_t wkb_at = 8 + kEnvelopeBytes[envelope_kind];
  if (blob.size() < wkb_at) {
    problem = "its header is cut off";
    return false;
  }
  const bool empty = (flags & 0x10) != 0;
  if (empty && blob.size() == wkb_at) return true;
  ByteCursor cursor(blob, wkb_at);
  std::vector<MapPolygon> read;
  if (!ReadGeometry(cursor, read, problem, 0)) return false;
  for (MapPolygon& polygon : read) polygons.push_back(std::move(polygon));
  return true;
}

}  // namespace zrsimprp

#include "projectdb/GeoPackageGeometry.h"

#include <algorithm>
#include <cstring>

namespace zrsimprp {

namespace {

constexpr uint32_t kWkbPolygon = 3;
constexpr uint32_t kWkbMultiPolygon = 6;

// Appends the little-endian bytes of a value; GeoPackage readers honour the byte-order flag, and
// writing one order everywhere keeps the encoder simple.
template <class T>
void AppendLittleEndian(std::string& out, T value) {
  unsigned char bytes[sizeof(T)];
  std::memcpy(bytes, &value, sizeof(T));
  const uint16_t probe = 1;
  const bool host_little = *reinterpret_cast<const unsigned char*>(&probe) == 1;
  if (!host_little) std::reverse(bytes, bytes + sizeof(T));
  out.append(reinterpret_cast<const char*>(bytes), sizeof(T));
}

void AppendRing(std::string& out, const PolygonRing& ring, GeoPackageGeometry::Envelope& envelope) {
  const bool closed = !ring.empty() && ring.front().x == ring.back().x && ring.front().y == ring.back().y;
  const size_t count = ring.size() + (closed || ring.empty() ? 0 : 1);
  AppendLittleEndian<uint32_t>(out, static_cast<uint32_t>(count));
  for (const PlanarPoint& point : ring) {
    AppendLittleEndian<double>(out, point.x);
    AppendLittleEndian<double>(out, point.y);
    envelope.Include(point.x, point.y);
  }
  if (count > ring.size()) {
    AppendLittleEndian<double>(out, ring.front().x);
    AppendLittleEndian<double>(out, ring.front().y);
  }
}

void AppendPolygon(std::string& out, const PolygonRings& rings, GeoPackageGeometry::Envelope& envelope) {
  out.push_back(1);  // little endian
  AppendLittleEndian<uint32_t>(out, kWkbPolygon);
  AppendLittleEndian<uint32_t>(out, static_cast<uint32_t>(rings.size()));
  for (const PolygonRing& ring : rings) AppendRing(out, ring, envelope);
}

uint32_t ReadUint32(const std::string& bytes, size_t at, bool little_endian) {
  unsigned char raw[4];
  std::memcpy(raw, bytes.data() + at, 4);
  if (!little_endian) std::reverse(raw, raw + 4);
  return static_cast<uint32_t>(raw[0]) | static_cast<uint32_t>(raw[1]) << 8 |
         static_cast<uint32_t>(raw[2]) << 16 | static_cast<uint32_t>(raw[3]) << 24;
}

}  // namespace

std::string GeoPackageGeometry::EncodePolygons(const PolygonFeature& feature, int32_t srs_id, bool as_multi,
                                               Envelope& envelope) {
  envelope = Envelope();
  std::string wkb;
  const bool multi = as_multi || feature.polygons.size() != 1;
  if (multi) {
    wkb.push_back(1);
    AppendLittleEndian<uint32_t>(wkb, kWkbMultiPolygon);
    AppendLittleEndian<uint32_t>(wkb, static_cast<uint32_t>(feature.polygons.size()));
    for (const PolygonRings& polygon : feature.polygons) AppendPolygon(wkb, polygon, envelope);
  } else {
    AppendPolygon(wkb, feature.polygons.front(), envelope);
  }

  std::string blob = "GP";
  blob.push_back(0);  // version 1.0 of the blob format
  // Flags: bit 0 little endian; bits 1-3 envelope kind (1 = x and y); bit 4 empty geometry.
  const unsigned char flags = envelope.empty ? static_cast<unsigned char>(0x01 | 0x10) : 0x03;
  blob.push_back(static_cast<char>(flags));
  AppendLittleEndian<int32_t>(blob, srs_id);
  if (!envelope.empty) {
    AppendLittleEndian<double>(blob, envelope.min_x);
    AppendLittleEndian<double>(blob, envelope.max_x);
    AppendLittleEndian<double>(blob, envelope.min_y);
    AppendLittleEndian<double>(blob, envelope.max_y);
  }
  return blob + wkb;
}

int32_t GeoPackageGeometry::BaseType(const std::string& blob) {
  if (blob.size() < 8 || blob[0] != 'G' || blob[1] != 'P') return -1;
  const unsigned char flags = static_cast<unsigned char>(blob[3]);
  static const size_t kEnvelopeBytes[] = {0, 32, 48, 48, 64};
  const unsigned envelope_kind = (flags >> 1) & 0x07;
  if (envelope_kind > 4) return -1;
  const size_t wkb_at = 8 + kEnvelopeBytes[envelope_kind];
  if (blob.size() < wkb_at + 5) return -1;
  const unsigned char order = static_cast<unsigned char>(blob[wkb_at]);
  if (order > 1) return -1;
  // ISO codes add 1000/2000/3000 for Z/M/ZM; extended WKB sets high flag bits instead.
  const uint32_t type = ReadUint32(blob, wkb_at + 1, order == 1) & 0x0FFFFFFFu;
  return static_cast<int32_t>(type % 1000);
}

}  // namespace zrsimprp

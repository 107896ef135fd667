#include "zrsim/PngWriter.h"

#include <array>
#include <fstream>

namespace zrsim {

namespace {

uint32_t Crc(const uint8_t* data, size_t size, uint32_t crc = 0) {
  static const std::array<uint32_t, 256> table = [] {
    std::array<uint32_t, 256> t{};
    for (uint32_t n = 0; n < 256; ++n) {
      uint32_t c = n;
      for (int k = 0; k < 8; ++k) c = (c & 1) ? 0xEDB88320U ^ (c >> 1) : c >> 1;
      t[n] = c;
    }
    return t;
  }();
  crc = ~crc;
  for (size_t i = 0; i < size; ++i) crc = table[(crc ^ data[i]) & 0xFF] ^ (crc >> 8);
  return ~crc;
}

void PutBigEndian(std::vector<uint8_t>& out, uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<uint8_t>(value >> shift));
}

void Chunk(std::vector<uint8_t>& out, const char* type, const std::vector<uint8_t>& data) {
  PutBigEndian(out, static_cast<uint32_t>(data.size()));
  std::vector<uint8_t> body(type, type + 4);
  body.insert(body.end(), data.begin(), data.end());
  out.insert(out.end(), body.begin(), body.end());
  PutBigEndian(out, Crc(body.data(), body.size()));
}

// A zlib stream of stored blocks.
std::vector<uint8_t> Stored(const std::vector<uint8_t>& raw) {
  std::vector<uint8_t> out{0x78, 0x01};
  constexpr size_t kBlock = 65535;
  size_t at = 0;
  do {
    const size_t size = std::min(kBlock, raw.size() - at);
    const bool last = at + size == raw.size();
    out.push_back(last ? 1 : 0);
    out.push_back(static_cast<uint8_t>(size & 0xFF));
    out.push_back(static_cast<uint8_t>(size >> 8));
    out.push_back(static_cast<uint8_t>(~size & 0xFF));
    out.push_back(static_cast<uint8_t>((~size >> 8) & 0xFF));
    out.insert(out.end(), raw.begin() + static_cast<std::ptrdiff_t>(at),
               raw.begin() + static_cast<std::ptrdiff_t>(at + size));
    at += size;
  } while (at < raw.size());
  uint32_t a = 1;
  uint32_t b = 0;
  for (uint8_t byte : raw) {
    a = (a + byte) % 65521;
    b = (b + a) % 65521;
  }
  PutBigEndian(out, (b << 16) | a);
  return out;
}

}  // namespace

std::string PngWriter::Write(const std::string& path, int width, int height,
                             const std::vector<uint8_t>& rgb) {
  std::vector<uint8_t> raw;
  const size_t row_bytes = static_cast<size_t>(width) * 3;
  raw.reserve((row_bytes + 1) * static_cast<size_t>(height));
  for (int y = 0; y < height; ++y) {
    raw.push_back(0);  // no filter
    const auto row = rgb.begin() + static_cast<std::ptrdiff_t>(row_bytes * static_cast<size_t>(y));
    raw.insert(raw.end(), row, row + static_cast<std::ptrdiff_t>(row_bytes));
  }
  std::vector<uint8_t> header;
  PutBigEndian(header, static_cast<uint32_t>(width));
  PutBigEndian(header, static_cast<uint32_t>(height));
  header.insert(header.end(), {8, 2, 0, 0, 0});  // 8 bits, RGB, deflate, no filter, no interlace
  std::vector<uint8_t> file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  Chunk(file, "IHDR", header);
  Chunk(file, "IDAT", Stored(raw));
  Chunk(file, "IEND", {});
  std::ofstream stream(path, std::ios::binary | std::ios::trunc);
  if (stream)
    stream.write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
  if (!stream) return "the picture could not be written to '" + path + "'.";
  return "";
}

}  // namespace zrsim

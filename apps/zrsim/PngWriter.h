#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zrsim {

// Writes an 8-bit RGB image as a PNG file without a graphics library: the image data go in stored
// (uncompressed) deflate blocks, which every PNG reader accepts. The command line stays free of Qt.
class PngWriter {
 public:
  // `rgb` holds width × height × 3 bytes, row by row from the top. "" when written, else a sentence.
  static std::string Write(const std::string& path, int width, int height, const std::vector<uint8_t>& rgb);
};

}  // namespace zrsim

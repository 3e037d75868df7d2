// Rows of pixels as one zlib stream.
#pragma once

#include <cstddef>
#include <cstdlib>

#include "raster/encoders.h"

namespace quilla {

struct PackedRows {
  unsigned char* bytes = nullptr; // owned
  std::size_t size = 0;
  PackedRows() = default;
  ~PackedRows() { std::free(bytes); }
  PackedRows(const PackedRows&) = delete;
  PackedRows& operator=(const PackedRows&) = delete;
};

struct RowReader {
  void (*read)(void* picture, int y, unsigned char* to);
  void* picture;
  int rows;
  std::size_t rowBytes;
  int lead; // bytes 0 in front of each row
};

EncodeResult packRows(const RowReader& reader, PackedRows& packed);

} // namespace quilla

// Memory of a row, or of many.
#pragma once

#include <cstddef>
#include <cstdlib>

namespace quilla {

struct RowBuffer {
  std::size_t size;
  unsigned char* bytes; // zeros at first; null without memory

  RowBuffer(int items, std::size_t itemBytes)
      : size(static_cast<std::size_t>(items) * itemBytes), bytes(static_cast<unsigned char*>(std::calloc(size, 1))) {}
  ~RowBuffer() { std::free(bytes); }
  RowBuffer(const RowBuffer&) = delete;
  RowBuffer& operator=(const RowBuffer&) = delete;
};

} // namespace quilla

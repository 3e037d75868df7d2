// Where encoders put their bytes: a file, or memory of the caller. Bytes come in blocks, a row or more at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quilla {

struct ByteTarget {
  // Takes bytes; false if they could not be taken. After that nothing more is handed on.
  bool (*put)(void* to, const unsigned char* bytes, std::size_t count) = nullptr;
  void* to = nullptr;
  bool failed = false;
};

inline void putBlock(ByteTarget& out, const void* bytes, std::size_t count) {
  if (!out.failed && count > 0 && !out.put(out.to, static_cast<const unsigned char*>(bytes), count)) out.failed = true;
}
inline void putBlockText(ByteTarget& out, const char* text) { putBlock(out, text, std::strlen(text)); }

// Fields of a header on their way out.
struct FieldWriter {
  unsigned char* at;

  void byte(int value) { *at++ = static_cast<unsigned char>(value); }
  void bytes(const char* text, int count) {
    std::memcpy(at, text, static_cast<std::size_t>(count));
    at += count;
  }
  void low16(std::uint32_t value) {
    byte(static_cast<int>(value & 255));
    byte(static_cast<int>(value >> 8 & 255));
  }
  void low32(std::uint32_t value) {
    low16(value);
    low16(value >> 16);
  }
  void high16(std::uint32_t value) {
    byte(static_cast<int>(value >> 8 & 255));
    byte(static_cast<int>(value & 255));
  }
  void high32(std::uint32_t value) {
    high16(value >> 16);
    high16(value);
  }
};

} // namespace quilla

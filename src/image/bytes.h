// Words in the bytes of a file.
#pragma once

#include <cstddef>
#include <span>

namespace quilla {

inline unsigned littleWord(const unsigned char* p) { return p[0] | static_cast<unsigned>(p[1]) << 8U; }
inline unsigned bigWord(const unsigned char* p) { return static_cast<unsigned>(p[0]) << 8U | p[1]; }
inline unsigned littleLong(const unsigned char* p) { return littleWord(p) | littleWord(p + 2) << 16U; }
inline unsigned bigLong(const unsigned char* p) { return bigWord(p) << 16U | bigWord(p + 2); }

// A whole file in memory. Null bytes after a failure.
struct LoadedFile {
  unsigned char* bytes = nullptr;
  std::size_t size = 0;
  bool opened = false;
};
LoadedFile loadFile(const char* name);
void freeFile(LoadedFile& file);

} // namespace quilla

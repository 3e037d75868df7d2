#include "image/tiff_packing.h"

#include <algorithm>
#include <cstring>

namespace quilla {
namespace {

constexpr int kClear = 256, kEnd = 257, kFirstCode = 258, kFirstSize = 9, kLongestSize = 12, kTableSize = 4096;

// High bits first.
struct CodeInput {
  const unsigned char* next;
  const unsigned char* end;
  unsigned long long bits = 0; // the held ones are the lowest
  int held = 0;
};

inline int nextCode(CodeInput& in, int size) {
  while (in.held < size) {
    if (in.next == in.end) return -1;
    in.bits = in.bits << 8U | *in.next++;
    in.held += 8;
  }
  in.held -= size;
  return static_cast<int>(in.bits >> in.held & ((1U << size) - 1U));
}

// A string of the table stands in what was unpacked before.
struct Place {
  std::size_t start;
  std::size_t length;
};

inline void copyString(unsigned char* out, std::size_t from, std::size_t to, std::size_t length) {
  constexpr std::size_t kStep = 8;
  std::size_t i = 0;
  if (to - from >= kStep) {
    for (; i + kStep <= length; i += kStep) std::memcpy(out + to + i, out + from + i, kStep);
  }
  for (; i < length; ++i) out[to + i] = out[from + i];
}

} // namespace

long long tiffUnpackedLimit(unsigned compression, std::size_t packed) {
  constexpr long long kRunRatio = 64; // two bytes of PackBits for a run of 128
  const auto bytes = static_cast<long long>(packed);
  if (compression == kTiffPlain) return bytes;
  if (compression == kTiffPackBits) return bytes * kRunRatio;
  // A string of the table is one byte longer than one before it.
  const long long codes = bytes * 8 / kFirstSize + 1;
  return codes * std::min<long long>(codes, kTableSize);
}

ImageStatus unpackTiffLzw(FileBytes packed, unsigned char* out, std::size_t size, std::size_t& made) {
  CodeInput in = {packed.data(), packed.data() + packed.size()};
  Place strings[kTableSize];
  Place last = {0, 0};
  int bits = kFirstSize, count = kFirstCode;
  made = 0;
  for (;;) {
    const int code = nextCode(in, bits);
    if (code == kEnd || (code < 0 && made == size)) return kImageFine;
    if (code < 0) return kImageOverrun;
    if (code == kClear) {
      bits = kFirstSize;
      count = kFirstCode;
      last.length = 0;
      continue;
    }
    const bool literal = code < kClear, newest = code == count && last.length > 0;
    if (!literal && !newest && code >= count) return kImageOverrun;
    const Place string = literal ? Place{made, 1} : newest ? Place{last.start, last.length + 1} : strings[code];
    if (string.length > size - made) return kImageOverrun;
    if (literal) {
      out[made] = static_cast<unsigned char>(code);
    } else {
      copyString(out, string.start, made, string.length);
    }
    if (last.length > 0 && count < kTableSize) {
      strings[count++] = {last.start, last.length + 1};
      // One code earlier than the size would need it.
      if (count == (1 << bits) - 1 && bits < kLongestSize) ++bits;
    }
    last = {made, string.length};
    made += string.length;
  }
}

// A control byte: up to 127 so many bytes and one more follow as they are; above 128 the next byte stands 257 less so
// many times; 128 stands for nothing.
ImageStatus unpackTiffBits(FileBytes packed, unsigned char* out, std::size_t size, std::size_t& made) {
  constexpr unsigned kNothing = 128, kRunBase = 257;
  made = 0;
  for (std::size_t i = 0; i < packed.size();) {
    const unsigned control = packed[i++];
    if (control == kNothing) continue;
    const std::size_t count = control < kNothing ? control + 1 : kRunBase - control;
    const std::size_t used = control < kNothing ? count : 1;
    if (used > packed.size() - i || count > size - made) return kImageOverrun;
    if (control < kNothing) {
      std::memcpy(out + made, packed.data() + i, count);
    } else {
      std::memset(out + made, packed[i], count);
    }
    i += used;
    made += count;
  }
  return kImageFine;
}

} // namespace quilla

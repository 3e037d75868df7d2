// GIF: the first image of the file. A string of the code table is a stretch of what was decoded before, so the table
// holds places and lengths, and a string is one copy.
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "image/bytes.h"
#include "image/image.h"

namespace quilla {
namespace {

constexpr std::size_t kHeadSize = 13, kDescriptorSize = 9;
constexpr int kImageSeparator = 0x2C, kExtension = 0x21, kTrailer = 0x3B;
constexpr int kLeastCodeSize = 2, kLargestCodeSize = 11, kLongestCode = 12, kTableSize = 4096;

struct GifReader {
  FileBytes file;
  std::size_t place = 0;
  unsigned char palette[256][kColorBytes] = {};
  int width = 0, height = 0; // of the image
  bool interlaced = false;
};

// Next byte, or -1 at the end of the file.
int nextByte(GifReader& r) { return r.place < r.file.size() ? r.file[r.place++] : -1; }

bool readPalette(GifReader& r, int flags) {
  const std::size_t size = kColorBytes * (std::size_t{2} << (flags & 7));
  if (r.file.size() - r.place < size) return false;
  std::memcpy(r.palette, r.file.data() + r.place, size);
  r.place += size;
  return true;
}

// Behind the block of length 0 that ends a row of blocks. False if the file ends before.
bool skipBlocks(GifReader& r) {
  for (;;) {
    const int length = nextByte(r);
    if (length < 0) return false;
    if (length == 0) return true;
    r.place = std::min(r.file.size(), r.place + static_cast<std::size_t>(length));
  }
}

// To the descriptor of the first image. What extensions hold is not looked at.
bool findImage(GifReader& r) {
  for (;;) {
    switch (nextByte(r)) {
    case kImageSeparator: return true;
    case kExtension:
      nextByte(r); // its kind
      if (!skipBlocks(r)) return false;
      break;
    case kTrailer:
    case -1: return false;
    default: break;
    }
  }
}

bool readDescriptor(GifReader& r) {
  constexpr int kLocalPalette = 0x80, kInterlaced = 0x40;
  if (r.file.size() - r.place < kDescriptorSize) return false;
  const unsigned char* p = r.file.data() + r.place;
  r.place += kDescriptorSize;
  r.width = static_cast<int>(littleWord(p + 4));
  r.height = static_cast<int>(littleWord(p + 6));
  const int flags = p[8];
  r.interlaced = (flags & kInterlaced) != 0;
  if ((flags & kLocalPalette) != 0 && !readPalette(r, flags)) return false;
  return r.width > 0 && r.height > 0;
}

// Bits from the data blocks, low bits first.
struct CodeInput {
  const unsigned char* next;
  const unsigned char* blockEnd;
  const unsigned char* fileEnd;
  unsigned long long bits = 0;
  int held = 0;
  bool ended = false; // the block of length 0, or the end of the file
};

void refill(CodeInput& in) {
  while (in.held <= 48) {
    if (in.next == in.blockEnd) {
      if (in.ended || in.next == in.fileEnd || *in.next == 0) {
        if (!in.ended && in.next != in.fileEnd) in.blockEnd = ++in.next;
        in.ended = true;
        return;
      }
      const std::size_t length = *in.next++;
      in.blockEnd = in.next + std::min(length, static_cast<std::size_t>(in.fileEnd - in.next));
      continue;
    }
    in.bits |= static_cast<unsigned long long>(*in.next++) << in.held;
    in.held += 8;
  }
}

// Next code, or -1 when the data end.
inline int nextCode(CodeInput& in, int size) {
  if (in.held < size) {
    refill(in);
    if (in.held < size) return -1;
  }
  const int code = static_cast<int>(in.bits & ((1U << size) - 1U));
  in.bits >>= size;
  in.held -= size;
  return code;
}

struct Place {
  unsigned start, length;
};

struct CodeTable {
  Place strings[kTableSize];
};

// Copies a string forwards; it may overlap what it makes.
inline void copyString(unsigned char* out, unsigned from, unsigned to, unsigned length) {
  constexpr unsigned kStep = 8;
  if (to - from >= kStep && length >= kStep) {
    unsigned i = 0;
    for (; i + kStep <= length; i += kStep) std::memcpy(out + to + i, out + from + i, kStep);
    for (; i < length; ++i) out[to + i] = out[from + i];
    return;
  }
  for (unsigned i = 0; i < length; ++i) out[to + i] = out[from + i];
}

// Indices of the image; returns how many there are. overrun: a code that the table does not hold.
unsigned decodeCodes(CodeInput& in, int codeSize, unsigned char* out, unsigned limit, bool& overrun) {
  const int clear = 1 << codeSize, end = clear + 1;
  CodeTable table;
  int size = codeSize + 1, count = end + 1;
  unsigned made = 0;
  Place last = {0, 0}; // no string before
  while (made < limit) {
    const int code = nextCode(in, size);
    if (code < 0 || code == end) break;
    if (code == clear) {
      size = codeSize + 1;
      count = end + 1;
      last.length = 0;
      continue;
    }
    const bool literal = code < clear;
    // The string before and its first pixel again: the code that this very step defines.
    const bool newest = code == count && last.length > 0;
    if (!literal && !newest && code >= count) {
      overrun = true;
      break;
    }
    const unsigned start = made;
    const unsigned wanted = literal ? 1 : newest ? last.length + 1 : table.strings[code].length;
    const unsigned length = std::min(wanted, limit - made);
    if (literal) {
      out[made] = static_cast<unsigned char>(code);
    } else {
      copyString(out, newest ? last.start : table.strings[code].start, made, length);
    }
    made += length;
    if (last.length > 0 && count < kTableSize) {
      table.strings[count++] = {last.start, last.length + 1};
      if (count == 1 << size && size < kLongestCode) ++size;
    }
    last = {start, wanted};
  }
  return made;
}

// Row of the image that stands at a place of the file: every eighth, then those between, ever closer.
int interlacedRow(int i, int height) {
  constexpr int kFirst[] = {0, 4, 2, 1}, kStep[] = {8, 8, 4, 2};
  for (int pass = 0; pass < 4; ++pass) {
    const int rows = (height - kFirst[pass] + kStep[pass] - 1) / kStep[pass];
    const int inPass = rows > 0 ? rows : 0;
    if (i < inPass) return kFirst[pass] + i * kStep[pass];
    i -= inPass;
  }
  return height;
}

void colorRows(const GifReader& r, const unsigned char* indices, unsigned made, Image& image) {
  const int rows = static_cast<int>(made / static_cast<unsigned>(r.width)), shown = std::min(r.width, image.width);
  for (int i = 0; i < rows; ++i, indices += r.width) {
    const int y = r.interlaced ? interlacedRow(i, r.height) : i;
    if (y >= image.height) continue;
    unsigned char* rgb = imageRow(image, y);
    for (int x = 0; x < shown; ++x, rgb += kColorBytes) {
      const unsigned char* color = r.palette[indices[x]];
      rgb[0] = color[0];
      rgb[1] = color[1];
      rgb[2] = color[2];
    }
    image.rowDone[y] = 1;
  }
}

// What may follow an image: its end mark, an extension, another image, the trailer, or nothing.
bool endsWell(const GifReader& r, CodeInput& in) {
  GifReader rest = r;
  rest.place = static_cast<std::size_t>(in.blockEnd - r.file.data());
  if (!in.ended && !skipBlocks(rest)) return false;
  const int next = nextByte(rest);
  return next == -1 || next == 0 || next == kExtension || next == kImageSeparator || next == kTrailer;
}

// A file of so many bytes holds at most so many codes, and a string grows by one pixel a code.
long long possiblePixels(std::size_t bytes) {
  const auto codes = static_cast<long long>(bytes) * 8 / (kLeastCodeSize + 1) + 1;
  return codes * std::min<long long>(codes, kTableSize);
}

ImageStatus readPixels(GifReader& r, GifExtent extent, int screenWidth, int screenHeight, Image& image) {
  const int codeSize = nextByte(r);
  if (codeSize < kLeastCodeSize || codeSize > kLargestCodeSize) return kImageBadFormat;
  const long long possible = possiblePixels(r.file.size()), count = static_cast<long long>(r.width) * r.height;
  if (count > kFreePixels && count > possible) return kImageBadFormat;
  if (count > kPixelLimit) return kImageNoMemory;
  const bool screen = extent == GifExtent::kScreen;
  const ImageStatus started =
      startImage(image, screen ? screenWidth : r.width, screen ? screenHeight : r.height, false, possible);
  if (started != kImageFine) return started;
  auto* indices = static_cast<unsigned char*>(std::malloc(static_cast<std::size_t>(count)));
  if (!indices) {
    freeImage(image);
    return kImageNoMemory;
  }
  const unsigned char* data = r.file.data();
  CodeInput in = {data + r.place, data + r.place, data + r.file.size()};
  bool overrun = false;
  const unsigned made = decodeCodes(in, codeSize, indices, static_cast<unsigned>(count), overrun);
  colorRows(r, indices, made, image);
  std::free(indices);
  if (overrun) return kImageOverrun;
  return static_cast<long long>(made) == count && endsWell(r, in) ? kImageFine : kImageBadFormat;
}

} // namespace

ImageStatus decodeGif(FileBytes file, GifExtent extent, Image& image) {
  constexpr int kGlobalPalette = 0x80;
  if (file.size() < kHeadSize) return kImageBadFormat;
  GifReader r;
  r.file = file;
  r.place = kHeadSize;
  const int screenWidth = static_cast<int>(littleWord(file.data() + 6));
  const int screenHeight = static_cast<int>(littleWord(file.data() + 8));
  const int flags = file[10];
  if ((flags & kGlobalPalette) != 0 && !readPalette(r, flags)) return kImageBadFormat;
  if (!findImage(r) || !readDescriptor(r)) return kImageBadFormat;
  return readPixels(r, extent, screenWidth, screenHeight, image);
}

} // namespace quilla

// BMP: rows from the bottom, plain or as runs. Without a palette 24 or 32 bits in the order blue, green, red.
#include <algorithm>
#include <cstring>

#include "image/bytes.h"
#include "image/image.h"

namespace quilla {
namespace {

constexpr std::size_t kFileHead = 14, kInfoHead = 40, kPaletteEntry = 4;
enum Compression : unsigned { kPlain = 0, kRuns8 = 1, kRuns4 = 2 };

struct BmpReader {
  FileBytes data; // of the pixels
  int width = 0, height = 0;
  bool fromTop = false; // a negative height
  int bits = 0;
  unsigned compression = kPlain;
  unsigned char palette[256][kColorBytes] = {};
};

bool readPalette(FileBytes file, std::size_t place, unsigned used, BmpReader& r) {
  if (r.bits > 8) return true;
  const std::size_t count = used == 0 ? std::size_t{1} << r.bits : used;
  if (count > 256 || place > file.size() || (file.size() - place) / kPaletteEntry < count) return false;
  const unsigned char* entry = file.data() + place;
  for (std::size_t i = 0; i < count; ++i, entry += kPaletteEntry) {
    for (int c = 0; c < kColorBytes; ++c) r.palette[i][c] = entry[2 - c];
  }
  return true;
}

bool bitsFit(int bits, unsigned compression) {
  switch (compression) {
  case kPlain: return bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32;
  case kRuns8: return bits == 8;
  case kRuns4: return bits == 4;
  default: return false;
  }
}

bool readHead(FileBytes file, BmpReader& r) {
  if (file.size() < kFileHead + kInfoHead) return false;
  const unsigned char* p = file.data();
  const std::size_t offset = littleLong(p + 10), headSize = littleLong(p + 14);
  const int height = static_cast<int>(littleLong(p + 22));
  if (headSize < kInfoHead || headSize > file.size() || offset < kFileHead + headSize || offset > file.size())
    return false;
  r.width = static_cast<int>(littleLong(p + 18));
  if (height == -0x7FFFFFFF - 1) return false;
  r.fromTop = height < 0;
  r.height = r.fromTop ? -height : height;
  r.bits = static_cast<int>(littleWord(p + 28));
  r.compression = littleLong(p + 30);
  r.data = file.subspan(offset);
  return bitsFit(r.bits, r.compression) && readPalette(file, kFileHead + headSize, littleLong(p + 46), r);
}

unsigned char* targetRow(const BmpReader& r, const Image& image, int row) {
  return imageRow(image, r.fromTop ? row : r.height - 1 - row);
}
void finishRow(const BmpReader& r, Image& image, int row) { image.rowDone[r.fromTop ? row : r.height - 1 - row] = 1; }

inline void putPixel(unsigned char* rgb, const unsigned char* color) {
  rgb[0] = color[0];
  rgb[1] = color[1];
  rgb[2] = color[2];
}

// Blue, green, red, and a fourth byte that is left out.
template <int bytes> void swapRow(const unsigned char* row, int width, unsigned char* rgb) {
  for (int i = 0; i < width; ++i, row += bytes, rgb += kColorBytes) {
    rgb[0] = row[2];
    rgb[1] = row[1];
    rgb[2] = row[0];
  }
}

void plainRow(const BmpReader& r, const unsigned char* row, unsigned char* rgb) {
  switch (r.bits) {
  case 24: return swapRow<3>(row, r.width, rgb);
  case 32: return swapRow<4>(row, r.width, rgb);
  case 8:
    for (int i = 0; i < r.width; ++i, rgb += kColorBytes) putPixel(rgb, r.palette[row[i]]);
    return;
  case 4:
    for (int i = 0; i < r.width; ++i, rgb += kColorBytes)
      putPixel(rgb, r.palette[(i & 1) == 0 ? row[i / 2] >> 4 : row[i / 2] & 15]);
    return;
  default:
    for (int i = 0; i < r.width; ++i, rgb += kColorBytes) putPixel(rgb, r.palette[row[i / 8] >> (7 - i % 8) & 1]);
  }
}

ImageStatus readPlain(const BmpReader& r, Image& image) {
  const std::size_t rowSize = (static_cast<std::size_t>(r.width) * static_cast<std::size_t>(r.bits) + 31) / 32 * 4;
  const auto rows =
      static_cast<int>(std::min<std::size_t>(r.data.size() / rowSize, static_cast<std::size_t>(r.height)));
  const unsigned char* row = r.data.data();
  for (int i = 0; i < rows; ++i, row += rowSize) {
    plainRow(r, row, targetRow(r, image, i));
    finishRow(r, image, i);
  }
  return rows == r.height ? kImageFine : kImageBadFormat;
}

// Runs: a count and an index, or for 4 bits two indices that take turns; behind a count of 0 a mark.
struct RunReader {
  const unsigned char* next;
  const unsigned char* end;
  int rowEnd; // runs may fill the padding of a row, as some writers do
  int x = 0, row = 0;
};
enum Mark : int { kEndOfRow = 0, kEndOfImage = 1, kJump = 2 };

bool putRun(const BmpReader& r, RunReader& runs, int count, unsigned value, Image& image) {
  if (runs.row >= r.height || count > runs.rowEnd - runs.x) return false;
  unsigned char* rgb = targetRow(r, image, runs.row) + kColorBytes * std::min(runs.x, r.width);
  const int shown = std::min(count, r.width - runs.x);
  runs.x += count;
  const bool four = r.compression == kRuns4;
  const unsigned char* colors[2] = {r.palette[four ? value >> 4U : value], r.palette[four ? value & 15U : value]};
  for (int i = 0; i < shown; ++i, rgb += kColorBytes) putPixel(rgb, colors[i & 1]);
  return true;
}

// Pixels one by one, padded to whole words.
bool putPixels(const BmpReader& r, RunReader& runs, int count, Image& image) {
  const bool four = r.compression == kRuns4;
  const int bytes = four ? (count + 1) / 2 : count, padded = bytes + (bytes & 1);
  if (runs.row >= r.height || count > runs.rowEnd - runs.x || runs.end - runs.next < bytes) return false;
  unsigned char* rgb = targetRow(r, image, runs.row) + kColorBytes * std::min(runs.x, r.width);
  const unsigned char* p = runs.next;
  const int shown = std::min(count, r.width - runs.x);
  for (int i = 0; i < shown; ++i, rgb += kColorBytes) {
    const int index = four ? ((i & 1) == 0 ? p[i / 2] >> 4 : p[i / 2] & 15) : p[i];
    putPixel(rgb, r.palette[index]);
  }
  runs.x += count;
  runs.next += std::min<std::ptrdiff_t>(padded, runs.end - runs.next);
  return true;
}

// Rows behind the present one, up to another, are done: what no run covers has the colour of index 0.
void moveToRow(const BmpReader& r, RunReader& runs, int row, Image& image) {
  for (; runs.row < row && runs.row < r.height; ++runs.row) finishRow(r, image, runs.row);
}

bool jump(const BmpReader& r, RunReader& runs, Image& image) {
  if (runs.end - runs.next < 2) return false;
  const int right = runs.next[0], up = runs.next[1];
  runs.next += 2;
  if (right > runs.rowEnd - runs.x || up > r.height - runs.row) return false;
  runs.x += right;
  moveToRow(r, runs, runs.row + up, image);
  return true;
}

void fillWithFirst(const BmpReader& r, Image& image) {
  const std::size_t count = static_cast<std::size_t>(r.width) * static_cast<std::size_t>(r.height);
  const unsigned char* first = r.palette[0];
  if (first[0] == 0 && first[1] == 0 && first[2] == 0) return;
  for (std::size_t i = 0; i < count; ++i) putPixel(image.pixels + kColorBytes * i, first);
}

ImageStatus readRuns(const BmpReader& r, Image& image) {
  fillWithFirst(r, image);
  const int perWord = 32 / r.bits;
  const int rowEnd = r.width + (perWord - r.width % perWord) % perWord;
  RunReader runs = {r.data.data(), r.data.data() + r.data.size(), rowEnd};
  while (runs.end - runs.next >= 2) {
    const int count = *runs.next++;
    const int value = *runs.next++;
    bool fine = true;
    if (count > 0) {
      fine = putRun(r, runs, count, static_cast<unsigned>(value), image);
    } else if (value == kEndOfRow) {
      moveToRow(r, runs, runs.row + 1, image);
      runs.x = 0;
    } else if (value == kEndOfImage) {
      moveToRow(r, runs, r.height, image);
      return kImageFine;
    } else {
      fine = value == kJump ? jump(r, runs, image) : putPixels(r, runs, value, image);
    }
    if (!fine) return kImageOverrun;
  }
  return runs.row >= r.height ? kImageFine : kImageOverrun;
}

} // namespace

ImageStatus decodeBmp(FileBytes file, Image& image) {
  BmpReader r;
  if (!readHead(file, r)) return kImageBadFormat;
  // Two bytes of a run stand for at most 255 pixels; a byte of plain rows for 8.
  constexpr long long kPixelsOfByte = 128;
  const ImageStatus started =
      startImage(image, r.width, r.height, false, static_cast<long long>(file.size()) * kPixelsOfByte);
  if (started != kImageFine) return started;
  return r.compression == kPlain ? readPlain(r, image) : readRuns(r, image);
}

} // namespace quilla

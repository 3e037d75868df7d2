// PNG: chunks of a length, a name, data and a check sum that is not checked; the pixels are one deflated stream.
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include <zlib.h>

#include "image/bytes.h"
#include "image/png_rows.h"

namespace quilla {
namespace {

constexpr std::size_t kSignatureSize = 8, kChunkHead = 8, kChunkTail = 4, kHeaderData = 13;
constexpr std::size_t kBlockSize = 65536; // rows are inflated in blocks of about this size
constexpr unsigned kInflateRatio = 1032;  // a byte of deflated data gives at most this many

constexpr unsigned chunkName(const char* t) {
  unsigned name = 0;
  for (int i = 0; i < 4; ++i) name = name << 8U | static_cast<unsigned char>(t[i]);
  return name;
}

struct Chunk {
  unsigned name = 0;
  FileBytes data;
  bool whole = false; // the file holds all of it
};

// The chunk at a place, which moves behind it. False at the end of the file.
bool nextChunk(FileBytes file, std::size_t& place, Chunk& chunk) {
  if (file.size() < place + kChunkHead) return false;
  const std::size_t length = bigLong(file.data() + place);
  chunk.name = bigLong(file.data() + place + 4);
  place += kChunkHead;
  const std::size_t held = std::min(length, file.size() - place);
  chunk.data = file.subspan(place, held);
  chunk.whole = held == length;
  place = std::min(file.size(), place + held + kChunkTail);
  return true;
}

bool depthFits(int colorType, int depth) {
  switch (colorType) {
  case kPngGrey: return depth == 1 || depth == 2 || depth == 4 || depth == 8 || depth == 16;
  case kPngPalette: return depth == 1 || depth == 2 || depth == 4 || depth == 8;
  case kPngRgb:
  case kPngGreyAlpha:
  case kPngRgbAlpha: return depth == 8 || depth == 16;
  default: return false;
  }
}

bool readHeader(FileBytes data, PngHead& head) {
  constexpr unsigned kLargestSide = 0x7FFFFFFF;
  if (data.size() < kHeaderData) return false;
  head.width = bigLong(data.data());
  head.height = bigLong(data.data() + 4);
  head.depth = data[8];
  head.colorType = data[9];
  const int compression = data[10], filter = data[11], interlace = data[12];
  head.interlaced = interlace == 1;
  return head.width > 0 && head.height > 0 && head.width <= kLargestSide && head.height <= kLargestSide &&
         depthFits(head.colorType, head.depth) && compression == 0 && filter == 0 && interlace <= 1;
}

void readPalette(FileBytes data, PngHead& head) {
  head.paletteCount = static_cast<int>(std::min<std::size_t>(data.size() / kColorBytes, kPngPaletteSize));
  for (int i = 0; i < head.paletteCount; ++i)
    std::memcpy(head.palette[i], data.data() + kColorBytes * static_cast<std::size_t>(i), kColorBytes);
}

void readTransparency(FileBytes data, PngHead& head) {
  if (head.colorType == kPngPalette) {
    head.transparent = true;
    std::memset(head.paletteAlpha, 255, sizeof head.paletteAlpha);
    std::memcpy(head.paletteAlpha, data.data(), std::min(data.size(), sizeof head.paletteAlpha));
    return;
  }
  const std::size_t samples = head.colorType == kPngGrey ? 1 : head.colorType == kPngRgb ? 3 : 0;
  if (samples == 0 || data.size() < 2 * samples) return;
  head.transparent = true;
  for (std::size_t i = 0; i < samples; ++i) head.transparentColor[i] = bigWord(data.data() + 2 * i);
}

void readBackground(FileBytes data, PngHead& head) {
  if (head.colorType == kPngPalette) {
    if (data.empty() || data[0] >= head.paletteCount) return;
    std::memcpy(head.ground, head.palette[data[0]], kColorBytes);
    head.background = true;
    return;
  }
  const bool grey = head.colorType == kPngGrey || head.colorType == kPngGreyAlpha;
  if (data.size() < (grey ? 2U : 6U)) return;
  for (std::size_t i = 0; i < kColorBytes; ++i) {
    const unsigned sample = bigWord(data.data() + (grey ? 0 : 2 * i));
    head.ground[i] = pngGrey(head.depth == 16 ? sample : sample & ((1U << head.depth) - 1U), head.depth);
  }
  head.background = true;
}

// The chunks up to the first of the pixels, whose place is returned; 0 if there is none.
std::size_t readHead(FileBytes file, PngHead& head) {
  std::size_t place = kSignatureSize;
  Chunk chunk;
  if (!nextChunk(file, place, chunk) || chunk.name != chunkName("IHDR") || !readHeader(chunk.data, head)) return 0;
  for (std::size_t here = place; nextChunk(file, place, chunk); here = place) {
    switch (chunk.name) {
    case chunkName("PLTE"): readPalette(chunk.data, head); break;
    case chunkName("tRNS"): readTransparency(chunk.data, head); break;
    case chunkName("bKGD"): readBackground(chunk.data, head); break;
    case chunkName("IDAT"): return here;
    case chunkName("IEND"): return 0;
    default: break;
    }
  }
  return 0;
}

// The deflated stream, which lies in several chunks, and the check sum of what it gave.
struct PixelStream {
  FileBytes file;
  std::size_t place = 0;
  bool atEnd = false; // the last chunk of pixels is in the inflater
  bool ended = false; // the deflated data are through: the check sum is next
  z_stream z{};
  unsigned sum = 1, sumOfSums = 0; // Adler-32
};

bool feed(PixelStream& stream) {
  Chunk chunk;
  while (!stream.atEnd) {
    if (!nextChunk(stream.file, stream.place, chunk) || chunk.name == chunkName("IEND")) {
      stream.atEnd = true;
    } else if (chunk.name == chunkName("IDAT") && !chunk.data.empty()) {
      stream.z.next_in = const_cast<unsigned char*>(chunk.data.data());
      stream.z.avail_in = static_cast<uInt>(chunk.data.size());
      return true;
    }
  }
  return false;
}

// Next byte of the stream as it stands, or -1 behind its end.
int streamByte(PixelStream& stream) {
  if (stream.z.avail_in == 0 && !feed(stream)) return -1;
  --stream.z.avail_in;
  return *stream.z.next_in++;
}

// Adds bytes to the check sum: their sum, and the sum of those sums, which counts each byte as often as bytes follow
// it. Blocks with weights are what compilers turn into wide arithmetic; zlib's own loop takes more than twice as long.
void addToCheck(PixelStream& stream, const unsigned char* bytes, std::size_t count) {
  constexpr unsigned kModulus = 65521;
  constexpr std::size_t kBlock = 32, kMost = 173 * kBlock; // bytes until 32 bits could overflow
  constexpr short kWeights[kBlock] = {32, 31, 30, 29, 28, 27, 26, 25, 24, 23, 22, 21, 20, 19, 18, 17,
                                      16, 15, 14, 13, 12, 11, 10, 9,  8,  7,  6,  5,  4,  3,  2,  1};
  while (count > 0) {
    const std::size_t part = std::min(count, kMost);
    unsigned sum = stream.sum, sumOfSums = stream.sumOfSums;
    std::size_t i = 0;
    for (; i + kBlock <= part; i += kBlock) {
      int plain = 0, weighted = 0;
      for (std::size_t k = 0; k < kBlock; ++k) {
        plain += bytes[i + k];
        weighted += static_cast<short>(bytes[i + k]) * kWeights[k];
      }
      sumOfSums += static_cast<unsigned>(kBlock) * sum + static_cast<unsigned>(weighted);
      sum += static_cast<unsigned>(plain);
    }
    for (; i < part; ++i) {
      sum += bytes[i];
      sumOfSums += sum;
    }
    stream.sum = sum % kModulus;
    stream.sumOfSums = sumOfSums % kModulus;
    bytes += part;
    count -= part;
  }
}

// The two bytes before the deflated data: method 8 and flags, together a multiple of 31, without a dictionary.
bool startStream(PixelStream& stream) {
  constexpr int kMethodMask = 15, kDeflate = 8, kDictionary = 0x20;
  const int method = streamByte(stream), flags = streamByte(stream);
  return method >= 0 && flags >= 0 && (method & kMethodMask) == kDeflate && (256 * method + flags) % 31 == 0 &&
         (flags & kDictionary) == 0;
}

// Inflates count bytes; fewer after a failure.
std::size_t inflateBytes(PixelStream& stream, unsigned char* out, std::size_t count) {
  stream.z.next_out = out;
  stream.z.avail_out = static_cast<uInt>(count);
  while (stream.z.avail_out > 0 && !stream.ended) {
    if (stream.z.avail_in == 0 && !feed(stream)) break;
    const int result = inflate(&stream.z, Z_NO_FLUSH);
    stream.ended = result == Z_STREAM_END;
    if (result != Z_OK) break;
  }
  const std::size_t got = count - stream.z.avail_out;
  addToCheck(stream, out, got);
  return got;
}

// The check sum behind the last row, unless the stream goes on or is cut there.
bool streamEndsWell(PixelStream& stream) {
  unsigned char surplus;
  if (!stream.ended && inflateBytes(stream, &surplus, 1) > 0) return true;
  if (!stream.ended) return stream.atEnd && stream.z.avail_in == 0;
  unsigned told = 0;
  for (int i = 0; i < 4; ++i) {
    const int byte = streamByte(stream);
    if (byte < 0) return true;
    told = told << 8U | static_cast<unsigned>(byte);
  }
  return told == (stream.sumOfSums << 16U | stream.sum);
}

// A pass of interlacing: the first pixel and the steps. Pass 0 stands for an image without.
struct Pass {
  int x, y, stepX, stepY;
};
constexpr Pass kWholeImage = {0, 0, 1, 1};
constexpr Pass kAdam7[] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                           {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};

int countInPass(unsigned size, int first, int step) {
  const int all = static_cast<int>(size);
  return all > first ? (all - first + step - 1) / step : 0;
}

struct PngReader {
  PngHead head;
  PixelStream stream;
  Image* image;
  unsigned char* block = nullptr; // the row above, and the rows of a block behind it
  unsigned char* passRgb = nullptr;
  unsigned char* passAlpha = nullptr;
  bool badIndex = false;
};

void spreadPass(const PngReader& r, const Pass& pass, int y, int count) {
  unsigned char* rgb = imageRow(*r.image, y) + kColorBytes * pass.x;
  for (int i = 0; i < count; ++i, rgb += kColorBytes * pass.stepX)
    std::memcpy(rgb, r.passRgb + kColorBytes * i, kColorBytes);
  if (!r.image->alpha) return;
  unsigned char* alpha = alphaRow(*r.image, y) + pass.x;
  for (int i = 0; i < count; ++i) alpha[i * pass.stepX] = r.passAlpha[i];
}

void takeRow(PngReader& r, const Pass& pass, int row, int count, const unsigned char* bytes) {
  const int y = pass.y + row * pass.stepY;
  const bool whole = pass.stepX == 1;
  unsigned char* alpha = r.image->alpha ? (whole ? alphaRow(*r.image, y) : r.passAlpha) : nullptr;
  if (!pngConvert(r.head, bytes, count, whole ? imageRow(*r.image, y) : r.passRgb, alpha)) r.badIndex = true;
  if (!whole) spreadPass(r, pass, y, count);
  r.image->rowDone[y] = 1;
}

// Rows of one pass. False if the stream ends before.
bool readPass(PngReader& r, const Pass& pass) {
  const int width = countInPass(r.head.width, pass.x, pass.stepX);
  const int height = countInPass(r.head.height, pass.y, pass.stepY);
  if (width == 0 || height == 0) return true;
  const std::size_t rowBytes = pngRowBytes(r.head, static_cast<std::size_t>(width)), rowSize = rowBytes + 1;
  const int perBlock = static_cast<int>(std::max<std::size_t>(kBlockSize / rowSize, 1));
  const int distance = pngPixelDistance(r.head);
  std::memset(r.block, 0, rowSize);
  for (int first = 0; first < height; first += perBlock) {
    const int wanted = std::min(perBlock, height - first);
    const std::size_t bytes = static_cast<std::size_t>(wanted) * rowSize;
    const std::size_t got = inflateBytes(r.stream, r.block + rowSize, bytes);
    const int rows = static_cast<int>(got / rowSize);
    unsigned char* row = r.block + rowSize;
    for (int i = 0; i < rows; ++i, row += rowSize) {
      pngUnfilter(row[0], row + 1, row + 1 - rowSize, rowBytes, distance);
      takeRow(r, pass, first + i, width, row + 1);
    }
    if (got < bytes) return false;
    std::memcpy(r.block, row - rowSize, rowSize);
  }
  return true;
}

ImageStatus readPasses(PngReader& r) {
  if (!startStream(r.stream)) return kImageInflateError;
  if (inflateInit2(&r.stream.z, -MAX_WBITS) != Z_OK) return kImageNoMemory;
  bool fine = true;
  if (r.head.interlaced) {
    for (const Pass& pass : kAdam7) fine = fine && readPass(r, pass);
  } else {
    fine = readPass(r, kWholeImage);
  }
  fine = fine && streamEndsWell(r.stream);
  const bool ended = inflateEnd(&r.stream.z) == Z_OK;
  if (!fine) return kImageInflateError;
  return ended ? r.badIndex ? kImageBadIndex : kImageFine : kImageInflateEndError;
}

} // namespace

ImageStatus decodePng(FileBytes file, Image& image) {
  PngReader r;
  const std::size_t place = readHead(file, r.head);
  if (place == 0) return kImageBadFormat;
  const PngHead& head = r.head;
  const auto bits = static_cast<long long>(pngChannels(head.colorType) * head.depth);
  const auto possible = static_cast<long long>(file.size()) * kInflateRatio * 8 / bits;
  const ImageStatus started = startImage(image, head.width, head.height, pngHasAlpha(head), possible);
  if (started != kImageFine) return started;
  r.image = &image;
  r.stream.file = file;
  r.stream.place = place;
  // The row above and a block of rows; the rows of a pass behind them.
  const std::size_t rowSize = pngRowBytes(head, head.width) + 1;
  const std::size_t blockSize = rowSize + std::max(rowSize, kBlockSize), width = head.width;
  r.block = static_cast<unsigned char*>(std::malloc(blockSize + width * (kColorBytes + 1)));
  if (!r.block) {
    freeImage(image);
    return kImageNoMemory;
  }
  r.passRgb = r.block + blockSize;
  r.passAlpha = r.passRgb + width * kColorBytes;
  const ImageStatus status = readPasses(r);
  std::free(r.block);
  if (head.background) blendOver(image, head.ground);
  return status;
}

} // namespace quilla

#include "platform/metafile.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <new>

namespace quilla {

namespace {

constexpr int kObjectLimit = 16;
constexpr int kBufferSize = 65536;
constexpr int kSolid = 0, kNoLine = 5;              // styles of pens
constexpr std::uint32_t kStockNullPen = 0x80000008; // of every EMF: draws nothing

enum WmfFunction : int {
  kWmfEnd = 0x0000,
  kWmfMapMode = 0x0103,
  kWmfSelect = 0x012D,
  kWmfDelete = 0x01F0,
  kWmfTextColor = 0x0209,
  kWmfWindowOrigin = 0x020B,
  kWmfWindowExtent = 0x020C,
  kWmfLineTo = 0x0213,
  kWmfMoveTo = 0x0214,
  kWmfPen = 0x02FA,
  kWmfBrush = 0x02FC,
  kWmfPolygon = 0x0324
};

enum EmfRecord : std::uint32_t {
  kEmfHeader = 1,
  kEmfPolygon = 3,
  kEmfWindowExtent = 9,
  kEmfWindowOrigin = 10,
  kEmfEnd = 14,
  kEmfMapMode = 17,
  kEmfTextColor = 24,
  kEmfMoveTo = 27,
  kEmfSelect = 37,
  kEmfPen = 38,
  kEmfBrush = 39,
  kEmfDelete = 40,
  kEmfLineTo = 54
};

// The display that coordinates of an EMF refer to: 96 pixels an inch. Its sides are whole millimetres, which is all
// that some readers look at.
constexpr int kDisplayPixelsX = 1920, kDisplayPixelsY = 1440;
constexpr int kDisplayMicrometersX = 508000, kDisplayMicrometersY = 381000;

constexpr int kWmfHeaderSize = 18, kPlaceableSize = 22, kEmfHeaderSize = 108;
constexpr int kDescriptionLimit = 64; // characters

} // namespace

struct Metafile {
  std::FILE* file = nullptr;
  bool enhanced = false;
  bool failed = false;
  bool placeable = false;
  bool objectUsed[kObjectLimit] = {};
  int objectPeak = 0;
  bool objectIsPen[kObjectLimit] = {};
  int selectedPen = kNoMetafileObject;
  int nullPen = kNoMetafileObject; // WMF: made for the first rectangle
  std::uint32_t largestRecord = 0; // WMF, in words
  std::uint32_t recordCount = 0;   // EMF
  std::uint32_t bytesWritten = 0;
  int penWidth = 1;
  int currentX = 0, currentY = 0;
  bool drawn = false; // EMF: the bounds hold something
  int left = 0, top = 0, right = 0, bottom = 0;
  int descriptionLength = 0; // EMF: characters with their ends
  std::uint16_t description[kDescriptionLimit + 3] = {};
  int used = 0;
  unsigned char bytes[kBufferSize];
};

namespace {

void flush(Metafile& m) {
  const auto count = static_cast<std::size_t>(m.used);
  if (!m.failed && count > 0 && std::fwrite(m.bytes, 1, count, m.file) != count) m.failed = true;
  m.used = 0;
}

void put(Metafile& m, const unsigned char* bytes, int count) {
  if (m.used + count > kBufferSize) flush(m);
  std::memcpy(m.bytes + m.used, bytes, static_cast<std::size_t>(count));
  m.used += count;
  m.bytesWritten += static_cast<std::uint32_t>(count);
}

void putWord(Metafile& m, int value) {
  const unsigned char bytes[] = {static_cast<unsigned char>(value & 255), static_cast<unsigned char>(value >> 8 & 255)};
  put(m, bytes, 2);
}

void putLong(Metafile& m, std::uint32_t value) {
  putWord(m, static_cast<int>(value & 0xFFFF));
  putWord(m, static_cast<int>(value >> 16));
}

void putSigned(Metafile& m, int value) { putLong(m, static_cast<std::uint32_t>(value)); }

int limited(int value) { return value < -32768 ? -32768 : value > 32767 ? 32767 : value; }

std::uint32_t colorRef(int r, int g, int b) { return static_cast<std::uint32_t>(r | g << 8 | b << 16); }

// A WMF record: its length in words with this head, its function.
void startWmf(Metafile& m, int function, int parameterWords) {
  const auto words = static_cast<std::uint32_t>(parameterWords + 3);
  putLong(m, words);
  putWord(m, function);
  if (words > m.largestRecord) m.largestRecord = words;
}

void wmfRecord(Metafile& m, int function, std::initializer_list<int> parameters) {
  startWmf(m, function, static_cast<int>(parameters.size()));
  for (int word : parameters) putWord(m, word);
}

// An EMF record: its number, its length in bytes with this head.
void startEmf(Metafile& m, std::uint32_t record, std::uint32_t parameterBytes) {
  putLong(m, record);
  putLong(m, parameterBytes + 8);
  ++m.recordCount;
}

void emfRecord(Metafile& m, std::uint32_t record, std::initializer_list<std::uint32_t> parameters) {
  startEmf(m, record, static_cast<std::uint32_t>(parameters.size() * 4));
  for (std::uint32_t value : parameters) putLong(m, value);
}

void widenBounds(Metafile& m, int x, int y, int margin) {
  if (!m.drawn) {
    m.left = m.right = x;
    m.top = m.bottom = y;
    m.drawn = true;
  }
  if (x - margin < m.left) m.left = x - margin;
  if (x + margin > m.right) m.right = x + margin;
  if (y - margin < m.top) m.top = y - margin;
  if (y + margin > m.bottom) m.bottom = y + margin;
}

void putBounds(Metafile& m, int left, int top, int right, int bottom) {
  for (int value : {left, top, right, bottom}) putSigned(m, value);
}

int newObject(Metafile& m) {
  for (int i = 0; i < kObjectLimit; ++i) {
    if (m.objectUsed[i]) continue;
    m.objectUsed[i] = true;
    if (i + 1 > m.objectPeak) m.objectPeak = i + 1;
    return i;
  }
  return kNoMetafileObject;
}

// Handles of an EMF count from 1.
std::uint32_t handleOf(int object) { return static_cast<std::uint32_t>(object) + 1; }

bool objectExists(const Metafile& m, int object) {
  return object >= 0 && object < kObjectLimit && m.objectUsed[object];
}

void putPlaceable(Metafile& m, const PlaceableHeader& header) {
  const int words[] = {0xCDD7, 0x9AC6, 0, 0, 0, limited(header.width), limited(header.height), header.unitsPerInch,
                       0,      0};
  int sum = 0;
  for (int word : words) {
    putWord(m, word);
    sum ^= word & 0xFFFF;
  }
  putWord(m, sum);
}

void putWmfHeader(Metafile& m, std::uint32_t fileWords) {
  constexpr int kDiskFile = 1, kHeaderWords = 9, kVersion3 = 0x0300;
  putWord(m, kDiskFile);
  putWord(m, kHeaderWords);
  putWord(m, kVersion3);
  putLong(m, fileWords);
  putWord(m, m.objectPeak);
  putLong(m, m.largestRecord);
  putWord(m, 0);
}

// Hundredths of a millimetre of a coordinate.
int frameOf(double pixel, int displayPixels, int displayMicrometers) {
  constexpr double kLimit = 2.0e9;
  const double value = std::floor(pixel * displayMicrometers / displayPixels / 10.0 + 0.5);
  return static_cast<int>(value > kLimit ? kLimit : value < -kLimit ? -kLimit : value);
}

void putEmfHeader(Metafile& m, std::uint32_t fileBytes) {
  constexpr std::uint32_t kSignature = 0x464D4520, kVersion = 0x00010000;
  const int textBytes = (m.descriptionLength * 2 + 3) / 4 * 4;
  putLong(m, kEmfHeader);
  putLong(m, static_cast<std::uint32_t>(kEmfHeaderSize + textBytes));
  putBounds(m, m.left, m.top, m.right, m.bottom);
  putSigned(m, frameOf(m.left, kDisplayPixelsX, kDisplayMicrometersX));
  putSigned(m, frameOf(m.top, kDisplayPixelsY, kDisplayMicrometersY));
  putSigned(m, frameOf(m.right, kDisplayPixelsX, kDisplayMicrometersX));
  putSigned(m, frameOf(m.bottom, kDisplayPixelsY, kDisplayMicrometersY));
  putLong(m, kSignature);
  putLong(m, kVersion);
  putLong(m, fileBytes);
  putLong(m, m.recordCount);
  putWord(m, m.objectPeak + 1); // handle 0 is that of the file
  putWord(m, 0);
  putSigned(m, m.descriptionLength);
  putLong(m, kEmfHeaderSize);
  putLong(m, 0); // no palette
  putSigned(m, kDisplayPixelsX);
  putSigned(m, kDisplayPixelsY);
  putSigned(m, kDisplayMicrometersX / 1000);
  putSigned(m, kDisplayMicrometersY / 1000);
  for (int i = 0; i < 3; ++i) putLong(m, 0); // no pixel format, no OpenGL
  putSigned(m, kDisplayMicrometersX);
  putSigned(m, kDisplayMicrometersY);
  for (int i = 0; i < textBytes / 2; ++i) putWord(m, i < m.descriptionLength ? m.description[i] : 0);
}

// The text, an end, and the end of a second, empty text.
void setDescription(Metafile& m, const char* text) {
  int n = 0;
  for (; text[n] && n < kDescriptionLimit; ++n) m.description[n] = static_cast<unsigned char>(text[n]);
  m.descriptionLength = n + 2;
}

Metafile* openFile(const char* fileName) {
  std::FILE* file = std::fopen(fileName, "wb");
  if (!file) return nullptr;
  Metafile* m = new (std::nothrow) Metafile;
  if (!m) {
    std::fclose(file);
    return nullptr;
  }
  std::setvbuf(file, nullptr, _IONBF, 0);
  m->file = file;
  return m;
}

} // namespace

Metafile* createMetafile(const char* fileName, const PlaceableHeader* placeable) {
  Metafile* m = openFile(fileName);
  if (!m) return nullptr;
  m->placeable = placeable != nullptr;
  if (placeable) putPlaceable(*m, *placeable);
  putWmfHeader(*m, 0);
  return m;
}

Metafile* createEnhancedMetafile(const char* fileName, const char* description) {
  Metafile* m = openFile(fileName);
  if (!m) return nullptr;
  m->enhanced = true;
  m->recordCount = 1;
  setDescription(*m, description);
  putEmfHeader(*m, 0);
  return m;
}

void metafileMapMode(Metafile& m, int mode) {
  if (m.enhanced) return emfRecord(m, kEmfMapMode, {static_cast<std::uint32_t>(mode)});
  wmfRecord(m, kWmfMapMode, {mode});
}

void metafileWindowOrigin(Metafile& m, int x, int y) {
  if (m.enhanced) return emfRecord(m, kEmfWindowOrigin, {static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)});
  wmfRecord(m, kWmfWindowOrigin, {limited(y), limited(x)});
}

void metafileWindowExtent(Metafile& m, int width, int height) {
  if (m.enhanced)
    return emfRecord(m, kEmfWindowExtent, {static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)});
  wmfRecord(m, kWmfWindowExtent, {limited(height), limited(width)});
}

namespace {

int penOfStyle(Metafile& m, int style, int width, int r, int g, int b) {
  const int object = newObject(m);
  if (object == kNoMetafileObject) return object;
  m.objectIsPen[object] = true;
  const std::uint32_t color = colorRef(r, g, b);
  if (m.enhanced) {
    emfRecord(m, kEmfPen,
              {handleOf(object), static_cast<std::uint32_t>(style), static_cast<std::uint32_t>(width), 0, color});
  } else {
    wmfRecord(m, kWmfPen, {style, limited(width), 0, static_cast<int>(color & 0xFFFF), static_cast<int>(color >> 16)});
  }
  return object;
}

} // namespace

int metafilePen(Metafile& m, int width, int r, int g, int b) {
  m.penWidth = width;
  return penOfStyle(m, kSolid, width, r, g, b);
}

int metafileBrush(Metafile& m, int r, int g, int b) {
  const int object = newObject(m);
  if (object == kNoMetafileObject) return object;
  m.objectIsPen[object] = false;
  const std::uint32_t color = colorRef(r, g, b);
  if (m.enhanced) {
    emfRecord(m, kEmfBrush, {handleOf(object), kSolid, color, 0});
  } else {
    wmfRecord(m, kWmfBrush, {kSolid, static_cast<int>(color & 0xFFFF), static_cast<int>(color >> 16), 0});
  }
  return object;
}

void metafileSelect(Metafile& m, int object) {
  if (!objectExists(m, object)) return;
  if (m.objectIsPen[object]) m.selectedPen = object;
  if (m.enhanced) return emfRecord(m, kEmfSelect, {handleOf(object)});
  wmfRecord(m, kWmfSelect, {object});
}

void metafileDelete(Metafile& m, int object) {
  if (!objectExists(m, object)) return;
  m.objectUsed[object] = false;
  if (object == m.selectedPen) m.selectedPen = kNoMetafileObject;
  if (m.enhanced) return emfRecord(m, kEmfDelete, {handleOf(object)});
  wmfRecord(m, kWmfDelete, {object});
}

void metafileTextColor(Metafile& m, int r, int g, int b) {
  const std::uint32_t color = colorRef(r, g, b);
  if (m.enhanced) return emfRecord(m, kEmfTextColor, {color});
  wmfRecord(m, kWmfTextColor, {static_cast<int>(color & 0xFFFF), static_cast<int>(color >> 16)});
}

void metafileMoveTo(Metafile& m, int x, int y) {
  m.currentX = x;
  m.currentY = y;
  if (m.enhanced) return emfRecord(m, kEmfMoveTo, {static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)});
  wmfRecord(m, kWmfMoveTo, {limited(y), limited(x)});
}

void metafileLineTo(Metafile& m, int x, int y) {
  widenBounds(m, m.currentX, m.currentY, m.penWidth / 2);
  widenBounds(m, x, y, m.penWidth / 2);
  m.currentX = x;
  m.currentY = y;
  if (m.enhanced) return emfRecord(m, kEmfLineTo, {static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)});
  wmfRecord(m, kWmfLineTo, {limited(y), limited(x)});
}

void metafilePolygon(Metafile& m, const MetafilePoint* points, int n) {
  constexpr int kWmfPointLimit = 32767; // the count is a signed word
  if (n < 2) return;
  if (!m.enhanced) {
    if (n > kWmfPointLimit) n = kWmfPointLimit;
    startWmf(m, kWmfPolygon, 2 * n + 1);
    putWord(m, n);
    for (int i = 0; i < n; ++i) {
      putWord(m, limited(points[i].x));
      putWord(m, limited(points[i].y));
    }
    return;
  }
  int left = points[0].x, right = left, top = points[0].y, bottom = top;
  for (int i = 0; i < n; ++i) {
    left = points[i].x < left ? points[i].x : left;
    right = points[i].x > right ? points[i].x : right;
    top = points[i].y < top ? points[i].y : top;
    bottom = points[i].y > bottom ? points[i].y : bottom;
  }
  widenBounds(m, left, top, m.penWidth / 2);
  widenBounds(m, right, bottom, m.penWidth / 2);
  startEmf(m, kEmfPolygon, 20 + 8 * static_cast<std::uint32_t>(n));
  putBounds(m, left, top, right, bottom);
  putSigned(m, n);
  for (int i = 0; i < n; ++i) {
    putSigned(m, points[i].x);
    putSigned(m, points[i].y);
  }
}

// As a polygon without an outline: the records that paint with the brush alone are unknown to many readers.
void metafileRectangle(Metafile& m, int left, int top, int right, int bottom) {
  const MetafilePoint corners[] = {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
  const int pen = m.selectedPen;
  if (m.enhanced) {
    emfRecord(m, kEmfSelect, {kStockNullPen});
  } else {
    if (m.nullPen == kNoMetafileObject) m.nullPen = penOfStyle(m, kNoLine, 1, 0, 0, 0);
    metafileSelect(m, m.nullPen);
  }
  const int width = m.penWidth;
  m.penWidth = 0;
  metafilePolygon(m, corners, 4);
  m.penWidth = width;
  if (pen != kNoMetafileObject) metafileSelect(m, pen);
  m.selectedPen = pen;
}

void metafileFlush(Metafile& m) { flush(m); }

bool closeMetafile(Metafile* m) {
  if (m->enhanced) {
    emfRecord(*m, kEmfEnd, {0, 16, 20}); // no palette; the last word repeats the length
  } else {
    wmfRecord(*m, kWmfEnd, {});
  }
  flush(*m);
  // What only the end knows goes into the header.
  const std::uint32_t size = m->bytesWritten;
  if (std::fseek(m->file, m->placeable ? kPlaceableSize : 0, SEEK_SET) != 0) m->failed = true;
  if (m->enhanced) {
    putEmfHeader(*m, size);
  } else {
    putWmfHeader(*m, (size - (m->placeable ? kPlaceableSize : 0)) / 2);
  }
  flush(*m);
  const bool closed = std::fclose(m->file) == 0;
  const bool written = closed && !m->failed;
  delete m;
  return written;
}

} // namespace quilla

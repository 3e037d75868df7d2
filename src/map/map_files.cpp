#include "map/map_files.h"

#include <cstdlib>
#include <cstring>

#include "core/messages.h"
#include "text/library_path.h"

namespace quilla {

namespace {

constexpr const char* kFolder = "map";
constexpr int kNameLength = 32;

void mapFileName(const PlotState* s, int id, char name[kNameLength]) {
  if (id < kFileShores) {
    std::snprintf(name, kNameLength, "map%d.dat", id);
    return;
  }
  const char* kind = s->mapData.mapLevels == kMapLevelsRivers ? "wdb_rivers" : "gshhs";
  std::snprintf(name, kNameLength, "%s_%c.b", kind, "lihf"[(id - kFileShores) % 4]);
}

bool mapFilePath(const PlotState* s, int id, char path[kLibraryPathLength]) {
  const MapDataGroup& m = s->mapData;
  if (id == kFileUser) {
    copyText(path, m.userFile, kLibraryPathLength - 1);
    return true;
  }
  char name[kNameLength];
  mapFileName(s, id, name);
  if (!m.mapDirectory[0]) return libraryFile(s, kFolder, name, path);
  const int n = std::snprintf(path, kLibraryPathLength, "%s/%s", m.mapDirectory, name);
  return n > 0 && n < kLibraryPathLength;
}

} // namespace

std::FILE* openMapFile(PlotState* s, int id) {
  char path[kLibraryPathLength];
  const bool text = id == kFileUser && s->mapData.userFormat == kMapFormatText;
  std::FILE* file = mapFilePath(s, id, path) ? std::fopen(path, text ? "r" : "rb") : nullptr;
  if (!file) warnWithString(s, 36, path);
  return file;
}

namespace {

constexpr std::int32_t kEnd = -9000, kDraw = -2000, kMove = -3000, kSkipped = -1000;
enum ReaderState : int { kLongitude = 0, kLatitude = 1, kControl = 2 };

std::uint32_t littleEndian(const unsigned char* b) {
  return static_cast<std::uint32_t>(b[0]) | static_cast<std::uint32_t>(b[1]) << 8 |
         static_cast<std::uint32_t>(b[2]) << 16 | static_cast<std::uint32_t>(b[3]) << 24;
}

std::int32_t bigEndian(const unsigned char* b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(b[0]) << 24 | static_cast<std::uint32_t>(b[1]) << 16 |
                                   static_cast<std::uint32_t>(b[2]) << 8 | static_cast<std::uint32_t>(b[3]));
}

bool nextWord(LowMapReader& r, std::int32_t& word) {
  constexpr std::size_t kWord = 4;
  if (r.next == r.count) {
    unsigned char bytes[kMapRecord * kWord];
    r.count = static_cast<int>(std::fread(bytes, kWord, kMapRecord, r.file));
    r.next = 0;
    for (int i = 0; i < r.count; i++) r.record[i] = static_cast<std::int32_t>(littleEndian(bytes + 4 * i));
  }
  if (r.next == r.count) return false;
  word = r.record[r.next++];
  return true;
}

// The word behind a point: a code, or the next longitude.
void takeControl(LowMapReader& r, std::int32_t word, MapPoint& point) {
  if (word == kDraw) r.drawing = true;
  if (word == kMove) r.drawing = false;
  if (word == kEnd) r.ended = true;
  constexpr float kUnits = 1000.0F;
  point = {static_cast<float>(r.lon) / kUnits - 180.0F, static_cast<float>(r.lat) / kUnits - 90.0F, !r.drawing,
           word < -1 ? word : 0};
  r.state = word < -1 ? kLongitude : kLatitude;
  if (word >= -1) r.lon = word;
}

} // namespace

bool nextLowPoint(LowMapReader& r, MapPoint& point) {
  std::int32_t word;
  while (!r.ended && nextWord(r, word)) {
    switch (r.state) {
    case kLongitude:
      if (word == kEnd) {
        r.ended = true;
      } else if (!(r.borders && word == kSkipped)) {
        r.lon = word;
        r.state = kLatitude;
      }
      break;
    case kLatitude:
      r.lat = word;
      r.state = kControl;
      break;
    default: takeControl(r, word, point); return true;
    }
  }
  return false;
}

ShoreStatus nextShore(std::FILE* file, ShoreHeader& header) {
  constexpr int kWords = 8, kCount = 1, kFlag = 2, kLaterVersion = 7, kLaterBytes = 12, kFirstBytes = 4;
  unsigned char bytes[4 * kWords], rest[kLaterBytes];
  if (std::fread(bytes, 4, kWords, file) != kWords) return ShoreStatus::kEnd;
  header.count = bigEndian(bytes + 4 * kCount);
  const unsigned char* flag = bytes + 4 * kFlag; // the level stands in the low byte, the version above it
  header.level = flag[3];
  const int version = flag[2];
  const std::size_t more = version == 0 ? kFirstBytes : version >= kLaterVersion ? kLaterBytes : 0;
  if (header.count < 0 || (more > 0 && std::fread(rest, 1, more, file) != more)) return ShoreStatus::kEnd;
  return ShoreStatus::kPolygon;
}

bool nextShorePoint(std::FILE* file, MapPoint& point) {
  constexpr double kUnits = 1e6;
  unsigned char bytes[8];
  if (std::fread(bytes, 4, 2, file) != 2) return false;
  double lon = bigEndian(bytes) / kUnits;
  if (lon > 180.0) lon -= 360.0;
  point = {static_cast<float>(lon), static_cast<float>(bigEndian(bytes + 4) / kUnits), false, 0};
  return true;
}

namespace {

constexpr int kTextLine = 132;

// The first characters of a line; the rest of a longer one is left out.
bool nextLine(std::FILE* file, char line[kTextLine + 1]) {
  int n = 0, c;
  while ((c = std::getc(file)) != EOF && c != '\n') {
    if (n < kTextLine) line[n++] = static_cast<char>(c);
  }
  line[n] = 0;
  return c != EOF || n > 0;
}

} // namespace

bool nextTextPoint(TextMapReader& r, MapPoint& point) {
  char line[kTextLine + 1];
  while (nextLine(r.file, line)) {
    if (line[0] == '#') {
      r.move = true;
      continue;
    }
    const char* x = line + std::strspn(line, " ");
    const char* between = std::strpbrk(x, ", ");
    point = {0.0F, 0.0F, r.move, 0};
    if (between) {
      point.lon = static_cast<float>(std::atof(x));
      point.lat = static_cast<float>(std::atof(between + 1));
    }
    r.move = false;
    return true;
  }
  return false;
}

} // namespace quilla

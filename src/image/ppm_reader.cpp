// PPM: "P6" with bytes or words of two bytes, or "P3" with numbers as text.
#include "image/bytes.h"
#include "image/ppm_head.h"

namespace quilla {
namespace {

constexpr int kLargestValue = 65535;

bool isSpace(int c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

} // namespace

int ppmNumber(FileBytes file, std::size_t& place) {
  while (place < file.size() && (isSpace(file[place]) || file[place] == '#')) {
    if (file[place] == '#') {
      while (place < file.size() && file[place] != '\n' && file[place] != '\r') ++place;
    } else {
      ++place;
    }
  }
  constexpr int kLimit = 100000000;
  int value = 0;
  const std::size_t first = place;
  for (; place < file.size() && file[place] >= '0' && file[place] <= '9'; ++place) {
    if (value >= kLimit) return -1;
    value = 10 * value + (file[place] - '0');
  }
  return place > first ? value : -1;
}

bool readPpmHead(FileBytes file, PpmHead& head) {
  if (file.size() < 3 || file[0] != 'P' || (file[1] != '3' && file[1] != '6') || !(isSpace(file[2]) || file[2] == '#'))
    return false;
  head.text = file[1] == '3';
  std::size_t place = 2;
  head.width = ppmNumber(file, place);
  head.height = ppmNumber(file, place);
  head.largest = ppmNumber(file, place);
  head.dataPlace = place + 1; // behind one blank
  return head.width > 0 && head.height > 0 && head.largest > 0 && head.largest <= kLargestValue;
}

namespace {

// 0 to 255, rounded.
inline unsigned char byteOf(int value, int largest) {
  if (value > largest) value = largest;
  return static_cast<unsigned char>((2 * value * 255 + largest) / (2 * largest));
}

ImageStatus readText(FileBytes file, const PpmHead& head, Image& image) {
  std::size_t place = head.dataPlace;
  for (int y = 0; y < image.height; ++y) {
    unsigned char* rgb = imageRow(image, y);
    for (int i = 0; i < kColorBytes * image.width; ++i) {
      const int value = ppmNumber(file, place);
      if (value < 0) return kImageBadFormat;
      rgb[i] = byteOf(value, head.largest);
    }
    image.rowDone[y] = 1;
  }
  return kImageFine;
}

ImageStatus readBytes(FileBytes file, const PpmHead& head, Image& image) {
  const bool words = head.largest > 255;
  const std::size_t samples = static_cast<std::size_t>(image.width) * kColorBytes,
                    rowSize = words ? 2 * samples : samples;
  unsigned char bytes[256];
  for (int i = 0; i < 256 && !words; ++i) bytes[i] = byteOf(i, head.largest);
  std::size_t place = head.dataPlace;
  for (int y = 0; y < image.height; ++y, place += rowSize) {
    if (place > file.size() || file.size() - place < rowSize) return kImageBadFormat;
    const unsigned char* row = file.data() + place;
    unsigned char* rgb = imageRow(image, y);
    if (words) {
      for (std::size_t i = 0; i < samples; ++i) rgb[i] = byteOf(static_cast<int>(bigWord(row + 2 * i)), head.largest);
    } else {
      for (std::size_t i = 0; i < samples; ++i) rgb[i] = bytes[row[i]];
    }
    image.rowDone[y] = 1;
  }
  return kImageFine;
}

} // namespace

ImageStatus decodePpm(FileBytes file, Image& image) {
  PpmHead head;
  if (!readPpmHead(file, head)) return kImageBadFormat;
  const ImageStatus started = startImage(image, head.width, head.height, false, static_cast<long long>(file.size()));
  if (started != kImageFine) return started;
  return head.text ? readText(file, head, image) : readBytes(file, head, image);
}

} // namespace quilla

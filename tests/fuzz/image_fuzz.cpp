// Arbitrary bytes as an image file. READER chooses the decoder, so that there is one target a format: decodePng,
// decodeGif, decodeBmp, decodeTiff or decodePpm. What a decoder made is scaled, so that every pixel is read.
//
//   clang++ -std=c++20 -g -O1 -fsanitize=fuzzer,address,undefined -Isrc -DREADER=decodePng \
//     tests/fuzz/image_fuzz.cpp src/image/*.cpp -lz -o png_fuzz
//   ./png_fuzz -max_len=4096 -timeout=20 -max_total_time=900 <folder with some files of the format>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "image/image.h"
#include "image/tiff_directory.h"

using namespace quilla;

namespace {

// A copy of exact size, so that a byte read behind the end is seen.
struct ExactCopy {
  unsigned char* bytes;
  explicit ExactCopy(const std::uint8_t* data, std::size_t size)
      : bytes(static_cast<unsigned char*>(std::malloc(size))) {
    if (size > 0) std::memcpy(bytes, data, size);
  }
  ~ExactCopy() { std::free(bytes); }
};

ImageStatus decode(ImageStatus (*reader)(FileBytes, Image&), FileBytes file, bool, Image& image) {
  return reader(file, image);
}
ImageStatus decode(ImageStatus (*reader)(FileBytes, GifExtent, Image&), FileBytes file, bool screen, Image& image) {
  return reader(file, screen ? GifExtent::kScreen : GifExtent::kImage, image);
}

void decodeSamples(FileBytes file) {
  if (file.size() < 2 || file[0] != file[1] || (file[0] != 'I' && file[0] != 'M')) return;
  TiffDirectory d;
  if (readTiffDirectory(file, true, d) != kImageFine || !isTiffSpecial(d)) return;
  const std::size_t count = static_cast<std::size_t>(d.width) * d.height * kTiffManySamples;
  if (d.width > 4096 || d.height > 4096 || count == 0 || count > 1000000) return;
  auto* samples = static_cast<unsigned short*>(std::malloc(count * sizeof(unsigned short)));
  decodeTiffSamples(file, samples, count);
  std::free(samples);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const ExactCopy copy(data, size);
  const FileBytes file(copy.bytes, size);
  Image image, small;
  const bool screen = size > 0 && (data[size - 1] & 1) != 0;
  decode(READER, file, screen, image);
  if (image.pixels) {
    const unsigned char ground[] = {10, 100, 200};
    blendOver(image, ground);
    scaleImage(image, 7, 5, small);
  }
  freeImage(image);
  freeImage(small);
  decodeSamples(file);
  return 0;
}

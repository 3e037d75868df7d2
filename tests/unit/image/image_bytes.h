// Files of images put together byte by byte.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "image/image.h"

using Bytes = std::vector<unsigned char>;

inline void add(Bytes& out, const Bytes& more) { out.insert(out.end(), more.begin(), more.end()); }
inline void addText(Bytes& out, const std::string& text) { out.insert(out.end(), text.begin(), text.end()); }
inline void addLittle(Bytes& out, unsigned value, int count) {
  for (int i = 0; i < count; ++i) out.push_back(static_cast<unsigned char>(value >> (8 * i)));
}
inline void addBig(Bytes& out, unsigned value, int count) {
  for (int i = count - 1; i >= 0; --i) out.push_back(static_cast<unsigned char>(value >> (8 * i)));
}

// An image that frees itself.
struct Decoded {
  quilla::Image image;
  quilla::ImageStatus status = quilla::kImageFine;
  ~Decoded() { quilla::freeImage(image); }
  // A pixel as 0xRRGGBB, -1 outside.
  int at(int x, int y) const {
    if (x < 0 || y < 0 || x >= image.width || y >= image.height) return -1;
    const unsigned char* p = quilla::imageRow(image, y) + 3 * x;
    return p[0] << 16 | p[1] << 8 | p[2];
  }
  int alphaAt(int x, int y) const { return image.alpha ? quilla::alphaRow(image, y)[x] : -1; }
  std::vector<int> all() const {
    std::vector<int> pixels;
    for (int y = 0; y < image.height; ++y) {
      for (int x = 0; x < image.width; ++x) pixels.push_back(at(x, y));
    }
    return pixels;
  }
};

// Arbitrary bytes as a TrueType file, of which every letter of Latin-1 is read and cut into lines. Start it with a font
// as corpus and -max_len above its size.
//
//   clang++ -std=c++20 -g -O1 -fsanitize=fuzzer,address,undefined -Isrc -Iinclude tests/fuzz/truetype_fuzz.cpp \
//     src/text/truetype.cpp -o truetype_fuzz
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "text/truetype.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto font = std::make_unique<quilla::TrueTypeFont>();
  if (quilla::readTrueType(data, size, font.get()) != quilla::kTrueTypeGood) return 0;
  if (!(font->unitsPerEm > 0.0F)) std::abort();
  for (int code = 32; code < 256; ++code) {
    int fault = 0;
    const int glyph = quilla::trueTypeGlyph(font.get(), code, &fault);
    if (fault != 0 || quilla::readGlyph(font.get(), glyph) != quilla::kTrueTypeGood) continue;
    if (font->pointCount > quilla::kGlyphPointLimit || font->contourCount > quilla::kGlyphContourLimit) std::abort();
    long visited = 0;
    const long count = quilla::flattenGlyph(font.get(), 7, [&visited](int, float, float) { ++visited; });
    // What the caller makes room for.
    if (count != visited || count > 7L * (font->pointCount + 2L * font->contourCount)) std::abort();
  }
  return 0;
}

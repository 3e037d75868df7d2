#include "raster_fixture.h"

#include <climits>

namespace quilla {
namespace {

TEST(CanvasTest, StartsWithEntry0OrBlackOrClearWhite) {
  const Canvas a = indexedCanvas(2, 2);
  EXPECT_EQ(a->stride, 2);
  EXPECT_EQ(canvasRow(*a, 1)[1], 0);
  const Canvas b = trueCanvas(2, 2);
  EXPECT_EQ(b->stride, 8);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(b->basePixels[i], 0);
  const Canvas c = trueCanvas(2, 2, true);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(c->basePixels[i], i % 4 == 3 ? 0 : 255);
}

TEST(CanvasTest, WithoutSizeOrWithTooMuchThereIsNone) {
  EXPECT_EQ(createCanvas(0, 5, false, false), nullptr);
  EXPECT_EQ(createCanvas(INT_MAX, 2, false, false), nullptr);
  EXPECT_EQ(createCanvas(INT_MAX, INT_MAX, true, false), nullptr);
}

TEST(CanvasTest, RowsAreCutAtTheEdges) {
  const Canvas canvas = indexedCanvas(8, 2);
  unsigned char data[10];
  for (int i = 0; i < 10; ++i) data[i] = static_cast<unsigned char>(10 + i);
  writeIndexRow(*canvas, -5, 0, data, 10); // columns 0 to 4 from the data's fifth item
  for (int i = 0; i < 8; ++i) EXPECT_EQ(canvasRow(*canvas, 0)[i], i < 5 ? 15 + i : 0) << i;
  writeIndexRow(*canvas, 6, 1, data, 10);
  EXPECT_EQ(canvasRow(*canvas, 1)[5], 0);
  EXPECT_EQ(canvasRow(*canvas, 1)[7], 11);
  writeIndexRow(*canvas, 0, 2, data, 10);
  writeIndexRow(*canvas, 0, -1, data, 10);
  writeIndexRow(*canvas, INT_MAX, 0, data, 10);
  writeIndexRow(*canvas, INT_MIN, 0, data, INT_MAX);
  EXPECT_EQ(canvasRow(*canvas, 0)[0], 15);
}

TEST(CanvasTest, ReadingLeavesWhatIsOutside) {
  const Canvas canvas = indexedCanvas(3, 1);
  const unsigned char data[] = {4, 5, 6};
  writeIndexRow(*canvas, 0, 0, data, 3);
  unsigned char got[5] = {99, 99, 99, 99, 99};
  readIndexRow(*canvas, -1, 0, got, 5);
  const unsigned char wanted[] = {99, 4, 5, 6, 99};
  EXPECT_EQ(std::memcmp(got, wanted, 5), 0);
}

TEST(CanvasTest, ColoursAndEntriesPassIntoEachOther) {
  const Canvas canvas = indexedCanvas(2, 1);
  writeRgb(*canvas, 0, 0, {100, 155, 50}); // entry 100
  EXPECT_EQ(readIndex(*canvas, 0, 0), 100);
  EXPECT_EQ(readRgb(*canvas, 0, 0), (Rgb{100, 155, 50}));
  const Canvas colours = trueCanvas(2, 1);
  setPalette(*colours, 0, canvas->palette, kPaletteSize, kPaletteSize);
  writeIndex(*colours, 1, 0, 7);
  EXPECT_EQ(readRgb(*colours, 1, 0), (Rgb{7, 248, 3}));
  EXPECT_EQ(readIndex(*colours, 1, 0), 7);
  EXPECT_EQ(colours->pixels[7], 255); // the alpha of the pen
}

TEST(CanvasTest, NearestEntryIsTheLowerOfTwo) {
  const Canvas canvas = indexedCanvas(1, 1);
  const Rgb palette[] = {{10, 0, 0}, {20, 0, 0}, {20, 0, 0}, {255, 255, 255}};
  setPalette(*canvas, 0, palette, 4, 3);
  EXPECT_EQ(nearestIndex(*canvas, {15, 0, 0}), 0); // as far from both
  EXPECT_EQ(nearestIndex(*canvas, {20, 0, 0}), 1);
  EXPECT_EQ(nearestIndex(*canvas, {255, 255, 255}), 1); // the fourth entry is not among the known ones
  setPalette(*canvas, 0, palette, 4, 4);
  EXPECT_EQ(nearestIndex(*canvas, {255, 255, 255}), 3); // answers are forgotten with the palette
}

TEST(CanvasTest, TheTransparentColourIsLeftOut) {
  const Canvas canvas = indexedCanvas(4, 1);
  canvas->transparentColour = 5;
  canvas->transparent = canvas->palette[5];
  const unsigned char data[] = {4, 5, 6, 5};
  writeIndexRow(*canvas, 0, 0, data, 4);
  EXPECT_EQ(canvasRow(*canvas, 0)[1], 0);
  EXPECT_EQ(canvasRow(*canvas, 0)[2], 6);
  writeRgb(*canvas, 0, 0, canvas->palette[5]);
  EXPECT_EQ(canvasRow(*canvas, 0)[0], 4);
}

TEST(LayerTest, BlendsBySteps) {
  const Canvas canvas = trueCanvas(4, 1);
  const unsigned char start[] = {100, 100, 100, 200, 0, 40, 0, 0, 0, 10, 20, 30};
  writeRgbRow(*canvas, 0, 0, start, 4);
  ASSERT_TRUE(openLayer(*canvas));
  setCanvasAlpha(*canvas, 127);
  canvasRectangle(*canvas, 0, 0, 2, 0, 0, {200, 50, 250});
  closeLayer(*canvas, true);
  // old + ((new - old) * 128 >> 8)
  EXPECT_EQ(readRgb(*canvas, 0, 0), (Rgb{150, 75, 175}));
  EXPECT_EQ(readRgb(*canvas, 1, 0), (Rgb{200, 25, 145}));
  EXPECT_EQ(readRgb(*canvas, 2, 0), (Rgb{100, 25, 125}));
  EXPECT_EQ(readRgb(*canvas, 3, 0), (Rgb{10, 20, 30})); // outside the layer's drawing
}

TEST(LayerTest, OverTheBackgroundTheColourIsCopied) {
  for (bool white : {false, true}) {
    const Canvas canvas = trueCanvas(1, 1, white);
    ASSERT_TRUE(openLayer(*canvas));
    setCanvasAlpha(*canvas, 100);
    canvasRectangle(*canvas, 0, 0, 0, 0, 0, {1, 2, 3});
    closeLayer(*canvas, false);
    EXPECT_EQ(readRgb(*canvas, 0, 0), (Rgb{1, 2, 3})) << white;
  }
}

TEST(LayerTest, OpaqueColoursAreCopiedAndClearOnesDoNothing) {
  const Canvas canvas = trueCanvas(2, 1);
  canvasRectangle(*canvas, 0, 0, 1, 0, 0, {9, 9, 9});
  ASSERT_TRUE(openLayer(*canvas));
  canvasRectangle(*canvas, 0, 0, 0, 0, 0, {1, 2, 3});
  setCanvasAlpha(*canvas, 0);
  canvasRectangle(*canvas, 1, 0, 1, 0, 0, {4, 5, 6});
  closeLayer(*canvas, true);
  EXPECT_EQ(readRgb(*canvas, 0, 0), (Rgb{1, 2, 3}));
  EXPECT_EQ(readRgb(*canvas, 1, 0), (Rgb{9, 9, 9}));
}

TEST(LayerTest, IsEmptyWhenItIsOpenedAgain) {
  const Canvas canvas = trueCanvas(1, 1);
  ASSERT_TRUE(openLayer(*canvas));
  canvasRectangle(*canvas, 0, 0, 0, 0, 0, {1, 2, 3});
  closeLayer(*canvas, true);
  canvasRectangle(*canvas, 0, 0, 0, 0, 0, {50, 50, 50});
  ASSERT_TRUE(openLayer(*canvas));
  closeLayer(*canvas, true);
  EXPECT_EQ(readRgb(*canvas, 0, 0), (Rgb{50, 50, 50}));
}

TEST(LayerTest, ThereIsNoneOverAPalette) { EXPECT_FALSE(openLayer(*indexedCanvas(1, 1))); }

} // namespace
} // namespace quilla

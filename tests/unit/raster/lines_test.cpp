#include "raster_fixture.h"

#include <climits>
#include <cstdlib>
#include <random>

namespace quilla {
namespace {

TEST(LinesTest, AMoveAloneDrawsNothing) {
  const Canvas canvas = indexedCanvas(3, 1);
  canvasLine(*canvas, 1, 0, kCanvasMove);
  canvasLine(*canvas, 2, 0, kCanvasMove);
  flushCanvas(*canvas);
  EXPECT_EQ(drawn(*canvas), "...\n");
}

TEST(LinesTest, AMoveAndADrawToTheSamePointMakeADot) {
  const Canvas canvas = indexedCanvas(3, 1);
  polyline(*canvas, {{1, 0}, {1, 0}});
  EXPECT_EQ(drawn(*canvas), ".#.\n");
}

// Error term from -longer / 2: the step comes when it rises above 0.
TEST(LinesTest, StepsLikeTheErrorTerm) {
  const Canvas canvas = indexedCanvas(7, 3);
  polyline(*canvas, {{0, 0}, {6, 2}});
  EXPECT_EQ(drawn(*canvas), "##.....\n"
                            "..###..\n"
                            ".....##\n");
}

TEST(LinesTest, BothEndsAreDrawn) {
  const Canvas canvas = indexedCanvas(4, 4);
  polyline(*canvas, {{0, 0}, {3, 0}, {3, 3}, {0, 3}, {0, 0}});
  EXPECT_EQ(drawn(*canvas), "####\n#..#\n#..#\n####\n");
}

// The plain walk of every step, each tested against the clip.
void slowLine(std::string& text, int width, const PixelBox& clip, int x1, int y1, int x2, int y2) {
  const long long dx = std::llabs(1LL * x2 - x1), dy = std::llabs(1LL * y2 - y1);
  const int sx = x2 < x1 ? -1 : 1, sy = y2 < y1 ? -1 : 1;
  const bool steep = dy > dx;
  const long long d = steep ? dy : dx, m = steep ? dx : dy;
  long long e = -(d / 2), x = x1, y = y1;
  for (long long i = 0; i <= d; ++i) {
    if (x >= clip.x1 && x <= clip.x2 && y >= clip.y1 && y <= clip.y2)
      text[static_cast<std::size_t>(y * (width + 1) + x)] = '#';
    e += m;
    (steep ? y : x) += steep ? sy : sx;
    if (e > 0) {
      (steep ? x : y) += steep ? sx : sy;
      e -= d;
    }
  }
}

TEST(LinesTest, ClippedLinesKeepTheirPixels) {
  std::mt19937 random(7);
  const int width = 40, height = 30;
  const PixelBox clip = {5, 4, 33, 27};
  auto number = [&random](int low, int high) {
    return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
  };
  for (int k = 0; k < 3000; ++k) {
    const Canvas canvas = indexedCanvas(width, height);
    setCanvasClip(*canvas, clip);
    const int x1 = number(-80, 120), y1 = number(-80, 120), x2 = number(-80, 120), y2 = number(-80, 120);
    polyline(*canvas, {{x1, y1}, {x2, y2}});
    std::string wanted;
    for (int y = 0; y < height; ++y) wanted += std::string(width, '.') + '\n';
    slowLine(wanted, width, clip, x1, y1, x2, y2);
    ASSERT_EQ(drawn(*canvas), wanted) << x1 << ' ' << y1 << ' ' << x2 << ' ' << y2;
  }
}

TEST(LinesTest, FarPointsAreSafe) {
  const int far = 1000000000;
  for (int width : {1, 2, 3, 9}) {
    for (bool trueColour : {false, true}) {
      const Canvas canvas = trueColour ? trueCanvas(9, 9) : indexedCanvas(9, 9);
      canvas->antialias = true;
      setCanvasPen(*canvas, width, kCanvasCapRound, kCanvasJoinRound);
      polyline(*canvas, {{-far, 4}, {far, 4}});
      EXPECT_EQ(drawn(*canvas).substr(4 * 10, 9), "#########") << width;
      polyline(*canvas, {{-far, -far}, {far, far}, {far, -far}, {-far, far}, {3, -far}, {4, far}});
    }
  }
}

TEST(LinesTest, AnEmptyClipTakesNothing) {
  const Canvas canvas = indexedCanvas(9, 9);
  setCanvasClip(*canvas, {20, 20, 30, 30});
  polyline(*canvas, {{0, 0}, {8, 8}, {0, 8}});
  canvasRectangle(*canvas, 0, 0, 8, 8, 1, {});
  setCanvasClip(*canvas, wholeCanvas(*canvas));
  EXPECT_EQ(drawn(*canvas).find('#'), std::string::npos);
}

TEST(LinesTest, A100thPointDrawsAndTheNextLineGoesOn) {
  const Canvas canvas = indexedCanvas(300, 1);
  canvasLine(*canvas, 0, 0, kCanvasMove);
  for (int x = 1; x < 250; ++x) canvasLine(*canvas, x, 0, kCanvasDraw);
  EXPECT_EQ(canvasRow(*canvas, 0)[99], 1);
  EXPECT_EQ(canvasRow(*canvas, 0)[249], 0); // not drawn yet
  flushCanvas(*canvas);
  for (int x = 0; x < 300; ++x) ASSERT_EQ(canvasRow(*canvas, 0)[x], x < 250 ? 1 : 0) << x;
}

TEST(LinesTest, TheOldColourDrawsWhatWaits) {
  const Canvas canvas = indexedCanvas(4, 1);
  canvasLine(*canvas, 0, 0, kCanvasMove);
  canvasLine(*canvas, 1, 0, kCanvasDraw);
  setCanvasColour(*canvas, 9, canvas->palette[9]);
  canvasLine(*canvas, 3, 0, kCanvasDraw);
  flushCanvas(*canvas);
  EXPECT_EQ(canvasRow(*canvas, 0)[0], 1);
  EXPECT_EQ(canvasRow(*canvas, 0)[3], 9);
}

TEST(LinesTest, DotsByCap) {
  const Canvas canvas = indexedCanvas(7, 7);
  setCanvasPen(*canvas, 5, kCanvasCapCut, 0);
  polyline(*canvas, {{3, 3}, {3, 3}});
  EXPECT_EQ(drawn(*canvas), ".......\n.......\n.......\n...#...\n.......\n.......\n.......\n");
  setCanvasPen(*canvas, 5, kCanvasCapRound, 0);
  polyline(*canvas, {{3, 3}, {3, 3}});
  EXPECT_EQ(drawn(*canvas), ".......\n..###..\n.#####.\n.#####.\n.#####.\n..###..\n.......\n");
  setCanvasPen(*canvas, 5, kCanvasCapLong, 0);
  polyline(*canvas, {{3, 3}, {3, 3}});
  EXPECT_EQ(drawn(*canvas), ".......\n.#####.\n.#####.\n.#####.\n.#####.\n.#####.\n.......\n");
}

TEST(LinesTest, TwoAndThreePixelsWide) {
  const Canvas canvas = indexedCanvas(6, 6);
  setCanvasPen(*canvas, 2, kCanvasCapCut, 0);
  polyline(*canvas, {{1, 1}, {4, 1}, {4, 4}, {1, 4}, {1, 1}});
  EXPECT_EQ(drawn(*canvas), "#####.\n#####.\n##.##.\n#####.\n#####.\n......\n");
}

TEST(LinesTest, ThickLinesByCap) {
  const std::string body = "..........\n..######..\n..######..\n..######..\n..######..\n..........\n";
  const Canvas canvas = indexedCanvas(10, 6);
  setCanvasPen(*canvas, 4, kCanvasCapCut, 0);
  polyline(*canvas, {{2, 2}, {7, 2}}); // rows above 0 and up to 4
  EXPECT_EQ(drawn(*canvas), body);
  setCanvasPen(*canvas, 4, kCanvasCapLong, 0);
  polyline(*canvas, {{2, 2}, {7, 2}});
  EXPECT_EQ(drawn(*canvas).substr(11, 10), "##########"); // longer by half the width
}

TEST(LinesTest, ThickCornersByJoin) {
  auto corner = [](int join) {
    Canvas canvas = indexedCanvas(30, 30);
    setCanvasPen(*canvas, 8, kCanvasCapCut, join);
    polyline(*canvas, {{5, 10}, {20, 10}, {20, 25}});
    return canvas;
  };
  auto at = [](const Canvas& canvas, int x, int y) { return static_cast<int>(canvasRow(*canvas, y)[x]); };
  const Canvas sharp = corner(kCanvasJoinSharp), round = corner(kCanvasJoinRound), cut = corner(kCanvasJoinTruncated);
  EXPECT_EQ(at(sharp, 23, 7), 1); // the tip
  EXPECT_EQ(at(round, 23, 7), 0);
  EXPECT_EQ(at(cut, 23, 7), 0);
  EXPECT_EQ(at(round, 23, 8), 1);
  EXPECT_EQ(at(cut, 23, 8), 0);
  for (const Canvas* c : {&sharp, &round, &cut}) EXPECT_EQ(at(*c, 20, 10), 1);
}

TEST(LinesTest, ASharpCornerHasItsLimit) {
  auto tip = [](float miter) {
    const Canvas canvas = indexedCanvas(100, 40);
    setCanvasPen(*canvas, 8, kCanvasCapCut, kCanvasJoinSharp);
    canvas->lineMiter = miter;
    polyline(*canvas, {{5, 15}, {50, 20}, {5, 25}});
    int right = 0;
    for (int x = 0; x < 100; ++x) {
      if (canvasRow(*canvas, 20)[x]) right = x;
    }
    return right;
  };
  EXPECT_LE(tip(2.0F), 54);
  EXPECT_GE(tip(20.0F), 80);
}

TEST(SmoothLinesTest, NeighboursShareTheColour) {
  const Canvas canvas = trueCanvas(9, 4);
  canvas->antialias = true;
  polyline(*canvas, {{0, 0}, {8, 2}}); // y = x / 4
  auto grey = [&canvas](int x, int y) { return static_cast<int>(readRgb(*canvas, x, y).r); };
  EXPECT_EQ(grey(0, 0), 255);
  EXPECT_EQ(grey(8, 2), 255);
  EXPECT_EQ(grey(1, 0), 191); // 255 * 0.75 + 0.5
  EXPECT_EQ(grey(1, 1), 64);
  EXPECT_EQ(grey(2, 0), 128);
  EXPECT_EQ(grey(2, 1), 128);
  EXPECT_EQ(grey(4, 1), 255);
  EXPECT_EQ(grey(4, 2), 0);
}

TEST(SmoothLinesTest, StraightAndDiagonalLinesStayCrisp) {
  const Canvas canvas = trueCanvas(6, 6);
  canvas->antialias = true;
  polyline(*canvas, {{0, 0}, {5, 5}});
  for (int i = 0; i < 6; ++i) EXPECT_EQ(readRgb(*canvas, i, i), (Rgb{255, 255, 255}));
  EXPECT_EQ(readRgb(*canvas, 1, 0), (Rgb{0, 0, 0}));
}

TEST(SymbolsTest, KnownShapes) {
  auto symbol = [](int number) {
    const Canvas canvas = indexedCanvas(7, 7);
    canvasSymbol(*canvas, number, 3, 3, 4);
    return drawn(*canvas);
  };
  EXPECT_EQ(symbol(3), ".......\n...#...\n...#...\n.#####.\n...#...\n...#...\n.......\n");
  EXPECT_EQ(symbol(4), ".......\n.#...#.\n..#.#..\n...#...\n..#.#..\n.#...#.\n.......\n");
  EXPECT_EQ(symbol(0), ".......\n.#####.\n.#...#.\n.#...#.\n.#...#.\n.#####.\n.......\n");
  EXPECT_EQ(symbol(16), ".......\n.#####.\n.#####.\n.#####.\n.#####.\n.#####.\n.......\n");
  EXPECT_EQ(symbol(5), ".......\n...#...\n..#.#..\n.#...#.\n..#.#..\n...#...\n.......\n");
  EXPECT_EQ(symbol(19), ".......\n...#...\n..###..\n.#####.\n..###..\n...#...\n.......\n");
  EXPECT_EQ(symbol(24).find('#'), std::string::npos);
  EXPECT_EQ(symbol(-1).find('#'), std::string::npos);
  for (int n = 0; n < 24; ++n) EXPECT_NE(symbol(n).find('#'), std::string::npos) << n;
}

} // namespace
} // namespace quilla

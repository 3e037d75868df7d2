#include "raster_fixture.h"

#include <cmath>
#include <limits>

namespace quilla {
namespace {

std::string filled(int width, int height, std::initializer_list<std::pair<float, float>> corners) {
  const Canvas canvas = indexedCanvas(width, height);
  std::vector<float> xs, ys;
  for (const auto& [x, y] : corners) {
    xs.push_back(x);
    ys.push_back(y);
  }
  EXPECT_EQ(canvasFill(*canvas, xs.data(), ys.data(), static_cast<int>(xs.size())), FillResult::kFine);
  return drawn(*canvas);
}

// Rows above the upper edge and up to the lower one; columns with both ends.
TEST(PolygonsTest, ColumnsHaveBothEnds) {
  EXPECT_EQ(filled(6, 5, {{1, 1}, {4, 1}, {4, 3}, {1, 3}}), "......\n......\n.####.\n.####.\n......\n");
}

TEST(PolygonsTest, NeighboursShareOneColumn) {
  const Canvas canvas = indexedCanvas(8, 3);
  const float left[] = {0, 3, 3, 0}, right[] = {3, 7, 7, 3}, ys[] = {0, 0, 2, 2};
  canvasFill(*canvas, left, ys, 4);
  EXPECT_EQ(canvasRow(*canvas, 1)[3], 1);
  setCanvasColour(*canvas, 2, canvas->palette[2]);
  canvasFill(*canvas, right, ys, 4);
  EXPECT_EQ(canvasRow(*canvas, 1)[2], 1);
  EXPECT_EQ(canvasRow(*canvas, 1)[3], 2);
}

TEST(PolygonsTest, AVertexOnARowCountsOnce) {
  // The left and right vertices lie exactly on row 3.
  EXPECT_EQ(filled(7, 7, {{3, 0}, {6, 3}, {3, 6}, {0, 3}}),
            ".......\n..###..\n.#####.\n#######\n.#####.\n..###..\n...#...\n");
}

TEST(PolygonsTest, EvenOdd) {
  // A square in a square, joined by a seam.
  EXPECT_EQ(
      filled(9, 9, {{0, 0}, {8, 0}, {8, 8}, {0, 8}, {0, 0}, {2, 2}, {6, 2}, {6, 6}, {2, 6}, {2, 2}}).substr(40, 9),
      "###...###");
}

TEST(PolygonsTest, NinetyNineCrossingsAreTheMost) {
  // Teeth: each adds two crossings of row 1.
  auto teeth = [](int n) {
    std::vector<float> xs, ys;
    for (int i = 0; i < n; ++i) {
      xs.insert(xs.end(), {static_cast<float>(4 * i), static_cast<float>(4 * i + 2)});
      ys.insert(ys.end(), {0.0F, 2.0F});
    }
    xs.push_back(static_cast<float>(4 * n));
    ys.push_back(0.0F);
    const Canvas canvas = indexedCanvas(4 * n + 1, 4);
    return canvasFill(*canvas, xs.data(), ys.data(), static_cast<int>(xs.size()));
  };
  EXPECT_EQ(teeth(49), FillResult::kFine);
  EXPECT_EQ(teeth(50), FillResult::kTooManyCrossings);
}

// A circle of many corners, by the list of active edges, equals the sum of its rows by arithmetic.
TEST(PolygonsTest, ManyCorners) {
  const int n = 1000;
  std::vector<float> xs, ys;
  for (int i = 0; i < n; ++i) {
    const double a = 6.283185307179586 * i / n;
    xs.push_back(static_cast<float>(50.0 + 40.0 * std::cos(a)));
    ys.push_back(static_cast<float>(50.0 + 40.0 * std::sin(a)));
  }
  const Canvas canvas = indexedCanvas(101, 101);
  EXPECT_EQ(canvasFill(*canvas, xs.data(), ys.data(), n), FillResult::kFine);
  for (int y = 12; y < 89; ++y) {
    const double half = std::sqrt(1600.0 - (y - 50.0) * (y - 50.0));
    int count = 0;
    for (int x = 0; x < 101; ++x) count += canvasRow(*canvas, y)[x];
    EXPECT_NEAR(count, 2 * half + 1, 1.5) << y;
  }
}

TEST(PolygonsTest, IsCutAtTheClip) {
  const Canvas canvas = indexedCanvas(5, 5);
  setCanvasClip(*canvas, {1, 1, 3, 3});
  const float xs[] = {-1e9F, 1e9F, 1e9F, -1e9F}, ys[] = {-1e9F, -1e9F, 1e9F, 1e9F};
  canvasFill(*canvas, xs, ys, 4);
  EXPECT_EQ(drawn(*canvas), ".....\n.###.\n.###.\n.###.\n.....\n");
}

TEST(PolygonsTest, BrokenNumbersAreSafe) {
  const float inf = std::numeric_limits<float>::infinity(), nan = std::numeric_limits<float>::quiet_NaN();
  const Canvas canvas = indexedCanvas(5, 5);
  const float xs[] = {nan, inf, -inf, 3e38F}, ys[] = {inf, nan, -inf, -3e38F};
  canvasFill(*canvas, xs, ys, 4);
  canvasFill(*canvas, xs, ys, 0);
  canvasFill(*canvas, xs, ys, 1);
}

TEST(RectanglesTest, HaveBothCornersInAnyOrder) {
  const Canvas canvas = indexedCanvas(4, 3);
  canvasRectangle(*canvas, 2, 1, 1, 0, 1, {});
  EXPECT_EQ(drawn(*canvas), ".##.\n.##.\n....\n");
  canvasRectangle(*canvas, -100, -100, 100, 100, 0, {});
  EXPECT_EQ(drawn(*canvas), "....\n....\n....\n");
}

} // namespace
} // namespace quilla

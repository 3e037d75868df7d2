// Dashes and clipping against small models of their own, on lines by a fixed pseudo-random sequence.
#include <algorithm>
#include <cmath>

#include "core/clipper.h"
#include "core/pipeline.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

struct Sequence {
  unsigned seed = 12345;
  float next(float low, float high) {
    seed = seed * 1664525U + 1013904223U;
    return low + (high - low) * static_cast<float>(seed >> 8) / 16777216.0F;
  }
};

// The visible part by sampling: the share of points of the segment that lie in the region.
double sampledShare(const ClipRegion& region, const Segment& s) {
  constexpr int kSamples = 20000;
  int inside = 0;
  for (int i = 0; i < kSamples; i++) {
    float t = (static_cast<float>(i) + 0.5F) / kSamples;
    if (insideRegion(region, s.x0 + (s.x1 - s.x0) * t, s.y0 + (s.y1 - s.y0) * t)) inside++;
  }
  return static_cast<double>(inside) / kSamples;
}

TEST(ClipModel, VisiblePartsHaveTheSampledLength) {
  Sequence random;
  for (int i = 0; i < 400; i++) {
    ClipRegion region{{100, 100, 300, 250}, i % 2 == 1, {random.next(100, 300), random.next(100, 250), 80}};
    Segment whole{random.next(0, 400), random.next(0, 400), random.next(0, 400), random.next(0, 400)}, part = whole;
    ClipResult result = clipSegment(region, part);
    double length = std::hypot(whole.x1 - whole.x0, whole.y1 - whole.y0);
    double shown = result.visible ? std::hypot(part.x1 - part.x0, part.y1 - part.y0) : 0.0;
    EXPECT_NEAR(shown / length, sampledShare(region, whole), 0.002) << i;
    if (!result.visible) continue;
    EXPECT_EQ(result.firstMoved, part.x0 != whole.x0 || part.y0 != whole.y0);
    EXPECT_EQ(result.secondMoved, part.x1 != whole.x1 || part.y1 != whole.y1);
  }
}

class DashModel : public PlotTest {};

// The drawn length of a dashed line through random points, against the pattern laid along the whole length.
TEST_F(DashModel, PhaseRunsOnThroughCorners) {
  open();
  int pattern[] = {17, 5, 3, 9};
  MYLINE(pattern, 4);
  Sequence random;
  double total = 0;
  float x = 1000, y = 1000;
  penMove(state(), x, y);
  for (int i = 0; i < 300; i++) {
    float nx = random.next(500, 1500), ny = random.next(500, 1500);
    total += std::hypot(static_cast<double>(nx) - x, static_cast<double>(ny) - y);
    penDraw(state(), nx, ny);
    x = nx;
    y = ny;
  }
  double rest = std::fmod(total, 34.0);
  double wanted = std::floor(total / 34.0) * 20.0 + std::min(rest, 17.0) + std::clamp(rest - 22.0, 0.0, 3.0);
  double drawn = 0;
  int dashes = 0;
  QUIFIN();
  for (const std::string& line : linesOf("trace.txt")) {
    float px = 0, py = 0;
    bool move = sscanf(line.c_str(), "move %f %f", &px, &py) == 2;
    if (!move && sscanf(line.c_str(), "draw %f %f", &px, &py) != 2) continue;
    if (move) {
      dashes++;
    } else {
      drawn += std::hypot(static_cast<double>(px) - x, static_cast<double>(py) - y);
    }
    x = px;
    y = py;
  }
  EXPECT_NEAR(drawn, wanted, total * 1e-4);
  EXPECT_NEAR(dashes, total / 34.0 * 2.0, 2.0);
}

TEST_F(DashModel, OddPatternsTurnRound) {
  open();
  int pattern[] = {10, 20, 30}; // drawn 10, gap 20, drawn 30, gap 10, drawn 20, gap 30
  MYLINE(pattern, 3);
  LINE(0, 100, 120, 100);
  EXPECT_EQ(traced("move"), (std::vector<std::string>{"0.00 100.00", "30.00 100.00", "70.00 100.00"}));
  EXPECT_EQ(traced("draw"), (std::vector<std::string>{"10.00 100.00", "60.00 100.00", "90.00 100.00"}));
}

} // namespace

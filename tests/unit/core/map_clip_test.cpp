// What the pipeline does differently while a map is open.
#include "core/clipper.h"
#include "core/pipeline.h"
#include "graph2d/scaling.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;

class MapClip : public PlotTest {
protected:
  // A plot with a map axis system as the pipeline sees it.
  void openMap(int code, bool globe = false) {
    open();
    GRAF(0, 10, 0, 1, 0, 10, 0, 1);
    flushPath(state());
    state()->axis.axisSystemKind = kSystemMap;
    state()->map.projection.code = code;
    state()->map.globe = globe;
    state()->map.mapOriginX = 1000;
    state()->map.mapOriginY = 900;
    state()->map.globeRadius = 400;
    vectors = state()->counters.vectorCount;
  }

  int drawn() {
    flushPath(state());
    return state()->counters.vectorCount - vectors;
  }

  int vectors = 0;
};

TEST(MapClipper, ALineFromSideToSideIsDropped) {
  ClipRegion region{{0, 0, 100, 50}, false, {0, 0, 0}};
  region.dropAcross = true;
  Segment right{-10, 20, 110, 30}, left{110, 20, -10, 30}, upward{50, -10, 50, 60}, partly{50, 20, 110, 20};
  EXPECT_FALSE(clipSegment(region, right).visible);
  EXPECT_FALSE(clipSegment(region, left).visible);
  EXPECT_TRUE(clipSegment(region, upward).visible);
  EXPECT_TRUE(clipSegment(region, partly).visible);
  region.dropAcross = false;
  EXPECT_TRUE(clipSegment(region, right).visible);
}

TEST(MapClipper, AGlobeKeepsOnlyWholeSegments) {
  ClipRegion region{{0, 0, 100, 100}, true, {50, 50, 40}};
  region.wholeOnly = true;
  Segment inside{50, 50, 80, 50}, leaving{50, 50, 99, 50}, across{1, 50, 99, 50};
  EXPECT_TRUE(clipSegment(region, inside).visible);
  EXPECT_FALSE(clipSegment(region, leaving).visible);
  EXPECT_FALSE(clipSegment(region, across).visible);
}

TEST_F(MapClip, ConicalMapsDropLinesFromEdgeToEdge) {
  openMap(kProjConformal);
  XMOVE(-50, 500);
  XDRAW(4000, 500);
  EXPECT_EQ(drawn(), 0);
  state()->map.projection.code = kProjMercator;
  XMOVE(-50, 500);
  XDRAW(4000, 500);
  EXPECT_EQ(drawn(), 1);
}

TEST_F(MapClip, AClosedMapClipsNoMore) {
  openMap(kProjConformal);
  ENDGRF();
  vectors = state()->counters.vectorCount;
  XMOVE(-50, 500);
  XDRAW(4000, 500);
  EXPECT_EQ(drawn(), 1);
}

TEST_F(MapClip, GlobesAreCutAtTheirCircle) {
  openMap(kProjOrthographic, true);
  axisClipOn(state());
  EXPECT_TRUE(state()->clip.clipIsCircle);
  EXPECT_FLOAT_EQ(state()->clip.clipCenterX, 1000);
  EXPECT_FLOAT_EQ(state()->clip.clipRadius, 400);
  XMOVE(1000, 900);
  XDRAW(1200, 900);
  XDRAW(1500, 900); // leaves the circle
  XDRAW(1200, 1000);
  EXPECT_EQ(drawn(), 1);
  axisClipOff(state());
  EXPECT_FALSE(state()->clip.clipIsCircle);
}

TEST_F(MapClip, OtherModesCutAGlobeAtTheRectangle) {
  openMap(kProjOrthographic, true);
  CLPMOD("RECT");
  axisClipOn(state());
  EXPECT_FALSE(state()->clip.clipIsCircle);
  EXPECT_TRUE(state()->clip.axisClipActive);
}

TEST_F(MapClip, APieceOfTheSphereHasARectangle) {
  openMap(kProjOrthographic, false);
  axisClipOn(state());
  EXPECT_FALSE(state()->clip.clipIsCircle);
}

TEST_F(MapClip, DevicesFillNoPolygonsOfAzimuthalMaps) {
  openMap(kProjStereographic, true);
  const float x[] = {900, 1000, 1000}, y[] = {900, 900, 950};
  fillSolid(state(), x, y, 3);
  EXPECT_GT(drawn(), 3);
  EXPECT_TRUE(traced("fill").empty());
}

TEST_F(MapClip, DevicesFillPolygonsOfOtherMaps) {
  openMap(kProjConformal);
  const float x[] = {900, 1000, 1000}, y[] = {900, 900, 950};
  fillSolid(state(), x, y, 3);
  EXPECT_EQ(drawn(), 0);
  EXPECT_EQ(traced("fill").size(), 1U);
}

} // namespace

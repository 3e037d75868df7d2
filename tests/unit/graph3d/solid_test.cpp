// Shaded surfaces, solids and vertices, as the depth list paints them.
#include <cmath>
#include <set>

#include "graph3d/facets.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

class Solids : public PlotTest {
protected:
  void openBox(const char* format = "SVG") {
    std::filesystem::remove("trace.txt");
    open(format);
    NOGRAF();
    GRAF3D(-1, 1, -1, 1, -1, 1, -1, 1, -1, 1, -1, 1);
  }
  void openList() {
    openBox();
    ASSERT_EQ(DBFINI(), 0);
  }
  // Triangles that were filled; the plot is finished first.
  std::size_t triangles() {
    if (state()->depthState.list) DBFFIN();
    return traced("fill").size();
  }
  std::set<std::string> colors() {
    std::set<std::string> found;
    for (const std::string& color : traced("color")) found.insert(color);
    return found;
  }
  template <class Action> static std::string warning(Action action) {
    const std::string text = outputOf(action);
    const std::size_t start = text.find("Warning");
    return start == std::string::npos ? text : text.substr(start, text.find('!', start) - start);
  }
};

float parametric(float a, float b, int coordinate) { return coordinate == 1 ? a : coordinate == 2 ? b : a * b; }

} // namespace

// Each of the 4 x 3 facets is a quadrangle, or a triangle at the poles; all are cut into two triangles.
TEST_F(Solids, Sphere) {
  openList();
  SPHE3D(0, 0, 0, 0.5F, 4, 3);
  EXPECT_EQ(triangles(), 4U * 3U * 2U);
}

// The circle on which a sphere of radius r around the middle is seen from a distance d has the radius r / sqrt(1 - r*r
// / (d*d)) at the middle, here 0.5 / sqrt(1 - 0.25 / 57) = 0.5011.
TEST_F(Solids, SphereIsRound) {
  openList();
  SPHE3D(0, 0, 0, 0.5F, 60, 40);
  DBFFIN();
  const ViewState& v = state()->viewState;
  const double distance = std::sqrt(57.0), radius = 0.5 / std::sqrt(1.0 - 0.25 / 57.0);
  const double expected = static_cast<double>(v.scale) * radius / (distance * std::tan(0.2449787));
  double farthest = 0.0;
  const double cx = static_cast<double>(v.centerX), cy = static_cast<double>(v.centerY);
  for (const std::string& fill : traced("fill")) {
    double x[3], y[3];
    ASSERT_EQ(std::sscanf(fill.c_str(), "3 %lf %lf %lf %lf %lf %lf", x, y, x + 1, y + 1, x + 2, y + 2), 6);
    for (int i = 0; i < 3; i++) farthest = std::fmax(farthest, std::hypot(x[i] - cx, y[i] - cy));
  }
  EXPECT_NEAR(farthest, expected, 0.005 * expected);
}

TEST_F(Solids, NothingOfNoRadius) {
  openList();
  SPHE3D(0, 0, 0, 0, 10, 10);
  CYLI3D(0, 0, 0, 0, 1, 10, 10);
  CONE3D(0, 0, 0, 0, 1, 1, 10, 10);
  TUBE3D(0, 0, 0, 0, 0, 0, 0.5F, 10, 10); // no length
  PLAT3D(0, 0, 0, 0, "ICOS");
  EXPECT_EQ(triangles(), 0U);
}

TEST_F(Solids, DegenerateCounts) {
  openList();
  EXPECT_EQ(outputOf([] {
              SPHE3D(0, 0, 0, 0.5F, 1, 5);
              SPHE3D(0, 0, 0, 0.5F, 5, 1);
            }),
            "");
  EXPECT_NE(warning([] { SPHE3D(0, 0, 0, 0.5F, 0, 5); }).find("Warning 2:"), std::string::npos);
  EXPECT_NE(warning([] { TORUS3D(0, 0, 0, 0.2F, 0.5F, 0.2F, 0, 360, 5, 0); }).find("Warning 2:"), std::string::npos);
}

// Culled, a box shows three of its six sides from a corner; a closed solid half of its faces.
TEST_F(Solids, Culling) {
  openList();
  SHDMOD("ON", "CULL");
  QUAD3D(0, 0, 0, 1, 1, 1);
  EXPECT_EQ(triangles(), 3U * 2U);
  openList();
  SHDMOD("FRONT", "CULL");
  QUAD3D(0, 0, 0, 1, 1, 1);
  EXPECT_EQ(triangles(), 3U * 2U);
  openList();
  QUAD3D(0, 0, 0, 1, 1, 1);
  EXPECT_EQ(triangles(), 6U * 2U);
}

// Faces, and triangles of each: 6 squares, 4, 8 and 20 triangles, and 12 fans of five.
TEST_F(Solids, RegularSolids) {
  struct Case {
    const char* kind;
    std::size_t triangles;
  };
  for (const Case& c : {Case{"CUBE", 12}, Case{"TETR", 4}, Case{"OCTA", 8}, Case{"DODE", 60}, Case{"ICOS", 20}}) {
    openList();
    PLAT3D(0, 0, 0, 0.4F, c.kind);
    EXPECT_EQ(triangles(), c.triangles) << c.kind;
  }
}

// Sides of a regular solid look away from its middle: culling leaves those that the eye sees, at most half and one
// more.
TEST_F(Solids, RegularSolidsLookOutwards) {
  for (const char* kind : {"OCTA", "DODE", "ICOS"}) {
    openList();
    PLAT3D(0, 0, 0, 0.4F, kind);
    const std::size_t all = triangles();
    openList();
    SHDMOD("ON", "CULL");
    PLAT3D(0, 0, 0, 0.4F, kind);
    const std::size_t front = triangles();
    openList();
    SHDMOD("FRONT", "CULL");
    PLAT3D(0, 0, 0, 0.4F, kind);
    EXPECT_EQ(front + triangles(), all) << kind;
    EXPECT_GE(front * 4, all) << kind;
  }
}

// The lower side of a closed solid is its inner one: what is seen of it are the faces behind.
TEST_F(Solids, InnerSide) {
  openList();
  SURCLR(33, 44);
  SURVIS("BOTT");
  QUAD3D(0, 0, 0, 1, 1, 1);
  EXPECT_EQ(triangles(), 3U * 2U);
  std::set<std::string> found = colors();
  EXPECT_TRUE(found.contains("0x0000002c"));
  EXPECT_FALSE(found.contains("0x00000021"));
  openList();
  SURCLR(33, 44);
  SURVIS("BOTH");
  QUAD3D(0, 0, 0, 1, 1, 1);
  EXPECT_EQ(triangles(), 6U * 2U);
  found = colors();
  EXPECT_TRUE(found.contains("0x0000002c"));
  EXPECT_TRUE(found.contains("0x00000021"));
}

TEST_F(Solids, NeedABuffer) {
  openBox("PDF");
  EXPECT_EQ(warning([] { QUAD3D(0, 0, 0, 1, 1, 1); }), "Warning 115: No initialization of z-buffer in quad3d");
  QUIFIN();
  openBox("SVG");
  EXPECT_EQ(warning([] { SPHE3D(0, 0, 0, 1, 5, 5); }),
            "Warning 40: File format and output device are incompatible in sphe3d");
}

// Five vertices make two pairs.
TEST_F(Solids, Vertices) {
  const float x[] = {-0.5F, 0.5F, 0.5F, -0.5F, -0.7F}, y[] = {-0.5F, -0.5F, 0.5F, 0.5F, 0.2F}, z[] = {0, 0, 0, 0, 0};
  openBox();
  VTX3D(x, y, z, 5, "LINE");
  EXPECT_EQ(traced("draw").size(), 2U);
  openBox();
  VTX3D(x, y, z, 5, "CURV");
  EXPECT_EQ(traced("draw").size(), 4U);
  openBox();
  VTX3D(x, y, z, 5, "PLIN");
  EXPECT_EQ(traced("draw").size(), 5U);
  struct Case {
    const char* mode;
    int n;
    std::size_t triangles;
  };
  for (const Case& c : {Case{"TRIA", 5, 1}, Case{"TSTR", 5, 3}, Case{"POLY", 5, 3}, Case{"QUAD", 5, 2},
                        Case{"QSTR", 4, 2}, Case{"TRIA", 2, 0}}) {
    openList();
    VTX3D(x, y, z, c.n, c.mode);
    EXPECT_EQ(triangles(), c.triangles) << c.mode;
  }
}

TEST_F(Solids, Bars) {
  openList();
  SHDMOD("ON", "CULL");
  const float x[] = {-0.5F, 0.5F}, y[] = {0, 0}, z1[] = {-1, -1}, z2[] = {0, 0.5F}, w[] = {0.2F, 0.2F};
  const int bars[] = {41, 42};
  BARS3D(x, y, z1, z2, w, w, bars, 2);
  EXPECT_EQ(triangles(), 2U * 3U * 2U);
  const std::set<std::string> found = colors();
  EXPECT_TRUE(found.contains("0x00000029"));
  EXPECT_TRUE(found.contains("0x0000002a"));
}

// The scale runs from -1 to 1 over colours 1 to 254. A cell at 0.5 has the colour (0.5 + 1) * 127 + 1 = 191, one at 1
// the last colour.
TEST_F(Solids, SurfaceInTheColoursOfTheScale) {
  const float x[] = {-1, 0, 1}, y[] = {-1, 1}, z[] = {0.5F, 0.5F, 0.5F, 0.5F, 1, 1};
  openBox();
  SURSHD(x, 2, y, 2, z);
  EXPECT_EQ(triangles(), 2U);
  EXPECT_TRUE(colors().contains("0x000000bf"));
  openBox();
  const float top[] = {1, 1, 1, 1};
  SURSHD(x, 2, y, 2, top);
  EXPECT_TRUE(colors().contains("0x000000fe"));
  openBox();
  SURSHC(x, 2, y, 2, z, top);
  EXPECT_TRUE(colors().contains("0x000000fe"));
  openBox();
  ZSCALE(0.5F, 2.5F);
  SURSHD(x, 2, y, 2, z);
  EXPECT_TRUE(colors().contains("0x00000001"));
  openBox();
  ZSCALE(0.5F, 2.5F);
  RESET("ZSCALE");
  SURSHD(x, 2, y, 2, z);
  EXPECT_TRUE(colors().contains("0x000000bf"));
}

// SURVIS and the colours of the two sides.
TEST_F(Solids, SidesOfASurface) {
  const float x[] = {-1, 1}, y[] = {-1, 1}, z[] = {0, 0, 0, 0};
  for (const bool below : {false, true}) {
    for (const char* side : {"AUTO", "TOP", "BOTT", "BOTH"}) {
      std::filesystem::remove("trace.txt");
      open("SVG");
      NOGRAF();
      VIEW3D(4, -5, below ? -4 : 4, "ABS");
      GRAF3D(-1, 1, -1, 1, -1, 1, -1, 1, -1, 1, -1, 1);
      SHDMOD("OFF", "ZSCA");
      SURCLR(33, 44);
      SURVIS(side);
      SURSHD(x, 2, y, 2, z);
      const bool hidden = side == std::string(below ? "TOP" : "BOTT");
      EXPECT_EQ(triangles(), hidden ? 0U : 2U) << side << below;
      EXPECT_EQ(colors().contains(below ? "0x0000002c" : "0x00000021"), !hidden) << side << below;
    }
  }
}

TEST_F(Solids, ParametricSurface) {
  openBox();
  SURFCP(parametric, -1, 1, 0.5F, -1, 1, 1);
  EXPECT_EQ(triangles(), 4U * 2U * 2U);
  openBox();
  EXPECT_NE(warning([] { SURFCP(parametric, -1, 1, 0, -1, 1, 1); }).find("Warning 2:"), std::string::npos);
  EXPECT_NE(warning([] { SURFCP(parametric, 1, -1, 0.5F, -1, 1, 1); }).find("Warning 2:"), std::string::npos);
  EXPECT_NE(warning([] { SURFCP(parametric, 0, 1, 1e-9F, 0, 1, 1e-9F); }).find("Warning 2:"), std::string::npos);
}

TEST_F(Solids, Triangulation) {
  const float x[] = {-1, 1, 1, -1}, y[] = {-1, -1, 1, 1}, z[] = {0, 0, 0, 0};
  const int i1[] = {1, 1}, i2[] = {2, 3}, i3[] = {3, 4}, wrong[] = {3, 5};
  openBox();
  SURTRI(x, y, z, 4, i1, i2, i3, 2);
  EXPECT_EQ(triangles(), 2U);
  openBox();
  EXPECT_NE(warning([&] { SURTRI(x, y, z, 4, i1, i2, wrong, 2); }).find("Warning 2:"), std::string::npos);
  EXPECT_EQ(triangles(), 0U);
}

// Lines upon the facets, in a colour of their own, only or not at all.
TEST_F(Solids, Mesh) {
  const float x[] = {-1, 1}, y[] = {-1, 1}, z[] = {0, 0, 0, 0};
  struct Case {
    const char* mode;
    std::size_t fills, lines;
  };
  for (const Case& c : {Case{"OFF", 2, 0}, Case{"ON", 2, 4}, Case{"ONLY", 2, 4}, Case{"LINE", 0, 4}}) {
    openBox();
    MSHCLR(99);
    SURMSH(c.mode);
    SURSHD(x, 2, y, 2, z);
    EXPECT_EQ(triangles(), c.fills) << c.mode;
    EXPECT_EQ(traced("draw").size(), c.lines) << c.mode;
  }
}

// The light stands where the eye does, far above a level square: the diffuse part is nearly 0.8, the ambient one 0.04.
TEST_F(Solids, LitSurface) {
  const float x[] = {-0.1F, 0.1F}, y[] = {-0.1F, 0.1F}, z[] = {0, 0, 0, 0};
  std::filesystem::remove("trace.txt");
  open("SVG");
  NOGRAF();
  VIEW3D(0, 0, 50, "ABS");
  LITPOS(1, 0, 0, 50, "ABS");
  LITMOD(1, "ON");
  LIGHT("ON");
  GRAF3D(-1, 1, -1, 1, -1, 1, -1, 1, -1, 1, -1, 1);
  SURSHD(x, 2, y, 2, z);
  EXPECT_TRUE(colors().contains("0x01d6d6d6")); // 0.84 of 255 is 214
}

// Squares of the distance from the middle: the surface of the value 0.25 is a sphere of radius 0.5. Its corners lie on
// edges of a grid of 0.1, so that they are off it by a fraction of that at most.
TEST_F(Solids, SurfaceOfOneValue) {
  constexpr int kNodes = 17;
  float x[kNodes];
  for (int i = 0; i < kNodes; i++) x[i] = 0.1F * static_cast<float>(i - 8);
  std::vector<float> w;
  for (float a : x)
    for (float b : x)
      for (float c : x) w.push_back(a * a + b * b + c * c);
  std::filesystem::remove("trace.txt");
  open("SVG");
  NOGRAF();
  VIEW3D(0, 0, 500, "ABS"); // from so far the page shows x and y as they are
  VANG3D(0.2F);
  GRAF3D(-1, 1, -1, 1, -1, 1, -1, 1, -1, 1, -1, 1);
  SURISO(x, kNodes, x, kNodes, x, kNodes, w.data(), 0.25F);
  float px0 = 0, py0 = 0, px1 = 0, py1 = 0;
  REL3PT(0, 0, 0, &px0, &py0);
  REL3PT(1, 0, 0, &px1, &py1);
  const double unit = static_cast<double>(px1 - px0);
  double farthest = 0.0;
  std::size_t count = 0;
  for (const std::string& fill : traced("fill")) {
    double fx, fy;
    ASSERT_EQ(std::sscanf(fill.c_str(), "3 %lf %lf", &fx, &fy), 2);
    farthest = std::fmax(farthest, std::hypot(fx - static_cast<double>(px0), fy - static_cast<double>(py0)) / unit);
    count++;
  }
  EXPECT_GT(count, 500U);
  EXPECT_NEAR(farthest, 0.5, 0.01);
  std::filesystem::remove("trace.txt");
  open("SVG");
  NOGRAF();
  GRAF3D(-1, 1, -1, 1, -1, 1, -1, 1, -1, 1, -1, 1);
  SURISO(x, kNodes, x, kNodes, x, kNodes, w.data(), 9);
  EXPECT_EQ(traced("fill").size(), 0U);
}

TEST_F(Solids, LevelsAndSizes) {
  open("SVG");
  const float x[] = {0, 1}, z[] = {0, 0, 0, 0};
  EXPECT_NE(warning([&] { SURSHD(x, 2, x, 2, z); }).find("Warning 3:"), std::string::npos);
  EXPECT_NE(warning([] { SPHE3D(0, 0, 0, 1, 5, 5); }).find("Warning 3:"), std::string::npos);
  GRAF3(0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1);
  EXPECT_NE(warning([&] { SURSHD(x, 2, x, 2, z); }).find("Warning 35:"), std::string::npos);
  ENDGRF();
  GRAF3D(-1, 1, -1, 1, -1, 1, -1, 1, -1, 1, -1, 1);
  EXPECT_NE(warning([&] { SURSHD(x, 1, x, 2, z); }).find("Warning 2:"), std::string::npos);
}

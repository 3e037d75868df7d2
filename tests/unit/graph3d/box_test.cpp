// Lines in the box: clip, planes, grids and axes. The eye of these tests looks from straight above with parallel rays,
// so that box (x, y) stands at plot (1000 + 400 x, 1000 - 400 y).
#include <cmath>

#include "plot_fixture.h"

namespace {

class Box : public PlotTest {
protected:
  void openBox() {
    open();
    AXSPOS(600, 1400);
    AXSLEN(800, 800);
    PROJ3D("ORTH");
    VSCL3D(2);
    VIEW3D(0, 0, 9, "ABS");
  }
  static void graf() {
    NOGRAF();
    GRAF3D(-1, 1, -1, 0.5F, -1, 1, -1, 1, -1, 1, -1, 1);
  }
  // The strokes of a plot: "x y x y ...", a line for each move.
  std::vector<std::string> strokes() {
    if (state()->level.plotLevel > 0) QUIFIN();
    std::vector<std::string> found;
    for (const std::string& line : linesOf("trace.txt")) {
      if (line.rfind("move ", 0) == 0) found.push_back(line.substr(5));
      if (line.rfind("draw ", 0) == 0) found.back() += " " + line.substr(5);
    }
    return found;
  }
};

} // namespace

TEST_F(Box, LinesAreCutAtTheBox) {
  openBox();
  graf();
  STRT3D(-2, 0, 0);
  CONN3D(0, 0, 0);
  CONN3D(0.5F, 0.5F, 0);
  CONN3D(0.5F, 2, 0);
  CONN3D(2, 2, 0); // outside on one side: nothing
  CONN3D(2, 0, 0);
  CONN3D(0, 0, 5); // leaves at z = 1: x = 2 - 2 t, z = 5 t: outside until x = 1 at z = 2.5
  EXPECT_EQ(strokes(), (std::vector<std::string>{"600.00 1000.00 1000.00 1000.00 1200.00 800.00 1200.00 600.00"}));
}

// A line on a face is drawn, though rounding has moved it by a hair.
TEST_F(Box, FacesBelongToTheBox) {
  openBox();
  graf();
  STRT3D(1.000001F, -1, 0);
  CONN3D(1.000001F, 1, 0);
  STRT3D(1.001F, -1, 0);
  CONN3D(1.001F, 1, 0);
  EXPECT_EQ(strokes().size(), 1U);
}

TEST_F(Box, WithoutClipLinesLeaveTheBox) {
  openBox();
  CLIP3D("NONE");
  graf();
  STRT3D(-2, 0, 0);
  CONN3D(2, 1, 3);
  EXPECT_EQ(strokes(), (std::vector<std::string>{"200.00 1000.00 1800.00 600.00"}));
}

// W is 1: the view volume reaches from -1 to 1 in X/W, that is from plot 600 to 1400. Its far plane lies at 18, so that
// Z/W of a point at height z is (9 - z) / 18.
TEST_F(Box, LinesAreCutAtTheView) {
  openBox();
  CLIP3D("EYE");
  graf();
  STRT3D(-2, 0, 0);
  CONN3D(2, 1, 0); // enters at (-1, 0.25) and leaves at (1, 0.75)
  STRT3D(-2.5F, 0, 0);
  CONN3D(0, 2.5F, 0); // past the corner
  STRT3D(0, 0, 8);
  CONN3D(0.5F, 0, 10); // beyond the box, up to the height of the eye, where x is 0.25
  EXPECT_EQ(strokes(), (std::vector<std::string>{"600.00 900.00 1400.00 700.00", "1000.00 1000.00 1100.00 1000.00"}));
}

TEST_F(Box, LinesThroughTheEyePlaneAreHarmless) {
  open();
  CLIP3D("NONE");
  VIEW3D(0, -4, 0, "ABS");
  graf();
  STRT3D(0, 0, 0);
  CONN3D(1, -4, 0); // W is 0
  CONN3D(1, -9, 1);
  CONN3D(NAN, 0, 0);
  CONN3D(0, 0, 0);
  QUIFIN();
}

TEST_F(Box, TwelveEdges) {
  openBox();
  VSCL3D(1); // box (x, y) at 1000 + 200 x, 1000 - 200 y
  graf();
  TR3SCL(0.5F, 0.5F, 0.5F); // does not hold for the box
  BOX3D();
  EXPECT_TRUE(state()->boxTransform.on);
  const std::vector<std::string> lines = strokes();
  ASSERT_EQ(lines.size(), 5U);
  const std::string ring = "800.00 1200.00 1200.00 1200.00 1200.00 800.00 800.00 800.00 800.00 1200.00";
  EXPECT_EQ(lines[0].substr(0, ring.size()), ring);
  EXPECT_EQ(lines[1], ring);
}

TEST_F(Box, SymbolsAndLinesOfCurves) {
  openBox();
  graf();
  const float x[] = {-0.5F, 0.5F, 3}, y[] = {0, 0, 0}, z[] = {0, 0, 0};
  CURV3D(x, y, z, 3);
  INCMRK(-1);
  MARKER(3);
  CURV3D(x, y, z, 3); // two crosses: the third point lies outside
  const std::vector<std::string> lines = strokes();
  EXPECT_EQ(lines[0], "800.00 1000.00 1200.00 1000.00 1400.00 1000.00");
  EXPECT_EQ(lines.size(), 5U);
}

// The plane x = 0.5, Y across and Z upwards, looked at from +X: u is box y, v is box z.
TEST_F(Box, TwoDimensionalGraphOnAPlane) {
  openBox();
  VIEW3D(9, 0, 0, "ABS");
  graf();
  GRFINI(0.5F, -1, -1, 0.5F, 1, -1, 0.5F, 1, 1);
  EXPECT_EQ(state()->level.plotLevel, 1);
  GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  const float x[] = {0, 5, 15}, y[] = {0, 10, 10};
  CURVE(x, y, 3); // cut at x = 10
  GRFFIN();
  EXPECT_EQ(state()->level.plotLevel, 3);
  float a, e, first, step;
  GETGRF(&a, &e, &first, &step, "X");
  EXPECT_EQ(a, -1.0F); // the scaling of the box again
  const std::vector<std::string> lines = strokes();
  ASSERT_EQ(lines.size(), 1U);
  double p[6];
  ASSERT_EQ(std::sscanf(lines[0].c_str(), "%lf %lf %lf %lf %lf %lf", p, p + 1, p + 2, p + 3, p + 4, p + 5), 6);
  const double expected[] = {600, 1400, 1000, 600, 1400, 600};
  for (int i = 0; i < 6; i++) EXPECT_NEAR(p[i], expected[i], 0.3) << i;
}

TEST_F(Box, FilledAreasOnAPlane) {
  openBox();
  VIEW3D(9, 0, 0, "ABS");
  graf();
  GRFINI(0.5F, -1, -1, 0.5F, 1, -1, 0.5F, 1, 1);
  SHDPAT(16);
  NOARLN();
  const int x[] = {600, 1399, 600}, y[] = {1400, 1400, 601}; // three corners of the plane
  AREAF(x, y, 3);
  RECFLL(600, 601, 800, 800, 5);
  GRFFIN();
  const std::vector<std::string> fills = traced("fill");
  ASSERT_EQ(fills.size(), 2U);
  EXPECT_EQ(fills[0], "3 600.00 1400.00 1400.00 1400.00 600.00 600.00");
  EXPECT_EQ(fills[1].substr(0, 1), "4");
  EXPECT_TRUE(traced("bar").empty());
}

// Dashes are measured on the plane: 800 plot units of it are seen as 400.
TEST_F(Box, DashesLieOnThePlane) {
  openBox();
  VSCL3D(1);
  VIEW3D(9, 0, 0, "ABS");
  graf();
  GRFINI(0.5F, -1, -1, 0.5F, 1, -1, 0.5F, 1, 1);
  const int pattern[] = {100, 100};
  MYLINE(pattern, 2);
  LINE(600, 1400, 1399, 1400);
  GRFFIN();
  const std::vector<std::string> lines = strokes();
  ASSERT_EQ(lines.size(), 4U);
  double p[4];
  std::sscanf(lines[1].c_str(), "%lf %lf %lf %lf", p, p + 1, p + 2, p + 3);
  EXPECT_NEAR(p[0], 900.0, 0.2);
  EXPECT_NEAR(p[2], 950.0, 0.2);
}

TEST_F(Box, PlanesNeedTheirSystem) {
  openBox();
  EXPECT_NE(outputOf(GRFFIN).find("Warning 34: No call to grfini before in grffin!"), std::string::npos);
  graf();
  GRFINI(0, 0, 0, 1, 0, 0, 1, 1, 0);
  EXPECT_NE(outputOf([] { GRFINI(0, 0, 0, 1, 0, 0, 1, 1, 0); }).find("Warning 3"), std::string::npos);
  GRFFIN();
  EXPECT_NE(outputOf(GRFFIN).find("Warning 34"), std::string::npos);
  EXPECT_EQ(state()->level.plotLevel, 3);
}

// The steps of 0.5 in X and 1 in Y: five lines of constant x and three of constant y.
TEST_F(Box, GridOnTheBottom) {
  openBox();
  graf();
  GRID3D(1, 1, "BOTT");
  const std::vector<std::string> lines = strokes();
  ASSERT_EQ(lines.size(), 8U);
  double p[4];
  std::sscanf(lines[1].c_str(), "%lf %lf %lf %lf", p, p + 1, p + 2, p + 3);
  EXPECT_NEAR(p[0], 800.0, 0.6);
  EXPECT_NEAR(p[2], 800.0, 0.6);
  EXPECT_NEAR(std::fabs(p[1] - p[3]), 800.0, 0.1);
}

TEST_F(Box, WallsAwayFromTheEye) {
  openBox();
  VIEW3D(6, -6, 3, "ABS");
  graf();
  GRID3D(0, 1, "BACK"); // three lines of constant z on each wall
  std::vector<std::string> lines = strokes();
  ASSERT_EQ(lines.size(), 6U);
  std::filesystem::remove("trace.txt");
  open();
  VIEW3D(0, -6, 3, "ABS");
  graf();
  GRID3D(1, 1, "BACK"); // the eye stands before a wall: none is drawn
  GRID3D(1, 0, "BOTT");
  EXPECT_EQ(strokes().size(), 5U);
}

TEST_F(Box, FaultyGrids) {
  openBox();
  graf();
  const std::string said = outputOf([] { GRID3D(-1, 1, "SIDE"); });
  EXPECT_EQ(state()->counters.warningCount, 2);
  EXPECT_NE(said.find("SIDE"), std::string::npos);
  EXPECT_EQ(strokes().size(), 3U); // of all planes the bottom alone: straight above no wall is away from the eye
}

// ---- Axes ---------------------------------------------------------------------------------------------------------

namespace {

// Labels of the axes, which MYLAB makes visible as single symbols; the driver's glyphs tell where they stand.
struct Label {
  int code;
  double x, y;
};

} // namespace

class BoxAxes : public Box {
protected:
  std::vector<Label> labelsFrom(float x, float y, float z, const char* style) {
    open();
    std::filesystem::remove("trace.txt");
    QUIFIN();
    open();
    PSFONT("Helvetica");
    AXSPOS(600, 1400);
    AXSLEN(800, 800);
    VIEW3D(x, y, z, "ABS");
    LABL3D(style);
    LABDIG(-1, "XYZ");
    FRAME(0);
    GRAF3D(1, 3, 1, 1, 4, 6, 4, 1, 7, 9, 7, 1);
    std::vector<Label> labels;
    for (const std::string& glyph : traced("glyph")) {
      Label label{};
      std::sscanf(glyph.c_str(), "%d %lf %lf", &label.code, &label.x, &label.y);
      labels.push_back(label);
    }
    return labels;
  }
};

// The default eye: X in front from left to right, Y on the right from front to back, Z on the left upwards.
TEST_F(BoxAxes, OnEdges) {
  for (const char* style : {"HORI", "PARA", "OTHE"}) {
    const std::vector<Label> l = labelsFrom(4, -5, 4, style);
    ASSERT_EQ(l.size(), 9U);
    std::string codes;
    for (const Label& label : l) codes += static_cast<char>(label.code);
    EXPECT_EQ(codes, "123456789");
    EXPECT_LT(l[0].x, l[1].x);
    EXPECT_LT(l[1].x, l[2].x);
    EXPECT_LT(l[0].y, l[2].y); // towards the eye
    EXPECT_LT(l[3].x, l[5].x);
    EXPECT_GT(l[3].y, l[5].y); // away from it
    EXPECT_GT(l[6].y, l[8].y);
    EXPECT_LT(l[6].x, l[0].x + 60.0);
  }
}

// From the other side X runs from right to left.
TEST_F(BoxAxes, OnEdgesFromBehind) {
  const std::vector<Label> l = labelsFrom(4, 5, 4, "HORI");
  ASSERT_EQ(l.size(), 9U);
  EXPECT_GT(l[0].x, l[2].x);
}

// ---- Axes on planes ------------------------------------------------------------------------------------------------

class PlaneAxes : public Box {
protected:
  struct Stroke {
    double x0, y0, x1, y1;
  };
  std::vector<Stroke> drawn;
  float cornerX[9] = {}, cornerY[9] = {};
  float probe[3] = {-1.0F, -1.0F, -1.0F}, tickX = 0.0F, tickY = 0.0F; // a further point of the box, and its place

  // Draws the axes seen from a point, with what a test sets before, and takes the places of the corners.
  template <class Settings> void look(float x, float y, float z, Settings settings) {
    std::filesystem::remove("trace.txt");
    open();
    AXSPOS(600, 1400);
    AXSLEN(800, 800);
    VIEW3D(x, y, z, "ABS");
    TICKS(0, "XYZ");
    settings();
    GRAF3D(1, 3, 1, 1, 4, 6, 4, 1, 7, 9, 7, 1);
    for (int k = 1; k <= 8; k++) {
      const float cx = k % 4 == 2 || k % 4 == 3 ? 1.0F : -1.0F, cy = k % 4 == 3 || k % 4 == 0 ? 1.0F : -1.0F;
      ABS3PT(cx, cy, k > 4 ? 1.0F : -1.0F, &cornerX[k], &cornerY[k]);
    }
    ABS3PT(probe[0], probe[1], probe[2], &tickX, &tickY);
    drawn.clear();
    for (const std::string& line : strokes()) {
      Stroke s{};
      std::sscanf(line.c_str(), "%lf %lf %lf %lf", &s.x0, &s.y0, &s.x1, &s.y1);
      drawn.push_back(s);
    }
  }
  void expectLine(std::size_t i, int from, int to) {
    ASSERT_LT(i, drawn.size());
    EXPECT_NEAR(drawn[i].x0, cornerX[from], 0.5) << i;
    EXPECT_NEAR(drawn[i].y0, cornerY[from], 0.5) << i;
    EXPECT_NEAR(drawn[i].x1, cornerX[to], 0.5) << i;
    EXPECT_NEAR(drawn[i].y1, cornerY[to], 0.5) << i;
  }
  static void noLabels() { LABELS("NONE", "XYZ"); }
};

// Corners 1 to 4 of the bottom are (-,-), (+,-), (+,+), (-,+); 5 to 8 stand above them.
TEST_F(PlaneAxes, LinesOnTheEdgesBeforeTheEye) {
  look(4, -5, 4, noLabels);
  ASSERT_EQ(drawn.size(), 3U);
  expectLine(0, 1, 2);
  expectLine(1, 2, 3);
  expectLine(2, 1, 5);
  look(-5, -5, 4, noLabels);
  expectLine(0, 1, 2);
  expectLine(1, 4, 1);
  expectLine(2, 4, 8);
  look(5, 5, 4, noLabels);
  expectLine(0, 3, 4);
  expectLine(1, 2, 3);
  expectLine(2, 2, 6);
}

// Up to 2, the height of the box, the eye counts as level with it, and the ticks of X hang in the wall before the eye;
// above that they lie on the floor. A tick of 24 is 24 / 799 of the plane, whose side is 2.
TEST_F(PlaneAxes, HeightOfTheEye) {
  constexpr float kTick = 2.0F * 24.0F / 799.0F;
  for (const float height : {2.0F, 2.1F}) {
    const bool level = height <= 2.0F;
    probe[1] = level ? -1.0F : -1.0F - kTick;
    probe[2] = level ? -1.0F - kTick : -1.0F;
    look(4, -5, height, [] {
      noLabels();
      TICKS(1, "X");
    });
    ASSERT_EQ(drawn.size(), 6U);
    EXPECT_NEAR(drawn[1].x0, cornerX[1], 0.5);
    EXPECT_NEAR(drawn[1].x1, tickX, 0.5) << height;
    EXPECT_NEAR(drawn[1].y1, tickY, 0.5) << height;
  }
  look(4, -5, -5, noLabels); // from below, at the upper ends of their planes
  expectLine(0, 1, 2);
  expectLine(1, 2, 3);
  expectLine(2, 1, 5);
}

namespace {

// Of all labels only the first of Y can be seen.
void firstOfY() {
  LABELS("NONE", "XZ");
  LABELS("MYLAB", "Y");
  MYLAB("|", 1, "Y");
  NOLINE("XYZ");
}

} // namespace

// From (-5, -5) the axis of Y runs from its end at corner 4 to its start at corner 1, where the first label stands.
TEST_F(PlaneAxes, TurnedAxis) {
  look(-5, -5, 4, firstOfY);
  ASSERT_EQ(drawn.size(), 1U);
  const double near = std::hypot(drawn[0].x0 - cornerX[1], drawn[0].y0 - cornerY[1]);
  const double far = std::hypot(drawn[0].x0 - cornerX[4], drawn[0].y0 - cornerY[4]);
  EXPECT_LT(near, 60.0);
  EXPECT_GT(far, 150.0);
}

// From the default eye the first label of Y is left out, unless the setting of AXENDS holds.
TEST_F(PlaneAxes, FirstLabels) {
  look(4, -5, 4, firstOfY);
  EXPECT_TRUE(drawn.empty());
  look(4, -5, 4, [] {
    firstOfY();
    FLAB3D();
  });
  EXPECT_EQ(drawn.size(), 1U);
  look(4, -5, 4, [] {
    firstOfY();
    FLAB3D();
    AXENDS("NOFIRST", "Y");
  });
  EXPECT_TRUE(drawn.empty());
}

// What belongs to an axis goes back to it when the axes are drawn.
TEST_F(PlaneAxes, SettingsStayWithTheirAxes) {
  open();
  NAME("three", "Z");
  NAME("two", "Y");
  MYLAB("label", 3, "Z");
  LABDIG(2, "Y");
  HEIGHT(30);
  HNAME(20);
  GRAF3D(1, 3, 1, 1, 4, 6, 4, 1, 7, 9, 7, 1);
  const quilla::AxisGroup& a = state()->axis;
  EXPECT_STREQ(a.axisName[2], "three");
  EXPECT_STREQ(a.axisName[1], "two");
  EXPECT_STREQ(a.axisName[0], "");
  EXPECT_STREQ(state()->myLabels.myLabels[2][2], "label");
  EXPECT_EQ(a.labelDigits[1], 2);
  EXPECT_EQ(a.nameHeight, 20);
  EXPECT_EQ(GETHGT(), 30);
  float start, end, first, step;
  GETGRF(&start, &end, &first, &step, "Z");
  EXPECT_EQ(start, 7.0F);
}

// The picture stands in the middle: as far from the left as from the right end of the page.
TEST_F(PlaneAxes, Centered) {
  std::filesystem::remove("trace.txt");
  open();
  CENTER();
  NAME("a long name of this axis", "Y");
  GRAF3D(1, 3, 1, 1, 4, 6, 4, 1, 7, 9, 7, 1);
  BOX3D();
  double low = 1e9, high = -1e9;
  for (const std::string& line : strokes()) {
    const char* text = line.c_str();
    for (double x, y; std::sscanf(text, "%lf %lf", &x, &y) == 2;) {
      low = std::fmin(low, x);
      high = std::fmax(high, x);
      for (int blanks = 0; *text && blanks < 2; text++) blanks += *text == ' ';
      if (!*text) break;
    }
  }
  EXPECT_NEAR(low, 2969.0 - high, 3.0);
}

// Curves, classes, circles and polygons of the user's numbers.
#include <cmath>

#include "plot_fixture.h"

namespace {

class NumericShapes : public PlotTest {};

} // namespace

// A cubic at its quarters, by the formula of Bernstein: (1-t)^3 p0 + 3 t (1-t)^2 p1 + 3 t^2 (1-t) p2 + t^3 p3.
TEST_F(NumericShapes, BezierCurves) {
  const float x[] = {0, 1, 2, 4}, y[] = {0, 8, 8, 0};
  float xp[5], yp[5];
  BEZIER(x, y, 4, xp, yp, 5);
  const float wantedX[] = {0, 0.765625F, 1.625F, 2.671875F, 4}, wantedY[] = {0, 4.5F, 6, 4.5F, 0};
  for (int i = 0; i < 5; i++) {
    EXPECT_NEAR(xp[i], wantedX[i], 1e-6);
    EXPECT_NEAR(yp[i], wantedY[i], 1e-6);
  }
}

TEST_F(NumericShapes, BezierLimits) {
  float x[101], xp[3] = {9, 9, 9}, yp[3];
  for (int i = 0; i < 101; i++) x[i] = static_cast<float>(i);
  BEZIER(x, x, 100, xp, yp, 3); // equal steps along a line: the line
  EXPECT_NEAR(xp[1], 49.5, 1e-4);
  EXPECT_EQ(xp[2], 99.0F);
  const auto message = [&](int n, int np) { return outputOf([&] { BEZIER(x, x, n, xp, yp, np); }); };
  EXPECT_EQ(message(101, 3), " <<<< Warning 2: Incorrect parameter in bezier!   (101)\n");
  EXPECT_EQ(message(1, 3), " <<<< Warning 2: Incorrect parameter in bezier!   (1)\n");
  EXPECT_EQ(message(3, 1), " <<<< Warning 2: Incorrect parameter in bezier!   (1)\n");
}

// Eight values give 1 + 3 classes.
TEST_F(NumericShapes, Histograms) {
  const float x[] = {0, 1, 2, 3, 4, 5, 6, 8};
  float middles[8], counts[8];
  int n = 0;
  HISTOG(x, 8, middles, counts, &n);
  ASSERT_EQ(n, 4);
  const float wantedMiddles[] = {1, 3, 5, 7}, wantedCounts[] = {2, 2, 2, 2};
  for (int i = 0; i < 4; i++) {
    EXPECT_EQ(middles[i], wantedMiddles[i]);
    EXPECT_EQ(counts[i], wantedCounts[i]);
  }
}

TEST_F(NumericShapes, HistogramsOfOddData) {
  const float same[] = {3, 3, 3}, holes[] = {NAN, 1, INFINITY}, none[] = {NAN};
  float middles[3], counts[3];
  int n = 0;
  HISTOG(same, 3, middles, counts, &n);
  EXPECT_EQ(n, 1);
  EXPECT_EQ(middles[0], 3.0F);
  EXPECT_EQ(counts[0], 3.0F);
  HISTOG(holes, 3, middles, counts, &n);
  EXPECT_EQ(n, 1);
  EXPECT_EQ(counts[0], 1.0F);
  HISTOG(none, 1, middles, counts, &n);
  EXPECT_EQ(n, 0);
  const float wide[] = {-3.4e38F, 3.4e38F};
  HISTOG(wide, 2, middles, counts, &n);
  EXPECT_EQ(n, 2);
  EXPECT_EQ(counts[0] + counts[1], 2.0F);
}

// (1, 0), (4, 3), (1, 6) lie on the circle of radius 3 about (1, 3).
TEST_F(NumericShapes, CirclesThroughThreePoints) {
  float x = 0, y = 0, r = 0;
  CIRC3P(1, 0, 4, 3, 1, 6, &x, &y, &r);
  EXPECT_EQ(x, 1.0F);
  EXPECT_EQ(y, 3.0F);
  EXPECT_EQ(r, 3.0F);
  for (const float x3 : {2.0F, 0.0F, 1.0F})
    EXPECT_EQ(outputOf([&] { CIRC3P(0, 0, 1, 1, x3, x3, &x, &y, &r); }),
              " <<<< Warning 102: Points are collinear in circ3p!\n");
  EXPECT_EQ(r, 3.0F);
}

TEST_F(NumericShapes, PolygonsAreClipped) {
  const float x[] = {0, 10, 10, 0}, y[] = {0, 0, 10, 10};
  float xp[8], yp[8];
  int n = 0;
  const auto clipped = [&](float value, const char* edge) {
    POLCLP(x, y, 4, xp, yp, 8, &n, value, edge);
    double area = 0; // twice, by the formula of Gauss
    for (int i = 0; i < n; i++) {
      const int k = (i + 1) % n;
      area += static_cast<double>(xp[i]) * static_cast<double>(yp[k]) -
              static_cast<double>(xp[k]) * static_cast<double>(yp[i]);
    }
    return area / 2;
  };
  EXPECT_EQ(clipped(4, "XMIN"), 60);
  EXPECT_EQ(clipped(4, "xmax"), 40);
  EXPECT_EQ(clipped(1, "YMIN"), 90);
  EXPECT_EQ(clipped(1, "YMAX"), 10);
  EXPECT_EQ(clipped(11, "YMAX"), 100);
  EXPECT_EQ(clipped(-1, "YMAX"), 0);
  EXPECT_EQ(n, 0);
  EXPECT_EQ(outputOf([&] { POLCLP(x, y, 4, xp, yp, 3, &n, 4, "XMIN"); }),
            " <<<< Warning 112: Too many points in polclp!\n");
  EXPECT_EQ(n, 3);
  EXPECT_EQ(outputOf([&] { POLCLP(x, y, 4, xp, yp, 3, &n, 4, "LEFT"); }),
            " <<<< Warning 2: Incorrect parameter in polclp!   (LEFT)\n");
}

TEST_F(NumericShapes, UserValuesBecomePlotCoordinates) {
  open();
  AXSPOS(300, 1500);
  AXSLEN(1001, 1001);
  GRAF(0, 10, 0, 1, 0, 10, 0, 1);
  float x[] = {0, 10, 5}, y[] = {0, 10, 2};
  TRFREL(x, y, 3);
  EXPECT_EQ(x[0], 300.0F);
  EXPECT_EQ(x[1], 1300.0F);
  EXPECT_EQ(x[2], 800.0F);
  EXPECT_EQ(y[1], 500.0F);
  EXPECT_EQ(y[2], 1300.0F);
}

TEST_F(NumericShapes, ReadersGiveWhatSettersSet) {
  open();
  LABELS("LOG", "Y");
  LABDIS(31, "XZ");
  NAMDIS(17, "Y");
  MARKER(9);
  HSYMBL(44);
  COLRAN(20, 200);
  char x[QUILLA_TEXT_SIZE], y[QUILLA_TEXT_SIZE], z[QUILLA_TEXT_SIZE];
  GETLAB(x, y, z);
  EXPECT_STREQ(x, "FLOA");
  EXPECT_STREQ(y, "LOG ");
  int a = 0, b = 0, c = 0;
  GETSP1(&a, &b, &c);
  EXPECT_EQ(a * 10000 + b * 100 + c, 312431);
  GETSP2(&a, &b, &c);
  EXPECT_EQ(a * 10000 + b * 100 + c, 301730);
  GETSYM(&a, &b);
  EXPECT_EQ(a * 100 + b, 944);
  GETRAN(&a, &b);
  EXPECT_EQ(a * 1000 + b, 20200);
  EXPECT_EQ(GETPLV(), 2);
  SETMIX("~", "EXP");
  EXPECT_STREQ(GETMIX("EXP"), "~");
  EXPECT_STREQ(GETMIX("IND"), "]");
  EXPECT_STREQ(GETSHF("GERM"), "");
  EUSHFT("GERM", "!");
  EXPECT_STREQ(GETSHF("GERM"), "!");
  SMXALF("GREEK", "{", "}", 3);
  EXPECT_EQ(GMXALF("GREE", x, y), 3);
  EXPECT_STREQ(x, "{");
  EXPECT_STREQ(y, "}");
  EXPECT_EQ(GMXALF("MATH", x, y), 0);
  EXPECT_STREQ(x, "");
}

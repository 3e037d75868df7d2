// The way from user coordinates to the page. Expected places come from a camera of its own: right, upward and forward
// vectors by cross products, in doubles.
#include <cmath>

#include "plot_fixture.h"

namespace {

struct Vector {
  double x, y, z;
};
Vector operator-(Vector a, Vector b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
double dot(Vector a, Vector b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
Vector cross(Vector a, Vector b) { return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x}; }
Vector unit(Vector a) {
  const double length = std::sqrt(dot(a, a));
  return {a.x / length, a.y / length, a.z / length};
}

struct Camera {
  Vector eye = {4.0, -5.0, 4.0}, focus = {0.0, 0.0, 0.0};
  double degrees = 28.0725, turned = 0.0; // angle of view; the up vector turned about the line of sight
  double scale = 700.0, middleX = 900.0, middleY = 1200.0;

  struct Place {
    double x, y;
  };
  Place see(Vector p) const {
    const Vector forward = unit(focus - eye), right = unit(cross(forward, {0.0, 0.0, 1.0}));
    const Vector up = cross(right, forward), q = p - eye;
    const double t = std::tan(degrees / 2.0 * M_PI / 180.0) * dot(forward, q), a = turned * M_PI / 180.0;
    const double px = dot(right, q) / t, py = dot(up, q) / t;
    return {middleX + scale * (px * std::cos(a) - py * std::sin(a)),
            middleY - scale * (py * std::cos(a) + px * std::sin(a))};
  }
};

class View : public PlotTest {
protected:
  // Lengths 2000 and 1400: the scale is 700 and the middle lies at (200 + 1000, 1900 - 700).
  void openView() {
    open();
    NOGRAF();
    AXSPOS(200, 1900);
    AXSLEN(2000, 1400);
  }
  static void graf() { GRAF3D(0, 10, 0, 2, -5, 5, -5, 1, 100, 200, 100, 20); }

  static void expectPlaces(const Camera& camera) {
    const Vector points[] = {{0, 0, 0}, {1, 1, 1}, {-1, 1, -1}, {1, -1, -1}, {0.3, -0.7, 0.9}};
    for (const Vector& p : points) {
      float x = -1.0F, y = -1.0F;
      ABS3PT(static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z), &x, &y);
      const Camera::Place place = camera.see(p);
      EXPECT_NEAR(x, place.x, 0.05) << p.x << " " << p.y << " " << p.z;
      EXPECT_NEAR(y, place.y, 0.05) << p.x << " " << p.y << " " << p.z;
    }
  }
};

const Camera kFrame{.middleX = 1200.0, .middleY = 1200.0};

} // namespace

TEST_F(View, DefaultEyeSeesTheTop) {
  openView();
  graf();
  EXPECT_EQ(state()->level.plotLevel, 3);
  const float(&eye)[3] = state()->viewState.eye;
  EXPECT_FLOAT_EQ(eye[0], 4.0F);
  EXPECT_FLOAT_EQ(eye[1], -5.0F);
  EXPECT_FLOAT_EQ(eye[2], 4.0F);
  expectPlaces(kFrame);
  float topX, topY, bottomX, bottomY;
  ABS3PT(0, -1, 1, &topX, &topY); // the front edge of the top lies below its rear edge
  ABS3PT(0, 1, 1, &bottomX, &bottomY);
  EXPECT_GT(topY, bottomY);
}

TEST_F(View, EyeOfTheBoxLengths) {
  openView();
  AXIS3D(3, 1, 2);
  graf();
  Camera camera = kFrame;
  camera.eye = {6.0, -2.5, 4.0};
  expectPlaces(camera);
}

TEST_F(View, EyeFocusAngleAndUp) {
  openView();
  VIEW3D(-6, 3, 2.5F, "ABS");
  VFOC3D(0.5F, 0.25F, -0.5F, "ABS");
  VANG3D(40);
  VUP3D(30);
  graf();
  Camera camera = kFrame;
  camera.eye = {-6.0, 3.0, 2.5};
  camera.focus = {0.5, 0.25, -0.5};
  camera.degrees = 40.0;
  camera.turned = 30.0;
  expectPlaces(camera);
}

// X 20 of 0..10 is box 3, Y -10 of -5..5 is box -2, Z 300 of 100..200 is box 3.
TEST_F(View, UserEyeAndFocus) {
  openView();
  VIEW3D(20, -10, 300, "USER");
  VFOC3D(5, 2.5F, 150, "USER");
  graf();
  Camera camera = kFrame;
  camera.eye = {3.0, -2.0, 3.0};
  camera.focus = {0.0, 0.5, 0.0};
  expectPlaces(camera);
  // The eye is kept in box coordinates from here on.
  EXPECT_EQ(state()->view.eyeMode, quilla::kViewAbsolute);
  EXPECT_NEAR(state()->view.eye[0], 3.0F, 1e-5);
  ENDGRF();
  GRAF3D(0, 100, 0, 20, -5, 5, -5, 1, 100, 200, 100, 20);
  camera.focus = {-0.9, 0.5, 0.0};
  expectPlaces(camera);
}

// 30 degrees from the Y axis to the X axis, 45 degrees up, at a distance of 8.
TEST_F(View, EyeByAngles) {
  openView();
  VIEW3D(30, 45, 8, "ANGL");
  graf();
  const double flat = 8.0 * std::sqrt(0.5);
  Camera camera = kFrame;
  camera.eye = {flat * 0.5, flat * std::sqrt(0.75), flat};
  expectPlaces(camera);
}

// Plot coordinates of box points on the planes z = 0 at a distance of 8 under the eye.
TEST_F(View, StraightDown) {
  openView();
  VIEW3D(0, 0, 8, "ABS");
  graf();
  const double unitLength = 700.0 / (8.0 * std::tan(28.0725 / 2.0 * M_PI / 180.0));
  float x, y;
  ABS3PT(1, 0.5F, 0, &x, &y);
  EXPECT_NEAR(x, 1200.0 + unitLength, 0.05);
  EXPECT_NEAR(y, 1200.0 - 0.5 * unitLength, 0.05);
  ENDGRF();
  VUP3D(90);
  graf();
  ABS3PT(1, 0.5F, 0, &x, &y); // turned anticlockwise: X upwards, Y to the left
  EXPECT_NEAR(x, 1200.0 - 0.5 * unitLength, 0.05);
  EXPECT_NEAR(y, 1200.0 - unitLength, 0.05);
}

TEST_F(View, EyeInsideTheBox) {
  openView();
  VIEW3D(0.5F, -1, 1, "ABS");
  const std::string said = outputOf(graf);
  EXPECT_NE(said.find("Warning 33: Incorrect viewpoint in graf3d!"), std::string::npos) << said;
  expectPlaces(kFrame);
}

// Z/W is 0 on the near plane, and 1 on the far plane or, without one, far away.
TEST_F(View, ClippingPlanes) {
  auto depth = [&](float distance) {
    const float(&m)[4][4] = state()->viewState.matrix;
    const float y = -8.0F + distance;
    return (m[2][1] * y + m[2][3]) / (m[3][1] * y + m[3][3]);
  };
  openView();
  VIEW3D(0, -8, 0, "ABS");
  VCLP3D(2, 10);
  graf();
  EXPECT_NEAR(depth(2), 0.0, 1e-5);
  EXPECT_NEAR(depth(10), 1.0, 1e-5);
  EXPECT_NEAR(depth(4), (4.0 - 2.0) / (0.8 * 4.0), 1e-5);
  ENDGRF();
  VCLP3D(1, 0);
  EXPECT_EQ(state()->view.farPlane, -1.0F);
  graf();
  EXPECT_NEAR(depth(1), 0.0, 1e-5);
  EXPECT_NEAR(depth(4), 0.75, 1e-5);
  EXPECT_NEAR(depth(100000), 1.0, 1e-4);
}

// Parallel rays: box point (x, y, z) seen from -Y stands at x and z, halved by W = 2 and times the scale.
TEST_F(View, Orthographic) {
  openView();
  PROJ3D("ORTH");
  VSCL3D(1.5F);
  VIEW3D(0, -8, 0, "ABS");
  graf();
  for (const float y : {-1.0F, 1.0F}) {
    float px, py;
    ABS3PT(0.4F, y, 0.8F, &px, &py);
    EXPECT_NEAR(px, 1200.0 + 700.0 * 0.4 * 0.75, 0.01);
    EXPECT_NEAR(py, 1200.0 - 700.0 * 0.8 * 0.75, 0.01);
  }
}

TEST_F(View, UserToBoxToPlot) {
  openView();
  graf();
  float x, y, z, px, py, qx, qy;
  POS3PT(7.5F, 0, 125, &x, &y, &z);
  EXPECT_FLOAT_EQ(x, 0.5F);
  EXPECT_FLOAT_EQ(y, 0.0F);
  EXPECT_FLOAT_EQ(z, -0.5F);
  EXPECT_FLOAT_EQ(X3DPOS(7.5F, 0, 125), 0.5F);
  EXPECT_FLOAT_EQ(Y3DPOS(7.5F, 0, 125), 0.0F);
  EXPECT_FLOAT_EQ(Z3DPOS(7.5F, 0, 125), -0.5F);
  ABS3PT(x, y, z, &px, &py);
  REL3PT(7.5F, 0, 125, &qx, &qy);
  EXPECT_FLOAT_EQ(px, qx);
  EXPECT_FLOAT_EQ(py, qy);
  EXPECT_FLOAT_EQ(X3DREL(7.5F, 0, 125), px);
  EXPECT_FLOAT_EQ(Y3DREL(7.5F, 0, 125), py);
  EXPECT_FLOAT_EQ(X3DABS(0.5F, 0, -0.5F), px);
  EXPECT_FLOAT_EQ(Y3DABS(0.5F, 0, -0.5F), py);
  ENDGRF();
  ABS3PT(0.5F, 0, -0.5F, &qx, &qy); // at level 1, too
  EXPECT_FLOAT_EQ(qx, px);
}

// The page counts from its lower end.
TEST_F(View, PageFromTheBottom) {
  openView();
  graf();
  float x, y, flippedY;
  ABS3PT(0.5F, 0.5F, 0.5F, &x, &y);
  PAGORG("BOTT");
  ABS3PT(0.5F, 0.5F, 0.5F, &x, &flippedY);
  EXPECT_FLOAT_EQ(flippedY, 2099.0F - y);
}

// log10 of 100 lies in the middle of the exponents 1 to 3.
TEST_F(View, LogarithmicAxis) {
  openView();
  AXSSCL("LOG", "Z");
  GRAF3D(0, 10, 0, 2, -5, 5, -5, 1, 1, 3, 1, 1);
  EXPECT_NEAR(Z3DPOS(0, 0, 100), 0.0F, 1e-6);
  EXPECT_NEAR(Z3DPOS(0, 0, 1000), 1.0F, 1e-6);
  // A shift counts in the units of the scaling, here decades.
  TR3SHF(0, 0, 1);
  EXPECT_NEAR(Z3DPOS(0, 0, 100), 1.0F, 1e-6);
}

TEST_F(View, RejectedSettings) {
  openView();
  const std::string said = outputOf([] {
    VANG3D(180);
    VANG3D(0);
    AXIS3D(1, 0, 1);
    VSCL3D(0);
    VCLP3D(0, 5);
    VCLP3D(3, 2);
    VIEW3D(1, 2, 3, "OTHER");
  });
  EXPECT_NE(said.find("Warning 2: Incorrect parameter in vang3d!"), std::string::npos);
  EXPECT_NE(said.find("Warning 2: Incorrect parameter in axis3d!"), std::string::npos);
  EXPECT_NE(said.find("Warning 2: Incorrect parameter in vscl3d!"), std::string::npos);
  EXPECT_NE(said.find("Warning 2: Incorrect parameter in vclp3d!"), std::string::npos);
  EXPECT_EQ(state()->counters.warningCount, 7);
  const quilla::ViewGroup& v = state()->view;
  EXPECT_EQ(v.halfAngle, 0.2449787F);
  EXPECT_EQ(v.boxLength[0], 2.0F);
  EXPECT_EQ(v.viewScale, 1.0F);
  EXPECT_EQ(v.nearPlane, 3.0F); // a good first value is kept
  EXPECT_EQ(v.farPlane, -1.0F);
  EXPECT_EQ(v.eyeMode, quilla::kViewUnset);
  VANG3D(179);
  EXPECT_NEAR(v.halfAngle, 179.0 / 360.0 * M_PI, 1e-6);
}

TEST_F(View, FailedScalingStaysAtLevelOne) {
  openView();
  const std::string said = outputOf([] { GRAF3D(0, 0, 0, 1, 0, 1, 0, 0, 0, 1, 0, 1); });
  // Y is tested before X.
  EXPECT_LT(said.find("Warning 9"), said.find("Warning 10"));
  EXPECT_NE(said.find("Warning 10"), std::string::npos);
  EXPECT_EQ(state()->level.plotLevel, 1);
}

TEST_F(View, Resets) {
  openView();
  AXIS3D(1, 2, 3);
  VIEW3D(9, 9, 9, "ABS");
  FLAB3D();
  AX3LEN(500, 600, 700);
  for (const char* name : {"AXIS3D", "VIEW3D", "FLAB3D", "AX3LEN"}) RESET(name);
  EXPECT_EQ(state()->view.boxLength[2], 2.0F);
  EXPECT_EQ(state()->view.eyeMode, quilla::kViewUnset);
  EXPECT_FALSE(state()->view.firstLabels);
  int nx, ny, nz;
  GETLEN(&nx, &ny, &nz);
  EXPECT_EQ(nx, 1980);
  EXPECT_EQ(ny, 1400);
}

// ---- The user transformation ---------------------------------------------------------------------------------------

namespace {

void expectBox(double x, double y, double z, double toX, double toY, double toZ) {
  const float ux = static_cast<float>(5.0 + 5.0 * x), uy = static_cast<float>(5.0 * y);
  const float uz = static_cast<float>(150.0 + 50.0 * z);
  EXPECT_NEAR(X3DPOS(ux, uy, uz), toX, 1e-5);
  EXPECT_NEAR(Y3DPOS(ux, uy, uz), toY, 1e-5);
  EXPECT_NEAR(Z3DPOS(ux, uy, uz), toZ, 1e-5);
}

} // namespace

TEST_F(View, TurnsAboutTheAxes) {
  openView();
  graf();
  TR3ROT(90, 0, 0); // y to z, z to -y
  expectBox(0.1, 0.2, 0.3, 0.1, -0.3, 0.2);
  TR3RES();
  expectBox(0.1, 0.2, 0.3, 0.1, 0.2, 0.3);
  TR3ROT(0, 90, 0); // z to x, x to -z
  expectBox(0.1, 0.2, 0.3, 0.3, 0.2, -0.1);
  TR3RES();
  TR3ROT(0, 0, 90); // x to y, y to -x
  expectBox(0.1, 0.2, 0.3, -0.2, 0.1, 0.3);
  TR3RES();
  TR3ROT(90, 0, 90); // X first
  expectBox(0.1, 0.2, 0.3, 0.3, 0.1, 0.2);
  TR3RES();
  TR3ROT(0, 0, 0.001F); // too small to count
  expectBox(0.1, 0.2, 0.3, 0.1, 0.2, 0.3);
}

TEST_F(View, LaterTransformationsActAfterEarlierOnes) {
  openView();
  graf();
  TR3SHF(2.5F, 0, 0); // half a box unit
  TR3SCL(2, 1, 1);
  expectBox(0.1, 0.2, 0.3, 1.2, 0.2, 0.3);
  TR3RES();
  TR3SCL(2, 1, 1);
  TR3SHF(2.5F, 0, 0);
  expectBox(0.1, 0.2, 0.3, 0.7, 0.2, 0.3);
}

TEST_F(View, TurnsAboutAnyAxis) {
  openView();
  graf();
  TR3AXS(1, 1, 1, 120); // x to y, y to z, z to x
  expectBox(0.1, 0.2, 0.3, 0.3, 0.1, 0.2);
  TR3RES();
  const std::string said = outputOf([] { TR3AXS(0, 0, 0, 10); });
  EXPECT_NE(said.find("Warning 2: Incorrect parameter in tr3axs!"), std::string::npos);
  EXPECT_FALSE(state()->boxTransform.on);
}

TEST_F(View, EndOfTransformationHasAnotherName) {
  openView();
  EXPECT_NE(outputOf(TR3RES).find("Warning 3: Incorrect level in tr3scl!"), std::string::npos);
}

TEST_F(View, OnlyInABoxSystem) {
  openView();
  GRAF(0, 1, 0, 1, 0, 1, 0, 1);
  EXPECT_NE(outputOf([] { BOX3D(); }).find("Warning 3"), std::string::npos);
  ENDGRF();
  float x, y;
  EXPECT_NE(outputOf([&] { ABS3PT(0, 0, 0, &x, &y); }).find("Warning 35"), std::string::npos);
}

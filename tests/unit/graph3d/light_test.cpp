// Colours of lit points. Expected values are worked out by hand, in the units of the box.
#include <cmath>

#include "graph3d/lighting.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

class Lights : public PlotTest {
protected:
  // The box is the user's own space.
  void openBox() {
    open();
    NOGRAF();
    VIEW3D(0, 0, 5, "ABS");
  }
  static void graf() { GRAF3D(-1, 1, -1, 1, -1, 1, -1, 1, -1, 1, -1, 1); }
  Shade shade(BoxPoint point, BoxPoint normal) { return shadeVertex(state(), state()->light.faces[0], point, normal); }
};

} // namespace

TEST_F(Lights, WithoutLightsTheAmbientPartIsLeft) {
  openBox();
  graf();
  EXPECT_NEAR(shade({0, 0, 0}, {0, 0, 1}).r, 0.04, 1e-6); // 0.2 of 0.2
  MATOP3(0.5F, 1, 0, "AMBIENT");
  const Shade c = shade({0, 0, 0}, {0, 0, 1});
  EXPECT_NEAR(c.r, 0.1, 1e-6);
  EXPECT_NEAR(c.g, 0.2, 1e-6);
  EXPECT_NEAR(c.b, 0.0, 1e-6);
}

// A light at 45 degrees: the diffuse part is 0.8 times its cosine.
TEST_F(Lights, DiffusePart) {
  openBox();
  LITPOS(2, 3, 0, 3, "ABS");
  LITMOD(2, "ON");
  graf();
  const double diffuse = 0.8 * std::sqrt(0.5);
  EXPECT_NEAR(shade({0, 0, 0}, {0, 0, 1}).g, 0.04 + diffuse, 1e-5);
  EXPECT_NEAR(shade({0, 0, 0}, {0, 0, -1}).g, 0.04, 1e-6); // away from the light
  LITOP3(2, 0.5F, 0, 1, "DIFFUSE");
  const Shade c = shade({0, 0, 0}, {0, 0, 1});
  EXPECT_NEAR(c.r, 0.04 + 0.5 * diffuse, 1e-5);
  EXPECT_NEAR(c.g, 0.04, 1e-6);
  LITMOD(2, "OFF");
  EXPECT_NEAR(shade({0, 0, 0}, {0, 0, 1}).r, 0.04, 1e-6);
}

// Distance 2: the attenuation is 1 + 0.5 * 2 + 0.25 * 4 = 3.
TEST_F(Lights, Attenuation) {
  openBox();
  LITPOS(1, 0, 0, 2, "ABS");
  LITMOD(1, "ON");
  LITOPT(1, 0.5F, "LINEAR");
  LITOPT(1, 0.25F, "QUADRATIC");
  LITOPT(1, 0.3F, "AMBIENT");
  graf();
  EXPECT_NEAR(shade({0, 0, 0}, {0, 0, 1}).b, 0.04 + (0.3 * 0.2 + 0.8) / 3.0, 1e-5);
}

// The light stands at (3, 0, 3), and the eye at (-3, 0, 3): the mirrored ray meets it. From (0, 0, 5) the cosine is
// that of 45 degrees, to the power of 4 a quarter.
TEST_F(Lights, Highlights) {
  openBox();
  LITPOS(1, 3, 0, 3, "ABS");
  LITMOD(1, "ON");
  LITOPT(1, 0, "DIFFUSE");
  MATOPT(0.6F, "SPECULAR");
  MATOPT(4, "EXPONENT");
  graf();
  EXPECT_NEAR(shade({0, 0, 0}, {0, 0, 1}).r, 0.04 + 0.6 / 4.0, 1e-5);
  ENDGRF();
  VIEW3D(-3, 0, 3, "ABS");
  graf();
  EXPECT_NEAR(shade({0, 0, 0}, {0, 0, 1}).r, 0.64, 1e-5);
  MATOPT(9, "SPECULAR");
  EXPECT_EQ(shade({0, 0, 0}, {0, 0, 1}).r, 1.0F); // at most 1
}

// A constant of 0 is nearly none: the colour saturates.
TEST_F(Lights, NoAttenuation) {
  openBox();
  LITMOD(1, "ON");
  LITOPT(1, 0, "CONSTANT");
  EXPECT_EQ(state()->light.lights[0].constant, 1e-10F);
  graf();
  EXPECT_EQ(shade({0, 0, 0}, {0, 0, 1}).r, 1.0F);
}

TEST_F(Lights, FacesOfTheMaterial) {
  openBox();
  SETFCE("BOTTOM");
  MATOPT(7, "EXPONENT");
  SETFCE("TOP");
  MATOPT(3, "EXPONENT");
  EXPECT_EQ(state()->light.faces[1].exponent, 7.0F);
  EXPECT_EQ(state()->light.faces[0].exponent, 3.0F);
  SETFCE("BOTH");
  MATOPT(5, "EXPONENT");
  EXPECT_EQ(state()->light.faces[0].exponent + state()->light.faces[1].exponent, 10.0F);
}

// Lights by user coordinates and by angles stand in the box with GRAF3D; those of later are kept in user coordinates.
TEST_F(Lights, Places) {
  openBox();
  LITPOS(1, 20, 0, 0, "USER");
  LITPOS(2, 90, 0, 6, "ANGLE");
  LITPOS(3, 1, 2, 3, "ABS");
  GRAF3D(0, 10, 0, 1, -1, 1, -1, 1, -1, 1, -1, 1);
  const Light* l = state()->light.lights;
  EXPECT_EQ(l[0].mode, kViewAbsolute);
  EXPECT_NEAR(l[0].position[0], 3.0F, 1e-5);
  EXPECT_NEAR(l[1].position[0], 6.0F, 1e-5); // 90 degrees from Y to X
  EXPECT_NEAR(l[1].position[1], 0.0F, 1e-5);
  EXPECT_EQ(l[2].position[2], 3.0F);
  LITPOS(1, 3, 0.5F, 0, "ABS");
  EXPECT_EQ(l[0].mode, kViewUser);
  EXPECT_NEAR(l[0].position[0], 20.0F, 1e-5);
  EXPECT_NEAR(l[0].position[1], 0.5F, 1e-5);
  LITPOS(2, 90, 0, 6, "ANGLE");
  EXPECT_NEAR(l[1].position[0], 35.0F, 1e-4);
}

TEST_F(Lights, Faults) {
  openBox();
  const std::string said = outputOf([] {
    LITMOD(0, "ON");
    LITMOD(9, "ON");
    LITOPT(1, -1, "AMBIENT");
    LITOP3(1, 1, -1, 1, "SPECULAR");
    MATOPT(-0.5F, "EXPONENT");
    MATOP3(1, 1, -1, "AMBIENT");
    LITPOS(1, 1, 1, 1, "NOWHERE");
    GETLIT(0, 0, 0, 0, 0, 1);
  });
  EXPECT_EQ(state()->counters.warningCount, 8);
  EXPECT_NE(said.find("Warning 1: Negative parameter in litopt!"), std::string::npos);
  EXPECT_NE(said.find("Warning 1: Negative parameter in matop3!"), std::string::npos);
  EXPECT_NE(said.find("Warning 35: Confusion of graf3d and graf3 in getlit!"), std::string::npos);
  EXPECT_EQ(state()->light.lights[0].specular[0], 1.0F);
}

// The grey of 0.04 + 0.8 in the table of 256 colours, or near it.
TEST_F(Lights, ColourOfAPoint) {
  openBox();
  SETVLT("GREY");
  LITPOS(1, 0, 0, 4, "ABS");
  LITMOD(1, "ON");
  graf();
  int r = 0, g = 0, b = 0;
  float red, green, blue;
  GETIND(GETLIT(0, 0, 0, 0, 0, 2), &red, &green, &blue);
  r = static_cast<int>(red * 255.0F + 0.5F);
  g = static_cast<int>(green * 255.0F + 0.5F);
  b = static_cast<int>(blue * 255.0F + 0.5F);
  EXPECT_NEAR(r, 214, 3);
  EXPECT_NEAR(g, 214, 3);
  EXPECT_NEAR(b, 214, 3);
}

#include "core/shields.h"

#include "plot_fixture.h"

using namespace quilla;

namespace {

using Lines = std::vector<std::string>;

class Shields : public PlotTest {
protected:
  void SetUp() override {
    PlotTest::SetUp();
    open();
    FRAME(0);
  }
};

TEST_F(Shields, RectangleLeavesTwoPieces) {
  SHLREC(100, 100, 50, 50);
  LINE(0, 120, 300, 120);
  EXPECT_EQ(traced("move"), (Lines{"0.00 120.00", "150.00 120.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"100.00 120.00", "300.00 120.00"}));
}

TEST_F(Shields, LinesInsideVanishBesideStay) {
  SHLREC(100, 100, 50, 50);
  LINE(110, 110, 140, 140);
  LINE(0, 90, 300, 90);
  EXPECT_EQ(traced("draw"), Lines{"300.00 90.00"});
}

TEST_F(Shields, TurnedRectangle) {
  SHLRCT(100, 100, 100, 50, 90); // runs upwards from (100, 100), 50 to the right
  LINE(0, 50, 300, 50);
  EXPECT_EQ(traced("draw").size(), 2U);
  auto draws = traced("draw");
  EXPECT_EQ(draws[0].substr(0, 2), "99") << "the angle is kept in thousandths of a radian: " << draws[0];
}

TEST_F(Shields, Circle) {
  SHLCIR(500, 500, 100);
  LINE(300, 500, 700, 500);
  EXPECT_EQ(traced("draw"), (Lines{"400.00 500.00", "700.00 500.00"}));
}

TEST_F(Shields, Ellipse) {
  SHLELL(500, 500, 200, 100, 0);
  LINE(500, 300, 500, 700);
  LINE(200, 500, 800, 500);
  EXPECT_EQ(traced("draw"), (Lines{"500.00 400.00", "500.00 700.00", "300.00 500.00", "800.00 500.00"}));
}

TEST_F(Shields, SectorBetweenItsAngles) {
  SHLPIE(500, 500, 100, 0, 90); // upper right quarter
  LINE(300, 450, 700, 450);     // leaves the circle at 500 + sqrt(100^2 - 50^2)
  LINE(300, 550, 700, 550);
  EXPECT_EQ(traced("draw"), (Lines{"500.00 450.00", "700.00 450.00", "700.00 550.00"}));
  EXPECT_EQ(traced("move"), (Lines{"300.00 450.00", "586.60 450.00", "300.00 550.00"}));
}

TEST_F(Shields, PolygonWithANotch) {
  const int nx[] = {100, 400, 400, 250, 100}, ny[] = {100, 100, 300, 200, 300};
  SHLPOL(nx, ny, 5);
  LINE(0, 250, 500, 250); // the notch is open from 175 to 325 at this height
  EXPECT_EQ(traced("move"), (Lines{"0.00 250.00", "175.00 250.00", "400.00 250.00"}));
  EXPECT_EQ(traced("draw"), (Lines{"100.00 250.00", "325.00 250.00", "500.00 250.00"}));
}

TEST_F(Shields, OverlappingRegionsCutOnceEach) {
  SHLREC(100, 100, 100, 50);
  SHLREC(150, 100, 100, 50);
  LINE(0, 120, 300, 120);
  EXPECT_EQ(traced("draw"), (Lines{"100.00 120.00", "300.00 120.00"}));
}

TEST_F(Shields, HidingAndDeleting) {
  SHLREC(100, 100, 50, 50);
  SHLREC(200, 100, 50, 50);
  EXPECT_EQ(SHLIND(), 2);
  SHLVIS(0, "OFF");
  LINE(0, 120, 300, 120);
  SHLVIS(2, "ON");
  LINE(0, 130, 300, 130);
  SHLDEL(2);
  EXPECT_EQ(SHLIND(), 1);
  SHLDEL(0);
  EXPECT_EQ(SHLIND(), 0);
  LINE(0, 140, 300, 140);
  EXPECT_EQ(traced("draw"), (Lines{"300.00 120.00", "200.00 130.00", "300.00 130.00", "300.00 140.00"}));
}

TEST_F(Shields, BufferOfAThousandWords) {
  static int nx[600], ny[600];
  for (int i = 0; i < 600; i++) {
    nx[i] = 100 + i;
    ny[i] = 100 + i % 7;
  }
  EXPECT_EQ(outputOf([] { SHLPOL(nx, ny, 500); }), " <<<< Warning 47: Blanking buffer overflow in shlpol!\n");
  SHLPOL(nx, ny, 499);
  EXPECT_EQ(state()->shield.shieldUsed, 1001);
  EXPECT_EQ(outputOf([] { SHLCIR(10, 10, 5); }), " <<<< Warning 47: Blanking buffer overflow in shlcir!\n");
  SHLDEL(0);
  SHLCIR(10, 10, 5);
  EXPECT_EQ(SHLIND(), 1);
  EXPECT_EQ(outputOf([] { SHLPOL(nx, ny, 2); }), " <<<< Warning 30: Incorrect number of points in shlpol!   (2)\n");
}

TEST_F(Shields, AreasOfTheLibrary) {
  SHIELD("MESS", "ON");
  EXPECT_TRUE(state()->shield.shieldAreaOn[0]);
  SHIELD("MESS", "RESET");
  EXPECT_FALSE(state()->shield.shieldAreaOn[0]);
  EXPECT_EQ(outputOf([] { SHIELD("TEXT", "ON"); }), " <<<< Warning 2: Incorrect parameter in shield!   (TEXT)\n");
}

TEST_F(Shields, OutlinesWhileThereIsAFrame) {
  FRAME(1);
  SHLREC(100, 100, 50, 50);
  EXPECT_EQ(traced("draw"), (Lines{"150.00 100.00", "150.00 150.00", "100.00 150.00", "100.00 100.00"}));
}

} // namespace

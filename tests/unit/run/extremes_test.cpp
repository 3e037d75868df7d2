// The ends of the integers, numbers far off every page and none at all: nothing may break, and no call may take long.
#include <limits>

#include "core/pipeline.h"
#include "plot_fixture.h"

namespace {

constexpr int kInts[] = {std::numeric_limits<int>::min(), -1, 0, 1, 255, 100000, std::numeric_limits<int>::max()};
constexpr float kReals[] = {-3e38F,
                            -1.0F,
                            0.0F,
                            1e-30F,
                            0.5F,
                            1e9F,
                            3e38F,
                            std::numeric_limits<float>::infinity(),
                            std::numeric_limits<float>::quiet_NaN()};

class Extremes : public PlotTest {
protected:
  void SetUp() override {
    PlotTest::SetUp();
    unsetenv("QUILLA_TRACE");
  }
};

void drawSomething(int i, float x) {
  LINE(i, 100, 500, i);
  XMOVE(x, 100);
  XDRAW(200, x);
  float xs[] = {x, 900, 100, 500}, ys[] = {100, 900, x, 200};
  fillPolygon(quilla::plotState(), xs, ys, 4);
}

TEST_F(Extremes, LinesPatternsAndTransformations) {
  for (const char* format : {"PDF", "HPGL"}) {
    METAFL(format);
    SETFIL("/dev/null");
    outputOf([] {
      QUIINI();
      UNIT(nullptr);
      ERRMOD("PROT", "OFF");
      for (int i : kInts) {
        for (float x : kReals) {
          SHDPAT(i);
          MYPAT(i, i, i, i);
          SHDFAC(x);
          LINTYP(i);
          MYLINE(&i, 1);
          LINCLR(&i, i > 1 ? 1 : i);
          LNMLT(x);
          CLPWIN(i, i, i, i);
          ORIGIN(i, i);
          TRFSHF(i, i);
          TRFSCL(x, x);
          TRFROT(x, i, i);
          drawSomething(i, x);
          TRFRES();
          drawSomething(i, x);
          RESET("CLPWIN");
          NXPIXL(i, i);
          PAGHDR("a", "b", i, i);
          SETIND(i, x, x, x);
          WINDOW(i, i, i, i);
          WINDOW(1, 1, 100, 100);
        }
      }
      EXPECT_EQ(GETLEV(), 1);
      EXPECT_GT(quilla::plotState()->counters.vectorCount, 1000);
      QUIFIN();
    });
    EXPECT_EQ(GETLEV(), 0);
  }
}

TEST_F(Extremes, WidestLines) {
  METAFL("HPGL");
  SETFIL("/dev/null");
  outputOf([] {
    QUIINI();
    ERRMOD("PROT", "OFF");
    for (const char* cap : {"CUT", "ROUN", "LONG"}) {
      LNCAP(cap);
      LNJOIN("SHAR");
      LINWID(32000);
      XMOVE(100, 100);
      XDRAW(200, 200);
      XDRAW(100, 300);
    }
    QUIFIN();
  });
  EXPECT_EQ(GETLEV(), 0);
}

} // namespace

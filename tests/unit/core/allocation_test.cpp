// The roads of points and dashes take no memory.
#include <cstdlib>
#include <new>

#include "core/pipeline.h"
#include "plot_fixture.h"

namespace {
long allocations = 0;
}

[[gnu::noinline]] void* operator new(std::size_t size) {
  allocations++;
  if (void* memory = std::malloc(size ? size : 1)) return memory;
  std::abort();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

using namespace quilla;

namespace {

class Allocations : public PlotTest {
protected:
  void SetUp() override {
    PlotTest::SetUp();
    unsetenv("QUILLA_TRACE");
    METAFL("PS"); // lines of text that go straight to a file
    SETFIL("/dev/null");
    outputOf([] { QUIINI(); });
    ERRMOD("PROT", "OFF");
  }
  void TearDown() override {
    QUIFIN();
    PlotTest::TearDown();
  }

  long whileDrawing(int points) {
    PlotState* s = state();
    long earlier = allocations;
    penMove(s, 100, 100);
    for (int i = 0; i < points; i++)
      penDraw(s, 100.0F + static_cast<float>(i * 7 % 3000), 100.0F + static_cast<float>(i % 1700));
    flushPath(s);
    return allocations - earlier;
  }
};

TEST_F(Allocations, TheCounterCounts) {
  long earlier = allocations;
  delete new int(3);
  EXPECT_EQ(allocations - earlier, 1);
}

TEST_F(Allocations, NoneForPoints) { EXPECT_EQ(whileDrawing(20000), 0); }

TEST_F(Allocations, NoneForDashes) {
  DASH();
  EXPECT_EQ(whileDrawing(2000), 0);
}

TEST_F(Allocations, NoneForOutlinesAndTransformations) {
  HWMODE("OFF", "LINE");
  LINWID(9);
  TRFROT(10, 500, 500);
  CLPWIN(500, 500, 1000, 1000);
  EXPECT_EQ(whileDrawing(2000), 0);
}

} // namespace

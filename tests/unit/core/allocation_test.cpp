// The roads of points and dashes take no memory.
#include <cstdlib>
#include <new>

#include "core/pipeline.h"
#include "plot_fixture.h"

namespace {
long allocations = 0;
}

// All forms, so that none of them meets the memory of another allocator.
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  allocations++;
  return std::malloc(size ? size : 1);
}
[[gnu::noinline]] void* operator new(std::size_t size) {
  if (void* memory = operator new(size, std::nothrow)) return memory;
  std::abort();
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return operator new(size, std::nothrow); }
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
void operator delete[](void* memory) noexcept { operator delete(memory); }
void operator delete[](void* memory, std::size_t) noexcept { operator delete(memory); }

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

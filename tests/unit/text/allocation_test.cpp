// Measuring a text takes no memory. (Sanitizers bring their own operator new.)
#if !defined(__SANITIZE_ADDRESS__)

#include <cstdlib>
#include <new>

#include "plot_fixture.h"

// The pair below belongs together; the compiler sees only one half of it inlined.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"

namespace {
long allocations = 0;
}

void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size > 0 ? size : 1)) return memory;
  std::abort();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

class Allocation : public PlotTest {
protected:
  long during(const char* text) {
    const long start = allocations;
    for (int i = 0; i < 10; ++i) NLMESS(text);
    return allocations - start;
  }
};

TEST_F(Allocation, MeasuringTakesNone) {
  open();
  for (void (*font)() : {QUIALF, COMPLX, HELVE}) {
    font();
    EXPECT_EQ(during("Temperature [K] 1234"), 0);
  }
  PSFONT("Times-Roman");
  EXPECT_EQ(during("Temperature [K] 1234"), 0);
  COMPLX();
  MIXALF();
  EXPECT_EQ(during("10[3$ m"), 0);
  TEXMOD("ON");
  EXPECT_EQ(during("$\\D\\sum_{i=1}^n \\frac{a_i}{\\sqrt{b}}$"), 0);
}

} // namespace

#endif

#include <fstream>
#include <set>
#include <thread>

#include "plot_fixture.h"

using namespace quilla;

namespace {

class Threads : public PlotTest {
protected:
  void SetUp() override {
    PlotTest::SetUp();
    unsetenv("QUILLA_TRACE"); // all threads would write to one trace
  }
};

void plot() {
  METAFL("PDF");
  SETFIL("plot.pdf");
  QUIINI();
  ERRMOD("PROT", "OFF");
  GRAF(0, 1, 0, 0.2F, 0, 1, 0, 0.2F);
  float x[] = {0, 0.5F, 1}, y[] = {0, 1, 0};
  CURVE(x, y, 3);
  QUIFIN();
}

std::string bytesOf(const std::filesystem::path& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(Threads, EachPlotsAsIfAlone) {
  constexpr int kThreads = 4, kPlots = 5;
  plot();
  std::string alone = bytesOf("plot.pdf");
  ASSERT_GT(alone.size(), 500U);
  freePlotState();
  THRINI(kThreads);
  std::thread workers[kThreads];
  for (std::thread& t : workers) {
    t = std::thread([] {
      for (int i = 0; i < kPlots; i++) plot();
    });
  }
  for (std::thread& t : workers) t.join();
  THRFIN();
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(".")) {
    if (entry.path().extension() != ".pdf") continue;
    files++;
    EXPECT_EQ(bytesOf(entry.path()), alone) << entry.path();
  }
  EXPECT_EQ(files, 1 + kThreads * kPlots) << "no two threads took the same version of the name";
}

TEST_F(Threads, StatesAreApart) {
  THRINI(2);
  PlotState* mine = plotState();
  mine->axis.graceMargin = 7;
  std::thread([mine] {
    EXPECT_EQ(existingPlotState(), nullptr);
    EXPECT_NE(plotState(), mine);
    EXPECT_EQ(plotState()->axis.graceMargin, 0);
    freePlotState();
  }).join();
  // The slot that was given back serves another thread.
  std::thread([] { EXPECT_NE(plotState(), nullptr); }).join();
  EXPECT_EQ(plotState(), mine);
  THRFIN();
  EXPECT_EQ(existingPlotState(), nullptr);
}

TEST_F(Threads, MessagesOfTheInterface) {
  EXPECT_EQ(outputOf([] { THRFIN(); }), ">>>> thrini is not called before!\n");
  EXPECT_EQ(outputOf([] { THRINI(0); }), ">>>> Invalid parameter in thrini!\n");
  plotState();
  EXPECT_EQ(outputOf([] { THRINI(2); }), ">>>> A QUILLA routine is called before thrini!\n");
  freePlotState();
  THRINI(2);
  EXPECT_EQ(outputOf([] { THRINI(2); }), ">>>> thrini is already called before!\n");
  THRFIN();
}

TEST_F(Threads, OneThreadTooManyEndsTheProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        THRINI(1);
        plotState();
        dup2(STDOUT_FILENO, STDERR_FILENO);
        dup2(STDERR_FILENO, STDOUT_FILENO);
        std::thread([] { plotState(); }).join();
      },
      testing::ExitedWithCode(1), "");
}

} // namespace

// A plot for tests: a fresh state, an empty folder as working directory, standard output caught, and the primitives
// that reach the sink as lines of text.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "core/levels.h"
#include "core/plot_state.h"
#include "quilla/quilla.h"

class PlotTest : public testing::Test {
protected:
  std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::path folder;

  void SetUp() override {
    std::string pattern = (std::filesystem::temp_directory_path() / "quilla_test_XXXXXX").string();
    folder = mkdtemp(pattern.data());
    std::filesystem::current_path(folder);
    setenv("QUILLA_TRACE", "trace.txt", 1);
    setenv("SOURCE_DATE_EPOCH", "1700000000", 1); // 14.11.2023 22:13:20 UTC
    quilla::freePlotState();
  }

  void TearDown() override {
    quilla::freePlotState();
    unsetenv("QUILLA_TRACE");
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder);
  }

  quilla::PlotState* state() { return quilla::plotState(); }

  // Opens a PDF plot without messages of the protocol.
  void open(const char* format = "PDF") {
    METAFL(format);
    QUIINI();
    ERRMOD("PROT", "OFF");
  }

  template <class Action> static std::string outputOf(Action action) {
    testing::internal::CaptureStdout();
    action();
    return testing::internal::GetCapturedStdout();
  }

  static std::vector<std::string> linesOf(const std::string& name) {
    std::vector<std::string> lines;
    std::ifstream file(name);
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
  }

  // Lines of the trace that begin with a word and a blank, without it; the plot is finished first.
  std::vector<std::string> traced(const std::string& word) {
    if (state()->level.plotLevel > 0) QUIFIN();
    std::vector<std::string> found;
    for (const std::string& line : linesOf("trace.txt")) {
      if (line.rfind(word + " ", 0) == 0) found.push_back(line.substr(word.size() + 1));
    }
    return found;
  }
};

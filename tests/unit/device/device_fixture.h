// A fresh plot state in a directory of its own, with a fixed date and the messages kept.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "core/levels.h"
#include "core/page.h"
#include "device/device_table.h"
#include "device/sink.h"
#include "device/writers.h"

namespace quilla {

class DeviceTest : public testing::Test {
protected:
  void SetUp() override {
    char name[] = "/tmp/quilla_device_XXXXXX";
    ASSERT_NE(mkdtemp(name), nullptr);
    directory = name;
    previous = std::filesystem::current_path();
    std::filesystem::current_path(directory);
    setenv("SOURCE_DATE_EPOCH", "1000000000", 1); // 9 September 2001, 01:46:40
    freePlotState();
    s = plotState();
    messages = std::tmpfile();
    s->streams.messageStream = messages;
    s->message.messageUnit = kUnitStream;
  }

  void TearDown() override {
    freePlotState();
    std::fclose(messages);
    std::filesystem::current_path(previous);
    std::filesystem::remove_all(directory);
    unsetenv("SOURCE_DATE_EPOCH");
  }

  // Opens a plot on a page of the given size, as QUIINI does before its default settings. White paper.
  bool open(int device, int width = 2969, int height = 2099) {
    s->deviceSetup.deviceNumber = device;
    s->pageSetup.pageWidthUnits = static_cast<float>(width);
    s->pageSetup.pageHeightUnits = static_cast<float>(height);
    s->level.plotLevel = kLevelPlot;
    s->colorState.backgroundMode = screenMode;
    startPage(s);
    return sinkOpen(s);
  }

  void close() {
    sinkClose(s);
    s->level.plotLevel = kLevelNone;
  }

  // What has been reported since the last call.
  std::string takeMessages() {
    std::fflush(messages);
    const long end = std::ftell(messages);
    std::string text(static_cast<std::size_t>(end - messagesRead), '\0');
    std::fseek(messages, messagesRead, SEEK_SET);
    EXPECT_EQ(std::fread(text.data(), 1, text.size(), messages), text.size());
    messagesRead = end;
    std::fseek(messages, 0, SEEK_END);
    return text;
  }

  static std::string read(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }

  static void write(const std::string& name, const std::string& text = "old\n") { std::ofstream(name) << text; }

  static int countOf(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
    return count;
  }

  PlotState* s = nullptr;
  int screenMode = kBackgroundReverse;
  std::filesystem::path directory, previous;
  std::FILE* messages = nullptr;
  long messagesRead = 0;
};

} // namespace quilla

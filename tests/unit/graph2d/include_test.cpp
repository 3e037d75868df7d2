// INCFIL reads back what PLTM and CGM plots hold, and whatever else it is given.
#include "plot_fixture.h"

#include "image/file_kind.h"

namespace {

using namespace quilla;

class Include : public PlotTest {
protected:
  static void write(const std::string& name, const std::string& text) { std::ofstream(name, std::ios::binary) << text; }
  static std::string bytes(std::initializer_list<int> values) {
    std::string text;
    for (int value : values) text += static_cast<char>(value);
    return text;
  }

  // A small plot in a file of the format.
  void plotFile(const char* format, const char* name) {
    METAFL(format);
    SETFIL(name);
    PAGE(201, 101);
    QUIINI();
    ERRMOD("PROT", "OFF");
    COLOR("RED");
    LINE(0, 0, 200, 100);
    LINE(0, 100, 200, 100);
    QUIFIN();
  }

  // Primitives that reach the sink while a file is included into a page of 401 by 401 units.
  std::vector<std::string> included(const char* name, void (*settings)() = nullptr) {
    METAFL("PDF");
    SETFIL("a.pdf");
    PAGE(401, 401);
    QUIINI();
    ERRMOD("PROT", "OFF");
    FRAME(0);
    if (settings) settings();
    std::fflush(state()->device.trace);
    const std::size_t start = linesOf("trace.txt").size();
    INCFIL(name);
    SENDBF();
    std::fflush(state()->device.trace);
    std::vector<std::string> lines = linesOf("trace.txt");
    lines.erase(lines.begin(), lines.begin() + static_cast<long>(start));
    while (!lines.empty() && lines.back() == "flush") lines.pop_back();
    return lines;
  }
  static std::vector<std::string> pens(const std::vector<std::string>& lines) {
    std::vector<std::string> found;
    for (const std::string& line : lines) {
      if (line.starts_with("move") || line.starts_with("draw")) found.push_back(line);
    }
    return found;
  }
};

using Lines = std::vector<std::string>;

TEST_F(Include, PltmIsScaledIntoThePage) {
  plotFile("PLTM", "a.met");
  // 2 by 1 cm into 401 units: factor 401/200, cut at the page, and the pen returns to (0, 0) at the end.
  const Lines lines = included("a.met");
  EXPECT_EQ(pens(lines),
            (Lines{"move 0.00 0.00", "draw 400.00 200.00", "move 0.00 200.50", "draw 400.00 200.50", "move 0.00 0.00"}))
      << testing::PrintToString(lines);
}

TEST_F(Include, CgmIsScaledByWhatItDraws) {
  plotFile("CGM", "a.cgm");
  const Lines lines = included("a.cgm");
  EXPECT_EQ(pens(lines), (Lines{"move 0.00 0.00", "draw 400.00 200.00", "move 0.00 200.50", "draw 400.00 200.50"}))
      << testing::PrintToString(lines);
}

TEST_F(Include, BoxMovesAndShrinks) {
  plotFile("PLTM", "a.met");
  plotFile("CGM", "a.cgm");
  for (const char* name : {"a.met", "a.cgm"}) {
    const Lines lines = pens(included(name, [] { FILBOX(100, 50, 200, 300); }));
    EXPECT_EQ(lines[0], "move 100.00 50.00") << name;
    EXPECT_EQ(lines[1], "draw 300.00 150.00") << name;
    QUIFIN();
  }
}

TEST_F(Include, ColorsOfTheFileOrNot) {
  plotFile("PLTM", "a.met");
  plotFile("CGM", "a.cgm");
  for (const char* name : {"a.met", "a.cgm"}) {
    const auto colors = [](const Lines& lines) {
      Lines found;
      for (const std::string& line : lines)
        if (line.starts_with("color")) found.push_back(line);
      return found;
    };
    const Lines with = colors(included(name));
    EXPECT_NE(std::find(with.begin(), with.end(), name[2] == 'm' ? "color 0x000000fe" : "color 0x010000ff"), with.end())
        << name << testing::PrintToString(with);
    EXPECT_EQ(GETCLR(), state()->color.foregroundColor) << "the colour of the plot comes back";
    QUIFIN();
    EXPECT_TRUE(colors(included(name, [] { FILCLR("NONE"); })).empty()) << name;
    QUIFIN();
  }
}

TEST_F(Include, FrameStandsAroundTheBox) {
  plotFile("PLTM", "a.met");
  const Lines lines = pens(included("a.met", [] {
    FILBOX(100, 50, 201, 101);
    FRAME(1);
  }));
  const Lines frame(lines.end() - 5, lines.end());
  EXPECT_EQ(frame, (Lines{"move 100.00 50.00", "draw 300.00 50.00", "draw 300.00 150.00", "draw 100.00 150.00",
                          "draw 100.00 50.00"}));
}

TEST_F(Include, FilesOfOtherKinds) {
  write("a.pdf.txt", "%PDF-1.3\n");
  write("a.ps", "%!PS-Adobe-2.0\n");
  write("a.hpg", " SP1;\n");
  write("a.wmf", bytes({1, 0, 9, 0, 0, 3, 0, 0}));
  write("b.wmf", bytes({0xD7, 0xCD, 0xC6, 0x9A}));
  write("a.img", "!Bitmap 12345 12345");
  write("empty", "");
  write("text", "Some words, no numbers in this line\n");
  write("zero", "       0.0       1.0\n 9.0000000\n");
  write("minus", "      -2.0       1.0\n 9.0000000\n");
  write("words", "       2.0   1.0 cm \n 9.0000000\n");
  write("infinite", "       inf       1.0\n 9.0000000\n");
  for (const char* name : {"a.pdf.txt", "a.ps", "a.hpg", "a.wmf", "b.wmf", "a.img", "empty", "text", "zero", "minus",
                           "words", "infinite"}) {
    const std::string text = outputOf([&] { EXPECT_TRUE(pens(included(name)).empty()) << name; });
    EXPECT_NE(text.find("Warning 56: Incorrect file format in incfil"), std::string::npos) << name << text;
    outputOf([] { QUIFIN(); });
  }
}

TEST_F(Include, MissingFile) {
  const std::string text = outputOf([&] { included("nothing.met"); });
  EXPECT_NE(text.find("Warning 36: File error in incfil!   (nothing.met)"), std::string::npos) << text;
  EXPECT_NE(outputOf([] { INCFIL("."); }).find("Warning 36"), std::string::npos);
  EXPECT_EQ(GETLEV(), 1);
}

TEST_F(Include, ImagesNeedAnotherDevice) {
  write("a.bmp", "BM\1\2");
  open("HPGL");
  const std::string text = outputOf([] { INCFIL("a.bmp"); });
  EXPECT_NE(text.find("Warning 40"), std::string::npos) << text;
}

TEST_F(Include, CutFilesKeepWhatWasRead) {
  for (const char* format : {"PLTM", "CGM"}) {
    plotFile(format, "whole");
    std::ifstream file("whole", std::ios::binary);
    const std::string whole((std::istreambuf_iterator<char>(file)), {});
    for (std::size_t length = 0; length < whole.size(); length += 7) {
      write("cut", whole.substr(0, length));
      std::vector<std::string> lines;
      const std::string text = outputOf([&] {
        lines = included("cut");
        QUIFIN();
      });
      const bool headLost = text.find("Warning 56") != std::string::npos;
      const bool endLost = text.find("Warning 122: The PLTMET file is not complete!") != std::string::npos;
      const bool blanksLost = format[0] == 'C' && length > whole.find_last_not_of(' ');
      EXPECT_TRUE(headLost || endLost || blanksLost) << format << length << text;
    }
    std::filesystem::remove("whole");
  }
}

TEST_F(Include, NothingIsDrawnOutsideTheClipWindow) {
  write("a.met", "       1.0       1.0\n 0.0000000 0.0000000 3.0000000 1.9999999 1.9999999 2.0000000 9.0000000\n");
  const Lines lines = pens(included("a.met"));
  EXPECT_EQ(lines, (Lines{"move 1.00 400.00", "draw 400.00 1.00"})) << testing::PrintToString(lines);
}

TEST_F(Include, OlderCgmHasItsOriginInTheMiddle) {
  // No colour selection mode: coordinates count from -32767.
  const std::string line = bytes({0x40, 0x28, 0x80, 0x01, 0x80, 0x01, 0x80, 0xC9, 0x80, 0x65}); // (0, 0) to (200, 100)
  write("old.cgm", bytes({0, 0x21, 0, 0}) + bytes({0x50, 0x81, 7, 0}) + line + bytes({0, 0x40}));
  const Lines lines = included("old.cgm", [] { FILBOX(0, 0, 100, 100); });
  EXPECT_EQ(pens(lines), (Lines{"move 0.00 50.00", "draw 100.00 0.00"})) << testing::PrintToString(lines);
  EXPECT_NE(std::find(lines.begin(), lines.end(), "color 0x00000007"), lines.end());
}

TEST_F(Include, HostileCgm) {
  const std::string head = bytes({0, 0x21, 0, 0, 0x20, 0x42, 0, 1});
  const std::string files[] = {head,                                                   // no end
                               head + bytes({0x40, 0x3F, 0x7F, 0xFF, 1, 2}),           // longer than the file
                               head + bytes({0x40, 0x3F, 0xFF, 0xFF, 1, 2}),           // and more parts of it
                               head + bytes({0x40, 0x3F, 0x80, 0, 0x80, 0, 0, 0}),     // parts without content
                               head + bytes({0x40, 0x21, 5, 0, 0x40, 0x23, 1, 2, 3}),  // odd lengths
                               head + bytes({0x40, 0x24, 0x80, 0, 0x80, 0, 0, 0x40}),  // negative coordinates alone
                               head + bytes({0x50, 0x82, 1, 2, 0x50, 0x80, 0, 0x40})}; // short colours
  for (const std::string& file : files) {
    write("a.cgm", file);
    outputOf([&] {
      included("a.cgm");
      QUIFIN();
    });
    EXPECT_EQ(GETLEV(), 0);
  }
}

TEST_F(Include, BoxIsChecked) {
  open();
  const auto refused = [](int x, int y, int w, int h) { return outputOf([=] { FILBOX(x, y, w, h); }); };
  EXPECT_NE(refused(-1, 0, 10, 10).find("Warning 1: Negative parameter"), std::string::npos);
  EXPECT_NE(refused(0, -5, 10, 10).find("Warning 1: Negative parameter"), std::string::npos);
  EXPECT_NE(refused(0, 0, 2971, 10).find("Warning 2"), std::string::npos);
  EXPECT_NE(refused(2147483647, 0, 2147483647, 10).find("Warning 2"), std::string::npos);
  EXPECT_NE(refused(0, 2147483647, 10, 2147483647).find("Warning 2"), std::string::npos);
  EXPECT_NE(refused(0, 0, -2147483647 - 1, 10).find("Warning 2"), std::string::npos);
  EXPECT_FALSE(state()->include.fileBoxSet);
  EXPECT_EQ(refused(0, 0, 2970, 2100), "");
  EXPECT_TRUE(state()->include.fileBoxSet);
  RESET("FILBOX");
  EXPECT_FALSE(state()->include.fileBoxSet);
}

TEST_F(Include, KindsOfFiles) {
  write("cgm", bytes({0, 0x3F, 0, 2, 1, 'a'}));
  write("png", "\x89PNG\r\n\x1A\n");
  write("gif", "GIF89a");
  write("tif", bytes({'I', 'I', 42, 0}));
  write("tim", bytes({'M', 'M', 0, 42}));
  write("two", "II");
  EXPECT_EQ(probeFileKind("cgm"), kFileCgm);
  EXPECT_EQ(probeFileKind("png"), kFilePng);
  EXPECT_EQ(probeFileKind("gif"), kFileGif);
  EXPECT_EQ(probeFileKind("tif"), kFileTiff);
  EXPECT_EQ(probeFileKind("tim"), kFileTiff);
  EXPECT_EQ(probeFileKind("two"), kFilePltm);
  EXPECT_EQ(probeFileKind("nothing"), kFileNotOpened);
}

} // namespace

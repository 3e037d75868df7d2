// WMF and EMF, read record by record.
#include "device_fixture.h"

#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <vector>

#include "core/colors.h"
#include "core/messages.h"
#include "quilla/quilla.h"

namespace quilla {
namespace {

class MetafilePlot : public DeviceTest {
protected:
  static int word(const std::string& text, std::size_t at) {
    return static_cast<unsigned char>(text[at]) | static_cast<unsigned char>(text[at + 1]) << 8;
  }
  static int number(const std::string& text, std::size_t at) {
    return static_cast<int>(static_cast<unsigned>(word(text, at)) | static_cast<unsigned>(word(text, at + 2)) << 16);
  }

  // "function:word,word,..." of each record of a WMF file.
  static std::vector<std::string> wmfRecords(const std::string& text, std::size_t at = 18) {
    std::vector<std::string> records;
    while (at + 6 <= text.size()) {
      const auto size = static_cast<std::size_t>(number(text, at)) * 2;
      if (size < 6 || at + size > text.size()) break;
      char name[8];
      std::snprintf(name, sizeof name, "%04x", word(text, at + 4));
      std::string record = name;
      for (std::size_t i = 6; i < size; i += 2)
        record += (i == 6 ? ":" : ",") + std::to_string(static_cast<std::int16_t>(word(text, at + i)));
      records.push_back(record);
      at += size;
    }
    EXPECT_EQ(at, text.size());
    return records;
  }

  // "type:long,long,..." of each record of an EMF file.
  static std::vector<std::string> emfRecords(const std::string& text) {
    std::vector<std::string> records;
    std::size_t at = 0;
    while (at + 8 <= text.size()) {
      const auto size = static_cast<std::size_t>(number(text, at + 4));
      if (size < 8 || size % 4 != 0 || at + size > text.size()) break;
      std::string record = std::to_string(number(text, at));
      for (std::size_t i = 8; i < size; i += 4) record += (i == 8 ? ":" : ",") + std::to_string(number(text, at + i));
      records.push_back(record);
      at += size;
    }
    EXPECT_EQ(at, text.size());
    return records;
  }

  void drawing() {
    qqcolor(s, directColor(255, 128, 1));
    sinkLineWidth(s, 1);
    qqpen(s, 0, 0, kPenMove);
    qqpen(s, 10, 20, kPenDraw);
    qqpen(s, 30, 20, kPenDraw);
  }
};

using Records = std::vector<std::string>;

TEST_F(MetafilePlot, WmfRecords) {
  ASSERT_TRUE(open(kDeviceWmf, 254, 127));
  drawing();
  close();
  const std::string text = read("quilla.wmf");
  EXPECT_EQ(text.substr(0, 6), std::string("\1\0\x9\0\0\3", 6));
  EXPECT_EQ(number(text, 6) * 2, static_cast<int>(text.size()));
  EXPECT_EQ(word(text, 10), 2);   // objects at the same time: brush and pen
  EXPECT_EQ(number(text, 12), 8); // words of the longest record, a pen
  // An inch is 1440 units, and the window has a margin of 20.
  EXPECT_EQ(wmfRecords(text),
            (Records{"0103:8", "020b:0,0", "020c:740,1460", "02fc:0,-1,255,0", "012d:0", "02fa:0,6,0,-32513,1",
                     "0209:-32513,1", "012d:1", "0214:0,0", "0213:113,57", "0213:113,170", "0000"}));
}

TEST_F(MetafilePlot, PlaceableHeader) {
  WMFMOD("PLAC", "FORM");
  ASSERT_TRUE(open(kDeviceWmf, 254, 127));
  drawing();
  close();
  const std::string text = read("quilla.wmf");
  EXPECT_EQ(text.substr(0, 4), "\xD7\xCD\xC6\x9A");
  const int words[] = {0, 0, 0, 1440, 720, 1440, 0, 0};
  int sum = 0xCDD7 ^ 0x9AC6;
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(word(text, 4 + 2 * static_cast<std::size_t>(i)), words[i]) << i;
    sum ^= words[i];
  }
  EXPECT_EQ(word(text, 20), sum);
  EXPECT_EQ(number(text, 28) * 2, static_cast<int>(text.size()) - 22);
  EXPECT_EQ(wmfRecords(text, 40).back(), "0000");
}

TEST_F(MetafilePlot, LargePagesAreInTenthsOfAMillimetre) {
  WMFMOD("PLAC", "FORM");
  ASSERT_TRUE(open(kDeviceWmf, 5767, 100)); // 32695 twips
  EXPECT_NEAR(static_cast<double>(s->device.deviceScale), 5.669, 0.001);
  close();
  EXPECT_EQ(word(read("quilla.wmf"), 14), 1440);
  ASSERT_TRUE(open(kDeviceWmf, 5769, 100));
  EXPECT_EQ(s->device.deviceScale, 1.0F);
  close();
  EXPECT_EQ(word(read("quilla_1.wmf"), 14), 254);
}

TEST_F(MetafilePlot, WmfModeIsChecked) {
  WMFMOD("PLAC", "SIZE");
  WMFMOD("WHAT", "FORM");
  EXPECT_EQ(countOf(takeMessages(), "Warning 2"), 2);
  EXPECT_FALSE(s->deviceSetup.wmfPlaceable);
}

TEST_F(MetafilePlot, EmfRecords) {
  s->pageSetup.scaleMode = kScaleFull;
  ASSERT_TRUE(open(kDeviceEmf, 852, 602));
  drawing();
  close();
  const std::string text = read("quilla.emf");
  EXPECT_EQ(text.substr(40, 4), " EMF");
  EXPECT_EQ(number(text, 48), static_cast<int>(text.size()));
  const Records records = emfRecords(text);
  EXPECT_EQ(number(text, 52), static_cast<int>(records.size()));
  EXPECT_EQ(word(text, 56), 3);                             // handles, that of the file included
  EXPECT_EQ(number(text, 60), 8);                           // characters of the description
  EXPECT_EQ(text.substr(108, 4), std::string("Q\0U\0", 4)); // it follows the header
  EXPECT_EQ(number(text, 4), 108 + 16);
  for (int i = 0; i < 4; ++i)
    EXPECT_EQ(number(text, 8 + 4 * static_cast<std::size_t>(i)), (i % 2 == 0 ? 30 : 20) * (i / 2));
  EXPECT_EQ(Records(records.begin() + 1, records.end()),
            (Records{"39:1,0,16777215,0", "37:1", "38:2,0,1,0,98559", "24:98559", "37:2", "27:0,0", "54:10,20",
                     "54:30,20", "14:0,16,20"}));
}

TEST_F(MetafilePlot, EmfPageIsBlackUnlessReversed) {
  screenMode = kBackgroundErase;
  s->pageSetup.scaleMode = kScaleFull;
  ASSERT_TRUE(open(kDeviceEmf, 852, 602));
  close();
  const Records records = emfRecords(read("quilla.emf"));
  ASSERT_GT(records.size(), 6U);
  EXPECT_EQ(records[3], "39:2,0,0,0");
  EXPECT_EQ(records[4], "37:2");
  EXPECT_EQ(records[5], "37:-2147483640"); // no outline
  EXPECT_EQ(records[6], "3:0,0,854,604,4,0,0,854,0,854,604,0,604");
  EXPECT_EQ(records[7], "37:1");
  EXPECT_EQ(records[8], "40:2");
}

TEST_F(MetafilePlot, PolygonsHaveAThinOutline) {
  ASSERT_TRUE(open(kDeviceWmf, 2969, 2099));
  s->clip.clipX1 = 2969;
  s->clip.clipY1 = 2099;
  drawing();
  sinkLineWidth(s, 100);
  const float x[] = {0, 100, 100}, y[] = {0, 0, 100};
  EXPECT_TRUE(qqfill(s, x, y, 3));
  close();
  const Records records = wmfRecords(read("quilla.wmf"));
  const auto polygon = std::find(records.begin(), records.end(), "0324:3,0,0,567,0,567,567");
  ASSERT_NE(polygon, records.end());
  EXPECT_EQ(*(polygon - 6), "02fa:0,1,0,-32513,1"); // a pen of width 1
  EXPECT_EQ(*(polygon - 2), "02fc:0,-32513,1,0");
  EXPECT_EQ(*(polygon - 1), "012d:1");
}

TEST_F(MetafilePlot, Bars) {
  ASSERT_TRUE(open(kDeviceWmf, 2540, 1270));
  EXPECT_TRUE(qqbar(s, 254, 0, 0, 127, directColor(1, 2, 3)));
  close();
  const Records records = wmfRecords(read("quilla.wmf"));
  EXPECT_NE(std::find(records.begin(), records.end(), "0324:4,0,0,1441,0,1441,721,0,721"), records.end());
  EXPECT_NE(std::find(records.begin(), records.end(), "02fa:5,1,0,0,0"), records.end()); // no outline
}

TEST_F(MetafilePlot, NoDirectoryNoPlot) {
  copyText(s->deviceSetup.plotFileName, "missing/a.emf", kFileNameLength);
  s->deviceSetup.fileNameState = kFileNameGiven;
  EXPECT_FALSE(open(kDeviceEmf));
  EXPECT_EQ(s->level.plotLevel, kLevelNone);
  EXPECT_NE(takeMessages().find("Warning 36: File error in"), std::string::npos);
}

// No file may grow beyond a few bytes, as on a full disk.
TEST_F(MetafilePlot, FullDiskIsReportedByEveryFormat) {
  rlimit before;
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  std::signal(SIGXFSZ, SIG_IGN);
  for (int device : {kDeviceWmf, kDeviceEmf, kDeviceSvg, kDevicePltm, kDeviceCgm, kDeviceHpgl, kDeviceJava, kDeviceIpe,
                     kDevicePs, kDeviceEps, kDevicePdf}) {
    ASSERT_TRUE(open(device));
    drawing();
    rlimit small = before;
    small.rlim_cur = 3;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    sinkClose(s);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    s->level.plotLevel = kLevelNone;
    const std::string text = takeMessages();
    EXPECT_EQ(countOf(text, "Warning 36: File error in"), 1) << device << text;
    EXPECT_EQ(countOf(text, "(quilla."), 1) << device << text;
    std::filesystem::remove(s->deviceSetup.plotFileName);
  }
  std::signal(SIGXFSZ, SIG_DFL);
}

} // namespace
} // namespace quilla

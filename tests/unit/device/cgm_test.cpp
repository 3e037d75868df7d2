#include "device_fixture.h"

#include "core/colors.h"
#include "quilla/quilla.h"

namespace quilla {
namespace {

class Cgm : public DeviceTest {
protected:
  static std::string bytes(std::initializer_list<int> values) {
    std::string text;
    for (int value : values) text += static_cast<char>(value);
    return text;
  }
  static std::string hex(const std::string& text) {
    std::string out;
    char digits[4];
    for (char c : text) {
      std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned char>(c));
      out += digits;
    }
    return out;
  }
  // The file without the blanks that fill its last record.
  std::string content() {
    std::string text = read(s->deviceSetup.plotFileName);
    EXPECT_EQ(text.size() % 80, 0U);
    return text.substr(0, text.find_last_not_of(' ') + 1);
  }
  std::string pictureHead(int number) {
    return bytes({0, 0x7F, 0, 9, 8}) + "Picture" + static_cast<char>('0' + number) + bytes({0}) +
           bytes(
               {0x20, 0x42, 0, 1, 0x20, 0xC8, 0, 0, 0, 0, 0x01, 0x90, 0, 0xC8, 0x20, 0xE4, 255, 255, 255, 0, 0, 0x80});
  }
};

TEST_F(Cgm, EmptyPicture) {
  ASSERT_TRUE(open(kDeviceCgm, 200, 100));
  close();
  const std::string text = "\"ProfileId:CALS\",\"ProfileEd:1.0\",\"Source:QUILLA 11.5\",\"Date:20010909\","
                           "\"ColourClass:colour\"";
  const std::string wanted = bytes({0, 0x3F, 0, 11, 10}) + "quilla.cgm" + bytes({0}) +
                             bytes({0x10, 0x22, 0, 1, 0x10, 0x5F, 0}) + static_cast<char>(text.size() + 1) +
                             static_cast<char>(text.size()) + text + (text.size() % 2 == 0 ? bytes({0}) : "") +
                             bytes({0x11, 0x66, 0, 1, 0xFF, 0xFF, 0, 1}) + pictureHead(1) + bytes({0, 0xA0, 0, 0x40});
  EXPECT_EQ(hex(content()), hex(wanted));
}

TEST_F(Cgm, SecondVersionTellsItsScale) {
  CGMVER(4);
  ASSERT_TRUE(open(kDeviceCgm, 200, 100));
  close();
  const std::string text = content();
  EXPECT_EQ(countOf(text, bytes({0x10, 0x22, 0, 4})), 1);
  EXPECT_EQ(countOf(text, bytes({0x20, 0x26, 0, 1, 0x3D, 0x4C, 0xCC, 0xC8})), 1);
  EXPECT_EQ(countOf(text, "ProfileId:WebCGM"), 1);
}

TEST_F(Cgm, OtherVersionsAreRefused) {
  for (int version : {0, 2, 3, 5, -1}) {
    CGMVER(version);
    EXPECT_NE(takeMessages().find("Warning 2"), std::string::npos);
  }
  EXPECT_EQ(s->deviceSetup.cgmVersion, 1);
}

TEST_F(Cgm, NameAndBackgroundOfAPicture) {
  CGMPIC("Odd");
  CGMBGD(1.0F, 0.5F, 0.0F);
  CGMBGD(1.1F, 0.5F, 0.0F);
  EXPECT_NE(takeMessages().find("Warning 2"), std::string::npos);
  ASSERT_TRUE(open(kDeviceCgm, 200, 100));
  sinkNewPage(s);
  close();
  const std::string text = content();
  EXPECT_EQ(countOf(text, bytes({0, 0x7F, 0, 4, 3}) + "Odd"), 1);
  EXPECT_EQ(countOf(text, "Picture2"), 1);
  EXPECT_EQ(countOf(text, bytes({0x20, 0xE4, 255, 128, 0, 0})), 2);
  EXPECT_EQ(countOf(text, bytes({0, 0xA0, 0, 0x7F})), 1);
}

TEST_F(Cgm, PolylineAndColor) {
  ASSERT_TRUE(open(kDeviceCgm, 200, 100));
  qqcolor(s, directColor(1, 2, 3));
  qqpen(s, 0, 0, kPenMove);
  qqpen(s, 200, 100, kPenDraw);
  qqcolor(s, directColor(4, 5, 6));
  qqpen(s, 0, 100, kPenDraw); // goes on from where the pen stands
  close();
  EXPECT_EQ(countOf(content(), bytes({0x50, 0x83, 1, 2, 3, 0, 0x40, 0x3F, 0, 8, 0, 0,    0, 0xC8, 1, 0x90, 0, 0,
                                      0x50, 0x83, 4, 5, 6, 0, 0x40, 0x3F, 0, 8, 1, 0x90, 0, 0,    0, 0,    0, 0})),
            1);
}

TEST_F(Cgm, HundredPointsEndAnElement) {
  ASSERT_TRUE(open(kDeviceCgm, 200, 100));
  for (int i = 0; i <= 100; ++i) qqpen(s, static_cast<float>(i), 100, i == 0 ? kPenMove : kPenDraw);
  close();
  const std::string text = content();
  EXPECT_EQ(countOf(text, bytes({0x40, 0x3F, 0x01, 0x90})), 1); // 100 points
  EXPECT_EQ(countOf(text, bytes({0x40, 0x3F, 0, 8, 0, 198, 0, 0, 0, 200, 0, 0})), 1);
}

TEST_F(Cgm, LoneMovesAreNotWritten) {
  ASSERT_TRUE(open(kDeviceCgm, 200, 100));
  for (int i = 0; i < 5; ++i) qqpen(s, 10, 10, kPenMove);
  close();
  EXPECT_EQ(countOf(content(), bytes({0x40, 0x3F})), 0);
}

TEST_F(Cgm, CoordinatesOutsideAreCut) {
  ASSERT_TRUE(open(kDeviceCgm, 200, 100));
  qqpen(s, -1e30F, 1e30F, kPenMove);
  qqpen(s, 1e30F, -1e30F, kPenDraw);
  close();
  EXPECT_EQ(countOf(content(), bytes({0x40, 0x3F, 0, 8, 0, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF})), 1);
}

} // namespace
} // namespace quilla

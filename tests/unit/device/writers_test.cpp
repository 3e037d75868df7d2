#include "device_fixture.h"

namespace quilla {
namespace {

class Writers : public DeviceTest {
protected:
  void openText(int device = kDevicePs) {
    s->deviceSetup.deviceNumber = device;
    s->device.plotOutput = openOutput("out", "wb");
    ASSERT_NE(s->device.plotOutput, nullptr);
  }
  std::string closeText() {
    EXPECT_TRUE(closeOutput(s->device.plotOutput));
    s->device.plotOutput = nullptr;
    return read("out");
  }
};

TEST_F(Writers, WordsFillLinesOfEightyCharacters) {
  openText();
  const std::string ten = "123456789 ";
  for (int i = 0; i < 9; ++i) qqtbuf(s, ten);
  qqtbuf(s, "", -1);
  std::string line;
  for (int i = 0; i < 8; ++i) line += ten;
  EXPECT_EQ(closeText(), line + "\n" + ten + "\n");
}

TEST_F(Writers, LongWordAfterAShortOneStartsALine) {
  openText();
  qqtbuf(s, "a ");
  qqtbuf(s, std::string(79, 'x'));
  qqtbuf(s, "", -1);
  EXPECT_EQ(closeText(), "a \n" + std::string(79, 'x') + "\n");
}

TEST_F(Writers, WordOfTheRemainingRoomStays) {
  openText();
  qqtbuf(s, "a ");
  qqtbuf(s, std::string(78, 'x'));
  qqtbuf(s, "b");
  qqtbuf(s, "", -1);
  EXPECT_EQ(closeText(), "a " + std::string(78, 'x') + "\nb\n");
}

TEST_F(Writers, WordLongerThanALineIsKeptWhole) {
  openText();
  qqtbuf(s, "a ");
  qqtbuf(s, std::string(300, 'x') + " b");
  qqtbuf(s, "", -1);
  EXPECT_EQ(closeText(), "a \n" + std::string(300, 'x') + " \nb\n");
}

TEST_F(Writers, LoneBlanksAreDroppedExceptTheLast) {
  openText();
  qqtbuf(s, "  1   2 3  ");
  qqtbuf(s, "4");
  qqtbuf(s, " ");
  qqtbuf(s, "5");
  qqtbuf(s, "", -1);
  EXPECT_EQ(closeText(), "1 2 3  4 5\n");
}

TEST_F(Writers, EndingAnEmptyLineWritesOne) {
  openText();
  qqtbuf(s, "", -1);
  EXPECT_EQ(closeText(), "\n");
}

TEST_F(Writers, TrailingLineStaysInTheBuffer) {
  openText();
  qqtbuf(s, "pending ");
  EXPECT_EQ(s->device.lineUsed, 8);
  EXPECT_EQ(closeText(), "");
}

TEST_F(Writers, RecordsOfCgmAreFilledAcrossCalls) {
  openText(kDeviceCgm);
  const std::string first(50, 'a'), second(200, 'b');
  qqsbuf(s, first.data(), 50);
  qqsbuf(s, second.data(), 200);
  EXPECT_EQ(s->device.lineUsed, 250 - 3 * 80);
  EXPECT_EQ(closeText(), (first + second).substr(0, 240));
}

TEST_F(Writers, RecordsOfTextFormatsEndAtTheLastWholePiece) {
  openText(kDeviceHpgl);
  const std::string piece(30, 'c');
  for (int i = 0; i < 3; ++i) qqsbuf(s, piece.data(), 30);
  EXPECT_EQ(s->device.lineUsed, 30);
  EXPECT_EQ(closeText(), piece + piece + "\n");
}

TEST_F(Writers, RecordThatFitsExactlyStays) {
  openText(kDeviceHpgl);
  const std::string piece(80, 'c');
  qqsbuf(s, piece.data(), 80);
  EXPECT_EQ(s->device.lineUsed, 80);
  EXPECT_EQ(closeText(), "");
}

TEST_F(Writers, TooLongRecordIsReportedAndDropped) {
  openText(kDeviceHpgl);
  const std::string piece(81, 'c');
  qqsbuf(s, piece.data(), 81);
  EXPECT_EQ(s->device.lineUsed, 0);
  EXPECT_NE(takeMessages().find("Warning 176: Internal overflow in qqsbuf"), std::string::npos);
  qqsbuf(s, "d", 1);
  EXPECT_EQ(s->device.lineUsed, 1);
  EXPECT_EQ(closeText(), "\n");
}

TEST_F(Writers, BufferKeepsBytesAcrossItsSize) {
  OutputBuffer* out = openOutput("big", "wb");
  std::string all;
  for (int i = 0; i < 30000; ++i) {
    const std::string piece = std::to_string(i) + ",";
    putText(out, piece);
    all += piece;
  }
  putText(out, std::string(200000, 'z'));
  all += std::string(200000, 'z');
  EXPECT_EQ(out->position, static_cast<long long>(all.size()));
  EXPECT_TRUE(closeOutput(out));
  EXPECT_EQ(read("big"), all);
}

TEST_F(Writers, FullDiskShowsAtTheEnd) {
  OutputBuffer* out = openOutput("/dev/full", "wb");
  ASSERT_NE(out, nullptr);
  putText(out, "text");
  EXPECT_FALSE(closeOutput(out));
}

TEST_F(Writers, FailedWriteStaysFailed) {
  OutputBuffer* out = openOutput("/dev/full", "wb");
  ASSERT_NE(out, nullptr);
  putText(out, std::string(kOutputBufferSize + 1, 'x'));
  EXPECT_TRUE(out->failed);
  for (int i = 0; i < 3; ++i) putText(out, std::string(kOutputBufferSize, 'x'));
  EXPECT_FALSE(closeOutput(out));
}

TEST_F(Writers, NoDirectoryNoFile) { EXPECT_EQ(openOutput("missing/out", "wb"), nullptr); }

} // namespace
} // namespace quilla

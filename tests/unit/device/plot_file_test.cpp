#include "device_fixture.h"

#include "device/pdf_writer.h"
#include "quilla/quilla.h"

namespace quilla {
namespace {

class PlotFile : public DeviceTest {
protected:
  // Name that a plot of the given name takes; "" if it is refused.
  std::string nameOf(const std::string& wanted) {
    SETFIL(wanted.c_str());
    if (!open(kDevicePs)) return "";
    const std::string name = s->deviceSetup.plotFileName;
    close();
    return name;
  }
};

TEST_F(PlotFile, DefaultName) {
  ASSERT_TRUE(open(kDevicePost));
  close();
  EXPECT_TRUE(std::filesystem::exists("quilla.psc"));
  ASSERT_TRUE(open(kDevicePdf));
  close();
  EXPECT_TRUE(std::filesystem::exists("quilla.pdf"));
  ASSERT_TRUE(open(kDevicePdf));
  close();
  EXPECT_TRUE(std::filesystem::exists("quilla_1.pdf"));
}

TEST_F(PlotFile, GivenNameIsReusedAgainstTheFirstFile) {
  SETFIL("plot.ps");
  ASSERT_TRUE(open(kDevicePs));
  EXPECT_EQ(s->deviceSetup.fileNameState, kFileNameReused);
  close();
  ASSERT_TRUE(open(kDevicePs));
  EXPECT_STREQ(s->deviceSetup.plotFileName, "plot_1.ps");
  close();
  ASSERT_TRUE(open(kDevicePs));
  EXPECT_STREQ(s->deviceSetup.plotFileName, "plot_2.ps");
  close();
}

TEST_F(PlotFile, CountCutsTheBase) {
  write("abcdefghijkl.ps");
  EXPECT_EQ(nameOf("abcdefghijkl.ps"), "abcdef_1.ps");
  write("abcdefg1.ps");
  FILOPT("NONE", "SEPA");
  EXPECT_EQ(nameOf("abcdefghijkl.ps"), "abcdefg2.ps");
  FILOPT("HYPH", "SEPA");
  FILOPT("LONG", "NUMB");
  FILOPT("6", "DIGI");
  EXPECT_EQ(nameOf("abcdefghijkl.ps"), "a-000001.ps");
}

TEST_F(PlotFile, VersionKeepsTheBase) {
  write("abcdefghijkl.ps");
  FILMOD("VERS");
  EXPECT_EQ(nameOf("abcdefghijkl.ps"), "abcdefghijkl_1.ps");
  EXPECT_EQ(nameOf("abcdefghijkl.ps"), "abcdefghijkl_2.ps");
}

TEST_F(PlotFile, NameWithoutAPoint) {
  write("plot");
  EXPECT_EQ(nameOf("plot"), "plot_1");
}

TEST_F(PlotFile, PointsAndCutsCountBehindTheDirectory) {
  std::filesystem::create_directory("long.directory.name");
  write("long.directory.name/plot");
  EXPECT_EQ(nameOf("long.directory.name/plot"), "long.directory.name/plot_1");
  write("long.directory.name/longfilename.a.ps");
  EXPECT_EQ(nameOf("long.directory.name/longfilename.a.ps"), "long.directory.name/longfi_1.ps");
}

TEST_F(PlotFile, DeleteReplaces) {
  write("plot.ps", "old");
  FILMOD("DELE");
  EXPECT_EQ(nameOf("plot.ps"), "plot.ps");
  EXPECT_EQ(read("plot.ps").substr(0, 4), "%!PS");
}

TEST_F(PlotFile, BreakRefuses) {
  write("plot.ps");
  FILMOD("BREA");
  EXPECT_EQ(nameOf("plot.ps"), "");
  EXPECT_EQ(s->level.plotLevel, kLevelNone);
  EXPECT_NE(takeMessages().find("Warning 169: Plotfile does exist"), std::string::npos);
  EXPECT_EQ(read("plot.ps"), "old\n");
  EXPECT_EQ(nameOf("other.ps"), "other.ps");
}

TEST_F(PlotFile, DirectoryCannotBeDeleted) {
  std::filesystem::create_directories("plot.ps/inner");
  FILMOD("DELE");
  EXPECT_EQ(nameOf("plot.ps"), "");
  EXPECT_NE(takeMessages().find("Warning 168: Plotfile cannot be deleted"), std::string::npos);
}

TEST_F(PlotFile, NumbersRunOut) {
  FILOPT("2", "DIGI");
  write("plot.ps");
  for (int i = 1; i < 99; ++i) write("plot_" + std::to_string(i) + ".ps");
  EXPECT_EQ(nameOf("plot.ps"), "plot_99.ps");
  EXPECT_EQ(nameOf("plot.ps"), "");
  EXPECT_NE(takeMessages().find("Warning 170: Too many file versions"), std::string::npos);
}

TEST_F(PlotFile, MissingDirectoryIsAFileError) {
  EXPECT_EQ(nameOf("missing/plot.ps"), "");
  EXPECT_EQ(s->level.plotLevel, kLevelNone);
  EXPECT_NE(takeMessages().find("Warning 36: File error"), std::string::npos);
  SETFIL("missing/plot.pdf");
  EXPECT_FALSE(open(kDevicePdf));
  EXPECT_NE(takeMessages().find("Warning 36: File error"), std::string::npos);
}

// Turns the open file into a device that takes nothing.
void fillDisk(OutputBuffer* out) {
  std::fclose(out->file);
  out->file = std::fopen("/dev/full", "w");
  std::setvbuf(out->file, nullptr, _IONBF, 0);
}

TEST_F(PlotFile, FullDiskIsReportedOnceWithTheName) {
  for (int device : {kDevicePs, kDevicePdf}) {
    ASSERT_TRUE(open(device));
    fillDisk(device == kDevicePs ? s->device.plotOutput : s->device.pdf->stream);
    for (int i = 0; i < 100000; ++i) qqpen(s, static_cast<float>(i % 997), static_cast<float>(i % 1013), kPenDraw);
    EXPECT_EQ(takeMessages(), "");
    close();
    const std::string name = s->deviceSetup.plotFileName;
    EXPECT_EQ(takeMessages(), " <<<< Warning 36: File error in !   (" + name + ")\n");
  }
}

} // namespace
} // namespace quilla

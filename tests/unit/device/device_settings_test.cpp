#include "device_fixture.h"

#include <string_view>

#include "platform/window_system.h"
#include "quilla/quilla.h"
#include "raster/canvas.h"

namespace quilla {
namespace {

class Settings : public DeviceTest {};

TEST_F(Settings, AllKeywordsGiveTheirNumber) {
  struct Row {
    const char* keyword;
    int number;
  };
  constexpr Row kRows[] = {{"pltm", 201}, {"cgm", 211}, {"hpgl", 401}, {"hpa4", 402}, {"hpa3", 403}, {"hpa2", 404},
                           {"hpa1", 405}, {"cons", 80}, {"post", 501}, {"pscl", 502}, {"xwin", 72},  {"xwi1", 72},
                           {"xwi2", 73},  {"xwi3", 74}, {"xwi4", 75},  {"xwi5", 76},  {"xwi6", 77},  {"xwi7", 78},
                           {"xwi8", 79},  {"xwnd", 80}, {"tiff", 601}, {"imag", 602}, {"virt", 603}, {"png", 604},
                           {"java", 701}, {"wmf", 221}, {"emf", 231},  {"ppm", 605},  {"pdf", 511},  {"eps", 503},
                           {"bmp", 606},  {"ps", 504},  {"svg", 801},  {"ipe", 802},  {"gif", 607},  {"gl", 80}};
  static_assert(std::size(kRows) == kDeviceKeywordCount);
  for (const Row& row : kRows) {
    METAFL(row.keyword);
    EXPECT_EQ(s->deviceSetup.deviceNumber, row.number) << row.keyword;
  }
}

TEST_F(Settings, ConsoleIsTheWindowButKeepsItsKeyword) {
  METAFL("cons");
  EXPECT_EQ(s->deviceSetup.deviceNumber, 80);
  EXPECT_STREQ(s->deviceSetup.deviceKeyword, "CONS");
  EXPECT_TRUE(s->deviceSetup.deviceChosen);
}

TEST_F(Settings, OpenGlIsReportedAndBecomesAWindow) {
  METAFL("GL");
  EXPECT_EQ(s->deviceSetup.deviceNumber, 80);
  EXPECT_STREQ(s->deviceSetup.deviceKeyword, "GL  ");
  EXPECT_EQ(takeMessages(), " <<<< Warning 181: OPENGL is not supported in metafl!\n");
}

TEST_F(Settings, NumberedWindows) {
  for (const char* name : {"met1", "MET5", "Met9x"}) {
    s->deviceSetup.deviceNumber = 0;
    METAFL(name);
    EXPECT_EQ(s->deviceSetup.deviceNumber, 80) << name;
  }
  METAFL("PDF");
  for (const char* name : {"MET0", "META", "MET:", "MET"}) METAFL(name);
  EXPECT_EQ(s->deviceSetup.deviceNumber, 511);
  EXPECT_EQ(countOf(takeMessages(), "Warning 2:"), 4);
}

TEST_F(Settings, UnknownKeywordKeepsTheDevice) {
  METAFL("PDF");
  METAFL("DOCX");
  EXPECT_EQ(s->deviceSetup.deviceNumber, 511);
  EXPECT_STREQ(s->deviceSetup.deviceKeyword, "PDF ");
  EXPECT_EQ(takeMessages(), " <<<< Warning 2: Incorrect parameter in metafl!   (DOCX)\n");
  METAFL("");
  EXPECT_EQ(s->deviceSetup.deviceNumber, 511);
}

TEST_F(Settings, OnlyTheFirstFourCharactersCount) {
  METAFL("PostScript");
  EXPECT_EQ(s->deviceSetup.deviceNumber, 501);
}

TEST_F(Settings, DeviceIsFixedWhileAPlotIsOpen) {
  ASSERT_TRUE(open(kDevicePdf));
  METAFL("PS");
  EXPECT_EQ(s->deviceSetup.deviceNumber, 511);
  EXPECT_NE(takeMessages().find("Warning 3"), std::string::npos);
  close();
}

TEST_F(Settings, Extensions) {
  struct Row {
    int number;
    const char* extension;
  };
  constexpr Row kRows[] = {{201, "met"}, {211, "cgm"}, {401, "hpg"},  {402, "hpg"}, {403, "hpg"},
                           {404, "hpg"}, {405, "hpg"}, {501, "psc"},  {502, "psc"}, {601, "tif"},
                           {602, "img"}, {604, "png"}, {221, "wmf"},  {231, "emf"}, {605, "ppm"},
                           {511, "pdf"}, {503, "eps"}, {606, "bmp"},  {504, "ps"},  {801, "svg"},
                           {802, "ipe"}, {607, "gif"}, {701, "java"}, {603, "   "}, {80, "   "}};
  for (const Row& row : kRows) EXPECT_STREQ(extensionOfDevice(row.number), row.extension) << row.number;
}

TEST_F(Settings, FamiliesFollowTheRanges) {
  EXPECT_EQ(deviceFamily(72), DeviceFamily::kWindow);
  EXPECT_EQ(deviceFamily(80), DeviceFamily::kWindow);
  EXPECT_EQ(deviceFamily(81), DeviceFamily::kOpenGl);
  EXPECT_EQ(deviceFamily(201), DeviceFamily::kPltm);
  EXPECT_EQ(deviceFamily(211), DeviceFamily::kCgm);
  EXPECT_EQ(deviceFamily(221), DeviceFamily::kMetafile);
  EXPECT_EQ(deviceFamily(231), DeviceFamily::kMetafile);
  EXPECT_EQ(deviceFamily(401), DeviceFamily::kHpgl);
  EXPECT_EQ(deviceFamily(405), DeviceFamily::kHpgl);
  for (int number : {501, 502, 503, 504}) EXPECT_EQ(deviceFamily(number), DeviceFamily::kPostScript);
  EXPECT_EQ(deviceFamily(511), DeviceFamily::kPdf);
  for (int number = 601; number <= 607; ++number) EXPECT_EQ(deviceFamily(number), DeviceFamily::kRaster);
  EXPECT_EQ(deviceFamily(701), DeviceFamily::kJava);
  EXPECT_EQ(deviceFamily(801), DeviceFamily::kSvg);
  EXPECT_EQ(deviceFamily(802), DeviceFamily::kIpe);
}

TEST_F(Settings, ScreenModes) {
  struct Row {
    const char* keyword;
    int mode;
  };
  for (const Row& row : {Row{"NOER", 1}, {"REVE", 2}, {"NORE", 0}, {"AUTO", 4}, {"ERAS", 0}}) {
    SCRMOD(row.keyword);
    EXPECT_EQ(s->colorSetup.screenModeWanted, row.mode) << row.keyword;
  }
}

TEST_F(Settings, FileOptions) {
  FILMOD("vers");
  EXPECT_EQ(s->deviceSetup.fileMode, kFileVersion);
  FILOPT("hyph", "sepa");
  EXPECT_EQ(s->deviceSetup.versionSeparator, 1);
  FILOPT("LONG", "NUMB");
  EXPECT_EQ(s->deviceSetup.versionStyle, 1);
  FILOPT("6", "DIGI");
  EXPECT_EQ(s->deviceSetup.versionDigits, 6);
  FILOPT("7", "DIGI");
  EXPECT_EQ(s->deviceSetup.versionDigits, 6);
  FILOPT("VIEW", "SCAL");
  EXPECT_EQ(s->deviceSetup.includeScaling, 2);
  FILOPT("ON", "SCAL");
  EXPECT_EQ(s->deviceSetup.includeScaling, 1);
  EXPECT_EQ(countOf(takeMessages(), "Warning 2:"), 1);
}

TEST_F(Settings, LongFileNameIsCut) {
  SETFIL(std::string(300, 'n').c_str());
  EXPECT_EQ(std::string_view(s->deviceSetup.plotFileName).size(), 256U);
}

TEST_F(Settings, BufferModeNeedsItsKey) {
  s->level.plotLevel = kLevelPlot;
  BUFMOD("ON", "SEND");
  EXPECT_TRUE(s->device.sendAfterPicture);
  BUFMOD("OFF", "SOME");
  EXPECT_TRUE(s->device.sendAfterPicture);
  EXPECT_EQ(countOf(takeMessages(), "Warning 2:"), 1);
}

TEST_F(Settings, PdfModes) {
  EXPECT_EQ(s->deviceSetup.pdfMode, 1);
  PDFMOD("ON", "BUFF");
  EXPECT_EQ(s->deviceSetup.pdfMode, 3);
  PDFMOD("OFF", "COMP");
  EXPECT_EQ(s->deviceSetup.pdfMode, 2);
  PDFMOD("ON", "PAGE");
  EXPECT_EQ(s->deviceSetup.pdfMode, 2);
  EXPECT_EQ(countOf(takeMessages(), "Warning 2:"), 1);
}

TEST_F(Settings, PostScriptModes) {
  PSMODE("SING");
  EXPECT_EQ(s->deviceSetup.psSinglePage, 1);
  PSMODE("BOTH");
  EXPECT_EQ(s->text.psShiftFonts, 3);
  EXPECT_EQ(s->deviceSetup.psSinglePage, 1);
  s->level.plotLevel = kLevelAxis2D;
  PSMODE("ITAL");
  EXPECT_EQ(s->text.psShiftFonts, 2);
  EXPECT_EQ(takeMessages(), "");
  PSMODE("MULT");
  EXPECT_EQ(s->deviceSetup.psSinglePage, 1);
  EXPECT_NE(takeMessages().find("Warning 3"), std::string::npos);
  s->level.plotLevel = kLevelNone;
}

TEST_F(Settings, PostScriptCommentIsReplaced) {
  PSMETA("%first", "INFO");
  PSMETA("%second", "INFO");
  PSMETA("%third", "NOTE");
  EXPECT_STREQ(s->deviceSetup.psInfoText, "%second");
}

TEST_F(Settings, NamesOfTheOpenPlot) {
  METAFL("PDF");
  EXPECT_STREQ(GETFIL(), "");
  ASSERT_TRUE(open(kDevicePdf));
  EXPECT_STREQ(GETFIL(), "quilla.pdf");
  EXPECT_STREQ(GETMFL(), "PDF ");
  EXPECT_STREQ(GETDSP(), "NONE");
  close();
}

// Where there is no display, windows are pictures in memory, and that is told once.
TEST_F(Settings, WindowsWithoutADisplayAreInMemory) {
  useWindowSystem(nullptr);
  testing::internal::CaptureStderr();
  for (int number : {72, 80, 81}) {
    s->level.plotLevel = kLevelPlot;
    EXPECT_TRUE(open(number)) << number;
    ASSERT_NE(s->raster.canvas, nullptr);
    EXPECT_EQ(s->raster.canvas->width, 853);
    EXPECT_EQ(s->raster.canvas->height, 603);
    qqcolor(s, 5);
    qqpen(s, 100, 100, kPenMove);
    qqpen(s, 200, 100, kPenDraw);
    sinkFlush(s);
    const int x = static_cast<int>(150 * s->device.deviceScale),
              y = static_cast<int>(100 * s->device.deviceScale + 0.5F);
    EXPECT_EQ(readIndex(*s->raster.canvas, x, y), 5);
    sinkClose(s);
    EXPECT_EQ(s->raster.canvas, nullptr);
  }
  EXPECT_EQ(takeMessages(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "QUILLA: there is no display, plots for windows are drawn in memory\n");
}

} // namespace
} // namespace quilla

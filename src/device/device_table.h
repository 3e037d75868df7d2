// The output formats: keyword, device number, file extension, and the family that decides which driver serves a device.
#pragma once

namespace quilla {

inline constexpr int kDeviceKeywordCount = 36;

enum DeviceNumber : int {
  kDeviceWindowFirst = 72, // XWIN and XWI1; XWI8 is 79
  kDeviceWindow = 80,      // XWND, CONS, MET1 to MET9
  kDeviceOpenGl = 81,
  kDeviceConsole = 101, // CONS before it becomes 80; also the first number that is no window
  kDevicePltm = 201,
  kDeviceCgm = 211,
  kDeviceWmf = 221,
  kDeviceEmf = 231,
  kDeviceHpgl = 401,
  kDeviceHpglA4 = 402,
  kDeviceHpglA1 = 405,
  kDevicePost = 501,
  kDevicePostColor = 502,
  kDeviceEps = 503,
  kDevicePs = 504,
  kDevicePdf = 511,
  kDeviceTiff = 601,
  kDeviceImage = 602,
  kDeviceVirtual = 603,
  kDevicePng = 604,
  kDevicePpm = 605,
  kDeviceBmp = 606,
  kDeviceGif = 607,
  kDeviceJava = 701,
  kDeviceSvg = 801,
  kDeviceIpe = 802
};

// What the sink switches on. Every operation of the sink names every family, so that a new one cannot be forgotten.
enum class DeviceFamily {
  kWindow,
  kOpenGl,
  kPltm,
  kCgm,
  kMetafile,
  kHpgl,
  kPostScript,
  kPdf,
  kRaster,
  kJava,
  kSvg,
  kIpe
};

// Family by the ranges of device numbers. In the order of the tests, so that file formats come before windows.
constexpr DeviceFamily deviceFamily(int number) {
  if (number > 800) return number == kDeviceIpe ? DeviceFamily::kIpe : DeviceFamily::kSvg;
  if (number > 700) return DeviceFamily::kJava;
  if (number > 600) return DeviceFamily::kRaster;
  if (number > 500) return number == kDevicePdf ? DeviceFamily::kPdf : DeviceFamily::kPostScript;
  if (number > 400) return DeviceFamily::kHpgl;
  if (number > 200) {
    if (number == kDeviceCgm) return DeviceFamily::kCgm;
    return number == kDeviceWmf || number == kDeviceEmf ? DeviceFamily::kMetafile : DeviceFamily::kPltm;
  }
  return number == kDeviceOpenGl ? DeviceFamily::kOpenGl : DeviceFamily::kWindow;
}

struct DeviceRow {
  char keyword[5];
  int number;
};
extern const DeviceRow kDeviceRows[kDeviceKeywordCount];

// Device number of a keyword of four characters, upper case and padded; 0 if there is none.
int deviceOfKeyword(const char* key);

// Extension of the plot file, without the point; three blanks for a device without one.
const char* extensionOfDevice(int number);

} // namespace quilla

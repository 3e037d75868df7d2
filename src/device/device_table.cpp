#include "device/device_table.h"

#include <cstring>

namespace quilla {

const DeviceRow kDeviceRows[kDeviceKeywordCount] = {
    {"PLTM", kDevicePltm},
    {"CGM ", kDeviceCgm},
    {"HPGL", kDeviceHpgl},
    {"HPA4", kDeviceHpglA4},
    {"HPA3", 403},
    {"HPA2", 404},
    {"HPA1", kDeviceHpglA1},
    {"CONS", kDeviceConsole},
    {"POST", kDevicePost},
    {"PSCL", kDevicePostColor},
    {"XWIN", kDeviceWindowFirst},
    {"XWI1", kDeviceWindowFirst},
    {"XWI2", 73},
    {"XWI3", 74},
    {"XWI4", 75},
    {"XWI5", 76},
    {"XWI6", 77},
    {"XWI7", 78},
    {"XWI8", 79},
    {"XWND", kDeviceWindow},
    {"TIFF", kDeviceTiff},
    {"IMAG", kDeviceImage},
    {"VIRT", kDeviceVirtual},
    {"PNG ", kDevicePng},
    {"JAVA", kDeviceJava},
    {"WMF ", kDeviceWmf},
    {"EMF ", kDeviceEmf},
    {"PPM ", kDevicePpm},
    {"PDF ", kDevicePdf},
    {"EPS ", kDeviceEps},
    {"BMP ", kDeviceBmp},
    {"PS  ", kDevicePs},
    {"SVG ", kDeviceSvg},
    {"IPE ", kDeviceIpe},
    {"GIF ", kDeviceGif},
    {"GL  ", kDeviceOpenGl},
};

namespace {

struct ExtensionRow {
  int number;
  const char* extension;
};
constexpr int kExtensionCount = 23;
constexpr ExtensionRow kExtensions[kExtensionCount] = {
    {kDevicePltm, "met"},   {kDeviceCgm, "cgm"},   {kDeviceHpgl, "hpg"},
    {kDeviceHpglA4, "hpg"}, {403, "hpg"},          {404, "hpg"},
    {kDeviceHpglA1, "hpg"}, {kDevicePost, "psc"},  {kDevicePostColor, "psc"},
    {kDeviceTiff, "tif"},   {kDeviceImage, "img"}, {kDevicePng, "png"},
    {kDeviceWmf, "wmf"},    {kDeviceEmf, "emf"},   {kDevicePpm, "ppm"},
    {kDevicePdf, "pdf"},    {kDeviceEps, "eps"},   {kDeviceBmp, "bmp"},
    {kDevicePs, "ps"},      {kDeviceSvg, "svg"},   {kDeviceIpe, "ipe"},
    {kDeviceGif, "gif"},    {kDeviceJava, "java"},
};

} // namespace

int deviceOfKeyword(const char* key) {
  for (const DeviceRow& row : kDeviceRows) {
    if (std::memcmp(row.keyword, key, 4) == 0) return row.number;
  }
  return 0;
}

const char* extensionOfDevice(int number) {
  for (const ExtensionRow& row : kExtensions) {
    if (row.number == number) return row.extension;
  }
  return "   ";
}

} // namespace quilla

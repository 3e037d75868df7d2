// One line from script coordinates to the bytes of five formats: both page origins, turned and unturned pages. The
// line runs from (1000, 500) to (2000, 500) on the default page of 2969 by 2099 units.
#include <fstream>

#include "plot_fixture.h"

namespace {

struct DeviceCase {
  const char *format, *page, *origin, *expected;
};

// Scales by hand: HPGL 4; PS 3900 / 2099 = 1.858027, or upright 3900 / 2969 = 1.313574; Java and SVG 602 / 2099 =
// 0.2868032, or turned 602 / 2969 = 0.2027619; PLTM 1 / 2969. From the bottom the line lies at y = 1599 from the top.
constexpr DeviceCase kCases[] = {
    {"HPGL", "LAND", "TOP", "PU4000,6396;PD8000,6396;"},
    {"HPGL", "LAND", "BOTT", "PU4000,2000;PD8000,2000;"},
    {"HPGL", "PORT", "TOP", "PU2000,4000;PD2000,8000;"},
    {"HPGL", "PORT", "BOTT", "PU6396,4000;PD6396,8000;"},
    {"PS", "LAND", "TOP", "929 1858 u 929 3716 d "},
    {"PS", "LAND", "BOTT", "2971 1858 u 2971 3716 d "},
    {"PS", "PORT", "TOP", "929 1858 u 929 3716 d "},
    {"PS", "NONE", "TOP", "1314 2100 u 2627 2100 d "},
    {"JAVA", "LAND", "TOP", "drawLine (287,143,574,143)"},
    {"JAVA", "LAND", "BOTT", "drawLine (287,459,574,459)"},
    {"JAVA", "PORT", "TOP", "drawLine (101,399,101,196)"},
    {"JAVA", "PORT", "BOTT", "drawLine (324,399,324,196)"},
    {"SVG", "LAND", "TOP", "x1=\"286.80\" y1=\"143.40\" x2=\"573.61\" y2=\"143.40\""},
    {"SVG", "LAND", "BOTT", "x1=\"286.80\" y1=\"458.60\" x2=\"573.61\" y2=\"458.60\""},
    {"SVG", "PORT", "TOP", "x1=\"101.38\" y1=\"399.24\" x2=\"101.38\" y2=\"196.48\""},
    {"PLTM", "LAND", "TOP", "0.3368137 0.5385652"},
    {"PLTM", "PORT", "TOP", "0.1684069 0.3368137"},
};

class Devices : public PlotTest {};

TEST_F(Devices, LinesArriveWhereTheyShould) {
  unsetenv("QUILLA_TRACE");
  for (const DeviceCase& c : kCases) {
    quilla::freePlotState();
    METAFL(c.format);
    SETFIL("plot.out");
    FILMOD("DELE");
    PAGMOD(c.page);
    outputOf([&c] {
      QUIINI();
      PAGORG(c.origin);
      LINE(1000, 500, 2000, 500);
      QUIFIN();
    });
    std::ifstream file("plot.out", std::ios::binary);
    std::string bytes(std::istreambuf_iterator<char>(file), {});
    EXPECT_NE(bytes.find(c.expected), std::string::npos) << c.format << " " << c.page << " " << c.origin;
  }
}

} // namespace

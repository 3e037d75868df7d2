// Conversion of user arrays between coordinate systems, and resampling of matrices.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr double kRadians = 0.017453292522222223; // of one degree, in the conversions of points

enum System3 : int { kRectangular = 1, kSpherical = 2, kCylindrical = 3 };

// Numbers of the two keywords; false after a warning or if there is nothing to convert.
bool findSystems(PlotState* s, const char* list, int count, const char* from, const char* to, int& a, int& b) {
  a = matchKeyword(s, list, count, from);
  b = matchKeyword(s, list, count, to);
  if (!a || !b) return false;
  if (a != b) return true;
  warnWithText(s, 110, "No conversion necessary");
  return false;
}

// Degrees; 0 for the origin, which has no direction.
double angleOf(double x, double y) { return x == 0.0 && y == 0.0 ? 0.0 : std::atan2(y, x) / kRadians; }

void toPolar(float& first, float& second) {
  double x = static_cast<double>(first), y = static_cast<double>(second);
  first = static_cast<float>(std::sqrt(x * x + y * y));
  second = static_cast<float>(angleOf(x, y));
}

void fromPolar(float& first, float& second) {
  double r = static_cast<double>(first), a = static_cast<double>(second) * kRadians;
  first = static_cast<float>(r * std::cos(a));
  second = static_cast<float>(r * std::sin(a));
}

void toSpherical(float& first, float& second, float& third) {
  double x = static_cast<double>(first), y = static_cast<double>(second), z = static_cast<double>(third);
  double across = std::sqrt(x * x + y * y);
  first = static_cast<float>(angleOf(x, y));
  second = static_cast<float>(angleOf(across, z));
  third = static_cast<float>(std::sqrt(across * across + z * z));
}

void fromSpherical(float& first, float& second, float& third) {
  double a = static_cast<double>(first) * kRadians, b = static_cast<double>(second) * kRadians;
  double r = static_cast<double>(third);
  first = static_cast<float>(r * std::cos(b) * std::cos(a));
  second = static_cast<float>(r * std::cos(b) * std::sin(a));
  third = static_cast<float>(r * std::sin(b));
}

// Cell and fraction of the source for target index i of n2.
struct Place {
  int cell;
  double fraction;
};

Place placeOf(int i, int n, int n2) {
  double position = static_cast<double>(i) * (n - 1) / (n2 - 1);
  int cell = static_cast<int>(position);
  if (cell > n - 2) return {n - 2, 1.0};
  return {cell, position - cell};
}

} // namespace

void TRFCO1(float* x, int n, const char* from, const char* to) {
  constexpr float kToRadians = 0.017453292F;
  PlotState* s = strictCheck(0, 3, "trfco1");
  if (!s || checkRange(s, n, 1, -1)) return;
  int a = 0, b = 0;
  if (!findSystems(s, "DEGR+RADI", 2, from, to, a, b)) return;
  for (int i = 0; i < n; i++) x[i] = a == 1 ? x[i] * kToRadians : x[i] / kToRadians;
}

void TRFCO2(float* x, float* y, int n, const char* from, const char* to) {
  PlotState* s = strictCheck(0, 3, "trfco2");
  if (!s || checkRange(s, n, 1, -1)) return;
  int a = 0, b = 0;
  if (!findSystems(s, "RECT+POLA", 2, from, to, a, b)) return;
  for (int i = 0; i < n; i++) {
    if (a == kRectangular) {
      toPolar(x[i], y[i]);
    } else {
      fromPolar(x[i], y[i]);
    }
  }
}

void TRFCO3(float* x, float* y, float* z, int n, const char* from, const char* to) {
  PlotState* s = strictCheck(0, 3, "trfco3");
  if (!s || checkRange(s, n, 1, -1)) return;
  int a = 0, b = 0;
  if (!findSystems(s, "RECT+SPHE+CYLI", 3, from, to, a, b)) return;
  for (int i = 0; i < n; i++) {
    if (a == kSpherical) fromSpherical(x[i], y[i], z[i]);
    if (a == kCylindrical) fromPolar(x[i], y[i]);
    if (b == kSpherical) toSpherical(x[i], y[i], z[i]);
    if (b == kCylindrical) toPolar(x[i], y[i]);
  }
}

void TRFMAT(const float* z, int nx, int ny, float* z2, int nx2, int ny2) {
  PlotState* s = strictCheck(0, 3, "trfmat");
  if (!s || checkRange(s, nx, 2, -1) || checkRange(s, ny, 2, -1) || checkRange(s, nx2, 2, -1) ||
      checkRange(s, ny2, 2, -1))
    return;
  for (int i = 0; i < nx2; i++) {
    Place px = placeOf(i, nx, nx2);
    const float* left = z + static_cast<std::ptrdiff_t>(px.cell) * ny;
    const float* right = left + ny;
    float* row = z2 + static_cast<std::ptrdiff_t>(i) * ny2;
    for (int k = 0; k < ny2; k++) {
      Place py = placeOf(k, ny, ny2);
      int c = py.cell;
      double low = static_cast<double>(left[c]) * (1.0 - py.fraction) + static_cast<double>(left[c + 1]) * py.fraction;
      double high =
          static_cast<double>(right[c]) * (1.0 - py.fraction) + static_cast<double>(right[c + 1]) * py.fraction;
      row[k] = static_cast<float>(low * (1.0 - px.fraction) + high * px.fraction);
    }
  }
}

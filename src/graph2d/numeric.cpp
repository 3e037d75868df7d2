// Fitting, statistics and sorting of user arrays.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "core/stop_request.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

enum FitMode : int { kFitOnly = 1, kFitAll = 2, kFitLine = 3 };

// Least squares in single precision, as the curves themselves are.
struct Fit {
  float a, b, r;
};

float meanOf(const float* x, int n) {
  double sum = 0.0;
  for (int i = 0; i < n; i++) sum += static_cast<double>(x[i]);
  return static_cast<float>(sum / n);
}

Fit fitLine(const float* x, const float* y, int n) {
  float meanX = meanOf(x, n), meanY = meanOf(y, n);
  double sxx = 0.0, sxy = 0.0, syy = 0.0;
  for (int i = 0; i < n; i++) {
    double dx = static_cast<double>(x[i] - meanX), dy = static_cast<double>(y[i] - meanY);
    sxx += dx * dx;
    sxy += dx * dy;
    syy += dy * dy;
  }
  Fit f;
  f.a = static_cast<float>(sxy) / static_cast<float>(sxx);
  f.b = meanY - meanX * f.a;
  f.r = static_cast<float>(sxy) / (std::sqrt(static_cast<float>(sxx)) * std::sqrt(static_cast<float>(syy)));
  return f;
}

// The points as symbols without a line, the line without symbols.
void drawFit(PlotState* s, const float* x, const float* y, int n, const Fit& fit, int mode) {
  int kept = s->curve.markerStep;
  if (mode == kFitAll) {
    s->curve.markerStep = -1;
    CURVE(x, y, n);
  }
  float ends[2] = {x[0], x[n - 1]}, values[2] = {fit.a * ends[0] + fit.b, fit.a * ends[1] + fit.b};
  s->curve.markerStep = 0;
  CURVE(ends, values, 2);
  s->curve.markerStep = kept;
}

// Direction of a sort by the first character of its option: 1 ascending, -1 descending, 0 after warning 2.
int sortDirection(PlotState* s, const char* option) {
  char first = option ? option[0] : '\0';
  if (first == 'A' || first == 'a') return 1;
  if (first == 'D' || first == 'd') return -1;
  warnWithString(s, 2, option);
  return 0;
}

void swapFloats(float& a, float& b) {
  float kept = a;
  a = b;
  b = kept;
}

// Equal values of x, gap apart, trade places: their partners in y come out in the opposite order.
void turnTies(const float* x, float* y, int n, int gap) {
  for (int chain = 0; chain < gap; chain++) {
    for (int first = chain; first < n;) {
      int last = first;
      while (last < n - gap && x[last + gap] == x[first]) last += gap;
      for (int i = first, k = last; i < k; i += gap, k -= gap) swapFloats(y[i], y[k]);
      if (last >= n - gap) break;
      first = last + gap;
    }
  }
}

// Shell sort with halved gaps. Each pass leaves ties in their order and then turns them, which is what an insertion
// that also swaps equal elements does, without its cost on arrays full of equal values.
void shellSort(float* x, float* y, int n, int direction) {
  auto misplaced = [&](float left, float right) { return direction > 0 ? left > right : left < right; };
  for (int gap = n / 2; gap > 0; gap /= 2) {
    for (int i = gap; i < n && !stopRequested(); i++) {
      float value = x[i], partner = y ? y[i] : 0.0F;
      int k = i;
      for (; k >= gap && misplaced(x[k - gap], value); k -= gap) {
        x[k] = x[k - gap];
        if (y) y[k] = y[k - gap];
      }
      x[k] = value;
      if (y) y[k] = partner;
    }
    if (y) turnTies(x, y, n, gap);
  }
}

// Mean of the powers of the standardized deviations.
float standardMoment(PlotState* s, const float* x, int n, float mean, double squares, int power) {
  double deviation = std::sqrt(squares / (n - 1));
  if (!(deviation > static_cast<double>(kTiny))) {
    warnWithText(s, 107, "Variance = 0. Value cannot be calculated");
    return 0.0F;
  }
  double sum = 0.0;
  for (int i = 0; i < n; i++) {
    double z = static_cast<double>(x[i] - mean) / deviation;
    sum += power == 3 ? z * z * z : z * z * z * z;
  }
  return static_cast<float>(sum / n);
}

} // namespace

void LINFIT(const float* x, const float* y, int n, float* a, float* b, float* r, const char* option) {
  PlotState* s = strictCheck(0, 3, "linfit");
  if (!s) return;
  int mode = matchKeyword(s, "NONE+ALL +LINE", 3, option);
  if (!mode) return;
  if (n < 2) return warnPlain(s, 2);
  if (mode != kFitOnly && !strictCheck(2, 3, "linfit")) return;
  Fit fit = fitLine(x, y, n);
  *a = fit.a;
  *b = fit.b;
  *r = fit.r;
  if (mode == kFitOnly) return;
  drawFit(s, x, y, n, fit, mode);
  copyText(s->level.routineName, "linfit", kRoutineNameLength);
}

float MOMENT(const float* x, int n, const char* option) {
  PlotState* s = strictCheck(0, 3, "moment");
  if (!s) return 0.0F;
  int kind = matchKeyword(s, "MEAN+AVER+VARI+STAN+THIR+FOUR", 6, option);
  if (!kind) return 0.0F;
  if (n < 2) {
    warnWithText(s, 106, "n must be greater than 1");
    return 0.0F;
  }
  float mean = meanOf(x, n);
  double distances = 0.0, squares = 0.0;
  for (int i = 0; i < n; i++) {
    double d = static_cast<double>(x[i] - mean);
    distances += std::fabs(d);
    squares += d * d;
  }
  switch (kind) {
  case 1: return mean;
  case 2: return static_cast<float>(distances / n);
  case 3: return static_cast<float>(squares / (n - 1));
  case 4: return static_cast<float>(std::sqrt(squares / (n - 1)));
  case 5: return standardMoment(s, x, n, mean, squares, 3);
  default: return standardMoment(s, x, n, mean, squares, 4);
  }
}

void SORTR1(float* x, int n, const char* option) {
  PlotState* s = strictCheck(0, 3, "sortr1");
  if (!s || checkRange(s, n, 1, -1)) return;
  if (int direction = sortDirection(s, option)) shellSort(x, nullptr, n, direction);
}

void SORTR2(float* x, float* y, int n, const char* option) {
  PlotState* s = strictCheck(0, 3, "sortr2");
  if (!s || checkRange(s, n, 1, -1)) return;
  if (int direction = sortDirection(s, option)) shellSort(x, y, n, direction);
}

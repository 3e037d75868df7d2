// Setters of arrows, streamlines and line integral convolution.
#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kMostLinePoints = 1 << 24, kMostKernelPoints = 10000;

void storeSwitch(PlotState* s, const char* value, bool& field) {
  if (int found = matchKeyword(s, "OFF +ON  ", 2, value)) field = found == 2;
}

void storeCount(PlotState* s, int value, int least, int most, int& field) {
  if (!checkRange(s, value, least, most)) field = value;
}

void storePositive(PlotState* s, float value, float& field) {
  if (!(value > 0.0F && value <= 1.0e10F)) return warnPlain(s, 2);
  field = value;
}

} // namespace

void STMMOD(const char* value, const char* key) {
  PlotState* s = setterCheck("stmmod");
  if (!s) return;
  StreamGroup& g = s->streamlines;
  switch (matchKeyword(s, "INTE+CLOS+ARRO", 3, key)) {
  case 1:
    if (int found = matchKeyword(s, "EULE+RK2 +RK4 ", 3, value)) g.integration = found - 1;
    return;
  case 2: return storeSwitch(s, value, g.closingTest);
  case 3: return storeSwitch(s, value, g.arrows);
  default: return;
  }
}

void STMOPT(int n, const char* key) {
  PlotState* s = setterCheck("stmopt");
  if (!s) return;
  StreamGroup& g = s->streamlines;
  switch (matchKeyword(s, "POIN+CLOS+ARRO+STRE+HITS+LICM+LICL", 7, key)) {
  case 1: return storeCount(s, n, 2, kMostLinePoints, g.mostPoints);
  case 2: return storeCount(s, n, 1, -1, g.closingInterval);
  case 3: return storeCount(s, n, 0, -1, g.arrowCode);
  case 4: return storeCount(s, n, 1, -1, g.mostLines);
  case 5: return storeCount(s, n, 1, -1, s->lic.hits);
  case 6: return storeCount(s, n, 0, kMostKernelPoints, s->lic.linePoints);
  case 7: return storeCount(s, n, 1, kMostKernelPoints, s->lic.kernelPoints);
  default: return;
  }
}

void STMVAL(float x, const char* key) {
  PlotState* s = setterCheck("stmval");
  if (!s) return;
  StreamGroup& g = s->streamlines;
  switch (matchKeyword(s, "STEP+DIST+TEST+CLOS+ARRO+LICS", 6, key)) {
  case 1: return storePositive(s, x, g.step);
  case 2: return storePositive(s, x, g.lineDistance);
  case 3: return storePositive(s, x, g.testDistance);
  case 4: return storePositive(s, x, g.closingDistance);
  case 5: return storePositive(s, x, g.arrowDistance);
  case 6: return storePositive(s, x, s->lic.licStep);
  default: return;
  }
}

void VECOPT(float x, const char* key) {
  constexpr float kRightAngle = 90.0F;
  PlotState* s = setterCheck("vecopt");
  if (!s) return;
  VectorGroup& g = s->vectors;
  switch (matchKeyword(s, "ANGL+SCAL+LENG+SIZE", 4, key)) {
  case 1:
    if (!(x > 0.0F && x < kRightAngle)) return warnPlain(s, 2);
    g.headAngle = x;
    return;
  case 2: return storePositive(s, x, g.scale);
  case 3: return storePositive(s, x, g.length);
  case 4: return storePositive(s, x, g.headSize);
  default: return;
  }
}

void VECCLR(int color) {
  PlotState* s = setterCheck("vecclr");
  if (s && !checkRange(s, color, kVectorColorByLength, -3)) s->vectors.color = color;
}

void LICMOD(const char* value, const char* key) {
  PlotState* s = setterCheck("licmod");
  if (!s) return;
  switch (matchKeyword(s, "FAST+SCAL", 2, key)) {
  case 1: return storeSwitch(s, value, s->lic.fast);
  case 2: return storeSwitch(s, value, s->lic.spread);
  default: return;
  }
}

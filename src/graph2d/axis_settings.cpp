// Setters and readers of axis systems.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "graph2d/axis_string.h"
#include "graph2d/chart_labels.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kLargestDimension = 10000;
constexpr const char* kPartKeywords = "NONE+LINE+TICK+LABE+NAME";

// Stores a keyword's number minus 1 for each named axis.
void keywordForAxes(PlotState* s, const char* list, int count, const char* word, const char* axes,
                    int (&field)[kAxisCount]) {
  int found = matchKeyword(s, list, count, word);
  if (found) eachAxis(axes, [&](int axis) { field[axis] = found - 1; });
}

void setPosition(const char* name, int nx, int ny, bool crossing) {
  PlotState* s = strictCheck(1, 1, name);
  if (!s) return;
  int y = userY(s, ny);
  if (checkRange(s, addCoordinates(s->page.originX, nx), 0, s->geometry.pageWidth)) return;
  if (checkRange(s, addCoordinates(s->page.originY, y), 0, s->geometry.pageHeight)) return;
  s->axis.axisOriginGiven = crossing;
  (crossing ? s->axis.axisCrossX : s->axis.axisPosX) = nx;
  (crossing ? s->axis.axisCrossY : s->axis.axisPosY) = y;
}

void setAxisScale(const char* scale, const char* axes) {
  if (PlotState* s = setterCheck("axsscl")) keywordForAxes(s, "LIN +LOG ", 2, scale, axes, s->axis.axisLogScale);
}

void setLabelDigits(const char* name, int digits, const char* axes) {
  constexpr int kAutomatic = -2, kMostDigits = 100;
  PlotState* s = setterCheck(name);
  if (!s || checkRange(s, digits, kAutomatic, kMostDigits) || setChartLabelDigits(s, digits, axes)) return;
  eachAxis(axes, [&](int axis) {
    s->axis.labelAutoDigits[axis] = digits == kAutomatic;
    if (digits != kAutomatic) s->axis.labelDigits[axis] = digits;
    s->axis.labelDigitsGiven[axis] = true;
  });
}

int classOfKind(int kind) {
  switch (kind) {
  case kLabelTime:
  case kLabelHour:
  case kLabelSeconds: return kClassTime;
  case kLabelMap:
  case kLabelDMap:
  case kLabelLMap:
  case kLabelMapNoDegree: return kClassMap;
  case kLabelDate: return kClassDate;
  default: return kClassNumeric;
  }
}

int typeOfKind(int kind) {
  if (kind == kLabelLog || kind == kLabelCLog) return 1;
  return kind == kLabelELog ? 3 : 2;
}

void copyThree(const int field[kAxisCount], int* nx, int* ny, int* nz) {
  *nx = field[kAxisX];
  *ny = field[kAxisY];
  *nz = field[kAxisZ];
}

struct Limits {
  float low, high;
};

// Lowest and highest element; elements that are no numbers take no part.
Limits limitsOf(const float* x, int n) {
  Limits l{0.0F, 0.0F};
  bool any = false;
  for (int i = 0; i < n; i++) {
    if (std::isnan(x[i])) continue;
    if (!any || x[i] < l.low) l.low = x[i];
    if (!any || x[i] > l.high) l.high = x[i];
    any = true;
  }
  return l;
}

} // namespace

void AX3LEN(int nx, int ny, int nz) {
  PlotState* s = strictCheck(1, 1, "ax3len");
  if (!s || checkRange(s, nx, 2, -1) || checkRange(s, ny, 2, -1)) return;
  if (checkRange(s, nz, 2, std::max(s->geometry.pageWidth, s->geometry.pageHeight))) return;
  s->axis.axisLength[kAxisX] = limitedDistance(nx);
  s->axis.axisLength[kAxisY] = limitedDistance(ny);
  s->axis.axisLength[kAxisZ] = nz;
}

void AXSLEN(int nx, int ny) {
  PlotState* s = strictCheck(1, 1, "axslen");
  if (!s || checkRange(s, nx, 2, -1) || checkRange(s, ny, 2, -1)) return;
  s->axis.axisLength[kAxisX] = limitedDistance(nx);
  s->axis.axisLength[kAxisY] = limitedDistance(ny);
}

void AXSPOS(int nx, int ny) { setPosition("axspos", nx, ny, false); }
void AXSORG(int nx, int ny) { setPosition("axsorg", nx, ny, true); }

void AXSTYP(const char* type) {
  PlotState* s = strictCheck(1, 1, "axstyp");
  if (!s) return;
  int found = matchKeyword(s, "RECT+CROS+IMPE+ADMI", 4, type);
  if (found == 1 || found == 2) s->axis.axisCrossed = found == 2;
  if (found == 3 || found == 4) s->axis.axisAdmittance = found == 4;
}

void AXSSCL(const char* scale, const char* axes) { setAxisScale(scale, axes); }
void SCALE(const char* scale, const char* axes) { setAxisScale(scale, axes); }

void SETSCL(const float* x, int n, const char* axis) {
  PlotState* s = strictCheck(1, 1, "setscl");
  if (!s || !axis || !axis[0]) return;
  char key[5];
  keyOf(axis, key);
  key[3] = 0;
  if (std::strcmp(key, "RES") == 0) {
    for (bool& scaled : s->axis.autoScaled) scaled = false;
    return;
  }
  if (key[1] == 'R' && key[2] == 'E' && axisOfLetter(key[0]) >= 0) {
    s->axis.autoScaled[axisOfLetter(key[0])] = false;
    return;
  }
  if (checkRange(s, n, 1, -1)) return;
  Limits limits = limitsOf(x, n);
  if (std::fabs(limits.high - limits.low) < kTiny) {
    warnPlain(s, 25);
    limits.low -= 1.0F;
    limits.high += 1.0F;
  }
  auto store = [&](int k) {
    s->axis.autoMin[k] = limits.low;
    s->axis.autoMax[k] = limits.high;
    s->axis.autoScaled[k] = true;
  };
  if (key[1] == 'A' && key[2] == 'X' && axisOfLetter(key[0]) >= 0) {
    store(axisOfLetter(key[0]));
  } else {
    eachAxis(key, store);
  }
}

void SETGRF(const char* bottom, const char* left, const char* top, const char* right) {
  PlotState* s = strictCheck(1, 1, "setgrf");
  if (!s) return;
  const char* words[kSideCount] = {bottom, left, top, right};
  for (int side = 0; side < kSideCount; side++) {
    if (int found = matchKeyword(s, kPartKeywords, 5, words[side])) s->axis.axisPartDrawn[side] = found - 1;
  }
}

void NOGRAF(void) {
  if (PlotState* s = setterCheck("nograf")) s->axis.noAxesDrawn = true;
}

void AX2GRF(void) {
  if (PlotState* s = setterCheck("ax2grf")) s->axis.twoAxesOnly = true;
}

void CENTER(void) {
  PlotState* s = setterCheck("center");
  if (s && s->axis.centerState == 0) s->axis.centerState = 1;
}

void GRACE(int margin) {
  if (PlotState* s = setterCheck("grace")) s->axis.graceMargin = limitedDistance(margin);
}

void FRAME(int thickness) {
  if (PlotState* s = setterCheck("frame")) s->axis.frameThickness = limitedDistance(thickness);
}

void FRMCLR(int color) {
  PlotState* s = setterCheck("frmclr");
  if (s && !checkRange(s, color, -1, -2)) s->axis.frameColor = color;
}

void AXSBGD(int color) {
  PlotState* s = setterCheck("axsbgd");
  if (s && !checkRange(s, color, -1, -2)) s->axis.axisBackgroundColor = color;
}

void NEGLOG(float value) {
  PlotState* s = setterCheck("neglog");
  if (!s) return;
  if (!(value > 0.0F)) return warnPlain(s, 2);
  s->axis.negativeLogOn = true;
  s->axis.negativeLogValue = value;
}

void TICKS(int n, const char* axes) {
  constexpr int kMostTicks = 1000;
  PlotState* s = setterCheck("ticks");
  if (s && !checkRange(s, n, 0, kMostTicks)) eachAxis(axes, [&](int axis) { s->axis.tickCount[axis] = n; });
}

void TICLEN(int major, int minor) {
  PlotState* s = setterCheck("ticlen");
  if (!s || checkRange(s, major, 1, kLargestDimension) || checkRange(s, minor, 1, kLargestDimension)) return;
  s->axis.tickLengthMajor = major;
  s->axis.tickLengthMinor = minor;
}

void TICPOS(const char* position, const char* axes) {
  if (PlotState* s = setterCheck("ticpos"))
    keywordForAxes(s, "LABE+REVE+CENT", 3, position, axes, s->axis.tickPosition);
}

void LOGTIC(const char* mode) {
  PlotState* s = setterCheck("logtic");
  if (!s) return;
  if (int found = matchKeyword(s, "AUTO+FULL", 2, mode)) s->axis.logTickMode = found - 1;
}

namespace {

constexpr int kKeyLength = 4, kKindCount = 17;
constexpr const char* kKinds = "NONE+FLOA+EXP +LOG +CLOG+ELOG+MAP +DMAP+LMAP+TIME+HOUR+SECO+MYLA+FEXP+DATE+MAPN+XEXP";

} // namespace

void LABELS(const char* kind, const char* axes) {
  PlotState* s = setterCheck("labels");
  if (!s || setChartLabels(s, kind, axes)) return;
  int found = matchKeyword(s, kKinds, kKindCount, kind);
  if (!found) return;
  eachAxis(axes, [&](int axis) {
    s->axis.labelKind[axis] = found - 1;
    s->axis.labelClass[axis] = classOfKind(found - 1);
    s->axis.labelType[axis] = typeOfKind(found - 1);
  });
}

void LABDIG(int digits, const char* axes) { setLabelDigits("labdig", digits, axes); }
void DIGITS(int digits, const char* axes) { setLabelDigits("digits", digits, axes); }

void INTAX(void) {
  if (strictCheck(1, 3, "intax")) setLabelDigits("intax", -1, "xyz");
}

void LABPOS(const char* position, const char* axes) {
  PlotState* s = setterCheck("labpos");
  if (s && !setChartLabelPlace(s, position, axes))
    keywordForAxes(s, "TICK+CENT+SHIF", 3, position, axes, s->axis.labelPosition);
}

void LABJUS(const char* mode, const char* axes) {
  if (PlotState* s = setterCheck("labjus")) {
    keywordForAxes(s, "AUTO+LEFT+RIGH+OUTW+INWA", 5, mode, axes, s->axis.labelJustify);
  }
}

void LABTYP(const char* type, const char* axes) {
  PlotState* s = setterCheck("labtyp");
  if (s && !setChartLabelType(s, type, axes)) keywordForAxes(s, "HORI+VERT", 2, type, axes, s->axis.labelOrientation);
}

void LABDIS(int distance, const char* axes) {
  PlotState* s = setterCheck("labdis");
  if (!s || setChartLabelDistance(s, distance, axes)) return;
  eachAxis(axes, [&](int axis) { s->axis.labelDistance[axis] = limitedDistance(distance); });
}

void AXENDS(const char* mode, const char* axes) {
  if (PlotState* s = setterCheck("axends")) {
    keywordForAxes(s, "NONE+NOFI+NOLA+NOEN+ENDS+FIRS+LAST", 7, mode, axes, s->axis.axisEndsMode);
  }
}

void AXCLRS(int color, const char* part, const char* axes) {
  constexpr int kAll = 5, kParts = 4;
  PlotState* s = setterCheck("axclrs");
  if (!s || checkRange(s, color, -1, -2)) return;
  int found = matchKeyword(s, "LINE+TICK+LABE+NAME+ALL ", 5, part);
  if (!found) return;
  eachAxis(axes, [&](int axis) {
    for (int i = 0; i < kParts; i++) {
      if (found == kAll || found == i + 1) s->axis.axisColors[axis][i] = color;
    }
  });
}

void NAME(const char* name, const char* axes) {
  PlotState* s = setterCheck("name");
  if (s) eachAxis(axes, [&](int axis) { copyText(s->axis.axisName[axis], name, kLabelTextLimit); });
}

void NAMDIS(int distance, const char* axes) {
  if (PlotState* s = setterCheck("namdis")) {
    eachAxis(axes, [&](int axis) { s->axis.nameDistance[axis] = limitedDistance(distance); });
  }
}

void NAMJUS(const char* mode, const char* axes) {
  if (PlotState* s = setterCheck("namjus")) keywordForAxes(s, "CENT+LEFT+RIGH", 3, mode, axes, s->axis.nameJustify);
}

void HNAME(int height) {
  PlotState* s = setterCheck("hname");
  if (s && !checkRange(s, height, 1, kLargestDimension)) s->axis.nameHeight = height;
}

void RGTLAB(void) {
  if (PlotState* s = setterCheck("rgtlab")) s->axis.rightJustifyLabels = true;
}

void RVYNAM(void) {
  if (PlotState* s = setterCheck("rvynam")) s->axis.reverseYName = true;
}

void MYLAB(const char* label, int n, const char* axis) {
  PlotState* s = setterCheck("mylab");
  if (!s || checkRange(s, n, 1, kMyLabelCount)) return;
  eachAxis(axis, [&](int k) {
    char* entry = s->myLabels.myLabels[k][n - 1];
    if (entry[0]) warnWithNumber(s, 6, n);
    copyText(entry, label, kMyLabelLength);
    if (n > s->axis.myLabelCount[k]) s->axis.myLabelCount[k] = n;
  });
}

void NOLINE(const char* axes) {
  if (PlotState* s = setterCheck("noline")) eachAxis(axes, [&](int axis) { s->axis.axisLineOn[axis] = false; });
}

void TITLIN(const char* text, int n) {
  PlotState* s = setterCheck("titlin");
  if (!s) return;
  if (n == 0 || n < -kTitleLines || n > kTitleLines) return warnWithNumber(s, 2, n);
  int line = n < 0 ? -n : n;
  copyText(s->axis.titleLine[line - 1], text, kLabelTextLimit);
  s->axis.titleUnderlined[line - 1] = n < 0;
}

void TITJUS(const char* mode) {
  PlotState* s = setterCheck("titjus");
  if (!s) return;
  if (int found = matchKeyword(s, "CENT+LEFT+RIGH", 3, mode)) s->axis.titleJustify = found - 1;
}

void LFTTIT(void) {
  if (PlotState* s = setterCheck("lfttit")) s->axis.titleJustify = 1;
}

void TITPOS(const char* mode) {
  PlotState* s = setterCheck("titpos");
  if (!s) return;
  if (int found = matchKeyword(s, "ABOV+BELO", 2, mode)) s->axis.titlePosition = found - 1;
}

void HTITLE(int height) {
  PlotState* s = setterCheck("htitle");
  if (s && !checkRange(s, height, 1, kLargestDimension)) s->axis.titleHeight = height;
}

void VKYTIT(int distance) {
  if (PlotState* s = setterCheck("vkytit")) s->axis.titleDistance = limitedDistance(distance);
}

void LINESP(float spacing) {
  if (PlotState* s = setterCheck("linesp")) s->axis.lineSpacing = spacing;
}

void GETSCL(int* nx, int* ny, int* nz) {
  if (PlotState* s = strictCheck(1, 3, "getscl")) copyThree(s->axis.axisLogScale, nx, ny, nz);
}

void GETSCM(int* nx, int* ny, int* nz) {
  PlotState* s = strictCheck(1, 3, "getscm");
  if (!s) return;
  *nx = s->axis.autoScaled[kAxisX];
  *ny = s->axis.autoScaled[kAxisY];
  *nz = s->axis.autoScaled[kAxisZ];
}

void GETLEN(int* nx, int* ny, int* nz) {
  if (PlotState* s = strictCheck(1, 3, "getlen")) copyThree(s->axis.axisLength, nx, ny, nz);
}

void GETPOS(int* nx, int* ny) {
  PlotState* s = strictCheck(1, 3, "getpos");
  if (!s) return;
  *nx = s->axis.axisPosX;
  *ny = userY(s, s->axis.axisPosY);
}

int GETHNM(void) {
  PlotState* s = strictCheck(1, 3, "gethnm");
  return s ? s->axis.nameHeight : 0;
}

void GETDIG(int* nx, int* ny, int* nz) {
  if (PlotState* s = strictCheck(1, 3, "getdig")) copyThree(s->axis.labelDigits, nx, ny, nz);
}

void GETLAB(char* x, char* y, char* z) {
  PlotState* s = strictCheck(1, 3, "getlab");
  if (!s) return;
  char* const texts[] = {x, y, z};
  for (int axis = 0; axis < kAxisCount; ++axis) {
    std::memcpy(texts[axis], kKinds + (kKeyLength + 1) * s->axis.labelKind[axis], kKeyLength);
    texts[axis][kKeyLength] = '\0';
  }
}

void GETSP1(int* nx, int* ny, int* nz) {
  if (PlotState* s = strictCheck(1, 3, "getsp1")) copyThree(s->axis.labelDistance, nx, ny, nz);
}

void GETSP2(int* nx, int* ny, int* nz) {
  if (PlotState* s = strictCheck(1, 3, "getsp2")) copyThree(s->axis.nameDistance, nx, ny, nz);
}

void GETTIC(int* nx, int* ny, int* nz) {
  if (PlotState* s = strictCheck(1, 3, "gettic")) copyThree(s->axis.tickCount, nx, ny, nz);
}

void GETTCL(int* major, int* minor) {
  PlotState* s = strictCheck(1, 3, "gettcl");
  if (!s) return;
  *major = s->axis.tickLengthMajor;
  *minor = s->axis.tickLengthMinor;
}

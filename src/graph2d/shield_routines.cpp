// Public routines of shields.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "core/shields.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr int kLargestPolygon = 499; // points whose record fits the buffer alone
constexpr int kOutlineChords = 72;

int angleWord(float degrees) {
  float turned = std::fmod(degrees, 360.0F);
  return std::isfinite(turned) ? roundHalfUp(turned * kDegToRad * 1000.0F) : 0;
}

int wholeDegrees(float degrees) {
  float turned = std::fmod(degrees, 360.0F);
  return std::isfinite(turned) ? roundHalfUp(turned) : 0;
}

struct Point {
  float x, y;
};

// Outlines of regions are drawn while FRAME is above 0, and are not cut by shields themselves.
template <class At> void drawOutline(PlotState* s, int n, At at) {
  if (s->axis.frameThickness <= 0) return;
  bool shielding = s->shieldingSuspended;
  flushPath(s);
  s->shieldingSuspended = true;
  for (int i = 0; i <= n; i++) {
    Point p = at(i % n);
    if (i == 0) {
      pathMove(s, p.x, p.y);
    } else {
      pathDraw(s, p.x, p.y);
    }
  }
  flushPath(s);
  s->shieldingSuspended = shielding;
}

Point onEllipse(float cx, float cy, float a, float b, float turn, float angle) {
  float u = a * std::cos(angle), v = b * std::sin(angle);
  return {cx + u * std::cos(turn) - v * std::sin(turn), cy - v * std::cos(turn) - u * std::sin(turn)};
}

struct Corner {
  int x, y;
};

Corner pageCorner(const PlotState* s, int nx, int ny) {
  return {addCoordinates(nx, s->page.originX), addCoordinates(userY(s, ny), s->page.originY)};
}

bool positive(PlotState* s, int a, int b) { return !checkRange(s, a, 1, -1) && !checkRange(s, b, 1, -1); }

} // namespace

void SHIELD(const char* area, const char* mode) {
  enum Mode { kOn = 1, kOff, kVisible, kInvisible, kDelete, kReset };
  PlotState* s = strictCheck(1, 3, "shield");
  if (!s) return;
  int which = matchKeyword(s, "MESS+SYMB+BARS+PIE +LEGE", kShieldAreas, area);
  int what = matchKeyword(s, "ON  +OFF +VIS +NOVI+DELE+RESE", 6, mode);
  if (!which || !what) return;
  flushPath(s);
  switch (what) {
  case kOn: s->shield.shieldAreaOn[which - 1] = true; break;
  case kVisible: return hideShieldClass(s, which, false);
  case kInvisible: return hideShieldClass(s, which, true);
  case kDelete: return deleteShieldClass(s, which);
  case kReset: deleteShieldClass(s, which); [[fallthrough]];
  case kOff: s->shield.shieldAreaOn[which - 1] = false; break;
  default: break;
  }
}

void SHLREC(int nx, int ny, int nw, int nh) {
  PlotState* s = strictCheck(1, 3, "shlrec");
  if (!s || !positive(s, nw, nh)) return;
  Corner c = pageCorner(s, nx, ny);
  const int data[] = {c.x, c.y, nw, nh};
  if (!addShield(s, kShieldRectangle, kShieldUser, data)) return;
  float x = static_cast<float>(c.x), y = static_cast<float>(c.y), w = static_cast<float>(nw),
        h = static_cast<float>(nh);
  const Point corners[] = {{x, y}, {x + w, y}, {x + w, y + h}, {x, y + h}};
  drawOutline(s, 4, [&](int i) { return corners[i]; });
}

void SHLRCT(int nx, int ny, int nw, int nh, float angle) {
  PlotState* s = strictCheck(1, 3, "shlrct");
  if (!s || !positive(s, nw, nh)) return;
  Corner c = pageCorner(s, nx, ny);
  const int data[] = {c.x, c.y, nw, nh, angleWord(angle)};
  if (!addShield(s, kShieldTurned, kShieldUser, data)) return;
  float a = static_cast<float>(data[4]) / 1000.0F, w = static_cast<float>(nw), h = static_cast<float>(nh);
  const Point corners[] = {{0, 0}, {w, 0}, {w, h}, {0, h}};
  drawOutline(s, 4, [&](int i) {
    return Point{static_cast<float>(c.x) + corners[i].x * std::cos(a) + corners[i].y * std::sin(a),
                 static_cast<float>(c.y) - corners[i].x * std::sin(a) + corners[i].y * std::cos(a)};
  });
}

void SHLCIR(int nx, int ny, int nr) {
  PlotState* s = strictCheck(1, 3, "shlcir");
  if (!s || checkRange(s, nr, 1, -1)) return;
  Corner c = pageCorner(s, nx, ny);
  const int data[] = {c.x, c.y, nr};
  if (!addShield(s, kShieldCircle, kShieldUser, data)) return;
  float r = static_cast<float>(nr);
  drawOutline(s, kOutlineChords, [&](int i) {
    return onEllipse(static_cast<float>(c.x), static_cast<float>(c.y), r, r, 0.0F,
                     2.0F * kPi * static_cast<float>(i) / kOutlineChords);
  });
}

void SHLELL(int nx, int ny, int na, int nb, float angle) {
  PlotState* s = strictCheck(1, 3, "shlell");
  if (!s || !positive(s, na, nb)) return;
  Corner c = pageCorner(s, nx, ny);
  const int data[] = {c.x, c.y, na, nb, angleWord(angle)};
  if (!addShield(s, kShieldEllipse, kShieldUser, data)) return;
  drawOutline(s, kOutlineChords, [&](int i) {
    return onEllipse(static_cast<float>(c.x), static_cast<float>(c.y), static_cast<float>(na), static_cast<float>(nb),
                     static_cast<float>(data[4]) / 1000.0F, 2.0F * kPi * static_cast<float>(i) / kOutlineChords);
  });
}

void SHLPIE(int nx, int ny, int nr, float a, float b) {
  PlotState* s = strictCheck(1, 3, "shlpie");
  if (!s || checkRange(s, nr, 1, -1)) return;
  Corner c = pageCorner(s, nx, ny);
  int from = wholeDegrees(a), to = wholeDegrees(b);
  if (to <= from) to += 360;
  const int data[] = {c.x, c.y, nr, from, to};
  if (!addShield(s, kShieldSector, kShieldUser, data)) return;
  float r = static_cast<float>(nr), x = static_cast<float>(c.x), y = static_cast<float>(c.y);
  drawOutline(s, kOutlineChords + 2, [&](int i) {
    if (i == 0) return Point{x, y};
    float angle = (static_cast<float>(from) + static_cast<float>((to - from) * (i - 1)) / kOutlineChords) * kDegToRad;
    return onEllipse(x, y, r, r, 0.0F, angle);
  });
}

void SHLPOL(const int* nx, const int* ny, int n) {
  constexpr int kLeastPoints = 3;
  PlotState* s = strictCheck(1, 3, "shlpol");
  if (!s) return;
  if (n < kLeastPoints) return warnWithNumber(s, 30, n);
  if (n > kLargestPolygon) return warnPlain(s, 47);
  int data[1 + 2 * kLargestPolygon];
  data[0] = n;
  for (int i = 0; i < n; i++) {
    Corner c = pageCorner(s, nx[i], ny[i]);
    data[1 + 2 * i] = c.x;
    data[2 + 2 * i] = c.y;
  }
  if (!addShield(s, kShieldPolygon, kShieldUser, {data, static_cast<std::size_t>(1 + 2 * n)})) return;
  drawOutline(s, n, [&](int i) {
    return Point{static_cast<float>(data[1 + 2 * i]), static_cast<float>(data[2 + 2 * i])};
  });
}

void SHLDEL(int id) {
  PlotState* s = strictCheck(1, 3, "shldel");
  if (!s || checkRange(s, id, 0, -1)) return;
  if (id == 0) return deleteShieldClass(s, kShieldUser);
  deleteShieldId(s, id);
}

void SHLRES(int n) {
  PlotState* s = strictCheck(1, 3, "shlres");
  if (s && !checkRange(s, n, 0, -1)) deleteLastShields(s, n);
}

void SHLVIS(int id, const char* mode) {
  constexpr int kAreasAndUser = kShieldAreas + 1;
  PlotState* s = strictCheck(1, 3, "shlvis");
  if (!s || checkRange(s, id, 0, -1)) return;
  int found = matchKeyword(s, "ON  +OFF ", 2, mode);
  if (!found) return;
  if (id > 0) return hideShieldId(s, id, found == 2);
  for (int area = 0; area < kAreasAndUser; area++) hideShieldClass(s, area, found == 2);
}

int SHLIND(void) {
  PlotState* s = setterCheck("shlind");
  return s ? s->shield.shieldCount : 0;
}

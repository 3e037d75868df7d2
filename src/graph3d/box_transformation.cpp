// Public routines of the user transformation of box coordinates. Each acts after the earlier ones.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "graph3d/box.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr float kLeastAngle = 0.001F; // degrees; smaller turns are none

// The matrix, from the identity on if there was none; active afterwards.
float (&activeMatrix(PlotState* s))[3][4] {
  flushPath(s);
  if (!s->boxTransform.on) s->boxTransform = BoxTransform{};
  s->boxTransform.on = true;
  return s->boxTransform.matrix;
}

// Two rows turned: a' = a cos - b sin, b' = a sin + b cos.
void turnRows(float (&a)[4], float (&b)[4], float degrees) {
  if (!(std::fabs(degrees) > kLeastAngle)) return;
  const float c = std::cos(degrees * kDegToRad), n = std::sin(degrees * kDegToRad);
  for (int i = 0; i < 4; i++) {
    const float old = a[i];
    a[i] = old * c - b[i] * n;
    b[i] = old * n + b[i] * c;
  }
}

bool allFinite(PlotState* s, float x, float y, float z) {
  if (std::isfinite(x) && std::isfinite(y) && std::isfinite(z)) return true;
  warnPlain(s, 2);
  return false;
}

// The matrix behind a linear map.
void applyAfter(float (&matrix)[3][4], const double (&map)[3][3]) {
  for (int column = 0; column < 4; column++) {
    double old[3];
    for (int i = 0; i < 3; i++) old[i] = static_cast<double>(matrix[i][column]);
    for (int i = 0; i < 3; i++)
      matrix[i][column] = static_cast<float>(map[i][0] * old[0] + map[i][1] * old[1] + map[i][2] * old[2]);
  }
}

} // namespace

void TR3ROT(float a, float b, float c) {
  PlotState* s = boxCheck("tr3rot");
  if (!s || !allFinite(s, a, b, c)) return;
  float(&m)[3][4] = activeMatrix(s);
  turnRows(m[1], m[2], a);
  turnRows(m[2], m[0], b); // z' = z cos - x sin, x' = z sin + x cos
  turnRows(m[0], m[1], c);
}

void TR3SCL(float x, float y, float z) {
  PlotState* s = boxCheck("tr3scl");
  if (!s || !allFinite(s, x, y, z)) return;
  float(&m)[3][4] = activeMatrix(s);
  for (int i = 0; i < 4; i++) {
    m[0][i] *= x;
    m[1][i] *= y;
    m[2][i] *= z;
  }
}

void TR3SHF(float x, float y, float z) {
  PlotState* s = boxCheck("tr3shf");
  if (!s || !allFinite(s, x, y, z)) return;
  float(&m)[3][4] = activeMatrix(s);
  const float shift[3] = {x, y, z};
  const ViewState& v = s->viewState;
  for (int i = 0; i < 3; i++) m[i][3] += v.box[i] * shift[i] / (v.end[i] - v.start[i]);
}

// Rotation by the formula of Rodrigues.
void TR3AXS(float x, float y, float z, float angle) {
  PlotState* s = boxCheck("tr3axs");
  if (!s || !allFinite(s, x, y, z)) return;
  const double length = std::sqrt(static_cast<double>(x) * x + static_cast<double>(y) * y + static_cast<double>(z) * z);
  if (!(length > static_cast<double>(kTiny)) || !std::isfinite(angle)) return warnPlain(s, 2);
  float(&m)[3][4] = activeMatrix(s);
  if (std::fabs(angle) <= kLeastAngle) return;
  const double u[3] = {x / length, y / length, z / length};
  const double turn = static_cast<double>(angle) * static_cast<double>(kDegToRad);
  const double c = std::cos(turn), n = std::sin(turn), d = 1.0 - c;
  const double map[3][3] = {{c + u[0] * u[0] * d, u[0] * u[1] * d - u[2] * n, u[0] * u[2] * d + u[1] * n},
                            {u[1] * u[0] * d + u[2] * n, c + u[1] * u[1] * d, u[1] * u[2] * d - u[0] * n},
                            {u[2] * u[0] * d - u[1] * n, u[2] * u[1] * d + u[0] * n, c + u[2] * u[2] * d}};
  applyAfter(m, map);
}

// It has always reported by the name of another routine.
void TR3RES(void) {
  PlotState* s = boxCheck("tr3scl");
  if (!s) return;
  flushPath(s);
  s->boxTransform.on = false;
}

// Functions of two variables as meshes or bars with hidden lines: SURFCE from rows and columns of any distances, SURMAT
// from a matrix of equal ones.
#include <algorithm>
#include <cmath>

#include "core/colors.h"
#include "core/horizon.h"
#include "core/messages.h"
#include "graph2d/scaling.h"
#include "graph3d/mesh.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace quilla {

void beginHidden(PlotState* s) {
  flushPath(s);
  HorizonState& h = s->horizon;
  h.entryColor = s->color.currentColor;
  h.side = kSideNone;
  h.on = !s->surface.hidingOff;
  h.colored = s->surface.sideColorsGiven;
  h.mode = kHorizonDraw;
  if (h.on) horizonReset(s);
}

void endHidden(PlotState* s) {
  flushPath(s);
  HorizonState& h = s->horizon;
  h.mode = kHorizonTest;
  h.colored = false;
  if (!s->surface.shieldKept) h.on = false;
  if (s->color.currentColor != h.entryColor) setColor(s, h.entryColor);
}

} // namespace quilla

namespace {

// Indices of rows or columns from the front to the back.
struct FrontOrder {
  int first, step;
  int at(int k) const { return first + k * step; }
};

// Data that run with the axis begin at its low end.
FrontOrder frontOrder(const PlotState* s, int axis, const float* values, int n) {
  const ViewState& v = s->viewState;
  const float eye = v.eye[axis];
  const bool rising = (values[0] - values[n - 1]) / (v.start[axis] - v.end[axis]) >= 0.0F;
  if (rising ? eye < 0.0F : eye > 0.0F) return {0, 1};
  return {n - 1, -1};
}

struct Surface {
  const float *x, *y, *z;
  int n, m;
  FrontOrder orderX, orderY;

  float height(int i, int j) const {
    return z[static_cast<std::size_t>(i) * static_cast<std::size_t>(m) + static_cast<std::size_t>(j)];
  }
};

// Top of a bar, and its two sides before the eye. (hx, hy) points from its middle away from the eye.
void strokeBar(PlotState* s, float x, float y, float z, float foot, float hx, float hy) {
  auto corner = [&](float dx, float dy, float at) { return boxOfUser(s, x + dx, y + dy, at); };
  const BoxPoint p1 = corner(hx, -hy, z), p2 = corner(hx, hy, z), p3 = corner(-hx, hy, z), p4 = corner(-hx, -hy, z);
  const BoxPoint p5 = corner(hx, -hy, foot), p6 = corner(-hx, -hy, foot), p7 = corner(-hx, hy, foot);
  boxMove(s, p1);
  for (const BoxPoint& p : {p2, p3, p4, p1, p5, p6, p7, p3}) boxDraw(s, p);
  boxMove(s, p6);
  boxDraw(s, p4);
  flushPath(s);
}

// Edges of one bar do not hide each other: it is drawn against what stands, and then stored.
void drawBars(PlotState* s, const Surface& f) {
  const float low = std::fmin(s->viewState.start[kAxisZ], s->viewState.end[kAxisZ]);
  const float foot = s->viewState.logarithmic[kAxisZ] ? std::pow(10.0F, low) : low;
  const float hx = 0.5F * (f.x[1] - f.x[0]) * s->curve.barWidth * static_cast<float>(f.orderX.step);
  const float hy = 0.5F * (f.y[1] - f.y[0]) * s->curve.barWidth * static_cast<float>(f.orderY.step);
  for (int a = 0; a < f.n && !stopRequested(); a++) {
    for (int b = 0; b < f.m; b++) {
      const int i = f.orderX.at(a), j = f.orderY.at(b);
      const float z = f.height(i, j);
      if (!(z >= foot)) continue;
      s->horizon.mode = kHorizonTest;
      strokeBar(s, f.x[i], f.y[j], z, foot, hx, hy);
      if (!s->horizon.on) continue;
      s->horizon.mode = kHorizonStore;
      strokeBar(s, f.x[i], f.y[j], z, foot, hx, hy);
    }
  }
}

void drawMeshOf(PlotState* s, const Surface& f) {
  const MeshShape shape{f.n - 1, f.m - 1, 1, 1};
  auto at = [&](int a, int b) {
    const int i = f.orderX.at(a), j = f.orderY.at(b);
    return boxOfUser(s, f.x[i], f.y[j], f.height(i, j));
  };
  switch (s->surface.meshLines) {
  case kMeshAlongX: return drawMeshLines(s, shape, true, at);
  case kMeshAlongY: return drawMeshLines(s, shape, false, at);
  default: return drawMeshCells(s, shape, at);
  }
}

} // namespace

void SURFCE(const float* x, int n, const float* y, int m, const float* z) {
  PlotState* s = boxCheck("surfce");
  if (!s || checkRange(s, n, 2, -1) || checkRange(s, m, 2, -1)) return;
  const Surface f{x, y, z, n, m, frontOrder(s, kAxisX, x, n), frontOrder(s, kAxisY, y, m)};
  beginHidden(s);
  if (s->curve.curveMode == kCurveBars) {
    drawBars(s, f);
  } else {
    drawMeshOf(s, f);
  }
  endHidden(s);
}

namespace {

constexpr long long kMostParts = 1000; // of one interval; finer ones cannot be seen

// What a count of SURMAT asks for: parts of an interval along the lines, and the distance of the lines in intervals.
struct LineCount {
  int parts, apart;
};
LineCount lineCount(int count, int intervals) {
  if (count >= 0) return {static_cast<int>(std::clamp<long long>(count, 1, kMostParts)), 1};
  return {1, static_cast<int>(std::min<long long>(-static_cast<long long>(count), intervals))};
}

// Box coordinates of the first and the last row of a matrix along an axis.
struct Range {
  float first, last;
};
Range matrixRange(const PlotState* s, int axis) {
  const float half = s->viewState.box[axis] / 2.0F;
  if (!s->matrix.matrixLimitsGiven) return {-half, half};
  return {boxOfUser(s, axis, s->matrix.matrixStart[axis]), boxOfUser(s, axis, s->matrix.matrixEnd[axis])};
}

// One direction of a matrix, from the front.
struct MatrixSide {
  int intervals; // of the matrix
  int parts;     // of an interval
  Range range;
  bool backwards; // the last index stands before the eye

  // Index and share of the next one.
  void split(int k, int& index, double& share) const {
    const int whole = k / parts;
    const double part = static_cast<double>(k % parts) / parts;
    index = backwards ? intervals - whole - (part > 0.0 ? 1 : 0) : whole;
    share = backwards && part > 0.0 ? 1.0 - part : part;
  }
  float box(int index, double share) const {
    const double t = (index + share) / intervals;
    return static_cast<float>((1.0 - t) * static_cast<double>(range.first) + t * static_cast<double>(range.last));
  }
};

MatrixSide matrixSide(const PlotState* s, int axis, int count, int parts) {
  const Range range = matrixRange(s, axis);
  return {count - 1, parts, range, (range.last >= range.first) == eyeIsHigh(s, axis)};
}

// Bilinear between the four values around; a value without share takes no part.
float matrixValue(const float* z, int m, int i, double s, int j, double t) {
  auto value = [&](int di, int dj) {
    return static_cast<double>(
        z[static_cast<std::size_t>(i + di) * static_cast<std::size_t>(m) + static_cast<std::size_t>(j + dj)]);
  };
  double sum = (1.0 - s) * (1.0 - t) * value(0, 0);
  if (s > 0.0) sum += s * (1.0 - t) * value(1, 0);
  if (t > 0.0) sum += (1.0 - s) * t * value(0, 1);
  if (s > 0.0 && t > 0.0) sum += s * t * value(1, 1);
  return static_cast<float>(sum);
}

} // namespace

void SURMAT(const float* z, int n, int m, int nx, int ny) {
  PlotState* s = boxCheck("surmat");
  if (!s || checkRange(s, n, 2, -1) || checkRange(s, m, 2, -1)) return;
  if (nx == 0 && ny == 0) return;
  // A count tells the parts along its lines, and how far the lines stand apart in the other direction.
  const LineCount alongX = lineCount(nx, m - 1), alongY = lineCount(ny, n - 1);
  const MatrixSide x = matrixSide(s, kAxisX, n, alongX.parts), y = matrixSide(s, kAxisY, m, alongY.parts);
  const MeshShape shape{x.intervals / alongY.apart, y.intervals / alongX.apart, alongY.apart * x.parts,
                        alongX.apart * y.parts};
  beginHidden(s);
  drawMesh(s, shape, nx != 0, ny != 0, [&](int a, int b) {
    int i = 0, j = 0;
    double u = 0.0, v = 0.0;
    x.split(a, i, u);
    y.split(b, j, v);
    return BoxPoint{x.box(i, u), y.box(j, v), boxOfUser(s, kAxisZ, matrixValue(z, m, i, u, j, v))};
  });
  endHidden(s);
}

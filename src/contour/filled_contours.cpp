// Bands between contour levels in colours.
#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "contour/band_colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "core/shading.h"
#include "core/stop_request.h"
#include "graph2d/area.h"
#include "graph2d/color_graph.h"
#include "graph2d/color_scale.h"
#include "graph2d/legend.h"
#include "graph2d/scaling.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

enum ContourMethod : int { kByCells = 0, kByPolygons = 1 };
constexpr int kHole = -1; // in place of a band: no value

// What stands for a level in the legend, and its whole polygon: the colour of the band above it.
void useLevelColor(PlotState* s, const ContourBands& bands, int k) {
  const int color = bands.colors[static_cast<std::size_t>(k)];
  useColor(s, color == kNoColor ? colorOfValue(s, bands.levels[static_cast<std::size_t>(k - 1)]) : color);
}

// The band above the level at a position of the given list.
int bandAbove(const ContourBands& bands, int position) {
  const int* const begin = bands.positions.get();
  return static_cast<int>(std::find(begin, begin + bands.n, position) - begin) + 1;
}

// One call: a line of the legend for each level, then what paint paints.
template <class Paint> void paintBands(PlotState* s, const ContourBands& bands, Paint paint) {
  const KeptPen kept = keepPen(s);
  selectPattern(s, kPatternSolid);
  for (int i = 1; i <= bands.n; i++) {
    const int k = bandAbove(bands, i);
    if (bands.colors[static_cast<std::size_t>(k)] != kNoColor) useLevelColor(s, bands, k);
    recordChart(s);
  }
  const Painter painter = beginPainting(s);
  paint();
  endPainting(painter);
  restorePen(s, kept);
}

void fillPart(PlotState* s, const BandPolygon& part, int color) {
  float px[BandPolygon::kMost], py[BandPolygon::kMost];
  if (part.n < 3 || color == kNoColor) return;
  for (int i = 0; i < part.n; i++) {
    const PlotPoint p = plotPoint(s, part.x[i], part.y[i]);
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) return;
    px[i] = p.x;
    py[i] = p.y;
  }
  useColor(s, color);
  fillPolygon(s, px, py, part.n);
}

// Cells of a grid, column by column.
template <class Grid> struct CellPainter {
  PlotState* s;
  const Grid& grid;
  const ContourBands& bands;
  bool straight;           // cells of one band, one above the other, are one rectangle
  const int *left, *right; // bands of the values of the two columns

  // The band that a cell lies in as a whole, or kHole.
  int wholeBand(int j) const {
    const int k = left[j];
    return left[j + 1] == k && right[j] == k && right[j + 1] == k ? k : kHole;
  }

  void paintWhole(int i, int from, int to, int band) const {
    const GridNode a = grid.node(i, from), b = grid.node(i + 1, from), c = grid.node(i + 1, to), d = grid.node(i, to);
    fillPart(s, {{a.x, b.x, c.x, d.x}, {a.y, b.y, c.y, d.y}, 4}, bands.colors[static_cast<std::size_t>(band)]);
  }

  void paintCut(int i, int j) const {
    const auto [least, most] = std::minmax({left[j], left[j + 1], right[j], right[j + 1]});
    if (least == kHole) return;
    CutCell cell{{grid.node(i, j), grid.node(i + 1, j), grid.node(i + 1, j + 1), grid.node(i, j + 1)}, {}};
    const auto& [a, b, c, d] = cell.corner;
    const double z = (static_cast<double>(a.z) + b.z + c.z + d.z) / 4.0;
    cell.center = {-1, -1, Grid::centerOf(a.x, b.x, d.x, c.x), Grid::centerOf(a.y, b.y, d.y, c.y),
                   static_cast<float>(z)};
    for (int k = least; k <= most; k++) {
      const int color = bands.colors[static_cast<std::size_t>(k)];
      if (color != kNoColor) cell.cut(bands.band(k), [&](const BandPolygon& part) { fillPart(s, part, color); });
    }
  }

  void paintColumn(int i) const {
    for (int j = 0; j < grid.m - 1;) {
      const int band = wholeBand(j);
      if (band == kHole) {
        paintCut(i, j++);
        continue;
      }
      const int from = j++;
      while (straight && j < grid.m - 1 && wholeBand(j) == band) j++;
      paintWhole(i, from, j, band);
    }
  }
};

// False if there is not enough memory.
template <class Grid> bool paintCells(PlotState* s, const Grid& grid, const ContourBands& bands, bool straight) {
  const auto m = static_cast<std::size_t>(grid.m);
  const std::unique_ptr<int[]> memory(new (std::nothrow) int[2 * m]);
  if (!memory) return false;
  int *left = memory.get(), *right = left + m;
  auto readColumn = [&](int i, int* column) {
    for (int j = 0; j < grid.m; j++) {
      const float z = grid.value(i, j);
      column[j] = std::isfinite(z) ? bands.bandOf(z) : kHole;
    }
  };
  readColumn(0, left);
  for (int i = 0; i < grid.n - 1 && !stopRequested(); i++) {
    readColumn(i + 1, right);
    CellPainter<Grid>{s, grid, bands, straight, left, right}.paintColumn(i);
    std::swap(left, right);
  }
  return true;
}

// The lines of a level as polygons, if they are closed, in plot coordinates.
struct FilledLine {
  static constexpr int kMost = 25000;
  static constexpr float kClosed = 1.0F, kApart = 0.5F;
  static constexpr bool snaps = true;
  PlotState* s;
  float *x, *y;
  int n = 0;

  void start() {
    if (n > 2 && std::fabs(x[0] - x[n - 1]) < kClosed && std::fabs(y[0] - y[n - 1]) < kClosed) fillPolygon(s, x, y, n);
    n = 0;
  }
  void point(float px, float py) {
    if (n == kMost) return;
    const PlotPoint p = plotPoint(s, px, py);
    if (n > 0 && !(std::fabs(p.x - x[n - 1]) > kApart) && !(std::fabs(p.y - y[n - 1]) > kApart)) return;
    x[n] = p.x;
    y[n++] = p.y;
  }
};

template <class Grid> bool paintPolygons(PlotState* s, const Grid& grid, const ContourBands& bands) {
  const std::unique_ptr<float[]> memory(new (std::nothrow) float[2 * FilledLine::kMost]);
  if (!memory) return false;
  for (int i = 1; i <= bands.n && !stopRequested(); i++) {
    const int k = bandAbove(bands, i);
    if (bands.colors[static_cast<std::size_t>(k)] == kNoColor) continue;
    useLevelColor(s, bands, k);
    FilledLine line{s, memory.get(), memory.get() + FilledLine::kMost};
    if (!traceLevel(grid, bands.levels[static_cast<std::size_t>(k - 1)], line)) return false;
    line.start();
  }
  return true;
}

template <class Grid> void shadeGrid(PlotState* s, const Grid& grid, const float* levels, int count, bool straight) {
  ContourBands bands;
  if (!makeBands(s, levels, count, bands)) return;
  bool enough = true;
  paintBands(s, bands, [&] {
    enough = s->shadeModes.contourMethod == kByPolygons ? paintPolygons(s, grid, bands)
                                                        : paintCells(s, grid, bands, straight);
  });
  if (!enough) warnPlain(s, 53);
}

bool isShadedGrid(PlotState* s, int n, int m, int levels) {
  return !checkRange(s, n, 1, -1) && !checkRange(s, m, 1, -1) && !checkRange(s, levels, 1, -1);
}

bool isMonotonic(const float* v, int n) {
  return std::is_sorted(v, v + n) || std::is_sorted(v, v + n, [](float a, float b) { return a > b; });
}

void paintTriangle(PlotState* s, const GridNode (&corner)[3], const ContourBands& bands) {
  int band[3];
  for (int c = 0; c < 3; c++) {
    if (!std::isfinite(corner[c].z)) return;
    band[c] = bands.bandOf(corner[c].z);
  }
  const auto [least, most] = std::minmax({band[0], band[1], band[2]});
  for (int k = least; k <= most; k++) {
    BandPolygon part;
    cutTriangle(corner, bands.band(k), part);
    fillPart(s, part, bands.colors[static_cast<std::size_t>(k)]);
  }
}

} // namespace

void CONSHD(const float* x, int n, const float* y, int m, const float* z, const float* levels, int nlev) {
  PlotState* s = strictCheck(2, 3, "conshd");
  if (!s || !isShadedGrid(s, n, m, nlev)) return;
  if (!logarithmsExist(s, kAxisX, {x, static_cast<std::size_t>(n)})) return;
  if (!logarithmsExist(s, kAxisY, {y, static_cast<std::size_t>(m)})) return;
  const bool straight = s->axis.axisSystemKind == kSystemRectangular && isMonotonic(y, m);
  shadeGrid(s, RectangularGrid{x, y, z, n, m}, levels, nlev, straight);
}

void CONSHD2(const float* x, const float* y, const float* z, int n, int m, const float* levels, int nlev) {
  PlotState* s = strictCheck(2, 3, "conshd2");
  if (!s || !isShadedGrid(s, n, m, nlev)) return;
  const std::size_t size = static_cast<std::size_t>(n) * static_cast<std::size_t>(m);
  if (!logarithmsExist(s, kAxisX, {x, size}) || !logarithmsExist(s, kAxisY, {y, size})) return;
  shadeGrid(s, CurvilinearGrid{x, y, z, n, m}, levels, nlev, false);
}

void CONFLL(const float* x, const float* y, const float* z, int n, const int* i1, const int* i2, const int* i3,
            int ntri, const float* levels, int nlev) {
  PlotState* s = strictCheck(2, 3, "confll");
  if (!s || checkRange(s, n, 3, -1) || checkRange(s, ntri, 1, -1) || checkRange(s, nlev, 1, -1)) return;
  const std::size_t size = static_cast<std::size_t>(n);
  if (!logarithmsExist(s, kAxisX, {x, size}) || !logarithmsExist(s, kAxisY, {y, size})) return;
  ContourBands bands;
  if (!makeBands(s, levels, nlev, bands)) return;
  paintBands(s, bands, [&] {
    for (int k = 0; k < ntri && !stopRequested(); k++) {
      const int corners[] = {i1[k], i2[k], i3[k]};
      GridNode nodes[3];
      bool good = true;
      for (int c = 0; c < 3 && good; c++) {
        const int v = corners[c];
        good = !checkRange(s, v, 1, n);
        if (good) nodes[c] = {v, 0, x[v - 1], y[v - 1], z[v - 1]};
      }
      if (good) paintTriangle(s, nodes, bands);
    }
  });
}

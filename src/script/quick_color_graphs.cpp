// Quick plots of colours: PLOT3, PLOT3R and SURF3.
#include <algorithm>
#include <cstdlib>

#include "quilla/quilla.h"
#include "script/evaluator.h"
#include "script/quick_plots.h"
#include "script/report.h"
#include "script/system_variables.h"

namespace qsl {
namespace {

// So many FLOAT arrays of one length. Each text is a whole message. False after one of them.
struct ArrayMessages {
  const char *number, *type, *size;
};
bool check_arrays(int n, int wanted, const ArrayMessages& messages) {
  if (n != wanted) {
    report_error(messages.number);
    return false;
  }
  for (int i = 0; i < n; ++i) {
    const ScriptValue* v = resolve_operand(i);
    if (!v) return false;
    if (v->type != kFloatArray) {
      report_error(messages.type);
      return false;
    }
  }
  for (int i = 1; i < n; ++i) {
    if (peek_operand(i)->count == peek_operand(0)->count) continue;
    report_error(messages.size);
    return false;
  }
  return true;
}

const float* operand_floats(int position) { return elements<float>(*peek_operand(position)); }
DataRange operand_range(int position) { return array_range(operand_floats(position), peek_operand(position)->count); }

DataRange joined(DataRange a, DataRange b) { return {std::min(a.low, b.low), std::max(a.high, b.high)}; }

void open_color_graph(DataRange x, DataRange y, DataRange z) {
  begin_quick_plot();
  apply_all_system_variables();
  scale_axis(x, 1);
  scale_axis(y, 2);
  scale_axis(z, 3);
  const float(&a)[3][4] = interp.quick.axis;
  GRAF3(a[0][0], a[0][1], a[0][2], a[0][3], a[1][0], a[1][1], a[1][2], a[1][3], a[2][0], a[2][1], a[2][2], a[2][3]);
  TITLE();
}

// Corners in user coordinates.
void draw_rectangles(int n) {
  const float *x1 = operand_floats(0), *y1 = operand_floats(1), *x2 = operand_floats(2), *y2 = operand_floats(3);
  const float* z = operand_floats(4);
  CLPBOR("axis");
  for (int i = 0; i < n; ++i) {
    const int left = NXPOSN(x1[i]), right = NXPOSN(x2[i]), top = NYPOSN(y1[i]), bottom = NYPOSN(y2[i]);
    const int color = NZPOSN(z[i]);
    if (color < 0) continue;
    RECFLL(std::min(left, right), std::min(top, bottom), std::abs(left - right) + 1, std::abs(top - bottom) + 1, color);
  }
  CLPBOR("page");
  BOX2D();
}

// Extent of the cell of point i of n: to the next point, for the last one to the previous.
int cell_extent(const float* x, int n, int i, int (*place)(float)) {
  if (n < 2) return 1;
  const int other = i + 1 < n ? i + 1 : i - 1;
  return std::abs(place(x[other]) - place(x[i])) + 1;
}

void draw_cells(const GridOperands& g) {
  for (int i = 0; i < g.nx; ++i) {
    const int x = NXPOSN(g.x[i]), width = cell_extent(g.x, g.nx, i, NXPOSN);
    for (int j = 0; j < g.ny; ++j) {
      const int color = NZPOSN(g.z[std::int64_t{i} * g.ny + j]), height = cell_extent(g.y, g.ny, j, NYPOSN);
      if (color >= 0) RECFLL(x - width / 2, NYPOSN(g.y[j]) - height / 2, width, height, color);
    }
  }
}

// An axis that is left out covers the cells, one that is given reaches half a step beyond its ends.
DataRange cell_range(const float* x, int n, bool given) {
  if (!given) return {0.0F, static_cast<float>(n)};
  const float half = n > 1 ? (x[1] - x[0]) / 2.0F : 0.0F;
  return {x[0] - half, x[n - 1] + half};
}

} // namespace

void run_plot3() {
  const int n = evaluate(true);
  if (check_arrays(n, 3,
                   {"Illegal number of parameters in PLOT3", "Parameters in PLOT3 must be floatingpoint arrays",
                    "Mismatch of array sizes in PLOT3"})) {
    open_color_graph(operand_range(0), operand_range(1), operand_range(2));
    CURVE3(operand_floats(0), operand_floats(1), operand_floats(2), peek_operand(0)->count);
    SENDBF();
  }
  clear_stack(0);
}

void run_plot3r() {
  const int n = evaluate(true);
  if (check_arrays(n, 5,
                   {"Illegal number of parameters in PLOT3", "Parameters in PLOT3R must be floatingpoint arrays",
                    "Mismatch of array sizes in PLOT3R"})) {
    open_color_graph(joined(operand_range(0), operand_range(2)), joined(operand_range(1), operand_range(3)),
                     operand_range(4));
    draw_rectangles(peek_operand(0)->count);
    SENDBF();
  }
  clear_stack(0);
}

void run_surf3() {
  constexpr float kMiddle = 0.5F;
  const int n = evaluate(true);
  GridOperands g;
  if (read_surface(n, g, kMiddle, "SURF3")) {
    open_color_graph(cell_range(g.x, g.nx, n >= 2), cell_range(g.y, g.ny, n >= 3), array_range(g.z, g.nx * g.ny));
    draw_cells(g);
    SENDBF();
  }
  std::free(g.memory);
  clear_stack(0);
}

} // namespace qsl

// SURFACE and SURSHADE: a matrix, or a grid with its x and y, as a mesh with hidden lines or as a shaded surface.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <new>

#include "quilla/quilla.h"
#include "script/evaluator.h"
#include "script/quick_plots.h"
#include "script/report.h"
#include "script/system_variables.h"

namespace qsl {
namespace {

// A message about a statement, with its name in place of %s.
bool complain(const char* format, const char* statement) {
  char text[80];
  std::snprintf(text, sizeof text, format, statement);
  report_error(text);
  return false;
}

// The two extents of a matrix.
struct Extents {
  int n, m;
};

// The operands z, z and x, or z, x and y: FLOAT arrays, z of two dimensions. False after a message.
bool check_grid(int n, const char* statement, Extents& extents) {
  if (n == kNothing) return complain("Missing parameters in %s", statement);
  if (n < 1) return false;
  const ScriptValue* z = resolve_operand(0);
  if (!z) return false;
  if (z->ndim != 2) return complain("A two-dimensional array must be passed to %s", statement);
  if (z->type != kFloatArray) return complain("Parameter 1 must be a floatingpoint array in %s", statement);
  extents = {z->dims[0], z->dims[1]};
  for (int k = 1; k < std::min(n, 3); ++k) {
    const ScriptValue* side = resolve_operand(k);
    if (!side) return false;
    if (side->type != kFloatArray)
      return complain(k == 1 ? "Parameter 2 must be a floatingpoint array in %s"
                             : "Parameter 3 must be a floatingpoint array in %s",
                      statement);
    if (side->count != (k == 1 ? extents.n : extents.m)) return complain("Dimension mismatch in %s", statement);
  }
  return true;
}

// The x or y of a grid: of an operand or, where it is left out, 0, 1, 2, ...
struct GridSide {
  std::unique_ptr<float[]> counted;
  const float* values = nullptr;
  DataRange range{};

  bool take(int position, int operands, int n) {
    if (position < operands) {
      values = elements<float>(*peek_operand(position));
    } else {
      counted.reset(new (std::nothrow) float[static_cast<std::size_t>(n)]);
      if (!counted) return false;
      for (int i = 0; i < n; ++i) counted[static_cast<std::size_t>(i)] = static_cast<float>(i);
      values = counted.get();
    }
    if (n > 0) range = {values[0], values[n - 1]};
    return true;
  }
};

using SurfaceRoutine = void (*)(const float* x, int n, const float* y, int m, const float* z);

void draw_surface(int n, const char* statement, SurfaceRoutine routine) {
  Extents e{};
  if (!check_grid(n, statement, e)) return;
  GridSide x, y;
  if (!x.take(1, n, e.n) || !y.take(2, n, e.m)) {
    complain("Not enough memory in %s", statement);
    return;
  }
  begin_quick_plot();
  apply_all_system_variables();
  scale_axis(x.range, 1);
  scale_axis(y.range, 2);
  scale_axis(data_range(0, operand_count()), 3);
  const float(&a)[3][4] = interp.quick.axis;
  NOCLIP();
  GRAF3D(a[0][0], a[0][1], a[0][2], a[0][3], a[1][0], a[1][1], a[1][2], a[1][3], a[2][0], a[2][1], a[2][2], a[2][3]);
  TITLE();
  routine(x.values, e.n, y.values, e.m, elements<float>(*peek_operand(0)));
  RESET("noclip");
  SENDBF();
}

} // namespace

void run_surface() {
  draw_surface(evaluate(true), "SURFACE", SURFCE);
  clear_stack(0);
}

void run_surshade() {
  draw_surface(evaluate(true), "SURSHADE", SURSHD);
  clear_stack(0);
}

} // namespace qsl

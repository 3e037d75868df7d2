// Quick plots of a function on a grid: CONTOUR.
#include <cstdio>
#include <cstdlib>

#include "quilla/quilla.h"
#include "script/evaluator.h"
#include "script/quick_plots.h"
#include "script/report.h"
#include "script/system_variables.h"

namespace qsl {
namespace {

constexpr int kDefaultLevels = 10, kLabelHeight = 25;

// A function z on nx by ny points, and its levels. What the statement leaves out lies in memory of the record.
struct GridOperands {
  const float *x = nullptr, *y = nullptr, *z = nullptr, *levels = nullptr;
  std::int32_t nx = 0, ny = 0, level_count = 0;
  float* memory = nullptr;
};

// The operand of a statement as a FLOAT array; null after a message.
const ScriptValue* float_array(int position, const char* statement) {
  const ScriptValue* v = resolve_operand(position);
  if (!v || v->type == kFloatArray) return v;
  char text[64];
  std::snprintf(text, sizeof text, "Parameter %d must be a floatingpoint array in", position + 1);
  report_error_text(text, statement);
  return nullptr;
}

const ScriptValue* matrix(int position, const char* statement) {
  const ScriptValue* v = resolve_operand(position);
  if (!v) return nullptr;
  if (v->ndim == 2) return float_array(position, statement);
  report_error_text("A two-dimensional array must be passed to", statement);
  return nullptr;
}

// Room for what is left out, and 0, 1, ... as coordinates.
bool make_defaults(GridOperands& g, const char* statement) {
  const std::int64_t places = g.x ? 0 : std::int64_t{g.nx} + g.ny;
  const std::int64_t wanted = places + (g.levels ? 0 : kDefaultLevels);
  if (wanted == 0) return true;
  g.memory = static_cast<float*>(allocate(wanted * static_cast<std::int64_t>(sizeof(float))));
  if (!g.memory) {
    report_error_text("Not enough memory in", statement);
    return false;
  }
  if (!g.x) {
    for (std::int32_t i = 0; i < g.nx; ++i) g.memory[i] = static_cast<float>(i);
    for (std::int32_t j = 0; j < g.ny; ++j) g.memory[g.nx + std::int64_t{j}] = static_cast<float>(j);
    g.x = g.memory;
    g.y = g.memory + g.nx;
  }
  if (g.levels) return true;
  const DataRange range = array_range(g.z, g.nx * g.ny);
  float* levels = g.memory + places;
  for (int i = 0; i < kDefaultLevels; ++i)
    levels[i] = static_cast<float>(i) * (range.high - range.low) / (kDefaultLevels - 1) + range.low;
  g.levels = levels;
  g.level_count = kDefaultLevels;
  return true;
}

// The forms z; z, levels; z, x, y; z, x, y, levels. False after a message.
bool read_operands(int n, GridOperands& g, const char* statement) {
  if (n == kNothing) report_error_text("Missing parameters in", statement);
  if (n <= 0) return false;
  const ScriptValue* z = matrix(0, statement);
  if (!z) return false;
  g.z = elements<float>(*z);
  g.nx = z->dims[0];
  g.ny = z->dims[1];
  if (n == 2 || n >= 4) {
    const ScriptValue* levels = float_array(n == 2 ? 1 : 3, statement);
    if (!levels) return false;
    g.levels = elements<float>(*levels);
    g.level_count = levels->count;
  }
  if (n >= 3) {
    const ScriptValue *x = float_array(1, statement), *y = x ? float_array(2, statement) : nullptr;
    if (!y) return false;
    if (x->count != g.nx || y->count != g.ny) {
      report_error_text("Dimension mismatch in", statement);
      return false;
    }
    g.x = elements<float>(*x);
    g.y = elements<float>(*y);
  }
  return make_defaults(g, statement);
}

void draw_contours(const GridOperands& g) {
  begin_quick_plot();
  LABELS("float", "contour");
  apply_all_system_variables();
  scale_axis(array_range(g.x, g.nx), 1);
  scale_axis(array_range(g.y, g.ny), 2);
  open_axes();
  const int height = GETHGT();
  HEIGHT(kLabelHeight);
  for (std::int32_t i = 0; i < g.level_count; ++i) CONTUR(g.x, g.nx, g.y, g.ny, g.z, g.levels[i]);
  HEIGHT(height);
  SENDBF();
}

} // namespace

void run_contour() {
  GridOperands g;
  if (read_operands(evaluate(true), g, "CONTOUR")) draw_contours(g);
  std::free(g.memory);
  clear_stack(0);
}

} // namespace qsl

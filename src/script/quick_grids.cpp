// Quick plots of a function on a grid: their operands, CONTOUR and CONSHADE.
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

// n coordinates from a first one in steps of 1; returns where they begin.
const float* count_up(float* values, std::int32_t n, float first) {
  for (std::int32_t i = 0; i < n; ++i) values[i] = static_cast<float>(i) + first;
  return values;
}

// Memory for all coordinates and for levels. False after a message.
bool take_memory(GridOperands& g, const char* statement) {
  const std::int64_t wanted = std::int64_t{g.nx} + g.ny + kDefaultLevels;
  g.memory = static_cast<float*>(allocate(wanted * static_cast<std::int64_t>(sizeof(float))));
  if (!g.memory) report_error_text("Not enough memory in", statement);
  return g.memory != nullptr;
}

// Levels in equal steps over the range of the values.
void make_levels(GridOperands& g) {
  const DataRange range = array_range(g.z, g.nx * g.ny);
  float* levels = g.memory + g.nx + g.ny;
  for (int i = 0; i < kDefaultLevels; ++i)
    levels[i] = static_cast<float>(i) * (range.high - range.low) / (kDefaultLevels - 1) + range.low;
  g.levels = levels;
  g.level_count = kDefaultLevels;
}

// The matrix at the first operand, and the coordinates at the second and third as far as they are given. False after a
// message.
bool read_grid(GridOperands& g, int axes, float first, const char* statement) {
  const ScriptValue* axis[2] = {nullptr, nullptr};
  for (int k = 0; k < axes; ++k) {
    axis[k] = float_array(k + 1, statement);
    if (!axis[k]) return false;
  }
  const std::int32_t extents[2] = {g.nx, g.ny};
  for (int k = 0; k < axes; ++k) {
    if (axis[k]->count == extents[k]) continue;
    report_error_text("Dimension mismatch in", statement);
    return false;
  }
  if (!take_memory(g, statement)) return false;
  g.x = axis[0] ? elements<float>(*axis[0]) : count_up(g.memory, g.nx, first);
  g.y = axis[1] ? elements<float>(*axis[1]) : count_up(g.memory + g.nx, g.ny, first);
  return true;
}

bool read_matrix(int n, GridOperands& g, const char* statement) {
  if (n == kNothing) report_error_text("Missing parameters in", statement);
  if (n <= 0) return false;
  const ScriptValue* z = matrix(0, statement);
  if (!z) return false;
  g.z = elements<float>(*z);
  g.nx = z->dims[0];
  g.ny = z->dims[1];
  return true;
}

// The forms z; z, levels; z, x, y; z, x, y, levels. False after a message.
bool read_contours(int n, GridOperands& g, const char* statement) {
  if (!read_matrix(n, g, statement)) return false;
  if (n == 2 || n >= 4) {
    const ScriptValue* levels = float_array(n == 2 ? 1 : 3, statement);
    if (!levels) return false;
    g.levels = elements<float>(*levels);
    g.level_count = levels->count;
  }
  if (!read_grid(g, n >= 3 ? 2 : 0, 0.0F, statement)) return false;
  if (!g.levels) make_levels(g);
  return true;
}

void open_graph(const GridOperands& g) {
  begin_quick_plot();
  LABELS("float", "contour");
  apply_all_system_variables();
  scale_axis(array_range(g.x, g.nx), 1);
  scale_axis(array_range(g.y, g.ny), 2);
  open_axes();
}

void draw_contours(const GridOperands& g) {
  const int height = GETHGT();
  HEIGHT(kLabelHeight);
  for (std::int32_t i = 0; i < g.level_count; ++i) CONTUR(g.x, g.nx, g.y, g.ny, g.z, g.levels[i]);
  HEIGHT(height);
}

void draw_bands(const GridOperands& g) { CONSHD(g.x, g.nx, g.y, g.ny, g.z, g.levels, g.level_count); }

// A statement that takes the operands of contours and draws into a graph of its own.
void run_contours(const char* statement, void (*draw)(const GridOperands& g)) {
  GridOperands g;
  if (read_contours(evaluate(true), g, statement)) {
    open_graph(g);
    draw(g);
    SENDBF();
  }
  std::free(g.memory);
  clear_stack(0);
}

} // namespace

bool read_surface(int n, GridOperands& grid, float first, const char* statement) {
  return read_matrix(n, grid, statement) && read_grid(grid, n >= 3 ? 2 : n - 1, first, statement);
}

void run_contour() { run_contours("CONTOUR", draw_contours); }
void run_conshade() { run_contours("CONSHADE", draw_bands); }

} // namespace qsl

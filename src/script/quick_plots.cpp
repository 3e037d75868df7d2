#include "script/quick_plots.h"

#include <cmath>
#include <cstdio>
#include <cstring>

#include "quilla/quilla.h"
#include "script/evaluator.h"
#include "script/numbers.h"
#include "script/report.h"
#include "script/system_variables.h"

namespace qsl {
namespace {

constexpr int kScatterMarker = 3, kScatterHeight = 10;
constexpr const char* kAxisLetters = "xyz";

// The system variable %X... of an axis, if it exists and has the type.
const ScriptValue* axis_variable(int axis, const char* suffix, Tag tag) {
  char name[kNameLength + 1];
  std::snprintf(name, sizeof name, "%%%c%s", upper_case(kAxisLetters[axis - 1]), suffix);
  const int index = find_variable(name);
  return index >= 0 && require_type(index, tag) ? &variable(index) : nullptr;
}

bool axis_is_automatic(int axis) {
  char name[kNameLength + 1];
  std::snprintf(name, sizeof name, "%%%cAUTO", upper_case(kAxisLetters[axis - 1]));
  const int index = find_variable(name);
  return index >= 0 && variable(index).type == kInt && variable(index).value.i != 0;
}

bool axis_is_logarithmic(int axis) {
  int kinds[3] = {0, 0, 0};
  GETSCL(&kinds[0], &kinds[1], &kinds[2]);
  return kinds[axis - 1] != 0;
}

bool erases_page() {
  const int index = find_variable("%ERASE");
  return index < 0 || !require_type(index, kInt) || variable(index).value.i == 1;
}

// The operands of PLOT and SCATTR: pairs of FLOAT arrays of one length. False after a message.
bool check_pairs(int n) {
  if (n == kNothing || n % 2 != 0) {
    report_error("Missing parameters in PLOT");
    return false;
  }
  for (int i = 0; i < n; ++i) {
    const ScriptValue* v = resolve_operand(i);
    if (!v) return false;
    if (v->type != kFloatArray) {
      report_error("Parameters in PLOT must be floatingpoint arrays");
      return false;
    }
  }
  for (int i = 0; i < n; i += 2) {
    if (peek_operand(i)->count == peek_operand(i + 1)->count) continue;
    report_error("Mismatch of arry sizes in PLOT");
    return false;
  }
  return n > 0;
}

// NaN elements take no part.
void widen(DataRange& range, bool& started, const float* values, int n) {
  for (int k = 0; k < n; ++k) {
    const float x = values[k];
    if (std::isnan(x)) continue;
    if (!started) range = {x, x};
    started = true;
    if (x < range.low) range.low = x;
    if (x > range.high) range.high = x;
  }
}

void draw_pairs(int n, bool scatter) {
  open_axes();
  for (int i = 0; i < n; i += 2) {
    const ScriptValue& x = *peek_operand(i);
    const ScriptValue& y = *peek_operand(i + 1);
    if (!scatter || x.count > 0) CURVE(elements<float>(x), elements<float>(y), x.count);
  }
}

} // namespace

void begin_quick_plot() {
  if (GETLEV() != 0) {
    if (erases_page()) ERASE();
    RESET("setscl");
  } else {
    const bool display = std::strncmp(GETDSP(), "NONE", 4) != 0;
    if (!interp.driver.device_chosen) METAFL(display ? "xwin" : "cons");
    QUIINI();
    COMPLX();
    NOCHEK();
  }
  if (GETLEV() >= 2) ENDGRF();
  PAGERA();
}

DataRange array_range(const float* values, int n) {
  DataRange range{};
  bool started = false;
  widen(range, started, values, n);
  return range;
}

DataRange data_range(int first) {
  DataRange range{};
  bool started = false;
  for (int i = first; i < operand_count(); i += 2) {
    const ScriptValue& v = *peek_operand(i);
    widen(range, started, elements<float>(v), v.count);
  }
  return range;
}

void scale_axis(DataRange range, int axis) {
  const char letter[2] = {kAxisLetters[axis - 1], 0};
  float pair[2] = {range.low, range.high};
  if (axis_is_automatic(axis)) return SETSCL(pair, 2, letter);
  const ScriptValue* low = axis_variable(axis, "MIN", kDouble);
  const ScriptValue* high = axis_variable(axis, "MAX", kDouble);
  const ScriptValue* origin = axis_variable(axis, "OR", kDouble);
  const ScriptValue* step = axis_variable(axis, "STEP", kDouble);
  if (low && high && origin && step) {
    float* kept = interp.quick.axis[axis - 1];
    kept[0] = to_float(low->value.d);
    kept[1] = to_float(high->value.d);
    kept[2] = to_float(origin->value.d);
    kept[3] = to_float(step->value.d);
    return;
  }
  if (low && high) {
    const bool logarithmic = axis_is_logarithmic(axis);
    pair[0] = to_float(logarithmic ? std::pow(10.0, low->value.d) : low->value.d);
    pair[1] = to_float(logarithmic ? std::pow(10.0, high->value.d) : high->value.d);
  }
  SETSCL(pair, 2, letter);
}

void open_axes() {
  const float(&a)[3][4] = interp.quick.axis;
  GRAF(a[0][0], a[0][1], a[0][2], a[0][3], a[1][0], a[1][1], a[1][2], a[1][3]);
  TITLE();
}

void run_plot(bool scatter) {
  const int n = evaluate(true);
  if (check_pairs(n)) {
    begin_quick_plot();
    INCMRK(scatter ? -1 : 0);
    if (scatter) {
      MARKER(kScatterMarker);
      HSYMBL(kScatterHeight);
    }
    apply_all_system_variables();
    scale_axis(data_range(0), 1);
    scale_axis(data_range(1), 2);
    draw_pairs(n, scatter);
    SENDBF();
  }
  clear_stack(0);
}

} // namespace qsl

#include "script/system_variables.h"

#include <cstdio>
#include <string_view>

#include "quilla/quilla.h"
#include "script/name_index.h"
#include "script/numbers.h"
#include "script/report.h"
#include "script/variables.h"

namespace qsl {
namespace {

constexpr int kLevelNone = 0;

// An axis as the library names it.
template <char letter> constexpr char kAxis[2] = {letter, 0};

void set_height(const ScriptValue& v) { HEIGHT(v.value.i); }
void set_name_height(const ScriptValue& v) { HNAME(v.value.i); }
void set_symbol_height(const ScriptValue& v) { HSYMBL(v.value.i); }
void set_title_height(const ScriptValue& v) { HTITLE(v.value.i); }
void set_marker_step(const ScriptValue& v) { INCMRK(v.value.i); }
void set_marker(const ScriptValue& v) { MARKER(v.value.i); }
void set_curve_mode(const ScriptValue& v) { POLCRV(text_of(v)); }
void set_title_shift(const ScriptValue& v) { VKYTIT(v.value.i); }
template <int line> void set_title_line(const ScriptValue& v) { TITLIN(text_of(v), line); }
template <char axis> void set_axis_name(const ScriptValue& v) { NAME(text_of(v), kAxis<axis>); }
template <char axis> void set_digits(const ScriptValue& v) { DIGITS(v.value.i, kAxis<axis>); }
template <char axis> void set_labels(const ScriptValue& v) { LABELS(text_of(v), kAxis<axis>); }
template <char axis> void set_scale(const ScriptValue& v) { SCALE(text_of(v), kAxis<axis>); }
template <char axis> void set_ticks(const ScriptValue& v) { TICKS(v.value.i, kAxis<axis>); }

// Of a pair of settings the one that is not assigned keeps the library's value.
void set_x_length(const ScriptValue& v) {
  int nx = 0, ny = 0, nz = 0;
  GETLEN(&nx, &ny, &nz);
  AXSLEN(v.value.i, ny);
}
void set_y_length(const ScriptValue& v) {
  int nx = 0, ny = 0, nz = 0;
  GETLEN(&nx, &ny, &nz);
  AXSLEN(nx, v.value.i);
}
void set_z_length(const ScriptValue& v) {
  int nx = 0, ny = 0, nz = 0;
  GETLEN(&nx, &ny, &nz);
  AX3LEN(nx, ny, v.value.i);
}
void set_x_resolution(const ScriptValue& v) {
  int width = 0, height = 0;
  GETRES(&width, &height);
  SETRES(v.value.i, height);
}
void set_y_resolution(const ScriptValue& v) {
  int width = 0, height = 0;
  GETRES(&width, &height);
  SETRES(width, v.value.i);
}
void set_contour_shading(const ScriptValue& v) { SHDMOD(text_of(v), "CONTOUR"); }
void set_x_position(const ScriptValue& v) {
  int nx = 0, ny = 0;
  GETPOS(&nx, &ny);
  AXSPOS(v.value.i, ny);
}
void set_y_position(const ScriptValue& v) {
  int nx = 0, ny = 0;
  GETPOS(&nx, &ny);
  AXSPOS(nx, v.value.i);
}

} // namespace

// clang-format off
constexpr SystemVariableRow kSystemVariables[kSystemVariableCount] = {
    {"ARG1", kString, nullptr},
    {"ARG2", kString, nullptr},
    {"ARG3", kString, nullptr},
    {"ARG4", kString, nullptr},
    {"ARG5", kString, nullptr},
    {"ARG6", kString, nullptr},
    {"ARG7", kString, nullptr},
    {"ARG8", kString, nullptr},
    {"CONSHD", kString, set_contour_shading},
    {"ERASE", kInt, nullptr},
    {"H", kInt, set_height},
    {"HNAME", kInt, set_name_height},
    {"HSYMBL", kInt, set_symbol_height},
    {"HTITLE", kInt, set_title_height},
    {"INCMRK", kInt, set_marker_step},
    {"MARKER", kInt, set_marker},
    {"NARGS", kInt, nullptr},
    {"POLCRV", kString, set_curve_mode},
    {"T1", kString, set_title_line<1>},
    {"T2", kString, set_title_line<2>},
    {"T3", kString, set_title_line<3>},
    {"T4", kString, set_title_line<4>},
    {"VTITLE", kInt, set_title_shift},
    {"X", kString, set_axis_name<'x'>},
    {"Y", kString, set_axis_name<'y'>},
    {"Z", kString, set_axis_name<'z'>},
    {"X3LEN", kDouble, nullptr},
    {"Y3LEN", kDouble, nullptr},
    {"Z3LEN", kDouble, nullptr},
    {"X3VIEW", kDouble, nullptr},
    {"Y3VIEW", kDouble, nullptr},
    {"Z3VIEW", kDouble, nullptr},
    {"XAUTO", kInt, nullptr},
    {"YAUTO", kInt, nullptr},
    {"ZAUTO", kInt, nullptr},
    {"XDIG", kInt, set_digits<'x'>},
    {"YDIG", kInt, set_digits<'y'>},
    {"ZDIG", kInt, set_digits<'z'>},
    {"XLAB", kString, set_labels<'x'>},
    {"YLAB", kString, set_labels<'y'>},
    {"ZLAB", kString, set_labels<'z'>},
    {"XLEN", kInt, set_x_length},
    {"YLEN", kInt, set_y_length},
    {"ZLEN", kInt, set_z_length},
    {"XMAX", kDouble, nullptr},
    {"YMAX", kDouble, nullptr},
    {"ZMAX", kDouble, nullptr},
    {"XMIN", kDouble, nullptr},
    {"YMIN", kDouble, nullptr},
    {"ZMIN", kDouble, nullptr},
    {"XOR", kDouble, nullptr},
    {"YOR", kDouble, nullptr},
    {"ZOR", kDouble, nullptr},
    {"XSTEP", kDouble, nullptr},
    {"YSTEP", kDouble, nullptr},
    {"ZSTEP", kDouble, nullptr},
    {"XPOS", kInt, set_x_position},
    {"YPOS", kInt, set_y_position},
    {"XRES", kInt, set_x_resolution},
    {"YRES", kInt, set_y_resolution},
    {"XSCL", kString, set_scale<'x'>},
    {"YSCL", kString, set_scale<'y'>},
    {"ZSCL", kString, set_scale<'z'>},
    {"XTIC", kInt, set_ticks<'x'>},
    {"YTIC", kInt, set_ticks<'y'>},
    {"ZTIC", kInt, set_ticks<'z'>},
};
// clang-format on

namespace {

constexpr NameIndex<kSystemVariableCount> kIndex([](int i) { return std::string_view(kSystemVariables[i].name); });

void apply_slot(int index) {
  const ScriptValue& v = variable(index);
  const int row = find_system_variable(v.name);
  if (row < 0) return report_error_text("Undefined system variable", v.name);
  const SystemVariableRow& r = kSystemVariables[row];
  if (require_type(index, r.type) && r.apply) r.apply(v);
}

} // namespace

int find_system_variable(const char* name) { return kIndex.find(std::string_view(name).substr(1)); }

bool require_type(int index, Tag tag) {
  ScriptValue& v = variable(index);
  if (v.type == tag) return true;
  if (tag == kDouble && (v.type == kInt || v.type == kFloat)) {
    set_double(v, number_of(v));
    return true;
  }
  char text[80];
  std::snprintf(text, sizeof text, "Variable %s must be of type %s", v.name, type_name(tag));
  report_error(text);
  return false;
}

void apply_system_variables(int index) {
  if (GETLEV() != kLevelNone) apply_slot(index);
}

void apply_all_system_variables() {
  if (GETLEV() == kLevelNone) return;
  for (int i = 0; i < kVariables; ++i)
    if (slot_in_use(i) && is_system_name(variable(i).name)) apply_slot(i);
}

} // namespace qsl

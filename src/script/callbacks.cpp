#include "script/callbacks.h"

#include <cstdio>

#include "script/user_routines.h"

namespace qsl {
namespace {

ScriptValue int_value(int number) {
  ScriptValue v{};
  set_int(v, number);
  return v;
}

ScriptValue float_value(float number) {
  ScriptValue v{};
  set_scalar(v, kFloat);
  v.value.f = number;
  return v;
}

// Takes back what a routine has left; a text or an array changes nothing.
void read_back(ScriptValue& v, int* number) {
  if (is_number(v.type)) *number = to_int(number_of(v));
  free_value(v);
}
void read_back(ScriptValue& v, float* number) {
  if (is_number(v.type)) *number = to_float(number_of(v));
  free_value(v);
}

// Runs a routine with integers.
template <typename... Numbers> void call_with(const char* routine, Numbers... numbers) {
  if (!routine[0]) return;
  ScriptValue values[] = {int_value(numbers)...};
  call_back(routine, values, sizeof...(numbers), false);
  for (ScriptValue& v : values) free_value(v);
}

// Runs a routine in the middle of a drawing routine, for its value or its changed arguments. False after a message.
bool call_while_drawing(const char* routine, ScriptValue* values, int count, bool wants_value) {
  interp.control.callback_result = 0.0;
  ++interp.callbacks.drawing;
  const bool good = routine[0] && call_back(routine, values, count, wants_value);
  --interp.callbacks.drawing;
  return good;
}

template <typename... Values> float value_of(const char* routine, Values... arguments) {
  ScriptValue values[] = {arguments...};
  call_while_drawing(routine, values, sizeof...(arguments), true);
  for (ScriptValue& v : values) free_value(v);
  return to_float(interp.control.callback_result);
}

bool is_kept(int widget) { return widget >= 1 && widget <= kWidgetCallbacks; }
const char* widget_routine(int widget) { return is_kept(widget) ? interp.callbacks.widget[widget - 1] : ""; }

} // namespace

void keep_routine(char* slot, int k) {
  const ScriptValue& v = operand_value(k);
  std::snprintf(slot, kCallbackNameLength + 1, "%.*s", static_cast<int>(v.count), text_of(v));
}

void keep_widget_routine(int array_operand) {
  const int widget = operand_value(0).value.i;
  if (!is_kept(widget)) return;
  keep_routine(interp.callbacks.widget[widget - 1], 1);
  const int array = array_operand > 0 ? operand_variable(array_operand) : -1;
  set_name(interp.callbacks.array[widget - 1], array >= 0 ? variable(array).name : "");
}

void call_widget(int widget) { call_with(widget_routine(widget), widget); }

void call_widget_array(int widget, int*) {
  const char* routine = widget_routine(widget);
  if (!routine[0]) return;
  const char* name = interp.callbacks.array[widget - 1];
  ScriptValue values[] = {int_value(widget), {}};
  values[1].type = kAlias;
  values[1].value.index = name[0] ? find_variable(name) : -1;
  call_back(routine, values, 2, false);
  free_value(values[0]);
}

void call_widget_cell(int widget, int row, int column) { call_with(widget_routine(widget), widget, row, column); }
void call_widget_mouse(int widget, int data) { call_with(widget_routine(widget), widget, data); }
void call_window(int window, int x, int y, int width, int height) {
  call_with(interp.callbacks.window, window, x, y, width, height);
}

float call_surface(float x, float y) { return value_of(interp.callbacks.surface, float_value(x), float_value(y)); }
float call_parametric(float u, float v, int coordinate) {
  return value_of(interp.callbacks.parametric, float_value(u), float_value(v), int_value(coordinate));
}

void call_projection(float* x, float* y) {
  ScriptValue values[] = {float_value(*x), float_value(*y)};
  call_while_drawing(interp.callbacks.projection, values, 2, false);
  read_back(values[0], x);
  read_back(values[1], y);
}

void call_pie(int segment, float value, float percent, int* pattern, int* color, float* exploded, int* label_mode,
              int* label_place, int* label_justify, int* label_color) {
  ScriptValue values[] = {int_value(segment),     float_value(value),      float_value(percent),
                          int_value(*pattern),    int_value(*color),       float_value(*exploded),
                          int_value(*label_mode), int_value(*label_place), int_value(*label_justify),
                          int_value(*label_color)};
  call_while_drawing(interp.callbacks.pie, values, 10, false);
  for (int i = 0; i < 3; ++i) free_value(values[i]);
  int* const numbers[] = {pattern, color, nullptr, label_mode, label_place, label_justify, label_color};
  for (int i = 0; i < 7; ++i) {
    if (numbers[i]) {
      read_back(values[3 + i], numbers[i]);
    } else {
      read_back(values[3 + i], exploded);
    }
  }
}

} // namespace qsl

// Routines of the script that the library calls. A row keeps the routine's name and gives the library a function of its
// own here, which runs that routine.
#pragma once

#include "script/bound_routine.h"

namespace qsl {

// What the library calls. Values that come by address are read back from the script's routine.
void call_widget(int widget);
void call_widget_array(int widget, int* data);
void call_widget_cell(int widget, int row, int column);
void call_widget_mouse(int widget, int data);
float call_surface(float x, float y);
float call_parametric(float u, float v, int coordinate);
void call_projection(float* x, float* y);
void call_pie(int segment, float value, float percent, int* pattern, int* color, float* exploded, int* label_mode,
              int* label_place, int* label_justify, int* label_color);
void call_window(int window, int x, int y, int width, int height);

// Keeps the text of operand k as a routine's name.
void keep_routine(char* slot, int k);
// The routine that operand 1 names for the widget of operand 0, and its array, operand 2 or none. Numbers beyond the
// table are not kept.
void keep_widget_routine(int array_operand);

// The rows. Each is made for the library's routine that takes the function.
template <auto library> void run_swgcbk(const Call&) {
  keep_widget_routine(0);
  library(operand_value(0).value.i, call_widget);
}
template <auto library> void run_swgcb(const Call&) {
  keep_widget_routine(2);
  library(operand_value(0).value.i, call_widget_array, nullptr); // the array is found by its name
}
template <auto library> void run_swgcb2(const Call&) {
  keep_widget_routine(0);
  library(operand_value(0).value.i, call_widget_cell);
}
template <auto library> void run_swgcb3(const Call&) {
  keep_widget_routine(0);
  library(operand_value(0).value.i, call_widget_mouse);
}
template <auto library> void run_surfun(const Call& call) {
  keep_routine(interp.callbacks.surface, 0);
  library(call_surface, operand_value(1).value.i, Argument<float>(call, 2).get(), operand_value(3).value.i,
          Argument<float>(call, 4).get());
}
template <auto library> void run_surfcp(const Call& call) {
  keep_routine(interp.callbacks.parametric, 0);
  auto real = [&](int k) { return Argument<float>(call, k).get(); };
  library(call_parametric, real(1), real(2), real(3), real(4), real(5), real(6));
}
template <auto library> void run_setcbk(const Call& call) {
  keep_routine(interp.callbacks.projection, 0);
  Argument<const char*> key(call, 1);
  library(call_projection, key.get());
  key.finish();
}
template <auto library> void run_piecbk(const Call&) {
  keep_routine(interp.callbacks.pie, 0);
  library(interp.callbacks.pie[0] ? call_pie : nullptr);
}
template <auto library> void run_wincbk(const Call& call) {
  keep_routine(interp.callbacks.window, 0);
  Argument<const char*> key(call, 1);
  library(call_window, key.get());
  key.finish();
}

} // namespace qsl

// What is kept for the widgets that a program makes.
#pragma once

namespace quilla {

struct WidgetContext;
struct PlotState;

inline constexpr char kItemSeparator = '|';
inline constexpr int kItemLength = 255; // characters of an item that ITMSTR gives

// Process lifetime.
struct WidgetSetup {
  char itemSeparator = kItemSeparator;         // SWGMIX
  char item[kItemLength + 1] = "";             // the text that ITMSTR gave last
  WidgetContext* context = nullptr;            // owned; from the first call of a widget routine on
  void (*freeWidgets)(PlotState* s) = nullptr; // set with the context: frees it
};

} // namespace quilla

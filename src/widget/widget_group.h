// What is set for the widgets that a program makes.
#pragma once

namespace quilla {

inline constexpr char kItemSeparator = '|';
inline constexpr int kItemLength = 255; // characters of an item that ITMSTR gives

// Process lifetime.
struct WidgetSetup {
  char itemSeparator = kItemSeparator; // SWGMIX
  char item[kItemLength + 1] = "";     // the text that ITMSTR gave last
};

} // namespace quilla

// The axis string of setters: each of the letters X, Y and Z in its first three characters names that axis.
#pragma once

#include "graph2d/axis_group.h"

namespace quilla {

// 0 to 2 for a letter of either case, -1 for any other character.
constexpr int axisOfLetter(char c) {
  if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return c >= 'X' && c <= 'Z' ? c - 'X' : -1;
}

template <class Action> void eachAxis(const char* axes, Action action) {
  for (int i = 0; axes && i < 3 && axes[i]; i++) {
    int axis = axisOfLetter(axes[i]);
    if (axis >= 0) action(axis);
  }
}

} // namespace quilla

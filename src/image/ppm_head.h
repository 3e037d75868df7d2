// The head of a PPM file.
#pragma once

#include "image/image.h"

namespace quilla {

struct PpmHead {
  int width = 0, height = 0, largest = 0;
  bool text = false; // numbers as text
  std::size_t dataPlace = 0;
};

// False if it is none, or a size is missing.
bool readPpmHead(FileBytes file, PpmHead& head);

// The number at a place, behind blanks and comments, and the place behind it; -1 if there is none.
int ppmNumber(FileBytes file, std::size_t& place);

} // namespace quilla

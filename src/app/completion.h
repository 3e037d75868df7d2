// What may follow the letters before the cursor: keywords, routines, functions and variables.
#pragma once

#include <cstddef>

namespace qsl {

inline constexpr int kCompletions = 1200; // keywords, routines, functions and variables together

struct Completions {
  const char* names[kCompletions];
  int count;
  std::size_t common; // letters that all names begin with
};

// All names that begin with the letters, in order, each once. Letters of either case fit.
void find_completions(const char* letters, std::size_t length, Completions& found);

// "CURVE(FLOAT array, FLOAT array, INT)" for a routine or function; false if there is none of that name.
bool describe_routine(const char* name, char* text, std::size_t size);

} // namespace qsl

// Rows with arrays under rules of their own: work copies, and arrays of variables that the library fills in place. Each
// is made for the library's routine.
#pragma once

#include <algorithm>
#include <limits>

#include "script/bound_routine.h"
#include "script/report.h"

namespace qsl {

// Fills of single countries: numbers, patterns and colours. The library may change the patterns, of which it gets a
// copy. family: the routine that the message names.
template <auto library, FixedText family> void run_countries(const Call&) {
  const std::int32_t n = operand_value(3).value.i;
  if (n < 1) return report_error("Non positive parameter");
  const std::size_t size = static_cast<std::size_t>(n) * sizeof(int);
  int* patterns = static_cast<int*>(std::malloc(size));
  if (!patterns) return report_error_text("Not enough memory in", family.text);
  std::memcpy(patterns, elements<int>(operand_value(1)), size);
  library(elements<int>(operand_value(0)), patterns, elements<int>(operand_value(2)), n);
  std::free(patterns);
}

// Operand k as an array that the library fills: a variable with at least so many elements. Else a message with the kind
// of the array and the routine's name as messages tell it.
bool is_array_to_fill(int k, std::int64_t wanted, const char* kind, const char* routine);

// Points that the user marks with the mouse: positions, room for them, their number and a status.
template <auto library, FixedText told_name> void run_cursor_points(const Call&) {
  const std::int32_t n = operand_value(2).value.i;
  for (int k = 0; k < 2; ++k)
    if (!is_array_to_fill(k, n, "Int", told_name.text)) return;
  int count = 0, status = 0;
  library(elements<int>(operand_value(0)), elements<int>(operand_value(1)), n, &count, &status);
  write_int_output(operand_variable(3), count);
  write_int_output(operand_variable(4), status);
}

// Blocks and rows of pixels. item_bytes(): bytes of a pixel as the library gives them.
template <auto library, auto item_bytes> void run_read_pixels(const Call& call) {
  auto size = [](int k) { return operand_value(k).value.i; };
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  const std::int64_t area = std::int64_t{std::max(size(3), 0)} * std::max(size(4), 0);
  if (!is_array_to_fill(0, std::min(area, kMost) * item_bytes(), "Byte", call.name)) return;
  library(elements<unsigned char>(operand_value(0)), size(1), size(2), size(3), size(4));
}
template <auto library, auto item_bytes> void run_read_pixel_row(const Call& call) {
  auto size = [](int k) { return operand_value(k).value.i; };
  if (!is_array_to_fill(0, std::int64_t{std::max(size(3), 0)} * item_bytes(), "Byte", call.name)) return;
  library(elements<unsigned char>(operand_value(0)), size(1), size(2), size(3));
}

} // namespace qsl

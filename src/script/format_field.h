// The field of a conversion in a format: what stands between '%' and its letter.
#pragma once

#include <string_view>

#include "script/script_limits.h"

namespace qsl {

struct FormatField {
  bool left = false, zeros = false;
  int width = 0;
  int precision = -1; // none
};

// A number of digits from position at on; false if it is beyond the widest field.
inline bool read_digits(std::string_view format, std::size_t& at, int& number) {
  number = 0;
  for (; at < format.size() && format[at] >= '0' && format[at] <= '9'; ++at) {
    number = number * 10 + (format[at] - '0');
    if (number > kWidestField) return false;
  }
  return true;
}

// Reads flags ('-' and '0'), width, '.' and decimals, and the letter behind them. False: there is no letter, or the
// parts stand in another order.
inline bool read_field(std::string_view format, std::size_t& at, FormatField& field, char& letter) {
  for (; at < format.size() && (format[at] == '-' || format[at] == '0'); ++at)
    (format[at] == '-' ? field.left : field.zeros) = true;
  if (!read_digits(format, at, field.width)) return false;
  if (at < format.size() && format[at] == '.' && !read_digits(format, ++at, field.precision)) return false;
  if (at == format.size()) return false;
  letter = format[at++];
  return true;
}

} // namespace qsl

// Narrowing conversions whose result is defined for every value.
#pragma once

#include <cstdint>
#include <cstring>
#include <limits>

#include "script/script_value.h"

namespace qsl {

// Truncates toward zero; values outside the range give its nearest end, a NaN gives 0.
inline std::int32_t to_int(double x) {
  if (x >= 2147483647.0) return std::numeric_limits<std::int32_t>::max();
  if (x <= -2147483648.0) return std::numeric_limits<std::int32_t>::min();
  return x == x ? static_cast<std::int32_t>(x) : 0;
}

// Rounds to 32 bits; magnitudes beyond the range become infinite.
inline float to_float(double x) { return static_cast<float>(x); }

// The low bits of an integer.
inline std::int8_t low_char(std::int32_t i) { return static_cast<std::int8_t>(static_cast<std::uint32_t>(i) & 0xFFU); }
inline std::uint8_t low_byte(std::int32_t i) {
  return static_cast<std::uint8_t>(static_cast<std::uint32_t>(i) & 0xFFU);
}
inline std::int16_t low_short(std::int32_t i) {
  return static_cast<std::int16_t>(static_cast<std::uint32_t>(i) & 0xFFFFU);
}

// Sums and products in 32 bits that wrap.
inline std::int32_t wrap_add(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
inline std::int32_t wrap_multiply(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}
inline std::int32_t wrap_negate(std::int32_t a) {
  return static_cast<std::int32_t>(0U - static_cast<std::uint32_t>(a));
}

// Element i of a block of numbers of the given element tag, by its real part.
inline double read_number(int element, const void* data, std::int64_t i) {
  switch (element) {
  case kChar: return static_cast<const std::int8_t*>(data)[i];
  case kByte: return static_cast<const std::uint8_t*>(data)[i];
  case kShort: return static_cast<const std::int16_t*>(data)[i];
  case kInt: return static_cast<const std::int32_t*>(data)[i];
  case kFloat: return static_cast<const float*>(data)[i];
  case kDouble: return static_cast<const double*>(data)[i];
  case kComplex: return static_cast<const Complex*>(data)[i].re;
  default: return 0.0;
  }
}

// Stores a number in element i, narrowed by the rules above.
inline void write_number(int element, void* data, std::int64_t i, double x) {
  switch (element) {
  case kChar: static_cast<std::int8_t*>(data)[i] = low_char(to_int(x)); break;
  case kByte: static_cast<std::uint8_t*>(data)[i] = low_byte(to_int(x)); break;
  case kShort: static_cast<std::int16_t*>(data)[i] = low_short(to_int(x)); break;
  case kInt: static_cast<std::int32_t*>(data)[i] = to_int(x); break;
  case kFloat: static_cast<float*>(data)[i] = to_float(x); break;
  case kDouble: static_cast<double*>(data)[i] = x; break;
  case kComplex: static_cast<Complex*>(data)[i] = {to_float(x), 0.0F}; break;
  default: break;
  }
}

// Number of a scalar by its real part.
inline double number_of(const ScriptValue& v) { return read_number(v.type, &v.value, 0); }

// Division and remainder fault like the machine's: an arithmetic signal ends the process.
[[noreturn]] void arithmetic_fault();
inline std::int32_t divide(std::int32_t a, std::int32_t b) {
  if (b == 0 || (b == -1 && a == std::numeric_limits<std::int32_t>::min())) arithmetic_fault();
  return a / b;
}
inline std::int32_t remainder(std::int32_t a, std::int32_t b) {
  if (b == 0 || (b == -1 && a == std::numeric_limits<std::int32_t>::min())) arithmetic_fault();
  return a % b;
}

} // namespace qsl

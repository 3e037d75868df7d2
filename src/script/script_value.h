// The one record for a variable, an operand and the current token.
#pragma once

#include <cstdint>

#include "script/script_limits.h"

namespace qsl {

// Type tags. They are compared and ordered: an array's tag is its element's tag plus 8.
enum Tag : std::int8_t {
  kFree = 0, // a free slot; on the operand stack an operand without a usable value
  kAlias = 1,
  kChar = 5,
  kByte = 6,
  kShort = 7,
  kInt = 8,
  kFloat = 9,
  kDouble = 10,
  kComplex = 11,
  kString = 12,
  kCharArray = 13,
  kByteArray = 14,
  kShortArray = 15,
  kIntArray = 16,
  kFloatArray = 17,
  kDoubleArray = 18,
  kComplexArray = 19
};
inline constexpr int kArrayOffset = 8;

struct Complex {
  float re, im;
};

union ValueData {
  std::int8_t c;
  std::uint8_t b;
  std::int16_t h;
  std::int32_t i;
  float f;
  double d;
  Complex z;
  void* data;         // text or elements, owned
  std::int32_t index; // target of an alias, -1 for none
};

struct ScriptValue {
  char name[kNameLength + 1]; // upper case, empty for an unnamed operand
  Tag type;
  std::int8_t level;
  std::int8_t ndim; // 1 for strings and plain arrays, 0 for scalars
  std::int32_t count;
  std::int32_t* dims; // extents, only with ndim over 1, owned
  ValueData value;
};

constexpr bool is_array(int tag) { return tag >= kCharArray; }
constexpr bool owns_memory(int tag) { return tag >= kString; }
constexpr bool is_number(int tag) { return tag >= kByte && tag <= kComplex; }
constexpr Tag array_of(int element) { return static_cast<Tag>(element + kArrayOffset); }
// Tag of one element; a string consists of characters.
constexpr Tag element_of(int tag) {
  if (tag == kString) return kChar;
  return static_cast<Tag>(is_array(tag) ? tag - kArrayOffset : tag);
}

// Bytes of one element.
constexpr int element_size(int tag) {
  switch (element_of(tag)) {
  case kChar:
  case kByte: return 1;
  case kShort: return 2;
  case kInt:
  case kFloat: return 4;
  case kDouble:
  case kComplex: return 8;
  default: return 0;
  }
}

// Name of a type for display.
constexpr const char* type_name(int tag) {
  constexpr const char* kNames[] = {"FREE",  "NONE", "NONE",  "NONE",   "NONE",    "CHAR",  "BYTE",
                                    "SHORT", "INT",  "FLOAT", "DOUBLE", "COMPLEX", "STRING"};
  if (tag < 0 || tag > kComplexArray) return "NONE";
  return kNames[is_array(tag) ? tag - kArrayOffset : tag];
}

// C++ type of an element by its tag.
template <int tag> struct ElementType;
template <> struct ElementType<kChar> { using Type = std::int8_t; };
template <> struct ElementType<kByte> { using Type = std::uint8_t; };
template <> struct ElementType<kShort> { using Type = std::int16_t; };
template <> struct ElementType<kInt> { using Type = std::int32_t; };
template <> struct ElementType<kFloat> { using Type = float; };
template <> struct ElementType<kDouble> { using Type = double; };
template <> struct ElementType<kComplex> { using Type = Complex; };

template <typename T> T* elements(const ScriptValue& v) { return static_cast<T*>(v.value.data); }
inline const char* text_of(const ScriptValue& v) { return static_cast<const char*>(v.value.data); }

// Sets a scalar without touching name, level and what was owned before.
inline void set_scalar(ScriptValue& v, Tag tag) {
  v.type = tag;
  v.ndim = 0;
  v.count = 1;
  v.dims = nullptr;
  v.value.d = 0.0;
}
inline void set_int(ScriptValue& v, std::int32_t number) {
  set_scalar(v, kInt);
  v.value.i = number;
}
inline void set_double(ScriptValue& v, double number) {
  set_scalar(v, kDouble);
  v.value.d = number;
}

} // namespace qsl

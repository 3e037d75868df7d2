// Rows made by the compiler: a library function and a signature, held against each other when the table is compiled.
#pragma once

#include <cstdlib>
#include <cstring>
#include <tuple>
#include <type_traits>
#include <utility>

#include "script/binding.h"
#include "script/numbers.h"
#include "script/variables.h"

namespace qsl {

// A text as a template argument.
template <std::size_t N> struct FixedText {
  char text[N];
  consteval FixedText(const char (&t)[N]) {
    for (std::size_t i = 0; i < N; ++i) text[i] = t[i];
  }
  constexpr std::string_view view() const { return {text, N - 1}; }
};

// Whether a parameter of the library fits a field.
template <typename P> constexpr bool parameter_fits(std::string_view field) {
  if (std::is_same_v<P, float>) return field == "X" || field == "F";
  if (std::is_same_v<P, int>) return field == "I" || field == "B";
  if (std::is_same_v<P, const char*>) return field == "S";
  if (std::is_same_v<P, const float*>) return field == "FR";
  if (std::is_same_v<P, const int*>) return field == "IR";
  if (std::is_same_v<P, const unsigned char*>) return field == "BR";
  if (std::is_same_v<P, float*>) return field == "U" || field == "FR";
  if (std::is_same_v<P, int*>) return field == "U" || field == "IR";
  if (std::is_same_v<P, unsigned char*>) return field == "AR" || field == "BR";
  return false;
}

// An operand on its way into a parameter and, for an output, back.
template <typename P> struct Argument {
  P value;
  explicit Argument(int k) { value = static_cast<P>(number_of(operand_value(k))); }
  P get() { return value; }
  void finish() {}
};

template <> struct Argument<int> {
  int value;
  explicit Argument(int k) {
    const ScriptValue& v = operand_value(k);
    value = v.type == kByte ? v.value.b : v.value.i;
  }
  int get() { return value; }
  void finish() {}
};

// A text with an end mark. A CHAR array without one is copied.
template <> struct Argument<const char*> {
  const char* text;
  char* copy = nullptr;
  explicit Argument(int k) {
    const ScriptValue& v = operand_value(k);
    text = text_of(v);
    const std::size_t count = static_cast<std::size_t>(v.count);
    if (v.type == kString || std::memchr(text, 0, count)) return;
    copy = static_cast<char*>(allocate(v.count));
    text = copy ? copy : "";
    if (!copy) return;
    std::memcpy(copy, v.value.data, count);
    copy[count] = 0;
  }
  const char* get() { return text; }
  void finish() { std::free(copy); }
};

// The elements of an array, in place.
template <typename T> struct ArrayArgument {
  T* data;
  explicit ArrayArgument(int k) : data(elements<T>(operand_value(k))) {}
  T* get() { return data; }
  void finish() {}
};

// An output variable.
template <typename T> struct OutputArgument {
  T value = 0;
  int variable_index;
  explicit OutputArgument(int k) : variable_index(operand_variable(k)) {}
  T* get() { return &value; }
  void finish() {
    if constexpr (std::is_same_v<T, int>) {
      write_int_output(variable_index, value);
    } else {
      write_real_output(variable_index, static_cast<double>(value));
    }
  }
};

template <typename P, bool output> struct ArgumentOf { using Type = Argument<P>; };
template <typename T> struct ArgumentOf<T*, false> { using Type = ArrayArgument<std::remove_const_t<T>>; };
template <> struct ArgumentOf<const char*, false> { using Type = Argument<const char*>; };
template <typename T> struct ArgumentOf<T*, true> { using Type = OutputArgument<T>; };

inline void keep_result(ScriptValue& result, int value) { set_int(result, value); }
inline void keep_result(ScriptValue& result, float value) { set_double(result, static_cast<double>(value)); }
inline void keep_result(ScriptValue& result, double value) { set_double(result, value); }
inline void keep_result(ScriptValue& result, const char* value) { set_string(result, value); }

// Unpacks the operands, calls the function, writes outputs and result.
template <auto function, FixedText signature, typename R, typename... P, std::size_t... k>
void call_library(const Call& call, R (*)(P...), std::index_sequence<k...>) {
  std::tuple<typename ArgumentOf<P, signature_field(signature.view(), static_cast<int>(k)) == "U">::Type...> arguments(
      static_cast<int>(k)...);
  if constexpr (std::is_void_v<R>) {
    function(std::get<k>(arguments).get()...);
  } else {
    keep_result(*call.result, function(std::get<k>(arguments).get()...));
  }
  (std::get<k>(arguments).finish(), ...);
}

template <auto function, FixedText signature> void run_bound(const Call& call) {
  [&]<typename R, typename... P>(R (*f)(P...)) {
    static_assert(signature_length(signature.view()) == sizeof...(P), "as many fields as parameters");
    [&]<std::size_t... k>(std::index_sequence<k...> sequence) {
      static_assert((parameter_fits<P>(signature_field(signature.view(), static_cast<int>(k))) && ...),
                    "each parameter fits its field");
      call_library<function, signature>(call, f, sequence);
    }
    (std::index_sequence_for<P...>{});
  }(function);
}

// A row whose counts name array and integer fields of its signature.
consteval RoutineRow checked_row(RoutineRow row) {
  const std::string_view signature(row.signature);
  for (const ArrayCount& c : row.counts) {
    if (c.array == 0) break;
    if (!signature_field(signature, c.array - 1).ends_with('R')) throw "the counted operand is no array";
    if (signature_field(signature, c.count - 1) != "I") throw "the count is no integer";
    if (c.times != 0 && signature_field(signature, c.times - 1) != "I") throw "the second count is no integer";
  }
  return row;
}

// A row that calls a library function.
template <FixedText name, FixedText signature, auto function, typename... Counts>
consteval RoutineRow bound(Counts... counts) {
  return checked_row({name.text, signature.text, run_bound<function, signature>, {counts...}});
}

// A row with rules of its own.
template <typename... Counts>
consteval RoutineRow own(const char* name, const char* signature, void (*run)(const Call&), Counts... counts) {
  return checked_row({name, signature, run, {counts...}});
}

// A row whose routine does not exist yet.
consteval RoutineRow absent(const char* name, const char* signature) { return {name, signature, nullptr, {}}; }

// Array operand and the operand that counts it, or the two whose product does.
consteval ArrayCount counted(int array, int count, int times = 0) {
  return {static_cast<unsigned char>(array), static_cast<unsigned char>(count), static_cast<unsigned char>(times)};
}

} // namespace qsl

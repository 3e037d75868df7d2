// Rows made by the compiler: a library function and a signature, held against each other when the table is compiled.
#pragma once

#include <cstdlib>
#include <cstring>
#include <tuple>
#include <type_traits>
#include <utility>

#include "quilla/quilla.h"
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
  if (std::is_same_v<P, char*>) return field == "U";
  if (std::is_same_v<P, unsigned char*>) return field == "AR" || field == "BR";
  if (std::is_same_v<P, void*> || std::is_same_v<P, const void*>) return field == "AR";
  if (std::is_same_v<P, short>) return field == "H";
  if (std::is_same_v<P, short*>) return field == "HR";
  return false;
}

// Whether an operand reaches the library. Those of SHORT, of characters, and of wide types do not: a scalar counts as
// 0, and without its array a routine is not called.
constexpr bool is_delivered(int type) {
  return type != kChar && type != kShort && type != kComplex && type != kShortArray && type < kDoubleArray;
}

// An operand on its way into a parameter and, for an output, back.
template <typename P> struct Argument {
  P value = 0;
  Argument(const Call&, int k) {
    if (is_delivered(operand_value(k).type)) value = static_cast<P>(number_of(operand_value(k)));
  }
  P get() { return value; }
  void finish() {}
};

template <> struct Argument<int> {
  int value;
  Argument(const Call&, int k) {
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
  Argument(const Call&, int k) {
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
  ArrayArgument(const Call&, int k)
      : data(is_delivered(operand_value(k).type) ? static_cast<T*>(operand_value(k).value.data) : nullptr) {}
  T* get() { return data; }
  void finish() {}
};

// An output variable that receives a number, or an array whose memory the row has taken.
template <typename T> struct OutputArgument {
  T value = 0;
  T* array = nullptr;
  int variable_index;
  OutputArgument(const Call& call, int k) : variable_index(operand_variable(k)) {
    for (int i = 0; call.arrays && i < kArrayOutputs; ++i)
      if (call.row->outputs[i].operand == k + 1) array = static_cast<T*>(call.arrays[i].data);
  }
  T* get() { return array ? array : &value; }
  void finish() {
    if (array) return;
    if constexpr (std::is_same_v<T, int>) {
      write_int_output(variable_index, value);
    } else {
      write_real_output(variable_index, static_cast<double>(value));
    }
  }
};

// An output variable that receives a text.
template <> struct OutputArgument<char> {
  char text[QUILLA_TEXT_SIZE] = "";
  int variable_index;
  OutputArgument(const Call&, int k) : variable_index(operand_variable(k)) {}
  char* get() { return text; }
  void finish() { write_text_output(variable_index, text); }
};

template <typename P, bool output> struct ArgumentOf { using Type = Argument<P>; };
template <typename T> struct ArgumentOf<T*, false> { using Type = ArrayArgument<std::remove_const_t<T>>; };
template <> struct ArgumentOf<const char*, false> { using Type = Argument<const char*>; };
template <typename T> struct ArgumentOf<T*, true> { using Type = OutputArgument<T>; };

// An array operand of which the library gets nothing.
template <typename P> bool is_missing(ArrayArgument<P>& a) { return !a.get(); }
template <typename A> bool is_missing(A&) { return false; }

inline void keep_result(ScriptValue& result, int value) { set_int(result, value); }
inline void keep_result(ScriptValue& result, short value) {
  set_scalar(result, kShort);
  result.value.h = value;
}
inline void keep_result(ScriptValue& result, float value) { set_double(result, static_cast<double>(value)); }
inline void keep_result(ScriptValue& result, double value) { set_double(result, value); }
inline void keep_result(ScriptValue& result, const char* value) { set_string(result, value); }

// Unpacks the operands, calls the function, writes outputs and result.
template <auto function, FixedText signature, typename R, typename... P, std::size_t... k>
void call_library(const Call& call, R (*)(P...), std::index_sequence<k...>) {
  std::tuple<typename ArgumentOf<P, signature_field(signature.view(), static_cast<int>(k)) == "U">::Type...> arguments(
      {call, static_cast<int>(k)}...);
  if ((is_missing(std::get<k>(arguments)) || ...)) return (std::get<k>(arguments).finish(), ...);
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

// A function with one more parameter in place of its value, for rows whose last operand receives it.
template <auto function> struct ValueLast;
template <typename R, typename... P, R (*function)(P...)> struct ValueLast<function> {
  static void call(P... arguments, R* value) { *value = function(arguments...); }
};
template <auto function> inline constexpr auto value_last = ValueLast<function>::call;

// Array operand and the operand that counts it, or those whose product does.
consteval ArrayCount counted(int array, int count, int times = 0, int times_too = 0) {
  return {static_cast<unsigned char>(array),
          static_cast<unsigned char>(count),
          static_cast<unsigned char>(times),
          static_cast<unsigned char>(times_too),
          0,
          false};
}
// The same with elements beyond the count, which may be missing (0).
consteval ArrayCount counted_and(int array, int count, int extra) {
  return {static_cast<unsigned char>(array),
          static_cast<unsigned char>(count),
          0,
          0,
          static_cast<unsigned char>(extra),
          false};
}
// The count is one of bytes.
consteval ArrayCount counted_bytes(int array, int count) {
  return {static_cast<unsigned char>(array), static_cast<unsigned char>(count), 0, 0, 0, true};
}

// Output operand that receives an array, and the operand that gives its size, or two by their product.
consteval ArrayOutput floats(int operand, int count, int times = 0) {
  return {static_cast<unsigned char>(operand), kFloatArray, static_cast<unsigned char>(count),
          static_cast<unsigned char>(times)};
}
consteval ArrayOutput ints(int operand, int count, int times = 0) {
  return {static_cast<unsigned char>(operand), kIntArray, static_cast<unsigned char>(count),
          static_cast<unsigned char>(times)};
}

// A row under construction.
struct RowParts {
  RoutineRow row;
  std::size_t counts, outputs;
};
consteval bool is_integer(std::string_view signature, int position) {
  return position == 0 || signature_field(signature, position - 1) == "I";
}
consteval void add(RowParts& r, ArrayCount c) {
  const std::string_view signature(r.row.signature);
  if (!signature_field(signature, c.array - 1).ends_with('R')) throw "the counted operand is no array";
  if (!is_integer(signature, c.count) || !is_integer(signature, c.times) || !is_integer(signature, c.times_too))
    throw "the count is no integer";
  r.row.counts[r.counts++] = c;
}
consteval void add(RowParts& r, ArrayOutput o) {
  const std::string_view signature(r.row.signature);
  if (signature_field(signature, o.operand - 1) != "U") throw "the operand is no output";
  if (!is_integer(signature, o.count) || !is_integer(signature, o.times)) throw "the size is no integer";
  r.row.outputs[r.outputs++] = o;
}

// A row whose counts and outputs name operands of the right kind.
template <typename... Parts>
consteval RoutineRow made_row(const char* name, const char* signature, void (*run)(const Call&), Parts... parts) {
  RowParts r{{name, signature, run, {}, {}}, 0, 0};
  (add(r, parts), ...);
  return r.row;
}

// A row that calls a library function.
template <FixedText name, FixedText signature, auto function, typename... Parts>
consteval RoutineRow bound(Parts... parts) {
  return made_row(name.text, signature.text, run_bound<function, signature>, parts...);
}

// A row with rules of its own.
template <typename... Parts>
consteval RoutineRow own(const char* name, const char* signature, void (*run)(const Call&), Parts... parts) {
  return made_row(name, signature, run, parts...);
}

// A row whose routine does not exist yet. What is told of its arrays holds for the routine to come.
template <typename... Parts> consteval RoutineRow absent(const char* name, const char* signature, Parts... parts) {
  return made_row(name, signature, nullptr, parts...);
}

// A row that no operands fit: its signature has a field of no meaning.
consteval RoutineRow never(const char* name, const char* signature) {
  constexpr std::string_view kFields[] = {"I", "H", "B", "F", "X", "S", "FR", "IR", "BR", "HR", "AR", "U", "V"};
  bool strange = false;
  for (int k = 0; k < signature_length(signature); ++k) {
    bool known = false;
    for (std::string_view field : kFields) known |= signature_field(signature, k) == field;
    strange |= !known;
  }
  if (!strange) throw "operands fit the signature";
  return {name, signature, nullptr, {}, {}};
}

} // namespace qsl

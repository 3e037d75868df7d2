// UTFINT and INTUTF: outputs whose size is one of the operands.
#include "quilla/quilla.h"
#include "script/bound_routine.h"
#include "script/own_routines.h"
#include "script/report.h"

namespace qsl {

namespace {

// Zeroed memory for an output of as many elements as operand k says; null after a message.
void* output_memory(int k, int element) {
  const std::int32_t size = operand_value(k).value.i;
  if (size < 1) {
    report_error("Non positive parameter");
    return nullptr;
  }
  void* memory = allocate_zeroed(size, element);
  if (!memory) report_error("Not enough memory");
  return memory;
}

// Gives a variable the elements of an array or the bytes of a text.
void give_memory(int index, Tag tag, void* memory, std::int32_t count) {
  ScriptValue& v = variable(index);
  free_value(v);
  set_scalar(v, tag);
  v.ndim = 1;
  v.count = count;
  v.value.data = memory;
}

} // namespace

void run_utfint(const Call&) {
  Argument<const char*> text(0);
  int* codes = static_cast<int*>(output_memory(2, static_cast<int>(sizeof(int))));
  if (!codes) return text.finish();
  const std::int32_t size = operand_value(2).value.i;
  const int count = UTFINT(text.get(), codes, size);
  text.finish();
  give_memory(operand_variable(1), kIntArray, codes, size);
  write_int_output(operand_variable(3), count);
}

void run_intutf(const Call&) {
  const std::int32_t size = operand_value(3).value.i;
  char* text = static_cast<char*>(output_memory(3, 1));
  if (!text) return;
  const int length = INTUTF(elements<int>(operand_value(0)), operand_value(1).value.i, text, size);
  ScriptValue& output = variable(operand_variable(2));
  free_value(output);
  set_string(output, text, length < 0 ? 0 : length);
  std::free(text);
  write_int_output(operand_variable(4), length);
}

} // namespace qsl
